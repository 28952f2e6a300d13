// SPDX-License-Identifier: GPL-3.0-or-later
// A window of a fixed size that is told to fill the screen.
#include "platform/widgets/fixed_windows.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QResizeEvent>
#include <QTest>
#include <QWidget>
#include <memory>

namespace vaktor {
namespace {

constexpr QSize kFixe(200, 100);

class FenetreFixe : public testing::Test {
 protected:
  FenetreFixe() { Controle->setFixedSize(kFixe); }
  QWindow* Montre() {
    Controle->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(Controle.get()));
    return Controle->windowHandle();
  }

  FenetresFixes Garde;
  std::unique_ptr<QWidget> Controle = std::make_unique<QWidget>();
};

TEST_F(FenetreFixe, MayGrowWhileTheDesktopAnswersAndGoesBackToItsSize) {
  QWindow* fenetre = Montre();
  bool pouvait = false;
  QObject::connect(fenetre, &QWindow::windowStateChanged, fenetre, [&](Qt::WindowState etat) {
    if (etat == Qt::WindowMaximized) pouvait = fenetre->maximumSize().width() > 10'000;
  });
  fenetre->setWindowStates(Qt::WindowMaximized);  // what the button of the frame calls
  // The offscreen desktop grants it within the call; others answer later.
  QResizeEvent agrandie(QSize(800, 600), kFixe);
  QCoreApplication::sendEvent(fenetre, &agrandie);
  EXPECT_TRUE(pouvait);
  EXPECT_TRUE(QTest::qWaitFor([&] { return fenetre->windowStates() == Qt::WindowNoState; }));
  QResizeEvent revenue(kFixe, QSize(800, 600));
  QCoreApplication::sendEvent(fenetre, &revenue);
  EXPECT_EQ(fenetre->maximumSize(), kFixe);
  EXPECT_EQ(fenetre->size(), kFixe);
  EXPECT_EQ(Controle->size(), kFixe);
}

TEST_F(FenetreFixe, OneThatMayGrowStaysMaximised) {
  Controle->setMinimumSize(10, 10);
  Controle->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  QWindow* fenetre = Montre();
  fenetre->setWindowStates(Qt::WindowMaximized);
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  EXPECT_TRUE(fenetre->windowStates() & Qt::WindowMaximized);
}

TEST_F(FenetreFixe, AnOrdinaryChangeOfItsSizeIsNotTakenBack) {
  QWindow* fenetre = Montre();
  Controle->setFixedSize(300, 200);  // the monitor follows its camera
  QCoreApplication::processEvents();
  EXPECT_EQ(fenetre->size(), QSize(300, 200));
  EXPECT_EQ(fenetre->maximumSize(), QSize(300, 200));
}

TEST_F(FenetreFixe, OneThatGoesMeanwhileLeavesNothing) {
  QWindow* fenetre = Montre();
  fenetre->setWindowStates(Qt::WindowMaximized);
  Controle.reset();
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

}  // namespace
}  // namespace vaktor
