// SPDX-License-Identifier: GPL-3.0-or-later
// TERM, INT and HUP as events of the event loop.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace vaktor {

/// One object at a time in a process, made after the application object, on the thread of the event loop. The first of
/// each of the signals calls the function from the loop; a second one of its kind has its plain effect, for a program
/// that hangs. When the object goes, the signals have their plain effect again. Programs that this one starts get none
/// of it.
class SignauxFin {
 public:
  explicit SignauxFin(std::function<void()> fonction);
  ~SignauxFin();
  SignauxFin(const SignauxFin&) = delete;
  SignauxFin& operator=(const SignauxFin&) = delete;

 private:
  void Recoit();

  std::function<void()> Fonction_;
  std::unique_ptr<QSocketNotifier> Veille_;
  int Lecture_ = -1;
};

}  // namespace vaktor
