// Stand-ins for rooms that are not built yet. Each does nothing at all and goes when its room comes.
#pragma once

#include "engine/ports/alarm_actions.h"
#include "engine/ports/interface_sounds.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

class SonsMuets : public SonsInterface {
 public:
  void JoueSon(qint32) override {}
  void SurvolSon(qint32) override {}
};

class LiaisonLiveAbsente : public LiaisonLive {
 public:
  bool LiveActif() const override { return false; }
  void OublieLive() override {}
  void PublieLive() override {}
  void BasculeLive() override {}
};

class CommandesSansModules : public CommandesModules {
 public:
  void EnvoiFTP(const QString&) override {}
  void EnvoiMail(const QString&) override {}
  void EnvoiSon(const QString&) override {}
};

}  // namespace vaktor
