// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/face/button_faces.h"

#include <QFontMetrics>
#include <QPainter>

#include "base/numbers.h"
#include "ui/face/art_images.h"

namespace vaktor {

namespace {

constexpr QRgb kCouleurLibelle = qRgb(0x30, 0x30, 0x30);
constexpr int kPoliceLibelle = 11;  // pixels: 8.25 points at 96 dots an inch

// A template at the screen's own density, so that the caption is printed on the pixels that are shown.
QImage ChargeGabarit(const char* famille, int rang, double densite, const QColor& couleur) {
  const QString nom = QStringLiteral("%1%2").arg(QLatin1String(famille)).arg(rang);
  QImage gabarit = ChargeArtOuUni(nom, EchelleArt(densite), FacesBoutons::kTaille, couleur);
  const QSize pixels = (QSizeF(FacesBoutons::kTaille) * densite).toSize();
  if (gabarit.size() != pixels) gabarit = gabarit.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  gabarit.setDevicePixelRatio(densite);
  return gabarit;
}

}  // namespace

QPoint PlaceLibelle(int largeurTexte, int hauteurTexte) {
  return {ArrondiPair((FacesBoutons::kTaille.width() - largeurTexte) / 2.0),
          ArrondiPair((FacesBoutons::kTaille.height() - hauteurTexte) / 2.0)};
}

void FacesBoutons::ChargeBoutons(const TablesTextes& textes, const QString& libelleEssaiFtp, double densite) {
  ChargeGabarits(densite);
  for (int i = 0; i < kNombre; ++i) ImprimeBouton(i, textes);
  for (int i = 0; i < kNombreGris; ++i)
    ImprimeBoutonGris(i, i == kRangeeEssaiFtp ? libelleEssaiFtp : textes.LibelleBoutonGris(i));
}

void FacesBoutons::ChargeGabarits(double densite) {
  if (densite == Densite_) return;
  Densite_ = densite;
  for (int rang = 0; rang < 3; ++rang) {
    const auto i = static_cast<std::size_t>(rang);
    PictBlue_[i] = ChargeGabarit("PictBlue", rang, densite, QColor(163, 163, 204));
    PictGrey_[i] = ChargeGabarit("PictGrey", rang, densite, QColor(212, 212, 212));
  }
  Police_ = QFont(QStringLiteral("Arial"));
  Police_.setPixelSize(kPoliceLibelle);
  // Coloured fringes would be frozen into the face, whatever the screen's order of sub-pixels.
  Police_.setStyleStrategy(QFont::NoSubpixelAntialias);
}

void FacesBoutons::ImprimeBouton(int i, const TablesTextes& textes) {
  FacesBouton_.at(static_cast<std::size_t>(i)) = Imprime(PictBlue_, textes.LibelleBouton(i));
}

void FacesBoutons::ImprimeBoutonGris(int i, const QString& libelle) {
  FacesBoutonGris_.at(static_cast<std::size_t>(i)) = Imprime(PictGrey_, libelle);
}

// Prints on copies: the templates stay clean, so a later print never lies on an earlier one.
FaceBouton FacesBoutons::Imprime(const Gabarits& gabarits, const QString& libelle) {
  FaceBouton face{gabarits[0], gabarits[1], gabarits[2]};
  const QFontMetrics mesures(Police_);
  const QPoint place = PlaceLibelle(mesures.horizontalAdvance(libelle), mesures.height());
  for (QImage* image : {&face.FaceRepos, &face.FaceSurvol, &face.FaceEnfoncee}) {
    QPainter peintre(image);
    peintre.setFont(Police_);
    peintre.setPen(QColor::fromRgb(kCouleurLibelle));
    peintre.drawText(place + QPoint(0, mesures.ascent()), libelle);
    ++NombreImpressions_;
  }
  return face;
}

}  // namespace vaktor
