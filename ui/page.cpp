#include "ui/page.h"

#include <QPainter>

#include "ui/control_factory.h"

namespace vaktor {

PageVaktor::PageVaktor(QWidget* fenetre, int index) : QWidget(fenetre) {
  setObjectName(NomIndexe("PictPage", index));
  setGeometry(kPlace);
}

void PageVaktor::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.fillRect(rect(), QColor(245, 245, 245));
  // The tone that a white pane takes over the plain background: both dark and white captions can be read on it.
  peintre.fillRect(rect().adjusted(1, 1, -1, -1), QColor(172, 184, 200));
}

}  // namespace vaktor
