// SPDX-License-Identifier: GPL-3.0-or-later
// The load step of the splash, in virtual time.
#include <gtest/gtest.h>

#include "app/start_sequence.h"
#include "base/failure.h"
#include "fakes/fake_event_pump.h"
#include "fakes/virtual_timers.h"

namespace vaktor {
namespace {

using faux::Journal;

class SplashFaux : public EcranDepart {
 public:
  explicit SplashFaux(Journal& journal) : J_(journal) {}
  void MontreVersion(const QString& texte) override { Dit(QStringLiteral("version ") + texte); }
  void MontreTitre(const QString& texte) override { Dit(QStringLiteral("title ") + texte); }
  void MontreProgres(const QString& mot) override { Dit(mot); }
  void Montre() override { Dit(QStringLiteral("splash shown")); }
  void Cache() override { Dit(QStringLiteral("splash hidden")); }
  void Decharge() override { Dit(QStringLiteral("splash unloaded")); }
  void SurClic(std::function<void()> fonction) override { Clic = std::move(fonction); }
  std::function<void()> Clic;

 private:
  void Dit(const QString& quoi) {
    J_.Note([&] { return quoi; });
  }
  Journal& J_;
};

class EtapesFausses : public EtapesDepart {
 public:
  explicit EtapesFausses(Journal& journal) : J_(journal) {}
  void ChargeParametres() override {
    Dit("parameters");
    if (PendantChargement) PendantChargement();
  }
  void ChargeTextes() override { Dit("texts"); }
  void LanceModules() override {
    Dit("modules");
    if (PendantLancement) PendantLancement();
  }
  void ChargeFormMonitor() override { Dit("FormMonitor"); }
  void MontreForm1() override { Dit("Form1 shown"); }
  std::function<void()> PendantChargement;
  std::function<void()> PendantLancement;

 private:
  void Dit(const char* quoi) {
    J_.Note([quoi] { return QString::fromLatin1(quoi); });
  }
  Journal& J_;
};

class MagasinUneValeur : public MagasinReglages {
 public:
  QString LitReglage(const QString& section, const QString& cle, const QString& defaut) const override {
    const bool langue = section == QLatin1String("general") && cle == QLatin1String("langue");
    return langue && !Langue.isNull() ? Langue : defaut;
  }
  void EcritReglage(const QString&, const QString&, const QString&) override { ++Ecritures; }
  void Reprend(const QString&, const QString&) override {}
  void Vide() override { ++Ecritures; }
  QString Langue;
  int Ecritures = 0;
};

class Depart : public testing::Test {
 protected:
  Depart() { Notes.Ecoute(); }
  void Charge() {
    Sequence = std::make_unique<SequenceDepart>(PortsDepart{Splash, Magasin, Reglages, Pompe, Temps, Etapes, Etat});
    Sequence->Charge(QStringLiteral("1.4.9"));
  }
  qsizetype Compte(const char* ligne) const { return Notes.Lignes().count(QLatin1String(ligne)); }

  Journal Notes;
  SplashFaux Splash{Notes};
  EtapesFausses Etapes{Notes};
  MagasinUneValeur Magasin;
  Parametres Reglages;
  faux::PompeFausse Pompe{Notes};
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  EtatApplication Etat;
  std::unique_ptr<SequenceDepart> Sequence;
};

TEST_F(Depart, RunsItsStepsInOrderWithAPumpBetweenThem) {
  Charge();
  EXPECT_EQ(Notes.Lignes(), (QStringList{"version Version 1.4.9", "title Vaktor", "PompeMessages", "Initializing...",
                                         "PompeMessages", "parameters", "PompeMessages", "texts", "PompeMessages",
                                         "modules", "PompeMessages", "Loading...", "PompeMessages", "FormMonitor",
                                         "PompeMessages", "Ready...", "PompeMessages", "splash shown"}));
}

TEST_F(Depart, TheSplashGivesWayAfterTwoSeconds) {
  Charge();
  Notes.Vide();
  Temps.Avance(1999);
  EXPECT_TRUE(Notes.Lignes().isEmpty());
  Temps.Avance(1);
  EXPECT_EQ(Notes.Lignes(), (QStringList{"Form1 shown", "PompeMessages", "splash hidden"}));
  EXPECT_FALSE(Temps.Trouve(QStringLiteral("frmSplash.Timer1"))->EstActive());
}

TEST_F(Depart, AClickDoesItAtOnceAndTheTimerDoesNotFireLater) {
  Charge();
  Temps.Avance(500);
  Notes.Vide();
  Splash.Clic();
  EXPECT_EQ(Notes.Lignes(), (QStringList{"Form1 shown", "PompeMessages", "splash hidden"}));
  Temps.Avance(10000);
  EXPECT_EQ(Compte("Form1 shown"), 1);
  EXPECT_EQ(Temps.Trouve(QStringLiteral("frmSplash.Timer1"))->NombreTics(), 0);
}

TEST_F(Depart, AClickInsideThePumpOfTheTimerChangesNothing) {
  Charge();
  Pompe.EnAttente = [this] { Splash.Clic(); };
  Temps.Avance(2000);
  EXPECT_EQ(Compte("Form1 shown"), 1);
  EXPECT_EQ(Compte("splash hidden"), 1);
}

TEST_F(Depart, ATimerThatFiresInAPumpOfASlowLaunchShowsTheWindowEarlyAndFiresOnceMoreToNoEffect) {
  Etapes.PendantLancement = [this] { Pompe.EnAttente = [this] { Temps.Avance(2500); }; };
  Charge();
  EXPECT_EQ(Compte("Form1 shown"), 1);
  EXPECT_LT(Notes.Rang(QStringLiteral("Form1 shown")), Notes.Rang(QStringLiteral("Loading...")));
  EXPECT_EQ(Compte("splash shown"), 0) << "there is no road back from hidden to shown";
  auto* timer = Temps.Trouve(QStringLiteral("frmSplash.Timer1"));
  EXPECT_TRUE(timer->EstActive());
  Temps.Avance(2000);
  EXPECT_EQ(timer->NombreTics(), 2);
  EXPECT_FALSE(timer->EstActive());
  EXPECT_EQ(Compte("Form1 shown"), 1);
}

TEST_F(Depart, TheLanguageOfAFailureIsKnownBeforeTheFirstStepThatCanFail) {
  Magasin.Langue = QStringLiteral("1");
  Etapes.PendantChargement = [this] { EXPECT_EQ(Reglages.LangueCourante, 1); };
  Charge();
  EXPECT_EQ(Compte("parameters"), 1);
  for (const char* sans : {"", "english", "99999999999"}) {
    Magasin.Langue = QLatin1String(sans);
    Etapes.PendantChargement = [this, sans] { EXPECT_EQ(Reglages.LangueCourante, 0) << sans; };
    Charge();
  }
  EXPECT_EQ(Compte("parameters"), 4);
}

}  // namespace
}  // namespace vaktor
