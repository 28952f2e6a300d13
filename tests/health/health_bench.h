// SPDX-License-Identifier: GPL-3.0-or-later
// The room of the health in virtual time.
#pragma once

#include <gtest/gtest.h>

#include "fakes/virtual_clock.h"
#include "fakes/virtual_timers.h"
#include "health/watch_health.h"

namespace vaktor {

/// Writes down what an observer is told.
class ObservateurNote : public ObservateurSante {
 public:
  void Commence(const ConditionEnCours& condition) override {
    Notes.append(u'+' + MotCondition(condition.Quoi));
    Depuis = condition.Depuis;
  }
  void Finit(const ConditionEnCours& condition, const QDateTime& jusqua) override {
    Notes.append(u'-' + MotCondition(condition.Quoi));
    Jusqua = jusqua;
  }
  void Change() override { ++Changements; }
  bool Tic(qint64 maintenantMs) override {
    Tics.append(maintenantMs);
    return EnVeutEncore;
  }
  std::string Prend() {
    std::string dit = Notes.join(u' ').toStdString();
    Notes.clear();
    return dit;
  }
  QStringList Notes;
  QDateTime Depuis, Jusqua;
  int Changements = 0;
  QList<qint64> Tics;
  bool EnVeutEncore = false;
};

class BancSante : public testing::Test {
 protected:
  BancSante() {
    Veille.Observe(Note);
    Veille.Lance();
  }
  bool Tourne() const { return Temps.Trouve(QStringLiteral("Sante"))->EstActive(); }

  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  ObservateurNote Note;
  SanteVeille Veille{Horloge, Temps};
};

}  // namespace vaktor
