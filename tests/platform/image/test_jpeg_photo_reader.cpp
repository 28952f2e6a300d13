// Photos as they lie on a disk: whole, damaged, cut, empty, huge, of another kind, gone.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include "platform/image/jpeg_photo_reader.h"

namespace vaktor {
namespace {

class Photos : public testing::Test {
 protected:
  static QByteArray Jpeg(int largeur, int hauteur, const char* format = "jpeg") {
    QImage image(largeur, hauteur, QImage::Format_RGB32);
    image.fill(qRgb(200, 60, 20));
    QByteArray octets;
    QBuffer sortie(&octets);
    sortie.open(QIODevice::WriteOnly);
    image.save(&sortie, format, 50);
    return octets;
  }
  PhotoLue Lit(const QByteArray& octets) {
    QFile fichier(Dossier.filePath(QStringLiteral("x.jpg")));
    EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
    fichier.close();
    return Lecteur.LitPhoto(Dossier.path() + QStringLiteral("\\x.jpg"));
  }
  /// A picture that says in its header that it is this large.
  static QByteArray Pretend(int largeur, int hauteur) {
    QByteArray octets = Jpeg(64, 64);
    const qsizetype sof = octets.indexOf(QByteArray("\xff\xc0", 2));
    EXPECT_GT(sof, 0);
    octets[sof + 5] = static_cast<char>(hauteur >> 8);
    octets[sof + 6] = static_cast<char>(hauteur);
    octets[sof + 7] = static_cast<char>(largeur >> 8);
    octets[sof + 8] = static_cast<char>(largeur);
    return octets;
  }

  QTemporaryDir Dossier;
  LecteurPhotosFichier Lecteur;
};

TEST_F(Photos, WholeOneComesInItsOwnSize) {
  const PhotoLue lue = Lit(Jpeg(320, 240));
  EXPECT_EQ(lue.Etat, EtatPhoto::kLue);
  EXPECT_FALSE(lue.Coupee);
  EXPECT_EQ(lue.Image.size(), QSize(320, 240));
  EXPECT_NEAR(qRed(lue.Image.pixel(100, 100)), 200, 4);
}

TEST_F(Photos, EmptyDamagedAndForeignFilesAreTold) {
  EXPECT_EQ(Lit({}).Etat, EtatPhoto::kVide);
  EXPECT_EQ(Lit("this is no picture").Etat, EtatPhoto::kIllisible);
  EXPECT_EQ(Lit(Jpeg(64, 64).left(100)).Etat, EtatPhoto::kIllisible);
  EXPECT_EQ(Lit(Jpeg(64, 64, "png")).Etat, EtatPhoto::kIllisible) << "the name is not enough";
  EXPECT_EQ(Lit(QByteArray(100000, '\xff')).Etat, EtatPhoto::kIllisible);
}

TEST_F(Photos, OneThatEndsEarlyGivesWhatIsThere) {
  const QByteArray entiere = Jpeg(640, 480);
  const PhotoLue lue = Lit(entiere.left(entiere.size() / 2));
  EXPECT_EQ(lue.Etat, EtatPhoto::kLue);
  EXPECT_TRUE(lue.Coupee);
  EXPECT_NEAR(qRed(lue.Image.pixel(10, 10)), 200, 4);
}

TEST_F(Photos, EndOfAThumbnailIsNotTheEndOfThePicture) {
  const QByteArray vignette = Jpeg(16, 16);
  const auto taille = static_cast<int>(vignette.size()) + 2;
  QByteArray segment("\xff\xe1", 2);
  segment += static_cast<char>(taille >> 8);
  segment += static_cast<char>(taille);
  const QByteArray photo = Jpeg(640, 480).insert(2, segment + vignette);
  EXPECT_FALSE(Lit(photo).Coupee);
  EXPECT_FALSE(Lit(photo + "what a telephone writes behind it").Coupee);
  EXPECT_TRUE(Lit(photo.chopped(2)).Coupee) << "the end marker alone is missing";
}

TEST_F(Photos, HugeOneIsRefusedByItsHeader) {
  EXPECT_EQ(Lit(Pretend(20000, 20000)).Etat, EtatPhoto::kTropGrande);
  EXPECT_EQ(Lit(Pretend(65000, 65000)).Etat, EtatPhoto::kTropGrande);
  EXPECT_EQ(Lit(Pretend(8001, 4000)).Etat, EtatPhoto::kTropGrande) << "one column above 32 million";
}

TEST_F(Photos, GoneOneAndAFolderAreTold) {
  EXPECT_EQ(Lecteur.LitPhoto(Dossier.path() + QStringLiteral("\\nobody.jpg")).Etat, EtatPhoto::kAbsente);
  EXPECT_EQ(Lecteur.LitPhoto(Dossier.path()).Etat, EtatPhoto::kAbsente);
}

}  // namespace
}  // namespace vaktor
