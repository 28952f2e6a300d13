// The load step of the splash and the restart with raised rights, in virtual time.
#include <gtest/gtest.h>

#include "app/registry_texts.h"
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
  void ChargeParametres() override { Dit("parameters"); }
  void ChargeTextes() override { Dit("texts"); }
  void LanceModules() override {
    Dit("modules");
    if (PendantLancement) PendantLancement();
  }
  void ChargeFormMonitor() override { Dit("FormMonitor"); }
  void MontreForm1() override { Dit("Form1 shown"); }
  std::function<void()> PendantLancement;

 private:
  void Dit(const char* quoi) {
    J_.Note([quoi] { return QString::fromLatin1(quoi); });
  }
  Journal& J_;
};

class RegistreFaux : public RegistreSysteme {
 public:
  std::optional<ValeurRegistre> LitValeur(RacineRegistre racine, const QString& cle,
                                          const QString& nom) const override {
    const QString chemin =
        (racine == RacineRegistre::kMachine ? QStringLiteral("M|") : QStringLiteral("U|")) + cle + u'|' + nom;
    Lus.append(chemin);
    return Valeurs.contains(chemin) ? std::optional(Valeurs.value(chemin)) : std::nullopt;
  }
  void EcritValeur(const QString& cle, const QString& nom, const ValeurRegistre& valeur) override {
    Ecrits.append(cle + u'|' + nom + u'=' + QString::fromLatin1(valeur.Octets) + u':' + QString::number(valeur.Type));
  }
  mutable QStringList Lus;
  QStringList Ecrits;
  QMap<QString, ValeurRegistre> Valeurs;
};

class BoitesSimples : public BoitesMessage {
 public:
  ReponseBoite MontreMessage(const QString& texte, const QString& titre, BoutonsBoite boutons) override {
    Textes.append(texte);
    Titres.append(titre);
    Ok = Ok && boutons == BoutonsBoite::kOk;
    return ReponseBoite::kOk;
  }
  QStringList Textes, Titres;
  bool Ok = true;
};

class ProgrammesFaux : public Processus {
 public:
  QList<ProcessusVu> PrendInstantane() const override { return {}; }
  bool TermineProcessus(const ProcessusVu&) override { return false; }
  std::unique_ptr<ProgrammeSuivi> LanceSuivi(const Lancement&, std::function<void()>) override { return nullptr; }
  bool LanceProgramme(const QString& chemin) override {
    Lances.append(chemin);
    return Present;
  }
  QStringList Lances;
  bool Present = true;
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

const QString kDrapeaux = QStringLiteral("Software\\Microsoft\\Windows NT\\CurrentVersion\\AppCompatFlags\\Layers");
const QString kProduit = QStringLiteral("M|SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion|productname");

class Depart : public testing::Test {
 protected:
  Depart() { Notes.Ecoute(); }
  void Charge(bool avecRegistre = false) {
    Sequence = std::make_unique<SequenceDepart>(
        PortsDepart{Splash, Magasin, Reglages, avecRegistre ? &Droits : nullptr, Pompe, Temps, Etapes, Etat});
    Sequence->Charge(QStringLiteral("1.4.9"));
  }
  void NommeProduit(const char* nom) { Registre.Valeurs[kProduit] = {1, QByteArray(nom)}; }
  void PoseDrapeau(const char* drapeau) {
    Registre.Valeurs[QStringLiteral("U|") + kDrapeaux + QStringLiteral("|C:\\v\\Vaktor.exe")] = {1, drapeau};
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
  RegistreFaux Registre;
  BoitesSimples Boites;
  ProgrammesFaux Programmes;
  RelanceDroits Droits{PortsRelance{Registre, Boites, Programmes, QStringLiteral("C:\\v")}};
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

TEST_F(Depart, WithoutARegistryTheSequenceGoesStraightOn) {
  Charge();
  EXPECT_FALSE(Sequence->Relancee());
  EXPECT_TRUE(Registre.Lus.isEmpty());
}

TEST_F(Depart, AnotherSystemNeitherReadsNorWritesTheFlags) {
  NommeProduit("Windows XP");
  Charge(true);
  EXPECT_EQ(Registre.Lus, QStringList{kProduit});
  EXPECT_TRUE(Registre.Ecrits.isEmpty());
  EXPECT_EQ(Compte("modules"), 1);
}

TEST_F(Depart, ASystemThatAsksForRaisedRightsIsPreparedAndNothingElseIsLoaded) {
  NommeProduit("WINDOWS VISTA (TM)");
  Magasin.Langue = QStringLiteral("1");
  Charge(true);
  EXPECT_TRUE(Sequence->Relancee());
  EXPECT_EQ(Registre.Ecrits, (QStringList{kDrapeaux + "|C:\\v\\Vaktor.exe=RUNASADMIN:1",
                                          kDrapeaux + "|C:\\v\\PlanificateurVAKTOR.exe=RUNASADMIN:1",
                                          kDrapeaux + "|C:\\v\\restart.exe=ELEVATECREATEPROCESS:1"}));
  EXPECT_EQ(Boites.Titres, QStringList{QStringLiteral("Attention")});
  EXPECT_EQ(Boites.Textes.first(), QStringLiteral("Vaktor must be executed as an administrator\r\nTo change to the "
                                                  "Administrator, click OK, then authorize on the window below."));
  EXPECT_TRUE(Boites.Ok);
  EXPECT_EQ(Programmes.Lances, QStringList{QStringLiteral("C:\\v\\restart.exe")});
  EXPECT_EQ(Notes.Lignes(), (QStringList{"version Version 1.4.9", "title Vaktor", "splash unloaded"}));
  EXPECT_EQ(Magasin.Ecritures, 0);
}

TEST_F(Depart, TheMessageIsFrenchForAFirstStart) {
  NommeProduit("Windows 7");
  Charge(true);
  EXPECT_EQ(Boites.Textes.first(),
            QString::fromUtf8("Vaktor doit être executé en tant qu'administrateur.\r\nPour passer en mode "
                              "administrateur, cliquez sur OK, puis autorisez le sur la fenêtre qui suit"));
}

TEST_F(Depart, AThirdLanguageGetsAnEmptyMessageAndTheRestartGoesOn) {
  NommeProduit("Windows 7");
  Magasin.Langue = QStringLiteral("2");
  Charge(true);
  EXPECT_EQ(Boites.Textes, QStringList{QString()});
  EXPECT_EQ(Boites.Titres, QStringList{QString()});
  EXPECT_EQ(Programmes.Lances.size(), 1);
}

TEST_F(Depart, AnyProductNameWithASevenCountsAndNoOtherSystem) {
  for (const auto& [nom, oui] : std::initializer_list<std::pair<const char*, bool>>{
           {"Server 2017", true}, {"ViStA", true}, {"Windows 10", false}, {"Windows 8.1", false}, {"", false}}) {
    NommeProduit(nom);
    EXPECT_EQ(Droits.EstVistaOuSeven(), oui) << nom;
  }
}

TEST_F(Depart, AFlagThatStandsAlreadyLetsTheSequenceGoOnWithoutAWord) {
  NommeProduit("Windows 7");
  PoseDrapeau("RUNASADMIN");
  Charge(true);
  EXPECT_TRUE(Registre.Ecrits.isEmpty());
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Compte("modules"), 1);
}

TEST_F(Depart, AFlagThatOnlyBeginsThatWayOrDiffersInCaseIsOverwritten) {
  for (const char* drapeau : {"RUNASADMIN ", "RUNASADMINX", "runasadmin"}) {
    NommeProduit("Windows 7");
    PoseDrapeau(drapeau);
    Registre.Ecrits.clear();
    Charge(true);
    EXPECT_EQ(Registre.Ecrits.size(), 3) << drapeau;
  }
}

TEST_F(Depart, AMissingRestartProgramEndsTheStart) {
  NommeProduit("Windows 7");
  Programmes.Present = false;
  EXPECT_THROW(Charge(true), Echec);
  EXPECT_EQ(Boites.Textes.size(), 1) << "the message comes first";
}

TEST(RegistryTexts, StringsEndAtTheFirstNulAndBytesAreASignedNumber) {
  EXPECT_EQ(TexteValeur(ValeurRegistre{1, QByteArray("ab\0cd", 5)}), QStringLiteral("ab"));
  EXPECT_EQ(TexteValeur(ValeurRegistre{3, QByteArray("\xFE\xFF\x01", 3)}), QStringLiteral("-2"));
  EXPECT_EQ(TexteValeur(ValeurRegistre{3, QByteArray("\x02\x01", 2)}), QStringLiteral("258"));
  EXPECT_EQ(TexteValeur(ValeurRegistre{4, QByteArray("1234")}), QString());
  EXPECT_EQ(TexteValeur(std::nullopt), QString());
}

TEST(RegistryTexts, AnEmptyValueGivesTheDefault) {
  RegistreFaux registre;
  EXPECT_EQ(LitRegistreUtilisateur(registre, "a", "b", "c", "def"), QStringLiteral("def"));
  registre.Valeurs[QStringLiteral("U|a\\b|c")] = {1, QByteArray()};
  EXPECT_EQ(LitRegistreUtilisateur(registre, "a", "b", "c", "def"), QStringLiteral("def"));
}

}  // namespace
}  // namespace vaktor
