// SPDX-License-Identifier: GPL-3.0-or-later
// Port: plays a wave file.
#pragma once

#include <QString>

namespace vaktor {

class LecteurSon {
 public:
  virtual ~LecteurSon() = default;
  /// User-interface thread; returns at once. Cuts a sound that still plays. `chemin` in the stored form of a path. A
  /// file that is no sound and a machine without a sound device are silent.
  virtual void Joue(const QString& chemin) = 0;
};

}  // namespace vaktor
