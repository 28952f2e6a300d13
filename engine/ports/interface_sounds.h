// Port: the small sounds of the interface.
#pragma once

#include <QtGlobal>

namespace vaktor {

class SonsInterface {
 public:
  virtual ~SonsInterface() = default;
  /// Plays sound number n and cuts the one before. Silent when the file is missing.
  virtual void JoueSon(qint32 n) = 0;
  /// The hover gate: sounds once when `id` differs from the last one; 5555 (no control) never sounds and re-arms it.
  virtual void SurvolSon(qint32 id) = 0;
};

}  // namespace vaktor
