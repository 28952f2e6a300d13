// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/journal/thumbnail_file_reader.h"

#include <turbojpeg.h>

#include <QFile>
#include <memory>
#include <utility>

#include "platform/base/system_files.h"

namespace vaktor {
namespace {

struct LiberePoignee {
  void operator()(void* poignee) const { tjDestroy(poignee); }
};

constexpr qint64 kOctetsMax = 64LL * 1024 * 1024;
/// Of the photo: what a decoder keeps of a picture in several passes before it can scale anything grows with it.
constexpr qint64 kPixelsMax = 64'000'000;

/// As many eighths of its sides as it takes not to be smaller than what is shown.
QSize ChoisitEchelle(const QSize& entiere, const QSize& taille) {
  for (int huitiemes = 1; huitiemes < 8; ++huitiemes) {
    const tjscalingfactor facteur{huitiemes, 8};
    const QSize reduite(TJSCALED(entiere.width(), facteur), TJSCALED(entiere.height(), facteur));
    if (reduite.width() >= taille.width() && reduite.height() >= taille.height()) return reduite;
  }
  return entiere;
}

}  // namespace

Vignette DecodeVignette(QByteArrayView octets, const QSize& place) {
  const std::unique_ptr<void, LiberePoignee> decodeur(tjInitDecompress());
  if (!decodeur) return {.Etat = EtatPhoto::kSansMoyens};
  int largeur = 0, hauteur = 0, sousEchantillons = 0, couleurs = 0;
  const auto* debut = reinterpret_cast<const unsigned char*>(octets.data());
  const auto longueur = static_cast<unsigned long>(octets.size());
  tjDecompressHeader3(decodeur.get(), debut, longueur, &largeur, &hauteur, &sousEchantillons, &couleurs);
  const QSize entiere(largeur, hauteur);
  if (entiere.isEmpty()) return {};
  if (qint64{largeur} * hauteur > kPixelsMax || couleurs == TJCS_CMYK || couleurs == TJCS_YCCK)
    return {.Etat = EtatPhoto::kTropGrande};
  const QSize montree = entiere.scaled(place, Qt::KeepAspectRatio).boundedTo(entiere).expandedTo({1, 1});
  const QSize decodee = ChoisitEchelle(entiere, montree);
  QImage image(decodee, QImage::Format_RGB32);
  if (image.isNull()) return {.Etat = EtatPhoto::kSansMoyens};
  const int resultat = tjDecompress2(decodeur.get(), debut, longueur, image.bits(), decodee.width(),
                                     static_cast<int>(image.bytesPerLine()), decodee.height(), TJPF_BGRA,
                                     TJFLAG_LIMITSCANS | TJFLAG_FASTDCT);
  // A warning is damage inside: what is there is shown, as the gallery does.
  if (resultat != 0 && tjGetErrorCode(decodeur.get()) != TJERR_WARNING) return {};
  if (decodee != montree) image = image.scaled(montree, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  return {.Etat = EtatPhoto::kLue, .Image = std::move(image), .Entiere = entiere};
}

LecteurVignettesSysteme::LecteurVignettesSysteme(Decodage decodage, std::chrono::milliseconds patience)
    : Decodage_(std::move(decodage)),
      Question_(patience, {.Etat = EtatPhoto::kSansReponse}, {.Etat = EtatPhoto::kSansMoyens}) {}

void LecteurVignettesSysteme::LitVignette(const QString& chemin, const QSize& taille, Recoit recoit) {
  Question_.Pose([decodage = Decodage_, chemin, taille](const std::atomic<bool>&) { return decodage(chemin, taille); },
                 [this, recoit = std::move(recoit)](const Vignette& vignette) {
                   // Told once: a photo of a disk that wakes is asked for again when it is in sight.
                   const Recoit suite = recoit;
                   if (vignette.Etat == EtatPhoto::kSansReponse) Question_.Oublie();
                   suite(vignette);
                 });
}

Vignette LitVignetteJpeg(const QString& chemin, const QSize& taille) {
  QFile fichier(CheminNatif(chemin));
  if (!fichier.open(QIODevice::ReadOnly)) return {.Etat = EtatPhoto::kAbsente};
  if (fichier.size() == 0) return {.Etat = EtatPhoto::kVide};
  if (fichier.size() > kOctetsMax) return {.Etat = EtatPhoto::kTropGrande};
  const QByteArray octets = fichier.readAll();
  if (fichier.error() != QFileDevice::NoError) return {.Etat = EtatPhoto::kAbsente};
  return DecodeVignette(octets, taille);
}

}  // namespace vaktor
