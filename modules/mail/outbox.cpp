// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/outbox.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <optional>

#include "modules/mail/disk_reserve.h"
#include "modules/mail/durable_file.h"
#include "platform/base/folder_listing.h"
#include "platform/store/bounded_file.h"
#include "platform/store/private_file.h"

namespace vaktor {
namespace {

constexpr const char* kBrouillon = ".draft";
constexpr const char* kCourriel = ".mail";
constexpr const char* kEssais = ".try";
constexpr const char* kSort = ".rcpt";
constexpr const char* kEnvoye = ".sent";
constexpr const char* kRefuse = ".refused";
constexpr const char* kMauvais = ".bad";
constexpr const char* kPartiel = ".part";
constexpr qint64 kTeteMax = 64LL * 1024;
constexpr qint64 kBrouillonMax = 64LL * 1024 * 1024;  // several times the largest mail

const QLatin1String kRecette("recipe");

QByteArray ComposeTete(const CourrielEnAttente& c, bool recette = false) {
  QJsonObject tete{{QStringLiteral("made"), c.FaitA},
                   {QStringLiteral("from"), c.Expediteur},
                   {QStringLiteral("to"), QJsonArray::fromStringList(c.Destinataires)}};
  if (c.Prioritaire) tete.insert(QStringLiteral("first"), true);
  if (recette) tete.insert(kRecette, true);
  return QJsonDocument(tete).toJson(QJsonDocument::Compact) + '\n';
}

/// False for what is no head, and for that of a recipe unless one is looked for.
bool LitTete(const QByteArray& ligne, CourrielEnAttente& c, bool recette = false) {
  const QJsonDocument document = QJsonDocument::fromJson(ligne);
  if (!document.isObject()) return false;
  const QJsonObject tete = document.object();
  c.FaitA = tete.value(QStringLiteral("made")).toInteger(-1);
  c.Prioritaire = tete.value(QStringLiteral("first")).toBool();
  c.Expediteur = tete.value(QStringLiteral("from")).toString();
  const QJsonArray destinataires = tete.value(QStringLiteral("to")).toArray();
  for (const auto& v : destinataires) c.Destinataires.append(v.toString());
  return c.FaitA >= 0 && !c.Destinataires.isEmpty() && tete.value(kRecette).toBool() == recette;
}

/// A folder that is not there is an empty one; one that cannot be listed at this moment is not.
DossierListe ListeNoms(const QString& dossier, const char* fin, const QString& saufMarque = {}) {
  static const std::atomic<bool> jamais = false;
  DossierListe lu = ListeDossier(QFile::encodeName(dossier), u'*' + QLatin1String(fin), jamais);
  if (lu.Erreur == ENOENT || lu.Erreur == ENOTDIR) lu.Erreur = 0;
  for (QString& nom : lu.Noms) nom.chop(static_cast<qsizetype>(qstrlen(fin)));
  if (!saufMarque.isEmpty()) lu.Noms.removeIf([&saufMarque](const QString& nom) { return nom.contains(saufMarque); });
  return lu;
}

}  // namespace

SacPostal::SacPostal(const QString& dossier) : Dossier_(dossier) {
  PrepareDossierPrive(dossier);
  QFile::setPermissions(dossier, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

int SacPostal::ListeBrouillons(const QString& saufMarque, QStringList& noms) const {
  const DossierListe lu = ListeNoms(Dossier_, kBrouillon, saufMarque);
  noms = lu.Noms;
  return lu.Erreur;
}

void SacPostal::RetireRestes(const QString& saufMarque) {
  for (const char* fin : {kEnvoye, kPartiel})
    for (const QString& nom : ListeNoms(Dossier_, fin, saufMarque).Noms) QFile::remove(Chemin(nom, fin));
  for (const char* fin : {kEssais, kSort})
    for (const QString& nom : ListeNoms(Dossier_, fin, saufMarque).Noms)
      if (!QFile::exists(Chemin(nom, kCourriel)) && !QFile::exists(Chemin(nom, kRefuse)))
        QFile::remove(Chemin(nom, fin));
}

QString SacPostal::Chemin(const QString& nom, const char* fin) const {
  return Dossier_ + u'/' + nom + QLatin1String(fin);
}

void SacPostal::TientReserve() const { vaktor::TientReserve(Dossier_); }

int SacPostal::Ecrit(const QString& chemin, const QByteArrayList& parties) const {
  const int erreur = EcritDurable(chemin, parties);
  const bool plein = erreur == ENOSPC || erreur == EDQUOT;
  return plein && RendReserve(Dossier_) ? EcritDurable(chemin, parties) : erreur;
}

int SacPostal::PoseBrouillon(const CourrielEnAttente& courriel, const QByteArray& message) {
  return Ecrit(Chemin(courriel.Nom, kBrouillon), {ComposeTete(courriel), message});
}

int SacPostal::PoseRecette(const CourrielEnAttente& courriel, const QByteArray& recette) {
  return Ecrit(Chemin(courriel.Nom, kBrouillon), {ComposeTete(courriel, true), recette});
}

int SacPostal::LitBrouillon(const QString& nom, CourrielEnAttente& courriel, std::optional<QByteArray>& recette) const {
  recette.reset();
  courriel.Nom = nom;
  QByteArray octets;
  const int erreur = LitFichierBorne(Chemin(nom, kBrouillon), kBrouillonMax, octets);
  if (erreur != 0 && !EstFauteDuFichier(erreur)) return erreur;
  const qsizetype fin = octets.indexOf('\n') + 1;
  if (fin <= kTeteMax && LitTete(octets.left(fin), courriel, true)) recette = octets.mid(fin);
  return 0;
}

bool SacPostal::Publie(const QString& nom) { return RenommeDurable(Chemin(nom, kBrouillon), Chemin(nom, kCourriel)); }

std::optional<CourrielEnAttente> SacPostal::LitCourriel(const QString& nom, const char* fin) const {
  CourrielEnAttente c;
  c.Nom = nom;
  QFile f(Chemin(nom, fin));
  if (!f.open(QIODevice::ReadOnly)) return c;  // without an address: it may be readable next time
  const bool entier = LitTete(f.readLine(kTeteMax), c);
  const std::optional<SortCourriel> sort = LitSort(Chemin(nom, kSort));
  if (f.error() != QFileDevice::NoError || !sort) {
    c.Destinataires.clear();
    return c;
  }
  if (!entier) return std::nullopt;
  LitEssais(c);
  c.Sort = *sort;
  return c;
}

QList<CourrielEnAttente> SacPostal::Liste(QStringList* mauvais) const {
  QList<CourrielEnAttente> liste;
  for (const QString& nom : ListeNoms(Dossier_, kCourriel).Noms) {
    const std::optional<CourrielEnAttente> c = LitCourriel(nom, kCourriel);
    if (c && !c->Destinataires.isEmpty()) liste.append(*c);
    if (!c && mauvais != nullptr && RenommeDurable(Chemin(nom, kCourriel), Chemin(nom, kMauvais))) mauvais->append(nom);
  }
  return liste;
}

void SacPostal::LitEssais(CourrielEnAttente& courriel) const {
  // No or a damaged note: the mail is only tried sooner.
  QFile f(Chemin(courriel.Nom, kEssais));
  if (!f.open(QIODevice::ReadOnly)) return;
  const QJsonObject note = QJsonDocument::fromJson(f.read(kTeteMax)).object();
  courriel.Essais = note.value(QStringLiteral("attempts")).toInt(0);
  courriel.ProchainEssai = note.value(QStringLiteral("next")).toInteger(0);
}

std::optional<QStringList> SacPostal::DonneNoms() const {
  QStringList noms;
  for (const char* fin : {kBrouillon, kCourriel, kEnvoye, kRefuse, kMauvais}) {
    const DossierListe lu = ListeNoms(Dossier_, fin);
    if (lu.Erreur != 0) return std::nullopt;
    noms += lu.Noms;
  }
  return noms;
}

// What is damaged is the postman's to tell; what only cannot be read waits like any other.
std::optional<qint64> SacPostal::LitInstant(const QString& chemin) const {
  CourrielEnAttente c;
  QFile f(chemin);
  const QByteArray tete = f.open(QIODevice::ReadOnly) ? f.readLine(kTeteMax) : QByteArray();
  if (LitTete(tete, c) || LitTete(tete, c, true)) return c.FaitA;
  if (f.error() == QFileDevice::NoError || !f.exists()) return std::nullopt;
  return QFileInfo(chemin).lastModified().toMSecsSinceEpoch();
}

int SacPostal::LitPlusAncien(std::optional<qint64>& faitA, const QString& marque) const {
  faitA.reset();
  for (const char* fin : {kCourriel, kBrouillon}) {
    if (fin == kBrouillon && marque.isEmpty()) break;
    const DossierListe lu = ListeNoms(Dossier_, fin, fin == kBrouillon ? marque : QString());
    if (lu.Erreur != 0) return lu.Erreur;
    for (const QString& nom : lu.Noms) {
      const std::optional<qint64> instant = LitInstant(Chemin(nom, fin));
      if (!instant) continue;
      faitA = std::min(*instant, faitA.value_or(*instant));
      break;  // names sort by time
    }
  }
  return 0;
}

QByteArray SacPostal::LitMessage(const QString& nom) const {
  QFile f(Chemin(nom, kCourriel));
  if (!f.open(QIODevice::ReadOnly)) return {};
  const qint64 tete = f.readLine(kTeteMax).size();
  const QByteArray message = f.readAll();
  // An error on the way gives what came before it: half a mail is none.
  return tete + message.size() == f.size() ? message : QByteArray();
}

qint64 SacPostal::DonneOctets() const {
  qint64 octets = 0;
  for (const QFileInfo& f : QDir(Dossier_).entryInfoList(QDir::Files)) octets += f.size();
  return octets;
}

void SacPostal::Acheve(const QString& nom) {
  // The rename is what counts: from here on a restart finds nothing to send.
  RenommeDurable(Chemin(nom, kCourriel), Chemin(nom, kEnvoye));
  for (const char* fin : {kEnvoye, kEssais, kSort, kBrouillon}) QFile::remove(Chemin(nom, fin));
}

bool SacPostal::NoteSort(const CourrielEnAttente& courriel) {
  return EcritSort(Chemin(courriel.Nom, kSort), courriel.Sort) == 0;
}

void SacPostal::Reporte(const CourrielEnAttente& courriel, qint64 maintenant) {
  const int essais = courriel.Essais + 1;
  const QJsonObject note{{QStringLiteral("attempts"), essais},
                         {QStringLiteral("next"), maintenant + AttenteApresEssai(essais)}};
  EcritDurable(Chemin(courriel.Nom, kEssais), {QJsonDocument(note).toJson(QJsonDocument::Compact)});
}

void SacPostal::MetDeCote(CourrielEnAttente courriel, qint64 maintenant) {
  courriel.Sort.RefuseA = maintenant;
  NoteSort(courriel);
  RenommeDurable(Chemin(courriel.Nom, kCourriel), Chemin(courriel.Nom, kRefuse));
  QFile::remove(Chemin(courriel.Nom, kEssais));
}

void SacPostal::RemetRefuse(const QString& nom, const QStringList& adresses) {
  if (std::optional<CourrielEnAttente> c = LitCourriel(nom, kRefuse); c && !c->Destinataires.isEmpty()) {
    c->Sort = RecommenceSort(c->Destinataires, c->Sort, adresses);
    NoteSort(*c);
  }
  RenommeDurable(Chemin(nom, kRefuse), Chemin(nom, kCourriel));
}

void SacPostal::RemetTout(const QStringList& adresses) {
  for (const QString& nom : ListeNoms(Dossier_, kRefuse).Noms) RemetRefuse(nom, adresses);
  for (const QString& nom : ListeNoms(Dossier_, kEssais).Noms) QFile::remove(Chemin(nom, kEssais));
}

void SacPostal::RemetLesAnciens(qint64 maintenant, const QSet<QString>& sauf) {
  for (const QString& nom : ListeNoms(Dossier_, kRefuse).Noms) {
    const std::optional<SortCourriel> sort = LitSort(Chemin(nom, kSort));
    const qint64 depuis = sort ? maintenant - sort->RefuseA : 0;
    if (!sauf.contains(nom) && (depuis < 0 || depuis >= kRepriseRefuseMs)) RemetRefuse(nom, {});
  }
}

QString SacPostal::DonneRang(qint64 faitA) const {
  qint64 rang = faitA;
  const QStringList noms = DonneNoms().value_or(QStringList());
  for (const QString& nom : noms) {
    // Others, of a person or of a test, sort as they please.
    const QDateTime moment(QDate::fromString(nom.left(8), QStringLiteral("yyyyMMdd")),
                           QTime::fromString(nom.mid(8, 9), QStringLiteral("HHmmsszzz")), Qt::UTC);
    if (moment.isValid()) rang = std::max(rang, moment.toMSecsSinceEpoch() + 1);
  }
  return QDateTime::fromMSecsSinceEpoch(rang, Qt::UTC).toString(QStringLiteral("yyyyMMddHHmmsszzz"));
}

QStringList SacPostal::Elague(qint64 maintenant, const QSet<QString>& echus) {
  QStringList abandonnes;
  for (const QString& nom : ListeNoms(Dossier_, kRefuse).Noms) {
    const qint64 refuseA = QFileInfo(Chemin(nom, kRefuse)).lastModified().toMSecsSinceEpoch();
    if (!echus.contains(nom) || maintenant - refuseA <= kAgeMaxMs) continue;
    for (const char* fin : {kRefuse, kSort}) QFile::remove(Chemin(nom, fin));
    abandonnes.append(nom);
  }
  // Nobody has tried these, so no clock may take them away: they go by their number. Each was told when it was found.
  const QStringList mauvais = ListeNoms(Dossier_, kMauvais).Noms;
  for (qsizetype i = 0; i < mauvais.size() - kMauvaisMax; ++i)
    for (const char* fin : {kMauvais, kSort}) QFile::remove(Chemin(mauvais.at(i), fin));
  const QList<CourrielEnAttente> liste = Liste();
  qsizetype reste = liste.size();
  for (const CourrielEnAttente& c : liste) {
    const bool vieux = maintenant - c.FaitA > kAgeMaxMs && echus.contains(c.Nom);
    if (!vieux && reste <= kCourrielsMax) continue;
    --reste;
    for (const char* fin : {kCourriel, kEssais, kSort}) QFile::remove(Chemin(c.Nom, fin));
    abandonnes.append(c.Nom);
  }
  return abandonnes;
}

qint64 SacPostal::AttenteApresEssai(int essais) {
  static constexpr std::array<qint64, 8> kSecondes = {10, 30, 60, 120, 300, 600, 900, 1800};
  const auto i = static_cast<std::size_t>(std::clamp(essais, 1, static_cast<int>(kSecondes.size())) - 1);
  return kSecondes.at(i) * 1000;
}

}  // namespace vaktor
