// SPDX-License-Identifier: GPL-3.0-or-later
// The daily sign of life in virtual time; the clock stands at 9:05:03 at the start.
#include <gtest/gtest.h>

#include <new>

#include "fakes/fake_files.h"
#include "fakes/fake_mail_drop.h"
#include "fakes/virtual_clock.h"
#include "fakes/virtual_timers.h"
#include "health/sign_of_life.h"

namespace vaktor {
namespace {

constexpr qint64 kMinute = 60'000;
constexpr qint64 kHeure = 60 * kMinute;

class Signe : public testing::Test, public CommandesModules {
 protected:
  Signe() {
    Reglages.HeureSigneDeVie = 12;
    Reglages.MailActif = true;
    Rule.Lance();
  }
  void EnvoiFTP(Commande) override {}
  void EnvoiSon(Commande) override {}
  void EnvoiMail(Commande commande) override { Commandes += commande == Commande::kVeille ? 1 : 100; }
  QString Texte(qsizetype i = 0) const { return Depot.Deposes.value(i).Courriel.Texte.Dit(Langue::kAnglais); }

  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::DepotFaux Depot;
  FauxFichiers Disque;
  Parametres Reglages;
  bool Armee = true;
  QImage Image;
  QList<ConditionEnCours> Conditions;
  bool SansMemoire = false;
  int Commandes = 0;
  SigneDeVie Rule{{Depot, *this, Reglages, Horloge, Temps, Disque, [this] { return Armee; },
                   [this] {
                     if (SansMemoire) throw std::bad_alloc();
                     return Image;
                   },
                   [this] { return Conditions; }}};
};

TEST_F(Signe, ComesOnceADayInItsHour) {
  Temps.Avance(2 * kHeure + 50 * kMinute);
  EXPECT_EQ(Depot.Deposes.size(), 0) << "11:55";
  Temps.Avance(10 * kMinute);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  Depot.Repond(true);
  EXPECT_EQ(Commandes, 1) << "the companion is told that it may take it";
  Temps.Avance(20 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 1);
  Temps.Avance(4 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 2);
}

TEST_F(Signe, TellsSinceWhenHowOftenAndHowMuchIsFree) {
  Disque.OctetsLibres = 8'500'000'000;
  Disque.OctetsUtilisables = 3'500'000'000;
  Image = QImage(4, 4, QImage::Format_RGB32);
  Temps.Avance(10'000);
  for (int i = 0; i < 3; ++i) Rule.NoteAlarme();
  for (int i = 0; i < 1200; ++i) Rule.NotePhoto();
  Temps.Avance(3 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  EXPECT_EQ(Depot.Deposes[0].Courriel.Mot, "sign-of-life");
  EXPECT_EQ(Depot.Deposes[0].Courriel.Depuis, QDateTime(QDate(2020, 1, 2), QTime(9, 5, 13)));
  EXPECT_FALSE(Depot.Deposes[0].Image.isNull());
  EXPECT_TRUE(Texte().contains("Alarms since Vaktor was started: 3\nPhotos: 1,200\n")) << Texte().toStdString();
  EXPECT_TRUE(Texte().contains("Free space for photos: 3.5 GB\nLast picture: attached\n")) << Texte().toStdString();
  const QString francais = Depot.Deposes[0].Courriel.Texte.Dit(Langue::kFrancais);
  EXPECT_TRUE(francais.startsWith("Vaktor veille depuis : ")) << francais.toStdString();
  Rule.NoteAlarme();  // while the disk has not answered
  Depot.Repond(true);
  Disque.OctetsUtilisables.reset();
  Image = QImage();
  Temps.Avance(24 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 2);
  EXPECT_TRUE(Texte(1).contains("sign of life: 1\nPhotos: 0\nFree space for photos: not known\nLast picture: none\n"))
      << Texte(1).toStdString();
}

const QDateTime kMidi(QDate(2020, 1, 2), QTime(11, 59, 0));

// A watch that sees nothing is not said to watch, nor shown with what it saw before.
TEST_F(Signe, OfABlindWatchItSaysWhatIsWrongAndShowsNoPicture) {
  Image = QImage(4, 4, QImage::Format_RGB32);
  Conditions = {{Condition::kSignalPerdu, kMidi, QStringLiteral("no route")}, {Condition::kPeuDePlace, kMidi, {}}};
  Temps.Avance(3 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  const CourrielVeille& courriel = Depot.Deposes[0].Courriel;
  EXPECT_EQ(courriel.Sujet.Dit(Langue::kAnglais), "Vaktor: sign of life, but something is wrong");
  EXPECT_EQ(courriel.Sujet.Dit(Langue::kFrancais), "Vaktor : signe de vie, mais quelque chose ne va pas");
  EXPECT_TRUE(Depot.Deposes[0].Image.isNull());
  EXPECT_TRUE(
      Texte().startsWith("Something is wrong. The alarm is armed since: 2 January 2020, 09:05:13\n"
                         "- The camera gives no new pictures (no route).\n"
                         "  Since: 2 January 2020, 11:59:00\n"
                         "- There are less than 500 MB left where the photos go.\n"))
      << Texte().toStdString();
  EXPECT_TRUE(Texte().endsWith("Last picture: none, Vaktor sees nothing\n")) << Texte().toStdString();
  for (const Langue langue : kLangues) {
    const QString texte = courriel.Texte.Dit(langue);
    EXPECT_FALSE(texte.contains("veille depuis") || texte.contains("watches since")) << texte.toStdString();
  }
}

TEST_F(Signe, OfALameWatchItSaysSoAndShowsWhatItSees) {
  Image = QImage(4, 4, QImage::Format_RGB32);
  Conditions = {{Condition::kPhotosImpossibles, kMidi, {}}};
  Temps.Avance(3 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  EXPECT_TRUE(Texte().startsWith("Something is wrong.")) << Texte().toStdString();
  EXPECT_TRUE(Texte().endsWith("Last picture: attached\n")) << Texte().toStdString();
  EXPECT_FALSE(Depot.Deposes[0].Image.isNull());
}

TEST_F(Signe, ANoticeStandsInAMailThatSaysThatItWatches) {
  Conditions = {{Condition::kPeuDePlace, kMidi, {}}};
  Temps.Avance(3 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  EXPECT_EQ(Depot.Deposes[0].Courriel.Sujet.Dit(Langue::kAnglais), "Vaktor: sign of life");
  EXPECT_TRUE(Texte().startsWith("Vaktor watches since: ")) << Texte().toStdString();
  EXPECT_TRUE(Texte().contains("- There are less than 500 MB left")) << Texte().toStdString();
}

TEST_F(Signe, AnHourThatIsPassedOverIsMadeUpFor) {
  Horloge.Debut = QTime(1, 59, 49);
  Reglages.HeureSigneDeVie = 2;
  Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Horloge.DonneHeure(), QTime(1, 59, 59));
  Horloge.Debut = Horloge.Debut.addSecs(3600);  // summer time: three o'clock follows
  Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  Depot.Repond(false);
  Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Depot.Deposes.size(), 2) << "tried again like any other";
  Depot.Repond(true);
  Temps.Avance(3 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 2);
}

TEST_F(Signe, AMachineThatSleptThroughTheHourMakesUpForItAlsoOnAnotherDay) {
  Temps.Avance(kMinute);
  Horloge.Date = QDate(2020, 1, 7);  // still five past nine
  Temps.Avance(SigneDeVie::kRegardMs);
  EXPECT_EQ(Depot.Deposes.size(), 0) << "twelve o'clock is still to come";
  Horloge.Debut = QTime(15, 5, 3);
  Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  Depot.Repond(true);
  Horloge.Date = QDate(2020, 1, 9);
  Temps.Avance(SigneDeVie::kRegardMs);
  EXPECT_EQ(Depot.Deposes.size(), 2);
}

// Half an hour before midnight the hour that was passed over reaches into a day that has its own.
TEST_F(Signe, WhatIsMadeUpForIsOfItsDayAlone) {
  Temps.Avance(kMinute);
  Horloge.Debut = QTime(23, 30, 0);
  Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  Depot.Repond(true);
  Temps.Avance(kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 1);
  Temps.Avance(12 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 2);
}

TEST_F(Signe, AnHourThatPassedWhileNobodyHadArmedIsNotMadeUpForHoursLater) {
  Armee = false;
  Temps.Avance(kMinute);
  Horloge.Debut = QTime(15, 0, 0);
  Temps.Avance(2 * kHeure);
  Armee = true;
  Temps.Avance(kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 0);
}

TEST_F(Signe, AnHourThatCameWhileNobodyHadArmedWasNotPassedOver) {
  Temps.Avance(kMinute);
  Armee = false;
  Temps.Avance(6 * kHeure);
  Armee = true;
  Temps.Avance(kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 0);
}

TEST_F(Signe, AnHourThatIsChosenWhenItIsOverIsThatOfTomorrow) {
  Reglages.HeureSigneDeVie = -1;
  Temps.Avance(6 * kHeure);
  Reglages.HeureSigneDeVie = 12;
  Temps.Avance(kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 0);
}

TEST_F(Signe, OneThatFindsNoMemoryIsTriedAgain) {
  Temps.Avance(2 * kHeure + 54 * kMinute);
  SansMemoire = true;
  EXPECT_THROW(Temps.Avance(kMinute), std::bad_alloc);
  SansMemoire = false;
  Temps.Avance(SigneDeVie::kRegardMs);
  EXPECT_EQ(Depot.Deposes.size(), 1);
}

TEST_F(Signe, NobodyIsToldOfAWatchThatIsNotArmedOrWithoutMailsOrWithoutAnHour) {
  Armee = false;
  Temps.Avance(24 * kHeure);
  Armee = true;
  Reglages.MailActif = false;
  Temps.Avance(24 * kHeure);
  Reglages.MailActif = true;
  Reglages.HeureSigneDeVie = -1;
  Temps.Avance(24 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 0);
}

TEST_F(Signe, SinceWhenBeginsAnewWithEachArming) {
  Temps.Avance(kHeure);
  Armee = false;
  Temps.Avance(kMinute);
  Armee = true;
  Temps.Avance(2 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  EXPECT_EQ(Depot.Deposes[0].Courriel.Depuis.time().hour(), 10);
}

TEST_F(Signe, OneThatCannotBeLaidDownIsTriedAgainInItsHour) {
  Temps.Avance(3 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  Depot.Repond(false);
  EXPECT_EQ(Commandes, 0);
  Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Depot.Deposes.size(), 2);
  Depot.Repond(true);
  Temps.Avance(kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 2);
}

TEST_F(Signe, AStartInTheHourOfOneThatWasSentSendsNoSecondOne) {
  Depot.DernierJour = QDate(2020, 1, 2);  // today
  Temps.Avance(14 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 0);
  EXPECT_EQ(Depot.Questions, QStringList("sign-of-life")) << "once";
  Temps.Avance(24 * kHeure);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  EXPECT_EQ(Depot.Deposes[0].Courriel.Jour, QDate(2020, 1, 3)) << "what the next start finds";
}

TEST_F(Signe, WhileTheDiskDoesNotSayWhetherOneWasSentNoneIs) {
  Depot.Muet = true;
  Temps.Avance(3 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 0);
  Depot.Muet = false;
  Temps.Avance(SigneDeVie::kRegardMs);
  EXPECT_EQ(Depot.Deposes.size(), 1) << "asked again at each look";
}

TEST_F(Signe, BehindTheEndNothingComes) {
  Rule.Arrete();
  Temps.Avance(24 * kHeure);
  EXPECT_EQ(Depot.Deposes.size(), 0);
}

}  // namespace
}  // namespace vaktor
