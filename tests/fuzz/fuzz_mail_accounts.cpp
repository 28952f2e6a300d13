// Any bytes as a file of another mail program: what comes out is well-formed, bounded, and the same when written and
// read again.
#include <cstdint>
#include <cstdlib>

#include "platform/accounts/key_file.h"
#include "platform/accounts/thunderbird_accounts.h"

namespace vaktor {
namespace {

void Exige(bool vrai) {
  if (!vrai) std::abort();
}

QByteArray EcritTexte(const QByteArray& texte) {
  QByteArray ecrit = texte;
  ecrit.replace("\\", "\\\\").replace("\"", "\\\"").replace("\n", "\\n").replace("\r", "\\r");
  return '"' + ecrit + '"';
}

QByteArray EcritValeur(const ValeurPref& valeur) {
  if (const auto* texte = std::get_if<QByteArray>(&valeur)) return EcritTexte(*texte);
  if (const auto* nombre = std::get_if<qint32>(&valeur)) return QByteArray::number(*nombre);
  return std::get<bool>(valeur) ? "true" : "false";
}

QByteArray EcritPrefs(const Prefs& prefs) {
  QByteArray octets;
  for (auto pref = prefs.Valeurs.cbegin(); pref != prefs.Valeurs.cend(); ++pref) {
    octets += "user_pref(" + EcritTexte(pref.key()) + ", " + EcritValeur(*pref) + ");\n";
  }
  return octets;
}

void VerifieTexte(const QByteArray& texte) { Exige(texte.isValidUtf8() && !texte.contains('\0')); }

void EssaiePrefs(const QByteArray& octets) {
  const Prefs toutes = LitPrefs(octets, "");
  for (auto pref = toutes.Valeurs.cbegin(); pref != toutes.Valeurs.cend(); ++pref) {
    VerifieTexte(pref.key());
    if (const auto* texte = std::get_if<QByteArray>(&*pref)) VerifieTexte(*texte);
  }
  Exige(LitPrefs(EcritPrefs(toutes), "").Valeurs == toutes.Valeurs);

  const Prefs courrier = LitPrefs(octets, "mail.");
  Exige(courrier.Valeurs.size() <= toutes.Valeurs.size());
  ListeComptes liste;
  AjouteComptes(courrier, liste);
  Exige(liste.Comptes().size() <= kComptesMax);
  for (const CompteMail& compte : liste.Comptes()) {
    Exige(EstMontrable(compte) && liste.Comptes().count(compte) == 1);
    for (const QByteArray& texte : {compte.Serveur, compte.Adresse, compte.Utilisateur}) VerifieTexte(texte);
  }
}

void EssaieCles(const QByteArray& octets) {
  const FichierCles fichier(octets);
  for (const GroupeCles& groupe : fichier.Groupes()) {
    Exige(fichier.AGroupe(groupe.Nom) && groupe.Nom.isValidUtf8());
    for (const auto& [nom, texte] : groupe.Lignes) {
      Exige(!nom.isEmpty() && nom.isValidUtf8() && texte.isValidUtf8());
      Exige(fichier.ValeurGlib(groupe.Nom, nom).size() <= fichier.Valeur(groupe.Nom, nom).size());
    }
  }
}

}  // namespace
}  // namespace vaktor

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const QByteArray octets = vaktor::SansMarque(QByteArrayView(donnees, static_cast<qsizetype>(taille)).toByteArray());
  vaktor::EssaiePrefs(octets);
  vaktor::EssaieCles(octets);
  return 0;
}
