// What is known of one folder into which photos cannot be written.
#pragma once

#include <QString>

namespace vaktor {

/// Of one kind of copy. Moments are those of Horloge::CompteTics, whose wrap does no harm here.
class PannePhotos {
 public:
  /// Milliseconds: so long every frame tries, and its failure ends what the frame does; then one try in so long.
  static constexpr quint32 kInsistance = 1000;

  bool Dure() const { return Dure_; }
  /// It has lasted for kInsistance; so until it ends.
  bool Installee(qint32 tic);
  /// A photo may be tried now.
  bool EssaiDu(qint32 tic);
  /// A try that began at `tic` has failed. `dossier` and `raison` are for the one who is told.
  void Note(qint32 tic, const QString& dossier, const QString& raison);
  void Oublie() { *this = {}; }

  const QString& Dossier() const { return Dossier_; }
  const QString& Raison() const { return Raison_; }

 private:
  bool Dure_ = false;
  bool Installee_ = false;
  qint32 Debut_ = 0;
  qint32 DernierEssai_ = 0;
  QString Dossier_;  ///< as stored
  QString Raison_;
};

}  // namespace vaktor
