// SPDX-License-Identifier: GPL-3.0-or-later
// The words of both languages in the controls.
#include <gtest/gtest.h>

#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

TEST(TextsInForms, CaptionsTooltipsListsAndTitlesFollowTheLanguage) {
  BancFenetre banc(0);
  EXPECT_EQ(banc.Trouve<QLabel>("LabelCheckPhot")->text(), QStringLiteral("Prendre photo"));
  EXPECT_EQ(banc.Trouve("Bouton(0)")->toolTip(), QStringLiteral("[Démarre/Arrête] la camera"));
  EXPECT_EQ(banc.Trouve<QAbstractButton>("Bouton(2)")->text(), QStringLiteral("Surveillance"));
  EXPECT_EQ(banc.Trouve<QAbstractButton>("BoutonGris(2)")->text(), QStringLiteral("Création page"));
  EXPECT_EQ(banc.Trouve<QComboBox>("CombQualit")->itemText(1), QStringLiteral("Haute"));
  EXPECT_EQ(banc.Moniteur.windowTitle(), QStringLiteral("Moniteur"));
  const auto* barre = banc.Moniteur.findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
  EXPECT_EQ(barre->toolTip(), QStringLiteral("Représentation graphique du nombre de pixels en mouvement"));
  banc.Reglages.LangueCourante = 1;
  banc.Chargeur.ChargeTextes();
  EXPECT_EQ(banc.Trouve<QLabel>("LabelCheckPhot")->text(), QStringLiteral("Record picture"));
  EXPECT_EQ(banc.Trouve("Bouton(0)")->toolTip(), QStringLiteral("[Start/Stop] camera"));
  EXPECT_EQ(banc.Trouve<QAbstractButton>("Bouton(2)")->text(), QStringLiteral("Live Cam"));
  EXPECT_EQ(banc.Trouve<QComboBox>("CombQualit")->itemText(1), QStringLiteral("High"));
  EXPECT_EQ(banc.Moniteur.windowTitle(), QStringLiteral("Monitor"));
  EXPECT_EQ(barre->toolTip(), QStringLiteral("Graphical representation of moving pixels"));
}

TEST(TextsInForms, FlagSetsTheLanguageAndRefillsEverything) {
  BancFenetre banc(0);
  banc.Fenetre.AmenePage(3);
  QTest::mouseClick(banc.Trouve("Image4(1)"), Qt::LeftButton);
  EXPECT_EQ(banc.Reglages.LangueCourante, 1);
  EXPECT_EQ(banc.Trouve<QLabel>("Label4")->text(), QStringLiteral("Alarm"));
  EXPECT_EQ(banc.Sauvegarde.Sauvegardes, 0) << "written with the next save";
  QTest::mouseClick(banc.Trouve("Image4(0)"), Qt::LeftButton);
  EXPECT_EQ(banc.Trouve<QLabel>("Label4")->text(), QStringLiteral("Alarme"));
}

TEST(TextsInForms, StatusLinesReadInactiveAfterAChangeOfLanguageWhateverGoesOn) {
  BancFenetre banc;
  banc.Clique("Bouton(1)");
  banc.Temps.Avance(1000);
  banc.Clique("Image4(1)");
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugAlarm")->text(), QStringLiteral("Alarm: Not active"));
  EXPECT_EQ(banc.Trouve<QLabel>("LblDebugftp")->text(), QStringLiteral("Monitoring: Not active"));
  EXPECT_EQ(banc.Trouve<QAbstractButton>("Bouton(0)")->text(), QStringLiteral("Camera on"))
      << "also while the camera runs";
}

TEST(TextsInForms, ListsKeepTheirLengthAndSelection) {
  BancFenetre banc;
  banc.Reglages.IndexCouleurPage = 5;
  for (int i = 0; i < 5; ++i) {
    banc.Reglages.LangueCourante = i % 2;
    banc.Chargeur.ChargeTextes();
  }
  EXPECT_EQ(banc.Trouve<QComboBox>("CombQualit")->count(), 4);
  EXPECT_EQ(banc.Trouve<QComboBox>("CombCouleur")->count(), 7);
  EXPECT_EQ(banc.Trouve<QComboBox>("CombCouleur")->currentText(), QStringLiteral("Jaune"));
}

TEST(TextsInForms, UnknownLanguageAtTheFirstFillLeavesTheControlsEmpty) {
  BancFenetre banc(7);
  EXPECT_EQ(banc.Trouve<QLabel>("LabelCheckPhot")->text(), QString());
  EXPECT_EQ(banc.Trouve<QAbstractButton>("Bouton(0)")->text(), QString());
}

TEST(TextsInForms, EveryFieldAndButtonHasAnAccessibleName) {
  BancFenetre banc;
  int regardes = 0;
  for (const QWidget* controle : banc.Fenetre.findChildren<QWidget*>()) {
    const QString nom = controle->objectName();
    if (nom.isEmpty() || nom.startsWith(QLatin1String("qt_")) || !controle->isVisible()) continue;
    const bool agit = qobject_cast<const QAbstractButton*>(controle) || qobject_cast<const QLineEdit*>(controle) ||
                      qobject_cast<const QComboBox*>(controle);
    if (!agit) continue;
    ++regardes;
    EXPECT_FALSE(controle->accessibleName().isEmpty()) << nom.toStdString();
  }
  EXPECT_GT(regardes, 30) << "those of all four pages, which lie over each other";
}

}  // namespace
}  // namespace vaktor
