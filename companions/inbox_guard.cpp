// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/inbox_guard.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "base/failure.h"

namespace vaktor {

GardeCasiers::~GardeCasiers() {
  try {
    Ports_.Lecteur.Oublie();
  } catch (const std::exception& echec) {
    std::fprintf(stderr, "Vaktor: %s\n", echec.what());
  }
}

void GardeCasiers::Regarde(std::function<void(bool)> suite) {
  Suivantes_.append(std::move(suite));
  if (!EnCours_) Commence();
}

void GardeCasiers::Commence() {
  EnCours_ = true;
  Age_ = 0;
  Suites_ += std::exchange(Suivantes_, {});  // behind those whose look was given up
  Ports_.Lecteur.LitCasiers(
      [this, tour = ++Tour_](const std::optional<PoigneesPubliees>& lues) { Recoit(tour, lues); });
}

void GardeCasiers::Tic() {
  if (!EnCours_ || ++Age_ < kAbandon) return;
  EnCours_ = false;
  ++Tour_;  // an answer that comes all the same is nobody's any more
  Ports_.Lecteur.Oublie();
}

void GardeCasiers::Arrete() {
  Suites_.clear();
  Suivantes_.clear();
  Ports_.Lecteur.Oublie();
}

void GardeCasiers::Recoit(int tour, const std::optional<PoigneesPubliees>& lues) {
  if (tour != Tour_) return;
  EnCours_ = false;  // first: whatever throws below costs this look and not those to come
  // A store that cannot be read says nothing about who wrote it last.
  if (lues) Siennes_ = Juge(*lues);
  const QList<std::function<void(bool)>> suites = std::exchange(Suites_, {});
  if (!Suivantes_.isEmpty()) Commence();
  for (const std::function<void(bool)>& suite : suites) suite(Siennes_);
}

bool GardeCasiers::Juge(const PoigneesPubliees& lues) {
  const PoigneesPubliees siennes = Ports_.Siennes();
  bool autre = false;
  bool inconnu = false;
  for (std::size_t i = 0; i < lues.size() && !autre; ++i) {
    if (lues.at(i) == siennes.at(i)) continue;
    const std::optional<bool> repond = Ports_.Canal.Repond(lues.at(i));
    autre = repond.value_or(false);
    inconnu = inconnu || !repond;
  }
  // Whoever publishes over a copy that lives takes its companions away.
  if (inconnu && !autre) return Siennes_;
  if (autre) {
    Ports_.Sante.Signale(Condition::kCasiersPerdus);
    Ports_.Sante.Leve(Condition::kCasiersNonEcrits);  // nothing of ours is to be written any more
    return false;
  }
  Ports_.Sante.Leve(Condition::kCasiersPerdus);
  if (lues != siennes && !Republie()) return false;
  Ports_.Sante.Leve(Condition::kCasiersNonEcrits);
  return true;
}

// No other copy runs: it is the disk of the store that is full, or forbidden.
bool GardeCasiers::Republie() {
  try {
    Ports_.Publie();
    return true;
  } catch (const Echec& echec) {
    Ports_.Sante.Signale(Condition::kCasiersNonEcrits, echec.Description());
  } catch (const std::exception& echec) {
    Ports_.Sante.Signale(Condition::kCasiersNonEcrits, QString::fromLocal8Bit(echec.what()));
  }
  return false;
}

}  // namespace vaktor
