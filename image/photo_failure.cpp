// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/photo_failure.h"

namespace vaktor {

bool PannePhotos::EssaiManque(qint32 tic) const {
  return Dure() && static_cast<quint32>(tic) - static_cast<quint32>(DernierePhoto_) >= kReprise;
}

void PannePhotos::Note(qint32 tic, const QString& dossier, const QString& raison) {
  PanneEcriture::Note(tic);
  DernierePhoto_ = tic;
  Dossier_ = dossier;
  Raison_ = raison;
}

}  // namespace vaktor
