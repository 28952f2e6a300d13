// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/watch_health.h"

#include <algorithm>
#include <utility>

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
  // Nobody may look at the list for weeks, and each night that the machine slept through is one of its own.
  if (cas->Dite && EstEvenement(quoi)) cas->Encore = Maintenant();
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

// One that throws, for want of memory, keeps nobody behind it from being told, for nothing is told twice.
template <typename Appel>
void SanteVeille::Dit(const Appel& appel) {
  for (ObservateurSante* observateur : std::as_const(Observateurs_)) {
    try {
      appel(*observateur);
    } catch (...) {
      if (!Echec_) Echec_ = std::current_exception();
    }
  }
}

// To the guard of the event loop, once everybody has been told.
void SanteVeille::RelanceEchec() {
  if (Echec_) std::rethrow_exception(std::exchange(Echec_, nullptr));
}

// True when something was told.
bool SanteVeille::Regarde(Case& cas) {
  bool dit = false;
  if (!cas->Dite && MaintenantMs_ - cas->Condition_.DepuisMs >= DonneDuree(cas->Condition_.Quoi)) {
    cas->Dite = dit = true;
    const ConditionEnCours condition = cas->Condition_;
    Dit([&](ObservateurSante& observateur) { observateur.Commence(condition); });
  }
  if (cas->Encore) {
    ConditionEnCours encore = cas->Condition_;
    encore.Depuis = *std::exchange(cas->Encore, std::nullopt);
    encore.DepuisMs = MaintenantMs_;
    dit = true;
    Dit([&](ObservateurSante& observateur) { observateur.Commence(encore); });
  }
  if (cas->Dite && cas->Levee) {
    const ConditionEnCours finie = cas->Condition_;
    cas.reset();
    dit = true;
    Dit([&](ObservateurSante& observateur) { observateur.Finit(finie, Maintenant()); });
  }
  return dit;
}

void SanteVeille::Tic() {
  AvanceTemps();
  bool change = std::exchange(Change_, false);
  for (Case& cas : Etats_) {
    if (cas && Regarde(cas)) change = true;
  }
  if (change) Dit([](ObservateurSante& observateur) { observateur.Change(); });
  bool encore = false;
  Dit([&](ObservateurSante& observateur) { encore = observateur.Tic(MaintenantMs_) || encore; });
  // An observer may have reported something by now.
  if (!encore && !Echec_ &&
      std::none_of(Etats_.begin(), Etats_.end(), [](const Case& cas) { return cas.has_value(); })) {
    Minuterie_->Desactive();
  }
  RelanceEchec();
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
    if (!cas || !cas->Dite || cas->Encore || !EstEvenement(cas->Condition_.Quoi)) continue;
    const ConditionEnCours vue = cas->Condition_;
    cas.reset();
    change = true;
    Dit([&](ObservateurSante& observateur) { observateur.Finit(vue, Maintenant()); });
  }
  if (change) Dit([](ObservateurSante& observateur) { observateur.Change(); });
  RelanceEchec();
}

}  // namespace vaktor
