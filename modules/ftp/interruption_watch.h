// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a rehearsal that the user no longer wants: it may have to tidy up on the server first.
#pragma once

#include <memory>

namespace vaktor {

/// Waits for TERM, INT and HUP on a thread of its own, since the work itself blocks. While nothing has to be tidied up,
/// the process ends at once; otherwise EstDemandee becomes true, and the process ends `patience` milliseconds later at
/// the latest. One object in a process, made before any other thread.
class VeilleInterruption {
 public:
  static constexpr int kPatience = 8000;

  explicit VeilleInterruption(int patience = kPatience);
  /// From any thread: whether something has to be tidied up.
  void ChangeRestes(bool restes);
  bool EstDemandee() const;

 private:
  struct Partage;
  std::shared_ptr<Partage> Partage_;  // held by the thread too, which nobody waits for
};

}  // namespace vaktor
