// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/watch_folder.h"

#include <QDirIterator>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

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

// These say something about the machine and nothing about the file: it may be readable a moment later.
bool EstPassagere(int erreur) {
  return erreur == ENOENT || erreur == EMFILE || erreur == ENFILE || erreur == ENOMEM || erreur == EIO ||
         erreur == EAGAIN;
}

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

QStringList DossierVeille::ListeNoms(QLatin1String fin) const {
  QStringList noms;
  if (Dossier_.isEmpty()) return noms;  // Qt would list the folder that we happen to stand in
  // Also what is no file: a pipe of that name has to be told and put aside, not passed over for ever.
  QDirIterator entrees(Dossier_, QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
  for (int vues = 0; vues < kEntreesMax && entrees.hasNext(); ++vues) {
    entrees.next();
    QString nom = entrees.fileName();
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

QStringList DossierVeille::Liste() const { return ListeNoms(kMessage).mid(0, kMessagesMax); }

std::optional<MessageVeille> DossierVeille::Lit(const QString& nom, qint64 photoMax, QString& raison) const {
  raison.clear();
  QByteArray octets;
  const int erreur = LitFichierBorne(Chemin(nom, kMessage), kOctetsTexteMax, octets);
  if (erreur != 0) {
    if (!EstPassagere(erreur)) raison = QString::fromLocal8Bit(std::strerror(erreur));
    return std::nullopt;
  }
  MessageVeille message;
  message.Nom = nom;
  message.FaitA = DonneInstant(nom);
  if (!LitJson(octets, message)) {
    raison = QStringLiteral("no message");
    return std::nullopt;
  }
  if (LitFichierBorne(Chemin(nom, kPhoto), photoMax, octets) == 0 && EstJpegEntier(octets)) message.Photo = octets;
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
  const QStringList messages = ListeNoms(kMessage);
  for (const QString& nom : ListeNoms(kPhoto)) {
    if (maintenant - DonneInstant(nom) > kAgeOrphelinMs && !messages.contains(nom)) QFile::remove(Chemin(nom, kPhoto));
  }
}

}  // namespace vaktor
