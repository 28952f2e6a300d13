// SPDX-License-Identifier: GPL-3.0-or-later
// A watch whose health nobody asks for: for what measures the work of a frame.
#pragma once

#include "health/ports/health_report.h"

namespace vaktor {

class SansSante : public RapportSante {
 public:
  void Signale(Condition, const QString&) override {}
  void Leve(Condition) override {}
};

}  // namespace vaktor
