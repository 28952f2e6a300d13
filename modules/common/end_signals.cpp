#include "modules/common/end_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>

namespace vaktor {

namespace {

// A signal handler is given nothing but a number, so the end of the pipe has to stand where it finds it.
std::atomic<int>& Ecriture() {
  static std::atomic<int> descripteur = -1;
  return descripteur;
}

void NoteSignal(int /*signal*/) {
  const char octet = 1;
  [[maybe_unused]] const ssize_t ecrits = ::write(Ecriture().load(), &octet, 1);
}

void Pose(void (*fonction)(int)) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction action {};
    action.sa_handler = fonction;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
  }
}

}  // namespace

SignauxFin::SignauxFin(std::function<void()> surFin) {
  std::array<int, 2> tube{};
  if (::pipe2(tube.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  Lecture_ = tube[0];
  Ecriture().store(tube[1]);
  Guetteur_ = std::make_unique<QSocketNotifier>(Lecture_, QSocketNotifier::Read);
  QObject::connect(Guetteur_.get(), &QSocketNotifier::activated, [lecture = Lecture_, surFin = std::move(surFin)] {
    std::array<char, 16> octets{};
    if (::read(lecture, octets.data(), octets.size()) > 0) surFin();
  });
  Pose(NoteSignal);
}

SignauxFin::~SignauxFin() {
  if (Lecture_ < 0) return;
  Pose(SIG_DFL);
  Guetteur_.reset();
  ::close(Lecture_);
  ::close(Ecriture().exchange(-1));
}

}  // namespace vaktor
