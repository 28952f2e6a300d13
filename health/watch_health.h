// The health of the watch: which conditions stand, since when. Whoever knows reports, this room decides what counts.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <array>
#include <optional>

#include "engine/ports/clock.h"
#include "health/ports/health_report.h"

namespace vaktor {

struct ConditionEnCours {
  Condition Quoi;
  QDateTime Depuis;  ///< local time
  QString Detail;
};

/// Owner: app/, one for the whole run. User-interface thread.
class SanteVeille : public RapportSante {
 public:
  explicit SanteVeille(const Horloge& temps) : Temps_(temps) {}

  void Signale(Condition quoi, const QString& detail = {}) override;
  void Leve(Condition quoi) override;

  /// What stands now.
  QList<ConditionEnCours> EnCours() const;

 private:
  const Horloge& Temps_;
  std::array<std::optional<ConditionEnCours>, kNombreConditions> Etats_;
};

}  // namespace vaktor
