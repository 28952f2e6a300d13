// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/flag_button.h"

#include <QPainter>

#include "texts/phrase.h"
#include "ui/controls/control_factory.h"
#include "ui/face/art_images.h"

namespace vaktor {

namespace {
constexpr QSize kTaille{17, 13};
}  // namespace

DrapeauLangue::DrapeauLangue(QWidget* parent, Langue langue, QPoint place)
    : BoutonEntendu(parent),
      // The finer bitmap on every screen: it is small, and painting brings it to the screen's density.
      Drapeau_(ChargeArtOuUni(QStringLiteral("flag_") + kCodesLangues.Dit(langue), 2, kTaille, Qt::lightGray)) {
  setObjectName(NomIndexe("Image4", static_cast<int>(langue)));
  setGeometry(QRect(place, kTaille));
  setAccessibleName(kNomsLangues.Dit(langue));
}

void DrapeauLangue::Encadre(bool encadre) {
  if (encadre == Encadre_) return;
  Encadre_ = encadre;
  update();
}

void DrapeauLangue::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(QRectF(rect()), Drapeau_);
  if (!Encadre_ && !FocusMontre()) return;
  peintre.setPen(QPen(QColor(64, 64, 64), 1, FocusMontre() ? Qt::DotLine : Qt::SolidLine));
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace vaktor
