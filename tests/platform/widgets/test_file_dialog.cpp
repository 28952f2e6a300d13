// SPDX-License-Identifier: GPL-3.0-or-later
// The dialogs in which a file is chosen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
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
    if (dialogue->isVisible()) dialogue->reject();
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

// A folder that has gone is the toolkit's to look for no more: it would wait for a disk that does not answer.
TEST(FileDialog, BeginsWhereTheLastFileLayAndAtHomeWhereThatIsGone) {
  QTemporaryDir dossier;
  QFile son(dossier.filePath(QStringLiteral("son.wav")));
  ASSERT_TRUE(son.open(QIODevice::WriteOnly));
  DialogueFichierQt ouvre;
  DialogueSauvegardeQt sauve;
  QStringList debuts;
  // Accepts what lies in the folder.
  const auto prend = [&](QFileDialog& dialogue) {
    debuts << dialogue.directory().absolutePath();
    if (!QFileInfo::exists(dossier.path())) return;
    dialogue.setDirectory(dossier.path());
    dialogue.selectFile(dialogue.acceptMode() == QFileDialog::AcceptSave ? QStringLiteral("n.mkv") : son.fileName());
    QMetaObject::invokeMethod(&dialogue, "accept");
  };
  const auto fait = [&] {
    EXPECT_TRUE(Travaille([&] { ouvre.ChoisitFichier(QStringLiteral("Audio (*.wav)")); }, prend));
    EXPECT_TRUE(Travaille(
        [&] { sauve.ChoisitDestination(QStringLiteral("night.mkv"), {QStringLiteral("Film (*.mkv)")}); }, prend));
  };
  fait();
  fait();
  ASSERT_TRUE(dossier.remove());
  fait();
  EXPECT_EQ(debuts, (QStringList{QDir::homePath(), QDir::homePath(), dossier.path(), dossier.path(), QDir::homePath(),
                                 QDir::homePath()}));
}

}  // namespace
}  // namespace vaktor
