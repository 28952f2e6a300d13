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

// From the header alone, before any memory is taken.
bool TropGrande(const QSize& taille) { return qint64{taille.width()} * taille.height() > kPixelsPhotoMax; }

constexpr qint64 kOctetsSuivis = 64LL * 1024 * 1024;

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
  if (image.isNull()) return {.Etat = EtatPhoto::kIllisible};
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
PhotoLue LitParQt(QFile& fichier) {
  if (!fichier.seek(0)) return {.Etat = EtatPhoto::kIllisible};
  QImageReader lecteur(&fichier, QByteArrayLiteral("jpeg"));
  const QSize taille = lecteur.size();
  if (!taille.isValid()) return {.Etat = EtatPhoto::kIllisible};
  if (TropGrande(taille)) return {.Etat = EtatPhoto::kTropGrande};
  QImage image = lecteur.read();
  if (image.isNull()) return {.Etat = EtatPhoto::kIllisible};
  // A picture that claims dots an inch or a pixel ratio is shown pixel for pixel like any other.
  image.setDevicePixelRatio(1);
  return {.Etat = EtatPhoto::kLue, .Image = std::move(image)};
}

}  // namespace

PhotoLue LecteurPhotosFichier::LitPhoto(const QString& chemin) const {
  QFile fichier(CheminNatif(chemin));
  if (!fichier.open(QIODevice::ReadOnly)) return {.Etat = EtatPhoto::kAbsente};
  if (fichier.size() == 0) return {.Etat = EtatPhoto::kVide};
  if (fichier.size() > kOctetsSuivis) return LitParQt(fichier);
  const QByteArray octets = fichier.read(kOctetsSuivis);
  const Decodeur decodeur(tjInitDecompress());
  if (!decodeur) return LitParQt(fichier);
  const Entete entete = LitEntete(decodeur, octets);
  if (entete.Taille.isEmpty()) return {.Etat = EtatPhoto::kIllisible};
  if (TropGrande(entete.Taille)) return {.Etat = EtatPhoto::kTropGrande};
  if (entete.Couleurs == TJCS_CMYK || entete.Couleurs == TJCS_YCCK) return LitParQt(fichier);
  return Decode(decodeur, octets, entete.Taille);
}

}  // namespace vaktor
