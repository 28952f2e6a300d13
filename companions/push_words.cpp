// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/push_words.h"

#include <QUrl>

#include "texts/phrase.h"

namespace vaktor {

QString MotsPushAdresse(Langue langue) { return Phrase{"Push (adresse https)", "Push (https address)"}.Dit(langue); }

QString AidePushAdresse(Langue langue) {
  return Phrase{
      "À chaque alarme, la photo la plus récente est envoyée à cette adresse : un service de notification ou un "
      "webhook. "
      "Vide : aucun push.",
      "At each alarm the newest photo is posted to this address: a push service or a webhook. Empty: no push."}
      .Dit(langue);
}

QString MotsPushEntete(Langue langue) { return Phrase{"En-tête du push", "Header of the push"}.Dit(langue); }

QString AidePushEntete(Langue langue) {
  return Phrase{"Si le service en demande un pour laisser entrer, par exemple : Authorization: Bearer ...",
                "Where the service asks for one to be let in, for example: Authorization: Bearer ..."}
      .Dit(langue);
}

QString NomEssaiPush(Langue langue) { return Phrase{"Essayer le push", "Try the push"}.Dit(langue); }

QString AideEssaiPush(Langue langue) {
  return Phrase{"Envoie maintenant un push d'essai à cette adresse, sans rien enregistrer.",
                "Posts a push to this address now, as a trial; nothing is saved."}
      .Dit(langue);
}

bool EstPushAdresseMauvaise(const QString& adresse) {
  if (adresse.trimmed().isEmpty()) return false;
  const QUrl url(adresse.trimmed(), QUrl::StrictMode);
  const bool web = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
  return !url.isValid() || !web || url.host().isEmpty();
}

bool EstPushEnteteMauvais(const QString& entete) {
  const QString propre = entete.trimmed();
  const QString nom = propre.section(u':', 0, 0);
  return !propre.isEmpty() && (!propre.contains(u':') || nom.isEmpty() || nom.contains(u' '));
}

}  // namespace vaktor
