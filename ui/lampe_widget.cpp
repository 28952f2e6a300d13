#include "ui/lampe_widget.h"

#include <QPainter>

namespace vaktor {

namespace {

QString NomLampe(Lampe lampe) {
  switch (lampe) {
    case Lampe::kRougeAllumee:
      return QStringLiteral("LEDREDON");
    case Lampe::kVerte:
      return QStringLiteral("LEDVERT");
    case Lampe::kRouge:
      break;
  }
  return QStringLiteral("LEDRED");
}

QColor CouleurLampe(Lampe lampe) {
  switch (lampe) {
    case Lampe::kRougeAllumee:
      return {255, 60, 40};
    case Lampe::kVerte:
      return {40, 220, 60};
    case Lampe::kRouge:
      break;
  }
  return {120, 20, 20};
}

}  // namespace

LampeWidget::LampeWidget(QWidget* parent, const QString& nom, QPoint place) : QWidget(parent) {
  setObjectName(nom);
  setGeometry(QRect(place, QSize(8, 8)));
  setAccessibleDescription(NomLampe(Lampe_));
}

void LampeWidget::Montre(Lampe lampe) {
  Lampe_ = lampe;
  setAccessibleDescription(NomLampe(lampe));
  update();
}

void LampeWidget::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::Antialiasing);
  peintre.setPen(QPen(QColor(40, 40, 40), 0.8));
  peintre.setBrush(CouleurLampe(Lampe_));
  peintre.drawEllipse(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

}  // namespace vaktor
