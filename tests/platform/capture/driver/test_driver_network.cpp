// SPDX-License-Identifier: GPL-3.0-or-later
// Network cameras, good and bad ones.
#include "support/network_camera.h"

namespace vaktor {
namespace {

TEST_F(PiloteReseau, ShowsAWebCamera) {
  ASSERT_TRUE(Connecte(Adresse("http://")));
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kReseau);
  const Recolte recolte = Recueille(2000);
  EXPECT_GE(recolte.Images, 12);
  EXPECT_EQ(recolte.Tailles, (std::set<std::pair<int, int>>{{160, 120}}));
}

TEST_F(PiloteReseau, GivesThePasswordToTheCameraAndToNobodyElse) {
  ASSERT_TRUE(Connecte(Adresse("http://jean:tresSecret@", "/ferme")));
  EXPECT_TRUE(Camera_->VuAutorisation());
  EXPECT_FALSE(Pilote_->DescriptionSource().contains(QStringLiteral("tresSecret")));
  EXPECT_TRUE(Pilote_->DescriptionSource().contains(QStringLiteral("127.0.0.1")));
}

// It stalls, for long; then it is back, and so is the picture. Nobody tells the driver of either.
TEST_F(PiloteReseau, ComesBackAfterAStall) {
  ASSERT_TRUE(Connecte(Adresse("http://")));
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_FALSE(Pilote_->EstReprise());
  Camera_->Etat = Humeur::kCale;
  EXPECT_TRUE(AttendSignalPerdu(true, 6000));
  EXPECT_FALSE(Pilote_->CopieTrame().Entiere().isNull()) << "the last frame stays";
  QElapsedTimer appel;
  appel.start();
  for (int i = 0; i < 50; ++i) EXPECT_FALSE(Pilote_->SaisitImage());
  EXPECT_LT(appel.elapsed(), 1000) << "the window's thread waits for no frame";
  Camera_->Etat = Humeur::kFilme;
  bool reprise = false;
  while (!reprise && appel.elapsed() < 15'000) reprise = SaisitProchaine(*Pilote_) && Pilote_->EstReprise();
  EXPECT_TRUE(reprise) << "the first frame says that the camera was lost";
  EXPECT_FALSE(Pilote_->SignalPerdu());
  EXPECT_TRUE(SaisitProchaine(*Pilote_, 2000));
  EXPECT_FALSE(Pilote_->EstReprise()) << "and only the first";
}

TEST_F(PiloteReseau, SaysNoToNonsenseAndSilence) {
  Camera_->Etat = Humeur::kFouillis;
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 9000));
  EXPECT_TRUE(EstRefusee(Adresse("rtsp://"), 9000));
  Camera_->Etat = Humeur::kPasTrouve;
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("http://127.0.0.1:1/x"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("rtsp://127.0.0.1:1/x"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("http://"), 9000));
  EXPECT_TRUE(EstRefusee(QStringLiteral("rtsp://::::/"), 9000));
}

TEST_F(PiloteReseau, SaysNoToACameraThatAcceptsAndSaysNothing) {
  Camera_->Etat = Humeur::kMuet;
  const int descripteursAvant = Compte("/proc/self/fd");
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 9000));
  EXPECT_TRUE(EstRefusee(Adresse("rtsp://"), 9000));
  QElapsedTimer arret;
  arret.start();
  Pilote_->Deconnecte();
  EXPECT_LT(arret.elapsed(), 1500);
  EXPECT_GT(Camera_->Demandes(), 0);
  // Both sides of a connection count here; the server's close a moment later.
  QElapsedTimer depuis;
  depuis.start();
  while (Compte("/proc/self/fd") > descripteursAvant + 4 && depuis.elapsed() < 3000) QThread::msleep(20);
  EXPECT_LE(Compte("/proc/self/fd"), descripteursAvant + 4);
}

// Pictures that are none, in the middle of a good stream: they are dropped, and that is a lost signal like any other.
TEST_F(PiloteReseau, ComesBackAfterPicturesThatAreNone) {
  ASSERT_TRUE(Connecte(Adresse("http://")));
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  Camera_->Etat = Humeur::kImagesFausses;
  EXPECT_TRUE(AttendSignalPerdu(true, 8000));
  EXPECT_EQ(Pilote_->CopieTrame().Entiere().size(), QSize(160, 120)) << "the last good frame stays";
  Camera_->Etat = Humeur::kFilme;
  EXPECT_TRUE(AttendSignalPerdu(false, 15'000));
}

TEST_F(PiloteReseau, SaysNoToACameraWhosePicturesAreNone) {
  Camera_->Etat = Humeur::kImagesFausses;
  EXPECT_TRUE(EstRefusee(Adresse("http://"), 9000));
}

TEST_F(PiloteReseau, FollowsACameraThatChangesItsSizeInMidStream) {
  Camera_ =
      std::make_unique<CameraReseau>(QList<QByteArray>{Jpeg(160, 120), Jpeg(161, 33), Jpeg(1, 1), Jpeg(640, 480)});
  ASSERT_TRUE(Connecte(Adresse("http://")));
  EXPECT_EQ(Recueille(2500).Tailles, (std::set<std::pair<int, int>>{{1, 1}, {160, 120}, {161, 33}, {640, 480}}));
}

}  // namespace
}  // namespace vaktor
