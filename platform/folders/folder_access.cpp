// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folders/folder_access.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <array>
#include <cerrno>
#include <memory>

#include "platform/folders/folder_names.h"

namespace vaktor {
namespace {

constexpr std::size_t kOctetsEssai = std::size_t{64} * 1024;

EtatDossier EtatDeErreur(int erreur) {
  switch (erreur) {
    case 0:
      return EtatDossier::kBon;
    case EACCES:
    case EPERM:
      return EtatDossier::kInterdit;
    case EROFS:
      return EtatDossier::kLectureSeule;
    case ENOSPC:
    case EDQUOT:
      return EtatDossier::kPlein;
    default:
      return EtatDossier::kAbsent;
  }
}

/// A refusal that a file with a name would meet as well.
bool EstDefinitif(int erreur) { return EtatDeErreur(erreur) != EtatDossier::kAbsent; }

int EcritEssai(int descripteur) {
  static const std::array<char, kOctetsEssai> kOctets{};
  std::size_t ecrits = 0;
  while (ecrits < kOctets.size()) {
    const ssize_t pris = ::write(descripteur, kOctets.data() + ecrits, kOctets.size() - ecrits);
    if (pris < 0 && errno == EINTR) continue;
    if (pris <= 0) return pris < 0 ? errno : EIO;
    ecrits += static_cast<std::size_t>(pris);
  }
  return 0;
}

int EcritEtFerme(int descripteur) {
  const int erreur = EcritEssai(descripteur);
  // A network file system may tell of a full disk only here.
  if (::close(descripteur) != 0 && erreur == 0 && errno != EINTR) return errno;
  return erreur;
}

/// The end of a folder and an error look alike but for errno.
const dirent* LitEntree(DIR& dossier) {
  errno = 0;
  return ::readdir(&dossier);
}

bool MeneADossier(int dossier, const char* nom) {
  struct stat etat {};
  return ::fstatat(dossier, nom, &etat, 0) == 0 && S_ISDIR(etat.st_mode);
}

}  // namespace

EtatDossier RegardeUnDossier(const QByteArray& chemin) {
  struct stat etat {};
  if (::stat(chemin.constData(), &etat) != 0) return EtatDeErreur(errno);
  if (!S_ISDIR(etat.st_mode)) return EtatDossier::kAbsent;
  // A folder that may not be read looks like an empty one, in the tree and in the gallery.
  return ::faccessat(AT_FDCWD, chemin.constData(), R_OK | X_OK, AT_EACCESS) == 0 ? EtatDossier::kBon
                                                                                 : EtatDeErreur(errno);
}

EtatDossier EssaieUneEcriture(const QByteArray& chemin) {
  if (const EtatDossier etat = RegardeUnDossier(chemin); etat != EtatDossier::kBon) return etat;
  const int anonyme = ::open(chemin.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
  if (anonyme >= 0) return EtatDeErreur(EcritEtFerme(anonyme));
  if (EstDefinitif(errno)) return EtatDeErreur(errno);
  // File systems of cameras' cards and of the network know no file without a name.
  QByteArray nom = chemin + "/.vaktor-XXXXXX";
  const int nomme = ::mkostemp(nom.data(), O_CLOEXEC);
  if (nomme < 0) return EtatDeErreur(errno);
  const int erreur = EcritEtFerme(nomme);
  ::unlink(nom.constData());
  return EtatDeErreur(erreur);
}

void LitUnDossier(const QByteArray& chemin, const ArbreDossiers::RecoitDossiers& recoit) {
  const std::unique_ptr<DIR, int (*)(DIR*)> dossier(::opendir(chemin.constData()), &::closedir);
  if (dossier == nullptr) {
    const EtatDossier etat = EtatDeErreur(errno);
    recoit({.Etat = etat == EtatDossier::kInterdit ? etat : EtatDossier::kAbsent});
    return;
  }
  QStringList noms;
  QList<QByteArray> liens;
  while (const dirent* entree = LitEntree(*dossier)) {
    const QByteArray nom(entree->d_name);
    if (nom.startsWith('.') || !EstCheminRangeable(nom)) continue;
    if (entree->d_type == DT_DIR) noms += QFile::decodeName(nom);
    // Some file systems do not tell the kind here; a link has to be followed.
    if (entree->d_type == DT_LNK || entree->d_type == DT_UNKNOWN) liens += nom;
  }
  // What came before the disk failed is shown, with a line that says so.
  const EtatDossier etat = errno == 0 ? EtatDossier::kBon : EtatDossier::kAbsent;
  if (!liens.isEmpty()) {
    recoit({.Noms = noms, .Complet = false});
    for (const QByteArray& lien : liens) {
      if (MeneADossier(::dirfd(dossier.get()), lien.constData())) noms += QFile::decodeName(lien);
    }
  }
  recoit({.Noms = noms, .Etat = etat});
}

}  // namespace vaktor
