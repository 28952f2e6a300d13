// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/system_processes.h"

#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <optional>

#include "companions/contract/command_words.h"
#include "platform/base/inherited_files.h"
#include "platform/channel/channel_folder.h"
#include "platform/channel/followed_program.h"
#include "platform/channel/process_handle.h"
#include "platform/channel/script_name.h"

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
  vu.NomScript = TrouveScript(pid, executable);
  vu.Essai = PorteArgument(pid, kArgumentEssai);
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

}  // namespace

QProcessEnvironment DonneMilieuCompagnon(const QString& dossierPrive) {
  QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
  milieu.remove(kVariableRelance);
  // Where the usual folder was taken by somebody when this program looked, it may be free when the companion does.
  if (const QString canal = DossierCanal::TrouveChemin(); canal != DossierCanal::DonneCheminUsuel())
    milieu.insert(kVariableCanal, canal);
  if (dossierPrive.isEmpty())
    milieu.remove(kVariableDossier);  // one that this program inherited is not its own
  else
    milieu.insert(kVariableDossier, QDir(dossierPrive).absolutePath());
  return milieu;
}

namespace {

// By any of its names, as strays are looked for.
bool EstCompagnonMail(const ProcessusVu& vu) {
  const QString nom = DonneIdentite(Compagnon::kMail).Programme;
  const QStringList noms = {vu.Nom, vu.NomAppele, vu.NomScript};
  return std::any_of(noms.begin(), noms.end(),
                     [&nom](const QString& sien) { return sien.contains(nom, Qt::CaseInsensitive); });
}

}  // namespace

ProcessusSysteme::ProcessusSysteme(const QString& dossierPrive, int patienceMail)
    : DossierPrive_(dossierPrive.isEmpty() ? QString() : QDir(dossierPrive).absolutePath()),
      PatienceMail_(patienceMail) {}

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
  const auto prise = std::make_shared<const PrisePid>(vu.Pid);
  const PrisePid& processus = *prise;
  if (!processus.Ouverte()) return processus.EstPartie();
  // The hold is on whoever has the number now; only if that is still the same program is it the one meant. Else the one
  // meant has ended by itself.
  if (LitProcessus(vu.Pid) != vu) return true;
  processus.Envoie(SIGTERM);
  processus.Envoie(SIGCONT);  // a stopped process hears the polite request only when it goes on
  if (processus.AttendFin(kDelaiPoli)) return true;
  if (PatienceMail_ > 0 && EstCompagnonMail(vu)) {
    QTimer::singleShot(PatienceMail_, &Contexte_, [prise] { prise->Envoie(SIGKILL); });
    return false;
  }
  processus.Envoie(SIGKILL);
  return processus.AttendFin(kDelaiForce);
}

std::unique_ptr<ProgrammeSuivi> ProcessusSysteme::LanceSuivi(const Lancement& quoi, std::function<void()> fini) {
  qint64 pid = 0;
  if (!Demarre(quoi, pid)) return nullptr;
  return std::make_unique<ProgrammeSuiviSysteme>(static_cast<qint32>(pid), std::move(fini));
}

bool ProcessusSysteme::Demarre(const Lancement& quoi, qint64& pid) const {
  // Asked on another thread: a start waits for the program's disk, and the window would with it.
  const std::optional<bool> lisible = Travaux_.Attend<bool>(
      [chemin = quoi.Chemin] {
        QFile fichier(chemin);
        const bool la = QFileInfo(chemin).isFile() && QFileInfo(chemin).isExecutable();
        if (la && fichier.open(QIODevice::ReadOnly)) fichier.read(1);
        return la;
      },
      quoi.Relance ? kPatienceDisque : kPatienceDepart);
  if (!lisible.value_or(false)) return false;
  QProcess programme;
  programme.setProgram(quoi.Chemin);
  // Started on its own, not as a child: nothing waits for it, and its end leaves no trace in the table.
  programme.setStandardInputFile(QProcess::nullDevice());
  programme.setWorkingDirectory(QFileInfo(quoi.Chemin).absolutePath());
  QProcessEnvironment milieu = DonneMilieuCompagnon(DossierPrive_);
  if (quoi.Relance) milieu.insert(kVariableRelance, QStringLiteral("1"));
  programme.setProcessEnvironment(milieu);
  GardeFichiersOuverts();
  return programme.startDetached(&pid);
}

}  // namespace vaktor
