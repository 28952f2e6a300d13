// SPDX-License-Identifier: GPL-3.0-or-later
// Port: settings that are not saved are tried now, to see whether they are right: one mail is sent, or one file goes to
// the site. Real implementation in platform/channel/: the companion whose work it is, started once for this.
#pragma once

#include <QByteArray>
#include <QString>
#include <functional>

namespace vaktor {

enum class FinEssai {
  kAccepte,    ///< the server has taken it; the last line says so
  kRefuse,     ///< it failed; the last line says in one sentence what to change
  kSansFin,    ///< ended by force, since it took longer than it may
  kImpossible  ///< the companion could not be started, broke off, or did not understand
};

struct RappelsEssai {
  std::function<void(const QString& ligne)> SurLigne;  ///< each step as it happens, without its line break
  std::function<void(FinEssai fin)> SurFin;            ///< once; nothing comes behind it
};

/// User-interface thread. Nothing here waits.
class EssaiReglages {
 public:
  virtual ~EssaiReglages() = default;
  /// Starts a rehearsal; one that still runs is cancelled. `demande` is the request as ComposeDemandeEssai or
  /// ComposeDemandeEssaiFtp makes it: it holds the password and reaches the companion through a pipe alone. `rappels`
  /// are called from the event loop; when nothing can be started, possibly from inside this call.
  virtual void Lance(const QByteArray& demande, const RappelsEssai& rappels) = 0;
  /// Ends it at once; no call comes after this. Without a rehearsal it does nothing.
  virtual void Annule() = 0;
};

}  // namespace vaktor
