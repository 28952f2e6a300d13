// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/driver/camera_report.h"

#include <pwd.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/choice/named_source.h"
#include "platform/capture/devices/device_access.h"

namespace vaktor {
namespace {

const auto kChoisie = QStringLiteral(", as chosen in the source dialog.\n");

// What a device calls itself goes to a terminal.
QString SansCommande(QString texte) {
  for (QChar& signe : texte)
    if (signe.category() == QChar::Other_Control) signe = QLatin1Char('?');
  return texte;
}

QString Ligne(const QString& debut, const QString& quoi, const QString& suite = QStringLiteral(".\n")) {
  return debut + SansCommande(quoi) + suite;
}

QString NomDe(const PeripheriqueVideo& camera) {
  return camera.Nom.isEmpty() ? camera.Noeud : camera.Noeud + QStringLiteral(", ") + camera.Nom;
}

QString NomUtilisateur() {
  const passwd* moi = ::getpwuid(::geteuid());
  return moi == nullptr ? QStringLiteral("USER") : QString::fromLocal8Bit(moi->pw_name);
}

QString DitSansCamera(const AccesV4L2& acces) {
  const Raison raison = acces.PourquoiAucune();
  if (raison.Quoi == Motif::kSansPermission) {
    return QStringLiteral(
               "Camera: there is one, but you may not open it. (As root: adduser %1 %2, then log in again.)\n")
        .arg(NomUtilisateur(), raison.Detail);
  }
  if (raison.Quoi == Motif::kSansImage)
    return QStringLiteral("Camera: there is one, but its driver does not answer. Unplug it and plug it in again.\n");
  return QStringLiteral("Camera: none is connected.\n");
}

RapportCameras DecritPeripheriques(const QString& cherche, const AccesV4L2& acces) {
  const QList<PeripheriqueVideo> liste = acces.Peripheriques();
  const std::optional<PeripheriqueVideo> voulue = acces.Choisit(cherche);
  const std::optional<PeripheriqueVideo> choisie = voulue ? voulue : acces.LaSeule();
  if (!choisie && liste.isEmpty()) return {DitSansCamera(acces), false};
  QString suite = QStringLiteral(".\n");
  if (!cherche.isEmpty()) {
    suite = voulue ? kChoisie : QStringLiteral("; the one that was chosen in the source dialog is not connected.\n");
  }
  QString texte = choisie ? Ligne(QStringLiteral("Camera: "), NomDe(*choisie), suite)
                          : QStringLiteral(
                                "Camera: the one that was chosen in the source dialog is not connected. You "
                                "will be asked which one to take.\n");
  for (const PeripheriqueVideo& autre : liste) {
    if (!choisie || autre.Noeud != choisie->Noeud) texte += Ligne(QStringLiteral("Also connected: "), NomDe(autre));
  }
  return {texte, true};
}

}  // namespace

RapportCameras DecritCameras(const QString& ou, const MemoireCapture& memoire, const AccesV4L2& acces) {
  if (!ou.isEmpty())
    return {Ligne(QStringLiteral("Camera: "), MasqueAdresse(ou), QStringLiteral(", as asked.\n")), true};
  const SourceCapture source = ComprendSource(memoire.Source());
  switch (source.Genre) {
    case GenreSource::kPeripherique:
      break;
    case GenreSource::kReseau:
    case GenreSource::kBureau:
      return {Ligne(QStringLiteral("Camera: "), source.Description, kChoisie), true};
    case GenreSource::kTest:
      return {QStringLiteral("Camera: the built-in picture") + kChoisie, true};
    case GenreSource::kFichier: {
      QString texte = Ligne(QStringLiteral("Camera: the film "), MasqueAdresse(source.Lieu), kChoisie);
      // The program says so too, and shows no other picture instead.
      if (!QFileInfo::exists(source.Lieu)) {
        texte += QStringLiteral("It is not there any more: the source dialog is where another one can be chosen.\n");
      }
      return {texte, true};
    }
  }
  return DecritPeripheriques(source.Lieu, acces);
}

}  // namespace vaktor
