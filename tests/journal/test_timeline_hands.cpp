// SPDX-License-Identifier: GPL-3.0-or-later
// Strip, cards, buttons and keys of the timeline, each by itself.
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <cmath>

#include "journal/timeline_bench.h"

namespace vaktor::essai {
namespace {

class FriseGestes : public BancFrise {
 protected:
  void Touche(Qt::Key touche, Qt::KeyboardModifiers avec = {}) { QTest::keyClick(&Bande(), touche, avec); }
  void Clique(const QPoint& place, Qt::MouseButton bouton = Qt::LeftButton) {
    QTest::mouseClick(&Bande(), bouton, {}, place);
  }
  void CliqueBouton(const char* nom) { BancFrise::Clique(nom); }
  void RedonneChronique() {
    Fenetre.close();
    Fenetre.Ouvre();
    Chroniques.Livre(Nuit);
    QCoreApplication::processEvents();
  }
};

// --- The strip

TEST_F(FriseGestes, ANewReadingKeepsTheZoomAndAnotherDayIsShownWhole) {
  Ouvre();
  const vaktor::Fenetre tout = Bande().Vue();
  for (int i = 0; i < 4; ++i) Touche(Qt::Key_Plus);
  const vaktor::Fenetre pres = Bande().Vue();
  EXPECT_NE(pres, tout);
  QTest::keyClick(&Fenetre, Qt::Key_F5);
  Chroniques.Livre(Nuit);
  EXPECT_EQ(Bande().Vue(), pres);
  CliqueBouton("CmdAvant");
  EXPECT_EQ(Bande().Vue(), tout);
}

TEST_F(FriseGestes, AChosenBarIsBroughtIntoSightAndOneInSightStaysWhereItIs) {
  Ouvre();
  for (int i = 0; i < 8; ++i) Touche(Qt::Key_Plus);  // around noon
  EXPECT_GT(Bande().Vue().De, 6 * 3'600'000);
  Cartes().MontreChoix(2);
  const vaktor::Fenetre vue = Bande().Vue();
  EXPECT_LE(vue.De, 3 * 3'600'000);
  EXPECT_GE(vue.A, 3.5 * 3'600'000);
  Touche(Qt::Key_Minus);
  Touche(Qt::Key_Minus);
  const vaktor::Fenetre autre = Bande().Vue();
  Cartes().MontreChoix(3);
  EXPECT_EQ(Bande().Vue(), autre);
}

TEST_F(FriseGestes, ArrowsBeginAtTheEndThatTheyComeFromAndControlMovesTheWindow) {
  Ouvre();
  Touche(Qt::Key_Left);
  EXPECT_EQ(Cartes().Choix(), 3);
  RedonneChronique();
  Cartes().MontreChoix(-1);
  Touche(Qt::Key_Right);
  EXPECT_EQ(Cartes().Choix(), 1);
  for (int i = 0; i < 4; ++i) Touche(Qt::Key_Plus);
  const vaktor::Fenetre avant = Bande().Vue();
  const qint64 quart = (avant.A - avant.De) / 4;
  Touche(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Bande().Vue().De, avant.De + quart);
  Touche(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Bande().Vue(), avant);
  EXPECT_EQ(Cartes().Choix(), 1) << "the choice stays";
}

TEST_F(FriseGestes, EnterOrADoubleClickOnABarPlaysThatIntrusion) {
  Ouvre();
  Touche(Qt::Key_Return);
  EXPECT_EQ(Fenetre.Lecteur(), nullptr) << "nothing is chosen";
  Cartes().MontreChoix(1);
  Touche(Qt::Key_Return);
  ASSERT_NE(Fenetre.Lecteur(), nullptr);
  EXPECT_EQ(Fenetre.Lecteur()->Intrusion().Debut.time().hour(), 2);
  Fenetre.Lecteur()->close();
  QTest::mouseDClick(&Bande(), Qt::LeftButton, {}, PlaceDe(5.205));
  EXPECT_TRUE(Fenetre.Lecteur()->isVisible());
  EXPECT_EQ(Fenetre.Lecteur()->Intrusion().Debut.time().hour(), 5);
  EXPECT_EQ(Cartes().Choix(), 3);
}

TEST_F(FriseGestes, OnlyAWholeClickOfTheLeftButtonOnTheTrackChooses) {
  Ouvre();
  const QPoint barre = PlaceDe(3.205);
  Clique(barre, Qt::RightButton);
  EXPECT_EQ(Cartes().Choix(), -1);
  Clique({barre.x(), Bande().height() - 5});
  EXPECT_EQ(Cartes().Choix(), -1) << "among the hours";
  QTest::mousePress(&Bande(), Qt::LeftButton, {}, barre - QPoint(40, 0));
  QTest::mouseMove(&Bande(), barre);
  QTest::mouseRelease(&Bande(), Qt::LeftButton, {}, barre);
  EXPECT_EQ(Cartes().Choix(), -1) << "a drag";
  QTest::mousePress(&Bande(), Qt::LeftButton, {}, barre - QPoint(2, 0));
  QTest::mouseMove(&Bande(), barre);
  QTest::mouseRelease(&Bande(), Qt::LeftButton, {}, barre);
  EXPECT_EQ(Cartes().Choix(), 2) << "a hand that trembles, behind a drag too";
}

TEST_F(FriseGestes, OfTwoBarsTheNearerOneIsHit) {
  Nuit.Intrusions.insert(2, Intrusion(QDateTime(kJour, QTime(2, 24)), 4, 100));
  Ouvre();
  const auto place = [this](const QDateTime& moment) {
    return 0.5 +
           static_cast<double>(QDateTime(kJour, QTime(0, 0)).msecsTo(moment)) / 86'400'000 * (Bande().width() - 1);
  };
  // A bar is four points wide; between the two, nearer to the first one.
  const double droite = place(Nuit.Intrusions[1].Debut) + 4;
  const double gauche = place(Nuit.Intrusions[2].Debut);
  ASSERT_GT(gauche - droite, 1.5);
  Clique({static_cast<int>(std::lround((droite + gauche) / 2 - 0.5)), PlaceDe(2).y()});
  EXPECT_EQ(Cartes().Choix(), 1);
  Clique({static_cast<int>(std::lround(gauche + 1)), PlaceDe(2).y()});
  EXPECT_EQ(Cartes().Choix(), 2);
}

TEST_F(FriseGestes, ThePointerShowsWhatCanBeClicked) {
  Ouvre();
  const auto passe = [this](const QPoint& ou) {
    QMouseEvent passage(QEvent::MouseMove, ou, Bande().mapToGlobal(ou), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Bande(), &passage);
    return Bande().cursor().shape();
  };
  EXPECT_EQ(passe(PlaceDe(12)), Qt::ArrowCursor);
  EXPECT_EQ(passe(PlaceDe(3.205)), Qt::PointingHandCursor);
  EXPECT_EQ(passe(PlaceDe(12)), Qt::ArrowCursor);
}

TEST_F(FriseGestes, ATipGoesWhereNothingIs) {
  Ouvre();
  const auto aide = [this](const QPoint& ou) {
    QHelpEvent evenement(QEvent::ToolTip, ou, Bande().mapToGlobal(ou));
    QCoreApplication::sendEvent(&Bande(), &evenement);
  };
  aide(PlaceDe(4.25));
  EXPECT_TRUE(QToolTip::text().startsWith(QStringLiteral("The camera gives no new pictures")));
  aide(PlaceDe(12));
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible() || QToolTip::text().isEmpty(); }, 5'000));
}

TEST_F(FriseGestes, StripAndCardsAreHeard) {
  Ouvre();
  EXPECT_EQ(Bande().accessibleName(), QStringLiteral("Timeline of the day"));
  EXPECT_TRUE(Bande().accessibleDescription().contains(QStringLiteral("Arrows: from one intrusion to the next")));
  EXPECT_EQ(Cartes().accessibleName(), QStringLiteral("Intrusions of the day"));
  EXPECT_EQ(Trouve<QAbstractButton>("CmdAvant").accessibleName(), QStringLiteral("Day before: 1 intrusion"));
  EXPECT_EQ(Trouve<QAbstractButton>("CmdApres").accessibleName(), QStringLiteral("Day after: 0 intrusions"));
  EXPECT_EQ(Trouve<QAbstractButton>("CmdApres").toolTip(), QStringLiteral("Day after: 0 intrusions"));
}

// --- Cards and thumbnails

TEST_F(FriseGestes, ADoubleClickOnACardPlaysIt) {
  Ouvre();
  const QPoint carte = Cartes().visualRect(Cartes().Modele().index(1)).center();
  QTest::mouseClick(Cartes().viewport(), Qt::LeftButton, {}, carte);
  EXPECT_EQ(Cartes().Choix(), 2);
  QTest::mouseDClick(Cartes().viewport(), Qt::LeftButton, {}, carte);
  ASSERT_NE(Fenetre.Lecteur(), nullptr);
  EXPECT_EQ(Fenetre.Lecteur()->Intrusion().Debut.time().hour(), 3);
}

TEST_F(FriseGestes, AnotherSizeOfThumbnailsForgetsThoseThatAreThere) {
  CacheVignettes cache(Vignettes, [](const QString&) {});
  const QImage image(40, 30, QImage::Format_RGB32);
  cache.ChoisitTaille({40, 30});
  cache.Veut({QStringLiteral("a"), QStringLiteral("b")});
  EXPECT_EQ(Vignettes.Demandees, QStringList{QStringLiteral("a")}) << "one at a time";
  Vignettes.Livre({EtatPhoto::kLue, image, image.size()});
  EXPECT_EQ(Vignettes.Demandees.last(), QStringLiteral("b")) << "the next one without being asked again";
  EXPECT_NE(cache.Donne(QStringLiteral("a")), nullptr);
  cache.ChoisitTaille({80, 60});
  EXPECT_EQ(cache.Donne(QStringLiteral("a")), nullptr);
  EXPECT_EQ(cache.Octets(), 0);
  EXPECT_FALSE(Vignettes.Attend());
}

TEST_F(FriseGestes, WhatWasPushedOutOfTheCacheCountsNoMore) {
  CacheVignettes cache(
      Vignettes, [](const QString&) {}, qint64{2} * 40 * 30 * 4);
  cache.ChoisitTaille({40, 30});
  const QImage image(40, 30, QImage::Format_RGB32);
  for (int i = 0; i < 6; ++i) {
    cache.Veut({QString::number(i)});
    Vignettes.Livre({EtatPhoto::kLue, image, image.size()});
  }
  EXPECT_NE(cache.Donne(QStringLiteral("5")), nullptr);
  EXPECT_NE(cache.Donne(QStringLiteral("4")), nullptr) << "two fit";
  EXPECT_EQ(cache.Octets(), 2 * 40 * 30 * 4);
}

TEST_F(FriseGestes, AThumbnailThatComesIsPaintedWithoutATurnOfTheWheel) {
  Ouvre();
  QImage image(220, 165, QImage::Format_RGB32);
  image.fill(Qt::red);
  class Peintures : public QObject {
   public:
    bool eventFilter(QObject*, QEvent* evenement) override {
      Nombre += evenement->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
    int Nombre = 0;
  } peintures;
  QCoreApplication::processEvents();
  Cartes().viewport()->installEventFilter(&peintures);
  Vignettes.Livre({EtatPhoto::kLue, image, image.size()});
  EXPECT_TRUE(QTest::qWaitFor([&] { return peintures.Nombre > 0; }, 5'000));
}

// --- Buttons and keys

TEST_F(FriseGestes, ButtonsOfTheDaysAndTheWindow) {
  Ouvre();
  EXPECT_FALSE(Trouve<QAbstractButton>("CmdAujourdhui").isEnabled());
  CliqueBouton("CmdAvant");
  CliqueBouton("CmdAvant");
  EXPECT_TRUE(Trouve<QAbstractButton>("CmdAujourdhui").isEnabled());
  CliqueBouton("CmdApres");
  EXPECT_EQ(Fenetre.Jour(), kJour.addDays(-1));
  CliqueBouton("CmdFermerFrise");
  EXPECT_FALSE(Fenetre.isVisible());
  RedonneChronique();
  QTest::keyClick(&Cartes(), Qt::Key_Escape);
  EXPECT_FALSE(Fenetre.isVisible());
}

TEST_F(FriseGestes, ButtonsFollowTheChoiceAndWhatIsLeftOfIt) {
  Nuit.Intrusions[3].Photos.clear();
  Ouvre();
  const auto permis = [this] {
    return QList<bool>{Trouve<QAbstractButton>("CmdRegarder").isEnabled(),
                       Trouve<QAbstractButton>("CmdEnregistrer").isEnabled(),
                       Trouve<QAbstractButton>("CmdSupprimer").isEnabled()};
  };
  EXPECT_EQ(permis(), (QList<bool>{false, false, false}));
  Cartes().MontreChoix(2);
  EXPECT_EQ(permis(), (QList<bool>{true, true, true}));
  Cartes().MontreChoix(3);
  EXPECT_EQ(permis(), (QList<bool>{false, false, false})) << "no photo of it is left";
}

TEST_F(FriseGestes, ADeletionFreesItsButtonWhenItIsThroughAndOnlyThen) {
  Ouvre();
  Cartes().MontreChoix(2);
  CliqueBouton("CmdSupprimer");
  EXPECT_FALSE(Trouve<QAbstractButton>("CmdSupprimer").isEnabled());
  FinSuppression();
  Chroniques.Livre(Nuit);
  EXPECT_TRUE(Trouve<QAbstractButton>("CmdSupprimer").isEnabled());
}

TEST_F(FriseGestes, OpenedAgainItReadsAnewInTheLanguageOfTheMoment) {
  Ouvre();
  ASSERT_TRUE(Vignettes.Attend());
  Vignettes.Livre({EtatPhoto::kAbsente, {}, {}});
  const QString premiere = Vignettes.Demandees.first();
  int lectures = Chroniques.Lectures;
  Fenetre.Ouvre();
  EXPECT_EQ(Chroniques.Lectures, lectures) << "raised only";
  Fenetre.close();
  Reglages.LangueCourante = 0;
  Cartes().clearFocus();
  Fenetre.Ouvre();
  EXPECT_EQ(Chroniques.Lectures, lectures + 1);
  EXPECT_EQ(Fenetre.windowTitle(), QStringLiteral("Frise"));
  EXPECT_EQ(Fenetre.focusWidget(), &Cartes());
  EXPECT_TRUE(Cartes().Avis().isEmpty()) << "the cards stay while it reads";
  EXPECT_EQ(Cartes().accessibleDescription(), QString()) << "and nobody hears that nothing moved";
  Chroniques.Livre(Nuit);
  for (int i = 0; i < 9 && Vignettes.Attend(); ++i) {
    Vignettes.Livre({EtatPhoto::kAbsente, {}, {}});
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(Vignettes.Demandees.count(premiere), 2) << "what failed is tried once more";
}

TEST_F(FriseGestes, AReadingThatGetsNoAnswerLeavesTheCardsOfTheOneBefore) {
  Ouvre();
  QTest::keyClick(&Cartes(), Qt::Key_F5);
  EXPECT_TRUE(Chroniques.Attend());
  Chroniques.Tarde();
  EXPECT_EQ(Cartes().Modele().rowCount(), 3);
  EXPECT_FALSE(Cartes().Avis().contains(QStringLiteral("does not answer")));
  EXPECT_TRUE(Trouve<QLabel>("LblEtat").text().contains(QStringLiteral("does not answer")));
}

TEST_F(FriseGestes, LinesOfOneIntrusionAreReadTogetherAndDoNotPutTheReadingOff) {
  Ouvre();
  const int lectures = Chroniques.Lectures;
  QElapsedTimer temps;
  temps.start();
  while (Chroniques.Lectures == lectures && temps.elapsed() < 10'000) {
    Fenetre.NoteChangement();
    QTest::qWait(200);
  }
  EXPECT_EQ(Chroniques.Lectures, lectures + 1);
}

TEST_F(FriseGestes, AReadingStaysOnTheDayAndItsPlaceAndAnotherDayBeginsAtItsTop) {
  for (int i = 0; i < 40; ++i) Nuit.Intrusions.append(Intrusion(QDateTime(kJour, QTime(6, i)), 2, 100));
  for (int i = 0; i < 40; ++i)
    Nuit.Intrusions.prepend(Intrusion(QDateTime(kJour.addDays(-1), QTime(6, 59 - i)), 2, 100));
  Ouvre();
  QScrollBar& barre = *Cartes().verticalScrollBar();
  barre.setValue(300);
  QTest::keyClick(&Cartes(), Qt::Key_F5);
  Chroniques.Livre(Nuit);
  EXPECT_EQ(barre.value(), 300);
  CliqueBouton("CmdAvant");
  EXPECT_EQ(barre.value(), 0);
  QTest::keyClick(&Cartes(), Qt::Key_F5);
  Chroniques.Livre(Nuit);
  EXPECT_EQ(Fenetre.Jour(), kJour.addDays(-1)) << "what is new today does not take it away";
}

TEST_F(FriseGestes, AQuietNightGoesOnTodayAloneAndWhileItIsArmed) {
  Nuit.Intrusions.clear();
  Nuit.Armees[0].EnCours = true;
  Ouvre();
  EXPECT_TRUE(Cartes().Avis().startsWith(QStringLiteral("Nothing has moved."))) << Cartes().Avis().toStdString();
  CliqueBouton("CmdAvant");
  EXPECT_TRUE(Cartes().Avis().startsWith(QStringLiteral("Nothing moved.")));
}

}  // namespace
}  // namespace vaktor::essai
