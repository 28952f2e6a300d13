// SPDX-License-Identifier: GPL-3.0-or-later
// What is painted of a frame without making a picture of it: by the monitor, which writes into the memory of its
// window, and by the small view, which takes the rows that it shows. Both look as if the picture had been painted.
#include <gtest/gtest.h>

#include <QBackingStore>
#include <QPainter>
#include <QPixmap>
#include <QTest>
#include <cstdlib>
#include <functional>
#include <memory>
#include <random>

#include "fakes/counted_frame.h"
#include "image/forms/frame_view.h"
#include "image/forms/surface_painter.h"

namespace vaktor {
namespace {

constexpr QRgb kFond = qRgb(9, 9, 9);

QImage Hasard(int largeur, int hauteur, unsigned germe) {
  QImage image(largeur, hauteur, QImage::Format_RGB32);
  std::mt19937 hasard(germe);
  for (int y = 0; y < hauteur; ++y)
    for (int x = 0; x < largeur; ++x) image.setPixel(x, y, 0xFF000000U | static_cast<QRgb>(hasard()));
  return image;
}

QImage Fond(int largeur, int hauteur, double densite = 1) {
  QImage image(static_cast<int>(largeur * densite), static_cast<int>(hauteur * densite), QImage::Format_RGB32);
  image.setDevicePixelRatio(densite);
  image.fill(kFond);
  return image;
}

struct Trames {
  ImageCamera Donne(const QImage& image) { return ImageCamera(std::make_shared<faux::TrameComptee>(image, Compte)); }
  faux::CompteTrames Compte;
};

class VueDansFenetre : public testing::Test, protected Trames {
 protected:
  void SetUp() override {
    Cadre.setGeometry(6, 3, 61, 37);
    Surface.SurChangement([this] { Cadre.Rafraichit(); });
    Fenetre.resize(80, 50);
    Fenetre.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Fenetre));
    Laisse();
  }
  static void Laisse() {
    for (int i = 0; i < 4; ++i) QCoreApplication::processEvents();
  }
  void Pose(const QImage& image) {
    Surface.Pose(Donne(image));
    Laisse();
  }
  /// What the window shows where the view is.
  QImage Vue() {
    return static_cast<QImage*>(Fenetre.backingStore()->paintDevice())
        ->copy(Cadre.geometry())
        .convertToFormat(QImage::Format_RGB32);
  }

  SurfaceImage Surface;
  QWidget Fenetre;
  VueCadre Cadre{Surface, &Fenetre};
};

TEST_F(VueDansFenetre, AFrameIsWrittenIntoTheWindowAndNoPictureIsMade) {
  for (unsigned germe = 0; germe < 3; ++germe) {
    const QImage image = Hasard(61, 37, germe);
    Pose(image);
    EXPECT_EQ(Vue(), image);
  }
  EXPECT_EQ(Compte.Regardees, 3);
  EXPECT_EQ(Compte.Entieres, 0);
  EXPECT_EQ(Compte.Donnes, 3 * 61 * 37) << "each pixel once";
}

TEST_F(VueDansFenetre, OnlyWhatHasToBePaintedIsWritten) {
  const QImage avant = Hasard(61, 37, 1);
  const QImage apres = Hasard(61, 37, 2);
  Pose(avant);
  Surface.SurChangement({});
  Surface.Pose(Donne(apres));
  Compte = {};
  Cadre.update(QRegion(10, 4, 20, 6) + QRegion(40, 20, 5, 5));
  Laisse();
  QImage attendue = avant;
  QPainter(&attendue).drawImage(QPoint(10, 4), apres, QRect(10, 4, 20, 6));
  QPainter(&attendue).drawImage(QPoint(40, 20), apres, QRect(40, 20, 5, 5));
  EXPECT_EQ(Vue(), attendue);
  EXPECT_EQ(Compte.Donnes, 20 * 6 + 5 * 5);
}

TEST_F(VueDansFenetre, OutlinesAndWordsLieOverIt) {
  const QImage image = Hasard(61, 37, 1);
  Pose(image);
  Surface.Dessine({2, 2, 30, 30});
  Laisse();
  EXPECT_EQ(Vue().pixel(2, 10), kCouleurContour);
  EXPECT_EQ(Vue().pixel(3, 10), image.pixel(3, 10));
  for (int i = 0; i < SurfaceImage::kContoursMax; ++i) Surface.Dessine({40, 30, 50, 36});
  Laisse();
  EXPECT_EQ(Vue().pixel(2, 10), kCouleurContour) << "an older one";
  const QImage sans = Vue();
  Cadre.MontreAvis(QStringLiteral("Signal perdu"));
  Laisse();
  EXPECT_NE(Vue(), sans);
  EXPECT_EQ(Compte.Entieres, 0);
}

TEST_F(VueDansFenetre, BesideASmallerFrameNothingIsWritten) {
  Pose(Hasard(61, 37, 1));
  const QImage petite = Hasard(20, 10, 2);
  QImage attendue = Vue();
  QPainter(&attendue).drawImage(0, 0, petite);
  Pose(petite);
  EXPECT_EQ(Vue(), attendue);
  EXPECT_EQ(Compte.Entieres, 0);
}

TEST_F(VueDansFenetre, AFrameThatCannotGivePartsIsPaintedAsAPicture) {
  Compte.ParParts = false;
  const QImage image = Hasard(61, 37, 1);
  Pose(image);
  EXPECT_EQ(Vue(), image) << "over what was begun";
  EXPECT_EQ(Compte.Entieres, 1);
}

TEST_F(VueDansFenetre, APartThatBeginsWithinAColourIsPaintedAsAPicture) {
  Pose(Hasard(61, 37, 1));
  const QImage image = Hasard(61, 37, 2);
  Surface.SurChangement({});
  Surface.Pose(Donne(image));
  Cadre.update(QRect(7, 5, 20, 11));
  Laisse();
  EXPECT_EQ(Vue().copy(7, 5, 20, 11), image.copy(7, 5, 20, 11));
  EXPECT_EQ(Compte.Entieres, 1);
}

TEST_F(VueDansFenetre, WithoutAFrameItIsBlack) {
  Pose(Hasard(61, 37, 1));
  Surface.Retire();
  Laisse();
  QImage noire(61, 37, QImage::Format_RGB32);
  noire.fill(Qt::black);
  EXPECT_EQ(Vue(), noire);
}

// Where a pixel of the frame is none of the memory, or not all of them may be written, the painter does what it can.
class AutrePeintre : public testing::Test, protected Trames {
 protected:
  /// The pictures that are made for a frame that is painted so; it has to look as a picture would.
  int Entieres(const QImage& fond, const std::function<void(QPainter&)>& prepare) {
    const QImage image = Hasard(30, 20, 5);
    SurfaceImage trame, comme;
    trame.Pose(Donne(image));
    comme.Pose(image);
    QImage vue = fond, attendue = fond;
    for (const auto& [vers, surface] : {std::pair(&vue, &trame), std::pair(&attendue, &comme)}) {
      QPainter peintre(vers);
      prepare(peintre);
      PeintSurface(peintre, *surface, QRect(0, 0, 30, 20));
    }
    EXPECT_EQ(vue, attendue);
    return std::exchange(Compte.Entieres, 0);
  }
};

TEST_F(AutrePeintre, MovedByWholePixelsItIsWritten) {
  EXPECT_EQ(Entieres(Fond(60, 50), [](QPainter& p) { p.translate(11, 7); }), 0);
  EXPECT_EQ(Entieres(Fond(60, 50).convertToFormat(QImage::Format_ARGB32_Premultiplied), [](QPainter&) {}), 0);
}

TEST_F(AutrePeintre, MovedByHalfAPixelStretchedOrClippedItIsPainted) {
  EXPECT_EQ(Entieres(Fond(60, 50), [](QPainter& p) { p.translate(0.5, 0); }), 1);
  EXPECT_EQ(Entieres(Fond(60, 50), [](QPainter& p) { p.translate(0, 0.5); }), 1);
  EXPECT_EQ(Entieres(Fond(60, 50), [](QPainter& p) { p.scale(2, 1); }), 1);
  EXPECT_EQ(Entieres(Fond(60, 50), [](QPainter& p) { p.setClipRect(3, 3, 8, 8); }), 1);
  EXPECT_EQ(Entieres(Fond(60, 50, 2), [](QPainter&) {}), 1) << "a screen of high density";
}

TEST_F(AutrePeintre, WhereItDoesNotFitOrThePixelsAreOthersItIsPainted) {
  EXPECT_EQ(Entieres(Fond(60, 50), [](QPainter& p) { p.translate(40, 0); }), 1);
  EXPECT_EQ(Entieres(Fond(60, 50), [](QPainter& p) { p.translate(0, -3); }), 1);
  EXPECT_EQ(Entieres(Fond(60, 50).convertToFormat(QImage::Format_RGB16), [](QPainter&) {}), 1);
  EXPECT_EQ(Entieres(Fond(60, 50).convertToFormat(QImage::Format_RGBX8888), [](QPainter&) {}), 1);
}

TEST_F(AutrePeintre, APixmapIsPainted) {
  SurfaceImage surface;
  surface.Pose(Donne(Hasard(30, 20, 5)));
  QPixmap pixmap(30, 20);
  QPainter peintre(&pixmap);
  PeintSurface(peintre, surface, QRect(0, 0, 30, 20));
  peintre.end();
  EXPECT_EQ(pixmap.toImage().convertToFormat(QImage::Format_RGB32), Hasard(30, 20, 5));
}

// --- The small view

class Petite : public testing::Test, protected Trames {
 protected:
  QImage Etire(const ImageCamera& trame, const QRect& source, double densite) {
    SurfaceImage surface;
    surface.Pose(trame);
    surface.Dessine({20, 20, 120, 90});
    CopieSurface copie;
    copie.Prend(surface);
    QImage vue = Fond(140, 120, densite);
    QPainter peintre(&vue);
    EtireSurface(peintre, QRect(4, 5, 127, 109), copie, source, Lignes);
    return vue;
  }
  /// A picture whose pixels say where they are, none of them black or of an outline.
  static QImage Lieux(int largeur, int hauteur) {
    QImage image(largeur, hauteur, QImage::Format_RGB32);
    for (int y = 0; y < hauteur; ++y)
      for (int x = 0; x < largeur; ++x) image.setPixel(x, y, qRgb(x % 256, y, 100 + x / 256));
    return image;
  }
  /// Two pixels that were beside each other, or one of the frame's edge and the black beyond it.
  static bool Voisins(QRgb a, QRgb b, QSize trame) {
    if (a == b) return true;
    const auto x = [](QRgb p) { return qRed(p) + 256 * (qBlue(p) - 100); };
    const auto dedans = [](QRgb p) { return qBlue(p) == 100 || qBlue(p) == 101; };
    const auto bord = [&](QRgb p) {
      return dedans(p) && (x(p) == 0 || qGreen(p) == 0 || x(p) == trame.width() - 1 || qGreen(p) == trame.height() - 1);
    };
    if (a == qRgb(0, 0, 0)) return bord(b);
    if (b == qRgb(0, 0, 0)) return bord(a);
    return dedans(a) && dedans(b) && std::abs(x(a) - x(b)) <= 1 && std::abs(qGreen(a) - qGreen(b)) <= 1;
  }

  QImage Lignes;
};

// Where two rows or columns are equally near the painter's own rounding may take the other one.
TEST_F(Petite, LooksAsIfThePictureHadBeenStretched) {
  const QImage image = Lieux(301, 203);
  for (const double densite : {1.0, 2.0, 1.5}) {
    for (const QRect& source :
         {QRect(0, 0, 301, 203), QRect(17, 11, 200, 150), QRect(18, 12, 40, 30), QRect(250, 11, -200, 150),
          QRect(250, 180, 200, -150), QRect(250, 180, -33, -21), QRect(280, 190, 60, 40), QRect(-31, -21, 127, 109),
          QRect(5, 7, 1, 1), QRect(300, 202, -301, -203)}) {
      const QImage vue = Etire(Donne(image), source, densite);
      const QImage attendue = Etire(image, source, densite);
      int loin = 0;
      for (int y = 0; y < vue.height(); ++y)
        for (int x = 0; x < vue.width(); ++x)
          loin += Voisins(vue.pixel(x, y), attendue.pixel(x, y), image.size()) ? 0 : 1;
      EXPECT_EQ(loin, 0) << source.x() << ", " << source.y() << ", " << source.width() << ", " << source.height()
                         << " at " << densite;
    }
  }
  EXPECT_EQ(Compte.Entieres, 0);
}

TEST_F(Petite, OutlinesLieOverTheRows) {
  SurfaceImage surface;
  surface.Pose(Donne(Lieux(127, 109)));
  for (const bool ancien : {false, true}) {
    surface.Dessine({20, 20, 60, 50});
    for (int i = 0; ancien && i < SurfaceImage::kContoursMax; ++i) surface.Dessine({70, 70, 80, 80});
    CopieSurface copie;
    copie.Prend(surface);
    QImage vue = Fond(127, 109);
    QPainter peintre(&vue);
    EtireSurface(peintre, vue.rect(), copie, vue.rect(), Lignes);
    EXPECT_EQ(vue.pixel(20, 30), kCouleurContour) << ancien;
    EXPECT_EQ(vue.pixel(21, 30), qRgb(21, 30, 100)) << ancien;
  }
}

TEST_F(Petite, TakesOfALargeFrameOneRowForEachOfItsOwn) {
  QImage image(600, 900, QImage::Format_RGB32);
  for (int y = 0; y < 900; ++y)
    for (int x = 0; x < 600; ++x) image.setPixel(x, y, qRgb(y / 256, y % 256, 50));
  for (const int densite : {1, 2}) {
    Compte = {};
    const QImage vue = Etire(Donne(image), {0, 0, 600, 900}, densite);
    EXPECT_EQ(Compte.Donnes, 600 * 109 * densite);
    for (int i = 0; i < 109 * densite; ++i) {
      const int milieu = static_cast<int>((i + 0.5) * 900 / (109 * densite));
      EXPECT_EQ(vue.pixel(100 * densite, 5 * densite + i), qRgb(milieu / 256, milieu % 256, 50)) << i;
    }
  }
  Compte = {};
  Etire(Donne(image), {100, 0, 50, 900}, 1);
  EXPECT_EQ(Compte.Donnes, 53 * 109) << "and only its columns, those at the edges, and one that shares its colour";
}

TEST_F(Petite, OfAPartBesideTheFrameNothingIsAskedFor) {
  const QImage vue = Etire(Donne(Hasard(60, 40, 4)), {100, 0, 50, 40}, 1);
  EXPECT_EQ(Compte.Regardees, 0);
  EXPECT_EQ(vue.pixel(10, 10), qRgb(0, 0, 0));
  EXPECT_EQ(vue.pixel(2, 2), kFond) << "beside the view";
}

TEST_F(Petite, ItsMemoryIsUsedAgain) {
  Etire(Donne(Hasard(600, 400, 4)), {0, 0, 600, 400}, 1);
  const uchar* octets = Lignes.constBits();
  Etire(Donne(Hasard(600, 400, 5)), {40, 0, 300, 400}, 1);
  EXPECT_EQ(Lignes.constBits(), octets);
}

TEST_F(Petite, AFrameThatCannotGiveRowsIsStretchedAsAPicture) {
  Compte.ParParts = false;
  const QImage image = Hasard(60, 40, 4);
  EXPECT_EQ(Etire(Donne(image), {3, 4, 50, 30}, 1), Etire(image, {3, 4, 50, 30}, 1));
  EXPECT_EQ(Compte.Entieres, 1);
}

}  // namespace
}  // namespace vaktor
