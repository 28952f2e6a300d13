// SPDX-License-Identifier: GPL-3.0-or-later
// The analysis at its ends: the sample table used up, the numbers and the millisecond counter past their last value.
#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

using AnalyseAuxLimites = BancEssai;

TEST_F(AnalyseAuxLimites, TableTakesExactlyItsLastSample) {
  DemarreSurNoir();
  const qint32 compteurs = Affichage.NombreCompteurs;
  PoseZone(0, 0, 3 * (166667 - 1), 3);  // two rows of 166,667 samples: 333,334
  Tic();
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 1);
}

TEST_F(AnalyseAuxLimites, OneSampleTooManyEndsDetectionForGood) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  const qint32 compteurs = Affichage.NombreCompteurs;
  Trame(AvecPoints(20));
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 1);
  Trame(Unie(0));
  PoseZone(0, 0, 0, 3 * 333334);  // one column of 333,335 samples
  Trame(Unie(qRgb(0, 0, 255)));
  EXPECT_EQ(Detection().NbrPoints, 20);  // counted up to the failure
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 2);
  PoseZoneEntiere();
  for (int i = 0; i < 5; ++i) {
    Trame(i % 2 == 0 ? AvecPoints(400) : Unie(0));
    EXPECT_EQ(Detection().NbrPoints, 0);
    EXPECT_EQ(Engin.Surface().NombreContours(), 0);
  }
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 2);
  EXPECT_EQ(Actions.Photos, 0);
  Engin.BasculeCamera();  // a restart does not help
  Engin.BasculeCamera();
  Tic();
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 2);
  for (int i = 0; i < 40; ++i) Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kDetectionArretee);
}

TEST_F(AnalyseAuxLimites, ZoneWithoutSamplesComesThroughEvenThen) {
  DemarreSurNoir();
  PoseZone(0, 0, 0, 3 * 333334);
  Tic();
  const qint32 compteurs = Affichage.NombreCompteurs;
  PoseZone(40, 0, 39, 50);  // no first sample that could fail, so the index goes back
  Tic();
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 1);
  PoseZoneEntiere();
  Trame(Unie(0));
  Trame(AvecPoints(15));
  EXPECT_EQ(Affichage.Points, 15);
}

TEST_F(AnalyseAuxLimites, BoxGrownBeforeTheTableEndedStaysUntilATickIsComplete) {
  DemarreSurNoir();
  PoseZone(3, 6, 3, 6 + 3 * 333334);  // one column of 333,335 samples, the first 18 on the picture
  Trame(Unie(qRgb(0, 0, 255)));
  const CadreMouvement& cadre = Detection().Mouv;
  const auto attend = [&](qint32 minX, qint32 maxX, qint32 minY, qint32 maxY) {
    EXPECT_EQ(cadre.MinX, minX);
    EXPECT_EQ(cadre.MaxX, maxX);
    EXPECT_EQ(cadre.MinY, minY);
    EXPECT_EQ(cadre.MaxY, maxY);
  };
  EXPECT_EQ(Detection().NbrPoints, 18);
  attend(3, 3, 6, 57);
  for (int i = 0; i < 3; ++i) Trame(Unie(0));  // fail at their first sample
  attend(3, 3, 6, 57);
  PoseZone(40, 0, 39, 50);  // no sample, so nothing fails: the end of this tick turns the box inside out
  Tic();
  attend(kLargeur, 0, kHauteur, 0);
}

TEST_F(AnalyseAuxLimites, ZoneAtTheEndOfTheNumbersOverflows) {
  DemarreSurNoir();
  const qint32 compteurs = Affichage.NombreCompteurs;
  PoseZone(2147483645, 0, 2147483647, 0);  // one sample, then the loop counts past the end
  Tic();
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs);
  PoseZone(0, 2147483645, 0, 2147483647);
  Tic();
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs);
  PoseZone(0, 2147483640, 0, 2147483644);  // the last row is 2147483643: 2147483646 still fits
  Tic();
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs + 1);
}

// An analysis never takes so long. What a difference that overflows does to the detection is kept all the same.
TEST_F(AnalyseAuxLimites, DifferenceThatOverflowsStopsTheLabelsThenTheDetection) {
  Reglages.PhotoActif = Reglages.SonActif = true;
  ArmeSurNoir();
  PoseZone(0, 0, 59, 3 * 4999);  // 20 columns, 5,000 rows: 100,000 samples, the most of them outside
  Trame(Unie(0));
  Trame(Unie(0));
  const qint32 compteurs = Affichage.NombreCompteurs;
  Actions.Sons = 0;
  Actions.PendantPhoto = [this] { Horloge.Millisecondes += 0x7fffffff; };
  Trame(AvecPoints(400));
  EXPECT_EQ(Actions.Sons, 1);  // the actions are done already
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs);
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kIntrusion);
  Trame(AvecPoints(400));  // compared with the next entries of the table, which are zero
  EXPECT_EQ(Actions.Sons, 2);
  EXPECT_GT(Detection().NbrPoints, 0);
  Trame(AvecPoints(400));
  EXPECT_EQ(Actions.Sons, 3);
  Trame(AvecPoints(400));  // 300,000 entries are used: the table ends in this scan
  EXPECT_EQ(Actions.Sons, 3);
  Trame(AvecPoints(400));
  EXPECT_EQ(Detection().NbrPoints, 0);
  EXPECT_EQ(Affichage.NombreCompteurs, compteurs);
}

}  // namespace
}  // namespace vaktor
