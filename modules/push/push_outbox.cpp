// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_outbox.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cerrno>

#include "base/failure.h"
#include "base/jpeg_end.h"
#include "modules/mail/durable_file.h"
#include "platform/store/bounded_file.h"
#include "platform/store/private_file.h"

namespace vaktor {

namespace {

constexpr qint64 kEnTeteMax = 64LL * 1024;
constexpr qint64 kTailleMax = 32LL * 1024 * 1024;
constexpr qint64 kMoitieMs = 3'600'000;  // nobody writes at one for so long

QByteArray ComposeTete(const MessagePush& message) {
  const QJsonObject tete{{QStringLiteral("title"), message.Titre},
                         {QStringLiteral("text"), message.Texte},
                         {QStringLiteral("image"), message.NomImage}};
  return QJsonDocument(tete).toJson(QJsonDocument::Compact) + '\n';
}

}  // namespace

qint64 SacPush::FaitA(const QString& nom) { return nom.section(u'-', 0, 0).toLongLong(); }

int SacPush::Ajoute(const MessagePush& message, qint64 faitA, const QString& marque, int* sansImage) {
  try {
    PrepareDossierPrive(Dossier_);
  } catch (const Echec&) {
    return EACCES;
  }
  const QStringList noms = Liste();
  const qint64 rang = noms.isEmpty() ? faitA : std::max(faitA, FaitA(noms.first()) + 1);
  const QString nom = QStringLiteral("%1-%2").arg(QString::number(rang).rightJustified(15, u'0'), marque) + kFin;
  const int erreur = EcritDurable(Chemin(nom), {ComposeTete(message), message.Image});
  if (erreur == 0 || message.Image.isEmpty()) return erreur;
  if (sansImage != nullptr) *sansImage = erreur;
  return EcritDurable(Chemin(nom), {ComposeTete(message)});
}

QStringList SacPush::Liste() const {
  QStringList noms = QDir(Dossier_).entryList({QLatin1Char('*') + kFin}, QDir::Files, QDir::Name);
  std::reverse(noms.begin(), noms.end());
  return noms;
}

std::optional<MessagePush> SacPush::Lit(const QString& nom, bool* passager) const {
  QByteArray octets;
  const int erreur = LitFichierBorne(Chemin(nom), kTailleMax, octets);
  if (passager != nullptr) *passager = erreur != 0 && !EstFauteDuFichier(erreur);
  const qsizetype fin = octets.indexOf('\n');
  if (erreur != 0 || fin < 0 || fin >= kEnTeteMax) return std::nullopt;
  const QJsonDocument tete = QJsonDocument::fromJson(octets.first(fin));
  if (!tete.isObject()) return std::nullopt;
  MessagePush message{tete[QStringLiteral("title")].toString(), tete[QStringLiteral("text")].toString(),
                      tete[QStringLiteral("image")].toString(), octets.mid(fin + 1)};
  if (!EstJpegEntier(message.Image)) message.Image.clear();
  return message;
}

void SacPush::RetireImage(const QString& nom) {
  std::optional<MessagePush> message = Lit(nom);
  if (!message) return;
  EcritDurable(Chemin(nom), {ComposeTete(*message)});
}

void SacPush::Retire(const QString& nom) { QFile::remove(Chemin(nom)); }

QStringList SacPush::Elague(qint64 maintenant, const QStringList& echus) {
  for (const QFileInfo& moitie : QDir(Dossier_).entryInfoList({u'*' + kFin + QLatin1String(".part")}, QDir::Files))
    if (qAbs(maintenant - moitie.lastModified().toMSecsSinceEpoch()) > kMoitieMs) QFile::remove(moitie.filePath());
  QStringList retires;
  const QStringList noms = Liste();
  for (qsizetype i = 0; i < noms.size(); ++i) {
    const bool vieux = maintenant - FaitA(noms[i]) > kAgeMax && echus.contains(noms[i]);
    if (!vieux && i < kNombreMax) continue;
    Retire(noms[i]);
    retires.append(noms[i]);
  }
  return retires;
}

}  // namespace vaktor
