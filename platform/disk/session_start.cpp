// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disk/session_start.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <chrono>
#include <utility>

namespace vaktor {

namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 700ms;
constexpr QLatin1StringView kNom{"org.vaktor.Vaktor"};
constexpr qsizetype kLigneLancee = 5;             // of ComposeEntreeSession: "Exec="
constexpr qint64 kTailleMax = qint64{64} * 1024;  // an entry is a few lines; whatever is larger is none of ours

// One word of the line that is run. In quotes these four are escaped by a backslash, a percent sign is doubled; and
// each backslash is doubled once more, since the line is a text of the file.
QString Cite(const QString& mot) {
  QString cite;
  for (const QChar signe : mot) {
    if (QStringLiteral("\"`$\\").contains(signe)) cite += u'\\';
    cite += signe;
    if (signe == u'%') cite += signe;
  }
  return u'"' + cite.replace(u'\\', QStringLiteral("\\\\")) + u'"';
}

// Another copy may have written it, one that has gone since; or this one, when it was started with another camera.
bool EstDemarree(const QByteArray& entree, const LancementSession& lancement) {
  const QByteArray notre = ComposeEntreeSession(lancement).split('\n').value(kLigneLancee);
  bool demarree = false;
  for (const QByteArray& ligne : entree.split('\n')) {
    const QByteArray dite = ligne.simplified().replace(' ', "").toLower();
    if (dite == "hidden=true" || dite == "x-gnome-autostart-enabled=false") return false;
    demarree = demarree || ligne == notre;
  }
  return demarree;
}

// A film is named from where the program stood at its start; an address or a word is none. Asks its disk.
LancementSession NommeFilm(LancementSession lancement, const QString& debout) {
  const QFileInfo film(QDir(debout), lancement.Camera);
  if (!lancement.Camera.isEmpty() && film.exists()) lancement.Camera = film.absoluteFilePath();
  return lancement;
}

QByteArray Lit(const QString& fichier) {
  QFile entree(fichier);
  return entree.open(QIODevice::ReadOnly) ? entree.read(kTailleMax) : QByteArray();
}

bool Ecrit(const QString& dossier, const QString& fichier, const QByteArray& contenu) {
  if (!QDir().mkpath(dossier)) return false;
  QSaveFile entree(fichier);
  if (!entree.open(QIODevice::WriteOnly)) return false;
  entree.setPermissions(QFile::ReadOwner | QFile::WriteOwner);  // before there is anything in it
  return entree.write(contenu) == contenu.size() && entree.commit();
}

}  // namespace

QString TrouveDossierSession() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QStringLiteral("/autostart");
}

QString NommeEntreeSession(const QString& dossier) {
  if (dossier.isEmpty()) return kNom + QStringLiteral(".desktop");
  const QByteArray empreinte = QCryptographicHash::hash(QDir(dossier).absolutePath().toUtf8(), QCryptographicHash::Md5);
  return kNom + u'-' + QLatin1StringView(empreinte.toHex().first(8)) + QStringLiteral(".desktop");
}

QByteArray ComposeEntreeSession(const LancementSession& lancement) {
  QStringList mots = {Cite(lancement.Programme), QStringLiteral("/alarm")};
  if (!lancement.Camera.isEmpty()) mots += Cite(QStringLiteral("/camera:") + lancement.Camera);
  if (!lancement.Dossier.isEmpty()) mots += Cite(QStringLiteral("/dossier:") + lancement.Dossier);
  return QByteArrayLiteral("[Desktop Entry]\nType=Application\nName=Vaktor\nIcon=vaktor\nTerminal=false\n") +
         "Exec=" + mots.join(u' ').toUtf8() + "\n";
}

DemarrageSessionXdg::DemarrageSessionXdg(QString dossier, LancementSession lancement)
    : Dossier_(std::move(dossier)),
      Fichier_(Dossier_ + u'/' + NommeEntreeSession(lancement.Dossier)),
      Debout_(QDir::currentPath()),
      Lancement_(std::move(lancement)) {
  if (!Lancement_.Dossier.isEmpty()) Lancement_.Dossier = QDir(Lancement_.Dossier).absolutePath();
}

bool DemarrageSessionXdg::EstVoulue() const {
  return Travaux_
      .Attend<bool>([fichier = Fichier_, debout = Debout_,
                     lancement = Lancement_] { return EstDemarree(Lit(fichier), NommeFilm(lancement, debout)); },
                    kPatience)
      .value_or(false);
}

bool DemarrageSessionXdg::Veut(bool voulue) {
  const auto change = [voulue, dossier = Dossier_, fichier = Fichier_, debout = Debout_, lancement = Lancement_] {
    if (voulue) return Ecrit(dossier, fichier, ComposeEntreeSession(NommeFilm(lancement, debout)));
    return QFile::remove(fichier) || !QFile::exists(fichier);
  };
  return Travaux_.Attend<bool>(change, kPatience).value_or(false);
}

}  // namespace vaktor
