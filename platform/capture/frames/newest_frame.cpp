// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/frames/newest_frame.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
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
    NoteInstant(Horloge::now());
    if (std::exchange(Attendue_, false)) sonnette = Sonnette_;
  }
  if (sonnette) sonnette->Sonne();
}

// The lock is held. What is known of the former opening holds until the first frame of the next one: a camera that has
// gone is told as lost as soon as before, though it is being opened again.
void DerniereImage::NoteInstant(Horloge::time_point maintenant) {
  const auto ms = [](Horloge::duration d) { return std::chrono::duration_cast<milliseconds>(d).count(); };
  if (std::exchange(Suite_, true))
    Trous_.Note(ms(maintenant.time_since_epoch()), ms(maintenant - Instant_));
  else
    Trous_.Oublie();
  Instant_ = maintenant;
}

void DerniereImage::NoteOuverture() {
  const std::lock_guard verrou(Verrou_);
  Suite_ = false;
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

milliseconds DerniereImage::DelaiSousVerrou() const {
  if (const std::optional<qint32> mesure = Trous_.Delai()) return milliseconds(*mesure);
  return std::max(SansMesure_, milliseconds(PerteSignal::DelaiPromis(Format_.CadenceNum, Format_.CadenceDen)));
}

milliseconds DerniereImage::DelaiPerte() const {
  const std::lock_guard verrou(Verrou_);
  return DelaiSousVerrou();
}

bool DerniereImage::Perdu() const {
  const std::lock_guard verrou(Verrou_);
  return Horloge::now() - Instant_ > DelaiSousVerrou();
}

}  // namespace vaktor
