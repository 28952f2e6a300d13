// SPDX-License-Identifier: GPL-3.0-or-later
// Port: what the companions say of their work in their status files.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace vaktor {

/// One file. Times are told as ages, milliseconds at the moment of the reading: two clocks that were compared later
/// would have to agree about summer time. Beside each stands the text it was read from: the same text says nothing new,
/// whatever a clock that was set meanwhile makes of it.
struct EtatCompagnon {
  qint32 Poignee = 0;  ///< of the companion that wrote it; 0 where there is no file, or none that makes sense
  std::optional<qint64> Attente;  ///< mail: age of the oldest mail that waits
  std::optional<qint64> Publie;   ///< FTP: age of the last live image on the site
  QString MotsServeur = {};       ///< what the other side said, of a failure that stands; one line
  QString Sujet = {};             ///< the name of a failure that stands ("sound-device"); empty where none does
  /// Another text each time the companion has said that it lives; empty where its file tells nothing of the kind.
  QString Battement = {};
  /// Mail: another text each time a server has taken a mail; empty while none has.
  QString Accepte = {};
  std::optional<qint64> AttentePush = {};                          ///< mail: age of the oldest push that waits
  QString MotsPush = {};                                           ///< what the push server said; one line
  QString AttenteDite = {}, PublieDit = {}, AttentePushDite = {};  ///< the texts of the three times
};

struct EtatsCompagnons {
  EtatCompagnon Ftp;
  EtatCompagnon Mail;
  EtatCompagnon Son = {};
};

/// User-interface thread.
class LecteurEtats {
 public:
  using Recoit = std::function<void(const EtatsCompagnons& etats)>;

  virtual ~LecteurEtats() = default;
  /// Reads the three files, without blocking, and calls `recoit` from the event loop; never for a disk that does not
  /// answer. While a reading is under way, for a minute at the most, another one is not begun, and `recoit` is dropped;
  /// of one that took longer nothing comes any more once another was asked for.
  virtual void LitEtats(Recoit recoit) = 0;
  /// Nobody waits for the reading under way any more.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
