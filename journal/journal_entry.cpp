// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/journal_entry.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace vaktor {
namespace {

struct MotFait {
  Fait Quoi;
  QLatin1String Mot;
};
constexpr std::array<MotFait, 11> kMots = {{{Fait::kDemarre, QLatin1String("started")},
                                            {Fait::kFini, QLatin1String("stopped")},
                                            {Fait::kArmee, QLatin1String("armed")},
                                            {Fait::kDesarmee, QLatin1String("disarmed")},
                                            {Fait::kVie, QLatin1String("alive")},
                                            {Fait::kDebutIntrusion, QLatin1String("intrusion-begins")},
                                            {Fait::kFinIntrusion, QLatin1String("intrusion-ends")},
                                            {Fait::kCourriel, QLatin1String("mail-accepted")},
                                            {Fait::kPageRetablie, QLatin1String("page-refreshed")},
                                            {Fait::kDebutCondition, QLatin1String("condition-begins")},
                                            {Fait::kFinCondition, QLatin1String("condition-ends")}}};

/// Characters of a text of a line: a path may have 4096.
constexpr qsizetype kTexteMax = 4096;
/// No picture is wider: a box beyond it is none.
constexpr int kPixelsMax = 1'000'000;

QString EcritMoment(const QDateTime& moment) {
  return moment.toOffsetFromUtc(moment.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

// Years that no clock shows are damage: what reckons with them would overflow.
QDateTime LitMomentEcrit(const QJsonObject& objet, const char* champ) {
  const QDateTime moment = QDateTime::fromString(objet.value(QLatin1String(champ)).toString(), Qt::ISODateWithMs);
  const bool possible = moment.isValid() && moment.date().year() >= 1970 && moment.date().year() < 3000;
  return possible ? moment : QDateTime();
}

qint64 LitNombre(const QJsonValue& valeur, qint64 jusqua) {
  const double lu = valeur.toDouble(0);
  if (!std::isfinite(lu) || lu <= 0) return 0;
  return lu >= static_cast<double>(jusqua) ? jusqua : static_cast<qint64>(lu);
}
qint32 LitEntier(const QJsonValue& valeur) {
  return static_cast<qint32>(LitNombre(valeur, std::numeric_limits<qint32>::max()));
}

// Half of a pair of UTF-16, written so or cut so, is no character, and comes out of no second reading as it went in.
QString LitTexte(const QJsonObject& objet, const char* champ) {
  return QString::fromUtf8(objet.value(QLatin1String(champ)).toString().left(kTexteMax).toUtf8());
}

QJsonArray EcritCadre(const QRect& cadre) { return {cadre.x(), cadre.y(), cadre.width(), cadre.height()}; }

QRect LitCadre(const QJsonArray& nombres, qsizetype debut) {
  std::array<int, 4> lus{};
  for (qsizetype i = 0; i < 4; ++i)
    lus.at(static_cast<std::size_t>(i)) = static_cast<int>(LitNombre(nombres.at(debut + i), kPixelsMax));
  return {lus[0], lus[1], lus[2], lus[3]};
}

// Flat, since most of a line is boxes: number, x, y, width, height, and the next one.
QJsonArray EcritCadres(const QList<CadrePhoto>& cadres) {
  QJsonArray nombres;
  for (const CadrePhoto& cadre : cadres.first(std::min(cadres.size(), kCadresMax))) {
    nombres.append(cadre.Numero);
    for (const QJsonValue cote : EcritCadre(cadre.Cadre)) nombres.append(cote);
  }
  return nombres;
}

QList<CadrePhoto> LitCadres(const QJsonArray& nombres) {
  QList<CadrePhoto> cadres;
  for (qsizetype i = 0; i + 5 <= nombres.size() && cadres.size() < kCadresMax; i += 5)
    cadres.append({LitEntier(nombres.at(i)), LitCadre(nombres, i + 1)});
  return cadres;
}

void EcritTexte(QJsonObject& objet, const char* champ, const QString& texte) {
  if (!texte.isEmpty()) objet.insert(QLatin1String(champ), texte);
}
void EcritNombre(QJsonObject& objet, const char* champ, qint64 nombre) {
  if (nombre != 0) objet.insert(QLatin1String(champ), nombre);
}

void EcritIntrusion(QJsonObject& objet, const EntreeJournal& entree) {
  EcritNombre(objet, "length", entree.DureeMs);
  EcritNombre(objet, "frames", entree.Images);
  EcritNombre(objet, "samples", entree.Points);
  if (!entree.Cadre.isEmpty()) objet.insert(QStringLiteral("box"), EcritCadre(entree.Cadre));
  EcritNombre(objet, "photos", entree.Photos);
  EcritTexte(objet, "folder", entree.Dossier);
  EcritTexte(objet, "first", entree.Premiere);
  EcritTexte(objet, "last", entree.Derniere);
  EcritTexte(objet, "best", entree.Meilleure);
  if (!entree.Cadres.isEmpty()) objet.insert(QStringLiteral("boxes"), EcritCadres(entree.Cadres));
}

void LitIntrusion(const QJsonObject& objet, EntreeJournal& entree) {
  constexpr qint64 kDureeMax = 366LL * 86'400'000;
  entree.DureeMs = LitNombre(objet.value(QStringLiteral("length")), kDureeMax);
  entree.Images = LitEntier(objet.value(QStringLiteral("frames")));
  entree.Points = LitEntier(objet.value(QStringLiteral("samples")));
  const QJsonArray cadre = objet.value(QStringLiteral("box")).toArray();
  if (cadre.size() == 4) entree.Cadre = LitCadre(cadre, 0);
  if (entree.Cadre.isEmpty()) entree.Cadre = {};
  entree.Photos = LitEntier(objet.value(QStringLiteral("photos")));
  entree.Dossier = LitTexte(objet, "folder");
  entree.Premiere = LitTexte(objet, "first");
  entree.Derniere = LitTexte(objet, "last");
  entree.Meilleure = LitTexte(objet, "best");
  entree.Cadres = LitCadres(objet.value(QStringLiteral("boxes")).toArray());
}

/// The day that a line says, as its first ten characters behind "at": enough to tell days apart without reading it.
QByteArrayView JourDe(QByteArrayView ligne) {
  const qsizetype place = ligne.indexOf("\"at\":\"");
  return place < 0 ? QByteArrayView() : ligne.sliced(place + 6, std::min<qsizetype>(10, ligne.size() - place - 6));
}

}  // namespace

QByteArray EcritLigne(const EntreeJournal& entree) {
  QJsonObject objet;
  objet.insert(QStringLiteral("v"), kVersionJournal);
  objet.insert(QStringLiteral("at"), EcritMoment(entree.Quand));
  const auto* mot = std::find_if(kMots.begin(), kMots.end(), [&](const MotFait& m) { return m.Quoi == entree.Quoi; });
  objet.insert(QStringLiteral("what"), mot->Mot);
  EcritTexte(objet, "run", entree.Course);
  EcritNombre(objet, "up", entree.DepuisDepart);
  if (entree.Depuis.isValid()) objet.insert(QStringLiteral("since"), EcritMoment(entree.Depuis));
  EcritIntrusion(objet, entree);
  EcritTexte(objet, "condition", entree.Mot);
  EcritTexte(objet, "detail", entree.Detail);
  if (entree.Evenement) objet.insert(QStringLiteral("event"), true);
  return QJsonDocument(objet).toJson(QJsonDocument::Compact);
}

std::optional<EntreeJournal> LitLigne(QByteArrayView ligne) {
  if (ligne.size() > kLigneMax) return std::nullopt;
  const QJsonDocument document = QJsonDocument::fromJson(ligne.toByteArray());
  if (!document.isObject()) return std::nullopt;
  const QJsonObject objet = document.object();
  if (objet.value(QStringLiteral("v")).toInt(0) != kVersionJournal) return std::nullopt;
  const QString quoi = objet.value(QStringLiteral("what")).toString();
  const auto* mot = std::find_if(kMots.begin(), kMots.end(), [&](const MotFait& m) { return m.Mot == quoi; });
  EntreeJournal entree;
  entree.Quand = LitMomentEcrit(objet, "at");
  if (mot == kMots.end() || !entree.Quand.isValid()) return std::nullopt;
  entree.Quoi = mot->Quoi;
  entree.Course = LitTexte(objet, "run");
  entree.DepuisDepart = LitNombre(objet.value(QStringLiteral("up")), std::numeric_limits<qint32>::max() * 1000LL);
  entree.Depuis = LitMomentEcrit(objet, "since");
  LitIntrusion(objet, entree);
  entree.Mot = LitTexte(objet, "condition");
  entree.Detail = LitTexte(objet, "detail");
  entree.Evenement = objet.value(QStringLiteral("event")).toBool();
  return entree;
}

JournalLu LitJournal(QByteArrayView octets) {
  JournalLu lu;
  for (qsizetype debut = 0; debut < octets.size();) {
    qsizetype fin = octets.indexOf('\n', debut);
    if (fin < 0) fin = octets.size();
    const QByteArrayView ligne = octets.sliced(debut, fin - debut);
    debut = fin + 1;
    if (ligne.isEmpty()) continue;
    if (auto entree = LitLigne(ligne))
      lu.Entrees.append(*std::move(entree));
    else
      ++lu.Illisibles;
  }
  return lu;
}

qsizetype TrouveDebutGarde(QByteArrayView octets, qsizetype plafond) {
  if (octets.size() <= plafond) return 0;
  const qsizetype coupe = octets.indexOf('\n', octets.size() - plafond - 1) + 1;
  if (coupe == 0) return octets.size();  // one line without an end: nothing of it is worth keeping
  // The line before tells whether a day begins right here.
  const qsizetype avant = coupe < 2 ? 0 : octets.lastIndexOf('\n', coupe - 2) + 1;
  QByteArrayView jour = JourDe(octets.sliced(avant, coupe - avant));
  for (qsizetype debut = coupe; debut < octets.size();) {
    qsizetype fin = octets.indexOf('\n', debut);
    if (fin < 0) fin = octets.size();
    const QByteArrayView celui = JourDe(octets.sliced(debut, fin - debut));
    if (!celui.isEmpty() && !jour.isEmpty() && celui != jour) return debut;
    if (!celui.isEmpty()) jour = celui;
    debut = fin + 1;
  }
  return coupe;
}

}  // namespace vaktor
