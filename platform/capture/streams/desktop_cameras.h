// SPDX-License-Identifier: GPL-3.0-or-later
// Cameras that the desktop hands out instead of the kernel: laptops since 2022 have some that only libcamera can work,
// and that programs get from it or from PipeWire.
#pragma once

#include <gst/gst.h>

#include <QList>

#include "platform/capture/choice/camera_format.h"
#include "platform/capture/choice/capture_reason.h"

namespace vaktor {

/// Those that GStreamer's plugins for both know of at this moment, where they are installed; without the cameras that
/// have a node of their own, which are found there. May hold who asks for as long as PipeWire does not answer, and
/// starts GStreamer where nobody has. Any thread; two that ask at once wait for each other.
QList<CameraBureau> ListeCamerasBureau();

/// Why `lieu` (SourceCapture, kBureau), which is not among them, is not: its plugin is not installed, or nobody hands
/// it out. Asks nobody but GStreamer's registry.
Raison PourquoiPasDuBureau(const QString& lieu);

/// The element that gives the pictures of `lieu`, and the connection to PipeWire that it works over, which must be
/// closed behind the element and not before. Floating: the pipeline that takes it owns it.
struct ElementBureau {
  GstElement* Element = nullptr;  ///< null where its plugin is not installed, or PipeWire does not run
  int Descripteur = -1;           ///< -1: none is needed
};
ElementBureau FabriqueCameraBureau(const QString& lieu);

/// What such an element is asked for. Told no kind at all, PipeWire would not know that pictures are wanted, and link
/// nothing to it.
GstCaps* CapsDuBureau();

}  // namespace vaktor
