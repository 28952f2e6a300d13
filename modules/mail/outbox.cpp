#include "outbox.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <algorithm>
#include <array>

namespace vaktor {
namespace {

constexpr const char* kFinCourriel = ".mail";
constexpr const char* kFinEnvoye = ".sent";
constexpr const char* kFinMauvais = ".bad";
constexpr qint64 kTeteMax = 64 * 1024;

QByteArray ComposeTete(const CourrielEnAttente& c) {
  const QJsonObject tete{{QStringLiteral("made"), c.FaitA},
                         {QStringLiteral("attempts"), c.Essais},
                         {QStringLiteral("next"), c.ProchainEssai},
                         {QStringLiteral("from"), c.Expediteur},
                         {QStringLiteral("to"), QJsonArray::fromStringList(c.Destinataires)}};
  return QJsonDocument(tete).toJson(QJsonDocument::Compact) + '\n';
}

bool LitTete(const QByteArray& ligne, CourrielEnAttente& c) {
  const QJsonDocument document = QJsonDocument::fromJson(ligne);
  if (!document.isObject()) return false;
  const QJsonObject tete = document.object();
  c.FaitA = tete.value(QStringLiteral("made")).toInteger(-1);
  c.Essais = tete.value(QStringLiteral("attempts")).toInt(-1);
  c.ProchainEssai = tete.value(QStringLiteral("next")).toInteger(0);
  c.Expediteur = tete.value(QStringLiteral("from")).toString();
  for (const QJsonValue& v : tete.value(QStringLiteral("to")).toArray()) c.Destinataires.append(v.toString());
  return c.FaitA >= 0 && c.Essais >= 0 && !c.Destinataires.isEmpty();
}

}  // namespace

BoiteEnvoi::BoiteEnvoi(const QString& dossier) : Dossier_(dossier) {
  QDir().mkpath(dossier);
  QFile::setPermissions(dossier, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
  QDir d(dossier);
  // What is not a whole mail is the rest of a kill: ".sent" was taken by a server, the others were never complete.
  for (const QString& nom : d.entryList(QDir::Files)) {
    if (!nom.endsWith(QLatin1String(kFinCourriel)) && !nom.endsWith(QLatin1String(kFinMauvais))) d.remove(nom);
  }
}

QString BoiteEnvoi::Chemin(const QString& nom, const char* fin) const {
  return Dossier_ + u'/' + nom + QLatin1String(fin);
}

bool BoiteEnvoi::EcritFichier(const CourrielEnAttente& courriel, const QByteArray& message) {
  // QSaveFile writes beside the file, flushes to disk and renames: whole old or whole new, nothing between.
  QSaveFile fichier(Chemin(courriel.Nom, kFinCourriel));
  if (!fichier.open(QIODevice::WriteOnly)) return false;
  fichier.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  fichier.write(ComposeTete(courriel));
  fichier.write(message);
  return fichier.commit();
}

bool BoiteEnvoi::Depose(const CourrielEnAttente& courriel, const QByteArray& message) {
  return EcritFichier(courriel, message);
}

QList<CourrielEnAttente> BoiteEnvoi::Liste() {
  QList<CourrielEnAttente> liste;
  QDir d(Dossier_);
  for (const QString& fichier : d.entryList({QStringLiteral("*.mail")}, QDir::Files, QDir::Name)) {
    CourrielEnAttente c;
    c.Nom = fichier.chopped(5);
    QFile f(d.filePath(fichier));
    if (f.open(QIODevice::ReadOnly) && LitTete(f.readLine(kTeteMax), c)) {
      liste.append(c);
    } else {
      QFile::remove(Chemin(c.Nom, kFinMauvais));
      QFile::rename(Chemin(c.Nom, kFinCourriel), Chemin(c.Nom, kFinMauvais));
    }
  }
  return liste;
}

QByteArray BoiteEnvoi::LitMessage(const QString& nom) const {
  QFile f(Chemin(nom, kFinCourriel));
  if (!f.open(QIODevice::ReadOnly)) return {};
  f.readLine(kTeteMax);
  return f.readAll();
}

void BoiteEnvoi::Acheve(const QString& nom) {
  // The rename is what counts: from here on a restart finds nothing to send.
  QFile::rename(Chemin(nom, kFinCourriel), Chemin(nom, kFinEnvoye));
  QFile::remove(Chemin(nom, kFinEnvoye));
}

void BoiteEnvoi::Reporte(const QString& nom, qint64 maintenant) {
  CourrielEnAttente c;
  c.Nom = nom;
  QFile f(Chemin(nom, kFinCourriel));
  if (!f.open(QIODevice::ReadOnly) || !LitTete(f.readLine(kTeteMax), c)) return;
  const QByteArray message = f.readAll();
  f.close();
  ++c.Essais;
  c.ProchainEssai = maintenant + AttenteApresEssai(c.Essais);
  EcritFichier(c, message);  // a full disk leaves the old file: the mail stays and is only tried sooner
}

void BoiteEnvoi::Abandonne(const QString& nom) { QFile::remove(Chemin(nom, kFinCourriel)); }

QStringList BoiteEnvoi::Elague(qint64 maintenant) {
  QStringList abandonnes;
  QList<CourrielEnAttente> liste = Liste();
  qint64 octets = 0;
  for (const CourrielEnAttente& c : liste) octets += QFile(Chemin(c.Nom, kFinCourriel)).size();
  qsizetype reste = liste.size();
  for (const CourrielEnAttente& c : liste) {
    const bool tropVieux = maintenant - c.FaitA > kAgeMaxMs;
    if (!tropVieux && reste <= kCourrielsMax && octets <= kOctetsMax) break;
    octets -= QFile(Chemin(c.Nom, kFinCourriel)).size();
    --reste;
    Abandonne(c.Nom);
    abandonnes.append(c.Nom);
  }
  return abandonnes;
}

qint64 BoiteEnvoi::AttenteApresEssai(int essais) {
  static constexpr std::array<qint64, 8> kSecondes = {10, 30, 60, 120, 300, 600, 900, 1800};
  const auto i = static_cast<std::size_t>(std::clamp(essais, 1, static_cast<int>(kSecondes.size())) - 1);
  return kSecondes.at(i) * 1000;
}

}  // namespace vaktor
