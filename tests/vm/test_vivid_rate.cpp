// SPDX-License-Identifier: GPL-3.0-or-later
// Whether every frame of the kernel's own test driver arrives at its fastest rate. Runs inside the virtual machine.
#include <cmath>

#include "platform/capture/devices/v4l2_device.h"
#include "vm/guest_driver.h"

namespace vaktor {
namespace {

// This driver makes its frames by the machine's clock and numbers them by it, whether somebody takes them or not: from
// the first frame that is taken to the last one there are as many periods as frames, less one. It goes to 25 frames a
// second at 640x480, to 30 one size below; it has no MJPG.
class VividCadence : public PiloteReelTest, public testing::WithParamInterface<FormatCamera> {};

TEST_P(VividCadence, NoFrameIsLost) {
  const FormatCamera& format = GetParam();
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(pilote->AppliqueFormat(format));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  EXPECT_EQ(pilote->FormatCourant(), format);
  ASSERT_TRUE(Attend([&] { return SaisitProchaine(*pilote); }));
  QElapsedTimer depuis;
  depuis.start();
  int periodes = 0;
  double derniere = 0.0;
  while (depuis.elapsed() < 10'000) {
    if (!SaisitProchaine(*pilote)) continue;
    ++periodes;
    derniere = static_cast<double>(depuis.nsecsElapsed()) / 1e9;
  }
  const double offertes = derniere * format.ImagesParSeconde();
  std::printf("measured: %s %dx%d at %d: %.2f periods, %d frames taken (clock: %s)\n", qPrintable(format.Codage),
              format.Largeur, format.Hauteur, format.CadenceNum, offertes, periodes, qPrintable(HorlogeDeLaMachine()));
  EXPECT_EQ(periodes, std::lround(offertes));
}

INSTANTIATE_TEST_SUITE_P(, VividCadence,
                         testing::Values(FormatCamera{"YUYV", 640, 480, 25, 1}, FormatCamera{"YUYV", 640, 360, 30, 1}),
                         [](const auto& cas) {
                           return QStringLiteral("%1x%2").arg(cas.param.Largeur).arg(cas.param.Hauteur).toStdString();
                         });

}  // namespace
}  // namespace vaktor
