// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/ftp_access.h"

#include <algorithm>

#include "modules/ftp/server_address.h"

namespace vaktor {

namespace {

bool AUnControle(const QString& texte) {
  return std::any_of(texte.begin(), texte.end(), [](QChar signe) { return signe.category() == QChar::Other_Control; });
}

ManqueAcces ChercheManque(const AdresseServeur& adresse, const AccesFtp& acces) {
  if (adresse.Hote.isEmpty()) return ManqueAcces::kServeur;
  if (!adresse.Valable) return ManqueAcces::kAdresse;
  if (adresse.Web) return ManqueAcces::kWeb;
  if (acces.Utilisateur.isEmpty()) return ManqueAcces::kUtilisateur;
  if (acces.MotDePasse.isEmpty()) return ManqueAcces::kMotDePasse;
  const bool signe = AUnControle(acces.Utilisateur) || AUnControle(acces.MotDePasse) || AUnControle(acces.Dossier);
  return signe ? ManqueAcces::kSigne : ManqueAcces::kRien;
}

}  // namespace

AccesLu LitAcces(const Parametres& valeurs) {
  const AdresseServeur adresse = LitAdresseServeur(valeurs.AdresseFtp);
  AccesLu lu{{adresse.Hote, adresse.Port, valeurs.UtilisateurFtp, valeurs.MotDePasseFtp, valeurs.RepertoireFtp,
              adresse.Protocole}};
  lu.Manque = ChercheManque(adresse, lu.Acces);
  return lu;
}

}  // namespace vaktor
