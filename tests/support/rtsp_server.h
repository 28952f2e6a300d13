// SPDX-License-Identifier: GPL-3.0-or-later
// A real RTSP server (GStreamer's) on the loopback: one film, under the path /c.
#pragma once

#include <gst/rtsp-server/rtsp-server.h>

#include <QString>
#include <thread>

#include "platform/capture/streams/gst_setup.h"

namespace vaktor {

class ServeurRtsp {
 public:
  /// `film`: a description of its elements that ends in a payloader named pay0.
  ServeurRtsp(const char* film, GstRTSPLowerTrans chemins) {
    PrepareGStreamer();
    Contexte_ = g_main_context_new();
    Boucle_ = g_main_loop_new(Contexte_, FALSE);
    Serveur_ = gst_rtsp_server_new();
    gst_rtsp_server_set_address(Serveur_, "127.0.0.1");
    gst_rtsp_server_set_service(Serveur_, "0");  // any port that is free
    GstRTSPMediaFactory* fabrique = gst_rtsp_media_factory_new();
    gst_rtsp_media_factory_set_launch(fabrique, film);
    gst_rtsp_media_factory_set_shared(fabrique, TRUE);
    gst_rtsp_media_factory_set_protocols(fabrique, chemins);
    GstRTSPMountPoints* points = gst_rtsp_server_get_mount_points(Serveur_);
    gst_rtsp_mount_points_add_factory(points, "/c", fabrique);
    g_object_unref(points);
    Source_ = gst_rtsp_server_create_source(Serveur_, nullptr, nullptr);
    g_source_attach(Source_, Contexte_);
    Fil_ = std::thread([this] {
      g_main_context_push_thread_default(Contexte_);
      g_main_loop_run(Boucle_);
      g_main_context_pop_thread_default(Contexte_);
    });
  }
  ~ServeurRtsp() {
    // From within the loop: it may not have begun yet.
    GSource* fin = g_idle_source_new();
    g_source_set_callback(fin, &Quitte, Boucle_, nullptr);
    g_source_attach(fin, Contexte_);
    Fil_.join();
    g_source_unref(fin);
    g_source_destroy(Source_);
    g_source_unref(Source_);
    g_object_unref(Serveur_);
    g_main_loop_unref(Boucle_);
    g_main_context_unref(Contexte_);
  }
  ServeurRtsp(const ServeurRtsp&) = delete;
  ServeurRtsp& operator=(const ServeurRtsp&) = delete;

  QString Adresse() const {
    return QStringLiteral("rtsp://127.0.0.1:%1/c").arg(gst_rtsp_server_get_bound_port(Serveur_));
  }

 private:
  static gboolean Quitte(gpointer boucle) {
    g_main_loop_quit(static_cast<GMainLoop*>(boucle));
    return G_SOURCE_REMOVE;
  }

  GMainContext* Contexte_ = nullptr;
  GMainLoop* Boucle_ = nullptr;
  GstRTSPServer* Serveur_ = nullptr;
  GSource* Source_ = nullptr;
  std::thread Fil_;
};

}  // namespace vaktor
