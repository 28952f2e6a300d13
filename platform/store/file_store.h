// SPDX-License-Identifier: GPL-3.0-or-later
// The settings store as one file in the user's configuration folder, shared by the main program and its companions.
#pragma once

#include <QMap>
#include <QSettings>
#include <QString>
#include <memory>

#include "settings/ports/settings_store.h"

namespace vaktor {

/// Reads and writes the file through QSettings, in the format of settings/settings_text.h. Needs a QCoreApplication.
///
/// The file has the mode 0600, also when it existed with another. A save replaces it whole by a rename, one process at
/// a time (flock on the folder), so a reader finds the old or the new table at any moment, also after a crash or a
/// power cut. Keys and sections that the program does not know are kept; comments are not. A file with lines that make
/// no sense, or values that lack their end, is copied to "<file>.damaged" before it is written for the first time;
/// without that copy it is not written.
class MagasinFichier : public MagasinReglages {
 public:
  /// `fichier`: absolute path. Makes nothing: the file and its folder come with the first Vide(). Throws
  /// Echec(kAccesFichier) with "path: reason" when the file exists and cannot be read.
  explicit MagasinFichier(const QString& fichier);
  ~MagasinFichier() override;
  MagasinFichier(const MagasinFichier&) = delete;
  MagasinFichier& operator=(const MagasinFichier&) = delete;

  QString LitReglage(const QString& section, const QString& cle, const QString& defaut) const override;
  void EcritReglage(const QString& section, const QString& cle, const QString& valeur) override;
  void Reprend(const QString& section, const QString& cle) override;
  /// Throws Echec(kAccesFichier) with "path: reason"; what was set stays set and goes out with the next Vide().
  void Vide() override;
  QString Emplacement() const override { return Fichier_; }
  AbimesMagasin Abimes() const override { return Abimes_; }

  /// All values, by "section/key", with those that are set and not yet on the disk.
  QMap<QString, QString> DonneTout() const;

  /// Reads the file again where another process has changed it: what a companion does when it is told "Optio".
  void Relit();

 private:
  void GardeFichierAbime();
  void RendAuxReprises();
  void OuvreMagasin();
  void PoseMagasin();

  QString Fichier_;
  QMap<QString, QString> Attente_;   // set and not yet on the disk, by "section/key"
  QMap<QString, QString> Reprises_;  // taken back, as the disk has them; null where it has none
  std::unique_ptr<QSettings> Magasin_;
  AbimesMagasin Abimes_;  // of the file as it was opened
  bool CopieFaite_ = false;
};

}  // namespace vaktor
