// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/widgets/qt_file_dialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include "platform/folders/system_folders.h"

namespace vaktor {

// The desktop's own dialog speaks the language of the session; ours speaks the one that was chosen (MotsOutils), and is
// the same under every desktop.
QString DialogueFichierQt::ChoisitFichier(const QString& filtre) {
  if (Dossier_.isEmpty()) Dossier_ = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
  QString choisi = QFileDialog::getOpenFileName(QApplication::activeWindow(), QString(), DebutDeDialogue(Dossier_),
                                                filtre, nullptr, QFileDialog::DontUseNativeDialog);
  if (!choisi.isEmpty()) Dossier_ = QFileInfo(choisi).path();
  return choisi;
}

namespace {

/// "mkv" of "Matroska (*.mkv)".
QString FinDe(const QString& filtre) {
  static const QRegularExpression motif(QStringLiteral("\\*\\.(\\w+)\\)$"));
  return motif.match(filtre).captured(1);
}

}  // namespace

QString DialogueSauvegardeQt::ChoisitDestination(const QString& nom, const QStringList& filtres) {
  if (Dossier_.isEmpty()) Dossier_ = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
  QFileDialog dialogue(QApplication::activeWindow(), QString(), DebutDeDialogue(Dossier_));
  dialogue.setOption(QFileDialog::DontUseNativeDialog);
  dialogue.setAcceptMode(QFileDialog::AcceptSave);
  dialogue.setNameFilters(filtres);
  dialogue.setDefaultSuffix(FinDe(filtres.value(0)));
  dialogue.selectFile(nom);
  QObject::connect(&dialogue, &QFileDialog::filterSelected, &dialogue, [&dialogue](const QString& filtre) {
    dialogue.setDefaultSuffix(FinDe(filtre));
    const QStringList choisis = dialogue.selectedFiles();
    if (!choisis.isEmpty())
      dialogue.selectFile(QFileInfo(choisis.first()).completeBaseName() + QLatin1Char('.') + FinDe(filtre));
  });
  if (dialogue.exec() != QDialog::Accepted || dialogue.selectedFiles().isEmpty()) return {};
  Dossier_ = dialogue.directory().absolutePath();
  return dialogue.selectedFiles().first();
}

}  // namespace vaktor
