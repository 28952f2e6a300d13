// SPDX-License-Identifier: GPL-3.0-or-later
// Journal and photos of the real machine, read and composed on a thread.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "journal/ports/chronicle_reader.h"
#include "platform/folders/patient_question.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class LecteurChroniqueSysteme : public LecteurChronique {
 public:
  /// After `patience` without an answer null is told.
  explicit LecteurChroniqueSysteme(QString journal, std::chrono::milliseconds patience = std::chrono::seconds(5));

  void LitChronique(const QString& dossier, const QString& course, Recoit recoit) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  const QString Journal_;
  QuestionPatiente<std::shared_ptr<const Chronique>> Question_;
};

}  // namespace vaktor
