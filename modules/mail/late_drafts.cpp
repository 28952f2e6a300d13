#include "modules/mail/late_drafts.h"

#include <algorithm>
#include <cerrno>

namespace vaktor {

int BrouillonsEnRetard::Publie(const QString& nom, qint64 faitA) {
  if (Boite_.Publie(nom)) {
    Noms_.remove(nom);
    return 0;
  }
  const int erreur = errno;
  Noms_.insert(nom, faitA);
  return erreur;
}

int BrouillonsEnRetard::Reessaie() {
  int partis = 0;
  const QStringList noms = Noms_.keys();
  for (const QString& nom : noms) {
    const int erreur = Publie(nom, Noms_.value(nom));
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
