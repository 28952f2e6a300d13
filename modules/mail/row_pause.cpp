// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/row_pause.h"

#include <QFile>

#include "modules/mail/durable_file.h"

namespace vaktor {
namespace {

constexpr qint64 kTexteMax = 32;

QString Chemin(const QString& dossier) { return dossier + QStringLiteral("/.pause"); }

}  // namespace

void NotePause(const QString& dossier, qint64 maintenant) {
  EcritDurable(Chemin(dossier), {QByteArray::number(maintenant)});
}

qint32 DonneResteDePause(const QString& dossier, qint64 maintenant, qint32 duree) {
  QFile f(Chemin(dossier));
  if (!f.open(QIODevice::ReadOnly)) return 0;
  // What is no number counts as 1970: such a pause is over.
  const qint64 depuis = maintenant - f.read(kTexteMax).toLongLong();
  return depuis >= 0 && depuis < duree ? static_cast<qint32>(duree - depuis) : 0;
}

}  // namespace vaktor
