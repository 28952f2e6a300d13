// SPDX-License-Identifier: GPL-3.0-or-later
// The place of the photos while armed, in virtual time.
#include <gtest/gtest.h>

#include <cerrno>

#include "fakes/fake_files.h"
#include "fakes/fake_flush_losses.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_jpeg_writer.h"
#include "fakes/fake_space_query.h"
#include "fakes/fake_write_trial.h"
#include "fakes/virtual_clock.h"
#include "fakes/virtual_timers.h"
#include "image/photo_watch.h"

namespace vaktor {
namespace {

constexpr qint64 kSeuil = 500'000'000;

class PhotoWatch : public testing::Test {
 protected:
  PhotoWatch() {
    Reglages.RepertoirePhoto = QStringLiteral("/home/anna/Vaktor\\intrus");
    Reglages.PhotoActif = true;
    Reglages.NombrePhotoMax = 100;
    Photos.FixeDateJour();
  }
  bool PeuDePlace() const { return Sante.Dure(Condition::kPeuDePlace); }
  bool Impossibles() const { return Sante.Dure(Condition::kPhotosImpossibles); }
  bool Limite() const { return Sante.Dure(Condition::kLimitePhotos); }
  /// Arms and lets the first answer come.
  void ArmeAvec(qint64 libres) {
    Armee = true;
    Temps.Avance(1000);
    Sonde.Repond(libres);
  }

  Parametres Reglages;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/home/anna/donnees")};
  SurfaceImage Surface;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  FauxEcrivainJpeg Ecrivain;
  FauxFichiers Disque;
  faux::SanteFausse Sante;
  faux::SondeEspaceFausse Sonde;
  faux::EssaiEcritureFaux Essai;
  faux::PertesFausses Pertes;
  bool Armee = false;
  bool Live = false;
  bool Bienvenue = true;
  EnregistreurPhotos Photos{{Reglages, Dossiers, Surface, Horloge, Ecrivain, Disque, [this] { return Live; }, Sante,
                             [this] { return Bienvenue; }}};
  VeillePhotos Veille{{Reglages, Photos, Temps, Sonde, Essai, Pertes, Sante, [this] { return Armee; }}};
};

TEST_F(PhotoWatch, AsksNothingWhileNotArmed) {
  Temps.Avance(600'000);
  EXPECT_TRUE(Sonde.Demandes.isEmpty());
}

TEST_F(PhotoWatch, ADiskThatCannotTellIsNotAFullOne) {
  Armee = true;
  Temps.Avance(1000);
  Sonde.Repond(std::nullopt);
  EXPECT_FALSE(PeuDePlace());
}

TEST_F(PhotoWatch, AnAnswerThatComesWhenItHasGoneReachesNobody) {
  {
    const VeillePhotos autre({Reglages, Photos, Temps, Sonde, Essai, Pertes, Sante, [] { return false; }});
    EXPECT_EQ(Sonde.Oublis + Essai.Oublis, 0);
  }
  EXPECT_EQ(Sonde.Oublis, 1);
  EXPECT_EQ(Essai.Oublis, 1);
}

TEST_F(PhotoWatch, AsksAtOnceWhenArmedAndThenOnceAMinute) {
  Armee = true;
  Temps.Avance(1000);
  EXPECT_EQ(Sonde.Demandes, QStringList{Reglages.RepertoirePhoto});
  Sonde.Repond(kSeuil);
  Temps.Avance(59'000);
  EXPECT_EQ(Sonde.Demandes.size(), 1);
  Temps.Avance(1000);
  EXPECT_EQ(Sonde.Demandes.size(), 2);
  Sonde.Repond(kSeuil);
  Temps.Avance(600'000);
  EXPECT_EQ(Sonde.Demandes.size(), 12);
}

TEST_F(PhotoWatch, LittleRoomIsToldStrictlyBelow500MillionBytesAndEndsWithTheNextAnswer) {
  ArmeAvec(kSeuil);
  EXPECT_FALSE(PeuDePlace());
  Temps.Avance(60'000);
  Sonde.Repond(kSeuil - 1);
  ASSERT_TRUE(PeuDePlace());
  EXPECT_EQ(Sante.Details.value(Condition::kPeuDePlace), QStringLiteral("/home/anna/Vaktor/intrus"));
  Temps.Avance(60'000);
  Sonde.Repond(kSeuil);
  EXPECT_FALSE(PeuDePlace());
}

TEST_F(PhotoWatch, ADiskThatDoesNotTellOrDoesNotAnswerChangesNothing) {
  ArmeAvec(1);
  Temps.Avance(60'000);
  Sonde.Repond(std::nullopt);
  EXPECT_TRUE(PeuDePlace());
  Temps.Avance(600'000);
  EXPECT_TRUE(PeuDePlace());
  Sonde.Repond(kSeuil);
  EXPECT_FALSE(PeuDePlace());
}

TEST_F(PhotoWatch, LittleRoomEndsWhenDisarmedAndALateAnswerFindsNobody) {
  ArmeAvec(1);
  Temps.Avance(60'000);
  Armee = false;
  Temps.Avance(1000);
  EXPECT_FALSE(PeuDePlace());
  Sonde.Repond(1);
  EXPECT_FALSE(PeuDePlace());
  Armee = true;
  Temps.Avance(1000);
  EXPECT_EQ(Sonde.Demandes.size(), 3) << "armed again: asked at once";
}

TEST_F(PhotoWatch, WithPhotosOffOrNoFolderNothingIsAskedAndLittleRoomEnds) {
  ArmeAvec(1);
  Reglages.PhotoActif = false;
  Temps.Avance(1000);
  EXPECT_FALSE(PeuDePlace());
  Reglages.PhotoActif = true;
  Reglages.RepertoirePhoto.clear();
  Temps.Avance(120'000);
  EXPECT_EQ(Sonde.Demandes.size(), 1);
}

TEST_F(PhotoWatch, AnotherFolderIsAskedAboutAtOnce) {
  ArmeAvec(1);
  Reglages.RepertoirePhoto = QStringLiteral("/media/grand");
  Temps.Avance(1000);
  EXPECT_FALSE(PeuDePlace()) << "of the new one nothing is known yet";
  EXPECT_EQ(Sonde.Demandes.last(), Reglages.RepertoirePhoto);
  Sonde.Repond(1);
  EXPECT_TRUE(PeuDePlace());
}

TEST_F(PhotoWatch, TheLimitIsToldWithTheLastPhotoOfTheRun) {
  Armee = true;
  for (int i = 0; i < 98; ++i) Photos.EnregistrePhoto();
  EXPECT_FALSE(Limite());
  Photos.EnregistrePhoto();
  EXPECT_TRUE(Limite()) << "number 99 of 99";
  EXPECT_EQ(Sante.Details.value(Condition::kLimitePhotos), QStringLiteral("100"));
  Photos.EnregistrePhoto();
  Temps.Avance(10'000);
  EXPECT_EQ(Sante.Debuts.value(Condition::kLimitePhotos), 1);
}

TEST_F(PhotoWatch, TheLimitThatIsRaisedIsNoneAnyMore) {
  for (int i = 0; i < 99; ++i) Photos.EnregistrePhoto();
  ASSERT_TRUE(Limite());
  Reglages.NombrePhotoMax = 101;
  Temps.Avance(1000);
  EXPECT_FALSE(Limite());
}

TEST_F(PhotoWatch, TheLimitThatIsReachedAgainIsToldAgain) {
  Armee = true;
  for (int i = 0; i < 99; ++i) Photos.EnregistrePhoto();
  Reglages.NombrePhotoMax = 200;
  Temps.Avance(1000);
  ASSERT_FALSE(Limite());
  Reglages.NombrePhotoMax = 100;
  Temps.Avance(1000);
  EXPECT_TRUE(Limite());
}

TEST_F(PhotoWatch, WithPhotosOffThereIsNoLimit) {
  for (int i = 0; i < 99; ++i) Photos.EnregistrePhoto();
  ASSERT_TRUE(Limite());
  Reglages.PhotoActif = false;
  Temps.Avance(1000);
  EXPECT_FALSE(Limite());
}

TEST_F(PhotoWatch, ALimitThatLetsNoPhotoThroughIsToldBeforeTheFirstAlarmButOnlyWhenArmed) {
  Reglages.NombrePhotoMax = 1;
  Temps.Avance(5000);
  EXPECT_FALSE(Limite());
  Armee = true;
  Temps.Avance(1000);
  EXPECT_TRUE(Limite());
  Armee = false;
  Temps.Avance(5000);
  EXPECT_TRUE(Limite()) << "it goes with its cause and not with the alarm";
}

TEST_F(PhotoWatch, PhotosThatFailedAndAreSwitchedOffDoNotFailAnyMore) {
  Armee = true;
  Ecrivain.EchecsAVenir = 1;
  EXPECT_THROW(Photos.EnregistrePhoto(), Echec);
  ASSERT_TRUE(Sante.Dure(Condition::kPhotosImpossibles));
  Temps.Avance(5000);
  EXPECT_TRUE(Sante.Dure(Condition::kPhotosImpossibles)) << "time alone mends nothing";
  Reglages.PhotoActif = false;
  Temps.Avance(1000);
  EXPECT_FALSE(Sante.Dure(Condition::kPhotosImpossibles));
}

TEST_F(PhotoWatch, AnotherFolderHasNotFailedYet) {
  Armee = true;
  Ecrivain.EchecsAVenir = 1;
  EXPECT_THROW(Photos.EnregistrePhoto(), Echec);
  Reglages.RepertoirePhoto = QStringLiteral("/media/grand");
  Temps.Avance(1000);
  EXPECT_FALSE(Sante.Dure(Condition::kPhotosImpossibles));
}

TEST_F(PhotoWatch, DisarmedPhotosDoNotFailAnyMore) {
  Armee = true;
  Ecrivain.EchecsAVenir = 1;
  EXPECT_THROW(Photos.EnregistrePhoto(), Echec);
  Temps.Avance(5000);
  ASSERT_TRUE(Impossibles());
  Armee = false;
  Temps.Avance(1000);
  EXPECT_FALSE(Impossibles());
  Temps.Avance(600'000);
  EXPECT_TRUE(Essai.Essayes.isEmpty());
}

TEST_F(PhotoWatch, AFolderThatFailedIsTriedOnceAMinuteWhileNobodyMovesUntilItTakesFilesAgain) {
  Armee = true;
  Ecrivain.EchecsAVenir = 1;
  EXPECT_THROW(Photos.EnregistrePhoto(), Echec);
  Temps.Avance(59'000);
  EXPECT_TRUE(Essai.Essayes.isEmpty());
  Temps.Avance(1000);
  ASSERT_EQ(Essai.Essayes, QStringList{Reglages.RepertoirePhoto});
  Essai.Repond(Reglages.RepertoirePhoto, false);
  Temps.Avance(59'000);
  EXPECT_EQ(Essai.Essayes.size(), 1);
  EXPECT_TRUE(Impossibles());
  Temps.Avance(1000);
  ASSERT_EQ(Essai.Essayes.size(), 2);
  Essai.Repond(Reglages.RepertoirePhoto, true);
  EXPECT_FALSE(Impossibles());
  Temps.Avance(600'000);
  EXPECT_EQ(Essai.Essayes.size(), 2);
}

TEST_F(PhotoWatch, WhilePhotosThemselvesTryTheFolderNothingElseDoesAndTheirFailureIsNewerThanATrial) {
  Armee = true;
  Ecrivain.EchecsAVenir = 1000;
  for (int i = 0; i < 12; ++i) {
    try {
      Photos.EnregistrePhoto();
    } catch (const Echec&) {
    }
    Temps.Avance(30'000);
  }
  EXPECT_TRUE(Essai.Essayes.isEmpty());
  Temps.Avance(60'000);
  ASSERT_EQ(Essai.Essayes.size(), 1);
  Photos.EnregistrePhoto();
  Essai.Repond(Reglages.RepertoirePhoto, true);
  EXPECT_TRUE(Impossibles()) << "a photo has failed since it was asked";
}

TEST_F(PhotoWatch, CopiesThatFailedAndAreNotWelcomeAnyMoreAreTriedToo) {
  Armee = Live = true;
  Reglages.PhotoActif = false;
  const QString copies = QStringLiteral("/home/anna/donnees/Temp/FTP");
  Ecrivain.EchecsAVenir = 1;
  EXPECT_THROW(Photos.EnregistrePhoto(), Echec);
  Bienvenue = false;
  for (int i = 0; i < 60; ++i) {
    Photos.EnregistrePhoto();
    Temps.Avance(1000);
  }
  ASSERT_TRUE(Impossibles());
  ASSERT_EQ(Essai.Essayes, QStringList{copies});
  Essai.Repond(copies, true);
  EXPECT_FALSE(Impossibles());
}

TEST_F(PhotoWatch, OfTwoFoldersThatFailedOnlyTheOneThatTakesFilesAgainIsForgotten) {
  Armee = Live = true;
  Reglages.LangueCourante = 1;
  const QString copies = QStringLiteral("/home/anna/donnees/Temp/FTP");
  Ecrivain.ErreursPar = {{Reglages.RepertoirePhoto, ENOSPC}, {copies, EROFS}};
  for (int i = 0; i < 3; ++i) {
    try {
      Photos.EnregistrePhoto();
    } catch (const Echec&) {
    }
    Temps.Avance(1000);
  }
  Temps.Avance(60'000);
  ASSERT_EQ(Essai.Essayes, QStringList({Reglages.RepertoirePhoto, copies}));
  Essai.Repond(Reglages.RepertoirePhoto, true);
  ASSERT_TRUE(Impossibles());
  EXPECT_EQ(Sante.Details.value(Condition::kPhotosImpossibles), copies + QStringLiteral(": the disk can only be read"));
  Essai.Repond(copies, true);
  EXPECT_FALSE(Impossibles());
}

TEST_F(PhotoWatch, PhotosThatDidNotReachTheDiskAreToldAlsoWhenDisarmedAndForAMinute) {
  Photos.EnregistrePhoto();
  Temps.Avance(3000);
  Pertes.AVenir = {{QStringLiteral("/media/a"), EIO}, {QStringLiteral("/home/anna/photos"), ENOSPC}};
  Reglages.LangueCourante = 1;
  Temps.Avance(1000);
  ASSERT_TRUE(Impossibles());
  EXPECT_EQ(Sante.Details.value(Condition::kPhotosImpossibles),
            QStringLiteral("/home/anna/photos: the last photos did not reach the disk, the disk is full"));
  EXPECT_TRUE(Pertes.AVenir.isEmpty());
  Photos.EnregistrePhoto();
  Temps.Avance(59'000);
  EXPECT_TRUE(Impossibles()) << "a photo that succeeds brings none of them back";
  Temps.Avance(1000);
  EXPECT_FALSE(Impossibles());
}

TEST_F(PhotoWatch, ALossThatIsToldDoesNotHoldUpThePhotos) {
  Armee = true;
  for (int i = 0; i < 50; ++i) {
    Pertes.AVenir = {{Reglages.RepertoirePhoto, EIO}};
    Temps.Avance(1000);
    EXPECT_NO_THROW(Photos.EnregistrePhoto());
  }
  EXPECT_EQ(Ecrivain.Appels.size(), 50);
  EXPECT_EQ(Sante.Debuts.value(Condition::kPhotosImpossibles), 1);
}

}  // namespace
}  // namespace vaktor
