// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QExposeEvent>
#include <QTest>
#include <QWindow>

#include "image/forms/visible_work.h"

namespace vaktor {
namespace {

struct Banc {
  QWidget Fenetre;
  int Faits = 0;
  TravailVisible Travail{&Fenetre, [this] { ++Faits; }};
};

TEST(VisibleWork, IsDoneAtOnceWhereThereIsNoWindowYet) {
  Banc banc;
  banc.Travail.Demande();
  EXPECT_EQ(banc.Faits, 1);
}

TEST(VisibleWork, IsDoneAtOnceInAWindowOnTheScreen) {
  Banc banc;
  banc.Fenetre.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&banc.Fenetre));
  banc.Travail.Demande();
  banc.Travail.Demande();
  EXPECT_EQ(banc.Faits, 2);
}

TEST(VisibleWork, WaitsForAWindowThatIsOnNoScreenAndIsDoneOnce) {
  Banc banc;
  banc.Fenetre.show();
  ASSERT_FALSE(banc.Fenetre.windowHandle()->isExposed()) << "no event has come yet";
  banc.Travail.Demande();
  banc.Travail.Demande();
  EXPECT_EQ(banc.Faits, 0);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&banc.Fenetre));
  EXPECT_EQ(banc.Faits, 1);
  banc.Fenetre.windowHandle()->requestUpdate();
  QCoreApplication::processEvents();
  QExposeEvent vue(QRegion(0, 0, 9, 9));
  QCoreApplication::sendEvent(banc.Fenetre.windowHandle(), &vue);
  EXPECT_EQ(banc.Faits, 1) << "it waits no more";
}

TEST(VisibleWork, WaitsForTheWindowThatTookThePlaceOfAnother) {
  struct Forme : QWidget {
    void Detruit() { destroy(); }
  };
  Forme fenetre;
  int faits = 0;
  TravailVisible travail(&fenetre, [&faits] { ++faits; });
  fenetre.show();
  travail.Demande();
  fenetre.Detruit();
  fenetre.hide();
  fenetre.show();
  ASSERT_FALSE(fenetre.windowHandle()->isExposed());
  travail.Demande();
  EXPECT_EQ(faits, 0);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&fenetre));
  EXPECT_EQ(faits, 1);
}

TEST(VisibleWork, IsDoneAtOnceInAHiddenWindow) {
  Banc banc;
  banc.Fenetre.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&banc.Fenetre));
  banc.Fenetre.hide();
  banc.Travail.Demande();
  EXPECT_EQ(banc.Faits, 1);
}

}  // namespace
}  // namespace vaktor
