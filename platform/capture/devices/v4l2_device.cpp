// SPDX-License-Identifier: GPL-3.0-or-later
// Which cameras there are, and under which names they are found again.
#include "platform/capture/devices/v4l2_device.h"

#include <fcntl.h>
#include <linux/videodev2.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <cerrno>
#include <string>

#include "platform/capture/devices/v4l2_node.h"

namespace vaktor {

NoeudV4L2::NoeudV4L2(const QString& noeud) {
  if (noeud.isEmpty()) return;
  // O_NONBLOCK: a fifo or a serial line under such a name must not hold us up.
  Descripteur_ = ::open(QFile::encodeName(noeud).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
}

NoeudV4L2::~NoeudV4L2() {
  if (Descripteur_ >= 0) ::close(Descripteur_);
}

bool NoeudV4L2::Demande(unsigned long requete, void* argument) const {
  if (Descripteur_ < 0) return false;
  int rendu = 0;
  do {
    rendu = ::ioctl(Descripteur_, requete, argument);
  } while (rendu < 0 && errno == EINTR);
  return rendu >= 0;
}

quint32 NoeudV4L2::Capacites() const {
  v4l2_capability capacite = {};
  if (!Demande(VIDIOC_QUERYCAP, &capacite)) return 0;
  // `capabilities` tells of the whole device, where a camera's metadata node looks like a camera too.
  return (capacite.capabilities & V4L2_CAP_DEVICE_CAPS) != 0 ? capacite.device_caps : capacite.capabilities;
}

quint32 NoeudV4L2::TypeTampon() const {
  const quint32 capacites = Capacites();
  if ((capacites & V4L2_CAP_VIDEO_CAPTURE) != 0) return V4L2_BUF_TYPE_VIDEO_CAPTURE;
  if ((capacites & V4L2_CAP_VIDEO_CAPTURE_MPLANE) != 0) return V4L2_BUF_TYPE_VIDEO_CAPTURE_MPLANE;
  return 0;
}

QString TexteNoyau(const unsigned char* texte, int taille) {
  const unsigned char* fin = std::find(texte, texte + taille, static_cast<unsigned char>(0));
  return QString::fromUtf8(std::string(texte, fin).c_str()).trimmed();
}

namespace {

const auto kDossierParId = QLatin1String("/dev/v4l/by-id");
const auto kPrefixeNoeud = QLatin1String("/dev/video");

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
QString LitRang(const QString& noeud) {
  QFile fichier(QStringLiteral("/sys/class/video4linux/%1/index").arg(QFileInfo(noeud).fileName()));
  if (!fichier.open(QIODevice::ReadOnly)) return {};
  const QString rang = QString::fromLatin1(fichier.readAll()).trimmed();
  return rang == QLatin1String("0") ? QString() : rang;
}

/// Two equal cameras without serial numbers fight for one link, which jumps to the one when the other leaves. Where
/// that can happen the bus tells them apart.
bool LienEstSur(const CandidatVideo& candidat, const QList<CandidatVideo>& tous) {
  if (candidat.NomParId.isEmpty()) return false;
  return std::none_of(tous.begin(), tous.end(), [&](const CandidatVideo& autre) {
    return autre.Modele == candidat.Modele && autre.NomParId.isEmpty();
  });
}

}  // namespace

QStringList ListeNoeudsVideo() {
  QStringList noeuds;
  const QList<int> numeros = ListeNumeros();
  for (const int numero : numeros) noeuds.append(kPrefixeNoeud + QString::number(numero));
  return noeuds;
}

std::optional<CandidatVideo> SondeNoeudVideo(const QString& chemin) {
  const NoeudV4L2 noeud(chemin);
  v4l2_capability capacite = {};
  if (!noeud.Demande(VIDIOC_QUERYCAP, &capacite) || !EstCamera(noeud)) return std::nullopt;
  CandidatVideo candidat;
  candidat.Noeud = chemin;
  candidat.Nom = TexteNoyau(capacite.card, sizeof capacite.card);
  candidat.Modele = TexteNoyau(capacite.driver, sizeof capacite.driver) + QLatin1Char('|') + candidat.Nom;
  candidat.NomBus = candidat.Modele + QLatin1Char('|') + TexteNoyau(capacite.bus_info, sizeof capacite.bus_info);
  const QString rang = LitRang(chemin);
  if (!rang.isEmpty()) candidat.NomBus += QLatin1Char('#') + rang;
  candidat.NomParId = LitLiensParId().value(QFileInfo(chemin).canonicalFilePath());
  return candidat;
}

QList<PeripheriqueVideo> NommePeripheriques(const QList<CandidatVideo>& candidats) {
  QList<PeripheriqueVideo> peripheriques;
  for (const CandidatVideo& c : candidats)
    peripheriques.append({c.Noeud, c.Nom, LienEstSur(c, candidats) ? c.NomParId : c.NomBus});
  return peripheriques;
}

std::optional<PeripheriqueVideo> RetrouveParmi(const QList<CandidatVideo>& candidats, const QString& nomStable) {
  if (nomStable.isEmpty()) return std::nullopt;
  // Either name will do: which of the two a camera was remembered by depends on what else was plugged in then.
  for (const CandidatVideo& c : candidats)
    if (c.NomBus == nomStable || c.NomParId == nomStable) return PeripheriqueVideo{c.Noeud, c.Nom, nomStable};
  return std::nullopt;
}

}  // namespace vaktor
