// SPDX-License-Identifier: GPL-3.0-or-later
// When a frame is analysed: at the later of the tick and its coming, once, whatever the camera's rate.
#include <cmath>
#include <vector>

#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

class Cadence : public BancEssai {
 protected:
  Cadence() { Pilote.ParArrivee = true; }

  /// Frames at these moments, in milliseconds from now on, each another picture; time goes on to `fin`.
  void Arrivent(const std::vector<qint64>& moments, qint64 fin) {
    const qint64 debut = Horloge.Millisecondes;
    for (const qint64 moment : moments) {
      Temps.Avance(debut + moment - Horloge.Millisecondes);
      Arrive();
    }
    Temps.Avance(debut + fin - Horloge.Millisecondes);
  }
  /// So many frames a second.
  static std::vector<qint64> Regulieres(double cadence, qint64 duree) {
    std::vector<qint64> moments;
    for (int i = 0; i * 1000.0 / cadence < static_cast<double>(duree); ++i) {
      moments.push_back(std::llround(i * 1000.0 / cadence));
    }
    return moments;
  }
  void Arrive() {
    Paire_ = !Paire_;
    Pilote.Image = Paire_ ? Bleue_ : Noire_;
    Pilote.Arrive();
  }
  void Demarre() {
    Reglages.SeuilAuto = false;
    Reglages.SeuilDetection = 1000;
    Engin.BasculeCamera();
    Arrive();
    Temps.Avance(35);
    PoseZoneEntiere();
    Arrive();
    Temps.Avance(35);
  }

 private:
  QImage Bleue_ = AvecPoints(200);
  QImage Noire_ = Unie(0);
  bool Paire_ = false;
};

TEST_F(Cadence, FrameThatATickFoundMissingIsAnalysedWhenItComes) {
  Demarre();
  const qint32 avant = Affichage.NombreCompteurs;
  Temps.Avance(500);
  ASSERT_EQ(Affichage.NombreCompteurs, avant);
  Arrive();
  EXPECT_EQ(Affichage.NombreCompteurs, avant + 1) << "and not at the next tick";
  EXPECT_FALSE(Pilote.EstAttendue());
}

TEST_F(Cadence, SecondFrameBeforeTheNextTickWaitsForIt) {
  Demarre();
  Temps.Avance(500);
  Arrive();
  const qint32 avant = Affichage.NombreCompteurs;
  Arrive();
  EXPECT_EQ(Affichage.NombreCompteurs, avant);
  Temps.Avance(30);
  EXPECT_EQ(Affichage.NombreCompteurs, avant + 1);
}

TEST_F(Cadence, EveryFrameOfACameraOfUpToThirtyASecondIsAnalysedOnce) {
  for (const double cadence : {1.0, 2.0, 3.0, 5.0, 7.5, 10.0, 15.0, 24.0, 25.0, 29.97, 30.0, 33.0}) {
    faux::BancSurveillance banc;
    banc.Pilote.ParArrivee = true;
    banc.Pilote.Image = Unie(0);
    banc.Engin.BasculeCamera();
    banc.Pilote.Arrive();
    banc.Temps.Avance(60);
    const qint32 avant = banc.Affichage.NombreCompteurs;
    const qint64 debut = banc.Horloge.Millisecondes;
    const std::vector<qint64> moments = Regulieres(cadence, 20'000);
    for (const qint64 moment : moments) {
      banc.Temps.Avance(debut + moment - banc.Horloge.Millisecondes);
      banc.Pilote.Arrive();
    }
    banc.Temps.Avance(30);
    EXPECT_EQ(banc.Affichage.NombreCompteurs - avant, static_cast<qint32>(moments.size())) << cadence;
  }
}

// As a camera on a busy bus gives them: up to ten milliseconds early or late.
TEST_F(Cadence, NoFrameIsLostThatComesALittleEarlyOrLate) {
  Demarre();
  std::vector<qint64> moments = Regulieres(30.0, 20'000);
  for (std::size_t i = 1; i < moments.size(); ++i) moments[i] += static_cast<qint64>(i * 7 % 21) - 10;
  const qint32 avant = Affichage.NombreCompteurs;
  Arrivent(moments, 20'050);
  EXPECT_EQ(Affichage.NombreCompteurs - avant, static_cast<qint32>(moments.size()));
}

TEST_F(Cadence, FasterCameraIsAnalysedAtEachTickAndNoMore) {
  Demarre();
  const qint32 avant = Affichage.NombreCompteurs;
  Arrivent(Regulieres(100.0, 3000), 3000);
  EXPECT_NEAR(Affichage.NombreCompteurs - avant, 100, 1);
}

TEST_F(Cadence, NothingThatIsShownChangesBetweenTwoFrames) {
  Demarre();
  Temps.Avance(200);
  Arrive();
  Arrive();
  Temps.Avance(40);
  Journal.Ecoute();
  Temps.Avance(900);
  QStringList lignes = Journal.Lignes();
  EXPECT_GT(lignes.removeAll(QStringLiteral("MontreAvis 0")), 0);
  lignes.removeAll(QStringLiteral("AttendImage"));
  EXPECT_EQ(lignes, QStringList());
  EXPECT_EQ(Affichage.Points, 200);
}

TEST_F(Cadence, CountdownGoesOnWithoutAFrame) {
  Demarre();
  Reglages.Retard = 5;
  Engin.ChangeRetard(5);
  Engin.BasculeAlarme();
  Temps.Avance(3000);
  EXPECT_EQ(Affichage.CompteMontre, 2);
  Temps.Avance(2000);
  EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
}

// Three frames a second, each of them another picture, and somebody who looks at the window ten times a second: the
// count between two frames was 0, and the label went back and forth.
TEST_F(Cadence, SlowCameraShowsEachCountUntilTheNextFrame) {
  Demarre();
  const qint64 debut = Horloge.Millisecondes;
  const std::vector<qint64> moments = Regulieres(3.0, 10'000);
  std::size_t suivante = 0;
  int regards = 0;
  int changements = 0;
  std::optional<LibelleAlarme> avant = Affichage.Libelle;
  for (qint64 t = 0; t < 10'000; t += 10) {
    if (suivante < moments.size() && moments[suivante] <= t) {
      Arrive();
      ++suivante;
    }
    Temps.Avance(debut + t - Horloge.Millisecondes);
    if (Affichage.Libelle != avant) ++changements;
    avant = Affichage.Libelle;
    if (t < 400 || t % 100 != 0) continue;
    ++regards;
    ASSERT_EQ(Affichage.Points, 200) << t;
    ASSERT_EQ(Affichage.Libelle, LibelleAlarme::kIntrusion) << t;
  }
  EXPECT_EQ(regards, 96);
  EXPECT_LE(changements, 1);
}

TEST_F(Cadence, LiveImageComesOnlyWithANewFrame) {
  Demarre();
  Reglages.IntervalleFtp = QStringLiteral("5");
  Live.Actif = true;
  Arrive();
  Temps.Avance(40);
  const qint32 avant = Live.Publications;
  Pilote.Perdu = true;
  Temps.Avance(60'000);
  EXPECT_EQ(Live.Publications, avant) << "of a lost signal none";
  Pilote.Perdu = false;
  Arrive();
  EXPECT_EQ(Live.Publications, avant + 1) << "and of the first frame afterwards at once";
  Arrivent(Regulieres(2.0, 20'000), 20'000);
  EXPECT_EQ(Live.Publications, avant + 4);
}

TEST_F(Cadence, FrameThatComesWhileTheWindowIsRedrawnWaitsForTheTick) {
  Demarre();
  Temps.Avance(100);
  ASSERT_TRUE(Pilote.EstAttendue());
  Engin.SuspendTic();
  const qint32 avant = Affichage.NombreCompteurs;
  Arrive();
  EXPECT_EQ(Affichage.NombreCompteurs, avant);
  Engin.ReprendTic();
  Temps.Avance(30);
  EXPECT_EQ(Affichage.NombreCompteurs, avant + 1);
  Temps.Avance(100);
  Arrive();
  EXPECT_EQ(Affichage.NombreCompteurs, avant + 2) << "it is woken again";
}

TEST_F(Cadence, FrameThatComesWhileADialogIsOpenIsLeftAlone) {
  Demarre();
  Temps.Avance(100);
  const qint32 avant = Affichage.NombreCompteurs;
  Pilote.PendantDialogue = [&] {
    Arrive();
    Temps.Avance(500);
    EXPECT_EQ(Affichage.NombreCompteurs, avant);
  };
  Engin.MontreDialogueSource();
  Temps.Avance(30);
  EXPECT_EQ(Affichage.NombreCompteurs, avant + 1);
}

TEST_F(Cadence, FrameThatComesWhileTheCameraIsConnectedIsLeftAlone) {
  Demarre();
  Temps.Avance(100);
  std::function<void()> reveil;
  Engin.BasculeCamera();
  const qint32 avant = Affichage.NombreCompteurs;
  Pilote.PendantConnexion = [&] {
    Arrive();
    Temps.Avance(500);
    EXPECT_EQ(Affichage.NombreCompteurs, avant);
  };
  Engin.BasculeCamera();
  Temps.Avance(30);
  EXPECT_EQ(Affichage.NombreCompteurs, avant + 1);
}

TEST_F(Cadence, NobodyIsWokenOnceTheCameraIsOff) {
  Demarre();
  Temps.Avance(100);
  ASSERT_TRUE(Pilote.EstAttendue());
  Engin.BasculeCamera();
  EXPECT_FALSE(Pilote.EstAttendue());
  const qint32 avant = Affichage.NombreCompteurs;
  Arrive();
  Temps.Avance(100);
  EXPECT_EQ(Affichage.NombreCompteurs, avant);
}

// What a photo lets in must not begin a second frame in the middle of the first.
TEST_F(Cadence, WakeInTheMiddleOfAnAnalysisBeginsNoOther) {
  Reglages.PhotoActif = true;
  Demarre();
  Arme();
  Temps.Avance(100);
  qint32 dedans = -1;
  Actions.PendantPhoto = [&] {
    if (dedans >= 0) return;
    const qint32 saisies = Pilote.Saisies;
    Tic();
    Arrive();
    Tic();
    dedans = Pilote.Saisies - saisies;
  };
  Arrive();
  EXPECT_EQ(dedans, 0);
  const qint32 avant = Affichage.NombreCompteurs;
  Temps.Avance(30);
  EXPECT_EQ(Affichage.NombreCompteurs, avant + 1) << "it waits for the tick";
}

}  // namespace
}  // namespace vaktor
