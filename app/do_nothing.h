// Stand-in for a room that is not built yet. It does nothing at all and goes when its room comes.
#pragma once

#include "engine/ports/interface_sounds.h"

namespace vaktor {

class SonsMuets : public SonsInterface {
 public:
  void JoueSon(qint32) override {}
  void SurvolSon(qint32) override {}
};

}  // namespace vaktor
