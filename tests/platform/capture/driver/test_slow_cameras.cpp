// SPDX-License-Identifier: GPL-3.0-or-later
// Network cameras that take their time, those that say nothing, and those that go away for a while: each takes seconds.
#include "support/network_camera.h"
#include "support/rtsp_server.h"

namespace vaktor {
namespace {

constexpr const char* kUnTousLesTroisSecondes =
    "( videotestsrc is-live=true pattern=ball ! video/x-raw,format=I420,width=320,height=240,framerate=1/3 ! jpegenc ! "
    "rtpjpegpay name=pay0 )";
// A key frame every ten seconds: whoever comes in between waits for the next one.
constexpr const char* kRareImageCle =
    "( videotestsrc is-live=true pattern=ball ! video/x-raw,format=I420,width=320,height=240,framerate=2/5 ! "
    "x264enc tune=zerolatency key-int-max=4 bframes=0 ! rtph264pay config-interval=-1 name=pay0 )";

class CamerasLentes : public PiloteReseau {
 protected:
  /// Never lost, and never opened anew.
  void Reste(int duree, int auMoins) {
    QElapsedTimer depuis;
    depuis.start();
    int images = 0;
    while (depuis.elapsed() < duree) {
      if (SaisitProchaine(*Pilote_, 200)) {
        ++images;
        EXPECT_FALSE(Pilote_->EstReprise());
      }
      EXPECT_FALSE(Pilote_->SignalPerdu()) << "after " << depuis.elapsed() << " ms";
    }
    EXPECT_GE(images, auMoins);
  }
};

TEST_F(CamerasLentes, OnePictureInThreeSecondsByMultipartConnectsAndStays) {
  Camera_ = std::make_unique<CameraReseau>(QList<QByteArray>{Jpeg(160, 120)}, 3000);
  ASSERT_TRUE(Connecte(Adresse("http://")));
  Reste(16'000, 5);
  EXPECT_EQ(Camera_->Demandes(), 1);
}

TEST_F(CamerasLentes, OnePictureInThreeSecondsByRtspConnectsAndStays) {
  const ServeurRtsp serveur(kUnTousLesTroisSecondes, GST_RTSP_LOWER_TRANS_TCP);
  ASSERT_TRUE(Connecte(serveur.Adresse()));
  Reste(13'000, 4);
}

TEST_F(CamerasLentes, AKeyFrameEveryTenSecondsConnectsInTheMiddleAndStays) {
  const ServeurRtsp serveur(kRareImageCle, GST_RTSP_LOWER_TRANS_TCP);
  PiloteGStreamer premier(
      serveur.Adresse(), Memoire_, [] { return Langue::kAnglais; }, nullptr);
  ASSERT_TRUE(premier.Connecte()) << "who is there first gets a key frame at once";
  for (int i = 0; i < 20; ++i) SaisitProchaine(premier, 100);
  QElapsedTimer depuis;
  depuis.start();
  ASSERT_TRUE(Connecte(serveur.Adresse())) << qUtf8Printable(Pilote_->Explication());
  std::printf("measured: connected after %lld ms\n", static_cast<long long>(depuis.elapsed()));
  EXPECT_GT(depuis.elapsed(), 3000) << "it was not in the middle";
  Reste(12'000, 3);
}

TEST_F(CamerasLentes, SaysNoToACameraThatAcceptsAndSaysNothing) {
  Camera_->Etat = Humeur::kMuet;
  const int descripteursAvant = Compte("/proc/self/fd");
  for (const char* schema : {"http://", "rtsp://"}) {
    QElapsedTimer depuis;
    depuis.start();
    EXPECT_TRUE(EstRefusee(Adresse(schema), 25'000));
    EXPECT_GE(depuis.elapsed(), 14'000) << "all of its time";
    EXPECT_EQ(Pilote_->Pourquoi().Quoi, Motif::kMuette) << schema;
  }
  QElapsedTimer arret;
  arret.start();
  Pilote_->Deconnecte();
  EXPECT_LT(arret.elapsed(), 1500);
  EXPECT_GT(Camera_->Demandes(), 0);
  // Both sides of a connection count here; the server's close a moment later.
  while (Compte("/proc/self/fd") > descripteursAvant + 4 && arret.elapsed() < 4000) QThread::msleep(20);
  EXPECT_LE(Compte("/proc/self/fd"), descripteursAvant + 4);
}

TEST_F(CamerasLentes, SaysNoToACameraWhosePicturesAreNone) {
  Camera_->Etat = Humeur::kImagesFausses;
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 25'000));
  EXPECT_EQ(Pilote_->Pourquoi().Quoi, Motif::kSansImageEntiere);
}

// Switched off, for longer than its connection lives, and on again at the same place.
TEST_F(CamerasLentes, ACameraThatWasAwayIsTakenAgainByItself) {
  ASSERT_TRUE(Connecte(Adresse("http://")));
  ASSERT_GE(Recueille(500).Images, 3);
  const quint16 port = Camera_->Port();
  Camera_.reset();
  EXPECT_TRUE(AttendSignalPerdu(true, 8000));
  Recueille(6000);
  EXPECT_EQ(Pilote_->Explication(), DitRaison({Motif::kPorteFermee, {}}, Langue::kAnglais));
  Camera_ = std::make_unique<CameraReseau>(QList<QByteArray>{Jpeg(160, 120)}, 100, port);
  ASSERT_EQ(Camera_->Port(), port);
  EXPECT_TRUE(AttendSignalPerdu(false, 25'000));
  Recueille(500);
  EXPECT_EQ(Pilote_->Explication(), "");
}

// The remembered camera is gone, nobody is there to be asked: it is taken as soon as it is there.
TEST_F(CamerasLentes, WithoutAWaitItIsTriedUntilItComes) {
  const quint16 port = Camera_->Port();
  Camera_.reset();
  Pilote_ = std::make_unique<PiloteGStreamer>(
      QStringLiteral("http://127.0.0.1:%1/video").arg(port), Memoire_, [] { return Langue::kAnglais; }, nullptr);
  QElapsedTimer depuis;
  depuis.start();
  Pilote_->ConnecteSansAttendre();
  EXPECT_LT(depuis.elapsed(), 1000);
  while (Pilote_->Explication().isEmpty() && depuis.elapsed() < 10'000) SaisitProchaine(*Pilote_, 50);
  EXPECT_EQ(Pilote_->Explication(), DitRaison({Motif::kPorteFermee, {}}, Langue::kAnglais));
  EXPECT_FALSE(Pilote_->ImagePrete());
  EXPECT_TRUE(Pilote_->SignalPerdu() || depuis.elapsed() < 15'000);
  Camera_ = std::make_unique<CameraReseau>(QList<QByteArray>{Jpeg(160, 120)}, 100, port);
  while (!Pilote_->ImagePrete() && depuis.elapsed() < 40'000) SaisitProchaine(*Pilote_, 0);
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
}

}  // namespace
}  // namespace vaktor
