// SPDX-License-Identifier: GPL-3.0-or-later
// A line of the journal as text, whatever stands in it.
#include <gtest/gtest.h>

#include <QTimeZone>

#include "journal/journal_entry.h"

namespace vaktor {
namespace {

QDateTime Moment(int jour, int heure, int minute = 0, int seconde = 0) {
  return QDateTime(QDate(2026, 11, jour), QTime(heure, minute, seconde), Qt::OffsetFromUTC, 3600);
}

EntreeJournal Complete() {
  EntreeJournal entree;
  entree.Quoi = Fait::kFinIntrusion;
  entree.Quand = Moment(22, 3, 12, 19).addMSecs(120);
  entree.Course = QStringLiteral("k3a9-1200");
  entree.DepuisDepart = 7'200'123;
  entree.Depuis = Moment(22, 3, 12, 5);
  entree.DureeMs = 4123;
  entree.Images = 120;
  entree.Points = 873;
  entree.Cadre = QRect(0, 20, 201, 180);
  entree.Photos = 118;
  entree.Dossier = QString::fromUtf8("/home/anna/Été\\intrus");
  entree.Premiere = QStringLiteral("2026-11-22  03-12-05 Photo 00001.jpg");
  entree.Derniere = QStringLiteral("2026-11-22  03-12-09 Photo 00118.jpg");
  entree.Meilleure = QStringLiteral("2026-11-22  03-12-07 Photo 00060.jpg");
  entree.Cadres = {{1, QRect(3, 4, 5, 6)}, {60, QRect(0, 20, 201, 180)}};
  return entree;
}

TEST(JournalEntry, IsTheSameAfterItWasWrittenAndRead) {
  const EntreeJournal entree = Complete();
  const QByteArray ligne = EcritLigne(entree);
  EXPECT_FALSE(ligne.contains('\n'));
  const auto lue = LitLigne(ligne);
  ASSERT_TRUE(lue);
  EXPECT_EQ(*lue, entree);
  EXPECT_EQ(lue->Quand.offsetFromUtc(), 3600);
}

TEST(JournalEntry, EachFactHasItsWordThatNeverChanges) {
  const QList<QByteArray> mots = {"started",        "stopped",          "armed",          "disarmed",
                                  "alive",          "intrusion-begins", "intrusion-ends", "mail-accepted",
                                  "page-refreshed", "condition-begins", "condition-ends"};
  for (int i = 0; i < mots.size(); ++i) {
    const QByteArray ligne = EcritLigne({.Quoi = static_cast<Fait>(i), .Quand = Moment(22, 3)});
    EXPECT_TRUE(ligne.contains("\"what\":\"" + mots[i] + '"')) << ligne.toStdString();
    const auto lue = LitLigne(ligne);
    ASSERT_TRUE(lue);
    EXPECT_EQ(lue->Quoi, static_cast<Fait>(i));
  }
}

TEST(JournalEntry, AConditionKeepsItsWordDetailAndThatItIsOver) {
  EntreeJournal entree{.Quoi = Fait::kDebutCondition, .Quand = Moment(22, 3), .Depuis = Moment(22, 2)};
  entree.Mot = QStringLiteral("interruption");
  entree.Detail = QStringLiteral("a \"detail\"\nin two lines");
  entree.Evenement = true;
  const QByteArray ligne = EcritLigne(entree);
  EXPECT_FALSE(ligne.contains('\n'));
  EXPECT_EQ(LitLigne(ligne), entree);
}

TEST(JournalEntry, MostBoxesStillFitIntoALine) {
  EntreeJournal entree = Complete();
  entree.Cadres.clear();
  for (int i = 0; i < 2 * kCadresMax; ++i) entree.Cadres.append({2'000'000'000 - i, QRect(3000, 2000, 3840, 2160)});
  const QByteArray ligne = EcritLigne(entree);
  EXPECT_LE(ligne.size(), kLigneMax);
  const auto lue = LitLigne(ligne);
  ASSERT_TRUE(lue);
  EXPECT_EQ(lue->Cadres.size(), kCadresMax);
}

TEST(JournalEntry, WhatIsNoLineOfOursIsNone) {
  for (const char* ligne :
       {"", "x", "[1]", "{}", "{\"v\":1}", "{\"v\":2,\"at\":\"2026-11-22T03:00:00.000+01:00\",\"what\":\"armed\"}",
        "{\"v\":1,\"at\":\"2026-11-22T03:00:00.000+01:00\",\"what\":\"danced\"}",
        "{\"v\":1,\"at\":\"yesterday\",\"what\":\"armed\"}",
        "{\"v\":1,\"at\":\"9999-11-22T03:00:00.000Z\",\"what\":\"armed\"}",
        "{\"v\":1,\"at\":\"0001-01-01T03:00:00.000Z\",\"what\":\"armed\"}"}) {
    EXPECT_FALSE(LitLigne(QByteArray(ligne))) << ligne;
  }
  const QByteArray longue =
      "{\"v\":1,\"at\":\"2026-11-22T03:00:00.000Z\",\"what\":\"armed\",\"x\":\"" + QByteArray(kLigneMax, 'x') + "\"}";
  EXPECT_FALSE(LitLigne(longue));
}

TEST(JournalEntry, NumbersOutOfAllRangeAreCutAndNeverOverflow) {
  const auto lue = LitLigne(
      "{\"v\":1,\"at\":\"2026-11-22T03:00:00.000Z\",\"what\":\"intrusion-ends\",\"length\":1e300,\"frames\":-5,"
      "\"samples\":99999999999,\"box\":[-1,1e99,5,7],\"up\":1e40,\"boxes\":[1,2,3]}");
  ASSERT_TRUE(lue);
  EXPECT_EQ(lue->DureeMs, 366LL * 86'400'000);
  EXPECT_EQ(lue->Images, 0);
  EXPECT_EQ(lue->Points, 2147483647);
  EXPECT_EQ(lue->Cadre, QRect(0, 1'000'000, 5, 7));
  EXPECT_TRUE(lue->Cadres.isEmpty());
}

QByteArray Fin(const QByteArray& champs) {
  return "{\"v\":1,\"at\":\"2026-11-22T03:00:00.000Z\",\"what\":\"intrusion-ends\"," + champs + "}";
}

TEST(JournalEntry, ABoxHasFourNumbersAndThoseOfPhotosFiveEachAndNoMoreThanALineHasRoomFor) {
  EXPECT_TRUE(LitLigne(Fin("\"box\":[1,2,3,4,5]"))->Cadre.isEmpty());
  EXPECT_EQ(LitLigne(Fin("\"box\":[1,2,3,4]"))->Cadre, QRect(1, 2, 3, 4));
  const QList<CadrePhoto> un = {{7, QRect(1, 2, 3, 4)}};
  EXPECT_EQ(LitLigne(Fin("\"boxes\":[7,1,2,3,4,8,1,2]"))->Cadres, un) << "a torn one is none";
  QByteArray tous;
  for (int i = 0; i < kCadresMax + 50; ++i) tous += "1,1,1,1,1,";
  EXPECT_EQ(LitLigne(Fin("\"boxes\":[" + tous.chopped(1) + "]"))->Cadres.size(), kCadresMax);
}

TEST(JournalEntry, ATextIsCutAtItsBoundAndHalfACharacterIsNone) {
  const auto lue = LitLigne(Fin("\"folder\":\"" + QByteArray(5000, 'x') + "\",\"best\":\"a\\ud83d\""));
  ASSERT_TRUE(lue);
  EXPECT_EQ(lue->Dossier.size(), 4096);
  EXPECT_EQ(QString::fromUtf8(lue->Meilleure.toUtf8()), lue->Meilleure);
  EXPECT_EQ(lue->Meilleure.at(0), u'a');
}

TEST(JournalEntry, TheYear3000IsDamage) {
  EXPECT_TRUE(LitLigne("{\"v\":1,\"at\":\"2999-12-31T03:00:00.000Z\",\"what\":\"armed\"}"));
  EXPECT_FALSE(LitLigne("{\"v\":1,\"at\":\"3000-01-01T03:00:00.000Z\",\"what\":\"armed\"}"));
}

TEST(JournalText, WhereverItIsCutOnlyTheTornLineIsLost) {
  const QByteArray ligne = EcritLigne({.Quoi = Fait::kArmee, .Quand = Moment(22, 3)}) + '\n';
  const QByteArray tout = ligne + ligne + ligne;
  for (qsizetype coupe = 0; coupe <= tout.size(); ++coupe) {
    const JournalLu lu = LitJournal(QByteArrayView(tout).first(coupe));
    // A line whose break alone is missing is whole.
    const qsizetype entieres = (coupe + 1) / ligne.size();
    EXPECT_EQ(lu.Entrees.size(), entieres) << coupe;
    EXPECT_EQ(lu.Illisibles, coupe > entieres * ligne.size() ? 1 : 0) << coupe;
  }
}

TEST(JournalText, DamageInTheMiddleCostsItsLine) {
  const QByteArray ligne = EcritLigne({.Quoi = Fait::kArmee, .Quand = Moment(22, 3)}) + '\n';
  const JournalLu lu = LitJournal(ligne + QByteArray("\0\xff{\"v\n", 6) + "\n\n" + ligne);
  EXPECT_EQ(lu.Entrees.size(), 2);
  EXPECT_EQ(lu.Illisibles, 1);
}

TEST(JournalText, TheOldestDaysGoAndADayGoesWhole) {
  QByteArray tout;
  QList<qsizetype> debuts;
  for (int jour = 1; jour <= 5; ++jour) {
    debuts.append(tout.size());
    for (int i = 0; i < 10; ++i) tout += EcritLigne({.Quoi = Fait::kVie, .Quand = Moment(jour, i)}) + '\n';
  }
  const qsizetype unJour = tout.size() / 5;
  EXPECT_EQ(TrouveDebutGarde(tout, tout.size()), 0);
  EXPECT_EQ(TrouveDebutGarde(tout, tout.size() - 1), debuts[1]);
  EXPECT_EQ(TrouveDebutGarde(tout, 3 * unJour + 5), debuts[2]);
  EXPECT_EQ(TrouveDebutGarde(tout, unJour + unJour / 2), debuts[4]);
  // The newest day alone is too large: some of its lines stay.
  const qsizetype debut = TrouveDebutGarde(tout, unJour / 2);
  EXPECT_GT(debut, debuts[4]);
  EXPECT_LT(debut, tout.size());
  EXPECT_LE(tout.size() - debut, unJour / 2);
  EXPECT_EQ(LitJournal(QByteArrayView(tout).sliced(debut)).Illisibles, 0);
  const QByteArray sansFin(1000, 'x');
  EXPECT_EQ(TrouveDebutGarde(sansFin, 100), 1000);
}

}  // namespace
}  // namespace vaktor
