// SPDX-License-Identifier: GPL-3.0-or-later
// The token of an OAuth2 login: a program of the user's prints it. Vaktor knows no provider's way to one; programs that
// do are packaged by the system.
#pragma once

#include <QByteArray>
#include <functional>

#include "modules/mail/sending.h"

namespace vaktor {

struct Jeton {
  QByteArray Valeur = {};  ///< printable ASCII without blanks, 8 KB at the most; empty: there is none
  QString Mots = {};       ///< why there is none, in the program's words or the system's, without its arguments
  bool Arrete = false;     ///< our own end came first
};

/// Runs `commande`, its words parted by blanks (quotes hold blanks together), without a shell, and takes the first line
/// that it prints. It gets no input and `delai` milliseconds, then it is killed. `arret` is asked all the while.
Jeton DemandeJeton(const QString& commande, qint64 delai, const std::function<bool()>& arret);

/// Sends with a token asked for now. A server that quotes the token is not told with it: neither in the result nor in
/// the steps.
ResultatEnvoi EnvoieAvecJeton(const ReglagesEnvoi& reglages, const RappelsEnvoi& rappels,
                              const std::function<ResultatEnvoi(const RappelsEnvoi&, const QByteArray& jeton)>& envoie);

}  // namespace vaktor
