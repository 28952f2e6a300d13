// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folders/mounted_volumes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <optional>

#include "platform/folders/folder_names.h"

namespace vaktor {
namespace {

struct Montage {
  QByteArray Racine;  // what of the file system is mounted, "/" for all of it
  QByteArray Point;
  QByteArray Type;
  QByteArray Source;
};

// Blank, tab, line feed and backslash stand as three octal digits behind a backslash.
QByteArray Decode(const QByteArray& champ) {
  QByteArray texte;
  for (qsizetype i = 0; i < champ.size(); ++i) {
    bool octal = false;
    const bool echappe = champ.at(i) == '\\' && i + 3 < champ.size();
    const uint code = echappe ? champ.mid(i + 1, 3).toUInt(&octal, 8) : 0;
    texte += octal ? static_cast<char>(code) : champ.at(i);
    if (octal) i += 3;
  }
  return texte;
}

// "36 35 98:0 /root /point options shared:1 ... - type source options": the optional fields end with a lone "-".
std::optional<Montage> LitLigne(const QByteArray& ligne) {
  const QList<QByteArray> champs = ligne.split(' ');
  const qsizetype tiret = champs.indexOf("-", 6);
  if (tiret < 0 || tiret + 2 >= champs.size()) return std::nullopt;
  return Montage{Decode(champs.at(3)), Decode(champs.at(4)), champs.at(tiret + 1), Decode(champs.at(tiret + 2))};
}

bool EstReseau(const QByteArray& type) {
  static const QSet<QByteArray> kTypes{
      "nfs",        "nfs4",        "cifs",           "smb3",          "smbfs",    "9p",
      "afs",        "ceph",        "glusterfs",      "davfs",         "virtiofs", "vboxsf",
      "fuse.sshfs", "fuse.rclone", "fuse.glusterfs", "fuse.curlftpfs"};
  return kTypes.contains(type);
}

bool EstDisque(const Montage& montage) {
  // Loop devices and squashfs are packages and images, mounted for the system. Zfs names a pool and no device.
  if (montage.Type == "zfs") return true;
  return montage.Source.startsWith("/dev/") && !montage.Source.startsWith("/dev/loop") && montage.Type != "squashfs";
}

bool PorteLeSysteme(const QByteArray& point) {
  static const QList<QByteArray> kDossiers{"/boot", "/efi",  "/usr", "/var", "/etc",      "/nix", "/snap",
                                           "/opt",  "/proc", "/sys", "/dev", "/recovery", "/tmp"};
  if (point == "/") return true;
  if (point.startsWith("/run/")) return !point.startsWith("/run/media/");
  return std::any_of(kDossiers.begin(), kDossiers.end(),
                     [&](const QByteArray& dossier) { return point == dossier || point.startsWith(dossier + '/'); });
}

bool EstVolume(const Montage& montage) {
  // A part of a file system mounted elsewhere can be reached where the whole of it lies. Btrfs and zfs mount their
  // subvolumes so, which are volumes.
  const bool entier = montage.Racine == "/" || montage.Type == "btrfs";
  return entier && (EstDisque(montage) || EstReseau(montage.Type)) && !PorteLeSysteme(montage.Point) &&
         EstCheminRangeable(montage.Point);
}

bool PrecedeParNom(const LieuDisque& a, const LieuDisque& b) {
  const int ordre = QString::compare(a.Nom, b.Nom, Qt::CaseInsensitive);
  return ordre != 0 ? ordre < 0 : a.Chemin < b.Chemin;
}

}  // namespace

QList<LieuDisque> ListeVolumes(const QByteArray& table, const std::function<QString(const QString&)>& nomme) {
  QList<LieuDisque> lieux;
  QSet<QString> vus;
  for (const QByteArray& ligne : table.split('\n')) {
    const std::optional<Montage> montage = LitLigne(ligne);
    if (!montage || !EstVolume(*montage)) continue;
    const QString chemin = QFile::decodeName(montage->Point);
    if (vus.contains(chemin)) continue;  // mounted over: the place is the same
    vus.insert(chemin);
    const QString etiquette = nomme(QFile::decodeName(montage->Source));
    lieux.append({etiquette.isEmpty() ? chemin.section(u'/', -1) : etiquette, chemin});
  }
  std::sort(lieux.begin(), lieux.end(), PrecedeParNom);
  return lieux;
}

// The names of the links are written with "\x20" for what a file name had better not hold.
QString DonneEtiquette(const QString& peripherique, const QString& dossier) {
  if (!peripherique.startsWith(QStringLiteral("/dev/"))) return {};
  const QString vrai = QFileInfo(peripherique).canonicalFilePath();
  const QFileInfoList liens = QDir(dossier).entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
  const auto lien =
      std::find_if(liens.begin(), liens.end(), [&](const QFileInfo& info) { return info.canonicalFilePath() == vrai; });
  if (vrai.isEmpty() || lien == liens.end()) return {};
  QByteArray nom;
  const QByteArray code = QFile::encodeName(lien->fileName());
  for (qsizetype i = 0; i < code.size(); ++i) {
    bool hexa = false;
    const uint octet = code.mid(i, 2) == "\\x" ? code.mid(i + 2, 2).toUInt(&hexa, 16) : 0;
    nom += hexa ? static_cast<char>(octet) : code.at(i);
    if (hexa) i += 3;
  }
  return QString::fromUtf8(nom);
}

}  // namespace vaktor
