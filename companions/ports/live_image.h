// SPDX-License-Identifier: GPL-3.0-or-later
// Ports of the live page: the writer of the live file and the picture of the time stamp. app/ wires them to the JPEG
// writer and DessinTimbre.
#pragma once

#include <QImage>
#include <QString>

namespace vaktor {

/// Encodes and writes one JPEG file; throws Echec when that fails.
class EcrivainLive {
 public:
  virtual ~EcrivainLive() = default;
  virtual void EnregistreJPEG(const QImage& image, const QString& fichier, quint8 qualite) = 0;
};

/// The little picture of the time.
class TimbreHeure {
 public:
  static constexpr int kLargeur = 68;
  static constexpr int kHauteur = 18;
  static constexpr int kTexteX = 2;  ///< drawing position of the text
  static constexpr int kTexteY = 1;

  virtual ~TimbreHeure() = default;
  /// Clears the picture to its background, prints the text and gives the picture, 68 by 18 pixels, RGB32.
  virtual QImage DessineTimbre(const QString& texte) = 0;
};

}  // namespace vaktor
