// SPDX-License-Identifier: GPL-3.0-or-later
// The steps of ComposeChronique, for its own files.
#pragma once

#include "journal/chronicle.h"

namespace vaktor {

/// An intrusion as the journal tells it, its photos not yet found.
struct IntrusionNotee {
  EntreeJournal Bilan;  ///< of its end, or of its beginning where there is none
  QDateTime Debut;
  bool Ouverte = false;  ///< no end was written
  bool EnCours = false;
};

/// Fills bands and marks of `chronique`; gives the intrusions.
QList<IntrusionNotee> ComposeBandes(const SourcesChronique& sources, Chronique& chronique);
/// Fills the intrusions of `chronique`.
void ComposeIntrusions(const SourcesChronique& sources, const QList<IntrusionNotee>& notees, Chronique& chronique);

}  // namespace vaktor
