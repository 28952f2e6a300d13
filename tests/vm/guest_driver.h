// SPDX-License-Identifier: GPL-3.0-or-later
// The capture driver at work in the virtual machine, and what the tests look at.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/driver/gst_driver.h"
#include "platform/capture/streams/gst_setup.h"
#include "support/next_frame.h"
#include "texts/language.h"
#include "vm/guest.h"

namespace vaktor {

class PiloteReelTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(PrepareGStreamer()); }

  std::unique_ptr<PiloteGStreamer> Pilote(const QString& ou = {}) {
    return std::make_unique<PiloteGStreamer>(
        ou, Memoire_, [] { return Langue::kAnglais; }, nullptr);
  }
  /// The machine may be so slow that a first try takes longer than a driver may wait.
  static bool Connecte(PiloteGStreamer& pilote) {
    return Attend([&] { return pilote.Connecte(); });
  }
  static bool AttendImages(PiloteGStreamer& pilote, int nombre) {
    int vues = 0;
    return Attend([&] {
      vues += SaisitProchaine(pilote) ? 1 : 0;
      return vues >= nombre;
    });
  }
  static void Note(const char* quoi, double valeur) { std::printf("measured: %s %.1f\n", quoi, valeur); }
  static qsizetype Descripteurs() {
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
        .size();
  }
  static double Clarte(const QImage& image) {
    qint64 somme = 0;
    for (int y = 0; y < image.height(); y += 8)
      for (int x = 0; x < image.width(); x += 8) somme += qGray(image.pixel(x, y));
    return static_cast<double>(somme) / ((image.width() / 8.0) * (image.height() / 8.0));
  }

  QTemporaryDir Dossier_;
  MemoireCapture Memoire_{Dossier_.filePath(QStringLiteral("capture.ini"))};
};

}  // namespace vaktor
