// SPDX-License-Identifier: GPL-3.0-or-later
// The heartbeat: order of its steps, the enlarged view one tick behind, the zoom, what a failure leaves behind.
#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

using Tick = BancEssai;

TEST_F(Tick, RunsFromTheStartAndDoesNothingWithoutACamera) {
  Journal.Ecoute();
  EXPECT_TRUE(Active("Timer1"));
  Temps.Avance(300);
  EXPECT_EQ(Temps.Trouve(QStringLiteral("Timer1"))->NombreTics(), 10);
  EXPECT_TRUE(Journal.Lignes().isEmpty());
  EXPECT_EQ(Pilote.Saisies, 0);
}

TEST_F(Tick, DoesItsStepsInOrder) {
  DemarreSurNoir();
  Trame(AvecPoints(45));
  Image(Unie(0));
  Journal.Ecoute();
  Tic();
  EXPECT_EQ(Journal.Lignes(), (QStringList{QStringLiteral("CopiePleinEcran"), QStringLiteral("SaisitImage"),
                                           QStringLiteral("MontreAvis 0"), QStringLiteral("CopieTrame"),
                                           QStringLiteral("MontreLibelleAlarme 0"), QStringLiteral("RafraichitVue"),
                                           QStringLiteral("MontreCompteurs 45"), QStringLiteral("MontreBarre 45"),
                                           QStringLiteral("MontreZoom"), QStringLiteral("RafraichitPleinEcran")}));
}

TEST_F(Tick, EnlargedViewRunsOneTickBehindAndShowsTheOutlines) {
  DemarreSurNoir();
  Trame(AvecPoints(20));
  QRgb vu = 0;
  int contours = 0;
  Affichage.PendantCopie = [&] {
    vu = Engin.Surface().Image().pixel(0, 0);
    contours = Engin.Surface().NombreContours();
  };
  Trame(Unie(qRgb(9, 9, 9)));
  EXPECT_EQ(vu, qRgb(0, 0, 255));
  EXPECT_EQ(contours, 2);
}

TEST_F(Tick, TakesAFrameEachThirtyMilliseconds) {
  DemarreSurNoir();
  const qint32 avant = Pilote.Saisies;
  Temps.Avance(3000);
  EXPECT_EQ(Pilote.Saisies, avant + 100);
}

TEST_F(Tick, TickWithoutANewFrameChangesNothingAndAsksToBeWoken) {
  DemarreSurNoir();
  Trame(AvecPoints(20));
  Pilote.Muette = true;
  Image(Unie(qRgb(1, 2, 3)));
  Journal.Ecoute();
  Tic();
  EXPECT_EQ(Journal.Lignes(), (QStringList{QStringLiteral("MontreAvis 0"), QStringLiteral("AttendImage")}));
  EXPECT_EQ(Engin.Surface().Image().pixel(0, 0), qRgb(0, 0, 255));
  EXPECT_EQ(Detection().NbrPoints, 20);
  EXPECT_EQ(Engin.Surface().NombreContours(), 2);
}

TEST_F(Tick, TellsALostSignalThoughNoFrameComes) {
  DemarreSurNoir();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
  Pilote.Muette = Pilote.Perdu = true;
  Pilote.Refus = QStringLiteral("no such host");
  Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kSignalPerdu);
  EXPECT_TRUE(Sante.Dure(Condition::kSignalPerdu));
  EXPECT_EQ(Sante.Details.value(Condition::kSignalPerdu), Pilote.Refus) << "why it does not come back";
  Pilote.Muette = Pilote.Perdu = false;
  Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
  EXPECT_FALSE(Sante.Dure(Condition::kSignalPerdu));
}

TEST_F(Tick, StopOfTheCameraTakesItsConditionsBack) {
  DemarreSurNoir();
  Reglages.IntervalleFtp = QStringLiteral("ten");
  Pilote.Perdu = true;
  for (int i = 0; i < 40; ++i) Tic();
  ASSERT_TRUE(Sante.Dure(Condition::kSignalPerdu));
  ASSERT_TRUE(Sante.Dure(Condition::kDetectionArretee));
  Engin.BasculeCamera();
  EXPECT_TRUE(Sante.Details.isEmpty());
  Pilote.Muette = true;
  Pilote.Perdu = false;
  Engin.BasculeCamera();
  Tic();  // what the run before could not compare is forgotten
  EXPECT_TRUE(Sante.Details.isEmpty());
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
}

TEST_F(Tick, LostSignalRaisesNoAlarm) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  Pilote.Muette = Pilote.Perdu = true;
  Temps.Avance(60000);
  EXPECT_EQ(Actions.Photos, 0);
}

// The automatic tolerance stands just above the noise: had it fallen meanwhile, the first frame would be all motion.
TEST_F(Tick, SignalThatComesBackRaisesNoAlarmEither) {
  Reglages.PhotoActif = true;
  bool pair = false;
  Pilote.Suivante = [&] {
    pair = !pair;
    return Unie(pair ? qRgb(0xe0, 0x93, 4) : 0);
  };
  Engin.BasculeCamera();
  Reglages.SeuilDetection = 400000;
  Arme();
  Reglages.SeuilAuto = true;
  Pilote.Muette = Pilote.Perdu = true;
  Temps.Avance(60000);
  Pilote.Muette = Pilote.Perdu = false;
  Temps.Avance(31);
  EXPECT_EQ(Actions.Photos, 0);
}

TEST_F(Tick, ZoomComesFromFiveChangedSamples) {
  DemarreSurNoir();
  QImage image = Unie(0);
  for (int i = 1; i <= 4; ++i) image.setPixel(3 * i, 3 * i, qRgb(0, 0, 255));
  Trame(image);
  EXPECT_EQ(Detection().NbrPoints, 4);
  EXPECT_EQ(Affichage.Zooms, 0);
  Trame(Unie(0));
  image.setPixel(15, 18, qRgb(0, 0, 255));
  Trame(image);
  EXPECT_EQ(Detection().NbrPoints, 5);
  EXPECT_EQ(Affichage.Zooms, 1);
  EXPECT_EQ(Affichage.ZoomVisible, QRect(4, 4, 10, 13));  // (3, 3) to (15, 18) less its border
}

TEST_F(Tick, ThinMotionGivesAZoomOfNoOrNegativeSize) {
  DemarreSurNoir();
  QImage image = Unie(0);
  for (int i = 0; i < 6; ++i) image.setPixel(9, 3 * i, qRgb(0, 0, 255));  // one column
  Trame(image);
  ASSERT_TRUE(Affichage.ZoomVisible.has_value());
  EXPECT_EQ(Affichage.ZoomVisible->width(), -2);
  EXPECT_EQ(Affichage.ZoomVisible->height(), 13);
  EXPECT_EQ(Affichage.ZoomVisible->topLeft(), QPoint(10, 1));
}

TEST_F(Tick, MotionInTheFirstColumnOrRowAloneGivesNoZoom) {
  DemarreSurNoir();
  QImage colonne = Unie(0);
  for (int i = 0; i < 20; ++i) colonne.setPixel(0, 3 * i, qRgb(0, 0, 255));
  Trame(colonne);
  EXPECT_EQ(Detection().NbrPoints, 20);
  Trame(Unie(0));
  Trame(AvecPoints(20));  // the first row
  EXPECT_EQ(Detection().NbrPoints, 20);
  EXPECT_EQ(Affichage.Zooms, 0);
}

TEST_F(Tick, NoZoomInPixelMode) {
  DemarreSurNoir();
  Engin.ChoisitModeZoom(false);
  Trame(AvecPoints(100));
  EXPECT_EQ(Affichage.Zooms, 0);
}

TEST_F(Tick, FirstAnalysisOfTheProcessStartsFromABoxAtZero) {
  Reglages.SeuilAuto = false;
  Reglages.SeuilDetection = 1000;
  QImage image = Unie(0);
  // The new size of the surface makes the zone (0, 1) to (60, 60).
  for (int i = 0; i < 6; ++i) image.setPixel(30 + 3 * i, i < 3 ? 28 : 40, qRgb(0, 0, 255));
  Image(image);
  Engin.BasculeCamera();
  Tic();
  ASSERT_EQ(Detection().NbrPoints, 6);
  EXPECT_EQ(Affichage.ZoomVisible, QRect(1, 1, 45 - 2, 40 - 2));  // left and top edges stay 0
  Trame(Unie(0));
  EXPECT_EQ(Affichage.ZoomVisible, QRect(31, 29, 15 - 2, 12 - 2));
}

TEST_F(Tick, BoxIsTurnedInsideOutAfterEachCompleteTick) {
  DemarreSurNoir();
  Trame(AvecPoints(100));
  const CadreMouvement& cadre = Detection().Mouv;
  EXPECT_EQ(cadre.MinX, kLargeur);
  EXPECT_EQ(cadre.MaxX, 0);
  EXPECT_EQ(cadre.MinY, kHauteur);
  EXPECT_EQ(cadre.MaxY, 0);
}

TEST_F(Tick, FailureKeepsTheBoxAndTheNextFrameGrowsFromIt) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  Actions.PhotoEchoue = true;
  Journal.Ecoute();
  Trame(AvecPoints(40));  // rows 0 and 3, columns 0 to 57
  EXPECT_EQ(Journal.Rang(QStringLiteral("MontreZoom")), -1);
  EXPECT_EQ(Journal.Rang(QStringLiteral("RafraichitPleinEcran")), -1);
  EXPECT_EQ(Detection().Mouv.MaxY, 3);
  Actions.PhotoEchoue = false;
  QImage image = AvecPoints(40);
  for (int i = 3; i < 9; ++i) image.setPixel(3 * i, 30, qRgb(0, 0, 255));
  Trame(image);
  EXPECT_EQ(Detection().NbrPoints, 6);
  EXPECT_EQ(Affichage.ZoomVisible, QRect(1, 1, 57 - 2, 30 - 2));
}

TEST_F(Tick, FailureOfTheEnlargedViewIsNotSwallowed) {
  DemarreSurNoir();
  Affichage.PendantCopie = [] { throw Echec(kAppelIncorrect, QStringLiteral("no view")); };
  const qint32 saisies = Pilote.Saisies;
  EXPECT_THROW(Tic(), Echec);
  EXPECT_EQ(Pilote.Saisies, saisies);
}

TEST_F(Tick, AnyOtherFailureIsSwallowedAndTheNextTickRuns) {
  DemarreSurNoir();
  int appels = 0;
  Pilote.Suivante = [&]() -> QImage {
    if (++appels == 1) throw std::runtime_error("driver");
    return AvecPoints(20);
  };
  EXPECT_NO_THROW(Tic());
  EXPECT_NO_THROW(Tic());
  EXPECT_EQ(Detection().NbrPoints, 20);
}

TEST_F(Tick, AnalysisThatFailsForMoreThanASecondIsTold) {
  DemarreSurNoir();
  Reglages.IntervalleFtp = QStringLiteral("ten");
  for (int i = 0; i < 33; ++i) Tic();
  Tic();  // the notice is told before the analysis
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
  Pilote.Perdu = true;
  Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kDetectionArretee);
  EXPECT_TRUE(Sante.Dure(Condition::kDetectionArretee));
  EXPECT_TRUE(Sante.Dure(Condition::kSignalPerdu)) << "the notice has room for one, the report for both";
  Reglages.IntervalleFtp = QStringLiteral("10");
  Tic();
  Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kSignalPerdu);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
}

TEST_F(Tick, OnlyFramesThatCameCountAsNotCompared) {
  DemarreSurNoir();
  Reglages.IntervalleFtp = QStringLiteral("ten");
  for (int i = 0; i < 20; ++i) Tic();
  Pilote.Muette = true;
  Temps.Avance(60'000);
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
  EXPECT_TRUE(Sante.Details.isEmpty());
}

// 33 frames would be half a minute of a camera of one a second.
TEST_F(Tick, OfASlowCameraFewerFramesAreEnoughToTellIt) {
  DemarreSurNoir();
  Reglages.IntervalleFtp = QStringLiteral("ten");
  Pilote.ParArrivee = true;
  for (int i = 0; i < 4; ++i) {
    EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee)) << i;
    Pilote.Arrive();
    Temps.Avance(1000);
  }
  EXPECT_TRUE(Sante.Dure(Condition::kDetectionArretee));
}

TEST_F(Tick, WhateverKeepsFrameUponFrameFromBeingComparedIsTold) {
  DemarreSurNoir();
  Pilote.Suivante = []() -> QImage { throw std::bad_alloc(); };
  for (int i = 0; i < 40; ++i) Tic();
  Pilote.Suivante = nullptr;
  Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kDetectionArretee);
  Engin.BasculeCamera();
  Tic();  // without a camera nothing is to be compared
  Engin.BasculeCamera();
  Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
}

TEST_F(Tick, FramesThatAreCountedInBetweenTakeTheFailuresBack) {
  DemarreSurNoir();
  for (int i = 0; i < 70; ++i) {
    Reglages.IntervalleFtp = i % 33 == 32 ? QStringLiteral("10") : QStringLiteral("ten");
    Tic();
    ASSERT_EQ(Affichage.Avis, AvisMoniteur::kAucun) << i;
  }
}

TEST_F(Tick, PhotosThatCannotBeWrittenAreNoEndOfTheDetection) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  Actions.PhotoEchoue = true;
  for (int i = 0; i < 100; ++i) Trame(i % 2 == 0 ? AvecPoints(40) : Unie(0));
  ASSERT_GT(Actions.Photos, 33);
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
}

TEST_F(Tick, ZoneIsThatOfTheNewPictureBeforeAnybodyHearsOfItsSize) {
  DemarreSurNoir();
  bool vu = false;
  Engin.Surface().SurTaille([&] {
    vu = true;
    EXPECT_EQ(Engin.Surface().Taille(), QSize(90, 80));
    AttendZone(Zone(), 0, 0, 90, 80);
  });
  Trame(Unie(0, 90, 80));
  EXPECT_TRUE(vu);
  Trame(QImage());  // no picture: nothing changes
  AttendZone(Zone(), 0, 0, 90, 80);
}

TEST_F(Tick, PictureOfAnotherSizeMovesTheZoneButItsTop) {
  DemarreSurNoir();
  PoseZone(10, 12, 30, 40);
  Trame(Unie(0, 90, 80));
  AttendZone(Zone(), 0, 12, 90, 80);
  EXPECT_EQ(Engin.Surface().Taille(), QSize(90, 80));
  PoseZone(10, 12, 30, 40);
  Trame(Unie(0, 90, 80));  // same size: the zone stays
  AttendZone(Zone(), 10, 12, 30, 40);
}

TEST_F(Tick, ZoneThatTheSmallerPictureDoesNotHoldIsToldAsADetectionThatStandsStill) {
  DemarreSurNoir();
  PoseZone(10, 60, 30, 80);
  Trame(Unie(0, 90, 50));
  AttendZone(Zone(), 0, 60, 90, 50);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  for (int i = 0; i < 40; ++i) Trame(Unie(0, 90, 50));
  EXPECT_TRUE(Sante.Dure(Condition::kDetectionArretee));
  PoseZone(10, 48, 30, 80);  // by the mouse; one row of it lies in the picture
  Tic();
  Tic();
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  PoseZone(95, 0, 99, 40);
  for (int i = 0; i < 40; ++i) Trame(Unie(0, 90, 50));
  EXPECT_TRUE(Sante.Dure(Condition::kDetectionArretee)) << "right of the picture";
}

TEST_F(Tick, PicturesOfOnePixelAndOddWidthsGoThrough) {
  DemarreSurNoir();
  for (const QSize taille : {QSize(1, 1), QSize(2, 1), QSize(1, 7), QSize(13, 11), QSize(641, 3)}) {
    Trame(Unie(0, taille.width(), taille.height()));
    PoseZoneEntiere();
    Trame(Unie(0, taille.width(), taille.height()));
    Trame(Unie(0, taille.width(), taille.height()));
    Trame(Unie(qRgb(0, 0, 255), taille.width(), taille.height()));
    EXPECT_EQ(Detection().NbrPoints, ((taille.width() + 2) / 3) * ((taille.height() + 2) / 3));
  }
}

TEST_F(Tick, SuspendedTickComesBackWithoutACameraToo) {
  DemarreSurNoir();
  Engin.SuspendTic();
  const qint32 saisies = Pilote.Saisies;
  Temps.Avance(300);
  EXPECT_EQ(Pilote.Saisies, saisies);
  Engin.ReprendTic();
  Temps.Avance(300);
  EXPECT_EQ(Pilote.Saisies, saisies + 10);
  Engin.BasculeCamera();
  Engin.ReprendTic();
  EXPECT_TRUE(Active("Timer1"));
  Temps.Avance(300);
  EXPECT_EQ(Pilote.Saisies, saisies + 10);
}

TEST_F(Tick, ToleranceStaysStillForTwoSeconds) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2000);
  EXPECT_EQ(Reglages.SeuilDetection, 7000000);
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, 6990000);
  EXPECT_EQ(Temps.Trouve(QStringLiteral("Timer2"))->Intervalle(), 15000);
  Temps.Avance(15000);
  EXPECT_EQ(Temps.Trouve(QStringLiteral("Timer2"))->NombreTics(), 2);
}

// A message that an event opens inside of the redraw stands there until somebody answers it.
TEST_F(Tick, TicksComeBackByThemselvesWhenSomethingStandsInsideTheRedraw) {
  ArmeSurNoir();
  Engin.SuspendTic();
  const qint32 saisies = Pilote.Saisies;
  Temps.Avance(990);
  EXPECT_EQ(Pilote.Saisies, saisies);
  Temps.Avance(3010);
  EXPECT_EQ(Pilote.Saisies, saisies + 100);
  Engin.SuspendTic();
  Temps.Avance(500);
  Engin.ReprendTic();
  Engin.SuspendTic();
  Temps.Avance(600);
  EXPECT_FALSE(Active("Timer1")) << "each redraw has a second of its own";
}

TEST_F(Tick, NoTickComesBackOnceTheProgramEnds) {
  DemarreSurNoir();
  Engin.SuspendTic();
  Engin.Arrete();
  Temps.Avance(5000);
  EXPECT_FALSE(Active("Timer1"));
}

// Whatever keeps the ticks away: nothing that hangs on them can tell of it.
TEST_F(Tick, FramesThatNobodyTakesForHalfAMinuteAreADetectionThatStandsStill) {
  DemarreSurNoir();
  Temps.Avance(5000);
  Temps.Trouve(QStringLiteral("Timer1"))->Desactive();
  Temps.Avance(10'000);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  Temps.Avance(20'000);
  EXPECT_TRUE(Sante.Dure(Condition::kDetectionArretee));
  Engin.ReprendTic();
  Temps.Avance(30);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
}

TEST_F(Tick, AFrameThatStandsUntakenWhenTheCameraStartsIsNoNewsYet) {
  DemarreSurNoir();
  Temps.Avance(17'000);  // no frame after the last question of the run before
  Engin.BasculeCamera();
  Engin.BasculeCamera();
  Temps.Trouve(QStringLiteral("Timer1"))->Desactive();
  Temps.Avance(16'000);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  Temps.Avance(2000);
  EXPECT_TRUE(Sante.Dure(Condition::kDetectionArretee));
}

TEST_F(Tick, ACameraThatGivesNothingOrWhoseFramesAreTakenIsNoneThatIsLeftLying) {
  DemarreSurNoir();
  Temps.Avance(60'000);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  Pilote.Muette = true;
  Temps.Trouve(QStringLiteral("Timer1"))->Desactive();
  Temps.Avance(60'000);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  Engin.ReprendTic();
  // A frame that comes at the very moment of the question, each time, and is taken right after it.
  for (int i = 0; i < 4; ++i) {
    Pilote.Muette = false;
    Temps.Declenche(QStringLiteral("Timer2"));
    ASSERT_FALSE(Sante.Dure(Condition::kDetectionArretee)) << i;
    Tic();
    Pilote.Muette = true;
  }
}

// The photos of an alarm are kept for the site while its companion is being started again.
TEST_F(Tick, APageThatWaitsForItsCompanionWantsPhotosAllTheSame) {
  Reglages.PhotoActif = false;
  ArmeSurNoir();
  Trame(AvecPoints(40));
  EXPECT_EQ(Actions.Photos, 0);
  Live.Interrompu = true;
  Trame(Unie(0));
  EXPECT_EQ(Actions.Photos, 1);
  EXPECT_EQ(Live.Publications, 0) << "no frame flows";
}

}  // namespace
}  // namespace vaktor
