// SPDX-License-Identifier: GPL-3.0-or-later
// The guard at the event loop.
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/guarded_application.h"
#include "base/failure.h"

namespace vaktor {
namespace {

class Garde : public testing::Test {
 protected:
  Garde() {
    application().SurEchec([this](const QString& description) {
      Dits.append(description);
      if (Pendant) Pendant();
    });
  }

 public:
  ~Garde() override { application().SurEchec(nullptr); }

 protected:
  static ApplicationGardee& application() { return *static_cast<ApplicationGardee*>(qApp); }

  bool AttendDits(qsizetype nombre) const {
    return QTest::qWaitFor([&] { return Dits.size() >= nombre; });
  }

  QStringList Dits;
  std::function<void()> Pendant;
};

TEST_F(Garde, FailureOfAButtonIsToldAndTheProgramGoesOn) {
  QPushButton bouton;
  int clics = 0;
  QObject::connect(&bouton, &QPushButton::clicked, &bouton, [&] {
    ++clics;
    throw Echec(kAppelIncorrect, QStringLiteral("the store cannot be written"));
  });
  bouton.show();
  QTest::mouseClick(&bouton, Qt::LeftButton);
  QTest::mouseClick(&bouton, Qt::LeftButton);
  EXPECT_EQ(clics, 2);
  AttendDits(2);
  EXPECT_EQ(Dits, (QStringList{QStringLiteral("the store cannot be written"),
                               QStringLiteral("the store cannot be written")}));
}

TEST_F(Garde, FailureOfATimerIsTold) {
  QTimer::singleShot(0, qApp, [] { throw std::runtime_error("out of luck"); });
  AttendDits(1);
  EXPECT_EQ(Dits, QStringList{QStringLiteral("out of luck")});
}

TEST_F(Garde, FailuresWhileOneIsBeingToldDoNotPileUp) {
  bool deuxieme = false;
  Pendant = [&] {
    QTimer::singleShot(0, qApp, [&] {
      deuxieme = true;
      throw Echec(kAppelIncorrect, QStringLiteral("second"));
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return deuxieme; }));
  };
  QTimer::singleShot(0, qApp, [] { throw Echec(kAppelIncorrect, QStringLiteral("first")); });
  AttendDits(1);
  QCoreApplication::processEvents();
  EXPECT_TRUE(deuxieme);
  EXPECT_EQ(Dits, QStringList{QStringLiteral("first")});
}

// Both wait to be told when the box of the first opens; the other would stand on top of it.
TEST_F(Garde, AFailureThatWaitedWhileAnotherIsToldOpensNoSecondBox) {
  Pendant = [] {
    bool passe = false;  // what is asked for behind both comes behind both
    QMetaObject::invokeMethod(
        qApp, [&passe] { passe = true; }, Qt::QueuedConnection);
    EXPECT_TRUE(QTest::qWaitFor([&passe] { return passe; }));
  };
  struct Objet : QObject {
    bool event(QEvent*) override { throw Echec(kAppelIncorrect, QStringLiteral("clicked")); }
  } objet;
  for (int i = 0; i < 2; ++i) {
    QEvent evenement(QEvent::User);
    QCoreApplication::sendEvent(&objet, &evenement);
  }
  ASSERT_TRUE(Dits.isEmpty()) << "not inside the event that failed";
  AttendDits(1);
  QCoreApplication::processEvents();
  EXPECT_EQ(Dits, QStringList{QStringLiteral("clicked")});
}

// A box stands until somebody clicks it away. The timer that failed is the one that watches, perhaps.
TEST_F(Garde, ATimerThatFailedOnceTicksOnWhileItsFailureStandsInABox) {
  QTimer minuterie;
  int tics = 0;
  QObject::connect(&minuterie, &QTimer::timeout, &minuterie, [&] {
    if (++tics == 1) throw Echec(kAppelIncorrect, QStringLiteral("one tick"));
  });
  bool continue_ = false;
  Pendant = [&] { continue_ = QTest::qWaitFor([&] { return tics >= 5; }, 3000); };
  minuterie.start(5);
  AttendDits(1);
  EXPECT_TRUE(continue_) << tics;
}

// For want of memory before all: out of an event handler it would end the program.
TEST_F(Garde, FailureThatCannotBeToldIsLeftAtThatAndTheNextOneIsToldAgain) {
  bool impossible = true;
  Pendant = [&] {
    if (impossible) throw std::bad_alloc();
  };
  QTimer::singleShot(0, qApp, [] { throw Echec(kAppelIncorrect, QStringLiteral("first")); });
  AttendDits(1);
  impossible = false;
  QTimer::singleShot(0, qApp, [] { throw 7; });
  AttendDits(2);
  EXPECT_EQ(Dits, (QStringList{QStringLiteral("first"), QStringLiteral("unknown failure")}));
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  vaktor::ApplicationGardee application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
