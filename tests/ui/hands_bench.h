// SPDX-License-Identifier: GPL-3.0-or-later
// The main window in the hands of a user: its controls found by name, the mouse over them.
#pragma once

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/fake_sound_player.h"
#include "ui/window_bench.h"

namespace vaktor {

using faux::BancFenetre;

class Mains : public testing::Test {
 protected:
  Mains() {
    Banc.Fenetre.activateWindow();
    QCoreApplication::processEvents();
  }
  /// A place in a control, seen from the window.
  QPoint Dans(const char* nom, QPoint place = {5, 5}) { return Banc.Trouve(nom)->mapTo(&Banc.Fenetre, place); }
  void Appuie(QPoint place, Qt::MouseButton bouton = Qt::LeftButton) {
    QTest::mousePress(Banc.Fenetre.windowHandle(), bouton, {}, place);
  }
  void Bouge(QPoint place) { QTest::mouseMove(Banc.Fenetre.windowHandle(), place); }
  void Relache(QPoint place, Qt::MouseButton bouton = Qt::LeftButton) {
    QTest::mouseRelease(Banc.Fenetre.windowHandle(), bouton, {}, place);
  }
  bool Focus(const char* nom) { return Banc.Fenetre.focusWidget() == Banc.Trouve(nom); }

  BancFenetre Banc;
  QSignalSpy Deplacements{&Banc.Fenetre.Face()->Souris(), &SourisFenetre::DeplacementDemande};
  const QPoint SurPage{200, 200};  // of the window, where the surveillance page is free
};

}  // namespace vaktor
