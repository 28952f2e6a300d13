// SPDX-License-Identifier: GPL-3.0-or-later
// A file system that never answers, as a network volume does whose server has gone.
#pragma once

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <cstring>

namespace vaktor {

/// A FUSE mount behind which nobody is: every access but naming it waits. It must be mounted where only this process
/// sees it: make a PetitDisque first and ask for it in there. Check EstMonte(), skip with Raison().
class DisqueMort {
 public:
  explicit DisqueMort(const QString& dossier) : Nom_(QFile::encodeName(dossier)) {
    Lien_ = ::open("/dev/fuse", O_RDWR | O_CLOEXEC);
    if (Lien_ < 0) return;
    const QByteArray options = "fd=" + QByteArray::number(Lien_) +
                               ",rootmode=40000,user_id=" + QByteArray::number(::getuid()) +
                               ",group_id=" + QByteArray::number(::getgid());
    Monte_ = ::mount("mort", Nom_.constData(), "fuse", MS_NOSUID | MS_NODEV, options.constData()) == 0;
    Erreur_ = errno;
  }
  /// All who wait get an error.
  ~DisqueMort() { Reveille(); }
  DisqueMort(const DisqueMort&) = delete;
  DisqueMort& operator=(const DisqueMort&) = delete;

  void Reveille() {
    if (Lien_ >= 0) ::close(Lien_);
    Lien_ = -1;
    if (Monte_) ::umount2(Nom_.constData(), MNT_DETACH);
    Monte_ = false;
  }
  bool EstMonte() const { return Monte_; }
  const char* Raison() const { return Lien_ < 0 ? "no FUSE here" : std::strerror(Erreur_); }

 private:
  QByteArray Nom_;
  int Lien_ = -1;
  int Erreur_ = 0;
  bool Monte_ = false;
};

}  // namespace vaktor
