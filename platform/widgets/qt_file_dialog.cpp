// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/widgets/qt_file_dialog.h"

#include <QApplication>
#include <QFileDialog>

namespace vaktor {

QString DialogueFichierQt::ChoisitFichier(const QString& filtre) {
  return QFileDialog::getOpenFileName(QApplication::activeWindow(), QString(), QString(), filtre);
}

}  // namespace vaktor
