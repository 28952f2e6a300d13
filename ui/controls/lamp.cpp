// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/lamp.h"

#include <QPainter>

#include "ui/common/heard_roles.h"
#include "ui/face/art_images.h"

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

// The picture of 13 x 12 points, stretched into the lamp's place; the finer bitmap serves every screen.
QImage ChargeLampe(Lampe lampe) {
  return ChargeArtOuUni(NomLampe(lampe), 2, QSize(13, 12), lampe == Lampe::kVerte ? Qt::green : Qt::red);
}

}  // namespace

LampeWidget::LampeWidget(QWidget* parent, const QString& nom, QPoint place) : QWidget(parent) {
  setObjectName(nom);
  setGeometry(QRect(place, QSize(8, 8)));
  DonneRole(*this, QAccessible::Graphic);
  Image_ = ChargeLampe(Lampe_);
}

void LampeWidget::Montre(Lampe lampe) {
  if (lampe == Lampe_) return;
  Lampe_ = lampe;
  Image_ = ChargeLampe(lampe);
  DitEtat();
  update();
}

void LampeWidget::ChangeMots(const MotsLampe& mots) {
  Mots_ = mots;
  setAccessibleName(mots.Nom);
  DitEtat();
}

void LampeWidget::DitEtat() {
  switch (Lampe_) {
    case Lampe::kRouge:
      return setAccessibleDescription(Mots_.Eteinte);
    case Lampe::kRougeAllumee:
      return setAccessibleDescription(Mots_.EnAttente);
    case Lampe::kVerte:
      return setAccessibleDescription(Mots_.Active);
  }
}

void LampeWidget::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(QRectF(rect()), Image_);
}

}  // namespace vaktor
