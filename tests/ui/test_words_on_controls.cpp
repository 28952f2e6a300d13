// SPDX-License-Identifier: GPL-3.0-or-later
// Every row of the text tables that names a control of the forms that stand, in both languages. The list is typed apart
// from the one that writes the words.
#include <gtest/gtest.h>

#include <array>

#include "texts/phrase.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

struct Ligne {
  int Numero;
  const char* Controle;
};

// Rows of Texte that are captions, on labels and on the one box that has a caption of its own.
constexpr std::array kLibelles = {Ligne{5, "LabelVague"},
                                  Ligne{6, "LabelMaildest"},
                                  Ligne{7, "LabelMailSujet"},
                                  Ligne{8, "LabelMailTexte"},
                                  Ligne{11, "LabelCheckMail"},
                                  Ligne{13, "LabelCheckPhot"},
                                  Ligne{14, "LabelCheckSon"},
                                  Ligne{17, "CheckPEcran"},
                                  Ligne{18, "LabelNbrMail"},
                                  Ligne{46, "Lblftp"},
                                  Ligne{47, "LblHTML"},
                                  Ligne{48, "LblUserName"},
                                  Ligne{49, "LblPass"},
                                  Ligne{50, "LblIntervale"},
                                  Ligne{51, "Label1"},
                                  Ligne{79, "Label4"},
                                  Ligne{159, "LabelSeuil"},
                                  Ligne{160, "LabelRetard"},
                                  Ligne{164, "LblNbrdephotoftp"},
                                  Ligne{165, "LblCouleurPage"},
                                  Ligne{219, "LblSeuilAuto"},
                                  Ligne{230, "LblRepRaciine"},
                                  Ligne{34, "LblDebugftp"},
                                  Ligne{169, "LblDebugAlarm"}};

constexpr std::array kAides = {Ligne{0, "Bouton(0)"},
                               Ligne{1, "Bouton(1)"},
                               Ligne{2, "Text1"},
                               Ligne{6, "LabelTemoin(1)"},
                               Ligne{7, "TxtNbrPhoto"},
                               Ligne{8, "TextNbrMail"},
                               Ligne{9, "TextEMail"},
                               Ligne{10, "TextSujet"},
                               Ligne{11, "TextTexte"},
                               Ligne{17, "CheckMail"},
                               Ligne{19, "CheckPPhot"},
                               Ligne{20, "CheckSon"},
                               Ligne{21, "PictSeuil"},
                               Ligne{23, "CheckPEcran"},
                               Ligne{24, "LabelTemoin(0)"},
                               Ligne{25, "BoutonGris(4)"},
                               Ligne{26, "BoutonGris(5)"},
                               Ligne{33, "BoutonGris(1)"},
                               Ligne{34, "BoutonGris(7)"},
                               Ligne{40, "TxtFtp"},
                               Ligne{41, "TxtHtml"},
                               Ligne{42, "TxtUserName"},
                               Ligne{43, "TxtPass"},
                               Ligne{44, "TxtRefresh"},
                               Ligne{45, "CombQualit"},
                               Ligne{46, "BoutonGris(2)"},
                               Ligne{47, "BoutonGris(3)"},
                               Ligne{54, "CombCouleur"},
                               Ligne{159, "LblNbrdephotoftp"},
                               Ligne{160, "LblCouleurPage"},
                               Ligne{199, "ChkSeuilAuto"},
                               Ligne{199, "LblSeuilAuto"}};

QString LitLibelle(const QWidget* controle) {
  if (const auto* etiquette = qobject_cast<const QLabel*>(controle)) return etiquette->text();
  if (const auto* bouton = qobject_cast<const QAbstractButton*>(controle)) return bouton->text();
  return QStringLiteral("no caption");
}

class MotsSurControles : public testing::TestWithParam<int> {
 protected:
  // From the other language on, so that what is written once only shows.
  MotsSurControles() : Banc((GetParam() + 1) % static_cast<int>(kNombreLangues)) {
    Banc.Reglages.LangueCourante = GetParam();
    Banc.Chargeur.ChargeTextes();
    Mots.Remplit(LitLangue(GetParam()));
  }

  BancFenetre Banc;
  TablesTextes Mots;
};

TEST_P(MotsSurControles, CaptionsAreThoseOfTheTable) {
  for (const Ligne& ligne : kLibelles) {
    const QWidget* controle = Banc.Trouve(ligne.Controle);
    ASSERT_NE(controle, nullptr) << ligne.Controle;
    EXPECT_EQ(LitLibelle(controle), Mots.Dit(Libelle{ligne.Numero})) << ligne.Controle;
  }
  EXPECT_EQ(Banc.Moniteur.windowTitle(), Mots.Dit(Libelle::kMoniteur));
}

TEST_P(MotsSurControles, TooltipsAreThoseOfTheTable) {
  for (const Ligne& ligne : kAides) {
    const QWidget* controle = Banc.Trouve(ligne.Controle);
    ASSERT_NE(controle, nullptr) << ligne.Controle;
    EXPECT_EQ(controle->toolTip(), Mots.Dit(Aide{ligne.Numero})) << ligne.Controle;
  }
  EXPECT_EQ(Banc.Moniteur.findChild<QWidget*>(QStringLiteral("Picture1"))->toolTip(), Mots.Dit(Aide::kZone));
}

TEST_P(MotsSurControles, FieldWithoutATooltipOfItsOwnShowsItsCaption) {
  EXPECT_EQ(Banc.Trouve("TxtFTPracine")->toolTip(), Mots.Dit(Libelle::kRepertoire));
}

TEST_P(MotsSurControles, MenusTakeTheirCaptionWhenTheyOpen) {
  auto* menu = Banc.Trouve<QMenu>("MnuDisplay");
  QTest::mousePress(Banc.Trouve("Picture2"), Qt::RightButton, {}, QPoint(5, 5));
  EXPECT_EQ(menu->title(), Mots.Dit(Libelle::kPleinEcran));
  menu->close();
  auto* ecran = Banc.Moniteur.findChild<QMenu*>(QStringLiteral("MnuScreen"));
  Banc.Moniteur.show();
  QTest::mousePress(Banc.Moniteur.findChild<QWidget*>(QStringLiteral("Picture1")), Qt::RightButton, {}, QPoint(5, 5));
  EXPECT_EQ(ecran->actions().first()->text(), Mots.Dit(Libelle::kPleinEcran));
  ecran->close();
}

TEST_P(MotsSurControles, ListsAndFacesAreThoseOfTheTable) {
  const auto* qualites = Banc.Trouve<QComboBox>("CombQualit");
  for (int i = 0; i < 4; ++i) EXPECT_EQ(qualites->itemText(i), Mots.Dit(Libelle{54 + i}));
  const auto* couleurs = Banc.Trouve<QComboBox>("CombCouleur");
  for (int i = 0; i < 7; ++i) EXPECT_EQ(couleurs->itemText(i), Mots.Dit(Libelle{59 + i}));
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(LitLibelle(Banc.Trouve(qPrintable(QStringLiteral("Bouton(%1)").arg(i)))), Mots.LibelleBouton(i));
  }
  for (int i = 0; i < 9; ++i) {
    EXPECT_EQ(LitLibelle(Banc.Trouve(qPrintable(QStringLiteral("BoutonGris(%1)").arg(i)))), Mots.LibelleBoutonGris(i));
  }
}

INSTANTIATE_TEST_SUITE_P(Langues, MotsSurControles, testing::Range(0, static_cast<int>(kNombreLangues)),
                         [](const auto& langue) { return kCodesLangues.Dit(*LitLangue(langue.param)).toStdString(); });

// A server's words, or a folder's name, may hold what looks like markup.
TEST(WordsOnControls, AStatusWithAnglesIsShownToTheLetter) {
  BancFenetre banc;
  const QString mots = QStringLiteral("<b>550</b> &amp; no");
  for (const char* nom : {"LblDebugftp", "LblDebugAlarm"}) {
    auto* etiquette = banc.Trouve<QLabel>(nom);
    etiquette->setText(mots);
    EXPECT_GE(etiquette->sizeHint().width(), etiquette->fontMetrics().horizontalAdvance(mots)) << nom;
  }
}

}  // namespace
}  // namespace vaktor
