// SPDX-License-Identifier: GPL-3.0-or-later
// The order of the start and of the stop: every call of every port, held against a list, line by line. A call that is
// missing, extra or elsewhere turns a test red. The lists stand beside this file.
#include <gtest/gtest.h>

#include <QFile>
#include <QTest>
#include <QTreeWidget>

#include "app/program_fixture.h"

namespace vaktor::essai {
namespace {

QStringList LitListe(const char* nom) {
  QFile fichier(QStringLiteral(VAKTOR_TEST_FOLDER "/") + QLatin1String(nom));
  EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << nom;
  QStringList lignes;
  for (const QByteArray& ligne : fichier.readAll().split('\n')) {
    if (!ligne.isEmpty() && !ligne.startsWith('#')) lignes.append(QString::fromUtf8(ligne));
  }
  return lignes;
}

class Ordre : public ProgrammeSurFaux {
 protected:
  void DemarreAvecDesParametresQuiNIrontNullePart() {
    Demarre();
    Systeme.Temps.Avance(2000);
    QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("Bouton(0)")), Qt::LeftButton);
    Systeme.Temps.Avance(30);  // the start of the camera has moved the gauge
    Systeme.MagasinPlein = true;
    Systeme.Notes.Vide();
  }
  void DemarreLeLive() {
    for (const char* cle : {"ftp", "user", "pass", "html"})
      Systeme.Valeurs.insert(QStringLiteral("FTP/") + QLatin1String(cle), QStringLiteral("098100102"));
    Demarre(QStringLiteral("/surve"));
    Systeme.Recoit(1001, QStringLiteral("HWND:71"));
    Systeme.Temps.Avance(1000);
    ASSERT_TRUE(Systeme.Notes.Lignes().contains(QStringLiteral("channel: post 65 to 71")));
    Systeme.Recoit(1001, QStringLiteral("ConOK"));
  }
  void DemarreLeLiveEtTueLeCompagnon() {
    DemarreLeLive();
    Systeme.Programmes.Finit(QStringLiteral("/opt/v/VAKTORftp"));
  }
  void CompareListe(const char* nom) {
    const QStringList vus = Systeme.DepuisVide();
    const QStringList voulus = LitListe(nom);
    for (qsizetype i = 0; i < qMax(vus.size(), voulus.size()); ++i) {
      ASSERT_EQ(vus.value(i).toStdString(), voulus.value(i).toStdString())
          << nom << ", call " << i + 1 << "; all of them:\n"
          << vus.join(u'\n').toStdString();
    }
  }
};

TEST_F(Ordre, OfAFirstStartIsTheList) {
  Demarre(QStringLiteral("/ALARM"));
  CompareListe("start_order.txt");
  EXPECT_TRUE(Visible("frmSplash"));
  EXPECT_FALSE(Visible("Form1"));
  EXPECT_FALSE(Visible("FormMonitor"));
  EXPECT_NE(Fenetre("FormMonitor"), nullptr);
}

TEST_F(Ordre, OfTheStopWithTheCameraOffAndNothingToSaveTouchesNeitherCameraNorStore) {
  Demarre();
  Systeme.Temps.Avance(2000);
  Systeme.Notes.Vide();
  Programme->Ferme();
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_FALSE(vus.contains(QStringLiteral("Deconnecte")));
  EXPECT_TRUE(vus.filter(QStringLiteral("store:")).isEmpty()) << vus.join(u'\n').toStdString();
  EXPECT_EQ(vus.filter(QStringLiteral("channel: post")).size(), 3);  // handle 0: they go nowhere, and are sent
}

TEST_F(Ordre, TheGalleryIsMadeWithTheTextsAndOpensByItsButton) {
  Demarre();
  Systeme.Temps.Avance(2000);
  ASSERT_NE(Fenetre("FormVisuPhoto"), nullptr);
  EXPECT_FALSE(Visible("FormVisuPhoto"));
  EXPECT_EQ(Fenetre("FormVisuPhoto")->windowTitle(), QStringLiteral("Intrusions : 0 Photo(s)"));
  QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("BoutonGris(0)")), Qt::LeftButton);
  EXPECT_TRUE(Visible("FormVisuPhoto"));
}

TEST_F(Ordre, AGalleryOnTheScreenIsClosedByTheStopAndSavesBeforeTheInboxesClose) {
  Demarre();
  Systeme.Temps.Avance(2000);
  QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("BoutonGris(0)")), Qt::LeftButton);
  Systeme.Notes.Vide();
  Programme->Ferme();
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_EQ(vus.filter(QStringLiteral("store: flush")).size(), 1);
  EXPECT_LT(vus.indexOf(QStringLiteral("store: flush")), vus.indexOf(QStringLiteral("channel: close 1001")));
  EXPECT_FALSE(Visible("FormVisuPhoto"));
}

TEST_F(Ordre, OnlyTheMainWindowStartsTheStop) {
  Demarre();
  Systeme.Temps.Avance(2000);
  Fenetre("FormMonitor")->show();
  Systeme.Notes.Vide();
  Fenetre("FormMonitor")->close();
  Fenetre("frmSplash")->close();
  EXPECT_FALSE(Programme->EstFinie());
  EXPECT_TRUE(Systeme.DepuisVide().isEmpty());
  Fenetre("Form1")->close();
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_TRUE(Systeme.Casiers.empty()) << "a late word of a companion must find no inbox";
}

TEST_F(Ordre, TheHandlesAreOnDiskBeforeTheFirstCompanionExists) {
  QStringList alors;
  Systeme.Programmes.PendantLancement = [&] {
    if (alors.isEmpty()) alors = Systeme.Notes.Lignes();
  };
  Demarre();
  for (const char* section : {"FTP", "MAIL", "SON"}) {
    const auto ecrit = alors.indexOf(QStringLiteral("store: write %1/HWNDVK").arg(QLatin1String(section)));
    EXPECT_GE(ecrit, 0) << section;
    EXPECT_GT(alors.indexOf(QStringLiteral("store: flush"), ecrit), ecrit);
  }
}

TEST_F(Ordre, AMissingCompanionEndsTheStartWithOneMessageInTheUsersLanguage) {
  Systeme.Valeurs.insert(QStringLiteral("general/langue"), QStringLiteral("1"));
  Systeme.Programmes.Absents = {QStringLiteral("/opt/v/VAKTORmail")};
  Programme = std::make_unique<Vaktor>(Systeme.Ports(), QString());
  QString dit;
  try {
    Programme->Demarre(QStringLiteral("1.4.9"));
  } catch (const Echec& echec) {
    dit = echec.Description();
  }
  EXPECT_TRUE(dit.contains(QStringLiteral("VAKTORmail"))) << dit.toStdString();
  EXPECT_TRUE(dit.contains(QStringLiteral("missing"))) << dit.toStdString();
  EXPECT_FALSE(Systeme.Notes.Lignes().contains(QStringLiteral("processes: start /opt/v/VAKTORsound")));
  // The one that came up while the message stood is asked to leave.
  Systeme.Recoit(1001, QStringLiteral("HWND:71"));
  Programme->AnnonceDemarrageImpossible(dit);
  EXPECT_EQ(Systeme.Messages.Textes.size(), 1);
  EXPECT_TRUE(Systeme.Notes.Lignes().contains(QStringLiteral("channel: post 68 to 71")));
}

TEST_F(Ordre, ClosingBehindTheSplashStopsTheSequenceAndIsAWholeStop) {
  // In the pump after the companions were launched: the fourth step is not reached.
  Systeme.Programmes.PendantLancement = [this] { Systeme.Pompe.EnAttente = [this] { Programme->Ferme(); }; };
  Demarre();
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_TRUE(Systeme.Notes.Lignes().contains(QStringLiteral("timer Timer1: off")));
  EXPECT_FALSE(Visible("frmSplash"));
  EXPECT_FALSE(Visible("Form1"));
}

TEST_F(Ordre, ClosingBeforeTheSettingsAreLoadedLoadsAndLaunchesNothing) {
  Systeme.Pompe.EnAttente = [this] { Programme->Ferme(); };
  Demarre();
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_TRUE(Systeme.Notes.Lignes().filter(QStringLiteral("processes:")).isEmpty());
  EXPECT_TRUE(Systeme.Notes.Lignes().filter(QStringLiteral("store: write")).isEmpty());
}

// The window stands, and only delay and language have been read.
TEST_F(Ordre, ClosingHalfWayThroughTheLoadSavesNothingThatIsHalfRead) {
  bool ferme = false;
  const std::function<void()> arme = [this, &arme, &ferme] {
    Systeme.Pompe.EnAttente = [this, &arme, &ferme] {
      arme();
      if (ferme || Fenetre("Form1") == nullptr) return;
      ferme = true;
      Systeme.Notes.Vide();
      Programme->Ferme();
      EXPECT_EQ(Systeme.DepuisVide().join(u'|').toStdString(), "");
    };
  };
  arme();
  Demarre();
  EXPECT_TRUE(ferme);
  EXPECT_TRUE(Programme->EstFinie());
}

// The first close comes behind the splash, the second of somebody who sees a window for a moment.
TEST_F(Ordre, ASecondCloseInThePumpsOfTheFirstChangesNothing) {
  const auto fin = [this](bool deuxFois) {
    Programme.reset();
    Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
    Systeme.Programmes.PendantLancement = [this, deuxFois] {
      Systeme.Pompe.EnAttente = [this, deuxFois] {
        Systeme.Notes.Vide();
        if (deuxFois) Systeme.Pompe.EnAttente = [] { Fenetre("Form1")->close(); };
        Programme->Ferme();
      };
    };
    Demarre();
    return Systeme.DepuisVide().join(u'|').toStdString();
  };
  const std::string une = fin(false);
  EXPECT_EQ(fin(true), une);
}

TEST_F(Ordre, AWordThatComesDuringTheLaunchReachesTheWindow) {
  Systeme.Programmes.PendantLancement = [this] {
    Systeme.Pompe.EnAttente = [this] { Systeme.Recoit(1001, QStringLiteral("Conne")); };
  };
  Demarre();
  EXPECT_EQ(Fenetre("Form1")->findChild<QLabel*>(QStringLiteral("LblDebugftp"))->text(),
            QStringLiteral("En cour de connection"));
}

TEST_F(Ordre, StartArgumentsCarryOutLiveFirstThenAlarm) {
  for (const char* cle : {"ftp", "user", "pass", "html"})
    Systeme.Valeurs.insert(QStringLiteral("FTP/") + QLatin1String(cle), QStringLiteral("098100102"));
  Demarre(QStringLiteral("x/ALARM/Surve"));
  Systeme.Recoit(1001, QStringLiteral("HWND:71"));
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(1000);
  const QStringList vus = Systeme.DepuisVide();
  const auto connexion = vus.indexOf(QStringLiteral("channel: post 65 to 71"));
  EXPECT_GE(connexion, 0) << vus.join(u'\n').toStdString();
  EXPECT_GT(vus.indexOf(QStringLiteral("timer Timer3: on")), connexion);
  EXPECT_EQ(vus.filter(QStringLiteral("timer ")).last(), QStringLiteral("timer TimerAutoStar: off"));
}

// Nobody is there to answer a message: the camera is waited for, and what was asked for begins when it comes.
TEST_F(Ordre, StartArgumentsWaitForTheirCameraWithoutAMessageAndAreToldOf) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  pilote.Presente = false;
  pilote.Refus = QStringLiteral("no such host");
  Systeme.Valeurs.insert(QStringLiteral("MAIL/actif"), QStringLiteral("True"));
  Demarre(QStringLiteral("/alarm"));
  Systeme.Temps.Avance(120'000);
  EXPECT_TRUE(Systeme.Messages.Textes.isEmpty()) << Systeme.Messages.Textes.join(u'\n').toStdString();
  QString dit;
  for (const auto& avis : std::as_const(Systeme.Bureau.Montres)) dit += avis.Texte;
  EXPECT_TRUE(dit.contains(QStringLiteral("(no such host)"))) << dit.toStdString();
  ASSERT_EQ(Systeme.Courriels.Deposes.size(), 1) << "as for an armed system that sees nothing";
  EXPECT_EQ(Systeme.Courriels.Deposes[0].Courriel.Mot, QStringLiteral("camera-awaited"));
  Systeme.Courriels.Repond(true);
  EXPECT_TRUE(Systeme.Machine.Tenue) << "a machine that sleeps would not see it come";
  Systeme.Notes.Vide();
  pilote.Presente = true;
  Systeme.Temps.Avance(2000);
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_TRUE(vus.contains(QStringLiteral("timer Timer3: on"))) << vus.join(u'\n').toStdString();
  EXPECT_TRUE(vus.contains(QStringLiteral("timer TimerAutoStar: off")));
  Systeme.Temps.Avance(5000);
  ASSERT_EQ(Systeme.Courriels.Deposes.size(), 2);
  EXPECT_TRUE(Systeme.Courriels.Deposes[1].Courriel.Fin);
  EXPECT_TRUE(Systeme.Courriels.Deposes[1].Courriel.Sujet.Dit(Langue::kAnglais).contains("sees again"));
}

// The switches of /surve and /alarm would be thrown back, and nobody there has pressed anything.
TEST_F(Ordre, TheReadyWordOfACompanionThatWasStartedAgainCarriesOutNothing) {
  Demarre(QStringLiteral("/alarm"));
  Systeme.Temps.Avance(2000);
  const auto dit = [this](const char* mot) { Systeme.Recoit(1001, QLatin1String(mot)); };
  dit("HWND:71");
  Systeme.Notes.Vide();
  dit("*OKO*");
  EXPECT_TRUE(Systeme.DepuisVide().contains(QStringLiteral("timer TimerAutoStar: on"))) << "of the one of the launch";
  Systeme.Temps.Avance(2000);
  Systeme.Programmes.Finit(QStringLiteral("/opt/v/VAKTORftp"));
  Systeme.Temps.Avance(1000);
  EXPECT_TRUE(Systeme.Notes.Lignes().contains(QStringLiteral("processes: start /opt/v/VAKTORftp")));
  dit("HWND:72");
  Systeme.Notes.Vide();
  dit("*OKO*");
  EXPECT_FALSE(Systeme.DepuisVide().contains(QStringLiteral("timer TimerAutoStar: on")));
}

TEST_F(Ordre, SwitchingTheCameraOffSwitchesTheLivePageOffAndTellsNobody) {
  DemarreLeLive();
  Systeme.Temps.Avance(1000);
  const auto clique = [](const char* bouton) {
    QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QLatin1String(bouton)), Qt::LeftButton);
  };
  Systeme.Notes.Vide();
  clique("Bouton(0)");
  EXPECT_TRUE(Systeme.DepuisVide().filter(QStringLiteral("channel: post")).isEmpty());
  clique("Bouton(2)");
  EXPECT_TRUE(Systeme.DepuisVide().contains(QStringLiteral("channel: post 65 to 71"))) << "on again, not off";
}

TEST_F(Ordre, ALivePageThatRanGoesOnWithTheNextCompanion) {
  DemarreLeLiveEtTueLeCompagnon();
  auto* statut = Fenetre("Form1")->findChild<QLabel*>(QStringLiteral("LblDebugftp"));
  EXPECT_EQ(statut->text(), QStringLiteral("En cour de connection"));
  Systeme.Temps.Avance(1000);
  Systeme.Notes.Vide();
  Systeme.Recoit(1001, QStringLiteral("HWND:72"));
  const QStringList envoyes = Systeme.DepuisVide().filter(QStringLiteral("channel: post"));
  EXPECT_EQ(envoyes, QStringList({"channel: post 67 to 72", "channel: post 65 to 72"}))
      << "the settings first: they may have changed since it read them";
}

TEST_F(Ordre, ALivePageThatRanGoesOnWhenTheServerIsAwayAsItsCompanionComesBack) {
  DemarreLeLiveEtTueLeCompagnon();
  Systeme.Recoit(1001, QStringLiteral("ConOK"));  // was in the inbox when it was killed
  auto* statut = Fenetre("Form1")->findChild<QLabel*>(QStringLiteral("LblDebugftp"));
  EXPECT_EQ(statut->text(), QStringLiteral("En cour de connection"));
  Systeme.Temps.Avance(1000);
  Systeme.Recoit(1001, QStringLiteral("HWND:72"));
  Systeme.Recoit(1001, QStringLiteral("SerER"));
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(FormWinsock::kDelaiReconnexion);
  EXPECT_TRUE(Systeme.DepuisVide().contains(QStringLiteral("channel: post 65 to 72")));
}

TEST_F(Ordre, OneThatHasComeBackIsToldWhatTheOneBeforeItMayHaveMissed) {
  Demarre();
  Systeme.Temps.Avance(2000);
  Systeme.Recoit(1002, QStringLiteral("HWND:72"));
  Systeme.Recoit(1003, QStringLiteral("HWND:73"));
  for (const char* nom : {"VAKTORmail", "VAKTORsound"})
    Systeme.Programmes.Finit(QStringLiteral("/opt/v/") + QLatin1String(nom));
  Systeme.Temps.Avance(1000);
  Systeme.Notes.Vide();
  Systeme.Recoit(1002, QStringLiteral("HWND:82"));
  Systeme.Recoit(1003, QStringLiteral("HWND:83"));
  EXPECT_EQ(Systeme.DepuisVide().filter(QStringLiteral("channel: post")),
            QStringList({"channel: post 65 to 82", "channel: post 68 to 82", "channel: post 65 to 83"}));
}

// The driver lets the window live while it waits for a camera that says nothing, and the window is closed.
TEST_F(Ordre, ClosingWhileTheCameraIsBeingConnectedIsAWholeStopWithoutAMessage) {
  for (const char* bouton : {"Bouton(0)", "Bouton(1)", "Bouton(2)"}) {
    for (const bool trouvee : {true, false}) {
      Programme.reset();
      Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
      faux::PiloteFaux& pilote = *Systeme.Pilote;
      Demarre();
      Systeme.Temps.Avance(2000);
      pilote.Presente = trouvee;
      qsizetype ferme = -1;
      pilote.PendantConnexion = [this, &ferme] {
        Systeme.Notes.Vide();
        Fenetre("Form1")->close();
        EXPECT_TRUE(Programme->EstFinie());
        ferme = Systeme.Notes.Lignes().size();
      };
      Clique(bouton);
      ASSERT_GT(ferme, 0) << bouton;
      const QStringList vus = Systeme.DepuisVide();
      EXPECT_EQ(vus.indexOf(QStringLiteral("Deconnecte")), 0) << vus.join(u'\n').toStdString();
      EXPECT_TRUE(vus.contains(QStringLiteral("timer Timer1: off")));
      EXPECT_FALSE(vus.contains(QStringLiteral("timer Timer1: on")));
      EXPECT_TRUE(vus.filter(QStringLiteral("box:")).isEmpty()) << bouton;
      // What was clicked on goes no further, but for the pump behind the camera.
      QStringList apres = Systeme.Notes.Lignes().mid(ferme);
      apres.removeIf([](const QString& ligne) {
        return ligne == QStringLiteral("PompeMessages") || ligne == QStringLiteral("Deconnecte");
      });
      EXPECT_EQ(apres.join(u'\n').toStdString(), "") << bouton << (trouvee ? ", camera there" : ", no camera");
      EXPECT_FALSE(Visible("Form1"));
      EXPECT_FALSE(Visible("FormMonitor"));
    }
  }
}

TEST_F(Ordre, FolderChooserIsReachedFromTheGalleryAndGoesWithTheProgram) {
  for (const char* dossier : {"/home", "/home/u", "/home/u/v", "/home/u/v/intrus", "/home/u/photos"}) {
    Systeme.Arbre.Ajoute(QLatin1String(dossier));
    Systeme.Disque.Existants.append(QLatin1String(dossier));
    Systeme.Photos.AjouteDossier(QLatin1String(dossier));
  }
  Demarre();
  Systeme.Temps.Avance(2000);
  const auto clique = [](const char* fenetre, const char* controle) {
    auto* cible = Fenetre(fenetre)->findChild<QWidget*>(QLatin1String(controle));
    ASSERT_NE(cible, nullptr) << controle;
    QTest::mouseClick(cible, Qt::LeftButton);
  };
  clique("Form1", "BoutonGris(0)");
  EXPECT_EQ(Fenetre("Repertoire"), nullptr) << "loaded by nothing but Command7";
  clique("FormVisuPhoto", "Command7");
  ASSERT_TRUE(Visible("Repertoire"));
  auto* arbre = Fenetre("Repertoire")->findChild<QTreeWidget*>(QStringLiteral("Dir1"));
  arbre->setCurrentItem(arbre->topLevelItem(0)->child(0));
  Systeme.Notes.Vide();
  clique("Repertoire", "Command1");
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_GT(vus.indexOf(QStringLiteral("names: read /home/u/photos")), vus.indexOf(QStringLiteral("store: flush")))
      << "saved, then the gallery:\n"
      << vus.join(u'\n').toStdString();
  EXPECT_EQ(Systeme.Valeurs.value(QStringLiteral("PHOTO/repertoire")), QStringLiteral("/home/u/photos"));
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Fenetre("Repertoire"), nullptr) << "unloaded, not hidden";
  clique("FormVisuPhoto", "Command7");
  ASSERT_TRUE(Visible("Repertoire"));
  Programme->Ferme();
  EXPECT_FALSE(Visible("Repertoire"));
  EXPECT_FALSE(Visible("FormVisuPhoto"));
}

// The user who closes the window is there to read it; a session that ends, or a key of the terminal, waits for nobody.
TEST_F(Ordre, SettingsThatCannotBeSavedAreToldInAMessageToWhoClosesTheWindow) {
  DemarreAvecDesParametresQuiNIrontNullePart();
  Fenetre("Form1")->close();
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_TRUE(Systeme.Notes.Lignes().contains(QStringLiteral("store: flush")));
  EXPECT_EQ(Systeme.Messages.Textes.size(), 1);
}

TEST_F(Ordre, AnEndThatTheSystemAsksForShowsNoMessageThatNobodyAnswers) {
  DemarreAvecDesParametresQuiNIrontNullePart();
  Programme->Ferme();
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_TRUE(Systeme.Notes.Lignes().contains(QStringLiteral("store: flush")));
  EXPECT_TRUE(Systeme.Messages.Textes.isEmpty());
}

TEST_F(Ordre, NeitherDoesAWindowThatSavesAsTheSystemsEndClosesIt) {
  DemarreAvecDesParametresQuiNIrontNullePart();
  QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("BoutonGris(0)")), Qt::LeftButton);
  ASSERT_TRUE(Visible("FormVisuPhoto"));
  Systeme.Messages.Textes.clear();
  Programme->Ferme();
  Programme->AnnonceEchec(QStringLiteral("the guard at the event loop has caught what the gallery threw"));
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_TRUE(Systeme.Messages.Textes.isEmpty());
}

TEST_F(Ordre, OfTheStopWithTheCameraOnAndSomethingToSaveIsTheList) {
  Demarre();
  Systeme.Temps.Avance(2000);
  Systeme.Recoit(1001, QStringLiteral("HWND:71"));
  Systeme.Recoit(1002, QStringLiteral("HWND:72"));
  Systeme.Recoit(1003, QStringLiteral("HWND:73"));
  QTest::mouseClick(Fenetre("Form1")->findChild<QWidget*>(QStringLiteral("Bouton(0)")), Qt::LeftButton);
  Systeme.Temps.Avance(30);  // the start of the camera has moved the gauge: there is something to save
  Systeme.Notes.Vide();
  Programme->Ferme();
  CompareListe("stop_order.txt");
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_FALSE(Visible("Form1"));
  EXPECT_FALSE(Visible("FormMonitor"));
}

}  // namespace
}  // namespace vaktor::essai
