// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/desktop_notices.h"

#include <algorithm>

#include "texts/phrase.h"

namespace vaktor {

void AvisBureau::Commence(const ConditionEnCours& condition) {
  const bool evenement = EstEvenement(condition.Quoi);
  // Back so soon that for the user it never ended. A notice that stands for good, a machine that may sleep for one,
  // must not keep a camera that is lost every night from being told every night.
  const bool neuve = condition.DepuisMs - Finies_.value(condition.Quoi, condition.DepuisMs) >= kRetourMs;
  if (neuve || !Dites_.contains(condition.Quoi)) ADire_.append(condition);
  if (evenement) return;
  EnCours_.insert(condition.Quoi);
  Calme_.reset();
}

void AvisBureau::Finit(const ConditionEnCours& condition, const QDateTime&) {
  EnCours_.remove(condition.Quoi);
  Finies_.insert(condition.Quoi, MaintenantMs_);
}

bool AvisBureau::Tic(qint64 maintenantMs) {
  MaintenantMs_ = maintenantMs;
  if (EnCours_.isEmpty() && !Calme_) Calme_ = maintenantMs;
  if (!ADire_.isEmpty() && (!Derniere_ || maintenantMs - *Derniere_ >= kRegroupeMs)) DitDebuts(maintenantMs);
  const bool calme =
      EnCours_.isEmpty() && ADire_.isEmpty() && maintenantMs - Calme_.value_or(maintenantMs) >= kRegroupeMs;
  if (calme && !Dites_.isEmpty()) DitFin();
  // Up to the end of the time in which a further one is gathered.
  return !ADire_.isEmpty() || !Dites_.isEmpty();
}

void AvisBureau::DitDebuts(qint64 maintenantMs) {
  std::stable_sort(ADire_.begin(), ADire_.end(), [](const ConditionEnCours& a, const ConditionEnCours& b) {
    return DonneGravite(a.Quoi) < DonneGravite(b.Quoi);
  });
  const Langue langue = LangueParlee(Reglages_.LangueCourante);
  QStringList lignes;
  for (const ConditionEnCours& condition : std::as_const(ADire_)) {
    lignes.append(PhraseQuoi(condition.Quoi, condition.Detail, langue));
    if (!EstEvenement(condition.Quoi)) Dites_.insert(condition.Quoi);
  }
  const Condition pire = ADire_.first().Quoi;
  if (ADire_.size() == 1) lignes.append(PhraseFaire(pire, langue));
  ADire_.clear();
  Derniere_ = maintenantMs;
  Bureau_.Notifie(PhraseGravite(DonneGravite(pire), langue), lignes.join(u'\n'), DonneGravite(pire) != Gravite::kAvis);
}

// It does not say that all is well: a condition also ends when the camera is switched off.
void AvisBureau::DitFin() {
  Dites_.clear();
  const Langue langue = LangueParlee(Reglages_.LangueCourante);
  Bureau_.Notifie(Phrase{"Vaktor : plus rien à signaler", "Vaktor: nothing to report any more"}.Dit(langue),
                  Phrase{"Ce qui avait été signalé est terminé.", "What had been reported is over."}.Dit(langue),
                  false);
}

}  // namespace vaktor
