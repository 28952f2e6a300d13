#include "platform/capture/frames/newest_frame.h"

#include <utility>

namespace vaktor {

using std::chrono::milliseconds;

void BoiteImages::Depose(const ImageCamera& image) {
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
  Nouvelle_.notify_all();
  if (sonnette) sonnette->Sonne();
}

void BoiteImages::NoteReprise() {
  const std::lock_guard verrou(Verrou_);
  ++Reprises_;
}

BoiteImages::Arrivee BoiteImages::Prend(quint64 dernier) const {
  const std::lock_guard verrou(Verrou_);
  if (Numero_ <= dernier) return {};
  return {Image_, Numero_, Reprises_};
}

void BoiteImages::RelieSonnette(std::shared_ptr<SonnetteImages> sonnette) {
  const std::lock_guard verrou(Verrou_);
  Sonnette_ = std::move(sonnette);
  Attendue_ = false;
}

void BoiteImages::Previens(quint64 dernier) {
  std::shared_ptr<SonnetteImages> sonnette;
  {
    const std::lock_guard verrou(Verrou_);
    Attendue_ = Numero_ <= dernier;
    if (!Attendue_) sonnette = Sonnette_;
  }
  if (sonnette) sonnette->Sonne();
}

BoiteImages::Arrivee BoiteImages::Attend(quint64 dernier, milliseconds delai) {
  std::unique_lock verrou(Verrou_);
  if (!Nouvelle_.wait_for(verrou, delai, [&] { return Numero_ > dernier; })) return {};
  return {Image_, Numero_, Reprises_};
}

quint64 BoiteImages::Numero() const {
  const std::lock_guard verrou(Verrou_);
  return Numero_;
}

milliseconds BoiteImages::Age() const {
  const std::lock_guard verrou(Verrou_);
  return std::chrono::duration_cast<milliseconds>(Horloge::now() - Instant_);
}

void BoiteImages::FixeFormat(const FormatCamera& format) {
  const std::lock_guard verrou(Verrou_);
  Format_ = format;
}

FormatCamera BoiteImages::Format() const {
  const std::lock_guard verrou(Verrou_);
  return Format_;
}

// The lock is held.
milliseconds BoiteImages::DelaiPour(milliseconds auMoins) const {
  return milliseconds(
      PerteSignal::DelaiPour(static_cast<qint32>(auMoins.count()), Format_.CadenceNum, Format_.CadenceDen));
}

milliseconds BoiteImages::DelaiReouverture() const {
  const std::lock_guard verrou(Verrou_);
  return DelaiPour(Ages_.Reouverte);
}

bool BoiteImages::Perdu() const {
  const std::lock_guard verrou(Verrou_);
  return Horloge::now() - Instant_ > DelaiPour(Ages_.Dite);
}

bool BoiteImages::EstARouvrir() const {
  const std::lock_guard verrou(Verrou_);
  return Horloge::now() - Instant_ > DelaiPour(Ages_.Reouverte);
}

}  // namespace vaktor
