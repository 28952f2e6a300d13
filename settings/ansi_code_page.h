// SPDX-License-Identifier: GPL-3.0-or-later
// Windows-1252, the one single-byte code page of the program. Source: the table "cp1252" of the Unicode Consortium
// with the five codes that it leaves open (81, 8D, 8F, 90, 9D) standing for the control characters of the same number,
// as Windows itself treats them; so every code has a character.
#pragma once

#include <QChar>
#include <QString>
#include <optional>

namespace vaktor {

/// The code of a character, 0 to 255; nothing for a character that the code page does not know.
std::optional<quint8> CodeAnsi(QChar caractere);

/// The character of a code.
QChar CaractereAnsi(quint8 code);

/// Bytes of this code page as text; never fails.
QString TexteAnsi(QByteArrayView octets);

}  // namespace vaktor
