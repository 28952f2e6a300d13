#include "companions/contract/command_words.h"

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

QString DonneMotCommande(Compagnon compagnon, qint32 code) {
  for (const LigneCommande& ligne : kCommandes)
    if (ligne.Pour == compagnon && ligne.Code == code) return ligne.Mot;
  return {};
}

}  // namespace vaktor
