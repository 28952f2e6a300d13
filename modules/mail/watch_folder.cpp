// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/watch_folder.h"

#include <dirent.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "base/jpeg_end.h"
#include "base/photo_format.h"
#include "platform/store/bounded_file.h"
#include "platform/store/private_file.h"

namespace vaktor {
namespace {

constexpr QLatin1String kMessage(".json");
constexpr QLatin1String kPhoto = kFinPhoto;
constexpr QLatin1String kMauvais(".bad");
constexpr int kVersion = 1;

struct FermeDossier {
  void operator()(DIR* dossier) const { ::closedir(dossier); }
};

bool LitJson(const QByteArray& octets, MessageVeille& message) {
  const QJsonObject objet = QJsonDocument::fromJson(octets).object();
  if (objet.value(QStringLiteral("version")).toInt() != kVersion) return false;
  message.Condition = objet.value(QStringLiteral("condition")).toString();
  message.Sujet = PhraseDite::Compose(
      [&](Langue langue) { return objet.value(QStringLiteral("subject_") + kCodesLangues.Dit(langue)).toString(); });
  message.Texte = PhraseDite::Compose([&](Langue langue) { return objet.value(kCodesLangues.Dit(langue)).toString(); });
  return std::ranges::none_of(kLangues, [&](Langue langue) {
    return message.Sujet.Dit(langue).isEmpty() && message.Texte.Dit(langue).isEmpty();
  });
}

}  // namespace

qint64 DossierVeille::DonneInstant(const QString& nom) {
  static const QRegularExpression kForme(QStringLiteral("\\A([0-9]{1,15})-[0-9]{1,9}\\z"));
  const QRegularExpressionMatch forme = kForme.match(nom);
  return forme.hasMatch() ? forme.captured(1).toLongLong() : -1;
}

// By the system's own calls: Qt takes a folder that cannot be listed for an empty one. Also what is no file: a pipe of
// that name has to be told and put aside, not passed over for ever.
QStringList DossierVeille::ListeNoms(QLatin1String fin, int& erreur) const {
  QStringList noms;
  const std::unique_ptr<DIR, FermeDossier> dossier(::opendir(QFile::encodeName(Dossier_).constData()));
  erreur = dossier || errno == ENOENT || errno == ENOTDIR ? 0 : errno;
  for (int vues = 0; dossier && vues < kEntreesMax; ++vues) {
    errno = 0;
    const dirent* entree = ::readdir(dossier.get());
    if (entree == nullptr) {
      erreur = errno;
      break;
    }
    QString nom = QFile::decodeName(entree->d_name);
    if (!nom.endsWith(fin)) continue;
    nom.chop(fin.size());
    if (DonneInstant(nom) >= 0) noms.append(nom);
  }
  std::sort(noms.begin(), noms.end(), [](const QString& a, const QString& b) {
    const qint64 tot = DonneInstant(a);
    const qint64 tard = DonneInstant(b);
    return tot != tard ? tot < tard : a.section(u'-', 1).toLongLong() < b.section(u'-', 1).toLongLong();
  });
  return noms;
}

QStringList DossierVeille::Liste(int* erreur) const {
  int lu = 0;
  QStringList noms = ListeNoms(kMessage, lu).mid(0, kMessagesMax);
  if (erreur != nullptr) *erreur = lu;
  return noms;
}

std::optional<MessageVeille> DossierVeille::Lit(const QString& nom, qint64 photoMax, QString& raison) const {
  raison.clear();
  QByteArray octets;
  const int erreur = LitFichierBorne(Chemin(nom, kMessage), kOctetsTexteMax, octets);
  if (erreur != 0) {
    if (EstFauteDuFichier(erreur)) raison = QString::fromLocal8Bit(std::strerror(erreur));
    return std::nullopt;
  }
  MessageVeille message;
  message.Nom = nom;
  message.FaitA = DonneInstant(nom);
  if (!LitJson(octets, message)) {
    raison = QStringLiteral("no message");
    return std::nullopt;
  }
  const int erreurPhoto = LitFichierBorne(Chemin(nom, kPhoto), photoMax, octets);
  if (erreurPhoto == 0 && EstJpegEntier(octets)) message.Photo = octets;
  message.PhotoPlusTard = erreurPhoto != 0 && erreurPhoto != ENOENT && !EstFauteDuFichier(erreurPhoto);
  return message;
}

bool DossierVeille::Efface(const QString& nom) const {
  const QString message = Chemin(nom, kMessage);
  // The message first: it is what counts, and a picture alone is an orphan that goes later.
  const bool parti = std::remove(QFile::encodeName(message).constData()) == 0 || errno == ENOENT;
  EcritDossierSurDisque(message);
  if (parti) QFile::remove(Chemin(nom, kPhoto));
  return parti;
}

bool DossierVeille::MetDeCote(const QString& nom) const {
  return std::rename(QFile::encodeName(Chemin(nom, kMessage)).constData(),
                     QFile::encodeName(Chemin(nom, kMauvais)).constData()) == 0;
}

void DossierVeille::RetireOrphelins(qint64 maintenant) const {
  int erreur = 0;
  const QStringList messages = ListeNoms(kMessage, erreur);
  if (erreur != 0) return;
  for (const QString& nom : ListeNoms(kPhoto, erreur)) {
    if (maintenant - DonneInstant(nom) > kAgeOrphelinMs && !messages.contains(nom)) QFile::remove(Chemin(nom, kPhoto));
  }
}

QStringList LecteurVeille::Liste(int* erreur) const {
  QStringList noms = Dossier_.Liste(erreur);
  noms.removeIf([this](const QString& nom) { return Passes_.contains(nom); });
  return noms;
}

LectureVeille LecteurVeille::Lit(const QString& nom, qint64 photoMax) {
  QString raison;
  LectureVeille lu{Dossier_.Lit(nom, photoMax, raison)};
  lu.Illisible = !raison.isEmpty();
  if (!lu.Illisible) return lu;
  Note(nom, QStringLiteral("put aside, ") + raison);
  if (!Dossier_.MetDeCote(nom)) Passes_.insert(nom);
  return lu;
}

void LecteurVeille::Efface(const QString& nom) {
  if (!Dossier_.Efface(nom)) Passes_.insert(nom);
}

void LecteurVeille::Note(const QString& nom, const QString& quoi) const {
  Journal_.Note(QStringLiteral("message of the watch %1: %2").arg(nom, quoi));
}

}  // namespace vaktor
