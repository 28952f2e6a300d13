// SPDX-License-Identifier: GPL-3.0-or-later
// The program of the user's own, never started: its arguments are kept.
#pragma once

#include <QList>

#include "health/ports/user_program.h"

namespace vaktor::faux {

class ProgrammePersonnelFaux : public ProgrammePersonnel {
 public:
  void Lance(const QStringList& arguments) override {
    if (SansMemoire) throw std::bad_alloc();
    Lancements.append(arguments);
  }

  QList<QStringList> Lancements;
  bool SansMemoire = false;
};

}  // namespace vaktor::faux
