// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <QColor>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/image/turbo_jpeg_encoder.h"

namespace vaktor {
namespace {

struct EnTete {
  int Largeur = 0, Hauteur = 0, SousEchantillonnage = -1;
};

/// A picture of soft colour slopes, which a JPEG keeps nearly as they are.
QImage Pente(int largeur, int hauteur) {
  QImage image(largeur, hauteur, QImage::Format_RGB32);
  for (int y = 0; y < hauteur; ++y) {
    for (int x = 0; x < largeur; ++x) {
      image.setPixel(x, y, qRgb(200 * x / largeur, 200 * y / hauteur, 100));
    }
  }
  return image;
}

int EcartMaximal(const QImage& a, const QImage& b) {
  int ecart = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      for (const int d : {qRed(p) - qRed(q), qGreen(p) - qGreen(q), qBlue(p) - qBlue(q)}) {
        ecart = std::max(ecart, std::abs(d));
      }
    }
  }
  return ecart;
}

/// The markers of a JPEG file up to its picture data, as their second bytes.
std::vector<int> Marqueurs(QByteArrayView jpeg) {
  const auto octet = [&jpeg](qsizetype i) { return static_cast<int>(static_cast<unsigned char>(jpeg[i])); };
  std::vector<int> marqueurs;
  for (qsizetype i = 2; i + 3 < jpeg.size() && octet(i) == 0xff; i += 2 + octet(i + 2) * 256 + octet(i + 3)) {
    marqueurs.push_back(octet(i + 1));
    if (marqueurs.back() == 0xda) break;
  }
  return marqueurs;
}

class TurboJpegEncoder : public testing::Test {
 protected:
  QByteArrayView Encode(const QImage& image, quint8 qualite = 90) {
    QByteArrayView octets;
    EXPECT_EQ(Encodeur.Demarre(), StatutJpeg::kReussi);
    EXPECT_EQ(Encodeur.Encode(image, qualite, octets), StatutJpeg::kReussi);
    return octets;
  }
  StatutJpeg StatutDe(const QImage& image, quint8 qualite = 50) {
    QByteArrayView octets;
    return Encodeur.Encode(image, qualite, octets);
  }
  /// Reads a JPEG back with the library itself.
  static QImage Decode(QByteArrayView jpeg, EnTete& tete) {
    const std::unique_ptr<void, int (*)(void*)> poignee(tjInitDecompress(), tjDestroy);
    const auto* source = reinterpret_cast<const unsigned char*>(jpeg.data());
    const auto taille = static_cast<unsigned long>(jpeg.size());
    int espace = 0;
    if (tjDecompressHeader3(poignee.get(), source, taille, &tete.Largeur, &tete.Hauteur, &tete.SousEchantillonnage,
                            &espace) != 0) {
      return {};
    }
    QImage image(tete.Largeur, tete.Hauteur, QImage::Format_RGB32);
    const auto pas = static_cast<int>(image.bytesPerLine());
    const int resultat = tjDecompress2(poignee.get(), source, taille, image.bits(), tete.Largeur, pas, tete.Hauteur,
                                       TJPF_BGRX, TJFLAG_ACCURATEDCT);
    return resultat == 0 ? image : QImage();
  }
  static QImage Decode(QByteArrayView jpeg) {
    EnTete tete;
    return Decode(jpeg, tete);
  }

  EncodeurTurboJpeg Encodeur;
};

TEST_F(TurboJpegEncoder, KeepsThePicturesSizeAndColours) {
  const QImage photo = Pente(640, 480);
  EnTete tete;
  const QImage relu = Decode(Encode(photo), tete);
  EXPECT_EQ(relu.size(), photo.size());
  EXPECT_EQ(tete.SousEchantillonnage, TJSAMP_420);
  EXPECT_LE(EcartMaximal(photo, relu), 12);
}

TEST_F(TurboJpegEncoder, TakesSizesThatAreNoMultipleOfABlock) {
  for (const auto& [largeur, hauteur] : {std::pair{1, 1}, {1, 50}, {37, 23}, {641, 479}}) {
    const QImage photo = Pente(largeur, hauteur);
    const QImage relu = Decode(Encode(photo, 100));
    ASSERT_EQ(relu.size(), photo.size());
    EXPECT_LE(EcartMaximal(photo, relu), 24) << largeur << "x" << hauteur;
  }
}

TEST_F(TurboJpegEncoder, ReadsFramesWhoseRowsAreLongerThanTheirPixels) {
  const QImage photo = Pente(33, 20);
  constexpr int kPas = 33 * 4 + 60;
  std::vector<uchar> memoire(static_cast<std::size_t>(kPas) * 20, uchar{0xee});
  QImage trame(memoire.data(), 33, 20, kPas, QImage::Format_RGB32);
  for (int y = 0; y < 20; ++y) std::copy_n(photo.constScanLine(y), 33 * 4, trame.scanLine(y));
  const QByteArray direct = Encode(photo).toByteArray();
  EXPECT_EQ(Encode(trame).toByteArray(), direct);
}

TEST_F(TurboJpegEncoder, TheByteBesideTheColoursDoesNotCount) {
  QImage photo = Pente(32, 32);
  const QByteArray plein = Encode(photo).toByteArray();
  for (int i = 3; i < photo.sizeInBytes(); i += 4) photo.bits()[i] = 0;
  EXPECT_EQ(Encode(photo).toByteArray(), plein);
}

TEST_F(TurboJpegEncoder, OtherFormatsGiveTheSamePhoto) {
  const QImage photo = Pente(48, 32);
  const QByteArray attendu = Encode(photo).toByteArray();
  EXPECT_EQ(Encode(photo.convertToFormat(QImage::Format_RGB888)).toByteArray(), attendu);
  EXPECT_EQ(Encode(photo.convertToFormat(QImage::Format_ARGB32)).toByteArray(), attendu);
}

TEST_F(TurboJpegEncoder, HoldsNothingButThePicture) {
  const std::vector<int> marqueurs = Marqueurs(Encode(Pente(32, 32)));
  ASSERT_FALSE(marqueurs.empty());
  EXPECT_EQ(marqueurs.back(), 0xda) << "read as far as the picture data";
  for (const int marqueur : marqueurs) {
    EXPECT_NE(marqueur, 0xfe) << "a comment";
    EXPECT_FALSE(marqueur > 0xe0 && marqueur <= 0xef) << "metadata, segment " << marqueur;
  }
}

TEST_F(TurboJpegEncoder, QualityGoesFromZeroTo100AndNoFurther) {
  const QImage photo = Pente(320, 240);
  const qsizetype basse = Encode(photo, 0).size();
  const qsizetype moyenne = Encode(photo, 50).size();
  const qsizetype haute = Encode(photo, 100).size();
  EXPECT_GT(basse, 0);
  EXPECT_LT(basse, moyenne);
  EXPECT_LT(moyenne, haute);
  EXPECT_EQ(StatutDe(photo, 101), StatutJpeg::kParametreInvalide);
  EXPECT_EQ(StatutDe(photo, 255), StatutJpeg::kParametreInvalide);
}

TEST_F(TurboJpegEncoder, NoPictureIsAnInvalidParameter) {
  EXPECT_EQ(StatutDe(QImage()), StatutJpeg::kParametreInvalide);
}

TEST_F(TurboJpegEncoder, APictureBeyondTheFormatIsRefusedAndTheLargestTaken) {
  EXPECT_EQ(StatutDe(QImage(65'501, 1, QImage::Format_RGB32)), StatutJpeg::kValeurTropGrande);
  EXPECT_EQ(StatutDe(QImage(1, 65'501, QImage::Format_RGB32)), StatutJpeg::kValeurTropGrande);
  EXPECT_EQ(Decode(Encode(Pente(65'500, 1))).width(), 65'500);
}

TEST_F(TurboJpegEncoder, ItsMemoryIsKeptForPhotosThatAreNotLarger) {
  const char* premiere = Encode(Pente(320, 240)).data();
  EXPECT_EQ(Encode(Pente(320, 240)).data(), premiere);
  EXPECT_EQ(Encode(Pente(16, 16)).data(), premiere);
  EXPECT_EQ(Decode(Encode(Pente(1280, 720))).width(), 1280) << "and grows for those that are";
  EXPECT_EQ(Decode(Encode(Pente(320, 240))).width(), 320);
}

TEST_F(TurboJpegEncoder, TheWorstPictureFitsItsMemory) {
  QImage bruit(333, 222, QImage::Format_RGB32);
  quint32 etat = 1;
  for (int y = 0; y < bruit.height(); ++y) {
    for (int x = 0; x < bruit.width(); ++x) {
      etat = etat * 1'664'525U + 1'013'904'223U;
      bruit.setPixel(x, y, etat);
    }
  }
  EXPECT_EQ(Decode(Encode(bruit, 100)).size(), bruit.size());
}

}  // namespace
}  // namespace vaktor
