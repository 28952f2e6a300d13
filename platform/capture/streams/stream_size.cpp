// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/streams/stream_size.h"

#include <QtEndian>
#include <array>
#include <cstring>
#include <memory>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/streams/gst_setup.h"

namespace vaktor {
namespace {

constexpr const char* kNote = "vaktor-too-many-pixels";

// Enough for any of the three.
constexpr gsize kTete = 24;

bool Commence(std::span<const quint8> octets, const char* marque, std::size_t longueur) {
  return octets.size() >= kTete && std::memcmp(octets.data(), marque, longueur) == 0;
}

quint64 Lit16(std::span<const quint8> octets, std::size_t ou) { return qFromBigEndian<quint16>(&octets[ou]); }
quint64 Lit32(std::span<const quint8> octets, std::size_t ou) { return qFromBigEndian<quint32>(&octets[ou]); }

// Both have 32 bits at the most: the product of both has its place.
bool EstAuDela(quint64 largeur, quint64 hauteur) { return largeur * hauteur > quint64{kPixelsMaximum}; }

GstPadProbeReturn Arrete(GstPad*, GstPadProbeInfo* info, gpointer decodeur) {
  std::array<quint8, kTete> tete{};
  const gsize lus = gst_buffer_extract(GST_PAD_PROBE_INFO_BUFFER(info), 0, tete.data(), tete.size());
  if (!DemandeTropDePixels(std::span(tete).first(lus))) return GST_PAD_PROBE_OK;
  // The error ends the film; why is noted, since "decodebin" swallows what a decoder says while it is being put in.
  if (const PtrGst<GstElement> decodage{GST_ELEMENT(gst_object_get_parent(GST_OBJECT(decodeur)))})
    NoteTropDePixels(decodage.get());
  GST_ELEMENT_ERROR(decodeur, STREAM, DECODE, ("a picture of too many pixels"), (nullptr));
  return GST_PAD_PROBE_DROP;
}

}  // namespace

void NoteTropDePixels(GstElement* decodage) { g_object_set_data(G_OBJECT(decodage), kNote, decodage); }

bool ANoteTropDePixels(GstObject* decodage) {
  return decodage != nullptr && g_object_get_data(G_OBJECT(decodage), kNote) != nullptr;
}

bool DemandeTropDePixels(std::span<const quint8> octets) {
  // Theora counts in blocks of sixteen pixels.
  if (Commence(octets, "\x80theora", 7)) return EstAuDela(16 * Lit16(octets, 10), 16 * Lit16(octets, 12));
  if (Commence(octets, "\x89PNG\r\n\x1a\n", 8)) return EstAuDela(Lit32(octets, 16), Lit32(octets, 20));
  if (Commence(octets, "\xff\x4f\xff\x51", 4)) return EstAuDela(Lit32(octets, 8), Lit32(octets, 12));
  return false;
}

void GardeEntree(GstElement* decodeur) {
  const PtrGst<GstPad> entree(gst_element_get_static_pad(decodeur, "sink"));
  if (entree) gst_pad_add_probe(entree.get(), GST_PAD_PROBE_TYPE_BUFFER, Arrete, decodeur, nullptr);
}

}  // namespace vaktor
