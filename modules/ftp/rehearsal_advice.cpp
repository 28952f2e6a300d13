// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/rehearsal_advice.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "texts/phrase.h"

namespace vaktor {

namespace {

struct LigneEssai {
  CauseEssai Cause;
  Phrase Mots;
};

// %1 the server, %2 the port, %3 the folder, %4 the file of the trial.
constexpr std::array<LigneEssai, 30> kPhrases = {{
    {CauseEssai::kReussi,
     {"La page en direct peut être publiée : le serveur a pris un fichier d'essai, l'a remplacé et l'a effacé.",
      "The live page can be published: the server took a trial file, replaced it and deleted it."}},
    {CauseEssai::kReste,
     {"La page en direct peut être publiée, mais le serveur ne laisse pas effacer le fichier d'essai %4 : effacez-le "
      "vous-même.",
      "The live page can be published, but the server does not let the trial file %4 be deleted: delete it yourself."}},
    {CauseEssai::kSansServeur,
     {"Il manque l'adresse du serveur FTP : celle que donne votre hébergeur.",
      "The address of the FTP server is missing: the one that your web host gives."}},
    {CauseEssai::kAdresse,
     {"L'adresse ftp n'en est pas une : indiquez le serveur seul, au besoin avec un port (ftp.example.org:2121).",
      "The ftp address is none: enter the server alone, with a port if it needs one (ftp.example.org:2121)."}},
    {CauseEssai::kWeb,
     {"C'est une adresse du web (WebDAV, peut-être), que Vaktor ne parle pas : demandez à votre hébergeur l'accès FTP "
      "ou "
      "SFTP.",
      "This is an address of the web (WebDAV, perhaps), which Vaktor does not speak: ask your web host for FTP or "
      "SFTP."}},
    {CauseEssai::kSansUtilisateur,
     {"Il manque le nom d'utilisateur de l'accès FTP.", "The user name of the FTP account is missing."}},
    {CauseEssai::kSansMotDePasse,
     {"Il manque le mot de passe de l'accès FTP.", "The password of the FTP account is missing."}},
    {CauseEssai::kSigne,
     {"Le nom, le mot de passe ou le répertoire contient un signe invisible : tapez-les de nouveau au lieu de les "
      "coller.",
      "The user name, the password or the folder holds an invisible sign: type them anew instead of pasting them."}},
    {CauseEssai::kSansReseau,
     {"L'ordinateur n'a pas de connexion Internet en ce moment : vérifiez le réseau.",
      "The computer has no Internet connection at the moment: check the network."}},
    {CauseEssai::kServeurInconnu,
     {"Le serveur %1 est introuvable : vérifiez l'adresse ftp, lettre par lettre.",
      "The server %1 cannot be found: check the ftp address, letter by letter."}},
    {CauseEssai::kPersonne,
     {"Le serveur %1 n'accepte aucune connexion sur le port %2 : vérifiez l'adresse, et le port si votre hébergeur en "
      "donne un autre (%1:2121).",
      "The server %1 accepts no connection on port %2: check the address, and the port if your web host gives another "
      "one (%1:2121)."}},
    {CauseEssai::kMuet,
     {"Le serveur %1 ne répond pas sur le port %2 : vérifiez l'adresse et le port, puis le pare-feu.",
      "The server %1 does not answer on port %2: check address and port, then the firewall."}},
    {CauseEssai::kPasFtp,
     {"Ce n'est pas du FTP qui répond sur le port %2 de %1 : demandez à votre hébergeur l'adresse FTP. Si c'est du "
      "SFTP, Vaktor le parle sur le port 22 (%1:22).",
      "What answers on port %2 of %1 is not FTP: ask your web host for the FTP address. If it is SFTP, Vaktor speaks "
      "it "
      "on port 22 (%1:22)."}},
    {CauseEssai::kEcarte,
     {"Le serveur %1 refuse la connexion : lisez sa réponse, puis essayez plus tard ou demandez à votre hébergeur.",
      "The server %1 turns the connection away: read its answer, then try later or ask your web host."}},
    {CauseEssai::kComplet,
     {"Le serveur %1 n'accepte pas une connexion de plus : si la surveillance tourne, arrêtez-la, puis essayez encore.",
      "The server %1 accepts no further connection: if the live cam is on, switch it off, then try again."}},
    {CauseEssai::kCertificat,
     {"Le certificat du serveur %1 n'est pas valable : écrivez son nom exactement comme votre hébergeur le donne, et "
      "vérifiez la date de l'ordinateur.",
      "The certificate of the server %1 cannot be trusted: write its name exactly as your web host gives it, and check "
      "the date of this computer."}},
    {CauseEssai::kTls,
     {"La connexion chiffrée avec %1 n'a pas pu être établie : vérifiez le port (21 d'ordinaire), ou demandez à votre "
      "hébergeur.",
      "The encrypted connection with %1 could not be made: check the port (usually 21), or ask your web host."}},
    {CauseEssai::kTlsPerdu,
     {"Le serveur %1 parlait chiffré et ne le propose plus : rien n'a été envoyé. Demandez à votre hébergeur ; "
      "quelqu'un "
      "écoute peut-être en route.",
      "The server %1 used to encrypt and does not offer it any more: nothing was sent. Ask your web host; somebody may "
      "listen on the way."}},
    {CauseEssai::kCleHote,
     {"Le serveur %1 n'a plus la clé qu'il avait : rien n'a été envoyé. Demandez à votre hébergeur s'il l'a changée ; "
      "sinon, ce n'est pas lui qui répond.",
      "The server %1 has another key than before: nothing was sent. Ask your web host whether it has changed it; if "
      "not, "
      "it is somebody else who answers."}},
    {CauseEssai::kMemoire,
     {"Ce que le serveur %1 a montré les fois d'avant ne peut pas être lu : rien n'a été envoyé. Vérifiez ce fichier, "
      "puis essayez encore.",
      "What the server %1 has shown before cannot be read: nothing was sent. Check this file, then try again."}},
    {CauseEssai::kAcces,
     {"Le serveur %1 refuse le nom d'utilisateur ou le mot de passe : corrigez-les ; ce sont ceux de l'accès FTP, "
      "souvent "
      "pas ceux du compte client.",
      "The server %1 refuses the user name or the password: correct them; they are those of the FTP account, often not "
      "those of the customer account."}},
    {CauseEssai::kDossier,
     {"Le répertoire « %3 » n'existe pas sur le serveur : corrigez-le ou créez-le ; vide, c'est celui où l'on arrive.",
      "The folder \"%3\" does not exist on the server: correct it or create it; empty, it is the one you arrive in."}},
    {CauseEssai::kDonnees,
     {"La connexion des données (mode passif) ne s'établit pas : autorisez Vaktor dans le pare-feu, ou demandez à "
      "votre "
      "hébergeur d'ouvrir les ports du mode passif.",
      "The data connection (passive mode) cannot be made: allow Vaktor in the firewall, or ask your web host to open "
      "the "
      "ports of the passive mode."}},
    {CauseEssai::kPlace,
     {"Le serveur n'a plus de place : effacez-y des fichiers, par exemple d'anciennes photos, ou demandez plus "
      "d'espace.",
      "The server has no space left: delete files there, old photos for example, or ask for more space."}},
    {CauseEssai::kRefus,
     {"Le serveur ne laisse rien écrire dans ce répertoire : choisissez-en un où vous avez le droit d'écrire.",
      "The server lets nothing be written in this folder: choose one in which you may write."}},
    {CauseEssai::kRemplacement,
     {"Le serveur prend un fichier mais ne le laisse pas renommer ni remplacer : demandez ces droits à votre "
      "hébergeur, "
      "la page en a besoin à chaque image.",
      "The server takes a file but does not let it be renamed or replaced: ask your web host for these rights, the "
      "page "
      "needs them for each picture."}},
    {CauseEssai::kTaille,
     {"Le serveur a pris le fichier sans le garder en entier : vérifiez la place qui reste sur votre espace web.",
      "The server took the file and did not keep all of it: check the space that is left on your web space."}},
    {CauseEssai::kDelai,
     {"Le serveur %1 a cessé de répondre : essayez encore, et vérifiez le pare-feu si cela dure.",
      "The server %1 stopped answering: try again, and check the firewall if it lasts."}},
    {CauseEssai::kCoupure,
     {"La connexion avec %1 a été coupée : essayez encore, et demandez à votre hébergeur si cela dure.",
      "The connection with %1 broke: try again, and ask your web host if it lasts."}},
    {CauseEssai::kInterrompu, {"L'essai a été interrompu.", "The trial was interrupted."}},
}};

constexpr int kPremierRefus = 400;  // RFC 959, 4.2

constexpr Phrase kPeutRester{" Le fichier d'essai %4 est peut-être resté sur le serveur.",
                             " The trial file %4 may have stayed on the server."};

constexpr std::pair<ManqueAcces, CauseEssai> kManques[] = {{ManqueAcces::kServeur, CauseEssai::kSansServeur},
                                                           {ManqueAcces::kAdresse, CauseEssai::kAdresse},
                                                           {ManqueAcces::kWeb, CauseEssai::kWeb},
                                                           {ManqueAcces::kUtilisateur, CauseEssai::kSansUtilisateur},
                                                           {ManqueAcces::kMotDePasse, CauseEssai::kSansMotDePasse},
                                                           {ManqueAcces::kSigne, CauseEssai::kSigne}};
constexpr std::pair<PrecisionFtp, CauseEssai> kPrecisions[] = {
    {PrecisionFtp::kPersonne, CauseEssai::kPersonne}, {PrecisionFtp::kDelai, CauseEssai::kDelai},
    {PrecisionFtp::kPasFtp, CauseEssai::kPasFtp},     {PrecisionFtp::kCertificat, CauseEssai::kCertificat},
    {PrecisionFtp::kTls, CauseEssai::kTls},           {PrecisionFtp::kTlsPerdu, CauseEssai::kTlsPerdu},
    {PrecisionFtp::kCleHote, CauseEssai::kCleHote},   {PrecisionFtp::kComplet, CauseEssai::kComplet},
    {PrecisionFtp::kDonnees, CauseEssai::kDonnees},   {PrecisionFtp::kPlace, CauseEssai::kPlace},
    {PrecisionFtp::kCoupure, CauseEssai::kCoupure},   {PrecisionFtp::kMemoire, CauseEssai::kMemoire}};

/// kReussi for what stands in no row.
template <typename Table, typename Cle>
CauseEssai Traduit(const Table& table, Cle cle) {
  const auto ligne = std::find_if(std::begin(table), std::end(table), [cle](const auto& l) { return l.first == cle; });
  return ligne == std::end(table) ? CauseEssai::kReussi : ligne->second;
}

// In one pass: the folder is the user's own text and may hold such a sign itself.
QString Remplit(const QString& modele, const QStringList& valeurs) {
  QString texte;
  for (qsizetype i = 0; i < modele.size(); ++i) {
    const bool place = modele[i] == u'%' && i + 1 < modele.size();
    const int numero = place ? modele[i + 1].digitValue() : 0;
    if (numero < 1 || numero > valeurs.size()) {
      texte += modele[i];
      continue;
    }
    texte += valeurs[numero - 1];
    ++i;
  }
  return texte;
}

}  // namespace

CauseEssai DonneCauseManque(ManqueAcces manque) { return Traduit(kManques, manque); }

CauseEssai DonneCauseEchec(const ResultatFtp& resultat, const QByteArray& refuse, bool salue) {
  if (resultat.Issue == IssueFtp::kSansReseau) return CauseEssai::kSansReseau;
  if (resultat.Issue == IssueFtp::kServeurInconnu) return CauseEssai::kServeurInconnu;
  const CauseEssai precise = Traduit(kPrecisions, resultat.Precision);
  if (precise != CauseEssai::kReussi) return precise == CauseEssai::kDelai && !salue ? CauseEssai::kMuet : precise;
  switch (resultat.Issue) {
    case IssueFtp::kAccesRefuse:
      return CauseEssai::kAcces;
    case IssueFtp::kDossierAbsent:
      return CauseEssai::kDossier;
    case IssueFtp::kRefus:
      return refuse == "RNFR" || refuse == "RNTO" ? CauseEssai::kRemplacement : CauseEssai::kRefus;
    default:
      break;
  }
  if (salue) return CauseEssai::kCoupure;
  return resultat.Mots.left(3).toInt() >= kPremierRefus ? CauseEssai::kEcarte : CauseEssai::kMuet;
}

QString ComposePhraseEssai(CauseEssai cause, Langue langue, const DetailsEssai& details) {
  const auto* phrase =
      std::find_if(kPhrases.begin(), kPhrases.end(), [cause](const LigneEssai& l) { return l.Cause == cause; });
  QString texte = phrase == kPhrases.end() ? QString() : phrase->Mots.Dit(langue);
  if (cause != CauseEssai::kReste && !details.Restes.isEmpty()) texte += kPeutRester.Dit(langue);
  return Remplit(texte, {details.Acces.Hote, QString::number(details.Acces.Port), details.Acces.Dossier,
                         details.Restes.join(QStringLiteral(", "))});
}

}  // namespace vaktor
