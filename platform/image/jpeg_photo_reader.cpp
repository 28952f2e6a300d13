// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/image/jpeg_photo_reader.h"

#include <turbojpeg.h>

#include <QFile>
#include <QImageReader>
#include <memory>

#include "base/jpeg_end.h"
#include "platform/base/system_files.h"

namespace vaktor {
namespace {

struct LiberePoignee {
  void operator()(void* poignee) const { tjDestroy(poignee); }
};
using Decodeur = std::unique_ptr<void, LiberePoignee>;

constexpr qint64 kOctetsSuivis = 64LL * 1024 * 1024;
/// What a decoder may keep of a picture that comes in several passes: all of it, before it can scale anything.
constexpr qint64 kOctetsPasses = 512LL * 1024 * 1024;  // 67 million pixels
constexpr int kHuitiemes = 8;                          // the decoder scales by eighths

qint64 Pixels(const QSize& taille) { return qint64{taille.width()} * taille.height(); }

QSize Reduit(const QSize& taille, int huitiemes) {
  const tjscalingfactor facteur{huitiemes, kHuitiemes};
  return {TJSCALED(taille.width(), facteur), TJSCALED(taille.height(), facteur)};
}

/// From the header alone, before any memory is taken: as how many eighths of itself a picture fits, 0 for none.
int DonneHuitiemes(const QSize& taille) {
  int huitiemes = kHuitiemes;
  while (huitiemes > 0 && Pixels(Reduit(taille, huitiemes)) > kPixelsPhotoMax) --huitiemes;
  return huitiemes;
}

/// Where the first scan begins: behind the segments of the header (ITU-T T.81, B.1.1.4).
qsizetype PasseEntete(const QByteArray& octets) {
  const auto octet = [&](qsizetype i) { return static_cast<quint8>(octets.at(i)); };
  qsizetype place = 2;
  while (place + 4 <= octets.size() && octet(place) == 0xff && octet(place + 1) != 0xda) {
    place += octet(place + 1) == 0xff ? 1 : 2 + (octet(place + 2) << 8 | octet(place + 3));
  }
  return place;
}

/// Four inks, each in its full resolution, at two bytes a value: the most that it can be.
qint64 OctetsPasses(const QSize& taille) { return Pixels(taille) * 4 * 2; }

/// Whether the picture comes in several passes: the first has not all colours in it, or only the coarse values.
bool EstParPasses(const QByteArray& octets, int couleurs) {
  const qsizetype passe = PasseEntete(octets);
  if (passe + 5 > octets.size()) return false;
  const auto composantes = static_cast<quint8>(octets.at(passe + 4));
  const qsizetype fin = passe + 5 + qsizetype{2} * composantes;
  if (fin + 2 > octets.size()) return false;
  // A picture of one pass has all its colours in it, from the coarsest value, 0, to the finest, 63.
  const int attendues = couleurs == TJCS_GRAY ? 1 : 3;  // of four inks three are enough to tell
  return composantes < attendues || octets.at(fin) != 0 || octets.at(fin + 1) != 63;
}

struct Entete {
  QSize Taille;
  int Couleurs = -1;
};

Entete LitEntete(const Decodeur& decodeur, const QByteArray& octets) {
  int largeur = 0;
  int hauteur = 0;
  int sousEchantillons = 0;
  int couleurs = -1;
  // A warning leaves the numbers good, an error leaves them out.
  tjDecompressHeader3(decodeur.get(), reinterpret_cast<const unsigned char*>(octets.constData()),
                      static_cast<unsigned long>(octets.size()), &largeur, &hauteur, &sousEchantillons, &couleurs);
  return {.Taille = QSize(largeur, hauteur), .Couleurs = couleurs};
}

/// Decodes to the last row whatever the decoder has to say, and keeps what it said: Qt's reader tells of no damage.
PhotoLue Decode(const Decodeur& decodeur, const QByteArray& octets, const QSize& taille) {
  QImage image(taille, QImage::Format_RGB32);
  if (image.isNull()) return {.Etat = EtatPhoto::kSansMoyens};
  const int resultat =
      tjDecompress2(decodeur.get(), reinterpret_cast<const unsigned char*>(octets.constData()),
                    static_cast<unsigned long>(octets.size()), image.bits(), taille.width(),
                    static_cast<int>(image.bytesPerLine()), taille.height(), TJPF_BGRA, TJFLAG_LIMITSCANS);
  const bool averti = resultat != 0;
  if (averti && tjGetErrorCode(decodeur.get()) != TJERR_WARNING) return {.Etat = EtatPhoto::kIllisible};
  // What lies behind the end of the picture is no concern of ours.
  if (FinJpeg(octets) < 0) return {.Etat = EtatPhoto::kLue, .Image = std::move(image), .Defaut = Dommage::kCoupee};
  return {.Etat = EtatPhoto::kLue, .Image = std::move(image), .Defaut = averti ? Dommage::kFausse : Dommage::kAucun};
}

// Four printing inks, which no camera gives, and files too large to be held beside their picture. Damage goes unseen.
PhotoLue LitParQt(QFile& fichier, const QSize& taille, int huitiemes) {
  if (!fichier.seek(0)) return {.Etat = EtatPhoto::kAbsente};
  QImageReader lecteur(&fichier, QByteArrayLiteral("jpeg"));
  // Rounded down: for a pixel more the reader would decode an eighth more, which is four times the memory at worst.
  if (huitiemes < kHuitiemes) lecteur.setScaledSize(taille * huitiemes / kHuitiemes);
  QImage image = lecteur.read();
  if (image.isNull()) return {.Etat = EtatPhoto::kIllisible};
  // A picture that claims dots an inch or a pixel ratio is shown pixel for pixel like any other.
  image.setDevicePixelRatio(1);
  return {.Etat = EtatPhoto::kLue, .Image = std::move(image)};
}

}  // namespace

PhotoLue LitPhotoJpeg(const QString& chemin) {
  QFile fichier(CheminNatif(chemin));
  if (!fichier.open(QIODevice::ReadOnly)) return {.Etat = EtatPhoto::kAbsente};
  if (fichier.size() == 0) return {.Etat = EtatPhoto::kVide};
  const QByteArray octets = fichier.read(kOctetsSuivis);
  if (fichier.error() != QFileDevice::NoError) return {.Etat = EtatPhoto::kAbsente};  // its disk fails
  const Decodeur decodeur(tjInitDecompress());
  if (!decodeur) return {.Etat = EtatPhoto::kSansMoyens};
  const Entete entete = LitEntete(decodeur, octets);
  if (entete.Taille.isEmpty()) return {.Etat = EtatPhoto::kIllisible};
  const int huitiemes = DonneHuitiemes(entete.Taille);
  const bool passes = EstParPasses(octets, entete.Couleurs);
  if (huitiemes == 0 || (passes && OctetsPasses(entete.Taille) > kOctetsPasses)) {
    return {.Etat = EtatPhoto::kTropGrande};
  }
  const bool encres = entete.Couleurs == TJCS_CMYK || entete.Couleurs == TJCS_YCCK;
  if (encres || fichier.size() > kOctetsSuivis) return LitParQt(fichier, entete.Taille, huitiemes);
  return Decode(decodeur, octets, Reduit(entete.Taille, huitiemes));
}

}  // namespace vaktor
