// SPDX-License-Identifier: GPL-3.0-or-later
// A rehearsal that goes on when the test says so.
#pragma once

#include <QByteArray>

#include "companions/ports/rehearsal.h"

namespace vaktor::faux {

class EssaiFaux : public EssaiReglages {
 public:
  void Lance(const QByteArray& demande, const RappelsEssai& rappels) override {
    ++Lances;
    Demande = demande;
    Rappels = rappels;
  }
  void Annule() override {
    ++Annules;
    Rappels = {};
  }
  void Dit(const QString& ligne) { Rappels.SurLigne(ligne); }
  void Finit(FinEssai fin) {
    const RappelsEssai rappels = Rappels;
    Rappels = {};
    rappels.SurFin(fin);
  }

  qint32 Lances = 0, Annules = 0;
  QByteArray Demande;
  RappelsEssai Rappels;
};

}  // namespace vaktor::faux
