#include "platform/disk/flush_thread.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <thread>

namespace vaktor {
namespace {

/// Far more than a second of photos. Beyond it the flush does not keep up, and its list is not to grow for ever: what
/// is left out here goes to the disk when the system finds the time.
constexpr std::size_t kAttenteAuPlus = 1000;

/// What says that data were lost. A file system that cannot flush at all says something else, and is left in peace; a
/// file that is gone, because the user deleted it, needs no flush.
bool EstPerte(int erreur) { return erreur == EIO || erreur == ENOSPC || erreur == EDQUOT; }

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
  const std::shared_ptr<Vidage> vidage(new Vidage(dossier));
  std::thread([vidage] { vidage->Boucle(); }).detach();
  return vidage;
}

void Vidage::Ajoute(const QByteArray& nom) {
  const std::lock_guard garde(Verrou_);
  if (Attente_.size() < kAttenteAuPlus) Attente_.push_back(nom);
  Change_.notify_all();
}

int Vidage::PrendErreur() {
  const std::lock_guard garde(Verrou_);
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

void Vidage::Boucle() {
  try {
    std::vector<QByteArray> lot;
    while (PrendLot(lot)) Vide(lot);
  } catch (const std::exception&) {
    // Want of memory. Nothing is flushed from here on but by the system itself; the photos are written all the same.
  }
  const std::lock_guard garde(Verrou_);
  Finie_ = true;
  Change_.notify_all();
}

// The first photo of an alarm is flushed at once; the flushes of those that follow are a second apart.
bool Vidage::PrendLot(std::vector<QByteArray>& lot) {
  std::unique_lock garde(Verrou_);
  Change_.wait(garde, [this] { return Fin_ || !Attente_.empty(); });
  Change_.wait_until(garde, Prochain_, [this] { return Fin_; });
  lot.clear();
  std::swap(lot, Attente_);
  Prochain_ = std::chrono::steady_clock::now() + kPeriode;
  return !lot.empty();
}

void Vidage::Vide(const std::vector<QByteArray>& lot) {
  for (const QByteArray& nom : lot) NoteErreur(VideChemin(nom, 0, ::fdatasync));
  // The names: without them the photos are on the disk and cannot be found there.
  NoteErreur(VideChemin(Dossier_, O_DIRECTORY, ::fsync));
}

void Vidage::NoteErreur(int erreur) {
  if (!EstPerte(erreur)) return;
  const std::lock_guard garde(Verrou_);
  Erreur_ = erreur;
}

}  // namespace vaktor
