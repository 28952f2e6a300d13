// SPDX-License-Identifier: GPL-3.0-or-later
// The mail accounts of the programs that Linux users have, from their files.
#pragma once

#include <QString>
#include <chrono>
#include <functional>

#include "companions/ports/foreign_accounts.h"
#include "platform/folders/bounded_work.h"

namespace vaktor {

/// Where the mail programs keep their files.
struct LieuxComptes {
  QString Domicile;       ///< the user's home folder
  QString Configuration;  ///< XDG_CONFIG_HOME, by default ~/.config
};

LieuxComptes TrouveLieuxComptes();

/// What one reading may take in: Thunderbird's preferences and Evolution's sources, bytes.
inline constexpr qint64 kBudgetThunderbird = 64LL << 20;
inline constexpr qint64 kBudgetEvolution = 8LL << 20;

/// The accounts of Thunderbird (its own folders and those of its Snap and Flatpak packages), then those of Evolution.
/// The first is the default one. Never fails: what cannot be read is not there. Any thread.
QList<CompteMail> LitTousLesComptes(const LieuxComptes& lieux);

/// The home folder may lie on a disk that does not answer: the reading has a thread of its own, which is left behind
/// then. One thread.
class LecteurComptesBorne : public LecteurComptes {
 public:
  using Lecture = std::function<QList<CompteMail>()>;
  static constexpr std::chrono::milliseconds kPatience{2000};

  /// `lit` owns everything it uses.
  explicit LecteurComptesBorne(Lecture lit, std::chrono::milliseconds patience = kPatience)
      : Lit_(std::move(lit)), Patience_(patience) {}

  /// No accounts when they are not there in time.
  QList<CompteMail> LitComptes() override;

 private:
  const Lecture Lit_;
  const std::chrono::milliseconds Patience_;
  TravauxBornes Travaux_;
};

}  // namespace vaktor
