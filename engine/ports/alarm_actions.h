// What the engine asks of the rooms above it. Handed in at construction; the engine knows only these words.
#pragma once

#include <QString>

namespace vaktor {

/// What an armed system does on a frame above the action level. All calls return at once but EnregistrePhoto, which
/// blocks until the file is on disk and throws Echec when it cannot be written.
class ActionsAlarme {
 public:
  virtual ~ActionsAlarme() = default;
  virtual void EnregistrePhoto() = 0;
  virtual void EnvoiMail(const QString& mot) = 0;  ///< a command word of five characters; fire and forget
  virtual void EnvoiSon(const QString& mot) = 0;
};

/// The live page as the engine sees it. Owner of the two switches: the companions' room.
class LiaisonLive {
 public:
  virtual ~LiaisonLive() = default;
  /// The companion has reported a connection and frames may flow.
  virtual bool LiveActif() const = 0;
  /// The camera stops: the user's switch and LiveActif go off, and no command is sent.
  virtual void OublieLive() = 0;
  /// Stamps the current frame, writes it and tells the companion. Throws Echec when the file cannot be written.
  virtual void PublieLive() = 0;
  /// The user's switch, also carried out for the start argument "/surve".
  virtual void BasculeLive() = 0;
};

}  // namespace vaktor
