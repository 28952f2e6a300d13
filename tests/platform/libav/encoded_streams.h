// SPDX-License-Identifier: GPL-3.0-or-later
// Streams that are encoded here, packet by packet, and what a decoder makes of them.
#pragma once

#include <gst/app/gstappsink.h>
#include <gst/app/gstappsrc.h>
#include <gst/video/video.h>
#include <gtest/gtest.h>

#include <QByteArray>
#include <QCryptographicHash>
#include <memory>
#include <string>
#include <vector>

namespace vaktor {

struct Rend {
  void operator()(GstElement* objet) const {
    gst_element_set_state(objet, GST_STATE_NULL);
    gst_object_unref(objet);
  }
  void operator()(GstSample* objet) const { gst_sample_unref(objet); }
};
using Pipeline = std::unique_ptr<GstElement, Rend>;
using Echantillon = std::unique_ptr<GstSample, Rend>;

inline Pipeline Monte(const std::string& description) {
  GError* erreur = nullptr;
  GstElement* pipeline = gst_parse_launch(description.c_str(), &erreur);
  EXPECT_EQ(erreur, nullptr) << (erreur == nullptr ? "" : erreur->message);
  g_clear_error(&erreur);
  return Pipeline(pipeline);
}

template <typename T>
T* Element(const Pipeline& pipeline, const char* nom) {
  GstElement* element = gst_bin_get_by_name(GST_BIN(pipeline.get()), nom);
  gst_object_unref(element);  // the pipeline holds it
  return reinterpret_cast<T*>(element);
}

inline std::vector<Echantillon> Tire(const Pipeline& pipeline) {
  std::vector<Echantillon> tous;
  gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
  auto* puits = Element<GstAppSink>(pipeline, "puits");
  while (GstSample* un = gst_app_sink_try_pull_sample(puits, 20 * GST_SECOND)) tous.emplace_back(un);
  EXPECT_TRUE(gst_app_sink_is_eos(puits));
  return tous;
}

// A ball that jumps about: every picture differs from the one before.
inline std::vector<Echantillon> Encode(const std::string& encodeur, int images = 20) {
  return Tire(Monte("videotestsrc pattern=ball num-buffers=" + std::to_string(images) +
                    " ! video/x-raw,format=I420,framerate=25/1,width=322,height=242 ! " + encodeur +
                    " ! appsink name=puits sync=false"));
}

inline QByteArray EmpreinteDe(const GstVideoFrame& trame) {
  QCryptographicHash somme(QCryptographicHash::Md5);
  for (guint c = 0; c < GST_VIDEO_FRAME_N_COMPONENTS(&trame); ++c) {
    for (int y = 0; y < GST_VIDEO_FRAME_COMP_HEIGHT(&trame, c); ++y) {
      const guint8* ligne =
          GST_VIDEO_FRAME_COMP_DATA(&trame, c) + static_cast<ptrdiff_t>(y) * GST_VIDEO_FRAME_COMP_STRIDE(&trame, c);
      somme.addData(QByteArrayView(ligne, GST_VIDEO_FRAME_COMP_WIDTH(&trame, c)));
    }
  }
  return somme.result().toHex();
}

inline QByteArray Empreinte(GstSample* echantillon) {
  GstVideoInfo info;
  GstVideoFrame trame;
  EXPECT_TRUE(gst_video_info_from_caps(&info, gst_sample_get_caps(echantillon)));
  EXPECT_TRUE(gst_video_frame_map(&trame, &info, gst_sample_get_buffer(echantillon), GST_MAP_READ));
  QByteArray empreinte = EmpreinteDe(trame);
  gst_video_frame_unmap(&trame);
  return empreinte;
}

inline std::vector<QByteArray> Empreintes(const std::vector<Echantillon>& images) {
  std::vector<QByteArray> toutes;
  toutes.reserve(images.size());
  for (const Echantillon& image : images) toutes.push_back(Empreinte(image.get()));
  return toutes;
}

inline Pipeline MonteDecodage(const std::vector<Echantillon>& paquets, const std::string& decodeur) {
  Pipeline pipeline = Monte("appsrc name=source format=time ! " + decodeur + " ! appsink name=puits sync=false");
  auto* source = Element<GstAppSrc>(pipeline, "source");
  gst_app_src_set_caps(source, gst_sample_get_caps(paquets.front().get()));
  for (const Echantillon& paquet : paquets) gst_app_src_push_sample(source, paquet.get());
  gst_app_src_end_of_stream(source);
  return pipeline;
}

// All picture formats that ours gives out are taken; the other decoder is put beside it in the same way.
inline std::vector<QByteArray> Decode(const std::vector<Echantillon>& paquets, const std::string& decodeur) {
  return Empreintes(Tire(MonteDecodage(paquets, decodeur)));
}

}  // namespace vaktor
