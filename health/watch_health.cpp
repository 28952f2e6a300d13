#include "health/watch_health.h"

namespace vaktor {

void SanteVeille::Signale(Condition quoi, const QString& detail) {
  std::optional<ConditionEnCours>& etat = Etats_.at(static_cast<std::size_t>(quoi));
  if (etat) {
    if (etat->Detail != detail) etat->Detail = detail;
    return;
  }
  etat = ConditionEnCours{quoi, QDateTime(Temps_.DonneDate(), Temps_.DonneHeure()), detail};
}

void SanteVeille::Leve(Condition quoi) { Etats_.at(static_cast<std::size_t>(quoi)).reset(); }

QList<ConditionEnCours> SanteVeille::EnCours() const {
  QList<ConditionEnCours> liste;
  for (const std::optional<ConditionEnCours>& etat : Etats_)
    if (etat) liste.append(*etat);
  return liste;
}

}  // namespace vaktor
