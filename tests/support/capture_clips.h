// SPDX-License-Identifier: GPL-3.0-or-later
// Small films for the tests of the capture driver, made by GStreamer in a folder of the test's own.
#pragma once

#include <gst/gst.h>

#include <QFile>
#include <QString>
#include <functional>

#include "platform/capture/streams/gst_setup.h"

namespace vaktor {

/// Plays a pipeline description to its end. False when it cannot.
inline bool JoueJusquAuBout(const QString& description) {
  PrepareGStreamer();
  GError* erreur = nullptr;
  GstElement* pipeline = gst_parse_launch(qUtf8Printable(description), &erreur);
  if (erreur != nullptr) g_error_free(erreur);
  if (pipeline == nullptr) return false;
  gst_element_set_state(pipeline, GST_STATE_PLAYING);
  GstBus* bus = gst_element_get_bus(pipeline);
  GstMessage* message = gst_bus_timed_pop_filtered(bus, 30 * GST_SECOND,
                                                   static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
  const bool fini = message != nullptr && GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS;
  if (message != nullptr) gst_message_unref(message);
  gst_object_unref(bus);
  gst_element_set_state(pipeline, GST_STATE_NULL);
  gst_object_unref(pipeline);
  return fini;
}

/// `suite` codes and packs: "jpegenc ! avimux".
inline bool FabriqueFilm(const QString& fichier, const QString& caps, int images, const QString& suite) {
  return JoueJusquAuBout(
      QStringLiteral("videotestsrc num-buffers=%1 pattern=ball ! video/x-raw,%2 ! %3 ! filesink location=\"%4\"")
          .arg(images)
          .arg(caps, suite, fichier));
}

inline QByteArray Lit(const QString& fichier) {
  QFile lu(fichier);
  return lu.open(QIODevice::ReadOnly) ? lu.readAll() : QByteArray();
}

inline bool Ecrit(const QString& fichier, const QByteArray& octets) {
  QFile ecrit(fichier);
  return ecrit.open(QIODevice::WriteOnly) && ecrit.write(octets) == octets.size();
}

}  // namespace vaktor
