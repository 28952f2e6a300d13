// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disk/flush_thread.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <thread>

namespace vaktor {
namespace {

/// Far more than a second of photos. Beyond it the flush does not keep up, and its list is not to grow for ever: what
/// is left out here goes to the disk when the system finds the time, and may be lost.
constexpr std::size_t kAttenteAuPlus = 1000;

/// Whether data may be lost: whatever is not known to be harmless. A file system that cannot flush at all is left in
/// peace, and so is a file or folder that this user may write and not read. EROFS is no such excuse: the photo has just
/// been written, so the disk has failed since and become one that can only be read.
bool EstPerte(int erreur) {
  return erreur != 0 && erreur != EINVAL && erreur != ENOSYS && erreur != EOPNOTSUPP && erreur != EACCES;
}

/// Opened again for the flush, and for reading only: whoever waits for a photo to be closed is not told so twice.
int VideChemin(const QByteArray& nom, int maniere, int (*vide)(int)) {
  const int descripteur = ::open(nom.constData(), O_RDONLY | O_CLOEXEC | maniere);
  if (descripteur < 0) return errno;
  const int erreur = vide(descripteur) == 0 ? 0 : errno;
  ::close(descripteur);
  return erreur;
}

}  // namespace

std::shared_ptr<Vidage> Vidage::Lance(const QByteArray& dossier) {
  std::shared_ptr<Vidage> vidage(new Vidage(dossier));
  std::thread([vidage] { vidage->Boucle(); }).detach();
  return vidage;
}

void Vidage::Ajoute(const QByteArray& nom) {
  const std::lock_guard garde(Verrou_);
  if (Attente_.size() < kAttenteAuPlus)
    Attente_.push_back(nom);
  else
    Erreur_ = ETIMEDOUT;
  Change_.notify_all();
}

int Vidage::PrendErreur() {
  const std::lock_guard garde(Verrou_);
  if (Debut_ && std::chrono::steady_clock::now() - *Debut_ > kLongue) {
    Debut_.reset();
    Erreur_ = ETIMEDOUT;
  }
  return std::exchange(Erreur_, 0);
}

void Vidage::Termine() {
  const std::lock_guard garde(Verrou_);
  Fin_ = true;
  Change_.notify_all();
}

bool Vidage::AttendFin(std::chrono::steady_clock::time_point echeance) {
  std::unique_lock garde(Verrou_);
  return Change_.wait_until(garde, echeance, [this] { return Finie_; });
}

bool Vidage::EstFinie() {
  const std::lock_guard garde(Verrou_);
  return Finie_;
}

void Vidage::Boucle() {
  try {
    std::vector<QByteArray> lot;
    while (PrendLot(lot)) Vide(lot);
  } catch (const std::exception&) {
    // Want of memory. Nothing is flushed from here on but by the system itself; the photos are written all the same.
    NoteErreur(ENOMEM);
  }
  const std::lock_guard garde(Verrou_);
  Finie_ = true;
  Change_.notify_all();
}

// The first photo of an alarm is flushed at once; the flushes of those that follow are a second apart.
bool Vidage::PrendLot(std::vector<QByteArray>& lot) {
  std::unique_lock garde(Verrou_);
  Debut_.reset();
  Change_.wait(garde, [this] { return Fin_ || !Attente_.empty(); });
  Change_.wait_until(garde, Prochain_, [this] { return Fin_; });
  lot.clear();
  std::swap(lot, Attente_);
  Prochain_ = std::chrono::steady_clock::now() + kPeriode;
  Debut_ = std::chrono::steady_clock::now();
  return !lot.empty();
}

void Vidage::Vide(const std::vector<QByteArray>& lot) {
  bool partis = false;
  for (const QByteArray& nom : lot) {
    const int erreur = VideChemin(nom, 0, ::fdatasync);
    partis = partis || erreur == ENOENT;
    if (erreur != ENOENT) NoteErreur(erreur);
  }
  // The names: without them the photos are on the disk and cannot be found there.
  const int erreur = VideChemin(Dossier_, O_DIRECTORY, ::fsync);
  // A photo that is gone was deleted by the user, unless its folder is gone too, with its volume for instance.
  if (partis && EstPerte(erreur)) NoteErreur(ENOENT);
  NoteErreur(erreur);
}

void Vidage::NoteErreur(int erreur) {
  if (!EstPerte(erreur)) return;
  const std::lock_guard garde(Verrou_);
  Erreur_ = erreur;
}

}  // namespace vaktor
