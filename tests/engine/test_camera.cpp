// SPDX-License-Identifier: GPL-3.0-or-later
// The switch of the camera: start, stop, failure, the monitor that was closed, the dialogs, the end of the program.
#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

using Camera = BancEssai;

TEST_F(Camera, StartsInOrder) {
  Journal.Ecoute();
  Engin.BasculeCamera();
  EXPECT_EQ(Journal.Lignes(),
            (QStringList{QStringLiteral("SurvolSon 17"), QStringLiteral("MontreMoniteur"),
                         QStringLiteral("MontreAvis 2"), QStringLiteral("Connecte"), QStringLiteral("MontreAvis 0"),
                         QStringLiteral("PompeMessages"), QStringLiteral("DessineJaugeHaute 7000000"),
                         QStringLiteral("ActiveBouton 1"), QStringLiteral("ActiveBouton 2")}));
  EXPECT_TRUE(Engin.Camera().CameraActive);
  EXPECT_TRUE(Active("Timer1"));
  EXPECT_TRUE(Active("Timer2"));
  EXPECT_FALSE(Active("TimerSeuil"));
  EXPECT_FALSE(Active("Timer3"));
  EXPECT_EQ(Detection().PasSeuil, 10000);
}

TEST_F(Camera, AutomaticToleranceStartsAtTheTop) {
  Reglages.SeuilDetection = 1234;
  Engin.BasculeCamera();
  EXPECT_EQ(Reglages.SeuilDetection, 7000000);
}

TEST_F(Camera, ManualToleranceIsKeptAndStillDrawn) {
  Reglages.SeuilAuto = false;
  Reglages.SeuilDetection = 1234;
  Reglages.ParametresModifies = false;
  Engin.BasculeCamera();
  EXPECT_EQ(Reglages.SeuilDetection, 1234);
  EXPECT_EQ(Affichage.Jauge, 1234);
  EXPECT_TRUE(Reglages.ParametresModifies);
}

TEST_F(Camera, ManualToleranceOfAFirstRunIsLiftedToOne) {
  Reglages.SeuilAuto = false;
  Engin.BasculeCamera();
  EXPECT_EQ(Reglages.SeuilDetection, 1);
  EXPECT_EQ(Affichage.Jauge, 0);  // drawn as passed
}

TEST_F(Camera, StartSetsTheZoneToTheSizeOfTheSurfaceAsItStands) {
  Image(Unie(0, 640, 480));
  Engin.BasculeCamera();
  AttendZone(Zone(), 1, 1, SurfaceImage::kLargeurInitiale, SurfaceImage::kHauteurInitiale);
}

TEST_F(Camera, FirstFrameOfAnotherSizeMovesAllEdgesButTheTop) {
  Engin.BasculeCamera();
  Trame(Unie(0, 640, 480));
  AttendZone(Zone(), 0, 1, 640, 480);
}

TEST_F(Camera, FailedStartTellsAndChangesNothing) {
  Pilote.Presente = false;
  Engin.SuspendTic();
  Engin.BasculeCamera();
  EXPECT_EQ(Affichage.CamerasIntrouvables, 1);
  EXPECT_EQ(Affichage.Explication, QString());
  EXPECT_FALSE(Engin.Camera().CameraActive);
  EXPECT_FALSE(Active("Timer1"));  // not touched
  EXPECT_FALSE(Active("Timer2"));
  EXPECT_EQ(Pompe.Appels, 0);
  EXPECT_EQ(Affichage.JaugesDessinees, 0);
  AttendZone(Zone(), 0, 0, 0, 0);
  EXPECT_TRUE(Affichage.MoniteurVisible);  // shown before the attempt
  Pilote.Presente = true;
  Engin.BasculeCamera();
  EXPECT_TRUE(Engin.Camera().CameraActive);
}

TEST_F(Camera, FirstClickAfterTheMonitorWasClosedOnlyShowsIt) {
  Engin.CacheMoniteur();
  Journal.Ecoute();
  Engin.BasculeCamera();
  EXPECT_EQ(Journal.Lignes(), (QStringList{QStringLiteral("SurvolSon 17"), QStringLiteral("MontreMoniteur")}));
  EXPECT_FALSE(Engin.Camera().MoniteurCache);
  EXPECT_FALSE(Engin.Camera().CameraActive);
  AttendZone(Zone(), 0, 0, 0, 0);
  Engin.BasculeCamera();
  EXPECT_TRUE(Engin.Camera().CameraActive);
}

TEST_F(Camera, MonitorClosedWhileTheCameraRunsLeavesItRunning) {
  Engin.BasculeCamera();
  Engin.CacheMoniteur();
  Engin.BasculeCamera();
  EXPECT_TRUE(Engin.Camera().CameraActive);
  Engin.BasculeCamera();
  EXPECT_FALSE(Engin.Camera().CameraActive);
}

// The given system began a second start there.
TEST_F(Camera, SecondClickDeliveredInThePumpOfTheStartIsIgnored) {
  Journal.Ecoute();
  bool actifDansLaPompe = true;
  Pompe.EnAttente = [&] {
    actifDansLaPompe = Engin.Camera().CameraActive;
    Engin.BasculeCamera();
    Engin.BasculeAlarme();
  };
  Engin.BasculeCamera();
  EXPECT_FALSE(actifDansLaPompe);
  EXPECT_EQ(Pompe.Appels, 1);
  EXPECT_EQ(Journal.Lignes().count(QStringLiteral("Connecte")), 1);
  EXPECT_TRUE(Engin.Camera().CameraActive);
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
}

TEST_F(Camera, StopsInOrder) {
  DemarreSurNoir();
  Affichage.TexteRetard = QStringLiteral("10");
  Journal.Ecoute();
  Engin.BasculeCamera();
  EXPECT_EQ(Journal.Lignes(),
            (QStringList{QStringLiteral("SurvolSon 17"), QStringLiteral("MontreMoniteur"), QStringLiteral("Deconnecte"),
                         QStringLiteral("MontreAvis 0"), QStringLiteral("MontreLampeSurveillance 0"),
                         QStringLiteral("MontreLampeAlarme 0"), QStringLiteral("OublieLive"),
                         QStringLiteral("MontreSurveillanceInactive"), QStringLiteral("NommeAlarmeInactive"),
                         QStringLiteral("EcritRetard 10")}));
  for (const char* nom : {"Timer1", "Timer2", "Timer3", "TimerSeuil"}) EXPECT_FALSE(Active(nom)) << nom;
}

TEST_F(Camera, StopEmptiesTheSurfaceAndKeepsItsSize) {
  DemarreSurNoir();
  Engin.BasculeCamera();
  EXPECT_TRUE(Engin.Surface().Image().isNull());
  EXPECT_EQ(Engin.Surface().NombreContours(), 0);
  EXPECT_EQ(Engin.Surface().Taille(), QSize(kLargeur, kHauteur));
  AttendZone(Zone(), 1, 1, kLargeur, kHauteur);
}

TEST_F(Camera, StopTakesTheLostSignalAway) {
  DemarreSurNoir();
  Pilote.Perdu = true;
  Tic();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kSignalPerdu);
  Engin.BasculeCamera();
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
}

TEST_F(Camera, StopNamesTheAlarmInactiveInTheColourThatStands) {
  DemarreSurNoir();
  Trame(AvecPoints(100));
  EXPECT_TRUE(Affichage.Rouge);
  Engin.BasculeCamera();
  EXPECT_EQ(Affichage.Libelle, LibelleAlarme::kInactive);
  EXPECT_TRUE(Affichage.Rouge);
}

TEST_F(Camera, StopEndsTheCountdown) {
  DemarreSurNoir();
  Engin.BasculeAlarme();
  Temps.Avance(3000);
  EXPECT_EQ(Engin.Alarme().CompteARebours, 7);
  Engin.BasculeCamera();
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
  EXPECT_EQ(Engin.Alarme().CompteARebours, 10);
  EXPECT_EQ(Affichage.LampeAlarme, Lampe::kRouge);
}

TEST_F(Camera, StopDisarms) {
  ArmeSurNoir();
  Live.Actif = true;
  Engin.BasculeCamera();
  EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
  EXPECT_FALSE(Live.Actif);
  EXPECT_EQ(Affichage.LampeAlarme, Lampe::kRouge);
}

TEST_F(Camera, RestartSetsTheWarmUpBackToTwoSeconds) {
  Engin.BasculeCamera();
  Temps.Avance(2000);
  EXPECT_TRUE(Active("TimerSeuil"));
  EXPECT_EQ(Temps.Trouve(QStringLiteral("Timer2"))->Intervalle(), 15000);
  Engin.BasculeCamera();
  Engin.BasculeCamera();
  EXPECT_EQ(Temps.Trouve(QStringLiteral("Timer2"))->Intervalle(), 2000);
  Temps.Avance(1999);
  EXPECT_FALSE(Active("TimerSeuil"));
  Temps.Avance(1);
  EXPECT_TRUE(Active("TimerSeuil"));
}

TEST_F(Camera, DialogsNeedARunningCamera) {
  Journal.Ecoute();
  Engin.MontreDialogueFormat();
  Engin.MontreDialogueSource();
  EXPECT_EQ(Affichage.CamerasInactives, 2);
  EXPECT_EQ(Journal.Rang(QStringLiteral("DialogueFormat")), -1);
  Engin.BasculeCamera();
  Engin.MontreDialogueFormat();
  Engin.MontreDialogueSource();
  EXPECT_EQ(Affichage.CamerasInactives, 2);
  EXPECT_LT(Journal.Rang(QStringLiteral("DialogueFormat")), Journal.Rang(QStringLiteral("DialogueSource")));
  EXPECT_GE(Journal.Rang(QStringLiteral("DialogueFormat")), 0);
}

TEST_F(Camera, NoTimerTicksWhileADialogOfTheDriverIsOpen) {
  DemarreSurNoir();
  Reglages.SeuilAuto = true;
  Engin.BasculeAlarme();
  Temps.Avance(3000);
  const qint32 seuil = Reglages.SeuilDetection;
  int dialogues = 0;
  Pilote.PendantDialogue = [&] {
    ++dialogues;
    const qint32 saisies = Pilote.Saisies;
    Temps.Avance(60'000);
    EXPECT_EQ(Pilote.Saisies, saisies);
    EXPECT_EQ(Reglages.SeuilDetection, seuil);
    EXPECT_EQ(Engin.Alarme().CompteARebours, 7);
    EXPECT_TRUE(Engin.CompteAReboursEnCours());
  };
  Engin.MontreDialogueFormat();
  Engin.MontreDialogueSource();
  EXPECT_EQ(dialogues, 2);
  const qint32 saisies = Pilote.Saisies;
  Temps.Avance(3000);  // closed: everything goes on from where it stood
  EXPECT_EQ(Pilote.Saisies, saisies + 100);
  EXPECT_EQ(Engin.Alarme().CompteARebours, 4);
}

// Who is away from the machine hears of it by what is told of the health.
TEST_F(Camera, DialogThatIsLeftOpenOnAnArmedSystemIsToldAsADetectionThatStandsStill) {
  DemarreSurNoir();
  bool pendant = true;
  Pilote.PendantDialogue = [&] { pendant = Sante.Dure(Condition::kDetectionArretee); };
  Engin.MontreDialogueSource();
  EXPECT_FALSE(pendant) << "nobody relies on it";
  Engin.BasculeAlarme();
  Engin.MontreDialogueSource();
  EXPECT_TRUE(pendant) << "the countdown stands still behind it";
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  Engin.BasculeAlarme();
  Arme();
  for (void (Surveillance::*dialogue)() : {&Surveillance::MontreDialogueFormat, &Surveillance::MontreDialogueSource}) {
    pendant = false;
    (Engin.*dialogue)();
    EXPECT_TRUE(pendant);
    EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
  }
  Pilote.PendantDialogue = [] { throw Echec(kAppelIncorrect, QStringLiteral("no dialog")); };
  EXPECT_THROW(Engin.MontreDialogueFormat(), Echec);
  EXPECT_FALSE(Sante.Dure(Condition::kDetectionArretee));
}

TEST_F(Camera, ConnectionThatFailsForWantOfMemoryLeavesNoWordOfIt) {
  Pilote.PendantConnexion = [] { throw std::bad_alloc(); };
  EXPECT_THROW(Engin.BasculeCamera(), std::bad_alloc);
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
}

TEST_F(Camera, DialogThatFailsLetsTheTicksGoOn) {
  DemarreSurNoir();
  Pilote.PendantDialogue = [] { throw Echec(kAppelIncorrect, QStringLiteral("no dialog")); };
  EXPECT_THROW(Engin.MontreDialogueFormat(), Echec);
  const qint32 saisies = Pilote.Saisies;
  Temps.Avance(300);
  EXPECT_EQ(Pilote.Saisies, saisies + 10);
}

// The driver lets events run while it waits for a camera that says nothing.
TEST_F(Camera, NoTimerTicksWhileTheDriverIsBeingConnected) {
  Pilote.PendantConnexion = [&] {
    Pilote.PendantConnexion = nullptr;
    EXPECT_TRUE(Engin.Camera().EnPause());
    Temps.Avance(60'000);
    EXPECT_EQ(Pilote.Saisies, 0);
  };
  Engin.BasculeCamera();
  EXPECT_TRUE(Engin.Camera().CameraActive);
  EXPECT_FALSE(Engin.Camera().EnPause());
  Temps.Avance(1000);
  EXPECT_GT(Pilote.Saisies, 0);
}

TEST_F(Camera, SwitchDoesNothingWhileTheDriverIsBeingConnected) {
  Journal.Ecoute();
  bool basculee = false;
  Pilote.PendantConnexion = [&] {
    basculee = true;
    Engin.BasculeCamera();
    Engin.BasculeAlarme();
    Engin.MontreDialogueFormat();
    Engin.MontreDialogueSource();
    EXPECT_FALSE(Engin.AttendCamera());
    EXPECT_FALSE(Engin.Camera().CameraActive);
    EXPECT_FALSE(Engin.CompteAReboursEnCours());
    EXPECT_EQ(Affichage.Avis, AvisMoniteur::kConnexion);
  };
  Engin.BasculeCamera();
  EXPECT_TRUE(basculee);
  EXPECT_EQ(Journal.Lignes().count(QStringLiteral("Connecte")), 1);
  EXPECT_EQ(Journal.Lignes().count(QStringLiteral("Deconnecte")), 0);
  EXPECT_EQ(Journal.Lignes().count(QStringLiteral("ActiveBouton 2")), 1) << "by the start alone";
  EXPECT_EQ(Affichage.CamerasInactives, 0) << "it was clicked on already";
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
  EXPECT_TRUE(Engin.Camera().CameraActive);
}

TEST_F(Camera, AStartThatNobodyWatchesAsksNothingAndGoesOnUntilThereIsAPicture) {
  Pilote.Presente = false;
  Pilote.Refus = QStringLiteral("no such host");
  Journal.Ecoute();
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(Engin.AttendCamera());
  EXPECT_EQ(Journal.Lignes().count(QStringLiteral("ConnecteSansAttendre")), 1) << "the driver goes on by itself";
  EXPECT_EQ(Affichage.CamerasIntrouvables, 0);
  EXPECT_TRUE(Sante.Dure(Condition::kCameraAttendue));
  EXPECT_EQ(Sante.Details.value(Condition::kCameraAttendue), Pilote.Refus);
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kConnexion);
  EXPECT_FALSE(Engin.Camera().EnPause());
  Pilote.Presente = true;
  Pilote.Image = Unie(0);
  EXPECT_TRUE(Engin.AttendCamera());
  EXPECT_TRUE(Engin.Camera().CameraActive);
  EXPECT_FALSE(Sante.Dure(Condition::kCameraAttendue));
  EXPECT_EQ(Affichage.Avis, AvisMoniteur::kAucun);
  EXPECT_TRUE(Active("Timer1"));
  AttendZone(Zone(), 1, 1, SurfaceImage::kLargeurInitiale, SurfaceImage::kHauteurInitiale);
  EXPECT_TRUE(Engin.AttendCamera());
  EXPECT_EQ(Journal.Lignes().count(QStringLiteral("ConnecteSansAttendre")), 1);
}

TEST_F(Camera, AClickOfSomebodyTakesThePlaceOfAStartThatNobodyWatches) {
  Pilote.Presente = false;
  EXPECT_FALSE(Engin.AttendCamera());
  Engin.BasculeCamera();
  EXPECT_EQ(Affichage.CamerasIntrouvables, 1);
  EXPECT_FALSE(Sante.Dure(Condition::kCameraAttendue));
  Pilote.Presente = true;
  Engin.BasculeCamera();
  EXPECT_TRUE(Engin.Camera().CameraActive);
}

TEST_F(Camera, NothingThatIsLetInByAStartThatNobodyWatchesBeginsAnother) {
  Pompe.EnAttente = [&] { EXPECT_FALSE(Engin.AttendCamera()); };
  EXPECT_TRUE(Engin.AttendCamera());
  EXPECT_EQ(Pompe.Appels, 1);
}

TEST_F(Camera, EndOfTheProgramLetsADriverGoThatIsWaitedFor) {
  Pilote.Presente = false;
  EXPECT_FALSE(Engin.AttendCamera());
  EXPECT_TRUE(Pilote.EstConnecte());
  Engin.DeconnectePilote();
  EXPECT_FALSE(Pilote.EstConnecte());
  EXPECT_FALSE(Engin.AttendCamera());
  EXPECT_FALSE(Pilote.EstConnecte());
}

TEST_F(Camera, AnotherCameraThanTheChosenOneIsToldUntilItIsOffOrChosen) {
  Pilote.Autre = QStringLiteral("Camera B");
  Engin.BasculeCamera();
  EXPECT_TRUE(Sante.Dure(Condition::kAutreCamera));
  EXPECT_EQ(Sante.Details.value(Condition::kAutreCamera), Pilote.Autre);
  Pilote.PendantDialogue = [&] { Pilote.Autre.clear(); };
  Engin.MontreDialogueSource();
  EXPECT_FALSE(Sante.Dure(Condition::kAutreCamera));
  Pilote.PendantDialogue = [&] { Pilote.Autre = QStringLiteral("Camera B"); };
  Engin.MontreDialogueSource();
  EXPECT_TRUE(Sante.Dure(Condition::kAutreCamera));
  Engin.BasculeCamera();
  EXPECT_FALSE(Sante.Dure(Condition::kAutreCamera));
}

TEST_F(Camera, WhatTheDriverKnowsOfItsFailureIsTold) {
  Pilote.Presente = false;
  Pilote.Refus = QStringLiteral("nothing decodes it");
  Engin.BasculeCamera();
  EXPECT_EQ(Affichage.CamerasIntrouvables, 1);
  EXPECT_EQ(Affichage.Explication, Pilote.Refus);
}

// Closed in the middle of the wait: nobody is left to be told that no camera was found, and nothing starts.
TEST_F(Camera, EndOfTheProgramWhileTheDriverIsBeingConnectedEndsTheStart) {
  for (const bool presente : {true, false}) {
    Pilote.Presente = presente;
    Pilote.PendantConnexion = [&] {
      Engin.DeconnectePilote();
      Engin.Arrete();
    };
    Engin.BasculeCamera();
    EXPECT_FALSE(Pilote.EstConnecte());
    EXPECT_FALSE(Engin.Camera().CameraActive);
    EXPECT_FALSE(Active("Timer1"));
    EXPECT_FALSE(Active("Timer2"));
    EXPECT_EQ(Affichage.CamerasIntrouvables, 0);
  }
}

TEST_F(Camera, EndOfTheProgramLeavesADriverAloneThatDoesNotRun) {
  Journal.Ecoute();
  Engin.DeconnectePilote();
  EXPECT_TRUE(Journal.Lignes().isEmpty());
}

TEST_F(Camera, EndOfTheProgramLetsTheDriverGoThatRuns) {
  Engin.BasculeCamera();
  Engin.DeconnectePilote();
  EXPECT_FALSE(Pilote.EstConnecte());
  EXPECT_TRUE(Engin.Camera().CameraActive);
}

TEST_F(Camera, EndOfTheProgramLetsNoSwitchConnectTheDriverAgain) {
  Engin.DeconnectePilote();
  Journal.Ecoute();
  Engin.BasculeCamera();
  Engin.BasculeAlarme();
  Temps.Avance(2000);
  EXPECT_TRUE(Journal.Lignes().filter(QStringLiteral("Connecte")).isEmpty());
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
}

// In the pump of the start the driver is connected and CameraActive still false: the end must let it go all the same.
TEST_F(Camera, EndOfTheProgramInThePumpOfTheStartLetsTheDriverGo) {
  Pompe.EnAttente = [&] {
    Engin.DeconnectePilote();
    Engin.Arrete();
  };
  Engin.BasculeAlarme();
  EXPECT_FALSE(Pilote.EstConnecte());
  EXPECT_FALSE(Engin.Camera().CameraActive);
  EXPECT_FALSE(Active("Timer1"));
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
}

TEST_F(Camera, EndOfTheProgramInThePumpAfterTheStartArmsNothing) {
  Pompe.EnAttente = [&] {
    Pompe.EnAttente = [&] {
      ASSERT_TRUE(Engin.Camera().CameraActive);
      Engin.DeconnectePilote();
      Engin.Arrete();
    };
  };
  Engin.BasculeAlarme();
  EXPECT_TRUE(Pompe.EnAttente == nullptr);
  EXPECT_FALSE(Engin.CompteAReboursEnCours());
}

TEST_F(Camera, EndOfTheProgramStopsTheTimersOfTheTick) {
  ArmeSurNoir();
  Engin.Arrete();
  EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
  EXPECT_FALSE(Active("Timer1"));
  EXPECT_FALSE(Active("Timer2"));
  EXPECT_TRUE(Active("TimerSeuil"));  // it dies with its form
}

}  // namespace
}  // namespace vaktor
