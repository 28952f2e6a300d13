// SPDX-License-Identifier: GPL-3.0-or-later
// The handles in the settings file, read on a thread of its own.
#pragma once

#include <QString>

#include "companions/ports/published_inboxes.h"
#include "platform/folders/disk_question.h"

namespace vaktor {

/// Asks for the file's time first and reads it only when it has changed. User-interface thread, with a
/// QCoreApplication.
class LecteurCasiersFichier : public LecteurCasiers {
 public:
  /// `fichier`: full path of the settings file.
  explicit LecteurCasiersFichier(QString fichier) : Fichier_(std::move(fichier)) {}

  void LitCasiers(Rend rend) override;
  void Oublie() override { Question_.Oublie(); }

 private:
  /// What a save changes: the file is replaced by another one.
  struct Empreinte {
    quint64 Numero = 0;
    qint64 Date = 0;  ///< nanoseconds
    qint64 Taille = 0;
    bool operator==(const Empreinte&) const = default;
  };
  struct Lecture {
    Empreinte De;
    std::optional<PoigneesPubliees> Lues;
  };
  static Lecture Lit(const QByteArray& fichier, const Lecture& derniere);

  const QString Fichier_;
  Lecture Derniere_;
  QuestionDisque<Lecture> Question_;
};

}  // namespace vaktor
