// SPDX-License-Identifier: GPL-3.0-or-later
// A real file system of a few bytes, for tests of full and read-only disks.
#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstring>

namespace vaktor {

/// A tmpfs that only this process sees, in a mount namespace of its own. Works as root and, where the system lets
/// users have namespaces, without. Check EstMonte() and skip the test with Raison() when it could not be made.
class PetitDisque {
 public:
  explicit PetitDisque(int octets) {
    if (!EntreDansUnEspacePropre()) return;
    const QByteArray taille = "size=" + QByteArray::number(octets);
    Monte_ = Retient(::mount("tmpfs", Nom().constData(), "tmpfs", 0, taille.constData()) == 0, "mount");
  }
  ~PetitDisque() {
    if (Monte_) ::umount2(Nom().constData(), MNT_DETACH);
  }
  PetitDisque(const PetitDisque&) = delete;
  PetitDisque& operator=(const PetitDisque&) = delete;

  bool EstMonte() const { return Monte_; }
  /// Why there is no disk, for the message of the skipped test.
  const char* Raison() const { return Raison_.constData(); }
  QString Chemin() const { return Dossier_.path(); }
  bool RendLectureSeule() {
    return Retient(::mount(nullptr, Nom().constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0, "remount");
  }

 private:
  QByteArray Nom() const { return QFile::encodeName(Dossier_.path()); }

  bool Retient(bool reussi, const char* quoi) {
    if (!reussi) Raison_ = QByteArray("no small disk here: ") + quoi + ": " + std::strerror(errno);
    return reussi;
  }

  bool EntreDansUnEspacePropre() {
    const QByteArray utilisateur = QByteArray::number(::getuid());
    const QByteArray groupe = QByteArray::number(::getgid());
    if (::unshare(CLONE_NEWNS) != 0) {
      // Not root: root of a namespace of users that knows nobody else.
      if (!Retient(::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0, "unshare")) return false;
      if (!Retient(Ecrit("setgroups", "deny") && Ecrit("uid_map", "0 " + utilisateur + " 1") &&
                       Ecrit("gid_map", "0 " + groupe + " 1"),
                   "id maps")) {
        return false;
      }
    }
    // Without this the mount would show up outside.
    return Retient(::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "private mounts");
  }

  static bool Ecrit(const char* table, const QByteArray& ligne) {
    QFile fichier(QStringLiteral("/proc/self/") + QString::fromLatin1(table));
    return fichier.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && fichier.write(ligne) == ligne.size();
  }

  QTemporaryDir Dossier_;
  QByteArray Raison_;
  bool Monte_ = false;
};

}  // namespace vaktor
