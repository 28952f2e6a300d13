#include "app/camera.h"

#include "app/do_nothing.h"

namespace vaktor {

std::unique_ptr<PiloteCapture> CreePilote(const QString&, MemoireCapture&, std::function<qint32()>) {
  return std::make_unique<PiloteAbsent>();
}

}  // namespace vaktor
