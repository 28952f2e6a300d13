// SPDX-License-Identifier: GPL-3.0-or-later
// The window while the driver waits for a camera that accepts and says nothing.
#include <QDialog>
#include <QPushButton>
#include <QTcpServer>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "platform/widgets/live_wait.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

class FenetreQuiCompte : public QPushButton {
 public:
  int Peintures = 0;
  int Clics = 0;
  QString Frappe;
  std::function<void()> SurFermeture;

  FenetreQuiCompte() {
    connect(this, &QPushButton::clicked, this, [this] { ++Clics; });
  }

 protected:
  void paintEvent(QPaintEvent* evenement) override {
    ++Peintures;
    QPushButton::paintEvent(evenement);
  }
  void keyPressEvent(QKeyEvent* evenement) override { Frappe += evenement->text(); }
  void closeEvent(QCloseEvent* evenement) override {
    if (SurFermeture) SurFermeture();
    QPushButton::closeEvent(evenement);
  }
};

class ConnexionVivante : public PiloteSurSource {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Muette_.listen(QHostAddress::LocalHost));  // the system accepts for it, nobody answers
    Fenetre_.resize(100, 40);
    Fenetre_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Fenetre_));
  }
  QString Adresse() const { return QStringLiteral("http://127.0.0.1:%1/video").arg(Muette_.serverPort()); }
  void Apres(int millisecondes, std::function<void()> geste) {
    QTimer::singleShot(millisecondes, &Fenetre_, std::move(geste));
  }
  void Laisse() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }

  QTcpServer Muette_;
  FenetreQuiCompte Fenetre_;
};

TEST_F(ConnexionVivante, PaintsAndTicksWhileASilentCameraIsAwaited) {
  Apres(5000, [&] { Pilote_->Deconnecte(); });
  int tics = 0;
  QTimer tic;
  QObject::connect(&tic, &QTimer::timeout, &Fenetre_, [&] {
    ++tics;
    Fenetre_.update();
  });
  tic.start(50ms);
  const int peintures = Fenetre_.Peintures;
  EXPECT_FALSE(Connecte(Adresse()));
  // A hundred in five seconds; how punctual they are is not judged, only that the wait did not stop them.
  EXPECT_GE(tics, 25);
  EXPECT_GE(Fenetre_.Peintures - peintures, 15);
}

// A quarter of a minute, for a camera of the network: the rest of the program can be used.
TEST_F(ConnexionVivante, ClicksAndKeysGoOnWhileACameraIsAwaited) {
  bool pendant = false;
  Apres(100, [&] {
    QTest::mouseClick(&Fenetre_, Qt::LeftButton);
    QTest::keyClicks(&Fenetre_, QStringLiteral("ab"));
  });
  Apres(300, [&] {
    pendant = true;
    EXPECT_EQ(Fenetre_.Clics, 1);
    EXPECT_EQ(Fenetre_.Frappe, QStringLiteral("ab"));
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor) << "under way, and can be used";
    Pilote_->Deconnecte();
  });
  EXPECT_FALSE(Connecte(Adresse()));
  EXPECT_TRUE(pendant);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ConnexionVivante, ASourceThatIsBeingTriedCanBeGivenUpAndTheOldOneGoesOn) {
  ASSERT_TRUE(Connecte(QStringLiteral("test")));
  QElapsedTimer depuis;
  depuis.start();
  Apres(200, [&] { Pilote_->Abandonne(); });
  EXPECT_FALSE(Pilote_->ChangeSource(Adresse()));
  EXPECT_LT(depuis.elapsed(), 5000);
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kTest);
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_TRUE(Pilote_->ChangeSource(QStringLiteral("test"))) << "and the next trial is not given up";
}

class AttenteVivante : public ConnexionVivante {
 protected:
  static std::function<bool()> Pendant(int millisecondes) {
    QElapsedTimer depuis;
    depuis.start();
    return [depuis, millisecondes] { return depuis.elapsed() >= millisecondes; };
  }
};

TEST_F(AttenteVivante, ClicksAndKeysWaitForTheAnswerAndAreNotLost) {
  int pendant = -1;
  Apres(100, [&] {
    QTest::mouseClick(Fenetre_.windowHandle(), Qt::LeftButton, {}, QPoint(50, 20));
    QTest::mouseClick(&Fenetre_, Qt::LeftButton);
    QTest::keyClicks(&Fenetre_, QStringLiteral("ab"));
  });
  Apres(200, [&] { pendant = Fenetre_.Clics + static_cast<int>(Fenetre_.Frappe.size()); });
  EXPECT_TRUE(AttendVivant(Pendant(400), 10s));
  EXPECT_EQ(pendant, 0);
  EXPECT_EQ(Fenetre_.Clics, 0);
  Laisse();
  EXPECT_EQ(Fenetre_.Clics, 2);
  EXPECT_EQ(Fenetre_.Frappe, QStringLiteral("ab"));
}

// What was clicked before the message came was not meant for what lies behind it.
TEST_F(AttenteVivante, AGestureDoesNotPassAMessageThatCameMeanwhile) {
  Apres(100, [&] { QTest::mouseClick(&Fenetre_, Qt::LeftButton); });
  EXPECT_TRUE(AttendVivant(Pendant(300), 10s));
  QDialog message;
  message.setModal(true);
  message.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&message));
  Laisse();
  EXPECT_EQ(Fenetre_.Clics, 0);
}

TEST_F(ConnexionVivante, AWindowCanBeClosedInTheMiddle) {
  Fenetre_.SurFermeture = [&] { Pilote_->Deconnecte(); };
  Apres(100, [&] { Fenetre_.windowHandle()->close(); });
  EXPECT_FALSE(Connecte(Adresse()));
  EXPECT_FALSE(Fenetre_.isVisible());
  EXPECT_FALSE(SaisitProchaine(*Pilote_));
}

// The program's end ends every event loop, this one too, and the driver does not begin another.
TEST_F(ConnexionVivante, TheEndOfTheProgramEndsTheWait) {
  bool connecte = true;
  bool encore = true;
  QTimer::singleShot(0, &Fenetre_, [&] {
    Apres(100, [] { QCoreApplication::exit(); });
    connecte = Connecte(Adresse());
    encore = AttendVivant([] { return false; }, 1h);
  });
  QCoreApplication::exec();
  EXPECT_FALSE(connecte);
  EXPECT_FALSE(encore);
}

TEST_F(ConnexionVivante, OfTwoConnectionsTheLaterOneCounts) {
  bool seconde = false;
  Apres(100, [&] { seconde = Pilote_->ChangeSource(QStringLiteral("test")); });
  EXPECT_FALSE(Connecte(Adresse()));
  EXPECT_TRUE(seconde);
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kTest);
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
}

// In the middle of a change of source the camera is let go: neither the new one nor the old one comes back.
TEST_F(ConnexionVivante, ACameraLetGoInTheMiddleOfAChangeStaysClosed) {
  ASSERT_TRUE(Connecte(QStringLiteral("test")));
  Apres(100, [&] { Pilote_->Deconnecte(); });
  EXPECT_FALSE(Pilote_->ChangeSource(Adresse()));
  EXPECT_FALSE(SaisitProchaine(*Pilote_));
}

TEST_F(ConnexionVivante, AGoodCameraAnswersLikeBefore) {
  ASSERT_TRUE(Connecte(QStringLiteral("test")));
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
}

}  // namespace
}  // namespace vaktor
