// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the program of the user's own, for what Vaktor does not do itself: a push service, home automation, a siren.
#pragma once

#include <QStringList>

namespace vaktor {

/// User-interface thread.
class ProgrammePersonnel {
 public:
  virtual ~ProgrammePersonnel() = default;
  /// Starts the program, where the user has one, with these arguments. Returns at once, before anything is known of it,
  /// and tells nobody how it ends: it is the user's, and nothing of the watch may hang on it.
  virtual void Lance(const QStringList& arguments) = 0;
};

}  // namespace vaktor
