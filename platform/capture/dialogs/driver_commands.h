// SPDX-License-Identifier: GPL-3.0-or-later
// What the driver's dialogs ask of the driver. The driver (GStreamer) implements it; the dialogs know nothing else.
#pragma once

#include <QList>
#include <QString>

#include "platform/capture/choice/camera_format.h"
#include "platform/capture/choice/capture_reason.h"
#include "platform/capture/choice/named_source.h"

namespace vaktor {

class CommandesPilote {
 public:
  virtual ~CommandesPilote() = default;
  virtual GenreSource Genre() const = 0;
  /// The source as the user would name it: a device path, an address without its password, a file, "test".
  virtual QString DescriptionSource() const = 0;
  /// kReseau: where it was found, as ComprendSource understands it, password and all: to be remembered, not shown.
  virtual QString AdresseEnService() const = 0;
  virtual QString NoeudPeripherique() const = 0;   ///< empty unless kPeripherique
  virtual QString NomStable() const = 0;           ///< empty unless kPeripherique
  virtual FormatCamera FormatCourant() const = 0;  ///< as negotiated; size of the frames for every kind
  /// Stops, opens again in this format and waits for a frame. False: the old format goes on.
  virtual bool AppliqueFormat(const FormatCamera& format) = 0;
  /// Opens another device path, stable name, address, file or "test". False: the old source goes on. Mouse and keys go
  /// on meanwhile, for up to DelaisCapture::kConnexionReseau.
  virtual bool ChangeSource(const QString& source) = 0;
  /// Ends a ChangeSource that waits; it then says false.
  virtual void Abandonne() = 0;
  /// Why AppliqueFormat or ChangeSource said false.
  virtual Raison Pourquoi() const = 0;
};

}  // namespace vaktor
