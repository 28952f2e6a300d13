#include "app/camera.h"

#include "platform/capture/gst_driver.h"

namespace vaktor {

std::unique_ptr<PiloteCapture> CreePilote(const QString& ou, MemoireCapture& memoire, std::function<qint32()> langue) {
  return std::make_unique<PiloteGStreamer>(ou, memoire, std::move(langue), nullptr);
}

}  // namespace vaktor
