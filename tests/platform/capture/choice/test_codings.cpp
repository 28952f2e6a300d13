// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QSet>
#include <QString>

#include "platform/capture/choice/codings.h"

namespace vaktor {
namespace {

TEST(Codings, EachCodeStandsThereOnceAndIsFound) {
  QSet<QString> codes;
  for (const CodageCamera& codage : TousCodages()) {
    const QString code = QLatin1String(codage.V4L2);
    EXPECT_FALSE(codes.contains(code)) << codage.V4L2;
    codes.insert(code);
    EXPECT_EQ(TrouveCodage(code), &codage);
    const bool brut = QLatin1String(codage.Media) == QLatin1String("video/x-raw");
    EXPECT_EQ(codage.Format != nullptr, brut) << codage.V4L2;
  }
  EXPECT_GT(codes.size(), 30);
  EXPECT_EQ(TrouveCodage(QStringLiteral("BA81")), nullptr);
  EXPECT_EQ(TrouveCodage(QString()), nullptr);
}

TEST(Codings, CostWhatTheirPicturesCost) {
  const auto cout = [](const char* code) { return TrouveCodage(QLatin1String(code))->Cout; };
  for (const char* code : {"YUYV", "NV12", "YU12"}) EXPECT_EQ(cout(code), CoutCodage::kConversion) << code;
  for (const char* code : {"MJPG", "JPEG"}) EXPECT_EQ(cout(code), CoutCodage::kJpeg) << code;
  for (const char* code : {"UYVY", "YVYU", "YV12", "NV21", "GREY", "RGB3", "BGR3", "BGR4", "XR24", "BX24"})
    EXPECT_EQ(cout(code), CoutCodage::kAutreBrut) << code;
  for (const char* code : {"H264", "HEVC"}) EXPECT_EQ(cout(code), CoutCodage::kFilm) << code;
  EXPECT_EQ(cout("Y16"), CoutCodage::kInconnu);
}

}  // namespace
}  // namespace vaktor
