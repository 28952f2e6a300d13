// SPDX-License-Identifier: GPL-3.0-or-later
#include "mime_message.h"
#include "base/photo_format.h"

#include <QLocale>
#include <QStringList>

namespace vaktor {
namespace {

constexpr qsizetype kLigneBase64 = 76;
constexpr qsizetype kSujetSimple = 66;       // characters beside "Subject: " in a line of 78
constexpr qsizetype kOctetsMot = 45;         // 60 characters of base64
constexpr qsizetype kOctetsPremierMot = 36;  // beside the name of the field

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
  return QByteArray("Content-Type: ") + kTypePhoto +
         "\r\nContent-Transfer-Encoding: base64\r\nContent-Disposition: attachment;\r\n " + CodeNom(piece.Nom) +
         "\r\n\r\n" + CodeBase64(piece.Contenu);
}

QByteArray ComposeExpediteur(const QString& expediteur) {
  return "From: <" + SurUneLigne(expediteur).toUtf8() + ">\r\n";
}

QByteArray ComposeTexte(const QByteArray& texte) {
  return "\r\nContent-Type: text/plain; charset=UTF-8\r\nContent-Transfer-Encoding: base64\r\n\r\n" +
         CodeBase64(texte) + "\r\n";
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
  if (!courriel.Expediteur.isEmpty()) m += ComposeExpediteur(courriel.Expediteur);
  QByteArrayList destinataires;
  for (const QString& adresse : courriel.Destinataires) destinataires.append('<' + SurUneLigne(adresse).toUtf8() + '>');
  m += "To: " + destinataires.join(",\r\n ") + "\r\n";
  m += "Subject: " + CodeEntete(courriel.Sujet) + "\r\n";
  m += "Message-ID: <" + courriel.Identifiant.toLatin1() + "@" + DonneDomaine(courriel.Expediteur) + ">\r\n";
  m += "Auto-Submitted: auto-generated\r\nMIME-Version: 1.0\r\n";  // RFC 3834: no holiday notes in answer
  return m + "Content-Type: multipart/mixed;\r\n boundary=\"" + limite + "\"\r\n\r\n";
}

}  // namespace

QByteArray ComposeMessage(const Courriel& courriel) {
  // The boundary cannot occur in base64 text: it holds an underscore.
  const QByteArray limite = "_vaktor_" + courriel.Identifiant.toLatin1() + "_";
  const QByteArray trait = "--" + limite;
  QByteArrayList morceaux;
  morceaux << ComposeEntete(courriel, limite) << trait + ComposeTexte(NormaliseLignes(courriel.Corps));
  for (const PieceJointe& piece : courriel.Pieces) morceaux << trait + "\r\n" + ComposePiece(piece) + "\r\n";
  morceaux << trait + "--\r\n";
  return morceaux.join();
}

QByteArray RetirePieces(const QByteArray& message, const QString& mots) {
  const qsizetype finEntete = message.indexOf("\r\n\r\n");
  const qsizetype debut = message.indexOf("boundary=\"") + 10;
  const qsizetype fin = message.indexOf('"', debut);
  if (finEntete < 0 || debut < 10 || fin < 0 || fin > finEntete) return {};
  const QByteArray trait = "--" + message.mid(debut, fin - debut);
  // The text is the first part, base64 to the next boundary.
  const qsizetype texte = message.indexOf("\r\n\r\n", finEntete + 4) + 4;
  const qsizetype suite = message.indexOf("\r\n" + trait, texte);
  if (texte < 4 || suite < 0 || message.mid(suite + 2 + trait.size(), 2) == "--") return {};
  const QByteArray corps = QByteArray::fromBase64(message.mid(texte, suite - texte));
  return message.left(finEntete + 4) + trait + ComposeTexte(corps + "\r\n\r\n" + NormaliseLignes(mots)) + trait +
         "--\r\n";
}

QByteArray MetExpediteur(const QByteArray& message, const QString& expediteur) {
  if (expediteur.isEmpty()) return message;
  QByteArray resultat = message;
  const qsizetype champ = message.left(message.indexOf("\r\n\r\n")).indexOf("\r\nFrom: ") + 2;
  const qsizetype fin = message.indexOf("\r\n", champ) + 2;
  if (champ < 2 || fin < champ) return resultat.prepend(ComposeExpediteur(expediteur));
  return resultat.replace(champ, fin - champ, ComposeExpediteur(expediteur));
}

}  // namespace vaktor
