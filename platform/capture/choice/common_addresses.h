// SPDX-License-Identifier: GPL-3.0-or-later
// The addresses that network cameras of the common makers answer under, for a user who knows where the camera is and
// not what its maker calls its stream.
#pragma once

#include <QList>
#include <QString>

#include "platform/capture/choice/named_source.h"

namespace vaktor {

/// The addresses to try for a source without a path, most common first; the source itself alone where it has a path, or
/// is not of the network. User and password go with each. An address with its scheme is tried as it stands first, and
/// then with the paths of that scheme; a host alone with those of both.
QList<SourceCapture> AdressesPossibles(const SourceCapture& source);

/// The address of a source with its user and password, as ComprendSource understands it: to be remembered.
QString AdresseComplete(const SourceCapture& source);

}  // namespace vaktor
