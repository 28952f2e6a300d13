// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <set>
#include <thread>

#include "platform/capture/frames/newest_frame.h"
#include "platform/capture/frames/plane_frame.h"

namespace vaktor {
namespace {

constexpr QSize kTaille(64, 48);

TEST(ReserveImages, GivesTheSameMemoryAgainWhenNobodyHoldsIt) {
  ReserveImages reserve;
  const uchar* premier = reserve.Prend(kTaille)->constBits();
  EXPECT_EQ(reserve.Prend(kTaille)->constBits(), premier);
  EXPECT_EQ(reserve.Nombre(), 1U);
}

TEST(ReserveImages, NeverGivesAwayWhatSomebodyHolds) {
  ReserveImages reserve;
  QImage* donnee = reserve.Prend(kTaille);
  donnee->fill(Qt::red);
  const QImage tenue = *donnee;
  QImage* suivante = reserve.Prend(kTaille);
  suivante->fill(Qt::blue);
  EXPECT_NE(suivante->constBits(), tenue.constBits());
  EXPECT_EQ(tenue.pixelColor(1, 1), QColor(Qt::red));
}

// The whole way: box, taker, shown image. After the first few frames no buffer is new.
TEST(ReserveImages, NeedsNoNewBufferInASteadyState) {
  ReserveImages reserve;
  DerniereImage derniere;
  QImage prise;
  QImage montree;
  std::set<const uchar*> memoires;
  for (int i = 0; i < 500; ++i) {
    QImage* image = reserve.Prend(kTaille);
    image->fill(static_cast<uint>(i));
    derniere.Depose(*image);
    if (i % 2 == 0) {
      montree = prise;
      prise = derniere.Prend(0).Image.Entiere();
    }
    memoires.insert(image->constBits());
  }
  EXPECT_LE(memoires.size(), 4U);
  EXPECT_LE(reserve.Nombre(), 4U);
}

TEST(ReserveImages, ForgetsTheOldSizeAndKeepsAFewOnly) {
  ReserveImages reserve;
  std::vector<QImage> tenues;
  tenues.reserve(50);
  for (int i = 0; i < 50; ++i) tenues.push_back(*reserve.Prend(kTaille));
  EXPECT_LE(reserve.Nombre(), 8U);
  std::set<const uchar*> memoires;
  for (const QImage& image : tenues) memoires.insert(image.constBits());
  EXPECT_EQ(memoires.size(), 50U);
  EXPECT_EQ(reserve.Prend(QSize(1, 1))->size(), QSize(1, 1));
  EXPECT_EQ(reserve.Nombre(), 1U);
}

TEST(DerniereImage, GivesOnlyWhatIsNewer) {
  DerniereImage derniere;
  EXPECT_EQ(derniere.Prend(0).Numero, 0U);
  QImage image(kTaille, QImage::Format_RGB32);
  derniere.Depose(image);
  derniere.Depose(image);
  EXPECT_EQ(derniere.Prend(0).Numero, 2U);
  EXPECT_EQ(derniere.Prend(2).Numero, 0U);
  EXPECT_FALSE(derniere.Perdu());
}

// One frame in two seconds is no stall for a camera that promises no more.
TEST(DerniereImage, WaitsLongerForACameraThatPromisesASlowRate) {
  DerniereImage derniere;
  FormatCamera format;
  EXPECT_EQ(derniere.DelaiPerte(), std::chrono::milliseconds(2000));
  format.CadenceNum = 1;
  format.CadenceDen = 2;
  derniere.FixeFormat(format);
  EXPECT_EQ(derniere.DelaiPerte(), std::chrono::milliseconds(8000));
}

// Cameras of the network promise 25 a second and send one in three seconds.
TEST(DerniereImage, WhatIsSeenCountsMoreThanWhatIsPromised) {
  using namespace std::chrono_literals;
  DerniereImage derniere(15s);
  FormatCamera format;
  format.CadenceNum = 25;
  derniere.FixeFormat(format);
  const QImage image(kTaille, QImage::Format_RGB32);
  derniere.Depose(image);
  EXPECT_EQ(derniere.DelaiPerte(), 15s) << "its gaps are not known yet";
  derniere.Depose(image);
  EXPECT_EQ(derniere.DelaiPerte(), 15s);
  std::this_thread::sleep_for(600ms);
  derniere.Depose(image);
  EXPECT_GE(derniere.DelaiPerte(), 2400ms);
  EXPECT_LT(derniere.DelaiPerte(), 10s);
}

TEST(DerniereImage, AnotherOpeningIsMeasuredAnewFromItsFirstFrameOn) {
  using namespace std::chrono_literals;
  DerniereImage derniere(15s);
  const QImage image(kTaille, QImage::Format_RGB32);
  for (int i = 0; i < 3; ++i) derniere.Depose(image);
  EXPECT_EQ(derniere.DelaiPerte(), 2s);
  derniere.NoteOuverture();
  EXPECT_EQ(derniere.DelaiPerte(), 2s) << "nothing has come of it: the loss is told as soon as before";
  std::this_thread::sleep_for(700ms);
  derniere.Depose(image);
  EXPECT_EQ(derniere.DelaiPerte(), 15s);
  derniere.Depose(image);
  derniere.Depose(image);
  EXPECT_EQ(derniere.DelaiPerte(), 2s) << "the time between the openings is no gap";
}

}  // namespace
}  // namespace vaktor
