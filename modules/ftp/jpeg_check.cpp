#include "modules/ftp/jpeg_check.h"

namespace vaktor {

namespace {

constexpr uchar kMarque = 0xFF;
constexpr uchar kDebut = 0xD8;     // SOI
constexpr uchar kFin = 0xD9;       // EOI
constexpr uchar kBalayage = 0xDA;  // SOS

uchar Octet(const QByteArray& octets, qsizetype i) { return static_cast<uchar>(octets[i]); }

bool EstSansLongueur(uchar marque) { return marque == 0x01 || (marque >= 0xD0 && marque <= 0xD7); }

/// From inside picture data to the next mark that is none of it; the end of the bytes when there is none.
qsizetype PasseDonnees(const QByteArray& octets, qsizetype i) {
  for (; i + 1 < octets.size(); ++i) {
    const uchar suivant = Octet(octets, i + 1);
    if (Octet(octets, i) == kMarque && suivant != 0 && suivant != kMarque && !EstSansLongueur(suivant)) return i;
  }
  return octets.size();
}

}  // namespace

bool EstJpegEntier(const QByteArray& octets) {
  if (octets.size() < 4 || Octet(octets, 0) != kMarque || Octet(octets, 1) != kDebut) return false;
  bool avecImage = false;
  qsizetype i = 2;
  while (i + 1 < octets.size()) {
    if (Octet(octets, i) != kMarque) return false;
    const uchar marque = Octet(octets, i + 1);
    if (marque == kFin) return avecImage && i + 2 == octets.size();
    if (marque == kMarque) {  // any number of 0xFF may stand before a mark
      ++i;
      continue;
    }
    i += 2;
    if (EstSansLongueur(marque)) continue;
    if (i + 1 >= octets.size()) return false;
    i += (Octet(octets, i) << 8) + Octet(octets, i + 1);
    if (marque != kBalayage) continue;
    avecImage = true;
    i = PasseDonnees(octets, i);
  }
  return false;
}

}  // namespace vaktor
