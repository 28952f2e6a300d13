#include "platform/disk/space_query.h"

#include <exception>
#include <utility>

#include "platform/base/system_files.h"

namespace vaktor {

void SondeEspaceSysteme::DemandeEspace(const QString& dossier, Recoit recoit) {
  if (Recoit_ && dossier == Dossier_) return;
  Dossier_ = dossier;
  Recoit_ = std::move(recoit);
  // Forgotten and asked again: the answer that is still to come is as good.
  if (SansReponse_.contains(dossier)) return;
  SansReponse_.insert(dossier);
  const bool lance = Travaux_.Lance([this, dossier, relais = Relais_] {
    std::optional<qint64> libres;
    try {
      libres = FichiersSysteme().EspaceLibre(dossier);
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
  SansReponse_.remove(dossier);
  if (dossier != Dossier_) return;
  if (const Recoit recoit = std::exchange(Recoit_, {})) recoit(libres);
}

}  // namespace vaktor
