// SPDX-License-Identifier: GPL-3.0-or-later
// The decoder against GStreamer's own ones, on streams that are encoded here.
#include "platform/libav/encoded_streams.h"
#include "platform/libav/libav_decoder.h"

namespace vaktor {
namespace {

class DecodeurLibavTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    gst_init(nullptr, nullptr);
    ASSERT_TRUE(EnregistreDecodeurLibav());
  }
};

struct Flux {
  const char* Nom;
  const char* Encodeur;
  const char* Autre;
};
class FormatsDuDecodeur : public DecodeurLibavTest, public testing::WithParamInterface<Flux> {};

TEST_P(FormatsDuDecodeur, GivesTheSamePixelsInTheSameOrderAsTheOtherDecoder) {
  const std::vector<Echantillon> paquets = Encode(GetParam().Encodeur);
  ASSERT_FALSE(paquets.empty());
  const std::vector<QByteArray> images = Decode(paquets, "vaktorlibav");
  EXPECT_EQ(images.size(), 20U);
  EXPECT_EQ(images, Decode(paquets, GetParam().Autre));
}

INSTANTIATE_TEST_SUITE_P(
    Formats, FormatsDuDecodeur,
    testing::Values(Flux{"MsMpeg4", "avenc_msmpeg4", "avdec_msmpeg4"},
                    Flux{"Mpeg4WithReordering", "avenc_mpeg4 max-bframes=2", "avdec_mpeg4"},
                    Flux{"MsMpeg4SecondVersion", "avenc_msmpeg4v2", "avdec_msmpeg4v2"},
                    Flux{"H264", "openh264enc ! h264parse ! video/x-h264,stream-format=avc,alignment=au", "avdec_h264"},
                    Flux{"H264ByteStream",
                         "openh264enc ! h264parse ! video/x-h264,stream-format=byte-stream,alignment=au", "avdec_h264"},
                    Flux{"Vp8", "vp8enc deadline=1", "vp8dec"}, Flux{"Vp9", "vp9enc deadline=1", "vp9dec"}),
    [](const testing::TestParamInfo<Flux>& cas) { return std::string(cas.param.Nom); });

TEST_F(DecodeurLibavTest, IsTakenBeforeAnyOtherDecoder) {
  const std::vector<Echantillon> paquets = Encode("avenc_msmpeg4", 3);
  const Pipeline pipeline = MonteDecodage(paquets, "decodebin name=choix");
  ASSERT_EQ(Tire(pipeline).size(), 3U);
  GstIterator* elements = gst_bin_iterate_all_by_element_factory_name(GST_BIN(pipeline.get()), "vaktorlibav");
  GValue premier = G_VALUE_INIT;
  EXPECT_EQ(gst_iterator_next(elements, &premier), GST_ITERATOR_OK);
  g_value_unset(&premier);
  gst_iterator_free(elements);
}

TEST_F(DecodeurLibavTest, GivesOutTheDecodersOwnMemoryReadOnly) {
  const std::vector<Echantillon> images = Tire(MonteDecodage(Encode("avenc_msmpeg4", 3), "vaktorlibav"));
  ASSERT_EQ(images.size(), 3U);
  GstBuffer* tampon = gst_sample_get_buffer(images.front().get());
  ASSERT_EQ(gst_buffer_n_memory(tampon), 3U);
  EXPECT_TRUE(GST_MEMORY_IS_READONLY(gst_buffer_peek_memory(tampon, 0)));
  const GstVideoMeta* meta = gst_buffer_get_video_meta(tampon);
  ASSERT_NE(meta, nullptr);
  // 322 pixels do not fill the rows that the decoder works in: a reader that took the width for the row length would
  // see a slanted picture.
  EXPECT_GT(meta->stride[0], 322);
}

TEST_F(DecodeurLibavTest, PicturesOutliveThePipeline) {
  const std::vector<Echantillon> paquets = Encode("avenc_msmpeg4", 3);
  std::vector<Echantillon> images;
  std::vector<QByteArray> vivantes;
  {
    const Pipeline pipeline = MonteDecodage(paquets, "vaktorlibav");
    images = Tire(pipeline);
    vivantes = Empreintes(images);
  }
  ASSERT_EQ(images.size(), 3U);
  EXPECT_EQ(Empreintes(images), vivantes);
}

// Every coding keeps to the limit, and no other decoder is asked.
struct Limite {
  const char* Nom;
  const char* Encodeur;
  bool TailleDansLeFlux = true;
};
class LimiteDePixels : public DecodeurLibavTest, public testing::WithParamInterface<Limite> {
 protected:
  static bool EstRefuse(const std::vector<Echantillon>& paquets, const char* decodeur) {
    const Pipeline pipeline = MonteDecodage(paquets, decodeur);
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    GstBus* bus = gst_element_get_bus(pipeline.get());
    GstMessage* message = gst_bus_timed_pop_filtered(bus, 20 * GST_SECOND, GST_MESSAGE_ERROR);
    gst_object_unref(bus);
    if (message == nullptr) return false;
    GError* erreur = nullptr;
    gst_message_parse_error(message, &erreur, nullptr);
    gst_message_unref(message);
    const bool refuse = g_error_matches(erreur, GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_NO_SPACE_LEFT);
    g_error_free(erreur);
    return refuse;
  }
};

TEST_P(LimiteDePixels, RefusesWhatIsAnnouncedAboveIt) {
  const std::vector<Echantillon> paquets = Encode(GetParam().Encodeur, 3);
  ASSERT_FALSE(paquets.empty());
  EXPECT_TRUE(EstRefuse(paquets, "vaktorlibav max-pixels=77923"));
  // Memory is taken in whole blocks and with borders, and these count.
  EXPECT_EQ(Decode(paquets, "vaktorlibav max-pixels=200000").size(), 3U);
}

// A stream may tell another size than its container did; MPEG-4 and its kin believe what stands at the head of the
// film.
TEST_P(LimiteDePixels, RefusesWhatIsFoundAboveIt) {
  if (!GetParam().TailleDansLeFlux) return;
  std::vector<Echantillon> paquets = Encode(GetParam().Encodeur, 3);
  for (Echantillon& paquet : paquets) {
    GstCaps* caps = gst_caps_copy(gst_sample_get_caps(paquet.get()));
    gst_caps_set_simple(caps, "width", G_TYPE_INT, 16, "height", G_TYPE_INT, 16, nullptr);
    paquet.reset(gst_sample_new(gst_sample_get_buffer(paquet.get()), caps, nullptr, nullptr));
    gst_caps_unref(caps);
  }
  EXPECT_EQ(Decode(paquets, "vaktorlibav max-pixels=200000").size(), 3U);
  // The decoder of AV1 only says that something is wrong.
  if (std::strcmp(GetParam().Nom, "Av1") == 0) {
    EXPECT_EQ(Decode(paquets, "vaktorlibav max-pixels=60000").size(), 0U);
  } else {
    EXPECT_TRUE(EstRefuse(paquets, "vaktorlibav max-pixels=60000"));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Formats, LimiteDePixels,
    testing::Values(Limite{"MsMpeg4", "avenc_msmpeg4", false}, Limite{"Mpeg4", "avenc_mpeg4", false},
                    Limite{"H264", "openh264enc ! h264parse ! video/x-h264,stream-format=avc,alignment=au"},
                    Limite{"H265",
                           "x265enc speed-preset=ultrafast ! h265parse ! "
                           "video/x-h265,stream-format=hvc1,alignment=au"},
                    Limite{"Vp8", "vp8enc deadline=1"}, Limite{"Vp9", "vp9enc deadline=1"},
                    Limite{"Av1", "av1enc cpu-used=8 ! av1parse ! video/x-av1,stream-format=obu-stream,alignment=tu"}),
    [](const testing::TestParamInfo<Limite>& cas) { return std::string(cas.param.Nom); });

// A damaged stretch costs the pictures that it holds, not the stream.
TEST_F(DecodeurLibavTest, GoesOnBehindDamage) {
  std::vector<Echantillon> paquets = Encode("avenc_mpeg4 gop-size=5", 30);
  for (size_t i = 6; i < 9; ++i) {
    GstBuffer* mauvais = gst_buffer_new_allocate(nullptr, 200, nullptr);
    gst_buffer_memset(mauvais, 0, 0xA5, 200);
    gst_buffer_copy_into(mauvais, gst_sample_get_buffer(paquets[i].get()), GST_BUFFER_COPY_TIMESTAMPS, 0, 0);
    paquets[i].reset(gst_sample_new(mauvais, gst_sample_get_caps(paquets[i].get()), nullptr, nullptr));
    gst_buffer_unref(mauvais);
  }
  const std::vector<QByteArray> entieres = Decode(Encode("avenc_mpeg4 gop-size=5", 30), "vaktorlibav");
  const std::vector<QByteArray> restes = Decode(paquets, "vaktorlibav");
  ASSERT_GE(restes.size(), 15U);
  EXPECT_EQ(restes.back(), entieres.back());
}

TEST_F(DecodeurLibavTest, TruncatedPacketsNeitherCrashNorHang) {
  for (const gsize taille : {gsize{1}, gsize{2}, gsize{7}, gsize{40}}) {
    std::vector<Echantillon> paquets = Encode("avenc_msmpeg4", 10);
    for (Echantillon& paquet : paquets) {
      GstBuffer* tampon = gst_sample_get_buffer(paquet.get());
      GstBuffer* coupe =
          gst_buffer_copy_region(tampon, GST_BUFFER_COPY_ALL, 0, std::min(taille, gst_buffer_get_size(tampon)));
      paquet.reset(gst_sample_new(coupe, gst_sample_get_caps(paquet.get()), nullptr, nullptr));
      gst_buffer_unref(coupe);
    }
    EXPECT_LE(Decode(paquets, "vaktorlibav").size(), 10U);
  }
}

}  // namespace
}  // namespace vaktor
