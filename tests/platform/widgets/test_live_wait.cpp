// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of the mouse while something is waited for.
#include "platform/widgets/live_wait.h"

#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace vaktor {
namespace {

using namespace std::chrono_literals;

class Surface : public QWidget {
 public:
  Surface() {
    setMouseTracking(true);
    resize(400, 40);
  }
  QStringList Recus;

 protected:
  void mouseMoveEvent(QMouseEvent* evenement) override { Note("move", *evenement); }
  void mousePressEvent(QMouseEvent* evenement) override { Note("press", *evenement); }
  void mouseReleaseEvent(QMouseEvent* evenement) override { Note("release", *evenement); }

 private:
  void Note(const char* quoi, const QMouseEvent& evenement) {
    Recus += QStringLiteral("%1 %2").arg(QLatin1String(quoi)).arg(evenement.position().x());
  }
};

class Attente : public testing::Test {
 protected:
  Attente() {
    Fenetre.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&Fenetre));
    Fenetre.Recus.clear();
  }
  void Bouge(Surface& fenetre, int debut, int fin) {
    for (int x = debut; x <= fin; ++x) QTest::mouseMove(fenetre.windowHandle(), QPoint(x, 5));
  }
  /// What the user does while something is waited for.
  void Pendant(std::function<void()> gestes) {
    QTimer::singleShot(0, &Fenetre, std::move(gestes));
    AttendVivant([] { return false; }, 100ms);
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }

  Surface Fenetre;
};

TEST_F(Attente, OfMovesThatFollowEachOtherTheLastOneComes) {
  Pendant([&] { Bouge(Fenetre, 1, 300); });
  EXPECT_EQ(Fenetre.Recus, QStringList{QStringLiteral("move 300")});
}

TEST_F(Attente, AClickBetweenMovesIsMadeWhereItWasMade) {
  Pendant([&] {
    Bouge(Fenetre, 1, 50);
    QTest::mousePress(Fenetre.windowHandle(), Qt::LeftButton, {}, QPoint(50, 5));
    Bouge(Fenetre, 51, 90);
    QTest::mouseRelease(Fenetre.windowHandle(), Qt::LeftButton, {}, QPoint(90, 5));
    Bouge(Fenetre, 91, 120);
  });
  EXPECT_EQ(Fenetre.Recus, QStringList({"move 50", "press 50", "move 90", "release 90", "move 120"}));
}

TEST_F(Attente, MovesOverTwoWindowsAreTold) {
  Surface autre;
  autre.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&autre));
  autre.Recus.clear();
  Pendant([&] {
    Bouge(Fenetre, 1, 50);
    Bouge(autre, 1, 20);
    Bouge(Fenetre, 60, 70);
  });
  EXPECT_EQ(Fenetre.Recus, QStringList({"move 50", "move 70"}));
  EXPECT_EQ(autre.Recus, QStringList{QStringLiteral("move 20")});
}

}  // namespace
}  // namespace vaktor
