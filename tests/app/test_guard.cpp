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
  EXPECT_EQ(Dits, (QStringList{QStringLiteral("the store cannot be written"),
                               QStringLiteral("the store cannot be written")}));
}

TEST_F(Garde, FailureOfATimerIsTold) {
  QTimer::singleShot(0, qApp, [] { throw std::runtime_error("out of luck"); });
  QTest::qWait(1);
  EXPECT_EQ(Dits, QStringList{QStringLiteral("out of luck")});
}

TEST_F(Garde, FailuresWhileOneIsBeingToldDoNotPileUp) {
  Pendant = [] {
    QTimer::singleShot(0, qApp, [] { throw Echec(kAppelIncorrect, QStringLiteral("second")); });
    QTest::qWait(1);
  };
  QTimer::singleShot(0, qApp, [] { throw Echec(kAppelIncorrect, QStringLiteral("first")); });
  QTest::qWait(1);
  EXPECT_EQ(Dits, QStringList{QStringLiteral("first")});
}

// For want of memory before all: out of an event handler it would end the program.
TEST_F(Garde, FailureThatCannotBeToldIsLeftAtThatAndTheNextOneIsToldAgain) {
  bool impossible = true;
  Pendant = [&] {
    if (impossible) throw std::bad_alloc();
  };
  QTimer::singleShot(0, qApp, [] { throw Echec(kAppelIncorrect, QStringLiteral("first")); });
  QTest::qWait(1);
  impossible = false;
  QTimer::singleShot(0, qApp, [] { throw 7; });
  QTest::qWait(1);
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
