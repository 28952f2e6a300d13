// SPDX-License-Identifier: GPL-3.0-or-later
// The file of the journal on a disk that may not answer.
#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <memory>

#include "journal/ports/journal_file.h"

namespace vaktor {

/// Each line is appended whole, with one write, and brought to the disk. A file that a kill or a power cut has left
/// without a line break at its end gets one first, so that the torn line costs itself alone. Above kOctetsMax the
/// oldest days go: what stays is written beside the file and takes its place. Mode 0600; a folder that is not there is
/// made for the user alone.
///
/// Two programs may write one file: the file is locked for each line, and one that another program has replaced
/// meanwhile is opened again. The thread comes with the first line; one that hangs is left behind at the end.
/// User-interface thread.
class FichierJournalSysteme : public FichierJournal {
 public:
  static constexpr qsizetype kOctetsMax = qsizetype{8} * 1024 * 1024;  ///< above it the file is cut
  static constexpr qsizetype kOctetsGardes = qsizetype{6} * 1024 * 1024;
  static constexpr qsizetype kLignesEnAttente = 1000;  ///< while a disk is silent; further ones are lost
  static constexpr std::chrono::milliseconds kAttenteFin{500};

  explicit FichierJournalSysteme(const QString& chemin, qsizetype octetsMax = kOctetsMax,
                                 qsizetype octetsGardes = kOctetsGardes);
  /// Waits for what was handed over, for kAttenteFin at the most.
  ~FichierJournalSysteme() override;
  FichierJournalSysteme(const FichierJournalSysteme&) = delete;
  FichierJournalSysteme& operator=(const FichierJournalSysteme&) = delete;

  void Ajoute(const QByteArray& ligne) noexcept override;
  /// Written beside its place and renamed: a reader has one whole slate or another. Mode 0600. It is not waited for
  /// until it is on the medium: after a power cut nobody asks for it. One that a disk does not take is lost.
  void MontreArdoise(const QByteArray& ardoise) noexcept override;
  int Erreur() const noexcept override;

 private:
  struct Etat;  // shared with the thread
  void Reveille();

  std::shared_ptr<Etat> Etat_;
};

/// The end of a journal, from the first whole line on; at most `plafond` bytes. Empty where there is no file, or what
/// stands there is no regular file. Any thread; waits as long as the disk does.
QByteArray LitFinJournal(const QString& chemin, qsizetype plafond = FichierJournalSysteme::kOctetsMax);

}  // namespace vaktor
