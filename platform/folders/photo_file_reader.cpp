// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folders/photo_file_reader.h"

#include <utility>

namespace vaktor {

LecteurPhotosSysteme::LecteurPhotosSysteme(Decodage decodage, std::chrono::milliseconds patience)
    : Decodage_(std::move(decodage)),
      Question_(patience, {.Etat = EtatPhoto::kSansReponse}, {.Etat = EtatPhoto::kSansMoyens}) {}

void LecteurPhotosSysteme::LitPhoto(const QString& chemin, Recoit recoit) {
  Question_.Pose([decodage = Decodage_, chemin](const std::atomic<bool>&) { return decodage(chemin); },
                 std::move(recoit));
}

}  // namespace vaktor
