// TERM, INT and HUP as events of the event loop.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace vaktor {

/// One in a process. The signals keep their ordinary meaning in programs that this one starts.
class SignauxFin {
 public:
  explicit SignauxFin(std::function<void()> surFin);
  ~SignauxFin();
  SignauxFin(const SignauxFin&) = delete;
  SignauxFin& operator=(const SignauxFin&) = delete;

 private:
  std::unique_ptr<QSocketNotifier> Guetteur_;
  int Lecture_ = -1;
};

}  // namespace vaktor
