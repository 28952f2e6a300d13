// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop starts at the login: an entry of ours in the user's folder of such entries.
#pragma once

#include <QString>
#include <QStringList>

#include "base/ports/session_start.h"
#include "platform/folders/bounded_work.h"

namespace vaktor {

/// What the entry starts.
struct LancementSession {
  QString Programme;  ///< absolute path
  QString Camera;     ///< WHERE of "/camera:WHERE"; empty: none named
  QString Dossier;    ///< PATH of "/dossier:PATH", absolute; empty: none named
};

/// "autostart" in the configuration folder of the XDG rules.
QString TrouveDossierSession();
/// The name of the entry: each folder of settings has one of its own, so that several copies can all be started.
QString NommeEntreeSession(const QString& dossier);
/// The whole file, UTF-8.
QByteArray ComposeEntreeSession(const LancementSession& lancement);

/// The file is private to its user, for the address of a camera may hold a password. Desktops switch an entry off by a
/// line in it: such a one counts as not wanted. Nor does one that starts anything else than this very copy with this
/// very camera.
class DemarrageSessionXdg : public DemarrageSession {
 public:
  DemarrageSessionXdg(QString dossier, LancementSession lancement);
  bool EstVoulue() const override;
  bool Veut(bool voulue) override;

 private:
  QString Dossier_;
  QString Fichier_;
  QString Debout_;  // where the program stood at its start
  LancementSession Lancement_;
  mutable TravauxBornes Travaux_;
};

}  // namespace vaktor
