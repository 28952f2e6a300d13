#include "ui/page.h"

#include <QPainter>

#include "ui/control_factory.h"

namespace vaktor {

PageVaktor::PageVaktor(QWidget* fenetre, int index) : QWidget(fenetre) {
  setObjectName(NomIndexe("PictPage", index));
  setGeometry(kPlace);
}

void PageVaktor::MontreFond(const QImage& fond, int echelle) {
  Fond_ = fond;
  Fond_.setDevicePixelRatio(echelle);
  update();
}

void PageVaktor::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  if (Fond_.isNull()) peintre.fillRect(rect(), QColor(245, 245, 245));
  peintre.drawImage(QPointF(0, 0), Fond_);
}

}  // namespace vaktor
