// SPDX-License-Identifier: GPL-3.0-or-later
// What a frame costs to show: every place that it changes is painted once, and nothing else; what nobody can see is
// painted not at all, and no picture is made for it.
#include <gtest/gtest.h>

#include <QBackingStore>
#include <QCoreApplication>
#include <QMap>
#include <QPaintEvent>
#include <QScreen>
#include <QWindow>
#include <memory>
#include <string>

#include "fakes/counted_frame.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

// Each painting in the program, by the widget that did it.
class Peintures : public QObject {
 public:
  Peintures() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* objet, QEvent* evenement) override {
    if (evenement->type() == QEvent::Paint) {
      ++Fois[objet->objectName()];
      Ou[objet->objectName()] += static_cast<QPaintEvent*>(evenement)->region();
    }
    return false;
  }
  void Oublie() {
    Fois.clear();
    Ou.clear();
  }
  QMap<QString, int> Fois;
  QMap<QString, QRegion> Ou;
};

class PeintureDesVues : public testing::Test {
 protected:
  void SetUp() override {
    Banc.Reglages.SeuilDetection = 1000;  // every frame is full of motion: all views have something to show
    Banc.Reglages.SeuilAuto = false;
    Banc.Pilote.Suivante = [this] {
      QImage image(64, 48, QImage::Format_RGB32);
      image.fill(qRgb(20, 30, ++Rang_ % 2 * 200));
      Banc.Pilote.SuivanteDifferee = std::make_shared<faux::TrameComptee>(image, Compte);
      return QImage();
    };
    Banc.Clique("Bouton(0)");
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Banc.Fenetre));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Banc.Moniteur));
    for (int i = 0; i < 3; ++i) Trame();  // the monitor has found its size, the small view its zone
    Oublie();
  }
  // Each takes another time than the one before, so that the counter of milliseconds has something to tell.
  void Trame() {
    Banc.Horloge.Millisecondes += 40 + Rang_;
    Banc.Tic();
    Laisse();
  }
  static void Laisse() {
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
  }
  void Oublie() {
    Laisse();
    Peint.Oublie();
    Compte = {};
  }
  // What the frames since Oublie have painted, as often as they did: for the message of a test that fails.
  std::string Tout() const {
    std::string dit;
    for (auto it = Peint.Fois.begin(); it != Peint.Fois.end(); ++it)
      dit += qPrintable(it.key()) + std::string(" ") + std::to_string(it.value()) + "; ";
    return dit;
  }

  faux::BancFenetre Banc;
  Peintures Peint;
  faux::CompteTrames Compte;

 private:
  int Rang_ = 0;
};

TEST_F(PeintureDesVues, AFrameIsPaintedOnceInEachPlaceThatItChanges) {
  Trame();
  EXPECT_EQ(Compte.Regardees, 1);
  EXPECT_EQ(Compte.Entieres, 0) << "monitor and small view take what they show";
  for (const char* vue : {"Picture1", "Picture2", "LabelTemoin(0)"})
    EXPECT_EQ(Peint.Fois.value(vue), 1) << vue << " of " << Tout();
  QRegion permis;
  for (const char* vue : {"Picture2", "LabelTemoin(0)", "LabelTemoin(1)"}) {
    const QWidget* widget = Banc.Trouve(vue);
    permis += QRect(widget->mapTo(&Banc.Fenetre, QPoint(0, 0)), widget->size());
  }
  EXPECT_TRUE((Peint.Ou.value("PictPage(1)").translated(PageVaktor::kPlace.topLeft()) - permis).isEmpty());
  EXPECT_TRUE(Peint.Ou.value("Form1").isEmpty()) << Tout();
}

// The page in front has nothing that a frame changes.
TEST_F(PeintureDesVues, BehindAnotherPageNothingIsPaintedAndWhatStandsThereIsOfTheLastFrame) {
  Banc.Fenetre.AmenePage(3);
  Banc.Moniteur.hide();
  Oublie();
  Trame();
  Trame();
  EXPECT_TRUE(Peint.Fois.isEmpty()) << Tout();
  EXPECT_EQ(Compte.Regardees, 0);
  Banc.Fenetre.AmenePage(1);
  Laisse();
  EXPECT_EQ(Peint.Fois.value("Picture2"), 1);
  EXPECT_EQ(Compte.Regardees, 1);
}

TEST_F(PeintureDesVues, OfWindowsThatAreOnNoScreenNothingIsPaintedAndNoPictureIsMade) {
  Banc.Fenetre.windowHandle()->hide();  // as a minimised one
  Banc.Moniteur.hide();
  Oublie();
  ASSERT_FALSE(Banc.Fenetre.windowHandle()->isExposed());
  Trame();
  Trame();
  EXPECT_TRUE(Peint.Fois.isEmpty()) << Tout();
  EXPECT_EQ(Compte.Regardees, 0);
}

TEST_F(PeintureDesVues, WhereNothingMovesTheSmallViewIsPaintedBlackOnce) {
  Banc.Pilote.Suivante = [this] {
    Banc.Pilote.SuivanteDifferee =
        std::make_shared<faux::TrameComptee>(faux::BancFenetre::ImageUnie(64, 48, qRgb(20, 30, 40)), Compte);
    return QImage();
  };
  for (int i = 0; i < 3; ++i) Trame();
  EXPECT_EQ(Banc.Trouve("Picture2")->grab().toImage().pixel(60, 50), qRgb(0, 0, 0));
  Oublie();
  Trame();
  Trame();
  EXPECT_EQ(Peint.Fois.value("Picture1"), 2) << "frames go on";
  EXPECT_EQ(Peint.Fois.value("Picture2"), 0) << Tout();
}

TEST_F(PeintureDesVues, TheEnlargedViewIsPaintedAtEachFrame) {
  Banc.PleinEcran.Montre();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(Banc.PleinEcran.Forme()));
  Oublie();
  Trame();
  EXPECT_EQ(Peint.Fois.value("WebcamPecran"), 1) << Tout();
  EXPECT_EQ(Compte.Entieres, 1) << "stretched over a screen it needs the picture";
  Trame();
  EXPECT_EQ(Peint.Fois.value("WebcamPecran"), 2) << Tout();
}

// A camera may be larger than the screen; who moves the monitor sees the rest of it.
TEST_F(PeintureDesVues, TheMonitorIsPaintedWhereItIsOnAScreenAndWholeWhenItMoves) {
  auto* image = Banc.Moniteur.findChild<QWidget*>("Picture1");
  const QRect ecran = Banc.Moniteur.screen()->virtualGeometry();
  Banc.Moniteur.move(ecran.right() - 15, ecran.top() + 20);
  Oublie();
  Trame();
  const int vus = ecran.right() + 1 - image->mapToGlobal(QPoint(0, 0)).x();  // beside its frame
  ASSERT_GT(vus, 0);
  ASSERT_LT(vus, image->width());
  EXPECT_EQ(Peint.Ou.value("Picture1").boundingRect(), QRect(0, 0, vus, image->height()));
  Oublie();
  Banc.Moniteur.move(ecran.left() + 20, ecran.top() + 20);
  Laisse();
  EXPECT_EQ(Peint.Ou.value("Picture1").boundingRect(), image->rect());
  Banc.Moniteur.move(ecran.right() + 50, ecran.top());
  Oublie();
  Trame();
  EXPECT_TRUE(Peint.Ou.value("Picture1").isEmpty());
}

// Two columns of most cameras' frames share one colour.
TEST_F(PeintureDesVues, TheMonitorPaintsNoHalfOfAPairOfColumns) {
  auto* image = Banc.Moniteur.findChild<QWidget*>("Picture1");
  const QRect ecran = Banc.Moniteur.screen()->virtualGeometry();
  for (const int dehors : {15, 16}) {
    Banc.Moniteur.move(ecran.topLeft() + QPoint(-dehors, 20));
    Banc.Moniteur.move(Banc.Moniteur.pos() - QPoint(image->mapToGlobal(QPoint(0, 0)).x() - ecran.left() + dehors, 0));
    ASSERT_EQ(image->mapToGlobal(QPoint(0, 0)).x(), ecran.left() - dehors);
    Oublie();
    Trame();
    EXPECT_EQ(Peint.Ou.value("Picture1").boundingRect().left(), dehors / 2 * 2);
  }
}

// The screen that was there at the start may be gone by then.
TEST_F(PeintureDesVues, TheMonitorIsPaintedWholeWhenTheScreensChangeAndOneThatCameLaterTellsOfItToo) {
  auto* image = Banc.Moniteur.findChild<QWidget*>("Picture1");
  QScreen* ecran = Banc.Moniteur.screen();
  Oublie();
  Q_EMIT ecran->virtualGeometryChanged(ecran->virtualGeometry());
  Laisse();
  EXPECT_EQ(Peint.Ou.value("Picture1").boundingRect(), image->rect());
  ASSERT_TRUE(QObject::disconnect(ecran, &QScreen::virtualGeometryChanged, &Banc.Moniteur, nullptr));
  Q_EMIT qGuiApp->screenAdded(ecran);
  Oublie();
  Q_EMIT ecran->virtualGeometryChanged(ecran->virtualGeometry());
  Laisse();
  EXPECT_EQ(Peint.Ou.value("Picture1").boundingRect(), image->rect());
}

TEST_F(PeintureDesVues, TheGaugePaintsTheColumnsThatItsMarkerHasPassed) {
  auto* jauge = Banc.Trouve<JaugeWidget>("PictSeuil");
  const auto dessine = [&](qint32 valeur, bool haute) {
    Peint.Oublie();
    jauge->Dessine(valeur, haute);
    Laisse();
    return Peint.Ou.value("PictSeuil").boundingRect();
  };
  dessine(1'000'000, false);
  const int avant = static_cast<int>(1'000'000 * 360.0 / 7'000'000);
  EXPECT_TRUE(dessine(1'001'000, false).isEmpty()) << "not a pixel further";
  EXPECT_TRUE(Peint.Fois.isEmpty()) << Tout();
  const QRect loin = dessine(2'000'000, false);
  EXPECT_EQ(loin.left(), avant);
  EXPECT_EQ(loin.right(), static_cast<int>(2'000'000 * 360.0 / 7'000'000)) << "with the marker";
  EXPECT_EQ(loin.height(), jauge->height());
  EXPECT_EQ(dessine(1'000'000, false), loin) << "and back";
  EXPECT_EQ(dessine(1'000'000, true), jauge->rect()) << "another colour";
  EXPECT_TRUE(Peint.Ou.value("Form1").isEmpty()) << "what lies behind is not seen";
}

// What is left on the screen of the steps is what a gauge shows that is drawn at once.
TEST_F(PeintureDesVues, TheGaugeLooksAsIfItWerePaintedWhole) {
  auto* jauge = Banc.Trouve<JaugeWidget>("PictSeuil");
  for (const auto& [valeur, haute] : {std::pair{3'000'000, false},
                                      {2'000'000, false},
                                      {-400'000, false},
                                      {9'000'000, true},
                                      {6'500'000, true},
                                      {5'000'000, false}}) {
    jauge->Dessine(valeur, haute);
    Laisse();
    const auto* ecran = static_cast<QImage*>(Banc.Fenetre.backingStore()->paintDevice());
    const QImage vu = ecran->copy(QRect(jauge->mapTo(&Banc.Fenetre, QPoint(0, 0)), jauge->size()));
    EXPECT_EQ(vu, jauge->grab().toImage().convertToFormat(vu.format())) << valeur;
  }
}

}  // namespace
}  // namespace vaktor
