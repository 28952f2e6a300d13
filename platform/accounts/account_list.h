// SPDX-License-Identifier: GPL-3.0-or-later
// The accounts as they are found, one after the other, of whatever program.
#pragma once

#include "companions/ports/foreign_accounts.h"

namespace vaktor {

/// Far more than anybody has; it bounds the search for doubles.
inline constexpr qsizetype kComptesMax = 100;
inline constexpr qint64 kPortMax = 65535;

/// What a mail program says of one account. Texts are UTF-8.
struct CompteLu {
  QByteArray Serveur;
  QByteArray Adresse;
  QByteArray Utilisateur;
  qint64 Port = 0;  ///< as found; anything outside 1..kPortMax is no port
  bool OAuth2 = false;
};

/// In the order in which they are shown. The first is the default one.
class ListeComptes {
 public:
  /// False when nothing more is taken. An account that can be used and is there already is passed over; one that cannot
  /// be used takes its place all the same. No text with a control character, or longer than any server would take, gets
  /// in: an account with one is there without any text.
  bool Ajoute(const CompteLu& lu);
  bool Pleine() const { return Comptes_.size() >= kComptesMax; }
  QList<CompteMail> Comptes() const;

 private:
  QList<CompteMail> Comptes_;  // none marked as the default one
};

}  // namespace vaktor
