// SPDX-License-Identifier: GPL-3.0-or-later
// The one table of everything that is stored: where a value lies in the store, in which form, what a first run finds,
// when it is loaded and when it is saved. Load, save, documentation and tests are driven by it.
#pragma once

#include <QString>
#include <limits>
#include <span>
#include <variant>

#include "settings/parameters.h"

namespace vaktor {

/// How a value is written in the store. All forms are text.
enum class FormeStockee {
  Entier,    ///< decimal text of a signed 32-bit integer
  Texte,     ///< as it stands
  Drapeau,   ///< "0" or "1", the value of a check box
  Booleen,   ///< "True" or "False"; any other number than 0 also reads as true
  Brouille,  ///< output of CryptePass
  Secret,    ///< the same; as it stands where it would not come back: a token is often longer than a password
  Mesure     ///< number as text, written for the FTP companion and never read
};

/// Which variable holds the value; none for Mesure.
using ChampParametre =
    std::variant<std::monostate, qint32 Parametres::*, quint8 Parametres::*, bool Parametres::*, QString Parametres::*>;

struct LigneReglage {
  const char* Section;
  const char* Cle;  ///< upper and lower case count: "repertoire" of PHOTO, "Repertoire" of SON
  FormeStockee Forme;
  const char* Defaut;  ///< value of a first run; nothing for the folder of the photos, which the installation decides
  ChampParametre Champ;
  qint32 Minimum = std::numeric_limits<qint32>::min();  ///< integers outside are refused, both ends included
  qint32 Maximum = std::numeric_limits<qint32>::max();
  bool EstDossierPhotos = false;  ///< the default is DossiersProgramme::PhotosParDefaut
  bool EcritEnDernier = false;    ///< saved behind all other rows, whatever its place in the table
};

/// All rows: in the order of the load, which is that of the save but for the rows that are EcritEnDernier.
std::span<const LigneReglage> TableReglages();

/// The same rows in the order of the save.
std::span<const LigneReglage* const> OrdreSauvegarde();

/// The load reads this row; the others are only written.
constexpr bool EstLue(const LigneReglage& ligne) { return ligne.Forme != FormeStockee::Mesure; }

/// "section/key", the name of a row in messages.
QString NomReglage(const LigneReglage& ligne);

/// The value of a first run as stored text. `dossierPhotos`: that of the row that is EstDossierPhotos.
QString DefautReglage(const LigneReglage& ligne, const QString& dossierPhotos);

/// Stored text into the variable of the row. Throws Echec: kTypeIncompatible for a text that is no number where one is
/// needed, kDepassement for a number outside 32 bits, kIndiceHorsPlage for one outside the row's range. The variable
/// is then untouched.
void LitValeur(const LigneReglage& ligne, const QString& texte, Parametres& parametres);

/// The variable of the row as stored text; empty for Mesure.
QString TexteValeur(const LigneReglage& ligne, const Parametres& parametres);

}  // namespace vaktor
