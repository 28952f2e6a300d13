// SPDX-License-Identifier: GPL-3.0-or-later
#include "failure_advice.h"

#include <algorithm>
#include <array>

#include "modules/mail/mail_maker.h"

namespace vaktor {
namespace {

struct Ligne {
  CauseEchec Cause;
  const char* Sujet;
  Phrase Constat, Remede;
};

// %1 the server, %2 the port.
constexpr std::array<Ligne, 26> kLignes = {{
    {CauseEchec::kAucune, "mail-ok", {"Le mail a été accepté.", "The mail was accepted."}, {"", ""}},
    {CauseEchec::kIncomplet,
     "mail-incomplete",
     {"Il manque le serveur, l'expéditeur ou le destinataire.",
      "The server, the sender or the destination is missing."},
     {"Complétez l'adresse SMTP et votre adresse eMail dans « Avancé », et l'adresse de destination sur la page "
      "eMail.",
      "Fill in the SMTP address and your eMail address under \"More\", and the destination on the eMail page."}},
    {CauseEchec::kConnexionIncomplete,
     "mail-login-missing",
     {"Il manque le nom d'utilisateur ou le mot de passe pour le serveur %1.",
      "The user name or the password for the server %1 is missing."},
     {"Indiquez-les dans « Avancé », ou décochez la case du mot de passe si votre serveur n'en demande pas.",
      "Enter them under \"More\", or untick the box of the password if your server needs none."}},
    {CauseEchec::kPortMauvais,
     "mail-port",
     {"Le port du serveur SMTP n'est pas un nombre entre 1 et 65535.",
      "The port of the SMTP server is no number from 1 to 65535."},
     {"Indiquez 587, 465 ou 25 dans « Avancé ».", "Enter 587, 465 or 25 under \"More\"."}},
    {CauseEchec::kServeurIntrouvable,
     "mail-server",
     {"Le serveur %1 est introuvable.", "The server %1 cannot be found."},
     {"Vérifiez le nom du serveur SMTP, et que l'ordinateur est connecté à Internet.",
      "Check the name of the SMTP server, and that the computer is on the Internet."}},
    {CauseEchec::kPasDeConnexion,
     "mail-connection",
     {"Le serveur %1 ne répond pas sur le port %2.", "The server %1 does not answer on port %2."},
     {"Essayez le port 587 ou 465 ; beaucoup de fournisseurs bloquent le port 25.",
      "Try port 587 or 465; many providers block port 25."}},
    {CauseEchec::kCertificat,
     "mail-certificate",
     {"Le certificat du serveur %1 n'est pas valable.", "The certificate of the server %1 cannot be trusted."},
     {"Vérifiez que le nom du serveur est exactement celui que donne votre fournisseur, et la date de l'ordinateur.",
      "Check that the server's name is exactly the one your provider gives, and the date of this computer."}},
    {CauseEchec::kTls,
     "mail-tls",
     {"La connexion chiffrée avec %1 n'a pas pu être établie.", "The encrypted connection with %1 could not be made."},
     {"Essayez le port 587, ou 465 pour TLS dès le début.", "Try port 587, or 465 for TLS from the start."}},
    {CauseEchec::kSansTls,
     "mail-no-tls",
     {"Le serveur %1 n'offre pas de chiffrement sur le port %2 : votre mot de passe n'est pas parti.",
      "The server %1 offers no encryption on port %2: your password was not sent."},
     {"Choisissez le port 465 ou 587 dans « Avancé ». Si votre serveur n'a aucun chiffrement, cochez « Sans "
      "chiffrement » : le mot de passe pourra alors être lu en route.",
      "Choose port 465 or 587 under \"More\". If your server has no encryption at all, tick \"Without encryption\": "
      "the "
      "password can then be read on its way."}},
    {CauseEchec::kServeurRefuse,
     "mail-refused",
     {"Le serveur %1 ne prend pas de mails en ce moment.", "The server %1 takes no mail at the moment."},
     {"Rien à faire : le mail est gardé et sera envoyé de nouveau. Si cela dure, lisez la réponse du serveur.",
      "Nothing to do: the mail is kept and will be sent again. If it lasts, read the server's answer."}},
    {CauseEchec::kConnexionDemandee,
     "mail-login-needed",
     {"Le serveur %1 ne prend pas de mails sans identification.", "The server %1 takes no mail without a login."},
     {"Dans « Avancé », cochez la case du mot de passe et indiquez votre nom d'utilisateur et votre mot de passe.",
      "Under \"More\", tick the box of the password and enter your user name and your password."}},
    {CauseEchec::kConnexionRefusee,
     "mail-login",
     {"Le serveur %1 a refusé le nom d'utilisateur ou le mot de passe.",
      "The server %1 refused the user name or the password."},
     {"Vérifiez les deux. Certains fournisseurs demandent un mot de passe d'application, différent de celui du site.",
      "Check both. Some providers want an app password, other than that of their site."}},
    {CauseEchec::kExpediteurRefuse,
     "mail-sender",
     {"Le serveur %1 refuse votre adresse d'expéditeur.", "The server %1 refuses your sender address."},
     {"Mettez l'adresse eMail du compte lui-même, et cochez le mot de passe si votre serveur le demande.",
      "Use the eMail address of the account itself, and tick the password if your server needs one."}},
    {CauseEchec::kDestinataireRefuse,
     "mail-destination",
     {"Le serveur %1 refuse l'adresse de destination.", "The server %1 refuses the destination address."},
     {"Vérifiez l'adresse de destination, et cochez le mot de passe si votre serveur le demande.",
      "Check the destination address, and tick the password if your server needs one."}},
    {CauseEchec::kMessageRefuse,
     "mail-message",
     {"Le serveur %1 a refusé le message.", "The server %1 refused the message."},
     {"Lisez la réponse du serveur, puis changez le sujet ou le texte du mail.",
      "Read the server's answer, then change the subject or the text of the mail."}},
    {CauseEchec::kTropGros,
     "mail-size",
     {"Le mail est trop gros pour le serveur %1.", "The mail is too large for the server %1."},
     {"Il part sans ses photos. Diminuez le nombre de photos par mail.",
      "It goes without its pictures. Send fewer pictures on each mail."}},
    {CauseEchec::kSansPlace,
     "mail-mailbox-full",
     {"La boîte aux lettres de destination est pleine.", "The mailbox of the destination is full."},
     {"Faites de la place dans cette boîte, ou changez l'adresse de destination.",
      "Make room in that mailbox, or change the destination address."}},
    {CauseEchec::kReporte,
     "mail-later",
     {"Le serveur %1 demande d'attendre avant de prendre ce mail.",
      "The server %1 asks to wait before it takes this mail."},
     {"Rien à faire : le mail est gardé et sera envoyé de nouveau.",
      "Nothing to do: the mail is kept and will be sent again."}},
    {CauseEchec::kJeton,
     "mail-token",
     {"La commande du jeton OAuth2 n'a pas donné de jeton.", "The command for the OAuth2 token gave no token."},
     {"Essayez-la dans un terminal : sa première ligne doit être le jeton. Corrigez-la dans « Avancé ».",
      "Try it in a terminal: its first line has to be the token. Correct it under \"More\"."}},
    {CauseEchec::kDelai,
     "mail-silence",
     {"Le serveur %1 a cessé de répondre.", "The server %1 stopped answering."},
     {"Rien à faire : le mail est gardé et sera envoyé de nouveau.",
      "Nothing to do: the mail is kept and will be sent again."}},
    {CauseEchec::kCoupure,
     "mail-cut",
     {"La connexion avec %1 a été coupée.", "The connection with %1 broke."},
     {"Rien à faire : le mail est gardé et sera envoyé de nouveau.",
      "Nothing to do: the mail is kept and will be sent again."}},
    {CauseEchec::kProgrammeAbsent,
     "mail-program",
     {"Cet ordinateur n'a pas de logiciel d'envoi de mails.", "This computer has no program that sends mail."},
     {"Décochez « Utiliser le logiciel de messagerie » dans « Avancé » et indiquez votre serveur SMTP.",
      "Untick \"Use my eMail software\" under \"More\" and enter your SMTP server."}},
    {CauseEchec::kProgrammeEchoue,
     "mail-program-failed",
     {"Le logiciel de messagerie de cet ordinateur n'a pas pris le mail.",
      "The mail program of this computer did not take the mail."},
     {"Vérifiez sa configuration, ou décochez « Utiliser le logiciel de messagerie » dans « Avancé » et indiquez votre "
      "serveur SMTP.",
      "Check its configuration, or untick \"Use my eMail software\" under \"More\" and enter your SMTP server."}},
    {CauseEchec::kFichier,
     "mail-file",
     {"Un mail en attente ne peut pas être lu sur le disque.", "A waiting mail cannot be read from the disk."},
     {"Vérifiez le disque.", "Check the disk."}},
    {CauseEchec::kAbandonne,
     "mail-given-up",
     {"Un mail a attendu trop longtemps et n'a pas été envoyé.", "A mail has waited too long and was not sent."},
     {"Vérifiez vos paramètres SMTP dans « Avancé ».", "Check your SMTP parameters under \"More\"."}},
    {CauseEchec::kInterrompu,
     "mail-interrupted",
     {"L'envoi a été interrompu.", "The sending was interrupted."},
     {"Rien à faire : le mail est gardé et sera envoyé au prochain démarrage.",
      "Nothing to do: the mail is kept and will be sent at the next start."}},
}};

// Where a mail of the alarm would be kept and sent again, or have photos.
constexpr std::array<Ligne, 8> kLignesEssai = {{
    {CauseEchec::kServeurRefuse,
     "mail-refused",
     {"Le serveur %1 ne prend pas de mails en ce moment.", "The server %1 takes no mail at the moment."},
     {"Lisez sa réponse et essayez plus tard.", "Read its answer and try again later."}},
    {CauseEchec::kMessageRefuse,
     "mail-message",
     {"Le serveur %1 a refusé le message.", "The server %1 refused the message."},
     {"Lisez sa réponse, puis changez le sujet ou le texte du mail.",
      "Read its answer, then change the subject or the text of the mail."}},
    {CauseEchec::kTropGros,
     "mail-size",
     {"Le mail d'essai est trop gros pour le serveur %1.", "The mail of the trial is too large for the server %1."},
     {"Lisez la réponse du serveur.", "Read the server's answer."}},
    {CauseEchec::kSansPlace,
     "mail-mailbox-full",
     {"La boîte aux lettres de destination est pleine.", "The mailbox of the destination is full."},
     {"Faites de la place dans cette boîte, ou changez l'adresse de destination.",
      "Make room in that mailbox, or change the destination address."}},
    {CauseEchec::kReporte,
     "mail-later",
     {"Le serveur %1 demande d'attendre avant de prendre un mail de vous.",
      "The server %1 asks to wait before it takes a mail of yours."},
     {"Les paramètres sont bons. Essayez encore dans quelques minutes.",
      "The settings are right. Try once more in a few minutes."}},
    {CauseEchec::kDelai,
     "mail-silence",
     {"Le serveur %1 a cessé de répondre.", "The server %1 stopped answering."},
     {"Essayez encore ; si cela dure, essayez le port 587, ou 465.", "Try again; if it lasts, try port 587, or 465."}},
    {CauseEchec::kCoupure,
     "mail-cut",
     {"La connexion avec %1 a été coupée.", "The connection with %1 broke."},
     {"Essayez encore ; si cela dure, essayez le port 587, ou 465.", "Try again; if it lasts, try port 587, or 465."}},
    {CauseEchec::kInterrompu,
     "mail-interrupted",
     {"L'essai a été interrompu.", "The trial was interrupted."},
     {"Essayez encore.", "Try again."}},
}};

QString Remplit(const Ligne& ligne, Langue langue, const ReglagesEnvoi& reglages) {
  QString texte = ligne.Constat.Dit(langue) + u' ' + ligne.Remede.Dit(langue);
  texte.replace(QStringLiteral("%2"), QString::number(reglages.Port));
  return texte.replace(QStringLiteral("%1"), reglages.Serveur).trimmed();
}

template <typename Table>
const Ligne* TrouveLigne(const Table& lignes, CauseEchec cause) {
  const auto ligne = std::find_if(lignes.begin(), lignes.end(), [cause](const Ligne& l) { return l.Cause == cause; });
  return ligne == lignes.end() ? nullptr : &*ligne;
}

AvisEchec Compose(const Ligne* ligne, const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages) {
  if (ligne == nullptr) return {};
  return {QLatin1String(ligne->Sujet), resultat.MotsServeur,
          PhraseDite::Compose([&](Langue langue) { return Remplit(*ligne, langue, reglages); })};
}

}  // namespace

AvisEchec ComposeAvis(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages) {
  return Compose(TrouveLigne(kLignes, resultat.Cause), resultat, reglages);
}

AvisEchec ComposeAvisEssai(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages) {
  const Ligne* ligne = TrouveLigne(kLignesEssai, resultat.Cause);
  return Compose(ligne != nullptr ? ligne : TrouveLigne(kLignes, resultat.Cause), resultat, reglages);
}

PhraseDite DitChiffrement(const ResultatEnvoi& resultat, const ReglagesEnvoi& reglages) {
  if (!reglages.ParSmtp) return {};
  if (resultat.Chiffre) return Phrase{" La connexion était chiffrée.", " The connection was encrypted."};
  if (!reglages.AvecConnexion || EstCetteMachine(reglages.Serveur))
    return Phrase{" La connexion n'était pas chiffrée.", " The connection was not encrypted."};
  return Phrase{
      " La connexion n'était pas chiffrée : votre mot de passe a pu être lu en route. Essayez le port 465 ou 587.",
      " The connection was not encrypted: your password could be read on its way. Try port 465 or 587."};
}

AvisEchec ComposeAvisDisque(const QString& dossier, const QString& mots) {
  return {QStringLiteral("mail-disk"), mots, PhraseDite::Compose([&](Langue langue) {
            return Phrase{"Le mail de l'alarme ne peut pas être gardé sur le disque (%1). Faites de la place.",
                          "The mail of the alarm cannot be kept on the disk (%1). Please make room."}
                .Dit(langue, dossier);
          })};
}

AvisEchec ComposeAvisPhotos(const QString& dossier) {
  return {QStringLiteral("mail-photos"), {}, PhraseDite::Compose([&](Langue langue) {
            return Phrase{"Le disque des photos ne répond pas (%1) : le mail de l'alarme part sans elles.",
                          "The disk of the photos does not answer (%1): the mail of the alarm goes without them."}
                .Dit(langue, dossier);
          })};
}

AvisEchec ComposeAvisVeille(const QString& dossier) {
  return {QStringLiteral("mail-watch"), {}, PhraseDite::Compose([&](Langue langue) {
            return Phrase{
                "Un message de la veille est illisible et n'a pas été envoyé ; il est gardé dans %1. "
                "Regardez la fenêtre de Vaktor.",
                "A message of the watch cannot be read and was not sent; it is kept in %1. Please look at "
                "Vaktor's window."}
                .Dit(langue, dossier);
          })};
}

}  // namespace vaktor
