// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/forms/photo_place.h"

#include <QPainter>

#include "ui/common/heard_roles.h"

namespace vaktor {

namespace {
constexpr QSize kTailleAvis{360, 140};
constexpr int kMargeAvis = 12;
}  // namespace

PlacePhoto::PlacePhoto(QWidget* parent) : QWidget(parent) {
  resize(0, 0);
  DonneRole(*this, QAccessible::Graphic);
}

void PlacePhoto::MontrePhoto(const QImage& photo) {
  Photo_ = photo;
  Mention_.clear();
  Avis_.clear();
  setAccessibleDescription({});
  if (!photo.isNull()) PrendTaille(photo.size());
  update();
}

void PlacePhoto::MontreMention(const QString& mention) {
  Mention_ = mention;
  setAccessibleDescription(mention);
  update();
}

void PlacePhoto::MontreAvis(const QString& avis) {
  Photo_ = {};
  Mention_.clear();
  Avis_ = avis;
  setAccessibleDescription(avis);
  PrendTaille(kTailleAvis);
  update();
}

void PlacePhoto::PrendTaille(const QSize& taille) {
  if (taille == size()) return;
  resize(taille);
  Q_EMIT TailleChangee();
}

void PlacePhoto::paintEvent(QPaintEvent*) {
  QPainter peintre(this);
  if (!Photo_.isNull()) {
    peintre.drawImage(0, 0, Photo_);
    if (!Mention_.isEmpty()) DessineMention(peintre);
    return;
  }
  if (Avis_.isEmpty()) return;
  peintre.fillRect(rect(), QColor(28, 32, 40));
  peintre.setPen(QColor(120, 128, 142));
  peintre.drawRect(rect().adjusted(0, 0, -1, -1));
  peintre.setPen(QColor(224, 228, 234));
  const QRect texte = rect().adjusted(kMargeAvis, kMargeAvis, -kMargeAvis, -kMargeAvis);
  peintre.drawText(texte, Qt::AlignCenter | Qt::TextWordWrap | Qt::TextWrapAnywhere, Avis_);
}

// Where the picture is missing: a file is cut at its end, and so the picture at its foot.
void PlacePhoto::DessineMention(QPainter& peintre) const {
  constexpr int kFormat = Qt::AlignCenter | Qt::TextWordWrap;
  const QRect place = rect().adjusted(kMargeAvis, 0, -kMargeAvis, 0);
  const int haut = peintre.boundingRect(place, kFormat, Mention_).height() + kMargeAvis;
  const QRect bande(0, height() - haut, width(), haut);
  peintre.fillRect(bande, QColor(28, 32, 40));
  peintre.setPen(QColor(224, 228, 234));
  peintre.drawText(bande.adjusted(kMargeAvis, 0, -kMargeAvis, 0), kFormat, Mention_);
}

}  // namespace vaktor
