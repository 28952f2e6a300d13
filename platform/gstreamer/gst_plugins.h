// GStreamer and its plugins: a machine has two hundred and more of them, and a camera needs three.
#pragma once

#include <gst/gst.h>

#include <initializer_list>

namespace vaktor {

/// Starts GStreamer without its list of plugins: reading it costs 2 MB for good and some 30 ms, making it, when plugins
/// were installed or changed, seconds. Those that are needed are then loaded by name (FabriqueElement).
///
/// Once, before the process has a second thread: it changes the environment for a moment. Where the user's environment
/// says which plugins or which list to take, GStreamer is started as usual.
void LanceGStreamerSansListe();

/// Starts GStreamer as usual where it does not run yet. Any thread. False when it cannot run here.
bool LanceGStreamer();

/// Loads plugins by their file's name, "coreelements" for libgstcoreelements.so. What is not installed is passed over.
/// Any thread, once GStreamer runs.
void ChargeGreffons(std::initializer_list<const char*> noms);

/// Makes all installed plugins known. Takes about half a second where GStreamer runs without its list. Any thread.
void ConnaisTousLesGreffons();

/// A new element, floating: what is known makes it, else the plugin that is known to hold it, else whatever of all
/// installed plugins does. Null when none does. Any thread.
GstElement* FabriqueElement(const char* fabrique);

}  // namespace vaktor
