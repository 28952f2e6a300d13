// SPDX-License-Identifier: GPL-3.0-or-later
// What comes after the driver has connected again by itself: nothing that changed meanwhile is taken for motion.
#include <functional>

#include "engine/engine_fixture.h"
#include "engine/reconnections.h"

namespace vaktor {
namespace {

class Reprise : public BancEssai {
 protected:
  void ArmeEtPerd() {
    Reglages.PhotoActif = Reglages.MailActif = Reglages.SonActif = true;
    ArmeSurNoir();
    Pilote.Muette = Pilote.Perdu = true;
    Temps.Avance(3'600'000);
  }
  void Revient(const QImage& image) {
    Pilote.Muette = Pilote.Perdu = false;
    Pilote.Reprise = true;
    Trame(image);
  }
  qint32 Alarmes() const { return Actions.Photos + Actions.Mails + Actions.Sons; }
};

TEST_F(Reprise, AnHourOfDuskAlarmsNobody) {
  ArmeEtPerd();
  Revient(AvecPoints(400));
  EXPECT_EQ(Detection().NbrPoints, 0) << "stored, not compared";
  EXPECT_NE(Affichage.Libelle, LibelleAlarme::kIntrusion);
  Temps.Avance(5000);
  EXPECT_EQ(Alarmes(), 0);
  EXPECT_EQ(Detection().NbrPoints, 0);
  EXPECT_TRUE(Sante.Details.isEmpty());
}

TEST_F(Reprise, FirstFrameIsWhatTheNextOnesAreComparedWith) {
  ArmeEtPerd();
  Revient(AvecPoints(400));
  Horloge.Millisecondes += 2000;
  Trame(AvecPoints(400));
  EXPECT_EQ(Detection().NbrPoints, 0);
  Trame(AvecPoints(350));
  EXPECT_EQ(Detection().NbrPoints, 50);
  EXPECT_EQ(Actions.Photos, 1);
}

// The exposure of a camera that was just opened goes up and down. It shows, and does not act.
TEST_F(Reprise, ForASecondNothingActs) {
  ArmeEtPerd();
  Revient(AvecPoints(400));
  bool paire = false;
  int montrees = 0;
  Pilote.Suivante = [&] {
    paire = !paire;
    return paire ? Unie(0) : AvecPoints(400);
  };
  for (int t = 30; t < 1000; t += 30) {
    Horloge.Millisecondes += 30;
    Tic();
    montrees += Affichage.Libelle == LibelleAlarme::kIntrusion ? 1 : 0;
    ASSERT_EQ(Alarmes(), 0) << t;
  }
  EXPECT_EQ(montrees, 33);
  Horloge.Millisecondes += 30;  // a second is over; this frame is compared with one from within it
  Tic();
  EXPECT_EQ(Alarmes(), 0);
  Horloge.Millisecondes += 30;
  Tic();
  EXPECT_EQ(Actions.Photos, 1);
  EXPECT_EQ(Actions.Mails, 1);
  EXPECT_EQ(Actions.Sons, 1);
}

// Frames a second apart: the first is taken in the dark, the second when the exposure has settled.
TEST_F(Reprise, WithAFrameASecondTheFirstSettledOneActsForNobodyEither) {
  ArmeEtPerd();
  Revient(Unie(qRgb(3, 3, 3)));
  Horloge.Millisecondes += 1000;
  Trame(AvecPoints(400));
  EXPECT_EQ(Detection().NbrPoints, 400);
  EXPECT_EQ(Alarmes(), 0);
  Horloge.Millisecondes += 1000;
  Trame(Unie(0));
  EXPECT_EQ(Actions.Photos, 1);
}

TEST_F(Reprise, ASecondLossInTheMiddleBeginsTheSecondAnew) {
  ArmeEtPerd();
  Revient(AvecPoints(400));
  Horloge.Millisecondes += 900;
  Revient(Unie(0));
  Horloge.Millisecondes += 900;
  Trame(AvecPoints(400));
  Horloge.Millisecondes += 30;
  Trame(Unie(0));
  EXPECT_EQ(Alarmes(), 0);
}

TEST_F(Reprise, FrameOfAnotherSizeIsStoredInItsNewZone) {
  ArmeEtPerd();
  Revient(AvecPoints(400, 90, 90));
  EXPECT_EQ(Engin.Surface().Taille(), QSize(90, 90));
  Horloge.Millisecondes += 30;
  Trame(AvecPoints(400, 90, 90));
  EXPECT_EQ(Detection().NbrPoints, 0);
}

TEST_F(Reprise, SmallViewOfChangedPointsStaysEmpty) {
  ArmeEtPerd();
  Engin.ChoisitModeZoom(false);
  const qint32 vues = Affichage.VuesPixel;
  Revient(AvecPoints(400));
  EXPECT_EQ(Affichage.VuesPixel, vues);
}

TEST_F(Reprise, ToleranceDoesNotActOnTheFrameThatWasOnlyStored) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  Reglages.SeuilAuto = true;
  Trame(AvecPoints(50));
  Temps.Avance(1);
  Pilote.Muette = true;
  Temps.Avance(1000);
  const qint32 seuil = Reglages.SeuilDetection;
  Pilote.Muette = false;
  Pilote.Reprise = true;
  Image(Unie(0));
  Tic();
  Pilote.Muette = true;
  Temps.Avance(1000);
  EXPECT_EQ(Reglages.SeuilDetection, seuil);
}

TEST_F(Reprise, LiveImageOfTheFirstFrameGoesOut) {
  ArmeEtPerd();
  Live.Actif = true;
  Revient(AvecPoints(400));
  EXPECT_EQ(Live.Publications, 1);
}

// A stream that breaks off each second gives pictures, and never two that could be compared: nobody is watched.
TEST_F(Reprise, ACameraThatComesBackAgainAndAgainIsALostOne) {
  Reglages.PhotoActif = true;
  ArmeSurNoir();
  EXPECT_FALSE(Sante.Dure(Condition::kSignalPerdu));
  Pilote.ParArrivee = true;
  for (int i = 0; i < 20; ++i) {
    Pilote.Reprise = true;
    Pilote.Arrive();
    for (int t = 0; t < 500; t += 30) {
      Temps.Avance(30);
      ASSERT_TRUE(Sante.Dure(Condition::kSignalPerdu) || (i == 0 && t == 0)) << i << ", " << t;
    }
    EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun) << "there is a picture";
  }
  EXPECT_EQ(Sante.Debuts[Condition::kSignalPerdu], 1);
  EXPECT_EQ(Actions.Photos, 0);
}

TEST_F(Reprise, ACameraThatIsStartedAnewHasNothingToWaitFor) {
  ArmeEtPerd();
  Revient(AvecPoints(400));
  Tic();
  ASSERT_TRUE(Sante.Dure(Condition::kSignalPerdu));
  Engin.BasculeCamera();
  Engin.BasculeCamera();
  Tic();
  EXPECT_FALSE(Sante.Dure(Condition::kSignalPerdu));
}

/// A camera that gives `parSeconde` frames and loses its connection every `dureeMs`; half a second later it is back.
struct CameraQuiLache {
  int ParSeconde;
  int DureeMs;
};

class CameraInstable : public Reprise, public testing::WithParamInterface<CameraQuiLache> {
 protected:
  /// One connection and its end; what is true of the condition is asked at each tick.
  void Cycle(const CameraQuiLache& camera, const std::function<void(bool)>& aChaqueTic) {
    const auto attend = [&](int ms) {
      for (int t = 0; t < ms; t += 10) {
        Temps.Avance(10);
        aChaqueTic(Sante.Dure(Condition::kSignalPerdu));
      }
    };
    Pilote.Reprise = true;
    for (int t = 0; t < camera.DureeMs; t += 1000 / camera.ParSeconde) {
      Pilote.Perdu = false;
      Pilote.Arrive();
      attend(1000 / camera.ParSeconde);
    }
    Pilote.Perdu = true;
    attend(500);
  }
};

// The picture looks alive, and each loss by itself is over before it counts.
TEST_P(CameraInstable, IsALostOneWithoutAGapAndUntilAMinuteAfterTheLastTime) {
  ArmeSurNoir();
  Pilote.ParArrivee = true;
  int regarde = 0;
  const qint64 debut = Horloge.Millisecondes;
  while (Horloge.Millisecondes < debut + 90'000) {
    Cycle(GetParam(), [&](bool dure) {
      if (Horloge.Millisecondes < debut + 30'000) return;
      ASSERT_TRUE(dure) << Horloge.Millisecondes - debut;
      ++regarde;
    });
  }
  EXPECT_GE(regarde, 5900);
  EXPECT_EQ(Sante.Details[Condition::kSignalPerdu], "elle se reconnecte sans cesse");
  Cycle({GetParam().ParSeconde, 62'000}, [](bool) {});
  Pilote.Perdu = false;
  Pilote.Arrive();
  EXPECT_FALSE(Sante.Dure(Condition::kSignalPerdu));
}

INSTANTIATE_TEST_SUITE_P(Cadences, CameraInstable,
                         testing::Values(CameraQuiLache{1, 2000}, CameraQuiLache{1, 3000}, CameraQuiLache{1, 10'000},
                                         CameraQuiLache{3, 2000}, CameraQuiLache{3, 3000}, CameraQuiLache{3, 10'000},
                                         CameraQuiLache{30, 2000}, CameraQuiLache{30, 3000},
                                         CameraQuiLache{30, 10'000}));

TEST_F(CameraInstable, OneThatStumblesEveryFortySecondsIsNone) {
  ArmeSurNoir();
  Pilote.ParArrivee = true;
  for (int i = 0; i < 10; ++i) {
    int perdue = 0;
    Cycle({3, 40'000}, [&](bool dure) { perdue += dure ? 10 : 0; });
    EXPECT_LT(perdue, 3000) << i;
  }
}

TEST_F(CameraInstable, AHealthyOneNeverIs) {
  for (const int parSeconde : {1, 3, 30}) {
    Pilote.ParArrivee = false;
    DemarreSurNoir();
    Pilote.ParArrivee = true;
    Pilote.Suivante = [this] { return Unie(Horloge.Millisecondes / 1000 % 2 == 0 ? 0 : 1); };  // its sensor is alive
    for (int t = 0; t < 600'000; t += 1000 / parSeconde) {
      Pilote.Arrive();
      Temps.Avance(1000 / parSeconde);
    }
    EXPECT_TRUE(Sante.Details.isEmpty()) << parSeconde;
    EXPECT_EQ(Sante.Debuts[Condition::kSignalPerdu], 0);
    Engin.BasculeCamera();
  }
}

TEST_F(CameraInstable, StartedAnewItHasABlankPage) {
  ArmeSurNoir();
  Pilote.ParArrivee = true;
  for (int i = 0; i < 5; ++i) Cycle({3, 3000}, [](bool) {});
  ASSERT_TRUE(Sante.Dure(Condition::kSignalPerdu));
  Pilote.Perdu = false;
  Engin.BasculeCamera();
  Engin.BasculeCamera();
  Pilote.Arrive();
  Temps.Avance(100);
  EXPECT_FALSE(Sante.Dure(Condition::kSignalPerdu));
}

// After 49 days the counter comes by the same numbers again.
TEST(SerieReprises, IsForgottenWhenAMinuteHasPassed) {
  SerieReprises serie;
  for (const quint32 t : {1000U, 31'000U, 61'000U}) serie.Note(t);
  EXPECT_TRUE(serie.EnSerie(61'000));
  EXPECT_TRUE(serie.EnSerie(120'999));
  EXPECT_FALSE(serie.EnSerie(121'000));
  EXPECT_FALSE(serie.EnSerie(61'000));
  serie.Note(62'000);
  EXPECT_FALSE(serie.EnSerie(62'000)) << "the first of another series";
  serie.Oublie();
  for (const quint32 t : {1000U, 31'000U, 61'001U}) serie.Note(t);
  EXPECT_FALSE(serie.EnSerie(61'001));
  serie.Oublie();
  for (const quint32 t : {0xFFFFFF00U, 0x100U, 0x200U}) serie.Note(t);
  EXPECT_TRUE(serie.EnSerie(0x200)) << "across the end of the counter";
}

// The live page fails before the comparison: what was seen before the loss stays in the table until a frame is stored.
TEST_F(Reprise, AFirstFrameThatFailedLeavesTheStoringToTheNext) {
  ArmeEtPerd();
  Live.Actif = Live.PublicationEchoue = true;
  Reglages.IntervalleFtp = QStringLiteral("0.1");
  for (int i = 0; i < 4; ++i) {
    Pilote.Muette = Pilote.Perdu = false;
    if (i == 0) Pilote.Reprise = true;
    Trame(AvecPoints(400));
    Horloge.Millisecondes += 1000;
  }
  Live.PublicationEchoue = false;
  Trame(AvecPoints(400));
  Horloge.Millisecondes += 1000;
  EXPECT_EQ(Detection().NbrPoints, 0) << "an hour of dusk";
  EXPECT_EQ(Alarmes(), 0);
  Trame(AvecPoints(350));
  EXPECT_EQ(Detection().NbrPoints, 50);
  EXPECT_EQ(Actions.Photos, 1);
}

// A frame whose signal was lost without a new connection, and a camera that the user starts anew, are as they were.
TEST_F(Reprise, OnlyAConnectionByItselfCounts) {
  ArmeEtPerd();
  Pilote.Muette = Pilote.Perdu = false;
  Trame(AvecPoints(400));
  EXPECT_EQ(Actions.Photos, 1);
  Engin.BasculeCamera();
  Engin.BasculeCamera();
  Trame(Unie(0));
  EXPECT_GT(Detection().NbrPoints, 0) << "compared with the last samples of the run before";
}

}  // namespace
}  // namespace vaktor
