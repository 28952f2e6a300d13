// SPDX-License-Identifier: GPL-3.0-or-later
// The slate of an intrusion as text, and what it says after many photos.
#include <gtest/gtest.h>

#include "journal/intrusion_slate_keeper.h"

namespace vaktor {
namespace {

const QDateTime kDebut(QDate(2026, 11, 22), QTime(3, 4, 5, 678), Qt::OffsetFromUTC, 3600);

ArdoiseIntrusion Modele() {
  return {kDebut,
          kDebut.addMSecs(1500),
          QSize(640, 480),
          {{QStringLiteral("2026-11-22  03-04-06 Photo 00002a.jpg"), 900, QRect(10, 20, 30, 40)},
           {QStringLiteral("2026-11-22  03-04-05 Photo 00001.jpg"), 31, QRect(1, 2, 3, 4)}}};
}

TEST(IntrusionSlate, IsReadAsItWasWritten) {
  const QByteArray texte = EcritArdoise(Modele());
  EXPECT_EQ(LitArdoise(texte), Modele());
  EXPECT_TRUE(texte.contains("\"since\":\"2026-11-22T03:04:05.678+01:00\"")) << texte.toStdString();
}

TEST(IntrusionSlate, CutAnywhereItIsNone) {
  const QByteArray texte = EcritArdoise(Modele());
  for (qsizetype i = 0; i < texte.size(); ++i) EXPECT_FALSE(LitArdoise(texte.first(i))) << i;
}

TEST(IntrusionSlate, AnotherVersionABadMomentAndAHugeFileAreNone) {
  const QByteArray texte = EcritArdoise(Modele());
  EXPECT_FALSE(LitArdoise(QByteArray(texte).replace("\"version\":1", "\"version\":2")));
  EXPECT_FALSE(LitArdoise(QByteArray(texte).replace("2026-11-22T03:04:05.678", "yesterday")));
  EXPECT_FALSE(LitArdoise(texte + QByteArray(kOctetsArdoise, ' ')));
}

TEST(IntrusionSlate, NamesWithFoldersAreLeftOutAndTheOrderIsThatOfTheMovement) {
  ArdoiseIntrusion fausse = Modele();
  fausse.Photos = {
      {QStringLiteral("a.jpg"), 5, {}}, {QStringLiteral("../b.jpg"), 9, {}}, {QStringLiteral("c.jpg"), 7, {}}};
  const auto lue = LitArdoise(EcritArdoise(fausse));
  ASSERT_TRUE(lue && lue->Photos.size() == 2);
  EXPECT_EQ(lue->Photos[0].Nom, QStringLiteral("c.jpg"));
}

TEST(IntrusionSlate, AReportBelongsToItFromItsBeginningToItsEnd) {
  const ArdoiseIntrusion ardoise = Modele();
  const qint64 debut = kDebut.toMSecsSinceEpoch();
  EXPECT_TRUE(EstDeCetteIntrusion(ardoise, debut));
  EXPECT_TRUE(EstDeCetteIntrusion(ardoise, debut + 1500 + kReposArdoise));
  EXPECT_FALSE(EstDeCetteIntrusion(ardoise, debut + 1501 + kReposArdoise));
  EXPECT_FALSE(EstDeCetteIntrusion(ardoise, debut - 1001));
}

TEST(IntrusionSlate, KeepsThePhotosOfTheMostMovementTheEarlierOfTwo) {
  TeneurArdoise teneur(kDebut);
  for (int i = 0; i < 300; ++i) {
    teneur.NoteImage(kDebut, i, i % 100, {}, QSize(4, 3));
    teneur.NotePhoto(QStringLiteral("%1.jpg").arg(i));
  }
  const QByteArray texte = teneur.PrendTexte().value_or(QByteArray());
  const auto lue = LitArdoise(texte);
  ASSERT_TRUE(lue);
  ASSERT_EQ(lue->Photos.size(), kPhotosArdoise);
  EXPECT_EQ(lue->Photos[0].Nom, QStringLiteral("99.jpg"));
  EXPECT_EQ(lue->Photos[1].Nom, QStringLiteral("199.jpg"));
  EXPECT_EQ(lue->Photos[3].Nom, QStringLiteral("98.jpg"));
  EXPECT_EQ(lue->Photos.constLast().Points, 78);
}

TEST(IntrusionSlate, TheLongestNamesFitIntoIt) {
  TeneurArdoise teneur(kDebut);
  for (int i = 0; i < 64; ++i) {
    teneur.NoteImage(kDebut, i, 2'000'000'000, QRect(9999, 9999, 9999, 9999), QSize(9999, 9999));
    teneur.NotePhoto(QString(250, u'\u00e9') + QString::number(100 + i));
  }
  EXPECT_TRUE(LitArdoise(teneur.PrendTexte().value_or(QByteArray())));
}

TEST(IntrusionSlate, IsWrittenWhenItsPhotosChangeAndElseOnceASecond) {
  TeneurArdoise teneur(kDebut);
  teneur.NoteImage(kDebut, 0, 500, {}, {});
  EXPECT_TRUE(teneur.PrendTexte());
  EXPECT_FALSE(teneur.PrendTexte());
  teneur.NotePhoto(QStringLiteral("a.jpg"));
  EXPECT_TRUE(teneur.PrendTexte());
  teneur.NotePhoto(QStringLiteral("a.jpg"));
  EXPECT_FALSE(teneur.PrendTexte()) << "the copy for the companions has the same name";
  teneur.NoteImage(kDebut.addMSecs(999), TeneurArdoise::kRythmeMs - 1, 40, {}, {});
  EXPECT_FALSE(teneur.PrendTexte());
  teneur.NoteImage(kDebut.addMSecs(1000), TeneurArdoise::kRythmeMs, 40, {}, {});
  const auto texte = teneur.PrendTexte();
  ASSERT_TRUE(texte);
  EXPECT_EQ(LitArdoise(*texte)->Jusqua, kDebut.addMSecs(1000));
}

}  // namespace
}  // namespace vaktor
