// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/private_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "base/failure.h"

namespace vaktor {
namespace {

constexpr mode_t kModePrive = 0600;
constexpr int kEssaisVerrou = 300;  // of 10 ms: 3 s, a save takes a hundredth of it
constexpr unsigned long kPauseVerrou = 10;
constexpr qint64 kNanosParSeconde = 1'000'000'000;
constexpr qint64 kNanosParMilli = 1'000'000;

QByteArray DossierDe(const QString& fichier) { return QFile::encodeName(QFileInfo(fichier).absolutePath()); }

QString TexteErreur(int numero) { return QString::fromLocal8Bit(std::strerror(numero)); }

// 0 when `taille` bytes reached the disk through the open file, else the system's error number.
int EcritZeros(int descripteur, qsizetype taille) {
  static constexpr std::array<char, 4096> kZeros{};
  for (qsizetype reste = taille; reste > 0;) {
    const ssize_t ecrit =
        ::write(descripteur, kZeros.data(), std::min<std::size_t>(kZeros.size(), static_cast<std::size_t>(reste)));
    if (ecrit < 0) return errno;
    reste -= ecrit;
  }
  return ::fsync(descripteur) == 0 ? 0 : errno;
}

}  // namespace

MasquePrive::MasquePrive() : Ancien_(::umask(0077)) {}
MasquePrive::~MasquePrive() { ::umask(static_cast<mode_t>(Ancien_)); }

VerrouDossier::VerrouDossier(const QString& dossier)
    : Descripteur_(::open(QFile::encodeName(dossier).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (Descripteur_ < 0) return;
  for (int essai = 0; essai < kEssaisVerrou; ++essai) {
    Tenu_ = ::flock(Descripteur_, LOCK_EX | LOCK_NB) == 0;
    if (Tenu_ || errno != EWOULDBLOCK) return;
    QThread::msleep(kPauseVerrou);
  }
  ::close(Descripteur_);
  throw Echec(kAccesFichier, dossier + QStringLiteral(": ") + TexteErreur(EWOULDBLOCK));
}

VerrouDossier::~VerrouDossier() {
  if (Descripteur_ >= 0) ::close(Descripteur_);
}

void PrepareDossierPrive(const QString& dossier) {
  QStringList neufs;
  for (QString d = QDir::cleanPath(QFileInfo(dossier).absoluteFilePath()); !QFileInfo::exists(d);
       d = QFileInfo(d).absolutePath())
    neufs.prepend(d);
  if (neufs.isEmpty()) return;
  {
    const MasquePrive masque;
    QDir().mkpath(dossier);
  }
  // What is flushed inside of it is nowhere after a power cut unless its own name is on the disk as well.
  for (const QString& neuf : neufs) EcritDossierSurDisque(neuf);
}

void RendPrive(const QString& fichier) {
  const QByteArray nom = QFile::encodeName(fichier);
  struct stat etat {};
  if (::stat(nom.constData(), &etat) != 0 || !S_ISREG(etat.st_mode)) return;
  if ((etat.st_mode & 07777) != kModePrive) ::chmod(nom.constData(), kModePrive);
}

QByteArray LitFichierEntier(const QString& fichier) {
  QFile source(fichier);
  if (!source.exists()) return {};
  if (!source.open(QIODevice::ReadOnly)) {
    throw Echec(kAccesFichier, fichier + QStringLiteral(": ") + source.errorString());
  }
  QByteArray octets = source.readAll();
  if (source.error() != QFileDevice::NoError) {
    throw Echec(kAccesFichier, fichier + QStringLiteral(": ") + source.errorString());
  }
  return octets;
}

qint64 DateFichier(const QString& fichier) {
  struct stat etat {};
  if (::stat(QFile::encodeName(fichier).constData(), &etat) != 0) return -1;
  return etat.st_mtim.tv_sec * kNanosParSeconde + etat.st_mtim.tv_nsec;
}

void AvanceDate(const QString& fichier, qint64 avant) {
  const qint64 date = DateFichier(fichier);
  if (date < 0 || date / kNanosParMilli > avant / kNanosParMilli) return;
  const qint64 voulue = (avant / kNanosParMilli + 1) * kNanosParMilli;
  const timespec temps{.tv_sec = voulue / kNanosParSeconde, .tv_nsec = voulue % kNanosParSeconde};
  const std::array<timespec, 2> temps2 = {temps, temps};
  ::utimensat(AT_FDCWD, QFile::encodeName(fichier).constData(), temps2.data(), 0);
}

void EcritDossierSurDisque(const QString& fichier) {
  const int descripteur = ::open(DossierDe(fichier).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descripteur < 0) return;
  ::fsync(descripteur);  // file systems that cannot do this for a folder have nothing to lose
  ::close(descripteur);
}

QString RaisonRefus(const QString& fichier, qsizetype taille) {
  QByteArray modele = DossierDe(fichier) + "/essai-XXXXXX";
  const int descripteur = ::mkostemp(modele.data(), O_CLOEXEC);
  if (descripteur < 0) return TexteErreur(errno);
  ::unlink(modele.constData());
  const int erreur = EcritZeros(descripteur, taille);
  ::close(descripteur);
  return erreur == 0 ? QString() : TexteErreur(erreur);
}

}  // namespace vaktor
