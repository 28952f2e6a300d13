// SPDX-License-Identifier: GPL-3.0-or-later
// What every thread that sends has: how it waits, is woken and asked to end, and how its reports come to the event
// loop.
#pragma once

#include <QObject>
#include <QThread>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>

namespace vaktor {

/// What both threads touch. The sending thread keeps it alive, also past a companion that could not wait for it.
struct BoucleEnvoi {
  static constexpr unsigned long kAttenteFinMs = 2000;
  static constexpr qint64 kRepriseMs = 60'000;  ///< after a failure that is nobody's, want of memory

  std::mutex Verrou;
  std::condition_variable Reveil;
  std::atomic_bool Arret = false;

  /// From here on the thread ends as soon as it can, and reports nothing.
  void DemandeFin();
};

/// Carries `quoi` out on the event loop of `contexte`; does nothing once the end was asked for. Both outlive that
/// moment: whoever ends the companion asks for the end before they go.
void PosteALaBoucle(QObject& contexte, BoucleEnvoi& boucle, std::function<void()> quoi);

/// What hands a report of the thread over to `suite` in this way.
template <typename Rapport>
std::function<void(const Rapport&)> RapporteALaBoucle(QObject& contexte, BoucleEnvoi& boucle,
                                                      std::function<void(const Rapport&)> suite) {
  return [&contexte, &boucle, suite = std::move(suite)](const Rapport& rapport) {
    PosteALaBoucle(contexte, boucle, [suite, rapport] { suite(rapport); });
  };
}

/// A thread that a name server holds up is left behind: the process is about to end, and the outbox stands on disk.
void FinisOuLaisse(BoucleEnvoi& boucle, QThread* fil);

}  // namespace vaktor
