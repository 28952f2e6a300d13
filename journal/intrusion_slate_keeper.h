// SPDX-License-Identifier: GPL-3.0-or-later
// What the slate of an intrusion says, and when it is worth writing it anew.
#pragma once

#include <QByteArray>
#include <QRect>
#include <QSize>
#include <optional>

#include "companions/contract/intrusion_slate.h"

namespace vaktor {

/// One object an intrusion. Moments are told to it. User-interface thread.
class TeneurArdoise {
 public:
  static constexpr qint64 kRythmeMs = 1000;  ///< while its photos stay the same

  explicit TeneurArdoise(const QDateTime& depuis) { Ardoise_.Depuis = Ardoise_.Jusqua = depuis; }

  /// A frame that acts. `maintenantMs` is a count that no clock moves.
  void NoteImage(const QDateTime& quand, qint64 maintenantMs, qint32 points, const QRect& cadre, const QSize& taille);
  /// A photo of the last frame was written under this name, or another copy of it under the same or another one.
  void NotePhoto(const QString& nom);
  /// What is to be written, where it says something else than the last time, or has to say that it is still so.
  std::optional<QByteArray> PrendTexte();

 private:
  ArdoiseIntrusion Ardoise_;
  qint32 Points_ = 0;  // of the last frame, as the box
  QRect Cadre_;
  qint64 MaintenantMs_ = 0;
  qint64 EcriteMs_ = 0;
  bool Neuve_ = true;
};

}  // namespace vaktor
