// SPDX-License-Identifier: GPL-3.0-or-later
// From what the watch has to say of itself to mails of the outbox: none is lost by a kill in between, none made twice.
#pragma once

#include <QSet>
#include <utility>

#include "modules/mail/late_drafts.h"
#include "modules/mail/mail_maker.h"
#include "modules/mail/outbox.h"
#include "modules/mail/watch_folder.h"
#include "platform/base/bounded_log.h"

namespace vaktor {

/// What came of one look into the folder.
struct PriseVeille {
  int Pris = 0;              ///< mails that are in the outbox now
  bool Illisible = false;    ///< a message was no message; it is put aside
  bool SansAdresse = false;  ///< messages wait for somebody to send them to
  bool Abandonne = false;    ///< a message was too old, and is gone
  int Erreur = 0;            ///< the outbox cannot be written: the system's error number
  bool Reste = false;        ///< something may go better a little later
  /// Mails that the disk did not take, without their pictures: to be sent from memory. The messages stay.
  QList<std::pair<CourrielEnAttente, QByteArray>> DeMemoire = {};
};

/// A message becomes a draft of the outbox, is deleted, and only then may the draft leave. So a kill leaves the
/// message, or the draft, or both, and both are recognised as one: the draft's name holds the message's.
class CourriersVeille {
 public:
  /// Makes up for a kill at once, before anything of the outbox may be sent: a message whose mail is in the outbox
  /// already is deleted.
  CourriersVeille(const QString& dossier, SacPostal sac, BrouillonsEnRetard& retard, QString marque,
                  JournalBorne& journal);

  /// All that lies in the folder. Waits a few seconds at most for another companion that does the same.
  PriseVeille Prend(const ReglagesCourriel& reglages, qint64 maintenant);
  /// A mail was sent from memory: its message goes.
  void NoteParti(const QString& courriel);
  /// Whether the message of which that mail was made still lies here.
  bool Tient(const QString& courriel) const;
  /// Milliseconds since 1970 of the oldest message that waits here. Gives the system's error number when the folder
  /// could not be listed.
  int LitPlusAncien(std::optional<qint64>& faitA) const;

 private:
  /// False when it cannot be told at this moment whose mails are made.
  bool EffaceLesFaits();
  void PrendUn(const QString& nom, const ReglagesCourriel& reglages, qint64 maintenant, PriseVeille& prise);
  int Depose(const MessageVeille& message, const ReglagesCourriel& reglages, PriseVeille& prise);

  LecteurVeille Lecteur_;
  SacPostal Sac_;
  BrouillonsEnRetard& Retard_;  // takes over the drafts whose message is gone already
  QString Marque_;
  JournalBorne& Journal_;
  QSet<QString> Essayes_;     // looked at in this run; none goes for its age before, by a clock that may be wrong
  bool SansAdresse_ = false;  // told in the log
};

}  // namespace vaktor
