// SPDX-License-Identifier: GPL-3.0-or-later
// Port: the message channel between the processes of one user. An inbox takes short texts, a command window takes key
// codes; both are addressed by a decimal handle. Real implementation in platform/channel/.
#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "companions/contract/command_words.h"

namespace vaktor {

/// How a command window does with what was posted to it.
enum class Prise {
  kRien,   ///< nothing waits: it has taken everything, or nobody is there
  kPrend,  ///< something waits, and something was taken since this was asked last
  kMuette  ///< something waits, and nothing was taken since
};

/// User-interface thread.
class CanalMessages {
 public:
  virtual ~CanalMessages() = default;

  /// Opens an inbox and gives its handle, above 0, unlike every other handle in use. `recu` is called from the event
  /// loop with each text, one at a time, in the order of sending, and never from inside another call of this port. What
  /// it throws goes on to the guard of the event loop; the texts behind are kept. Throws Echec when the system refuses.
  virtual qint32 OuvreCasier(std::function<void(const QString& texte)> recu) = 0;
  /// Closes an inbox: a late text finds nobody any more. An unknown handle is ignored.
  virtual void FermeCasier(qint32 poignee) = 0;

  /// Posts one key code to a command window. Returns at once, whatever the other side does, and never fails aloud: a
  /// handle that nobody answers to, 0 included, swallows it. What the window does not take waits, in order, as `tenue`
  /// says; a code that is equal to the one before it is that one, posted now. No more than a few wait.
  virtual void PosteTouche(qint32 poignee, qint32 code, Tenue tenue) noexcept = 0;
  virtual Prise DonnePrise(qint32 poignee) = 0;
  /// Whoever had this command window has gone without closing it: what waits for it and what it left behind goes too.
  virtual void OublieFenetre(qint32 poignee) noexcept = 0;
  /// Whether a process holds this handle now, inbox or command window; nothing when the system does not tell. Sends
  /// nothing.
  virtual std::optional<bool> Repond(qint32 poignee) const = 0;
};

}  // namespace vaktor
