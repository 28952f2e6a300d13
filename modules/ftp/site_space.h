// SPDX-License-Identifier: GPL-3.0-or-later
// Which photos of ours lie on the site, and which of them go when there are too many.
#pragma once

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <utility>

namespace vaktor {

/// A file of lines, mode 0600, to which each photo adds one: thousands of them are remembered, and none is to cost the
/// writing of all. A file that is missing or damaged is an empty memory: what it forgot stays on the site.
class PlaceSite {
 public:
  static constexpr qsizetype kMax = 100'000;  ///< remembered at most

  explicit PlaceSite(QString fichier);

  /// Another site than before empties the memory: the photos are not there.
  void ChoisitSite(const QString& site);
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
  void Retire(const QString& nom);
  void Ajoute(const QString& ligne);
  void Lit();
  void LitLigne(const QString& ligne);
  void Ecrit();

  QString Fichier_;
  QString Site_;
  QMap<Cle, qint64> Fichiers_;  // with their bytes, oldest first
  QHash<QString, qint64> Prises_;
  qint64 Octets_ = 0;
  qint64 NombreMax_ = 0;
  qint64 OctetsMax_ = 0;
  qsizetype Lignes_ = 0;  // of the file
};

}  // namespace vaktor
