// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/mail_maker.h"

#include <algorithm>

#include "base/mail_addresses.h"
#include "companions/contract/intrusion_slate.h"
#include "modules/mail/mail_policy.h"
#include "modules/mail/sendmail_sender.h"
#include "platform/base/system_files.h"
#include "texts/language.h"
#include "texts/phrase.h"

namespace vaktor {
namespace {

constexpr int kPortTls = 465;
constexpr int kPortMax = 65535;
constexpr Phrase kSansPhotos{
    "Les photos de ce mail étaient trop grosses pour le serveur. Elles sont sur l'ordinateur qui veille.",
    "The pictures of this mail were too large for the server. They are on the computer that watches."};

quint16 LitPort(const QString& texte) {
  int port = 0;
  return LitNombre(texte, port) && port > 0 && port <= kPortMax ? static_cast<quint16>(port) : quint16{0};
}

}  // namespace

bool EstCetteMachine(const QString& serveur) {
  const bool boucle = serveur.startsWith(QLatin1StringView("127.")) &&
                      std::ranges::all_of(serveur, [](QChar c) { return c == u'.' || (c >= u'0' && c <= u'9'); });
  return boucle || serveur == QLatin1StringView("::1") ||
         serveur.compare(QLatin1StringView("localhost"), Qt::CaseInsensitive) == 0;
}

ReglagesCourriel TraduitReglages(const Parametres& valeurs, const DossiersModule& dossiers, const QString& autorites) {
  ReglagesCourriel r;
  r.Envoi.ParSmtp = valeurs.SmtpActif;
  r.Envoi.Serveur = valeurs.SmtpServeur.trimmed();
  r.Envoi.Port = LitPort(valeurs.SmtpPort);
  r.Envoi.TlsDesLeDebut = r.Envoi.Port == kPortTls;
  r.Envoi.AvecConnexion = valeurs.SmtpNeedLogin;
  r.Envoi.TlsExige =
      valeurs.SmtpActif && valeurs.SmtpNeedLogin && !valeurs.SmtpSansChiffrement && !EstCetteMachine(r.Envoi.Serveur);
  r.Envoi.Utilisateur = valeurs.SmtpUser;
  r.Envoi.MotDePasse = valeurs.SmtpPass;
  r.Envoi.FichierAutorites = autorites;
  if (!valeurs.SmtpActif) r.Envoi.Sendmail = TrouveSendmail();
  // The system's mail program knows the users of this machine by their names alone.
  const AdressesLues expediteurs = LitAdresses(valeurs.SmtpFrom, !valeurs.SmtpActif);
  const AdressesLues destinataires = LitAdresses(valeurs.MailDestination, !valeurs.SmtpActif);
  r.Adresses.Expediteur = expediteurs.Bonnes.value(0);
  r.Adresses.Destinataires = destinataires.Bonnes;
  r.AdressesFausses = expediteurs.Mauvaises + destinataires.Mauvaises;
  r.Envoi.Jeton = valeurs.SmtpActif && valeurs.SmtpNeedLogin ? valeurs.SmtpJeton.trimmed() : QString();
  r.Envoi.Presente = r.Adresses;
  r.Sujet = valeurs.MailSujet;
  r.Corps = valeurs.MailCorps;
  LitNombre(valeurs.MailNombrePhoto, r.NombrePhoto);
  LitNombre(valeurs.MailNombreMail, r.NombreMail);
  r.Envoi.Parlee = r.Parlee = LangueParlee(valeurs.LangueCourante);
  r.GardePhotos = valeurs.PhotoActif;
  r.Ardoise = dossiers.Etat + u'/' + kFichierArdoise;
  r.DossierPhotos = valeurs.PhotoActif ? CheminNatif(valeurs.RepertoirePhoto) : dossiers.CheminTempFtp();
  return r;
}

CourrielPret PrepareEnvoi(const CourrielEnAttente& courriel, const QByteArray& message, const ReglagesEnvoi& reglages) {
  const QString& present = reglages.Presente.Expediteur;
  CourrielPret pret{{present.isEmpty() ? courriel.Expediteur : present, courriel.Destinataires},
                    MetExpediteur(message, present)};
  if (!courriel.Sort.Allege) return pret;
  const QByteArray allege = RetirePieces(pret.Message, kSansPhotos.Dit(reglages.Parlee));
  if (!allege.isEmpty()) pret.Message = allege;
  return pret;
}

QStringList DonneSecrets(const ReglagesEnvoi& r) {
  // Servers like to quote what they were sent, and they are sent it in these forms (RFC 4616, AUTH LOGIN).
  const QByteArray pass = r.MotDePasse.toUtf8();
  const QByteArray user = r.Utilisateur.toUtf8();
  if (pass.isEmpty()) return {};
  const QByteArray plain = QByteArray(1, '\0') + user + QByteArray(1, '\0') + pass;
  return {r.MotDePasse, QString::fromLatin1(pass.toBase64()), QString::fromLatin1(plain.toBase64())};
}

}  // namespace vaktor
