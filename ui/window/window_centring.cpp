// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/window_centring.h"

#include <QEvent>
#include <QScreen>
#include <QWindow>

#include "ui/window/window_placement.h"

namespace vaktor {

CentrageFenetre::CentrageFenetre(QWidget& fenetre, std::function<void()> deplacee)
    : Fenetre_(fenetre), Deplacee_(std::move(deplacee)) {}

void CentrageFenetre::Centre() {
  Place();
  Fenetre_.installEventFilter(this);
}

void CentrageFenetre::Place() {
  Place_ = PlaceCentree(Fenetre_.screen()->availableGeometry(), Fenetre_.frameGeometry().size());
  Fenetre_.move(Place_);
}

// Window managers take the place that was asked for as that of the frame, some as that of its inside.
bool CentrageFenetre::EstEnPlace() const { return Fenetre_.pos() == Place_ || Fenetre_.geometry().topLeft() == Place_; }

// What comes when the frame is put around the window, and soon after it.
bool CentrageFenetre::eventFilter(QObject*, QEvent* evenement) {
  const QEvent::Type type = evenement->type();
  if (type != QEvent::Move && type != QEvent::Show && type != QEvent::WindowActivate && type != QEvent::Paint) {
    return false;
  }
  const QWindow* fenetre = Fenetre_.windowHandle();
  if (fenetre == nullptr || fenetre->frameMargins().isNull()) return false;
  Fenetre_.removeEventFilter(this);
  if (!EstEnPlace()) return false;
  Place();
  if (Deplacee_) Deplacee_();
  return false;
}

}  // namespace vaktor
