// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window does with mouse and keys.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

QWidget* PageDevant(BancFenetre& banc) {
  // The page in front gets the mouse in the middle of the pages' common place.
  QWidget* controle = banc.Fenetre.childAt(PageVaktor::kPlace.topLeft() + QPoint(2, 2));
  return controle;
}

TEST(Form1, SurveillancePageIsInFrontAtStart) {
  BancFenetre banc;
  EXPECT_EQ(PageDevant(banc)->objectName(), QStringLiteral("PictPage(1)"));
}

TEST(Form1, TabsBringTheirPageToTheFrontAndHideNone) {
  BancFenetre banc;
  const std::pair<const char*, const char*> onglets[] = {{"Bouton(4)", "PictPage(3)"},
                                                         {"Bouton(5)", "PictPage(0)"},
                                                         {"Bouton(6)", "PictPage(2)"},
                                                         {"Bouton(3)", "PictPage(1)"}};
  for (const auto& [bouton, page] : onglets) {
    banc.Clique(bouton);
    EXPECT_EQ(PageDevant(banc)->objectName(), QLatin1String(page));
    for (const char* nom : {"PictPage(0)", "PictPage(1)", "PictPage(2)", "PictPage(3)"}) {
      EXPECT_TRUE(banc.Trouve(nom)->isVisible());
    }
  }
}

TEST(Form1, TabSavesUnsavedChangesFirstAndSwitchesDoNot) {
  BancFenetre banc;
  banc.Reglages.ParametresModifies = true;
  banc.Clique("Bouton(2)");
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 0);
  banc.Clique("Bouton(4)");
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 1);
  banc.Clique("Bouton(5)");
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 1) << "nothing was left to save";
}

TEST(Form1, CameraButtonTogglesTheCameraAndShowsTheMonitor) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  EXPECT_TRUE(banc.Engin.Camera().CameraActive);
  EXPECT_TRUE(banc.Moniteur.isVisible());
  banc.Clique("Bouton(0)");
  EXPECT_FALSE(banc.Engin.Camera().CameraActive);
}

TEST(Form1, CameraButtonBringsAClosedMonitorBackWithoutTogglingTheCamera) {
  BancFenetre banc;
  banc.Clique("Bouton(0)");
  banc.Moniteur.close();
  EXPECT_FALSE(banc.Moniteur.isVisible());
  EXPECT_TRUE(banc.Engin.Camera().CameraActive) << "detection goes on behind a hidden monitor";
  banc.Clique("Bouton(0)");
  EXPECT_TRUE(banc.Moniteur.isVisible());
  EXPECT_TRUE(banc.Engin.Camera().CameraActive);
  banc.Clique("Bouton(0)");
  EXPECT_FALSE(banc.Engin.Camera().CameraActive);
}

TEST(Form1, CameraThatIsNotThereIsToldInTheCurrentLanguage) {
  BancFenetre banc;
  banc.Pilote.Presente = false;
  banc.Clique("Bouton(0)");
  EXPECT_EQ(banc.Boites.Textes, QStringList{QStringLiteral("Camera not found.")});
  EXPECT_EQ(banc.Boites.Titres, QStringList{QStringLiteral("Be careful")});
}

TEST(Form1, AlarmButtonStartsTheCameraAndTheCountdown) {
  BancFenetre banc;
  banc.Clique("Bouton(1)");
  EXPECT_TRUE(banc.Engin.Camera().CameraActive);
  EXPECT_TRUE(banc.Engin.CompteAReboursEnCours());
  EXPECT_EQ(banc.Fenetre.Bandeau().ImageLedAlarme->Etat(), Lampe::kRougeAllumee);
  banc.Temps.Avance(1000);
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugAlarm")->text(), QStringLiteral("Start in 9 sec"));
  banc.Temps.Avance(9000);
  EXPECT_TRUE(banc.Engin.Alarme().AlarmeArmee);
  EXPECT_EQ(banc.Fenetre.Bandeau().ImageLedAlarme->Etat(), Lampe::kVerte);
  banc.Tic();
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugAlarm")->text(), QStringLiteral("Alarm: Active"));
}

TEST(Form1, LiveButtonCallsTheLiveSwitch) {
  BancFenetre banc;
  banc.Clique("Bouton(2)");
  EXPECT_EQ(banc.BasculesLive, 1);
}

TEST(Form1, OnlyTheLeftButtonClicks) {
  BancFenetre banc;
  QTest::mouseClick(banc.Trouve("Bouton(0)"), Qt::RightButton);
  EXPECT_FALSE(banc.Engin.Camera().CameraActive);
}

TEST(Form1, VideoDialogsOpenWithTheCameraAndWarnWithoutIt) {
  BancFenetre banc;
  banc.Journal.Ecoute();
  banc.Clique("BoutonGris(4)");
  EXPECT_EQ(banc.Boites.Textes, QStringList{QStringLiteral("Camera is off.\r\nPlease click on [Camera on] before.")});
  banc.Clique("Bouton(0)");
  banc.Clique("BoutonGris(4)");
  banc.Clique("BoutonGris(5)");
  EXPECT_TRUE(banc.Journal.Lignes().contains(QStringLiteral("DialogueFormat")));
  EXPECT_TRUE(banc.Journal.Lignes().contains(QStringLiteral("DialogueSource")));
  EXPECT_EQ(banc.Boites.Textes.size(), 1);
}

TEST(Form1, Text1KeepsDigitsOnlyAndSavesAtEachKey) {
  BancFenetre banc;
  auto* champ = banc.Trouve<QLineEdit>("Text1");
  champ->setText(QStringLiteral("5"));
  const auto avant = banc.Sauvegarde.Sauvegardes;
  champ->setFocus();
  champ->selectAll();
  QTest::keyClicks(champ, QStringLiteral("1a2"));
  EXPECT_EQ(champ->text(), QStringLiteral("12"));
  EXPECT_EQ(banc.Reglages.Retard, 12);
  EXPECT_EQ(banc.Engin.Alarme().CompteARebours, 12);
  EXPECT_GE(banc.Sauvegarde.Sauvegardes, avant + 3);
  EXPECT_TRUE(banc.Sauvegarde.ModifiesALaSauvegarde);
}

TEST(Form1, Text1EmptiedByTheUserShowsZeroAtOnce) {
  BancFenetre banc;
  auto* champ = banc.Trouve<QLineEdit>("Text1");
  champ->setText(QStringLiteral("7"));
  champ->selectAll();
  QTest::keyClick(champ, Qt::Key_Delete);
  EXPECT_EQ(champ->text(), QStringLiteral("0"));
  EXPECT_EQ(banc.Reglages.Retard, 0);
}

TEST(Form1, Text1KeepsTheCursorBehindTheDigitsItStoodBehind) {
  BancFenetre banc;
  auto* champ = banc.Trouve<QLineEdit>("Text1");
  champ->setText(QStringLiteral("1234"));
  champ->setCursorPosition(2);
  QTest::keyClicks(champ, QStringLiteral("x"));
  EXPECT_EQ(champ->text(), QStringLiteral("1234"));
  EXPECT_EQ(champ->cursorPosition(), 2);
  QTest::keyClicks(champ, QStringLiteral("9"));
  EXPECT_EQ(champ->text(), QStringLiteral("12934"));
}

TEST(Form1, DelayChangedDuringTheCountdownStartsItAgain) {
  BancFenetre banc;
  banc.Clique("Bouton(1)");
  banc.Temps.Avance(3000);
  banc.Trouve<QLineEdit>("Text1")->setText(QStringLiteral("20"));
  EXPECT_EQ(banc.Engin.Alarme().CompteARebours, 20);
}

struct CasCase {
  const char* Controle;
  bool Parametres::*Drapeau;
};

void PrintTo(const CasCase& cas, std::ostream* flux) { *flux << cas.Controle; }

class Cases : public testing::TestWithParam<CasCase> {};

TEST_P(Cases, FlagFollowsTheMouseReleaseAndIsSaved) {
  BancFenetre banc;
  banc.RemplitMail();
  auto* boite = banc.Trouve<QCheckBox>(GetParam().Controle);
  boite->setChecked(false);
  banc.Reglages.*GetParam().Drapeau = false;
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 0) << "a change by the program is no release of the mouse";
  QTest::mousePress(boite, Qt::LeftButton);
  EXPECT_FALSE(banc.Reglages.*GetParam().Drapeau) << "not before the release";
  QTest::mouseRelease(boite, Qt::LeftButton);
  EXPECT_TRUE(banc.Reglages.*GetParam().Drapeau);
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 1);
  EXPECT_TRUE(banc.Sauvegarde.ModifiesALaSauvegarde);
  QTest::mouseClick(boite, Qt::LeftButton);
  EXPECT_FALSE(banc.Reglages.*GetParam().Drapeau);
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 2);
}

TEST_P(Cases, SpaceKeyKeepsBoxAndFlagTogether) {
  BancFenetre banc;
  banc.RemplitMail();
  auto* boite = banc.Trouve<QCheckBox>(GetParam().Controle);
  boite->setChecked(false);
  QTest::keyClick(boite, Qt::Key_Space);
  EXPECT_TRUE(boite->isChecked());
  EXPECT_TRUE(banc.Reglages.*GetParam().Drapeau);
}

INSTANTIATE_TEST_SUITE_P(Form1, Cases,
                         testing::Values(CasCase{"CheckPPhot", &Parametres::PhotoActif},
                                         CasCase{"CheckMail", &Parametres::MailActif},
                                         CasCase{"CheckSon", &Parametres::SonActif}),
                         [](const auto& cas) { return std::string(cas.param.Controle); });

TEST(Form1, TickingPhotosOnAFullDiskWarnsAndStaysTicked) {
  BancFenetre banc;
  banc.EspaceCourt = true;
  banc.Clique("CheckPPhot");
  EXPECT_EQ(banc.Boites.Textes, QStringList{QStringLiteral("Disk space <500 Mo.")});
  EXPECT_EQ(banc.Boites.Titres, QStringList{QStringLiteral("Be careful")});
  EXPECT_TRUE(banc.Trouve<QCheckBox>("CheckPPhot")->isChecked());
  EXPECT_TRUE(banc.Reglages.PhotoActif);
  banc.Clique("CheckPPhot");
  EXPECT_EQ(banc.Boites.Textes.size(), 1) << "unticking asks nothing of the disk";
}

TEST(Form1, PhotosOnADiskWithRoomGiveNoWarning) {
  BancFenetre banc;
  banc.Clique("CheckPPhot");
  EXPECT_TRUE(banc.Boites.Textes.isEmpty());
}

TEST(Form1, AutomaticToleranceIsReadFromItsBoxAndSavesNothing) {
  BancFenetre banc;
  banc.Trouve<QCheckBox>("ChkSeuilAuto")->setChecked(false);
  QTest::mouseClick(banc.Trouve("ChkSeuilAuto"), Qt::LeftButton);
  EXPECT_TRUE(banc.Reglages.SeuilAuto);
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 0);
  EXPECT_FALSE(banc.Reglages.ParametresModifies);
}

TEST(Form1, EnlargedViewFollowsItsBoxAndClosingUnticksIt) {
  BancFenetre banc;
  banc.Fenetre.CheckPEcran().setChecked(true);
  ASSERT_NE(banc.PleinEcran.Forme(), nullptr);
  EXPECT_TRUE(banc.PleinEcran.Forme()->isVisible());
  banc.Fenetre.CheckPEcran().setChecked(false);
  EXPECT_FALSE(banc.PleinEcran.Forme()->isVisible());
  banc.Fenetre.CheckPEcran().setChecked(true);
  banc.PleinEcran.Forme()->close();
  EXPECT_FALSE(banc.Fenetre.CheckPEcran().isChecked());
  EXPECT_EQ(banc.PleinEcran.Forme(), nullptr) << "closed for real";
}

TEST(Form1, ClosingAsksForTheShutdown) {
  BancFenetre banc;
  banc.Fenetre.close();
  EXPECT_EQ(banc.Fermetures, 1);
}

}  // namespace
}  // namespace vaktor
