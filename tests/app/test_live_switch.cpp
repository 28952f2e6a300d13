// SPDX-License-Identifier: GPL-3.0-or-later
// The live switch over a whole engine and the live page: what one does to the other.
#include <gtest/gtest.h>

#include "app/live_switch.h"
#include "companions/companion_fakes.h"
#include "fakes/fake_alarm_actions.h"
#include "fakes/fake_capture_driver.h"
#include "fakes/fake_health_report.h"
#include "fakes/fake_interface_sounds.h"
#include "fakes/journal.h"
#include "fakes/virtual_clock.h"

namespace vaktor::essai {
namespace {

/// Camera off, parameters of the site complete.
struct BancLive : EcrivainLive, TimbreHeure, SauvegardeParametres, PompeEvenements, Ouvreur {
  void EnregistreJPEG(const QImage&, const QString&, quint8) override { Journal << QStringLiteral("jpeg"); }
  QImage DessineTimbre(const QString&) override { return {}; }
  void SauveParametres() override {
    Journal << QStringLiteral("sauve");
    Reglages.ParametresModifies = false;
  }
  void PompeMessages() override {
    Journal << QStringLiteral("pompe");
    if (PendantPompe) PendantPompe();
  }
  void OuvreAdresse(const QString&) override {}
  void OuvreDossier(const QString&) override {}

  QString Fait(void (InterrupteurLive::*operation)()) {
    Journal.clear();
    (Interrupteur.*operation)();
    return Journal.join(u'|');
  }
  void AllumeTout() {
    Moteur.BasculeCamera();
    Etat.SurveillanceEnCours = Etat.LiveActif = true;
  }

  QStringList Journal;
  std::function<void()> PendantPompe;
  faux::Journal Autre;  // of the engine's own fakes; nobody listens
  Parametres Reglages;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::PiloteFaux Pilote{Autre};
  faux::SonsFaux Sons{Autre};
  faux::ActionsFausses Actions{Autre};
  faux::SanteFausse Sante;
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/data")};
  CommandesFaux Commandes{Journal};
  FenetreFausse Fenetre{Journal};
  EtatLiaison Etat;
  ChampsSite Champs{.TxtPass = "p", .TxtUserName = "u", .TxtHtml = "http://x/", .TxtFtp = "ftp.x"};
  PublicationLive Live{PortsLive{Reglages, Dossiers, *this, *this, Horloge, Commandes, Fenetre, Fenetre, *this, Etat,
                                 [this] { return Champs; }}};
  Surveillance Moteur{PortsSurveillance{Reglages, *this, Pilote, Temps, Horloge, *this, Sons, Actions, Live, Fenetre,
                                        Sante, [this] { Live.OublieLive(); }}};
  InterrupteurLive Interrupteur{PortsInterrupteurLive{Reglages, *this, Moteur, Live, Fenetre, *this}};
};

struct LiveEtCamera : testing::Test, BancLive {};

TEST_F(LiveEtCamera, WithTheCameraRunningItConnects) {
  Moteur.BasculeCamera();
  EXPECT_EQ(Fait(&InterrupteurLive::BasculeLive), "live LEDREDON|statut 69|FTP Conne");
  EXPECT_TRUE(Etat.SurveillanceEnCours);
}

TEST_F(LiveEtCamera, ACameraThatIsOffIsStartedFirst) {
  EXPECT_EQ(Fait(&InterrupteurLive::BasculeLive),
            "Bouton(1) 0|pompe|Bouton(1) 1|Bouton(2) 1|pompe|live LEDREDON|statut 69|FTP Conne");
  EXPECT_TRUE(Moteur.Camera().CameraActive);
}

TEST_F(LiveEtCamera, TurningOffDisarmsTheAlarmTooAndLeavesTheCamera) {
  Moteur.ChangeRetard(1);
  AllumeTout();
  Moteur.BasculeAlarme();
  Temps.Avance(1000);
  ASSERT_TRUE(Moteur.Alarme().AlarmeArmee);
  bool pendant = true;
  PendantPompe = [&] { pendant = Etat.SurveillanceEnCours || Etat.LiveActif || Moteur.Alarme().AlarmeArmee; };
  EXPECT_EQ(Fait(&InterrupteurLive::BasculeLive), "live LEDRED|alarme LEDRED|Text1 1|pompe|statut 34|FTP Decon");
  EXPECT_FALSE(pendant) << "handlers that run in the pump find both off already";
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
  EXPECT_TRUE(Moteur.Camera().CameraActive);
}

TEST_F(LiveEtCamera, TurningOffLeavesACountdownRunning) {
  AllumeTout();
  Moteur.BasculeAlarme();
  Interrupteur.BasculeLive();
  EXPECT_TRUE(Moteur.CompteAReboursEnCours());
}

TEST_F(LiveEtCamera, WithoutCameraItStaysOffAndALinkThatWasOnIsForgotten) {
  Pilote.Presente = false;
  Etat.SurveillanceEnCours = Etat.LiveActif = true;
  EXPECT_EQ(Fait(&InterrupteurLive::BasculeLive), "Bouton(1) 0|pompe|boite 8");
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
}

TEST_F(LiveEtCamera, AClickWhileTheCameraIsBeingConnectedIsIgnored) {
  bool pendant = false;
  Pilote.PendantConnexion = [&] {
    pendant = true;
    EXPECT_EQ(Fait(&InterrupteurLive::BasculeLive), "");
  };
  Moteur.BasculeCamera();
  EXPECT_TRUE(pendant);
  EXPECT_FALSE(Etat.SurveillanceEnCours);
}

TEST_F(LiveEtCamera, ACameraThatIsSwitchedOffTakesThePageWithItAndTellsNobody) {
  AllumeTout();
  Journal.clear();
  Moteur.BasculeCamera();
  EXPECT_FALSE(Etat.SurveillanceEnCours);
  EXPECT_FALSE(Etat.LiveActif);
  EXPECT_TRUE(Journal.filter(QStringLiteral("FTP")).isEmpty());
}

// The window was closed while the camera was being connected: nobody is left to read a message.
TEST(LiveEtCameraALaFin, SaysAndSendsNothingWhenTheProgramEndsDuringTheStartOfTheCamera) {
  for (const bool presente : {false, true}) {
    BancLive banc;
    banc.Pilote.Presente = presente;
    banc.Etat.SurveillanceEnCours = true;
    banc.PendantPompe = [&banc] { banc.Moteur.DeconnectePilote(); };
    EXPECT_EQ(banc.Fait(&InterrupteurLive::BasculeLive), presente ? "Bouton(1) 0|pompe|pompe" : "Bouton(1) 0|pompe");
    EXPECT_FALSE(banc.Etat.SurveillanceEnCours);
  }
}

TEST_F(LiveEtCamera, ThePageIsAskedForWithSettingsThatAreSaved) {
  AllumeTout();
  Reglages.ParametresModifies = true;
  EXPECT_EQ(Fait(&InterrupteurLive::CreationPageLive), "sauve|pompe|statut 42|FTP UploM");
  EXPECT_EQ(Fait(&InterrupteurLive::CreationPageLive), "pompe|statut 67") << "nothing to save, and no frames flow";
}

TEST_F(LiveEtCamera, ThePageNeedsTheCamera) {
  Etat.LiveActif = true;
  EXPECT_EQ(Fait(&InterrupteurLive::CreationPageLive), "pompe|boite 8");
  EXPECT_TRUE(Etat.LiveActif);
}

}  // namespace
}  // namespace vaktor::essai
