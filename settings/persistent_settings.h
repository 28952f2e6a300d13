// Load and save of all parameters in one go, driven by the settings table.
#pragma once

#include <QSize>
#include <QString>
#include <functional>

#include "health/ports/health_report.h"
#include "settings/parameters.h"
#include "settings/ports/files.h"
#include "settings/ports/module_commands.h"
#include "settings/ports/settings_display.h"
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
  QString DossierProgramme;  ///< where the program writes, without separator at its end
  /// Called once by the load, after `langue` and before `seuilauto`: makes the main form, whose load step runs in
  /// there, and hands out its controls, which live until the load ends.
  std::function<AffichageParametres&()> PremierControle;
  std::function<QSize()> TailleImage;  ///< size of the frame surface, pixels; for the FTP companion
  RapportSante& Sante;
};

/// Owner: app/, one for the whole run. User-interface thread.
class ReglagesPersistants : public SauvegardeParametres {
 public:
  explicit ReglagesPersistants(LiensReglages liens);

  /// Once, at start-up. Reads the whole store into Parametres and the controls; a missing key gives its default. Its
  /// tail saves, which is what fills an empty store. A photo folder that is not there is replaced in the store at once.
  /// Throws Echec, which ends the start-up, for a value that cannot be used, a photo folder that cannot be made and a
  /// store that cannot be written; the description is one message for the user.
  void ChargeParametres();

  /// All values are those of the store and the controls show them. Until then, and for good when the load has thrown,
  /// the program must act on nothing: half of what it would act with are start values.
  bool EstCharge() const { return Etape_ == Etape::kChargee; }

  /// Writes all 35 keys, whatever the store holds, then "Optio" to the FTP, the mail and the sound companion, then
  /// clears ParametresModifies. May be called from inside ChargeParametres: from its tail on it saves at once. Before
  /// every value has been read it writes nothing, since the start values of the others would replace what the user has
  /// stored: the save is made up for at the end of the load, and never when the load fails. Throws Echec when the store
  /// cannot be written; nothing is sent then, ParametresModifies stays, and the health of the watch is told so until a
  /// save succeeds.
  void SauveParametres() override;

 private:
  void LitLigne(const LigneReglage& ligne);
  void RepareRepertoirePhoto(const LigneReglage& ligne);
  void RepareSonAbsent();
  void MontreFinChargement(AffichageParametres& affichage);
  void MontreIntervalle(AffichageParametres& affichage);
  void VideMagasin();

  /// How far the load has come.
  enum class Etape {
    kLecture,  ///< values are still missing
    kFin,      ///< every value is read; the tail of the load fills the last controls, which save
    kChargee
  };

  LiensReglages Liens_;
  qint64 Sauvegardes_ = 0;
  Etape Etape_ = Etape::kLecture;
  bool Reportee_ = false;  // a save was asked for while values were missing
};

}  // namespace vaktor
