// SPDX-License-Identifier: GPL-3.0-or-later
// The way out: whatever throws on it, the process ends, and its status says that something was lost.
#pragma once

#include <functional>

namespace vaktor {

/// Exit status of a program that could not start, or that lost something at its end.
inline constexpr int kStatutEchec = 1;

/// Runs one step; false when it threw, whatever it was: then `dit` gets the words, and what that throws is dropped.
bool EssaiePas(const std::function<void()>& pas, const std::function<void(const char* mots)>& dit) noexcept;

/// From here on a failure that leaves a destructor, which no handler can stop, ends the process with kStatutEchec and
/// a line on the terminal, instead of as a crash. Called when nothing but the way out is left.
void PrepareSortie() noexcept;

}  // namespace vaktor
