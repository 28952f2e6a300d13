// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/pages/page.h"

#include <QPainter>
#include <utility>

#include "ui/controls/control_factory.h"

namespace vaktor {

PageVaktor::PageVaktor(QWidget* fenetre, int index) : QWidget(fenetre) {
  setObjectName(NomIndexe("PictPage", index));
  setGeometry(kPlace);
  setAttribute(Qt::WA_OpaquePaintEvent);  // what lies behind need not be painted
}

void PageVaktor::MontreFond(std::function<QImage()> dessine, int echelle) {
  Dessine_ = std::move(dessine);
  Echelle_ = echelle;
  Fond_ = QImage();
  update();
}

const QImage& PageVaktor::Fond() const {
  if (Dessine_) {
    Fond_ = std::exchange(Dessine_, nullptr)();
    Fond_.setDevicePixelRatio(Echelle_);
  }
  return Fond_;
}

void PageVaktor::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  const QImage& fond = Fond();
  // Pixels that the bitmap covers in part, on a screen of a fractional density, want something under it.
  if (fond.isNull() || devicePixelRatioF() != Echelle_) peintre.fillRect(rect(), QColor(245, 245, 245));
  peintre.drawImage(QPointF(0, 0), fond);
}

}  // namespace vaktor
