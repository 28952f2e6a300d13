// SPDX-License-Identifier: GPL-3.0-or-later
// The words that the main program and its companions exchange, as data. Both sides read this one file, so that a word
// and its code cannot drift apart. docs/companions.md tells the same to writers of companions in other languages.
#pragma once

#include <QLatin1String>
#include <QString>
#include <array>
#include <optional>

namespace vaktor {

/// The three companions, in the order in which everything that concerns all three is done.
enum class Compagnon { kFtp, kMail, kSon };
/// The argument with which a companion's program only tries the settings that it is given, and ends.
inline constexpr QLatin1String kArgumentEssai{"--try"};
inline constexpr std::array<Compagnon, 3> kCompagnons = {Compagnon::kFtp, Compagnon::kMail, Compagnon::kSon};

/// What belongs to one companion: the name of its executable and its section of the settings store.
struct IdentiteCompagnon {
  QLatin1String Programme;
  QLatin1String Section;
};
IdentiteCompagnon DonneIdentite(Compagnon compagnon);

/// Key of the store, in each companion's section: the decimal handle of the inbox that it talks to.
inline constexpr QLatin1String kCleHwndvk("HWNDVK");
/// Name of the settings file in the folder of settings; main program and companions open the same one.
inline constexpr QLatin1String kFichierReglages("vaktor.ini");
/// Environment variable of a companion: the private folder of the main program that started it, where there is one. The
/// store, the photos and everything else that is written then lie below it.
inline constexpr QLatin1String kVariableDossier("VAKTOR_DOSSIER");
/// Environment variable that names the folder of the sockets to a companion, where it is not the usual one.
inline constexpr QLatin1String kVariableCanal("VAKTOR_CANAL");
/// Name of the folder beside the settings file in which the main program leaves what the watch has to say of itself,
/// one file a message; Commande::kVeille tells the mail companion that there is one. docs/companions.md has the fields.
inline constexpr QLatin1String kDossierVeille("veille");
/// Environment variable of a companion that was started in the place of one that had ended, while the main program ran.
/// It sends no "*OKO*".
inline constexpr QLatin1String kVariableRelance("VAKTOR_RELANCE");
/// First word of a companion, followed directly by the decimal handle that is to receive its commands.
inline constexpr QLatin1String kMotHwnd("HWND:");
inline constexpr qsizetype kLongueurMot = 5;  ///< characters that count in every word, downwards and upwards

/// What the main program tells its companions. Inside, both sides use these names; codes and words are for the wire.
enum class Commande {
  kConnexion,     ///< to FTP: connect to the server in the store
  kDeconnexion,   ///< to FTP
  kSurveillance,  ///< to FTP: there is a new live image
  kPage,          ///< to FTP: create and upload the page
  kIntrusion,     ///< to mail and sound
  kVeille,        ///< to mail: the watch itself has something to say, see kDossierVeille
  kOptions,       ///< to all: read the store again
  kQuitte         ///< to all: end
};
/// The word of a command: what it is called in documents and logs.
QLatin1String DonneMot(Commande commande);

/// Key code of a command for a companion; nothing for a command that this companion does not know. The same code means
/// different things to different companions.
std::optional<qint32> DonneCodeTouche(Compagnon compagnon, Commande commande);
/// The way back, for the companion's side; nothing for a code that it does not know.
std::optional<Commande> LitCodeTouche(Compagnon compagnon, qint32 code);
/// What becomes of a command that its companion does not take at once.
enum class Tenue {
  kInstant,    ///< true only now: gone after kDureeInstant
  kOrdinaire,  ///< waits; where too much waits the oldest goes
  kGardee,     ///< waits, whatever else does
  kDerniere,   ///< nothing comes behind it: goes out at once, with all that waits before it
};
/// Milliseconds after which an intrusion does not happen now any more.
inline constexpr qint64 kDureeInstant = 2000;
Tenue DonneTenue(Commande commande);
/// Code that no companion knows and so every one ignores. Posted to see whether its messages are taken.
inline constexpr qint32 kCodeSonde = 0;

}  // namespace vaktor
