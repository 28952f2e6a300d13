// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/second_copies.h"

#include <algorithm>

namespace vaktor {

bool SecondesCopies::Demande() {
  if (Ports_.CompagnonPrend()) {
    // It keeps to the bounds by itself. What was measured is of another time when it is away again.
    Mesuree_.reset();
    Depuis_ = Demandes_ = 0;
    return true;
  }
  if (Demandes_++ % kEntreMesures == 0) Mesure();
  if (!AssezDePlace()) return false;
  ++Depuis_;
  return true;
}

bool SecondesCopies::AssezDePlace() const {
  // Until the folder has been measured, and where that cannot be, a photo counts as large as one is when both bounds
  // are reached together; afterwards as large as those that lie there are.
  constexpr qint64 kOctetsPhoto = kOctetsMax / kNombreMax;
  const TailleDossier la = Mesuree_.value_or(TailleDossier());
  const qint64 octets = la.Nombre > 0 ? la.Octets / la.Nombre : kOctetsPhoto;
  return la.Nombre + Depuis_ < kNombreMax && la.Octets + Depuis_ * octets < kOctetsMax;
}

// One that is under way goes on; one whose answer was lost must not be the last: so nothing is remembered here of it.
void SecondesCopies::Mesure() {
  const qint64 avant = Depuis_;
  Ports_.Mesureur.Mesure(Ports_.Dossier, [this, avant](const std::optional<TailleDossier>& taille) {
    if (!taille) return;
    Mesuree_ = taille;
    // Those that were written while it was being measured may be in it or not: they count.
    Depuis_ = std::max<qint64>(Depuis_ - avant, 0);
  });
}

}  // namespace vaktor
