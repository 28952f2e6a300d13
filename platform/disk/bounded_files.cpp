// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disk/bounded_files.h"

#include <QFile>
#include <algorithm>
#include <cerrno>

namespace vaktor {
namespace {

using Horloge = std::chrono::steady_clock;

/// So long after a question that was not answered the next ones wait for a short time only.
constexpr auto kSouvenir = std::chrono::seconds(10);
/// Photos, copies for the companions, live image; and as many that the user has just left behind by choosing another
/// folder. A lane is two threads.
constexpr qsizetype kVoiesAuPlus = 6;
constexpr auto kPatienceFin = std::chrono::milliseconds(1000);

}  // namespace

FichiersBornes::~FichiersBornes() {
  const Horloge::time_point echeance = Horloge::now() + kPatienceFin;
  for (const auto& voie : std::as_const(Voies_)) voie->DemandeFin();
  for (const auto& voie : std::as_const(Voies_)) voie->AttendFin(echeance);
}

FichiersBornes::Duree FichiersBornes::Patience() const {
  const bool recent = DernierSilence_ && Horloge::now() - *DernierSilence_ < kSouvenir;
  const bool muette =
      recent || std::any_of(Voies_.cbegin(), Voies_.cend(), [](const auto& voie) { return voie->EstMuette(); });
  return muette ? kPatienceCourte : kPatience;
}

bool FichiersBornes::Existe(const QString& chemin) const {
  if (chemin.isEmpty()) return false;
  return Attend<bool>([chemin] { return FichiersSysteme().Existe(chemin); }).value_or(false);
}

Presence FichiersBornes::RegardeDossier(const QString& chemin) const {
  if (chemin.isEmpty()) return Presence::kAbsent;
  return Attend<Presence>([chemin] { return FichiersSysteme().RegardeDossier(chemin); })
      .value_or(Presence::kSansReponse);
}

bool FichiersBornes::CreeDossier(const QString& chemin) {
  return Attend<bool>([chemin] { return FichiersSysteme().CreeDossier(chemin); }).value_or(false);
}

std::optional<qint64> FichiersBornes::EspaceLibre(const QString& chemin) const {
  using Octets = std::optional<qint64>;
  return Attend<Octets>([chemin] { return FichiersSysteme().EspaceLibre(chemin); }).value_or(std::nullopt);
}

std::optional<qint64> FichiersBornes::EspaceUtilisable(const QString& chemin) const {
  using Octets = std::optional<qint64>;
  return Attend<Octets>([chemin] { return FichiersSysteme().EspaceUtilisable(chemin); }).value_or(std::nullopt);
}

bool FichiersBornes::Supprime(const QString& chemin) { return FichiersSysteme().Supprime(chemin); }

int FichiersBornes::EcritFichier(const QString& chemin, QByteArrayView contenu) {
  return Ecrit(chemin, contenu, VoieEcriture::Maniere::kRemplace);
}

int FichiersBornes::EcritNouveauFichier(const QString& chemin, QByteArrayView contenu, QString* devenu) {
  return Ecrit(chemin, contenu, VoieEcriture::Maniere::kNouveau, devenu);
}

int FichiersBornes::Ecrit(const QString& chemin, QByteArrayView contenu, VoieEcriture::Maniere maniere,
                          QString* devenu) {
  const QByteArray nom = QFile::encodeName(CheminNatif(chemin));
  // A photo of the root lies in "/", which is flushed like any other folder.
  const QByteArray dossier = nom.first(std::max<qsizetype>(nom.lastIndexOf('/'), nom.startsWith('/') ? 1 : 0));
  const Duree patience = Patience();  // before the lane is there: its own silence is no reason to wait less
  QByteArray ecrit;
  const int erreur = Voie(dossier).Ecrit(nom, contenu, maniere, patience, ecrit);
  if (erreur == 0 && devenu != nullptr) *devenu = QFile::decodeName(ecrit);
  return erreur;
}

// A folder that is not written to any more keeps its threads until there are too many of them: then those go that have
// nothing to do. One whose disk does not answer has to stay, or the next photo would wait for that disk anew.
VoieEcriture& FichiersBornes::Voie(const QByteArray& dossier) {
  if (const auto voie = Voies_.constFind(dossier); voie != Voies_.cend()) return **voie;
  if (Voies_.size() >= kVoiesAuPlus) RetireVoiesLibres();
  return *Voies_.insert(dossier, std::make_shared<VoieEcriture>(dossier)).value();
}

void FichiersBornes::RetireVoiesLibres() {
  Voies_.removeIf([this](const auto& voie) {
    if (!voie.value()->EstLibre()) return false;
    // Its last flush is not waited for, but told when it fails.
    if (const auto disque = voie.value()->DonneVidage()) Restes_.push_back({voie.key(), disque});
    voie.value()->DemandeFin();
    voie.value()->AttendFin(Horloge::now());
    return true;
  });
}

std::optional<PerteVidage> FichiersBornes::PrendPerte() {
  const auto prend = [](const QByteArray& dossier, Vidage& disque) -> std::optional<PerteVidage> {
    const int erreur = disque.PrendErreur();
    if (erreur == 0) return std::nullopt;
    return PerteVidage{QFile::decodeName(dossier), erreur};
  };
  for (auto voie = Voies_.cbegin(); voie != Voies_.cend(); ++voie) {
    const auto disque = voie.value()->DonneVidage();
    if (!disque) continue;
    if (auto perte = prend(voie.key(), *disque)) return perte;
  }
  for (auto reste = Restes_.begin(); reste != Restes_.end();) {
    const bool finie = reste->Disque->EstFinie();  // asked before: the last error may still come otherwise
    if (auto perte = prend(reste->Dossier, *reste->Disque)) return perte;
    reste = finie ? Restes_.erase(reste) : std::next(reste);
  }
  return std::nullopt;
}

}  // namespace vaktor
