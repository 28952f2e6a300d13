// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of the gallery, read and decoded without holding up the window.
#pragma once

#include <chrono>
#include <functional>

#include "image/ports/photo_reader.h"
#include "platform/folders/patient_question.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class LecteurPhotosSysteme : public LecteurPhotos {
 public:
  /// Reads one photo, on one of the threads. What it throws is told as kSansMoyens.
  using Decodage = std::function<PhotoLue(const QString& chemin)>;

  /// After `patience` without a picture kSansReponse is told.
  explicit LecteurPhotosSysteme(Decodage decodage, std::chrono::milliseconds patience = std::chrono::seconds(2));

  void LitPhoto(const QString& chemin, Recoit recoit) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  const Decodage Decodage_;
  QuestionPatiente<PhotoLue> Question_;
};

}  // namespace vaktor
