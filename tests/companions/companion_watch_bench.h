// SPDX-License-Identifier: GPL-3.0-or-later
// The watch over the companions on fakes: virtual time, and processes that are a list.
#pragma once

#include <gtest/gtest.h>

#include <new>

#include "companions/companion_fakes.h"
#include "fakes/fake_health_report.h"

namespace vaktor::essai {

inline const QString kFtp = QStringLiteral("/opt/vaktor/VAKTORftp");
inline const QString kMail = QStringLiteral("/opt/vaktor/VAKTORmail");
inline const QString kSon = QStringLiteral("/opt/vaktor/VAKTORsound");

struct Veille : testing::Test {
  QStringList Journal;
  ProcessusFaux Processus{Journal};
  CanalFaux Canal{Journal};
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::SanteFausse Sante;
  EtatLiaison Etat;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/home/u/vaktor")};
  Parametres Reglages;
  LecteurCasiersFaux Lecteur;
  GardeCasiers Casiers{PortsGarde{Lecteur, Canal, Sante,
                                  [] {
                                    return PoigneesPubliees{1001, 1002, 1003};
                                  },
                                  [this] { Journal << QStringLiteral("republie"); }}};
  VeilleCompagnons Regles{
      PortsVeille{Processus, Canal, Etat, Temps, Sante, Dossiers, Reglages, Casiers,
                  [this](Compagnon c) {
                    if (SansMemoire) throw std::bad_alloc();
                    Journal << QStringLiteral("perte ") + DonneIdentite(c).Section;
                  },
                  [this](Compagnon c) { Journal << QStringLiteral("retour ") + DonneIdentite(c).Section; },
                  [this](Compagnon c, std::function<void()> fini) {
                    if (SansMemoire) throw std::bad_alloc();
                    Journal << QStringLiteral("balaie ") + DonneIdentite(c).Section;
                    Balais.append(std::move(fini));
                    if (!BalaiMuet) Balais.takeLast()();
                  }}};
  QList<std::function<void()>> Balais;
  bool BalaiMuet = false;    ///< the sweep takes long
  bool SansMemoire = false;  ///< for what is called back

  void Lance() {
    for (const Compagnon compagnon : kCompagnons) EXPECT_TRUE(Regles.Lance(compagnon));
    Regles.Commence();
  }
  /// The companion gives its handle: 21, 22 or 23.
  void Inscrit(Compagnon compagnon) {
    qint32* const poignees[] = {&Etat.HandleFTP, &Etat.HandleMail, &Etat.HandleSon};
    *poignees[static_cast<int>(compagnon)] = 21 + static_cast<int>(compagnon);
    Regles.Inscrit(compagnon);
  }
  void LanceEtInscrit() {
    Lance();
    for (const Compagnon compagnon : kCompagnons) Inscrit(compagnon);
    Journal.clear();
  }
  /// Another copy of the program comes up and ends the companions of this one.
  void LanceEtUneAutreCopieFinitTout() {
    LanceEtInscrit();
    Lecteur.Lues = PoigneesPubliees{5001, 5002, 5003};
    Canal.Presents = {5001, 5002, 5003};
    for (const QString& chemin : {kFtp, kMail, kSon}) Processus.Finit(chemin);
  }
  int Relances(const QString& chemin) const {
    return static_cast<int>(Journal.count(QStringLiteral("relance ") + chemin));
  }
  void Secondes(int secondes) { Temps.Avance(secondes * 1000LL); }
};

}  // namespace vaktor::essai
