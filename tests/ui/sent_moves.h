// SPDX-License-Identifier: GPL-3.0-or-later
// A move of the mouse, sent to one control.
#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

namespace vaktor::faux {

inline void Bouge(QWidget* controle, QPoint place, Qt::MouseButtons boutons = Qt::NoButton) {
  QMouseEvent bouge(QEvent::MouseMove, place, controle->mapToGlobal(place), Qt::NoButton, boutons, Qt::NoModifier);
  QCoreApplication::sendEvent(controle, &bouge);
}

}  // namespace vaktor::faux
