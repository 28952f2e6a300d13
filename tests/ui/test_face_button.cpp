// SPDX-License-Identifier: GPL-3.0-or-later
// The faces of the buttons, and which of them a button shows under the mouse.
#include <gtest/gtest.h>

#include <QCursor>
#include <functional>

#include "ui/face/art_images.h"
#include "ui/sent_moves.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;
using faux::Bouge;

const FacesBoutons& Faces(BancFenetre& banc) { return banc.Fenetre.Face()->Faces(); }

TEST(Faces, CaptionIsCentredWithHalvesToEvenAndMayBeginLeftOfTheFace) {
  EXPECT_EQ(PlaceLibelle(41, 13), QPoint(16, 2));  // 15.5 and 1.5
  EXPECT_EQ(PlaceLibelle(43, 15), QPoint(14, 0));  // 14.5 and 0.5
  EXPECT_EQ(PlaceLibelle(100, 20), QPoint(-14, -2));
}

TEST(Faces, AreMadeForTheDensityOfTheScreenEachTimeItChanges) {
  TablesTextes textes;
  textes.Remplit(Langue::kAnglais);
  FacesBoutons faces;
  for (const double densite : {1.0, 2.0, 1.5, 1.0}) {
    faces.ChargeBoutons(textes, QStringLiteral("Try"), densite);
    EXPECT_EQ(faces.FacesBouton(0).FaceRepos.size(), (QSizeF(FacesBoutons::kTaille) * densite).toSize()) << densite;
  }
  EXPECT_EQ(EchelleArt(1.0), 1);
  EXPECT_EQ(EchelleArt(1.25), 2) << "made smaller rather than larger";
  EXPECT_EQ(EchelleArt(2.0), 2);
}

TEST(Faces, TwoChangesOfLanguageGiveTheSameFaces) {
  BancFenetre banc(1);
  const QImage avant = Faces(banc).FacesBouton(1).FaceRepos;
  banc.Clique("Image4(0)");
  EXPECT_NE(Faces(banc).FacesBouton(1).FaceRepos, avant);
  banc.Clique("Image4(1)");
  EXPECT_EQ(Faces(banc).FacesBouton(1).FaceRepos, avant);
}

TEST(Faces, NoCaptionIsPrintedDuringTenThousandMoves) {
  BancFenetre banc;
  const auto avant = Faces(banc).NombreImpressions();
  EXPECT_EQ(avant, 3 * (FacesBoutons::kNombre + FacesBoutons::kNombreGris));
  for (int i = 0; i < 10000; ++i) {
    auto* bouton = banc.Fenetre.Bandeau().Bouton.at(static_cast<std::size_t>(i % 7));
    Bouge(bouton, {i % 90 - 5, i % 23 - 3});
    if (i % 100 == 0) bouton->grab();
  }
  EXPECT_EQ(Faces(banc).NombreImpressions(), avant);
}

TEST(BoutonImage, PressLastsToTheNextMoveOnly) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("Bouton(4)");
  QTest::mousePress(bouton, Qt::RightButton);
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(4).FaceEnfoncee) << "any mouse button";
  Bouge(bouton, {5, 5}, Qt::RightButton);
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(4).FaceSurvol);
}

TEST(BoutonImage, CameraButtonShowsRowSevenWhileTheCameraRunsButItsPressThatOfRowZero) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("Bouton(0)");
  banc.Engin.BasculeCamera();
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(0).FaceRepos) << "not before the next move";
  Bouge(bouton, {5, 5});
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(7).FaceSurvol);
  QTest::mousePress(bouton, Qt::RightButton);
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(0).FaceEnfoncee);
  Bouge(bouton, {-1, 5});
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(7).FaceRepos);
  banc.Chargeur.ChargeTextes();
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(0).FaceRepos) << "stale after a change of language";
}

// The window lives while a camera connects, and the pointer may leave in the middle of that click.
void AttendLegendeApresClic(BancFenetre& banc, const std::function<void()>& sort) {
  banc.Pilote.PendantConnexion = [&] {
    sort();
    EXPECT_EQ(banc.Trouve<BoutonImage>("Bouton(0)")->Face(), Faces(banc).FacesBouton(0).FaceRepos)
        << "not yet connected";
  };
  QTest::mouseClick(banc.Trouve("Bouton(0)"), Qt::LeftButton);
  ASSERT_TRUE(banc.Engin.Camera().CameraActive);
  EXPECT_EQ(banc.Trouve<BoutonImage>("Bouton(0)")->Face(), Faces(banc).FacesBouton(7).FaceRepos);
}

TEST(BoutonImage, APointerThatLeavesWhileTheCameraConnectsLeavesNoStaleCaption) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("Bouton(0)");
  Bouge(bouton, {5, 5});
  AttendLegendeApresClic(banc, [&] { Bouge(bouton, {-1, 5}); });
}

TEST(BoutonImage, AWindowThatCameUpUnderThePointerLeavesNoStaleCaptionEither) {
  BancFenetre banc;
  AttendLegendeApresClic(banc, [&] { Bouge(banc.Trouve("Bouton(0)"), {-1, 5}); });
}

TEST(BoutonImage, AMarginFromWhichThePointerLeavesTheWindowLeavesNoStaleCaption) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("Bouton(0)");
  AttendLegendeApresClic(banc, [&] {
    QCursor::setPos(bouton->mapToGlobal(QPoint(72, 5)));
    QEvent duBouton(QEvent::Leave), deLaFenetre(QEvent::Leave);
    QCoreApplication::sendEvent(bouton, &duBouton);
    ASSERT_EQ(bouton->Face(), Faces(banc).FacesBouton(0).FaceSurvol) << "on its margin the button still has it";
    QCoreApplication::sendEvent(&banc.Fenetre, &deLaFenetre);
  });
}

TEST(BoutonImage, APointerThatStaysWhileTheCameraConnectsChangesTheFaceWithItsNextMove) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("Bouton(0)");
  Bouge(bouton, {5, 5});
  QTest::mouseClick(bouton, Qt::LeftButton);
  ASSERT_TRUE(banc.Engin.Camera().CameraActive);
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(0).FaceEnfoncee) << "not before the next move";
  Bouge(bouton, {6, 5});
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBouton(7).FaceSurvol);
}

TEST(BoutonImage, RightAndLowerEdgeAreOnePixelFurtherOut) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("Bouton(3)");
  const FaceBouton& face = Faces(banc).FacesBouton(3);
  Bouge(bouton, {72, 16});
  EXPECT_EQ(bouton->Face(), face.FaceSurvol);
  for (const QPoint dehors : {QPoint(73, 5), QPoint(5, 17), QPoint(-1, 5), QPoint(5, -1)}) {
    Bouge(bouton, {5, 5});
    Bouge(bouton, dehors);
    EXPECT_EQ(bouton->Face(), face.FaceRepos) << dehors.x() << "," << dehors.y();
  }
}

TEST(BoutonImage, PressOnTheMarginBelongsToTheControlThatLiesThere) {
  BancFenetre banc;
  auto* moniteur = banc.Trouve<BoutonImage>("Bouton(3)");
  auto* options = banc.Trouve<BoutonImage>("Bouton(4)");
  Bouge(moniteur, {71, 5});
  QTest::mouseClick(options, Qt::LeftButton, {},
                    QPoint(0, 5));  // the pixel that the monitor's button still counts as its own
  EXPECT_EQ(banc.Fenetre.PageDevant(), 3);
  EXPECT_EQ(options->Face(), Faces(banc).FacesBouton(4).FaceEnfoncee);
}

TEST(BoutonImage, GreyButtonHasNoPressedLook) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("BoutonGris(0)");
  QTest::mousePress(bouton, Qt::LeftButton);
  EXPECT_EQ(bouton->Face(), Faces(banc).FacesBoutonGris(0).FaceRepos);
}

TEST(BoutonImage, ReleaseClicksAudiblyButForTheThreeSwitches) {
  BancFenetre banc;
  for (const char* muet : {"Bouton(0)", "Bouton(1)", "Bouton(2)"})
    QTest::mouseRelease(banc.Trouve(muet), Qt::RightButton);
  EXPECT_EQ(banc.Sons.DernierSon, -1);
  for (const char* nom : {"Bouton(3)", "Bouton(6)", "BoutonGris(0)"}) {
    banc.Sons.DernierSon = -1;
    QTest::mouseRelease(banc.Trouve(nom), Qt::RightButton);
    EXPECT_EQ(banc.Sons.DernierSon, 4) << nom;
  }
}

TEST(BoutonImage, EnterAndSpaceClickOnce) {
  BancFenetre banc;
  auto* bouton = banc.Trouve<BoutonImage>("Bouton(2)");
  bouton->setEnabled(true);
  QTest::keyClick(bouton, Qt::Key_Return);
  EXPECT_EQ(banc.BasculesLive, 1);
  QTest::keyClick(bouton, Qt::Key_Space);
  EXPECT_EQ(banc.BasculesLive, 2);
  QKeyEvent tenue(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QCoreApplication::sendEvent(bouton, &tenue);
  EXPECT_EQ(banc.BasculesLive, 2) << "a held key does not click again";
}

}  // namespace
}  // namespace vaktor
