// SPDX-License-Identifier: GPL-3.0-or-later
// Photos from the recorder down to real files: what reaches the disk, and what a disk that refuses leaves behind.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "base/failure.h"
#include "base/jpeg_end.h"
#include "fakes/fake_health_report.h"
#include "fakes/virtual_clock.h"
#include "image/photo_recorder.h"
#include "platform/base/program_folders.h"
#include "platform/base/system_files.h"
#include "platform/image/turbo_jpeg_encoder.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

class PhotosOnDisk : public testing::Test {
 protected:
  PhotosOnDisk() {
    EXPECT_EQ(PrepareDossiers(Dossiers), QString());
    EXPECT_TRUE(Disque.CreeDossier(Dossiers.Donnees + QStringLiteral("\\intrus")));
    Reglages.RepertoirePhoto = Dossiers.Donnees + QStringLiteral("\\intrus");
    Reglages.PhotoActif = true;
    Reglages.QualiteJpeg = 20;
    Recorder.FixeDateJour();
    Surface.Pose(Bruit());
  }

  /// Noise, so that a photo of it is some 50 kB.
  static QImage Bruit() {
    QImage image(320, 240, QImage::Format_RGB32);
    quint32 etat = 7;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        etat = etat * 1'664'525U + 1'013'904'223U;
        image.setPixel(x, y, etat >> 8U);
      }
    }
    return image;
  }

  /// The status at the end of the failure's text, 0 when the photo was saved, -1 when the text is another.
  int Statut() {
    try {
      Recorder.EnregistrePhoto();
    } catch (const Echec& echec) {
      const QString debut = QStringLiteral("Cannot save the image. GDI+ Error:");
      EXPECT_EQ(echec.Numero(), kAppelIncorrect);
      return echec.Description().startsWith(debut) ? echec.Description().mid(debut.size()).toInt() : -1;
    }
    return 0;
  }

  /// Whole photos of a folder.
  static QStringList PhotosEntieres(const QString& dossier) {
    QStringList entieres;
    for (const QString& nom :
         QDir(CheminNatif(dossier)).entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name)) {
      QFile fichier(CheminNatif(dossier) + u'/' + nom);
      EXPECT_TRUE(fichier.open(QIODevice::ReadOnly));
      const QByteArray octets = fichier.readAll();
      if (EstJpegEntier(octets)) entieres += nom;
    }
    return entieres;
  }
  static bool Finit(const QStringList& noms, const char* fin) {
    return noms.size() == 1 && noms.first().endsWith(QString::fromLatin1(fin));
  }

  QTemporaryDir Temporaire;
  DossiersProgramme Dossiers{Temporaire.path(), Temporaire.path()};
  Parametres Reglages;
  SurfaceImage Surface;
  faux::HorlogeVirtuelle Temps;  // stands still: a machine that is busy makes no second of failures of a few calls
  FichiersSysteme Disque;
  EncodeurTurboJpeg Encodeur;
  EcrivainJpegFichier Ecrivain{Encodeur, Disque};
  bool Live = false;
  faux::SanteFausse Sante;
  EnregistreurPhotos Recorder{{Reglages, Dossiers, Surface, Temps, Ecrivain, Disque, [this] { return Live; }, Sante}};
};

TEST_F(PhotosOnDisk, BothCopiesLieInTheirFolders) {
  Live = true;
  EXPECT_EQ(Statut(), 0);
  const QStringList photo = PhotosEntieres(Dossiers.Donnees + QStringLiteral("/intrus"));
  EXPECT_TRUE(Finit(photo, " Photo 00001.jpg"));
  EXPECT_EQ(PhotosEntieres(Dossiers.Donnees + QStringLiteral("/Temp/FTP")), photo);
}

TEST_F(PhotosOnDisk, AnotherRunInTheSameSecondReplacesNoPhoto) {
  Live = true;
  EXPECT_EQ(Statut(), 0);
  const QString nom = PhotosEntieres(Reglages.RepertoirePhoto).value(0);
  Surface.Pose(QImage(16, 16, QImage::Format_RGB32));
  EnregistreurPhotos autre{{Reglages, Dossiers, Surface, Temps, Ecrivain, Disque, [] { return true; }, Sante}};
  autre.FixeDateJour();
  const auto taille = [&] { return QFileInfo(CheminNatif(Reglages.RepertoirePhoto) + u'/' + nom).size(); };
  const qint64 avant = taille();
  autre.EnregistrePhoto();
  const QString lettre = QString(nom).replace(QStringLiteral("00001"), QStringLiteral("00001a"));
  EXPECT_EQ(PhotosEntieres(Reglages.RepertoirePhoto), QStringList({nom, lettre})) << "and sorts behind it";
  EXPECT_EQ(PhotosEntieres(Dossiers.Donnees + QStringLiteral("/Temp/FTP")), QStringList({nom, lettre}));
  EXPECT_EQ(taille(), avant);
}

TEST_F(PhotosOnDisk, AnEmptyPictureWritesNoFile) {
  Surface.Retire();
  EXPECT_EQ(Statut(), 2);
  EXPECT_TRUE(QDir(CheminNatif(Reglages.RepertoirePhoto)).isEmpty());
}

TEST_F(PhotosOnDisk, AFrameOfOnePixelIsAPhotoToo) {
  QImage pixel(1, 1, QImage::Format_RGB32);
  pixel.fill(Qt::blue);
  Surface.Pose(pixel);
  EXPECT_EQ(Statut(), 0);
  EXPECT_TRUE(Finit(PhotosEntieres(Reglages.RepertoirePhoto), " Photo 00001.jpg"));
}

TEST_F(PhotosOnDisk, AFolderThatVanishesAndComesBackLosesNoLaterPhoto) {
  EXPECT_EQ(Statut(), 0);
  ASSERT_TRUE(QDir(CheminNatif(Reglages.RepertoirePhoto)).removeRecursively());
  EXPECT_EQ(Statut(), 10);
  EXPECT_FALSE(Disque.Existe(Reglages.RepertoirePhoto)) << "the folder is not made again behind the user's back";
  EXPECT_EQ(Statut(), 10);
  ASSERT_TRUE(Disque.CreeDossier(Reglages.RepertoirePhoto));
  EXPECT_EQ(Statut(), 0);
  EXPECT_TRUE(Finit(PhotosEntieres(Reglages.RepertoirePhoto), " Photo 00004.jpg")) << "the numbers used stay used";
}

TEST_F(PhotosOnDisk, AFullDiskFailsUntilThereIsRoomAgain) {
  const PetitDisque petit(128 * 1024);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  Reglages.RepertoirePhoto = petit.Chemin();
  int ecrites = 0;
  int statut = 0;
  while ((statut = Statut()) == 0 && ecrites < 1000) ++ecrites;
  EXPECT_EQ(statut, 7);
  ASSERT_GE(ecrites, 1);
  const QStringList restes = QDir(petit.Chemin()).entryList({QStringLiteral("*")}, QDir::Files, QDir::Name);
  EXPECT_EQ(restes.size(), ecrites + 1) << "the partly written file is not removed";
  EXPECT_EQ(PhotosEntieres(petit.Chemin()).size(), ecrites);
  EXPECT_EQ(Statut(), 7);
  for (const QString& reste : restes) ASSERT_TRUE(Disque.Supprime(petit.Chemin() + u'/' + reste));
  EXPECT_EQ(Statut(), 0);
}

TEST_F(PhotosOnDisk, AReadOnlyDiskRefusesThePhoto) {
  PetitDisque petit(128 * 1024);
  if (!petit.EstMonte() || !petit.RendLectureSeule()) GTEST_SKIP() << petit.Raison();
  Reglages.RepertoirePhoto = petit.Chemin();
  EXPECT_EQ(Statut(), 12);
  Reglages.RepertoirePhoto = Dossiers.Donnees + QStringLiteral("\\intrus");
  EXPECT_EQ(Statut(), 0);
}

TEST_F(PhotosOnDisk, AFolderInThePhotosPlaceRefusesIt) {
  EXPECT_THROW(Ecrivain.EnregistreJPEG(Surface.Image(), Temporaire.path(), 50), Echec);
  Reglages.RepertoirePhoto = QStringLiteral("/dev/null");
  EXPECT_EQ(Statut(), 10) << "a file in the folder's place";
}

TEST_F(PhotosOnDisk, TheWarningLooksAtTheDiskOfThePhotos) {
  const PetitDisque petit(128 * 1024);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  Reglages.RepertoirePhoto = petit.Chemin();
  EXPECT_TRUE(Recorder.VerifieEspaceDisque());
}

TEST_F(PhotosOnDisk, NoWarningOnADiskWithRoom) {
  const PetitDisque grand(600'000'000);  // a limit; nothing is taken until it is written
  if (!grand.EstMonte()) GTEST_SKIP() << grand.Raison();
  Reglages.RepertoirePhoto = grand.Chemin();
  EXPECT_FALSE(Recorder.VerifieEspaceDisque());
  Reglages.RepertoirePhoto = grand.Chemin() + QStringLiteral("\\intrus");
  EXPECT_FALSE(Recorder.VerifieEspaceDisque());
}

}  // namespace
}  // namespace vaktor
