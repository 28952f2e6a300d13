// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/widgets/fixed_windows.h"

#include <QCoreApplication>
#include <QEvent>

namespace vaktor {

namespace {

constexpr int kSansLimite = (1 << 24) - 1;  // the toolkit's own largest size of a window

}  // namespace

FenetresFixes::FenetresFixes() { QCoreApplication::instance()->installEventFilter(this); }

bool FenetresFixes::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() != QEvent::Show && evenement->type() != QEvent::Resize) return false;
  auto* fenetre = qobject_cast<QWindow*>(objet);
  if (fenetre == nullptr) return false;
  if (evenement->type() == QEvent::Resize) {
    SuitTaille(fenetre);
  } else if (!Suivies_.contains(fenetre)) {
    Suivies_.insert(fenetre, QSize());
    connect(fenetre, &QWindow::windowStateChanged, this,
            [this, fenetre](Qt::WindowState etat) { SuitEtat(fenetre, etat); });
    connect(fenetre, &QObject::destroyed, this, [this](QObject* partie) { Suivies_.remove(partie); });
  }
  return false;
}

// Told when the wish has left and before the desktop has answered. With its limit the window could not take the size
// that the answer orders.
void FenetresFixes::SuitEtat(QWindow* fenetre, Qt::WindowState etat) {
  if (etat != Qt::WindowMaximized || fenetre->minimumSize() != fenetre->maximumSize()) return;
  Suivies_[fenetre] = fenetre->maximumSize();
  fenetre->setMaximumSize(QSize(kSansLimite, kSansLimite));
}

// Grown, it asks for its own size; back in it, it has its limit again. What it shows has not moved.
void FenetresFixes::SuitTaille(QWindow* fenetre) {
  const QSize fixe = Suivies_.value(fenetre);
  if (!fixe.isValid()) return;
  if (fenetre->windowStates() & Qt::WindowMaximized) {
    // Later: the desktop's answer is still being taken in.
    QMetaObject::invokeMethod(
        fenetre, [fenetre] { fenetre->setWindowStates(Qt::WindowNoState); }, Qt::QueuedConnection);
    return;
  }
  Suivies_[fenetre] = QSize();
  fenetre->setMaximumSize(fixe);
  if (fenetre->size() != fixe) fenetre->resize(fixe);
}

}  // namespace vaktor
