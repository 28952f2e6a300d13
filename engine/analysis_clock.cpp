// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/analysis_clock.h"

#include <algorithm>

#include "base/numbers.h"

namespace vaktor {
namespace {

qint32 Recule(qint32 moment, qint64 montant) {
  return static_cast<qint32>(std::max<qint64>(moment - montant, kMomentPlusAncien));
}

}  // namespace

qint32 TempsAnalyse::Maintenant() const {
  return static_cast<qint32>(static_cast<quint32>(Temps_.CompteTics()) - Origine_);
}

// The distance to the origin is taken without a sign: with the camera off for a month nobody has moved it meanwhile.
void TempsAnalyse::Ramene() {
  const quint32 montant = static_cast<quint32>(Temps_.CompteTics()) - Origine_;
  if (montant <= static_cast<quint32>(kReculCompteur)) return;
  Origine_ += montant;
  DernierTick_ = Recule(DernierTick_, montant);
  DernierLive_ = Recule(DernierLive_, montant);
}

qint32 TempsAnalyse::DepuisTick() const { return SoustraitVerifie(Maintenant(), DernierTick_); }
qint32 TempsAnalyse::DepuisLive() const { return SoustraitVerifie(Maintenant(), DernierLive_); }

}  // namespace vaktor
