// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_settings.h"

#include <QUrl>
#include <algorithm>

namespace vaktor {

namespace {

// RFC 9110, 5.6.2: the characters of a header's name.
bool EstSigneDeNom(char c) {
  const bool lettre = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  return lettre || QByteArrayView("!#$%&'*+-.^_`|~").contains(c);
}

bool EstEntete(const QByteArray& entete) {
  const qsizetype fin = entete.indexOf(':');
  if (fin <= 0) return false;
  return std::all_of(entete.begin(), entete.begin() + fin, EstSigneDeNom) &&
         std::none_of(entete.begin(), entete.end(),
                      [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 127; });
}

/// Shorter ones are words such as "api", which stand in every line.
constexpr qsizetype kMorceauMin = 6;

/// What a server may quote of it: as it was sent, and decoded.
void AjouteMorceau(const QString& encode, QStringList& secrets) {
  for (const QString& morceau : {encode, QUrl::fromPercentEncoding(encode.toUtf8())})
    if (morceau.size() >= kMorceauMin && !secrets.contains(morceau)) secrets.append(morceau);
}

}  // namespace

PushLu LitPush(const Parametres& valeurs, const QString& autorites) {
  const QString texte = valeurs.PushAdresse.trimmed();
  if (texte.isEmpty()) return {};
  const QUrl url(texte, QUrl::StrictMode);
  const bool web = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
  if (!url.isValid() || !web || url.host().isEmpty()) return {{}, ManquePush::kAdresse};
  const QByteArray entete = valeurs.PushEntete.trimmed().toUtf8();
  if (!entete.isEmpty() && !EstEntete(entete)) return {{}, ManquePush::kEntete};
  return {{url.toEncoded(QUrl::RemoveFragment), entete, autorites, url.host()}};
}

QStringList DonneSecretsPush(const ReglagesPush& reglages) {
  if (reglages.Adresse.isEmpty()) return {};
  const QUrl url = QUrl::fromEncoded(reglages.Adresse);
  QStringList secrets{url.password(), url.query(QUrl::FullyEncoded), url.path(QUrl::FullyEncoded).mid(1),
                      QString::fromUtf8(reglages.Entete.mid(reglages.Entete.indexOf(':') + 1)).trimmed()};
  // "Bearer SECRET": a server that quotes it quotes the second word alone.
  secrets.append(secrets.last().section(u' ', -1));
  secrets.removeAll(QString());
  AjouteMorceau(url.userName(QUrl::FullyEncoded), secrets);
  AjouteMorceau(url.password(QUrl::FullyEncoded), secrets);
  AjouteMorceau(url.path(QUrl::FullyEncoded).mid(1), secrets);
  AjouteMorceau(url.query(QUrl::FullyEncoded), secrets);
  for (const QString& pas : url.path(QUrl::FullyEncoded).split(u'/')) AjouteMorceau(pas, secrets);
  for (const QString& champ : url.query(QUrl::FullyEncoded).split(u'&'))
    AjouteMorceau(champ.mid(champ.indexOf(u'=') + 1), secrets);
  return secrets;
}

}  // namespace vaktor
