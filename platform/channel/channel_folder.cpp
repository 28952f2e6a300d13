// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/channel_folder.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <cerrno>

#include "base/failure.h"
#include "companions/contract/command_words.h"
#include "platform/channel/socket_address.h"

namespace vaktor {

namespace {

/// Makes the folder where it is missing. True when it is this user's alone.
bool PrepareSain(const QString& chemin) {
  const QByteArray nom = QFile::encodeName(chemin);
  ::mkdir(nom.constData(), 0700);  // fails when it is there, which is as good
  struct stat etat {};
  // lstat: a link that somebody planted in a shared folder is not followed.
  return ::lstat(nom.constData(), &etat) == 0 && S_ISDIR(etat.st_mode) && etat.st_uid == ::getuid() &&
         (etat.st_mode & 077) == 0;
}

}  // namespace

QString DossierCanal::DonneCheminUsuel() {
  const QString base = qEnvironmentVariable("XDG_RUNTIME_DIR");
  if (!base.isEmpty()) return base + QStringLiteral("/vaktor");
  // The number of the user keeps two users apart; that the folder is really ours is tested below.
  return QStringLiteral("/tmp/vaktor-%1").arg(::getuid());
}

QString DossierCanal::TrouveChemin() {
  QString nomme = qEnvironmentVariable(kVariableCanal.data());
  if (!nomme.isEmpty()) return nomme;
  QString usuel = DonneCheminUsuel();
  if (PrepareSain(usuel)) return usuel;
  QString etat = qEnvironmentVariable("XDG_STATE_HOME");
  if (!QDir::isAbsolutePath(etat)) etat = QDir::homePath() + QStringLiteral("/.local/state");
  QDir().mkpath(etat + QStringLiteral("/vaktor"));
  return etat + QStringLiteral("/vaktor/canal");
}

DossierCanal::DossierCanal(const QString& chemin) : Chemin_(chemin) {
  if (!PrepareSain(chemin))
    throw Echec(kFichierIntrouvable,
                QStringLiteral("The folder %1 cannot be made or is not for this user alone.").arg(chemin));
}

QByteArray DossierCanal::DonneAdresse(qint32 poignee) const {
  return QFile::encodeName(Chemin_ + QLatin1Char('/') + QString::number(poignee));
}

std::optional<bool> DossierCanal::Repond(qint32 poignee) const {
  if (poignee <= 0) return false;
  const std::optional<sockaddr_un> adresse = FormeAdresse(DonneAdresse(poignee));
  if (!adresse) return false;
  const int sonde = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (sonde < 0) return std::nullopt;
  // Connecting a datagram socket only looks the address up: nobody is disturbed.
  const bool present = ConnecteSocket(sonde, *adresse) == 0 || errno == EAGAIN;
  ::close(sonde);
  return present;
}

std::optional<qint64> DossierCanal::DonneOuverture(qint32 poignee) const {
  struct stat etat {};
  // Nothing writes to the file of a socket, so its time stays that of the bind.
  if (::lstat(DonneAdresse(poignee).constData(), &etat) != 0) return std::nullopt;
  return qint64{etat.st_mtim.tv_sec} * 1000 + etat.st_mtim.tv_nsec / 1'000'000;
}

void DossierCanal::BalaiePerimees() const {
  const QStringList noms = QDir(Chemin_).entryList(QDir::System | QDir::NoDotAndDotDot);
  for (const QString& nom : noms) {
    bool nombre = false;
    const qint32 poignee = nom.toInt(&nombre);
    if (nombre && QString::number(poignee) == nom) RetireSiPerimee(poignee);
  }
}

void DossierCanal::RetireSiPerimee(qint32 poignee) const {
  if (poignee > 0 && Repond(poignee) == false) ::unlink(DonneAdresse(poignee).constData());
}

}  // namespace vaktor
