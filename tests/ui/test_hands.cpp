// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse that a button lets go, what was passed over last, and a focus that is seen.
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

}  // namespace
}  // namespace vaktor
