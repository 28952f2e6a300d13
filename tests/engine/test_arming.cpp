// SPDX-License-Identifier: GPL-3.0-or-later
// The alarm: off, counting down, armed; the delay field.
#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

using Alarme = BancEssai;

TEST_F(Alarme, CountsFromNineToOneAndArmsOnTheTenthSecond) {
  DemarreSurNoir();
  Engin.BasculeAlarme();
  EXPECT_EQ(Affichage.LampeAlarme, Lampe::kRougeAllumee);
  EXPECT_TRUE(Engin.CompteAReboursEnCours());
  Temps.Avance(999);
  EXPECT_FALSE(Affichage.CompteMontre.has_value());  // nothing during the first second
  Temps.Avance(1);
  for (int reste = 9; reste >= 1; --reste) {
    EXPECT_EQ(Affichage.CompteMontre, reste);
    EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
    Temps.Avance(1000);
  }
  EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
  EXPECT_EQ(Engin.Alarme().CompteARebours, 10);
  EXPECT_EQ(Affichage.LampeAlarme, Lampe::kVerte);
}

TEST_F(Alarme, DelayOfZeroOrOneArmsOnTheFirstSecond) {
  for (const int retard : {0, 1}) {
    DemarreSurNoir();
    Engin.ChangeRetard(retard);
    Engin.BasculeAlarme();
    Temps.Avance(999);
    EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
    Temps.Avance(1);
    EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
    Engin.BasculeCamera();
  }
}

TEST_F(Alarme, ClickDuringTheCountdownGoesBackToWatching) {
  DemarreSurNoir();
  Engin.BasculeAlarme();
  Temps.Avance(4000);
  Journal.Ecoute();
  Engin.BasculeAlarme();
  EXPECT_EQ(Journal.Lignes(), (QStringList{QStringLiteral("SurvolSon 18"), QStringLiteral("EcritRetard 10"),
                                           QStringLiteral("MontreLampeAlarme 0")}));
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
  EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
  EXPECT_EQ(Engin.Alarme().CompteARebours, 10);
  Engin.BasculeAlarme();  // and the next one starts from the full delay
  Temps.Avance(1000);
  EXPECT_EQ(Affichage.CompteMontre, 9);
}

TEST_F(Alarme, ClickWhileArmedDisarmsAndTheLabelFollowsWithTheNextFrame) {
  ArmeSurNoir();
  Journal.Ecoute();
  Engin.BasculeAlarme();
  EXPECT_EQ(Journal.Lignes(), (QStringList{QStringLiteral("SurvolSon 18"), QStringLiteral("MontreLampeAlarme 0"),
                                           QStringLiteral("EcritRetard 10")}));
  EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kActive);
  Tic();
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kInactive);
}

TEST_F(Alarme, ClickWithTheCameraOffStartsItAndCounts) {
  Journal.Ecoute();
  Engin.BasculeAlarme();
  const QStringList& lignes = Journal.Lignes();
  EXPECT_EQ(lignes.mid(0, 3), (QStringList{QStringLiteral("SurvolSon 18"), QStringLiteral("DesactiveBouton 2"),
                                           QStringLiteral("SurvolSon 17")}));
  EXPECT_EQ(lignes.mid(lignes.size() - 2),
            (QStringList{QStringLiteral("PompeMessages"), QStringLiteral("MontreLampeAlarme 1")}));
  EXPECT_EQ(Pompe.Appels, 2);
  EXPECT_TRUE(Engin.Camera().CameraActive);
  EXPECT_TRUE(Engin.CompteAReboursEnCours());
  EXPECT_TRUE(Affichage.Boutons[2]);
}

TEST_F(Alarme, FailedCameraStaysOffWithTheLiveButtonDisabled) {
  Affichage.Boutons[2] = true;
  Pilote.Presente = false;
  Engin.BasculeAlarme();
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
  EXPECT_FALSE(Engin.Camera().CameraActive);
  EXPECT_FALSE(Affichage.Boutons[2]);
  EXPECT_EQ(Affichage.CamerasIntrouvables, 1);
  Pilote.Presente = true;
  Engin.BasculeCamera();
  EXPECT_TRUE(Affichage.Boutons[2]);
}

TEST_F(Alarme, ClickThatOnlyBroughtTheMonitorBackDoesNotCount) {
  Engin.CacheMoniteur();
  Engin.BasculeAlarme();
  EXPECT_FALSE(Engin.Camera().CameraActive);
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
  EXPECT_TRUE(Affichage.MoniteurVisible);
}

TEST_F(Alarme, FirstFramesPassUnarmed) {
  Reglages.SonActif = true;
  Image(Unie(qRgb(0, 0, 255)));
  Engin.BasculeAlarme();
  Temps.Avance(30);
  EXPECT_GT(Detection().NbrPoints, kSeuilAlarme);
  Temps.Avance(11000);
  EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
  EXPECT_EQ(Actions.Sons, 0);
}

TEST_F(Alarme, StaysArmedAndActsOnEachFrame) {
  Reglages.SonActif = true;
  ArmeSurNoir();
  bool pair = false;
  Pilote.Suivante = [&] {
    pair = !pair;
    return AvecPoints(pair ? 31 : 0);
  };
  Temps.Avance(3000);
  EXPECT_EQ(Actions.Sons, 100);
  EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
}

TEST_F(Alarme, EachChangeOfTheFieldSaves) {
  Engin.ChangeRetard(5);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
  EXPECT_TRUE(Sauvegarde.ModifiesALaSauvegarde);
  Engin.ChangeRetard(5);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 2);
}

TEST_F(Alarme, ChangedFieldSetsARunningCountdownBack) {
  DemarreSurNoir();
  Engin.BasculeAlarme();
  Temps.Avance(8000);
  EXPECT_EQ(Engin.Alarme().CompteARebours, 2);
  Engin.ChangeRetard(30);
  EXPECT_EQ(Engin.Alarme().CompteARebours, 30);
  Temps.Avance(1000);
  EXPECT_EQ(Affichage.CompteMontre, 29);
}

TEST_F(Alarme, WritingTheFieldSavesOnlyWhenItsTextChanges) {
  DemarreSurNoir();
  Engin.BasculeAlarme();
  Engin.BasculeAlarme();
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
  Affichage.TexteRetard = QStringLiteral("007");
  Engin.ChangeRetard(7);
  Engin.BasculeAlarme();
  Engin.BasculeAlarme();  // writes "7"
  EXPECT_EQ(Sauvegarde.Sauvegardes, 2);
  EXPECT_EQ(Affichage.TexteRetard, QStringLiteral("7"));
}

TEST_F(Alarme, LivePageSwitchedOffDisarmsAndLeavesACountdownRunning) {
  ArmeSurNoir();
  Journal.Ecoute();
  Engin.DesarmeAlarme();
  EXPECT_EQ(Journal.Lignes(), (QStringList{QStringLiteral("MontreLampeAlarme 0"), QStringLiteral("EcritRetard 10")}));
  EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
  Engin.BasculeAlarme();
  Engin.DesarmeAlarme();
  EXPECT_TRUE(Engin.CompteAReboursEnCours());
  Temps.Avance(10000);
  EXPECT_TRUE(Engin.Alarme().AlarmeArmee);
}

}  // namespace
}  // namespace vaktor
