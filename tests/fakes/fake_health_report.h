// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>

#include "health/ports/health_report.h"

namespace vaktor::faux {

/// Keeps what was reported last of each condition, and how often one began.
class SanteFausse : public RapportSante {
 public:
  void Signale(Condition quoi, const QString& detail = {}) override {
    if (!Details.contains(quoi)) ++Debuts[quoi];
    Details.insert(quoi, detail);
  }
  void Leve(Condition quoi) override { Details.remove(quoi); }
  bool Dure(Condition quoi) const { return Details.contains(quoi); }

  QMap<Condition, QString> Details;  ///< of those that stand
  QMap<Condition, int> Debuts;
};

}  // namespace vaktor::faux
