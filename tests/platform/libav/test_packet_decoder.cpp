// Packets decoded by hand against the same packets through the element.
#include <array>

#include "platform/libav/encoded_streams.h"
#include "platform/libav/libav_decoder.h"
#include "platform/libav/packet_decoder.h"

namespace vaktor {
namespace {

class DecodeurDePaquets : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    gst_init(nullptr, nullptr);
    ASSERT_TRUE(EnregistreDecodeurLibav());
  }
  std::vector<QByteArray> DecodeParPaquets(const std::vector<Echantillon>& paquets) {
    std::vector<QByteArray> images;
    for (const Echantillon& paquet : paquets) {
      Decodeur.Envoie(gst_sample_get_buffer(paquet.get()));
      while (Decodeur.Prend(Image, Vue)) images.push_back(EmpreinteDe(Vue));
    }
    return images;
  }
  bool OuvrePour(const std::vector<Echantillon>& paquets) {
    return Decodeur.Ouvre(gst_sample_get_caps(paquets.front().get()));
  }

  DecodeurPaquets Decodeur;
  ImageLibav Image;
  GstVideoFrame Vue{};
};

TEST_F(DecodeurDePaquets, GivesAtEachPacketThePictureThatTheElementGives) {
  for (const char* encodeur : {"avenc_msmpeg4", "avenc_msmpeg4v2", "vp8enc deadline=1"}) {
    const std::vector<Echantillon> paquets = Encode(encodeur);
    ASSERT_TRUE(OuvrePour(paquets)) << encodeur;
    std::vector<QByteArray> images;
    for (const Echantillon& paquet : paquets) {
      Decodeur.Envoie(gst_sample_get_buffer(paquet.get()));
      ASSERT_TRUE(Decodeur.Prend(Image, Vue)) << encodeur << ": none is held back";
      images.push_back(EmpreinteDe(Vue));
      EXPECT_EQ(GST_VIDEO_FRAME_WIDTH(&Vue), 322);
      EXPECT_FALSE(Decodeur.Prend(Image, Vue));
    }
    EXPECT_EQ(images, Decode(paquets, "vaktorlibav")) << encodeur;
  }
}

TEST_F(DecodeurDePaquets, AHeldPictureStaysAsItIsAndOutlivesTheDecoder) {
  const std::vector<Echantillon> paquets = Encode("avenc_msmpeg4", 8);
  ImageLibav gardee;
  GstVideoFrame sienne{};
  QByteArray empreinte;
  {
    DecodeurPaquets autre;
    ASSERT_TRUE(autre.Ouvre(gst_sample_get_caps(paquets.front().get())));
    autre.Envoie(gst_sample_get_buffer(paquets.front().get()));
    ASSERT_TRUE(autre.Prend(gardee, sienne));
    empreinte = EmpreinteDe(sienne);
    for (const Echantillon& paquet : paquets) {
      autre.Envoie(gst_sample_get_buffer(paquet.get()));
      autre.Prend(Image, Vue);
    }
  }
  EXPECT_FALSE(gardee.EstVide());
  EXPECT_EQ(EmpreinteDe(sienne), empreinte);
  gardee.Lache();
  EXPECT_TRUE(gardee.EstVide());
}

// A film that begins again: the first picture is whole, and what follows builds on it alone.
TEST_F(DecodeurDePaquets, BeginsAgainAnywhere) {
  const std::vector<Echantillon> paquets = Encode("avenc_msmpeg4");
  ASSERT_TRUE(OuvrePour(paquets));
  const std::vector<QByteArray> images = DecodeParPaquets(paquets);
  Decodeur.Oublie();
  EXPECT_EQ(DecodeParPaquets(paquets), images);
}

TEST_F(DecodeurDePaquets, TruncatedAndEmptyPacketsGiveNothingOrLessAndTheNextGoodOneGoesOn) {
  for (const gsize taille : {gsize{0}, gsize{1}, gsize{7}, gsize{40}}) {
    const std::vector<Echantillon> paquets = Encode("avenc_msmpeg4", 6);
    ASSERT_TRUE(OuvrePour(paquets));
    for (const Echantillon& paquet : paquets) {
      GstBuffer* coupe = gst_buffer_copy_region(gst_sample_get_buffer(paquet.get()), GST_BUFFER_COPY_ALL, 0, taille);
      Decodeur.Envoie(coupe);
      gst_buffer_unref(coupe);
      while (Decodeur.Prend(Image, Vue)) continue;
    }
    EXPECT_EQ(DecodeParPaquets(paquets).size(), 6U) << taille;
  }
}

TEST_F(DecodeurDePaquets, WhatItDoesNotKnowIsRefusedAndDecodesToNothing) {
  GstCaps* caps = gst_caps_from_string("video/x-nothing-known");
  EXPECT_FALSE(Decodeur.Ouvre(caps));
  gst_caps_unref(caps);
  EXPECT_TRUE(DecodeParPaquets(Encode("avenc_msmpeg4", 2)).empty());
  Decodeur.Oublie();
}

// The container's word on the colours counts where the picture says nothing.
TEST_F(DecodeurDePaquets, TakesTheContainersColours) {
  const std::vector<Echantillon> paquets = Encode("avenc_msmpeg4", 1);
  GstCaps* caps = gst_caps_copy(gst_sample_get_caps(paquets.front().get()));
  gst_caps_set_simple(caps, "colorimetry", G_TYPE_STRING, "bt709", nullptr);
  ASSERT_TRUE(Decodeur.Ouvre(caps));
  gst_caps_unref(caps);
  Decodeur.Envoie(gst_sample_get_buffer(paquets.front().get()));
  ASSERT_TRUE(Decodeur.Prend(Image, Vue));
  EXPECT_EQ(Vue.info.colorimetry.matrix, GST_VIDEO_COLOR_MATRIX_BT709);
  ASSERT_TRUE(OuvrePour(paquets));
  Decodeur.Envoie(gst_sample_get_buffer(paquets.front().get()));
  ASSERT_TRUE(Decodeur.Prend(Image, Vue));
  EXPECT_EQ(Vue.info.colorimetry.matrix, GST_VIDEO_COLOR_MATRIX_BT601);
}

}  // namespace
}  // namespace vaktor
