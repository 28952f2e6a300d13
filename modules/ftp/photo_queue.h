// SPDX-License-Identifier: GPL-3.0-or-later
// The alarm photos that wait in "Temp/FTP" to be published.
#pragma once

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QString>
#include <QStringList>

namespace vaktor {

/// A folder of this machine. The main program puts photos in, nobody else takes them out. Holds nothing but the bounds
/// and in which order the photos were found: the folder itself is the memory, and survives everything that it has to
/// survive.
class FilePhotos {
 public:
  struct Bornes {
    qint64 Octets = 200LL * 1000 * 1000;
    qsizetype Nombre = 5000;
  };

  explicit FilePhotos(QString dossier) : Dossier_(std::move(dossier)) {}
  FilePhotos(QString dossier, Bornes bornes) : Dossier_(std::move(dossier)), Bornes_(bornes) {}

  /// Names of the photos that wait, oldest first: in the order in which they were found, those found together by their
  /// time. So a clock that is set back does not put the newest before those that wait already. Files of other kinds,
  /// and names that a server could take for a command (line breaks, control characters), are left alone.
  QStringList Liste();
  /// Deletes the oldest until both bounds hold; the number deleted.
  qsizetype Elague();
  QString Chemin(const QString& nom) const { return Dossier_ + QLatin1Char('/') + nom; }
  /// When the photo was taken: the file's own time, since the name carries the date of the program's start.
  QDateTime DonnePrise(const QString& nom) const;
  /// Milliseconds by which the clock was set back since it was taken, as far as this run knows.
  qint64 DonneRecul(const QString& nom) const { return Trouvees_.value(nom).Recul; }
  /// The clock was set back by so much: all that were found so far are older by as much.
  void Recule(qint64 millisecondes);
  /// True when the file has not changed for a minute, by a clock that may have been set meanwhile: what is no picture
  /// by then will never be one.
  bool EstAbandonne(const QString& nom, const QDateTime& maintenant) const;
  /// Published, or never to be.
  void Retire(const QString& nom) const;

 private:
  QFileInfoList ListeFichiers();

  QString Dossier_;
  Bornes Bornes_;
  struct Trouvee {
    quint64 Rang = 0;  // in the order in which they were found
    qint64 Recul = 0;
  };
  QHash<QString, Trouvee> Trouvees_;  // those that wait
  quint64 Rangs_ = 0;                 // given so far
};

}  // namespace vaktor
