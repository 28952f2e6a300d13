// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/base/bounded_log.h"

#include <QFile>
#include <algorithm>

namespace vaktor {

namespace {
constexpr qsizetype kSecretMin = 3;
}

QString NettoieLigne(QString ligne, QStringList secrets) {
  // The longest first: a short secret inside a long one must not leave the long one's rest readable.
  std::sort(secrets.begin(), secrets.end(), [](const QString& a, const QString& b) { return a.size() > b.size(); });
  for (const QString& secret : secrets) {
    if (secret.size() >= kSecretMin) ligne.replace(secret, QStringLiteral("***"));
  }
  for (QChar& signe : ligne)
    if (signe.category() == QChar::Other_Control || signe.category() == QChar::Separator_Line) signe = QLatin1Char(' ');
  return ligne.trimmed();
}

JournalBorne::JournalBorne(const QString& dossier, const QString& nom, const Horloge& temps, qint64 tailleMax)
    : Chemin_(dossier + QLatin1Char('/') + nom + QStringLiteral(".log")), Temps_(temps), TailleMax_(tailleMax) {}

void JournalBorne::CacheSecret(const QString& secret) {
  if (!Secrets_.contains(secret)) Secrets_.append(secret);
}

void JournalBorne::Note(const QString& ligne) {
  const QByteArray octets = (Temps_.DonneDate().toString(Qt::ISODate) + QLatin1Char(' ') +
                             Temps_.DonneHeure().toString(QStringLiteral("HH:mm:ss")) + QLatin1Char(' ') +
                             NettoieLigne(ligne, Secrets_).left(kLigneMax))
                                .toUtf8() +
                            '\n';
  QFile fichier(Chemin_);
  if (fichier.size() + octets.size() > TailleMax_ && fichier.exists()) {
    QFile::remove(Chemin_ + QStringLiteral(".1"));
    QFile::rename(Chemin_, Chemin_ + QStringLiteral(".1"));
  }
  if (!fichier.open(QIODevice::WriteOnly | QIODevice::Append)) return;
  fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  fichier.write(octets);
}

}  // namespace vaktor
