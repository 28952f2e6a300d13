// SPDX-License-Identifier: GPL-3.0-or-later
// Brings the photos of one folder to the disk itself.
#pragma once

#include <QByteArray>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace vaktor {

/// Flushes what was written, and the folder that holds its names, at once and then at most once a second, on a thread
/// of its own: a flush lasts longer than the time between two frames, and while it lasts the next photo is written. So
/// a power cut takes what was written within a second and the time that the disk needs for one flush.
/// Shared with its thread, which nobody joins: with a disk that does not answer it ends with the process.
class Vidage : public std::enable_shared_from_this<Vidage> {
 public:
  static constexpr std::chrono::milliseconds kPeriode{1000};
  static constexpr std::chrono::seconds kLongue{10};

  /// Starts the thread. Throws std::system_error when the system gives none.
  static std::shared_ptr<Vidage> Lance(const QByteArray& dossier);

  /// A file of the folder that is written and closed. Any thread.
  void Ajoute(const QByteArray& nom);
  /// The error number of a flush since the last call that did not bring everything to the disk, 0 for none; ETIMEDOUT,
  /// once, of one that lasts longer than kLongue, and of what came while too much waited for it. Waits for no disk. Any
  /// thread.
  int PrendErreur();
  /// The thread has ended: no error comes any more. Any thread.
  bool EstFinie();
  /// No file comes any more; what waits is flushed and the thread ends.
  void Termine();
  /// Whether the thread has ended before `echeance`.
  bool AttendFin(std::chrono::steady_clock::time_point echeance);

 private:
  explicit Vidage(QByteArray dossier) : Dossier_(std::move(dossier)) {}
  void Boucle();
  bool PrendLot(std::vector<QByteArray>& lot);
  void Vide(const std::vector<QByteArray>& lot);
  void NoteErreur(int erreur);

  const QByteArray Dossier_;
  std::mutex Verrou_;
  std::condition_variable Change_;
  std::vector<QByteArray> Attente_;
  std::chrono::steady_clock::time_point Prochain_{};
  std::optional<std::chrono::steady_clock::time_point> Debut_;  // of the flush under way that was not told as too long
  int Erreur_ = 0;
  bool Fin_ = false;
  bool Finie_ = false;
};

}  // namespace vaktor
