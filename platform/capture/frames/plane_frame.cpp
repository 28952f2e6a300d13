// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/plane_frame.h"

#include <atomic>
#include <cstring>
#include <utility>

namespace vaktor {
namespace {

// In use at most: the one being filled, the newest, the one taken, the one shown, one on its way to a file. Somebody
// who keeps more gets them, but their memory goes back to the system and not here.
constexpr size_t kNombreMaximal = 8;

}  // namespace

QImage* ReserveImages::Prend(QSize taille) {
  if (!Images_.empty() && Images_.front().size() != taille) Images_.clear();
  HorsReserve_ = QImage();
  for (QImage& image : Images_) {
    if (!image.isDetached()) continue;
    // The last holder let go on another thread; what it read must lie before what is written now.
    std::atomic_thread_fence(std::memory_order_acquire);
    return &image;
  }
  QImage neuve(taille, QImage::Format_RGB32);
  if (neuve.isNull()) return nullptr;
  if (Images_.size() >= kNombreMaximal) {
    HorsReserve_ = std::move(neuve);
    return &HorsReserve_;
  }
  Images_.push_back(std::move(neuve));
  return &Images_.back();
}

bool TramePlans::Garde(GstBuffer* tampon, const GstVideoInfo& info) {
  if (!gst_video_frame_map(&Trame_, &info, tampon, GST_MAP_READ)) {
    Trame_ = {};
    return false;
  }
  Plans_ = PlansDe(Trame_);
  return true;
}

bool TramePlans::DecodeJpeg(DecodeurJpeg& decodeur, std::span<const quint8> jpeg, QSize taille) {
  if (!Propres_.DecodeJpeg(decodeur, jpeg, taille)) return false;
  Plans_ = Propres_.Plans();
  return true;
}

bool TramePlans::Reduit(const PlansImage& plans, QSize taille) {
  if (!Propres_.Reduit(plans, taille)) return false;
  Plans_ = Propres_.Plans();
  return true;
}

// The sizes stay in Plans_, the planes are gone.
void TramePlans::LacheTampon() {
  if (Trame_.buffer == nullptr) return;
  gst_video_frame_unmap(&Trame_);
  Trame_ = {};
  for (PlansImage::Plan& plan : Plans_.Plans) plan = {};
}

void TramePlans::Vide() {
  LacheTampon();
  const std::shared_ptr<FondsTrames> fonds = Fonds_.lock();
  // The readers had this frame and made do with its samples: those of the next ones will do too. A frame that came too
  // fast for them tells nothing.
  if (fonds != nullptr && Comparee_ && !Regardee_) fonds->FixeRegardees(false);
  if (fonds == nullptr || !fonds->Regardees() || !Image_.isDetached()) Image_ = QImage();
  // A holder of the picture alone may have let go on another thread, as with the frame itself (Prend).
  std::atomic_thread_fence(std::memory_order_acquire);
  Plans_ = PlansImage();
  Phase_.reset();
  EstFaite_ = Cedee_ = Comparee_ = Regardee_ = false;
}

QImage TramePlans::CedeImage(QSize taille) {
  if (Image_.size() != taille || !Image_.isDetached()) return {};
  std::atomic_thread_fence(std::memory_order_acquire);
  Cedee_ = EstFaite_;
  EstFaite_ = false;
  return std::exchange(Image_, QImage());
}

void TramePlans::Prepare() {
  const std::shared_ptr<FondsTrames> fonds = Fonds_.lock();
  if (fonds != nullptr) FaisEchantillons(fonds->Phase);
}

// A small part of the memory of a picture. The reader goes a step of OctetsParLigne from one sampled row to the next,
// so a stored row is a step of them long, and row 0 lies up to one less of them before the first one.
void TramePlans::FaisEchantillons(PhaseEchantillons phase) {
  constexpr qsizetype kMultiple = 64;  // a cache line
  constexpr qsizetype kPas = kPasEchantillon;
  const qsizetype octets = qsizetype{4} * EchantillonsParmi(Plans_.Largeur);
  const qsizetype part = (octets + kPas * kMultiple - 1) / (kPas * kMultiple) * kMultiple;  // of a stored row
  const qsizetype lignes = EchantillonsParmi(Plans_.Hauteur);
  Brute_ = {nullptr, 0, Plans_.Largeur, Plans_.Hauteur, true};
  Phase_.reset();
  if (!Agrandis(Echantillons_, static_cast<std::size_t>((kPas * lignes + kPas - 1) * part))) return;
  quint8* premiere = Echantillons_.data() + (kPas - 1) * part;
  if (!ConvertitEchantillons(Plans_, phase, {premiere, kPas * part})) return;
  Brute_ = {premiere - phase.Y * part, part, Plans_.Largeur, Plans_.Hauteur, true};
  Phase_ = phase;
}

bool TramePlans::FaisEntiere() {
  if (Image_.size() != Taille()) {
    const std::shared_ptr<FondsTrames> fonds = Fonds_.lock();
    if (fonds != nullptr && Cedee_) fonds->Redemande();
    Image_ = fonds != nullptr ? fonds->PrendImage(Taille()) : QImage(Taille(), QImage::Format_RGB32);
  }
  EstFaite_ = !Image_.isNull() && ConvertitImage(Plans_, Image_);
  return EstFaite_;
}

TrameBrute TramePlans::Echantillons(PhaseEchantillons phase) {
  Comparee_ = true;
  if (const std::shared_ptr<FondsTrames> fonds = Fonds_.lock()) fonds->Phase = phase;
  if (Phase_ != phase) FaisEchantillons(phase);
  return Brute_;
}

const QImage& TramePlans::Entiere() {
  static const QImage kAucuneImage;
  Regardee_ = true;
  if (const std::shared_ptr<FondsTrames> fonds = Fonds_.lock()) fonds->FixeRegardees(true);
  return EstFaite_ || FaisEntiere() ? Image_ : kAucuneImage;
}

// Where another view looks at the whole picture that is made first: it is then made once for both.
bool TramePlans::EcritPart(const QRect& part, uchar* vers, qsizetype pas) {
  const std::shared_ptr<FondsTrames> fonds = Fonds_.lock();
  const bool commune = EstFaite_ || (fonds != nullptr && fonds->Regardees() && FaisEntiere());
  if (!commune) return ConvertitPart(Plans_, part, vers, static_cast<int>(pas));
  if (!Image_.rect().contains(part)) return false;
  for (int y = 0; y < part.height(); ++y)
    std::memcpy(vers + y * pas, Image_.constScanLine(part.y() + y) + qsizetype{4} * part.x(),
                static_cast<size_t>(part.width()) * 4);
  return true;
}

// What comes back is emptied at the next frame and not only when it is needed: a film's decoder then finds its memory
// again, instead of taking more.
std::shared_ptr<TramePlans> FondsTrames::Prend(const std::shared_ptr<FondsTrames>& soi) {
  const std::lock_guard verrou(Verrou_);
  std::shared_ptr<TramePlans> libre;
  for (const std::shared_ptr<TramePlans>& trame : Trames_) {
    if (trame.use_count() > 1) continue;
    // The last holder let go on another thread; what it read must lie before what is written now.
    std::atomic_thread_fence(std::memory_order_acquire);
    trame->Vide();
    if (libre == nullptr) libre = trame;
  }
  if (libre != nullptr) return libre;
  libre = std::make_shared<TramePlans>(soi);
  if (Trames_.size() < kNombreMaximal) Trames_.push_back(libre);
  return libre;
}

// Views hold the frame before for a while, and most of them never look at it again: one picture then serves all frames.
// Where one does look again, as the enlarged view does that shows the frame before, each frame keeps its own.
QImage FondsTrames::PrendImage(QSize taille) {
  const std::lock_guard verrou(Verrou_);
  for (const std::shared_ptr<TramePlans>& trame : Trames_) {
    if (trame.use_count() > 1 && !Cedent_) continue;
    std::atomic_thread_fence(std::memory_order_acquire);
    QImage image = trame->CedeImage(taille);
    if (!image.isNull()) return image;
  }
  return {taille, QImage::Format_RGB32};
}

void FondsTrames::FixeRegardees(bool regardees) {
  Regardees_ = regardees;
  if (!regardees) Cedent_ = true;
}

size_t FondsTrames::Nombre() const {
  const std::lock_guard verrou(Verrou_);
  return Trames_.size();
}

}  // namespace vaktor
