// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/smtp_settings.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "companions/smtp_words.h"

namespace vaktor {

ChampsSmtp DonneChampsSmtp(const Parametres& reglages) {
  return {.Serveur = reglages.SmtpActif, .Connexion = reglages.SmtpActif && reglages.SmtpNeedLogin};
}

QString CorrigePortSmtp(const QString& texte) {
  const bool chiffres = std::all_of(texte.cbegin(), texte.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
  return chiffres ? texte : QStringLiteral("25");
}

bool ManqueServeur(const TextesSmtp& textes) {
  return textes.Serveur == QStringLiteral("smtp.") || textes.Serveur.isEmpty() || textes.Expediteur.isEmpty();
}

bool VeutPushSeul(const Parametres& reglages) {
  const bool sansServeur = reglages.SmtpServeur.isEmpty() || reglages.SmtpServeur == QStringLiteral("smtp.");
  return !reglages.PushAdresse.isEmpty() && sansServeur && reglages.SmtpFrom.isEmpty();
}

bool ManqueConnexion(const TextesSmtp& textes) {
  return textes.Utilisateur.isEmpty() || (textes.MotDePasse.isEmpty() && textes.Jeton.trimmed().isEmpty());
}

QByteArray ComposeDemandeEssai(const Parametres& reglages, const QString& destination) {
  const Langue langue = LangueParlee(reglages.LangueCourante);
  const QJsonObject demande{
      {QStringLiteral("destination"), destination},
      {QStringLiteral("sujet"), SujetEssai(langue, reglages.MailSujet)},
      {QStringLiteral("corp"), CorpsEssai(langue, reglages.MailCorps)},
      {QStringLiteral("smtpserveur"), reglages.SmtpServeur},
      {QStringLiteral("smtpfrom"), reglages.SmtpFrom},
      {QStringLiteral("smtpport"), reglages.SmtpPort},
      {QStringLiteral("smtpuser"), reglages.SmtpUser},
      {QStringLiteral("pass"), reglages.SmtpPass},
      {QStringLiteral("smtpactif"), reglages.SmtpActif},
      {QStringLiteral("smtpneedlogin"), reglages.SmtpNeedLogin},
      {QStringLiteral("smtpsanschiffrement"), reglages.SmtpSansChiffrement},
      {QStringLiteral("smtpjeton"), reglages.SmtpJeton},
      {QStringLiteral("langue"), reglages.LangueCourante},
  };
  return QJsonDocument(demande).toJson(QJsonDocument::Compact);
}

QByteArray ComposeDemandeEssaiPush(const Parametres& reglages) {
  const QJsonObject demande{
      {QStringLiteral("pushadresse"), reglages.PushAdresse},
      {QStringLiteral("pushentete"), reglages.PushEntete},
      {QStringLiteral("sujet"), SujetEssai(LangueParlee(reglages.LangueCourante), reglages.MailSujet)},
      {QStringLiteral("langue"), reglages.LangueCourante},
  };
  return QJsonDocument(demande).toJson(QJsonDocument::Compact);
}

}  // namespace vaktor
