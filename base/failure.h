// SPDX-License-Identifier: GPL-3.0-or-later
// A failure in a rule: a number and a description, raised as an exception and caught by one guard far above.
#pragma once

#include <QString>
#include <exception>

namespace vaktor {

/// Numbers of the failures that rules raise. They are part of messages and tests, so they never change.
enum NumeroEchec : qint32 {
  kAppelIncorrect = 5,       ///< an operation could not be carried out (JPEG writer)
  kDepassement = 6,          ///< 32-bit arithmetic overflowed
  kIndiceHorsPlage = 9,      ///< an index lies outside its table or list
  kTypeIncompatible = 13,    ///< a text is no number
  kFichierIntrouvable = 53,  ///< a file, folder or program is not there
  kAccesFichier = 75         ///< a file or folder is there but cannot be read or written
};

/// Thrown by rules. The surveillance tick swallows it; elsewhere the guard of the event loop shows the description.
class Echec : public std::exception {
 public:
  Echec(qint32 numero, const QString& description);

  qint32 Numero() const { return Numero_; }
  /// One sentence for a person, without the number.
  const QString& Description() const { return Description_; }
  const char* what() const noexcept override;

 private:
  qint32 Numero_;
  QString Description_;
  QByteArray Texte8_;  // what() hands out a pointer into it
};

/// For an object that is given what it works with only after it was made, and was not: throws Echec(kAppelIncorrect).
/// Such a one is asked for at the start of the program, which then ends with this, and not found out by nobody.
[[noreturn]] void LanceNonRelie(const char* qui);

}  // namespace vaktor
