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
      "d'application chez votre fournisseur, s'il en propose, ou indiquez une commande OAuth2.",
      "This account logs in with OAuth2: its usual password may be refused. Create an app password with your "
      "provider, if it offers them, or enter an OAuth2 command."}
      .Dit(langue);
}

QString MotsSansChiffrement(Langue langue) { return Phrase{"Sans chiffrement", "Without encryption"}.Dit(langue); }

QString AideSansChiffrement(Langue langue) {
  return Phrase{
      "Pour les rares serveurs qui n'ont pas de chiffrement : le mot de passe et les photos peuvent être lus en route.",
      "For the few servers that have no encryption: password and pictures can be read on their way."}
      .Dit(langue);
}

QString RaisonLogiciel(Langue langue) {
  return Phrase{"Sans effet : les mails partent par le logiciel de messagerie, comme le dit la première case.",
                "Not used: mails leave through the mail software, as the first box says."}
      .Dit(langue);
}

QString RaisonSansConnexion(Langue langue, const QString& boite) {
  return Phrase{"Sans effet tant que la case « %1 » n'est pas cochée.", "Not used until the box \"%1\" is ticked."}.Dit(
      langue, boite);
}

QString MotsJeton(Langue langue) { return Phrase{"Commande OAuth2", "OAuth2 command"}.Dit(langue); }

QString AideJeton(Langue langue) {
  return Phrase{
      "Pour les comptes qui ne prennent plus de mot de passe d'un programme (Outlook.com, Hotmail, Microsoft 365, et "
      "Gmail sans mot de passe d'application) : un programme qui imprime un jeton, avec ses arguments. Il remplace le "
      "mot "
      "de passe.",
      "For accounts that take no password of a program any more (Outlook.com, Hotmail, Microsoft 365, and Gmail "
      "without "
      "an app password): a program that prints a token, with its arguments. It takes the place of the password."}
      .Dit(langue);
}

QString MotsSigneDeVie(Langue langue) { return Phrase{"Signe de vie", "Sign of life"}.Dit(langue); }

QString AideSigneDeVie(Langue langue) {
  return Phrase{
      "Chaque jour à cette heure, tant que l'alarme est armée et que les mails sont cochés, un mail court dit que "
      "Vaktor "
      "veille.",
      "Each day at this hour, while the alarm is armed and mails are ticked, a short mail says that Vaktor watches."}
      .Dit(langue);
}

QString NommeHeure(Langue langue, int heure) {
  if (heure < 0) return Phrase{"jamais", "never"}.Dit(langue);
  return Phrase{"chaque jour à %1 h", "each day at %1:00"}.Dit(langue, QString::number(heure));
}

QString SujetEssai(Langue langue, const QString& sujet) { return Phrase{"[Essai] %1", "[Test] %1"}.Dit(langue, sujet); }

QString CorpsEssai(Langue langue, const QString& corps) {
  return Phrase{"Ceci est un essai de Vaktor, pas une alarme.\n\n%1", "This is a test of Vaktor, not an alarm.\n\n%1"}
      .Dit(langue, corps);
}

}  // namespace vaktor
