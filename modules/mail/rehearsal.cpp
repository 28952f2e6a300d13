// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/rehearsal.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include "modules/mail/failure_advice.h"
#include "modules/mail/mail_maker.h"
#include "modules/mail/smtp_sender.h"
#include "platform/base/bounded_log.h"
#include "texts/address_words.h"

namespace vaktor {
namespace {

// A person waits in front of the screen: less patience than the outbox has.
constexpr DelaisEnvoi kDelaisEssai{.Connexion = 15'000, .Reponse = 20'000, .FinDonnees = 40'000};

QByteArray ComposeEssai(const ReglagesCourriel& r) {
  const QString marque = QString::number(QRandomGenerator::system()->generate64(), 36);
  return ComposeMessage({.Expediteur = r.Adresses.Expediteur,
                         .Destinataires = r.Adresses.Destinataires,
                         .Sujet = r.Sujet,
                         .Corps = r.Corps,
                         .Date = QDateTime::currentDateTime(),
                         .Identifiant = QStringLiteral("try-") + marque,
                         .Pieces = {}});
}

}  // namespace

Parametres LitDemandeCourriel(const QJsonObject& demande) {
  Parametres p;
  const auto texte = [&](const char* cle, QString& valeur) {
    const QJsonValue v = demande.value(QLatin1String(cle));
    if (!v.isUndefined()) valeur = v.toVariant().toString();
  };
  const auto drapeau = [&](const char* cle, bool& valeur) {
    valeur = demande.value(QLatin1String(cle)).toBool(valeur);
  };
  texte("destination", p.MailDestination);
  texte("sujet", p.MailSujet);
  texte("corp", p.MailCorps);
  texte("smtpserveur", p.SmtpServeur);
  texte("smtpfrom", p.SmtpFrom);
  texte("smtpport", p.SmtpPort);
  texte("smtpuser", p.SmtpUser);
  texte("smtpjeton", p.SmtpJeton);
  texte("pass", p.SmtpPass);
  drapeau("smtpactif", p.SmtpActif);
  drapeau("smtpneedlogin", p.SmtpNeedLogin);
  drapeau("smtpsanschiffrement", p.SmtpSansChiffrement);
  p.LangueCourante = demande.value(QStringLiteral("langue")).toInt(0);
  return p;
}

FinRepetition RepeteEnvoi(const QByteArray& demande, const QString& autorites, const EcritureLigne& ecrit) {
  const QJsonDocument document = QJsonDocument::fromJson(demande);
  if (!document.isObject()) {
    ecrit(QStringLiteral("JSON ?"));
    return FinRepetition::kDemandeIllisible;
  }
  const Parametres valeurs = LitDemandeCourriel(document.object());
  ReglagesCourriel reglages = TraduitReglages(valeurs, {}, autorites);
  reglages.Envoi.Delais = kDelaisEssai;
  const QStringList secrets = DonneSecrets(reglages.Envoi);
  QString derniere;
  const auto dis = [&](const QString& ligne) {
    derniere = ligne;
    ecrit(NettoieLigne(ligne, secrets));
  };
  if (reglages.Envoi.ParSmtp)
    dis(QStringLiteral("%1:%2").arg(reglages.Envoi.Serveur, QString::number(reglages.Envoi.Port)));
  const Langue langue = LangueParlee(valeurs.LangueCourante);
  const QString fausses =
      reglages.AdressesFausses.isEmpty() ? QString() : DitAdressesFausses(langue, reglages.AdressesFausses);
  if (!fausses.isEmpty()) dis(fausses);
  RappelsEnvoi rappels;
  rappels.Suivi = [&](const QString& commande, const QString& reponse) {
    dis(commande.isEmpty() ? reponse : commande + QStringLiteral(": ") + reponse);
  };
  const ResultatEnvoi resultat = EnvoieCourriel(reglages.Envoi, reglages.Adresses, ComposeEssai(reglages), rappels);
  const AvisEchec avis = ComposeAvisEssai(resultat, reglages.Envoi);
  // What a server said has been told as the step that it answered; what the system said has not.
  if (!resultat.Accepte && !resultat.MotsServeur.isEmpty() && !derniere.endsWith(resultat.MotsServeur))
    dis(resultat.MotsServeur);
  dis(avis.Mots.Dit(langue) + (resultat.Accepte ? DitChiffrement(resultat, reglages.Envoi).Dit(langue) : QString()) +
      (fausses.isEmpty() ? QString() : u' ' + fausses));
  return resultat.Accepte ? FinRepetition::kAccepte : FinRepetition::kRefuse;
}

}  // namespace vaktor
