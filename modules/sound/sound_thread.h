// SPDX-License-Identifier: GPL-3.0-or-later
// The thread on which sound devices are opened and closed: a device that hangs holds it up and nobody else.
#pragma once

#include <functional>
#include <memory>

namespace vaktor {

/// Work in the order in which it was posted, one after the other: the device of one sound is closed before that of the
/// next is opened. Made, used and destroyed on one thread; its end waits for a second at the most and leaves behind
/// what hangs.
class FilSon {
 public:
  FilSon();
  ~FilSon();
  FilSon(const FilSon&) = delete;
  FilSon& operator=(const FilSon&) = delete;

  /// `travail` owns everything it uses, and throws nothing.
  void Pose(std::function<void()> travail);
  /// What is being done has taken more than a second.
  bool EstBloque() const;

 private:
  struct Partage;
  std::shared_ptr<Partage> Partage_;
};

}  // namespace vaktor
