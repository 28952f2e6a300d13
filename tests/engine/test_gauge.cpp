// SPDX-License-Identifier: GPL-3.0-or-later
// The tolerance: by hand on the gauge, or finding its place just above the noise.
#include <limits>

#include "engine/engine_fixture.h"
#include "engine/sensitivity_gauge.h"

namespace vaktor {
namespace {

using Jauge = BancEssai;

TEST_F(Jauge, ValueIsHeldBetweenOneAndSevenMillionAndDrawnAsPassed) {
  for (const auto& [valeur, seuil] : {std::pair{0, 1}, {-5, 1}, {1, 1}, {7000000, 7000000}, {7000001, 7000000}}) {
    Engin.Jauge().DessineSeuil(valeur);
    EXPECT_EQ(Reglages.SeuilDetection, seuil);
    EXPECT_EQ(Affichage.Jauge, valeur);
  }
}

TEST_F(Jauge, TurnsRedAtSixMillion) {
  Engin.Jauge().DessineSeuil(5999999);
  EXPECT_FALSE(Affichage.JaugeHaute);
  Engin.Jauge().DessineSeuil(6000000);
  EXPECT_TRUE(Affichage.JaugeHaute);
  Engin.Jauge().DessineSeuil(9000000);
  EXPECT_TRUE(Affichage.JaugeHaute);
  Engin.Jauge().DessineSeuil(-1);
  EXPECT_FALSE(Affichage.JaugeHaute);
}

TEST_F(Jauge, MarksTheParametersAsModified) {
  Engin.Jauge().DessineSeuil(5);
  EXPECT_TRUE(Reglages.ParametresModifies);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(Jauge, LeftButtonAloneMovesItAndHalvesGoToTheEvenNumber) {
  Engin.Jauge().SuitSouris(1000.5, true);
  EXPECT_EQ(Reglages.SeuilDetection, 1000);
  Engin.Jauge().SuitSouris(1001.5, true);
  EXPECT_EQ(Reglages.SeuilDetection, 1002);
  Engin.Jauge().SuitSouris(5000, false);
  EXPECT_EQ(Reglages.SeuilDetection, 1002);
  Engin.Jauge().SuitSouris(-300.0, true);
  EXPECT_EQ(Reglages.SeuilDetection, 1);
  Engin.Jauge().SuitSouris(8e6, true);
  EXPECT_EQ(Reglages.SeuilDetection, 7000000);
}

TEST_F(Jauge, FallsInCoarseStepsWhileNothingChangesAndStaysAtOne) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2000 + 1);
  EXPECT_EQ(Reglages.SeuilDetection, 6990000);
  Temps.Avance(8000);
  EXPECT_EQ(Reglages.SeuilDetection, 1);  // 0 is lifted to 1
  Temps.Avance(5000);
  EXPECT_EQ(Reglages.SeuilDetection, 1);
  EXPECT_EQ(Detection().PasSeuil, 10000);
  EXPECT_EQ(Affichage.Jauge, 1);
}

TEST_F(Jauge, FirstChangeEndsTheCoarseSearchForGood) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2010);
  ASSERT_EQ(Reglages.SeuilDetection, 6900000);
  Engin.SuspendTic();
  Image(Unie(qRgb(0, 0, 255)));
  Engin.ReprendTic();
  Temps.Avance(30);  // 30 more steps down, the last of them after the frame with the change
  const qint32 seuil = Reglages.SeuilDetection;
  EXPECT_EQ(Detection().NbrPoints, 400);
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, seuil + 1000);
  EXPECT_EQ(Detection().PasSeuil, 1000);
  Tic();  // still again
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, seuil);  // down by the fine step now
  EXPECT_EQ(Detection().PasSeuil, 1000);
}

TEST_F(Jauge, SettlesJustAboveTheNoise) {
  // Two pictures in turn, whose difference is 300000.
  bool pair = false;
  Pilote.Suivante = [&] {
    pair = !pair;
    return Unie(pair ? qRgb(0xe0, 0x93, 4) : 0);
  };
  Engin.BasculeCamera();
  Temps.Avance(60000);
  EXPECT_NEAR(Reglages.SeuilDetection, 0x0493e0, 62 * 1000);  // 31 steps to a frame
  EXPECT_EQ(Detection().PasSeuil, 1000);
}

// What no frame has looked at since is a guess: a twentieth of the tolerance for each of them.
TEST_F(Jauge, CoarseSearchTakesATwentiethForEachFrameAndThenRests) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(1990);
  Pilote.Muette = true;
  for (const auto& [depart, steps] : {std::pair{7000000, 33}, {3000000, 14}, {390000, 1}, {25000, 1}}) {
    Pilote.Muette = false;
    Tic();
    Pilote.Muette = true;
    Temps.Avance(1);
    Reglages.SeuilDetection = depart;
    Pilote.Muette = false;
    Tic();
    Pilote.Muette = true;
    Temps.Avance(60'000);
    EXPECT_EQ(Reglages.SeuilDetection, depart - steps * 10000) << depart;
    EXPECT_EQ(Detection().PasSeuil, 10000);
  }
}

// A camera that stalls, or whose signal is lost: the count of its last frame is not the picture's for ever.
TEST_F(Jauge, TrackingTakesFourStepsForEachFrameAndThenRests) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2100);
  PoseZoneEntiere();
  Trame(AvecPoints(50));
  Temps.Avance(1);
  ASSERT_GT(Detection().NbrPoints, 0);
  ASSERT_EQ(Detection().PasSeuil, 1000);
  const qint32 seuil = Reglages.SeuilDetection;
  Pilote.Muette = Pilote.Perdu = true;
  Temps.Avance(60'000);
  EXPECT_EQ(Reglages.SeuilDetection, seuil + 3 * 1000);
  Pilote.Muette = Pilote.Perdu = false;
  Image(AvecPoints(50));
  Tic();
  Pilote.Muette = true;
  ASSERT_EQ(Detection().NbrPoints, 0);
  Temps.Avance(60'000);
  EXPECT_EQ(Reglages.SeuilDetection, seuil - 1000);
}

// A hundred ticks a second that find nothing to do would keep the processor from resting.
TEST_F(Jauge, SleepsUntilTheNextFrameWhereNothingIsLeftToDo) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2100);
  PoseZoneEntiere();
  Trame(AvecPoints(50));
  Pilote.Muette = true;
  const auto* minuterie = Temps.Trouve(QStringLiteral("TimerSeuil"));
  Temps.Avance(10);
  EXPECT_TRUE(minuterie->Dort());
  EXPECT_TRUE(minuterie->EstActive()) << "it only rests";
  const qint32 tics = minuterie->NombreTics();
  Temps.Avance(5000);
  EXPECT_EQ(minuterie->NombreTics(), tics);
  Pilote.Muette = false;
  Image(Unie(0));
  Tic();
  Pilote.Muette = true;
  EXPECT_FALSE(minuterie->Dort());
  Temps.Avance(1000);
  EXPECT_EQ(minuterie->NombreTics(), tics + JaugeSensibilite::kPasFinsParImage) << "and not one for nothing";
}

TEST_F(Jauge, AFrameThatWakesTheTickByItselfWakesItToo) {
  Pilote.ParArrivee = true;
  Image(Unie(0));
  Engin.BasculeCamera();
  for (int i = 0; i < 80; ++i) {
    Pilote.Arrive();
    Temps.Avance(30);
  }
  const auto* minuterie = Temps.Trouve(QStringLiteral("TimerSeuil"));
  Temps.Avance(1000);
  ASSERT_TRUE(minuterie->Dort());
  Pilote.Arrive();
  EXPECT_FALSE(minuterie->Dort());
}

// Further out more steps are a guess that cannot go wrong.
TEST_F(Jauge, ADragAndADoubleClickWakeIt) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2100);
  Pilote.Muette = true;
  const auto* minuterie = Temps.Trouve(QStringLiteral("TimerSeuil"));
  Temps.Avance(1000);
  ASSERT_TRUE(minuterie->Dort());
  Engin.Jauge().SuitSouris(7000000, true);
  EXPECT_FALSE(minuterie->Dort());
  Temps.Avance(1000);
  ASSERT_TRUE(minuterie->Dort());
  Engin.Jauge().DoubleClic();
  EXPECT_FALSE(minuterie->Dort());
}

TEST_F(Jauge, NeverSleepsWithoutACamera) {
  Engin.Jauge().DoubleClic();
  Temps.Avance(60'000);
  EXPECT_FALSE(Temps.Trouve(QStringLiteral("TimerSeuil"))->Dort());
}

TEST_F(Jauge, FrameThatWasNotComparedGivesNoSteps) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2100);
  PoseZoneEntiere();
  Trame(AvecPoints(50));
  Temps.Avance(50);
  const qint32 seuil = Reglages.SeuilDetection;
  Reglages.IntervalleFtp = QStringLiteral("ten");
  Tic();
  ASSERT_EQ(Detection().NbrPoints, 0);
  Temps.Avance(20);
  EXPECT_EQ(Reglages.SeuilDetection, seuil);
}

TEST_F(Jauge, GoesOnWithTheLastCountOnceTheCameraIsOff) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Pilote.Muette = true;
  Tic();
  Engin.BasculeCamera();
  Reglages.SeuilDetection = 500000;
  Engin.Jauge().DoubleClic();
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, 490000);
}

TEST_F(Jauge, DoesNothingByItselfWhenTheBoxIsNotTicked) {
  DemarreSurNoir();
  Temps.Avance(5000);
  EXPECT_TRUE(Active("TimerSeuil"));
  EXPECT_EQ(Reglages.SeuilDetection, 1000);
}

TEST_F(Jauge, TickingTheBoxTakesEffectOnTheNextTickWithoutAJump) {
  DemarreSurNoir();
  Reglages.SeuilDetection = 500000;
  Temps.Avance(5000);
  Reglages.SeuilAuto = true;
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, 490000);
}

TEST_F(Jauge, DragIsOverriddenFromWhereItLeft) {
  Image(Unie(0));
  Engin.BasculeCamera();
  Temps.Avance(2100);
  Engin.Jauge().SuitSouris(3000000, true);
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, 2990000);
}

TEST_F(Jauge, DoubleClickStartsTheCoarseSearchAgain) {
  DemarreSurNoir();
  Reglages.SeuilAuto = true;
  Reglages.SeuilDetection = 500000;
  Trame(AvecPoints(5));
  Engin.Jauge().DoubleClic();
  EXPECT_EQ(Reglages.SeuilDetection, 500000);  // nothing by itself
  EXPECT_TRUE(Active("TimerSeuil"));
  Temps.Avance(1);
  EXPECT_EQ(Detection().PasSeuil, 1000);
  EXPECT_EQ(Reglages.SeuilDetection, 501000);
  Trame(AvecPoints(5));
  Engin.Jauge().DoubleClic();
  EXPECT_EQ(Detection().PasSeuil, 10000);
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, 491000);
}

TEST_F(Jauge, DoubleClickWithTheCameraOffRunsOnTheLastCount) {
  Reglages.SeuilDetection = 50000;
  Engin.Jauge().DoubleClic();  // the camera has never run: the count is 0
  Temps.Avance(1000);
  EXPECT_EQ(Reglages.SeuilDetection, 1);
  DemarreSurNoir();
  Trame(AvecPoints(5));
  Engin.BasculeCamera();
  EXPECT_FALSE(Active("TimerSeuil"));
  Reglages.SeuilAuto = true;
  Reglages.SeuilDetection = 6995500;
  Engin.Jauge().DoubleClic();
  Temps.Avance(1000);
  EXPECT_EQ(Reglages.SeuilDetection, 7000000);
}

TEST_F(Jauge, GoesOnWhileArmed) {
  ArmeSurNoir();
  Reglages.SeuilAuto = true;
  Reglages.SeuilDetection = 500000;
  Temps.Avance(1);
  EXPECT_EQ(Reglages.SeuilDetection, 490000);
}

TEST_F(Jauge, EachStartOfTheCameraBeginsTheCoarseSearchAnew) {
  Reglages.SeuilAuto = true;
  Engin.BasculeCamera();
  Trame(Unie(0));
  Trame(Unie(qRgb(255, 255, 255)));
  Engin.Jauge().AjusteSeuil();
  ASSERT_EQ(Detection().PasSeuil, 1000);
  Engin.BasculeCamera();
  EXPECT_EQ(Detection().PasSeuil, 1000);
  Engin.BasculeCamera();
  EXPECT_EQ(Detection().PasSeuil, 10000);
}

}  // namespace
}  // namespace vaktor
