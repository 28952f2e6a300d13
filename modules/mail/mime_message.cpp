// SPDX-License-Identifier: GPL-3.0-or-later
#include "mime_message.h"

#include <QLocale>
#include <QStringList>

namespace vaktor {
namespace {

constexpr qsizetype kLigneBase64 = 76;
constexpr qsizetype kSujetSimple = 66;       // characters beside "Subject: " in a line of 78
constexpr qsizetype kOctetsMot = 45;         // 60 characters of base64
constexpr qsizetype kOctetsPremierMot = 36;  // beside the name of the field
constexpr qsizetype kAdresseMax = 320;       // RFC 5321: 64 and 255, with the sign between

// One line: whatever would end a header field becomes a blank.
QString SurUneLigne(QString texte) {
  for (QChar& c : texte) {
    if (c.unicode() < 0x20 || c.unicode() == 0x7f || c.unicode() == 0x2028 || c.unicode() == 0x2029) c = u' ';
  }
  return texte;
}

bool EstAscii(const QString& texte) {
  for (const QChar c : texte) {
    if (c.unicode() > 0x7e) return false;
  }
  return true;
}

// RFC 2047: an encoded word holds whole characters and is at most 75 bytes long, a line with one 76; words are parted
// by CR LF and a blank.
QByteArray CodeEntete(const QString& texte) {
  const QString propre = SurUneLigne(texte);
  if (EstAscii(propre) && propre.size() <= kSujetSimple && !propre.contains(QStringLiteral("=?")))
    return propre.toLatin1();
  QByteArray resultat;
  QByteArray mot;
  const auto acheve = [&] {
    if (!resultat.isEmpty()) resultat += "\r\n ";
    resultat += "=?UTF-8?B?" + mot.toBase64() + "?=";
    mot.clear();
  };
  for (qsizetype i = 0; i < propre.size();) {
    const qsizetype pas = propre.at(i).isHighSurrogate() && i + 1 < propre.size() ? 2 : 1;
    const QByteArray lettre = QStringView(propre).mid(i, pas).toUtf8();
    if (mot.size() + lettre.size() > (resultat.isEmpty() ? kOctetsPremierMot : kOctetsMot)) acheve();
    mot += lettre;
    i += pas;
  }
  if (!mot.isEmpty() || resultat.isEmpty()) acheve();
  return resultat;
}

QByteArray CodeBase64(const QByteArray& octets) {
  const QByteArray code = octets.toBase64();
  QByteArray resultat;
  resultat.reserve(code.size() + code.size() / kLigneBase64 * 2 + 2);
  for (qsizetype i = 0; i < code.size(); i += kLigneBase64) {
    resultat += code.mid(i, kLigneBase64);
    resultat += "\r\n";
  }
  return resultat;
}

// A plain name where it is one, for readers of every age; else the percent form of RFC 2231 with a plain one beside it.
QByteArray CodeNom(const QString& nom) {
  const QString propre = SurUneLigne(nom);
  QByteArray simple;
  for (const QChar c : propre) {
    const bool permis = c.unicode() < 0x7f && c != u'"' && c != u'\\';
    simple += permis ? static_cast<char>(c.unicode()) : '_';
  }
  QByteArray parametre = "filename=\"" + simple + '"';
  if (simple == propre.toUtf8()) return parametre;
  return parametre + ";\r\n filename*=UTF-8''" + propre.toUtf8().toPercentEncoding();
}

QByteArray CodeDate(const QDateTime& date) {
  // The names of days and months are English whatever the session speaks.
  return QLocale::c().toString(date, QStringLiteral("ddd, dd MMM yyyy HH:mm:ss ")).toLatin1() + [&] {
    const int decalage = date.offsetFromUtc() / 60;
    return QStringLiteral("%1%2%3")
        .arg(QLatin1Char(decalage < 0 ? '-' : '+'))
        .arg(qAbs(decalage) / 60, 2, 10, QLatin1Char('0'))
        .arg(qAbs(decalage) % 60, 2, 10, QLatin1Char('0'))
        .toLatin1();
  }();
}

QByteArray NormaliseLignes(const QString& texte) {
  QString lignes = texte;
  lignes.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
  lignes.replace(u'\n', QStringLiteral("\r\n"));
  return lignes.toUtf8();
}

QByteArray ComposePiece(const PieceJointe& piece) {
  return "Content-Type: image/jpeg\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment;\r\n " +
         CodeNom(piece.Nom) + "\r\n\r\n" + CodeBase64(piece.Contenu);
}

// "Anna <anna@exemple.fr>" is what mail programs show; the address is what stands between the signs.
// A line break in front of it is no part of any name, and what comes with one is not to be trusted.
QString AdresseSeule(const QString& morceau) {
  if (SurUneLigne(morceau) != morceau) return {};
  const qsizetype ouvre = morceau.indexOf(u'<');
  return ouvre >= 0 && morceau.endsWith(u'>') ? morceau.mid(ouvre + 1).chopped(1).trimmed() : morceau;
}

bool EstAdresse(const QString& adresse) {
  // The first sign: what the system's mail program would take for an option, a file or a command.
  if (adresse.isEmpty() || adresse.size() > kAdresseMax || QStringLiteral("-/|:").contains(adresse.front()))
    return false;
  for (const QChar c : adresse) {
    const char16_t code = c.unicode();
    const bool controle = code <= 0x20 || (code >= 0x7f && code <= 0xa0) || code == 0x2028 || code == 0x2029;
    if (controle || c == u'<' || c == u'>') return false;
  }
  return true;
}

QByteArray DonneDomaine(const QString& adresse) {
  const QString domaine = adresse.contains(u'@') ? adresse.section(u'@', -1) : QString();
  for (const QChar c : domaine)
    if (!(c.unicode() < 0x7f && (c.isLetterOrNumber() || c == u'.' || c == u'-'))) return "vaktor.invalid";
  return domaine.isEmpty() ? QByteArray("vaktor.invalid") : domaine.toLatin1();
}

QByteArray ComposeEntete(const Courriel& courriel, const QByteArray& limite) {
  QByteArray m = "Date: " + CodeDate(courriel.Date) + "\r\n";
  // Without a sender the system's mail program puts the user's own address here.
  if (!courriel.Expediteur.isEmpty()) m += "From: <" + SurUneLigne(courriel.Expediteur).toUtf8() + ">\r\n";
  QByteArrayList destinataires;
  for (const QString& adresse : courriel.Destinataires) destinataires.append('<' + SurUneLigne(adresse).toUtf8() + '>');
  m += "To: " + destinataires.join(",\r\n ") + "\r\n";
  m += "Subject: " + CodeEntete(courriel.Sujet) + "\r\n";
  m += "Message-ID: <" + courriel.Identifiant.toLatin1() + "@" + DonneDomaine(courriel.Expediteur) + ">\r\n";
  m += "Auto-Submitted: auto-generated\r\nMIME-Version: 1.0\r\n";  // RFC 3834: no holiday notes in answer
  return m + "Content-Type: multipart/mixed;\r\n boundary=\"" + limite + "\"\r\n\r\n";
}

}  // namespace

QStringList SepareAdresses(const QString& champ) {
  QStringList adresses;
  QString avecVirgules = champ;
  avecVirgules.replace(u';', u',');
  for (const QString& morceau : avecVirgules.split(u',', Qt::SkipEmptyParts)) {
    const QString adresse = AdresseSeule(morceau.trimmed());
    if (EstAdresse(adresse) && !adresses.contains(adresse)) adresses.append(adresse);
  }
  return adresses;
}

QByteArray ComposeMessage(const Courriel& courriel) {
  // The boundary cannot occur in base64 text: it holds an underscore.
  const QByteArray limite = "_vaktor_" + courriel.Identifiant.toLatin1() + "_";
  const QByteArray trait = "--" + limite;
  QByteArrayList morceaux;
  morceaux << ComposeEntete(courriel, limite)
           << trait + "\r\nContent-Type: text/plain; charset=UTF-8\r\nContent-Transfer-Encoding: base64\r\n\r\n"
           << CodeBase64(NormaliseLignes(courriel.Corps)) + "\r\n";
  for (const PieceJointe& piece : courriel.Pieces) morceaux << trait + "\r\n" + ComposePiece(piece) + "\r\n";
  morceaux << trait + "--\r\n";
  return morceaux.join();
}

}  // namespace vaktor
