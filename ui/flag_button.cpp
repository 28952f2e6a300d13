#include "ui/flag_button.h"

#include <QPainter>

#include "ui/control_factory.h"

namespace vaktor {

namespace {

void PeintFrance(QPainter& peintre, const QRectF& r) {
  const double tiers = r.width() / 3;
  peintre.fillRect(QRectF(r.left(), r.top(), tiers, r.height()), QColor(0, 50, 150));
  peintre.fillRect(QRectF(r.left() + tiers, r.top(), tiers, r.height()), Qt::white);
  peintre.fillRect(QRectF(r.left() + 2 * tiers, r.top(), tiers, r.height()), QColor(220, 30, 50));
}

void PeintRoyaumeUni(QPainter& peintre, const QRectF& r) {
  peintre.fillRect(r, QColor(0, 40, 120));
  peintre.setPen(QPen(Qt::white, 2.5));
  peintre.drawLine(r.topLeft(), r.bottomRight());
  peintre.drawLine(r.bottomLeft(), r.topRight());
  peintre.setPen(Qt::NoPen);
  const QPointF c = r.center();
  peintre.fillRect(QRectF(r.left(), c.y() - 2.5, r.width(), 5), Qt::white);
  peintre.fillRect(QRectF(c.x() - 2.5, r.top(), 5, r.height()), Qt::white);
  peintre.fillRect(QRectF(r.left(), c.y() - 1.5, r.width(), 3), QColor(200, 20, 40));
  peintre.fillRect(QRectF(c.x() - 1.5, r.top(), 3, r.height()), QColor(200, 20, 40));
}

}  // namespace

DrapeauLangue::DrapeauLangue(QWidget* parent, int langue, QPoint place) : QAbstractButton(parent), Langue_(langue) {
  setObjectName(NomIndexe("Image4", langue));
  setGeometry(QRect(place, QSize(17, 13)));
  // Each names its own language in that language: whoever looks for it may not read the other.
  setAccessibleName(langue == 0 ? QStringLiteral("Français") : QStringLiteral("English"));
}

void DrapeauLangue::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.setClipRect(rect());
  const QRectF drapeau = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (Langue_ == 0) {
    PeintFrance(peintre, drapeau);
  } else {
    PeintRoyaumeUni(peintre, drapeau);
  }
  peintre.setRenderHint(QPainter::Antialiasing, false);
  peintre.setPen(QColor(64, 64, 64));
  peintre.setBrush(Qt::NoBrush);
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace vaktor
