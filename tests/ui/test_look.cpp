// SPDX-License-Identifier: GPL-3.0-or-later
// Skins, frosted pages, and what the mouse does on the window.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QSignalSpy>
#include <cmath>

#include "base/failure.h"
#include "ui/face/art_images.h"
#include "ui/face/page_blend.h"
#include "ui/sent_moves.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;
using faux::Bouge;

// The same pane by reals, pixel for pixel, and by another road than the one of the window.
QRgb PixelAttendu(const QImage& page, const QImage& fond, const QRect& place, int echelle, int x, int y) {
  const int largeur = place.width() * echelle;
  const int hauteur = place.height() * echelle;
  if (x < echelle || y < echelle || x >= largeur - echelle || y >= hauteur - echelle) return page.pixel(x, y);
  const double pasX = double(place.width()) / (place.width() - 2);
  const double pasY = double(place.height()) / (place.height() - 2);
  const QRgb s = fond.pixel(place.x() * echelle + int(std::floor((x - echelle + 0.5) * pasX + 1e-9)),
                            place.y() * echelle + int(std::floor((y - echelle + 0.5) * pasY + 1e-9)));
  const QRgb d = page.pixel(x, y);
  const auto canal = [](int source, int dessin) {
    return int(std::lround(source * (130.0 / 255.0) + dessin * (125.0 / 255.0)));
  };
  return qRgb(canal(qRed(s), qRed(d)), canal(qGreen(s), qGreen(d)), canal(qBlue(s), qBlue(d)));
}

int CompteEcarts(const QImage& melange, const QImage& page, const QImage& fond, const QRect& place, int echelle) {
  int ecarts = 0;
  for (int y = 0; y < melange.height(); ++y) {
    for (int x = 0; x < melange.width(); ++x) {
      if (melange.pixel(x, y) != PixelAttendu(page, fond, place, echelle, x, y)) ++ecarts;
    }
  }
  return ecarts;
}

TEST(MelangePage, EveryPixelIsTheFormulaInsideAFrameOfOnePoint) {
  for (const int echelle : {1, 2}) {
    const QImage page = ChargeArt(QStringLiteral("PictPage1"), echelle);
    const QImage fond = ChargeArt(QStringLiteral("SKIN2"), echelle);
    const QImage melange = MelangePage(page, fond, PageVaktor::kPlace, echelle);
    ASSERT_EQ(melange.size(), PageVaktor::kPlace.size() * echelle);
    EXPECT_EQ(CompteEcarts(melange, page, fond, PageVaktor::kPlace, echelle), 0) << echelle;
  }
}

TEST(MelangePage, BackgroundThatIsMissingLeavesThePlainPage) {
  const QImage page = ChargeArt(QStringLiteral("PictPage1"), 1);
  EXPECT_EQ(MelangePage(page, QImage(), PageVaktor::kPlace, 1), page.copy(QRect({0, 0}, PageVaktor::kPlace.size())));
}

TEST(Skins, ThreeChangesInARowBlendFromTheCleanPage) {
  BancFenetre banc;
  for (const int skin : {2, 0, 1}) banc.Fenetre.Options().CombSkin->setCurrentIndex(skin);
  const QImage fond = ChargeArt(QStringLiteral("SKIN1"), 1);
  EXPECT_EQ(banc.Fenetre.Fond(), fond.copy(0, 0, fond.width(), PageVaktor::kPlace.top() + Form1::kMargeFond));
  const PageVaktor* pages[] = {&banc.Fenetre.Mail(), &banc.Fenetre.Moniteur(), &banc.Fenetre.Ftp(),
                               &banc.Fenetre.Options()};
  for (int i = 0; i < 4; ++i) {
    const QImage page = ChargeArt(QStringLiteral("PictPage%1").arg(i), 1);
    EXPECT_EQ(CompteEcarts(pages[i]->Fond(), page, fond, PageVaktor::kPlace, 1), 0) << i;
  }
}

TEST(Skins, EachOfTheThreeShowsItsOwnPicture) {
  BancFenetre banc;
  for (const int skin : {2, 1, 0}) {
    banc.Fenetre.Options().CombSkin->setCurrentIndex(skin);
    const QImage fond = ChargeArt(QStringLiteral("SKIN%1").arg(skin), 1);
    EXPECT_EQ(banc.Fenetre.Fond().pixel(300, 20), fond.pixel(300, 20)) << skin;
    EXPECT_EQ(banc.Fenetre.Fond().copy(0, 0, 398, 80), fond.copy(0, 0, 398, 80)) << skin;
  }
}

TEST(Skins, PageBehindIsDrawnWhenItComesToTheFront) {
  QWidget fenetre;
  fenetre.resize(400, 300);
  PageVaktor derriere(&fenetre, 0);
  PageVaktor devant(&fenetre, 1);
  int dessins[] = {0, 0};
  const auto dessine = [&dessins](int i) {
    return [&dessins, i] {
      ++dessins[i];
      QImage image(PageVaktor::kPlace.size(), QImage::Format_RGB32);
      image.fill(i == 0 ? Qt::red : Qt::blue);
      return image;
    };
  };
  derriere.MontreFond(dessine(0), 1);
  devant.MontreFond(dessine(1), 1);
  EXPECT_EQ(fenetre.grab().toImage().pixelColor(200, 150), QColor(Qt::blue));
  EXPECT_EQ(dessins[0], 0);
  derriere.raise();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(fenetre.grab().toImage().pixelColor(200, 150), QColor(Qt::red));
  EXPECT_EQ(dessins[0], 1);
  EXPECT_EQ(dessins[1], 1);
}

TEST(Skins, IndexWithoutASkinKeepsThePictureAndDrawsThePagesAgain) {
  BancFenetre banc;
  banc.Fenetre.Options().CombSkin->setCurrentIndex(2);
  const QImage avant = banc.Fenetre.Fond();
  const auto pompes = banc.Pompe.Appels;
  banc.Fenetre.Options().CombSkin->setCurrentIndex(-1);
  EXPECT_EQ(banc.Fenetre.Fond(), avant);
  EXPECT_EQ(banc.Pompe.Appels, pompes + 1);
}

TEST(Skins, ChoosingTheSkinThatShowsDrawsThePagesAgain) {
  BancFenetre banc;
  QComboBox* liste = banc.Fenetre.Options().CombSkin;
  banc.Fenetre.AmenePage(3);
  liste->setCurrentIndex(1);
  QCoreApplication::processEvents();
  const auto pompes = banc.Pompe.Appels;
  liste->showPopup();
  QTest::keyClick(liste->view(), Qt::Key_Return);
  EXPECT_EQ(banc.Pompe.Appels, pompes + 1);
}

TEST(Skins, AnotherSkinChosenByTheUserIsDrawnOnce) {
  BancFenetre banc;
  QComboBox* liste = banc.Fenetre.Options().CombSkin;
  liste->setCurrentIndex(1);
  QCoreApplication::processEvents();
  const auto pompes = banc.Pompe.Appels;
  QTest::keyClick(liste, Qt::Key_Down);
  EXPECT_EQ(liste->currentIndex(), 2);
  EXPECT_EQ(banc.Pompe.Appels, pompes + 1);
}

TEST(Skins, TheUsersChoiceIsNotedForTheNextSaveAndAsksForOne) {
  BancFenetre banc;
  QComboBox* liste = banc.Fenetre.Options().CombSkin;
  liste->setCurrentIndex(1);
  EXPECT_EQ(banc.Reglages.IndexSkin, 1) << "by whomever it is chosen";
  EXPECT_FALSE(banc.Reglages.ParametresModifies) << "only the user's choice asks for a save";
  QTest::keyClick(liste, Qt::Key_Down);
  EXPECT_EQ(banc.Reglages.IndexSkin, 2);
  EXPECT_TRUE(banc.Reglages.ParametresModifies);
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 0) << "but none at once";
  liste->setCurrentIndex(-1);
  EXPECT_EQ(banc.Reglages.IndexSkin, -1);
}

TEST(Skins, TickIsOffWhileTheMessagesArePumpedAndOnAfterwards) {
  BancFenetre banc;
  bool actif = true;
  int fond = 0;
  banc.Pompe.EnAttente = [&] {
    actif = banc.Temps.Trouve(QStringLiteral("Timer1"))->EstActive();
    // The pages lie there without a blend.
    fond = banc.Fenetre.Moniteur().Fond() == ChargeArt(QStringLiteral("PictPage1"), 1) ? 1 : 2;
  };
  banc.Fenetre.Options().CombSkin->setCurrentIndex(1);
  EXPECT_FALSE(actif);
  EXPECT_EQ(fond, 1);
  EXPECT_TRUE(banc.Temps.Trouve(QStringLiteral("Timer1"))->EstActive());
}

// What the pump lets in may open a box, which runs a loop of its own inside of it until somebody answers.
TEST(Skins, FramesAreComparedWhileAMessageStandsInsideTheRedraw) {
  BancFenetre banc;
  banc.Engin.BasculeCamera();
  quint32 vues = 0;
  banc.Pompe.EnAttente = [&] {
    const quint32 avant = banc.Engin.Detection().Comparees;
    banc.Temps.Avance(4000);
    vues = banc.Engin.Detection().Comparees - avant;
  };
  banc.Fenetre.Options().CombSkin->setCurrentIndex(1);
  EXPECT_EQ(vues, 100U);
}

// The camera would go on without anybody looking at its frames.
TEST(Skins, TickComesAgainAfterARedrawThatFailed) {
  BancFenetre banc;
  banc.Pompe.EnAttente = [] { throw Echec(kAppelIncorrect, QStringLiteral("what was let in")); };
  EXPECT_THROW(banc.Fenetre.Face()->DessinePages(), Echec);
  EXPECT_TRUE(banc.Temps.Trouve(QStringLiteral("Timer1"))->EstActive());
}

TEST(Art, MissingBitmapGivesAPlainOne) {
  EXPECT_TRUE(ChargeArt(QStringLiteral("SKIN7"), 1).isNull());
  const QImage uni = ChargeArtOuUni(QStringLiteral("SKIN7"), 2, {10, 4}, Qt::red);
  EXPECT_EQ(uni.size(), QSize(20, 8));
  EXPECT_EQ(uni.pixel(19, 7), qRgb(255, 0, 0));
}

struct Art {
  const char* Nom;
  QSize Taille;
  double Rouge, Vert, Bleu, Tolerance;
};

TEST(Art, SizesAndMeanColours) {
  const Art table[] = {{"SKIN0", {403, 277}, 184, 189, 184, 1},     {"SKIN1", {403, 277}, 184, 189, 189, 1},
                       {"SKIN2", {406, 278}, 90, 80, 63, 1},        {"PictBlue0", {72, 16}, 163, 163, 204, 1},
                       {"PictBlue1", {72, 16}, 161, 161, 202, 1},   {"PictBlue2", {72, 16}, 188, 188, 235, 1},
                       {"PictGrey0", {72, 16}, 212, 212, 212, 1},   {"PictGrey1", {72, 16}, 210, 210, 210, 1},
                       {"PictGrey2", {72, 16}, 204, 204, 204, 1},   {"PictPage0", {408, 164}, 245, 245, 245, 1},
                       {"PictPage1", {410, 175}, 245, 245, 245, 1}, {"PictPage2", {408, 164}, 245, 245, 245, 1},
                       {"PictPage3", {416, 200}, 245, 245, 245, 1}};
  for (const Art& art : table) {
    for (const int echelle : {1, 2}) {
      const QImage image = ChargeArt(QLatin1String(art.Nom), echelle);
      ASSERT_EQ(image.size(), art.Taille * echelle) << art.Nom;
      double rouge = 0, vert = 0, bleu = 0;
      for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
          rouge += qRed(image.pixel(x, y));
          vert += qGreen(image.pixel(x, y));
          bleu += qBlue(image.pixel(x, y));
        }
      }
      const double pixels = double(image.width()) * image.height();
      EXPECT_NEAR(rouge / pixels, art.Rouge, art.Tolerance) << art.Nom << " " << echelle;
      EXPECT_NEAR(vert / pixels, art.Vert, art.Tolerance) << art.Nom << " " << echelle;
      EXPECT_NEAR(bleu / pixels, art.Bleu, art.Tolerance) << art.Nom << " " << echelle;
    }
  }
}

// --- Buttons

TEST(Form1, TabReachesEveryButtonOfTheBandAndOfThePageInFrontAndNoCoveredOne) {
  BancFenetre banc;
  banc.Fenetre.activateWindow();
  banc.Trouve("Bouton(0)")->setFocus();
  QSet<QString> atteints;
  for (int i = 0; i < 60; ++i) {
    QTest::keyClick(banc.Fenetre.focusWidget(), Qt::Key_Tab);
    atteints.insert(banc.Fenetre.focusWidget()->objectName());
  }
  for (const char* nom : {"Bouton(0)", "Bouton(3)", "Bouton(6)", "BoutonGris(0)", "BoutonGris(1)", "Text1"}) {
    EXPECT_TRUE(atteints.contains(QLatin1String(nom))) << nom;
  }
  EXPECT_FALSE(atteints.contains(QStringLiteral("BoutonGris(4)")));
  EXPECT_FALSE(atteints.contains(QStringLiteral("TxtFtp")));
}

// --- Mouse

TEST(Souris, EachControlOfTheTableTellsItsNumber) {
  BancFenetre banc;
  const std::pair<const char*, qint32> table[] = {{"Bouton(0)", 0},     {"Bouton(6)", 6},  {"BoutonGris(8)", 8},
                                                  {"CheckMail", 5},     {"CheckSon", 6},   {"CheckPPhot", 7},
                                                  {"Image4(0)", 11},    {"Image4(1)", 12}, {"ChkSeuilAuto", 15},
                                                  {"LblSeuilAuto", 15}, {"Text1", 17}};
  for (const auto& [nom, id] : table) {
    banc.Sons.DernierSurvol = -1;
    Bouge(banc.Trouve(nom), {3, 3});
    EXPECT_EQ(banc.Sons.DernierSurvol, id) << nom;
  }
}

// The gate itself is silent about an end that it knows already: Sons holds what was passed over last.
TEST(Souris, FreeSurfacesTellTheEndOfTheHover) {
  BancFenetre banc;
  for (const char* nom : {"PictPage(0)", "PictPage(1)", "PictPage(2)", "PictPage(3)"}) {
    Bouge(banc.Trouve("Bouton(5)"), {3, 3});
    Bouge(banc.Trouve(nom), {3, 3});
    EXPECT_EQ(banc.Sons.DernierSurvol, 5555) << nom;
  }
  Bouge(banc.Trouve("Bouton(5)"), {3, 3});
  Bouge(&banc.Fenetre, {1, 1});
  EXPECT_EQ(banc.Sons.DernierSurvol, 5555) << "the window itself";
}

TEST(Souris, WindowIsDraggedByTheListedSurfacesAndByNoOther) {
  BancFenetre banc;
  // The toolkit remembers what tests before have pressed and not released.
  for (const Qt::MouseButton bouton : {Qt::LeftButton, Qt::RightButton}) QTest::mouseRelease(&banc.Fenetre, bouton);
  QSignalSpy deplacements(&banc.Fenetre.Face()->Souris(), &SourisFenetre::DeplacementDemande);
  const QStringList poignees = {"PictPage(0)",   "PictPage(1)",    "PictPage(2)",    "PictPage(3)",
                                "LabelMaildest", "LabelMailSujet", "LabelMailTexte", "LabelNbrMail",
                                "LabelSeuil",    "LabelVague",     "LblDebugAlarm",  "LblDebugftp"};
  Bouge(&banc.Fenetre, {1, 1}, Qt::LeftButton);
  EXPECT_EQ(deplacements.size(), 1);
  for (QWidget* controle : banc.Fenetre.findChildren<QWidget*>()) {
    if (controle->window() != &banc.Fenetre || controle->isHidden()) continue;
    if (controle->parentWidget() != &banc.Fenetre && !controle->parentWidget()->objectName().startsWith("PictPage"))
      continue;
    deplacements.clear();
    Bouge(controle, {1, 1}, Qt::LeftButton);
    EXPECT_EQ(deplacements.size(), poignees.contains(controle->objectName()) ? 1 : 0)
        << controle->objectName().toStdString();
    deplacements.clear();
    for (const Qt::MouseButtons autres : {Qt::MouseButtons(Qt::RightButton), Qt::LeftButton | Qt::RightButton}) {
      Bouge(controle, {1, 1});  // else it would be taken for the rest of the drag before
      Bouge(controle, {1, 1}, autres);
    }
    EXPECT_EQ(deplacements.size(), 0) << controle->objectName().toStdString();
  }
}

TEST(Souris, FlagUnderThePointerLosesItsFrameAndAPageGivesItBack) {
  BancFenetre banc;
  auto* francais = banc.Trouve<DrapeauLangue>("Image4(0)");
  auto* anglais = banc.Trouve<DrapeauLangue>("Image4(1)");
  Bouge(francais, {3, 3});
  EXPECT_FALSE(francais->Encadre());
  EXPECT_TRUE(anglais->Encadre());
  Bouge(anglais, {3, 3});
  EXPECT_TRUE(francais->Encadre());
  EXPECT_FALSE(anglais->Encadre());
  Bouge(&banc.Fenetre, {1, 1});
  EXPECT_FALSE(anglais->Encadre()) << "the window itself gives no frame back";
  Bouge(banc.Trouve("PictPage(2)"), {3, 3});
  EXPECT_TRUE(anglais->Encadre());
}

// Writes pictures of all pages in all skins and both languages into the folder named by VAKTOR_SHOTS, to be looked at.
TEST(Look, PicturesForThePersonWhoLooks) {
  const QString dossier = qEnvironmentVariable("VAKTOR_SHOTS");
  if (dossier.isEmpty()) GTEST_SKIP() << "no folder given";
  for (const int langue : {0, 1}) {
    BancFenetre banc(langue);
    for (int skin = 0; skin < 3; ++skin) {
      banc.Fenetre.Options().CombSkin->setCurrentIndex(skin);
      for (int page = 0; page < 4; ++page) {
        banc.Fenetre.AmenePage(page);
        EXPECT_TRUE(banc.Fenetre.grab().save(
            QStringLiteral("%1/l%2_s%3_p%4.png").arg(dossier).arg(langue).arg(skin).arg(page)));
      }
    }
  }
}

}  // namespace
}  // namespace vaktor
