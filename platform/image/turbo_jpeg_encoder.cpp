// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/image/turbo_jpeg_encoder.h"

#include <turbojpeg.h>

#include <algorithm>
#include <limits>

namespace vaktor {
namespace {

constexpr TJSAMP kSousEchantillonnage = TJSAMP_420;
constexpr int kQualiteMax = 100;
/// The largest side that libjpeg-turbo takes, a little below the 65,535 of the format.
constexpr int kCoteMax = 65500;

/// True when each pixel lies in memory as B, G, R and a byte to be skipped.
bool EstBgrx(QImage::Format format) {
  static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "0xffRRGGBB lies in memory as B, G, R, 0xff only on such a machine");
  return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
         format == QImage::Format_ARGB32_Premultiplied;
}

}  // namespace

void EncodeurTurboJpeg::LibereMemoire::operator()(unsigned char* memoire) const { tjFree(memoire); }
void EncodeurTurboJpeg::LiberePoignee::operator()(void* poignee) const { tjDestroy(poignee); }

EncodeurTurboJpeg::EncodeurTurboJpeg() = default;
EncodeurTurboJpeg::~EncodeurTurboJpeg() = default;

StatutJpeg EncodeurTurboJpeg::Demarre() {
  if (!Poignee_) Poignee_.reset(tjInitCompress());
  return Poignee_ ? StatutJpeg::kReussi : StatutJpeg::kEncodeurIndisponible;
}

StatutJpeg EncodeurTurboJpeg::Encode(const QImage& image, quint8 qualite, QByteArrayView& octets) {
  if (const StatutJpeg statut = Demarre(); statut != StatutJpeg::kReussi) return statut;
  if (image.isNull() || qualite > kQualiteMax) return StatutJpeg::kParametreInvalide;
  if (std::max(image.width(), image.height()) > kCoteMax) return StatutJpeg::kValeurTropGrande;
  const QImage source = EstBgrx(image.format()) ? image : image.convertToFormat(QImage::Format_RGB32);
  if (source.isNull() || !ReserveSortie(source.width(), source.height())) return StatutJpeg::kMemoireEpuisee;

  unsigned char* sortie = Sortie_.get();
  unsigned long taille = Capacite_;
  const auto pas = static_cast<int>(source.bytesPerLine());
  // With room for the worst case reserved the library has no reason to move the memory, and is told not to.
  if (tjCompress2(Poignee_.get(), source.constBits(), source.width(), pas, source.height(), TJPF_BGRX, &sortie, &taille,
                  kSousEchantillonnage, qualite, TJFLAG_NOREALLOC) != 0) {
    return StatutJpeg::kErreurGenerique;
  }
  octets = QByteArrayView(sortie, static_cast<qsizetype>(taille));
  return StatutJpeg::kReussi;
}

bool EncodeurTurboJpeg::ReserveSortie(int largeur, int hauteur) {
  // The worst case is far more than a photo takes; what is not written to costs no memory.
  const unsigned long besoin = tjBufSize(largeur, hauteur, kSousEchantillonnage);
  if (besoin <= Capacite_) return true;
  if (besoin > static_cast<unsigned long>(std::numeric_limits<int>::max())) return false;  // tjAlloc takes an int
  Sortie_.reset(tjAlloc(static_cast<int>(besoin)));
  Capacite_ = Sortie_ ? besoin : 0;
  return Sortie_ != nullptr;
}

}  // namespace vaktor
