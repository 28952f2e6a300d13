#include "platform/channel/system_processes.h"

#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <optional>

#include "companions/contract/command_words.h"

namespace vaktor {

namespace {

const QLatin1String kProc("/proc/");

/// Reads one process of this user that still runs; nothing for any other.
std::optional<ProcessusVu> LitProcessus(qint32 pid) {
  const QString dossier = kProc + QString::number(pid);
  struct stat etat {};
  if (::stat(QFile::encodeName(dossier).constData(), &etat) != 0 || etat.st_uid != ::getuid()) return std::nullopt;
  ProcessusVu vu;
  vu.Pid = pid;
  QFile comm(dossier + QStringLiteral("/comm"));
  if (comm.open(QIODevice::ReadOnly)) vu.NomAppele = QString::fromLocal8Bit(comm.readAll()).trimmed();
  // A process that has ended and not been fetched by its parent has no executable any more and falls out here.
  const QString executable = QFile::symLinkTarget(dossier + QStringLiteral("/exe"));
  if (executable.isEmpty()) return std::nullopt;
  vu.Nom = QFileInfo(executable).fileName();
  return vu;
}

/// The private folder that a process was started with; empty for none.
QString LitDossierPrive(qint32 pid) {
  QFile milieu(kProc + QString::number(pid) + QStringLiteral("/environ"));
  if (!milieu.open(QIODevice::ReadOnly)) return {};
  const QByteArray debut = QByteArray(kVariableDossier.data(), kVariableDossier.size()) + '=';
  const QList<QByteArray> variables = milieu.readAll().split('\0');
  for (const QByteArray& variable : variables)
    if (variable.startsWith(debut)) return QFile::decodeName(variable.mid(debut.size()));
  return {};
}

class Descripteur {
 public:
  explicit Descripteur(qint32 pid) : Numero_(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0))) {}
  ~Descripteur() {
    if (Numero_ >= 0) ::close(Numero_);
  }
  Descripteur(const Descripteur&) = delete;
  Descripteur& operator=(const Descripteur&) = delete;

  bool Ouvert() const { return Numero_ >= 0; }
  void Envoie(int signal) const { ::syscall(SYS_pidfd_send_signal, Numero_, signal, nullptr, 0); }
  bool AttendFin(int millisecondes) const {
    pollfd attente{Numero_, POLLIN, 0};
    return ::poll(&attente, 1, millisecondes) == 1;
  }

 private:
  int Numero_;
};

}  // namespace

QProcessEnvironment DonneMilieuCompagnon(const QString& dossierPrive) {
  QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
  if (dossierPrive.isEmpty())
    milieu.remove(kVariableDossier);  // one that this program inherited is not its own
  else
    milieu.insert(kVariableDossier, QDir(dossierPrive).absolutePath());
  return milieu;
}

ProcessusSysteme::ProcessusSysteme(const QString& dossierPrive)
    : DossierPrive_(dossierPrive.isEmpty() ? QString() : QDir(dossierPrive).absolutePath()) {}

QList<ProcessusVu> ProcessusSysteme::PrendInstantane() const {
  QList<ProcessusVu> table;
  const QStringList noms = QDir(kProc).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  for (const QString& nom : noms) {
    bool nombre = false;
    const qint32 pid = nom.toInt(&nombre);
    if (!nombre || pid == ::getpid()) continue;
    const std::optional<ProcessusVu> vu = LitProcessus(pid);
    if (!vu) continue;
    if (LitDossierPrive(pid) == DossierPrive_) table.append(*vu);
  }
  return table;
}

bool ProcessusSysteme::TermineProcessus(const ProcessusVu& vu) {
  if (vu.Pid <= 1 || vu.Pid == ::getpid()) return false;
  const Descripteur processus(vu.Pid);
  if (!processus.Ouvert()) return false;
  // The descriptor now holds whoever has the number; only if that is still the same program is it the one meant.
  const std::optional<ProcessusVu> maintenant = LitProcessus(vu.Pid);
  if (!maintenant || maintenant->Nom != vu.Nom || maintenant->NomAppele != vu.NomAppele) return false;
  processus.Envoie(SIGTERM);
  processus.Envoie(SIGCONT);  // a stopped process hears the polite request only when it goes on
  if (processus.AttendFin(kDelaiPoli)) return true;
  processus.Envoie(SIGKILL);
  return processus.AttendFin(kDelaiForce);
}

bool ProcessusSysteme::LanceProgramme(const QString& chemin) {
  const QFileInfo fichier(chemin);
  if (!fichier.isFile() || !fichier.isExecutable()) return false;
  QProcess programme;
  programme.setProgram(chemin);
  // Started on its own, not as a child: nothing waits for it, and its end leaves no trace in the table.
  programme.setStandardInputFile(QProcess::nullDevice());
  programme.setWorkingDirectory(fichier.absolutePath());
  programme.setProcessEnvironment(DonneMilieuCompagnon(DossierPrive_));
  return programme.startDetached();
}

}  // namespace vaktor
