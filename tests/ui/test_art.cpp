// SPDX-License-Identifier: GPL-3.0-or-later
// The art as it lies in the program: sizes, depths, colours, and that what is written over it can be read.
#include <gtest/gtest.h>

#include <QFontMetrics>
#include <algorithm>
#include <cmath>

#include "ui/face/art_images.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

struct Couleur {
  double Rouge = 0, Vert = 0, Bleu = 0;
};

Couleur Moyenne(const QImage& image, const QRect& r) {
  Couleur m;
  for (int y = r.top(); y <= r.bottom(); ++y) {
    for (int x = r.left(); x <= r.right(); ++x) {
      const QRgb c = image.pixel(x, y);
      m.Rouge += qRed(c);
      m.Vert += qGreen(c);
      m.Bleu += qBlue(c);
    }
  }
  const double n = double(r.width()) * r.height();
  return {m.Rouge / n, m.Vert / n, m.Bleu / n};
}

QImage Fichier(const char* nom, int echelle) {
  ChargeArt(QStringLiteral("SKIN0"), 1);  // the resources are there from here on
  return QImage(QStringLiteral(":/art/%1x/%2.png").arg(echelle).arg(QLatin1String(nom)));
}

TEST(Icon, HasAllItsSizesAndIsMadeSmallerButNotLarger) {
  const QIcon icone = ChargeIcone();
  const QList<QSize> tailles = icone.availableSizes();
  ASSERT_EQ(tailles.size(), 7);
  for (const QSize& taille : tailles) {
    const QImage fichier(QStringLiteral(":/icon/vaktor_%1.png").arg(taille.width()));
    ASSERT_EQ(fichier.size(), taille);
    EXPECT_EQ(icone.pixmap(taille).toImage(), QPixmap::fromImage(fichier).toImage());
  }
  EXPECT_EQ(icone.pixmap(20).size(), QSize(20, 20));
  EXPECT_EQ(icone.pixmap(512).size(), QSize(256, 256));
}

TEST(Art, TwoSkinsAndTheFacesAreOfEightBitsWithTheirColours) {
  const std::pair<const char*, int> table[] = {{"SKIN0", 114},     {"SKIN1", 125},     {"PictBlue0", 256},
                                               {"PictBlue1", 256}, {"PictBlue2", 256}, {"PictGrey0", 256},
                                               {"PictGrey1", 256}, {"PictGrey2", 256}};
  for (const auto& [nom, couleurs] : table) {
    const QImage image = Fichier(nom, 1);
    EXPECT_EQ(image.depth(), 8) << nom;
    EXPECT_EQ(image.colorCount(), couleurs) << nom;
  }
}

TEST(Art, TheOthersAreInTrueColour) {
  for (const char* nom : {"SKIN2", "LEDRED", "LEDREDON", "LEDVERT", "PictPage0", "PictPage1", "PictPage2", "PictPage3"})
    EXPECT_EQ(Fichier(nom, 1).colorCount(), 0) << nom;
}

TEST(Art, LampsHaveTheirSizeTheirColourAndBlackCorners) {
  const std::pair<const char*, QColor> table[] = {
      {"LEDRED", QColor(0xA8, 0, 0)}, {"LEDREDON", QColor(0xFF, 0, 0)}, {"LEDVERT", QColor(0, 0xFF, 0)}};
  for (const auto& [nom, couleur] : table) {
    for (const int echelle : {1, 2}) {
      const QImage image = ChargeArt(QLatin1String(nom), echelle);
      ASSERT_EQ(image.size(), QSize(13, 12) * echelle) << nom;
      const int droite = image.width() - 1;
      const int bas = image.height() - 1;
      for (const QPoint coin : {QPoint(0, 0), QPoint(droite, 0), QPoint(0, bas), QPoint(droite, bas)}) {
        EXPECT_LT(qGray(image.pixel(coin)), 16) << nom;
      }
      EXPECT_EQ(image.pixelColor(8 * echelle, 8 * echelle), couleur) << nom << " " << echelle;
    }
  }
}

TEST(Art, FlagsHaveTheirSizeAndTheirColoursInTheirPlaces) {
  for (const int echelle : {1, 2}) {
    const QImage france = ChargeArt(QStringLiteral("flag_fr"), echelle);
    const QImage anglais = ChargeArt(QStringLiteral("flag_en"), echelle);
    ASSERT_EQ(france.size(), QSize(17, 13) * echelle);
    ASSERT_EQ(anglais.size(), QSize(17, 13) * echelle);
    const auto pixel = [echelle](const QImage& image, int x, int y) {
      return image.pixelColor(x * echelle, y * echelle);
    };
    EXPECT_GT(pixel(france, 2, 6).blue(), pixel(france, 2, 6).red() + 80);
    EXPECT_GT(pixel(france, 8, 6).red(), 240);
    EXPECT_GT(pixel(france, 8, 6).blue(), 240);
    EXPECT_GT(pixel(france, 14, 6).red(), pixel(france, 14, 6).blue() + 120);
    EXPECT_GT(pixel(anglais, 8, 6).red(), pixel(anglais, 8, 6).blue() + 120) << "the cross";
    EXPECT_GT(pixel(anglais, 6, 2).green(), 240) << "its white rim";
    EXPECT_GT(pixel(anglais, 4, 1).blue(), pixel(anglais, 4, 1).red() + 40) << "the ground";
  }
}

TEST(Art, EveryBitmapIsThereAtTwiceTheSizeAndLooksTheSame) {
  for (const char* nom :
       {"SKIN0", "SKIN1", "SKIN2", "PictBlue0", "PictGrey1", "PictPage1", "PictPage3", "LEDVERT", "flag_en"}) {
    const QImage fin = ChargeArt(QLatin1String(nom), 2);
    const QImage simple = ChargeArt(QLatin1String(nom), 1);
    ASSERT_EQ(fin.size(), simple.size() * 2) << nom;
    const Couleur a = Moyenne(fin, fin.rect());
    const Couleur b = Moyenne(simple, simple.rect());
    // Lamps and flags at one pixel a point are mostly rim: some levels more or less.
    EXPECT_NEAR(a.Rouge, b.Rouge, 8) << nom;
    EXPECT_NEAR(a.Vert, b.Vert, 8) << nom;
    EXPECT_NEAR(a.Bleu, b.Bleu, 8) << nom;
  }
}

// --- What is written can be read

// Relative luminance as of WCAG 2.1, https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double Luminance(const Couleur& c) {
  const auto lineaire = [](double canal) {
    const double v = canal / 255;
    return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * lineaire(c.Rouge) + 0.7152 * lineaire(c.Vert) + 0.0722 * lineaire(c.Bleu);
}

// Where the letters stand on the label's parent.
QRect PlaceMots(const QLabel& etiquette) {
  const QFontMetrics mesures = etiquette.fontMetrics();
  const bool milieu = etiquette.alignment().testFlag(Qt::AlignVCenter);
  const int haut = milieu ? (etiquette.height() - mesures.height()) / 2 : 0;
  return mesures.tightBoundingRect(etiquette.text()).translated(etiquette.pos() + QPoint(0, haut + mesures.ascent()));
}

double Contraste(const QLabel& etiquette, const QImage& fond) {
  const QRect place = PlaceMots(etiquette);
  const QColor encre = etiquette.palette().color(QPalette::WindowText);
  const double a = Luminance(Moyenne(fond, place & fond.rect()));
  const double b = Luminance({double(encre.red()), double(encre.green()), double(encre.blue())});
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST(Look, EveryLabelCanBeReadOnEverySkin) {
  for (const int langue : {0, 1}) {
    BancFenetre banc(langue);
    for (int skin = 0; skin < 3; ++skin) {
      banc.Fenetre.Options().CombSkin->setCurrentIndex(skin);
      for (auto* etiquette : banc.Fenetre.findChildren<QLabel*>()) {
        if (etiquette->objectName().isEmpty() || etiquette->text().trimmed().isEmpty()) continue;
        const auto* page = qobject_cast<const PageVaktor*>(etiquette->parentWidget());
        const QImage& fond = page != nullptr ? page->Fond() : banc.Fenetre.Fond();
        // 4.5 is what the guidelines ask for text of this size.
        EXPECT_GE(Contraste(*etiquette, fond), 4.5) << etiquette->objectName().toStdString() << " on skin " << skin;
      }
    }
  }
}

// A caption that its own label or the window cuts off is read as another word.
TEST(Look, NoLabelIsCutOffInEitherLanguage) {
  for (const int langue : {0, 1}) {
    BancFenetre banc(langue);
    for (auto* etiquette : banc.Fenetre.findChildren<QLabel*>()) {
      if (etiquette->objectName().isEmpty()) continue;
      const int voulue = etiquette->fontMetrics().horizontalAdvance(etiquette->text().trimmed());
      EXPECT_LE(PlaceMots(*etiquette).right(), etiquette->geometry().right()) << etiquette->objectName().toStdString();
      EXPECT_LE(etiquette->x() + voulue, etiquette->parentWidget()->width()) << etiquette->objectName().toStdString();
      // Nothing lies on the words: the label's neighbours begin where they end.
      const QRect mots(etiquette->pos(), QSize(voulue, etiquette->fontMetrics().height() - 2));
      for (auto* voisin : etiquette->parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (voisin == etiquette || voisin->isHidden() || qobject_cast<PageVaktor*>(voisin) != nullptr) continue;
        if (qobject_cast<QLabel*>(voisin) != nullptr || voisin->objectName() == QStringLiteral("PictSeuil")) continue;
        EXPECT_FALSE(voisin->geometry().intersects(mots))
            << etiquette->objectName().toStdString() << " under " << voisin->objectName().toStdString();
      }
    }
  }
}

TEST(Look, NoButtonCaptionIsWiderThanItsFaceInEitherLanguage) {
  for (const int langue : {0, 1}) {
    BancFenetre banc(langue);
    QFont police(QStringLiteral("Arial"));
    police.setPixelSize(11);
    for (auto* bouton : banc.Fenetre.findChildren<BoutonImage*>()) {
      EXPECT_LE(QFontMetrics(police).horizontalAdvance(bouton->text()), FacesBoutons::kTaille.width() - 2)
          << bouton->objectName().toStdString();
    }
  }
}

}  // namespace
}  // namespace vaktor
