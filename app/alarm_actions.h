// What an alarm does, handed to the rooms that do it.
#pragma once

#include "engine/ports/alarm_actions.h"
#include "image/photo_recorder.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

/// Made before the engine and the recorder, which needs the engine's surface; the recorder is tied on afterwards.
class ActionsAlarmeReelles : public ActionsAlarme {
 public:
  explicit ActionsAlarmeReelles(CommandesModules& modules) : Modules_(modules) {}
  void Relie(EnregistreurPhotos& photos) { Photos_ = &photos; }

  void EnregistrePhoto() override {
    if (Photos_ != nullptr) Photos_->EnregistrePhoto();
  }
  void EnvoiMail(const QString& mot) override { Modules_.EnvoiMail(mot); }
  void EnvoiSon(const QString& mot) override { Modules_.EnvoiSon(mot); }

 private:
  CommandesModules& Modules_;
  EnregistreurPhotos* Photos_ = nullptr;
};

}  // namespace vaktor
