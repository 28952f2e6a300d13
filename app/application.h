// SPDX-License-Identifier: GPL-3.0-or-later
// The program: owns every object of the rooms, ties them together, brings everything up and down.
#pragma once

#include <memory>
#include <optional>

#include "app/alarm_actions.h"
#include "app/automatic_start.h"
#include "app/held_timers.h"
#include "app/live_ports.h"
#include "app/live_switch.h"
#include "app/ports/start_steps.h"
#include "app/settings_retry.h"
#include "app/start_sequence.h"
#include "app/system_ports.h"
#include "base/application_state.h"
#include "companions/companion_watch.h"
#include "companions/form_winsock.h"
#include "companions/forms/frm_essai_ftp.h"
#include "companions/forms/frm_smtp.h"
#include "companions/inbox_guard.h"
#include "companions/intrusion_program.h"
#include "companions/live_publishing.h"
#include "companions/live_stamp.h"
#include "companions/mail_accounts.h"
#include "companions/module_lifecycle.h"
#include "companions/module_send_messages.h"
#include "companions/second_copies.h"
#include "companions/sending_watch.h"
#include "health/awake_watch.h"
#include "health/blind_mails.h"
#include "health/condition_program.h"
#include "health/desktop_notices.h"
#include "health/sign_of_life.h"
#include "health/watch_health.h"
#include "image/forms/form_monitor.h"
#include "image/forms/form_visu_photo.h"
#include "image/forms/repertoire.h"
#include "image/forms/webcam_pecran.h"
#include "image/photo_recorder.h"
#include "image/photo_watch.h"
#include "journal/forms/form_timeline.h"
#include "journal/watch_journal.h"
#include "settings/persistent_settings.h"
#include "ui/shown/companion_link_view.h"
#include "ui/shown/health_view.h"
#include "ui/shown/parameter_view.h"
#include "ui/shown/surveillance_view.h"
#include "ui/shown/text_loader.h"
#include "ui/sound/form_sound.h"
#include "ui/splash/form_splash.h"
#include "ui/window/main_window.h"
#include "ui/window/web_links.h"
#include "ui/window/window_centring.h"

namespace vaktor {

/// One object for the whole run, after the application object. User-interface thread.
class Vaktor : private EtapesDepart {
 public:
  /// `ligneCommande`: the start arguments as one text, in which "/alarm" and "/surve" are looked for.
  Vaktor(const PortsSysteme& systeme, QString ligneCommande);
  ~Vaktor() override;
  Vaktor(const Vaktor&) = delete;
  Vaktor& operator=(const Vaktor&) = delete;

  /// The start-up sequence, to the splash on the screen. Throws Echec when the program cannot start.
  void Demarre(const QString& version);
  /// Ends the program as the closing of the main window does, for a request of the system: nobody is there to answer
  /// a message, so that failures are only told on the terminal, and one that stands is taken away. Before the settings
  /// are loaded: ends what can be ended, and the program goes no further.
  void Ferme();
  /// The program ends: nothing is to run any more.
  bool EstFinie() const;
  /// Exit status of a program that ended in order: 0, or kStatutEchec when something was lost on the way out.
  int Statut() const;

  /// Where whoever knows that something is wrong with the watch says so.
  RapportSante& Sante() { return Sante_; }

  /// Tells a failure in the user's language: one that the guard of the event loop met, one that ends the start. Behind
  /// the latter's message nothing acts: the camera is let go, no timer ticks, no window comes up. Afterwards those
  /// companions are asked to leave that have come up already.
  void AnnonceEchec(const QString& description);
  void AnnonceDemarrageImpossible(const QString& description);

 private:
  // The steps of the start (application_start.cpp).
  void ChargeParametres() override;
  void ChargeTextes() override;
  void LanceModules() override;
  void ChargeFormMonitor() override;
  void MontreForm1() override;

  void ChargeReglages();
  void ChargeForm1();
  void CreeReglages();
  void CreeLive();
  void CreeMoteur();
  void CreeForm1();
  void CreeEveil();
  void BrancheActions();
  void MontreFormSound();
  void MontreFrmSmtp();
  void EssaiePageLive();
  void PlaceFrmEssaiFtp();
  void CreeFormWinsock();
  void CreeVeille();
  void RetrouveCompagnon(Compagnon compagnon);
  ChampsSite LitChampsSite() const;
  FormMonitor& Moniteur();
  void BrancheSession();
  void PlaceMoniteur();
  FormVisuPhoto& Galerie();
  void CreeRepertoire(FormVisuPhoto& galerie);

  // The health of the watch (application_health.cpp).
  void CreeSante();
  bool DoitVeiller() const;
  void ArreteSante();

  // The journal of the watch (application_journal.cpp).
  void CreeJournal();
  void NoteImageAgissante();
  void BrancheFrise();
  void OuvreFrise();
  void CreeFrise();
  void DechargeFrise();
  void NotePhotoAgissante(const QString& fichier);
  void NoteCopieAgissante(const QString& fichier);
  QPoint PlaceFrmSante(const QSize& taille);

  // The end (application_end.cpp).
  void AbandonneDepart();
  void ArreteEveil();
  void DemandeFermeture();
  void FermeApplication();
  void PrevientCompagnons();
  void SauveAvantFin();
  void EssaieJusquauBout(const std::function<void()>& pas);
  void Pompe();
  bool PeutAgir() const;
  void DechargeFrmSmtp();
  void DechargeFormes();

  const PortsSysteme Systeme_;
  const QString LigneCommande_;
  Parametres Reglages_;
  EtatApplication Etat_;
  EtatLiaison Liaison_;
  TablesTextes Textes_;
  SanteVeille Sante_;
  MinuteriesRetenues Minuteries_;

  FrmSplash Splash_;
  std::unique_ptr<MagasinReglages> Magasin_;
  std::unique_ptr<CanalMessages> Canal_;
  std::unique_ptr<PiloteCapture> Pilote_;
  std::unique_ptr<SequenceDepart> Depart_;

  // The rules, those that others are given first.
  std::unique_ptr<ModuleSendMessages> Modules_;
  std::unique_ptr<ReglagesPersistants> Sauvegarde_;
  std::unique_ptr<SigneDeVie> SigneDeVie_;
  std::unique_ptr<AnnonceIntrusion> Annonce_;
  std::unique_ptr<ActionsAlarmeReelles> Actions_;
  VueSurveillance Vue_;
  VueLiaison VueLiaison_;
  EcrivainDuLive EcrivainLive_;
  DessinTimbre Timbre_;
  std::unique_ptr<PublicationLive> Live_;
  std::unique_ptr<Surveillance> Moteur_;
  std::unique_ptr<InterrupteurLive> InterrupteurLive_;
  std::unique_ptr<DemarrageAuto> DemarrageAuto_;
  std::unique_ptr<GardeEveil> Eveil_;
  std::unique_ptr<EnregistreurPhotos> Photos_;
  std::unique_ptr<VeillePhotos> VeillePhotos_;
  std::unique_ptr<GaleriePhotos> Galerie_;
  LiensEnLigne Liens_;
  std::unique_ptr<SecondesCopies> Copies_;
  std::unique_ptr<GardeCasiers> Casiers_;
  std::unique_ptr<VeilleCompagnons> Veille_;
  std::unique_ptr<FormWinsock> FormWinsock_;
  std::unique_ptr<SuiviEnvois> Envois_;  // from the launch of the companions on

  std::unique_ptr<JournalVeille> Journal_;  // from the words on
  std::optional<quint32> ImageNotee_;       // number of the frame that it was told of last

  // Who is told of the health of the watch.
  std::unique_ptr<AvisBureau> AvisBureau_;
  std::unique_ptr<CourrielsAveugle> CourrielsAveugle_;
  std::unique_ptr<AnnonceEtats> AnnonceEtats_;
  std::unique_ptr<ReessaieReglages> ReessaieReglages_;

  // Forms, in the order in which they are made; they go in the opposite one, before the engine.
  VueAgrandie PleinEcran_;
  std::unique_ptr<Form1> Form1_;
  std::unique_ptr<FormMonitor> FormMonitor_;
  std::unique_ptr<FormVisuPhoto> FormVisuPhoto_;
  ComptesMail Comptes_;                       // as last read; FrmSmtp shows them
  std::unique_ptr<FrmSmtp> FrmSmtp_;          // from its opening to its close
  std::unique_ptr<FrmEssaiFtp> FrmEssaiFtp_;  // from its first opening on
  std::unique_ptr<ChoixDossier> ChoixDossier_;
  std::unique_ptr<VueRepertoire> Repertoire_;
  std::unique_ptr<FormSound> FormSound_;  // from its first opening on
  std::unique_ptr<VueSante> VueSante_;
  std::unique_ptr<FrmFrise> Frise_;            // from its first opening on
  std::unique_ptr<CentrageFenetre> Centrage_;  // from the first showing of Form1 on
  std::unique_ptr<VueParametres> VueParametres_;
  std::unique_ptr<ChargeurTextes> ChargeurTextes_;
  std::optional<QPoint> PlaceMoniteur_;  // where the program put the monitor last
  bool Fermee_ = false;                  // the shutdown has begun
  bool SansPersonne_ = false;            // by the system and not by the user
  bool Perte_ = false;                   // a step of it failed
};

}  // namespace vaktor
