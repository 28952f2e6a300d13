// SPDX-License-Identifier: GPL-3.0-or-later
// How much lies in a folder, counted on a thread of its own.
#pragma once

#include <chrono>
#include <optional>
#include <utility>

#include "companions/ports/folder_measure.h"
#include "platform/folders/disk_question.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class MesureurDossierSysteme : public MesureurDossier {
 public:
  using Question = QuestionDisque<std::optional<TailleDossier>>;

  /// `montre` never goes back.
  explicit MesureurDossierSysteme(Question::Montre montre = std::chrono::steady_clock::now)
      : Question_(std::move(montre)) {}

  void Mesure(const QString& dossier, Rend rend) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  Question Question_;
};

}  // namespace vaktor
