// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/newest_frame.h"

#include <QCoreApplication>
#include <QEvent>
#include <new>
#include <utility>

namespace vaktor {
namespace {

using std::chrono::milliseconds;

constexpr auto kSonne = static_cast<QEvent::Type>(QEvent::User + 1);  // of a private object: no other event meets it

}  // namespace

// Under the lock, so that the listener cannot go away in between. Posting takes memory, and this is the thread of a
// camera: where there is none nobody is woken, and the next tick finds the frame.
void SonnetteImages::Sonne() noexcept {
  const std::lock_guard verrou(Verrou_);
  if (Chez_ == nullptr || Sonnee_) return;
  try {
    QCoreApplication::postEvent(Chez_, new QEvent(kSonne));
    Sonnee_ = true;
  } catch (const std::bad_alloc&) {
  }
}

EcouteSonnette::EcouteSonnette(std::function<void()> entendu) : Entendu_(std::move(entendu)) {
  const std::lock_guard verrou(Sonnette_->Verrou_);
  Sonnette_->Chez_ = this;
}

EcouteSonnette::~EcouteSonnette() {
  const std::lock_guard verrou(Sonnette_->Verrou_);
  Sonnette_->Chez_ = nullptr;
}

bool EcouteSonnette::event(QEvent* evenement) {
  if (evenement->type() != kSonne) return QObject::event(evenement);
  {
    const std::lock_guard verrou(Sonnette_->Verrou_);
    Sonnette_->Sonnee_ = false;
  }
  Entendu_();
  return true;
}

void DerniereImage::Depose(const ImageCamera& image) {
  ImageCamera ancienne;
  std::shared_ptr<SonnetteImages> sonnette;
  {
    const std::lock_guard verrou(Verrou_);
    // The former frame is let go outside the lock: its memory may have to be freed.
    ancienne = std::move(Image_);
    Image_ = image;
    ++Numero_;
    Instant_ = Horloge::now();
    if (std::exchange(Attendue_, false)) sonnette = Sonnette_;
  }
  if (sonnette) sonnette->Sonne();
}

void DerniereImage::NoteReprise() {
  const std::lock_guard verrou(Verrou_);
  ++Reprises_;
}

DerniereImage::Arrivee DerniereImage::Prend(quint64 dernier) const {
  const std::lock_guard verrou(Verrou_);
  if (Numero_ <= dernier) return {};
  return {Image_, Numero_, Reprises_};
}

void DerniereImage::RelieSonnette(std::shared_ptr<SonnetteImages> sonnette) {
  const std::lock_guard verrou(Verrou_);
  Sonnette_ = std::move(sonnette);
  Attendue_ = false;
}

void DerniereImage::Previens(quint64 dernier) {
  std::shared_ptr<SonnetteImages> sonnette;
  {
    const std::lock_guard verrou(Verrou_);
    Attendue_ = Numero_ <= dernier;
    if (!Attendue_) sonnette = Sonnette_;
  }
  if (sonnette) sonnette->Sonne();
}

quint64 DerniereImage::Numero() const {
  const std::lock_guard verrou(Verrou_);
  return Numero_;
}

milliseconds DerniereImage::Age() const {
  const std::lock_guard verrou(Verrou_);
  return std::chrono::duration_cast<milliseconds>(Horloge::now() - Instant_);
}

void DerniereImage::FixeFormat(const FormatCamera& format) {
  const std::lock_guard verrou(Verrou_);
  Format_ = format;
}

FormatCamera DerniereImage::Format() const {
  const std::lock_guard verrou(Verrou_);
  return Format_;
}

// The lock is held.
milliseconds DerniereImage::DelaiPour(milliseconds auMoins) const {
  return milliseconds(
      PerteSignal::DelaiPour(static_cast<qint32>(auMoins.count()), Format_.CadenceNum, Format_.CadenceDen));
}

milliseconds DerniereImage::DelaiReouverture() const {
  const std::lock_guard verrou(Verrou_);
  return DelaiPour(Ages_.Reouverte);
}

bool DerniereImage::Perdu() const {
  const std::lock_guard verrou(Verrou_);
  return Horloge::now() - Instant_ > DelaiPour(Ages_.Dite);
}

bool DerniereImage::EstARouvrir() const {
  const std::lock_guard verrou(Verrou_);
  return Horloge::now() - Instant_ > DelaiPour(Ages_.Reouverte);
}

}  // namespace vaktor
