// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/camera.h"

#include <cstdio>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/devices/device_access.h"
#include "platform/capture/driver/camera_report.h"
#include "platform/capture/driver/gst_driver.h"
#include "texts/language.h"

namespace vaktor {

QString FichierMemoireCapture(const QString& reglages) { return reglages + QStringLiteral("/capture.ini"); }

int DitCameras(const QString& ou, const QString& reglages) {
  constexpr int kStatutSansCamera = 3;  // not what a crash or a failed start gives
  const RapportCameras rapport = DecritCameras(ou, MemoireCapture(FichierMemoireCapture(reglages)), AccesV4L2());
  std::fputs(qUtf8Printable(rapport.Texte), stdout);
  return rapport.YEnAUne ? 0 : kStatutSansCamera;
}

std::unique_ptr<PiloteCapture> CreePilote(const QString& ou, MemoireCapture& memoire, std::function<Langue()> langue) {
  return std::make_unique<PiloteGStreamer>(ou, memoire, std::move(langue), nullptr);
}

}  // namespace vaktor
