// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings file needs from the system beyond reading and writing: to belong to its owner alone, to be on the
// disk, and to say why it cannot be written.
#pragma once

#include <QByteArray>
#include <QString>

namespace vaktor {

/// While it lives, files that this process makes can be opened by their owner alone. The mask belongs to the whole
/// process: keep it around one short write only.
class MasquePrive {
 public:
  MasquePrive();
  ~MasquePrive();
  MasquePrive(const MasquePrive&) = delete;
  MasquePrive& operator=(const MasquePrive&) = delete;

 private:
  quint32 Ancien_;
};

/// The right of one process at a time to write into a folder; the kernel takes it back from a process that dies.
class VerrouDossier {
 public:
  /// Waits a few seconds at most. Throws Echec(kAccesFichier) when another process does not let go.
  explicit VerrouDossier(const QString& dossier);
  ~VerrouDossier();
  VerrouDossier(const VerrouDossier&) = delete;
  VerrouDossier& operator=(const VerrouDossier&) = delete;

  /// False where there is no folder yet or its file system has no such locks.
  bool Tenu() const { return Tenu_; }

 private:
  int Descripteur_;
  bool Tenu_ = false;
};

/// Makes a folder (and its parents) that its owner alone can enter, and puts them on the disk. A folder that is there
/// stays as it is.
void PrepareDossierPrive(const QString& dossier);

/// Gives a file the mode 0600 where it exists with another; makes no file. Silent where the file system has no modes.
void RendPrive(const QString& fichier);

/// The bytes of a file. Throws Echec(kAccesFichier), "path: reason", when it exists and cannot be read; a file that is
/// not there is empty.
QByteArray LitFichierEntier(const QString& fichier);

/// Time of the last change in nanoseconds, -1 without a file.
qint64 DateFichier(const QString& fichier);

/// Moves the time of the last change of `fichier` at least one millisecond behind `avant`. Readers take a file of the
/// same size and the same millisecond for unchanged, and file systems stamp in steps of several milliseconds.
void AvanceDate(const QString& fichier, qint64 avant);

/// Puts the entry of a file in its folder on the disk, so that a renamed file is there after a power cut.
void EcritDossierSurDisque(const QString& fichier);

/// Why `taille` bytes cannot be written beside `fichier`, in the words of the system; tried out with a file that is
/// gone afterwards. Empty when they can.
QString RaisonRefus(const QString& fichier, qsizetype taille);

}  // namespace vaktor
