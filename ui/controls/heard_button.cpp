// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/heard_button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

namespace vaktor {

void BoutonEntendu::Engage(bool engage) {
  const QScopedValueRollback<bool> annonce(Annonce_, true);
  setCheckable(true);
  setChecked(engage);
}

// A screen reader does not click what can be checked, it toggles it: that is to be a click like any other, and the mark
// stays what the rules make it. Later, so that the reader is not kept waiting by what the click does.
void BoutonEntendu::checkStateSet() {
  if (Annonce_) return;
  Engage(!isChecked());
  QMetaObject::invokeMethod(
      this, [this] { click(); }, Qt::QueuedConnection);
}

// Coming back to the window leaves it as it was.
void BoutonEntendu::focusInEvent(QFocusEvent* evenement) {
  if (evenement->reason() != Qt::ActiveWindowFocusReason) FocusMontre_ = evenement->reason() != Qt::MouseFocusReason;
  QAbstractButton::focusInEvent(evenement);
}

// Who clicks sees where; also on a button that the tab key had reached before.
void BoutonEntendu::mousePressEvent(QMouseEvent* evenement) {
  FocusMontre_ = false;
  QAbstractButton::mousePressEvent(evenement);
}

void BoutonEntendu::keyPressEvent(QKeyEvent* evenement) {
  const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
  if (!entree) {
    QAbstractButton::keyPressEvent(evenement);
    return;
  }
  // A held key must not switch the camera on and off many times a second.
  if (!evenement->isAutoRepeat()) click();
}

}  // namespace vaktor
