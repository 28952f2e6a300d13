// SPDX-License-Identifier: GPL-3.0-or-later
// The links of the program: the manual and the news of the version, in the user's browser.
#pragma once

#include <QString>

#include "base/ports/opener.h"
#include "engine/ports/interface_sounds.h"
#include "settings/parameters.h"
#include "texts/phrase.h"

namespace vaktor {

/// Where the pages are.
struct SitePages {
  QString Hote;  ///< the maker's web server, "https://www.example.org" without "/" at its end; empty: none yet
  QString
      Dossier;  ///< the pages that are installed with the program, without "/" at its end; opened while Hote is empty
  QString Version;  ///< of the program, "major.minor.revision"
};

/// Owner: app/. User-interface thread. Touches neither camera nor alarm; nothing is reported.
class LiensEnLigne {
 public:
  /// `reglages`, `sons` and `navigateur` outlive the object.
  LiensEnLigne(const Parametres& reglages, SonsInterface& sons, Ouvreur& navigateur, SitePages site);

  void OuvreNotice();     ///< BoutonGris(7)
  void OuvreMiseAJour();  ///< BoutonGris(1)

 private:
  void Ouvre(const Phrase& chemins, const QString& question);
  QString DonneAdresse(QString chemin, const QString& question) const;

  const Parametres& Reglages_;
  SonsInterface& Sons_;
  Ouvreur& Navigateur_;
  const SitePages Site_;
};

}  // namespace vaktor
