// SPDX-License-Identifier: GPL-3.0-or-later
// CPU time of the thread, so that what else the machine does is left out, and the median, so that its jolts are.
#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

namespace vaktor {

/// `horloge`: of the thread, of the whole process (CLOCK_PROCESS_CPUTIME_ID) where it has others work for it, or of
/// the wall (CLOCK_MONOTONIC).
inline double Microsecondes(clockid_t horloge = CLOCK_THREAD_CPUTIME_ID) {
  timespec temps{};
  clock_gettime(horloge, &temps);
  return static_cast<double>(temps.tv_sec) * 1e6 + static_cast<double>(temps.tv_nsec) * 1e-3;
}

/// Of a list that is not empty.
inline double Mediane(std::vector<double> valeurs) {
  const auto milieu = valeurs.begin() + static_cast<std::ptrdiff_t>(valeurs.size() / 2);
  std::nth_element(valeurs.begin(), milieu, valeurs.end());
  return *milieu;
}

}  // namespace vaktor
