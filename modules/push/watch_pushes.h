// SPDX-License-Identifier: GPL-3.0-or-later
// From what the watch has to say of itself to pushes of the outbox, for whoever wants pushes and no mails.
#pragma once

#include <QSet>

#include "modules/mail/watch_folder.h"
#include "modules/push/push_outbox.h"
#include "platform/base/bounded_log.h"
#include "texts/language.h"

namespace vaktor {

/// What came of one look into the folder.
struct PrisePush {
  int Pris = 0;            ///< pushes that are in the outbox now
  bool Illisible = false;  ///< a message was no message; it is put aside
  int Erreur = 0;          ///< the outbox cannot be written: the system's error number
  bool Reste = false;      ///< something may go better a little later
};

/// A message becomes a push and is deleted then: a kill in between loses none, and makes no second one as long as the
/// first waits.
class PushVeille {
 public:
  PushVeille(const QString& dossier, SacPush sac, JournalBorne& journal);

  /// All that lies in the folder; in `parlee`, with `titre` where a message has none. Waits a few seconds at most for
  /// another companion that does the same.
  PrisePush Prend(Langue parlee, const QString& titre, qint64 maintenant);

 private:
  void PrendUn(const QString& nom, Langue parlee, const QString& titre, PrisePush& prise);
  int Depose(const MessageVeille& message, Langue parlee, const QString& titre);
  bool EstFait(const QString& nom) const;

  LecteurVeille Lecteur_;
  SacPush Sac_;
  QSet<QString> Essayes_;  // looked at in this run: their picture is not waited for any longer
};

}  // namespace vaktor
