// SPDX-License-Identifier: GPL-3.0-or-later
// What concerns the program as a whole. Owner: app/; forms hold a reference and only read.
#pragma once

namespace vaktor {

struct EtatApplication {
  /// The program is ending: a close request to a form is real now. While it is false, forms that live for the whole
  /// run only hide when they are closed.
  bool EnFermeture = false;
};

}  // namespace vaktor
