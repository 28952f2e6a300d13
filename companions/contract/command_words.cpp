#include "companions/contract/command_words.h"

#include <algorithm>

namespace vaktor {

namespace {

struct LigneCommande {
  Compagnon Pour;
  QLatin1String Mot;
  qint32 Code;
};

// Code 70 of the FTP companion is left out on purpose: it is not used and must stay free.
constexpr std::array<LigneCommande, 13> kCommandes = {{
    {Compagnon::kFtp, QLatin1String("Conne"), 65},
    {Compagnon::kFtp, QLatin1String("Decon"), 66},
    {Compagnon::kFtp, QLatin1String("Optio"), 67},
    {Compagnon::kFtp, QLatin1String("Quit*"), 68},
    {Compagnon::kFtp, QLatin1String("Surve"), 69},
    {Compagnon::kFtp, QLatin1String("UploM"), 71},
    {Compagnon::kMail, QLatin1String("Optio"), 65},
    {Compagnon::kMail, QLatin1String("Intru"), 66},
    {Compagnon::kMail, QLatin1String("Quit*"), 67},
    {Compagnon::kMail, QLatin1String("Veill"), 68},  // ours: the watch itself has something to say, see kDossierVeille
    {Compagnon::kSon, QLatin1String("Optio"), 65},
    {Compagnon::kSon, QLatin1String("Intru"), 66},
    {Compagnon::kSon, QLatin1String("Quit*"), 67},
}};

}  // namespace

IdentiteCompagnon DonneIdentite(Compagnon compagnon) {
  switch (compagnon) {
    case Compagnon::kFtp:
      return {QLatin1String("VAKTORftp"), QLatin1String("FTP")};
    case Compagnon::kMail:
      return {QLatin1String("VAKTORmail"), QLatin1String("MAIL")};
    case Compagnon::kSon:
      break;
  }
  return {QLatin1String("VAKTORsound"), QLatin1String("SON")};
}

std::optional<qint32> DonneCodeTouche(Compagnon compagnon, const QString& mot) {
  for (const LigneCommande& ligne : kCommandes)
    if (ligne.Pour == compagnon && ligne.Mot == mot) return ligne.Code;
  return std::nullopt;
}

Tenue DonneTenue(const QString& mot) {
  if (mot == QLatin1String("Intru")) return Tenue::kInstant;
  if (mot == QLatin1String("Quit*")) return Tenue::kDerniere;
  // A later image, page or change of the switch makes an earlier one void; everything else is said once.
  static constexpr std::array kRemplacables = {QLatin1String("Surve"), QLatin1String("UploM"), QLatin1String("Conne"),
                                               QLatin1String("Decon")};
  return std::find(kRemplacables.begin(), kRemplacables.end(), mot) != kRemplacables.end() ? Tenue::kOrdinaire
                                                                                           : Tenue::kGardee;
}

QString DonneMotCommande(Compagnon compagnon, qint32 code) {
  for (const LigneCommande& ligne : kCommandes)
    if (ligne.Pour == compagnon && ligne.Code == code) return ligne.Mot;
  return {};
}

}  // namespace vaktor
