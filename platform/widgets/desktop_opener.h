// SPDX-License-Identifier: GPL-3.0-or-later
// Opens addresses and folders with the desktop's own programs.
#pragma once

#include "base/ports/opener.h"

namespace vaktor {

/// User-interface thread. Returns at once. An address without a scheme ("www.example.org/live.html") is taken as a web
/// address; the empty address opens nothing.
class OuvreurBureau : public Ouvreur {
 public:
  void OuvreAdresse(const QString& adresse) override;
  void OuvreDossier(const QString& chemin) override;
};

}  // namespace vaktor
