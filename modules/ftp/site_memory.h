// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of the servers from earlier runs: that one has encrypted, the key of another, which sites have worked.
#pragma once

#include <QJsonObject>
#include <QString>

#include "modules/ftp/ftp_worker.h"
#include "modules/ftp/memory_file.h"

namespace vaktor {

/// A small JSON file, mode 0600, replaced whole. A file that is missing is an empty memory, a damaged one is kept
/// beside; one that cannot be written costs the memory of the next run and nothing else. One that cannot be read at the
/// moment is no first visit: until it can be, nothing goes to a server in clear, nothing at all to one whose key would
/// have to be the one of before, and every site counts as one that has worked.
class MemoireSites {
 public:
  explicit MemoireSites(QString fichier);
  /// The file of the FTP companion in the state folder.
  static QString Fichier(const QString& dossierEtat) { return dossierEtat + QStringLiteral("/VAKTORftp-sites.json"); }

  /// Tries to read what could not be read before, and adds what was noted meanwhile.
  void Relit();
  /// Puts into `acces` what its server has to show again: TLS, the key.
  void Applique(AccesFtp& acces) const;
  /// True when this key is new, so that somebody should be told of it.
  bool Note(const AccesFtp& acces, const ResultatFtp& resultat);

  /// The site, with its user and folder, has had a connection before.
  bool EstEtabli(const AccesFtp& acces) const;
  void NoteEtabli(const AccesFtp& acces);

  static QString NommeSite(const AccesFtp& acces);
  std::optional<TroubleMemoire> PrendTrouble() { return Fichier_.PrendTrouble(); }

 private:
  void Ecrit() const;

  FichierMemoire Fichier_;
  QJsonObject Serveurs_;  // by "host:port"
  QJsonObject Sites_;     // by NommeSite
};

}  // namespace vaktor
