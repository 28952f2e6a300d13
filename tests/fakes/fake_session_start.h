// SPDX-License-Identifier: GPL-3.0-or-later
// The programs of the login, in memory.
#pragma once

#include "base/ports/session_start.h"
#include "fakes/journal.h"

namespace vaktor::faux {

class SessionFausse : public DemarrageSession {
 public:
  explicit SessionFausse(Journal& journal) : J_(journal) {}
  bool EstVoulue() const override {
    J_.Note([] { return QStringLiteral("session: look"); });
    return Voulue;
  }
  bool Veut(bool voulue) override {
    J_.Note([voulue] { return voulue ? QStringLiteral("session: start") : QStringLiteral("session: leave"); });
    if (!Refuse) Voulue = voulue;
    return !Refuse;
  }
  bool Voulue = false;
  bool Refuse = false;

 private:
  Journal& J_;
};

}  // namespace vaktor::faux
