// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/settings_text.h"

#include <QStringConverter>
#include <QStringView>
#include <algorithm>
#include <optional>

#include "settings/ansi_code_page.h"

namespace vaktor {
namespace {

constexpr qsizetype kChiffresMax = 4;  // hexadecimal digits of an escape: one 16-bit character

bool EstBlanc(QChar c) { return c == u' ' || c == u'\t' || c == u'\r'; }

int ValeurHexa(QChar c) {
  const char16_t u = c.unicode();
  if (u >= u'0' && u <= u'9') return u - u'0';
  if (u >= u'a' && u <= u'f') return u - u'a' + 10;
  if (u >= u'A' && u <= u'F') return u - u'A' + 10;
  return -1;
}

QStringView Elague(QStringView texte) {
  while (!texte.isEmpty() && EstBlanc(texte.front())) texte = texte.mid(1);
  while (!texte.isEmpty() && EstBlanc(texte.back())) texte.chop(1);
  return texte;
}

QString DecodeLigne(QByteArrayView octets) {
  QStringDecoder decodeur(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString texte = decodeur.decode(octets);
  return decodeur.hasError() ? TexteAnsi(octets) : texte;
}

// The character of the escape that starts behind the backslash at `i`, with `i` moved onto its last character; nothing
// when there is none, and then the backslash stands for itself, as in a path that somebody typed.
std::optional<QChar> LitEchappement(QStringView texte, qsizetype& i) {
  if (i + 1 >= texte.size()) return std::nullopt;
  const QChar lettre = texte[i + 1];
  if (lettre == u'x') {
    uint code = 0;
    qsizetype n = 0;
    while (n < kChiffresMax && i + 2 + n < texte.size() && ValeurHexa(texte[i + 2 + n]) >= 0) {
      code = code * 16 + static_cast<uint>(ValeurHexa(texte[i + 2 + n]));
      ++n;
    }
    if (n == 0) return std::nullopt;
    i += 1 + n;
    return QChar(static_cast<char16_t>(code));
  }
  static constexpr QStringView kLettres = u"\\\"nrt0";
  static constexpr QStringView kCaracteres{u"\\\"\n\r\t\0", 6};
  const qsizetype place = kLettres.indexOf(lettre);
  if (place < 0) return std::nullopt;
  ++i;
  return kCaracteres[place];
}

// `coupee`: a quote was open at the end, which is what a line that was cut short looks like.
QString LitValeurEcrite(QStringView texte, bool& coupee) {
  QString valeur;
  valeur.reserve(texte.size());
  bool entreGuillemets = false;
  qsizetype garde = 0;  // length without the blanks that trail outside quotes
  for (qsizetype i = 0; i < texte.size(); ++i) {
    const QChar c = texte[i];
    if (c == u'"') {
      entreGuillemets = !entreGuillemets;
      garde = valeur.size();
      continue;
    }
    if (const std::optional<QChar> echappe = c == u'\\' ? LitEchappement(texte, i) : std::nullopt) {
      valeur += *echappe;
      garde = valeur.size();
      continue;
    }
    valeur += c;
    if (entreGuillemets || !EstBlanc(c)) garde = valeur.size();
  }
  coupee = entreGuillemets;
  valeur.truncate(garde);
  if (valeur.startsWith(QStringLiteral("@@"))) valeur.remove(0, 1);
  return valeur;
}

// A section or a key that can be written again as it was read. Ours always can; a name of others that could not is
// treated as damage, or it would turn into something else with the next save.
bool EstNom(QStringView nom) {
  if (nom.isEmpty()) return false;
  return std::ranges::all_of(nom, [](QChar c) {
    static constexpr QStringView kInterdits = u"/[]\uFEFF";
    const char16_t u = c.unicode();
    const bool controle = u < 0x20 || (u >= 0x7F && u < 0xA0);
    return !controle && !kInterdits.contains(c);
  });
}

// The name between the brackets; empty for a line that is no section.
QString LitSection(QStringView ligne) {
  if (!ligne.endsWith(u']')) return {};
  const QStringView nom = Elague(ligne.mid(1, ligne.size() - 2));
  const QStringView nu = nom.startsWith(u'%') ? nom.mid(1) : nom;
  if (nu.compare(u"general", Qt::CaseInsensitive) == 0) return QStringLiteral("general");
  return EstNom(nom) ? nom.toString() : QString();
}

void LitLigne(QStringView ligne, QString& section, TexteReglages& lu) {
  if (ligne.isEmpty() || ligne.startsWith(u';') || ligne.startsWith(u'#')) return;
  if (ligne.startsWith(u'[')) {
    section = LitSection(ligne);
    if (section.isEmpty()) ++lu.LignesIllisibles;
    return;
  }
  const qsizetype egal = ligne.indexOf(u'=');
  const QStringView cle = egal < 0 ? QStringView() : Elague(ligne.left(egal));
  if (!EstNom(cle) || section.isEmpty()) {
    ++lu.LignesIllisibles;
    return;
  }
  const QString chemin = section + u'/' + cle.toString();
  bool coupee = false;
  lu.Valeurs.insert(chemin, LitValeurEcrite(Elague(ligne.mid(egal + 1)), coupee));
  if (coupee) lu.Coupees.append(chemin);
}

bool DoitEchapper(QStringView texte, qsizetype i) {
  const QChar c = texte[i];
  const char16_t u = c.unicode();
  if (u < 0x20 || (u >= 0x7F && u < 0xA0)) return true;
  // Half a surrogate pair has no UTF-8 of its own.
  if (c.isHighSurrogate()) return i + 1 == texte.size() || !texte[i + 1].isLowSurrogate();
  if (c.isLowSurrogate()) return i == 0 || !texte[i - 1].isHighSurrogate();
  return false;
}

QString EcritValeur(const QString& valeur) {
  QString texte = valeur.startsWith(u'@') ? QStringLiteral("\"@") : QStringLiteral("\"");
  bool chiffreInterdit = false;  // a hexadecimal digit here would be read as part of the escape before it
  for (qsizetype i = 0; i < valeur.size(); ++i) {
    const QChar c = valeur[i];
    const bool hexa = DoitEchapper(valeur, i) || (chiffreInterdit && ValeurHexa(c) >= 0);
    chiffreInterdit = false;
    if (c == u'\n') {
      texte += QStringLiteral("\\n");
    } else if (c == u'\r') {
      texte += QStringLiteral("\\r");
    } else if (c == u'\t') {
      texte += QStringLiteral("\\t");
    } else if (c == u'"' || c == u'\\') {
      texte += u'\\';
      texte += c;
    } else if (hexa) {
      texte += QStringLiteral("\\x") + QString::number(c.unicode(), 16);
      chiffreInterdit = true;
    } else {
      texte += c;
    }
  }
  return texte + u'"';
}

}  // namespace

TexteReglages LitTexteReglages(QByteArrayView octets) {
  static constexpr QByteArrayView kMarque("\xEF\xBB\xBF");
  if (octets.startsWith(kMarque)) octets = octets.sliced(kMarque.size());
  TexteReglages lu;
  QString section;
  while (!octets.isEmpty()) {
    const qsizetype fin = octets.indexOf('\n');
    const QByteArrayView ligne = fin < 0 ? octets : octets.first(fin);
    octets = fin < 0 ? QByteArrayView() : octets.sliced(fin + 1);
    const QString texte = DecodeLigne(ligne);
    LitLigne(Elague(texte), section, lu);
  }
  return lu;
}

QByteArray EcritTexteReglages(const ValeursReglages& valeurs) {
  QString texte;
  QString sectionOuverte;
  for (auto it = valeurs.begin(); it != valeurs.end(); ++it) {
    const qsizetype barre = it.key().indexOf(u'/');
    const QString section = it.key().left(barre);
    if (section != sectionOuverte) {
      if (!texte.isEmpty()) texte += u'\n';
      texte +=
          u'[' + (section == QStringLiteral("general") ? QStringLiteral("%general") : section) + QStringLiteral("]\n");
      sectionOuverte = section;
    }
    texte += it.key().mid(barre + 1) + u'=' + EcritValeur(it.value()) + u'\n';
  }
  return texte.toUtf8();
}

}  // namespace vaktor
