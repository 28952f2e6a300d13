// The program: owns every object, ties ports to their real implementations, brings everything up and down.
#pragma once

#include <memory>
#include <optional>

#include "app/alarm_actions.h"
#include "app/do_nothing.h"
#include "app/start_arguments.h"
#include "base/application_state.h"
#include "image/forms/form_monitor.h"
#include "image/forms/webcam_pecran.h"
#include "image/jpeg_writer.h"
#include "image/photo_recorder.h"
#include "platform/base/event_pump.h"
#include "platform/base/qt_timers.h"
#include "platform/base/system_clock.h"
#include "platform/base/system_files.h"
#include "platform/image/turbo_jpeg_encoder.h"
#include "platform/store/file_store.h"
#include "platform/widgets/qt_message_boxes.h"
#include "settings/persistent_settings.h"
#include "ui/form1.h"
#include "ui/parameter_view.h"
#include "ui/surveillance_view.h"
#include "ui/text_loader.h"

namespace vaktor {

class MemoireCapture;

/// One object for the whole run, after the application object. User-interface thread.
class Vaktor {
 public:
  explicit Vaktor(ArgumentsDepart arguments);
  ~Vaktor();
  Vaktor(const Vaktor&) = delete;
  Vaktor& operator=(const Vaktor&) = delete;

  /// The start-up sequence, to the main window on the screen. Throws Echec when the program cannot start.
  void Demarre();
  /// Ends the program as the closing of the main window does. Before the end of the start-up sequence: ends what can be
  /// ended, and the program goes no further.
  void Ferme();
  bool EnFermeture() const { return Etat_.EnFermeture; }

  /// Tells a failure in the user's language: one that the guard of the event loop met, one that ends the start.
  void AnnonceEchec(const QString& description);
  void AnnonceDemarrageImpossible(const QString& description);

 private:
  void LitLangue();
  AffichageParametres& ChargeForm1();
  void CreeMoteur();
  void CreeForm1();
  void MontreFenetres();
  void PlaceMoniteur();
  void FermeApplication();
  void SauveAvantFin();
  void DechargeFormes();

  const ArgumentsDepart Arguments_;
  const DossiersProgramme Dossiers_;
  Parametres Reglages_;
  EtatApplication Etat_;
  TablesTextes Textes_;

  // The system behind the ports.
  HorlogeSysteme Temps_;
  FichiersSysteme Disque_;
  PompeEvenementsQt Pompe_;
  FabriqueMinuteriesQt Minuteries_;
  BoitesMessageQt Boites_;
  EncodeurTurboJpeg Encodeur_;
  EcrivainJpegFichier Ecrivain_{Encodeur_, Disque_};

  // Rooms that do not stand yet.
  SonsMuets Sons_;
  LiaisonLiveAbsente Live_;
  CommandesSansModules Modules_;

  std::unique_ptr<MagasinFichier> Magasin_;
  std::unique_ptr<ReglagesPersistants> Sauvegarde_;
  std::unique_ptr<MemoireCapture> Memoire_;
  std::unique_ptr<PiloteCapture> Pilote_;
  ActionsAlarmeReelles Actions_{Modules_};
  VueSurveillance Vue_{Textes_, Boites_};
  std::unique_ptr<Surveillance> Moteur_;
  std::unique_ptr<EnregistreurPhotos> Photos_;

  // Forms, in the order in which they are made; they go in the opposite one, before the engine.
  VueAgrandie PleinEcran_;
  std::unique_ptr<Form1> Form1_;
  std::unique_ptr<FormMonitor> FormMonitor_;
  std::unique_ptr<VueParametres> VueParametres_;
  std::unique_ptr<ChargeurTextes> ChargeurTextes_;
  std::optional<QPoint> PlaceMoniteur_;  // where the program put the monitor last
  bool Demarree_ = false;                // the start-up sequence is through
  bool Fermee_ = false;                  // the shutdown has begun
};

}  // namespace vaktor
