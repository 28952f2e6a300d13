#include "companions/inbox_guard.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "base/failure.h"

namespace vaktor {

GardeBoites::~GardeBoites() {
  try {
    Ports_.Lecteur.Oublie();
  } catch (const std::exception& echec) {
    std::fprintf(stderr, "Vaktor: %s\n", echec.what());
  }
}

void GardeBoites::Regarde(std::function<void(bool)> suite) {
  Suivantes_.append(std::move(suite));
  if (!EnCours_) Commence();
}

void GardeBoites::Commence() {
  EnCours_ = true;
  Suites_ = std::exchange(Suivantes_, {});
  Ports_.Lecteur.LitBoites([this](const std::optional<PoigneesPubliees>& lues) { Recoit(lues); });
}

void GardeBoites::Arrete() {
  Suites_.clear();
  Suivantes_.clear();
  Ports_.Lecteur.Oublie();
}

void GardeBoites::Recoit(const std::optional<PoigneesPubliees>& lues) {
  // A store that cannot be read says nothing about who wrote it last.
  if (lues) Siennes_ = Juge(*lues);
  EnCours_ = false;
  const QList<std::function<void(bool)>> suites = std::exchange(Suites_, {});
  if (!Suivantes_.isEmpty()) Commence();
  for (const std::function<void(bool)>& suite : suites) suite(Siennes_);
}

bool GardeBoites::Juge(const PoigneesPubliees& lues) {
  const PoigneesPubliees siennes = Ports_.Siennes();
  bool autre = false;
  for (std::size_t i = 0; i < lues.size(); ++i)
    autre = autre || (lues.at(i) != siennes.at(i) && Ports_.Canal.Repond(lues.at(i)));
  if (autre) {
    Ports_.Sante.Signale(Condition::kBoitesPerdues);
    return false;
  }
  if (lues != siennes && !Republie()) return false;
  Ports_.Sante.Leve(Condition::kBoitesPerdues);
  return true;
}

bool GardeBoites::Republie() {
  try {
    Ports_.Publie();
    return true;
  } catch (const Echec& echec) {
    Ports_.Sante.Signale(Condition::kBoitesPerdues, echec.Description());
    return false;
  }
}

}  // namespace vaktor
