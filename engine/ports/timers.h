// SPDX-License-Identifier: GPL-3.0-or-later
// Port: timers. The real ones fire on the user-interface thread; the fake is a scheduler that tests advance by hand.
#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace vaktor {

/// One repeating timer. Disabled when made. Its tick is called on the user-interface thread and never overlaps
/// another tick: a tick that pumps events by hand does not come again before it has returned.
class Minuterie {
 public:
  virtual ~Minuterie() = default;
  /// Milliseconds, 1 and up. On a running timer the new interval counts from now.
  virtual void ChangeIntervalle(qint32 millisecondes) = 0;
  virtual qint32 Intervalle() const = 0;
  /// Starts the timer; on a running timer nothing changes, but one that sleeps wakes.
  virtual void Active() = 0;
  virtual void Desactive() = 0;
  virtual bool EstActive() const = 0;  ///< also while it sleeps
  /// For a tick that has nothing to do until something happens: none comes before Reveille, from which the interval
  /// counts anew, and the processor rests. Nothing on a timer that is off.
  virtual void Endors() = 0;
  virtual void Reveille() = 0;
};

/// Makes timers. `nom` is the timer's name in this program ("Timer1"), for tests and debugging.
class FabriqueMinuteries {
 public:
  virtual ~FabriqueMinuteries() = default;
  virtual std::unique_ptr<Minuterie> CreeMinuterie(const QString& nom, qint32 millisecondes,
                                                   std::function<void()> tic) = 0;
};

}  // namespace vaktor
