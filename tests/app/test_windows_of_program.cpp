// SPDX-License-Identifier: GPL-3.0-or-later
// Every window of the whole program: how it comes, how it goes, and which language it speaks.
#include "app/alarm_fixture.h"
#include "ui/window/window_placement.h"

namespace vaktor::essai {
namespace {

class FenetreDuProgramme : public AlarmeSurFaux {
 protected:
  template <typename T = QWidget>
  static T* Dans(const char* fenetre, const char* nom) {
    return Fenetre(fenetre)->findChild<T*>(QLatin1String(nom));
  }
  /// All that a window says: captions, tips, names for those who hear it.
  static QStringList Mots(const char* fenetre) {
    QStringList mots = {Fenetre(fenetre)->windowTitle()};
    for (const QWidget* controle : Fenetre(fenetre)->findChildren<QWidget*>()) {
      QString texte = controle->toolTip() + '|' + controle->accessibleName() + '|' + controle->accessibleDescription();
      if (const auto* etiquette = qobject_cast<const QLabel*>(controle)) texte += '|' + etiquette->text();
      if (const auto* bouton = qobject_cast<const QAbstractButton*>(controle)) texte += '|' + bouton->text();
      if (const auto* liste = qobject_cast<const QComboBox*>(controle))
        for (int i = 0; i < liste->count(); ++i) texte += '|' + liste->itemText(i);
      if (!controle->objectName().isEmpty()) mots += controle->objectName() + ": " + texte;
    }
    return mots;
  }
};

// --- Languages

TEST_F(FenetreDuProgramme, AFlagGivesEachWindowTheWordsOfAProgramThatWasStartedInItsLanguage) {
  const char* const fenetres[] = {"Form1", "FormMonitor", "FormVisuPhoto"};
  QMap<QString, QStringList> voulus;
  DemarreJusquALaFenetre();
  for (const char* nom : fenetres) voulus[nom] = Mots(nom);
  Programme.reset();
  Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
  Systeme.Valeurs.clear();
  Demarre();
  Systeme.Temps.Avance(2000);
  for (const char* nom : fenetres) EXPECT_NE(Mots(nom), voulus[nom]) << nom << " is French";
  Clique("Image4(1)");
  for (const char* nom : fenetres) EXPECT_EQ(Mots(nom).join('\n').toStdString(), voulus[nom].join('\n').toStdString());
}

TEST_F(FenetreDuProgramme, EachFieldIsHeardByTheWordsThatAreSeenBesideIt) {
  const std::pair<const char*, const char*> champs[] = {{"TxtNbrPhoto", "LabelVague"},
                                                        {"TextNbrMail", "LabelNbrMail"},
                                                        {"TextEMail", "LabelMaildest"},
                                                        {"TextSujet", "LabelMailSujet"},
                                                        {"TextTexte", "LabelMailTexte"},
                                                        {"CheckMail", "LabelCheckMail"},
                                                        {"CheckSon", "LabelCheckSon"},
                                                        {"CheckPPhot", "LabelCheckPhot"},
                                                        {"ChkSeuilAuto", "LblSeuilAuto"},
                                                        {"TxtFtp", "Lblftp"},
                                                        {"TxtHtml", "LblHTML"},
                                                        {"TxtFTPracine", "LblRepRaciine"},
                                                        {"TxtUserName", "LblUserName"},
                                                        {"TxtPass", "LblPass"},
                                                        {"TxtRefresh", "LblIntervale"},
                                                        {"CombQualit", "Label1"},
                                                        {"CombCouleur", "LblCouleurPage"},
                                                        {"TextNbrPhotoFTP", "LblNbrdephotoftp"},
                                                        {"Text1", "LabelRetard"},
                                                        {"PictSeuil", "LabelSeuil"}};
  DemarreJusquALaFenetre();
  for (const auto& [champ, etiquette] : champs) {
    EXPECT_FALSE(Trouve<QLabel>(etiquette)->text().isEmpty()) << etiquette;
    EXPECT_EQ(Trouve(champ)->accessibleName(), Trouve<QLabel>(etiquette)->text()) << champ;
  }
}

TEST_F(FenetreDuProgramme, TheFlagsSayTheirLanguageInItself) {
  DemarreJusquALaFenetre();
  EXPECT_TRUE(Trouve("Image4(0)")->accessibleName().startsWith("Fran"));
  EXPECT_EQ(Trouve("Image4(1)")->accessibleName(), "English");
}

TEST_F(FenetreDuProgramme, DriverBoxesAndLinksFollowTheLanguageToo) {
  DemarreJusquALaFenetre();
  EXPECT_EQ(Systeme.LangueDuPilote(), Langue::kAnglais);
  EXPECT_EQ(Systeme.LangueDesBoites(), Langue::kAnglais);
  Clique("Image4(0)");
  EXPECT_EQ(Systeme.LangueDuPilote(), Langue::kFrancais);
  EXPECT_EQ(Systeme.LangueDesBoites(), Langue::kFrancais);
  Clique("BoutonGris(7)");
  EXPECT_EQ(Systeme.Navigateur.Adresses.last(), "https://www.example.org/vaktor_notice.html");
  Clique("BoutonGris(1)");
  EXPECT_EQ(Systeme.Navigateur.Adresses.last(),
            "https://www.example.org/versiontest.php?logiciel=Vaktor&version=1.4.9");
  Systeme.Recoit(1001, "SerTR");
  EXPECT_TRUE(Trouve<QLabel>("LblDebugftp")->text().startsWith("Serveur"));
}

// --- Failures that are told

TEST_F(FenetreDuProgramme, AFailureThatNobodyExpectedIsToldInTheUsersLanguageAndTheProgramGoesOn) {
  DemarreJusquALaFenetre();
  Programme->AnnonceEchec("disk full");
  EXPECT_EQ(Systeme.Messages.Textes, QStringList("An operation failed: disk full\nVaktor goes on."));
  EXPECT_EQ(Systeme.Messages.Titres, QStringList("Be careful"));
  EXPECT_EQ(Systeme.Messages.Boutons, BoutonsBoite::kOk);
  EXPECT_FALSE(Programme->EstFinie());
}

TEST_F(FenetreDuProgramme, AFolderThatCannotBeMadeEndsTheStartAndIsNamed) {
  Systeme.Valeurs.insert("general/langue", "1");
  Systeme.DossierManquant = "/home/u/v/Temp";
  EXPECT_TRUE(DemarreEtEchoue().contains("/home/u/v/Temp"));
  EXPECT_EQ(Systeme.Messages.Textes, QStringList("Vaktor cannot start: the folder \"/home/u/v/Temp\" cannot be made."));
  EXPECT_EQ(Systeme.Messages.Boutons, BoutonsBoite::kOk);
}

// --- The form of the alarm sound

class FormeDuSon : public FenetreDuProgramme {
 protected:
  void SetUp() override {
    for (const char* nom : {"/opt/v/snd/0.wav", "/opt/v/snd/2.wav", "/home/u/dog.wav"})
      Systeme.DisqueDesSons.AjouteFichier(nom);
    DemarreJusquALaFenetre();
    InscritCompagnons();
    Clique("BoutonGris(6)");
    Systeme.Notes.Vide();
  }
  static void Choisit(int entree) {
    auto* liste = Dans<QComboBox>("FormSound", "CombSound");
    QTest::keyClick(liste, Qt::Key_Home);
    for (int i = 0; i < entree; ++i) QTest::keyClick(liste, Qt::Key_Down);
  }
};

TEST_F(FormeDuSon, IsMadeOnceAndComesBack) {
  QWidget* forme = Fenetre("FormSound");
  EXPECT_EQ(forme->windowTitle(), "Alarm sound");
  forme->close();
  EXPECT_FALSE(Visible("FormSound"));
  Clique("Image4(0)");
  Clique("BoutonGris(6)");
  EXPECT_EQ(Fenetre("FormSound"), forme);
  EXPECT_TRUE(forme->isVisible());
  EXPECT_EQ(forme->windowTitle(), "Son de l'alarme");
  EXPECT_FALSE(Systeme.Notes.Lignes().contains("sound form: make"));
}

TEST_F(FormeDuSon, AChoiceIsStoredToldToTheCompanionsHeardAndThereAtTheNextStart) {
  Choisit(2);
  EXPECT_EQ(Systeme.Valeurs.value("SON/index"), "2");
  EXPECT_EQ(Systeme.DepuisVide().filter("channel: post").last(), "channel: post 65 to 73");
  QTest::mouseClick(Dans("FormSound", "ImagePlaySon"), Qt::LeftButton);
  EXPECT_EQ(Systeme.LecteurSon.Joues, QStringList("/opt/v\\snd\\2.wav"));
  Programme.reset();
  Systeme.Pilote = std::make_unique<faux::PiloteFaux>(Systeme.Notes);
  DemarreJusquALaFenetre();
  Clique("BoutonGris(6)");
  EXPECT_EQ(Dans<QComboBox>("FormSound", "CombSound")->placeholderText(), "Sound 3");
}

TEST_F(FormeDuSon, AFileIsHeardAtOnceAndStoredByTheNextSave) {
  Choisit(3);
  Systeme.ChoixFichier.Reponse = "/home/u/dog.wav";
  QTest::mouseClick(Dans("FormSound", "CmdChoixSonRep"), Qt::LeftButton);
  QTest::mouseClick(Dans("FormSound", "ImagePlaySon"), Qt::LeftButton);
  EXPECT_EQ(Systeme.LecteurSon.Joues, QStringList("/home/u/dog.wav"));
  EXPECT_EQ(Systeme.Valeurs.value("SON/Repertoire"), "");
  Clique("CheckSon");
  EXPECT_EQ(Systeme.Valeurs.value("SON/Repertoire"), "/home/u/dog.wav");
}

TEST_F(FormeDuSon, ClosingItSavesWhatIsUnsavedAndTheStopClosesIt) {
  Trouve<QLineEdit>("TextSujet")->setText("Somebody");
  Systeme.Notes.Vide();
  Fenetre("FormSound")->close();
  EXPECT_EQ(Systeme.DepuisVide().count("store: flush"), 1);
  EXPECT_EQ(Systeme.Valeurs.value("MAIL/sujet"), "Somebody");
  Clique("BoutonGris(6)");
  Programme->Ferme();
  EXPECT_FALSE(Visible("FormSound"));
}

// --- Monitor and enlarged view

TEST_F(FenetreDuProgramme, TheMonitorThatWasClosedComesBackByTheCamerasButtonAndTheWatchGoesOn) {
  ArmeEtBouge();
  Fenetre("FormMonitor")->close();
  EXPECT_FALSE(Visible("FormMonitor"));
  EXPECT_GT(Pendant(300).Sons, 5) << "behind it";
  Clique("Bouton(0)");
  EXPECT_TRUE(Visible("FormMonitor"));
  EXPECT_GT(Pendant(300).Sons, 5);
  Clique("Bouton(0)");
  EXPECT_EQ(Pendant(300).Sons, 0) << "only now it is off";
}

TEST_F(FenetreDuProgramme, F6GoesFromTheWindowToTheMonitorAndBackAndNowhereWhileItIsHidden) {
  DemarreJusquALaFenetre();
  QWidget* fenetre = Fenetre("Form1");
  QWidget* moniteur = Fenetre("FormMonitor");
  fenetre->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(fenetre));
  QTest::keyClick(fenetre, Qt::Key_F6);
  EXPECT_FALSE(moniteur->isVisible());
  Clique("Bouton(0)");
  ASSERT_TRUE(QTest::qWaitForWindowExposed(moniteur));
  fenetre->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(fenetre));
  QTest::keyClick(fenetre, Qt::Key_F6);
  EXPECT_TRUE(QTest::qWaitForWindowActive(moniteur));
  QTest::keyClick(moniteur, Qt::Key_F6);
  EXPECT_TRUE(QTest::qWaitForWindowActive(fenetre));
}

TEST_F(FenetreDuProgramme, EscapeClosesGalleryAndEnlargedView) {
  DemarreJusquALaFenetre();
  Clique("BoutonGris(0)");
  for (int i = 0; i < 100 && !Visible("FormVisuPhoto"); ++i) QTest::qWait(1);
  ASSERT_TRUE(Visible("FormVisuPhoto"));
  QTest::keyClick(Fenetre("FormVisuPhoto"), Qt::Key_Escape);
  EXPECT_FALSE(Visible("FormVisuPhoto"));
  Trouve<QCheckBox>("CheckPEcran")->setChecked(true);
  QTest::keyClick(Fenetre("WebcamPecran"), Qt::Key_Escape);
  EXPECT_FALSE(Trouve<QCheckBox>("CheckPEcran")->isChecked());
}

TEST_F(FenetreDuProgramme, TheEnlargedViewFollowsItsBoxShowsTheFramesAndUnticksItWhenItIsClosed) {
  ArmeEtBouge();
  auto* boite = Trouve<QCheckBox>("CheckPEcran");
  boite->setChecked(true);
  ASSERT_TRUE(Visible("WebcamPecran"));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(Fenetre("WebcamPecran")));
  const auto milieu = [] {
    const QImage vue = Fenetre("WebcamPecran")->grab().toImage();
    return vue.pixelColor(vue.rect().center());
  };
  QSet<QRgb> vus;
  for (int i = 0; i < 4; ++i) {
    Systeme.Temps.Avance(30);
    vus += milieu().rgb();
  }
  EXPECT_EQ(vus.size(), 2) << "one frame behind, and both pictures in turn";
  boite->setChecked(false);
  EXPECT_FALSE(Visible("WebcamPecran"));
  boite->setChecked(true);
  Fenetre("WebcamPecran")->close();
  EXPECT_FALSE(boite->isChecked());
}

TEST_F(FenetreDuProgramme, TheMonitorOpensBesideTheWindowMovesWithANewSizeAndStaysWhereTheUserPutsIt) {
  faux::PiloteFaux& pilote = *Systeme.Pilote;
  DemarreJusquALaFenetre();
  Clique("Bouton(0)");
  Systeme.Temps.Avance(60);
  QWidget* moniteur = Fenetre("FormMonitor");
  const QRect principale = Fenetre("Form1")->frameGeometry();
  EXPECT_FALSE(moniteur->frameGeometry().intersects(principale));
  const auto place = [&] {
    return PlaceFenetre(moniteur->screen()->availableGeometry(), principale, moniteur->frameGeometry().size());
  };
  const QPoint avant = moniteur->pos();
  pilote.Image = QImage(160, 120, QImage::Format_RGB32);
  pilote.Image.fill(Qt::red);
  Systeme.Temps.Avance(60);
  EXPECT_EQ(moniteur->size(), QSize(160, 120));
  EXPECT_EQ(moniteur->pos(), place());
  EXPECT_NE(moniteur->pos(), avant) << "a small one fits beside the window";
  EXPECT_EQ(Systeme.Valeurs.value("FTP/width"), "160") << "and the companion of the page is told";
  EXPECT_EQ(Systeme.Valeurs.value("FTP/height"), "120");
  pilote.Image = QImage(320, 240, QImage::Format_RGB32);
  Systeme.Temps.Avance(60);
  EXPECT_FALSE(moniteur->frameGeometry().intersects(principale)) << "there is no room beside it any more";
  EXPECT_EQ(moniteur->pos(), place());
  EXPECT_TRUE(moniteur->screen()->availableGeometry().contains(moniteur->geometry()));
  pilote.Image = QImage(160, 120, QImage::Format_RGB32);
  Systeme.Temps.Avance(60);
  moniteur->move(7, 9);
  pilote.Image = QImage(320, 240, QImage::Format_RGB32);
  Systeme.Temps.Avance(60);
  EXPECT_EQ(moniteur->pos(), QPoint(7, 9));
}

}  // namespace
}  // namespace vaktor::essai
