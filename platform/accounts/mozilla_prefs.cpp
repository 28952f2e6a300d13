// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/accounts/mozilla_prefs.h"

#include <QChar>
#include <QString>
#include <algorithm>
#include <limits>
#include <optional>

#include "platform/accounts/foreign_file.h"

namespace vaktor {
namespace {

constexpr QByteArrayView kMot = "user_pref";

bool EstChiffre(char c) { return c >= '0' && c <= '9'; }
bool EstDansUnMot(char c) { return EstChiffre(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool EstBlanc(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }

int ValeurHexa(char c) {
  if (EstChiffre(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Each byte is looked at once, forwards; nothing is read twice after an error either.
class AnalyseurPrefs {
 public:
  AnalyseurPrefs(QByteArrayView octets, QByteArrayView prefixe) : Octets_(octets), Prefixe_(prefixe) {}

  Prefs Analyse() {
    for (SauteBlancs(); Place_ < Octets_.size(); SauteBlancs()) {
      // A line that breaks off is noticed at the next one only, which must not go with it.
      if (!LitLigne() && !Octets_.sliced(Place_).startsWith(kMot)) SauteLigne();
    }
    return std::move(Prefs_);
  }

 private:
  char Courant() const { return Place_ < Octets_.size() ? Octets_[Place_] : '\0'; }
  char Suivant() const { return Place_ + 1 < Octets_.size() ? Octets_[Place_ + 1] : '\0'; }
  bool Passe(char c) {
    SauteBlancs();
    if (Courant() != c) return false;
    ++Place_;
    return true;
  }

  // Forwards to the first byte that `arrete` says yes to, or to the end. With bare pointers: the megabytes of a file go
  // through here.
  template <typename Arrete>
  void AvanceJusqua(Arrete arrete) {
    const char* const fin = Octets_.data() + Octets_.size();
    const char* place = Octets_.data() + Place_;
    while (place != fin && !arrete(*place)) ++place;
    Place_ = place - Octets_.data();
  }

  void SauteLigne() {
    AvanceJusqua([](char c) { return c == '\n' || c == '\r'; });
  }

  // A comment that nobody ends reaches to the end of the file, as it does for Mozilla's own parser.
  void SauteBlancs() {
    for (;;) {
      AvanceJusqua([](char c) { return !EstBlanc(c); });
      if (Courant() == '#' || (Courant() == '/' && Suivant() == '/')) {
        SauteLigne();
      } else if (Courant() == '/' && Suivant() == '*') {
        const qsizetype fin = Octets_.indexOf("*/", Place_ + 2);
        Place_ = fin < 0 ? Octets_.size() : fin + 2;
      } else {
        return;
      }
    }
  }

  QByteArrayView LitMot() {
    const qsizetype debut = Place_;
    AvanceJusqua([](char c) { return !EstDansUnMot(c); });
    return Octets_.sliced(debut, Place_ - debut);
  }

  bool LitLigne() {
    if (LitMot() != kMot || !Passe('(')) return false;
    SauteBlancs();
    const std::optional<QByteArray> nom = LitTexte(kNomPrefMax);
    if (!nom || nom->isEmpty() || !Passe(',')) return false;
    SauteBlancs();
    const std::optional<ValeurPref> valeur = LitValeur();
    if (!valeur || !Passe(')') || !Passe(';')) return false;
    if (nom->startsWith(Prefixe_) && (Prefs_.Valeurs.size() < kPrefsMax || Prefs_.Valeurs.contains(*nom))) {
      Prefs_.Valeurs.insert(*nom, *valeur);
    }
    return true;
  }

  std::optional<ValeurPref> LitValeur() {
    const char c = Courant();
    if (c == '"' || c == '\'') {
      std::optional<QByteArray> texte = LitTexte(kTextePrefMax);
      if (!texte) return {};
      return *std::move(texte);
    }
    if (c == '+' || c == '-' || EstChiffre(c)) return LitNombre();
    const qsizetype debut = Place_;
    const QByteArrayView mot = LitMot();
    if (mot == "true") return true;
    if (mot == "false") return false;
    Place_ = debut;
    return {};
  }

  std::optional<ValeurPref> LitNombre() {
    const bool negatif = Courant() == '-';
    if (!EstChiffre(Courant())) ++Place_;
    const QByteArrayView mot = LitMot();
    if (mot.isEmpty()) return {};
    qint64 nombre = 0;
    for (const char c : mot) {
      if (!EstChiffre(c)) return {};
      nombre = nombre * 10 + (c - '0');
      if (nombre > std::numeric_limits<qint32>::max() + qint64{negatif}) return {};
    }
    return static_cast<qint32>(negatif ? -nombre : nombre);
  }

  // A bare line break ends a text with an error, unlike in Mozilla's parser: their writer always writes it as "\n", and
  // so a quotation mark that is missing costs one line and not the file.
  std::optional<QByteArray> LitTexte(qsizetype longueurMax) {
    const char guillemet = Courant();
    if (guillemet != '"' && guillemet != '\'') return {};
    ++Place_;
    QByteArray texte;
    for (;;) {
      const qsizetype debut = Place_;
      AvanceJusqua([guillemet](char c) { return c == guillemet || ArreteTexte(c); });
      if (Place_ - debut > longueurMax) return {};
      // Piece by piece: what an escape has given is UTF-8 already, whatever the bytes around it are.
      texte += RendUtf8(Octets_.sliced(debut, Place_ - debut));
      if (texte.size() > longueurMax) return {};
      if (Courant() == guillemet) {
        ++Place_;
        return texte;
      }
      if (Courant() != '\\' || !LitEchappement(texte)) return {};
    }
  }

  static bool ArreteTexte(char c) { return c == '\\' || c == '\n' || c == '\r' || c == '\0'; }

  bool LitEchappement(QByteArray& texte) {
    const char c = Suivant();
    Place_ = std::min(Place_ + 2, Octets_.size());
    switch (c) {
      case '"':
      case '\'':
      case '\\':
        texte += c;
        return true;
      case 'n':
        texte += '\n';
        return true;
      case 'r':
        texte += '\r';
        return true;
      case 'x':
        return AjouteCaractere(LitHexa(2), texte);
      case 'u':
        return AjouteCaractere(LitHexa(4), texte);
      default:
        --Place_;  // it may be the line break at which the next reading begins
        return false;
    }
  }

  // -1 without that many digits.
  int LitHexa(int chiffres) {
    int valeur = 0;
    for (int i = 0; i < chiffres; ++i) {
      const int chiffre = ValeurHexa(Courant());
      if (chiffre < 0) return -1;
      valeur = valeur * 16 + chiffre;
      ++Place_;
    }
    return valeur;
  }

  // A half of a pair is an error without its other half, and so is NUL, of which no text can hold one.
  bool AjouteCaractere(int code, QByteArray& texte) {
    if (code <= 0) return false;
    const auto unite = static_cast<char16_t>(code);
    if (!QChar::isSurrogate(unite)) {
      texte += QString(QChar(unite)).toUtf8();
      return true;
    }
    if (!QChar::isHighSurrogate(unite) || Courant() != '\\' || Suivant() != 'u') return false;
    Place_ += 2;
    const int autre = LitHexa(4);
    if (autre < 0 || !QChar::isLowSurrogate(static_cast<char16_t>(autre))) return false;
    texte += QString::fromUcs4(std::u32string(1, QChar::surrogateToUcs4(unite, static_cast<char16_t>(autre))).data(), 1)
                 .toUtf8();
    return true;
  }

  QByteArrayView Octets_;
  QByteArrayView Prefixe_;
  qsizetype Place_ = 0;
  Prefs Prefs_;
};

}  // namespace

QByteArray Prefs::Texte(const QByteArray& nom) const {
  const auto place = Valeurs.constFind(nom);
  if (place == Valeurs.cend()) return {};
  const auto* texte = std::get_if<QByteArray>(&*place);
  return texte == nullptr ? QByteArray() : *texte;
}

qint64 Prefs::Nombre(const QByteArray& nom, qint64 sans) const {
  const auto place = Valeurs.constFind(nom);
  if (place == Valeurs.cend()) return sans;
  const auto* nombre = std::get_if<qint32>(&*place);
  return nombre == nullptr ? sans : *nombre;
}

Prefs LitPrefs(QByteArrayView octets, QByteArrayView prefixe) { return AnalyseurPrefs(octets, prefixe).Analyse(); }

}  // namespace vaktor
