// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>

namespace vaktor {

namespace {

constexpr std::array kSignaux = {SIGTERM, SIGINT, SIGHUP};

// A signal handler reaches nothing but statics. A handler is better here than a blocked mask: programs that this one
// starts would inherit the mask and could not be ended.
std::atomic<int>& Ecriture() {
  static std::atomic<int> descripteur{-1};
  return descripteur;
}

void NoteSignal(int) {
  const char octet = 1;
  // Nothing can be done in a handler about a pipe that is full: it is read soon.
  [[maybe_unused]] const ssize_t ecrit = write(Ecriture().load(), &octet, 1);
}

void PoseTraitement(void (*traitement)(int), int drapeaux) {
  struct sigaction action {};
  action.sa_handler = traitement;
  action.sa_flags = drapeaux;
  sigemptyset(&action.sa_mask);
  for (const int signal : kSignaux) sigaction(signal, &action, nullptr);
}

}  // namespace

SignauxFin::SignauxFin(std::function<void()> fonction) : Fonction_(std::move(fonction)) {
  std::array<int, 2> tuyau{};
  // Without a pipe the signals keep their plain effect: the process ends.
  if (pipe2(tuyau.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  Lecture_ = tuyau[0];
  Ecriture().store(tuyau[1]);
  Veille_ = std::make_unique<QSocketNotifier>(Lecture_, QSocketNotifier::Read);
  QObject::connect(Veille_.get(), &QSocketNotifier::activated, [this] { Recoit(); });
  PoseTraitement(NoteSignal, static_cast<int>(SA_RESTART | SA_RESETHAND));
}

SignauxFin::~SignauxFin() {
  if (Lecture_ < 0) return;
  PoseTraitement(SIG_DFL, 0);
  Veille_.reset();
  close(Ecriture().exchange(-1));
  close(Lecture_);
}

void SignauxFin::Recoit() {
  char octet = 0;
  if (read(Lecture_, &octet, 1) == 1) Fonction_();
}

}  // namespace vaktor
