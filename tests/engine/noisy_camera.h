// SPDX-License-Identifier: GPL-3.0-or-later
// A camera of any rate whose pictures carry the noise of a sensor, and somebody who walks through them.
#pragma once

#include <QSize>
#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "fakes/surveillance_bench.h"

namespace vaktor {

/// Gives its frames in virtual time, from the making on. Noise: normal, of each colour and each pixel for itself, as a
/// sensor has it before anything smoothes it; drawn from a table, since a run takes hundreds of millions of them. Of
/// the picture only the pixels that the detection looks at are painted, every third of every third row.
class CameraBruyante {
 public:
  struct Bruit {
    double Ecart = 2.0;  ///< standard deviation, in steps of a colour
    quint32 Graine = 1;
  };

  CameraBruyante(faux::BancSurveillance& banc, double cadence, QSize taille, Bruit bruit)
      : Banc_(banc), Cadence_(cadence), Taille_(taille), Suite_(0x9e3779b97f4a7c15U * (bruit.Graine + 1)) {
    std::mt19937 hasard(bruit.Graine);
    std::normal_distribution<double> loi(0.0, bruit.Ecart);
    for (qint16& valeur : Table_) valeur = static_cast<qint16>(std::clamp(std::lround(loi(hasard)), -100L, 100L));
    for (auto& pixels : Pixels_)
      pixels.resize(static_cast<std::size_t>(taille.width()) * static_cast<std::size_t>(taille.height()));
    banc.Pilote.ParArrivee = true;
    Minuterie_ = banc.Temps.CreeMinuterie(QStringLiteral("Camera"), 1, [this] { Donne(); });
    Minuterie_->Active();
  }

  bool Quelquun = false;  ///< somebody walks through, a sixth of the picture wide and half as high
  bool Muette = false;    ///< gives nothing
  qint32 Clarte = 120;    ///< of the room, 0 to 255
  qint32 Images = 0;      ///< given so far

 private:
  void Donne() {
    if (!Muette) {
      ++Images;
      Banc_.Pilote.Image = Peint();
      Banc_.Pilote.Arrive();
    }
    ++Numero_;
    const auto prochaine = std::llround(static_cast<double>(Numero_) * 1000.0 / Cadence_);
    Minuterie_->ChangeIntervalle(static_cast<qint32>(std::max<qint64>(prochaine - Banc_.Horloge.Millisecondes, 1)));
  }

  // Nobody holds the frame before last any more: its memory is painted again.
  QImage Peint() {
    std::vector<quint32>& pixels = Pixels_[static_cast<std::size_t>(Images) % Pixels_.size()];
    const int gauche = static_cast<int>(Banc_.Horloge.Millisecondes / 10) % Taille_.width();
    for (int y = 1; y < Taille_.height(); y += 3) {
      quint32* ligne = pixels.data() + static_cast<std::size_t>(y * Taille_.width());
      const bool haut = y >= Taille_.height() / 2;
      for (int x = 0; x < Taille_.width(); x += 3) {
        const bool la = Quelquun && haut && x >= gauche && x < gauche + Taille_.width() / 6;
        ligne[x] = Pixel(Clarte + (x + y) % 32 - (la ? 60 : 0));
      }
    }
    return {reinterpret_cast<const uchar*>(pixels.data()), Taille_.width(), Taille_.height(),
            qsizetype{4} * Taille_.width(), QImage::Format_RGB32};
  }

  quint32 Pixel(qint32 valeur) {
    Suite_ ^= Suite_ << 13;
    Suite_ ^= Suite_ >> 7;
    Suite_ ^= Suite_ << 17;
    quint32 pixel = 0xff;
    for (int canal = 0; canal < 3; ++canal) {
      const qint32 bruit = Table_[(Suite_ >> (16 * canal)) % Table_.size()];
      pixel = pixel << 8 | static_cast<quint32>(std::clamp(valeur + bruit, 0, 255));
    }
    return pixel;
  }

  faux::BancSurveillance& Banc_;
  const double Cadence_;
  const QSize Taille_;
  quint64 Suite_;
  std::array<qint16, 65536> Table_{};
  std::array<std::vector<quint32>, 3> Pixels_;
  std::unique_ptr<Minuterie> Minuterie_;
  qint64 Numero_ = 0;
};

}  // namespace vaktor
