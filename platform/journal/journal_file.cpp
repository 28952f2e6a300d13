// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/journal/journal_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <cstdio>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "companions/contract/intrusion_slate.h"
#include "journal/journal_entry.h"

namespace vaktor {
namespace {

class Descripteur {
 public:
  Descripteur() = default;
  explicit Descripteur(int numero) : Numero_(numero) {}
  ~Descripteur() {
    if (Numero_ >= 0) ::close(Numero_);
  }
  Descripteur(Descripteur&& autre) noexcept : Numero_(std::exchange(autre.Numero_, -1)) {}
  Descripteur& operator=(Descripteur&& autre) noexcept {
    std::swap(Numero_, autre.Numero_);
    return *this;
  }
  int Numero() const { return Numero_; }

 private:
  int Numero_ = -1;
};

// A link is followed nowhere, and a pipe is not waited for: the folder is the user's own, but the name is well known.
Descripteur OuvreFichier(const QByteArray& chemin, int maniere) {
  return Descripteur(::open(chemin.constData(), maniere | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, S_IRUSR | S_IWUSR));
}

int EcritTout(int fichier, QByteArrayView octets) {
  while (!octets.isEmpty()) {
    const ssize_t ecrits = ::write(fichier, octets.data(), static_cast<std::size_t>(octets.size()));
    if (ecrits < 0 && errno == EINTR) continue;
    if (ecrits <= 0) return ecrits < 0 ? errno : EIO;
    octets = octets.sliced(ecrits);
  }
  return 0;
}

QByteArray LitDepuis(int fichier, off_t debut, off_t fin) {
  QByteArray octets(static_cast<qsizetype>(fin - debut), Qt::Uninitialized);
  qsizetype lus = 0;
  while (lus < octets.size()) {
    const ssize_t part =
        ::pread(fichier, octets.data() + lus, static_cast<std::size_t>(octets.size() - lus), debut + lus);
    if (part < 0 && errno == EINTR) continue;
    if (part <= 0) break;
    lus += part;
  }
  octets.truncate(lus);
  return octets;
}

// The companions, which share the folder, may not have made it yet.
void AssureDossier(const QByteArray& chemin) {
  const QString dossier = QFileInfo(QFile::decodeName(chemin)).path();
  if (QDir().mkpath(dossier)) ::chmod(QFile::encodeName(dossier).constData(), S_IRWXU);
}

/// The file under its own lock, which another program may have replaced before it was had.
struct JournalOuvert {
  Descripteur Fichier;
  struct stat Etat = {};
  int Erreur = 0;
};

JournalOuvert OuvreVerrouille(const QByteArray& chemin) {
  JournalOuvert ouvert;
  for (int essai = 0; essai < 10; ++essai) {
    ouvert.Fichier = OuvreFichier(chemin, O_RDWR | O_CREAT | O_APPEND);
    if (ouvert.Fichier.Numero() < 0 && errno == ENOENT) {
      AssureDossier(chemin);
      ouvert.Fichier = OuvreFichier(chemin, O_RDWR | O_CREAT | O_APPEND);
    }
    struct stat nomme = {};
    if (ouvert.Fichier.Numero() < 0 || ::fstat(ouvert.Fichier.Numero(), &ouvert.Etat) != 0) {
      ouvert.Erreur = errno;
      return ouvert;
    }
    if (!S_ISREG(ouvert.Etat.st_mode)) {
      ouvert.Erreur = EINVAL;
      return ouvert;
    }
    while (::flock(ouvert.Fichier.Numero(), LOCK_EX) != 0 && errno == EINTR) {
    }
    if (::stat(chemin.constData(), &nomme) == 0 && nomme.st_ino == ouvert.Etat.st_ino &&
        ::fstat(ouvert.Fichier.Numero(), &ouvert.Etat) == 0)
      return ouvert;
  }
  ouvert.Erreur = EAGAIN;
  return ouvert;
}

// Beside it and renamed: at each moment there is one whole journal. What cannot be cut goes on growing, and says so.
int Coupe(const QByteArray& chemin, const JournalOuvert& ouvert, qsizetype gardes) {
  const QByteArray octets = LitDepuis(ouvert.Fichier.Numero(), 0, ouvert.Etat.st_size);
  if (octets.size() != ouvert.Etat.st_size) return EIO;  // a bad sector must not cost what stands behind it
  const QByteArray brouillon = chemin + ".new";
  ::unlink(brouillon.constData());
  const Descripteur neuf = OuvreFichier(brouillon, O_WRONLY | O_CREAT | O_EXCL);
  if (neuf.Numero() < 0) return errno;
  int erreur = EcritTout(neuf.Numero(), QByteArrayView(octets).sliced(TrouveDebutGarde(octets, gardes)));
  if (erreur == 0 && ::fdatasync(neuf.Numero()) != 0) erreur = errno;
  if (erreur == 0 && ::rename(brouillon.constData(), chemin.constData()) != 0) erreur = errno;
  if (erreur != 0) ::unlink(brouillon.constData());
  return erreur;
}

int EcritLigneDisque(const QByteArray& chemin, const QByteArray& ligne, qsizetype octetsMax, qsizetype gardes) {
  JournalOuvert ouvert = OuvreVerrouille(chemin);
  if (ouvert.Erreur != 0) return ouvert.Erreur;
  const int coupe = ouvert.Etat.st_size > octetsMax ? Coupe(chemin, ouvert, gardes) : 0;
  if (ouvert.Etat.st_size > octetsMax && coupe == 0) {
    ouvert = OuvreVerrouille(chemin);
    if (ouvert.Erreur != 0) return ouvert.Erreur;
  }
  const off_t taille = ouvert.Etat.st_size;
  const bool dechiree = taille > 0 && LitDepuis(ouvert.Fichier.Numero(), taille - 1, taille) != "\n";
  const int erreur = EcritTout(ouvert.Fichier.Numero(), (dechiree ? "\n" : "") + ligne + '\n');
  if (erreur != 0) return erreur;
  // The line is written all the same: a folder that takes no file beside must not cost what happens from now on.
  return ::fdatasync(ouvert.Fichier.Numero()) == 0 ? coupe : errno;
}

int EcritArdoiseDisque(const QByteArray& chemin, const QByteArray& ardoise) {
  const QByteArray brouillon = chemin + ".new";
  ::unlink(brouillon.constData());
  Descripteur neuf = OuvreFichier(brouillon, O_WRONLY | O_CREAT | O_EXCL);
  if (neuf.Numero() < 0 && errno == ENOENT) {
    AssureDossier(chemin);
    neuf = OuvreFichier(brouillon, O_WRONLY | O_CREAT | O_EXCL);
  }
  if (neuf.Numero() < 0) return errno;
  int erreur = EcritTout(neuf.Numero(), ardoise);
  if (erreur == 0 && ::rename(brouillon.constData(), chemin.constData()) != 0) erreur = errno;
  if (erreur != 0) ::unlink(brouillon.constData());
  return erreur;
}

}  // namespace

struct FichierJournalSysteme::Etat {
  QByteArray Chemin;
  QByteArray CheminArdoise;
  qsizetype OctetsMax = 0;
  qsizetype Gardes = 0;
  std::mutex Verrou;
  std::condition_variable Signal;
  std::deque<QByteArray> Attente;
  std::optional<QByteArray> Ardoise;  // the newest that is not written yet
  bool Lance = false;
  bool Fin = false;    // nothing comes any more
  bool Finie = false;  // the thread has ended
  std::atomic<int> Erreur = 0;

  // Before the lines, each of which waits for the medium: a mail is soon made of it.
  void EcritArdoise(std::unique_lock<std::mutex>& verrou) {
    const std::optional<QByteArray> ardoise = std::exchange(Ardoise, std::nullopt);
    if (!ardoise) return;
    verrou.unlock();
    try {
      EcritArdoiseDisque(CheminArdoise, *ardoise);
    } catch (const std::exception&) {
    }
    verrou.lock();
  }

  void Travaille() {
    std::unique_lock verrou(Verrou);
    while (true) {
      Signal.wait(verrou, [this] { return Fin || Ardoise || !Attente.empty(); });
      EcritArdoise(verrou);
      if (Attente.empty() && Fin) break;
      if (Attente.empty()) continue;
      const QByteArray ligne = std::move(Attente.front());
      Attente.pop_front();
      verrou.unlock();
      int erreur = ENOMEM;
      try {
        erreur = EcritLigneDisque(Chemin, ligne, OctetsMax, Gardes);
      } catch (const std::exception&) {
      }
      Erreur = erreur;
      verrou.lock();
    }
    Finie = true;
    Signal.notify_all();
  }
};

FichierJournalSysteme::FichierJournalSysteme(const QString& chemin, qsizetype octetsMax, qsizetype octetsGardes)
    : Etat_(std::make_shared<Etat>()) {
  Etat_->Chemin = QFile::encodeName(chemin);
  Etat_->CheminArdoise = QFile::encodeName(QFileInfo(chemin).path() + u'/' + kFichierArdoise);
  Etat_->OctetsMax = octetsMax;
  Etat_->Gardes = octetsGardes;
}

FichierJournalSysteme::~FichierJournalSysteme() {
  std::unique_lock verrou(Etat_->Verrou);
  Etat_->Fin = true;
  Etat_->Signal.notify_all();
  if (Etat_->Lance) Etat_->Signal.wait_for(verrou, kAttenteFin, [this] { return Etat_->Finie; });
}

void FichierJournalSysteme::Ajoute(const QByteArray& ligne) noexcept {
  try {
    const std::lock_guard garde(Etat_->Verrou);
    if (Etat_->Attente.size() >= static_cast<std::size_t>(kLignesEnAttente)) {
      Etat_->Erreur = ETIMEDOUT;
      return;
    }
    Etat_->Attente.push_back(ligne);
    Reveille();
  } catch (const std::exception&) {
    Etat_->Erreur = ENOMEM;
  }
}

void FichierJournalSysteme::MontreArdoise(const QByteArray& ardoise) noexcept {
  try {
    const std::lock_guard garde(Etat_->Verrou);
    Etat_->Ardoise = ardoise;
    Reveille();
  } catch (const std::exception&) {
    // Want of memory costs the mail the order of its photos.
  }
}

// Under the lock.
void FichierJournalSysteme::Reveille() {
  if (!Etat_->Lance) {
    std::thread([etat = Etat_] { etat->Travaille(); }).detach();
    Etat_->Lance = true;
  }
  Etat_->Signal.notify_all();
}

int FichierJournalSysteme::Erreur() const noexcept { return Etat_->Erreur; }

QByteArray LitFinJournal(const QString& chemin, qsizetype plafond) {
  const Descripteur fichier = OuvreFichier(QFile::encodeName(chemin), O_RDONLY);
  struct stat etat = {};
  if (fichier.Numero() < 0 || ::fstat(fichier.Numero(), &etat) != 0 || !S_ISREG(etat.st_mode)) return {};
  const off_t debut = etat.st_size > plafond ? etat.st_size - plafond : 0;
  QByteArray octets = LitDepuis(fichier.Numero(), debut, etat.st_size);
  if (debut > 0) octets.remove(0, octets.indexOf('\n') + 1);
  return octets;
}

}  // namespace vaktor
