// SPDX-License-Identifier: GPL-3.0-or-later
// FormMonitor: the zone under the mouse, the fit of the window, closing and coming back.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <functional>

#include "fakes/surveillance_bench.h"
#include "image/forms/form_monitor.h"
#include "image/forms/webcam_pecran.h"
#include "image/monitor_words.h"

// What a screen reader is told. The offscreen platform has none, and Qt drops what one would be told before any handler
// could see it: so the test stands in the place of the function through which all of it goes.
static int& Annonces() {
  static int nombre = 0;
  return nombre;
}
void QAccessible::updateAccessibility(QAccessibleEvent* evenement) {
  const bool image = evenement->object() != nullptr && evenement->object()->objectName() == QLatin1String("Picture1");
  if (image && evenement->type() == QAccessible::DescriptionChanged) ++Annonces();
}

namespace vaktor {
namespace {

QImage Unie(int largeur, int hauteur, QRgb couleur = qRgb(10, 20, 30)) {
  QImage image(largeur, hauteur, QImage::Format_RGB32);
  image.fill(couleur);
  return image;
}

class Moniteur : public testing::Test {
 protected:
  Moniteur() {
    Picture1 = Forme.findChild<VueCadre*>(QStringLiteral("Picture1"));
    Barre = Forme.findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
    Menu = Forme.findChild<QMenu*>(QStringLiteral("MnuScreen"));
    Forme.show();
  }

  void Pose(const QImage& image) {
    Banc.Pilote.Image = image;
    if (!Banc.Engin.Camera().CameraActive) Banc.Engin.BasculeCamera();
    Banc.Temps.Declenche(QStringLiteral("Timer1"));
  }
  void Glisse(QPoint depart, QPoint arrivee) {
    QTest::mousePress(Picture1, Qt::LeftButton, {}, depart);
    QTest::mouseMove(Picture1, arrivee);
    QTest::mouseRelease(Picture1, Qt::LeftButton, {}, arrivee);
  }
  void AttendZone(qint32 gauche, qint32 haut, qint32 droite, qint32 bas) {
    const ZoneDetection& zone = Banc.Engin.Detection().Zone;
    EXPECT_EQ(zone.Gauche, gauche);
    EXPECT_EQ(zone.Haut, haut);
    EXPECT_EQ(zone.Droite, droite);
    EXPECT_EQ(zone.Bas, bas);
  }

  faux::BancSurveillance Banc;
  EtatApplication Etat;
  FormMonitor Forme{Banc.Engin, Etat, Banc.Reglages, Banc.Sauvegarde};
  VueCadre* Picture1;
  QProgressBar* Barre;
  QMenu* Menu;
};

TEST_F(Moniteur, StartsAtItsDesignSizeWithTheBarOverTheLastRows) {
  EXPECT_EQ(Forme.objectName(), QStringLiteral("FormMonitor"));
  EXPECT_EQ(Picture1->geometry(), QRect(0, 0, 287, 241));
  EXPECT_EQ(Forme.size(), QSize(287, 241));
  EXPECT_EQ(Barre->y(), 239);
  EXPECT_EQ(Barre->width(), 287);
  EXPECT_EQ(Barre->maximum(), 900);
}

// A desktop hides the tool windows of a program that is not the active one.
TEST_F(Moniteur, IsNoToolWindow) { EXPECT_EQ(Forme.windowType(), Qt::Dialog); }

TEST_F(Moniteur, DragFromAnyCornerGivesASortedZone) {
  Pose(Unie(200, 150));
  Glisse({100, 50}, {20, 10});
  AttendZone(20, 10, 100, 50);
}

TEST_F(Moniteur, UnfinishedDragIsTheZoneOfTheMoment) {
  Pose(Unie(200, 150));
  QTest::mousePress(Picture1, Qt::LeftButton, {}, QPoint(100, 50));
  AttendZone(100, 50, 100, 50);
  QTest::mouseMove(Picture1, QPoint(20, 10));
  AttendZone(100, 50, 20, 10);
}

TEST_F(Moniteur, MoveOfTheDragIsDrawnAtOnceAndWipedByTheNextFrame) {
  Pose(Unie(200, 150));
  QTest::mousePress(Picture1, Qt::LeftButton, {}, QPoint(20, 10));
  QTest::mouseMove(Picture1, QPoint(100, 50));
  EXPECT_EQ(Picture1->grab().toImage().pixel(60, 10), qRgb(192, 192, 255));
  QTest::mouseRelease(Picture1, Qt::LeftButton, {}, QPoint(120, 90));
  Pose(Unie(200, 150));
  EXPECT_EQ(Picture1->grab().toImage().pixel(99, 30), qRgb(10, 20, 30)) << "the outline of the drag has gone";
  EXPECT_EQ(Picture1->grab().toImage().pixel(119, 30), qRgb(192, 192, 255)) << "the zone is drawn on each frame";
  EXPECT_EQ(Banc.Engin.Surface().Image().pixel(119, 30), qRgb(10, 20, 30)) << "and never into the picture";
}

TEST_F(Moniteur, SimpleClickResetsTheZoneToTheWholePictureFromZero) {
  Pose(Unie(200, 150));
  Glisse({100, 50}, {20, 10});
  Glisse({70, 40}, {70, 40});
  AttendZone(0, 0, 200, 150);
}

TEST_F(Moniteur, DragThatEndsWhereXEqualsYResetsTheZoneToo) {
  Pose(Unie(200, 150));
  Glisse({30, 40}, {60, 60});
  AttendZone(0, 0, 200, 150);
}

TEST_F(Moniteur, DragMayLeaveThePicture) {
  Pose(Unie(200, 150));
  Glisse({100, 50}, {250, -10});
  AttendZone(100, -10, 250, 50);
}

TEST_F(Moniteur, RightButtonOpensTheMenuAndLeavesTheZone) {
  Pose(Unie(200, 150));
  Glisse({100, 50}, {20, 10});
  Forme.ChangeLibellePleinEcran(QStringLiteral("Plein écran"));
  QTest::mousePress(Picture1, Qt::RightButton, {}, QPoint(40, 30));
  EXPECT_TRUE(Menu->isVisible());
  EXPECT_EQ(Menu->pos(), Picture1->mapToGlobal(QPoint(40, 30)));
  EXPECT_EQ(Menu->actions().first()->text(), QStringLiteral("Plein écran"));
  Menu->close();
  QTest::mouseRelease(Picture1, Qt::RightButton, {}, QPoint(40, 30));
  AttendZone(20, 10, 100, 50);
}

// --- The keys

TEST_F(Moniteur, ArrowsMoveTheZoneShiftSizesItCtrlGoesByPixelsAndHomeResetsIt) {
  Pose(Unie(200, 150));
  Glisse({100, 50}, {20, 10});
  QTest::keyClick(Picture1, Qt::Key_Right);
  AttendZone(28, 10, 108, 50);
  QTest::keyClick(Picture1, Qt::Key_Down);
  AttendZone(28, 18, 108, 58);
  QTest::keyClick(Picture1, Qt::Key_Left);
  QTest::keyClick(Picture1, Qt::Key_Up);
  AttendZone(20, 10, 100, 50);
  QTest::keyClick(Picture1, Qt::Key_Right, Qt::ShiftModifier);
  QTest::keyClick(Picture1, Qt::Key_Up, Qt::ShiftModifier);
  AttendZone(20, 10, 108, 42);
  QTest::keyClick(Picture1, Qt::Key_Right, Qt::ControlModifier);
  AttendZone(21, 10, 109, 42);
  QTest::keyClick(Picture1, Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
  AttendZone(21, 10, 109, 43);
  QTest::keyClick(Picture1, Qt::Key_Home);
  AttendZone(0, 0, 200, 150);
}

TEST_F(Moniteur, KeysWaitWhileTheMouseDraws) {
  Pose(Unie(200, 150));
  QTest::mousePress(Picture1, Qt::LeftButton, {}, QPoint(20, 10));
  QTest::keyClick(Picture1, Qt::Key_Right);
  QTest::keyClick(Picture1, Qt::Key_Home);
  AttendZone(20, 10, 20, 10);
  QTest::mouseRelease(Picture1, Qt::LeftButton, {}, QPoint(100, 50));
  QTest::keyClick(Picture1, Qt::Key_Right);
  AttendZone(28, 10, 108, 50);
}

TEST_F(Moniteur, KeysGoToThePictureAndOpenItsMenu) {
  EXPECT_EQ(Forme.focusWidget(), Picture1);
  Forme.ChangeLibellePleinEcran(QStringLiteral("Full screen"));
  QTest::keyClick(Picture1, Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_TRUE(Menu->isVisible());
  EXPECT_EQ(Menu->activeAction(), Menu->actions().first());
  EXPECT_EQ(Menu->activeAction()->text(), QStringLiteral("Full screen"));
  Menu->close();
}

TEST_F(Moniteur, OnlyAZoneThatReachesAllFourEdgesIsTheWholePicture) {
  const auto dit = [](const ZoneDetection& zone) { return DitZone(Langue::kAnglais, zone, QSize(64, 48)); };
  for (const ZoneDetection& zone :
       {ZoneDetection{0, 64, 0, 48}, ZoneDetection{1, 64, 1, 48}, ZoneDetection{0, 70, 0, 50}})
    EXPECT_EQ(dit(zone), QStringLiteral("Zone: the whole picture"));
  EXPECT_EQ(dit({0, 64, 0, 24}), QStringLiteral("Zone: left 0, top 0, width 64, height 24, of 64x48"));
  EXPECT_EQ(dit({0, 32, 0, 48}), QStringLiteral("Zone: left 0, top 0, width 32, height 48, of 64x48"));
  EXPECT_EQ(dit({2, 64, 0, 48}), QStringLiteral("Zone: left 2, top 0, width 62, height 48, of 64x48"));
  EXPECT_EQ(dit({0, 64, 2, 48}), QStringLiteral("Zone: left 0, top 2, width 64, height 46, of 64x48"));
}

TEST_F(Moniteur, PictureSaysItsNoticeWhereTheZoneLiesAndWhatTheKeysDo) {
  Banc.Reglages.LangueCourante = 1;
  Pose(Unie(200, 150));
  Forme.EcritAides(QStringLiteral("tip"), QStringLiteral("moving points"));
  QAccessibleInterface* image = QAccessible::queryAccessibleInterface(Picture1);
  EXPECT_EQ(image->role(), QAccessible::Graphic);
  EXPECT_EQ(image->text(QAccessible::Name), QStringLiteral("Camera picture"));
  const auto lignes = [&] { return image->text(QAccessible::Description).split(u'\n'); };
  EXPECT_EQ(lignes().first(), QStringLiteral("Zone: the whole picture")) << "as the camera's start leaves it";
  Glisse({100, 50}, {20, 10});
  EXPECT_EQ(lignes().first(), QStringLiteral("Zone: left 20, top 10, width 80, height 40, of 200x150"));
  EXPECT_TRUE(lignes().at(1).startsWith(QStringLiteral("Arrows move the zone")));
  EXPECT_EQ(lignes().last(), QStringLiteral("tip"));
  Forme.MontreAvis(QStringLiteral("Signal lost"));
  EXPECT_EQ(lignes().first(), QStringLiteral("Signal lost"));
  Banc.Reglages.LangueCourante = 0;
  Forme.EcritAides({}, {});
  EXPECT_EQ(lignes().at(1), QString::fromUtf8("Zone : gauche 20, haut 10, largeur 80, hauteur 40, sur 200x150"));
}

TEST_F(Moniteur, ReaderIsToldOfEachChangeOfTheZoneAndOfTheNotice) {
  Pose(Unie(200, 150));
  const auto dit = [](const std::function<void()>& fait) {
    Annonces() = 0;
    fait();
    return Annonces();
  };
  EXPECT_EQ(dit([this] { Glisse({100, 50}, {20, 10}); }), 1) << "when the hand lets go";
  EXPECT_EQ(dit([this] { QTest::keyClick(Picture1, Qt::Key_Right); }), 1);
  EXPECT_EQ(dit([this] { QTest::keyClick(Picture1, Qt::Key_Right, Qt::ShiftModifier); }), 1);
  EXPECT_EQ(dit([this] { QTest::keyClick(Picture1, Qt::Key_Home); }), 1);
  EXPECT_EQ(dit([this] { Forme.MontreAvis(QStringLiteral("Signal lost")); }), 1);
  EXPECT_EQ(dit([this] { Forme.MontreAvis(QStringLiteral("Signal lost")); }), 0);
}

TEST_F(Moniteur, BarIsHeardAsTheMovementThatItShows) {
  Forme.EcritAides(QStringLiteral("tip"), QStringLiteral("moving points"));
  Forme.MontreBarre(321);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Barre->value() == 321; })) << "drawn when the window is";
  QAccessibleInterface* barre = QAccessible::queryAccessibleInterface(Barre);
  EXPECT_EQ(barre->text(QAccessible::Name), QStringLiteral("moving points"));
  EXPECT_EQ(barre->valueInterface()->currentValue().toInt(), 321);
}

TEST_F(Moniteur, OtherButtonsDrawNothing) {
  Pose(Unie(200, 150));
  Glisse({100, 50}, {20, 10});
  QTest::mousePress(Picture1, Qt::MiddleButton, {}, QPoint(5, 6));
  QTest::mouseRelease(Picture1, Qt::MiddleButton, {}, QPoint(50, 60));
  AttendZone(20, 10, 100, 50);
}

TEST_F(Moniteur, SecondButtonThatIsHeldStopsTheDrag) {
  Pose(Unie(200, 150));
  QTest::mousePress(Picture1, Qt::LeftButton, {}, QPoint(20, 10));
  const auto bouge = [this](const QPoint& ou, Qt::MouseButtons boutons) {
    QMouseEvent pas(QEvent::MouseMove, ou, Picture1->mapToGlobal(ou), Qt::NoButton, boutons, Qt::NoModifier);
    QCoreApplication::sendEvent(Picture1, &pas);
  };
  bouge({60, 40}, Qt::LeftButton);
  bouge({90, 80}, Qt::LeftButton | Qt::RightButton);
  AttendZone(20, 10, 60, 40);
}

TEST_F(Moniteur, ClickGivesThePictureTheKeysAndItsMenuAsksForTheEnlargedViewInTheLanguageOfTheMoment) {
  Picture1->clearFocus();
  QTest::mouseClick(Picture1, Qt::LeftButton);
  EXPECT_EQ(Forme.focusWidget(), Picture1);
  EXPECT_TRUE(Picture1->focusPolicy() & Qt::TabFocus);
  Forme.ChangeLibellePleinEcran(QStringLiteral("Plein écran"));
  QTest::keyClick(Picture1, Qt::Key_Return);
  EXPECT_EQ(Menu->actions().first()->text(), QStringLiteral("Plein écran"));
  int demandes = 0;
  QObject::connect(&Forme, &FormMonitor::PleinEcranChoisi, [&demandes] { ++demandes; });
  Menu->actions().first()->trigger();
  EXPECT_EQ(demandes, 1);
  Menu->close();
}

TEST_F(Moniteur, NewSizeMarksTheSettings) {
  Pose(Unie(200, 150));
  Banc.Reglages.ParametresModifies = false;
  Banc.Sauvegarde.ModifiesALaSauvegarde = false;
  Pose(Unie(320, 240));
  EXPECT_TRUE(Banc.Sauvegarde.ModifiesALaSauvegarde);
}

TEST(EnlargedView, IsMadeNoMoreBehindTheEnd) {
  VueAgrandie vue;
  const auto vues = [] {
    const auto fenetres = QApplication::topLevelWidgets();
    return std::count_if(fenetres.begin(), fenetres.end(),
                         [](const QWidget* f) { return f->objectName() == QLatin1String("WebcamPecran"); });
  };
  vue.Montre();
  EXPECT_EQ(vues(), 1);
  vue.Decharge();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  vue.Montre();
  vue.Rafraichit();
  EXPECT_EQ(vues(), 0);
}

TEST_F(Moniteur, WindowAndZoneHaveTheNewSizeBeforeTheSave) {
  Pose(Unie(200, 150));
  Glisse({100, 50}, {20, 10});
  bool vu = false;
  Banc.Sauvegarde.PendantSauvegarde = [&] {
    vu = true;
    AttendZone(0, 10, 320, 240);
    EXPECT_EQ(Forme.size(), QSize(320, 240));
    EXPECT_EQ(Barre->width(), 320);
  };
  Pose(Unie(320, 240));
  EXPECT_TRUE(vu);
}

// A camera that is off, or gives a frame every few seconds: nothing wipes, however long the drag is.
TEST_F(Moniteur, AllRectanglesOfALongDragStayUntilTheNextFrame) {
  Pose(Unie(200, 150));
  Glisse({1, 1}, {1, 1});
  Pose(Unie(200, 150));
  QTest::mousePress(Picture1, Qt::LeftButton, {}, QPoint(20, 10));
  QImage attendu = Picture1->grab().toImage();
  {
    QPainter peintre(&attendu);
    peintre.setPen(QColor(192, 192, 255));
    // From beside the picture to its other corner and beyond, so that every edge is cut once.
    for (int i = 0; i < 3 * SurfaceImage::kContoursMax; ++i) {
      const QPoint coin(i - 10, i / 2 - 10);
      QTest::mouseMove(Picture1, coin);
      if (coin.x() == 20 || coin.y() == 10) continue;
      // What a pen draws is a point wider and higher than the rectangle, whose right and bottom edges are not in it.
      peintre.drawRect(std::min(20, coin.x()), std::min(10, coin.y()), std::abs(coin.x() - 20) - 1,
                       std::abs(coin.y() - 10) - 1);
    }
  }
  ASSERT_FALSE(Banc.Engin.Surface().Anciens().isNull()) << "a drag of this length";
  const QImage vue = Picture1->grab().toImage();
  int ecarts = 0;
  for (int y = 0; y < 148; ++y) {  // the bar covers the last two rows
    for (int x = 0; x < 200; ++x) ecarts += vue.pixel(x, y) != attendu.pixel(x, y);
  }
  EXPECT_EQ(ecarts, 0);
  Pose(Unie(200, 150));
  EXPECT_EQ(Picture1->grab().toImage().pixel(60, 10), qRgb(192, 192, 255)) << "the zone itself";
  EXPECT_EQ(Picture1->grab().toImage().pixel(100, 30), qRgb(10, 20, 30)) << "and nothing else";
}

TEST_F(Moniteur, NewFrameSizeFitsTheWindowAndSaves) {
  Pose(Unie(320, 240));
  EXPECT_EQ(Picture1->size(), QSize(320, 240));
  EXPECT_EQ(Forme.size(), QSize(320, 240));
  EXPECT_EQ(Forme.minimumSize(), Forme.maximumSize()) << "no resize handle";
  EXPECT_EQ(Barre->geometry(), QRect(0, 238, 320, 2));
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
  EXPECT_TRUE(Banc.Sauvegarde.ModifiesALaSauvegarde);
  Pose(Unie(320, 240));
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1) << "the same size again is no change";
}

TEST_F(Moniteur, NewFrameSizeResetsTheZoneButKeepsItsTop) {
  Pose(Unie(200, 150));
  Glisse({50, 30}, {120, 90});
  Pose(Unie(320, 240));
  AttendZone(0, 30, 320, 240);
}

TEST_F(Moniteur, StoreThatCannotBeWrittenCostsNeitherFrameNorZone) {
  struct Panne : SauvegardeParametres {
    void SauveParametres() override { throw Echec(kAppelIncorrect, QStringLiteral("disk full")); }
  } panne;
  FormMonitor forme(Banc.Engin, Etat, Banc.Reglages, panne);
  Pose(Unie(320, 240, qRgb(1, 2, 3)));
  AttendZone(0, 1, 320, 240);
  EXPECT_EQ(forme.size(), QSize(320, 240));
  EXPECT_TRUE(Banc.Reglages.ParametresModifies) << "the next save tells";
  EXPECT_EQ(Banc.Engin.Camera().NonComparees, 0);
}

TEST_F(Moniteur, TinyAndOddFramesFit) {
  Pose(Unie(1, 1));
  EXPECT_EQ(Picture1->size(), QSize(1, 1));
  Pose(Unie(333, 77));
  EXPECT_EQ(Picture1->size(), QSize(333, 77));
  EXPECT_EQ(Picture1->grab().toImage().pixel(332, 40), qRgb(192, 192, 255)) << "right edge of the zone";
}

TEST_F(Moniteur, CloseRequestHidesAndIsNoted) {
  EXPECT_FALSE(Forme.close());
  EXPECT_FALSE(Forme.isVisible());
  EXPECT_TRUE(Banc.Engin.Camera().MoniteurCache);
}

TEST_F(Moniteur, CloseRequestAtTheEndOfTheProgramGoesThrough) {
  Etat.EnFermeture = true;
  EXPECT_TRUE(Forme.close());
  EXPECT_FALSE(Banc.Engin.Camera().MoniteurCache);
}

TEST_F(Moniteur, StoppedCameraLeavesABlackPictureOfTheLastSize) {
  Pose(Unie(200, 150));
  Banc.Engin.BasculeCamera();
  EXPECT_EQ(Picture1->size(), QSize(200, 150));
  EXPECT_EQ(Picture1->grab().toImage().pixel(100, 75), qRgb(0, 0, 0));
}

TEST_F(Moniteur, NoticeIsPaintedOverThePictureNotIntoIt) {
  Pose(Unie(200, 150));
  const QImage avant = Picture1->grab().toImage();
  Forme.MontreAvis(QStringLiteral("Signal perdu"));
  EXPECT_NE(Picture1->grab().toImage(), avant);
  EXPECT_EQ(Banc.Engin.Surface().Image(), Unie(200, 150));
  Forme.MontreAvis(QString());
  EXPECT_EQ(Picture1->grab().toImage(), avant);
}

TEST_F(Moniteur, OutlineWithoutWidthOrHeightShowsNothingAndEdgesMayStandInAnyOrder) {
  Pose(Unie(200, 150));
  Banc.Engin.Surface().Pose(Unie(200, 150));
  Banc.Engin.Surface().Dessine({50, 60, 50, 90});
  EXPECT_EQ(Picture1->grab().toImage().pixel(50, 70), qRgb(10, 20, 30));
  Banc.Engin.Surface().Dessine({90, 80, 30, 20});
  const QImage peinte = Picture1->grab().toImage();
  EXPECT_EQ(peinte.pixel(30, 50), qRgb(192, 192, 255));
  EXPECT_EQ(peinte.pixel(89, 50), qRgb(192, 192, 255)) << "the right edge is excluded";
  EXPECT_EQ(peinte.pixel(90, 50), qRgb(10, 20, 30));
  EXPECT_EQ(peinte.pixel(60, 79), qRgb(192, 192, 255));
  EXPECT_EQ(peinte.pixel(60, 50), qRgb(10, 20, 30)) << "the inside is left alone";
}

}  // namespace
}  // namespace vaktor
