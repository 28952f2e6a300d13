// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/mail_fate.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cerrno>
#include <utility>

#include "modules/mail/durable_file.h"
#include "platform/store/bounded_file.h"

namespace vaktor {
namespace {

constexpr qint64 kOctetsMax = 64LL * 1024;

const QLatin1String kServis("done");
const QLatin1String kRefuses("refused");
const QLatin1String kAjoutes("instead");
const QLatin1String kAllege("light");
const QLatin1String kRefuseA("refused_at");

QStringList LitListe(const QJsonValue& valeur) {
  QStringList liste;
  const QJsonArray morceaux = valeur.toArray();
  for (const auto& v : morceaux) liste.append(v.toString());
  return liste;
}

}  // namespace

QStringList DonneRestants(const QStringList& destinataires, const SortCourriel& sort) {
  QStringList restants = destinataires + sort.Ajoutes;
  restants.removeIf([&sort](const QString& a) { return sort.Servis.contains(a) || sort.Refuses.contains(a); });
  restants.removeDuplicates();
  return restants;
}

bool EstSolde(const QStringList& destinataires, const SortCourriel& sort) {
  const auto compte = [&](const QString& refuse) { return sort.Ajoutes.isEmpty() || sort.Ajoutes.contains(refuse); };
  return DonneRestants(destinataires, sort).isEmpty() && std::none_of(sort.Refuses.begin(), sort.Refuses.end(), compte);
}

SortCourriel RecommenceSort(const QStringList& destinataires, SortCourriel sort, const QStringList& adresses) {
  sort.RefuseA = 0;
  if (adresses.isEmpty()) {
    const bool remplaces = !sort.Ajoutes.isEmpty();
    sort.Refuses.removeIf([&](const QString& a) { return !remplaces || sort.Ajoutes.contains(a); });
  }
  if (sort.Refuses.isEmpty() || adresses.isEmpty()) return sort;
  QStringList autres = adresses;
  autres.removeIf([&](const QString& a) { return destinataires.contains(a) || sort.Servis.contains(a); });
  sort.Ajoutes = autres;
  // Those that the user has taken out of the settings were wrong; without another in their place they are all there is.
  const QStringList refuses = std::exchange(sort.Refuses, {});
  for (const QString& refuse : refuses)
    if (!autres.isEmpty() && !adresses.contains(refuse)) sort.Refuses.append(refuse);
  return sort;
}

std::optional<SortCourriel> LitSort(const QString& chemin) {
  QByteArray octets;
  const int erreur = LitFichierBorne(chemin, kOctetsMax, octets);
  if (erreur != 0 && erreur != ENOENT && !EstFauteDuFichier(erreur)) return std::nullopt;
  const QJsonObject note = QJsonDocument::fromJson(octets).object();
  return SortCourriel{.Servis = LitListe(note.value(kServis)),
                      .Refuses = LitListe(note.value(kRefuses)),
                      .Ajoutes = LitListe(note.value(kAjoutes)),
                      .Allege = note.value(kAllege).toBool(),
                      .RefuseA = note.value(kRefuseA).toInteger()};
}

int EcritSort(const QString& chemin, const SortCourriel& sort) {
  const QJsonObject note{{kServis, QJsonArray::fromStringList(sort.Servis)},
                         {kRefuses, QJsonArray::fromStringList(sort.Refuses)},
                         {kAjoutes, QJsonArray::fromStringList(sort.Ajoutes)},
                         {kAllege, sort.Allege},
                         {kRefuseA, sort.RefuseA}};
  return EcritDurable(chemin, {QJsonDocument(note).toJson(QJsonDocument::Compact)});
}

}  // namespace vaktor
