// SPDX-License-Identifier: GPL-3.0-or-later
// The accounts of Evolution. Format: one key file a source, the file's name its identifier; an account names its
// identity, and that its transport (wiki.gnome.org/Apps/Evolution/ESourceFileFormat).
#pragma once

#include <QString>

#include "platform/accounts/account_list.h"
#include "platform/accounts/foreign_file.h"

namespace vaktor {

inline constexpr qint64 kSourceMax = 64LL * 1024;
inline constexpr int kSourcesMax = 2000;
inline constexpr int kEntreesMax = 20'000;

/// Adds the accounts of the folder `sources`, in the order of the files' names. Which one is the default stands in the
/// desktop's binary settings (dconf) and not in these files, so the first counts as that. Passwords are kept elsewhere,
/// in the desktop's keyring. Reads kSourcesMax files at most, of kEntreesMax entries of the folder.
void LitComptesEvolution(const QString& sources, BudgetLecture& budget, ListeComptes& liste);

}  // namespace vaktor
