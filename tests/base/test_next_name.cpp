// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "base/next_name.h"

namespace vaktor {
namespace {

TEST(NextName, ALetterFollowsTheNumber) {
  EXPECT_EQ(NomVoisin("/p.d/2026-11-15  14-05-09 Photo 00012.jpg", 1), "/p.d/2026-11-15  14-05-09 Photo 00012a.jpg");
  EXPECT_EQ(NomVoisin("Photo 00012.jpg", 2), "Photo 00012b.jpg");
  EXPECT_EQ(NomVoisin("/p.d/photo", 1), "/p.d/photoa");
  EXPECT_EQ(NomVoisin("/p/.jpg", 1), "/p/.jpga");
}

TEST(NextName, NamesNeverRunOutAndSortInTheirOrderBeforeTheNextNumber) {
  QByteArray avant = "Photo 00012.jpg";
  for (int rang = 1; rang <= 100; ++rang) {
    const QByteArray nom = NomVoisin("Photo 00012.jpg", rang);
    EXPECT_LT(avant, nom);
    EXPECT_LT(nom, QByteArray("Photo 00013.jpg"));
    avant = nom;
  }
  EXPECT_EQ(NomVoisin("n.jpg", 26), "nz.jpg");
  EXPECT_EQ(NomVoisin("n.jpg", 27), "nza.jpg");
}

}  // namespace
}  // namespace vaktor
