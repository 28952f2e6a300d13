#include "app/camera.h"

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/driver/gst_driver.h"
#include "platform/capture/streams/gst_start.h"
#include "texts/language.h"

namespace vaktor {

QString FichierMemoireCapture(const QString& reglages) { return reglages + QStringLiteral("/capture.ini"); }

void PrepareCapture(const QString& ou, const QString& reglages) {
  LanceGStreamerPour(ou.isEmpty() ? MemoireCapture(FichierMemoireCapture(reglages)).Source() : ou);
}

std::unique_ptr<PiloteCapture> CreePilote(const QString& ou, MemoireCapture& memoire, std::function<Langue()> langue) {
  return std::make_unique<PiloteGStreamer>(ou, memoire, std::move(langue), nullptr);
}

}  // namespace vaktor
