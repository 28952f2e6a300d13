#include "platform/capture/frames/frame_pool.h"

#include <atomic>

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

}  // namespace vaktor
