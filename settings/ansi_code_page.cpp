// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/ansi_code_page.h"

#include <algorithm>
#include <array>

namespace vaktor {
namespace {

// Codes 80 to 9F. All others are the characters of their own number.
constexpr std::array<char16_t, 32> kBlocHaut = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr quint8 kDebutBloc = 0x80;
constexpr quint8 kFinBloc = 0x9F;

}  // namespace

std::optional<quint8> CodeAnsi(QChar caractere) {
  const char16_t unite = caractere.unicode();
  if (unite < kDebutBloc || (unite > kFinBloc && unite <= 0xFF)) return static_cast<quint8>(unite);
  const auto place = std::ranges::find(kBlocHaut, unite);
  if (place == kBlocHaut.end()) return std::nullopt;
  return static_cast<quint8>(kDebutBloc + (place - kBlocHaut.begin()));
}

QChar CaractereAnsi(quint8 code) {
  if (code < kDebutBloc || code > kFinBloc) return QChar(code);
  return QChar(kBlocHaut[static_cast<std::size_t>(code - kDebutBloc)]);
}

QString TexteAnsi(QByteArrayView octets) {
  QString texte;
  texte.reserve(octets.size());
  for (const char octet : octets) texte += CaractereAnsi(static_cast<quint8>(octet));
  return texte;
}

}  // namespace vaktor
