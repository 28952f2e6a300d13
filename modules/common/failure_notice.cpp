#include "modules/common/failure_notice.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include "modules/common/bounded_log.h"

namespace vaktor {

EtatModule::EtatModule(const QString& dossier, const QString& nom, const Horloge& temps, Notifieur notifie)
    : Chemin_(dossier + QLatin1Char('/') + nom + QStringLiteral(".json")),
      Nom_(nom),
      Temps_(temps),
      Notifie_(std::move(notifie)) {}

void EtatModule::CacheSecret(const QString& secret) {
  if (!secret.isEmpty() && !Secrets_.contains(secret)) Secrets_.append(secret);
}

void EtatModule::Ecrit(const QString& etat, const AvisEchec& avis) const {
  const QString depuis = Temps_.DonneDate().toString(Qt::ISODate) + QLatin1Char(' ') +
                         Temps_.DonneHeure().toString(QStringLiteral("HH:mm:ss"));
  const QJsonObject objet{{QStringLiteral("program"), Nom_},
                          {QStringLiteral("state"), etat},
                          {QStringLiteral("since"), depuis},
                          {QStringLiteral("subject"), avis.Sujet},
                          {QStringLiteral("server"), NettoieLigne(avis.MotsServeur, Secrets_)},
                          {QStringLiteral("fr"), NettoieLigne(avis.Francais, Secrets_)},
                          {QStringLiteral("en"), NettoieLigne(avis.English, Secrets_)}};
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
  Ecrit(QStringLiteral("failure"), avis);
  if (!nouveau || !Notifie_) return;
  QString texte = Langue_ == 1 ? avis.English : avis.Francais;
  if (!avis.MotsServeur.isEmpty()) texte += QLatin1Char(' ') + avis.MotsServeur;
  Notifie_(Nom_, NettoieLigne(texte, Secrets_));
}

void EtatModule::Efface() {
  Dernier_ = {};
  if (EcritBon_) return;  // said at each success: written once
  EcritBon_ = true;
  Ecrit(QStringLiteral("ok"), {});
}

void NotifieBureau(const QString& titre, const QString& texte) {
  const QString programme = QStandardPaths::findExecutable(QStringLiteral("notify-send"));
  if (programme.isEmpty()) return;
  // The body is read as markup there; a server's words must not become any.
  QProcess::startDetached(programme, {QStringLiteral("--app-name=Vaktor"), QStringLiteral("--urgency=critical"),
                                      QStringLiteral("--"), titre, texte.toHtmlEscaped()});
}

}  // namespace vaktor
