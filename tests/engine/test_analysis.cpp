// SPDX-License-Identifier: GPL-3.0-or-later
// The detector: what counts as changed, what the window says, when the armed system acts, and how it fails.
#include <new>

#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

using Analyse = BancEssai;

TEST_F(Analyse, DifferenceEqualToTheToleranceIsNoChange) {
  DemarreSurNoir();
  Reglages.SeuilDetection = 200;
  Trame(Unie(qRgb(200, 0, 0)));
  EXPECT_EQ(Detection().NbrPoints, 0);
  Trame(Unie(0));
  EXPECT_EQ(Detection().NbrPoints, 0);
  Reglages.SeuilDetection = 199;
  Trame(Unie(qRgb(200, 0, 0)));
  EXPECT_EQ(Detection().NbrPoints, 400);
  Trame(Unie(0));  // downwards as well
  EXPECT_EQ(Detection().NbrPoints, 400);
}

TEST_F(Analyse, ColourIsOneWholeNumberInWhichBlueWeighsMost) {
  DemarreSurNoir();
  Reglages.SeuilDetection = 65536;
  Trame(Unie(qRgb(0, 0, 1)));
  EXPECT_EQ(Detection().NbrPoints, 0);
  Trame(Unie(0));
  Reglages.SeuilDetection = 65535;
  Trame(Unie(qRgb(0, 0, 1)));
  EXPECT_EQ(Detection().NbrPoints, 400);
  Trame(Unie(0));
  Reglages.SeuilDetection = 256;
  Trame(Unie(qRgb(0, 1, 0)));
  EXPECT_EQ(Detection().NbrPoints, 0);
  // A step of blue up and all of green and red down is nearly no change.
  Trame(Unie(qRgb(255, 255, 0)));
  Reglages.SeuilDetection = 1;
  Trame(Unie(qRgb(0, 0, 1)));
  EXPECT_EQ(Detection().NbrPoints, 0);
}

TEST_F(Analyse, OnlyEveryThirdPixelOfEveryThirdRowIsLookedAt) {
  DemarreSurNoir();
  QImage image = Unie(0);
  for (int y = 0; y < kHauteur; ++y) {
    for (int x = 0; x < kLargeur; ++x) {
      if (x % 3 != 0 || y % 3 != 0) image.setPixel(x, y, qRgb(255, 255, 255));
    }
  }
  Trame(image);
  EXPECT_EQ(Detection().NbrPoints, 0);
  EXPECT_EQ((kLargeur / 3) * (kHauteur / 3), 400);
}

TEST_F(Analyse, ReferenceIsAlwaysTheFrameBefore) {
  DemarreSurNoir();
  for (int bleu = 1; bleu < 30; ++bleu) {  // a slow drift raises nothing
    Reglages.SeuilDetection = 70000;
    Trame(Unie(qRgb(0, 0, bleu)));
    EXPECT_EQ(Detection().NbrPoints, 0);
  }
  Trame(Unie(0));
  EXPECT_EQ(Detection().NbrPoints, 400);
  Trame(Unie(0));  // counted for one frame only
  EXPECT_EQ(Detection().NbrPoints, 0);
}

TEST_F(Analyse, IntrusionShowsFromElevenChangedSamplesArmedOrNot) {
  DemarreSurNoir();
  Trame(AvecPoints(10));
  EXPECT_EQ(Detection().NbrPoints, 10);
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kInactive);
  EXPECT_EQ(Engin.Surface().NombreContours(), 1);
  Trame(Unie(0));
  Trame(AvecPoints(11));
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kIntrusion);
  EXPECT_EQ(Engin.Surface().NombreContours(), 2);
  EXPECT_EQ(Actions.Photos + Actions.Mails + Actions.Sons, 0);
}

TEST_F(Analyse, ArmedSystemSaysActiveAndIntrusion) {
  ArmeSurNoir();
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kActive);
  Trame(AvecPoints(11));
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kIntrusion);
  Trame(AvecPoints(11));
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kActive);
}

TEST_F(Analyse, OutlinesAreTheZoneAndThenTheMotionBox) {
  DemarreSurNoir();
  Trame(AvecPoints(45));  // two rows of 20 and five of the third
  ASSERT_EQ(Engin.Surface().NombreContours(), 2);
  const Contour& zone = Engin.Surface().ContourNumero(0);
  EXPECT_EQ(QRect(zone.Gauche, zone.Haut, zone.Droite, zone.Bas), QRect(0, 0, 60, 60));
  const Contour& cadre = Engin.Surface().ContourNumero(1);
  EXPECT_EQ(QRect(cadre.Gauche, cadre.Haut, cadre.Droite, cadre.Bas), QRect(0, 0, 57, 6));
}

TEST_F(Analyse, ActionsRunFromThirtyOneChangedSamplesOnAnArmedSystemInTheirOrder) {
  Reglages.PhotoActif = Reglages.MailActif = Reglages.SonActif = true;
  ArmeSurNoir();
  Trame(AvecPoints(30));
  EXPECT_EQ(Detection().NbrPoints, 30);
  EXPECT_EQ(Actions.Photos + Actions.Mails + Actions.Sons, 0);
  Trame(Unie(0));
  Journal.Ecoute();
  Trame(AvecPoints(31));
  const qsizetype photo = Journal.Rang(QStringLiteral("EnregistrePhoto"));
  EXPECT_GE(photo, 0);
  EXPECT_EQ(Journal.Rang(QStringLiteral("EnvoiMail")), photo + 1);
  EXPECT_EQ(Journal.Rang(QStringLiteral("EnvoiSon")), photo + 2);
  EXPECT_EQ(Journal.Rang(QStringLiteral("NoteIntrusion")), photo + 3);
  Trame(Unie(0));  // the next frame above the level acts again
  EXPECT_EQ(Actions.Photos, 2);
  EXPECT_EQ(Actions.Mails, 2);
  EXPECT_EQ(Actions.Sons, 2);
  EXPECT_EQ(Actions.Intrusions, 2);
}

TEST_F(Analyse, AFrameThatActsIsNotedThoughItsPhotoFailsOrNothingIsTicked) {
  Reglages.PhotoActif = Actions.PhotoEchoue = true;
  Reglages.MailActif = Reglages.SonActif = false;
  ArmeSurNoir();
  Trame(AvecPoints(30));
  EXPECT_EQ(Actions.Intrusions, 0);
  Trame(Unie(0));
  EXPECT_EQ(Actions.Intrusions, 0) << "30 changed samples act no more than none";
  Trame(AvecPoints(31));
  EXPECT_EQ(Actions.Intrusions, 1);
  Reglages.PhotoActif = false;
  Trame(Unie(0));
  EXPECT_EQ(Actions.Intrusions, 2);
}

TEST_F(Analyse, NothingIsDoneWhenNotArmed) {
  Reglages.PhotoActif = Reglages.MailActif = Reglages.SonActif = true;
  DemarreSurNoir();
  Trame(AvecPoints(400));
  EXPECT_EQ(Detection().NbrPoints, 400);
  EXPECT_EQ(Actions.Photos + Actions.Mails + Actions.Sons, 0);
}

TEST_F(Analyse, CheckBoxesTakeEffectOnTheNextFrame) {
  Reglages.PhotoActif = Reglages.MailActif = Reglages.SonActif = false;
  ArmeSurNoir();
  Trame(AvecPoints(400));
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kIntrusion);
  EXPECT_EQ(Affichage.LampeAlarme, Lampe::kVerte);
  EXPECT_EQ(Actions.Photos + Actions.Mails + Actions.Sons, 0);
  Reglages.MailActif = true;
  Trame(Unie(0));
  EXPECT_EQ(Actions.Mails, 1);
  EXPECT_EQ(Actions.Photos + Actions.Sons, 0);
}

TEST_F(Analyse, LivePageAsksForThePhotoEvenWithPhotosOff) {
  Reglages.PhotoActif = Reglages.SonActif = false;
  ArmeSurNoir();
  Live.Actif = true;
  Trame(AvecPoints(31));
  EXPECT_EQ(Actions.Photos, 1);
}

TEST_F(Analyse, CountdownKeepsItsTextAndNothingIsDone) {
  Reglages.PhotoActif = Reglages.MailActif = true;
  DemarreSurNoir();
  Engin.BasculeAlarme();
  Temps.Avance(1000);
  ASSERT_EQ(Affichage.CompteMontre, 9);
  Trame(AvecPoints(400));
  EXPECT_EQ(Affichage.CompteMontre, 9);
  EXPECT_FALSE(Affichage.Rouge);
  EXPECT_EQ(Engin.Surface().NombreContours(), 1);
  EXPECT_EQ(Actions.Photos + Actions.Mails + Actions.Sons, 0);
}

TEST_F(Analyse, CountdownStartedOnARedLabelTurnsItGreyAndKeepsTheWords) {
  DemarreSurNoir();
  Trame(AvecPoints(400));
  Engin.BasculeAlarme();
  EXPECT_TRUE(Affichage.Rouge);
  Trame(Unie(0));
  EXPECT_FALSE(Affichage.Rouge);
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kIntrusion);  // until the first second is over
}

TEST_F(Analyse, ChangedZoneShiftsTheSamplesAndAlarms) {
  Reglages.PhotoActif = true;
  QImage image = Unie(0);
  for (int i = 0; i < kLargeur; ++i) {
    for (int y = 0; y < kHauteur; ++y) image.setPixel(i, y, qRgb(0, 0, (4 * i) % 256));
  }
  ArmeSurNoir();
  Trame(image);
  Trame(image);
  const qint32 photos = Actions.Photos;
  EXPECT_EQ(Detection().NbrPoints, 0);
  PoseZone(1, 0, 50, 59);  // as during a drag: not yet released
  Trame(image);
  EXPECT_GT(Detection().NbrPoints, kSeuilAlarme);
  EXPECT_EQ(Actions.Photos, photos + 1);
  Trame(image);
  EXPECT_EQ(Detection().NbrPoints, 0);
}

TEST_F(Analyse, ZoneOfOnePointHasOneSample) {
  DemarreSurNoir();
  PoseZone(3, 3, 3, 3);
  Trame(Unie(qRgb(0, 0, 255)));
  EXPECT_EQ(Detection().NbrPoints, 1);
}

TEST_F(Analyse, ZoneWithItsEdgesInTheWrongOrderHasNoneAndTheRestRuns) {
  DemarreSurNoir();
  for (const QRect& zone : {QRect(40, 0, 39, 50), QRect(0, 40, 50, 39)}) {
    PoseZone(zone.x(), zone.y(), zone.width(), zone.height());
    const qint32 avant = Affichage.NombreCompteurs;
    Trame(Unie(qRgb(0, 0, 255)));
    EXPECT_EQ(Detection().NbrPoints, 0);
    EXPECT_EQ(Affichage.NombreCompteurs, avant + 1);
    EXPECT_EQ(Engin.Surface().NombreContours(), 1);
    EXPECT_EQ(Affichage.Barre, 0);
    Trame(Unie(0));
  }
}

TEST_F(Analyse, BothEdgesOfTheZoneAreSampled) {
  DemarreSurNoir();
  PoseZone(10, 10, 16, 13);  // columns 10, 13, 16 and rows 10, 13
  Trame(Unie(0));
  Trame(Unie(qRgb(0, 0, 255)));
  EXPECT_EQ(Detection().NbrPoints, 6);
}

TEST_F(Analyse, PointsOutsideThePictureAreMinusOneAndCountOnce) {
  DemarreSurNoir();
  PoseZone(0, 0, 57, 57);
  Trame(Unie(qRgb(0, 0, 2)));
  Reglages.SeuilDetection = 131072;  // from 0x20000 down to -1 is one more
  PoseZone(0, 0, 60, 0);             // the sample at x = 60 lies past the last column
  Trame(Unie(qRgb(0, 0, 2)));
  EXPECT_EQ(Detection().NbrPoints, 1);
  EXPECT_EQ(Affichage.Points, 1);
  for (int i = 0; i < 3; ++i) {
    Trame(Unie(qRgb(0, 0, 2)));
    EXPECT_EQ(Detection().NbrPoints, 0);  // -1 on each frame, so unchanged
  }
}

TEST_F(Analyse, ZoneFarOutsideThePictureIsHarmless) {
  DemarreSurNoir();
  PoseZone(-500, -300, -200, -100);
  Trame(Unie(qRgb(0, 0, 255)));
  Trame(Unie(0));
  EXPECT_EQ(Detection().NbrPoints, 0);
  EXPECT_EQ(Affichage.Points, 0);
}

TEST_F(Analyse, BarIsPinnedAtNineHundred) {
  DemarreSurNoir();
  for (const int points : {899, 900, 901, 1500}) {
    Trame(Unie(0, 150, 150));
    PoseZoneEntiere();
    Trame(Unie(0, 150, 150));
    Trame(Unie(0, 150, 150));
    Trame(AvecPoints(points, 150, 150));
    EXPECT_EQ(Detection().NbrPoints, points);
    EXPECT_EQ(Affichage.Barre, std::min(points, 900));
    EXPECT_EQ(Affichage.Points, points);
  }
}

TEST_F(Analyse, CounterShowsTheWholeCycle) {
  DemarreSurNoir();
  Temps.Avance(30);
  Temps.Avance(30);
  EXPECT_EQ(Affichage.Cycle, 30);
  Horloge.Millisecondes += 100;  // a tick that came late
  Tic();
  EXPECT_EQ(Affichage.Cycle, 100);
}

TEST_F(Analyse, WithoutAnyPictureTheSurfaceIsBlack) {
  Reglages.SeuilAuto = false;
  Reglages.SeuilDetection = 1;
  Engin.BasculeCamera();
  Tic();
  EXPECT_EQ(Detection().NbrPoints, 0);
  EXPECT_EQ(Affichage.NombreCompteurs, 1);
  Engin.ChoisitModeZoom(false);
  Tic();
  EXPECT_EQ(Affichage.NombreCompteurs, 2);
}

TEST_F(Analyse, FirstFrameComparesWithZeroAndARestartWithTheLastSamples) {
  Reglages.SeuilAuto = false;
  Reglages.SeuilDetection = 1;
  Image(Unie(qRgb(0, 0, 9), 287, 241));
  Engin.BasculeCamera();
  Tic();
  EXPECT_EQ(Detection().NbrPoints, 96 * 80);  // 1, 4, ... 286 and 1, 4, ... 238; row 241 lies outside
  EXPECT_EQ(Zone().Gauche, 1);
  Engin.BasculeCamera();
  Engin.BasculeCamera();
  Tic();
  EXPECT_EQ(Detection().NbrPoints, 0);
  Engin.BasculeCamera();
  Image(Unie(0, 287, 241));
  Engin.BasculeCamera();
  Tic();
  EXPECT_EQ(Detection().NbrPoints, 96 * 80);
}

// The live page.

TEST_F(Analyse, LivePageIsPublishedWhenItsIntervalHasPassed) {
  Reglages.IntervalleFtp = QStringLiteral("0,5");
  Horloge.Millisecondes = 10000;
  DemarreSurNoir();
  Live.Actif = true;
  Tic();
  EXPECT_EQ(Live.Publications, 1);  // never published before: 10 s have passed
  Horloge.Millisecondes += 499;
  Tic();
  EXPECT_EQ(Live.Publications, 1);
  Horloge.Millisecondes += 1;  // equal is enough
  Tic();
  EXPECT_EQ(Live.Publications, 2);
  Reglages.IntervalleFtp = QStringLiteral("0.5");
  Horloge.Millisecondes += 500;
  Tic();
  EXPECT_EQ(Live.Publications, 3);
}

TEST_F(Analyse, LiveIntervalIsHeldInSinglePrecision) {
  Reglages.IntervalleFtp = QStringLiteral("0,1");  // 0.100000001490116 s
  Horloge.Millisecondes = 10000;
  DemarreSurNoir();
  Live.Actif = true;
  Tic();
  Horloge.Millisecondes += 100;
  Tic();
  EXPECT_EQ(Live.Publications, 1);
  Horloge.Millisecondes += 1;
  Tic();
  EXPECT_EQ(Live.Publications, 2);
}

TEST_F(Analyse, LivePageComesBeforeTheScanAndThePhoto) {
  Reglages.PhotoActif = true;
  Horloge.Millisecondes = 10000;
  ArmeSurNoir();
  Live.Actif = true;
  Journal.Ecoute();
  Trame(AvecPoints(100));
  EXPECT_EQ(Live.Publiee.Entiere(), AvecPoints(100)) << "the frame that is analysed";
  EXPECT_GE(Journal.Rang(QStringLiteral("PublieLive")), 0);
  EXPECT_LT(Journal.Rang(QStringLiteral("PublieLive")), Journal.Rang(QStringLiteral("EnregistrePhoto")));
}

// A publication that fails ends the tick: the view of the changed points must not keep those of the frame before.
TEST_F(Analyse, ThePixelViewIsWipedBeforeTheLivePageIsPublished) {
  Horloge.Millisecondes = 10000;
  DemarreSurNoir();
  Engin.ChoisitModeZoom(false);
  Live.Actif = true;
  Journal.Ecoute();
  Trame(AvecPoints(100));
  EXPECT_GE(Journal.Rang(QStringLiteral("RafraichitVue")), 0);
  EXPECT_LT(Journal.Rang(QStringLiteral("RafraichitVue")), Journal.Rang(QStringLiteral("PublieLive")));
}

TEST_F(Analyse, FailedPublicationEndsTheTickAndWaitsForItsIntervalAgain) {
  Horloge.Millisecondes = 10000;
  DemarreSurNoir();
  Live.Actif = true;
  Live.PublicationEchoue = true;
  const qint32 compteurs = Affichage.NombreCompteurs;
  Trame(AvecPoints(100));
  EXPECT_EQ(Detection().NbrPoints, 0);
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs);
  Horloge.Millisecondes += 30;
  Trame(AvecPoints(100));
  EXPECT_EQ(Live.Publications, 1);
  EXPECT_EQ(Detection().NbrPoints, 100);
}

TEST_F(Analyse, IntervalThatIsNoNumberEndsEachTickEvenWithTheLivePageOff) {
  DemarreSurNoir();
  const qint32 compteurs = Affichage.NombreCompteurs;
  for (const char* texte : {"", ",", "1,2,3", "abc", "nan", "inf"}) {
    Reglages.IntervalleFtp = QString::fromLatin1(texte);
    Trame(AvecPoints(100));
    EXPECT_EQ(Affichage.NombreCompteurs, compteurs) << texte;
    EXPECT_EQ(Detection().NbrPoints, 0) << texte;
    Trame(Unie(0));
  }
  Reglages.IntervalleFtp = QStringLiteral("5");
  Trame(AvecPoints(100));
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 1);
  EXPECT_EQ(Detection().NbrPoints, 100);
}

// How it fails.

TEST_F(Analyse, FailedPhotoSkipsWhatFollowsAndTheNextFrameTriesAgain) {
  Reglages.PhotoActif = Reglages.MailActif = Reglages.SonActif = true;
  ArmeSurNoir();
  Actions.PhotoEchoue = true;
  const qint32 compteurs = Affichage.NombreCompteurs;
  Trame(AvecPoints(100));
  EXPECT_EQ(Actions.Photos, 1);
  EXPECT_EQ(Actions.Mails + Actions.Sons, 0);
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs);
  Actions.PhotoEchoue = false;
  Trame(Unie(0));
  EXPECT_EQ(Actions.Photos, 2);
  EXPECT_EQ(Actions.Mails, 1);
}

TEST_F(Analyse, FolderGoneForLongCostsNoLaterPhoto) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  Actions.PhotoEchoue = true;
  for (int i = 0; i < 2000; ++i) Trame(i % 2 == 0 ? AvecPoints(400) : Unie(0));  // would use up the table twice
  EXPECT_EQ(Actions.Photos, 2000);
  Actions.PhotoEchoue = false;
  Trame(AvecPoints(31));
  EXPECT_EQ(Detection().NbrPoints, 31);
  EXPECT_EQ(Actions.Photos, 2001);
}

TEST_F(Analyse, WantOfMemoryForPhotosCostsNoLaterPhoto) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  Actions.PendantPhoto = [] { throw std::bad_alloc(); };
  for (int i = 0; i < 1000; ++i) Trame(i % 2 == 0 ? AvecPoints(400) : Unie(0));  // would use up the table
  Actions.PendantPhoto = nullptr;
  Trame(AvecPoints(31));
  EXPECT_EQ(Detection().NbrPoints, 31);
  EXPECT_EQ(Actions.Photos, 1001);
}

}  // namespace
}  // namespace vaktor
