// SPDX-License-Identifier: GPL-3.0-or-later
// The assembled program and the machine's sleep, on fakes.
#include <gtest/gtest.h>

#include "app/program_fixture.h"

namespace vaktor::essai {
namespace {

class EveilDuProgramme : public ProgrammeSurFaux {
 protected:
  /// With its companions, which would else be what is worst.
  void DemarreEntier() {
    DemarreJusquALaFenetre();
    for (const qint32 casier : {1001, 1002, 1003}) Systeme.Recoit(casier, QStringLiteral("HWND:%1").arg(casier - 930));
  }
};

TEST_F(EveilDuProgramme, IsAskedForWithTheCameraAndGivenBackWithIt) {
  DemarreJusquALaFenetre();
  Systeme.Temps.Avance(5000);
  EXPECT_EQ(Systeme.Machine.Demandes, 0);
  Clique("Bouton(0)");
  Systeme.Temps.Avance(1000);
  EXPECT_TRUE(Systeme.Machine.Tenue);
  Clique("Bouton(0)");
  Systeme.Temps.Avance(1000);
  EXPECT_FALSE(Systeme.Machine.Tenue);
}

TEST_F(EveilDuProgramme, IsGivenBackWhenTheProgramIsClosed) {
  DemarreJusquALaFenetre();
  Clique("Bouton(0)");
  Systeme.Temps.Avance(1000);
  ASSERT_TRUE(Systeme.Machine.Tenue);
  Systeme.Notes.Vide();
  Fenetre("Form1")->close();
  EXPECT_FALSE(Systeme.Machine.Tenue);
  EXPECT_LT(Systeme.Notes.Rang(QStringLiteral("Deconnecte")), Systeme.Notes.Rang(QStringLiteral("awake: give back")));
}

TEST_F(EveilDuProgramme, ARefusalAndASleepStandInTheSign) {
  Systeme.Machine.Repond = ReponseEveil::kRefusee;
  Systeme.Machine.Mots = QStringLiteral("Permission denied");
  DemarreEntier();
  const auto* signe = Trouve("SigneSante");
  Clique("Bouton(0)");
  Systeme.Temps.Avance(3000);
  EXPECT_TRUE(signe->isVisible());
  EXPECT_TRUE(signe->toolTip().contains(QStringLiteral("Permission denied"))) << signe->toolTip().toStdString();
  Systeme.Machine.Repond = ReponseEveil::kAccordee;
  Systeme.Temps.Avance(62'000);
  EXPECT_FALSE(signe->isVisible()) << signe->toolTip().toStdString();
  Systeme.Machine.DormiMs += qint64{8} * 3'600'000;
  Systeme.Temps.Avance(3000);
  EXPECT_TRUE(signe->isVisible());
  EXPECT_TRUE(signe->toolTip().contains(QStringLiteral(" - "))) << signe->toolTip().toStdString();
}

TEST_F(EveilDuProgramme, WithNobodyToAskIsToldOnlyWhileArmed) {
  Systeme.Machine.Repond = ReponseEveil::kPersonne;
  Systeme.Machine.Mots = QStringLiteral("no bus");
  DemarreEntier();
  const auto* signe = Trouve("SigneSante");
  Clique("Bouton(0)");
  Systeme.Temps.Avance(3000);
  EXPECT_FALSE(signe->isVisible()) << signe->toolTip().toStdString();
  Clique("Bouton(1)");
  Systeme.Temps.Avance(15'000);
  EXPECT_TRUE(signe->isVisible());
  EXPECT_TRUE(signe->toolTip().contains(QStringLiteral("no bus"))) << signe->toolTip().toStdString();
}

// A night of sleep, a clock set back by a year: the tick, the countdown and the timers go on.
TEST_F(EveilDuProgramme, NeitherASleepNorAClockThatIsSetStopsTheDetectionOrTheCountdown) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  DemarreJusquALaFenetre();
  Clique("Bouton(1)");
  Systeme.Temps.Avance(5000);
  Systeme.Machine.DormiMs += qint64{8} * 3'600'000;
  Systeme.Machine.MuralMs -= 366 * 86'400'000LL;
  Systeme.Horloge.Date = Systeme.Horloge.Date.addYears(-1);
  Systeme.Horloge.Debut = QTime(23, 59, 50);
  const qint32 saisies = pilote.Saisies;
  Systeme.Temps.Avance(5000);
  EXPECT_GT(pilote.Saisies, saisies + 100);
  EXPECT_EQ(Systeme.Notes.Lignes().count(QStringLiteral("timer Timer3: off")), 1) << "armed after ten seconds";
}

}  // namespace
}  // namespace vaktor::essai
