// SPDX-License-Identifier: GPL-3.0-or-later
// Which photos the page shows: the companion's own memory, kept between two runs.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace vaktor {

struct PhotoPubliee {
  QString Nom;      ///< on the server
  QDateTime Prise;  ///< local time
  bool operator==(const PhotoPubliee&) const = default;
};

/// A small JSON file, mode 0600, replaced whole. A file that is missing or damaged is an empty memory; one that cannot
/// be written costs the memory of the next run and nothing else.
class PhotosPubliees {
 public:
  static constexpr qsizetype kMax = 1000;  ///< remembered at most; the page shows the newest of them

  explicit PhotosPubliees(QString fichier);

  /// `site` names server and folder. Another one than before empties the memory: the photos are not there.
  void ChoisitSite(const QString& site);
  /// The newest comes first, by the time at which each was taken: an older one may be published later.
  void Ajoute(const PhotoPubliee& photo);
  /// It lies on the site no longer. True when it was known.
  bool Retire(const QString& nom);
  /// One that was taken within kSeconde of that moment lies on the site.
  bool EstProche(const QDateTime& prise) const;
  static constexpr qint64 kSeconde = 900;  ///< milliseconds: about a second, and a camera of one a second loses none
  /// The page has been made for this site; from then on it is renewed by itself.
  void NotePage();

  const QList<PhotoPubliee>& Liste() const { return Photos_; }
  bool APage() const { return Page_; }

 private:
  /// Where a photo of that time stands, or would.
  qsizetype Place(const QDateTime& prise) const;
  void Lit();
  void Ecrit() const;

  QString Fichier_;
  QString Site_;
  QList<PhotoPubliee> Photos_;
  bool Page_ = false;
};

}  // namespace vaktor
