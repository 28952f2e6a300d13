// SPDX-License-Identifier: GPL-3.0-or-later
// The mark on the chosen tab.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>

namespace vaktor {

/// Where the mark of the tab at `onglet` is drawn: on the window, around the tab and down to the page that it opens.
QRect PlaceMarque(const QRect& onglet);

/// A cap on the tab, and below it a join to its page. The tab's own face is as it is given, so that nothing is drawn on
/// it. `fond` is the mean colour of what lies under the mark: it is dark on a light skin, and light on a dark one.
void DessineMarque(QPainter& peintre, const QRect& onglet, const QColor& fond);

}  // namespace vaktor
