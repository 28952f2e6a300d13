// SPDX-License-Identifier: GPL-3.0-or-later
// The names of the photos of a folder of the real machine.
#pragma once

#include <chrono>
#include <functional>

#include "image/ports/photo_names.h"
#include "platform/base/folder_listing.h"
#include "platform/folders/patient_question.h"

namespace vaktor {

/// Reads and sorts on a thread of its own. A reading that is forgotten stops at its next name. User-interface thread,
/// with a QCoreApplication.
class LecteurNomsSysteme : public LecteurNoms {
 public:
  /// Reads a folder, on one of the threads: see ListeDossier. What it throws is told as kSansMoyens.
  using Liste = std::function<DossierListe(const QByteArray&, const QString&, const std::atomic<bool>&)>;

  /// After `patience` without an answer kSansReponse is told.
  explicit LecteurNomsSysteme(std::chrono::milliseconds patience = std::chrono::seconds(3), Liste liste = ListeDossier);

  void LitNoms(const QString& dossier, const QString& motif, Recoit recoit) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  const Liste Liste_;
  QuestionPatiente<NomsPhotos> Question_;
};

}  // namespace vaktor
