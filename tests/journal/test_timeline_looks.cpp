// SPDX-License-Identifier: GPL-3.0-or-later
// What strip, cards and player of the timeline paint.
#include <algorithm>

#include "engine/frame_surface.h"
#include "journal/timeline_bench.h"

namespace vaktor::essai {
namespace {

class FriseVue : public BancFrise {
 protected:
  static QImage Photographie(QWidget& vue) { return vue.grab().toImage().convertToFormat(QImage::Format_RGB32); }
  /// How many pixels of a column or of a part have a colour.
  static int Compte(const QImage& image, const QRect& ou, const QColor& couleur) {
    int nombre = 0;
    for (int y = ou.top(); y <= ou.bottom(); ++y)
      for (int x = ou.left(); x <= ou.right(); ++x) nombre += image.pixelColor(x, y) == couleur ? 1 : 0;
    return nombre;
  }
  /// Pixels of another colour.
  static int Autres(const QImage& image, const QRect& ou, const QColor& fond) {
    return ou.width() * ou.height() - Compte(image, ou, fond);
  }
  static int Rougeur(const QImage& image, const QPoint& ou) {
    const QColor couleur = image.pixelColor(ou);
    return couleur.red() - couleur.green();
  }
  int Colonne(double heures) { return PlaceDe(heures).x(); }
  const AllureFrise& Allure() { return Cartes().Allure(); }
  /// The cards with all their thumbnails, each of this size and colour.
  void LivreVignettes(const QSize& entiere, const QColor& couleur) {
    QImage image(entiere.scaled(ListeCartes::kImage, Qt::KeepAspectRatio), QImage::Format_RGB32);
    image.fill(couleur);
    for (int i = 0; i < 9 && Vignettes.Attend(); ++i) {
      Vignettes.Livre({EtatPhoto::kLue, image, entiere});
      QCoreApplication::processEvents();
    }
  }
};

TEST_F(FriseVue, TheStripShowsArmedTimeConditionsMailsAndBarsAsHighAsTheMovement) {
  Nuit.Marques.append({QDateTime(kJour.addDays(-1), QTime(6, 0)), Fait::kCourriel});
  Ouvre();
  const QImage bande = Photographie(Bande());
  const int haut = bande.height();
  const auto colonne = [&](double heures) { return QRect(Colonne(heures), 0, 1, haut); };
  EXPECT_GT(Compte(bande, colonne(1), Allure().Armee), 5) << "armed";
  EXPECT_EQ(Compte(bande, colonne(12), Allure().Armee), 0);
  EXPECT_GT(Rougeur(bande, {Colonne(4.25), 3}), 80) << "the camera was gone";
  EXPECT_GT(Rougeur(bande, {Colonne(4.25), 60}), Rougeur(bande, {Colonne(1), 60}) + 10) << "from top to bottom";
  EXPECT_LT(Rougeur(bande, {Colonne(1), 3}), 20);
  const auto hauteur = [&](double heures) {
    return Compte(bande, QRect(Colonne(heures) - 2, 0, 8, haut), Allure().Barre);
  };
  EXPECT_GT(hauteur(2.2), 40);
  EXPECT_GT(hauteur(3.2), hauteur(2.2));
  EXPECT_GT(hauteur(5.2), hauteur(3.2));
  // The highest one of the day reaches the marks, whatever moved on other days.
  const int premiere = [&] {
    for (int y = 0; y < haut; ++y)
      if (Compte(bande, QRect(Colonne(5.2) - 2, y, 8, 1), Allure().Barre) > 0) return y;
    return haut;
  }();
  EXPECT_LT(premiere, 20);
  EXPECT_GT(Compte(bande, QRect(Colonne(6) - 4, 10, 9, 5), Allure().Carte), 10) << "the mail's envelope";
}

TEST_F(FriseVue, TheHighestBarIsThatOfTheDayAndNotOfAnother) {
  Nuit.Intrusions[0].Points = 100'000;
  Ouvre();
  const QImage bande = Photographie(Bande());
  EXPECT_GT(Compte(bande, QRect(Colonne(5.2) - 2, 0, 8, 40), Allure().Barre), 30);
}

TEST_F(FriseVue, AConditionOfAMomentIsWideEnoughToBeSeenAndHit) {
  Nuit.Conditions[0].A = Nuit.Conditions[0].De.addMSecs(1);
  Ouvre();
  const QImage bande = Photographie(Bande());
  int rouges = 0;
  for (int x = Colonne(4) - 3; x < Colonne(4) + 8; ++x) rouges += Rougeur(bande, {x, 3}) > 80 ? 1 : 0;
  EXPECT_GE(rouges, 3);
  EXPECT_TRUE(Bande().DitA(PlaceDe(4) + QPoint(2, 0)).contains(QStringLiteral("The camera gives no new pictures")));
}

TEST_F(FriseVue, MarksOfOtherDaysAreNotShown) {
  Nuit.Marques = {{QDateTime(kJour.addDays(-1), QTime(23, 59, 59)), Fait::kCourriel}};
  Nuit.Intrusions.clear();
  Ouvre();
  const QImage sans = Photographie(Bande());
  Nuit.Marques.clear();
  Fenetre.close();
  Ouvre();
  EXPECT_EQ(Photographie(Bande()), sans);
}

TEST_F(FriseVue, TheDayEndsAtTwentyFour) {
  Ouvre();
  // Four digits and a colon at the right edge: those of 24:00 are other ones than those of 00:00 at the left.
  const QImage bande = Photographie(Bande());
  QFontMetrics mesure(PoliceFrise(11));
  const int large = mesure.horizontalAdvance(QStringLiteral("00:00"));
  const QRect gauche(0, bande.height() - 16, large, 16);
  const QRect droite(bande.width() - large, bande.height() - 16, large, 16);
  const QColor fond = bande.pixelColor(0, bande.height() - 1);
  EXPECT_GT(Autres(bande, droite, fond), 20);
  EXPECT_NE(Autres(bande, droite, fond), Autres(bande, gauche, fond));
}

TEST_F(FriseVue, TheChosenBarAndItsCardAreMarked) {
  Ouvre();
  const QImage avant = Photographie(Bande());
  Cartes().MontreChoix(2);
  const QImage bande = Photographie(Bande());
  EXPECT_EQ(Compte(avant, QRect(Colonne(3.2) - 2, 0, 8, 100), Allure().Choisi), 0);
  EXPECT_GT(Compte(bande, QRect(Colonne(3.2) - 2, 0, 8, 100), Allure().Choisi), 40);
  const QRect carte = Cartes().visualRect(Cartes().Modele().index(1));
  const QImage cartes = Photographie(*Cartes().viewport());
  EXPECT_GT(Compte(cartes, carte, Allure().Choisi), 200);
  EXPECT_EQ(Compte(cartes, Cartes().visualRect(Cartes().Modele().index(0)), Allure().Choisi), 0);
}

TEST_F(FriseVue, ACardHasThePictureWithTheBoxWhereTheMovementWas) {
  for (IntrusionVue& vue : Nuit.Intrusions) vue.Cadre = QRect(200, 200, 100, 100);
  Ouvre();
  LivreVignettes(QSize(440, 330), Qt::white);
  const QImage cartes = Photographie(*Cartes().viewport());
  const QRect carte = Cartes().visualRect(Cartes().Modele().index(0));
  const QPoint coin = carte.topLeft() + QPoint(8, 8);
  const auto contour = [&](const QRect& ou) {
    int nombre = 0;
    for (int y = ou.top(); y <= ou.bottom(); ++y)
      for (int x = ou.left(); x <= ou.right(); ++x) nombre += cartes.pixelColor(x, y) != QColor(Qt::white) ? 1 : 0;
    return nombre;
  };
  // Half as large as the photo, so the box is from 100 to 150.
  EXPECT_GT(contour(QRect(coin + QPoint(98, 120), QSize(5, 1))), 0) << "its left side";
  EXPECT_GT(contour(QRect(coin + QPoint(148, 120), QSize(5, 1))), 0) << "its right side";
  EXPECT_EQ(contour(QRect(coin + QPoint(10, 10), QSize(80, 80))), 0);
  EXPECT_EQ(contour(QRect(coin + QPoint(110, 110), QSize(30, 30))), 0) << "it hides nothing";
}

TEST_F(FriseVue, ACardSaysWhyItHasNoPictureAndSaysNothingBeforeItIsRead) {
  Ouvre();
  const QRect image(Cartes().visualRect(Cartes().Modele().index(0)).topLeft() + QPoint(18, 18), QSize(200, 145));
  const QColor fond(28, 32, 40);
  EXPECT_EQ(Autres(Photographie(*Cartes().viewport()), image, fond), 0) << "it is on its way";
  Vignettes.Livre({EtatPhoto::kIllisible, {}, {}});
  QCoreApplication::processEvents();
  EXPECT_GT(Autres(Photographie(*Cartes().viewport()), image, fond), 100);
  for (IntrusionVue& vue : Nuit.Intrusions) vue.Parlante.clear();
  Fenetre.close();
  Ouvre();
  EXPECT_GT(Autres(Photographie(*Cartes().viewport()), image, fond), 50) << "an intrusion without a photo";
}

TEST_F(FriseVue, ACardTellsTheLengthOfItsIntrusion) {
  Ouvre();
  const QRect carte = Cartes().visualRect(Cartes().Modele().index(0));
  const QRect coin(carte.right() - 80, carte.top() + 178, 72, 22);
  const QImage court = Photographie(*Cartes().viewport()).copy(coin);
  for (IntrusionVue& vue : Nuit.Intrusions) vue.DureeMs = 3'599'000;
  Fenetre.close();
  Ouvre();
  EXPECT_NE(Photographie(*Cartes().viewport()).copy(coin), court);
}

TEST_F(FriseVue, ThumbnailsAreAskedForInTheDensityOfTheScreen) {
  Ouvre();
  EXPECT_EQ(Vignettes.Taille, ListeCartes::kImage * Cartes().devicePixelRatioF());
}

TEST_F(FriseVue, TheWordsOfAQuietDayStandWhereTheCardsWouldBeAndNotOverThem) {
  Ouvre();
  LivreVignettes(QSize(440, 330), Qt::white);
  const QImage avec = Photographie(*Cartes().viewport());
  Cartes().MontreAvis(QStringLiteral("words"));
  EXPECT_EQ(Photographie(*Cartes().viewport()), avec);
}

TEST_F(FriseVue, ThePlayerDrawsTheBoxInTheSizeOfThePictureShownAndOnlyWhenItIsOn) {
  EcranLecture ecran(nullptr);
  ecran.resize(400, 300);
  QImage photo(800, 600, QImage::Format_RGB32);
  photo.fill(Qt::white);
  ecran.Montre(photo, QRect(200, 200, 400, 200));
  const auto touche = [&](const QPoint& ou) {
    const QImage vue = Photographie(ecran);
    int nombre = 0;
    for (int d = -3; d <= 3; ++d) nombre += vue.pixelColor(ou + QPoint(d, 0)) != QColor(Qt::white) ? 1 : 0;
    return nombre > 0;
  };
  EXPECT_TRUE(touche({100, 150}));
  EXPECT_TRUE(touche({300, 150}));
  EXPECT_FALSE(touche({200, 150}));
  ecran.MontreCadre(false);
  EXPECT_FALSE(touche({100, 150}));
}

TEST_F(FriseVue, ASkinThatIsNoneIsTheFirst) {
  EXPECT_EQ(ChoisitAllure(7, 1).Barre, ChoisitAllure(0, 1).Barre);
  EXPECT_EQ(ChoisitAllure(-1, 1).Barre, ChoisitAllure(0, 1).Barre);
  EXPECT_NE(ChoisitAllure(1, 1).Barre, ChoisitAllure(0, 1).Barre);
  EXPECT_NE(ChoisitAllure(2, 1).Barre, ChoisitAllure(0, 1).Barre);
}

}  // namespace
}  // namespace vaktor::essai
