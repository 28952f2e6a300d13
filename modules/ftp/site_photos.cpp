// SPDX-License-Identifier: GPL-3.0-or-later
// What lies on the site and what is to lie there: which photos are set aside, what goes for want of room, and the
// memories of both.
#include <QDateTime>
#include <algorithm>
#include <optional>
#include <utility>

#include "modules/ftp/ftp_module.h"

namespace vaktor {

// 452 and 552 (RFC 959): not this file is refused but each one, until something goes.
bool ModuleFtp::FaitPlace(const ResultatFtp& resultat) {
  if (resultat.Precision != PrecisionFtp::kPlace || Place_.EstVide()) return false;
  ANettoyer_ = Place_.PlusAnciens();
  return true;
}

void ModuleFtp::FinitNettoyage() {
  const QStringList noms = std::exchange(ANettoyer_, {});
  Contexte_.Journal.Note(QStringLiteral("deleted on the site to make room, photos: %1").arg(noms.size()));
  for (const QString& nom : noms) {
    Place_.Oublie(nom);
    if (Publiees_.Retire(nom)) PagePerimee_ = true;
  }
}

void ModuleFtp::EcartePhotos() {
  if (Lien_ != Lien::kConnecte) return;  // of which site are the photos that are remembered?
  QStringList restent;
  qsizetype deTrop = 0;
  for (const QString& nom : std::as_const(Attente_)) {
    const QDateTime prise = File_.DonnePrise(nom);
    const qint64 rang = prise.toMSecsSinceEpoch() - File_.DonneRecul(nom);
    const bool proche = prise.isValid() && Publiees_.EstProche(rang);
    const bool trop = prise.isValid() && !proche && Place_.SeraitDeTrop(rang);
    if (trop) ++deTrop;
    proche || trop ? File_.Retire(nom) : restent.append(nom);
  }
  Attente_ = restent;
  if (deTrop > 0)
    Contexte_.Journal.Note(
        QStringLiteral("older than all on a site that is full, not published, photos: %1").arg(deTrop));
}

void ModuleFtp::RegardePhotos() {
  const qsizetype retires = File_.Elague();
  if (retires > 0) {
    Contexte_.Journal.Note(QStringLiteral("deleted to make room, photos: %1").arg(retires));
    // Once for all that belongs together: in an outage this and the outage itself would take turns to be news, and
    // behind it this and each photo that goes through.
    const qint64 maintenant = Contexte_.Maintenant();
    if (qAbs(maintenant - std::exchange(RetireesA_, maintenant)) >= kSansPlace) Signale(CreeAvisPlace(), true);
  }
  // Not under a photo that is on its way: its end looks at the list as it was.
  if (Tache_ != Tache::kPhoto) Attente_ = File_.Liste();
  RegardeMemoires();
  if (Tache_ != Tache::kPhoto) EcartePhotos();
  Avance();
}

void ModuleFtp::RegardeMemoires() {
  Place_.Relit();
  Publiees_.Relit();
  DisMemoires();
  // What lies there, and what waits, would be of the future of a clock that was set back: whatever comes now older than
  // all of it and set aside, or taken for one of a second that has its photo.
  const qint64 avance = std::max(Place_.Derniere(), Publiees_.Dernier()) - Maintenant().toMSecsSinceEpoch();
  if (avance <= kAvance) return;
  Place_.Recule(avance);
  Publiees_.Recule(avance);
  File_.Recule(avance);  // one that waited since before tells that the clock was set back once it lies there
  Contexte_.Journal.Note(
      QStringLiteral("the clock was set back by %1 s: what lies on the site is older by as much").arg(avance / 1000));
}

void ModuleFtp::DisMemoires() {
  for (const std::optional<TroubleMemoire>& trouble :
       {Sites_.PrendTrouble(), Place_.PrendTrouble(), Publiees_.PrendTrouble()}) {
    if (!trouble) continue;
    if (trouble->Abimee)
      Signale(CreeAvisMemoire(trouble->Fichier), false);
    else
      Contexte_.Journal.Note(
          QStringLiteral("cannot be read at the moment: %1: %2").arg(trouble->Fichier, trouble->Raison));
  }
}

}  // namespace vaktor
