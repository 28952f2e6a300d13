// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of the servers from earlier runs: that one has encrypted, the key of another, which sites have worked.
#pragma once

#include <QJsonObject>
#include <QString>

#include "modules/ftp/ftp_worker.h"

namespace vaktor {

/// A small JSON file, mode 0600, replaced whole. A file that is missing or damaged is an empty memory; one that cannot
/// be written costs the memory of the next run and nothing else.
class MemoireSites {
 public:
  explicit MemoireSites(QString fichier);
  /// The file of the FTP companion in the state folder.
  static QString Fichier(const QString& dossierEtat) { return dossierEtat + QStringLiteral("/VAKTORftp-sites.json"); }

  /// Puts into `acces` what its server has to show again: TLS, the key.
  void Applique(AccesFtp& acces) const;
  /// True when this key is new, so that somebody should be told of it.
  bool Note(const AccesFtp& acces, const ResultatFtp& resultat);

  /// The site, with its user and folder, has had a connection before.
  bool EstEtabli(const AccesFtp& acces) const;
  void NoteEtabli(const AccesFtp& acces);

  static QString NommeSite(const AccesFtp& acces);

 private:
  void Ecrit() const;

  QString Fichier_;
  QJsonObject Serveurs_;  // by "host:port"
  QJsonObject Sites_;     // by NommeSite
};

}  // namespace vaktor
