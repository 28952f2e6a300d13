// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/store/bounded_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>

namespace vaktor {
namespace {

int LitTout(int descripteur, qint64 limite, QByteArray& octets) {
  struct stat etat {};
  if (::fstat(descripteur, &etat) != 0) return errno;
  if (!S_ISREG(etat.st_mode)) return EINVAL;
  if (etat.st_size > limite) return EFBIG;
  octets.resize(etat.st_size + 1);  // one more tells a file that grows meanwhile
  qint64 fait = 0;
  while (fait < octets.size()) {
    const ssize_t lus = ::read(descripteur, octets.data() + fait, static_cast<std::size_t>(octets.size() - fait));
    if (lus < 0 && errno == EINTR) continue;
    if (lus < 0) return errno;
    if (lus == 0) break;
    fait += lus;
  }
  if (fait > etat.st_size) return EAGAIN;
  octets.truncate(fait);
  return 0;
}

}  // namespace

int LitFichierBorne(const QString& fichier, qint64 limite, QByteArray& octets) {
  octets.clear();
  if (fichier.contains(QChar(u'\0'))) return EINVAL;  // the system would open the name before it
  const int descripteur =
      ::open(QFile::encodeName(fichier).constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC);
  if (descripteur < 0) return errno;
  const int erreur = LitTout(descripteur, limite, octets);
  ::close(descripteur);
  if (erreur != 0) octets.clear();
  return erreur;
}

bool EstFauteDuFichier(int erreur) {
  // ENXIO: a socket.
  return erreur == ELOOP || erreur == EINVAL || erreur == EFBIG || erreur == ENXIO || erreur == EISDIR;
}

}  // namespace vaktor
