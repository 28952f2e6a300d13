#include "platform/accounts/mail_account.h"

#include <algorithm>

#include "companions/ports/mail_registry.h"

namespace vaktor {
namespace {

bool EstSaine(const QByteArray& texte) {
  const auto commande = [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; };
  return texte.size() < RegistreComptes::kLongueurMax && std::ranges::none_of(texte, commande);  // its NUL comes on top
}

}  // namespace

bool EstMontrable(const CompteMail& compte) {
  return !compte.Serveur.isEmpty() && !compte.Adresse.isEmpty() && EstSaine(compte.Serveur) &&
         EstSaine(compte.Adresse) && EstSaine(compte.Utilisateur);
}

// No more than the rule has slots for: a 22nd key ends the opening of its form with an error, and a user with many
// accounts would be the one whom the list does not serve.
bool ListeComptes::Ajoute(CompteMail compte) {
  if (Pleine()) return false;
  compte.Serveur = compte.Serveur.trimmed();
  compte.Adresse = compte.Adresse.trimmed();
  compte.Utilisateur = compte.Utilisateur.trimmed();
  if (EstMontrable(compte) && !Comptes_.contains(compte)) Comptes_ << compte;
  return !Pleine();
}

}  // namespace vaktor
