// SPDX-License-Identifier: GPL-3.0-or-later
// The volumes that a person has mounted, out of the kernel's table of mounts.
#pragma once

#include <QByteArray>
#include <QList>
#include <functional>

#include "image/ports/folder_tree.h"

namespace vaktor {

/// `table`: the text of /proc/self/mountinfo (proc(5)). Volumes in the order of their names: file systems of disks and
/// of the network, without those that carry the system itself (/boot, /usr, the root, packages mounted as images), bind
/// mounts, and mounts whose path cannot be a stored path. `nomme` gives the label of a device such as "/dev/sdb1", or
/// the empty text; the folder's own name stands in. Asks no disk anything: a server that has gone would not answer.
QList<LieuDisque> ListeVolumes(const QByteArray& table, const std::function<QString(const QString&)>& nomme);

/// The label of a device by the links in `dossier`, which is /dev/disk/by-label; empty when it has none.
QString DonneEtiquette(const QString& peripherique, const QString& dossier = QStringLiteral("/dev/disk/by-label"));

}  // namespace vaktor
