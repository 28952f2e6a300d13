// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the small sounds of the interface.
#pragma once

#include <QtGlobal>

namespace vaktor {

class SonsInterface {
 public:
  static constexpr qint32 kAucunSurvol = 5555;  ///< the identifier of no control
  static constexpr qint32 kTic = 4;             ///< number of the interface tick; 0 to 2 are the alarm sounds

  virtual ~SonsInterface() = default;
  /// Plays sound number n and cuts the one before. Silent when the file is missing.
  virtual void JoueSon(qint32 n) = 0;
  /// The hover gate: sounds once when `id` differs from the last one; kAucunSurvol never sounds and re-arms it.
  virtual void SurvolSon(qint32 id) = 0;
};

}  // namespace vaktor
