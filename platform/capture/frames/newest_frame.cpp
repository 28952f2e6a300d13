#include "platform/capture/frames/newest_frame.h"

#include <algorithm>

namespace vaktor {
namespace {

using std::chrono::milliseconds;

// A USB camera that changes its exposure can hold its breath for a second; twice that is no camera any more.
constexpr milliseconds kDelaiPerteMinimal{2000};
constexpr milliseconds kDelaiPerteMaximal{60'000};
constexpr int kPeriodesPerdues = 4;

}  // namespace

void BoiteImages::Depose(const ImageCamera& image) {
  ImageCamera ancienne;
  {
    const std::lock_guard verrou(Verrou_);
    // The former frame is let go outside the lock: its memory may have to be freed.
    ancienne = std::move(Image_);
    Image_ = image;
    ++Numero_;
    Instant_ = Horloge::now();
  }
  Nouvelle_.notify_all();
}

BoiteImages::Arrivee BoiteImages::Attend(quint64 dernier, milliseconds delai) {
  std::unique_lock verrou(Verrou_);
  if (!Nouvelle_.wait_for(verrou, delai, [&] { return Numero_ > dernier; })) return {};
  return {Image_, Numero_};
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

milliseconds BoiteImages::DelaiPerteSousVerrou() const {
  if (Format_.CadenceNum <= 0) return kDelaiPerteMinimal;
  const qint64 periodes = qint64{1000} * kPeriodesPerdues * Format_.CadenceDen / Format_.CadenceNum;
  return std::clamp(milliseconds(periodes), kDelaiPerteMinimal, kDelaiPerteMaximal);
}

milliseconds BoiteImages::DelaiPerte() const {
  const std::lock_guard verrou(Verrou_);
  return DelaiPerteSousVerrou();
}

bool BoiteImages::Perdu() const {
  const std::lock_guard verrou(Verrou_);
  return Horloge::now() - Instant_ > DelaiPerteSousVerrou();
}

}  // namespace vaktor
