// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/failure_notice.h"

#include <QDateTime>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include "platform/base/bounded_log.h"
#include "platform/base/inherited_files.h"
#include "platform/store/bounded_file.h"

namespace vaktor {

namespace {
constexpr qint64 kTailleMax = 64LL * 1024;
}

EtatModule::EtatModule(const QString& dossier, const QString& nom, const Horloge& temps, Notifieur notifie)
    : Chemin_(dossier + QLatin1Char('/') + nom + QStringLiteral(".json")),
      Nom_(nom),
      Temps_(temps),
      Notifie_(std::move(notifie)) {}

void EtatModule::CacheSecret(const QString& secret) {
  if (!secret.isEmpty() && !Secrets_.contains(secret)) Secrets_.append(secret);
}

QString EtatModule::DonneDate() const {
  return Temps_.DonneDate().toString(Qt::ISODate) + QLatin1Char(' ') +
         Temps_.DonneHeure().toString(QStringLiteral("HH:mm:ss"));
}

QString EtatModule::EcritInstant(qint64 millisecondes) {
  return QDateTime::fromMSecsSinceEpoch(millisecondes, Qt::UTC).toString(Qt::ISODate);
}

void EtatModule::Change(const QString& etat, const AvisEchec& avis) {
  Constat_ = {{QStringLiteral("state"), etat},
              {QStringLiteral("since"), DonneDate()},
              {QStringLiteral("subject"), avis.Sujet},
              {QStringLiteral("server"), NettoieLigne(avis.MotsServeur, Secrets_)}};
  for (const Langue langue : kLangues)
    Constat_.insert(kCodesLangues.Dit(langue), NettoieLigne(avis.Mots.Dit(langue), Secrets_));
  Ecrit();
}

bool EtatModule::RelitAncien() {
  QByteArray octets;
  if (LitFichierBorne(Chemin_, kTailleMax, octets) != 0) return false;
  const QJsonObject ancien = QJsonDocument::fromJson(octets).object();
  const QString etat = ancien.value(QStringLiteral("state")).toString();
  if (etat != QLatin1String("ok") && etat != QLatin1String("failure")) return false;
  for (const char* champ : {"state", "since", "subject", "server"})
    Constat_.insert(QLatin1String(champ), ancien.value(QLatin1String(champ)).toString());
  for (const Langue langue : kLangues)
    Constat_.insert(kCodesLangues.Dit(langue), ancien.value(kCodesLangues.Dit(langue)).toString());
  return true;
}

void EtatModule::Demarre(qint32 poignee, qint64 maintenant) {
  Champs_.insert(QStringLiteral("handle"), poignee);
  Champs_.insert(QStringLiteral("started"), EcritInstant(maintenant));
  Champs_.insert(QStringLiteral("alive"), EcritInstant(maintenant));
  if (RelitAncien())
    Ecrit();
  else
    Change(QStringLiteral("ok"), {});
}

void EtatModule::Bat(qint64 maintenant) {
  Champs_.insert(QStringLiteral("alive"), EcritInstant(maintenant));
  Ecrit();
}

void EtatModule::NoteChamp(const QString& champ, const QString& valeur) {
  const bool avant = Champs_.contains(champ);
  const bool apres = !valeur.isEmpty();
  if (!avant && !apres && !Retenu_) return;
  const bool pareil = avant && Champs_.value(champ) == valeur;
  if (pareil && !Retenu_) return;
  if (apres)
    Champs_.insert(champ, valeur);
  else
    Champs_.remove(champ);
  // The counter may wrap: the difference is right all the same.
  const quint32 ecoule = static_cast<quint32>(Temps_.CompteTics()) - EcritA_;
  Retenu_ = avant == apres && ecoule < kRythme;
  if (Retenu_) return;
  if (Constat_.isEmpty())
    Change(QStringLiteral("ok"), {});
  else
    Ecrit();
}

void EtatModule::Ecrit() {
  Retenu_ = false;
  EcritA_ = static_cast<quint32>(Temps_.CompteTics());
  QJsonObject objet = Champs_;
  objet.insert(QStringLiteral("program"), Nom_);
  for (auto champ = Constat_.constBegin(); champ != Constat_.constEnd(); ++champ)
    objet.insert(champ.key(), champ.value());
  QSaveFile fichier(Chemin_);
  if (!fichier.open(QIODevice::WriteOnly)) return;  // a disk that is full must not take the companion down as well
  fichier.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
  fichier.write(QJsonDocument(objet).toJson());
  fichier.commit();
}

void EtatModule::Signale(const AvisEchec& avis) {
  if (avis == Dernier_) return;
  const bool nouveau = avis.Sujet != Dernier_.Sujet;
  Dernier_ = avis;
  EcritBon_ = false;
  Change(QStringLiteral("failure"), avis);
  if (!nouveau || !Notifie_) return;
  QString texte = avis.Mots.Dit(Parlee_);
  if (!avis.MotsServeur.isEmpty()) texte += QLatin1Char(' ') + avis.MotsServeur;
  Notifie_(Nom_, NettoieLigne(texte, Secrets_));
}

void EtatModule::Efface() {
  Dernier_ = {};
  if (EcritBon_) return;  // said at each success: written once
  EcritBon_ = true;
  Change(QStringLiteral("ok"), {});
}

void NotifieBureau(const QString& titre, const QString& texte) {
  const QString programme = QStandardPaths::findExecutable(QStringLiteral("notify-send"));
  if (programme.isEmpty()) return;
  GardeFichiersOuverts();
  // The body is read as markup there; a server's words must not become any.
  QProcess::startDetached(programme, {QStringLiteral("--app-name=Vaktor"), QStringLiteral("--urgency=critical"),
                                      QStringLiteral("--"), titre, texte.toHtmlEscaped()});
}

}  // namespace vaktor
