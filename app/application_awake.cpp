// SPDX-License-Identifier: GPL-3.0-or-later
// The machine under the watch: kept awake while the camera runs, and told when it slept all the same.
#include "app/application.h"

namespace vaktor {

void Vaktor::CreeEveil() {
  Eveil_ = std::make_unique<GardeEveil>(
      PortsEveil{Systeme_.Machine, Minuteries_, Sante_,
                 [this] { return Moteur_->Camera().CameraActive || Moteur_->Camera().Attendue; },
                 [this] { return Moteur_->Alarme().AlarmeArmee; }});
}

void Vaktor::ArreteEveil() {
  if (Eveil_) EssaieJusquauBout([this] { Eveil_->Arrete(); });
}

}  // namespace vaktor
