// A program of ours that runs, and the word of its end.
#pragma once

#include <functional>

#include "companions/ports/processes.h"
#include "platform/channel/process_handle.h"

namespace vaktor {

/// The system itself tells the end, through a descriptor in the event loop: nothing is asked in between, and nobody has
/// to be the parent.
class ProgrammeSuiviSysteme : public ProgrammeSuivi {
 public:
  /// `pid` was started a moment ago. One that has ended already is told like any other.
  ProgrammeSuiviSysteme(qint32 pid, std::function<void()> fini);
  ~ProgrammeSuiviSysteme() override;
  ProgrammeSuiviSysteme(const ProgrammeSuiviSysteme&) = delete;
  ProgrammeSuiviSysteme& operator=(const ProgrammeSuiviSysteme&) = delete;

  void DemandeFin() noexcept override;
  void Tue() noexcept override;

 private:
  class Guetteur;

  PrisePid Prise_;
  Guetteur* Guetteur_;
};

}  // namespace vaktor
