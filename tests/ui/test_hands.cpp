// SPDX-License-Identifier: GPL-3.0-or-later
// What hands and eyes find: the mouse that a button lets go, words that switch a box, the focus, buttons that are off,
// the mark on the chosen tab.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QWindow>
#include <cmath>

#include "base/failure.h"
#include "fakes/fake_files.h"
#include "fakes/fake_sound_player.h"
#include "ui/controls/tab_mark.h"
#include "ui/fields/field_events.h"
#include "ui/sound/sounds.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

class Mains : public testing::Test {
 protected:
  Mains() {
    Banc.Fenetre.activateWindow();
    QCoreApplication::processEvents();
  }
  /// A place in a control, seen from the window.
  QPoint Dans(const char* nom, QPoint place = {5, 5}) { return Banc.Trouve(nom)->mapTo(&Banc.Fenetre, place); }
  void Appuie(QPoint place, Qt::MouseButton bouton = Qt::LeftButton) {
    QTest::mousePress(Banc.Fenetre.windowHandle(), bouton, {}, place);
  }
  void Bouge(QPoint place) { QTest::mouseMove(Banc.Fenetre.windowHandle(), place); }
  void Relache(QPoint place, Qt::MouseButton bouton = Qt::LeftButton) {
    QTest::mouseRelease(Banc.Fenetre.windowHandle(), bouton, {}, place);
  }
  bool Focus(const char* nom) { return Banc.Fenetre.focusWidget() == Banc.Trouve(nom); }

  BancFenetre Banc;
  QSignalSpy Deplacements{&Banc.Fenetre.Face()->Souris(), &SourisFenetre::DeplacementDemande};
  const QPoint SurPage{200, 200};  // of the window, where the surveillance page is free
};

// --- The mouse that a button lets go

TEST_F(Mains, ButtonLetsGoOfTheMouseWhenItLeavesAndTheNextMoveDragsTheWindow) {
  Appuie(Dans("Bouton(3)"));
  Bouge(Dans("Bouton(3)", {20, 10}));
  Bouge(SurPage);
  EXPECT_EQ(Deplacements.size(), 0) << "the move that takes it out is the button's own";
  EXPECT_EQ(Banc.Trouve<BoutonImage>("Bouton(3)")->Face(), Banc.Fenetre.Face()->Faces().FacesBouton(3).FaceRepos);
  Bouge(SurPage + QPoint(1, 0));
  EXPECT_EQ(Deplacements.size(), 1);
  EXPECT_EQ(Banc.Sons.DernierSurvol, SonsInterface::kAucunSurvol);
  Relache(SurPage);
  Appuie(Dans("Bouton(3)"));
  Bouge(SurPage);
  EXPECT_EQ(Deplacements.size(), 1) << "so it is at each press";
  Bouge({2, 2});
  EXPECT_EQ(Deplacements.size(), 2) << "the band's free places drag as well";
  Relache({2, 2});
}

TEST_F(Mains, ReleaseBesideTheButtonIsSilentAndClicksNothing) {
  Banc.Fenetre.AmenePage(0);
  for (const char* nom : {"Bouton(3)", "Bouton(0)", "BoutonGris(8)"}) {
    Banc.Sons.DernierSon = -1;
    Appuie(Dans(nom));
    Bouge(SurPage);
    Relache(SurPage);
    EXPECT_EQ(Banc.Sons.DernierSon, -1) << nom;
  }
  EXPECT_EQ(Banc.Fenetre.PageDevant(), 0);
  EXPECT_FALSE(Banc.Engin.Camera().CameraActive);
  // Nothing of it stays behind.
  QTest::mouseClick(Banc.Fenetre.windowHandle(), Qt::LeftButton, {}, Dans("Bouton(3)"));
  EXPECT_EQ(Banc.Fenetre.PageDevant(), 1);
  EXPECT_EQ(Banc.Sons.DernierSon, 4);
}

TEST_F(Mains, PointerOnTheMarginHasNotLeft) {
  Appuie(Dans("Bouton(6)"));
  Bouge(Dans("Bouton(6)", {72, 5}));
  Relache(Dans("Bouton(6)", {72, 5}));
  EXPECT_EQ(Banc.Sons.DernierSon, 4) << "the button had the mouse still";
  EXPECT_EQ(Banc.Fenetre.PageDevant(), 1) << "but a click ends on the button";
}

TEST_F(Mains, PressThatLeftClicksNoMoreWhenItComesBack) {
  Appuie(Dans("Bouton(4)"));
  Bouge(SurPage);
  Bouge(Dans("Bouton(4)"));
  EXPECT_EQ(Banc.Trouve<BoutonImage>("Bouton(4)")->Face(), Banc.Fenetre.Face()->Faces().FacesBouton(4).FaceSurvol);
  Bouge(SurPage);
  EXPECT_EQ(Banc.Trouve<BoutonImage>("Bouton(4)")->Face(), Banc.Fenetre.Face()->Faces().FacesBouton(4).FaceRepos)
      << "it had the mouse again";
  Bouge(Dans("Bouton(4)", {8, 8}));
  Relache(Dans("Bouton(4)", {8, 8}));
  EXPECT_EQ(Banc.Sons.DernierSon, 4) << "released on it";
  EXPECT_EQ(Banc.Fenetre.PageDevant(), 1);
}

TEST_F(Mains, AnotherButtonUnderThePointerIsPassedOverAndReleasedOn) {
  Appuie(Dans("Bouton(0)"));
  Bouge(SurPage);
  Bouge(Dans("Bouton(5)"));
  EXPECT_EQ(Banc.Trouve<BoutonImage>("Bouton(5)")->Face(), Banc.Fenetre.Face()->Faces().FacesBouton(5).FaceSurvol);
  EXPECT_EQ(Banc.Sons.DernierSurvol, 5);
  Relache(Dans("Bouton(5)"));
  EXPECT_EQ(Banc.Sons.DernierSon, 4);
  EXPECT_EQ(Banc.Fenetre.PageDevant(), 1) << "no press, no click";
}

TEST_F(Mains, RightButtonIsLetGoTooAndDragsNothing) {
  Appuie(Dans("Bouton(3)"), Qt::RightButton);
  Bouge(SurPage);
  Bouge(SurPage + QPoint(1, 0));
  Relache(SurPage, Qt::RightButton);
  EXPECT_EQ(Deplacements.size(), 0);
  EXPECT_EQ(Banc.Sons.DernierSon, -1);
}

TEST_F(Mains, NothingIsSelectedInAFieldThatThePointerComesTo) {
  auto* champ = Banc.Trouve<QLineEdit>("Text1");
  champ->setText(QStringLiteral("123456"));
  champ->end(false);
  Appuie(Dans("BoutonGris(0)"));
  Bouge(SurPage);
  Bouge(Dans("Text1", {2, 5}));
  Relache(Dans("Text1", {2, 5}));
  EXPECT_FALSE(champ->hasSelectedText());
}

TEST_F(Mains, PointerOutsideTheWindowIsNobodys) {
  Appuie(Dans("Bouton(3)"));
  Bouge(SurPage);
  Bouge({-50, -50});
  Relache({-50, -50});
  EXPECT_EQ(Deplacements.size(), 0);
  EXPECT_EQ(Banc.Sons.DernierSon, -1);
}

// The system holds the mouse meanwhile; as it lets it go the toolkit tells one more move with the button held.
TEST_F(Mains, WindowIsDraggedOnceForEachPressAndDoesNotStickToThePointer) {
  for (int tour = 1; tour <= 2; ++tour) {
    Appuie(SurPage);
    for (int x = 1; x <= 3; ++x) Bouge(SurPage + QPoint(x, 0));
    Bouge(Dans("LblDebugAlarm"));
    EXPECT_EQ(Deplacements.size(), tour);
    Relache(SurPage);
    Bouge(SurPage);
    EXPECT_EQ(Deplacements.size(), tour);
  }
  for (int tour = 3; tour <= 4; ++tour) {
    Appuie(Dans("Bouton(3)"));
    for (int x = 1; x <= 3; ++x) Bouge(SurPage + QPoint(x, 0));
    Bouge(Dans("LblDebugAlarm"));
    EXPECT_EQ(Deplacements.size(), tour) << "let go by a button";
    Relache(SurPage);
  }
}

// --- One memory of what was passed over last

TEST_F(Mains, WhatWasPassedOverLastIsRememberedOnceAlsoWhenAKeySwitchesTheCamera) {
  const DossiersProgramme dossiers{QStringLiteral("/opt/v"), QStringLiteral("/home/u/v")};
  FauxFichiers disque;
  disque.AjouteFichier(QStringLiteral("/opt/v\\snd\\4.wav"));
  faux::LecteurFaux lecteur;
  Sons sons(dossiers, disque, lecteur);
  Banc.Sons.Suite = &sons;
  Bouge(SurPage + QPoint(3, 3));  // not where a test before has left the pointer: that would be no move
  QTest::keyClick(Banc.Trouve("Bouton(0)"), Qt::Key_Space);
  EXPECT_EQ(lecteur.Joues.size(), 1) << "the camera's own number, 17";
  Bouge(Dans("Text1"));
  EXPECT_EQ(lecteur.Joues.size(), 1) << "the field has the same one";
  Bouge(SurPage);
  Bouge(Dans("Text1"));
  EXPECT_EQ(lecteur.Joues.size(), 2) << "the page has ended it";
  Banc.Sons.Suite = nullptr;
}

// --- Focus that is seen

TEST_F(Mains, FlagThatWasClickedHasItsOwnLine) {
  Banc.Fenetre.AmenePage(3);
  for (const char* nom : {"Image4(0)", "Image4(1)"}) {
    auto* drapeau = Banc.Trouve<DrapeauLangue>(nom);
    drapeau->Encadre(true);
    const QImage avant = drapeau->grab().toImage();
    drapeau->setFocus(Qt::TabFocusReason);
    EXPECT_NE(drapeau->grab().toImage(), avant) << "dotted for who has no mouse";
    QTest::mouseClick(drapeau, Qt::LeftButton);
    EXPECT_TRUE(drapeau->hasFocus());
    EXPECT_EQ(drapeau->grab().toImage(), avant) << nom;
  }
}

TEST_F(Mains, FocusThatCameByKeyIsShownAgainWhenTheWindowComesBack) {
  auto* bouton = Banc.Trouve<BoutonImage>("Bouton(4)");
  bouton->setFocus(Qt::TabFocusReason);
  const QImage avant = bouton->grab().toImage();
  QFocusEvent part(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QFocusEvent revient(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
  QCoreApplication::sendEvent(bouton, &part);
  QCoreApplication::sendEvent(bouton, &revient);
  EXPECT_EQ(bouton->grab().toImage(), avant);
  QTest::mouseClick(bouton, Qt::LeftButton);
  const QImage clique = bouton->grab().toImage();
  QCoreApplication::sendEvent(bouton, &part);
  QCoreApplication::sendEvent(bouton, &revient);
  EXPECT_EQ(bouton->grab().toImage(), clique) << "and that of a click is not";
}

// --- Boxes

struct CasBoite {
  const char* Boite;
  const char* Mots;
  bool Parametres::*Drapeau;
};

void PrintTo(const CasBoite& cas, std::ostream* flux) { *flux << cas.Boite; }

class BoitesTest : public Mains, public testing::WithParamInterface<CasBoite> {
 protected:
  BoitesTest() {
    Banc.RemplitMail();
    Boite()->setChecked(false);
    Banc.Reglages.*GetParam().Drapeau = false;
  }
  QCheckBox* Boite() { return Banc.Trouve<QCheckBox>(GetParam().Boite); }
  bool Drapeau() const { return Banc.Reglages.*GetParam().Drapeau; }
  QAccessibleInterface* Entendue() { return QAccessible::queryAccessibleInterface(Boite()); }
  void BasculeParLecteur() {
    Entendue()->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCoreApplication::processEvents();
  }
};

TEST_P(BoitesTest, ScreenReaderDoesAllThatAClickDoes) {
  EXPECT_EQ(Entendue()->role(), QAccessible::CheckBox);
  EXPECT_EQ(Entendue()->actionInterface()->actionNames().first(), QAccessibleActionInterface::toggleAction());
  for (const bool coche : {true, false}) {
    Banc.Sauvegarde.Sauvegardes = 0;
    BasculeParLecteur();
    EXPECT_EQ(Boite()->isChecked(), coche);
    EXPECT_EQ(Drapeau(), coche);
    EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
    EXPECT_TRUE(Entendue()->state().checkable);
    EXPECT_EQ(Entendue()->state().checked, coche);
  }
  Entendue()->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(Boite()->hasFocus());
}

TEST_P(BoitesTest, ReaderIsNotKeptWaiting) {
  Entendue()->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(Boite()->isChecked()) << "a message may stand in what the click does";
}

TEST_P(BoitesTest, WordsBesideItSwitchIt) {
  for (const bool coche : {true, false}) {
    Banc.Sauvegarde.Sauvegardes = 0;
    QTest::mouseClick(Banc.Fenetre.windowHandle(), Qt::LeftButton, {}, Dans(GetParam().Mots));
    EXPECT_EQ(Boite()->isChecked(), coche);
    EXPECT_EQ(Drapeau(), coche);
    EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
  }
  EXPECT_TRUE(Boite()->hasFocus());
}

TEST_P(BoitesTest, WordsAreSwitchedByAWholeLeftClickOnly) {
  QTest::mouseClick(Banc.Fenetre.windowHandle(), Qt::RightButton, {}, Dans(GetParam().Mots));
  EXPECT_FALSE(Drapeau());
  Appuie(Dans(GetParam().Mots));
  EXPECT_FALSE(Drapeau()) << "not before the release";
  Relache(SurPage);
  EXPECT_FALSE(Drapeau()) << "released beside them";
  // A press that a button let go.
  Appuie(Dans("BoutonGris(0)"));
  Bouge(SurPage);
  Bouge(Dans(GetParam().Mots));
  Relache(Dans(GetParam().Mots));
  EXPECT_FALSE(Drapeau());
}

TEST_P(BoitesTest, TwoQuickClicksOnTheWordsAreTwo) {
  QTest::mouseDClick(Banc.Fenetre.windowHandle(), Qt::LeftButton, {}, Dans(GetParam().Mots));
  EXPECT_FALSE(Drapeau());
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 2);
}

INSTANTIATE_TEST_SUITE_P(Mains, BoitesTest,
                         testing::Values(CasBoite{"CheckPPhot", "LabelCheckPhot", &Parametres::PhotoActif},
                                         CasBoite{"CheckSon", "LabelCheckSon", &Parametres::SonActif},
                                         CasBoite{"CheckMail", "LabelCheckMail", &Parametres::MailActif}),
                         [](const auto& cas) { return std::string(cas.param.Boite); });

TEST_F(Mains, WordsAndScreenReaderSwitchTheAutomaticToleranceToo) {
  Banc.Fenetre.AmenePage(3);
  auto* boite = Banc.Trouve<QCheckBox>("ChkSeuilAuto");
  boite->setChecked(false);
  QTest::mouseClick(Banc.Fenetre.windowHandle(), Qt::LeftButton, {}, Dans("LblSeuilAuto"));
  EXPECT_TRUE(Banc.Reglages.SeuilAuto);
  QAccessible::queryAccessibleInterface(boite)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  QCoreApplication::processEvents();
  EXPECT_FALSE(Banc.Reglages.SeuilAuto);
}

// --- Leaving a field for another window

class AutreFenetre : public Mains {
 protected:
  AutreFenetre() {
    Banc.Fenetre.AmenePage(0);
    Autre.show();
    Choisit(Banc.Fenetre);
    Banc.Trouve("TextSujet")->setFocus();
    EXPECT_TRUE(Banc.Trouve("TextSujet")->hasFocus());
    Banc.Sauvegarde.Sauvegardes = 0;
  }
  void Choisit(QWidget& fenetre) {
    fenetre.activateWindow();
    QCoreApplication::processEvents();
  }
  QWidget Autre;
};

TEST_F(AutreFenetre, AnotherWindowOfTheProgramIsALeaving) {
  Choisit(Autre);
  ASSERT_TRUE(Autre.isActiveWindow());
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
  Choisit(Banc.Fenetre);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
}

TEST_F(AutreFenetre, AnotherProgramIsNoneUntilAnotherWindowOfOursIsChosen) {
  QApplication::setActiveWindow(nullptr);
  ASSERT_FALSE(Banc.Trouve("TextSujet")->hasFocus());
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
  QApplication::setActiveWindow(&Banc.Fenetre);
  EXPECT_TRUE(Banc.Trouve("TextSujet")->hasFocus());
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0) << "the field has the focus again";
  QApplication::setActiveWindow(nullptr);
  Choisit(Autre);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
  Choisit(Banc.Fenetre);
  Choisit(Autre);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 2) << "once each time";
  Choisit(Banc.Fenetre);
  QApplication::setActiveWindow(nullptr);
  QApplication::setActiveWindow(&Banc.Fenetre);
  Choisit(Autre);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 3) << "also after a look at another program";
}

TEST_F(AutreFenetre, OpenedMenuOrListIsNone) {
  for (const Qt::FocusReason raison : {Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
    QFocusEvent part(QEvent::FocusOut, raison);
    QCoreApplication::sendEvent(Banc.Trouve("TextSujet"), &part);
    EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0) << raison;
  }
}

// A failure that comes out of no event ends the program.
TEST_F(AutreFenetre, SaveThatFailsThenIsToldByAnEventOfTheField) {
  QApplication::setActiveWindow(nullptr);
  Banc.Sauvegarde.Echoue = true;
  EXPECT_NO_THROW(Choisit(Autre));
  EXPECT_THROW(QCoreApplication::sendPostedEvents(Banc.Trouve("TextSujet"), QEvent::MetaCall), Echec);
}

TEST_F(AutreFenetre, MessageInFrontIsChosenByNobody) {
  QWidget message;
  message.setWindowModality(Qt::ApplicationModal);
  message.show();
  Choisit(message);
  ASSERT_TRUE(message.isActiveWindow());
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
}

// --- Covered pages

TEST_F(Mains, PageThatComesByItselfTakesTheKeysFromTheFieldItCovers) {
  Banc.Fenetre.AmenePage(0);
  auto* corps = Banc.Trouve<QPlainTextEdit>("TextTexte");
  corps->setPlainText(QString());
  corps->setFocus();
  QTest::keyClicks(Banc.Fenetre.focusWidget(), QStringLiteral("he"));
  Banc.Sauvegarde.Sauvegardes = 0;
  Banc.Fenetre.AmenePage(2);  // an error word of a companion
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1) << "the field was left";
  ASSERT_TRUE(Focus("PictPage(2)"));
  QTest::keyClicks(Banc.Fenetre.focusWidget(), QStringLiteral("llo"));
  EXPECT_EQ(corps->toPlainText(), QStringLiteral("he"));
  EXPECT_EQ(Banc.Trouve<QLineEdit>("TxtFtp")->text(), QStringLiteral("ftp.")) << "nor into a field that came up";
  QTest::keyClick(Banc.Fenetre.focusWidget(), Qt::Key_Tab);
  EXPECT_TRUE(Focus("TxtFtp"));
}

TEST_F(Mains, FocusInTheBandStaysWhereItIs) {
  Banc.Trouve("Bouton(5)")->setFocus();
  Banc.Fenetre.AmenePage(0);
  EXPECT_TRUE(Focus("Bouton(5)"));
  Banc.Trouve("TextSujet")->setFocus();
  Banc.Fenetre.AmenePage(0);
  EXPECT_TRUE(Focus("TextSujet")) << "its page is in front already";
}

TEST_F(Mains, PageWithoutAControlThatHasTheFocusHandsItOnToo) {
  Banc.Trouve("Text1")->setFocus();
  Banc.Fenetre.AmenePage(2);
  Banc.Fenetre.AmenePage(3);
  EXPECT_TRUE(Focus("PictPage(3)"));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(Banc.Trouve("PictPage(3)"))->text(QAccessible::Name),
            QStringLiteral("Options"))
      << "called by its tab";
}

TEST_F(Mains, PromptForTheAddressHasTheFocusAndTheFirstKeyIsTyped) {
  Banc.RemplitMail();
  Banc.Trouve<QLineEdit>("TextEMail")->clear();
  QTest::mouseClick(Banc.Fenetre.windowHandle(), Qt::LeftButton, {}, Dans("CheckMail"));
  ASSERT_TRUE(Focus("TextEMail"));
  EXPECT_EQ(Banc.Trouve<QLineEdit>("TextEMail")->text(), QStringLiteral("Destination eMail"));
  EXPECT_TRUE(EstRouge(*Banc.Trouve<QLineEdit>("TextEMail")));
  QTest::keyClicks(Banc.Fenetre.focusWidget(), QStringLiteral("a@b"));
  EXPECT_EQ(Banc.Reglages.MailDestination, QStringLiteral("a@b"));
}

TEST_F(Mains, SaveThatFailsAtAChoiceOfPageIsToldAndThePageComesAllTheSame) {
  for (const auto& [nom, page] : {std::pair("Bouton(4)", 3), {"Bouton(5)", 0}, {"Bouton(6)", 2}, {"Bouton(3)", 1}}) {
    Banc.Reglages.ParametresModifies = true;
    Banc.Sauvegarde.Echoue = true;
    auto* bouton = Banc.Trouve<QAbstractButton>(nom);
    EXPECT_THROW(bouton->click(), Echec) << "to whoever tells failures";
    EXPECT_EQ(Banc.Fenetre.PageDevant(), page) << nom;
    EXPECT_TRUE(Banc.Reglages.ParametresModifies);
  }
}

// --- Buttons that are off

class Inactif : public Mains {
 protected:
  QString Dit(const char* nom) {
    return QAccessible::queryAccessibleInterface(Banc.Trouve(nom))->text(QAccessible::Description);
  }
  Qt::CursorShape Curseur() const { return Banc.Fenetre.cursor().shape(); }
};

TEST_F(Inactif, ReasonStandsBehindTheGivenTipWhileTheyAre) {
  auto* alarme = Banc.Trouve("Bouton(1)");
  auto* live = Banc.Trouve("Bouton(2)");
  for (const int langue : {0, 1}) {
    Banc.Clique(langue == 0 ? "Image4(0)" : "Image4(1)");
    const QString donnee = Banc.Textes.Dit(Aide::kAlarme);
    const QString raison =
        QString::fromUtf8(langue == 0 ? "Indisponible tant que la caméra ne tourne pas : cliquez sur [Caméra on]."
                                      : "Not available until the camera runs: click on [Camera on].");
    EXPECT_EQ(alarme->toolTip(), donnee);
    EXPECT_EQ(live->toolTip(), QString());
    Banc.Vue.ActiveBouton(1, false);
    Banc.Vue.ActiveBouton(2, false);
    EXPECT_EQ(alarme->toolTip(), donnee + u'\n' + raison);
    EXPECT_EQ(live->toolTip(), raison) << "no tip is given for it";
    EXPECT_EQ(Dit("Bouton(1)"), alarme->toolTip());
    EXPECT_EQ(Dit("Bouton(2)"), raison);
    Banc.Vue.ActiveBouton(1, true);
    Banc.Vue.ActiveBouton(2, true);
    EXPECT_EQ(alarme->toolTip(), donnee);
    EXPECT_EQ(live->toolTip(), QString());
  }
}

TEST_F(Inactif, ReasonChangesItsLanguageWhileTheyAre) {
  Banc.Vue.ActiveBouton(2, false);
  Banc.Clique("Image4(0)");
  EXPECT_TRUE(Banc.Trouve("Bouton(2)")->toolTip().startsWith(QStringLiteral("Indisponible")));
}

TEST_F(Inactif, CameraThatIsNotThereLeavesTheLiveButtonOffWithItsReason) {
  Banc.Pilote.Presente = false;
  Banc.Clique("Bouton(1)");
  EXPECT_FALSE(Banc.Trouve("Bouton(2)")->isEnabled());
  EXPECT_TRUE(Dit("Bouton(2)").startsWith(QStringLiteral("Not available")));
  Banc.Pilote.Presente = true;
  Banc.Clique("Bouton(0)");
  EXPECT_EQ(Dit("Bouton(2)"), QString());
}

TEST_F(Inactif, CursorSaysNoOverThem) {
  Banc.Vue.ActiveBouton(2, false);
  Bouge(SurPage);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor);
  Bouge(Dans("Bouton(2)"));
  EXPECT_EQ(Curseur(), Qt::ForbiddenCursor);
  Bouge(Dans("Bouton(1)"));
  EXPECT_EQ(Curseur(), Qt::ArrowCursor);
  Bouge(Dans("Bouton(2)"));
  Banc.Vue.ActiveBouton(2, true);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor) << "on again under the pointer";
  Banc.Vue.ActiveBouton(2, false);
  EXPECT_EQ(Curseur(), Qt::ForbiddenCursor) << "and off again";
  Bouge(SurPage);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor);
  Banc.Vue.ActiveBouton(1, false);
  EXPECT_EQ(Curseur(), Qt::ArrowCursor) << "the pointer is elsewhere";
}

// --- The mark on the chosen tab

double Clarte(QRgb couleur) {
  const auto lineaire = [](int canal) {
    const double c = canal / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * lineaire(qRed(couleur)) + 0.7152 * lineaire(qGreen(couleur)) + 0.0722 * lineaire(qBlue(couleur));
}

double Contraste(QRgb a, QRgb b) {
  const double clair = std::max(Clarte(a), Clarte(b));
  return (clair + 0.05) / (std::min(Clarte(a), Clarte(b)) + 0.05);
}

class Marque : public Mains {
 protected:
  QRect Onglet(int i) { return Banc.Trouve(qPrintable(QStringLiteral("Bouton(%1)").arg(i)))->geometry(); }
  QImage Photo() { return Banc.Fenetre.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

TEST_F(Marque, StandsAroundTheChosenTabAloneAndLeavesEveryFaceAlone) {
  const std::pair<int, int> onglets[] = {{3, 1}, {4, 3}, {5, 0}, {6, 2}};
  Banc.Fenetre.AmenePage(1);
  QImage avant = Photo();
  int devant = 3;
  for (const auto& [onglet, page] : onglets) {
    Banc.Fenetre.AmenePage(page);
    const QImage apres = Photo();
    if (onglet != devant) {
      for (int y = 0; y < PageVaktor::kPlace.top(); ++y) {
        for (int x = 0; x < apres.width(); ++x) {
          const bool permis = PlaceMarque(Onglet(onglet)).contains(x, y) || PlaceMarque(Onglet(devant)).contains(x, y);
          ASSERT_TRUE(permis || apres.pixel(x, y) == avant.pixel(x, y)) << x << "," << y;
        }
      }
      EXPECT_NE(apres.copy(PlaceMarque(Onglet(onglet))), avant.copy(PlaceMarque(Onglet(onglet))));
      EXPECT_EQ(apres.copy(Onglet(onglet)), avant.copy(Onglet(onglet))) << "its face is as it is given";
    }
    avant = apres;
    devant = onglet;
  }
}

// What is painted anew of a window.
class Peintures : public QObject {
 public:
  explicit Peintures(QWidget& fenetre) { fenetre.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* evenement) override {
    if (evenement->type() == QEvent::Paint) Peint += static_cast<QPaintEvent*>(evenement)->region();
    return false;
  }
  QRegion Peint;
};

TEST_F(Marque, GoesFromTabToTabOnTheScreen) {
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&Banc.Fenetre));
  QCoreApplication::processEvents();
  Peintures peintures(Banc.Fenetre);
  Banc.Fenetre.AmenePage(0);
  QCoreApplication::processEvents();
  for (const int onglet : {3, 5}) {
    const QRect coiffe = PlaceMarque(Onglet(onglet)).adjusted(0, 0, 0, -Onglet(onglet).height() - 1);
    EXPECT_TRUE((QRegion(coiffe) - peintures.Peint).isEmpty()) << onglet;
  }
}

TEST_F(Marque, IsSeenOnEverySkin) {
  for (int skin = 0; skin < 3; ++skin) {
    Banc.Fenetre.Options().CombSkin->setCurrentIndex(skin);
    Banc.Fenetre.AmenePage(3);
    const QImage image = Photo();
    const QRect onglet = Onglet(4);
    const QRect autre = Onglet(6);
    // The middle of the cap, and the same place above a tab that is not chosen.
    EXPECT_GE(
        Contraste(image.pixel(onglet.center().x(), onglet.top() - 1), image.pixel(autre.center().x(), autre.top() - 1)),
        3.0)
        << skin;
    EXPECT_NE(image.pixel(onglet.center().x(), onglet.bottom() + 1),
              image.pixel(autre.center().x(), autre.bottom() + 1));
  }
}

TEST_F(Marque, TouchesNoGivenControl) {
  for (int i = 3; i <= 6; ++i) {
    for (const char* nom : {"PictSeuil", "LblDebugftp", "SigneSante", "PictPage(1)"}) {
      EXPECT_FALSE(PlaceMarque(Onglet(i)).intersects(Banc.Trouve(nom)->geometry())) << nom;
    }
    for (int autre = 0; autre <= 6; ++autre) {
      EXPECT_TRUE(autre == i || !PlaceMarque(Onglet(i)).intersects(Onglet(autre))) << autre;
    }
  }
}

}  // namespace
}  // namespace vaktor
