// Which cameras there are, and under which names they are found again.
#include "platform/capture/v4l2_device.h"

#include <linux/videodev2.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

#include "platform/capture/v4l2_node.h"

namespace vaktor {
namespace {

const auto kDossierParId = QLatin1String("/dev/v4l/by-id");

/// A camera with both of the names that it can be found by.
struct Candidat {
  PeripheriqueVideo Peripherique;
  QString Modele;    ///< driver and card: the same for two equal cameras
  QString NomBus;    ///< with the bus, and the rank among the nodes of one device: never the same for two
  QString NomParId;  ///< udev's link; empty where there is none
};

/// Numbers N of the nodes /dev/videoN, ascending ("video10" comes after "video2").
QList<int> ListeNumeros() {
  static const QRegularExpression kNom(QStringLiteral("^video(\\d{1,6})$"));
  QList<int> numeros;
  const QStringList noms =
      QDir(QStringLiteral("/dev")).entryList({QStringLiteral("video*")}, QDir::System | QDir::Files);
  for (const QString& nom : noms) {
    const QRegularExpressionMatch m = kNom.match(nom);
    if (m.hasMatch()) numeros.append(m.captured(1).toInt());
  }
  std::sort(numeros.begin(), numeros.end());
  return numeros;
}

bool EstCamera(const NoeudV4L2& noeud) {
  const quint32 capacites = noeud.Capacites();
  if (noeud.TypeTampon() == 0) return false;
  if ((capacites & (V4L2_CAP_STREAMING | V4L2_CAP_READWRITE)) == 0) return false;
  // A codec takes frames in and gives frames out; so does a part of an image processor that somebody must first wire
  // up (IO_MC). Neither gives a picture by itself.
  if ((capacites & (V4L2_CAP_VIDEO_M2M | V4L2_CAP_VIDEO_M2M_MPLANE | V4L2_CAP_IO_MC)) != 0) return false;
  if ((capacites & (V4L2_CAP_VIDEO_OUTPUT | V4L2_CAP_VIDEO_OUTPUT_MPLANE)) == 0) return true;
  // Both ways at once: a loopback, which has an input to choose, or a codec of old kernels, which has none.
  v4l2_input entree = {};
  return noeud.Demande(VIDIOC_ENUMINPUT, &entree);
}

/// Where udev's links point: node to link. The first by name when several point to one node.
QMap<QString, QString> LitLiensParId() {
  QMap<QString, QString> liens;
  const QFileInfoList infos = QDir(kDossierParId).entryInfoList(QDir::System | QDir::Files, QDir::Name);
  for (const QFileInfo& info : infos) {
    const QString cible = info.canonicalFilePath();
    if (!cible.isEmpty() && !liens.contains(cible)) liens.insert(cible, info.absoluteFilePath());
  }
  return liens;
}

/// Rank of a node among those of one device (a camera with a second sensor has two): the kernel's own count.
QString LitRang(int numero) {
  QFile fichier(QStringLiteral("/sys/class/video4linux/video%1/index").arg(numero));
  if (!fichier.open(QIODevice::ReadOnly)) return {};
  const QString rang = QString::fromLatin1(fichier.readAll()).trimmed();
  return rang == QLatin1String("0") ? QString() : rang;
}

QList<Candidat> ListeCandidats() {
  QList<Candidat> candidats;
  const QMap<QString, QString> liens = LitLiensParId();
  for (const int numero : ListeNumeros()) {
    Candidat candidat;
    candidat.Peripherique.Noeud = QStringLiteral("/dev/video%1").arg(numero);
    const NoeudV4L2 noeud(candidat.Peripherique.Noeud);
    v4l2_capability capacite = {};
    if (!noeud.Demande(VIDIOC_QUERYCAP, &capacite) || !EstCamera(noeud)) continue;
    candidat.Peripherique.Nom = TexteNoyau(capacite.card, sizeof capacite.card);
    candidat.Modele =
        TexteNoyau(capacite.driver, sizeof capacite.driver) + QLatin1Char('|') + candidat.Peripherique.Nom;
    candidat.NomBus = candidat.Modele + QLatin1Char('|') + TexteNoyau(capacite.bus_info, sizeof capacite.bus_info);
    const QString rang = LitRang(numero);
    if (!rang.isEmpty()) candidat.NomBus += QLatin1Char('#') + rang;
    candidat.NomParId = liens.value(QFileInfo(candidat.Peripherique.Noeud).canonicalFilePath());
    candidats.append(candidat);
  }
  return candidats;
}

/// Two equal cameras without serial numbers fight for one link, which jumps to the one when the other leaves. Where
/// that can happen the bus tells them apart.
bool LienEstSur(const Candidat& candidat, const QList<Candidat>& tous) {
  if (candidat.NomParId.isEmpty()) return false;
  return std::none_of(tous.begin(), tous.end(), [&](const Candidat& autre) {
    return autre.Modele == candidat.Modele && autre.NomParId.isEmpty();
  });
}

}  // namespace

QList<PeripheriqueVideo> ListePeripheriques() {
  QList<PeripheriqueVideo> peripheriques;
  const QList<Candidat> candidats = ListeCandidats();
  for (const Candidat& candidat : candidats) {
    PeripheriqueVideo peripherique = candidat.Peripherique;
    peripherique.NomStable = LienEstSur(candidat, candidats) ? candidat.NomParId : candidat.NomBus;
    peripheriques.append(peripherique);
  }
  return peripheriques;
}

std::optional<PeripheriqueVideo> RetrouvePeripherique(const QString& nomStable) {
  if (nomStable.isEmpty()) return std::nullopt;
  // Either name will do: which of the two a camera was remembered by depends on what else was plugged in then.
  const QList<Candidat> candidats = ListeCandidats();
  for (const Candidat& candidat : candidats) {
    if (candidat.NomBus != nomStable && candidat.NomParId != nomStable) continue;
    PeripheriqueVideo peripherique = candidat.Peripherique;
    peripherique.NomStable = nomStable;
    return peripherique;
  }
  return std::nullopt;
}

}  // namespace vaktor
