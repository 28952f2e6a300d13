// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/server_address.h"

#include <arpa/inet.h>

#include <QRegularExpression>
#include <array>

namespace vaktor {

namespace {

// Service names and port numbers of IANA.
constexpr quint16 kPortSsh = 22;
constexpr quint16 kPortHttp = 80;
constexpr quint16 kPortHttps = 443;
constexpr quint16 kPortTls = 990;

bool EstLitterale(const QString& hote) {
  std::array<unsigned char, sizeof(in6_addr)> adresse{};
  const QByteArray octets = hote.section(QLatin1Char('%'), 0, 0).toLatin1();
  return ::inet_pton(AF_INET, octets.constData(), adresse.data()) == 1 ||
         ::inet_pton(AF_INET6, octets.constData(), adresse.data()) == 1;
}

}  // namespace

AdresseServeur LitAdresseServeur(const QString& texte) {
  AdresseServeur adresse;
  QString reste = texte.trimmed();
  static const QRegularExpression schema(QStringLiteral("^(ftps?|sftp|https?)://"),
                                         QRegularExpression::CaseInsensitiveOption);
  const QString nomSchema = schema.match(reste).captured(1).toLower();
  reste.remove(schema);
  if (nomSchema == QLatin1String("sftp")) adresse.Port = kPortSsh;
  reste = reste.section(QLatin1Char('/'), 0, 0);
  reste = reste.mid(reste.lastIndexOf(QLatin1Char('@')) + 1);

  QString port;
  static const QRegularExpression crochets(QStringLiteral("^\\[([^\\]]*)\\](?::(.*))?$"));
  const QRegularExpressionMatch entre = crochets.match(reste);
  if (entre.hasMatch()) {
    adresse.Hote = entre.captured(1);
    port = entre.captured(2);
  } else if (reste.count(QLatin1Char(':')) == 1) {
    adresse.Hote = reste.section(QLatin1Char(':'), 0, 0);
    port = reste.section(QLatin1Char(':'), 1);
  } else {
    adresse.Hote = reste;
  }
  if (!port.isEmpty()) adresse.Port = port.toUShort(&adresse.Valable);
  if (adresse.Port == 0) adresse.Valable = false;
  if (nomSchema == QLatin1String("sftp") || adresse.Port == kPortSsh)
    adresse.Protocole = ProtocoleFtp::kSftp;
  else if (adresse.Port == kPortTls)
    adresse.Protocole = ProtocoleFtp::kFtpImplicite;
  adresse.Web = nomSchema.startsWith(QLatin1String("http")) || adresse.Port == kPortHttps || adresse.Port == kPortHttp;
  static const QRegularExpression interdits(QStringLiteral("[^\\p{L}\\p{N}.:%_-]"));
  if (adresse.Hote.contains(interdits)) adresse.Valable = false;
  if (adresse.Hote == QLatin1String("ftp.")) adresse.Hote.clear();
  return adresse;
}

bool EstSansRecherche(const QString& hote) {
  return hote.compare(QLatin1String("localhost"), Qt::CaseInsensitive) == 0 || EstLitterale(hote);
}

}  // namespace vaktor
