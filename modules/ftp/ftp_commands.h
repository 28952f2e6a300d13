// SPDX-License-Identifier: GPL-3.0-or-later
// What a server is told to do behind a transfer, in FTP (RFC 959) or in the library's words for files over SSH.
#pragma once

#include <QStringList>

#include "modules/ftp/ftp_worker.h"

namespace vaktor {

QString CommandeEfface(const TravailFtp& travail, const QString& nom);
/// From `provisoire` to the name of the job.
QStringList CommandesRenomme(const TravailFtp& travail, const QString& provisoire);
/// None over SSH, where nothing asks for a size alone.
QStringList CommandesTaille(const TravailFtp& travail);
QString CommandeSigne(const TravailFtp& travail);

}  // namespace vaktor
