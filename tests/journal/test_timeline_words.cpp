// SPDX-License-Identifier: GPL-3.0-or-later
// What the timeline says, in both languages.
#include <gtest/gtest.h>

#include <cerrno>

#include "journal/timeline_words.h"

namespace vaktor {
namespace {

const QDate kJour(2026, 11, 22);
constexpr Langue kEn = Langue::kAnglais;
constexpr Langue kFr = Langue::kFrancais;

QDateTime A(int heure, int minute = 0, int seconde = 0) { return QDateTime(kJour, QTime(heure, minute, seconde)); }

IntrusionVue Vue(int photos) {
  IntrusionVue vue;
  vue.Debut = A(3, 12, 5);
  vue.DureeMs = 4000;
  for (int i = 0; i < photos; ++i) vue.Photos += QStringLiteral("%1.jpg").arg(i);
  return vue;
}

TEST(TimelineWords, LengthsAreSaidInWhatIsShortest) {
  EXPECT_EQ(DitDuree(499, kEn), "0 s");
  EXPECT_EQ(DitDuree(59'499, kEn), "59 s");
  EXPECT_EQ(DitDuree(60'000, kEn), "1 min");
  EXPECT_EQ(DitDuree(61'000, kEn), "1 min 1 s");
  EXPECT_EQ(DitDuree(3'600'000, kEn), "1 h");
  EXPECT_EQ(DitDuree(3'660'000, kEn), "1 h 01 min");
  EXPECT_EQ(DitDuree(3'660'000, kFr), "1 h 01");
}

TEST(TimelineWords, OneIsOneAndMoreAreMore) {
  EXPECT_EQ(MotJourAvant(kEn, 0), "Day before: 0 intrusions");
  EXPECT_EQ(MotJourAvant(kEn, 1), "Day before: 1 intrusion");
  EXPECT_EQ(MotJourApres(kFr, 2), "Jour suivant : 2 intrusions");
  EXPECT_EQ(DitPhotos(0, kEn), "no picture");
  EXPECT_EQ(DitPhotos(1, kEn), "1 picture");
  EXPECT_EQ(DitPhotos(2, kFr), "2 photos");
}

TEST(TimelineWords, AnIntrusionSaysWhatIsLeftOfItAndThatItGoesOn) {
  IntrusionVue vue = Vue(4);
  EXPECT_EQ(DitIntrusion(vue, kEn), "Intrusion at 03:12:05, 4 s, 4 pictures");
  vue.Ecrites = 6;
  vue.Points = 500;
  EXPECT_EQ(DitIntrusion(vue, kEn), "Intrusion at 03:12:05, 4 s, 4 pictures (2 are gone), 500 points at most");
  vue.EnCours = true;
  EXPECT_EQ(DitIntrusion(vue, kEn), "Intrusion at 03:12:05, 4 s, 4 pictures, 500 points at most, going on")
      << "its last ones may be on their way";
  EXPECT_EQ(DitIntrusion(vue, kFr),
            QString::fromUtf8("Intrusion à 03:12:05, 4 s, 4 photos, 500 points au plus, en cours"));
}

TEST(TimelineWords, ABandThatGoesOnSaysSinceWhenAndOneThatIsOverBothEnds) {
  BandeTemps bande{A(2), A(4), false};
  EXPECT_EQ(DitArmee(bande, kEn), "Alarm armed from 02:00:00 to 04:00:00");
  bande.EnCours = true;
  EXPECT_EQ(DitArmee(bande, kEn), "Alarm armed since 02:00:00");
  EXPECT_EQ(DitArmee(bande, kFr), QString::fromUtf8("Alarme armée depuis 02:00:00"));
}

TEST(TimelineWords, AQuietNightThatGoesOnIsNotOver) {
  JourVu jour{.Jour = kJour, .De = A(0), .A = A(0).addDays(1), .Intrusions = {}};
  EXPECT_EQ(DitNuitCalme(jour, true, kEn), "No intrusion: the alarm was not armed on this day.");
  jour.VeilleMs = 3'600'000;
  EXPECT_EQ(DitNuitCalme(jour, true, kEn), "Nothing has moved. The alarm has watched for 1 h.");
  EXPECT_EQ(DitNuitCalme(jour, false, kEn), "Nothing moved. The alarm watched for 1 h.");
}

TEST(TimelineWords, MarksSayWhatHappened) {
  EXPECT_EQ(DitMarque({A(6), Fait::kDemarre}, kEn), "06:00:00: Vaktor was started");
  EXPECT_EQ(DitMarque({A(6), Fait::kFini}, kEn), "06:00:00: Vaktor was closed");
  EXPECT_EQ(DitMarque({A(6), Fait::kCourriel}, kEn), "06:00:00: the server has taken a mail");
  EXPECT_EQ(DitMarque({A(6), Fait::kPageRetablie}, kEn), "06:00:00: the live page is fresh again");
  EXPECT_EQ(DitMarque({A(6), Fait::kVie}, kEn), "") << "no mark of the strip";
}

TEST(TimelineWords, ADayIsSummedUpInOneLine) {
  JourVu jour{.Jour = kJour, .De = A(0), .A = A(0).addDays(1), .Intrusions = {}};
  EXPECT_EQ(DitJournee(jour, kEn), QString::fromUtf8("No intrusion  ·  alarm not armed"));
  jour.VeilleMs = 999;
  EXPECT_EQ(DitJournee(jour, kFr), QString::fromUtf8("Aucune intrusion  ·  alarme non armée")) << "less than a second";
  jour.VeilleMs = 3'600'000;
  jour.Intrusions = {0};
  EXPECT_EQ(DitJournee(jour, kEn), QString::fromUtf8("1 intrusion  ·  watched for 1 h"));
  EXPECT_EQ(MotEnCours(kFr), "en cours");
  EXPECT_EQ(MotEnCours(kEn), "going on");
}

TEST(TimelineWords, TheEarsHearOfThisDayAlone) {
  Chronique c;
  c.Armees = {{A(0).addDays(-3), A(1).addDays(-3), false}, {A(2), A(4), false}};
  BandeCondition avant;
  avant.De = A(0).addDays(-3);
  avant.A = A(1).addDays(-3);
  BandeCondition perdue;
  perdue.De = A(3);
  perdue.A = A(3, 30);
  c.Conditions = {avant, perdue};
  const JourVu jour{.Jour = kJour, .De = A(0), .A = A(0).addDays(1), .Intrusions = {}};
  const QStringList lignes = DitBande(jour, c, kEn).split(u'\n');
  EXPECT_EQ(lignes.filter("Alarm armed").size(), 1);
  EXPECT_EQ(lignes.filter("The camera gives no new pictures").size(), 1);
}

TEST(TimelineWords, AFilmIsToldAboutOnlyWhereSomethingIsWrong) {
  EXPECT_EQ(DitFilm({.Etat = EtatFilm::kFait}, "/f.mkv", kEn), QString());
  EXPECT_EQ(DitFilm({.Etat = EtatFilm::kAnnule}, "/f.mkv", kEn), QString());
  EXPECT_TRUE(DitFilm({.Etat = EtatFilm::kFait, .Manquantes = 2}, "/f.mkv", kEn).contains("without 2 picture"));
  EXPECT_TRUE(DitFilm({.Etat = EtatFilm::kSansPhoto}, "/f.mkv", kEn).contains("none of its pictures"));
  EXPECT_TRUE(DitFilm({.Etat = EtatFilm::kDisque, .Erreur = ENOSPC}, "/f.mkv", kEn).contains("No space left"));
  EXPECT_TRUE(
      DitFilm({.Etat = EtatFilm::kSansMoyens, .Mots = "why"}, "/f.mkv", kEn).endsWith("could not make it.\nwhy"));
}

TEST(TimelineWords, ThePlayerSaysTheTimeOfItsPhotoWhereTheNameTellsIt) {
  EXPECT_EQ(DitPosition(1, 4, "2026-11-22  03-12-06 Photo 00002.jpg", kEn),
            QString::fromUtf8("03:12:06  \xc2\xb7  Picture 2 of 4"));
  EXPECT_EQ(DitPosition(0, 4, "a.jpg", kEn), "Picture 1 of 4");
  EXPECT_EQ(MotLecture(true, kEn), "Pause");
  EXPECT_EQ(MotLecture(false, kEn), "Play");
  EXPECT_EQ(MotVitesse(0.5), QString::fromUtf8("\xc2\xbd \xc3\x97"));
  EXPECT_EQ(MotVitesse(2), QString::fromUtf8("2 \xc3\x97"));
  EXPECT_EQ(MotSansImage(true, kEn), "The picture cannot be shown.");
  EXPECT_EQ(MotSansImage(false, kEn), "No picture");
}

}  // namespace
}  // namespace vaktor
