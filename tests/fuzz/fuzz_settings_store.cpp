// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the settings file: the load ends in good order or with one message, and what it took in survives a save.
#include <cstdint>
#include <cstdlib>

#include "base/failure.h"
#include "settings/settings_bench_of_fakes.h"
#include "settings/settings_text.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

bool Charge(BancReglages& banc) {
  try {
    banc.Charge();
  } catch (const Echec& echec) {
    Exige(!echec.Description().isEmpty() && echec.Description().size() < 1000);
    Exige(banc.Magasin.Ecrits.count("*") <= 1);  // the photo folder at most: a damaged store is not overwritten
    return false;
  }
  return true;
}

void Essaie(QByteArrayView octets) {
  const TexteReglages lu = LitTexteReglages(octets);
  const TexteReglages relu = LitTexteReglages(EcritTexteReglages(lu.Valeurs));
  Exige(relu.Valeurs == lu.Valeurs && relu.LignesIllisibles == 0);

  BancReglages banc;
  banc.Magasin.Valeurs = lu.Valeurs;
  if (!Charge(banc)) return;
  banc.Reglages.SauveParametres();
  Exige(banc.Magasin.Disque.size() >= std::ssize(TableReglages()));
  // A password may still change at the second load, when it is the digits that the format gave back; nothing else may.
  BancReglages second;
  second.Magasin.Valeurs = LitTexteReglages(EcritTexteReglages(banc.Magasin.Disque)).Valeurs;
  Exige(second.Magasin.Valeurs == banc.Magasin.Disque);
  second.Disque.AjouteDossier(banc.Valeurs.RepertoirePhoto);
  Exige(Charge(second));
  for (const LigneReglage* ligne : OrdreSauvegarde()) {
    if (ligne->Forme == FormeStockee::Brouille || ligne->Forme == FormeStockee::Secret) continue;
    Exige(second.Magasin.Disque.value(NomReglage(*ligne)) == banc.Magasin.Disque.value(NomReglage(*ligne)));
  }
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  vaktor::Essaie(QByteArrayView(donnees, static_cast<qsizetype>(taille)));
  return 0;
}
