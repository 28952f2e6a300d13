// SPDX-License-Identifier: GPL-3.0-or-later
// Port: how much room a disk has, asked without waiting for it.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace vaktor {

/// User-interface thread.
class SondeEspace {
 public:
  /// Bytes that may still be written there (Fichiers::EspaceUtilisable); nothing when that cannot be told.
  using Recoit = std::function<void(std::optional<qint64> libres)>;

  virtual ~SondeEspace() = default;
  /// Asks for the disk of a folder in its stored form and returns at once. `recoit` comes later, from the event loop,
  /// once; a disk that does not answer answers late or never. A question takes the place of the one before, whose
  /// `recoit` does not come any more, but for the same folder: while that one is not answered nothing new is asked, so
  /// that a dead disk gathers no questions, and the earlier `recoit` stands.
  virtual void DemandeEspace(const QString& dossier, Recoit recoit) = 0;
  /// Forgets the question that is under way, if there is one.
  virtual void Oublie() = 0;
};

}  // namespace vaktor
