// SPDX-License-Identifier: GPL-3.0-or-later
#include "health/awake_watch.h"

#include <QDateTime>

namespace vaktor {

GardeEveil::GardeEveil(const PortsEveil& ports)
    : Ports_(ports), Minuterie_(ports.Minuteries.CreeMinuterie(QStringLiteral("Eveil"), kTicMs, [this] { Tic(); })) {
  Minuterie_->Active();
}

void GardeEveil::Arrete() {
  Minuterie_->Desactive();
  Rend();
}

void GardeEveil::Tic() {
  const InstantsMachine maintenant = Ports_.Machine.LitInstants();
  const bool camera = Ports_.CameraActive();
  if (camera && CameraAlors_) ChercheTrou(maintenant);
  if (camera && !CameraAlors_) Trous_.clear();  // those of an earlier run were there to be seen then
  Derniers_ = maintenant;
  CameraAlors_ = camera;
  SuitCamera(camera, maintenant.EveilleMs);
  MontreRefus(camera);
}

// Durations come from the counts that no clock moves; only the words need the clock. So neither midnight nor summer
// time is a gap, and a clock that was set is told as what it showed and what it shows.
void GardeEveil::ChercheTrou(const InstantsMachine& maintenant) {
  const qint64 tout = maintenant.ToutMs - Derniers_.ToutMs;
  const qint64 eveille = maintenant.EveilleMs - Derniers_.EveilleMs;
  const qint64 saut = maintenant.MuralMs - Derniers_.MuralMs - tout;
  if (qAbs(saut) >= kSautMs) NoteTrou(maintenant.MuralMs - saut, maintenant.MuralMs);
  if (tout - eveille >= kSommeilMs || eveille >= kRetardMs) NoteTrou(maintenant.MuralMs - tout, maintenant.MuralMs);
}

void GardeEveil::NoteTrou(qint64 deMs, qint64 aMs) {
  Trous_.append(DitTrou(deMs, aMs));
  if (Trous_.size() > kTrousMax) Trous_.removeFirst();
  Ports_.Sante.Signale(Condition::kInterruption, Trous_.join(QStringLiteral(", ")));
}

QString GardeEveil::DitTrou(qint64 deMs, qint64 aMs) {
  const QDateTime de = QDateTime::fromMSecsSinceEpoch(deMs);
  const QDateTime a = QDateTime::fromMSecsSinceEpoch(aMs);
  const auto dit = [&](const QString& format) {
    return QStringLiteral("%1 - %2").arg(de.toString(format), a.toString(format));
  };
  if (de.date() != a.date()) return dit(QStringLiteral("yyyy-MM-dd HH:mm"));
  const QString minute = QStringLiteral("HH:mm");
  return de.toString(minute) == a.toString(minute) ? dit(QStringLiteral("HH:mm:ss")) : dit(minute);
}

void GardeEveil::SuitCamera(bool camera, qint64 eveilleMs) {
  if (!camera) return Rend();
  if (!Demandee_ || eveilleMs - DerniereDemandeMs_ >= kRepriseMs) Demande(eveilleMs);
}

void GardeEveil::Demande(qint64 eveilleMs) {
  Demandee_ = true;
  DerniereDemandeMs_ = eveilleMs;
  Ports_.Machine.Demande([this](ReponseEveil reponse, const QString& mots) {
    Reponse_ = reponse;
    Mots_ = mots;
  });
}

void GardeEveil::Rend() {
  if (!Demandee_) return;
  Demandee_ = false;
  Reponse_ = ReponseEveil::kAccordee;
  Ports_.Machine.Rend();
}

void GardeEveil::MontreRefus(bool camera) {
  const bool dit = Reponse_ == ReponseEveil::kRefusee || (Reponse_ == ReponseEveil::kPersonne && Ports_.AlarmeArmee());
  if (camera && dit)
    Ports_.Sante.Signale(Condition::kVeillePossible, Mots_);
  else
    Ports_.Sante.Leve(Condition::kVeillePossible);
}

}  // namespace vaktor
