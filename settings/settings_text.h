// SPDX-License-Identifier: GPL-3.0-or-later
// The text of the settings file: sections in brackets, one "key=value" a line, UTF-8. What is written here is a subset
// of the INI format of Qt (QSettings::IniFormat), so that a companion may read it with that; what is read is wider,
// because people edit such files and disks damage them.
//
// Written: every value in double quotes with the escapes \\ \" \n \r \t and \x followed by hexadecimal digits for other
// control characters (a digit right behind one is escaped as well); a "@" in front is doubled; the section "general"
// is written as [%general], because a plain [general] means "no section" in that format.
//
// Read: [general] in any case and with or without "%"; values without quotes, blanks around them dropped; a backslash
// that starts no escape stands for itself; a quote that is never closed ends with its line; commas and semicolons in a
// value are nothing special; lines starting with ";" or "#" are comments; the last of several equal keys holds; bytes
// that are no UTF-8 are read as Windows-1252. A name holds no "/", no bracket and no control character. A line that
// makes no sense is counted and skipped, and so are the values behind a section line that makes none: nobody knows
// whose they are.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace vaktor {

using ValeursReglages = QMap<QString, QString>;  ///< "section/key" to value

struct TexteReglages {
  ValeursReglages Valeurs;
  qint64 LignesIllisibles = 0;
  QStringList Coupees = {};  ///< "section/key" of the values whose quote is never closed
};

/// Never fails, whatever the bytes are.
TexteReglages LitTexteReglages(QByteArrayView octets);

/// Every map whose keys came out of LitTexteReglages, and every map of the program's own keys with any values, is read
/// back equal by LitTexteReglages.
QByteArray EcritTexteReglages(const ValeursReglages& valeurs);

}  // namespace vaktor
