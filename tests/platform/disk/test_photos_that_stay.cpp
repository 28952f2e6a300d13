// SPDX-License-Identifier: GPL-3.0-or-later
// A power cut: which photos are there afterwards. On a file system that loses whatever was not flushed.
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <cerrno>
#include <memory>

#include "base/jpeg_end.h"
#include "fakes/fake_health_report.h"
#include "image/photo_recorder.h"
#include "platform/base/system_clock.h"
#include "platform/disk/bounded_files.h"
#include "platform/image/turbo_jpeg_encoder.h"
#include "support/event_wait.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

class PhotosThatStay : public SurDisqueVolatil {
 protected:
  QStringList Noms() const { return QDir(Chemin()).entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name); }
  QByteArray Lit(const QString& nom) const {
    QFile fichier(Chemin("/") + nom);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
  }
  /// Of all that was lost this is told, before long.
  static void ExigePerte(FichiersBornes& fichiers, const QString& dossier, int erreur) {
    std::optional<PerteVidage> perte;
    ASSERT_TRUE(essai::AttendQue([&] { return (perte = fichiers.PrendPerte()).has_value(); }));
    EXPECT_EQ(perte->Dossier, dossier);
    EXPECT_EQ(perte->Erreur, erreur);
  }
};

TEST_F(PhotosThatStay, ThisDiskLosesWhatWasNotFlushed) {
  FichiersSysteme fichiers;
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "photo"), 0);
  ASSERT_EQ(Lit(QStringLiteral("a.jpg")), "photo");
  ASSERT_TRUE(Disque->CoupeCourant());
  EXPECT_TRUE(Noms().isEmpty());
}

// An alarm of some seconds, recorded as in the program, and the power fails in the midst of it.
TEST_F(PhotosThatStay, OfAnAlarmAtMostTheLastTwoSecondsAreLost) {
  Parametres reglages;
  reglages.RepertoirePhoto = Chemin();
  reglages.PhotoActif = true;
  const DossiersProgramme dossiers{Chemin(), Chemin()};
  SurfaceImage surface;
  QImage image(320, 240, QImage::Format_RGB32);
  image.fill(Qt::darkGreen);
  surface.Pose(image);
  const HorlogeSysteme temps;
  EncodeurTurboJpeg encodeur;
  FichiersBornes disque;
  EcrivainJpegFichier ecrivain(encodeur, disque);
  faux::SanteFausse sante;
  EnregistreurPhotos photos({reglages, dossiers, surface, temps, ecrivain, disque, [] { return false; }, sante});
  photos.FixeDateJour();

  QElapsedTimer depuis;
  depuis.start();
  QList<qint64> prises;  // when each photo was taken
  while (depuis.elapsed() < 4500) {
    photos.EnregistrePhoto();
    prises += depuis.elapsed();
    QThread::msleep(30);
  }
  ASSERT_TRUE(Disque->CoupeCourant());
  const qint64 coupure = depuis.elapsed();
  const auto vieilles =
      std::count_if(prises.begin(), prises.end(), [&](qint64 prise) { return prise <= coupure - 2000; });
  ASSERT_GT(vieilles, 10) << "the machine is too slow to tell";
  qsizetype entieres = 0;
  for (const QString& nom : Noms()) {
    if (EstJpegEntier(Lit(nom))) ++entieres;
  }
  EXPECT_GE(entieres, vieilles) << "of " << prises.size() << " photos";
  EXPECT_FALSE(sante.Dure(Condition::kPhotosImpossibles));
}

TEST_F(PhotosThatStay, ASinglePhotoIsFlushedAtOnceAndNotWhenTheNextComes) {
  FichiersBornes fichiers;
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "photo"), 0);
  QThread::msleep(2000);
  ASSERT_TRUE(Disque->CoupeCourant());
  EXPECT_EQ(Lit(QStringLiteral("a.jpg")), "photo");
}

TEST_F(PhotosThatStay, TheEndOfTheProgramFlushesTheLastOnes) {
  {
    FichiersBornes fichiers;
    for (const char* nom : {"/a.jpg", "/b.jpg", "/c.jpg"}) {
      ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin(nom), "photo"), 0);
    }
  }
  ASSERT_TRUE(Disque->CoupeCourant());
  for (const char* nom : {"a.jpg", "b.jpg", "c.jpg"}) EXPECT_EQ(Lit(QString::fromUtf8(nom)), "photo") << nom;
}

TEST_F(PhotosThatStay, TheEndWaitsForAFlushThatIsUnderWay) {
  auto fichiers = std::make_unique<FichiersBornes>();
  ASSERT_EQ(fichiers->EcritNouveauFichier(Chemin("/a.jpg"), "photo"), 0);
  QThread::msleep(150);
  ASSERT_EQ(fichiers->EcritNouveauFichier(Chemin("/b.jpg"), "photo"), 0) << "flushed a second later";
  ASSERT_TRUE(Disque->SeTait());
  QElapsedTimer temps;
  temps.start();
  fichiers.reset();
  EXPECT_GT(temps.elapsed(), 300) << "as long as it may hope, which is not for ever";
  ASSERT_TRUE(Disque->Repond());
}

TEST_F(PhotosThatStay, APhotoThatDidNotReachTheDiskIsToldAlsoWhenNoneFollows) {
  FichiersBornes fichiers;
  EXPECT_EQ(fichiers.PrendPerte(), std::nullopt);
  ASSERT_TRUE(Disque->RefuseDeVider());
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("\\a.jpg"), "photo"), 0) << "the system took it";
  ExigePerte(fichiers, Chemin(), EIO);
  EXPECT_EQ(fichiers.PrendPerte(), std::nullopt) << "once";
  EXPECT_EQ(fichiers.EcritNouveauFichier(Chemin("/b.jpg"), "photo"), 0) << "this one is whole all the same";
}

// It has taken the photo: since then it has failed.
TEST_F(PhotosThatStay, ADiskThatHasBecomeOneToBeReadOnlyHasLostThem) {
  FichiersBornes fichiers;
  ASSERT_TRUE(Disque->DevientProtege());
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "photo"), 0);
  ExigePerte(fichiers, Chemin(), EROFS);
}

// What was told as failed is no loss as well, and what is replaced anyway is not flushed.
TEST_F(PhotosThatStay, OnlyNewFilesThatWereWrittenCanBeLost) {
  FichiersBornes fichiers;
  ASSERT_TRUE(Disque->RefuseDeVider());
  ASSERT_EQ(fichiers.EcritFichier(Chemin("/Live.jpg"), "live"), 0);
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/gone/a.jpg"), "photo"), ENOENT);
  ASSERT_EQ(fichiers.EcritNouveauFichier(Ailleurs() + QStringLiteral("/gros.jpg"), QByteArray(20'000'000, 'g')),
            ENOSPC);
  QThread::msleep(500);
  EXPECT_EQ(fichiers.PrendPerte(), std::nullopt);
}

TEST_F(PhotosThatStay, ALossIsAskedForWithoutWaitingForTheDisk) {
  FichiersBornes fichiers;
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "photo"), 0);
  ASSERT_TRUE(Disque->SeTait());
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/b.jpg"), "photo"), ETIMEDOUT);
  QElapsedTimer temps;
  temps.start();
  for (int i = 0; i < 1000; ++i) fichiers.PrendPerte();
  EXPECT_LT(temps.elapsed(), 2000);
}

TEST_F(PhotosThatStay, ALossIsToldAlsoOfAFolderThatIsNotWrittenToAnyMore) {
  FichiersBornes fichiers;
  ASSERT_TRUE(Disque->RefuseDeVider());
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "photo"), 0);
  for (int i = 0; i < 12; ++i) {
    const QString dossier = Ailleurs() + QStringLiteral("/d%1").arg(i);
    ASSERT_TRUE(QDir().mkdir(dossier));
    ASSERT_EQ(fichiers.EcritNouveauFichier(dossier + QStringLiteral("/a.jpg"), "photo"), 0);
  }
  ExigePerte(fichiers, Chemin(), EIO);
}

TEST_F(PhotosThatStay, ALossOfSuchAFolderIsToldAlsoWhenItComesLate) {
  FichiersBornes fichiers;
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "photo"), 0);
  QThread::msleep(150);
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/b.jpg"), "photo"), 0) << "flushed a second later";
  QThread::msleep(150);  // its lane has nothing to do any more, and can go
  ASSERT_TRUE(Disque->SeTait());
  for (int i = 0; i < 12; ++i) {
    const QString dossier = Ailleurs() + QStringLiteral("/d%1").arg(i);
    ASSERT_TRUE(QDir().mkdir(dossier));
    ASSERT_EQ(fichiers.EcritNouveauFichier(dossier + QStringLiteral("/a.jpg"), "photo"), 0);
  }
  EXPECT_EQ(fichiers.PrendPerte(), std::nullopt) << "the disk has not answered yet";
  ASSERT_TRUE(Disque->RefuseDeVider());
  ExigePerte(fichiers, Chemin(), EIO);
}

TEST_F(PhotosThatStay, PhotosThatWentWithTheirFolderAreLost) {
  FichiersBornes fichiers;
  const QString dossier = Ailleurs() + QStringLiteral("/parti");
  ASSERT_TRUE(QDir().mkdir(dossier));
  ASSERT_EQ(fichiers.EcritNouveauFichier(dossier + QStringLiteral("/a.jpg"), "photo"), 0);
  QThread::msleep(300);
  ASSERT_EQ(fichiers.EcritNouveauFichier(dossier + QStringLiteral("/b.jpg"), "photo"), 0) << "flushed a second later";
  ASSERT_TRUE(QDir(dossier).removeRecursively());
  ExigePerte(fichiers, dossier, ENOENT);
}

TEST_F(PhotosThatStay, APhotoThatIsDeletedAtOnceIsNoFailure) {
  FichiersBornes fichiers;
  for (int i = 0; i < 50; ++i) {
    const QString nom = Chemin("/%1.jpg").arg(i);
    ASSERT_EQ(fichiers.EcritNouveauFichier(nom, "photo"), 0);
    ASSERT_TRUE(fichiers.Supprime(nom));
  }
  QThread::msleep(1500);
  EXPECT_EQ(fichiers.PrendPerte(), std::nullopt);
}

// The system takes the next photo as ever, into its memory; that the disk does not is told once, not each second.
TEST_F(PhotosThatStay, AFlushThatHangsIsToldOnce) {
  const QByteArray dossier = QFile::encodeName(Chemin());
  const std::shared_ptr<Vidage> vidage = Vidage::Lance(dossier);
  ASSERT_TRUE(Disque->SeTait());
  vidage->Ajoute(dossier + "/a.jpg");
  QThread::msleep(3000);
  EXPECT_EQ(vidage->PrendErreur(), 0) << "a slow disk";
  int erreur = 0;
  ASSERT_TRUE(essai::AttendQue([&] { return (erreur = vidage->PrendErreur()) != 0; }));
  EXPECT_EQ(erreur, ETIMEDOUT);
  EXPECT_EQ(vidage->PrendErreur(), 0);
  ASSERT_TRUE(Disque->Repond());
  vidage->Termine();
  EXPECT_TRUE(vidage->AttendFin(std::chrono::steady_clock::now() + std::chrono::seconds(20)));
}

TEST_F(PhotosThatStay, WhatIsLeftOutBecauseTheFlushDoesNotKeepUpIsTold) {
  const QByteArray dossier = QFile::encodeName(Chemin());
  const std::shared_ptr<Vidage> vidage = Vidage::Lance(dossier);
  ASSERT_TRUE(Disque->SeTait());
  for (int i = 0; i < 900; ++i) vidage->Ajoute(dossier + "/a.jpg");
  EXPECT_EQ(vidage->PrendErreur(), 0);
  for (int i = 0; i < 2000; ++i) vidage->Ajoute(dossier + "/a.jpg");
  EXPECT_EQ(vidage->PrendErreur(), ETIMEDOUT);
  ASSERT_TRUE(Disque->Repond());
  vidage->Termine();
  EXPECT_TRUE(vidage->AttendFin(std::chrono::steady_clock::now() + std::chrono::seconds(20)));
}

}  // namespace
}  // namespace vaktor
