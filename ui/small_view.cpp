#include "ui/small_view.h"

#include <QMouseEvent>
#include <QPainter>

#include "image/forms/surface_painter.h"

namespace vaktor {

VueReduite::VueReduite(QWidget* parent, const QString& nom, const QRect& place) : QWidget(parent) {
  setObjectName(nom);
  setGeometry(place);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void VueReduite::Noircit() {
  if (Pixels_ == nullptr && Zoom_.isNull()) return;
  Pixels_ = nullptr;
  Zoom_ = QImage();
  update();
}

void VueReduite::MontreImage(const QImage& image) {
  Pixels_ = &image;
  Zoom_ = QImage();
  update();
}

void VueReduite::MontreZoom(const SurfaceImage& surface, const QRect& source) {
  if (source.width() == 0 || source.height() == 0) return;
  const double densite = devicePixelRatioF();
  QImage zoom((QSizeF(size()) * densite).toSize(), QImage::Format_RGB32);
  zoom.setDevicePixelRatio(densite);
  zoom.fill(Qt::black);
  QPainter peintre(&zoom);
  EtireSurface(peintre, QRectF(rect()), surface, source);
  peintre.end();
  Pixels_ = nullptr;
  Zoom_ = zoom;
  update();
}

void VueReduite::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  if (Pixels_ == nullptr && Zoom_.isNull()) {
    peintre.fillRect(rect(), Qt::black);
    return;
  }
  peintre.drawImage(QPointF(0, 0), Pixels_ != nullptr ? *Pixels_ : Zoom_);
}

void VueReduite::mousePressEvent(QMouseEvent* evenement) {
  if (evenement->button() == Qt::RightButton) Q_EMIT DroitAppuye(evenement->position().toPoint());
}

}  // namespace vaktor
