// SPDX-License-Identifier: GPL-3.0-or-later
// Which control of the window shows which setting: one table, which a load of the settings goes through.
#pragma once

#include <functional>
#include <vector>

#include "settings/parameters.h"
#include "settings/settings_table.h"
#include "ui/window/main_window.h"

namespace vaktor {

/// Filling a control runs its change handlers, as if the user had typed: they clean the text, write it back into
/// Parametres and mark the parameters as changed, and TxtRefresh and Text1 save when their text really changes. What
/// such a save throws comes out of the call. Owner: app/. User-interface thread.
class VueParametres {
 public:
  /// Both outlive the object.
  VueParametres(const Parametres& reglages, Form1& fenetre);

  /// `champ` has just been read: fills its control, unless that one waits.
  void MontreLu(const ChampParametre& champ);
  /// Every value is read: fills the controls that have waited, in the order of the table.
  void MontreFin();

 private:
  /// When a control is filled.
  enum class Moment {
    kLu,  ///< as soon as its value is read
    kFin  ///< when every value is read
  };
  struct ReglageMontre {
    ChampParametre Champ;
    Moment Quand;
    std::function<void()> Remplit;
  };

  template <typename Controle, typename Valeur>
  ReglageMontre Relie(Controle* controle, Valeur Parametres::*champ, Moment quand = Moment::kLu) const;
  std::vector<ReglageMontre> CreeTable();
  void MontreSkin();

  const Parametres& Reglages_;
  Form1& Fenetre_;
  const std::vector<ReglageMontre> Montres_;
};

}  // namespace vaktor
