// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the FTP companion, as one table: what each shows and what it does.
#pragma once

#include <QLatin1String>
#include <QList>
#include <QString>
#include <optional>

#include "companions/ports/link_display.h"
#include "engine/ports/surveillance_display.h"

namespace vaktor {

/// What a word does beside showing something.
enum class SuiteMot {
  kRien,
  kPret,         ///< FtpModulePret, and the start arguments are carried out again
  kReconnexion,  ///< starts TimerFTPreconnect
  kLive,         ///< frames may flow
  kFin           ///< the error ending
};

struct LigneMot {
  QLatin1String Mot;
  bool SurveillanceSeule = false;  ///< while the user's switch is off the word is dropped whole, status included
  std::optional<Libelle> Statut = std::nullopt;
  std::optional<Phrase> Litteral = std::nullopt;  ///< status text that no table holds
  std::optional<Lampe> Led = std::nullopt;
  QList<ChampLiaison> Rouges = {};  ///< fields that turn red
  SuiteMot Suite = SuiteMot::kRien;
  bool Panne =
      false;  ///< an error that can also be an outage of the other side: it does not end a page that ran before
};

/// The row of a word of exactly five characters, or null for an unknown one. "HWND:" is no row: it carries a number.
const LigneMot* TrouveLigneMot(const QString& mot);

}  // namespace vaktor
