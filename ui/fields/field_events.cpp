// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/fields/field_events.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>
#include <exception>
#include <limits>

namespace vaktor {

void RougitChamp(QLineEdit& champ, bool rouge) {
  if (EstRouge(champ) == rouge) return;
  QPalette palette = champ.palette();
  palette.setColor(QPalette::Text, rouge ? Qt::red : Qt::black);
  champ.setPalette(palette);
}

bool EstRouge(const QLineEdit& champ) { return champ.palette().color(QPalette::Text) == QColor(Qt::red); }

void PrepareChamp(QLineEdit& champ, const QString& conception) {
  champ.setMaxLength(std::numeric_limits<int>::max());
  champ.setText(conception);
}

void ReporteEchec(QObject& champ, const std::function<void()>& travail) {
  try {
    travail();
  } catch (...) {
    const std::exception_ptr echec = std::current_exception();
    QMetaObject::invokeMethod(
        &champ, [echec] { std::rethrow_exception(echec); }, Qt::QueuedConnection);
  }
}

EvenementsChamp::EvenementsChamp(QWidget* champ) : QObject(champ), Champ_(champ) { champ->installEventFilter(this); }

bool EvenementsChamp::EstDepart(Qt::FocusReason raison) {
  if (raison == Qt::PopupFocusReason || raison == Qt::MenuBarFocusReason) return false;
  if (raison != Qt::ActiveWindowFocusReason) return true;
  const QWidget* devant = QApplication::activeWindow();
  if (devant == nullptr) AttendFenetre();
  return devant != nullptr && EstAutreFenetre(devant->windowHandle());
}

// A message or a dialog that stands in front of everything is chosen by nobody.
bool EvenementsChamp::EstAutreFenetre(const QWindow* fenetre) const {
  return fenetre != nullptr && fenetre != Champ_->window()->windowHandle() && !fenetre->isModal();
}

// No window of the program is active: that is another program, or the system has not told yet which of ours it will be.
void EvenementsChamp::AttendFenetre() {
  disconnect(Attente_);
  Attente_ = connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [this](const QWindow* fenetre) {
    if (fenetre == nullptr) return;
    disconnect(Attente_);
    if (!EstAutreFenetre(fenetre)) return;
    ReporteEchec(*Champ_, [this] { Q_EMIT Quitte(); });  // no event is under way that would bring a failure anywhere
  });
}

bool EvenementsChamp::eventFilter(QObject* objet, QEvent* evenement) {
  const QEvent::Type type = evenement->type();
  if (type == QEvent::FocusOut) {
    if (EstDepart(static_cast<QFocusEvent*>(evenement)->reason())) Q_EMIT Quitte();
  } else if (type == QEvent::FocusIn) {
    disconnect(Attente_);
  } else if (type == QEvent::KeyPress) {
    const int touche = static_cast<QKeyEvent*>(evenement)->key();
    if (touche != Qt::Key_Tab && touche != Qt::Key_Backtab) Q_EMIT Touche();
  } else if (type == QEvent::Drop || type == QEvent::InputMethod) {
    Q_EMIT Touche();
  } else if (type == QEvent::MouseButtonRelease) {
    const auto* souris = static_cast<QMouseEvent*>(evenement);
    const auto* champ = static_cast<QWidget*>(objet);
    if (souris->button() == Qt::LeftButton && champ->rect().contains(souris->position().toPoint())) Q_EMIT Clique();
    if (souris->button() == Qt::MiddleButton) Q_EMIT Touche();  // where the system pastes what was selected
  }
  return false;
}

}  // namespace vaktor
