// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of all windows, whatever the theme of the desktop is.
#include "ui/common/appearance.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace vaktor {
namespace {

/// As a dark theme of a desktop has it.
QPalette Sombre() {
  QPalette palette;
  for (const auto groupe : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (int role = 0; role < QPalette::NColorRoles; ++role)
      palette.setColor(groupe, static_cast<QPalette::ColorRole>(role), QColor(42, 46, 50));
    for (const auto encre : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText,
                             QPalette::ToolTipText, QPalette::PlaceholderText})
      palette.setColor(groupe, encre, QColor(252, 252, 252));
  }
  return palette;
}

double Luminance(const QColor& couleur) {
  const auto clarte = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
  return 0.2126 * clarte(couleur.redF()) + 0.7152 * clarte(couleur.greenF()) + 0.0722 * clarte(couleur.blueF());
}

double Contraste(const QColor& a, const QColor& b) {
  const auto [bas, haut] = std::minmax({Luminance(a), Luminance(b)});
  return (haut + 0.05) / (bas + 0.05);
}

class Apparence : public testing::Test {
 public:
  ~Apparence() override { QApplication::setPalette(QPalette()); }
};

TEST_F(Apparence, NoColourIsLeftToTheDesktop) {
  const QPalette chez = DonnePalette();
  const QPalette sous = chez.resolve(Sombre());
  for (const auto groupe : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
      const auto lequel = static_cast<QPalette::ColorRole>(role);
      if (lequel == QPalette::NoRole) continue;
      EXPECT_EQ(sous.color(groupe, lequel), chez.color(groupe, lequel)) << groupe << " " << role;
    }
  }
}

TEST_F(Apparence, EveryTextCanBeReadOnItsGround) {
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> couples[] = {
      {QPalette::WindowText, QPalette::Window},
      {QPalette::Text, QPalette::Base},
      {QPalette::Text, QPalette::AlternateBase},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::HighlightedText, QPalette::Highlight},
      {QPalette::ToolTipText, QPalette::ToolTipBase},
      {QPalette::PlaceholderText, QPalette::Base},
      {QPalette::Link, QPalette::Base},
      {QPalette::Link, QPalette::Window},
      {QPalette::LinkVisited, QPalette::Base}};
  const QPalette palette = DonnePalette().resolve(Sombre());
  for (const auto& [encre, fond] : couples) {
    for (const auto groupe : {QPalette::Active, QPalette::Inactive}) {
      EXPECT_GE(Contraste(palette.color(groupe, encre), palette.color(groupe, fond)), 4.5) << encre << " " << groupe;
    }
    // What is off is grey, and can be read all the same.
    EXPECT_GE(Contraste(palette.color(QPalette::Disabled, encre), palette.color(QPalette::Disabled, fond)), 3.5)
        << encre;
  }
}

TEST_F(Apparence, TheApplicationAndItsToolTipsHaveThem) {
  QToolTip::setPalette(Sombre());
  HabilleApplication();
  EXPECT_EQ(QApplication::palette().color(QPalette::Highlight), DonnePalette().color(QPalette::Highlight));
  EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText), DonnePalette().color(QPalette::ToolTipText));
  EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase), DonnePalette().color(QPalette::ToolTipBase));
}

TEST_F(Apparence, AWindowLooksTheSameUnderADarkTheme) {
  const auto dessine = [](const QPalette& palette) {
    QApplication::setPalette(palette);
    QWidget fenetre;
    auto* grille = new QGridLayout(&fenetre);
    auto* liste = new QListWidget;
    liste->addItems({QStringLiteral("one"), QStringLiteral("two")});
    liste->setCurrentRow(1);
    liste->setAlternatingRowColors(true);
    auto* champ = new QLineEdit;
    champ->setPlaceholderText(QStringLiteral("type here"));
    auto* eteint = new QPushButton(QStringLiteral("off"));
    eteint->setEnabled(false);
    auto* choix = new QComboBox;
    choix->addItem(QStringLiteral("choice"));
    for (QWidget* controle : std::initializer_list<QWidget*>{new QLabel(QStringLiteral("label <a href='x'>link</a>")),
                                                             liste, champ, eteint, choix})
      grille->addWidget(controle);
    fenetre.resize(240, 300);
    return fenetre.grab().toImage();
  };
  QApplication::setStyle(QStringLiteral("Fusion"));
  EXPECT_EQ(dessine(DonnePalette().resolve(Sombre())), dessine(DonnePalette()));
  EXPECT_NE(dessine(Sombre()), dessine(DonnePalette()));
}

}  // namespace
}  // namespace vaktor
