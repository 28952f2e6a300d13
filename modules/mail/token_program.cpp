// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/token_program.h"

#include <QElapsedTimer>
#include <QProcess>
#include <algorithm>

#include "modules/mail/smtp_dialogue.h"
#include "platform/base/bounded_log.h"
#include "platform/base/inherited_files.h"

namespace vaktor {
namespace {

constexpr int kPas = 100;  // milliseconds between two looks at whether we are to end
constexpr qint64 kDelaiJeton = 30'000;
constexpr qsizetype kJetonMax = 8192;

bool EstJeton(const QByteArray& ligne) {
  return !ligne.isEmpty() && ligne.size() <= kJetonMax &&
         std::all_of(ligne.begin(), ligne.end(), [](char c) { return c > 0x20 && c < 0x7f; });
}

/// False when it was not waited for: our end, or the time is over.
bool Attend(QProcess& programme, qint64 delai, const std::function<bool()>& arret, Jeton& jeton) {
  QElapsedTimer depuis;
  depuis.start();
  while (programme.state() != QProcess::NotRunning && !programme.waitForFinished(kPas)) {
    jeton.Arrete = arret && arret();
    const bool tropDit = programme.bytesAvailable() > 2 * kJetonMax;
    if (jeton.Arrete || tropDit || depuis.hasExpired(delai)) {
      programme.kill();
      programme.waitForFinished(kPas);
      return false;
    }
  }
  return true;
}

/// In the form in which it travels it holds the token too (XOAUTH2: user and bearer between bytes of value 1).
QStringList DonneSecretsDuJeton(const ReglagesEnvoi& reglages, const QByteArray& jeton) {
  const QByteArray envoye = "user=" + reglages.Utilisateur.toUtf8() + "\1auth=Bearer " + jeton + "\1\1";
  return {QString::fromLatin1(jeton), QString::fromLatin1(envoye.toBase64())};
}

/// What a program may quote of its command line and nobody else is to read; shorter words are names of what it is to
/// do.
QStringList DonneSecretsDesArguments(const QStringList& arguments) {
  QStringList secrets;
  for (const QString& argument : arguments) secrets << argument << argument.section(u'=', 1);
  secrets.removeIf([](const QString& mot) { return mot.size() < 8; });
  return secrets;
}

}  // namespace

Jeton DemandeJeton(const QString& commande, qint64 delai, const std::function<bool()>& arret) {
  QStringList mots = QProcess::splitCommand(commande);
  if (mots.isEmpty()) return {};
  const QString nom = mots.takeFirst();
  QProcess programme;
  programme.setProgram(nom);
  programme.setArguments(mots);
  programme.setStandardInputFile(QProcess::nullDevice());
  GardeFichiersOuverts();
  programme.start(QProcess::ReadOnly);
  Jeton jeton;
  if (!Attend(programme, delai, arret, jeton)) {
    if (!jeton.Arrete) jeton.Mots = QStringLiteral("%1: %2 s").arg(nom).arg(delai / 1000);
    return jeton;
  }
  if (programme.error() == QProcess::FailedToStart) {
    jeton.Mots = programme.errorString();
    return jeton;
  }
  const QByteArray ligne = programme.readAllStandardOutput().split('\n').first().trimmed();
  const bool bon = programme.exitStatus() == QProcess::NormalExit && programme.exitCode() == 0 && EstJeton(ligne);
  if (bon)
    jeton.Valeur = ligne;
  else  // not what it printed: that may be a token all the same
    jeton.Mots = NettoieLigne(ResumeMots(programme.readAllStandardError()), DonneSecretsDesArguments(mots));
  return jeton;
}

ResultatEnvoi EnvoieAvecJeton(const ReglagesEnvoi& reglages, const RappelsEnvoi& rappels,
                              const std::function<ResultatEnvoi(const RappelsEnvoi&, const QByteArray&)>& envoie) {
  const Jeton jeton = DemandeJeton(reglages.Jeton, kDelaiJeton, rappels.Arret);
  if (jeton.Arrete) return {.Cause = CauseEchec::kInterrompu};
  if (jeton.Valeur.isEmpty()) return {.Cause = CauseEchec::kJeton, .MotsServeur = jeton.Mots};
  const QStringList secrets = DonneSecretsDuJeton(reglages, jeton.Valeur);
  RappelsEnvoi propres = rappels;
  if (rappels.Suivi) {
    propres.Suivi = [&](const QString& commande, const QString& reponse) {
      rappels.Suivi(commande, NettoieLigne(reponse, secrets));
    };
  }
  ResultatEnvoi resultat = envoie(propres, jeton.Valeur);
  resultat.MotsServeur = NettoieLigne(resultat.MotsServeur, secrets);
  return resultat;
}

}  // namespace vaktor
