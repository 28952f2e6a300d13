// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes, by their words and by a screen reader; leaving a field for another window.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QApplication>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QWindow>
#include <cmath>

#include "base/failure.h"
#include "ui/controls/tab_mark.h"
#include "ui/fields/field_events.h"
#include "ui/hands_bench.h"
#include "ui/sound/sounds.h"

namespace vaktor {
namespace {

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

TEST_P(BoitesTest, KeyThatTicksNothingSavesNothing) {
  for (const Qt::Key touche : {Qt::Key_A, Qt::Key_Return, Qt::Key_Shift}) QTest::keyClick(Boite(), touche);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
  QTest::keyClick(Boite(), Qt::Key_Space);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
  EXPECT_TRUE(Drapeau());
}

TEST_P(BoitesTest, WordsOfABoxThatIsOffDoNothing) {
  Banc.Trouve("Text1")->setFocus();
  Boite()->setEnabled(false);
  QTest::mouseClick(Banc.Fenetre.windowHandle(), Qt::LeftButton, {}, Dans(GetParam().Mots));
  EXPECT_FALSE(Boite()->isChecked());
  EXPECT_FALSE(Drapeau());
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
  EXPECT_TRUE(Focus("Text1"));
}

INSTANTIATE_TEST_SUITE_P(Mains, BoitesTest,
                         testing::Values(CasBoite{"CheckPPhot", "LabelCheckPhot", &Parametres::PhotoActif},
                                         CasBoite{"CheckSon", "LabelCheckSon", &Parametres::SonActif},
                                         CasBoite{"CheckMail", "LabelCheckMail", &Parametres::MailActif}),
                         [](const auto& cas) { return std::string(cas.param.Boite); });

// "Leave the mail fields empty, and Send eMail means the push alone."
TEST_F(Mains, WhoWantsPushesAloneIsAskedForNoAddress) {
  Banc.Reglages.PushAdresse = QStringLiteral("https://push.example.org/x");
  Banc.Clique("CheckMail");
  EXPECT_TRUE(Banc.Reglages.MailActif);
  EXPECT_TRUE(Banc.Boites.Textes.isEmpty());
  Banc.Clique("CheckMail");
  EXPECT_FALSE(Banc.Reglages.MailActif);
  Banc.Trouve<QLineEdit>("TextEMail")->setText(QStringLiteral("a"));
  Banc.Clique("CheckMail");
  EXPECT_FALSE(Banc.Reglages.MailActif);
  EXPECT_EQ(Banc.Boites.Textes.size(), 1) << "a mail that was begun";
}

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

}  // namespace
}  // namespace vaktor
