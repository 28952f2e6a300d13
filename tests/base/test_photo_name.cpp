// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "base/photo_name.h"

namespace vaktor {
namespace {

TEST(PhotoName, TellsDayTimeAndNumber) {
  const NomPhoto voulu{QDate(2026, 11, 15), QTime(14, 5, 9), 3};
  EXPECT_EQ(LitNomPhoto(u"2026-11-15  14-05-09 Photo 00003.jpg"), voulu);
  EXPECT_EQ(LitNomPhoto(u"2026-11-15  14-05-09 Photo 3.jpg"), voulu);
  EXPECT_EQ(LitNomPhoto(u"2026-11-15  14-05-09 Photo 00003za.JPG"), voulu);
  for (const char16_t* nom :
       {u"", u"a.jpg", u"2026-11-15 14-05-09 Photo 00003.jpg", u"2026-13-15  14-05-09 Photo 00003.jpg",
        u"2026-11-15  24-05-09 Photo 00003.jpg", u"2026-11-15  14-05-09 Photo .jpg",
        u"2026-11-15  14-05-09 Photo 99999999999.jpg", u"2026-11-15  14-05-09 Photo 00003.png",
        u"2026-11-1x  14-05-09 Photo 00003.jpg", u"2026-11-15  14-05-09 Photo 00003"}) {
    EXPECT_FALSE(LitNomPhoto(nom)) << QString::fromUtf16(nom).toStdString();
  }
}

}  // namespace
}  // namespace vaktor
