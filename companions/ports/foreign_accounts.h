// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the mail accounts that the user's own mail programs keep.
#pragma once

#include <QList>
#include <QString>

namespace vaktor {

/// One account of a mail program, as far as sending needs it.
struct CompteMail {
  QString Serveur = {};
  QString Adresse = {};
  QString Utilisateur = {};  ///< empty: the server wants no login
  qint32 Port = 0;           ///< 1 to 65535; 0: the mail program names none
  /// The mail program shows the server a token of the provider and no password, and the server may refuse the latter.
  bool OAuth2 = false;
  bool ParDefaut = false;  ///< the one that a new mail is written from; no more than one of a list

  bool operator==(const CompteMail&) const = default;
};

/// Without a server or an address nothing can be sent.
inline bool EstUtilisable(const CompteMail& compte) { return !compte.Serveur.isEmpty() && !compte.Adresse.isEmpty(); }

/// User-interface thread.
class LecteurComptes {
 public:
  virtual ~LecteurComptes() = default;
  /// Reads all accounts anew, in the order in which they are shown; those that cannot be used stand in their places.
  /// Passwords are not looked for. Never fails and takes seconds at the most: what cannot be read is not there, and
  /// nothing found is the normal case.
  virtual QList<CompteMail> LitComptes() = 0;
};

}  // namespace vaktor
