// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/small_view.h"

#include <QMouseEvent>
#include <QPainter>

namespace vaktor {

VueReduite::VueReduite(QWidget* parent, const QString& nom, const QRect& place) : VueAMenu(parent) {
  setObjectName(nom);
  setGeometry(place);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::TabFocus);  // the mouse leaves the focus where it is
}

void VueReduite::Noircit() {
  if (Pixels_ == nullptr && !Zoome()) return;
  Pixels_ = nullptr;
  Zoom_ = {};
  update();
}

void VueReduite::MontreImage(const QImage& image) {
  Pixels_ = &image;
  Zoom_ = {};
  update();
}

void VueReduite::MontreZoom(const SurfaceImage& surface, const QRect& source) {
  if (source.width() == 0 || source.height() == 0) return;
  Pixels_ = nullptr;
  Zoom_.Prend(surface);
  Source_ = source;
  update();
}

void VueReduite::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  if (Pixels_ != nullptr) {
    peintre.drawImage(QPointF(0, 0), *Pixels_);
  } else if (Zoome()) {
    EtireSurface(peintre, rect(), Zoom_, Source_, LignesZoom_);
  } else {
    peintre.fillRect(rect(), Qt::black);
  }
  if (hasFocus()) DessineFocus(peintre);
}

// Dots of two colours: one of them is seen on any picture.
void VueReduite::DessineFocus(QPainter& peintre) const {
  peintre.setPen(Qt::black);
  peintre.drawRect(rect().adjusted(1, 1, -2, -2));
  peintre.setPen(QPen(Qt::white, 1, Qt::DotLine));
  peintre.drawRect(rect().adjusted(1, 1, -2, -2));
}

void VueReduite::mousePressEvent(QMouseEvent* evenement) {
  if (evenement->button() == Qt::RightButton) Q_EMIT DroitAppuye(evenement->position().toPoint());
}

}  // namespace vaktor
