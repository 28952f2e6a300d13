// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "base/failure.h"
#include "fakes/fake_files.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_jpeg_writer.h"
#include "fakes/virtual_clock.h"
#include "image/photo_recorder.h"

namespace vaktor {
namespace {

class PhotoRecorder : public testing::Test {
 protected:
  PhotoRecorder() {
    Reglages.RepertoirePhoto = QStringLiteral("/home/anna/photos");
    Reglages.PhotoActif = true;
    Reglages.QualiteJpeg = 20;
    Surface.Pose(Photo(Qt::red));
    Temps.Date = QDate(2026, 11, 15);
    Temps.Debut = QTime(14, 5, 9);
    Recorder.FixeDateJour();
  }

  static QImage Photo(Qt::GlobalColor couleur) {
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(couleur);
    return image;
  }

  void Enregistre(int fois) {
    for (int i = 0; i < fois; ++i) Recorder.EnregistrePhoto();
  }
  qsizetype Photos() const { return Ecrivain.Appels.size(); }
  QString DernierFichier() const { return Ecrivain.Appels.last().Fichier; }

  Parametres Reglages;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/home/anna/donnees")};
  SurfaceImage Surface;
  faux::HorlogeVirtuelle Temps;
  FauxEcrivainJpeg Ecrivain;
  FauxFichiers Disque;
  bool Live = false;
  faux::SanteFausse Sante;
  EnregistreurPhotos Recorder{{Reglages, Dossiers, Surface, Temps, Ecrivain, Disque, [this] { return Live; }, Sante}};
};

TEST_F(PhotoRecorder, WhoeverIsToldOfAPhotoHearsTheNameThatItGot) {
  QStringList dits;
  EnregistreurPhotos recorder{{Reglages,
                               Dossiers,
                               Surface,
                               Temps,
                               Ecrivain,
                               Disque,
                               [] { return true; },
                               Sante,
                               {},
                               [&](const QString& fichier) { dits << QStringLiteral("photo ") + fichier; },
                               [&](const QString& fichier) { dits << QStringLiteral("copy ") + fichier; }}};
  recorder.FixeDateJour();
  Reglages.RepertoirePhoto = QStringLiteral("/home/anna\\photos");
  Ecrivain.DejaPris = QStringLiteral("a.jpg");
  recorder.EnregistrePhoto();
  EXPECT_EQ(dits,
            (QStringList{QStringLiteral("photo /home/anna/photos/2026-11-15  14-05-09 Photo 00001a.jpg"),
                         QStringLiteral("copy /home/anna/donnees/Temp/FTP/2026-11-15  14-05-09 Photo 00001a.jpg")}));
  Ecrivain.EchecsAVenir = 1;
  EXPECT_THROW(recorder.EnregistrePhoto(), Echec);
  EXPECT_EQ(dits.size(), 2) << "of one that failed nobody hears";
}

TEST_F(PhotoRecorder, TheThirdPhotoHasItsName) {
  Enregistre(3);
  EXPECT_EQ(DernierFichier(), QStringLiteral("/home/anna/photos/2026-11-15  14-05-09 Photo 00003.jpg"));
}

TEST_F(PhotoRecorder, TheTimeIsATwentyFourHourClockOfTwoDigitsEach) {
  Temps.Debut = QTime(0, 0, 7);
  Enregistre(1);
  EXPECT_TRUE(DernierFichier().contains(QStringLiteral("  00-00-07 "))) << qPrintable(DernierFichier());
  Temps.Debut = QTime(23, 59, 59);
  Enregistre(1);
  EXPECT_TRUE(DernierFichier().contains(QStringLiteral("  23-59-59 "))) << qPrintable(DernierFichier());
}

TEST_F(PhotoRecorder, TheUsersCopyHasQuality50WhateverTheLiveQuality) {
  Reglages.QualiteJpeg = 100;
  Enregistre(1);
  EXPECT_EQ(Ecrivain.Appels.last().Qualite, 50);
}

TEST_F(PhotoRecorder, TheSecondCopyHasTheSameNameInItsFolderAtTheLiveQuality) {
  Live = true;
  Enregistre(1);
  ASSERT_EQ(Photos(), 2);
  EXPECT_EQ(Ecrivain.Appels[0].Fichier, QStringLiteral("/home/anna/photos/2026-11-15  14-05-09 Photo 00001.jpg"));
  EXPECT_EQ(Ecrivain.Appels[0].Qualite, 50);
  EXPECT_EQ(Ecrivain.Appels[1].Fichier,
            QStringLiteral("/home/anna/donnees/Temp/FTP/2026-11-15  14-05-09 Photo 00001.jpg"));
  EXPECT_EQ(Ecrivain.Appels[1].Qualite, 20);
}

TEST_F(PhotoRecorder, AQualityIndexOutsideItsTableGivesQualityZero) {
  Live = true;
  Reglages.QualiteJpeg = 0;
  Enregistre(1);
  EXPECT_EQ(Ecrivain.Appels[1].Qualite, 0);
}

TEST_F(PhotoRecorder, TheJoiningSlashIsNeitherTurnedNorDropped) {
  Reglages.RepertoirePhoto = QStringLiteral("/home/anna/Vaktor\\intrus");
  Enregistre(1);
  EXPECT_TRUE(DernierFichier().startsWith(QStringLiteral("/home/anna/Vaktor\\intrus/2026")));
  Reglages.RepertoirePhoto = QStringLiteral("/home/anna/photos/");
  Enregistre(1);
  EXPECT_TRUE(DernierFichier().startsWith(QStringLiteral("/home/anna/photos//2026")));
}

TEST_F(PhotoRecorder, PhotosTakeThePictureAndNotTheOutlines) {
  Surface.Dessine({0, 0, 4, 3});
  Live = true;
  Enregistre(1);
  ASSERT_EQ(Ecrivain.Appels.size(), 2);
  for (const auto& appel : Ecrivain.Appels) EXPECT_EQ(appel.Image.constBits(), Surface.Image().constBits());
  EXPECT_EQ(Ecrivain.Appels[0].Image, Photo(Qt::red));
}

TEST_F(PhotoRecorder, EachPhotoTakesThePictureOfItsMoment) {
  Enregistre(1);
  Surface.Pose(Photo(Qt::green));
  Enregistre(1);
  EXPECT_EQ(Ecrivain.Appels[0].Image, Photo(Qt::red));
  EXPECT_EQ(Ecrivain.Appels[1].Image, Photo(Qt::green));
}

TEST_F(PhotoRecorder, WithoutFrameTheEmptyPictureGoesToTheWriter) {
  Surface.Retire();
  Enregistre(1);
  EXPECT_TRUE(Ecrivain.Appels.last().Image.isNull());
}

TEST_F(PhotoRecorder, ARunSavesOnePhotoLessThanItsLimit) {
  Reglages.NombrePhotoMax = 100;
  Enregistre(150);
  EXPECT_EQ(Photos(), 99);
  EXPECT_TRUE(Ecrivain.Appels.first().Fichier.endsWith(QStringLiteral("Photo 001.jpg")));
  EXPECT_TRUE(Ecrivain.Appels.last().Fichier.endsWith(QStringLiteral("Photo 099.jpg")));
  EXPECT_EQ(Recorder.CompteurPhotos(), 150);
}

TEST_F(PhotoRecorder, TheDefaultLimitNumbersUpTo09999) {
  Enregistre(10'001);
  EXPECT_EQ(Photos(), 9'999);
  EXPECT_TRUE(Ecrivain.Appels.first().Fichier.endsWith(QStringLiteral("Photo 00001.jpg")));
  EXPECT_TRUE(Ecrivain.Appels.last().Fichier.endsWith(QStringLiteral("Photo 09999.jpg")));
}

TEST_F(PhotoRecorder, ALimitOfZeroOrOneWritesNoUsersCopyButTheSecond) {
  Live = true;
  for (const qint32 limite : {0, 1}) {
    EnregistreurPhotos neuf{{Reglages, Dossiers, Surface, Temps, Ecrivain, Disque, [] { return true; }, Sante}};
    neuf.FixeDateJour();
    Reglages.NombrePhotoMax = limite;
    Ecrivain.Appels.clear();
    neuf.EnregistrePhoto();
    ASSERT_EQ(Photos(), 1) << limite;
    EXPECT_EQ(DernierFichier(), QStringLiteral("/home/anna/donnees/Temp/FTP/2026-11-15  14-05-09 Photo 1.jpg"));
  }
}

TEST_F(PhotoRecorder, TheSecondCopyKnowsNoLimit) {
  Live = true;
  Reglages.NombrePhotoMax = 3;
  Enregistre(12);
  EXPECT_EQ(Photos(), 2 + 12);
  EXPECT_TRUE(DernierFichier().endsWith(QStringLiteral("Photo 12.jpg"))) << "a longer number is written in full";
}

TEST_F(PhotoRecorder, ANegativeLimitCountsItsSignAsADigit) {
  // The width is the length of the limit's decimal text, whatever stands in it.
  Live = true;
  Reglages.NombrePhotoMax = -5;
  Enregistre(1);
  ASSERT_EQ(Photos(), 1);
  EXPECT_TRUE(DernierFichier().endsWith(QStringLiteral("Photo 01.jpg"))) << qPrintable(DernierFichier());
}

TEST_F(PhotoRecorder, ALoweredLimitStopsAtOnceAndARaisedOneLeavesAGap) {
  Reglages.NombrePhotoMax = 100;
  Enregistre(2);
  Reglages.NombrePhotoMax = 2;
  Enregistre(3);
  EXPECT_EQ(Photos(), 2);
  Reglages.NombrePhotoMax = 1000;
  Enregistre(1);
  EXPECT_EQ(Photos(), 3);
  EXPECT_TRUE(DernierFichier().endsWith(QStringLiteral("Photo 0006.jpg"))) << qPrintable(DernierFichier());
}

TEST_F(PhotoRecorder, TwoPhotosOfOneSecondDifferByTheirNumberAlone) {
  Enregistre(2);
  EXPECT_EQ(QString(Ecrivain.Appels[0].Fichier).replace(QStringLiteral("00001"), QStringLiteral("00002")),
            Ecrivain.Appels[1].Fichier);
}

TEST_F(PhotoRecorder, WithPhotosOffAndLiveOnOnlyTheSecondFolderReceivesAndTheCounterAdvances) {
  Reglages.PhotoActif = false;
  Live = true;
  Enregistre(2);
  EXPECT_EQ(Photos(), 2);
  EXPECT_EQ(DernierFichier(), QStringLiteral("/home/anna/donnees/Temp/FTP/2026-11-15  14-05-09 Photo 00002.jpg"));
  Reglages.PhotoActif = true;
  Live = false;
  Enregistre(1);
  EXPECT_TRUE(DernierFichier().endsWith(QStringLiteral("Photo 00003.jpg"))) << "second copies use up numbers as well";
}

TEST_F(PhotoRecorder, WithBothOffTheCounterAdvancesAllTheSame) {
  Reglages.PhotoActif = false;
  Enregistre(4);
  EXPECT_EQ(Photos(), 0);
  EXPECT_EQ(Recorder.CompteurPhotos(), 4);
}

TEST_F(PhotoRecorder, PastMidnightTheDateStaysAndTheTimeGoesOn) {
  Temps.Debut = QTime(23, 59, 0);
  Recorder.FixeDateJour();
  Temps.Millisecondes = 2LL * 60 * 1000;
  ASSERT_EQ(Temps.DonneDate(), QDate(2026, 11, 16));
  Enregistre(1);
  EXPECT_EQ(DernierFichier(), QStringLiteral("/home/anna/photos/2026-11-15  00-01-00 Photo 00001.jpg"));
  EXPECT_EQ(Recorder.DateJour(), QStringLiteral("2026-11-15"));
}

TEST_F(PhotoRecorder, AFailedFirstCopySkipsTheSecondAndTheNumberStaysUsed) {
  Live = true;
  Ecrivain.EchecsAVenir = 1;
  EXPECT_THROW(Recorder.EnregistrePhoto(), Echec);
  EXPECT_EQ(Photos(), 1) << "the second copy is not tried";
  EXPECT_EQ(Recorder.CompteurPhotos(), 1);
  Recorder.EnregistrePhoto();
  EXPECT_EQ(Photos(), 3);
  EXPECT_TRUE(DernierFichier().endsWith(QStringLiteral("Photo 00002.jpg")));
}

TEST_F(PhotoRecorder, TheFailureGoesUpAsTheWriterRaisedIt) {
  Ecrivain.EchecsAVenir = 1;
  Ecrivain.StatutDesEchecs = 10;
  try {
    Recorder.EnregistrePhoto();
    FAIL() << "nothing thrown";
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), kAppelIncorrect);
    EXPECT_EQ(echec.Description(), QStringLiteral("Cannot save the image. GDI+ Error:10"));
  }
}

TEST_F(PhotoRecorder, SavingAsksNothingAboutTheDisk) {
  Disque.OctetsLibres = 0;
  Live = true;
  Enregistre(2);
  EXPECT_EQ(Photos(), 4);
  EXPECT_TRUE(Disque.EspacesDemandes.isEmpty());
}

TEST_F(PhotoRecorder, TheWarningComesStrictlyBelow500MillionBytes) {
  Disque.OctetsLibres = 500'000'000;
  EXPECT_FALSE(Recorder.VerifieEspaceDisque());
  Disque.OctetsLibres = 499'999'999;
  EXPECT_TRUE(Recorder.VerifieEspaceDisque());
  EXPECT_TRUE(Reglages.PhotoActif) << "a warning only";
}

TEST_F(PhotoRecorder, WithNoFolderChosenNothingIsAsked) {
  Reglages.RepertoirePhoto.clear();
  Disque.OctetsLibres = 0;
  EXPECT_FALSE(Recorder.VerifieEspaceDisque());
  EXPECT_TRUE(Disque.EspacesDemandes.isEmpty());
}

TEST_F(PhotoRecorder, TheDiskIsTheTextUpToAndIncludingTheFirstBackslash) {
  Reglages.RepertoirePhoto = QStringLiteral("C:\\photos\\intrus");
  Recorder.VerifieEspaceDisque();
  Reglages.RepertoirePhoto = QStringLiteral("/home/anna/Vaktor\\intrus");
  Recorder.VerifieEspaceDisque();
  EXPECT_EQ(Disque.EspacesDemandes, QStringList({QStringLiteral("C:\\"), QStringLiteral("/home/anna/Vaktor\\")}));
}

TEST_F(PhotoRecorder, AFolderWithoutBackslashIsAskedAboutItself) {
  Recorder.VerifieEspaceDisque();
  EXPECT_EQ(Disque.EspacesDemandes, QStringList{QStringLiteral("/home/anna/photos")});
}

TEST_F(PhotoRecorder, AFailedQueryKeepsTheValueBefore) {
  Disque.OctetsLibres = std::nullopt;
  EXPECT_TRUE(Recorder.VerifieEspaceDisque()) << "0 bytes at the start";
  Disque.OctetsLibres = 900'000'000;
  EXPECT_FALSE(Recorder.VerifieEspaceDisque());
  Disque.OctetsLibres = std::nullopt;
  EXPECT_FALSE(Recorder.VerifieEspaceDisque());
  Disque.OctetsLibres = 1;
  EXPECT_TRUE(Recorder.VerifieEspaceDisque());
  Disque.OctetsLibres = std::nullopt;
  EXPECT_TRUE(Recorder.VerifieEspaceDisque());
}

}  // namespace
}  // namespace vaktor
