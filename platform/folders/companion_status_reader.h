// SPDX-License-Identifier: GPL-3.0-or-later
// The status files of the companions, as the companion programs of this house write them.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

#include "companions/ports/companion_status.h"
#include "platform/folders/disk_question.h"

namespace vaktor {

/// What the bytes of one file say; `maintenant`: milliseconds since 1970. What is damaged says nothing.
EtatCompagnon ComprendEtat(const QByteArray& octets, qint64 maintenant);

/// Reads on a thread of its own, regular files of 64 KB at the most. A file that is damaged, half or absent gives
/// nothing; the next reading may. User-interface thread, with a QCoreApplication.
class LecteurEtatsFichiers : public LecteurEtats {
 public:
  using Maintenant = std::function<qint64()>;
  using Question = QuestionDisque<EtatsCompagnons>;

  /// `dossier`: where the companions keep them. `maintenant`: milliseconds since 1970, any thread.
  /// `montre` never goes back.
  explicit LecteurEtatsFichiers(QString dossier, Maintenant maintenant = &QDateTime::currentMSecsSinceEpoch,
                                Question::Montre montre = std::chrono::steady_clock::now);

  void LitEtats(Recoit recoit) override;
  void Oublie() override { Recoit_ = {}; }

 private:
  const QString Dossier_;
  const Maintenant Maintenant_;
  Question Question_;  // while it waits for an answer no other is put: not one thread more at each look
  Recoit Recoit_;
};

}  // namespace vaktor
