#include "ui/fields/field_events.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
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

EvenementsChamp::EvenementsChamp(QWidget* champ) : QObject(champ) { champ->installEventFilter(this); }

bool EvenementsChamp::eventFilter(QObject* objet, QEvent* evenement) {
  const QEvent::Type type = evenement->type();
  if (type == QEvent::FocusOut) {
    const Qt::FocusReason raison = static_cast<QFocusEvent*>(evenement)->reason();
    const bool reste =
        raison == Qt::ActiveWindowFocusReason || raison == Qt::PopupFocusReason || raison == Qt::MenuBarFocusReason;
    if (!reste) Q_EMIT Quitte();
  } else if (type == QEvent::KeyPress) {
    const int touche = static_cast<QKeyEvent*>(evenement)->key();
    if (touche != Qt::Key_Tab && touche != Qt::Key_Backtab) Q_EMIT Touche();
  } else if (type == QEvent::MouseButtonRelease) {
    const auto* souris = static_cast<QMouseEvent*>(evenement);
    const auto* champ = static_cast<QWidget*>(objet);
    if (souris->button() == Qt::LeftButton && champ->rect().contains(souris->position().toPoint())) Q_EMIT Clique();
  }
  return false;
}

}  // namespace vaktor
