// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/widgets/desktop_opener.h"

#include <QDesktopServices>
#include <QUrl>

#include "platform/base/inherited_files.h"
#include "platform/base/system_files.h"

namespace vaktor {

void OuvreurBureau::OuvreAdresse(const QString& adresse) {
  // Users type their web address as they know it, mostly without "http://"; the desktop's opener would look for a file
  // of that name.
  const QUrl url = QUrl::fromUserInput(adresse);
  GardeFichiersOuverts();
  if (url.isValid()) QDesktopServices::openUrl(url);
}

void OuvreurBureau::OuvreDossier(const QString& chemin) {
  GardeFichiersOuverts();
  if (!chemin.isEmpty()) QDesktopServices::openUrl(QUrl::fromLocalFile(CheminNatif(chemin)));
}

}  // namespace vaktor
