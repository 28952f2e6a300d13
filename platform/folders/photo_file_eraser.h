// SPDX-License-Identifier: GPL-3.0-or-later
// Deletes photos of the real machine without holding up the window.
#pragma once

#include <chrono>

#include "image/ports/photo_eraser.h"
#include "platform/folders/patient_question.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class EffaceurPhotosSysteme : public EffaceurPhotos {
 public:
  /// After `patience` without the end of a slice kSansReponse is told.
  explicit EffaceurPhotosSysteme(std::chrono::milliseconds patience = std::chrono::seconds(2));

  void Efface(const QStringList& chemins, qsizetype debut, Recoit recoit) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  QuestionPatiente<TrancheEffacee> Question_;
};

}  // namespace vaktor
