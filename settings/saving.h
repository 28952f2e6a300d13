// SPDX-License-Identifier: GPL-3.0-or-later
// How the rest of the program asks for a save, without knowing the store.
#pragma once

namespace vaktor {

/// The save of all parameters in one go. User-interface thread. May be called again from inside itself.
class SauvegardeParametres {
 public:
  virtual ~SauvegardeParametres() = default;
  /// Writes the whole table, tells the companions, clears ParametresModifies. Returns when other processes see the
  /// new values. Until the load has read every value it writes nothing and is made up for by the end of the load.
  /// Throws Echec when the store cannot be written.
  virtual void SauveParametres() = 0;
};

}  // namespace vaktor
