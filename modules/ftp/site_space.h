// SPDX-License-Identifier: GPL-3.0-or-later
// Which photos of ours lie on the site, and which of them go when there are too many.
#pragma once

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <utility>

#include "modules/ftp/memory_file.h"

namespace vaktor {

/// A file of lines, mode 0600, to which each photo adds one: thousands of them are remembered, and none is to cost the
/// writing of all. A file that is missing is an empty memory, and damaged lines are passed over: what was forgotten
/// stays on the site. What is noted while the file cannot be read is added once it can be.
class PlaceSite {
 public:
  static constexpr qsizetype kMax = 100'000;  ///< remembered at most

  explicit PlaceSite(QString fichier);

  /// Tries to read what could not be read before.
  void Relit();
  std::optional<TroubleMemoire> PrendTrouble() { return Memoire_.PrendTrouble(); }
  /// Another site than before empties the memory: the photos are not there.
  void ChoisitSite(const QString& site);
  /// The time of the newest, milliseconds since 1970; 0 for none.
  qint64 Derniere() const { return Fichiers_.isEmpty() ? 0 : Fichiers_.lastKey().first; }
  /// The clock was set back by so many milliseconds: all times go back by as much.
  void Recule(qint64 millisecondes);
  /// 0 and less: no bound.
  void RegleBornes(qint64 nombre, qint64 octets);

  /// Published; `prise` milliseconds since 1970.
  void Note(const QString& nom, qint64 octets, qint64 prise);
  /// Deleted there, or never to be.
  void Oublie(const QString& nom);

  bool EstVide() const { return Fichiers_.isEmpty(); }
  qsizetype Nombre() const { return Fichiers_.size(); }
  /// The oldest of those that are too many, kParFois at most; empty when the bounds hold.
  QStringList EnTrop() const;
  /// A tenth of all, the oldest, one at the least and kParFois at most: for a server without room.
  QStringList PlusAnciens() const;
  /// A photo of that time would be the first to go again.
  bool SeraitDeTrop(qint64 prise) const;

  static constexpr qsizetype kParFois = 50;  ///< deleted in one job

 private:
  using Cle = std::pair<qint64, QString>;  // time of the photo, name

  QStringList Premiers(qsizetype nombre) const;
  void Place(const QString& nom, qint64 octets, qint64 prise);
  void Retire(const QString& nom);
  void Vide();
  void Ajoute(const QString& ligne);
  void Comprend(const QByteArray& octets);
  void ComprendLigne(const QString& ligne);
  void Ecrit();

  FichierMemoire Memoire_;
  QString Site_;
  QMap<Cle, qint64> Fichiers_;  // with their bytes, oldest first
  QHash<QString, qint64> Prises_;
  qint64 Octets_ = 0;
  qint64 NombreMax_ = 0;
  qint64 OctetsMax_ = 0;
  qsizetype Lignes_ = 0;  // of the file
};

}  // namespace vaktor
