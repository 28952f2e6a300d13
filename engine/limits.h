// SPDX-License-Identifier: GPL-3.0-or-later
// Where the detection ends. Each limit stands here with what happens at it; who reaches one calls its Lance..., which
// throws. The tick swallows that, the frame counts as not compared, and where frame upon frame is not the watch tells
// of a detection that stands still (surveillance_tick.h).
#pragma once

#include <QtGlobal>

namespace vaktor {

// The table of samples.

/// The samples of the frame before are numbered from 1 to this, and the running index moves on by the sampling step for
/// each of them (engine/sampling.h: kEchantillonsMax of them fit). A zone that has more ends the analysis at its first
/// sample too many, and every later one at its first sample: the index stays behind the table until the program ends.
/// The capture driver scales larger pictures down before anybody sees them (platform/capture/choice/fitted_size.h).
inline constexpr qint32 kIndexMax = 1'000'000;
[[noreturn]] void LanceTablePleine();  ///< Echec(kIndiceHorsPlage)

// The 32-bit numbers: coordinates, and the counter of milliseconds, which turns negative after 24.8 days.

/// A scan that counts past the last number, and a time across the end of the counter, end the analysis where they are
/// met. The former passes with its zone. The latter never comes, since the analysis takes its times from an origin that
/// moves on (engine/analysis_clock.h) when it lies further back than this: 4.7 hours, far from the end of the numbers.
inline constexpr qint32 kReculCompteur = 1 << 24;
/// No moment that the analysis remembers lies further back than this (24.6 days), so that its difference to now fits 32
/// bits until the origin moves the next time.
inline constexpr qint32 kMomentPlusAncien = -2147483647 + 2 * kReculCompteur;
[[noreturn]] void LanceDepassement();  ///< Echec(kDepassement)

// The interval of the live page, a text of the user's.

/// One that is no number ends each analysis before the comparison, with the live page off too: the interval is read
/// before the switch is looked at. Neither the field (ui/fields) nor the load lets one through. One that is longer than
/// kMomentPlusAncien never passes: no live image comes.
[[noreturn]] void LanceIntervalleIllisible();  ///< Echec(kTypeIncompatible)

// What is told of all that.

/// A frame or two may fail while the picture changes its size; that is no news. More of them do not pass by themselves.
/// A photo that cannot be written is another matter: its frame was compared. A second of frames at the full rate; with
/// a slow camera fewer will do, if they take kDureeTolerableMs.
inline constexpr qint32 kImagesTolerables = 33;
inline constexpr qint32 kImagesPassageres = 2;
inline constexpr quint32 kDureeTolerableMs = 2000;

}  // namespace vaktor
