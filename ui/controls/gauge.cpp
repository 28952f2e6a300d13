// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/gauge.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <optional>

#include "engine/detection_state.h"

namespace vaktor {

namespace {
constexpr double kEchelle = kSeuilDetectionMax;
constexpr int kPasDePage = 10;

class JaugeEntendue : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit JaugeEntendue(JaugeWidget* jauge) : QAccessibleWidget(jauge, QAccessible::Slider), Jauge_(jauge) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QVariant currentValue() const override { return Jauge_->Valeur(); }
  void setCurrentValue(const QVariant& valeur) override { Jauge_->Regle(valeur.toDouble()); }
  QVariant minimumValue() const override { return kSeuilDetectionMin; }
  QVariant maximumValue() const override { return kSeuilDetectionMax; }
  QVariant minimumStepSize() const override { return Jauge_->PasClavier(); }

 private:
  JaugeWidget* Jauge_;
};

QAccessibleInterface* CreeEntendue(const QString&, QObject* objet) {
  auto* jauge = qobject_cast<JaugeWidget*>(objet);
  return jauge != nullptr ? new JaugeEntendue(jauge) : nullptr;
}

// In pixels of the gauge; none for a key that moves nothing.
std::optional<double> DonnePas(int touche, int largeur) {
  switch (touche) {
    case Qt::Key_Left:
    case Qt::Key_Down:
      return -1;
    case Qt::Key_Right:
    case Qt::Key_Up:
      return 1;
    case Qt::Key_PageDown:
      return -kPasDePage;
    case Qt::Key_PageUp:
      return kPasDePage;
    case Qt::Key_Home:
      return -largeur;
    case Qt::Key_End:
      return largeur;
    default:
      return std::nullopt;
  }
}

}  // namespace

JaugeWidget::JaugeWidget(QWidget* parent, const QString& nom, const QRect& place) : QWidget(parent) {
  setObjectName(nom);
  setGeometry(place);
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);      // what lies behind need not be painted
  QAccessible::installFactory(CreeEntendue);  // the same one again is nothing
}

void JaugeWidget::Dessine(qint32 valeur, bool haute) {
  const int avant = Marqueur();
  const bool autreCouleur = !Dessinee_ || haute != Haute_;
  Dessinee_ = true;
  Valeur_ = valeur;
  Haute_ = haute;
  const int apres = Marqueur();
  // The automatic tolerance draws up to a hundred times a second, in steps of which twenty are a pixel: what costs a
  // repaint is a marker that has moved, and only of the columns that it has passed.
  if (autreCouleur) {
    update();
  } else if (apres != avant) {
    update(QRect(QPoint(std::min(avant, apres), 0), QPoint(std::max(avant, apres), height() - 1)));
  }
  // A reader cannot speak so often either.
  if (apres == avant || !QAccessible::isActive()) return;
  QAccessibleValueChangeEvent change(this, Valeur_);
  QAccessible::updateAccessibility(&change);
}

int JaugeWidget::Marqueur() const { return static_cast<int>(std::floor(double(Valeur_) * width() / kEchelle)); }

double JaugeWidget::PasClavier() const { return kEchelle / width(); }

void JaugeWidget::Regle(double valeur) {
  Q_EMIT Souris(std::clamp(valeur, double(kSeuilDetectionMin), kEchelle), true);
}

void JaugeWidget::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.fillRect(rect(), QColor(192, 192, 192));
  if (Dessinee_) DessineBarre(peintre);
  if (hasFocus()) DessineFocus(peintre);
}

void JaugeWidget::DessineBarre(QPainter& peintre) const {
  const double x = Marqueur();
  const QColor couleur = Haute_ ? QColor(255, 128, 128) : QColor(192, 255, 192);
  if (x > 0) peintre.fillRect(QRectF(0, 0, x, height()), couleur);
  peintre.fillRect(QRectF(x, 0, 1, height()), Qt::black);
}

void JaugeWidget::DessineFocus(QPainter& peintre) const {
  peintre.setPen(QPen(QColor(0x30, 0x30, 0x30), 1, Qt::DotLine));
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

double JaugeWidget::EnEchelle(const QPointF& position) const { return position.x() * kEchelle / width(); }

// The value may lie outside the scale, as the mouse's place may: the keys go on from the end that it shows.
void JaugeWidget::keyPressEvent(QKeyEvent* evenement) {
  const int touche = evenement->key();
  if (touche == Qt::Key_Return || touche == Qt::Key_Enter || touche == Qt::Key_Space) {
    if (!evenement->isAutoRepeat()) Q_EMIT DoubleClic();
    return;
  }
  const std::optional<double> pas = DonnePas(touche, width());
  if (!pas) return QWidget::keyPressEvent(evenement);
  Regle(std::clamp(double(Valeur_), 0.0, kEchelle) + *pas * PasClavier());
}

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
