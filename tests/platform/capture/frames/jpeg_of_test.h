// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG pictures for the tests, as cameras give them.
#pragma once

#include <turbojpeg.h>

#include <QByteArray>
#include <QSize>
#include <span>

namespace vaktor::faux {

/// `pixels`: rows of `pas` bytes, 0 for rows without a gap; `couleurs`: TJPF_*, `sousEchantillon`: TJSAMP_*.
inline QByteArray CompresseJpeg(const uchar* pixels, QSize taille, int pas, int couleurs, int sousEchantillon,
                                int qualite) {
  unsigned char* jpeg = nullptr;
  unsigned long longueur = 0;
  tjhandle turbo = tjInitCompress();
  tjCompress2(turbo, pixels, taille.width(), pas, taille.height(), couleurs, &jpeg, &longueur, sousEchantillon, qualite,
              0);
  QByteArray resultat(reinterpret_cast<const char*>(jpeg), static_cast<qsizetype>(longueur));
  tjFree(jpeg);
  tjDestroy(turbo);
  return resultat;
}

inline std::span<const quint8> Octets(const QByteArray& jpeg) {
  return {reinterpret_cast<const quint8*>(jpeg.constData()), static_cast<size_t>(jpeg.size())};
}

}  // namespace vaktor::faux
