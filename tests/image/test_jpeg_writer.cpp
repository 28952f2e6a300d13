// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cerrno>

#include "base/failure.h"
#include "fakes/fake_files.h"
#include "image/jpeg_writer.h"

namespace vaktor {
namespace {

const QString kFichier = QStringLiteral("/photos/a.jpg");

class FauxEncodeur : public EncodeurJpeg {
 public:
  StatutJpeg StatutDemarre = StatutJpeg::kReussi;
  StatutJpeg StatutEncode = StatutJpeg::kReussi;
  QByteArray Octets = "octets d'une photo";
  QStringList Journal;
  QImage Image;
  int Qualite = -1;

  StatutJpeg Demarre() override {
    Journal += QStringLiteral("Demarre");
    return StatutDemarre;
  }
  StatutJpeg Encode(const QImage& image, quint8 qualite, QByteArrayView& octets) override {
    Journal += QStringLiteral("Encode");
    Image = image;
    Qualite = qualite;
    octets = Octets;
    return StatutEncode;
  }
};

class JpegWriter : public testing::Test {
 protected:
  JpegWriter() { Disque.AjouteDossier(QStringLiteral("/photos")); }

  static QImage Photo() {
    QImage image(4, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
  }

  /// The description of the failure, after a look at its number; empty when nothing was thrown.
  QString EchecDe(const QImage& image, const QString& fichier = kFichier) {
    try {
      Ecrivain.EnregistreJPEG(image, fichier, 50);
    } catch (const Echec& echec) {
      EXPECT_EQ(echec.Numero(), 5);
      return echec.Description();
    }
    return {};
  }

  FauxEncodeur Encodeur;
  FauxFichiers Disque;
  EcrivainJpegFichier Ecrivain{Encodeur, Disque};
};

TEST_F(JpegWriter, WritesWhatTheEncoderMadeToThePathAsItStands) {
  Disque.AjouteDossier(QStringLiteral("/photos/b"));
  Ecrivain.EnregistreJPEG(Photo(), QStringLiteral("/photos\\b/a.xyz"), 20);
  EXPECT_EQ(Disque.Ecrits.last(), QStringLiteral("/photos\\b/a.xyz"));
  EXPECT_EQ(Disque.Contenu(QStringLiteral("/photos/b/a.xyz")), Encodeur.Octets);
  EXPECT_EQ(Encodeur.Qualite, 20);
}

TEST_F(JpegWriter, APhotoReplacesNothingAndALiveImageTheOneBefore) {
  Ecrivain.EnregistreJPEG(Photo(), kFichier, 50);
  Ecrivain.EnregistreJPEG(Photo(), kFichier, 50);
  EXPECT_TRUE(Disque.Nouveaux.isEmpty());
  const QString devenu = Ecrivain.EnregistreNouveauJPEG(Photo(), kFichier, 50);
  ASSERT_EQ(Disque.Nouveaux.size(), 1);
  EXPECT_NE(Disque.Nouveaux.first(), kFichier) << "a letter follows in its name";
  EXPECT_EQ(devenu, Disque.Nouveaux.first());
}

TEST_F(JpegWriter, HandsOverThePictureWithoutCopyOrChange) {
  const QImage photo = Photo();
  Ecrivain.EnregistreJPEG(photo, kFichier, 50);
  EXPECT_EQ(Encodeur.Image.constBits(), photo.constBits());
}

TEST_F(JpegWriter, QualityZeroIsPassedOnAsItIs) {
  Ecrivain.EnregistreJPEG(Photo(), kFichier, 0);
  EXPECT_EQ(Encodeur.Qualite, 0);
}

TEST_F(JpegWriter, QualityIsNotTestedHere) {
  Ecrivain.EnregistreJPEG(Photo(), kFichier, 255);
  EXPECT_EQ(Encodeur.Qualite, 255);
}

TEST_F(JpegWriter, AnEmptyPictureIsAZeroHandleAndWritesNoFile) {
  EXPECT_EQ(EchecDe(QImage()), QStringLiteral("Cannot save the image. GDI+ Error:2"));
  EXPECT_EQ(Encodeur.Journal, QStringList{QStringLiteral("Demarre")});
  EXPECT_TRUE(Disque.Ecrits.isEmpty());
}

TEST_F(JpegWriter, AnEncoderThatDoesNotStartIsTheCauseEvenWithoutPicture) {
  Encodeur.StatutDemarre = StatutJpeg::kEncodeurIndisponible;
  EXPECT_EQ(EchecDe(QImage()), QStringLiteral("Cannot save the image. GDI+ Error:18"));
  EXPECT_EQ(Encodeur.Journal, QStringList{QStringLiteral("Demarre")});
  EXPECT_TRUE(Disque.Ecrits.isEmpty());
}

TEST_F(JpegWriter, AFailedEncodeLeavesAnEarlierFileAlone) {
  Disque.AjouteFichier(kFichier, "avant");
  Encodeur.StatutEncode = StatutJpeg::kErreurGenerique;
  EXPECT_EQ(EchecDe(Photo()), QStringLiteral("Cannot save the image. GDI+ Error:1"));
  EXPECT_EQ(Disque.Contenu(kFichier), "avant");
}

TEST_F(JpegWriter, AMissingFolderFails) {
  EXPECT_EQ(EchecDe(Photo(), QStringLiteral("/ailleurs/a.jpg")),
            QStringLiteral("Cannot save the image. GDI+ Error:10"));
}

TEST_F(JpegWriter, APartlyWrittenFileIsNotRemoved) {
  Disque.ErreurEcriture = ENOSPC;
  Disque.PlaceAvantErreur = 6;
  EXPECT_EQ(EchecDe(Photo()), QStringLiteral("Cannot save the image. GDI+ Error:7"));
  EXPECT_EQ(Disque.Contenu(kFichier), "octets");
  EXPECT_TRUE(Disque.Supprimes.isEmpty());
}

TEST_F(JpegWriter, AFailureIsForgottenByTheNextCall) {
  Disque.ErreurEcriture = ENOSPC;
  EXPECT_FALSE(EchecDe(Photo()).isEmpty());
  Disque.ErreurEcriture = 0;
  EXPECT_TRUE(EchecDe(Photo()).isEmpty());
  EXPECT_EQ(Disque.Contenu(kFichier), Encodeur.Octets);
}

TEST(JpegWriterStatus, EachErrorOfTheSystemHasItsNumber) {
  const auto numero = [](int erreur) { return static_cast<int>(EcrivainJpegFichier::StatutEcriture(erreur)); };
  EXPECT_EQ(numero(0), 0);
  for (const int absent : {ENOENT, ENOTDIR}) EXPECT_EQ(numero(absent), 10) << absent;
  for (const int refuse : {EACCES, EPERM, EROFS, EISDIR}) EXPECT_EQ(numero(refuse), 12) << refuse;
  EXPECT_EQ(numero(ENAMETOOLONG), 11);
  for (const int autre : {ENOSPC, EDQUOT, EIO, EFBIG, EMFILE, EINVAL, 9999}) EXPECT_EQ(numero(autre), 7) << autre;
}

}  // namespace
}  // namespace vaktor
