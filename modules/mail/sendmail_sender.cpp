// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/sendmail_sender.h"

#include <sysexits.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

#include "modules/mail/smtp_dialogue.h"
#include "platform/base/inherited_files.h"

namespace vaktor {
namespace {

constexpr int kPas = 200;  // milliseconds between two looks at whether we are to end

// As a server would say it.
constexpr int kPris = 250;
constexpr int kPlusTard = 450;
constexpr int kRefuse = 550;

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

/// What a run says by its exit status, as sysexits.h names it: 65 of the mail, 67 of an address, and neither changes by
/// being asked again.
ResultatEnvoi ComprendStatut(FinProgramme fin, int statut) {
  ResultatEnvoi r;
  r.Cause = fin == FinProgramme::kPasLance   ? CauseEchec::kProgrammeAbsent
            : fin == FinProgramme::kArrete   ? CauseEchec::kInterrompu
            : fin == FinProgramme::kTropLong ? CauseEchec::kDelai
                                             : CauseEchec::kProgrammeEchoue;
  if (fin != FinProgramme::kFini) return r;
  if (statut == EX_DATAERR) r.Cause = CauseEchec::kMessageRefuse;
  if (statut == EX_NOUSER) r.Cause = CauseEchec::kDestinataireRefuse;
  r.Definitif = r.DuCourriel = statut == EX_DATAERR || statut == EX_NOUSER;
  return r;
}

ResultatEnvoi Lance(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                    const RappelsEnvoi& rappels) {
  QStringList arguments{QStringLiteral("-i")};  // a line with a single dot does not end the mail
  if (!enveloppe.Expediteur.isEmpty()) arguments << QStringLiteral("-f") << enveloppe.Expediteur;
  arguments << QStringLiteral("--") << enveloppe.Destinataires;  // behind "--" no address is taken for an option
  QProcess programme;
  programme.setProcessChannelMode(QProcess::MergedChannels);
  GardeFichiersOuverts();  // the files of this process are none of the mail program's
  programme.start(reglages.Sendmail, arguments);
  // The local program wants the line ends of this system.
  programme.write(QByteArray(message).replace("\r\n", "\n"));
  programme.closeWriteChannel();
  const FinProgramme fin = Attend(programme, reglages.Delais, rappels);
  if (fin == FinProgramme::kFini && programme.exitStatus() == QProcess::NormalExit && programme.exitCode() == 0) {
    ResultatEnvoi accepte{.Accepte = true};
    for (const QString& adresse : enveloppe.Destinataires) accepte.Verdicts.append({adresse, kPris});
    // Before anything that may fail for want of memory: a mail that nobody knows to be gone goes again.
    if (rappels.SurAccepte) rappels.SurAccepte(accepte.Verdicts);
    return accepte;
  }
  ResultatEnvoi resultat =
      ComprendStatut(fin, programme.exitStatus() == QProcess::NormalExit ? programme.exitCode() : -1);
  resultat.MotsServeur = ResumeMots(programme.readAll());
  programme.kill();
  programme.waitForFinished(kPas);
  return resultat;
}

}  // namespace

QString TrouveSendmail() {
  const QString nom = QStringLiteral("sendmail");
  const QString usuel = QStandardPaths::findExecutable(nom, {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/lib")});
  return usuel.isEmpty() ? QStandardPaths::findExecutable(nom) : usuel;
}

// Of several addresses the program does not say which one it refuses: they are tried one by one then.
ResultatEnvoi EnvoieParSendmail(const ReglagesEnvoi& reglages, const Enveloppe& enveloppe, const QByteArray& message,
                                const RappelsEnvoi& rappels) {
  ResultatEnvoi tous = Lance(reglages, enveloppe, message, rappels);
  if (tous.Cause != CauseEchec::kDestinataireRefuse || enveloppe.Destinataires.size() < 2) return tous;
  ResultatEnvoi ensemble = tous;
  for (const QString& adresse : enveloppe.Destinataires) {
    ResultatEnvoi r = Lance(reglages, {enveloppe.Expediteur, {adresse}}, message, rappels);
    if (r.Cause == CauseEchec::kInterrompu && !ensemble.Accepte) return r;
    ensemble.Accepte = ensemble.Accepte || r.Accepte;
    ensemble.Verdicts.append({adresse, r.Accepte ? kPris : r.Definitif ? kRefuse : kPlusTard});
    if (!r.Accepte && !r.Definitif) ensemble.Definitif = false;
  }
  return ensemble;
}

}  // namespace vaktor
