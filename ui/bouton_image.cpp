#include "ui/bouton_image.h"

#include <QPainter>

namespace vaktor {

namespace {

struct CouleursBouton {
  QColor Fond;
  QColor Bord;
  QColor Texte;
};

CouleursBouton DonneCouleurs(FamilleBouton famille, bool actif) {
  if (!actif) return {QColor(200, 204, 210), QColor(165, 170, 178), QColor(130, 134, 140)};
  if (famille == FamilleBouton::kBleue) return {QColor(60, 104, 168), QColor(32, 62, 110), QColor(255, 255, 255)};
  return {QColor(226, 228, 232), QColor(128, 134, 144), QColor(48, 52, 60)};
}

}  // namespace

BoutonImage::BoutonImage(QWidget* parent, const QString& nom, QPoint place, FamilleBouton famille)
    : QAbstractButton(parent), Famille_(famille) {
  setObjectName(nom);
  setGeometry(QRect(place, kTaille));
  QFont police(QStringLiteral("Arial"));
  police.setPixelSize(11);
  setFont(police);
  setFocusPolicy(Qt::StrongFocus);
}

void BoutonImage::ChangeLibelle(const QString& libelle) {
  setText(libelle);
  setAccessibleName(libelle);
}

void BoutonImage::paintEvent(QPaintEvent*) {
  CouleursBouton couleurs = DonneCouleurs(Famille_, isEnabled());
  if (isEnabled() && isDown()) couleurs.Fond = couleurs.Fond.darker(120);
  QPainter peintre(this);
  peintre.fillRect(rect(), couleurs.Bord);
  peintre.fillRect(rect().adjusted(1, 1, -1, -1), couleurs.Fond);
  peintre.setPen(couleurs.Texte);
  peintre.drawText(rect(), Qt::AlignCenter, text());
  if (!hasFocus()) return;
  peintre.setPen(QPen(couleurs.Texte, 1, Qt::DotLine));
  peintre.drawRect(rect().adjusted(2, 2, -3, -3));
}

}  // namespace vaktor
