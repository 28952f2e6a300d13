// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disk/write_lane.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <thread>

#include "platform/base/system_files.h"

namespace vaktor {
namespace {

using Horloge = std::chrono::steady_clock;

/// At the end of the program, for the last photos to reach the disk.
constexpr auto kPatienceFin = std::chrono::milliseconds(1000);

/// Asks the system to begin with the writing to the disk now, rather than in half a minute, and does not wait for it.
void CommenceEcriture(const QByteArray& nom) {
  const int descripteur = ::open(nom.constData(), O_RDONLY | O_CLOEXEC);
  if (descripteur < 0) return;
  ::sync_file_range(descripteur, 0, 0, SYNC_FILE_RANGE_WRITE);  // what it cannot do the flush does
  ::close(descripteur);
}

}  // namespace

struct VoieEcriture::Etat {
  explicit Etat(std::shared_ptr<Vidage> vidage) : Disque(std::move(vidage)) {}

  void Boucle();
  void EcritUn();
  void SuitUn();

  const std::shared_ptr<Vidage> Disque;
  mutable std::mutex Verrou;
  std::condition_variable Change;
  // The order: the thread's alone while it has not finished it, the caller's otherwise.
  QByteArray Nom;
  std::vector<char> Octets;
  Maniere Comment = Maniere::kRemplace;
  int Resultat = 0;
  bool Cree = false;  // a new file is there
  // Under the lock. Orders are numbered: that of a caller may be answered and finished before the caller wakes up.
  quint64 Commande = 0;     // the last that was given
  quint64 Rendue = 0;       // the last that was answered: its file is closed
  quint64 Finie = 0;        // the last behind which nothing is to be done any more
  bool Abandonnee = false;  // the caller has stopped waiting, and the thread is not back
  bool Fin = false;
};

void VoieEcriture::Etat::EcritUn() {
  const QByteArrayView contenu(Octets.data(), static_cast<qsizetype>(Octets.size()));
  Cree = false;
  try {
    if (Comment == Maniere::kRemplace) {
      Resultat = RemplaceFichier(Nom, contenu);
      return;
    }
    Resultat = CreeFichier(Nom, contenu);
    Cree = Resultat == 0;
  } catch (const std::exception&) {
    Resultat = ENOMEM;  // one photo that fails, and not the program
  }
}

// The caller goes on meanwhile.
void VoieEcriture::Etat::SuitUn() {
  if (!Cree) return;
  CommenceEcriture(Nom);
  try {
    Disque->Ajoute(Nom);
  } catch (const std::exception&) {
    // Without memory for its name the system flushes it, later.
  }
}

void VoieEcriture::Etat::Boucle() {
  std::unique_lock garde(Verrou);
  for (;;) {
    Change.wait(garde, [this] { return Fin || Commande != Finie; });
    if (Commande == Finie) break;
    garde.unlock();
    EcritUn();
    garde.lock();
    Rendue = Commande;
    Change.notify_all();
    garde.unlock();
    SuitUn();
    garde.lock();
    Finie = Rendue;
    Abandonnee = false;
    Change.notify_all();
  }
  Disque->Termine();
}

VoieEcriture::~VoieEcriture() {
  DemandeFin();
  AttendFin(Horloge::now() + kPatienceFin);
}

void VoieEcriture::DemandeFin() {
  if (!Etat_) return;
  const std::lock_guard garde(Etat_->Verrou);
  Etat_->Fin = true;
  Etat_->Change.notify_all();
}

void VoieEcriture::AttendFin(Horloge::time_point echeance) {
  if (!Etat_) return;
  Etat_->Disque->AttendFin(echeance);
  Etat_.reset();
}

bool VoieEcriture::AssureFil() {
  if (Etat_) return true;
  std::shared_ptr<Vidage> vidage;
  try {
    vidage = Vidage::Lance(Dossier_);
    const auto etat = std::make_shared<Etat>(vidage);
    std::thread([etat] { etat->Boucle(); }).detach();
    Etat_ = etat;
  } catch (const std::exception&) {
    if (vidage) vidage->Termine();
    return false;
  }
  return true;
}

int VoieEcriture::Ecrit(const QByteArray& nom, QByteArrayView contenu, Maniere maniere, Duree patience,
                        QByteArray& devenu) {
  if (!AssureFil()) return EAGAIN;
  const Horloge::time_point echeance = Horloge::now() + patience;
  Etat& etat = *Etat_;
  std::unique_lock garde(etat.Verrou);
  if (etat.Abandonnee) return ETIMEDOUT;
  const auto attend = [&](const auto& condition) {
    etat.Abandonnee = !etat.Change.wait_until(garde, echeance, condition);
    return !etat.Abandonnee;
  };
  // The file before is written; its way to the disk is being begun.
  if (!attend([&etat] { return etat.Finie == etat.Commande; })) return ETIMEDOUT;
  etat.Nom = nom;
  etat.Octets.assign(contenu.begin(), contenu.end());
  etat.Comment = maniere;
  const quint64 commande = ++etat.Commande;
  etat.Change.notify_all();
  if (!attend([&etat, commande] { return etat.Rendue == commande; })) return ETIMEDOUT;
  devenu = etat.Nom;
  return etat.Resultat;
}

std::shared_ptr<Vidage> VoieEcriture::DonneVidage() const { return Etat_ ? Etat_->Disque : nullptr; }

bool VoieEcriture::EstMuette() const {
  if (!Etat_) return false;
  const std::lock_guard garde(Etat_->Verrou);
  return Etat_->Abandonnee;
}

bool VoieEcriture::EstLibre() const {
  if (!Etat_) return true;
  const std::lock_guard garde(Etat_->Verrou);
  return Etat_->Finie == Etat_->Commande;
}

}  // namespace vaktor
