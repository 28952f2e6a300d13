#include "failure_advice.h"

#include <array>

namespace vaktor {
namespace {

struct Paire {
  const char* Constat;
  const char* Remede;
};
struct Ligne {
  CauseEchec Cause;
  Paire Francais, Anglais;
};

// %1 the server, %2 the port.
constexpr std::array<Ligne, 14> kLignes = {{
    {CauseEchec::kAucune, {"Le mail a été accepté.", ""}, {"The mail was accepted.", ""}},
    {CauseEchec::kIncomplet,
     {"Il manque le serveur, l'expéditeur ou le destinataire.",
      "Complétez l'adresse SMTP et votre adresse eMail dans « Avancé », et l'adresse de destination sur la page "
      "eMail."},
     {"The server, the sender or the destination is missing.",
      "Fill in the SMTP address and your eMail address under \"More\", and the destination on the eMail page."}},
    {CauseEchec::kServeurIntrouvable,
     {"Le serveur %1 est introuvable.",
      "Vérifiez le nom du serveur SMTP, et que l'ordinateur est connecté à Internet."},
     {"The server %1 cannot be found.",
      "Check the name of the SMTP server, and that the computer is on the Internet."}},
    {CauseEchec::kPasDeConnexion,
     {"Le serveur %1 ne répond pas sur le port %2.",
      "Essayez le port 587 ou 465 ; beaucoup de fournisseurs bloquent le port 25."},
     {"The server %1 does not answer on port %2.", "Try port 587 or 465; many providers block port 25."}},
    {CauseEchec::kCertificat,
     {"Le certificat du serveur %1 n'est pas valable.",
      "Vérifiez que le nom du serveur est exactement celui que donne votre fournisseur, et la date de l'ordinateur."},
     {"The certificate of the server %1 cannot be trusted.",
      "Check that the server's name is exactly the one your provider gives, and the date of this computer."}},
    {CauseEchec::kTls,
     {"La connexion chiffrée avec %1 n'a pas pu être établie.", "Essayez le port 587, ou 465 pour TLS dès le début."},
     {"The encrypted connection with %1 could not be made.", "Try port 587, or 465 for TLS from the start."}},
    {CauseEchec::kConnexionRefusee,
     {"Le serveur %1 a refusé le nom d'utilisateur ou le mot de passe.",
      "Vérifiez les deux. Certains fournisseurs demandent un mot de passe d'application, différent de celui du site."},
     {"The server %1 refused the user name or the password.",
      "Check both. Some providers want an app password, other than that of their site."}},
    {CauseEchec::kExpediteurRefuse,
     {"Le serveur %1 refuse votre adresse d'expéditeur.",
      "Mettez l'adresse eMail du compte lui-même, et cochez le mot de passe si votre serveur le demande."},
     {"The server %1 refuses your sender address.",
      "Use the eMail address of the account itself, and tick the password if your server needs one."}},
    {CauseEchec::kDestinataireRefuse,
     {"Le serveur %1 refuse l'adresse de destination.",
      "Vérifiez l'adresse de destination, et cochez le mot de passe si votre serveur le demande."},
     {"The server %1 refuses the destination address.",
      "Check the destination address, and tick the password if your server needs one."}},
    {CauseEchec::kMessageRefuse,
     {"Le serveur %1 a refusé le message.", "Diminuez le nombre de photos par mail, puis lisez la réponse du serveur."},
     {"The server %1 refused the message.", "Send fewer pictures on each mail, then read the server's answer."}},
    {CauseEchec::kDelai,
     {"Le serveur %1 a cessé de répondre.", "Rien à faire : le mail est gardé et sera envoyé de nouveau."},
     {"The server %1 stopped answering.", "Nothing to do: the mail is kept and will be sent again."}},
    {CauseEchec::kCoupure,
     {"La connexion avec %1 a été coupée.", "Rien à faire : le mail est gardé et sera envoyé de nouveau."},
     {"The connection with %1 broke.", "Nothing to do: the mail is kept and will be sent again."}},
    {CauseEchec::kProgrammeAbsent,
     {"Cet ordinateur n'a pas de logiciel d'envoi de mails.",
      "Décochez « Utiliser le logiciel de messagerie » dans « Avancé » et indiquez votre serveur SMTP."},
     {"This computer has no program that sends mail.",
      "Untick \"Use my eMail software\" under \"More\" and enter your SMTP server."}},
    {CauseEchec::kInterrompu,
     {"L'envoi a été interrompu.", "Rien à faire : le mail est gardé et sera envoyé au prochain démarrage."},
     {"The sending was interrupted.", "Nothing to do: the mail is kept and will be sent at the next start."}},
}};

}  // namespace

Conseil DonneConseil(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages, qint32 langue) {
  for (const Ligne& ligne : kLignes) {
    if (ligne.Cause != resultat.Cause) continue;
    const Paire& paire = langue == 1 ? ligne.Anglais : ligne.Francais;
    const auto remplit = [&](const char* texte) {
      QString t = QString::fromUtf8(texte);
      t.replace(QStringLiteral("%1"), reglages.Serveur);
      return t.replace(QStringLiteral("%2"), QString::number(reglages.Port));
    };
    return {remplit(paire.Constat), remplit(paire.Remede)};
  }
  return {};
}

}  // namespace vaktor
