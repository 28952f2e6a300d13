// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the machine under the program, asked not to go to sleep, and its clocks.
#pragma once

#include <QString>
#include <functional>

namespace vaktor {

/// What became of a request to stay awake.
enum class ReponseEveil {
  kAccordee,
  kRefusee,  ///< whoever puts the machine to sleep has said no, or gives no answer
  kPersonne  ///< nobody is there to be asked: no bus, no login manager, no portal
};

/// Three counts of milliseconds, taken together.
struct InstantsMachine {
  qint64 EveilleMs = 0;  ///< while the machine was awake; no change of the clock moves it
  qint64 ToutMs = 0;     ///< the same, sleep included
  qint64 MuralMs = 0;    ///< since 1970, UTC, as the clock stands
};

/// User-interface thread. No call waits for anybody.
class MachineEveillee {
 public:
  using Reponse = std::function<void(ReponseEveil reponse, const QString& mots)>;

  virtual ~MachineEveillee() = default;
  /// Asks that the machine neither sleeps nor idles. `reponse` is called once, later, from the event loop, with the
  /// other side's own words where it said no; it is never called after Rend or another Demande. While an earlier
  /// request is still held nothing is asked again: the answer says so.
  virtual void Demande(Reponse reponse) = 0;
  /// Gives back what is held, or will be granted. Without effect where nothing was asked for.
  virtual void Rend() = 0;
  virtual InstantsMachine LitInstants() const = 0;
};

}  // namespace vaktor
