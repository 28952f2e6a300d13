// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/blind_mails.h"

#include <algorithm>
#include <utility>

namespace vaktor {

namespace {

CourrielVeille Compose(const ConditionEnCours& condition) {
  CourrielVeille courriel;
  courriel.Mot = MotCondition(condition.Quoi);
  courriel.Depuis = condition.Depuis;
  return courriel;
}

CourrielVeille ComposeDebut(const ConditionEnCours& condition) {
  CourrielVeille courriel = Compose(condition);
  courriel.Sujet = Phrase{"Vaktor : la surveillance ne voit plus rien", "Vaktor: the watch sees nothing"};
  courriel.Texte = PhraseDite::Compose([&](Langue langue) {
    return Phrase{"%1\nDepuis : %2\n\n%3\n", "%1\nSince: %2\n\n%3\n"}.Dit(
        langue, PhraseQuoi(condition.Quoi, condition.Detail, langue), DitMoment(condition.Depuis, langue),
        PhraseFaire(condition.Quoi, langue));
  });
  return courriel;
}

struct MotsFin {
  Phrase Sujet;
  Phrase Constat;
};

// A condition also ends when the alarm is switched off, and of two that make blind only one may have ended: a mail
// that says "sees again" then would be a lie.
MotsFin ChoisitFin(bool armee, bool aveugle) {
  if (!armee) {
    return {{"Vaktor : l'alarme n'est plus armée", "Vaktor: the alarm is no longer armed"},
            {"L'alarme n'est plus armée : rien n'est surveillé en ce moment. Ceci n'est plus signalé :",
             "The alarm is no longer armed: nothing is watched at the moment. This is not reported any more:"}};
  }
  if (aveugle) {
    return {{"Vaktor : une panne est finie, une autre dure", "Vaktor: one fault is over, another goes on"},
            {"Ceci est fini, mais la surveillance ne voit toujours rien pour une autre raison :",
             "This is over, but the watch still sees nothing for another reason:"}};
  }
  return {{"Vaktor : la surveillance voit de nouveau", "Vaktor: the watch sees again"},
          {"La surveillance voit de nouveau. Ceci est fini :", "The watch sees again. This is over:"}};
}

CourrielVeille ComposeFin(const ConditionEnCours& condition, const QDateTime& jusqua, const MotsFin& mots) {
  CourrielVeille courriel = Compose(condition);
  courriel.Fin = true;
  courriel.Jusqua = jusqua;
  courriel.Sujet = mots.Sujet;
  courriel.Texte = PhraseDite::Compose([&](Langue langue) {
    // The four are put in at once: a detail may hold a "%1" of its own.
    return Phrase{"%1\n%2\nDepuis : %3\nJusqu'à : %4\n", "%1\n%2\nSince: %3\nUntil: %4\n"}.Dit(
        langue, mots.Constat.Dit(langue), PhraseQuoi(condition.Quoi, condition.Detail, langue),
        DitMoment(condition.Depuis, langue), DitMoment(jusqua, langue));
  });
  return courriel;
}

}  // namespace

void CourrielsAveugle::Commence(const ConditionEnCours& condition) {
  if (DonneGravite(condition.Quoi) != Gravite::kAveugle) return;
  Suivis_[condition.Quoi].EnCours = condition;
}

void CourrielsAveugle::Finit(const ConditionEnCours& condition, const QDateTime& jusqua) {
  if (DonneGravite(condition.Quoi) != Gravite::kAveugle) return;
  Suivi& suivi = Suivis_[condition.Quoi];
  suivi.EnCours.reset();
  if (std::exchange(suivi.DebutDit, false)) Fins_.append({condition, jusqua});
}

// Once all that ended in this tick is known. Who has switched mails off wants none, armed or not: then the pair stays
// without its end.
void CourrielsAveugle::DitFins() {
  for (; !Fins_.isEmpty(); Fins_.removeFirst()) {
    if (!Ports_.Reglages.MailActif) continue;
    const Fin& fin = Fins_.first();
    Envoie({ComposeFin(fin.Finie, fin.Jusqua, ChoisitFin(Ports_.Armee(), EstAveugle())), Ports_.Image()});
  }
}

bool CourrielsAveugle::EstAveugle() const {
  return std::any_of(Suivis_.begin(), Suivis_.end(), [](const Suivi& suivi) { return suivi.EnCours.has_value(); });
}

// The ticks go on while the hour of a mail runs: only they can tell when it is over.
bool CourrielsAveugle::Tic(qint64 maintenantMs) {
  MaintenantMs_ = maintenantMs;
  DitFins();
  bool encore = false;
  for (Suivi& suivi : Suivis_) {
    if (suivi.DernierDebut && maintenantMs - *suivi.DernierDebut >= kPauseMs) suivi.DernierDebut.reset();
    DitDebut(suivi, maintenantMs);
    encore = encore || suivi.DernierDebut;
  }
  ReessaieRefuses(maintenantMs);
  return encore || EnRoute_ > 0 || !Refuses_.isEmpty();
}

void CourrielsAveugle::DitDebut(Suivi& suivi, qint64 maintenantMs) {
  if (!suivi.EnCours || suivi.DebutDit || suivi.DernierDebut) return;
  if (maintenantMs - suivi.EnCours->DepuisMs < kAveugleMs) return;
  if (!Ports_.Reglages.MailActif || !Ports_.Armee()) return;
  Envoie({ComposeDebut(*suivi.EnCours), Ports_.Image()});
  suivi.DebutDit = true;  // behind what may throw: then the next tick tries again
  suivi.DernierDebut = maintenantMs;
}

void CourrielsAveugle::Envoie(const Courrier& courrier) {
  const std::weak_ptr<bool> vie = Vie_;
  Ports_.Depot.Depose(courrier.Courriel, courrier.Image, [this, vie, courrier](bool ecrit) {
    if (vie.expired()) return;
    --EnRoute_;
    if (ecrit) {
      Ports_.Modules.EnvoiMail(Commande::kVeille);
      return;
    }
    Refuses_.append(courrier);
    if (!Reessai_) Reessai_ = MaintenantMs_ + kReessaiMs;
  });
  ++EnRoute_;
}

// The beginning before its end, as they were refused.
void CourrielsAveugle::ReessaieRefuses(qint64 maintenantMs) {
  if (!Reessai_ || maintenantMs < *Reessai_) return;
  Reessai_ = maintenantMs + kReessaiMs;  // of what is still there when one of them throws
  for (; !Refuses_.isEmpty(); Refuses_.removeFirst()) Envoie(Refuses_.first());
  Reessai_.reset();
}

}  // namespace vaktor
