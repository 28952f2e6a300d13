// SPDX-License-Identifier: GPL-3.0-or-later
// The splash, and what the link to the companions shows on the main window.
#include <gtest/gtest.h>

#include <QTest>

#include "ui/fields/field_events.h"
#include "ui/shown/companion_link_view.h"
#include "ui/splash/form_splash.h"
#include "window_bench.h"

namespace vaktor {
namespace {

TEST(Splash, ShowsItsWordsOverItsPictureWhiteOnGrey) {
  FrmSplash splash;
  EXPECT_FALSE(splash.isVisible());
  splash.MontreVersion(QStringLiteral("Version 1.4.9"));
  splash.MontreTitre(QStringLiteral("Vaktor"));
  splash.MontreProgres(QStringLiteral("Ready..."));
  const auto texte = [&](const char* nom) { return splash.findChild<QLabel*>(QLatin1String(nom))->text(); };
  EXPECT_EQ(texte("lblVersion"), QStringLiteral("Version 1.4.9"));
  EXPECT_EQ(texte("lblProductName(0)"), QStringLiteral("Vaktor"));
  EXPECT_EQ(texte("lblProductName(1)"), QStringLiteral("Vaktor"));
  EXPECT_EQ(texte("LabelLoading"), QStringLiteral("Ready..."));
  const QImage vu = splash.grab().toImage();
  EXPECT_EQ(vu.pixelColor(395, 24), QColor(QImage(QStringLiteral(":/splash/1x.png")).pixel(395, 24)));
  bool blanc = false;
  for (int x = 20; x < 200; ++x) blanc = blanc || vu.pixelColor(x, 105) == QColor(Qt::white);
  EXPECT_TRUE(blanc) << "the white title must lie on its shadow";
}

TEST(Splash, AClickAnywhereCountsAlsoOnALabelAndItCannotBeClosed) {
  FrmSplash splash;
  int clics = 0;
  splash.SurClic([&] { ++clics; });
  splash.Montre();
  QTest::mouseClick(&splash, Qt::LeftButton, {}, {300, 100});
  QTest::mouseClick(&splash, Qt::LeftButton, {}, splash.findChild<QLabel*>(QStringLiteral("lblVersion"))->pos());
  EXPECT_EQ(clics, 2);
  QTest::mouseRelease(&splash, Qt::LeftButton, {}, {-5, 100});
  EXPECT_EQ(clics, 2) << "let go beside it";
  splash.close();
  EXPECT_TRUE(splash.isVisible());
  splash.Decharge();
  splash.Montre();
  EXPECT_FALSE(splash.isVisible());
}

TEST(Splash, HiddenItLeavesTheScreenWithItsMemoryAndComesBackWhole) {
  FrmSplash splash;
  splash.SurClic([&] { splash.Cache(); });
  splash.Montre();
  const QImage avant = splash.grab().toImage();
  QTest::mouseClick(&splash, Qt::LeftButton, {}, {300, 100});
  EXPECT_FALSE(splash.isVisible());
  QCoreApplication::processEvents();
  EXPECT_EQ(splash.windowHandle(), nullptr);
  splash.Montre();
  EXPECT_TRUE(splash.isVisible());
  EXPECT_EQ(splash.grab().toImage(), avant);
}

TEST(Splash, ShownAgainBeforeTheScreenForgotItItStays) {
  FrmSplash splash;
  splash.Montre();
  splash.Cache();
  splash.Montre();
  QCoreApplication::processEvents();
  EXPECT_TRUE(splash.isVisible());
  EXPECT_NE(splash.windowHandle(), nullptr);
}

TEST(LinkView, StatusRedFieldsAndPageReachTheWindow) {
  faux::BancFenetre banc;
  VueLiaison vue(banc.Textes, banc.Boites);
  vue.Relie(banc.Fenetre);
  vue.MontreStatut(Libelle::kFtpConnecte);
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugftp")->text(), QStringLiteral("FTP connected"));
  vue.MontreStatutLitteral(Phrase{"Attente", "Waiting"});
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugftp")->text(), QStringLiteral("Waiting"));
  banc.Clique("Image4(0)");
  vue.MontreStatutLitteral(Phrase{"Attente", "Waiting"});
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugftp")->text(), QStringLiteral("Attente"));
  const std::pair<ChampLiaison, const char*> champs[] = {{ChampLiaison::kTxtFtp, "TxtFtp"},
                                                         {ChampLiaison::kTxtFTPracine, "TxtFTPracine"},
                                                         {ChampLiaison::kTxtUserName, "TxtUserName"},
                                                         {ChampLiaison::kTxtPass, "TxtPass"}};
  for (const auto& [champ, nom] : champs) {
    EXPECT_NE(banc.Trouve<QLineEdit>(nom)->palette().color(QPalette::Text), QColor(255, 0, 0));
    vue.RougitChamp(champ);
    EXPECT_EQ(banc.Trouve<QLineEdit>(nom)->palette().color(QPalette::Text), QColor(255, 0, 0)) << nom;
  }
  vue.NoircitRacine();
  for (const auto& [champ, nom] : champs) {
    EXPECT_EQ(EstRouge(*banc.Trouve<QLineEdit>(nom)), champ != ChampLiaison::kTxtFTPracine) << nom;
  }
  vue.MontrePageFtp();
  const QWidget* page = banc.Trouve("PictPage(2)");
  const QWidget* dessus = banc.Fenetre.childAt(page->geometry().bottomLeft() + QPoint(2, -2));
  EXPECT_TRUE(dessus == page || page->isAncestorOf(dessus));
}

TEST(LinkView, OneThatWasNotTiedToItsWindowSaysSoAndShowsNothingInSilence) {
  faux::BancFenetre banc;
  VueLiaison vue(banc.Textes, banc.Boites);
  EXPECT_THROW(vue.ExigeLien(), Echec);
  EXPECT_THROW(vue.MontreStatut(Libelle::kFtpConnecte), Echec);
  EXPECT_THROW(vue.MontrePageFtp(), Echec);
  vue.Relie(banc.Fenetre);
  EXPECT_NO_THROW(vue.ExigeLien());
}

TEST(SurveillanceView, OneThatWasNotTiedToItsWindowSaysSo) {
  faux::BancFenetre banc;
  VueSurveillance vue(banc.Textes, banc.Boites);
  EXPECT_THROW(vue.ExigeLien(), Echec);
  EXPECT_THROW(vue.NommeAlarmeInactive(), Echec);
  EXPECT_NO_THROW(banc.Vue.ExigeLien());
}

TEST(LinkView, TheQuestionHasItsWordsAndItsTwoAnswers) {
  faux::BancFenetre banc;
  VueLiaison vue(banc.Textes, banc.Boites);
  EXPECT_TRUE(vue.DemandeParametresSite());
  banc.Boites.Reponse = ReponseBoite::kAnnuler;
  EXPECT_FALSE(vue.DemandeParametresSite());
  EXPECT_EQ(banc.Boites.Boutons, BoutonsBoite::kOkAnnuler);
  EXPECT_EQ(banc.Boites.Textes.last(), banc.Textes.Dit(Message::kSiteIncomplet));
  EXPECT_EQ(banc.Boites.Titres.last(), banc.Textes.Dit(Message::kTitreManque));
}

}  // namespace
}  // namespace vaktor
