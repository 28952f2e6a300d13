// SPDX-License-Identifier: GPL-3.0-or-later
// One end of the channel that listens: a datagram socket in the channel's folder. Datagrams, and not a stream, because
// the channel carries short words that nobody answers: the kernel keeps each whole and in order, bounds what may wait,
// and hands over with each the user who sent it (SCM_CREDENTIALS, unix(7)). There is no half-open connection to guard.
#pragma once

#include <QBasicTimer>
#include <QByteArray>
#include <QObject>
#include <functional>
#include <optional>

#include "platform/channel/channel_folder.h"

namespace vaktor {

/// Thread of its event loop. Takes one message at a time; after kMessagesParRafale of them it rests for kRepos
/// milliseconds, so that a peer that never stops talking leaves the event loop to the frames.
class CasierLocal : public QObject {
 public:
  static constexpr int kMessagesParRafale = 8;
  static constexpr int kRepos = 10;

  /// `recu` gets each message as it was sent, at most kMessageMax bytes, without the line break that may end it.
  /// Messages that are longer or come from another user are dropped. `recu` may throw, and may destroy the box. Throws
  /// Echec when no socket can be had.
  CasierLocal(const DossierCanal& dossier, std::function<void(const QByteArray&)> recu);
  ~CasierLocal() override;

  qint32 Poignee() const { return Poignee_; }
  /// When the message that is being handed on was sent, in milliseconds since 1970; nothing where the system does not
  /// tell.
  std::optional<qint64> Depart() const { return Depart_; }

 protected:
  void timerEvent(QTimerEvent* evenement) override;

 private:
  class Guetteur;
  void OuvreSocket();
  void PrendMessage();

  DossierCanal Dossier_;
  std::function<void(const QByteArray&)> Recu_;
  int Socket_ = -1;
  qint32 Poignee_ = 0;
  int Rafale_ = 0;
  std::optional<qint64> Depart_;
  Guetteur* Guetteur_ = nullptr;
  QBasicTimer Repos_;
};

}  // namespace vaktor
