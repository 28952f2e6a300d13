#include "image/photo_failure.h"

namespace vaktor {

void PannePhotos::Note(qint32 tic, const QString& dossier, const QString& raison) {
  PanneEcriture::Note(tic);
  Dossier_ = dossier;
  Raison_ = raison;
}

}  // namespace vaktor
