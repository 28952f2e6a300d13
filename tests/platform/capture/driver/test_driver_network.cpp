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
  ASSERT_GE(Recueille(500).Images, 3) << "so that its gaps are known";
  EXPECT_FALSE(Pilote_->EstReprise());
  Camera_->Etat = Humeur::kCale;
  EXPECT_TRUE(AttendSignalPerdu(true, 6000));
  EXPECT_FALSE(Pilote_->CopieTrame().Entiere().isNull()) << "the last frame stays";
  QElapsedTimer appel;
  appel.start();
  for (int i = 0; i < 50; ++i) EXPECT_FALSE(Pilote_->SaisitImage());
  EXPECT_LT(appel.elapsed(), 1000) << "the window's thread waits for no frame";
  while (Camera_->Demandes() < 2 && appel.elapsed() < 10'000) SaisitProchaine(*Pilote_);
  Camera_->Etat = Humeur::kFilme;
  bool reprise = false;
  while (!reprise && appel.elapsed() < 30'000) reprise = SaisitProchaine(*Pilote_) && Pilote_->EstReprise();
  EXPECT_TRUE(reprise) << "the first frame says that the camera was lost";
  EXPECT_FALSE(Pilote_->SignalPerdu());
  EXPECT_TRUE(SaisitProchaine(*Pilote_, 2000));
  EXPECT_FALSE(Pilote_->EstReprise()) << "and only the first";
}

// Cameras have one for their last picture; it is compared with the one before, as those of a film are.
TEST_F(PiloteReseau, AnAddressOfOnePictureIsAskedForOneAfterTheOther) {
  Camera_->DonneFichier(Jpeg(160, 120));
  ASSERT_TRUE(Connecte(Adresse("http://", "/image.jpg")));
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(SaisitProchaine(*Pilote_, 8000)) << i;
    EXPECT_FALSE(Pilote_->EstReprise()) << i;
    EXPECT_FALSE(Pilote_->SignalPerdu()) << i;
  }
  EXPECT_GE(Camera_->Demandes(), 3);
}

TEST_F(PiloteReseau, SaysNoToNonsenseAndSaysWhy) {
  const auto pourquoi = [this](const QString& ou) {
    EXPECT_TRUE(EstRefusee(ou, 14'000)) << qUtf8Printable(ou);
    return Pilote_->Pourquoi();
  };
  Camera_->Etat = Humeur::kFouillis;
  EXPECT_EQ(pourquoi(Adresse("http://")).Quoi, Motif::kPasUneImage);
  EXPECT_TRUE(EstRefusee(Adresse("rtsp://"), 14'000));
  Camera_->Etat = Humeur::kPageWeb;
  EXPECT_EQ(pourquoi(Adresse("http://")).Quoi, Motif::kPasUneImage);
  Camera_->Etat = Humeur::kPasTrouve;
  EXPECT_EQ(pourquoi(Adresse("http://")).Quoi, Motif::kPasTrouve);
  Camera_->Etat = Humeur::kInterdit;
  EXPECT_EQ(pourquoi(Adresse("http://")).Quoi, Motif::kInterdit);
  Camera_->Etat = Humeur::kEnPanne;
  EXPECT_EQ(pourquoi(Adresse("http://")), (Raison{Motif::kErreurServeur, QStringLiteral("503")}));
  Camera_->Etat = Humeur::kFilme;
  EXPECT_EQ(pourquoi(Adresse("http://", "/ferme")).Quoi, Motif::kMotDePasse);
  EXPECT_EQ(pourquoi(Adresse("https://")).Quoi, Motif::kInconnu) << "it does not speak TLS";
  for (const char* schema : {"http://", "rtsp://"}) {
    EXPECT_EQ(pourquoi(QLatin1String(schema) + QStringLiteral("127.0.0.1:1/x")).Quoi, Motif::kPorteFermee) << schema;
    EXPECT_EQ(pourquoi(QLatin1String(schema) + QStringLiteral("no.such.host.invalid/x")).Quoi, Motif::kHoteInconnu);
    EXPECT_EQ(pourquoi(QLatin1String(schema)).Quoi, Motif::kHoteInconnu);
  }
  EXPECT_TRUE(EstRefusee(QStringLiteral("rtsp://::::/"), 14'000));
}

// What is said of a camera is read aloud, mailed and shown to whoever comes by.
TEST_F(PiloteReseau, TheReasonNeverHoldsThePassword) {
  Camera_->Etat = Humeur::kInterdit;
  EXPECT_FALSE(Connecte(Adresse("http://anna:tresSecret@")));
  EXPECT_EQ(Pilote_->Explication(), DitRaison({Motif::kInterdit, {}}, Langue::kAnglais));
  EXPECT_FALSE(Pilote_->Explication().contains("tresSecret"));
}

// Pictures that are none, in the middle of a good stream: they are dropped, and that is a lost signal like any other.
TEST_F(PiloteReseau, ComesBackAfterPicturesThatAreNone) {
  ASSERT_TRUE(Connecte(Adresse("http://")));
  ASSERT_GE(Recueille(500).Images, 3) << "so that its gaps are known";
  Camera_->Etat = Humeur::kImagesFausses;
  EXPECT_TRUE(AttendSignalPerdu(true, 8000));
  EXPECT_EQ(Pilote_->CopieTrame().Entiere().size(), QSize(160, 120)) << "the last good frame stays";
  Camera_->Etat = Humeur::kFilme;
  EXPECT_TRUE(AttendSignalPerdu(false, 15'000));
}

TEST_F(PiloteReseau, FollowsACameraThatChangesItsSizeInMidStream) {
  Camera_ =
      std::make_unique<CameraReseau>(QList<QByteArray>{Jpeg(160, 120), Jpeg(161, 33), Jpeg(1, 1), Jpeg(640, 480)});
  ASSERT_TRUE(Connecte(Adresse("http://")));
  EXPECT_EQ(Recueille(2500).Tailles, (std::set<std::pair<int, int>>{{1, 1}, {160, 120}, {161, 33}, {640, 480}}));
}

}  // namespace
}  // namespace vaktor
