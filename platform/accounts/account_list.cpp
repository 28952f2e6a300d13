// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/accounts/account_list.h"

#include <algorithm>

namespace vaktor {
namespace {

// Longer is no name of a host (RFC 1035, 2.3.4) and no address (RFC 5321, 4.5.3.1.3).
constexpr qsizetype kTexteMax = 254;

// A line break in the name of a host would end the command that it is put into.
bool EstSaine(const QByteArray& texte) {
  const auto commande = [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; };
  return texte.size() <= kTexteMax && std::ranges::none_of(texte, commande);
}

qint32 LitPort(qint64 port) { return port >= 1 && port <= kPortMax ? static_cast<qint32>(port) : 0; }

CompteMail Traduit(const CompteLu& lu) {
  const QByteArray serveur = lu.Serveur.trimmed();
  const QByteArray adresse = lu.Adresse.trimmed();
  const QByteArray utilisateur = lu.Utilisateur.trimmed();
  CompteMail compte;
  if (!EstSaine(serveur) || !EstSaine(adresse) || !EstSaine(utilisateur)) return compte;
  compte.Serveur = QString::fromUtf8(serveur);
  compte.Adresse = QString::fromUtf8(adresse);
  compte.Utilisateur = QString::fromUtf8(utilisateur);
  compte.Port = LitPort(lu.Port);
  compte.OAuth2 = lu.OAuth2;
  return compte;
}

}  // namespace

bool ListeComptes::Ajoute(const CompteLu& lu) {
  if (Pleine()) return false;
  const CompteMail compte = Traduit(lu);
  if (!EstUtilisable(compte) || !Comptes_.contains(compte)) Comptes_ << compte;
  return !Pleine();
}

QList<CompteMail> ListeComptes::Comptes() const {
  QList<CompteMail> comptes = Comptes_;
  if (!comptes.isEmpty()) comptes.first().ParDefaut = true;
  return comptes;
}

}  // namespace vaktor
