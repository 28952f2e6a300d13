// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/sound/sound_module.h"

#include <QFileInfo>

#include "platform/base/system_files.h"

namespace vaktor {

namespace {
constexpr qint32 kIndexFichier = 3;
}

ModuleSon::ModuleSon(const ContexteModule& contexte, std::unique_ptr<JoueurSon> joueur)
    : Contexte_(contexte),
      Joueur_(std::move(joueur)),
      TimerRepos_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerRepos"), kRepos,
                                                    [this] { TimerRepos_->Desactive(); })),
      TimerDuree_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerDuree"), kDureeMax,
                                                    [this] {
                                                      Joueur_->Arrete();
                                                      TermineSon(FinSon::kJoue, QString());
                                                    })),
      TimerAppareil_(
          contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerAppareil"), kRegard, [this] { RegardeAppareil(); })),
      TimerApres_(contexte.Minuteries.CreeMinuterie(QStringLiteral("TimerApres"), kApres, [this] {
        TimerApres_->Desactive();
        if (!Joueur_->EnCours()) return;
        Joueur_->Arrete();
        TermineSon(FinSon::kJoue, QString());
      })) {}

void ModuleSon::PrendReglages(const ReglagesModule& reglages) {
  IndexSon_ = reglages.Valeurs.IndexSon;
  FichierSon_ = reglages.Valeurs.FichierSon;
  TimerRepos_->Desactive();  // what the user has just changed may be the cure
}

QString ModuleSon::DonneFichier() const {
  if (IndexSon_ == kIndexFichier) return CheminNatif(FichierSon_);
  const qint32 numero = IndexSon_ < 0 || IndexSon_ > kIndexFichier ? 0 : IndexSon_;
  return Contexte_.Dossiers.CheminSons() + QStringLiteral("/%1.wav").arg(numero);
}

void ModuleSon::ExecuteCommande(Commande commande) {
  if (commande != Commande::kIntrusion) return;
  TimerApres_->ChangeIntervalle(kApres);  // from now
  TimerApres_->Active();
  if (Joueur_->EnCours() || TimerRepos_->EstActive()) return;
  EnJeu_ = DonneFichier();
  if (!QFileInfo(EnJeu_).isFile()) {
    TermineSon(FinSon::kFichierMauvais, QString());
    return;
  }
  TimerDuree_->Active();
  TimerAppareil_->ChangeIntervalle(kRegard);
  TimerAppareil_->Active();
  Progres_ = 0;
  Muet_ = 0;
  Joueur_->Joue(EnJeu_, [this](FinSon fin, const QString& mots) { TermineSon(fin, mots); });
}

// Nothing comes back from a device that hangs: without this look the alarm would be silent and nobody the wiser.
void ModuleSon::RegardeAppareil() {
  const quint64 progres = Joueur_->Progres();
  Muet_ = progres == Progres_ ? Muet_ + kRegard : 0;
  Progres_ = progres;
  if (Muet_ < kMuet) return;
  Joueur_->Arrete();
  TermineSon(FinSon::kSansAppareil, QString());
}

void ModuleSon::TermineSon(FinSon fin, const QString& mots) {
  TimerDuree_->Desactive();
  TimerAppareil_->Desactive();
  if (fin == FinSon::kJoue) {
    DernierAvis_ = {};
    Contexte_.Etat.Efface();
    return;
  }
  TimerRepos_->Active();
  Signale(fin, mots);
}

void ModuleSon::Signale(FinSon fin, const QString& mots) {
  AvisEchec avis;
  avis.MotsServeur = mots;
  if (fin == FinSon::kFichierMauvais) {
    avis.Sujet = QStringLiteral("sound-file ") + EnJeu_;
    avis.Mots = PhraseDite::Compose([&](Langue langue) {
      return Phrase{"Le son de l'alarme ne peut pas être lu : %1. Choisissez-en un autre.",
                    "The alarm sound cannot be played: %1. Please choose another one."}
          .Dit(langue, EnJeu_);
    });
  } else {
    avis.Sujet = QStringLiteral("sound-device");
    avis.Mots = Phrase{
        "Le son de l'alarme ne peut pas être entendu : aucun appareil audio ne répond. Vérifiez vos haut-parleurs.",
        "The alarm sound cannot be heard: no audio device answers. Please check your loudspeakers."};
  }
  if (avis == DernierAvis_) return;
  DernierAvis_ = avis;
  Contexte_.Journal.Note(avis.Mots.Dit(Langue::kAnglais) + QLatin1Char(' ') + mots);
  Contexte_.Etat.Signale(avis);
}

void ModuleSon::Termine() {
  Joueur_->Arrete();
  TimerAppareil_->Desactive();
  TimerApres_->Desactive();
  Contexte_.Quitte();
}

}  // namespace vaktor
