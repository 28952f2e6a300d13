// SPDX-License-Identifier: GPL-3.0-or-later
#include "journal/chronicle.h"

#include <algorithm>

#include "health/conditions.h"
#include "journal/chronicle_parts.h"

namespace vaktor {
namespace {

struct Etendue {
  qint64 De, A;  // ms since 1970
};

/// Cut to [de, a], sorted, joined where they touch.
QList<Etendue> Reunit(QList<Etendue> etendues, qint64 de, qint64 a) {
  for (Etendue& une : etendues) une = {std::max(une.De, de), std::min(une.A, a)};
  etendues.removeIf([](const Etendue& une) { return une.A <= une.De; });
  std::sort(etendues.begin(), etendues.end(), [](const Etendue& x, const Etendue& y) { return x.De < y.De; });
  QList<Etendue> reunies;
  for (const Etendue& une : std::as_const(etendues)) {
    if (!reunies.isEmpty() && une.De <= reunies.last().A)
      reunies.last().A = std::max(reunies.last().A, une.A);
    else
      reunies.append(une);
  }
  return reunies;
}

Etendue EtendueDe(const BandeTemps& bande) { return {bande.De.toMSecsSinceEpoch(), bande.A.toMSecsSinceEpoch()}; }

// While one of these stands nothing is seen, armed or not. A machine that slept is told when it is over, as a notice.
bool EstAveugle(Condition quoi) { return DonneGravite(quoi) == Gravite::kAveugle || quoi == Condition::kInterruption; }

}  // namespace

qint64 Chronique::DureeVeille(const QDateTime& de, const QDateTime& a) const {
  const qint64 debut = de.toMSecsSinceEpoch();
  const qint64 fin = a.toMSecsSinceEpoch();
  QList<Etendue> armees, aveugles;
  for (const BandeTemps& bande : Armees) armees.append(EtendueDe(bande));
  for (const BandeCondition& bande : Conditions)
    if (EstAveugle(bande.Quoi)) aveugles.append(EtendueDe(bande));
  armees = Reunit(armees, debut, fin);
  aveugles = Reunit(aveugles, debut, fin);
  qint64 duree = 0;
  for (const Etendue& armee : std::as_const(armees)) {
    duree += armee.A - armee.De;
    for (const Etendue& aveugle : std::as_const(aveugles))
      duree -= std::max<qint64>(0, std::min(armee.A, aveugle.A) - std::max(armee.De, aveugle.De));
  }
  return duree;
}

QStringList DossiersCites(const JournalLu& journal, const QString& courant) {
  QStringList dossiers{courant};
  for (auto entree = journal.Entrees.rbegin(); entree != journal.Entrees.rend(); ++entree) {
    if (dossiers.size() >= kDossiersMax) break;
    if (!entree->Dossier.isEmpty() && !dossiers.contains(entree->Dossier)) dossiers.append(entree->Dossier);
  }
  return dossiers;
}

Chronique ComposeChronique(const SourcesChronique& sources) {
  Chronique chronique;
  chronique.Illisibles = sources.Journal.Illisibles;
  ComposeIntrusions(sources, ComposeBandes(sources, chronique), chronique);
  const auto parDebut = [](const auto& a, const auto& b) { return a.De < b.De; };
  std::stable_sort(chronique.Armees.begin(), chronique.Armees.end(), parDebut);
  std::stable_sort(chronique.Conditions.begin(), chronique.Conditions.end(), parDebut);
  std::stable_sort(chronique.Marques.begin(), chronique.Marques.end(),
                   [](const MarqueTemps& a, const MarqueTemps& b) { return a.Quand < b.Quand; });
  std::stable_sort(chronique.Intrusions.begin(), chronique.Intrusions.end(),
                   [](const IntrusionVue& a, const IntrusionVue& b) { return a.Debut < b.Debut; });
  return chronique;
}

}  // namespace vaktor
