// SPDX-License-Identifier: GPL-3.0-or-later
// The gauge, the small view and the pages for those who have no mouse or do not see them.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>

#include "engine/sensitivity_gauge.h"
#include "ui/common/heard_roles.h"
#include "ui/window_bench.h"

// What a screen reader is told, in order. The offscreen platform has no reader, and Qt drops what one would be told
// before any handler could see it: so the test stands in the place of the functions through which all of it goes.
static QStringList& Annonces() {
  static QStringList liste;
  return liste;
}
bool QAccessible::isActive() { return true; }
void QAccessible::updateAccessibility(QAccessibleEvent* evenement) {
  if (evenement->object() == nullptr) return;
  const QString nom = evenement->object()->objectName();
  if (evenement->type() == QAccessible::ValueChanged) Annonces() += QStringLiteral("value ") + nom;
  if (evenement->type() == QAccessible::DescriptionChanged) Annonces() += QStringLiteral("words ") + nom;
  if (evenement->type() == QAccessible::ObjectShow) Annonces() += QStringLiteral("show ") + nom;
  if (evenement->type() == QAccessible::ObjectHide) Annonces() += QStringLiteral("hide ") + nom;
}

namespace vaktor {
namespace {

using faux::BancFenetre;

constexpr double kParPixel = 7000000.0 / 360.0;

class AuClavier : public testing::Test {
 protected:
  AuClavier() {
    Banc.Fenetre.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Banc.Fenetre));
  }
  QAccessibleInterface* Lit(const char* nom) { return QAccessible::queryAccessibleInterface(Banc.Trouve(nom)); }
  QMenu* Menu() { return Banc.Fenetre.findChild<QMenu*>(QStringLiteral("MnuDisplay")); }
  void Touche(const char* nom, Qt::Key touche, Qt::KeyboardModifiers avec = {}) {
    QTest::keyClick(Banc.Trouve(nom), touche, avec);
  }
  qint32 Seuil() const { return Banc.Reglages.SeuilDetection; }

  BancFenetre Banc;
};

// --- The gauge

TEST_F(AuClavier, ArrowsAndPagesMoveTheGaugeByPixelsAndMarkItChanged) {
  Banc.Engin.Jauge().DessineSeuil(3500000);
  Banc.Reglages.ParametresModifies = false;
  Touche("PictSeuil", Qt::Key_Right);
  EXPECT_EQ(Seuil(), qRound(3500000 + kParPixel));
  EXPECT_TRUE(Banc.Reglages.ParametresModifies);
  Touche("PictSeuil", Qt::Key_Up);
  EXPECT_NEAR(Seuil(), 3500000 + 2 * kParPixel, 2);
  for (const Qt::Key touche : {Qt::Key_Left, Qt::Key_Down}) Touche("PictSeuil", touche);
  EXPECT_NEAR(Seuil(), 3500000, 2);
  Touche("PictSeuil", Qt::Key_PageUp);
  EXPECT_NEAR(Seuil(), 3500000 + 10 * kParPixel, 2);
  Touche("PictSeuil", Qt::Key_PageDown);
  EXPECT_NEAR(Seuil(), 3500000, 2);
}

TEST_F(AuClavier, HomeAndEndAreTheEndsOfTheGaugeAndNothingGoesBeyond) {
  Touche("PictSeuil", Qt::Key_End);
  EXPECT_EQ(Seuil(), 7000000);
  Touche("PictSeuil", Qt::Key_Right);
  EXPECT_EQ(Banc.Fenetre.Bandeau().PictSeuil->Valeur(), 7000000) << "nor is it drawn there";
  Touche("PictSeuil", Qt::Key_Home);
  EXPECT_EQ(Seuil(), 1);
  Touche("PictSeuil", Qt::Key_Left);
  EXPECT_EQ(Seuil(), 1);
  // The mouse may have drawn the marker beyond the end.
  Banc.Engin.Jauge().SuitSouris(9000000, true);
  Touche("PictSeuil", Qt::Key_Left);
  EXPECT_EQ(Seuil(), qRound(7000000 - kParPixel));
}

TEST_F(AuClavier, EnterAndSpaceLetTheGaugeSearchAgainAndMoveNothing) {
  Banc.Engin.Jauge().DessineSeuil(1234);
  for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    Banc.Temps.Trouve(QStringLiteral("TimerSeuil"))->Desactive();
    Touche("PictSeuil", touche);
    EXPECT_TRUE(Banc.Temps.Trouve(QStringLiteral("TimerSeuil"))->EstActive()) << touche;
  }
  EXPECT_EQ(Seuil(), 1234);
}

TEST_F(AuClavier, AHeldKeyIsOneAndAKeyThatIsNotTheirsGoesOn) {
  const auto envoie = [this](const char* nom, Qt::Key touche, bool tenue) {
    QKeyEvent appui(QEvent::KeyPress, touche, Qt::NoModifier, {}, tenue);
    QCoreApplication::sendEvent(Banc.Trouve(nom), &appui);
    return appui.isAccepted();
  };
  Banc.Temps.Trouve(QStringLiteral("TimerSeuil"))->Desactive();
  envoie("PictSeuil", Qt::Key_Return, true);
  EXPECT_FALSE(Banc.Temps.Trouve(QStringLiteral("TimerSeuil"))->EstActive());
  envoie("Picture2", Qt::Key_Return, true);
  EXPECT_FALSE(Menu()->isVisible());
  EXPECT_FALSE(envoie("PictSeuil", Qt::Key_A, false));
  EXPECT_FALSE(envoie("Picture2", Qt::Key_A, false));
  EXPECT_TRUE(envoie("PictSeuil", Qt::Key_Left, true)) << "a held arrow goes on";
}

TEST_F(AuClavier, MouseOnTheGaugeLeavesTheFocusInTheField) {
  Banc.Trouve("Text1")->setFocus();
  QTest::mouseClick(Banc.Trouve("PictSeuil"), Qt::LeftButton, {}, QPoint(90, 3));
  EXPECT_EQ(Banc.Fenetre.focusWidget(), Banc.Trouve("Text1"));
}

TEST_F(AuClavier, GaugeIsHeardAsASliderOfItsOwnScale) {
  Banc.Engin.Jauge().DessineSeuil(3500000);
  QAccessibleInterface* jauge = Lit("PictSeuil");
  EXPECT_EQ(jauge->role(), QAccessible::Slider);
  EXPECT_EQ(jauge->text(QAccessible::Name), Banc.Textes.Dit(Libelle::kSensibilite));
  EXPECT_TRUE(jauge->text(QAccessible::Description).startsWith(QStringLiteral("Arrows set it")));
  QAccessibleValueInterface* valeur = jauge->valueInterface();
  ASSERT_NE(valeur, nullptr);
  EXPECT_EQ(valeur->currentValue().toInt(), 3500000);
  EXPECT_EQ(valeur->minimumValue().toInt(), 1);
  EXPECT_EQ(valeur->maximumValue().toInt(), 7000000);
  EXPECT_NEAR(valeur->minimumStepSize().toDouble(), kParPixel, 1);
  valeur->setCurrentValue(1750000);
  EXPECT_EQ(Seuil(), 1750000);
}

// --- The small view

TEST_F(AuClavier, KeysOpenTheMenuOfTheSmallViewWithItsFirstEntryChosen) {
  const std::pair<Qt::Key, Qt::KeyboardModifiers> touches[] = {{Qt::Key_F10, Qt::ShiftModifier},
                                                               {Qt::Key_Return, Qt::NoModifier},
                                                               {Qt::Key_Enter, Qt::NoModifier},
                                                               {Qt::Key_Space, Qt::NoModifier}};
  for (const auto& [touche, avec] : touches) {
    Touche("Picture2", touche, avec);
    ASSERT_TRUE(Menu()->isVisible()) << touche;
    EXPECT_EQ(Menu()->title(), QStringLiteral("Full screen"));
    EXPECT_EQ(Menu()->activeAction(), Menu()->actions().first());
    Menu()->close();
  }
  Touche("Picture2", Qt::Key_F10);
  EXPECT_FALSE(Menu()->isVisible()) << "that one is the desktop's";
  QTest::keyClick(Banc.Trouve("Picture2"), Qt::Key_Space);
  QTest::keyClick(Menu(), Qt::Key_Return);
  EXPECT_FALSE(Banc.Engin.Detection().ModeZoom);
}

TEST_F(AuClavier, MenuKeyOpensItTooAndTheMousesWishDoesNotOpenItTwice) {
  QContextMenuEvent souris(QContextMenuEvent::Mouse, {5, 5}, Banc.Trouve("Picture2")->mapToGlobal(QPoint(5, 5)));
  QCoreApplication::sendEvent(Banc.Trouve("Picture2"), &souris);
  EXPECT_FALSE(Menu()->isVisible());
  QContextMenuEvent touche(QContextMenuEvent::Keyboard, {5, 5}, Banc.Trouve("Picture2")->mapToGlobal(QPoint(5, 5)));
  QCoreApplication::sendEvent(Banc.Trouve("Picture2"), &touche);
  EXPECT_TRUE(Menu()->isVisible());
  Menu()->close();
}

TEST_F(AuClavier, ScreenReaderOpensTheMenuOfTheSmallViewAndHearsItsMode) {
  QAccessibleInterface* vue = Lit("Picture2");
  EXPECT_EQ(vue->role(), QAccessible::Graphic);
  EXPECT_EQ(vue->text(QAccessible::Name), QStringLiteral("Small view"));
  EXPECT_EQ(vue->text(QAccessible::Description), QStringLiteral("Zoom"));
  Banc.Fenetre.findChild<QAction*>(QStringLiteral("MnuPixelView"))->trigger();
  EXPECT_EQ(vue->text(QAccessible::Description), QStringLiteral("Pixel"));
  vue->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_FALSE(Menu()->isVisible()) << "the reader is not kept waiting";
  QCoreApplication::processEvents();
  EXPECT_TRUE(Menu()->isVisible());
  Menu()->close();
  Banc.Clique("Image4(0)");
  EXPECT_EQ(vue->text(QAccessible::Name), QString::fromUtf8("Vue réduite"));
}

TEST_F(AuClavier, TabComesToGaugeAndSmallViewAndAReaderFindsTheMenuOfTheView) {
  QStringList noms;
  Banc.Trouve("Text1")->setFocus();
  for (int i = 0; i < 40; ++i) {
    QTest::keyClick(Banc.Fenetre.focusWidget(), Qt::Key_Tab);
    noms += Banc.Fenetre.focusWidget()->objectName();
  }
  EXPECT_TRUE(noms.contains(QStringLiteral("PictSeuil"))) << noms.join(' ').toStdString();
  EXPECT_TRUE(noms.contains(QStringLiteral("Picture2"))) << noms.join(' ').toStdString();
  EXPECT_TRUE(Lit("Picture2")->actionInterface()->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
}

TEST_F(AuClavier, MenuOfTheSmallViewOpensOverItAndTheMouseLeavesTheFocusWhereItIs) {
  Touche("Picture2", Qt::Key_Space);
  const QWidget& vue = *Banc.Trouve("Picture2");
  EXPECT_TRUE(QRect(vue.mapToGlobal(QPoint(0, 0)), vue.size()).contains(Menu()->pos()));
  Menu()->close();
  Banc.Trouve("Text1")->setFocus();
  QTest::mouseClick(Banc.Trouve("Picture2"), Qt::LeftButton);
  EXPECT_EQ(Banc.Fenetre.focusWidget(), Banc.Trouve("Text1"));
}

TEST_F(AuClavier, FocusOnGaugeAndSmallViewIsSeen) {
  for (const char* nom : {"PictSeuil", "Picture2"}) {
    const QImage sans = Banc.Trouve(nom)->grab().toImage();
    Banc.Trouve(nom)->setFocus(Qt::TabFocusReason);
    EXPECT_NE(Banc.Trouve(nom)->grab().toImage(), sans) << nom;
    Banc.Trouve(nom)->clearFocus();
    EXPECT_EQ(Banc.Trouve(nom)->grab().toImage(), sans) << nom;
  }
}

// --- What is heard of the pages and of what draws itself

TEST_F(AuClavier, OnlyThePageInFrontIsHeard) {
  for (const int devant : {1, 3, 0, 2}) {
    Banc.Fenetre.AmenePage(devant);
    for (int page = 0; page < 4; ++page) {
      const QByteArray nom = QStringLiteral("PictPage(%1)").arg(page).toLatin1();
      QAccessibleInterface* lue = Lit(nom.constData());
      EXPECT_EQ(lue->role(), QAccessible::Grouping);
      EXPECT_EQ(lue->childCount() > 0, page == devant) << devant << " " << page;
      EXPECT_EQ(lue->child(0) != nullptr, page == devant) << devant << " " << page;
      EXPECT_EQ(lue->state().invisible, page != devant) << devant << " " << page;
    }
  }
}

TEST_F(AuClavier, ReaderIsToldWhenTheMarkerMovesTheModeChangesAndAnotherPageComes) {
  Banc.Engin.Jauge().DessineSeuil(3500000);
  Annonces().clear();
  Banc.Engin.Jauge().DessineSeuil(3500001);
  EXPECT_FALSE(Annonces().contains(QStringLiteral("value PictSeuil"))) << "a thousand times a second is too often";
  Banc.Engin.Jauge().DessineSeuil(3600000);
  EXPECT_EQ(Annonces().count(QStringLiteral("value PictSeuil")), 1);
  Annonces().clear();
  Banc.Fenetre.findChild<QAction*>(QStringLiteral("MnuPixelView"))->trigger();
  EXPECT_TRUE(Annonces().contains(QStringLiteral("words Picture2")));
  Annonces().clear();
  Banc.Reglages.LangueCourante = 1 - Banc.Reglages.LangueCourante;
  Banc.Chargeur.ChargeTextes();
  EXPECT_TRUE(Annonces().contains(QStringLiteral("words Picture2"))) << "the mode is called by another word";
  Banc.Fenetre.AmenePage(1);
  Annonces().clear();
  Banc.Fenetre.AmenePage(3);
  EXPECT_TRUE(Annonces().contains(QStringLiteral("show PictPage(3)")));
  EXPECT_TRUE(Annonces().contains(QStringLiteral("hide PictPage(1)")));
}

TEST_F(AuClavier, LampsArePicturesAndListsAreCalledByLabels) {
  EXPECT_EQ(Lit("ImageLedAlarme")->role(), QAccessible::Graphic);
  for (const char* nom : {"CombSkin", "CombQualit", "CombCouleur"}) {
    const auto liens = Lit(nom)->relations(QAccessible::Label);
    ASSERT_EQ(liens.size(), 1) << nom;
    EXPECT_EQ(liens.first().first->text(QAccessible::Name), Banc.Trouve(nom)->accessibleName()) << nom;
  }
  EXPECT_FALSE(Banc.Trouve("NomDeCombSkin")->isVisible()) << "and nothing more is seen";
}

TEST_F(AuClavier, LabelOfAListIsOneAndFollowsItsName) {
  QWidget parent;
  QComboBox liste(&parent);
  liste.setObjectName(QStringLiteral("L"));
  NommeListe(liste, QStringLiteral("one"));
  NommeListe(liste, QStringLiteral("two"));
  const QList<QLabel*> etiquettes = parent.findChildren<QLabel*>();
  ASSERT_EQ(etiquettes.size(), 1);
  EXPECT_EQ(etiquettes.first()->text(), QStringLiteral("two"));
  EXPECT_EQ(etiquettes.first()->buddy(), &liste);
  EXPECT_TRUE(etiquettes.first()->isHidden());
}

TEST_F(AuClavier, AWindowIsHeardAsAWindowAndAFillerIsNone) {
  QWidget fenetre;
  QWidget remplissage(&fenetre);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&fenetre)->role(), QAccessible::Window);
  EXPECT_NE(QAccessible::queryAccessibleInterface(&remplissage)->role(), QAccessible::Window);
}

}  // namespace
}  // namespace vaktor
