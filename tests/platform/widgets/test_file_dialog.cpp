// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs in which a file is chosen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <utility>

#include "platform/widgets/qt_file_dialog.h"
#include "platform/widgets/toolkit_words.h"

namespace vaktor {
namespace {

/// Works on the dialog that comes up.
bool Travaille(const std::function<void()>& ouvre, const std::function<void(QFileDialog&)>& travail) {
  bool vu = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* dialogue = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    vu = dialogue != nullptr;
    if (!vu) return;
    travail(*dialogue);
    dialogue->reject();
  });
  ouvre();
  return vu;
}

TEST(FileDialog, IsTheToolkitsOwnSoThatItSpeaksTheChosenLanguage) {
  MotsOutils mots;
  for (const auto& [langue, annule] :
       {std::pair(Langue::kFrancais, "Annuler"), std::pair(Langue::kAnglais, "Cancel")}) {
    mots.Parle(langue);
    const auto regarde = [annule = QLatin1String(annule)](QFileDialog& dialogue) {
      EXPECT_TRUE(dialogue.testOption(QFileDialog::DontUseNativeDialog));
      EXPECT_EQ(dialogue.labelText(QFileDialog::Reject).remove(u'&'), annule);
    };
    EXPECT_TRUE(Travaille(
        [] { EXPECT_EQ(DialogueFichierQt().ChoisitFichier(QStringLiteral("Audio (*.wav)")), QString()); }, regarde));
    EXPECT_TRUE(Travaille(
        [] {
          EXPECT_EQ(
              DialogueSauvegardeQt().ChoisitDestination(QStringLiteral("night.mkv"), {QStringLiteral("Film (*.mkv)")}),
              QString());
        },
        regarde));
  }
}

}  // namespace
}  // namespace vaktor
