// SPDX-License-Identifier: GPL-3.0-or-later
// Sounds that nobody hears, for programs that only measure.
#pragma once

#include "engine/ports/interface_sounds.h"

namespace vaktor {

class SonsMuets : public SonsInterface {
 public:
  void JoueSon(qint32) override {}
  void SurvolSon(qint32) override {}
};

}  // namespace vaktor
