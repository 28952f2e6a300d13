// SPDX-License-Identifier: GPL-3.0-or-later
// What every thread that sends has: how it waits, is woken and asked to end, and how its reports come to the event
// loop.
#pragma once

#include <QMetaObject>
#include <QMutex>
#include <QObject>
#include <QThread>
#include <QWaitCondition>
#include <atomic>
#include <functional>
#include <utility>

namespace vaktor {

/// What both threads touch. The sending thread keeps it alive, also past a companion that could not wait for it.
struct BoucleEnvoi {
  static constexpr unsigned long kAttenteFinMs = 2000;
  static constexpr qint64 kRepriseMs = 60'000;  ///< after a failure that is nobody's, want of memory

  QMutex Verrou;
  QWaitCondition Reveil;
  std::atomic_bool Arret = false;

  /// From here on the thread ends as soon as it can, and reports nothing.
  void DemandeFin() {
    const QMutexLocker garde(&Verrou);
    Arret = true;
    Reveil.wakeAll();
  }
};

/// What hands a report of the thread over to `suite`, on the event loop of `contexte`; nothing once the end was asked
/// for. Both outlive that moment: whoever ends the companion asks for the end before they go.
template <typename Rapport>
std::function<void(const Rapport&)> RapporteALaBoucle(QObject& contexte, BoucleEnvoi& boucle,
                                                      std::function<void(const Rapport&)> suite) {
  return [&contexte, &boucle, suite = std::move(suite)](const Rapport& rapport) {
    const QMutexLocker garde(&boucle.Verrou);
    if (boucle.Arret) return;
    QMetaObject::invokeMethod(
        &contexte, [suite, rapport] { suite(rapport); }, Qt::QueuedConnection);
  };
}

/// A thread that a name server holds up is left behind: the process is about to end, and the outbox stands on disk.
inline void FinisOuLaisse(BoucleEnvoi& boucle, QThread* fil) {
  boucle.DemandeFin();
  if (fil->wait(BoucleEnvoi::kAttenteFinMs)) delete fil;
}

}  // namespace vaktor
