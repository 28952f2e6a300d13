// Port: the message channel between the processes of one user. An inbox takes short texts, a command window takes key
// codes; both are addressed by a decimal handle. Real implementation in platform/channel/.
#pragma once

#include <QString>
#include <functional>

namespace vaktor {

/// User-interface thread.
class CanalMessages {
 public:
  virtual ~CanalMessages() = default;

  /// Opens an inbox and gives its handle, above 0, unlike every other handle in use. `recu` is called from the event
  /// loop with each text, one at a time, in the order of sending, and never from inside another call of this port. What
  /// it throws goes on to the guard of the event loop; the texts behind are kept. Throws Echec when the system refuses.
  virtual qint32 OuvreBoite(std::function<void(const QString& texte)> recu) = 0;
  /// Closes an inbox: a late text finds nobody any more. An unknown handle is ignored.
  virtual void FermeBoite(qint32 poignee) = 0;

  /// Posts one key code to a command window. Returns at once, whatever the other side does, and never fails aloud: a
  /// handle that nobody answers to, 0 included, swallows it.
  virtual void PosteTouche(qint32 poignee, qint32 code) noexcept = 0;
};

}  // namespace vaktor
