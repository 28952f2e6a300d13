// SPDX-License-Identifier: GPL-3.0-or-later
// The window of the timeline over fakes, with a night of three intrusions and one of the day before.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include "fakes/fake_message_boxes.h"
#include "fakes/fake_photo_reader.h"
#include "fakes/fake_timeline_ports.h"
#include "journal/forms/form_timeline.h"

namespace vaktor::essai {

inline const QDate kJour(2026, 11, 22);

inline QString Nom(const QTime& heure, int numero) {
  return QStringLiteral("2026-11-22  %1 Photo %2.jpg")
      .arg(heure.toString(QStringLiteral("hh-mm-ss")))
      .arg(numero, 5, 10, QLatin1Char('0'));
}

inline IntrusionVue Intrusion(const QDateTime& debut, int photos, int points) {
  IntrusionVue vue;
  vue.Debut = debut;
  vue.DureeMs = qint64{photos} * 1000;
  vue.Points = points;
  vue.Dossier = QStringLiteral("/p");
  for (int i = 0; i < photos; ++i) {
    vue.Photos += Nom(debut.time().addSecs(i), i + 1);
    vue.Cadres.append({i + 1, QRect(i, i, 10, 10)});
  }
  vue.Parlante = vue.Photos.value(photos / 2);
  vue.Cadre = QRect(4, 3, 20, 15);
  vue.Ecrites = photos;
  return vue;
}

class BancFrise : public testing::Test {
 protected:
  BancFrise() {
    Reglages.LangueCourante = 1;
    Reglages.RepertoirePhoto = QStringLiteral("/p");
    for (const int heure : {2, 3, 5})
      Nuit.Intrusions.append(Intrusion(QDateTime(kJour, QTime(heure, 12, 5)), 4, heure * 100));
    Nuit.Intrusions.prepend(Intrusion(QDateTime(kJour.addDays(-1), QTime(1, 0)), 2, 50));
    Nuit.Armees.append({QDateTime(kJour.addDays(-1), QTime(22, 0)), QDateTime(kJour, QTime(8, 0)), false});
    BandeCondition perdue;
    perdue.De = QDateTime(kJour, QTime(4, 0));
    perdue.A = QDateTime(kJour, QTime(4, 30));
    perdue.Quoi = Condition::kSignalPerdu;
    Nuit.Conditions.append(perdue);
    Nuit.Marques.append({QDateTime(kJour, QTime(6, 0)), Fait::kCourriel});
  }
  void Ouvre() {
    Fenetre.Ouvre();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Fenetre));
    Chroniques.Livre(Nuit);
    QCoreApplication::processEvents();
  }
  template <typename T>
  T& Trouve(const char* nom) {
    return *Fenetre.findChild<T*>(QLatin1String(nom));
  }
  ListeCartes& Cartes() { return Trouve<ListeCartes>("ListeCartes"); }
  BandeFrise& Bande() { return Trouve<BandeFrise>("BandeFrise"); }
  void Clique(const char* nom) { QTest::mouseClick(&Trouve<QAbstractButton>(nom), Qt::LeftButton); }
  QPoint PlaceDe(double heures) {
    const BandeFrise& bande = Bande();
    return {static_cast<int>(heures / 24 * (bande.width() - 1)), bande.height() - 40};
  }

  Parametres Reglages;
  Chronique Nuit;
  faux::LecteurChroniqueFaux Chroniques;
  faux::LecteurVignettesFaux Vignettes;
  faux::LecteurPhotosFaux Photos;
  faux::EcrivainFilmFaux Films;
  faux::DialogueSauvegardeFaux Dialogue;
  faux::BoitesFausses Boites;
  int Erreur = 0;
  QStringList Supprimes;
  QString Question;
  std::function<void()> FinSuppression;
  FrmFrise Fenetre{
      {Chroniques, Vignettes, Photos, Films, Dialogue, Boites, Reglages, QStringLiteral("r1"),
       [this](const QString& dossier, const QStringList& noms, const QString& question, std::function<void()> fini) {
         Supprimes = noms;
         Supprimes.prepend(dossier);
         Question = question;
         FinSuppression = std::move(fini);
       },
       [this] { return Erreur; }, [] { return kJour; }}};
};

}  // namespace vaktor::essai
