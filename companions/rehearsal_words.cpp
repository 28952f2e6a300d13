#include "companions/rehearsal_words.h"

#include <span>

#include "texts/language.h"

namespace vaktor {

namespace {

QString Choisit(qint32 langue, const char* francais, const char* anglais) {
  return ChoisitLangue(langue, QString::fromUtf8(francais), QString::fromUtf8(anglais));
}

struct NomEtape {
  const char* Commande;
  const char* Francais;
  const char* Anglais;
};
// The commands of RFC 5321, 3207 and 4954, in the order in which they come.
constexpr NomEtape kEtapesMail[] = {{"EHLO", "Accueil", "Greeting"},
                                    {"HELO", "Accueil", "Greeting"},
                                    {"STARTTLS", "Chiffrement", "Encryption"},
                                    {"AUTH", "Identification", "Login"},
                                    {"MAIL", "Expéditeur", "Sender"},
                                    {"RCPT", "Destinataire", "Destination"},
                                    {"DATA", "Message", "Message"},
                                    {"QUIT", "Fin", "End"}};
// Those of RFC 959, 2428, 3659 and 4217.
constexpr NomEtape kEtapesFtp[] = {{"AUTH", "Chiffrement", "Encryption"},
                                   {"USER", "Nom d'utilisateur", "User name"},
                                   {"PASS", "Mot de passe", "Password"},
                                   {"CWD", "Répertoire", "Folder"},
                                   {"EPSV", "Connexion des données", "Data connection"},
                                   {"PASV", "Connexion des données", "Data connection"},
                                   {"STOR", "Envoi", "Upload"},
                                   {"RNFR", "Mise en place", "Putting in place"},
                                   {"RNTO", "Mise en place", "Putting in place"},
                                   {"SIZE", "Taille reçue", "Size received"},
                                   {"DELE", "Effacement", "Deletion"}};

QString NommeEtape(std::span<const NomEtape> noms, qint32 langue, const QString& ligne) {
  for (const NomEtape& etape : noms) {
    if (ligne.startsWith(QLatin1String(etape.Commande) + QStringLiteral(": ")))
      return Choisit(langue, etape.Francais, etape.Anglais) + QStringLiteral(" - ") + ligne;
  }
  return ligne;
}

/// What every rehearsal says alike.
MotsEssai DonneMotsCommuns(qint32 langue, std::span<const NomEtape> noms) {
  return {
      .Essayer = Choisit(langue, "Essayer", "Try"),
      .Annuler = Choisit(langue, "Annuler", "Cancel"),
      .Aide = {},
      .Etapes = Choisit(langue, "Étapes de l'essai", "Steps of the trial"),
      .EnCours = Choisit(langue, "Essai en cours…", "Trying…"),
      .Annule = Choisit(langue, "L'essai a été annulé.", "The trial was cancelled."),
      .SansFin = {},
      .Impossible = {},
      .NommeEtape = [langue, noms](const QString& ligne) { return NommeEtape(noms, langue, ligne); },
  };
}

QString DonneImpossible(qint32 langue, const QString& compagnon) {
  return Choisit(langue, "Le compagnon %1 n'a pas pu faire l'essai. Réinstallez Vaktor s'il manque.",
                 "The companion %1 could not do the trial. Install Vaktor again if it is missing.")
      .arg(compagnon);
}

}  // namespace

MotsEssai DonneMotsEssaiMail(qint32 langue) {
  MotsEssai mots = DonneMotsCommuns(langue, kEtapesMail);
  mots.Aide = Choisit(langue, "Envoie maintenant un mail avec ces paramètres, sans les enregistrer.",
                      "Sends one mail now with these settings, without saving them.");
  mots.SansFin =
      Choisit(langue, "Le serveur n'a pas répondu à temps. Vérifiez le nom du serveur et le port : 587, ou 465.",
              "The server did not answer in time. Check the name of the server and the port: 587, or 465.");
  mots.Impossible = DonneImpossible(langue, QStringLiteral("VAKTORmail"));
  return mots;
}

MotsEssai DonneMotsEssaiFtp(qint32 langue) {
  MotsEssai mots = DonneMotsCommuns(langue, kEtapesFtp);
  mots.Aide = Choisit(langue, "Essaie maintenant les paramètres de la page FTP, sans les enregistrer.",
                      "Tries the parameters of the FTP page now, without saving them.");
  mots.SansFin = Choisit(langue, "Le serveur n'a pas répondu à temps. Vérifiez l'adresse ftp, le port et le pare-feu.",
                         "The server did not answer in time. Check the ftp address, the port and the firewall.");
  mots.Impossible = DonneImpossible(langue, QStringLiteral("VAKTORftp"));
  return mots;
}

QString InviteEssaiMail(qint32 langue, const QString& destination) {
  if (destination.isEmpty())
    return Choisit(langue, "Indiquez d'abord l'adresse de destination sur la page eMail.",
                   "First enter the destination on the eMail page.");
  return Choisit(langue, "Un mail sera envoyé à %1. Rien n'est enregistré.",
                 "One mail will be sent to %1. Nothing is saved.")
      .arg(destination);
}

QString InviteEssaiFtp(qint32 langue, const QString& serveur) {
  if (serveur.isEmpty())
    return Choisit(langue, "Indiquez d'abord l'adresse ftp sur la page FTP.",
                   "First enter the ftp address on the FTP page.");
  return Choisit(langue, "Un petit fichier sera envoyé à %1, puis effacé. Rien n'est enregistré.",
                 "A small file will be sent to %1, then deleted. Nothing is saved.")
      .arg(serveur);
}

QString TitreEssaiFtp(qint32 langue) { return Choisit(langue, "Essai de la page en direct", "Trial of the live page"); }

QString MotFermer(qint32 langue) { return Choisit(langue, "Fermer", "Close"); }

}  // namespace vaktor
