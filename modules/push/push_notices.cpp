// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_notices.h"

namespace vaktor {

namespace {

struct Ligne {
  IssuePush Issue;
  const char* Sujet;
  Phrase Mots;  // %1 the server
};

constexpr Ligne kLignes[] = {
    {IssuePush::kPanne,
     "push-server",
     {"Le serveur de push %1 ne répond pas ou ne prend rien en ce moment ; Vaktor réessaie de lui-même.",
      "The push server %1 does not answer or takes nothing at the moment; Vaktor keeps trying by itself."}},
    {IssuePush::kAcces,
     "push-login",
     {"Le serveur de push %1 refuse l'accès. Corrigez l'en-tête du push (page eMail, bouton Avancé).",
      "The push server %1 lets nobody in. Correct the header of the push (page eMail, button More)."}},
    {IssuePush::kAdresse,
     "push-address",
     {"Le serveur %1 n'a pas de push à cette adresse. Corrigez-la (page eMail, bouton Avancé).",
      "The server %1 takes no push at this address. Correct it (page eMail, button More)."}},
    {IssuePush::kCertificat,
     "push-certificate",
     {"Le certificat du serveur de push %1 n'est pas valable. Vérifiez l'adresse et la date de l'ordinateur.",
      "The certificate of the push server %1 cannot be trusted. Check the address and the date of this computer."}},
    {IssuePush::kRefuse,
     "push-refused",
     {"Le serveur de push %1 n'a pas voulu d'un push ; il est abandonné.",
      "The push server %1 did not want a push; it was given up."}},
};

}  // namespace

QString TextePush(Langue langue, const QTime& heure) {
  return Phrase{"Intrusion à %1", "Intrusion at %1"}.Dit(langue, heure.toString(QStringLiteral("HH:mm:ss")));
}

AvisEchec ComposeAvisPush(const ResultatPush& resultat, const QString& hote) {
  const IssuePush issue = resultat.Issue == IssuePush::kTropGrand ? IssuePush::kRefuse : resultat.Issue;
  const Ligne* ligne = kLignes;
  for (const Ligne& autre : kLignes)
    if (autre.Issue == issue) ligne = &autre;
  return {QString::fromLatin1(ligne->Sujet), resultat.Mots,
          PhraseDite::Compose([&](Langue langue) { return ligne->Mots.Dit(langue, hote); })};
}

QString TexteEssaiPush(Langue langue, const QTime& heure) {
  return Phrase{"Ceci est un essai de Vaktor, pas une alarme (%1).", "This is a test of Vaktor, not an alarm (%1)."}
      .Dit(langue, heure.toString(QStringLiteral("HH:mm:ss")));
}

QString DitSansPush(Langue langue) {
  return Phrase{"Indiquez d'abord l'adresse du push.", "First enter the address of the push."}.Dit(langue);
}

QString DitFinEssaiPush(Langue langue, const ResultatPush& resultat, const ReglagesPush& reglages, bool sansImage) {
  const QString& hote = reglages.Hote;
  switch (resultat.Issue) {
    case IssuePush::kPris: {
      const Phrase pris = sansImage ? Phrase{"Le serveur %1 n'a pris que le texte : la photo est trop grande pour lui.",
                                             "The server %1 took the words alone: the photo is too large for it."}
                                    : Phrase{"Le serveur %1 a pris le push : voyez s'il est arrivé.",
                                             "The server %1 took the push: see whether it has arrived."};
      const Phrase chiffre =
          reglages.Adresse.startsWith("https:")
              ? Phrase{" La connexion était chiffrée.", " The connection was encrypted."}
              : Phrase{" La connexion n'était pas chiffrée : prenez une adresse https si le serveur en a une.",
                       " The connection was not encrypted: take an https address if the server has one."};
      return pris.Dit(langue, hote) + chiffre.Dit(langue);
    }
    case IssuePush::kPanne:
      return Phrase{"Le serveur de push %1 ne répond pas ou ne prend rien : vérifiez l'adresse, et essayez plus tard.",
                    "The push server %1 does not answer or takes nothing: check the address, and try later."}
          .Dit(langue, hote);
    case IssuePush::kRefuse:
    case IssuePush::kTropGrand:
      return Phrase{
          "Le serveur de push %1 n'a pas voulu du push : lisez sa réponse, et corrigez l'adresse ou l'en-tête.",
          "The push server %1 did not want the push: read its answer, and correct the address or the header."}
          .Dit(langue, hote);
    default:
      return ComposeAvisPush(resultat, hote).Mots.Dit(langue);
  }
}

AvisEchec ComposeAvisManque(ManquePush manque) {
  if (manque == ManquePush::kAdresse) {
    return {QStringLiteral("push-address"), QString(),
            Phrase{"L'adresse du push n'en est pas une : elle commence par https:// (page eMail, bouton Avancé).",
                   "The address of the push is none: it begins with https:// (page eMail, button More)."}};
  }
  return {QStringLiteral("push-header"), QString(),
          Phrase{"L'en-tête du push n'en est pas un : il s'écrit « Nom: valeur » (page eMail, bouton Avancé).",
                 "The header of the push is none: it is written \"Name: value\" (page eMail, button More)."}};
}

AvisEchec ComposeAvisSac(const QString& dossier, const QString& mots) {
  return {QStringLiteral("push-outbox"), mots, PhraseDite::Compose([&](Langue langue) {
            return Phrase{"Le push n'a pas pu être gardé dans %1. Faites de la place sur ce disque.",
                          "The push could not be kept in %1. Make room on this disk."}
                .Dit(langue, dossier);
          })};
}

AvisEchec ComposeAvisSansPhoto(const QString& dossier, const QString& mots) {
  return {QStringLiteral("push-picture"), mots, PhraseDite::Compose([&](Langue langue) {
            return Phrase{
                "La photo du push n'a pas pu être gardée dans %1 : il part sans elle. Faites de la place sur "
                "ce disque.",
                "The picture of the push could not be kept in %1: it goes without it. Make room on this "
                "disk."}
                .Dit(langue, dossier);
          })};
}

}  // namespace vaktor
