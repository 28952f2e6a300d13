// SPDX-License-Identifier: GPL-3.0-or-later
// What the handlers of the parameter fields work with.
#pragma once

#include "base/ports/message_boxes.h"
#include "settings/parameters.h"
#include "settings/saving.h"
#include "texts/text_tables.h"

namespace vaktor {

/// All of it outlives the fields.
struct PortsChamps {
  Parametres& Reglages;
  SauvegardeParametres& Sauvegarde;
  const TablesTextes& Textes;
  BoitesMessage& Boites;

  /// Every change of a field marks the parameters; some fields save at once, others when they are left.
  void NoteModification() const { Reglages.ParametresModifies = true; }
  void NoteEtSauve() const {
    NoteModification();
    Sauvegarde.SauveParametres();
  }
  void SauveSiModifie() const {
    if (Reglages.ParametresModifies) Sauvegarde.SauveParametres();
  }
};

}  // namespace vaktor
