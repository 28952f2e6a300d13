// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/controls/health_sign.h"

#include <QAccessible>
#include <QPainter>

#include "ui/face/art_images.h"

namespace vaktor {

QImage DonneSigne(Gravite gravite, double densite) {
  const int echelle = EchelleArt(densite);
  QImage image = ChargeSigne(QStringLiteral("SANTE%1").arg(static_cast<int>(gravite)), echelle);
  image.setDevicePixelRatio(echelle);
  return image;
}

SigneSante::SigneSante(QWidget* parent) : BoutonEntendu(parent) {
  setObjectName(QStringLiteral("SigneSante"));
  setGeometry(kPlace);
  setFocusPolicy(Qt::StrongFocus);
  hide();
}

void SigneSante::Montre(Condition pire, const Mots& mots) {
  const bool nouveau = isHidden() || pire != Pire_;
  Pire_ = pire;
  Niveau_ = DonneGravite(pire);
  Mots_ = mots;
  setAccessibleName(mots.Nom);
  setAccessibleDescription(mots.Description);
  setToolTip(mots.Aide);
  show();
  update();
  if (nouveau) Alerte();
}

// Of a window that is not the active one nothing moves the focus by itself: the next key would go to a sign that is not
// there any more.
void SigneSante::Cache() {
  hide();
  if (window()->focusWidget() == this) focusNextPrevChild(true);
}

void SigneSante::Alerte() {
  QAccessibleEvent alerte(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alerte);
}

void SigneSante::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  peintre.setRenderHint(QPainter::SmoothPixmapTransform);
  peintre.drawImage(QRectF(rect()), DonneSigne(Niveau_, devicePixelRatioF()));
  if (!FocusMontre()) return;
  peintre.setPen(QPen(QColor(64, 64, 64), 1, Qt::DotLine));
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace vaktor
