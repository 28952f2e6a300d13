#include "mime_message.h"

#include <QLocale>
#include <QStringList>

namespace vaktor {
namespace {

constexpr qsizetype kLigneBase64 = 76;

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

// RFC 2047: an encoded word holds whole characters and is at most 75 bytes long; words are parted by CR LF and a blank.
QByteArray CodeEntete(const QString& texte) {
  const QString propre = SurUneLigne(texte);
  if (EstAscii(propre) && propre.size() < 900 && !propre.contains(QStringLiteral("=?"))) return propre.toLatin1();
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
    if (mot.size() + lettre.size() > 45) acheve();
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

// RFC 2231: the name in percent form for readers of today, a plain one beside it for those of yesterday.
QByteArray CodeNom(const QString& nom) {
  const QString propre = SurUneLigne(nom);
  QByteArray simple;
  for (const QChar c : propre) {
    const bool permis = c.unicode() < 0x7f && c != u'"' && c != u'\\';
    simple += permis ? static_cast<char>(c.unicode()) : '_';
  }
  return "filename=\"" + simple + "\";\r\n filename*=UTF-8''" + propre.toUtf8().toPercentEncoding();
}

QByteArray CodeDate(const QDateTime& date) {
  // The names of days and months are English whatever the session speaks.
  return QLocale::c().toString(date, QStringLiteral("ddd, dd MMM yyyy HH:mm:ss ")).toLatin1() + [&] {
    const int decalage = date.offsetFromUtc() / 60;
    return QStringLiteral("%1%2%3")
        .arg(decalage < 0 ? u'-' : u'+')
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

}  // namespace

QStringList SepareAdresses(const QString& champ) {
  QStringList adresses;
  QString avecVirgules = champ;
  avecVirgules.replace(u';', u',');
  for (const QString& morceau : avecVirgules.split(u',', Qt::SkipEmptyParts)) {
    const QString adresse = morceau.trimmed();
    bool permise = !adresse.isEmpty() && adresse.size() <= 320;
    for (const QChar c : adresse)
      permise = permise && c.unicode() > 0x20 && c != u'<' && c != u'>' && c.unicode() != 0x7f;
    if (permise) adresses.append(adresse);
  }
  return adresses;
}

QByteArray ComposeMessage(const Courriel& courriel) {
  const QByteArray domaine =
      courriel.Expediteur.contains(u'@') ? courriel.Expediteur.section(u'@', -1).toUtf8() : QByteArray("localhost");
  // The boundary cannot occur in base64 text: it holds an underscore.
  const QByteArray limite = "_vaktor_" + courriel.Identifiant.toLatin1() + "_";
  QByteArray m;
  m += "Date: " + CodeDate(courriel.Date) + "\r\n";
  m += "From: <" + SurUneLigne(courriel.Expediteur).toUtf8() + ">\r\n";
  QByteArrayList destinataires;
  for (const QString& adresse : courriel.Destinataires) destinataires.append('<' + SurUneLigne(adresse).toUtf8() + '>');
  m += "To: " + destinataires.join(",\r\n ") + "\r\n";
  m += "Subject: " + CodeEntete(courriel.Sujet) + "\r\n";
  m += "Message-ID: <" + courriel.Identifiant.toLatin1() + "@" + domaine + ">\r\n";
  m += "Auto-Submitted: auto-generated\r\nMIME-Version: 1.0\r\n";
  m += "Content-Type: multipart/mixed;\r\n boundary=\"" + limite + "\"\r\n\r\n";
  m += "--" + limite + "\r\nContent-Type: text/plain; charset=UTF-8\r\nContent-Transfer-Encoding: base64\r\n\r\n";
  m += CodeBase64(NormaliseLignes(courriel.Corps)) + "\r\n";
  for (const PieceJointe& piece : courriel.Pieces) m += "--" + limite + "\r\n" + ComposePiece(piece) + "\r\n";
  m += "--" + limite + "--\r\n";
  return m;
}

}  // namespace vaktor
