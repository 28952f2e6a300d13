#include "ui/controls/flag_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>

#include "texts/phrase.h"
#include "ui/controls/control_factory.h"
#include "ui/face/art_images.h"

namespace vaktor {

namespace {
constexpr QSize kTaille{17, 13};
}  // namespace

DrapeauLangue::DrapeauLangue(QWidget* parent, Langue langue, QPoint place)
    : QAbstractButton(parent),
      // The finer bitmap on every screen: it is small, and painting brings it to the screen's density.
      Drapeau_(ChargeArtOuUni(QStringLiteral("flag_") + kCodesLangues.Dit(langue), 2, kTaille, Qt::lightGray)) {
  setObjectName(NomIndexe("Image4", static_cast<int>(langue)));
  setGeometry(QRect(place, kTaille));
  setCheckable(true);
  setAccessibleName(kNomsLangues.Dit(langue));
}

void DrapeauLangue::Encadre(bool encadre) {
  if (encadre == Encadre_) return;
  Encadre_ = encadre;
  update();
}

void DrapeauLangue::Engage(bool engage) {
  const QScopedValueRollback<bool> annonce(Annonce_, true);
  setChecked(engage);
}

// A screen reader toggles what can be checked: a click like any other, as with the buttons.
void DrapeauLangue::checkStateSet() {
  if (Annonce_) return;
  Engage(!isChecked());
  QMetaObject::invokeMethod(
      this, [this] { click(); }, Qt::QueuedConnection);
}

void DrapeauLangue::keyPressEvent(QKeyEvent* evenement) {
  const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
  if (entree && !evenement->isAutoRepeat()) click();
  if (!entree) QAbstractButton::keyPressEvent(evenement);
}

void DrapeauLangue::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(QRectF(rect()), Drapeau_);
  if (!Encadre_ && !hasFocus()) return;
  peintre.setPen(QPen(QColor(64, 64, 64), 1, hasFocus() ? Qt::DotLine : Qt::SolidLine));
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace vaktor
