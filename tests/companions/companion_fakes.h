// SPDX-License-Identifier: GPL-3.0-or-later
// Everything around the companions' rules, recorded in one journal, so that orders across ports can be told.
#pragma once

#include <gtest/gtest.h>

#include <QMap>
#include <QStringList>
#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "base/failure.h"
#include "base/ports/opener.h"
#include "companions/companion_watch.h"
#include "companions/form_winsock.h"
#include "companions/inbox_guard.h"
#include "companions/live_publishing.h"
#include "companions/module_lifecycle.h"
#include "companions/module_send_messages.h"
#include "companions/second_copies.h"
#include "fakes/virtual_timers.h"

namespace vaktor::essai {

class CanalFaux : public CanalMessages {
 public:
  explicit CanalFaux(QStringList& journal) : J_(journal) {}
  qint32 OuvreCasier(std::function<void(const QString&)> recu) override {
    const qint32 poignee = Prochaine++;
    Casiers[poignee] = std::move(recu);
    J_ << QStringLiteral("ouvre %1").arg(poignee);
    return poignee;
  }
  void FermeCasier(qint32 poignee) override { Casiers.erase(poignee); }
  void PosteTouche(qint32 poignee, qint32 code, Tenue tenue) noexcept override {
    J_ << QStringLiteral("poste %1 %2").arg(poignee).arg(code);
    DerniereTenue = tenue;
  }
  Prise DonnePrise(qint32 poignee) override { return Prises.value(poignee, Prise::kRien); }
  void OublieFenetre(qint32 poignee) noexcept override { J_ << QStringLiteral("oublie %1").arg(poignee); }
  std::optional<bool> Repond(qint32 poignee) const override {
    if (SansDescripteur || Inconnus.contains(poignee)) return std::nullopt;
    return Presents.contains(poignee);
  }
  std::map<qint32, std::function<void(const QString&)>> Casiers;
  qint32 Prochaine = 1001;
  Tenue DerniereTenue = Tenue::kOrdinaire;
  QMap<qint32, Prise> Prises;
  QList<qint32> Presents;        ///< handles that somebody holds
  QList<qint32> Inconnus;        ///< of these nobody can tell just now
  bool SansDescripteur = false;  ///< who holds what cannot be found out

 private:
  QStringList& J_;
};

class MagasinFaux : public MagasinReglages {
 public:
  explicit MagasinFaux(QStringList& journal) : J_(journal) {}
  QString LitReglage(const QString&, const QString&, const QString& defaut) const override { return defaut; }
  void EcritReglage(const QString& section, const QString& cle, const QString& valeur) override {
    J_ << QStringLiteral("ecrit %1/%2=%3").arg(section, cle, valeur);
  }
  void Reprend(const QString& section, const QString& cle) override {
    J_ << QStringLiteral("reprend %1/%2").arg(section, cle);
  }
  void Vide() override {
    J_ << QStringLiteral("vide");
    if (Plein) throw Echec(kAccesFichier, QStringLiteral("disk full"));
  }
  bool Plein = false;

 private:
  QStringList& J_;
};

class CommandesFaux : public CommandesModules {
 public:
  explicit CommandesFaux(QStringList& journal) : J_(journal) {}
  void EnvoiFTP(Commande commande) override { J_ << QStringLiteral("FTP ") + DonneMot(commande); }
  void EnvoiMail(Commande commande) override { J_ << QStringLiteral("MAIL ") + DonneMot(commande); }
  void EnvoiSon(Commande commande) override { J_ << QStringLiteral("SON ") + DonneMot(commande); }

 private:
  QStringList& J_;
};

/// Both displays of the main window; what the companions' rules never call is left without record.
class FenetreFausse : public AffichageSurveillance, public AffichageLiaison {
 public:
  explicit FenetreFausse(QStringList& journal) : J_(journal) {}
  static QString Nomme(Lampe lampe) {
    if (lampe == Lampe::kRouge) return QStringLiteral("LEDRED");
    return lampe == Lampe::kVerte ? QStringLiteral("LEDVERT") : QStringLiteral("LEDREDON");
  }
  void MontreLibelleAlarme(LibelleAlarme) override { J_ << QStringLiteral("libelle"); }
  void NommeAlarmeInactive() override {}
  void GriseLibelleAlarme() override {}
  void MontreCompteARebours(qint32) override {}
  void MontreCompteurs(qint32, qint32) override {}
  void MontreBarre(qint32) override {}
  void RafraichitVue() override {}
  void MontreVuePixel() override {}
  void MontreZoom(const QRect&) override {}
  void CopiePleinEcran() override {}
  void RafraichitPleinEcran() override {}
  void MontreMoniteur() override {}
  void MontreAvis(AvisMoniteur) override {}
  void ActiveBouton(qint32 index, bool actif) override {
    J_ << QStringLiteral("Bouton(%1) %2").arg(index).arg(actif ? 1 : 0);
  }
  void MontreLampeAlarme(Lampe lampe) override { J_ << QStringLiteral("alarme ") + Nomme(lampe); }
  void MontreLampeSurveillance(Lampe lampe) override { J_ << QStringLiteral("live ") + Nomme(lampe); }
  void MontreSurveillanceInactive() override {}
  void EcritRetard(qint32 secondes) override { J_ << QStringLiteral("Text1 %1").arg(secondes); }
  void DessineJauge(qint32, bool) override {}
  void AnnonceCameraIntrouvable(const QString&) override {}
  void AnnonceCameraInactive() override { J_ << QStringLiteral("boite 8"); }

  void MontreStatut(Libelle statut) override { J_ << QStringLiteral("statut %1").arg(static_cast<int>(statut)); }
  void MontreStatutLitteral(const Phrase& statut) override {
    J_ << QStringLiteral("statut ") + statut.Dit(Langue::kFrancais);
  }
  void RougitChamp(ChampLiaison champ) override {
    static const QStringList noms = {QStringLiteral("TxtFtp"), QStringLiteral("TxtFTPracine"),
                                     QStringLiteral("TxtUserName"), QStringLiteral("TxtPass")};
    J_ << QStringLiteral("rouge ") + noms.at(static_cast<int>(champ));
    RacineRouge = RacineRouge || champ == ChampLiaison::kTxtFTPracine;
  }
  void NoircitRacine() override { RacineRouge = false; }
  void MontrePageFtp() override { J_ << QStringLiteral("page 2"); }
  bool DemandeParametresSite() override {
    J_ << QStringLiteral("boite 9");
    return ReponseOk;
  }
  bool ReponseOk = true;
  bool RacineRouge = false;  ///< TxtFTPracine

 private:
  QStringList& J_;
};

/// Process table and programs on disk, as lists.
class ProcessusFaux : public Processus {
 public:
  explicit ProcessusFaux(QStringList& journal) : J_(journal) {}
  QList<ProcessusVu> PrendInstantane() const override { return Table; }
  bool TermineProcessus(const ProcessusVu& vu) override {
    J_ << QStringLiteral("termine %1").arg(vu.Pid);
    if (Immortels.contains(vu.Pid)) return false;
    if (FinisSeuls.contains(vu.Pid)) {
      // Gone since the snapshot; its parent has seen it, and started the next.
      Table.append({vu.Pid + 1000, vu.Nom, vu.NomAppele});
      FinisSeuls.removeAll(vu.Pid);
    }
    Table.removeIf([&vu](const ProcessusVu& autre) { return autre.Pid == vu.Pid; });
    return true;
  }
  std::unique_ptr<ProgrammeSuivi> LanceSuivi(const Lancement& quoi, std::function<void()> fini) override {
    J_ << (quoi.Relance ? QStringLiteral("relance ") : QStringLiteral("lance ")) + quoi.Chemin;
    if (SansMemoire) throw std::bad_alloc();
    if (Absents.contains(quoi.Chemin)) return nullptr;
    const int numero = ++Lances_;
    EnMarche_[numero] = {quoi.Chemin, std::move(fini)};
    return std::make_unique<Suivi>(*this, numero, quoi.Chemin);
  }
  /// A program that was started ends, by itself or because it was asked: the last one of this path.
  void Finit(const QString& chemin) {
    const auto trouve = std::find_if(EnMarche_.rbegin(), EnMarche_.rend(),
                                     [&chemin](const auto& un) { return un.second.first == chemin; });
    ASSERT_NE(trouve, EnMarche_.rend());
    Finit(trouve->first);
  }
  /// The first one of this path that is still there.
  void FinitAncien(const QString& chemin) {
    const auto trouve = std::find_if(EnMarche_.begin(), EnMarche_.end(),
                                     [&chemin](const auto& un) { return un.second.first == chemin; });
    ASSERT_NE(trouve, EnMarche_.end());
    Finit(trouve->first);
  }
  QList<ProcessusVu> Table;
  QList<qint32> Immortels;
  QList<qint32> FinisSeuls;  ///< end by themselves, just as they are to be ended, and another one follows
  QStringList Absents;
  bool SansMemoire = false;

 private:
  class Suivi : public ProgrammeSuivi {
   public:
    Suivi(ProcessusFaux& table, int numero, QString chemin)
        : Table_(table), Numero_(numero), Chemin_(std::move(chemin)) {}
    ~Suivi() override { Table_.EnMarche_.erase(Numero_); }
    void DemandeFin() noexcept override { Table_.J_ << QStringLiteral("demande fin ") + Chemin_; }
    void Tue() noexcept override { Table_.J_ << QStringLiteral("tue ") + Chemin_; }

   private:
    ProcessusFaux& Table_;
    int Numero_;
    QString Chemin_;
  };
  void Finit(int numero) {
    const auto fini = EnMarche_.at(numero).second;
    EnMarche_.erase(numero);
    fini();
  }
  QStringList& J_;
  int Lances_ = 0;
  std::map<int, std::pair<QString, std::function<void()>>> EnMarche_;  // the programs that run and are followed
};

/// The store as other processes left it: answers when the test says so, or at once.
class LecteurCasiersFaux : public LecteurCasiers {
 public:
  void LitCasiers(Rend rend) override {
    ++Lectures;
    Rend_ = std::move(rend);
    if (!Muet) Repond();
  }
  void Oublie() override {
    if (!OublieRien) Rend_ = nullptr;
  }
  void Repond() {
    const Rend rend = std::exchange(Rend_, nullptr);
    if (rend) rend(Lues);
  }
  std::optional<PoigneesPubliees> Lues = PoigneesPubliees{1001, 1002, 1003};
  bool Muet = false;        ///< the disk does not answer
  bool OublieRien = false;  ///< an answer was on its way already
  int Lectures = 0;

 private:
  Rend Rend_;
};

class MesureurFaux : public MesureurDossier {
 public:
  void Mesure(const QString& dossier, Rend rend) override {
    Demandes << dossier;
    Rend_ = std::move(rend);
    if (!Muet) Repond();
  }
  void Oublie() override { Rend_ = nullptr; }
  void Repond() {
    const Rend rend = std::exchange(Rend_, nullptr);
    if (rend) rend(Taille);
  }
  std::optional<TailleDossier> Taille = TailleDossier{};
  bool Muet = false;
  QStringList Demandes;

 private:
  Rend Rend_;
};

}  // namespace vaktor::essai
