// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/rehearsal_words.h"

#include <span>

#include "texts/phrase.h"

namespace vaktor {

namespace {

struct NomEtape {
  const char* Commande;
  Phrase Nom;
};
// The commands of RFC 5321, 3207 and 4954, in the order in which they come.
constexpr NomEtape kEtapesMail[] = {{"EHLO", {"Accueil", "Greeting"}},
                                    {"HELO", {"Accueil", "Greeting"}},
                                    {"STARTTLS", {"Chiffrement", "Encryption"}},
                                    {"AUTH", {"Identification", "Login"}},
                                    {"MAIL", {"Expéditeur", "Sender"}},
                                    {"RCPT", {"Destinataire", "Destination"}},
                                    {"DATA", {"Message", "Message"}},
                                    {"QUIT", {"Fin", "End"}}};
// Those of RFC 959, 2428, 3659 and 4217.
constexpr NomEtape kEtapesFtp[] = {{"AUTH", {"Chiffrement", "Encryption"}},
                                   {"USER", {"Nom d'utilisateur", "User name"}},
                                   {"PASS", {"Mot de passe", "Password"}},
                                   {"CWD", {"Répertoire", "Folder"}},
                                   {"EPSV", {"Connexion des données", "Data connection"}},
                                   {"PASV", {"Connexion des données", "Data connection"}},
                                   {"STOR", {"Envoi", "Upload"}},
                                   {"RNFR", {"Mise en place", "Putting in place"}},
                                   {"RNTO", {"Mise en place", "Putting in place"}},
                                   {"SIZE", {"Taille reçue", "Size received"}},
                                   {"DELE", {"Effacement", "Deletion"}}};
constexpr NomEtape kEtapesPush[] = {{"POST", {"Envoi", "Upload"}}};

QString NommeEtape(std::span<const NomEtape> noms, Langue langue, const QString& ligne) {
  for (const NomEtape& etape : noms) {
    if (ligne.startsWith(QLatin1String(etape.Commande) + QStringLiteral(": ")))
      return etape.Nom.Dit(langue) + QStringLiteral(" - ") + ligne;
  }
  return ligne;
}

/// What every rehearsal says alike.
MotsEssai DonneMotsCommuns(Langue langue, std::span<const NomEtape> noms) {
  return {
      .Essayer = Phrase{"Essayer", "Try"}.Dit(langue),
      .Annuler = Phrase{"Annuler", "Cancel"}.Dit(langue),
      .Aide = {},
      .Etapes = Phrase{"Étapes de l'essai", "Steps of the trial"}.Dit(langue),
      .EnCours = Phrase{"Essai en cours…", "Trying…"}.Dit(langue),
      .Annule = Phrase{"L'essai a été annulé.", "The trial was cancelled."}.Dit(langue),
      .SansFin = {},
      .Impossible = {},
      .NommeEtape = [langue, noms](const QString& ligne) { return NommeEtape(noms, langue, ligne); },
  };
}

QString DonneImpossible(Langue langue, const QString& compagnon) {
  return Phrase{"Le compagnon %1 n'a pas pu faire l'essai. Réinstallez Vaktor s'il manque.",
                "The companion %1 could not do the trial. Install Vaktor again if it is missing."}
      .Dit(langue, compagnon);
}

}  // namespace

MotsEssai DonneMotsEssaiMail(Langue langue) {
  MotsEssai mots = DonneMotsCommuns(langue, kEtapesMail);
  mots.Aide = Phrase{"Envoie maintenant un mail avec ces paramètres, sans les enregistrer.",
                     "Sends one mail now with these settings, without saving them."}
                  .Dit(langue);
  mots.SansFin = Phrase{"Le serveur n'a pas répondu à temps. Vérifiez le nom du serveur et le port : 587, ou 465.",
                        "The server did not answer in time. Check the name of the server and the port: 587, or 465."}
                     .Dit(langue);
  mots.Impossible = DonneImpossible(langue, QStringLiteral("VAKTORmail"));
  return mots;
}

MotsEssai DonneMotsEssaiPush(Langue langue) {
  MotsEssai mots = DonneMotsCommuns(langue, kEtapesPush);
  mots.SansFin = Phrase{"Le serveur n'a pas répondu à temps. Vérifiez l'adresse du push.",
                        "The server did not answer in time. Check the address of the push."}
                     .Dit(langue);
  mots.Impossible = DonneImpossible(langue, QStringLiteral("VAKTORmail"));
  return mots;
}

MotsEssai DonneMotsEssaiFtp(Langue langue) {
  MotsEssai mots = DonneMotsCommuns(langue, kEtapesFtp);
  mots.Aide = Phrase{"Essaie maintenant les paramètres de la page FTP, sans les enregistrer.",
                     "Tries the parameters of the FTP page now, without saving them."}
                  .Dit(langue);
  mots.SansFin = Phrase{"Le serveur n'a pas répondu à temps. Vérifiez l'adresse ftp, le port et le pare-feu.",
                        "The server did not answer in time. Check the ftp address, the port and the firewall."}
                     .Dit(langue);
  mots.Impossible = DonneImpossible(langue, QStringLiteral("VAKTORftp"));
  return mots;
}

QString InviteEssaiMail(Langue langue, const QString& destination) {
  if (destination.isEmpty())
    return Phrase{"Indiquez d'abord l'adresse de destination sur la page eMail.",
                  "First enter the destination on the eMail page."}
        .Dit(langue);
  return Phrase{"Un mail sera envoyé à %1. Rien n'est enregistré.", "One mail will be sent to %1. Nothing is saved."}
      .Dit(langue, destination);
}

QString InviteEssaiFtp(Langue langue, const QString& serveur) {
  if (serveur.isEmpty())
    return Phrase{"Indiquez d'abord l'adresse ftp sur la page FTP.", "First enter the ftp address on the FTP page."}
        .Dit(langue);
  return Phrase{"Un petit fichier sera envoyé à %1, puis effacé. Rien n'est enregistré.",
                "A small file will be sent to %1, then deleted. Nothing is saved."}
      .Dit(langue, serveur);
}

QString TitreEssaiFtp(Langue langue) {
  return Phrase{"Essai de la page en direct", "Trial of the live page"}.Dit(langue);
}

QString MotFermer(Langue langue) { return Phrase{"Fermer", "Close"}.Dit(langue); }

}  // namespace vaktor
