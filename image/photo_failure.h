// What is known of one folder into which photos cannot be written.
#pragma once

#include <QString>

#include "base/write_failure.h"

namespace vaktor {

/// Of one kind of copy.
class PannePhotos : public PanneEcriture {
 public:
  /// A try that began at `tic` has failed. `dossier` and `raison` are for the one who is told.
  void Note(qint32 tic, const QString& dossier, const QString& raison);
  void Oublie() { *this = {}; }

  const QString& Dossier() const { return Dossier_; }
  const QString& Raison() const { return Raison_; }

 private:
  QString Dossier_;  ///< as stored
  QString Raison_;
};

}  // namespace vaktor
