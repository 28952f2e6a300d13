// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/gauge.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "engine/detection_state.h"

namespace vaktor {

namespace {
constexpr double kEchelle = kSeuilDetectionMax;
}  // namespace

JaugeWidget::JaugeWidget(QWidget* parent, const QString& nom, const QRect& place) : QWidget(parent) {
  setObjectName(nom);
  setGeometry(place);
}

void JaugeWidget::Dessine(qint32 valeur, bool haute) {
  // The automatic tolerance draws up to a thousand times a second: only a change costs a repaint.
  if (Dessinee_ && valeur == Valeur_ && haute == Haute_) return;
  Dessinee_ = true;
  Valeur_ = valeur;
  Haute_ = haute;
  update();
}

void JaugeWidget::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.fillRect(rect(), QColor(192, 192, 192));
  if (!Dessinee_) return;
  const double x = std::floor(double(Valeur_) * width() / kEchelle);
  const QColor couleur = Haute_ ? QColor(255, 128, 128) : QColor(192, 255, 192);
  if (x > 0) peintre.fillRect(QRectF(0, 0, x, height()), couleur);
  peintre.fillRect(QRectF(x, 0, 1, height()), Qt::black);
}

double JaugeWidget::EnEchelle(const QPointF& position) const { return position.x() * kEchelle / width(); }

void JaugeWidget::mousePressEvent(QMouseEvent* evenement) {
  Q_EMIT Souris(EnEchelle(evenement->position()), evenement->button() == Qt::LeftButton);
}

void JaugeWidget::mouseMoveEvent(QMouseEvent* evenement) {
  Q_EMIT Souris(EnEchelle(evenement->position()), evenement->buttons() == Qt::LeftButton);
}

void JaugeWidget::mouseReleaseEvent(QMouseEvent* evenement) {
  Q_EMIT Souris(EnEchelle(evenement->position()), evenement->button() == Qt::LeftButton);
}

void JaugeWidget::mouseDoubleClickEvent(QMouseEvent* evenement) {
  // The second press of a double click is no press: it only restarts the search.
  if (evenement->button() == Qt::LeftButton) Q_EMIT DoubleClic();
}

}  // namespace vaktor
