// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/write_failure.h"

namespace vaktor {
namespace {

quint32 Ecoule(qint32 depuis, qint32 tic) { return static_cast<quint32>(tic) - static_cast<quint32>(depuis); }

}  // namespace

// Kept once it is so: a failure of seven weeks, after which the difference begins anew, is no fresh one.
bool PanneEcriture::Installee(qint32 tic) {
  Installee_ = Installee_ || (Dure_ && Ecoule(Debut_, tic) >= kInsistance);
  return Installee_;
}

bool PanneEcriture::EssaiDu(qint32 tic) { return !Installee(tic) || Ecoule(DernierEssai_, tic) >= kInsistance; }

void PanneEcriture::Note(qint32 tic) {
  if (!Dure_) Debut_ = tic;
  Dure_ = true;
  DernierEssai_ = tic;
}

}  // namespace vaktor
