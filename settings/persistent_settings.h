// SPDX-License-Identifier: GPL-3.0-or-later
// Load and save of all parameters, driven by the settings table.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <functional>
#include <span>

#include "health/ports/health_report.h"
#include "settings/parameters.h"
#include "settings/ports/files.h"
#include "settings/ports/module_commands.h"
#include "settings/ports/settings_store.h"
#include "settings/saving.h"
#include "settings/settings_table.h"

namespace vaktor {

/// What the parameters work with. All of it outlives the object that is made with it.
struct LiensReglages {
  Parametres& Valeurs;
  MagasinReglages& Magasin;
  Fichiers& Disque;
  CommandesModules& Modules;
  QString DossierPhotos;               ///< the photo folder as long as the user has chosen none
  std::function<QSize()> TailleImage;  ///< size of the frame surface, pixels; for the FTP companion
  RapportSante& Sante;
};

/// Owner: app/, one for the whole run. User-interface thread.
class ReglagesPersistants : public SauvegardeParametres {
 public:
  explicit ReglagesPersistants(LiensReglages liens);

  /// The load, once, at start-up: LitSuivant and LitJusqua row by row, then TermineChargement. Reads the next row of
  /// the table into Parametres; a missing key gives its default. A photo folder that is not there is replaced in the
  /// store at once. Gives the row, which now may be shown, or null when all have been read. Throws Echec, which ends
  /// the start-up, for a value that cannot be used, a photo folder that cannot be made and a store that cannot be
  /// written; the description is one message for the user.
  const LigneReglage* LitSuivant();
  /// The same up to the row of `champ` and with it; to the end where it is none that is still to come.
  void LitJusqua(const ChampParametre& champ);
  /// Reads what has not been read yet. From here on saves are carried out: `montre` fills the controls that had to wait
  /// for it. A save that was asked for earlier, and that none of these has made since, follows. What `montre` throws
  /// ends the start-up like a value that cannot be used.
  void TermineChargement(const std::function<void()>& montre = {});

  /// All values are those of the store and the controls show them. Until then, and for good when the load has thrown,
  /// the program must act on nothing: half of what it would act with are start values.
  bool EstCharge() const { return Etape_ == Etape::kChargee; }

  /// Writes all rows of the table, whatever the store holds, then "Optio" to the FTP, the mail and the sound companion,
  /// then clears ParametresModifies. Before every value has been read it writes nothing, since the start values of the
  /// others would replace what the user has stored: TermineChargement makes up for it, and nobody when the load fails.
  /// Throws Echec when the store cannot be written; nothing is sent then, ParametresModifies stays, and the health of
  /// the watch is told so until a save succeeds.
  void SauveParametres() override;

 private:
  void LitLigne(const LigneReglage& ligne);
  void NotePerdu(const LigneReglage& ligne);
  void DitAbimes();
  void RepareLu(const LigneReglage& ligne);
  void RepareRepertoirePhoto(const LigneReglage& ligne);
  void RepareSonAbsent();
  void RepareIntervalleVide();
  void VideMagasin();

  /// How far the load has come.
  enum class Etape {
    kLecture,  ///< values are still missing
    kFin,      ///< every value is read; the last controls are filled, and some of them save
    kChargee
  };

  LiensReglages Liens_;
  std::span<const LigneReglage> Restent_ = TableReglages();  // rows that are still to be read, in order
  Etape Etape_ = Etape::kLecture;
  bool Reportee_ = false;  // a save was asked for while values were missing
  QStringList Perdus_;     // "section/key" of what a damaged store lacks
};

}  // namespace vaktor
