// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/site_memory.h"

#include <QJsonDocument>
#include <utility>

namespace vaktor {

namespace {

constexpr qint64 kTailleMax = 256LL * 1024;
const QLatin1String kTls("tls");
const QLatin1String kCle("key");

QString NommeServeur(const AccesFtp& acces) {
  return acces.Hote.toLower() + QLatin1Char(':') + QString::number(acces.Port);
}

}  // namespace

MemoireSites::MemoireSites(QString fichier) : Fichier_(std::move(fichier), kTailleMax) { Relit(); }

void MemoireSites::Relit() {
  const std::optional<QByteArray> octets = Fichier_.Lit();
  if (!octets) return;
  const QJsonDocument document = QJsonDocument::fromJson(*octets);
  if (!octets->isEmpty() && !document.isObject()) Fichier_.MetDeCote();
  const QJsonObject objet = document.object();
  const QJsonObject notes = std::exchange(Serveurs_, objet[QLatin1String("servers")].toObject());
  Sites_ = objet[QLatin1String("sites")].toObject();
  // What was noted while it could not be read: TLS alone, since no key is taken without a memory.
  for (auto note = notes.begin(); note != notes.end(); ++note) {
    QJsonObject serveur = Serveurs_[note.key()].toObject();
    serveur[kTls] = true;
    Serveurs_[note.key()] = serveur;
  }
  if (!notes.isEmpty()) Ecrit();
}

QString MemoireSites::NommeSite(const AccesFtp& acces) {
  return NommeServeur(acces) + QLatin1Char('/') + acces.Utilisateur + QLatin1Char('/') + acces.Dossier;
}

void MemoireSites::Applique(AccesFtp& acces) const {
  const QJsonObject serveur = Serveurs_[NommeServeur(acces)].toObject();
  acces.TlsExige = serveur[kTls].toBool();
  acces.CleHote = serveur[kCle].toString();
  acces.SansMemoire = Fichier_.Empechement();
  if (!acces.SansMemoire.isEmpty()) acces.TlsExige = true;
}

bool MemoireSites::Note(const AccesFtp& acces, const ResultatFtp& resultat) {
  Relit();
  QJsonObject serveur = Serveurs_[NommeServeur(acces)].toObject();
  const QJsonObject avant = serveur;
  if (resultat.Chiffre) serveur[kTls] = true;
  const bool neuve = !resultat.CleHote.isEmpty() && !serveur.contains(kCle);
  if (neuve) serveur[kCle] = resultat.CleHote;
  if (serveur == avant) return false;
  Serveurs_[NommeServeur(acces)] = serveur;
  Ecrit();
  return neuve;
}

bool MemoireSites::EstEtabli(const AccesFtp& acces) const {
  return !Fichier_.EstLu() || Sites_[NommeSite(acces)].toBool();
}

void MemoireSites::NoteEtabli(const AccesFtp& acces) {
  Relit();
  if (EstEtabli(acces)) return;
  Sites_[NommeSite(acces)] = true;
  Ecrit();
}

void MemoireSites::Ecrit() const {
  Fichier_.Ecrit(
      QJsonDocument(QJsonObject{{QStringLiteral("servers"), Serveurs_}, {QStringLiteral("sites"), Sites_}}).toJson());
}

}  // namespace vaktor
