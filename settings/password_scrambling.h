// SPDX-License-Identifier: GPL-3.0-or-later
// Scrambling of passwords on their way to the store and back: a positional shift without a key, three decimal digits
// for each character. It keeps a password from being read over a shoulder, no more; the store is readable by its owner
// only. The companions that use a password apply DecryptePass to the stored text.
#pragma once

#include <QString>

namespace vaktor {

/// The stored form. The character at position i (from 1) with code c in Windows-1252 becomes c + i, less 255 when that
/// is above 255, as decimal text of at least three digits. The empty text stays empty. Never fails.
///
/// A password with a character that has no code in Windows-1252 cannot take this form. It is handed back as it stands
/// and so stored in clear: DecryptePass cannot decode it, because such a character never makes a number, and returns
/// it unchanged. It works everywhere, at the price of lying readable in a file that only its owner can open; the other
/// choice would be to replace characters silently or to forget the password.
///
/// Which passwords come back from DecryptePass(CryptePass(p)):
/// - every p with a character without code;
/// - every p of coded characters with code + position <= 255 throughout: all of ASCII up to 128 characters.
/// Not the others: where c + i wrapped around, the stored digits come back instead of the password, or, if only code
/// 255 wrapped (any position up to 999), a NUL stands in its place. Companions of every age read the format so.
QString CryptePass(const QString& motDePasse);

/// The password of a stored form. Each group of three characters from the left (the last may be shorter) is read as a
/// number, less its position; a negative x becomes 510 - x; the character with code x is appended. Where a group is
/// no number or x lies outside 0 to 255, the whole input comes back as it stands: so a password that was stored in
/// clear comes through, provided that it does not decode by chance. Never fails.
QString DecryptePass(const QString& stocke);

}  // namespace vaktor
