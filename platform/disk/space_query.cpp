// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disk/space_query.h"

#include <exception>
#include <utility>

#include "platform/base/system_files.h"

namespace vaktor {

SondeEspaceSysteme::SondeEspaceSysteme()
    : SondeEspaceSysteme([](const QString& dossier) { return FichiersSysteme().EspaceUtilisable(dossier); }) {}

// A question is under way as long as its thread. One that has ended without an answer, because there was no memory to
// bring it here, must not be waited for: it is asked again.
void SondeEspaceSysteme::DemandeEspace(const QString& dossier, Recoit recoit) {
  if (!Recoit_ || dossier != Dossier_) {
    Dossier_ = dossier;
    Recoit_ = std::move(recoit);
  }
  // Forgotten and asked again: the answer that is still to come is as good.
  if (EstEnRoute(dossier)) return;
  const auto fil = std::make_shared<int>();
  Fils_.insert(dossier, fil);
  const bool lance = Travaux_.Lance([this, fil, dossier, question = Question_, relais = Relais_] {
    std::optional<qint64> libres;
    try {
      libres = question(dossier);
    } catch (const std::exception&) {
      // Want of memory: it cannot be told this time, and is asked again.
    }
    // Run only while the relay is not cut, which this object does as it goes.
    relais->Poste([this, dossier, libres] { Rend(dossier, libres); });
  });
  // No thread: as if the disk could not tell, and later, like every answer.
  if (!lance) Relais_->Poste([this, dossier] { Rend(dossier, std::nullopt); });
}

void SondeEspaceSysteme::Oublie() { Recoit_ = {}; }

void SondeEspaceSysteme::Rend(const QString& dossier, std::optional<qint64> libres) {
  if (dossier != Dossier_) return;
  if (const Recoit recoit = std::exchange(Recoit_, {})) recoit(libres);
}

}  // namespace vaktor
