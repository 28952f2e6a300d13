// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the one persistent store of text values, addressed by section and key. The application is always "VAKTOR".
#pragma once

#include <QString>
#include <QStringList>

namespace vaktor {

/// What of a store made no sense when it was opened. Never values: one may be a password.
struct AbimesMagasin {
  qint64 Lignes = 0;         ///< that hold no key of any section
  QStringList Coupees = {};  ///< "section/key" of values that lack their end
  bool Intact() const { return Lignes == 0 && Coupees.isEmpty(); }
};

/// User-interface thread. Real implementation in platform/, recording fake in tests/fakes/.
class MagasinReglages {
 public:
  virtual ~MagasinReglages() = default;
  /// The stored text, or `defaut` when the key is missing; a missing key is not created.
  virtual QString LitReglage(const QString& section, const QString& cle, const QString& defaut) const = 0;
  /// Sets one value. It reaches the other processes with the next Vide() at the latest.
  virtual void EcritReglage(const QString& section, const QString& cle, const QString& valeur) = 0;
  /// What was written of this key and has not reached the disk, because a Vide() failed, is taken back: it goes out
  /// with no later one, and the value is again that of the disk.
  virtual void Reprend(const QString& section, const QString& cle) = 0;
  /// Puts everything written so far on disk, whole and at once: after it returns other processes see it, and a crash
  /// at any moment leaves the whole old or the whole new table. Throws Echec when that is not possible.
  virtual void Vide() = 0;
  /// Where the values lie, for a message to a person who has to repair one: a path, or empty.
  virtual QString Emplacement() const { return {}; }
  /// Where it was damaged, all of it is kept beside, as Emplacement() with ".damaged" behind it, from the first Vide()
  /// on.
  virtual AbimesMagasin Abimes() const { return {}; }
};

}  // namespace vaktor
