// SPDX-License-Identifier: GPL-3.0-or-later
// Every control of the main window stands where users, other programs and scripts find it.
#include <gtest/gtest.h>

#include "ui/window_bench.h"

namespace vaktor {
namespace {

struct Place {
  const char* Nom;
  const char* Conteneur;
  int Gauche, Haut, Largeur, Hauteur;  // -1: free
};

constexpr int kLibre = -1;

constexpr Place kPlaces[] = {
    // The top band
    {"Bouton(0)", "Form1", 8, 8, 72, 16},
    {"Bouton(1)", "Form1", 304, 8, 72, 16},
    {"Bouton(2)", "Form1", 304, 28, 72, 16},
    {"Bouton(3)", "Form1", 8, 63, 72, 16},
    {"Bouton(4)", "Form1", 80, 63, 72, 16},
    {"Bouton(5)", "Form1", 152, 63, 72, 16},
    {"Bouton(6)", "Form1", 224, 63, 72, 16},
    {"LblDebugAlarm", "Form1", 88, 11, 209, 17},
    {"LblDebugftp", "Form1", 88, 25, 209, 17},
    {"ImageLedAlarme", "Form1", 382, 12, 8, 8},
    {"ImageLedSurveill", "Form1", 382, 33, 8, 8},
    {"LabelSeuil", "Form1", 18, 36, 57, 17},
    {"PictSeuil", "Form1", 18, 50, 360, 6},
    {"Label3", "Form1", 9, 45, 17, 17},
    {"Label2", "Form1", 382, 41, 15, 17},
    // The pages
    {"PictPage(0)", "Form1", 0, 80, 398, 163},
    {"PictPage(1)", "Form1", 0, 80, 398, 163},
    {"PictPage(2)", "Form1", 0, 80, 398, 163},
    {"PictPage(3)", "Form1", 0, 80, 398, 163},
    // Surveillance
    {"Picture2", "PictPage(1)", 264, 8, 127, 109},
    {"CheckPPhot", "PictPage(1)", 8, 28, kLibre, kLibre},
    {"LabelCheckPhot", "PictPage(1)", 78, 28, kLibre, kLibre},
    {"CheckSon", "PictPage(1)", 8, 56, kLibre, kLibre},
    {"LabelCheckSon", "PictPage(1)", 78, 56, kLibre, kLibre},
    {"CheckMail", "PictPage(1)", 8, 84, kLibre, kLibre},
    {"LabelCheckMail", "PictPage(1)", 78, 84, kLibre, kLibre},
    {"Label4", "PictPage(1)", 8, 9, 105, 17},
    {"LabelRetard", "PictPage(1)", 8, 117, 32, 14},
    {"Text1", "PictPage(1)", 56, 136, 30, 19},
    {"Label5", "PictPage(1)", 96, 138, 25, 17},
    {"BoutonGris(0)", "PictPage(1)", 180, 58, 72, 16},
    {"BoutonGris(1)", "PictPage(1)", 320, 144, 72, 16},
    {"LabelTemoin(1)", "PictPage(1)", 264, 120, 63, 15},
    {"LabelTemoin(0)", "PictPage(1)", 328, 120, 63, 15},
    // Options
    {"BoutonGris(4)", "PictPage(3)", 8, 64, 72, 16},
    {"BoutonGris(5)", "PictPage(3)", 8, 82, 72, 16},
    {"BoutonGris(6)", "PictPage(3)", 96, 64, 72, 16},
    {"BoutonGris(7)", "PictPage(3)", 192, 64, 72, 16},
    {"Image4(1)", "PictPage(3)", 288, 64, 17, 13},
    {"Image4(0)", "PictPage(3)", 312, 64, 17, 13},
    {"CombSkin", "PictPage(3)", 208, 136, 81, 21},
    {"ChkSeuilAuto", "PictPage(3)", 8, 144, kLibre, kLibre},
    {"LblSeuilAuto", "PictPage(3)", 26, 144, kLibre, kLibre},
    {"ChkSession", "PictPage(3)", 8, 120, kLibre, kLibre},
    {"LblSession", "PictPage(3)", 26, 120, kLibre, kLibre},
    // Mail
    {"TxtNbrPhoto", "PictPage(0)", 8, 8, 30, 19},
    {"LabelVague", "PictPage(0)", 45, 8, kLibre, kLibre},
    {"TextNbrMail", "PictPage(0)", 8, 24, 30, 19},
    {"LabelNbrMail", "PictPage(0)", 45, 25, kLibre, kLibre},
    {"TextEMail", "PictPage(0)", 8, 54, 129, 19},
    {"LabelMaildest", "PictPage(0)", 144, 54, kLibre, kLibre},
    {"TextSujet", "PictPage(0)", 8, 72, 129, 17},
    {"LabelMailSujet", "PictPage(0)", 144, 72, kLibre, kLibre},
    {"LabelMailTexte", "PictPage(0)", 8, 94, 82, 16},
    {"TextTexte", "PictPage(0)", 8, 112, 249, 40},
    {"BoutonGris(8)", "PictPage(0)", 320, 8, 72, 16},
    // Live page
    {"TxtFtp", "PictPage(2)", 8, 6, 161, 19},
    {"Lblftp", "PictPage(2)", 174, 6, kLibre, kLibre},
    {"TxtHtml", "PictPage(2)", 8, 23, 161, 19},
    {"LblHTML", "PictPage(2)", 174, 23, kLibre, kLibre},
    {"TxtFTPracine", "PictPage(2)", 8, 40, 161, 19},
    {"LblRepRaciine", "PictPage(2)", 174, 40, kLibre, kLibre},
    {"TxtUserName", "PictPage(2)", 8, 57, 161, 19},
    {"LblUserName", "PictPage(2)", 174, 57, kLibre, kLibre},
    {"TxtPass", "PictPage(2)", 8, 74, 161, 19},
    {"LblPass", "PictPage(2)", 174, 74, kLibre, kLibre},
    {"CombQualit", "PictPage(2)", 8, 96, 81, 21},
    {"Label1", "PictPage(2)", 93, 100, kLibre, kLibre},
    {"CombCouleur", "PictPage(2)", 8, 115, 81, 21},
    {"LblCouleurPage", "PictPage(2)", 93, 119, kLibre, kLibre},
    {"TxtRefresh", "PictPage(2)", 8, 140, 25, 19},
    {"LblIntervale", "PictPage(2)", 37, 144, kLibre, kLibre},
    {"TextNbrPhotoFTP", "PictPage(2)", 184, 140, 33, 19},
    {"LblNbrdephotoftp", "PictPage(2)", 222, 144, kLibre, kLibre},
    {"BoutonGris(2)", "PictPage(2)", 320, 8, 72, 16},
    {"BoutonGris(3)", "PictPage(2)", 320, 32, 72, 16},
    {"BoutonEssaiFtp", "PictPage(2)", 320, 56, 72, 16},
};

// The name of the test case in lists; without it the bytes of the row would stand there.
void PrintTo(const Place& place, std::ostream* flux) { *flux << place.Nom; }

class Places : public testing::TestWithParam<Place> {};

TEST_P(Places, ControlStandsAtItsPixels) {
  faux::BancFenetre banc;
  const Place& place = GetParam();
  const auto trouves = banc.Fenetre.findChildren<QWidget*>(QLatin1String(place.Nom));
  ASSERT_EQ(trouves.size(), 1) << place.Nom;
  const QWidget& controle = *trouves.first();
  EXPECT_EQ(controle.parentWidget()->objectName(), QLatin1String(place.Conteneur));
  EXPECT_EQ(controle.pos(), QPoint(place.Gauche, place.Haut));
  if (place.Largeur != kLibre) {
    EXPECT_EQ(controle.width(), place.Largeur);
  }
  if (place.Hauteur != kLibre) {
    EXPECT_EQ(controle.height(), place.Hauteur);
  }
  EXPECT_TRUE(controle.isVisibleTo(&banc.Fenetre));
}

INSTANTIATE_TEST_SUITE_P(Form1, Places, testing::ValuesIn(kPlaces), [](const auto& cas) {
  std::string nom = cas.param.Nom;
  std::erase_if(nom, [](char c) { return c == '(' || c == ')'; });
  return nom;
});

TEST(Form1, WindowIsFixedSmallAndWithoutMaximiseButton) {
  faux::BancFenetre banc;
  EXPECT_EQ(banc.Fenetre.objectName(), QStringLiteral("Form1"));
  EXPECT_EQ(banc.Fenetre.windowTitle(), QStringLiteral("Vaktor"));
  EXPECT_EQ(banc.Fenetre.minimumSize(), QSize(398, 243));
  EXPECT_EQ(banc.Fenetre.maximumSize(), QSize(398, 243));
  EXPECT_FALSE(banc.Fenetre.windowFlags() & Qt::WindowMaximizeButtonHint);
  EXPECT_TRUE(banc.Fenetre.windowFlags() & Qt::WindowMinimizeButtonHint);
}

TEST(Form1, OnlyTheBoxOfTheEnlargedViewTheSignOfTheHealthAndANameAreHidden) {
  faux::BancFenetre banc;
  EXPECT_EQ(banc.Trouve("CheckPEcran")->y(), 304);
  QStringList caches;
  for (const auto* controle : banc.Fenetre.findChildren<QWidget*>()) {
    const bool dansUnePage = controle->parentWidget()->objectName().startsWith(QLatin1String("PictPage"));
    if ((controle->parentWidget() == &banc.Fenetre || dansUnePage) && !controle->isWindow() && controle->isHidden()) {
      caches.append(controle->objectName());
    }
  }
  EXPECT_EQ(caches,
            QStringList({QStringLiteral("SigneSante"), QStringLiteral("NomDeCombSkin"), QStringLiteral("CheckPEcran")}))
      << "the second is heard alone";
}

TEST(Form1, NoTwoControlsShareAName) {
  faux::BancFenetre banc;
  QStringList noms;
  for (const QObject* controle : banc.Fenetre.findChildren<QWidget*>()) {
    if (!controle->objectName().isEmpty() && !controle->objectName().startsWith(QLatin1String("qt_"))) {
      noms.append(controle->objectName());
    }
  }
  const auto nombre = noms.size();
  EXPECT_EQ(noms.removeDuplicates(), 0) << nombre;
}

TEST(Form1, LabelsAreDarkGreyButForTheTwoWhiteHeadings) {
  faux::BancFenetre banc;
  for (const QLabel* etiquette : banc.Fenetre.findChildren<QLabel*>()) {
    if (etiquette->isHidden()) continue;
    const bool blanche =
        etiquette->objectName() == QLatin1String("Label4") || etiquette->objectName() == QLatin1String("LabelRetard");
    const QColor attendue = blanche ? QColor(255, 255, 255) : QColor(0x40, 0x40, 0x40);
    EXPECT_EQ(etiquette->palette().color(QPalette::WindowText), attendue) << etiquette->objectName().toStdString();
    EXPECT_EQ(etiquette->font().family(), QStringLiteral("Arial"));
  }
}

// Points at 96 dots an inch, in pixels: 8.25, 9 and 9.75 are 11, 12 and 13.
TEST(Form1, FontsHaveTheirSizes) {
  faux::BancFenetre banc;
  for (const QLabel* etiquette : banc.Fenetre.findChildren<QLabel*>()) {
    if (etiquette->isHidden()) continue;
    EXPECT_GE(etiquette->font().pixelSize(), 11) << etiquette->objectName().toStdString();
    EXPECT_LE(etiquette->font().pixelSize(), 13) << etiquette->objectName().toStdString();
  }
  const auto boites = banc.Fenetre.findChildren<QCheckBox*>();
  EXPECT_EQ(boites.size(), 6);
  for (const QCheckBox* boite : boites) {
    EXPECT_EQ(boite->font().family(), QStringLiteral("MS Sans Serif")) << boite->objectName().toStdString();
    EXPECT_EQ(boite->font().pixelSize(), 13) << boite->objectName().toStdString();
  }
}

TEST(Form1, PasswordIsNotShown) {
  faux::BancFenetre banc;
  EXPECT_EQ(banc.Trouve<QLineEdit>("TxtPass")->echoMode(), QLineEdit::Password);
}

}  // namespace
}  // namespace vaktor
