// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folders/companion_status_reader.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <utility>

#include "companions/contract/command_words.h"
#include "platform/store/bounded_file.h"

namespace vaktor {
namespace {

constexpr qint64 kOctetsMax = 64LL * 1024;
constexpr qsizetype kMotsMax = 300;

std::optional<qint64> LitAge(const QJsonObject& objet, const char* champ, qint64 maintenant, QString& texte) {
  texte = objet.value(QLatin1String(champ)).toString();
  const QDateTime instant = QDateTime::fromString(texte, Qt::ISODate);
  if (!instant.isValid()) return std::nullopt;
  return std::max<qint64>(0, maintenant - instant.toMSecsSinceEpoch());  // a clock that was set back
}

EtatCompagnon LitEtat(const QString& dossier, Compagnon qui, qint64 maintenant) {
  QByteArray octets;
  const QString fichier = dossier + u'/' + DonneIdentite(qui).Programme + QStringLiteral(".json");
  if (LitFichierBorne(fichier, kOctetsMax, octets) != 0) return {};
  return ComprendEtat(octets, maintenant);
}

}  // namespace

EtatCompagnon ComprendEtat(const QByteArray& octets, qint64 maintenant) {
  EtatCompagnon etat;
  const QJsonObject objet = QJsonDocument::fromJson(octets).object();
  etat.Poignee = std::max(0, objet.value(QStringLiteral("handle")).toInt());
  etat.Attente = LitAge(objet, "waiting_since", maintenant, etat.AttenteDite);
  etat.Publie = LitAge(objet, "live_published", maintenant, etat.PublieDit);
  etat.Battement = objet.value(QStringLiteral("alive")).toString();
  etat.AttentePush = LitAge(objet, "push_waiting_since", maintenant, etat.AttentePushDite);
  etat.MotsPush = objet.value(QStringLiteral("push_server")).toString().simplified().left(kMotsMax);
  etat.Accepte = objet.value(QStringLiteral("accepted")).toString();
  if (objet.value(QStringLiteral("state")).toString() == QLatin1String("failure")) {
    etat.MotsServeur = objet.value(QStringLiteral("server")).toString().simplified().left(kMotsMax);
    etat.Sujet = objet.value(QStringLiteral("subject")).toString().left(kMotsMax);
  }
  return etat;
}

LecteurEtatsFichiers::LecteurEtatsFichiers(QString dossier, Maintenant maintenant, Question::Montre montre)
    : Dossier_(std::move(dossier)), Maintenant_(std::move(maintenant)), Question_(std::move(montre)) {}

void LecteurEtatsFichiers::LitEtats(Recoit recoit) {
  if (Question_.Attend()) return;
  Recoit_ = std::move(recoit);
  const auto lit = [dossier = Dossier_, maintenant = Maintenant_] {
    const qint64 instant = maintenant();
    return EtatsCompagnons{LitEtat(dossier, Compagnon::kFtp, instant), LitEtat(dossier, Compagnon::kMail, instant),
                           LitEtat(dossier, Compagnon::kSon, instant)};
  };
  Question_.Pose(lit, {}, [this](const EtatsCompagnons& etats) {
    const Recoit suite = std::exchange(Recoit_, {});
    if (suite) suite(etats);
  });
}

}  // namespace vaktor
