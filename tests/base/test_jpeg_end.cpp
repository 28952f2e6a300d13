// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include "base/jpeg_end.h"

namespace vaktor {
namespace {

QByteArray CreeJpeg(quint32 graine, int cote, bool progressif = false) {
  QImage image(cote, cote, QImage::Format_RGB32);
  for (int y = 0; y < cote; ++y) {
    for (int x = 0; x < cote; ++x) {
      graine = graine * 1'664'525U + 1'013'904'223U;
      image.setPixel(x, y, graine >> 8U);
    }
  }
  QBuffer octets;
  octets.open(QIODevice::WriteOnly);
  QImageWriter ecrivain(&octets, "jpg");
  ecrivain.setProgressiveScanWrite(progressif);
  EXPECT_TRUE(ecrivain.write(image));
  return octets.data();
}

/// A segment that holds `contenu`, as a camera puts its thumbnail into the header.
QByteArray Segment(char marque, const QByteArray& contenu) {
  const auto taille = static_cast<int>(contenu.size()) + 2;
  return QByteArray("\xff") + marque + static_cast<char>(taille >> 8) + static_cast<char>(taille) + contenu;
}

TEST(JpegEnd, EveryCutIsSeen) {
  for (const bool progressif : {false, true}) {
    const QByteArray image = CreeJpeg(1, 60, progressif);
    ASSERT_TRUE(EstJpegEntier(image));
    for (qsizetype n = 0; n < image.size(); ++n) ASSERT_EQ(FinJpeg(image.first(n)), -1) << n << progressif;
  }
}

TEST(JpegEnd, WhatLiesBehindThePictureLeavesItWholeForWhoShowsItAndNotForWhoSendsIt) {
  const QByteArray image = CreeJpeg(1, 60);
  EXPECT_EQ(FinJpeg(image + "what a telephone writes behind it"), image.size());
  EXPECT_FALSE(EstJpegEntier(image + "x"));
  const QByteArray petite = CreeJpeg(2, 40);
  EXPECT_FALSE(EstJpegEntier(petite + image.mid(petite.size()))) << "a small one written over a large one";
}

TEST(JpegEnd, WhatBeginsWithNoPictureIsNone) {
  EXPECT_FALSE(EstJpegEntier({}));
  EXPECT_FALSE(EstJpegEntier("x" + CreeJpeg(1, 60)));
  EXPECT_FALSE(EstJpegEntier(QByteArray("\xFF\xD8\xFF\xD9", 4))) << "no picture in it";
  EXPECT_FALSE(EstJpegEntier(QByteArray("\xFF\xD8 a photo \xFF\xD9"))) << "first and last mark are not enough";
}

TEST(JpegEnd, ASegmentThatIsShorterThanItsOwnLengthIsNoSegment) {
  const QByteArray image = CreeJpeg(1, 60);
  for (const char longueur : {'\0', '\1'}) {
    const QByteArray faux = QByteArray("\xff\xe1\x00", 3) + longueur;
    EXPECT_FALSE(EstJpegEntier(QByteArray(image).insert(2, faux))) << int{longueur};
  }
}

TEST(JpegEnd, TheEndOfAThumbnailIsNotTheEndOfThePicture) {
  const QByteArray photo = CreeJpeg(1, 60).insert(2, Segment('\xe1', CreeJpeg(2, 16)));
  EXPECT_TRUE(EstJpegEntier(photo));
  EXPECT_EQ(FinJpeg(photo.chopped(2)), -1);
}

// Each byte of the picture's data in turn becomes a mark that would have a segment. Nothing may hide the end.
TEST(JpegEnd, WrongBytesOfThePictureDoNotHideItsEnd) {
  const QByteArray bonne = CreeJpeg(1, 60);
  const qsizetype donnees = bonne.indexOf("\xff\xda") + 14;
  ASSERT_GT(donnees, 14);
  ASSERT_GT(bonne.size(), donnees + 200);
  for (const char marque : {'\xc4', '\xda', '\xe1', '\xfe', '\x45'}) {
    for (qsizetype i = donnees; i + 10 < bonne.size(); i += 7) {
      QByteArray fausse = bonne;
      fausse[i] = '\xff';
      fausse[i + 1] = marque;
      ASSERT_EQ(FinJpeg(fausse), bonne.size()) << i;
    }
  }
}

}  // namespace
}  // namespace vaktor
