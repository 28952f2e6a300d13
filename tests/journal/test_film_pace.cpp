// SPDX-License-Identifier: GPL-3.0-or-later
// A film at the pace at which its photos were taken, in virtual time; a day and its window.
#include <gtest/gtest.h>

#include "journal/day_view.h"
#include "journal/film_pace.h"

namespace vaktor {
namespace {

QString Nom(const char* heure, int numero) {
  return QStringLiteral("2026-11-22  %1 Photo %2.jpg").arg(QLatin1String(heure)).arg(numero, 5, 10, QLatin1Char('0'));
}

TEST(FilmPace, PhotosOfASecondAreSpreadOverItAndPausesStay) {
  const QStringList noms{Nom("03-00-00", 1), Nom("03-00-00", 2), Nom("03-00-01", 3), Nom("03-00-08", 4)};
  EXPECT_EQ(PlaceFilm(noms), (QList<qint64>{0, 500, 1000, 8000}));
  EXPECT_TRUE(PlaceFilm({}).isEmpty());
}

TEST(FilmPace, MidnightIsNoPauseAndNamesThatTellNothingFollowEachOther) {
  EXPECT_EQ(PlaceFilm({Nom("23-59-59", 1), Nom("00-00-01", 2)}), (QList<qint64>{0, 2000}));
  EXPECT_EQ(PlaceFilm({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")}), (QList<qint64>{0, 100}));
}

TEST(FilmPace, EachPhotoComesBehindTheOneBefore) {
  QStringList noms;
  for (int i = 0; i < 3000; ++i) noms += Nom("03-00-00", i);
  noms += Nom("03-00-01", 3000);
  const QList<qint64> instants = PlaceFilm(noms);
  for (qsizetype i = 1; i < instants.size(); ++i) ASSERT_LT(instants[i - 1], instants[i]);
}

TEST(FilmPlaying, ShowsEachPhotoAtItsTimeAndStopsAtTheEnd) {
  LectureFilm film({0, 500, 1000, 8000});
  EXPECT_EQ(film.Index(), 0);
  EXPECT_FALSE(film.Avance(5000)) << "it does not play yet";
  EXPECT_EQ(film.Index(), 0);
  film.Bascule();
  EXPECT_FALSE(film.Avance(499));
  EXPECT_TRUE(film.Avance(1));
  EXPECT_EQ(film.Index(), 1);
  EXPECT_TRUE(film.Avance(7500));
  EXPECT_EQ(film.Index(), 3);
  EXPECT_TRUE(film.Joue());
  EXPECT_TRUE(film.Avance(600));
  EXPECT_FALSE(film.Joue());
  film.Bascule();
  EXPECT_EQ(film.Index(), 0) << "from the end it begins anew";
  EXPECT_TRUE(film.Joue());
}

TEST(FilmPlaying, HalfAndDoubleSpeedAndStepsAndPlaces) {
  LectureFilm film({0, 500, 1000, 8000});
  film.Bascule();
  film.ChoisitVitesse(0.5);
  film.Avance(999);
  EXPECT_EQ(film.Index(), 0);
  film.Avance(1);
  EXPECT_EQ(film.Index(), 1);
  film.ChoisitVitesse(2);
  film.Avance(250);
  EXPECT_EQ(film.Index(), 2);
  film.Va(1);
  EXPECT_TRUE(film.Joue());
  film.Avance(250);
  EXPECT_EQ(film.Index(), 2) << "it goes on from where it was put";
  film.Pas(1);
  EXPECT_EQ(film.Index(), 3);
  EXPECT_FALSE(film.Joue());
  film.Pas(5);
  EXPECT_EQ(film.Index(), 3);
  film.Pas(-9);
  EXPECT_EQ(film.Index(), 0);
}

TEST(FilmPlaying, AFilmWithoutPhotosDoesNothing) {
  LectureFilm film({});
  film.Bascule();
  film.Va(3);
  film.Pas(1);
  EXPECT_FALSE(film.Avance(1000));
  EXPECT_FALSE(film.Joue());
  EXPECT_EQ(film.Index(), -1);
}

constexpr qint64 kJour = 86'400'000;

TEST(StripWindow, ZoomsAroundAMomentAndStaysInItsDay) {
  const Fenetre pres = Zoome({0, kJour}, 2, kJour / 4, kJour);
  EXPECT_EQ(pres, (Fenetre{kJour / 8, kJour / 8 + kJour / 2}));
  EXPECT_EQ(Zoome(pres, 0.5, kJour / 4, kJour), (Fenetre{0, kJour}));
  EXPECT_EQ(Zoome({0, kJour}, 0.1, 5, kJour), (Fenetre{0, kJour}));
  const Fenetre bord = Zoome({0, kJour}, 1e9, kJour, kJour);
  EXPECT_EQ(bord.A - bord.De, kFenetreMin);
  EXPECT_EQ(bord.A, kJour);
  EXPECT_EQ(Deplace({0, 1000}, -5, kJour), (Fenetre{0, 1000}));
  EXPECT_EQ(Deplace({0, 1000}, kJour, kJour), (Fenetre{kJour - 1000, kJour}));
}

TEST(DayView, HasTheIntrusionsThatBeganInItAndTheTimeItWatched) {
  Chronique c;
  const QDate jour(2026, 11, 22);
  for (const int heure : {-1, 0, 5, 23, 24}) {
    IntrusionVue vue;
    vue.Debut = QDateTime(jour, QTime(0, 0)).addSecs(qint64{heure} * 3600);
    c.Intrusions.append(vue);
  }
  c.Armees.append({QDateTime(jour.addDays(-1), QTime(22, 0)), QDateTime(jour, QTime(7, 0)), false});
  const JourVu vu = ComposeJour(c, jour);
  EXPECT_EQ(vu.Intrusions, (QList<qsizetype>{1, 2, 3}));
  EXPECT_EQ(vu.VeilleMs, 7 * 3'600'000);
  EXPECT_EQ(CompteIntrusions(c, jour), 3);
  EXPECT_EQ(CompteIntrusions(c, jour.addDays(-1)), 1);
}

TEST(DayView, TheFirstDayShownIsTheNewestOfWhichAnythingIsKnown) {
  Chronique c;
  const QDate jour(2026, 11, 22);
  EXPECT_EQ(ChoisitJour(c, jour), jour);
  IntrusionVue vue;
  vue.Debut = QDateTime(jour.addDays(-5), QTime(3, 0));
  c.Intrusions.append(vue);
  EXPECT_EQ(ChoisitJour(c, jour), jour.addDays(-5));
  c.Armees.append({QDateTime(jour.addDays(-2), QTime(22, 0)), QDateTime(jour.addDays(-1), QTime(7, 0)), false});
  EXPECT_EQ(ChoisitJour(c, jour), jour.addDays(-1));
  vue.Debut = QDateTime(jour.addYears(1), QTime(3, 0));  // a clock that jumped
  c.Intrusions.append(vue);
  EXPECT_EQ(ChoisitJour(c, jour), jour.addDays(-1));
}

}  // namespace
}  // namespace vaktor
