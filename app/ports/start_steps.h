// SPDX-License-Identifier: GPL-3.0-or-later
// The steps that the start-up sequence puts in order. The application carries them out.
#pragma once

namespace vaktor {

/// User-interface thread. A step that throws Echec ends the start of the program.
class EtapesDepart {
 public:
  virtual ~EtapesDepart() = default;
  virtual void ChargeParametres() = 0;  ///< makes Form1 on its way, after the first values
  virtual void ChargeTextes() = 0;
  virtual void LanceModules() = 0;
  virtual void ChargeFormMonitor() = 0;  ///< made if nothing has touched it before; stays hidden
  virtual void MontreForm1() = 0;
};

}  // namespace vaktor
