// SPDX-License-Identifier: GPL-3.0-or-later
// The zone drawn with the mouse, the small view's two modes, the surface with its outlines.
#include "engine/engine_fixture.h"
#include "engine/pixel_view.h"

namespace vaktor {
namespace {

class Souris : public BancEssai {
 protected:
  void SetUp() override { DemarreSurNoir(); }
  void Tire(double x0, double y0, double x1, double y1) {
    Engin.Souris().Appuie(x0, y0);
    Engin.Souris().Deplace(x1, y1);
    Engin.Souris().Relache(x1, y1);
  }
};

TEST(ZoneAtTheStart, IsAllZero) {
  faux::BancSurveillance banc;
  AttendZone(banc.Engin.Detection().Zone, 0, 0, 0, 0);
  EXPECT_TRUE(banc.Engin.Detection().ModeZoom);
}

TEST_F(Souris, ClickWithoutAMoveGivesTheWholePictureFromItsCorner) {
  Tire(12, 34, 12, 40);
  AttendZone(Zone(), 0, 0, 60, 60);
  Engin.Souris().Appuie(20, 20);
  Engin.Souris().Relache(20, 20);
  AttendZone(Zone(), 0, 0, 60, 60);
}

TEST_F(Souris, RectangleMayBeDrawnFromAnyCorner) {
  Tire(100, 50, 20, 10);
  AttendZone(Zone(), 20, 10, 100, 50);
  Tire(20, 50, 100, 10);
  AttendZone(Zone(), 20, 10, 100, 50);
  Tire(20, 10, 100, 50);
  AttendZone(Zone(), 20, 10, 100, 50);
}

// --- The keys

TEST_F(Souris, KeysMoveTheZoneAsFarAsThePictureGoes) {
  Tire(20, 10, 40, 31);
  Engin.Souris().Pousse(8, -3);
  AttendZone(Zone(), 28, 7, 48, 28);
  Engin.Souris().Pousse(100, -100);
  AttendZone(Zone(), 40, 0, 60, 21);
  Engin.Souris().Pousse(-100, 100);
  AttendZone(Zone(), 0, 39, 20, 60);
}

TEST_F(Souris, KeysSizeTheZoneWithinThePictureAndNeverToNothing) {
  Tire(20, 10, 40, 31);
  Engin.Souris().Etire(5, -6);
  AttendZone(Zone(), 20, 10, 45, 25);
  Engin.Souris().Etire(100, 100);
  AttendZone(Zone(), 20, 10, 60, 60);
  Engin.Souris().Etire(-100, -100);
  AttendZone(Zone(), 20, 10, 20 + SourisZone::kCoteMin, 10 + SourisZone::kCoteMin);
}

TEST_F(Souris, KeysDoNotResetAZoneWhoseRightMeetsItsBottom) {
  Tire(20, 10, 40, 31);
  Engin.Souris().Etire(0, 9);
  AttendZone(Zone(), 20, 10, 40, 40);
  Engin.Souris().Remet();
  AttendZone(Zone(), 0, 0, 60, 60);
}

TEST_F(Souris, KeysPutAZoneInOrderThatTheMouseHasLeftBeyondThePicture) {
  Tire(-15, -7, 900, 700);
  Engin.Souris().Pousse(0, 0);
  AttendZone(Zone(), 0, 0, 60, 60);
  Tire(5, 59, 50, 59);  // a row
  Engin.Souris().Etire(0, 0);
  AttendZone(Zone(), 5, 60 - SourisZone::kCoteMin, 50, 60);
}

TEST_F(Souris, ZoneMovedByAKeyIsOutlinedAtOnce) {
  Tire(20, 10, 40, 31);
  Trame(Unie(0));
  const int avant = Engin.Surface().NombreContours();
  Engin.Souris().Pousse(1, 0);
  ASSERT_EQ(Engin.Surface().NombreContours(), avant + 1);
  EXPECT_EQ(Engin.Surface().ContourNumero(avant).Gauche, 21);
  Engin.Souris().Etire(1, 0);
  ASSERT_EQ(Engin.Surface().NombreContours(), avant + 2);
  EXPECT_EQ(Engin.Surface().ContourNumero(avant + 1).Droite, 42);
}

TEST_F(Souris, DragThatEndsWhereXEqualsYGivesTheWholePicture) {
  Tire(30, 40, 60, 60);
  AttendZone(Zone(), 0, 0, 60, 60);
  Tire(30, 40, 61, 60);
  AttendZone(Zone(), 30, 40, 61, 60);
}

TEST_F(Souris, NoHeightIsARowNoWidthIsTheWholePicture) {
  Tire(5, 20, 50, 20);
  AttendZone(Zone(), 5, 20, 50, 20);
  Tire(5, 20, 5, 50);
  AttendZone(Zone(), 0, 0, 60, 60);
}

TEST_F(Souris, EndsOnTheDiagonalBeforeTheSwap) {
  Tire(30, 30, 10, 10);  // the end point decides, not the corners in their order
  AttendZone(Zone(), 0, 0, 60, 60);
  Tire(10, 10, 30, 20);
  AttendZone(Zone(), 10, 10, 30, 20);
}

TEST_F(Souris, HalvesGoToTheEvenNumber) {
  Tire(10.5, 11.5, 20.5, 30.5);
  AttendZone(Zone(), 10, 12, 20, 30);
}

TEST_F(Souris, PointsOutsideThePictureAreKept) {
  Tire(-15, -7, 900, 700);
  AttendZone(Zone(), -15, -7, 900, 700);
}

TEST_F(Souris, HalfDrawnZoneStandsAsItIsAndIsOutlinedAtOnce) {
  const int avant = Engin.Surface().NombreContours();
  Engin.Souris().Appuie(40, 40);
  EXPECT_EQ(Engin.Surface().NombreContours(), avant);
  AttendZone(Zone(), 40, 40, 40, 40);
  Engin.Souris().Deplace(20, 10);
  AttendZone(Zone(), 40, 40, 20, 10);
  ASSERT_EQ(Engin.Surface().NombreContours(), avant + 1);
  const Contour& contour = Engin.Surface().ContourNumero(avant);
  EXPECT_EQ(contour.Gauche, 40);
  EXPECT_EQ(contour.Droite, 20);
  EXPECT_EQ(contour.Haut, 40);
  EXPECT_EQ(contour.Bas, 10);
  Engin.Souris().Relache(20, 10);
  EXPECT_EQ(Engin.Surface().NombreContours(), avant + 1);
}

TEST_F(Souris, ZoneDrawnWithTheCameraOffIsOverwrittenAtTheNextStart) {
  Engin.BasculeCamera();
  Tire(10, 11, 30, 20);
  AttendZone(Zone(), 10, 11, 30, 20);
  Engin.BasculeCamera();
  AttendZone(Zone(), 1, 1, 60, 60);
}

TEST_F(Souris, OutlinesAreNeverInThePicture) {
  Tire(10, 11, 30, 20);
  Trame(AvecPoints(100));
  EXPECT_EQ(Engin.Surface().Image(), AvecPoints(100));
}

class Vue : public BancEssai {
 protected:
  void SetUp() override { DemarreSurNoir(); }
  QRgb Point(int x, int y) const { return Engin.VuePixel().pixel(x, y); }
};

TEST_F(Vue, IsBlackAndOfTheViewsSize) {
  EXPECT_EQ(Engin.VuePixel().size(), QSize(127, 109));
  EXPECT_EQ(Engin.VuePixel().format(), QImage::Format_RGB32);
  EXPECT_EQ(Point(0, 0), qRgb(0, 0, 0));
}

TEST_F(Vue, ZoomModeWipesTheViewOnFramesBelowTheActionLevelOnly) {
  Arme();
  Trame(AvecPoints(31));
  EXPECT_TRUE(Affichage.ZoomVisible.has_value());
  const qint32 effacees = Affichage.VuesEffacees;
  QImage image = AvecPoints(31);
  for (int i = 0; i < 40; ++i) image.setPixel(3 * (i % 20), 30 + 3 * (i / 20), qRgb(0, 0, 255));
  Trame(image);
  EXPECT_EQ(Affichage.VuesEffacees, effacees);
  Trame(image);
  EXPECT_EQ(Affichage.VuesEffacees, effacees + 1);
  EXPECT_FALSE(Affichage.ZoomVisible.has_value());
}

TEST_F(Vue, ZoomOfAnUnarmedFrameIsWipedBeforeTheNewOne) {
  Journal.Ecoute();
  Trame(AvecPoints(100));
  EXPECT_LT(Journal.Rang(QStringLiteral("RafraichitVue")), Journal.Rang(QStringLiteral("MontreZoom")));
}

TEST_F(Vue, PixelModeShowsBlocksOfTheLivePictureOnBlack) {
  Engin.ChoisitModeZoom(false);
  Reglages.SeuilDetection = 1000;
  QImage image = Unie(qRgb(10, 20, 0));
  for (int y = 9; y < 12; ++y) {
    for (int x = 6; x < 9; ++x) image.setPixel(x, y, qRgb(x, y, 200));
  }
  Trame(Unie(qRgb(10, 20, 0)));
  Trame(Unie(qRgb(10, 20, 0)));
  Trame(image);
  ASSERT_EQ(Detection().NbrPoints, 1);
  EXPECT_EQ(Affichage.VuesPixel, 2);
  // The sample (6, 9): 9 / 2 is 4.5 and goes to 4.
  EXPECT_EQ(Point(3, 4), qRgb(6, 9, 200));
  EXPECT_EQ(Point(4, 4), qRgb(7, 9, 200));
  EXPECT_EQ(Point(3, 5), qRgb(6, 10, 200));
  EXPECT_EQ(Point(4, 5), qRgb(7, 10, 200));
  EXPECT_EQ(Point(5, 4), qRgb(0, 0, 0));
  EXPECT_EQ(Point(2, 4), qRgb(0, 0, 0));
  const qint32 effacees = Affichage.VuesEffacees;
  Trame(image);  // nothing moves: black again
  EXPECT_EQ(Affichage.VuesEffacees, effacees + 1);
  EXPECT_EQ(Point(3, 4), qRgb(0, 0, 0));
}

TEST_F(Vue, PixelModeWipesAtTheStartOnlyWhateverTheLevel) {
  Engin.ChoisitModeZoom(false);
  Journal.Ecoute();
  Trame(AvecPoints(100));
  EXPECT_EQ(Journal.Lignes().count(QStringLiteral("RafraichitVue")), 1);
  EXPECT_LT(Journal.Rang(QStringLiteral("RafraichitVue")), Journal.Rang(QStringLiteral("MontreVuePixel")));
}

TEST_F(Vue, NeitherChoiceClearsTheView) {
  const qint32 effacees = Affichage.VuesEffacees;
  Engin.ChoisitModeZoom(false);
  Engin.ChoisitModeZoom(true);
  EXPECT_EQ(Affichage.VuesEffacees, effacees);
  EXPECT_TRUE(Detection().ModeZoom);
}

TEST_F(Vue, ZoomModeTakesTheBlocksOfPixelModeAway) {
  Engin.ChoisitModeZoom(false);
  Trame(Unie(qRgb(0, 0, 255)));
  EXPECT_EQ(Point(0, 0), qRgb(0, 0, 255));
  Engin.ChoisitModeZoom(true);
  Trame(Unie(qRgb(0, 0, 255)));
  EXPECT_EQ(Point(0, 0), qRgb(0, 0, 0));
}

TEST_F(Vue, BothModesCountTheSame) {
  Trame(AvecPoints(77));
  EXPECT_EQ(Detection().NbrPoints, 77);
  Trame(Unie(0));
  Engin.ChoisitModeZoom(false);
  Trame(AvecPoints(77));
  EXPECT_EQ(Detection().NbrPoints, 77);
}

TEST_F(Vue, FramesLargerThanTwiceTheViewFallOutsideIt) {
  Engin.ChoisitModeZoom(false);
  Trame(Unie(0, 400, 300));
  PoseZone(-6, -6, 405, 305);
  Trame(Unie(0, 400, 300));
  Trame(Unie(qRgb(0, 0, 255), 400, 300));
  EXPECT_EQ(Point(126, 108), qRgb(0, 0, 255));
  EXPECT_EQ(Engin.VuePixel().size(), QSize(127, 109));
}

TEST(VuePixels, HalvesOfOddCoordinatesGoToTheEvenNumber) {
  const QImage image = [] {
    QImage rouge(20, 20, QImage::Format_RGB32);
    rouge.fill(qRgb(255, 0, 0));
    return rouge;
  }();
  const TrameBrute trame{image.constBits(), image.bytesPerLine(), 20, 20};
  for (const auto& [x, attendu] : {std::pair{1, 0}, {3, 2}, {5, 2}, {7, 4}, {4, 2}, {0, 0}}) {
    VueMouvement vue;
    vue.MarquePoint(trame, x, 0);
    int gauche = 0;
    while (vue.Image().pixel(gauche, 0) == qRgb(0, 0, 0)) ++gauche;
    EXPECT_EQ(gauche, attendu) << x;
    EXPECT_EQ(vue.Image().pixel(gauche + 1, 1), qRgb(255, 0, 0));
    EXPECT_EQ(vue.Image().pixel(gauche + 2, 0), qRgb(0, 0, 0));
  }
}

TEST(VuePixels, BlockAtThePicturesEdgeTakesWhatIsThere) {
  QImage image(4, 4, QImage::Format_RGB32);
  image.fill(qRgb(255, 0, 0));
  const TrameBrute trame{image.constBits(), image.bytesPerLine(), 4, 4};
  VueMouvement vue;
  vue.MarquePoint(trame, 3, 3);  // one pixel of four
  EXPECT_EQ(vue.Image().pixel(2, 2), qRgb(255, 0, 0));
  EXPECT_EQ(vue.Image().pixel(3, 2), qRgb(0, 0, 0));
  EXPECT_EQ(vue.Image().pixel(2, 3), qRgb(0, 0, 0));
  vue.MarquePoint(trame, -9, 40);
  vue.MarquePoint(trame, -1, 0);  // its right half is the picture's first column
  EXPECT_EQ(vue.Image().pixel(1, 0), qRgb(255, 0, 0));
}

TEST(Surface, DropsOutlinesWithANewPictureAndFollowsItsSize) {
  SurfaceImage surface;
  int tailles = 0;
  int changements = 0;
  surface.SurTaille([&] { ++tailles; });
  surface.SurChangement([&] { ++changements; });
  EXPECT_EQ(surface.Taille(), QSize(287, 241));
  QImage image(8, 9, QImage::Format_RGB32);
  image.fill(Qt::red);
  surface.Dessine({1, 2, 3, 4});
  surface.Pose(image);
  EXPECT_EQ(surface.NombreContours(), 0);
  EXPECT_EQ(surface.Taille(), QSize(8, 9));
  EXPECT_EQ(surface.Image().constBits(), image.constBits());  // shared, not copied
  surface.Pose(image);
  EXPECT_EQ(tailles, 1);
  EXPECT_EQ(changements, 3);
  surface.Dessine({});
  surface.Pose(QImage());  // the earlier frame goes on
  EXPECT_EQ(surface.NombreContours(), 1);
  surface.Retire();
  EXPECT_TRUE(surface.Image().isNull());
  EXPECT_EQ(surface.Taille(), QSize(8, 9));
  EXPECT_EQ(tailles, 1);
}

// Where no frame comes, all of them stay; what is kept does not grow.
TEST(Surface, OutlinesBeyondTheListAreDrawnAsOnePictureUntilTheNextFrame) {
  SurfaceImage surface;
  surface.Dessine({2, 3, 6, 8});
  surface.Dessine({-5, -5, 400, 400});  // wholly beside the picture
  surface.Dessine({281, 235, 290, 250});
  surface.Dessine({9, 3, 9, 8});    // no width
  surface.Dessine({20, 8, 10, 5});  // edges in any order
  for (int i = 0; i < SurfaceImage::kContoursMax; ++i) {
    EXPECT_EQ(surface.Anciens().isNull(), i < SurfaceImage::kContoursMax - 4) << i;
    surface.Dessine({100 + i, 0, 200, 200});
  }
  EXPECT_EQ(surface.NombreContours(), SurfaceImage::kContoursMax);
  EXPECT_EQ(surface.ContourNumero(0).Gauche, 100);
  QStringList points;
  const QImage& anciens = surface.Anciens();
  ASSERT_EQ(anciens.size(), surface.Taille());
  for (int y = 0; y < anciens.height(); ++y) {
    QString ligne;
    for (int x = 0; x < anciens.width(); ++x) {
      if (anciens.pixel(x, y) == kCouleurContour) ligne += QStringLiteral(" %1").arg(x);
      EXPECT_TRUE(anciens.pixel(x, y) == kCouleurContour || anciens.pixel(x, y) == 0);
    }
    if (!ligne.isEmpty()) points += QString::number(y) + u':' + ligne;
  }
  EXPECT_EQ(points.join(u'\n').toStdString(),
            "3: 2 3 4 5\n4: 2 5\n5: 2 5 10 11 12 13 14 15 16 17 18 19\n6: 2 5 10 19\n"
            "7: 2 3 4 5 10 11 12 13 14 15 16 17 18 19\n"
            "235: 281 282 283 284 285 286\n236: 281\n237: 281\n238: 281\n239: 281\n240: 281");
  surface.Retire();
  EXPECT_TRUE(surface.Anciens().isNull());
  for (int i = 0; i <= SurfaceImage::kContoursMax; ++i) surface.Dessine({});
  EXPECT_FALSE(surface.Anciens().isNull());
  QImage image(8, 9, QImage::Format_RGB32);
  surface.Pose(image);
  EXPECT_TRUE(surface.Anciens().isNull());
}

TEST_F(Souris, MoveDrawsTheZoneOfTheMomentOnThePicture) {
  DemarreSurNoir();
  PoseZone(10, 20, 31, 45);
  const SurfaceImage& surface = Engin.Surface();
  ASSERT_GT(surface.NombreContours(), 0);
  const Contour& dernier = surface.ContourNumero(surface.NombreContours() - 1);
  EXPECT_EQ(dernier.Gauche, 10);
  EXPECT_EQ(dernier.Haut, 20);
  EXPECT_EQ(dernier.Droite, 31);
  EXPECT_EQ(dernier.Bas, 45);
}

}  // namespace
}  // namespace vaktor
