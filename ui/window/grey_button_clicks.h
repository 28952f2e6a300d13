// SPDX-License-Identifier: GPL-3.0-or-later
// What the grey buttons of the pages open.
#pragma once

#include <functional>

#include "ui/window/main_window.h"

namespace vaktor {

/// One for each grey button, none left out; BoutonGris(4) and (5) are tied to the engine by the window itself.
struct ActionsBoutonsGris {
  std::function<void()> OuvreGalerie;      ///< BoutonGris(0)
  std::function<void()> OuvreMiseAJour;    ///< BoutonGris(1)
  std::function<void()> CreationPageLive;  ///< BoutonGris(2)
  std::function<void()> TestPageLive;      ///< BoutonGris(3)
  std::function<void()> MontreFormSound;   ///< BoutonGris(6)
  std::function<void()> OuvreNotice;       ///< BoutonGris(7)
  std::function<void()> MontreFrmSmtp;     ///< BoutonGris(8)
  std::function<void()> EssaiePageLive;    ///< BoutonEssaiFtp
};

/// Ties the clicks of the buttons, for the life of the window.
void BrancheBoutonsGris(Form1& fenetre, const ActionsBoutonsGris& actions);

}  // namespace vaktor
