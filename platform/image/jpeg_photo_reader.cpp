#include "platform/image/jpeg_photo_reader.h"

#include <QFile>
#include <QImageReader>

#include "platform/base/system_files.h"

namespace vaktor {
namespace {

// From the header alone, before any memory is taken.
bool TropGrande(const QSize& taille) { return qint64{taille.width()} * taille.height() > kPixelsPhotoMax; }

constexpr qint64 kOctetsSuivis = 64LL * 1024 * 1024;

/// Where the first scan begins: behind the segments of the header, whose thumbnail may be a whole picture with an end
/// of its own (ITU-T T.81, B.1.1.4).
qsizetype PasseEntete(const QByteArray& octets) {
  const auto octet = [&](qsizetype i) { return static_cast<quint8>(octets.at(i)); };
  qsizetype place = 2;
  while (place + 4 <= octets.size() && octet(place) == 0xff && octet(place + 1) != 0xda) {
    place += octet(place + 1) == 0xff ? 1 : 2 + (octet(place + 2) << 8 | octet(place + 3));
  }
  return place;
}

/// The decoder fills up a file that ends early and does not tell. A whole one has the end marker FF D9, which the bytes
/// of a scan cannot hold (T.81, B.1.1.5). What lies behind the marker is no concern of ours.
bool EstCoupee(QFile& fichier) {
  if (fichier.size() > kOctetsSuivis || !fichier.seek(0)) return false;
  const QByteArray octets = fichier.readAll();
  return octets.indexOf(QByteArrayLiteral("\xff\xd9"), PasseEntete(octets)) < 0;
}

}  // namespace

PhotoLue LecteurPhotosFichier::LitPhoto(const QString& chemin) const {
  QFile fichier(CheminNatif(chemin));
  if (!fichier.open(QIODevice::ReadOnly)) return {.Etat = EtatPhoto::kAbsente};
  if (fichier.size() == 0) return {.Etat = EtatPhoto::kVide};
  QImageReader lecteur(&fichier, QByteArrayLiteral("jpeg"));
  const QSize taille = lecteur.size();
  if (!taille.isValid()) return {.Etat = EtatPhoto::kIllisible};
  if (TropGrande(taille)) return {.Etat = EtatPhoto::kTropGrande};
  QImage image = lecteur.read();
  if (image.isNull()) return {.Etat = EtatPhoto::kIllisible};
  // A picture that claims dots an inch or a pixel ratio is shown pixel for pixel like any other.
  image.setDevicePixelRatio(1);
  return {.Etat = EtatPhoto::kLue, .Image = std::move(image), .Coupee = EstCoupee(fichier)};
}

}  // namespace vaktor
