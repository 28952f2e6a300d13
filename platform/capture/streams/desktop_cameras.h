// SPDX-License-Identifier: GPL-3.0-or-later
// Cameras that the desktop hands out instead of the kernel: laptops since 2022 have some that only libcamera can work,
// and that programs get from it or from PipeWire.
#pragma once

#include <gst/gst.h>

#include <QList>

#include "platform/capture/choice/camera_format.h"
#include "platform/capture/choice/capture_reason.h"

namespace vaktor {

/// Those that PipeWire and libcamera know of at this moment, where GStreamer's plugins for them are installed; without
/// the cameras that have a node of their own, which are found there. PipeWire is asked by "pw-dump", the program that
/// comes with it. May hold who asks for some seconds, as long as PipeWire does not answer, and starts GStreamer where
/// nobody has. Any thread; two that ask at once wait for each other.
QList<CameraBureau> ListeCamerasBureau();

/// Why `lieu` (SourceCapture, kBureau), which is not among them, is not: its plugin is not installed, or nobody hands
/// it out. Asks nobody but GStreamer's registry.
Raison PourquoiPasDuBureau(const QString& lieu);

/// The element that gives the pictures of `lieu`; null where its plugin is not installed. Floating: the pipeline that
/// takes it owns it.
GstElement* FabriqueCameraBureau(const QString& lieu);

/// What such an element is asked for. Told no kind at all, PipeWire would not know that pictures are wanted, and link
/// nothing to it.
GstCaps* CapsDuBureau();

}  // namespace vaktor
