// SPDX-License-Identifier: GPL-3.0-or-later
// Small pictures of photos of the real machine.
#pragma once

#include <QByteArrayView>
#include <chrono>
#include <functional>

#include "journal/ports/thumbnail_reader.h"
#include "platform/folders/patient_question.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class LecteurVignettesSysteme : public LecteurVignettes {
 public:
  /// Decodes one photo, on one of the threads. What it throws is told as kSansMoyens.
  using Decodage = std::function<Vignette(const QString& chemin, const QSize& taille)>;

  explicit LecteurVignettesSysteme(Decodage decodage, std::chrono::milliseconds patience = std::chrono::seconds(2));

  void LitVignette(const QString& chemin, const QSize& taille, Recoit recoit) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  const Decodage Decodage_;
  QuestionPatiente<Vignette> Question_;
};

/// Any bytes as the picture of a card. By TurboJPEG, which decodes in eighths of the sides: the least that is not
/// smaller than `taille`, and then smoothly to it. Pictures in several passes that would need too much memory are
/// kTropGrande. From any thread.
Vignette DecodeVignette(QByteArrayView octets, const QSize& taille);
/// The same of a file, which is kTropGrande beyond 64 MB.
Vignette LitVignetteJpeg(const QString& chemin, const QSize& taille);

}  // namespace vaktor
