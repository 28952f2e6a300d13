// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QMenu>
#include <QScopedPointer>

#include "platform/widgets/toolkit_words.h"

namespace vaktor {
namespace {

/// What the menu of a text field offers.
QString Menu() {
  QLineEdit champ;
  const QScopedPointer<QMenu> menu(champ.createStandardContextMenu());
  QString mots;
  for (const QAction* action : menu->actions()) mots += action->text() + u'\n';
  return mots;
}

TEST(ToolkitWords, TheMenuOfAFieldSpeaksTheLanguageOfTheProgram) {
  {
    MotsOutils mots;
    mots.Parle(Langue::kFrancais);
    EXPECT_TRUE(Menu().contains(QStringLiteral("Tout sélectionner"))) << Menu().toStdString();
    mots.Parle(Langue::kAnglais);
    EXPECT_TRUE(Menu().contains(QStringLiteral("Select All"))) << Menu().toStdString();
    mots.Parle(Langue::kFrancais);
  }
  EXPECT_TRUE(Menu().contains(QStringLiteral("Select All"))) << "gone with its object";
}

}  // namespace
}  // namespace vaktor
