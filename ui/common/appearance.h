// SPDX-License-Identifier: GPL-3.0-or-later
// The colours and the style of all windows.
#pragma once

#include <QPalette>

namespace vaktor {

/// Every colour of every control, on or off: none is left to the theme of the desktop, which may be dark.
QPalette DonnePalette();

/// Style and palette of the application, tool tips included. User-interface thread, before the first window.
void HabilleApplication();

}  // namespace vaktor
