// The one table of everything that is stored: where a value lies in the store, in which form, what a first run finds,
// when it is loaded and when it is saved. Load, save, documentation and tests are driven by it.
#pragma once

#include <QString>
#include <optional>
#include <span>
#include <variant>

#include "settings/parameters.h"
#include "settings/ports/settings_display.h"

namespace vaktor {

/// How a value is written in the store. All forms are text.
enum class FormeStockee {
  Entier,    ///< decimal text of a signed 32-bit integer
  Texte,     ///< as it stands
  Drapeau,   ///< "0" or "1", the value of a check box
  Booleen,   ///< "True" or "False"; any other number than 0 also reads as true
  Brouille,  ///< output of CryptePass
  Mesure     ///< number as text, written for the FTP companion and never read
};

/// Which variable holds the value; none for Mesure.
using ChampParametre =
    std::variant<std::monostate, qint32 Parametres::*, quint8 Parametres::*, bool Parametres::*, QString Parametres::*>;

struct LigneReglage {
  const char* Section;
  const char* Cle;  ///< upper and lower case count: "repertoire" of PHOTO, "Repertoire" of SON
  FormeStockee Forme;
  const char* Defaut;  ///< value of a first run; behind the program folder where SousDossier is set
  int RangChargement;  ///< 1 to 33 in the order of the load, 0: never read
  int RangSauvegarde;  ///< 1 to 35 in the order of the save
  ChampParametre Champ;
  std::optional<ControleParametre> Controle = {};       ///< control that is filled as soon as this row is read
  qint32 Minimum = std::numeric_limits<qint32>::min();  ///< integers outside are refused, both ends included
  qint32 Maximum = std::numeric_limits<qint32>::max();
  bool SousDossier = false;  ///< the default lies in the program folder
};

inline constexpr int kNombreReglages = 33;  ///< rows that are loaded
inline constexpr int kNombreCles = 35;      ///< rows that are saved: with width and height

// Rows that have a special rule in the load.
inline constexpr int kRangSeuilAuto = 3;
inline constexpr int kRangRepertoirePhoto = 7;
inline constexpr int kRangFichierSon = 11;

/// All rows, those that are loaded first, in load order.
std::span<const LigneReglage> TableReglages();

/// The rows in the order of the save.
std::span<const LigneReglage* const> OrdreSauvegarde();

/// "section/key", the name of a row in messages.
QString NomReglage(const LigneReglage& ligne);

/// The value of a first run as stored text. `dossierProgramme`: without separator at its end.
QString DefautReglage(const LigneReglage& ligne, const QString& dossierProgramme);

/// Stored text into the variable of the row. Throws Echec: kTypeIncompatible for a text that is no number where one is
/// needed, kDepassement for a number outside 32 bits, kIndiceHorsPlage for one outside the row's range. The variable
/// is then untouched.
void LitValeur(const LigneReglage& ligne, const QString& texte, Parametres& parametres);

/// The variable of the row as stored text; empty for Mesure.
QString TexteValeur(const LigneReglage& ligne, const Parametres& parametres);

}  // namespace vaktor
