// The end of the channel that talks: messages to handles, in order, without ever waiting for the other side.
#pragma once

#include <sys/un.h>

#include <QBasicTimer>
#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QQueue>

#include <optional>

#include "platform/channel/channel_folder.h"

namespace vaktor {

/// Thread of its event loop. A message for a box that is full waits here and is offered again every kReprise
/// milliseconds, behind those before it; more than kAttenteMax waiting for one handle drop the newest. A handle that
/// nobody answers to swallows what was meant for it.
class EmetteurLocal : public QObject {
 public:
  static constexpr int kReprise = 20;
  static constexpr int kAttenteMax = 256;

  explicit EmetteurLocal(const DossierCanal& dossier);
  ~EmetteurLocal() override;
  EmetteurLocal(const EmetteurLocal&) = delete;
  EmetteurLocal& operator=(const EmetteurLocal&) = delete;

  /// Never blocks, never fails. A message above kMessageMax bytes is dropped.
  void Poste(qint32 poignee, const QByteArray& message) noexcept;
  /// Messages that wait for this handle.
  qsizetype EnAttente(qint32 poignee) const;

 protected:
  void timerEvent(QTimerEvent* evenement) override;

 private:
  enum class Issue { kParti, kPlein, kPersonne };
  Issue Essaie(qint32 poignee, const QByteArray& message);
  const std::optional<sockaddr_un>& DonneAdresse(qint32 poignee);
  void Vide(qint32 poignee);

  DossierCanal Dossier_;
  int Socket_ = -1;
  QHash<qint32, std::optional<sockaddr_un>> Adresses_;  // of the handles spoken to, which are few
  QHash<qint32, QQueue<QByteArray>> Attente_;
  QBasicTimer Reprise_;
};

}  // namespace vaktor
