// SPDX-License-Identifier: GPL-3.0-or-later
// Which photos the page shows: the companion's own memory, kept between two runs.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include "modules/ftp/memory_file.h"

namespace vaktor {

struct PhotoPubliee {
  QString Nom;      ///< on the server
  QDateTime Prise;  ///< local time
  /// Milliseconds by which the clock was set back since, as far as this run knows. Time and this make its rank among
  /// the others.
  qint64 Recul = 0;
  bool operator==(const PhotoPubliee&) const = default;
};

/// A small JSON file, mode 0600, replaced whole. A file that is missing is an empty memory, a damaged one is kept
/// beside; one that cannot be written costs the memory of the next run and nothing else. What is noted while the file
/// cannot be read is added once it can be.
class PhotosPubliees {
 public:
  static constexpr qsizetype kMax = 1000;  ///< remembered at most; the page shows the newest of them

  explicit PhotosPubliees(QString fichier);

  /// Tries to read what could not be read before.
  void Relit();
  std::optional<TroubleMemoire> PrendTrouble() { return Memoire_.PrendTrouble(); }
  /// The rank of the newest, milliseconds since 1970; 0 for none.
  qint64 Dernier() const;
  /// The clock was set back by so many milliseconds: all ranks go back by as much. On the page each keeps its time.
  void Recule(qint64 millisecondes);
  /// `site` names server and folder. Another one than before empties the memory: the photos are not there.
  void ChoisitSite(const QString& site);
  /// The newest comes first, by its rank: an older one may be published later.
  void Ajoute(const PhotoPubliee& photo);
  /// It lies on the site no longer. True when it was known.
  bool Retire(const QString& nom);
  /// One that was taken within kSeconde of that rank lies on the site.
  bool EstProche(qint64 rang) const;
  static constexpr qint64 kSeconde = 900;  ///< milliseconds: about a second, and a camera of one a second loses none
  /// The page has been made for this site; from then on it is renewed by itself.
  void NotePage();

  const QList<PhotoPubliee>& Liste() const { return Photos_; }
  bool APage() const { return Page_; }

 private:
  /// Where a photo of that time stands, or would.
  qsizetype Place(qint64 rang) const;
  void Comprend(const QByteArray& octets);
  void Insere(const PhotoPubliee& photo);
  void Ecrit() const;

  FichierMemoire Memoire_;
  QString Site_;
  QList<PhotoPubliee> Photos_;
  bool Page_ = false;
};

}  // namespace vaktor
