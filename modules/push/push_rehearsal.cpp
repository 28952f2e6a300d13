// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_rehearsal.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTime>

#include "modules/common/trial_image.h"
#include "modules/push/push_notices.h"
#include "platform/base/bounded_log.h"

namespace vaktor {

namespace {

// A person waits in front of the screen, and it may be posted twice.
constexpr DelaisPush kDelaisEssai{.Connexion = 15, .Silence = 20, .Tout = 40};

const QLatin1String kAdresse("pushadresse");

Parametres LitDemande(const QJsonObject& demande) {
  Parametres p;
  p.PushAdresse = demande.value(kAdresse).toString();
  p.PushEntete = demande.value(QLatin1String("pushentete")).toString();
  p.MailSujet = demande.value(QLatin1String("sujet")).toString();
  p.LangueCourante = demande.value(QLatin1String("langue")).toInt(0);
  return p;
}

}  // namespace

bool EstDemandePush(const QByteArray& demande) { return QJsonDocument::fromJson(demande).object().contains(kAdresse); }

FinRepetition RepetePush(const QByteArray& demande, const QString& autorites, const EcritureLigne& ecrit) {
  const Parametres valeurs = LitDemande(QJsonDocument::fromJson(demande).object());
  const Langue langue = LangueParlee(valeurs.LangueCourante);
  const PushLu lu = LitPush(valeurs, autorites);
  if (lu.Manque != ManquePush::kRien || lu.Reglages.Adresse.isEmpty()) {
    ecrit(lu.Manque == ManquePush::kRien ? DitSansPush(langue) : ComposeAvisManque(lu.Manque).Mots.Dit(langue));
    return FinRepetition::kRefuse;
  }
  const QStringList secrets = DonneSecretsPush(lu.Reglages);
  const auto dis = [&](const QString& ligne) { ecrit(NettoieLigne(ligne, secrets)); };
  const auto poste = [&](const MessagePush& message) {
    ResultatPush resultat = EnvoiePush(lu.Reglages, message, {}, kDelaisEssai);
    // An answer of the server answers a command; all else are words of the system.
    dis(resultat.Code != 0 ? QStringLiteral("POST: ") + resultat.Mots : resultat.Mots);
    return resultat;
  };
  dis(lu.Reglages.Hote);
  MessagePush message{valeurs.MailSujet, TexteEssaiPush(langue, QTime::currentTime()), QStringLiteral("vaktor-try.jpg"),
                      CreeImageEssai()};
  ResultatPush resultat = poste(message);
  // As the outbox does it.
  const bool sansImage = resultat.Issue == IssuePush::kTropGrand;
  if (sansImage) {
    message.Image.clear();
    resultat = poste(message);
  }
  dis(DitFinEssaiPush(langue, resultat, lu.Reglages, sansImage));
  return resultat.Issue == IssuePush::kPris ? FinRepetition::kAccepte : FinRepetition::kRefuse;
}

}  // namespace vaktor
