// SPDX-License-Identifier: GPL-3.0-or-later
// The files of one folder, written by a thread of their own, so that a disk that does not answer holds nobody.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/disk/flush_thread.h"

namespace vaktor {

/// One file at a time. The bytes are handed over, so that they need not be there any more when the caller has stopped
/// waiting; the memory for them is kept for the next file.
class VoieEcriture {
 public:
  using Duree = std::chrono::milliseconds;
  enum class Maniere {
    kRemplace,  ///< the file of that name becomes these bytes
    kNouveau    ///< never a file that is there already (CreeFichier); on its way to the disk at once
  };

  /// Makes nothing yet; the thread comes with the first file.
  explicit VoieEcriture(QByteArray dossier) : Dossier_(std::move(dossier)) {}
  /// DemandeFin and AttendFin, for a second at the most.
  ~VoieEcriture();
  VoieEcriture(const VoieEcriture&) = delete;
  VoieEcriture& operator=(const VoieEcriture&) = delete;

  /// Writes a file of the folder and returns when it is whole and closed: 0, and `devenu` is the name that it got, or
  /// errno. ETIMEDOUT after `patience`; from
  /// then on at once, with nothing asked, until the disk has answered. Such a file may still come into being, whole;
  /// no other is begun before. One thread.
  int Ecrit(const QByteArray& nom, QByteArrayView contenu, Maniere maniere, Duree patience, QByteArray& devenu);
  /// The disk has not answered in time, and has not since.
  bool EstMuette() const;
  /// Nothing is being written.
  bool EstLibre() const;
  /// Who flushes what is written here, also after this lane has gone; nobody before the first file.
  std::shared_ptr<Vidage> DonneVidage() const;
  /// Nothing is written any more; what is written is flushed.
  void DemandeFin();
  /// Waits for that until `echeance` at the most. A thread that hangs is left behind: it ends with its disk or with the
  /// process.
  void AttendFin(std::chrono::steady_clock::time_point echeance);

 private:
  struct Etat;  // shared with the thread
  bool AssureFil();

  const QByteArray Dossier_;
  std::shared_ptr<Etat> Etat_;
};

}  // namespace vaktor
