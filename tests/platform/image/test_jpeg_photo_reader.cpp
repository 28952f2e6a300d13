// SPDX-License-Identifier: GPL-3.0-or-later
// Photos as they lie on a disk: whole, damaged, cut, empty, huge, of another kind, gone.
#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <QBuffer>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QTemporaryDir>

#include "platform/image/jpeg_photo_reader.h"
#include "platform/image/turbo_jpeg_encoder.h"

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
  static QByteArray JpegParPasses() {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(qRgb(200, 60, 20));
    QByteArray octets;
    QBuffer sortie(&octets);
    sortie.open(QIODevice::WriteOnly);
    QImageWriter ecrivain(&sortie, "jpeg");
    ecrivain.setProgressiveScanWrite(true);
    EXPECT_TRUE(ecrivain.write(image));
    return octets;
  }
  /// 40 million pixels: the left half red, the right half blue.
  static QByteArray Grande() {
    QImage image(8000, 5000, QImage::Format_RGB32);
    image.fill(qRgb(220, 20, 20));
    QPainter(&image).fillRect(4000, 0, 4000, 5000, QColor(20, 20, 220));
    EncodeurTurboJpeg encodeur;
    QByteArrayView octets;
    EXPECT_EQ(encodeur.Encode(image, 80, octets), StatutJpeg::kReussi);
    return octets.toByteArray();
  }
  static void ExigeGrande(const PhotoLue& lue) {
    ASSERT_EQ(lue.Etat, EtatPhoto::kLue);
    EXPECT_EQ(lue.Defaut, Dommage::kAucun);
    EXPECT_EQ(lue.Image.size(), QSize(7000, 4375)) << "seven eighths: below 32 million, and no smaller than need be";
    EXPECT_NEAR(qRed(lue.Image.pixel(100, 4300)), 220, 6);
    EXPECT_NEAR(qBlue(lue.Image.pixel(6900, 50)), 220, 6);
  }
  PhotoLue Lit(const QByteArray& octets) {
    QFile fichier(Dossier.filePath(QStringLiteral("x.jpg")));
    EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
    fichier.close();
    return LitPhotoJpeg(Dossier.path() + QStringLiteral("\\x.jpg"));
  }
  /// A picture that says in its header that it is this large.
  static QByteArray Pretend(int largeur, int hauteur, bool parPasses = false) {
    QByteArray octets = parPasses ? JpegParPasses() : Jpeg(64, 64);
    const qsizetype sof = octets.indexOf(QByteArray(parPasses ? "\xff\xc2" : "\xff\xc0", 2));
    EXPECT_GT(sof, 0);
    octets[sof + 5] = static_cast<char>(hauteur >> 8);
    octets[sof + 6] = static_cast<char>(hauteur);
    octets[sof + 7] = static_cast<char>(largeur >> 8);
    octets[sof + 8] = static_cast<char>(largeur);
    return octets;
  }

  QTemporaryDir Dossier;
};

TEST_F(Photos, WholeOneComesInItsOwnSize) {
  const PhotoLue lue = Lit(Jpeg(320, 240));
  EXPECT_EQ(lue.Etat, EtatPhoto::kLue);
  EXPECT_EQ(lue.Defaut, Dommage::kAucun);
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
  EXPECT_EQ(lue.Defaut, Dommage::kCoupee);
  EXPECT_NEAR(qRed(lue.Image.pixel(10, 10)), 200, 4);
}

TEST_F(Photos, EndOfAThumbnailIsNotTheEndOfThePicture) {
  const QByteArray vignette = Jpeg(16, 16);
  const auto taille = static_cast<int>(vignette.size()) + 2;
  QByteArray segment("\xff\xe1", 2);
  segment += static_cast<char>(taille >> 8);
  segment += static_cast<char>(taille);
  const QByteArray photo = Jpeg(640, 480).insert(2, segment + vignette);
  EXPECT_EQ(Lit(photo).Defaut, Dommage::kAucun);
  EXPECT_EQ(Lit(photo + "what a telephone writes behind it").Defaut, Dommage::kAucun);
  EXPECT_EQ(Lit(photo.chopped(2)).Defaut, Dommage::kCoupee) << "the end marker alone is missing";
}

/// A photo as the program writes it: noise, so that every part of the file is scan.
QByteArray Ecrite() {
  QImage image(640, 480, QImage::Format_RGB32);
  quint32 graine = 1;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      graine = graine * 1664525U + 1013904223U;
      image.setPixel(x, y, 0xff000000U | (graine >> 8));
    }
  }
  EncodeurTurboJpeg encodeur;
  QByteArrayView octets;
  EXPECT_EQ(encodeur.Encode(image, 80, octets), StatutJpeg::kReussi);
  return octets.toByteArray();
}

TEST_F(Photos, OneOfOursIsWhole) {
  const PhotoLue lue = Lit(Ecrite());
  EXPECT_EQ(lue.Etat, EtatPhoto::kLue);
  EXPECT_EQ(lue.Defaut, Dommage::kAucun);
}

TEST_F(Photos, WrongBytesInTheMiddleAreToldAndThePictureIsShown) {
  const PhotoLue bonne = Lit(Ecrite());
  for (const char faux : {'\x00', '\x55', '\x7e'}) {
    QByteArray octets = Ecrite();
    octets.replace(octets.size() / 2, 300, QByteArray(300, faux));
    const PhotoLue lue = Lit(octets);
    EXPECT_EQ(lue.Etat, EtatPhoto::kLue);
    EXPECT_EQ(lue.Defaut, Dommage::kFausse) << int{faux};
    ASSERT_EQ(lue.Image.size(), QSize(640, 480));
    EXPECT_EQ(lue.Image.copy(0, 0, 640, 200), bonne.Image.copy(0, 0, 640, 200)) << "what comes before is as it was";
  }
}

TEST_F(Photos, OneOfOursThatWasNotWrittenToTheEndIsToldAsCut) {
  const QByteArray entiere = Ecrite();
  for (const qsizetype taille : {entiere.size() / 3, entiere.size() / 2, entiere.size() - 1}) {
    const PhotoLue lue = Lit(entiere.first(taille));
    EXPECT_EQ(lue.Etat, EtatPhoto::kLue);
    EXPECT_EQ(lue.Defaut, Dommage::kCoupee) << taille;
  }
}

TEST_F(Photos, GreyOneAndOneInPrintingInksAreShown) {
  QImage grise(32, 32, QImage::Format_Grayscale8);
  grise.fill(90);
  QByteArray octets;
  QBuffer sortie(&octets);
  sortie.open(QIODevice::WriteOnly);
  ASSERT_TRUE(grise.save(&sortie, "jpeg", 90));
  EXPECT_NEAR(qRed(Lit(octets).Image.pixel(3, 3)), 90, 4);
  const std::vector<unsigned char> encres(32UL * 32 * 4, 255);
  unsigned char* ecrit = nullptr;
  unsigned long taille = 0;
  const tjhandle poignee = tjInitCompress();
  ASSERT_EQ(tjCompress2(poignee, encres.data(), 32, 0, 32, TJPF_CMYK, &ecrit, &taille, TJSAMP_444, 90, 0), 0);
  const PhotoLue encree = Lit(QByteArray(reinterpret_cast<const char*>(ecrit), static_cast<qsizetype>(taille)));
  tjFree(ecrit);
  tjDestroy(poignee);
  EXPECT_EQ(encree.Etat, EtatPhoto::kLue);
  EXPECT_EQ(encree.Image.size(), QSize(32, 32));
}

// Each pass over the picture costs as much as the whole of another: a small file may hold the gallery up for minutes.
TEST_F(Photos, OneOfHundredsOfPassesIsRefused) {
  const QByteArray passes = JpegParPasses();
  const qsizetype debut = passes.indexOf(QByteArray("\xff\xda"));
  const qsizetype fin = passes.indexOf(QByteArray("\xff"), debut + 2);
  ASSERT_GT(debut, 0);
  ASSERT_GT(fin, debut);
  QByteArray beaucoup = passes.left(debut);
  for (int i = 0; i < 1000; ++i) beaucoup += passes.mid(debut, fin - debut);
  EXPECT_EQ(Lit(beaucoup + passes.mid(fin)).Etat, EtatPhoto::kIllisible);
}

TEST_F(Photos, OneAbove32MillionPixelsIsShownSmaller) { ExigeGrande(Lit(Grande())); }

TEST_F(Photos, LargeOneInAFileThatIsNotReadWholeIsShownSmallerToo) {
  Lit(Grande());
  QFile fichier(Dossier.filePath(QStringLiteral("x.jpg")));
  ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
  ASSERT_TRUE(fichier.resize(65LL * 1024 * 1024));
  ExigeGrande(LitPhotoJpeg(fichier.fileName()));
}

TEST_F(Photos, HugeOneTakesTheEighthsThatFitWhateverItsHeaderSays) {
  const PhotoLue lue = Lit(Pretend(20000, 20000));
  EXPECT_EQ(lue.Etat, EtatPhoto::kLue);
  EXPECT_EQ(lue.Image.size(), QSize(5000, 5000));
  EXPECT_EQ(lue.Defaut, Dommage::kFausse) << "there is hardly a picture behind the header";
  EXPECT_EQ(Lit(Pretend(8001, 4000)).Image.size(), QSize(7001, 3500)) << "one column above 32 million";
}

TEST_F(Photos, OneThatFitsInNoEighthOrWantsItsMemoryForSeveralPassesIsRefusedByItsHeader) {
  EXPECT_EQ(Lit(Pretend(65000, 65000)).Etat, EtatPhoto::kTropGrande);
  EXPECT_EQ(Lit(JpegParPasses()).Defaut, Dommage::kAucun);
  EXPECT_EQ(Lit(JpegParPasses()).Image.size(), QSize(64, 64));
  EXPECT_EQ(Lit(Pretend(9000, 8000, true)).Etat, EtatPhoto::kTropGrande) << "all of it is kept before it is scaled";
}

TEST_F(Photos, GoneOneAndAFolderAreTold) {
  EXPECT_EQ(LitPhotoJpeg(Dossier.path() + QStringLiteral("\\nobody.jpg")).Etat, EtatPhoto::kAbsente);
  EXPECT_EQ(LitPhotoJpeg(Dossier.path()).Etat, EtatPhoto::kAbsente);
}

}  // namespace
}  // namespace vaktor
