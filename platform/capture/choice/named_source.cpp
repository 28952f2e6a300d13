// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/capture/choice/named_source.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>
#include <array>

namespace vaktor {

namespace {

const auto kSansSchema = QLatin1String("hote://");  // put before a host alone, to be read like an address

}  // namespace

QString MarqueMotDePasse() { return QString(5, QChar(0x2022)); }

bool EstDuBureau(const QString& texte) { return texte.startsWith(kParPipeWire) || texte.startsWith(kParLibcamera); }

// A user and a password stand before an "@" in it, a slash nowhere: that would be a path.
bool EstHoteSeul(const QString& texte) {
  static const QRegularExpression kForme(
      QStringLiteral(
          R"(^(?<acces>[^/|]+@)?(?<hote>\[[0-9a-f:]+\]|[a-z0-9]([a-z0-9.-]*[a-z0-9])?)(?<port>:\d{1,5})?/?$)"),
      QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression kSansDoute(
      QStringLiteral(
          R"(^(\[.*\]|\d{1,3}(\.\d{1,3}){3}|localhost|.*\.(local|lan|home|internal|localdomain|box|arpa))$)"),
      QRegularExpression::CaseInsensitiveOption);
  const QRegularExpressionMatch m = kForme.match(texte);
  if (!m.hasMatch() || EstDuBureau(texte)) return false;  // a camera may be called by a number there, like a port
  return !m.captured(QStringLiteral("acces")).isEmpty() || !m.captured(QStringLiteral("port")).isEmpty() ||
         kSansDoute.match(m.captured(QStringLiteral("hote"))).hasMatch();
}

QString MasqueAdresse(const QString& adresse) {
  const qsizetype schema = adresse.indexOf(QLatin1String("://"));
  if (schema < 0) return EstHoteSeul(adresse) ? MasqueAdresse(kSansSchema + adresse).mid(kSansSchema.size()) : adresse;
  QString masquee = adresse;
  // Up to the last "@": a password may hold "@" or "/" that nobody encoded, and its tail would show otherwise.
  const qsizetype debut = schema + 3;
  const qsizetype arobase = adresse.lastIndexOf(QLatin1Char('@'));
  const qsizetype deuxPoints = adresse.indexOf(QLatin1Char(':'), debut);
  if (arobase > debut && deuxPoints >= debut && deuxPoints < arobase)
    masquee.replace(deuxPoints + 1, arobase - deuxPoints - 1, MarqueMotDePasse());
  static const QRegularExpression kChamp(
      QStringLiteral(R"(([?&;/_](?:[a-z0-9_.-]*(?:pas|pw|psw|secret|token|auth|key)[a-z0-9_.-]*)=)[^&;#]*)"),
      QRegularExpression::CaseInsensitiveOption);
  return masquee.replace(kChamp, QStringLiteral("\\1") + MarqueMotDePasse());
}

namespace {

constexpr std::array kSchemasReseau = {"rtsp://", "rtsps://", "http://", "https://"};

// The parts of an address around its credentials. By hand and not through QUrl: users type passwords with characters
// that make QUrl refuse the address or find another host, and then the password would be shown as part of a path.
struct Decoupe {
  QString Schema;  // with "://"
  QString Acces;   // user:password, without "@"
  QString Reste;   // host, path, query
};

Decoupe CoupeAdresse(const QString& adresse) {
  const qsizetype debut = adresse.indexOf(QLatin1String("://")) + 3;
  const QString suite = adresse.mid(debut);
  const qsizetype requete = suite.indexOf(QLatin1Char('?'));
  const qsizetype arobase = suite.left(requete < 0 ? suite.size() : requete).lastIndexOf(QLatin1Char('@'));
  if (arobase < 0) return {adresse.left(debut), {}, suite};
  return {adresse.left(debut), suite.left(arobase), suite.mid(arobase + 1)};
}

SourceCapture SourceReseau(const QString& texte) {
  const Decoupe decoupe = CoupeAdresse(texte);
  const qsizetype deuxPoints = decoupe.Acces.indexOf(QLatin1Char(':'));
  const QString utilisateur = deuxPoints < 0 ? decoupe.Acces : decoupe.Acces.left(deuxPoints);
  SourceCapture source;
  source.Genre = GenreSource::kReseau;
  source.Lieu = decoupe.Schema.toLower() + decoupe.Reste;
  source.Utilisateur = QUrl::fromPercentEncoding(utilisateur.toUtf8());
  if (deuxPoints >= 0) source.MotDePasse = QUrl::fromPercentEncoding(decoupe.Acces.mid(deuxPoints + 1).toUtf8());
  source.Description = MasqueAdresse(texte);
  return source;
}

SourceCapture SourceHote(const QString& texte) {
  SourceCapture source = SourceReseau(kSansSchema + texte);
  source.Lieu.remove(0, kSansSchema.size());
  source.Description = MasqueAdresse(texte);
  return source;
}

bool EstReseau(const QString& texte) {
  for (const char* schema : kSchemasReseau) {
    if (texte.startsWith(QLatin1String(schema), Qt::CaseInsensitive)) return true;
  }
  return false;
}

// A stable name is a link below /dev or has parts set apart by bars. A name of another kind without folder and suffix
// is more likely a device that the user calls so than a film.
bool RessembleAUnNomStable(const QString& texte) {
  if (texte.contains(QLatin1Char('|'))) return true;
  return !texte.contains(QLatin1Char('/')) && QFileInfo(texte).suffix().isEmpty();
}

}  // namespace

SourceCapture ComprendSource(const QString& texte) {
  if (EstDuBureau(texte))
    return {.Genre = GenreSource::kBureau, .Lieu = texte, .Utilisateur = {}, .MotDePasse = {}, .Description = texte};
  if (EstReseau(texte)) return SourceReseau(texte);
  if (EstHoteSeul(texte) && !QFileInfo::exists(texte)) return SourceHote(texte);
  SourceCapture source;
  source.Lieu = texte;
  source.Description = texte;
  if (texte.compare(QLatin1String("test"), Qt::CaseInsensitive) == 0) {
    source.Genre = GenreSource::kTest;
    source.Lieu.clear();
    source.Description = QStringLiteral("test");
  } else if (texte.startsWith(QLatin1String("file://"), Qt::CaseInsensitive)) {
    source.Genre = GenreSource::kFichier;
    source.Lieu = source.Description = QUrl(texte).toLocalFile();
  } else if (texte.isEmpty() || texte.startsWith(QLatin1String("/dev/"))) {
    source.Genre = GenreSource::kPeripherique;
  } else if (texte.startsWith(QLatin1Char('/')) || QFileInfo(texte).isFile() || !RessembleAUnNomStable(texte)) {
    // A whole path is a file without a look at it: it may lie on a disk that does not answer, and this is asked on the
    // thread of the windows.
    source.Genre = GenreSource::kFichier;
  }
  return source;
}

}  // namespace vaktor
