// SPDX-License-Identifier: GPL-3.0-or-later
// A device that writes into its buffer while it is looked at.
#include <gst/app/gstappsrc.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <memory>
#include <stop_token>
#include <thread>

#include "platform/capture/frames/jpeg_of_test.h"
#include "platform/capture/streams/frame_intake.h"

namespace vaktor {
namespace {

constexpr gsize kOctets = gsize{16} * 1024;

QByteArray Jpeg(QSize taille) {
  QImage image(taille, QImage::Format_RGB32);
  image.fill(QColor(90, 120, 60));
  QByteArray jpeg =
      faux::CompresseJpeg(image.constBits(), taille, static_cast<int>(image.bytesPerLine()), TJPF_BGRX, TJSAMP_420, 80);
  EXPECT_LE(static_cast<gsize>(jpeg.size()), kOctets);
  return jpeg.leftJustified(static_cast<qsizetype>(kOctets), '\0');
}

GstBufferPool* Reserve() {
  GstBufferPool* reserve = gst_buffer_pool_new();
  GstStructure* config = gst_buffer_pool_get_config(reserve);
  gst_buffer_pool_config_set_params(config, nullptr, kOctets, 1, 0);
  gst_buffer_pool_set_config(reserve, config);
  gst_buffer_pool_set_active(reserve, TRUE);
  return reserve;
}

/// As the desktop hands out a camera: the other program's memory in a buffer of no pool.
GstBuffer* Partage(GstBuffer* sien) {
  GstBuffer* tampon = gst_buffer_new();
  gst_buffer_append_memory(tampon, gst_memory_share(gst_buffer_peek_memory(sien, 0), 0, -1));
  gst_buffer_add_parent_buffer_meta(tampon, sien);
  gst_buffer_unref(sien);  // the meta holds it
  return tampon;
}

/// Puts the one picture and the other in turn into the device's memory, for as long as it lives.
class Bascule {
 public:
  Bascule(guint8* ou, const QByteArray& une, const QByteArray& autre)
      : Fil_([ou, &une, &autre](const std::stop_token& arret) {
          while (!arret.stop_requested()) {
            std::memcpy(ou, une.constData(), kOctets);
            std::memcpy(ou, autre.constData(), kOctets);
          }
        }) {}

 private:
  std::jthread Fil_;
};

// A header of few pixels, and many a moment later: planes made for the header would be too small for the picture, and
// the program would fall. Each round has an intake of its own, since memory once taken stays.
class AppareilPerfide : public testing::TestWithParam<bool> {};

TEST_P(AppareilPerfide, ChangesNoPictureThatIsBeingDecoded) {
  const bool autreProgramme = GetParam();
  ASSERT_TRUE(PrepareGStreamer());
  const QByteArray petite = Jpeg({16, 16});
  const QByteArray grande = Jpeg({800, 600});
  GstBufferPool* reserve = Reserve();
  for (int tour = 0; tour < 200; ++tour) {
    GstBuffer* tampon = nullptr;
    ASSERT_EQ(gst_buffer_pool_acquire_buffer(reserve, &tampon, nullptr), GST_FLOW_OK);
    GstMapInfo vue;
    ASSERT_TRUE(gst_buffer_map(tampon, &vue, GST_MAP_WRITE));
    guint8* appareil = vue.data;
    gst_buffer_unmap(tampon, &vue);
    const std::unique_ptr<GstMemory, decltype(&gst_memory_unref)> tenue(
        gst_memory_ref(gst_buffer_peek_memory(tampon, 0)), gst_memory_unref);  // as long as somebody writes into it
    if (autreProgramme) tampon = Partage(tampon);
    const Bascule bascule(appareil, petite, grande);

    DerniereImage derniere;
    ReceptionImages reception(derniere, {});
    GstElement* pipeline = gst_pipeline_new(nullptr);
    GstElement* source = gst_element_factory_make("appsrc", nullptr);
    const PtrGst<GstCaps> caps(gst_caps_from_string("image/jpeg"));
    g_object_set(source, "caps", caps.get(), nullptr);
    GstElement* puits = reception.FabriquePuits();
    gst_bin_add_many(GST_BIN(pipeline), source, puits, nullptr);
    gst_element_link(source, puits);
    gst_element_set_state(pipeline, GST_STATE_PLAYING);
    gst_app_src_push_buffer(GST_APP_SRC(source), tampon);
    gst_app_src_end_of_stream(GST_APP_SRC(source));
    for (int i = 0; i < 2000 && !gst_app_sink_is_eos(GST_APP_SINK(puits)); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    gst_element_set_state(pipeline, GST_STATE_NULL);
    gst_object_unref(pipeline);
    const DerniereImage::Arrivee arrivee = derniere.Prend(0);
    if (arrivee.Numero == 0) continue;  // half of the one and half of the other
    const QSize taille = arrivee.Image.Entiere().size();
    EXPECT_TRUE((taille.width() == 16 || taille.width() == 800) && (taille.height() == 16 || taille.height() == 600));
  }
  gst_buffer_pool_set_active(reserve, FALSE);
  gst_object_unref(reserve);
}

INSTANTIATE_TEST_SUITE_P(Memoires, AppareilPerfide, testing::Bool(),
                         [](const auto& cas) { return cas.param ? "OfAnotherProgram" : "OfADevice"; });

}  // namespace
}  // namespace vaktor
