// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/smtp_words.h"

#include "texts/phrase.h"

namespace vaktor {

QString NommeCompte(Langue langue, const CompteMail& compte) {
  if (!compte.OAuth2) return compte.Adresse;
  return compte.Adresse + Phrase{" (connexion OAuth2)", " (OAuth2 login)"}.Dit(langue);
}

QString InviteOAuth2(Langue langue) { return Phrase{"mot de passe d'application", "app password"}.Dit(langue); }

QString AideOAuth2(Langue langue) {
  return Phrase{
      "Ce compte se connecte par OAuth2 : son mot de passe habituel peut être refusé. Créez un mot de passe "
      "d'application chez votre fournisseur, s'il en propose.",
      "This account logs in with OAuth2: its usual password may be refused. Create an app password with your "
      "provider, if it offers them."}
      .Dit(langue);
}

QString MotsSansChiffrement(Langue langue) { return Phrase{"Sans chiffrement", "Without encryption"}.Dit(langue); }

QString AideSansChiffrement(Langue langue) {
  return Phrase{
      "Pour les rares serveurs qui n'ont pas de chiffrement : le mot de passe et les photos peuvent être lus en route.",
      "For the few servers that have no encryption: password and pictures can be read on their way."}
      .Dit(langue);
}

QString SujetEssai(Langue langue, const QString& sujet) { return Phrase{"[Essai] %1", "[Test] %1"}.Dit(langue, sujet); }

QString CorpsEssai(Langue langue, const QString& corps) {
  return Phrase{"Ceci est un essai de Vaktor, pas une alarme.\n\n%1", "This is a test of Vaktor, not an alarm.\n\n%1"}
      .Dit(langue, corps);
}

}  // namespace vaktor
