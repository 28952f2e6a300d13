// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the programs that the desktop starts when its user logs in.
#pragma once

namespace vaktor {

/// This copy of the program with "/alarm", as it was started: with the same camera and the same folder.
/// User-interface thread; no call waits for a disk for longer than a second.
class DemarrageSession {
 public:
  virtual ~DemarrageSession() = default;
  /// It is started at the next login. False for a disk that does not answer, and where something else is started.
  virtual bool EstVoulue() const = 0;
  /// From now on it is, or is not any more; false when nothing has changed, because it could not be written.
  virtual bool Veut(bool voulue) = 0;
};

}  // namespace vaktor
