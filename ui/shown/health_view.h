// SPDX-License-Identifier: GPL-3.0-or-later
// The health of the watch in the window: the sign of the top band and the list that it opens.
#pragma once

#include <functional>
#include <memory>

#include "health/watch_health.h"
#include "settings/parameters.h"
#include "ui/window/health_form.h"
#include "ui/window/main_window.h"

namespace vaktor {

/// All of it outlives the view.
struct PortsVueSante {
  SanteVeille& Sante;
  Form1& Fenetre;
  const Parametres& Reglages;
  std::function<bool()> EnFermeture;          ///< no window opens any more
  std::function<QPoint(const QSize&)> Place;  ///< where a new window of this size is put
};

/// Owner: app/. User-interface thread.
class VueSante : public ObservateurSante {
 public:
  explicit VueSante(PortsVueSante ports);

  void Change() override { Actualise(); }
  /// Sign and list as things stand, in the current language.
  void Actualise();
  void Ouvre();
  void Ferme();

 private:
  PortsVueSante Ports_;
  std::unique_ptr<FrmSante> Liste_;  // from its first opening on
};

}  // namespace vaktor
