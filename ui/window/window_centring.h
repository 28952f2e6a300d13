// SPDX-License-Identifier: GPL-3.0-or-later
// CentrageFenetre: brings a window to the middle of its screen, its frame counted.
#pragma once

#include <QObject>
#include <QPoint>
#include <QWidget>
#include <functional>

namespace vaktor {

/// The frame belongs to the window manager, who tells how wide it is some time after the window has come up. So the
/// window is put in the middle as if it had none, and once more when the frame is known; where somebody else has moved
/// it meanwhile it stays. User-interface thread.
class CentrageFenetre : public QObject {
 public:
  /// `fenetre` outlives the object. `deplacee` is called after the second time.
  CentrageFenetre(QWidget& fenetre, std::function<void()> deplacee);
  /// Before the window is shown.
  void Centre();

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void Place();
  bool EstEnPlace() const;

  QWidget& Fenetre_;
  const std::function<void()> Deplacee_;
  QPoint Place_;
};

}  // namespace vaktor
