// SPDX-License-Identifier: GPL-3.0-or-later
// The real system behind the ports, one object for the whole run.
#pragma once

#include <array>
#include <memory>

#include "app/start_arguments.h"
#include "app/system_ports.h"
#include "platform/accounts/account_reader.h"
#include "platform/base/event_pump.h"
#include "platform/base/qt_timers.h"
#include "platform/base/system_clock.h"
#include "platform/base/system_files.h"
#include "platform/channel/companion_rehearsal.h"
#include "platform/channel/folder_measurer.h"
#include "platform/channel/published_inboxes_reader.h"
#include "platform/channel/system_processes.h"
#include "platform/disk/bounded_files.h"
#include "platform/disk/session_start.h"
#include "platform/disk/space_query.h"
#include "platform/disk/write_trial.h"
#include "platform/folders/companion_status_reader.h"
#include "platform/folders/disk_question.h"
#include "platform/folders/photo_file_eraser.h"
#include "platform/folders/photo_file_reader.h"
#include "platform/folders/photo_names_reader.h"
#include "platform/folders/system_folders.h"
#include "platform/image/jpeg_photo_reader.h"
#include "platform/image/turbo_jpeg_encoder.h"
#include "platform/journal/chronicle_file_reader.h"
#include "platform/journal/film_file_writer.h"
#include "platform/journal/journal_file.h"
#include "platform/journal/thumbnail_file_reader.h"
#include "platform/sound/wave_player.h"
#include "platform/telling/desktop_notifier.h"
#include "platform/telling/mail_drop.h"
#include "platform/telling/user_program.h"
#include "platform/wakefulness/dbus_wakefulness.h"
#include "platform/widgets/desktop_opener.h"
#include "platform/widgets/qt_file_dialog.h"
#include "platform/widgets/qt_message_boxes.h"
#include "platform/widgets/toolkit_words.h"
#include "ui/sound/sounds.h"

namespace vaktor {

class MemoireCapture;

/// Made after the application object; nothing in the making can fail. User-interface thread.
class SystemeReel {
 public:
  explicit SystemeReel(const ArgumentsDepart& arguments);
  ~SystemeReel();
  SystemeReel(const SystemeReel&) = delete;
  SystemeReel& operator=(const SystemeReel&) = delete;

  /// All of it stays this object's and lives as long.
  PortsSysteme Ports();

 private:
  QString PrepareDossiersSansAttendre();
  void TermineErrants(Compagnon compagnon, std::function<void()> fini);

  const ArgumentsDepart Arguments_;
  const DossiersProgramme Dossiers_;
  HorlogeSysteme Temps_;
  PompeEvenementsQt Pompe_;
  FabriqueMinuteriesQt Minuteries_;
  BoitesMessageQt Boites_;
  MotsOutils MotsOutils_;
  EncodeurTurboJpeg Encodeur_;
  FichiersBornes DisqueBorne_;  // all that may lie on a disk of the user's
  EcrivainJpegFichier Ecrivain_{Encodeur_, DisqueBorne_};
  LecteurNomsSysteme Noms_;
  LecteurPhotosSysteme Lecteur_{LitPhotoJpeg};
  EffaceurPhotosSysteme Effaceur_;
  ArbreDossiersSysteme Arbre_;
  SondeEspaceSysteme Sonde_;
  EssaiEcritureSysteme EssaiPhotos_;
  OuvreurBureau Navigateur_;
  DialogueFichierQt ChoixFichier_;
  LecteurGStreamer LecteurSon_;
  Sons Sons_;
  ProcessusSysteme Programmes_;
  LecteurCasiersFichier CasiersPublies_;
  MesureurDossierSysteme Mesureur_;
  EveilDBus Machine_{TrouveAdressesBus()};
  LecteurComptesBorne Comptes_{[lieux = TrouveLieuxComptes()] { return LitTousLesComptes(lieux); }};
  EssaiParCompagnon EssaiMail_;
  EssaiParCompagnon EssaiFtp_;
  LecteurEtatsFichiers Etats_;
  NotifieurSysteme Bureau_;
  DepotCourrielsFichiers Courriels_;
  ProgrammePersonnelSysteme Personnel_;
  FichierJournalSysteme Journal_;
  LecteurChroniqueSysteme Chroniques_;
  LecteurVignettesSysteme Vignettes_{LitVignetteJpeg};
  LecteurPhotosSysteme PhotosDuFilm_{LitPhotoJpeg};
  EcrivainFilmSysteme Films_;
  DialogueSauvegardeQt ChoixFilm_;
  DemarrageSessionXdg Session_;
  std::array<QuestionDisque<bool>, kCompagnons.size()> Balais_;  // one for each companion
  std::unique_ptr<MemoireCapture> Memoire_;
};

}  // namespace vaktor
