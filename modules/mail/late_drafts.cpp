// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/mail/late_drafts.h"

#include <algorithm>
#include <cerrno>

namespace vaktor {

Publication BrouillonsEnRetard::Publie(const QString& nom, qint64 faitA) {
  Publication suite = PublieBrouillon(Sac_, Photos_, nom);
  if (suite.Erreur == 0)
    Noms_.remove(nom);
  else
    Noms_.insert(nom, faitA);
  return suite;
}

int BrouillonsEnRetard::Reessaie() {
  int partis = 0;
  const QStringList noms = Noms_.keys();
  for (const QString& nom : noms) {
    const int erreur = Publie(nom, Noms_.value(nom)).Erreur;
    if (erreur == ENOENT) Noms_.remove(nom);  // somebody has taken the draft away: nothing waits
    if (erreur == 0) ++partis;
  }
  return partis;
}

std::optional<qint64> BrouillonsEnRetard::PlusAncien() const {
  if (Noms_.isEmpty()) return std::nullopt;
  return *std::min_element(Noms_.begin(), Noms_.end());
}

}  // namespace vaktor
