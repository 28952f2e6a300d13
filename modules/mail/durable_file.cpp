// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/durable_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <cerrno>
#include <cstdio>

#include "platform/store/private_file.h"

namespace vaktor {
namespace {

constexpr mode_t kModePrive = 0600;

int EcritTout(int descripteur, const QByteArray& octets) {
  for (qsizetype fait = 0; fait < octets.size();) {
    const ssize_t ecrit =
        ::write(descripteur, octets.constData() + fait, static_cast<std::size_t>(octets.size() - fait));
    if (ecrit < 0 && errno == EINTR) continue;
    if (ecrit < 0) return errno;
    fait += ecrit;
  }
  return 0;
}

// fsync tells of errors that write did not: a quota or a network disk may refuse only then.
int EcritEtVide(const QByteArray& nom, const QByteArrayList& parties) {
  const int descripteur = ::open(nom.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, kModePrive);
  if (descripteur < 0) return errno;
  int erreur = 0;
  for (const QByteArray& partie : parties)
    if (erreur == 0) erreur = EcritTout(descripteur, partie);
  if (erreur == 0 && ::fsync(descripteur) != 0) erreur = errno;
  if (::close(descripteur) != 0 && erreur == 0) erreur = errno;
  return erreur;
}

}  // namespace

int EcritDurable(const QString& chemin, const QByteArrayList& parties) {
  const QString brouillon = chemin + QStringLiteral(".part");
  const QByteArray nom = QFile::encodeName(brouillon);
  const int erreur = EcritEtVide(nom, parties);
  if (erreur == 0 && RenommeDurable(brouillon, chemin)) return 0;
  const int raison = erreur != 0 ? erreur : errno;
  ::unlink(nom.constData());
  return raison;
}

bool RenommeDurable(const QString& ancien, const QString& nouveau) {
  // QFile::rename refuses an existing target; here the new one has to take its place in one step.
  if (std::rename(QFile::encodeName(ancien).constData(), QFile::encodeName(nouveau).constData()) != 0) return false;
  EcritDossierSurDisque(nouveau);
  return true;
}

}  // namespace vaktor
