// SPDX-License-Identifier: GPL-3.0-or-later
// Brings results from threads to the event loop of the one that waits for them.
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <mutex>

namespace vaktor {

/// Shared by the threads with the object that made it. Made and cut on the thread whose event loop it is.
class RelaisBoucle {
 public:
  /// Runs `suite` in the event loop, later; nothing once it is cut. Any thread.
  void Poste(std::function<void()> suite) {
    const std::lock_guard garde(Verrou_);
    if (Recepteur_) QMetaObject::invokeMethod(Recepteur_.get(), std::move(suite), Qt::QueuedConnection);
  }
  /// From here on nothing is run any more, also of what was posted before.
  void Coupe() {
    const std::lock_guard garde(Verrou_);
    Recepteur_.reset();
  }

 private:
  std::mutex Verrou_;
  std::unique_ptr<QObject> Recepteur_ = std::make_unique<QObject>();
};

}  // namespace vaktor
