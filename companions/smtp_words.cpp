#include "companions/smtp_words.h"

#include <array>

namespace vaktor {

namespace {

QString Choisit(qint32 langue, const char* francais, const char* anglais) {
  return QString::fromUtf8(langue == 1 ? anglais : francais);
}

struct NomEtape {
  const char* Commande;
  const char* Francais;
  const char* Anglais;
};
// The commands of RFC 5321, 3207 and 4954, in the order in which they come.
constexpr std::array<NomEtape, 8> kEtapes = {{{"EHLO", "Accueil", "Greeting"},
                                              {"HELO", "Accueil", "Greeting"},
                                              {"STARTTLS", "Chiffrement", "Encryption"},
                                              {"AUTH", "Identification", "Login"},
                                              {"MAIL", "Expéditeur", "Sender"},
                                              {"RCPT", "Destinataire", "Destination"},
                                              {"DATA", "Message", "Message"},
                                              {"QUIT", "Fin", "End"}}};

}  // namespace

QString MessageTropDeComptes(qint32 langue, qsizetype maximum) {
  return Choisit(langue, "le logiciel de messagerie de cet ordinateur a plus de %1 comptes.",
                 "the mail software of this computer has more than %1 accounts.")
      .arg(maximum);
}

QString MessagePortTropGrand(qint32 langue, const QString& adresse) {
  return Choisit(langue, "le port SMTP du compte « %1 » est plus grand que 32767.",
                 "the SMTP port of the account \"%1\" is greater than 32767.")
      .arg(adresse);
}

MotsEssai DonneMotsEssai(qint32 langue) {
  const auto mot = [langue](const char* francais, const char* anglais) { return Choisit(langue, francais, anglais); };
  return {
      .Essayer = mot("Essayer", "Try"),
      .Annuler = mot("Annuler", "Cancel"),
      .Aide = mot("Envoie maintenant un mail avec ces paramètres, sans les enregistrer.",
                  "Sends one mail now with these settings, without saving them."),
      .Etapes = mot("Étapes de l'essai", "Steps of the trial"),
      .EnCours = mot("Essai en cours…", "Trying…"),
      .Annule = mot("L'essai a été annulé.", "The trial was cancelled."),
      .SansFin = mot("Le serveur n'a pas répondu à temps. Vérifiez le nom du serveur et le port : 587, ou 465.",
                     "The server did not answer in time. Check the name of the server and the port: 587, or 465."),
      .Impossible = mot("Le compagnon VAKTORmail n'a pas pu faire l'essai. Réinstallez Vaktor s'il manque.",
                        "The companion VAKTORmail could not do the trial. Install Vaktor again if it is missing."),
  };
}

QString InviteEssai(qint32 langue, const QString& destination) {
  if (destination.isEmpty())
    return Choisit(langue, "Indiquez d'abord l'adresse de destination sur la page eMail.",
                   "First enter the destination on the eMail page.");
  return Choisit(langue, "Un mail sera envoyé à %1. Rien n'est enregistré.",
                 "One mail will be sent to %1. Nothing is saved.")
      .arg(destination);
}

QString SujetEssai(qint32 langue, const QString& sujet) {
  return Choisit(langue, "[Essai] %1", "[Test] %1").arg(sujet);
}

QString CorpsEssai(qint32 langue, const QString& corps) {
  return Choisit(langue, "Ceci est un essai de Vaktor, pas une alarme.\n\n%1",
                 "This is a test of Vaktor, not an alarm.\n\n%1")
      .arg(corps);
}

QString NommeEtape(qint32 langue, const QString& ligne) {
  for (const NomEtape& etape : kEtapes) {
    if (ligne.startsWith(QLatin1String(etape.Commande) + QStringLiteral(": ")))
      return Choisit(langue, etape.Francais, etape.Anglais) + QStringLiteral(" - ") + ligne;
  }
  return ligne;
}

}  // namespace vaktor
