// SPDX-License-Identifier: GPL-3.0-or-later
// What the rules of every companion stand on: virtual time, folders of the test's own, a log, and what the user is
// told.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "fakes/virtual_timers.h"
#include "modules/common/module_program.h"

namespace vaktor::essai {

struct BancModule : testing::Test {
  /// `nom`: that of the log and of the status file.
  explicit BancModule(const QString& nom)
      : Journal(Temporaire.path(), nom, Horloge),
        Etat(Temporaire.path(), nom, Horloge, [this](const QString&, const QString& texte) { Avis << texte; }) {}

  QTemporaryDir Temporaire;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  DossiersModule Dossiers;
  QStringList Avis;  ///< the notifications of the desktop
  JournalBorne Journal;
  EtatModule Etat;
  ReglagesModule Reglages;
};

}  // namespace vaktor::essai
