// SPDX-License-Identifier: GPL-3.0-or-later
// A name server that hangs: what "hangs.example" is, nobody answers for as long as it does.
#pragma once

#include <QThread>
#include <atomic>
#include <thread>

namespace vaktor::essai {

/// While it stands, nobody answers. With support/mute_names.cpp in the program, for it and the libraries in it.
std::atomic_bool& NomsMuets();

/// The silence, for as long as this lives and a quarter of a minute at most: a test that fails must end too.
class SilenceDesNoms {
 public:
  SilenceDesNoms() {
    NomsMuets() = true;
    Delivre_ = std::thread([] {
      for (int i = 0; i < 150 && NomsMuets(); ++i) QThread::msleep(100);
      NomsMuets() = false;
    });
  }
  ~SilenceDesNoms() {
    NomsMuets() = false;
    Delivre_.join();
  }
  SilenceDesNoms(const SilenceDesNoms&) = delete;
  SilenceDesNoms& operator=(const SilenceDesNoms&) = delete;

  /// True as long as nobody has answered.
  static bool Dure() { return NomsMuets(); }

 private:
  std::thread Delivre_;
};

}  // namespace vaktor::essai
