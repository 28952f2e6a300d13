// What the grey buttons of the pages open.
#pragma once

#include <array>
#include <functional>

#include "ui/window/main_window.h"

namespace vaktor {

/// By the button's index; an empty one does nothing. 4 and 5 are tied to the engine by the window itself.
using ActionsBoutonsGris = std::array<std::function<void()>, 9>;

/// Ties the clicks of BoutonGris(0..8), for the life of the window.
void BrancheBoutonsGris(Form1& fenetre, const ActionsBoutonsGris& actions);

}  // namespace vaktor
