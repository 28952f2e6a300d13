// The restart with raised rights, on a system that keeps compatibility flags for its programs. It falls away elsewhere:
// the start-up sequence is then given none of this and goes on with its next step.
#pragma once

#include "app/ports/system_registry.h"
#include "base/ports/message_boxes.h"
#include "companions/ports/processes.h"

namespace vaktor {

struct PortsRelance {
  RegistreSysteme& Registre;
  BoitesMessage& Boites;
  Processus& Programmes;
  QString DossierProgramme;  ///< without a separator at its end
};

/// User-interface thread.
class RelanceDroits {
 public:
  explicit RelanceDroits(const PortsRelance& ports) : Ports_(ports) {}

  /// True when this run only prepares the restart and must go no further: the flags are set, the user has been told,
  /// the restarting program runs. `langue`: 0 French, 1 English, any other number an empty message. Throws
  /// Echec(kFichierIntrouvable) when the restarting program cannot be started.
  bool PrepareRelance(qint32 langue);

  /// True when the system's product name holds "vista" or a 7, in capitals or not. That is the whole test: the systems
  /// it was made for have these in their names, any other name with a 7 counts too, and no further system is added.
  bool EstVistaOuSeven() const;

 private:
  bool DroitsDejaDemandes() const;
  void DemandeDroits();
  void PoseDrapeau(const QString& programme, const QString& drapeau);
  QString Programme(const QString& nom) const { return Ports_.DossierProgramme + QLatin1Char('\\') + nom; }

  PortsRelance Ports_;
};

}  // namespace vaktor
