// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/disk_reserve.h"

#include <sys/statvfs.h>

#include <QByteArray>
#include <QFile>
#include <QRandomGenerator>

#include "modules/mail/durable_file.h"

namespace vaktor {
namespace {

constexpr qint64 kFoisAutant = 16;

// A point in front: it is no mail, and nobody counts it among them.
QString Chemin(const QString& dossier) { return dossier + QStringLiteral("/.reserve"); }

bool ADeLaPlace(const QString& dossier) {
  struct statvfs disque {};
  if (::statvfs(QFile::encodeName(dossier).constData(), &disque) != 0) return false;
  return static_cast<qint64>(disque.f_bavail) * static_cast<qint64>(disque.f_frsize) >= kFoisAutant * kOctetsReserve;
}

}  // namespace

void TientReserve(const QString& dossier) {
  if (QFile(Chemin(dossier)).size() >= kOctetsReserve || !ADeLaPlace(dossier)) return;
  // Bytes that no file system makes smaller: zeros would take no room on some.
  QByteArray octets(kOctetsReserve, '\0');
  QRandomGenerator::global()->fillRange(reinterpret_cast<quint32*>(octets.data()),
                                        octets.size() / static_cast<qsizetype>(sizeof(quint32)));
  EcritDurable(Chemin(dossier), {octets});
}

bool RendReserve(const QString& dossier) { return QFile::remove(Chemin(dossier)); }

}  // namespace vaktor
