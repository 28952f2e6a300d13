// SPDX-License-Identifier: GPL-3.0-or-later
// What our own windows and the controls that draw themselves are to those who hear the window.
#pragma once

#include <QAccessible>
#include <QComboBox>
#include <QWidget>

namespace vaktor {

/// Each window of ours is a window to a screen reader, and a control that draws itself what it was given by DonneRole.
/// The toolkit knows neither and calls both a filler, which readers pass over. Once, after the application was made;
/// again is nothing. User-interface thread.
void InstalleRoles();

/// Before the control is asked about first.
void DonneRole(QWidget& controle, QAccessible::Role role);

/// Names a list that has no label beside it. What the toolkit calls the name of a list is the entry that it shows; a
/// reader says what the list is for by its label alone, so it gets one that nobody sees. Again with other words: they
/// take the place of the first.
void NommeListe(QComboBox& liste, const QString& nom);

}  // namespace vaktor
