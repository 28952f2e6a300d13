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
    const uid_t utilisateur = ::getuid();
    if (::unshare(CLONE_NEWNS) != 0) {
      if (!Retient(::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0, "unshare")) return false;
      QFile table(QStringLiteral("/proc/self/uid_map"));
      const QByteArray ligne = "0 " + QByteArray::number(utilisateur) + " 1";
      if (!Retient(table.open(QIODevice::WriteOnly) && table.write(ligne) == ligne.size(), "uid_map")) return false;
    }
    // Without this the mount would show up outside.
    return Retient(::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "private mounts");
  }

  QTemporaryDir Dossier_;
  QByteArray Raison_;
  bool Monte_ = false;
};

}  // namespace vaktor
