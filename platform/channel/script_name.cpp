// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/script_name.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

#include "companions/contract/command_words.h"

namespace vaktor {

namespace {

constexpr qint64 kLigneMax = 256;  // the kernel reads no more of a first line either
constexpr qint64 kArgumentsMax = 8192;

QByteArray LitDebut(const QString& chemin, qint64 octets) {
  QFile fichier(chemin);
  return fichier.open(QIODevice::ReadOnly) ? fichier.read(octets) : QByteArray();
}

QByteArray NomDe(const QByteArray& chemin) { return chemin.mid(chemin.lastIndexOf('/') + 1); }

/// The first argument that is no option: where an interpreter has its script.
QByteArray LitPremierArgument(const QString& dossier) {
  const QList<QByteArray> arguments = LitDebut(dossier + QStringLiteral("/cmdline"), kArgumentsMax).split('\0');
  for (const QByteArray& argument : arguments.mid(1)) {
    // What stands behind "-c", "-e" or "-m" is no script, whatever it is called.
    if (argument == "-c" || argument == "-e" || argument == "-m") return {};
    if (!argument.startsWith('-')) return argument;
  }
  return {};
}

/// "python3.11" is a "python3" and a "python", wherever it was installed: those who keep several put a program of their
/// own in front.
bool EstUneVersion(const QString& nom, const QString& de) {
  const QStringView reste = QStringView(nom).mid(de.size());
  return nom.startsWith(de) && std::all_of(reste.begin(), reste.end(),
                                           [](QChar signe) { return signe == QLatin1Char('.') || signe.isDigit(); });
}

bool EstCeProgramme(const QString& interprete, const QString& executable) {
  if (interprete.isEmpty()) return false;
  if (EstUneVersion(QFileInfo(executable).fileName(), QFileInfo(interprete).fileName())) return true;
  // Links are followed: "sh" is dash.
  const bool chemin = interprete.contains(QLatin1Char('/'));
  const QString trouve = chemin ? interprete : QStandardPaths::findExecutable(interprete);
  return QFileInfo(trouve).canonicalFilePath() == executable;
}

/// Other arguments are left alone: their files may lie on a disk that does not answer.
bool PorteUnNomDeCompagnon(const QByteArray& argument) {
  const QString nom = QFile::decodeName(NomDe(argument));
  return std::any_of(kCompagnons.begin(), kCompagnons.end(), [&nom](Compagnon compagnon) {
    return nom.contains(DonneIdentite(compagnon).Programme, Qt::CaseInsensitive);
  });
}

}  // namespace

QByteArray LitInterprete(const QByteArray& premiereLigne) {
  if (!premiereLigne.startsWith("#!")) return {};
  const QByteArray ligne = premiereLigne.mid(2, premiereLigne.indexOf('\n') - 2);
  bool parEnv = false;
  for (const QByteArray& mot : ligne.simplified().split(' ')) {
    const QByteArray nom = NomDe(mot);
    // "env", its options and the variables that it sets stand before the interpreter.
    if (nom == "env" && !parEnv) {
      parEnv = true;
      continue;
    }
    if (parEnv && (mot.startsWith('-') || mot.contains('='))) continue;
    return mot;
  }
  return {};
}

bool PorteArgument(qint32 pid, QLatin1String argument) {
  const QByteArray texte = LitDebut(QStringLiteral("/proc/%1/cmdline").arg(pid), kArgumentsMax);
  return texte.split('\0').mid(1).contains(QByteArray(argument.data(), argument.size()));
}

QString TrouveScript(qint32 pid, const QString& executable) {
  const QString dossier = QStringLiteral("/proc/%1").arg(pid);
  const QByteArray argument = LitPremierArgument(dossier);
  if (!PorteUnNomDeCompagnon(argument)) return {};
  const QString chemin = QDir(dossier + QStringLiteral("/cwd")).absoluteFilePath(QFile::decodeName(argument));
  const QFileInfo script(chemin);
  // A pipe or a device of that name would hold up whoever opens it.
  if (!script.isFile() || !EstCeProgramme(QFile::decodeName(LitInterprete(LitDebut(chemin, kLigneMax))), executable))
    return {};
  return script.fileName();
}

}  // namespace vaktor
