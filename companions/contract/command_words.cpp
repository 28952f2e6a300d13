// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/contract/command_words.h"

namespace vaktor {

namespace {

struct LigneCommande {
  Compagnon Pour;
  Commande Quoi;
  qint32 Code;
};

// Code 70 of the FTP companion is left out on purpose: it is not used and must stay free.
constexpr std::array<LigneCommande, 13> kCommandes = {{
    {Compagnon::kFtp, Commande::kConnexion, 65},
    {Compagnon::kFtp, Commande::kDeconnexion, 66},
    {Compagnon::kFtp, Commande::kOptions, 67},
    {Compagnon::kFtp, Commande::kQuitte, 68},
    {Compagnon::kFtp, Commande::kSurveillance, 69},
    {Compagnon::kFtp, Commande::kPage, 71},
    {Compagnon::kMail, Commande::kOptions, 65},
    {Compagnon::kMail, Commande::kIntrusion, 66},
    {Compagnon::kMail, Commande::kQuitte, 67},
    {Compagnon::kMail, Commande::kVeille, 68},
    {Compagnon::kSon, Commande::kOptions, 65},
    {Compagnon::kSon, Commande::kIntrusion, 66},
    {Compagnon::kSon, Commande::kQuitte, 67},
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

QLatin1String DonneMot(Commande commande) {
  switch (commande) {
    case Commande::kConnexion:
      return QLatin1String("Conne");
    case Commande::kDeconnexion:
      return QLatin1String("Decon");
    case Commande::kSurveillance:
      return QLatin1String("Surve");
    case Commande::kPage:
      return QLatin1String("UploM");
    case Commande::kIntrusion:
      return QLatin1String("Intru");
    case Commande::kVeille:
      return QLatin1String("Veill");
    case Commande::kOptions:
      return QLatin1String("Optio");
    case Commande::kQuitte:
      break;
  }
  return QLatin1String("Quit*");
}

std::optional<qint32> DonneCodeTouche(Compagnon compagnon, Commande commande) {
  for (const LigneCommande& ligne : kCommandes)
    if (ligne.Pour == compagnon && ligne.Quoi == commande) return ligne.Code;
  return std::nullopt;
}

std::optional<Commande> LitCodeTouche(Compagnon compagnon, qint32 code) {
  for (const LigneCommande& ligne : kCommandes)
    if (ligne.Pour == compagnon && ligne.Code == code) return ligne.Quoi;
  return std::nullopt;
}

Tenue DonneTenue(Commande commande) {
  switch (commande) {
    case Commande::kIntrusion:
      return Tenue::kInstant;
    case Commande::kQuitte:
      return Tenue::kDerniere;
    case Commande::kConnexion:
    case Commande::kDeconnexion:
    case Commande::kSurveillance:
    case Commande::kPage:
      return Tenue::kOrdinaire;  // a later image, page or change of the switch makes an earlier one void
    case Commande::kVeille:
    case Commande::kOptions:
      break;
  }
  return Tenue::kGardee;  // said once
}

}  // namespace vaktor
