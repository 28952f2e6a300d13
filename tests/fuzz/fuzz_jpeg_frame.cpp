// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the picture of a camera: decoded into planes of its size, sampled, scaled and shown, or refused.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/frames/plane_frame.h"

namespace vaktor {
namespace {

constexpr qint64 kPixelsEssayes = 4'000'000;  // what is larger is only slower

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

void EssaiePlans(DecodeurJpeg& decodeur, std::span<const quint8> jpeg, QSize taille) {
  ReserveTrames reserve;
  const std::shared_ptr<TramePlans> trame = reserve.Prend();
  if (!trame->DecodeJpeg(decodeur, jpeg, taille)) return;
  trame->Prepare();
  Exige(trame->Taille() == taille);
  trame->Echantillons({2, 1});
  Exige(trame->Entiere().size() == taille);
}

void EssaieReduction(DecodeurJpeg& decodeur, std::span<const quint8> jpeg, QSize taille) {
  PlansPropres plans;
  if (decodeur.Taille(jpeg) != taille || !plans.DecodeJpeg(decodeur, jpeg, taille)) return;
  PlansPropres reduits;
  Exige(reduits.Reduit(plans.Plans(), (taille + QSize(1, 1)) / 2));
}

void Essaie(std::span<const quint8> jpeg) {
  DecodeurJpeg decodeur;
  const QSize taille = decodeur.Taille(jpeg);
  if (taille.isEmpty()) return;
  Exige(qint64{taille.width()} * taille.height() <= kPixelsMaximum);
  if (qint64{taille.width()} * taille.height() > kPixelsEssayes) return;
  if (decodeur.PlansDeLImage().Format != GST_VIDEO_FORMAT_UNKNOWN) {
    EssaiePlans(decodeur, jpeg, taille);
    EssaieReduction(decodeur, jpeg, taille);
  }
  QImage image(taille, QImage::Format_RGB32);
  decodeur.Decode(jpeg, image);
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  vaktor::Essaie({donnees, taille});
  return 0;
}
