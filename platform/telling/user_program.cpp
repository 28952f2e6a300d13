// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/telling/user_program.h"

#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <algorithm>
#include <csignal>
#include <mutex>

#include "platform/base/bounded_log.h"
#include "platform/base/system_clock.h"

namespace vaktor {

namespace {

constexpr int kPasMs = 200;
constexpr unsigned kPremierAutre = 3;  // behind the standard streams

// In the child, before the program: a group of its own, so that what it starts ends with it; the end of the thread that
// waits for it, and so of this process, asks it to end; our sockets and cameras are not its own.
void SepareProgramme() {
  ::setsid();
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  ::close_range(kPremierAutre, ~0U, CLOSE_RANGE_CLOEXEC);
}

}  // namespace

struct ProgrammePersonnelSysteme::Lieu {
  QString Programme;
  DelaisProgramme Delais;
  std::mutex Verrou;
  HorlogeSysteme Temps;
  JournalBorne Journal;

  Lieu(const QString& programme, const QString& etat, DelaisProgramme delais)
      : Programme(programme), Delais(delais), Journal(etat, QStringLiteral("alarme"), Temps) {}

  void Note(const QString& ligne) {
    const std::lock_guard garde(Verrou);
    Journal.Note(ligne);
  }
  bool EstABonDroit();
  void Execute(const QStringList& arguments);
  void SuitJusquaSaFin(QProcess& programme);
};

// Most users have none: that is nothing to tell.
bool ProgrammePersonnelSysteme::Lieu::EstABonDroit() {
  struct stat etat {};
  const QByteArray nom = QFile::encodeName(Programme);
  if (::stat(nom.constData(), &etat) != 0 || !S_ISREG(etat.st_mode)) return false;
  const bool sien = etat.st_uid == ::getuid() || etat.st_uid == 0;
  if (!sien || (etat.st_mode & S_IWOTH) != 0) {
    Note(QStringLiteral("not started: others may write the file, or it is another user's"));
    return false;
  }
  if (::access(nom.constData(), X_OK) == 0) return true;
  Note(QStringLiteral("not started: the file is not executable"));
  return false;
}

void ProgrammePersonnelSysteme::Lieu::Execute(const QStringList& arguments) {
  if (!EstABonDroit()) return;
  QProcess programme;
  programme.setProcessChannelMode(QProcess::MergedChannels);
  programme.setStandardInputFile(QProcess::nullDevice());
  programme.setWorkingDirectory(QFileInfo(Programme).absolutePath());
  programme.setChildProcessModifier(SepareProgramme);
  programme.start(Programme, arguments);
  if (!programme.waitForStarted()) {
    Note(QStringLiteral("not started: ") + programme.errorString());
    return;
  }
  Note(QStringLiteral("started, arguments: %1").arg(arguments.size()));
  SuitJusquaSaFin(programme);
  const int statut = programme.exitCode();
  Note(programme.exitStatus() == QProcess::NormalExit ? QStringLiteral("ended, status %1").arg(statut)
                                                      : QStringLiteral("ended by signal %1").arg(statut));
}

void ProgrammePersonnelSysteme::Lieu::SuitJusquaSaFin(QProcess& programme) {
  const auto groupe = static_cast<pid_t>(programme.processId());
  QElapsedTimer depuis;
  depuis.start();
  qint64 reste = kSortieMax;
  QByteArray ligne;
  bool prie = false;
  while (programme.state() != QProcess::NotRunning || programme.bytesAvailable() > 0) {
    // One that has closed its output is waited for all the same, and not in a loop that never rests.
    if (programme.bytesAvailable() == 0 && !programme.waitForReadyRead(kPasMs)) programme.waitForFinished(kPasMs);
    // What is too much is read too: a full pipe would hold the program up.
    const QByteArray lu = programme.readAll();
    ligne += lu.left(reste);
    reste -= std::min<qint64>(reste, lu.size());
    for (qsizetype fin = ligne.indexOf('\n'); fin >= 0; fin = ligne.indexOf('\n')) {
      Note(QStringLiteral("| ") + QString::fromUtf8(ligne.left(fin)));
      ligne.remove(0, fin + 1);
    }
    if (programme.state() != QProcess::Running || groupe <= 0) continue;
    if (!prie && depuis.hasExpired(Delais.Delai)) {
      prie = true;
      Note(QStringLiteral("asked to end: it takes too long"));
      ::kill(-groupe, SIGTERM);
    }
    if (depuis.hasExpired(qint64{Delais.Delai} + Delais.Grace)) ::kill(-groupe, SIGKILL);
  }
  if (!ligne.isEmpty()) Note(QStringLiteral("| ") + QString::fromUtf8(ligne));
}

ProgrammePersonnelSysteme::ProgrammePersonnelSysteme(const QString& programme, const QString& dossierEtat,
                                                     DelaisProgramme delais)
    : Lieu_(std::make_shared<Lieu>(programme, dossierEtat, delais)) {}

void ProgrammePersonnelSysteme::Lance(const QStringList& arguments) {
  Travaux_.Lance([lieu = Lieu_, arguments] { lieu->Execute(arguments); });
}

}  // namespace vaktor
