// SPDX-License-Identifier: GPL-3.0-or-later
// The capture driver over the emulated USB camera, which stands still and gives frames again after each test.
#pragma once

#include "support/camera_list.h"
#include "vm/guest_driver.h"

namespace vaktor {

inline const FormatCamera kYuyv = {QStringLiteral("YUYV"), 640, 480, 30, 1};
inline const FormatCamera kMjpg = {QStringLiteral("MJPG"), 640, 480, 30, 1};

class UsbPilote : public PiloteReelTest {
 protected:
  void TearDown() override {
    Ordonne("thaw");
    Ordonne("go");
    Ordonne("still");
    Ordonne("plug");
    EXPECT_TRUE(Attend([] { return ListePeripheriques().size() == 1; }));
  }
};

}  // namespace vaktor
