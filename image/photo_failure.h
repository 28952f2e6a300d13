// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of one folder into which photos cannot be written.
#pragma once

#include <QString>

#include "base/write_failure.h"

namespace vaktor {

/// Of one kind of copy.
class PannePhotos : public PanneEcriture {
 public:
  /// Milliseconds: so long after the last try a failure is no news any more.
  static constexpr quint32 kReprise = 60'000;

  /// A try that began at `tic` has failed. `dossier` and `raison` are for the one who is told.
  void Note(qint32 tic, const QString& dossier, const QString& raison);
  /// It lasts, and nothing has been tried for kReprise: a trial is due that needs no photo.
  bool EssaiManque(qint32 tic) const;
  void Oublie() { *this = {}; }

  const QString& Dossier() const { return Dossier_; }
  const QString& Raison() const { return Raison_; }

 private:
  qint32 DernierePhoto_ = 0;  ///< when it was tried
  QString Dossier_;           ///< as stored
  QString Raison_;
};

}  // namespace vaktor
