// SPDX-License-Identifier: GPL-3.0-or-later
// The little window that stands there while photos are deleted, and its bar.
#include <QAccessible>
#include <functional>

#include "image/gallery_form_fixture.h"

namespace vaktor {
namespace {

TEST_F(Galerie, ProgressWindowIsThereDuringTheDeletionOnly) {
  Ouvre();
  bool vue = false;
  Effaceur.Evenements = [&] {
    const auto* progression = Forme.findChild<FrmProgression*>(QStringLiteral("FrmProgression"));
    vue = progression != nullptr && progression->isVisible();
    auto* barre = Forme.findChild<BarreProgression*>();
    QAccessibleInterface* entendue = QAccessible::queryAccessibleInterface(barre);
    ASSERT_NE(entendue, nullptr);
    EXPECT_EQ(entendue->role(), QAccessible::ProgressBar);
    EXPECT_EQ(entendue->valueInterface()->currentValue().toInt(), barre->Pas());
    EXPECT_EQ(entendue->valueInterface()->maximumValue().toInt(), barre->Dernier());
    EXPECT_FALSE(Trouve<QPushButton>("CmdClearRepPhot")->isEnabled());
  };
  Bouton("CmdClearRepPhot");
  EXPECT_TRUE(vue);
  EXPECT_EQ(Forme.findChild<FrmProgression*>(QStringLiteral("FrmProgression")), nullptr);
  EXPECT_TRUE(Trouve<QPushButton>("CmdClearRepPhot")->isEnabled());
  EXPECT_EQ(Liste->model()->rowCount(), 0);
  EXPECT_TRUE(Photo->Photo().isNull());
  EXPECT_EQ(Photo->Avis(), QStringLiteral("No picture in this folder."));
}

TEST_F(Galerie, ProgressGoesOnIsHeardAndStaysUntilTheDeletionIsThrough) {
  Ouvre(Suite(6));
  Effaceur.MsParPhoto = kMillisecondesTranche;  // a slice each
  QList<int> pas;
  const std::function<void()> regarde = [&] {
    auto* progression = Forme.findChild<FrmProgression*>(QStringLiteral("FrmProgression"));
    QAccessibleInterface* entendue = QAccessible::queryAccessibleInterface(Forme.findChild<BarreProgression*>());
    pas += entendue->valueInterface()->currentValue().toInt();
    EXPECT_EQ(entendue->text(QAccessible::Name), progression->windowTitle());
    EXPECT_FALSE(progression->close());
    EXPECT_TRUE(progression->isVisible());
    Effaceur.Evenements = regarde;
  };
  Effaceur.Evenements = regarde;
  Bouton("CmdClearRepPhot");
  Effaceur.Evenements = nullptr;
  ASSERT_GT(pas.size(), 2);
  EXPECT_GT(pas.last(), pas.first());
}

TEST(ProgressBar, FillsToTheStepInItsColour) {
  BarreProgression barre(nullptr);
  barre.resize(200, 20);
  barre.FixeEchelle(10);
  barre.Avance(0);
  EXPECT_EQ(barre.Rempli(), 0);
  barre.Avance(5);
  EXPECT_EQ(barre.Rempli(), 100);
  const QImage peinte = barre.grab().toImage();
  EXPECT_EQ(peinte.pixel(50, 10), qRgb(0xc0, 0xff, 0xc0));
  EXPECT_EQ(peinte.pixel(150, 10), qRgb(255, 255, 255));
  barre.FixeEchelle(0);
  barre.Avance(0);
  EXPECT_EQ(barre.Rempli(), 200) << "one photo: a scale without length is full at its only step";
}

}  // namespace
}  // namespace vaktor
