// SPDX-License-Identifier: GPL-3.0-or-later
// The photos of an alarm on their way to the site: order, turns, those that are refused, those for which there is no
// room.
#include "modules/ftp/ftp_module_bench.h"

namespace vaktor::essai {
namespace {

TEST_F(Ftp, PhotosArePublishedNewestFirstAndThenRemoved) {
  PosePhoto("b.jpg", 10);
  PosePhoto("a.jpg", 20);
  PosePhoto("notes.txt");
  Connecte();
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "b.jpg");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "") << "photos say nothing: the window shows the live image";
  EXPECT_EQ(PhotosLocales(), QStringList({"a.jpg", "notes.txt"}));
  EXPECT_EQ(Ouvrier->Travail.Nom, "a.jpg");
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(PhotosLocales(), QStringList("notes.txt"));
}

TEST_F(Ftp, ALookForPhotosUnderAnUploadTakesNoOtherForTheOneThatWentUp) {
  PosePhoto("a.jpg", 20);
  PosePhoto("b.jpg", 10);
  Connecte();
  ASSERT_EQ(Ouvrier->Travail.Nom, "b.jpg");
  QFile::remove(Temporaire.filePath("Temp/FTP/b.jpg"));  // by the user, or to make room
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(PhotosLocales(), QStringList("a.jpg"));
  EXPECT_EQ(Ouvrier->Travail.Nom, "a.jpg");
}

TEST_F(Ftp, PhotosThatAreDeletedForWantOfRoomAreTold) {
  QFile grande(Temporaire.filePath("Temp/FTP/grande.jpg"));
  ASSERT_TRUE(grande.open(QIODevice::WriteOnly));
  ASSERT_TRUE(grande.resize(201LL * 1000 * 1000));  // takes no room itself
  Temps.Avance(ModuleFtp::kRegardLent);
  EXPECT_TRUE(PhotosLocales().isEmpty());
  EXPECT_EQ(EtatLu()["subject"].toString(), "ftp-space");
}

// An outage of twenty minutes in an alarm was forty notifications.
TEST_F(Ftp, PhotosThatAreDeletedInAnOutageAreToldOnceBesideIt) {
  Publie();
  const auto deborde = [this](const QString& nom) {
    QFile grande(Temporaire.filePath("Temp/FTP/" + nom));
    ASSERT_TRUE(grande.open(QIODevice::WriteOnly));
    ASSERT_TRUE(grande.resize(201LL * 1000 * 1000));
  };
  Dit("Surve");
  Finit(IssueFtp::kPasDeConnexion);
  for (int i = 0; i < 40; ++i) {
    deborde("grande.jpg");
    Temps.Avance(ModuleFtp::kRegardLent);
    if (Ouvrier->EnCours()) Finit(IssueFtp::kPasDeConnexion);
  }
  EXPECT_EQ(Avis.size(), 3) << Avis.join('\n').toStdString();
  while (!Ouvrier->EnCours()) Temps.Avance(1000);
  Finit(IssueFtp::kReussi);
  for (int i = 0; i < 40; ++i) {  // the site takes one a second of what waits, and as many come
    PosePhoto(QStringLiteral("%1.jpg").arg(i));
    deborde("grande.jpg");
    Temps.Avance(ModuleFtp::kRegard);
    while (Ouvrier->EnCours()) Finit(IssueFtp::kReussi);
  }
  EXPECT_EQ(Avis.size(), 3) << Avis.join('\n').toStdString();
  Temps.Avance(ModuleFtp::kSansPlace);
  deborde("grande.jpg");
  if (Ouvrier->EnCours()) Finit(IssueFtp::kReussi);
  Temps.Avance(ModuleFtp::kRegardLent);
  EXPECT_EQ(Avis.size(), 4) << "and again when it happens again";
}

TEST_F(Ftp, PhotosAndLiveImagesTakeTurns) {
  for (int i = 0; i < 4; ++i) PosePhoto(QStringLiteral("%1.jpg").arg(i), 10 - i);
  Connecte();
  QStringList ordre;
  for (int i = 0; i < 8; ++i) {
    Dit("Surve");
    ordre << Ouvrier->Travail.Nom;
    Finit(IssueFtp::kReussi);
  }
  EXPECT_EQ(ordre.join(u' '), "3.jpg live.jpg 2.jpg live.jpg 1.jpg live.jpg 0.jpg live.jpg");
}

TEST_F(Ftp, PhotosThatAreRefusedWaitAndTheLiveImageGoesOn) {
  Publie();
  PosePhoto("a.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kRefus, "552 Full.");
  EXPECT_EQ(PhotosLocales(), QStringList("a.jpg"));
  EXPECT_FALSE(Ouvrier->EnCours());
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_TRUE(EtatEcrit().contains("552 Full.")) << "an image that goes through does not mean that photos do";
  Temps.Avance(ModuleFtp::kPausePhotos);
  if (Ouvrier->Travail.Genre == GenreTravail::kSigne) Finit(IssueFtp::kReussi);
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "a.jpg");
  Finit(IssueFtp::kReussi);
  EXPECT_TRUE(PhotosLocales().isEmpty());
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
}

TEST_F(Ftp, APhotoStillBeingWrittenWaitsAndOneThatNeverWillBeIsGivenUp) {
  PosePhoto("a.jpg");
  Connecte();
  Finit(IssueFtp::kSourceIncomplete);
  EXPECT_EQ(PhotosLocales(), QStringList("a.jpg"));
  PosePhoto("a.jpg", 100000);
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kSourceIncomplete);
  EXPECT_TRUE(PhotosLocales().isEmpty());
}

// Half a photo of before the clock was set back by a year would be asked for at each look until the year is over.
TEST_F(Ftp, APhotoThatNeverWillBeIsGivenUpAlsoWhenItsTimeLiesInTheFuture) {
  Connecte();
  PosePhoto("a.jpg", -366 * 86400);
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kSourceIncomplete);
  EXPECT_TRUE(PhotosLocales().isEmpty());
}

// Deleted is only what was read whole and is no picture.
TEST_F(Ftp, APhotoThatCannotBeReadAtTheMomentGoesToTheBackAndStays) {
  Publie();
  PosePhoto("a.jpg", 200'000);
  PosePhoto("b.jpg", 100'000);
  Temps.Avance(ModuleFtp::kRegard);
  ASSERT_EQ(Ouvrier->Travail.Nom, "b.jpg");
  Finit(IssueFtp::kSourceIllisible, "Too many open files");
  EXPECT_EQ(EtatLu()["subject"].toString(), "ftp-source");
  EXPECT_EQ(EtatLu()["server"].toString(), "Too many open files");
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Nom, "a.jpg") << "the connection is as good as before";
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(PhotosLocales(), QStringList("b.jpg"));
  Temps.Avance(ModuleFtp::kPausePhotos);
  while (Ouvrier->EnCours() && Ouvrier->Travail.Nom != "b.jpg") Finit(IssueFtp::kReussi);
  Finit(IssueFtp::kReussi);
  EXPECT_TRUE(PhotosLocales().isEmpty());
}

}  // namespace
}  // namespace vaktor::essai
