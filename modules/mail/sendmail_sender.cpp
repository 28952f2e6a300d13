// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/sendmail_sender.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

#include "modules/mail/smtp_dialogue.h"

namespace vaktor {
namespace {

constexpr int kPas = 200;  // milliseconds between two looks at whether we are to end

enum class FinProgramme { kFini, kPasLance, kArrete, kTropLong };

FinProgramme Attend(QProcess& programme, const DelaisEnvoi& delais, const RappelsEnvoi& rappels) {
  QElapsedTimer depuis;
  depuis.start();
  while (programme.state() != QProcess::NotRunning && !programme.waitForFinished(kPas)) {
    if (rappels.Arret && rappels.Arret()) return FinProgramme::kArrete;
    if (depuis.hasExpired(delais.FinDonnees)) return FinProgramme::kTropLong;
  }
  return programme.error() == QProcess::FailedToStart ? FinProgramme::kPasLance : FinProgramme::kFini;
}

}  // namespace

QString TrouveSendmail() {
  const QString nom = QStringLiteral("sendmail");
  const QString usuel = QStandardPaths::findExecutable(nom, {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/lib")});
  return usuel.isEmpty() ? QStandardPaths::findExecutable(nom) : usuel;
}

ResultatEnvoi EnvoieParSendmail(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                                const RappelsEnvoi& rappels) {
  QStringList arguments{QStringLiteral("-i")};  // a line with a single dot does not end the mail
  if (!enveloppe.Expediteur.isEmpty()) arguments << QStringLiteral("-f") << enveloppe.Expediteur;
  arguments << QStringLiteral("--") << enveloppe.Destinataires;  // behind "--" no address is taken for an option
  QProcess programme;
  programme.setProcessChannelMode(QProcess::MergedChannels);
  programme.start(reglages.Sendmail, arguments);
  // The local program wants the line ends of this system.
  programme.write(QByteArray(message).replace("\r\n", "\n"));
  programme.closeWriteChannel();
  const FinProgramme fin = Attend(programme, reglages.Delais, rappels);
  ResultatEnvoi resultat;
  resultat.Accepte =
      fin == FinProgramme::kFini && programme.exitStatus() == QProcess::NormalExit && programme.exitCode() == 0;
  if (resultat.Accepte) {
    // Before anything that may fail for want of memory: a mail that nobody knows to be gone goes again.
    if (rappels.SurAccepte) rappels.SurAccepte();
    return resultat;
  }
  resultat.MotsServeur = ResumeMots(programme.readAll());
  resultat.Cause = fin == FinProgramme::kPasLance   ? CauseEchec::kProgrammeAbsent
                   : fin == FinProgramme::kArrete   ? CauseEchec::kInterrompu
                   : fin == FinProgramme::kTropLong ? CauseEchec::kDelai
                                                    : CauseEchec::kProgrammeEchoue;
  programme.kill();
  programme.waitForFinished(kPas);
  return resultat;
}

}  // namespace vaktor
