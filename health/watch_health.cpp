// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/watch_health.h"

#include <algorithm>

namespace vaktor {

SanteVeille::SanteVeille(const Horloge& temps, FabriqueMinuteries& minuteries)
    : Temps_(temps),
      Minuterie_(minuteries.CreeMinuterie(QStringLiteral("Sante"), kTicMs, [this] { Tic(); })),
      DernierTic_(temps.CompteTics()) {}

void SanteVeille::Lance() {
  Lancee_ = true;
  if (std::any_of(Etats_.begin(), Etats_.end(), [](const Case& cas) { return cas.has_value(); })) Reveille();
}

void SanteVeille::Arrete() {
  Lancee_ = false;
  Minuterie_->Desactive();
}

// The counter is of 32 bits and wraps: its differences are right as long as one is taken at least every 49 days, which
// the tick does. While the timer rests nothing is compared, so that what a rest makes of the count matters to nobody.
void SanteVeille::AvanceTemps() {
  const qint32 tics = Temps_.CompteTics();
  MaintenantMs_ += static_cast<quint32>(tics) - static_cast<quint32>(DernierTic_);
  DernierTic_ = tics;
}

void SanteVeille::Reveille() {
  if (Lancee_) Minuterie_->Active();
}

void SanteVeille::Signale(Condition quoi, const QString& detail) {
  Case& cas = Etats_.at(static_cast<std::size_t>(quoi));
  if (!cas) {
    AvanceTemps();
    cas = Etat{{quoi, Maintenant(), detail, MaintenantMs_}};
    Reveille();
    return;
  }
  cas->Levee = false;
  if (cas->Condition_.Detail == detail) return;
  cas->Condition_.Detail = detail;
  Change_ = true;
}

void SanteVeille::Leve(Condition quoi) {
  Case& cas = Etats_.at(static_cast<std::size_t>(quoi));
  if (!cas || EstEvenement(quoi)) return;
  // What counts at once is told even if it lasted for a moment only: a photo may be lost.
  if (cas->Dite || DonneDuree(quoi) == 0) {
    cas->Levee = true;
  } else {
    cas.reset();
  }
}

// True when something was told.
bool SanteVeille::Regarde(Case& cas) {
  bool dit = false;
  if (!cas->Dite && MaintenantMs_ - cas->Condition_.DepuisMs >= DonneDuree(cas->Condition_.Quoi)) {
    cas->Dite = dit = true;
    const ConditionEnCours condition = cas->Condition_;
    for (ObservateurSante* observateur : std::as_const(Observateurs_)) observateur->Commence(condition);
  }
  if (cas->Dite && cas->Levee) {
    const ConditionEnCours finie = cas->Condition_;
    cas.reset();
    dit = true;
    for (ObservateurSante* observateur : std::as_const(Observateurs_)) observateur->Finit(finie, Maintenant());
  }
  return dit;
}

void SanteVeille::Tic() {
  AvanceTemps();
  bool change = std::exchange(Change_, false);
  for (Case& cas : Etats_) {
    if (cas && Regarde(cas)) change = true;
  }
  for (ObservateurSante* observateur : std::as_const(Observateurs_)) {
    if (change) observateur->Change();
  }
  bool encore = false;
  for (ObservateurSante* observateur : std::as_const(Observateurs_)) {
    if (observateur->Tic(MaintenantMs_)) encore = true;
  }
  // An observer may have reported something by now.
  if (!encore && std::none_of(Etats_.begin(), Etats_.end(), [](const Case& cas) { return cas.has_value(); })) {
    Minuterie_->Desactive();
  }
}

QList<ConditionEnCours> SanteVeille::EnCours() const {
  QList<ConditionEnCours> liste;
  for (const Case& cas : Etats_)
    if (cas && !cas->Levee) liste.append(cas->Condition_);
  return liste;
}

QList<ConditionEnCours> SanteVeille::Comptees() const {
  QList<ConditionEnCours> liste;
  for (const Case& cas : Etats_)
    if (cas && cas->Dite) liste.append(cas->Condition_);
  std::stable_sort(liste.begin(), liste.end(), [](const ConditionEnCours& a, const ConditionEnCours& b) {
    const Gravite deA = DonneGravite(a.Quoi);
    const Gravite deB = DonneGravite(b.Quoi);
    return deA != deB ? deA < deB : a.DepuisMs < b.DepuisMs;
  });
  return liste;
}

void SanteVeille::OublieEvenements() {
  bool change = false;
  for (Case& cas : Etats_) {
    if (!cas || !cas->Dite || !EstEvenement(cas->Condition_.Quoi)) continue;
    const ConditionEnCours vue = cas->Condition_;
    cas.reset();
    change = true;
    for (ObservateurSante* observateur : std::as_const(Observateurs_)) observateur->Finit(vue, Maintenant());
  }
  if (!change) return;
  for (ObservateurSante* observateur : std::as_const(Observateurs_)) observateur->Change();
}

}  // namespace vaktor
