// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a file of another mail program: what comes out is well-formed, bounded, and the same when written and
// read again.
#include <algorithm>
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

// What may go to a server as it is.
void VerifieComptes(const QList<CompteMail>& comptes) {
  Exige(comptes.size() <= kComptesMax);
  for (qsizetype i = 0; i < comptes.size(); ++i) {
    const CompteMail& compte = comptes.at(i);
    Exige(compte.ParDefaut == (i == 0) && compte.Port >= 0 && compte.Port <= kPortMax);
    Exige(!EstUtilisable(compte) || comptes.count(compte) == 1);
    for (const QString& texte : {compte.Serveur, compte.Adresse, compte.Utilisateur}) {
      Exige(texte.isValidUtf16() && texte.toUtf8().size() <= 254);
      Exige(std::ranges::none_of(texte, [](QChar c) { return c < u' ' || c == u'\x7f'; }));
    }
  }
}

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
  VerifieComptes(liste.Comptes());
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
