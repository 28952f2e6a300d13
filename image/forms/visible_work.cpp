// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/visible_work.h"

#include <QEvent>

namespace vaktor {

TravailVisible::TravailVisible(QWidget* widget, std::function<void()> travail)
    : QObject(widget), Widget_(widget), Travail_(std::move(travail)) {}

void TravailVisible::Demande() {
  QWindow* fenetre = Widget_->window()->windowHandle();
  if (fenetre == nullptr || !fenetre->isVisible() || fenetre->isExposed()) {
    Travail_();
    return;
  }
  // Asked for at each frame of a night: to put the same filter in again is not for nothing.
  if (Attendue_ == fenetre) return;
  Attendue_ = fenetre;
  fenetre->installEventFilter(this);
}

// A window that is hidden for good is not exposed again before it is shown again; that is early enough.
bool TravailVisible::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() != QEvent::Expose || !qobject_cast<QWindow*>(objet)->isExposed()) return false;
  objet->removeEventFilter(this);
  Attendue_.clear();
  Travail_();
  return false;
}

}  // namespace vaktor
