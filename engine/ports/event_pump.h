// SPDX-License-Identifier: GPL-3.0-or-later
// Port: lets the events that are waiting run, at the few points where a rule says so.
#pragma once

namespace vaktor {

class PompeEvenements {
 public:
  virtual ~PompeEvenements() = default;
  /// Runs the pending events of the user-interface thread once and returns. Handlers that run here may call back into
  /// the rule that pumps: each such rule says what state they find.
  virtual void PompeMessages() = 0;
};

}  // namespace vaktor
