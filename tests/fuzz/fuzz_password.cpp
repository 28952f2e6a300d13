// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as a stored password, and any text as a password that is stored.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "settings/ansi_code_page.h"
#include "settings/password_scrambling.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

// Either the text itself, or one character of the code page for each group of three.
void EssaieStocke(const QString& stocke) {
  const QString motDePasse = DecryptePass(stocke);
  if (motDePasse == stocke) return;
  Exige(motDePasse.size() == (stocke.size() + 2) / 3);
  Exige(std::ranges::all_of(motDePasse, [](QChar c) { return CodeAnsi(c).has_value(); }));
}

void EssaieMotDePasse(const QString& motDePasse) {
  bool codable = true;
  bool enroule = false;
  for (qsizetype i = 0; i < motDePasse.size(); ++i) {
    const std::optional<quint8> code = CodeAnsi(motDePasse[i]);
    codable = codable && code.has_value();
    enroule = enroule || (code && *code + i + 1 > 255);
  }
  const QString stocke = CryptePass(motDePasse);
  const QString retour = DecryptePass(stocke);
  if (!codable || !enroule) Exige(retour == motDePasse);
  if (!codable) Exige(stocke == motDePasse);
  if (codable) Exige(std::ranges::all_of(stocke, [](QChar c) { return c >= u'0' && c <= u'9'; }));
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const QByteArrayView octets(donnees, static_cast<qsizetype>(taille));
  for (const QString& texte : {QString::fromUtf8(octets), vaktor::TexteAnsi(octets)}) {
    vaktor::EssaieStocke(texte);
    vaktor::EssaieMotDePasse(texte);
  }
  return 0;
}
