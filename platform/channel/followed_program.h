// SPDX-License-Identifier: GPL-3.0-or-later
// A program of ours that runs, and the word of its end.
#pragma once

#include <functional>

#include "companions/ports/processes.h"
#include "platform/channel/process_handle.h"

namespace vaktor {

/// The system itself tells the end, through a descriptor in the event loop: nothing is asked in between, and nobody has
/// to be the parent. Where the system gives no such descriptor (none is left, it does not know them, it forbids them)
/// the number is looked at once a second.
class ProgrammeSuiviSysteme : public ProgrammeSuivi {
 public:
  static constexpr int kRegard = 1000;  ///< milliseconds between two looks at one that is known by its number alone

  /// `pid` was started a moment ago. One that has ended already is told like any other.
  ProgrammeSuiviSysteme(qint32 pid, std::function<void()> fini, PrisePid::Ouvreur ouvre = PrisePid::OuvrePid);
  ~ProgrammeSuiviSysteme() override;
  ProgrammeSuiviSysteme(const ProgrammeSuiviSysteme&) = delete;
  ProgrammeSuiviSysteme& operator=(const ProgrammeSuiviSysteme&) = delete;

  void DemandeFin() noexcept override;
  void Tue() noexcept override;

 private:
  class Guetteur;

  void Envoie(int signal) noexcept;

  PrisePid Prise_;
  PidSansPrise SansPrise_;  // in its place where that is neither open nor gone
  Guetteur* Guetteur_;
};

}  // namespace vaktor
