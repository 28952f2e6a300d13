// SPDX-License-Identifier: GPL-3.0-or-later
// Windows of a fixed size under Wayland.
#pragma once

#include <QHash>
#include <QObject>
#include <QSize>
#include <QWindow>

namespace vaktor {

/// The frame that the toolkit draws where the desktop draws none has a button that maximises, also on a window of a
/// fixed size. The window then keeps its size, which the protocol takes for a fault: the desktop cuts the connection,
/// and the program, its camera and its alarm are gone. While this object lives such a window may grow for the moment,
/// and goes back to its size by itself. It looks after windows that are shown from now on. User-interface thread.
class FenetresFixes : public QObject {
 public:
  FenetresFixes();

  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void SuitEtat(QWindow* fenetre, Qt::WindowState etat);
  void SuitTaille(QWindow* fenetre);

  QHash<QObject*, QSize> Suivies_;  // by window: the size that it goes back to, none as long as it has that size
};

}  // namespace vaktor
