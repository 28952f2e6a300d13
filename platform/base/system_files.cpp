// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/system_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <cerrno>

#include "base/next_name.h"

namespace vaktor {
namespace {

/// A thousand runs that each took the same photo in the same second: something else is wrong then.
constexpr int kVoisinsAuPlus = 1000;

QByteArray NomSysteme(const QString& chemin) { return QFile::encodeName(CheminNatif(chemin)); }

/// Writes all of it: one call may take only a part (a disk that runs full, a signal), the next then tells why.
int EcritTout(int descripteur, QByteArrayView contenu) {
  while (!contenu.isEmpty()) {
    const ssize_t pris = ::write(descripteur, contenu.data(), static_cast<std::size_t>(contenu.size()));
    if (pris < 0 && errno == EINTR) continue;
    if (pris < 0) return errno;
    if (pris == 0) return EIO;  // must not happen for a file; asking again could go on for ever
    contenu = contenu.sliced(pris);
  }
  return 0;
}

int Ouvre(const QByteArray& nom, int maniere) {
  int descripteur = -1;
  do {
    descripteur = ::open(nom.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | maniere, 0666);
  } while (descripteur < 0 && errno == EINTR);
  return descripteur;
}

int EcritEtFerme(int descripteur, QByteArrayView contenu) {
  const int erreur = EcritTout(descripteur, contenu);
  // A network file system may tell of a full disk only here. The descriptor is gone even when this fails.
  if (::close(descripteur) != 0 && erreur == 0 && errno != EINTR) return errno;
  return erreur;
}

std::optional<qint64> CompteBlocs(const QString& chemin, fsblkcnt_t(statvfs::*blocs)) {
  struct statvfs systeme {};
  int resultat = 0;
  do {
    resultat = ::statvfs(NomSysteme(chemin).constData(), &systeme);
  } while (resultat != 0 && errno == EINTR);
  if (resultat != 0) return std::nullopt;
  return static_cast<qint64>(systeme.*blocs) * static_cast<qint64>(systeme.f_frsize);
}

}  // namespace

QString CheminNatif(const QString& chemin) {
  QString natif = chemin;
  return natif.replace(u'\\', u'/');
}

bool FichiersSysteme::Existe(const QString& chemin) const {
  return !chemin.isEmpty() && QFileInfo::exists(CheminNatif(chemin));
}

Presence FichiersSysteme::RegardeDossier(const QString& chemin) const {
  return !chemin.isEmpty() && QFileInfo(CheminNatif(chemin)).isDir() ? Presence::kLa : Presence::kAbsent;
}

bool FichiersSysteme::CreeDossier(const QString& chemin) { return ::mkdir(NomSysteme(chemin).constData(), 0777) == 0; }

// All that is free, with what the file system keeps back for the administrator: the warning that asks for it has always
// counted so.
std::optional<qint64> FichiersSysteme::EspaceLibre(const QString& chemin) const {
  return CompteBlocs(chemin, &statvfs::f_bfree);
}

std::optional<qint64> FichiersSysteme::EspaceUtilisable(const QString& chemin) const {
  return CompteBlocs(chemin, &statvfs::f_bavail);
}

bool FichiersSysteme::Supprime(const QString& chemin) {
  // Only "there is no such file" is as good as a removal; any other refusal leaves something there.
  return ::unlink(NomSysteme(chemin).constData()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

int FichiersSysteme::EcritFichier(const QString& chemin, QByteArrayView contenu) {
  return RemplaceFichier(NomSysteme(chemin), contenu);
}

int FichiersSysteme::EcritNouveauFichier(const QString& chemin, QByteArrayView contenu, QString* devenu) {
  QByteArray nom = NomSysteme(chemin);
  const int erreur = CreeFichier(nom, contenu);
  if (erreur == 0 && devenu != nullptr) *devenu = QFile::decodeName(nom);
  return erreur;
}

int RemplaceFichier(const QByteArray& nom, QByteArrayView contenu) {
  const int descripteur = Ouvre(nom, O_TRUNC);
  return descripteur < 0 ? errno : EcritEtFerme(descripteur, contenu);
}

// The system itself says that a name is taken, in the call that would make the file: nobody can come in between, and a
// free name, the usual case, costs no further call.
int CreeFichier(QByteArray& nom, QByteArrayView contenu) {
  const QByteArray voulu = nom;
  int descripteur = Ouvre(nom, O_EXCL);
  for (int rang = 1; descripteur < 0 && errno == EEXIST && rang <= kVoisinsAuPlus; ++rang) {
    nom = NomVoisin(voulu, rang);
    descripteur = Ouvre(nom, O_EXCL);
  }
  // What could not be written whole stays as far as it came: the upper half of a photo may show who was there.
  return descripteur < 0 ? errno : EcritEtFerme(descripteur, contenu);
}

}  // namespace vaktor
