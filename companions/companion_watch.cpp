// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/companion_watch.h"

#include <algorithm>
#include <utility>

#include "texts/phrase.h"

namespace vaktor {

namespace {

Condition DonneCondition(Compagnon compagnon) {
  switch (compagnon) {
    case Compagnon::kFtp:
      return Condition::kCompagnonFtp;
    case Compagnon::kMail:
      return Condition::kCompagnonMail;
    case Compagnon::kSon:
      break;
  }
  return Condition::kCompagnonSon;
}

QString DitFin(Langue langue) { return Phrase{"s'est arrêté", "has ended"}.Dit(langue); }
QString DitMuet(Langue langue) { return Phrase{"ne répond plus", "does not answer any more"}.Dit(langue); }
QString DitTenu(Langue langue) {
  return Phrase{"le système n'arrive pas à l'arrêter", "the system cannot end it"}.Dit(langue);
}
QString DitAttendu(Langue langue) { return Phrase{"ne s'est pas annoncé", "has not registered"}.Dit(langue); }

}  // namespace

qint32 VeilleCompagnons::DonnePoignee(Compagnon compagnon) const {
  if (compagnon == Compagnon::kFtp) return Ports_.Liaison.HandleFTP;
  return compagnon == Compagnon::kMail ? Ports_.Liaison.HandleMail : Ports_.Liaison.HandleSon;
}

bool VeilleCompagnons::Demarre(Compagnon compagnon, bool relance) {
  const QString chemin = Ports_.Dossiers.Executables + QLatin1Char('/') + DonneIdentite(compagnon).Programme;
  Suivi& suivi = Trouve(compagnon);
  const int tour = ++suivi.Tour;
  std::unique_ptr<ProgrammeSuivi> programme = Ports_.Programmes.LanceSuivi(
      {.Chemin = chemin, .Relance = relance}, [this, compagnon, tour] { Finit(compagnon, tour); });
  if (!programme) return false;
  suivi.Programme = std::move(programme);
  suivi.Etat = Vie::kEnVie;
  suivi.Relance = relance;
  suivi.Inscrit = false;
  suivi.Age = suivi.Muet = 0;
  return true;
}

bool VeilleCompagnons::Lance(Compagnon compagnon) { return Demarre(compagnon, false); }

void VeilleCompagnons::Commence() {
  TimerVeille_ = Ports_.Minuteries.CreeMinuterie(QStringLiteral("TimerVeille"), kTic, [this] { Tic(); });
  TimerVeille_->Active();
  Phase_ = Phase::kVeille;
  // One that went while the others were still being launched.
  for (const Compagnon compagnon : kCompagnons)
    if (Trouve(compagnon).Etat == Vie::kMort) PrevoitRelance(compagnon);
}

void VeilleCompagnons::Arrete() {
  if (TimerVeille_) TimerVeille_->Desactive();
  Phase_ = Phase::kFin;
  for (Suivi& suivi : Suivis_) {
    if (suivi.TimerRelance) suivi.TimerRelance->Desactive();
    if (suivi.Etat == Vie::kEnVie && !suivi.Inscrit) suivi.Programme->DemandeFin();
    if (suivi.Etat == Vie::kCondamne) suivi.Programme->Tue();
  }
  Ports_.Casiers.Arrete();  // last: it may throw, and none of those above may stay for that
}

void VeilleCompagnons::Inscrit(Compagnon compagnon) {
  Suivi& suivi = Trouve(compagnon);
  // A word that a companion sent before it ended may come after its end.
  if (suivi.Etat != Vie::kEnVie) return;
  const bool retour = suivi.Relance && !suivi.Inscrit;
  suivi.Inscrit = true;
  suivi.Perdue.reset();
  suivi.Age = suivi.Muet = 0;
  Ports_.Sante.Leve(DonneCondition(compagnon));
  if (retour) Ports_.SurRetour(compagnon);
}

bool VeilleCompagnons::EstInscrit(Compagnon compagnon) const {
  const std::optional<qint32>& perdue = Trouve(compagnon).Perdue;
  // One that we have not started gives another handle.
  return !perdue || DonnePoignee(compagnon) != *perdue;
}

bool VeilleCompagnons::Prend(Compagnon compagnon) const {
  const Suivi& suivi = Trouve(compagnon);
  return suivi.Etat == Vie::kEnVie && suivi.Inscrit && suivi.Muet < kHesite;
}

void VeilleCompagnons::Tic() {
  Ports_.Casiers.Tic();
  if (++Tics_ % kRegardCasiers == 0 && !Ports_.Casiers.EstEnCours()) RegardeCasiers();
  for (const Compagnon compagnon : kCompagnons) {
    Suivi& suivi = Trouve(compagnon);
    ++suivi.Age;
    if (suivi.Etat == Vie::kEnVie) TicEnVie(compagnon, suivi);
    if (suivi.Etat == Vie::kCondamne) TicCondamne(compagnon, suivi);
  }
}

void VeilleCompagnons::TicEnVie(Compagnon compagnon, Suivi& suivi) {
  if (suivi.Inscrit) return TicInscrit(compagnon, suivi);
  const Langue langue = LangueParlee(Ports_.Reglages.LangueCourante);
  if (suivi.Age == kGrace) Ports_.Sante.Signale(DonneCondition(compagnon), DitAttendu(langue));
  if (suivi.Age >= kInscriptionMax) Condamne(compagnon, DitAttendu(langue));
}

// Ticks are counted and not the clock looked at: while this program itself is held up, or the machine sleeps, nobody
// grows old.
void VeilleCompagnons::TicInscrit(Compagnon compagnon, Suivi& suivi) {
  const qint32 poignee = DonnePoignee(compagnon);
  suivi.Muet = Ports_.Canal.DonnePrise(poignee) == Prise::kMuette ? suivi.Muet + 1 : 0;
  // The first of these ticks may have come right behind the message.
  if (suivi.Muet > kMuetteMax) return Condamne(compagnon, DitMuet(LangueParlee(Ports_.Reglages.LangueCourante)));
  if (suivi.Age >= kVieSaine && suivi.Muet == 0) suivi.Rang = 0;
  if (suivi.Age % kSonde == 0) Ports_.Canal.PosteTouche(poignee, kCodeSonde, Tenue::kInstant);
}

void VeilleCompagnons::Condamne(Compagnon compagnon, const QString& detail) {
  Suivi& suivi = Trouve(compagnon);
  suivi.Etat = Vie::kCondamne;
  suivi.Age = 0;
  suivi.Programme->DemandeFin();
  Perd(compagnon, detail);
}

void VeilleCompagnons::TicCondamne(Compagnon compagnon, Suivi& suivi) {
  if (suivi.Age == kFinPolie) suivi.Programme->Tue();
  // Held by a device or a disk inside the system: it has been killed and runs nothing any more, the place is free.
  if (suivi.Age < kFinPolie + kFinForcee) return;
  suivi.Restes.push_back({suivi.Tour, std::move(suivi.Programme)});
  Meurt(compagnon);
}

void VeilleCompagnons::Finit(Compagnon compagnon, int tour) {
  Suivi& suivi = Trouve(compagnon);
  if (suivi.Programme && tour == suivi.Tour) return Meurt(compagnon);
  std::erase_if(suivi.Restes, [tour](const Reste& reste) { return reste.Tour == tour; });
}

void VeilleCompagnons::Perd(Compagnon compagnon, const QString& detail) {
  Suivi& suivi = Trouve(compagnon);
  if (suivi.Inscrit) Ports_.Canal.OublieFenetre(DonnePoignee(compagnon));
  suivi.Inscrit = false;
  suivi.Perdue = DonnePoignee(compagnon);
  Ports_.Sante.Signale(DonneCondition(compagnon), detail);
  Ports_.SurPerte(compagnon);
}

void VeilleCompagnons::Meurt(Compagnon compagnon) {
  Suivi& suivi = Trouve(compagnon);
  const bool attendu = suivi.Etat == Vie::kCondamne;
  suivi.Programme.reset();
  suivi.Etat = Vie::kMort;
  if (Phase_ == Phase::kFin) return;  // asked to leave with the program: no death
  PrevoitRelance(compagnon);          // first: whatever throws below is no reason never to start it again
  if (!attendu) Perd(compagnon, DitFin(LangueParlee(Ports_.Reglages.LangueCourante)));
}

void VeilleCompagnons::PrevoitRelance(Compagnon compagnon) {
  if (Phase_ != Phase::kVeille) return;
  Suivi& suivi = Trouve(compagnon);
  if (!suivi.TimerRelance) {
    const QString nom = QStringLiteral("TimerRelance(%1)").arg(static_cast<int>(compagnon));
    suivi.TimerRelance = Ports_.Minuteries.CreeMinuterie(nom, kRelances.front(), [this, compagnon] {
      Trouve(compagnon).TimerRelance->Desactive();
      DemandeRelance(compagnon);
    });
  }
  suivi.TimerRelance->ChangeIntervalle(kRelances.at(suivi.Rang));
  suivi.TimerRelance->Active();
  suivi.Rang = std::min(suivi.Rang + 1, kRelances.size() - 1);
}

// Another copy of the program ends our companions and starts its own: to start ours again would be a war that neither
// wins. So the store is asked first; its handles stand there before that copy ends anything.
void VeilleCompagnons::DemandeRelance(Compagnon compagnon) {
  Trouve(compagnon).EnPause = true;
  RegardeCasiers();
}

void VeilleCompagnons::RegardeCasiers() {
  Ports_.Casiers.Regarde([this](bool siennes) {
    if (!siennes) {
      for (Suivi& suivi : Suivis_) suivi.Errants = true;
      return;
    }
    for (const Compagnon compagnon : kCompagnons)
      if (Trouve(compagnon).EnPause) Relance(compagnon);
  });
}

void VeilleCompagnons::Relance(Compagnon compagnon) {
  Suivi& suivi = Trouve(compagnon);
  suivi.EnPause = false;
  if (suivi.Errants && Ports_.TermineErrants) return TermineErrants(compagnon);
  suivi.Errants = false;
  LanceEncore(compagnon);
}

// A copy that was killed has left its companions behind, and they register with whoever stands in the store: two of
// each would send every mail twice.
void VeilleCompagnons::TermineErrants(Compagnon compagnon) {
  Suivi& suivi = Trouve(compagnon);
  suivi.TimerRelance->ChangeIntervalle(kBalayageMax);
  suivi.TimerRelance->Active();
  Ports_.TermineErrants(compagnon, [this, compagnon, presente = std::weak_ptr(Presente_)] {
    if (presente.expired()) return;
    Suivi& balaye = Trouve(compagnon);
    if (Phase_ != Phase::kVeille || balaye.Etat != Vie::kMort || !balaye.TimerRelance->EstActive()) return;
    balaye.TimerRelance->Desactive();
    LanceEncore(compagnon);
  });
  suivi.Errants = false;
}

// Each of them would soon hang where those before it do, and they would gather as long as the disk is silent.
void VeilleCompagnons::LanceEncore(Compagnon compagnon) {
  if (Trouve(compagnon).Restes.size() >= kRestesMax) {
    Ports_.Sante.Signale(DonneCondition(compagnon), DitTenu(LangueParlee(Ports_.Reglages.LangueCourante)));
    return PrevoitRelance(compagnon);
  }
  try {
    if (Demarre(compagnon, true)) return;
  } catch (...) {
    Trouve(compagnon).Errants = true;  // it may run, and nobody follows it
    PrevoitRelance(compagnon);
    throw;
  }
  Ports_.Sante.Signale(DonneCondition(compagnon),
                       Ports_.Dossiers.Executables + QLatin1Char('/') + DonneIdentite(compagnon).Programme);
  PrevoitRelance(compagnon);
}

}  // namespace vaktor
