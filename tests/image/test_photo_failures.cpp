// SPDX-License-Identifier: GPL-3.0-or-later
// Photos that fail: what the frame goes on with, how often the disk is asked, and what is told. In virtual time.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include "fakes/fake_files.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_jpeg_writer.h"
#include "fakes/virtual_clock.h"
#include "image/photo_recorder.h"

namespace vaktor {
namespace {

const QString kPhotos = QStringLiteral("/home/anna/photos");
const QString kCopies = QStringLiteral("/home/anna/donnees/Temp/FTP");

class PhotoFailures : public testing::Test {
 protected:
  PhotoFailures() {
    Reglages.RepertoirePhoto = kPhotos;
    Reglages.PhotoActif = true;
    Reglages.NombrePhotoMax = 1'000'000;
    Reglages.LangueCourante = 1;
    Recorder.FixeDateJour();
  }
  /// An alarm frame every `pas` ms for `duree` ms; gives how many of them went on to mail and sound.
  int Bouge(int duree, int pas = 30) {
    int entendues = 0;
    for (int t = 0; t < duree; t += pas) {
      if (Entendue()) ++entendues;
      Temps.Millisecondes += pas;
    }
    return entendues;
  }
  /// One alarm frame.
  bool Entendue() {
    try {
      Recorder.EnregistrePhoto();
    } catch (const Echec&) {
      return false;
    }
    return true;
  }
  qsizetype Essais(const QString& dossier) const {
    return std::count_if(Ecrivain.Appels.begin(), Ecrivain.Appels.end(),
                         [&](const auto& appel) { return appel.Fichier.startsWith(dossier + u'/'); });
  }
  bool Impossibles() const { return Sante.Dure(Condition::kPhotosImpossibles); }
  QString Raison() const { return Sante.Details.value(Condition::kPhotosImpossibles); }

  Parametres Reglages;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/home/anna/donnees")};
  SurfaceImage Surface;
  faux::HorlogeVirtuelle Temps;
  FauxEcrivainJpeg Ecrivain;
  FauxFichiers Disque;
  bool Live = false;
  faux::SanteFausse Sante;
  EnregistreurPhotos Recorder{{Reglages, Dossiers, Surface, Temps, Ecrivain, Disque, [this] { return Live; }, Sante,
                               [this] { return ++Demandes, Bienvenue; }}};
  bool Bienvenue = true;
  int Demandes = 0;
};

TEST_F(PhotoFailures, BothCopiesAreNewFiles) {
  Live = true;
  ASSERT_TRUE(Entendue());
  ASSERT_EQ(Ecrivain.Appels.size(), 2);
  for (const auto& appel : Ecrivain.Appels) EXPECT_TRUE(appel.Nouveau) << qPrintable(appel.Fichier);
}

// Nobody takes them out of there at the moment, and enough wait.
TEST_F(PhotoFailures, ASecondCopyIsWrittenOnlyWhereItIsWelcome) {
  EXPECT_TRUE(Entendue());
  EXPECT_EQ(Demandes, 0) << "none is wanted while the live page is off";
  Live = true;
  Bienvenue = false;
  EXPECT_TRUE(Entendue());
  EXPECT_EQ(Demandes, 1) << "once for each: it counts as written";
  EXPECT_EQ(Essais(kCopies), 0);
  EXPECT_EQ(Essais(kPhotos), 2) << "the user's own copy is another matter";
}

TEST_F(PhotoFailures, ForASecondEveryFrameTriesAndEndsThere) {
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  EXPECT_EQ(Bouge(1000), 0);
  EXPECT_EQ(Essais(kPhotos), 34);
}

TEST_F(PhotoFailures, ThenTheDiskIsAskedOnceASecondAndTheAlarmIsHeard) {
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  Bouge(1020);
  Ecrivain.Appels.clear();
  const qint32 avant = Recorder.CompteurPhotos();
  EXPECT_EQ(Bouge(30'000), 1000) << "each frame, also the one that tries";
  EXPECT_GE(Essais(kPhotos), 29);
  EXPECT_LE(Essais(kPhotos), 30);
  EXPECT_EQ(Recorder.CompteurPhotos(), avant + 1000) << "the counter goes on counting frames";
}

TEST_F(PhotoFailures, ASlowCamerasAlarmIsHeardToo) {
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  EXPECT_EQ(Bouge(20'000, 1000), 19);
}

TEST_F(PhotoFailures, MovementsThatAreFarApartAreHeardFromTheSecondOnAndEachTriesItsPhoto) {
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  EXPECT_FALSE(Entendue());
  for (int i = 0; i < 5; ++i) {
    Temps.Millisecondes += 600'000;
    EXPECT_TRUE(Entendue()) << i;
  }
  EXPECT_EQ(Essais(kPhotos), 6);
}

TEST_F(PhotoFailures, ADiskThatWorksAgainTakesEveryFrameWithinASecondAndTheNextFailureBeginsAnew) {
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  Bouge(5000);
  Ecrivain.ErreursPar.clear();
  Bouge(1020);
  Ecrivain.Appels.clear();
  EXPECT_EQ(Bouge(3000), 100);
  EXPECT_EQ(Essais(kPhotos), 100);
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  EXPECT_FALSE(Entendue());
}

TEST_F(PhotoFailures, TheSecondCopyIsNotReachedForASecondAndThenGoesToItsOwnDisk) {
  Live = true;
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  Bouge(1000);
  EXPECT_EQ(Essais(kCopies), 0);
  EXPECT_EQ(Bouge(3000), 100);
  EXPECT_EQ(Essais(kCopies), 100);
}

TEST_F(PhotoFailures, ASecondCopyThatFailsLeavesThePhotosAloneAndIsTriedOnceASecondToo) {
  Live = true;
  Ecrivain.ErreursPar[kCopies] = ENOENT;
  EXPECT_EQ(Bouge(1000), 0);
  EXPECT_EQ(Essais(kPhotos), 34);
  EXPECT_EQ(Bouge(3000), 100);
  EXPECT_EQ(Essais(kPhotos), 134);
  EXPECT_LE(Essais(kCopies), 38);
  EXPECT_EQ(Raison(), kCopies + QStringLiteral(": the folder is not there any more"));
}

TEST_F(PhotoFailures, BothTogetherTakeOnlyOneSecondOfTheAlarm) {
  Live = true;
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  Ecrivain.ErreursPar[kCopies] = ENOSPC;
  EXPECT_EQ(Bouge(1000), 0);
  EXPECT_EQ(Bouge(3000), 100);
}

TEST_F(PhotoFailures, TheWrapOfTheCounterIsNoNewBeginning) {
  Temps.Millisecondes = 0xFFFFFF00LL;
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  EXPECT_EQ(Bouge(1020), 0);
  EXPECT_EQ(Bouge(3000), 100);
  Temps.Millisecondes = 0xFFFFFF00LL + 0x100000000LL;  // seven weeks later
  EXPECT_TRUE(Entendue());
}

TEST_F(PhotoFailures, AreToldWithFolderAndReasonUntilAPhotoSucceeds) {
  EXPECT_TRUE(Entendue());
  EXPECT_FALSE(Impossibles());
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  EXPECT_FALSE(Entendue());
  EXPECT_EQ(Raison(), kPhotos + QStringLiteral(": the disk is full"));
  Bouge(5000);
  EXPECT_EQ(Sante.Debuts.value(Condition::kPhotosImpossibles), 1) << "one, as long as it lasts";
  Ecrivain.ErreursPar.clear();
  Temps.Millisecondes += 1000;
  EXPECT_TRUE(Entendue());
  EXPECT_FALSE(Impossibles());
}

TEST_F(PhotoFailures, EachReasonIsInPlainWordsOfTheLanguage) {
  const QList<std::pair<int, const char*>> raisons{{ENOSPC, "the disk is full"},
                                                   {EDQUOT, "the disk is full"},
                                                   {ENOENT, "the folder is not there any more"},
                                                   {EACCES, "access is refused"},
                                                   {EROFS, "the disk can only be read"},
                                                   {ETIMEDOUT, "the disk does not answer"},
                                                   {EIO, "the disk answered \"Input/output error\""}};
  for (const auto& [erreur, mots] : raisons) {
    Ecrivain.ErreursPar[kPhotos] = erreur;
    EXPECT_FALSE(Entendue());
    EXPECT_EQ(Raison(), kPhotos + QStringLiteral(": ") + QString::fromUtf8(mots));
  }
  Reglages.LangueCourante = 0;
  Reglages.RepertoirePhoto = QStringLiteral("/home/anna/Vaktor\\intrus");
  Ecrivain.ErreursPar = {{Reglages.RepertoirePhoto, ETIMEDOUT}};
  EXPECT_FALSE(Entendue());
  EXPECT_EQ(Raison(), QString::fromUtf8("/home/anna/Vaktor/intrus : le disque ne répond pas"));
}

TEST_F(PhotoFailures, APictureThatCannotBeEncodedIsToldAsSuch) {
  Ecrivain.EchecsAVenir = 2;
  Ecrivain.StatutDesEchecs = 2;
  EXPECT_FALSE(Entendue());
  EXPECT_EQ(Raison(), kPhotos + QStringLiteral(": the picture could not be encoded (2)"));
  Ecrivain.StatutDesEchecs = 3;
  EXPECT_FALSE(Entendue());
  EXPECT_EQ(Raison(), kPhotos + QStringLiteral(": there is not enough memory"));
}

TEST_F(PhotoFailures, WantOfMemoryIsToldAndSilencesTheAlarmForASecondAndNoLonger) {
  Ecrivain.SansMemoire = true;
  EXPECT_EQ(Bouge(1020), 0);
  EXPECT_EQ(Bouge(3000), 100);
  EXPECT_EQ(Raison(), kPhotos + QStringLiteral(": there is not enough memory"));
  Ecrivain.SansMemoire = false;
  Bouge(1020);
  EXPECT_FALSE(Impossibles());
}

TEST_F(PhotoFailures, TheReasonOfTheUsersCopyComesFirstAndThatOfTheOtherStays) {
  Live = true;
  Ecrivain.ErreursPar[kPhotos] = ENOSPC;
  Ecrivain.ErreursPar[kCopies] = EROFS;
  Bouge(1200);
  EXPECT_EQ(Raison(), kPhotos + QStringLiteral(": the disk is full"));
  Ecrivain.ErreursPar.remove(kPhotos);
  Bouge(1200);
  EXPECT_EQ(Raison(), kCopies + QStringLiteral(": the disk can only be read"));
  Live = false;
  EXPECT_TRUE(Entendue());
  EXPECT_FALSE(Impossibles()) << "copies that nobody wants do not fail";
}

}  // namespace
}  // namespace vaktor
