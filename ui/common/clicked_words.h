// SPDX-License-Identifier: GPL-3.0-or-later
// The words beside a box belong to it: a click on them is a click on the box.
#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>

namespace vaktor {

/// A left click on `mots`, pressed and released there, gives `boite` the focus and calls `bascule`, while the box is
/// enabled. All live as long as their window.
void RelieMots(QLabel& mots, QWidget& boite, std::function<void()> bascule);

}  // namespace vaktor
