// SPDX-License-Identifier: GPL-3.0-or-later
// A disk whose power can be cut and that can be told to hang.
#pragma once

#include <signal.h>
#include <sys/mount.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace vaktor {

/// The file system of volatile_disk.cpp, run by a process of its own and mounted below a folder that only this process
/// and those that it starts see: make a PetitDisque first. Check EstMonte(), skip the test with Raison(). The test
/// program is given VAKTOR_VOLATILE_DISK (tests/CMakeLists.txt).
class DisqueVolatil {
 public:
  explicit DisqueVolatil(const QString& dossier) : Dossier_(dossier) {
    Systeme_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    Systeme_.start(QStringLiteral(VAKTOR_VOLATILE_DISK), {dossier});
    Monte_ = Systeme_.waitForStarted() && Attend("mounted");
  }
  /// Whoever still waits for it gets an error.
  ~DisqueVolatil() {
    Systeme_.kill();
    Systeme_.waitForFinished();
    ::umount2(QFile::encodeName(Dossier_).constData(), MNT_DETACH);
  }
  DisqueVolatil(const DisqueVolatil&) = delete;
  DisqueVolatil& operator=(const DisqueVolatil&) = delete;

  bool EstMonte() const { return Monte_; }
  const char* Raison() const { return "no file system can be mounted with FUSE here"; }
  QString Chemin() const { return Dossier_; }

  bool CoupeCourant() { return Ordonne("crash"); }
  bool SeTait() { return Ordonne("hang"); }
  bool RefuseDeVider() { return Ordonne("refuse"); }
  bool DevientProtege() { return Ordonne("protect"); }
  bool GardeTout() { return Ordonne("keep"); }
  bool DevientIllisible() { return Ordonne("unreadable"); }
  /// Silent too, but whoever waits can still be ended: its calls are not even taken. A call that was taken and is not
  /// answered (SeTait) is not let go by the kernel, and keeps its process even from a KILL.
  bool Gele() { return ::kill(static_cast<pid_t>(Systeme_.processId()), SIGSTOP) == 0; }
  bool Repond() { return Ordonne("answer"); }

 private:
  bool Ordonne(const QByteArray& ordre) {
    Systeme_.write(ordre + '\n');
    return Attend(ordre);
  }
  bool Attend(const QByteArray& reponse) {
    while (!Systeme_.canReadLine()) {
      if (!Systeme_.waitForReadyRead(20000)) return false;
    }
    return Systeme_.readLine().trimmed() == reponse;
  }

  QString Dossier_;
  QProcess Systeme_;
  bool Monte_ = false;
};

}  // namespace vaktor
