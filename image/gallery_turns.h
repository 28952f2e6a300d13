// SPDX-License-Identifier: GPL-3.0-or-later
// What of the gallery may run when: the one place that says so.
#pragma once

#include <array>
#include <cstddef>

namespace vaktor {

/// What the gallery is busy with.
enum class Occupation {
  kAucune,
  kLecture,     ///< a folder is being read, or the first photo of one that was opened
  kDisqueMuet,  ///< the same, and its disk keeps everybody waiting
  kEffacement   ///< the user is asked, photos are being deleted, or the list behind a deletion is being read
};

/// What is asked of it and needs its list or its disk. Selecting an entry, the limit, closing the window and the end of
/// the program need neither and are done at any time: closing forgets openings, the end forgets everything, and a
/// deletion then stops before its next photo.
enum class Geste {
  kOuvre,
  kChangeDossier,
  kRafraichit,
  kEfface,  ///< one or all
  kMontre   ///< a photo
};

/// When it is done.
enum class Tour {
  kTout,      ///< at once
  kApres,     ///< when what is under way has ended
  kRemplace,  ///< at once, and what is under way is given up for it
  kJamais     ///< it is as if nothing had been asked
};

/// While a question stands or a deletion runs nothing is launched but what belongs to it: an opening in the middle of a
/// deletion would find the photo gone whose name it has just read, and take the folder for a bad one. A second deletion
/// is none, because it would be about a list that is no longer true.
constexpr Tour DonneTour(Occupation occupation, Geste geste) {
  using enum Tour;
  constexpr std::array<std::array<Tour, 4>, 5> kTours{{
      // kAucune, kLecture, kDisqueMuet, kEffacement
      {kTout, kApres, kRemplace, kApres},   // kOuvre
      {kTout, kApres, kRemplace, kApres},   // kChangeDossier
      {kTout, kApres, kRemplace, kApres},   // kRafraichit
      {kTout, kApres, kRemplace, kJamais},  // kEfface
      {kTout, kTout, kTout, kApres},        // kMontre
  }};
  return kTours.at(static_cast<std::size_t>(geste)).at(static_cast<std::size_t>(occupation));
}

}  // namespace vaktor
