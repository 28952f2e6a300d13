// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/ftp_notices.h"

namespace vaktor {

namespace {

struct Ligne {
  IssueFtp Issue;
  const char* Mot;
  const char* Sujet;
  Phrase Mots;  // %1 the server
};

constexpr Ligne kLignes[] = {
    {IssueFtp::kSansReseau,
     "Netdc",
     "ftp-network",
     {"Pas de connexion internet ; Vaktor essaiera de nouveau de lui-même. Vérifiez le réseau si cela dure.",
      "There is no internet connection; Vaktor will try again by itself. Check the network if this lasts."}},
    {IssueFtp::kServeurInconnu,
     "SerER",
     "ftp-server",
     {"Le serveur FTP %1 est introuvable. Vérifiez son adresse.",
      "The FTP server %1 cannot be found. Check its address."}},
    {IssueFtp::kAccesRefuse,
     "LogEr",
     "ftp-login",
     {"Le serveur FTP %1 refuse le nom ou le mot de passe. Corrigez-les dans la page FTP.",
      "The FTP server %1 refuses the user name or the password. Correct them on the FTP page."}},
    {IssueFtp::kDossierAbsent,
     "RepER",
     "ftp-folder",
     {"Le répertoire demandé n'existe pas sur le serveur FTP %1. Créez-le ou corrigez-le dans la page FTP.",
      "The folder does not exist on the FTP server %1. Create it or correct it on the FTP page."}},
    {IssueFtp::kPasDeConnexion,
     "ErrCo",
     "ftp-connection",
     {"La connexion au serveur FTP %1 a échoué. Vérifiez l'adresse, le port et le pare-feu.",
      "The connection to the FTP server %1 failed. Check address, port and firewall."}},
    {IssueFtp::kRefus,
     "ErrCo",
     "ftp-refused",
     {"Le serveur FTP %1 refuse l'image ou la page. Vérifiez la place et les droits dans le répertoire.",
      "The FTP server %1 refuses the picture or the page. Check the space and the rights in the folder."}},
};

// Nobody knows whether it is the server of before: nothing was sent.
AvisEchec CreeAvisSansMemoire(const ResultatFtp& resultat, const AccesFtp& acces) {
  return {QStringLiteral("ftp-memory"), resultat.Mots, PhraseDite::Compose([&](Langue langue) {
            return Phrase{
                "Ce que le serveur %1 a montré les fois d'avant ne peut pas être lu : rien n'est envoyé sans "
                "chiffrement sûr. Vaktor essaiera de nouveau ; vérifiez ce fichier si cela dure.",
                "What the server %1 has shown before cannot be read: nothing is sent without safe encryption. "
                "Vaktor will try again; check this file if it lasts."}
                .Dit(langue, acces.Hote);
          })};
}

// A server that is not what it was: nothing was sent, and only the user can tell whether that is meant.
AvisEchec CreeAvisMefiance(const ResultatFtp& resultat, const AccesFtp& acces) {
  const bool cle = resultat.Precision == PrecisionFtp::kCleHote;
  return {
      cle ? QStringLiteral("ftp-key") : QStringLiteral("ftp-clear"), resultat.Mots,
      PhraseDite::Compose([&](Langue langue) {
        return (cle ? Phrase{"Le serveur %1 n'a plus la clé qu'il avait : rien n'est envoyé. Demandez à votre "
                             "hébergeur s'il l'a changée.",
                             "The server %1 has another key than before: nothing is sent. Ask your web host whether "
                             "it has changed it."}
                    : Phrase{"Le serveur %1 parlait chiffré et ne le propose plus : rien n'est envoyé. Demandez à "
                             "votre hébergeur.",
                             "The server %1 used to encrypt and does not offer it any more: nothing is sent. Ask "
                             "your web host."})
            .Dit(langue, acces.Hote);
      })};
}

const Ligne& TrouveLigne(IssueFtp issue) {
  for (const Ligne& ligne : kLignes)
    if (ligne.Issue == issue) return ligne;
  return kLignes[4];
}

}  // namespace

QString DonneMotEchec(IssueFtp issue) { return QString::fromLatin1(TrouveLigne(issue).Mot); }

AvisEchec CreeAvis(const ResultatFtp& resultat, const AccesFtp& acces) {
  if (resultat.Precision == PrecisionFtp::kTlsPerdu || resultat.Precision == PrecisionFtp::kCleHote)
    return CreeAvisMefiance(resultat, acces);
  if (resultat.Precision == PrecisionFtp::kMemoire) return CreeAvisSansMemoire(resultat, acces);
  const Ligne& ligne = TrouveLigne(resultat.Issue);
  return {QString::fromLatin1(ligne.Sujet), resultat.Mots, PhraseDite::Compose([&](Langue langue) {
            return ligne.Mots.Dit(langue).replace(QLatin1String("%1"), acces.Hote);
          })};
}

AvisEchec CreeAvisIncomplet() {
  return {QStringLiteral("ftp-settings"), QString(),
          Phrase{"Il manque l'adresse du serveur FTP, le nom ou le mot de passe. Remplissez la page FTP.",
                 "The address of the FTP server, the user name or the password is missing. Complete the FTP page."}};
}

AvisEchec CreeAvisPhotos(const ResultatFtp& resultat) {
  return {QStringLiteral("ftp-photos"), resultat.Mots,
          Phrase{"Le serveur FTP refuse les photos ; elles attendent. Faites de la place sur le serveur.",
                 "The FTP server refuses the photos; they wait. Make room on the server."}};
}

AvisEchec CreeAvisSource(const ResultatFtp& resultat) {
  return {QStringLiteral("ftp-source"), resultat.Mots,
          Phrase{"Les photos à publier ne peuvent pas être lues ; elles attendent. Vérifiez les droits et le disque.",
                 "The photos that are to be published cannot be read; they wait. Check rights and disk."}};
}

AvisEchec CreeAvisMemoire(const QString& fichier) {
  return {QStringLiteral("ftp-damaged"), QString(), PhraseDite::Compose([&](Langue langue) {
            return Phrase{
                "Ce qui était retenu du site était abîmé : il faut le croire nouveau. Le fichier est gardé "
                "sous %1.",
                "What was remembered of the site was damaged: it has to be taken for a new one. The file is "
                "kept as %1."}
                .Dit(langue, fichier);
          })};
}

AvisEchec CreeAvisPlace() {
  return {QStringLiteral("ftp-space"), QString(),
          Phrase{"Trop de photos attendent d'être publiées ; les plus anciennes ont été effacées.",
                 "Too many photos wait to be published; the oldest have been deleted."}};
}

}  // namespace vaktor
