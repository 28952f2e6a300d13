// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/telling/desktop_notifier.h"

#include <QProcess>
#include <QStandardPaths>

#include "platform/base/inherited_files.h"

namespace vaktor {

void NotifieurSysteme::Notifie(const QString& titre, const QString& texte, bool pressant) {
  // The body is read as markup there: a path or a server's words must not become any.
  const QStringList arguments = {QStringLiteral("--app-name=Vaktor"),
                                 pressant ? QStringLiteral("--urgency=critical") : QStringLiteral("--urgency=normal"),
                                 QStringLiteral("--"), titre, texte.toHtmlEscaped()};
  Travaux_.Lance([arguments] {
    const QString programme = QStandardPaths::findExecutable(QStringLiteral("notify-send"));
    GardeFichiersOuverts();
    if (!programme.isEmpty()) QProcess::startDetached(programme, arguments);
  });
}

}  // namespace vaktor
