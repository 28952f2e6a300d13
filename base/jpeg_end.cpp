// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/jpeg_end.h"

#include <QtGlobal>

namespace vaktor {
namespace {

// Marks of ITU-T T.81, table B.1.
constexpr uchar kMarque = 0xFF;
constexpr uchar kDebut = 0xD8;
constexpr uchar kFin = 0xD9;
constexpr uchar kBalayage = 0xDA;

uchar Octet(QByteArrayView octets, qsizetype i) { return static_cast<uchar>(octets[i]); }

bool EstSansLongueur(uchar marque) { return marque == 0x01 || (marque >= 0xD0 && marque <= 0xD7); }

/// From `i` on, the next mark that has a meaning of its own; -1 when there is none. Inside the data of a picture each
/// 0xFF is followed by 0x00, by a restart mark, or by another 0xFF that only fills (B.1.1.2, B.1.1.5).
qsizetype ChercheMarque(QByteArrayView octets, qsizetype i) {
  for (; i + 1 < octets.size(); ++i) {
    const uchar suivant = Octet(octets, i + 1);
    if (Octet(octets, i) == kMarque && suivant != 0 && suivant != kMarque && !EstSansLongueur(suivant)) return i;
  }
  return -1;
}

/// Behind the segment whose mark stands at `i`; -1 when its length is no length or leads out of the file.
qsizetype PasseSegment(QByteArrayView octets, qsizetype i) {
  if (i + 3 >= octets.size()) return -1;
  const qsizetype longueur = (Octet(octets, i + 2) << 8) + Octet(octets, i + 3);
  const qsizetype fin = i + 2 + longueur;
  return longueur >= 2 && fin <= octets.size() ? fin : -1;
}

/// Once a picture has begun, a mark may also be a byte that is wrong. What has a true segment is followed by the next
/// mark, or, where a scan begins, by data: it says its own length twice (B.2.3).
bool EstVraiSegment(QByteArrayView octets, qsizetype i, qsizetype fin) {
  if (fin < 0) return false;
  const qsizetype longueur = fin - (i + 2);
  // One of two bytes may stand at the very end, and has none that counts.
  if (Octet(octets, i + 1) == kBalayage) return longueur > 2 && longueur == 6 + 2 * Octet(octets, i + 4);
  return fin < octets.size() && Octet(octets, fin) == kMarque;
}

}  // namespace

qsizetype FinJpeg(QByteArrayView octets) {
  if (octets.size() < 4 || Octet(octets, 0) != kMarque || Octet(octets, 1) != kDebut) return -1;
  bool avecImage = false;
  for (qsizetype i = ChercheMarque(octets, 2); i >= 0; i = ChercheMarque(octets, i)) {
    const uchar marque = Octet(octets, i + 1);
    if (marque == kFin) return avecImage ? i + 2 : -1;
    const qsizetype fin = PasseSegment(octets, i);
    if (!avecImage && fin < 0) return -1;  // cut in its header
    if (avecImage && !EstVraiSegment(octets, i, fin)) {
      i += 2;
      continue;
    }
    avecImage = avecImage || marque == kBalayage;
    i = fin;
  }
  return -1;
}

bool EstJpegEntier(QByteArrayView octets) { return !octets.isEmpty() && FinJpeg(octets) == octets.size(); }

}  // namespace vaktor
