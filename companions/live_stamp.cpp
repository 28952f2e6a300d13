// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/live_stamp.h"

#include <QFont>
#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <cstring>

namespace vaktor {

namespace {

constexpr int kCopieX = 3;
constexpr int kCopieY = 3;
constexpr int kCopieLargeur = 66;
constexpr int kCopieHauteur = 18;
constexpr int kTaillePolice = 14;  // pixels; eight characters of it fill the plate
constexpr QRgb kFondHaut = 0xff2b3a4a;
constexpr QRgb kFondBas = 0xff141c26;

}  // namespace

DessinTimbre::DessinTimbre() : Fond_(kLargeur, kHauteur, QImage::Format_RGB32) {
  QPainter peintre(&Fond_);
  QLinearGradient degrade(0, 0, 0, kHauteur);
  degrade.setColorAt(0, QColor(kFondHaut));
  degrade.setColorAt(1, QColor(kFondBas));
  peintre.fillRect(Fond_.rect(), degrade);
}

QImage DessinTimbre::DessineTimbre(const QString& texte) {
  QImage timbre = Fond_;
  QPainter peintre(&timbre);
  QFont police;
  police.setPixelSize(kTaillePolice);
  police.setBold(true);
  // A system with a wide font gets smaller figures: the last second must not fall off the plate.
  while (police.pixelSize() > 8 && QFontMetrics(police).horizontalAdvance(texte) > kCopieLargeur - 2 * kTexteX)
    police.setPixelSize(police.pixelSize() - 1);
  peintre.setFont(police);
  peintre.setPen(Qt::white);
  peintre.drawText(QRect(kTexteX, kTexteY, kLargeur - kTexteX, kHauteur - kTexteY), Qt::AlignLeft | Qt::AlignTop,
                   texte);
  return timbre;
}

void PoseTimbre(QImage& image, const QImage& timbre) {
  const int largeur = std::min({kCopieLargeur, timbre.width(), image.width() - kCopieX});
  const int hauteur = std::min({kCopieHauteur, timbre.height(), image.height() - kCopieY});
  if (largeur <= 0) return;
  const auto octets = static_cast<std::size_t>(largeur) * sizeof(QRgb);
  const auto decalage = static_cast<qsizetype>(kCopieX) * static_cast<qsizetype>(sizeof(QRgb));
  for (int y = 0; y < hauteur; ++y)
    std::memcpy(image.scanLine(y + kCopieY) + decalage, timbre.constScanLine(y), octets);
}

}  // namespace vaktor
