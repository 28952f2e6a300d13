// SPDX-License-Identifier: GPL-3.0-or-later
// The system that the program runs on, as ports. launch.cpp hands in the real one, tests hand in fakes.
#pragma once

#include <functional>
#include <memory>

#include "base/ports/message_boxes.h"
#include "base/ports/opener.h"
#include "base/ports/save_dialog.h"
#include "base/ports/session_start.h"
#include "base/program_folders.h"
#include "companions/ports/companion_status.h"
#include "companions/ports/folder_measure.h"
#include "companions/ports/foreign_accounts.h"
#include "companions/ports/message_channel.h"
#include "companions/ports/processes.h"
#include "companions/ports/published_inboxes.h"
#include "companions/ports/rehearsal.h"
#include "engine/ports/capture_driver.h"
#include "engine/ports/clock.h"
#include "engine/ports/event_pump.h"
#include "engine/ports/interface_sounds.h"
#include "engine/ports/timers.h"
#include "health/ports/awake_machine.h"
#include "health/ports/desktop_notifier.h"
#include "health/ports/mail_drop.h"
#include "health/ports/user_program.h"
#include "image/jpeg_writer.h"
#include "image/ports/flush_losses.h"
#include "image/ports/folder_tree.h"
#include "image/ports/photo_eraser.h"
#include "image/ports/photo_names.h"
#include "image/ports/photo_reader.h"
#include "image/ports/space_query.h"
#include "image/ports/write_trial.h"
#include "journal/ports/chronicle_reader.h"
#include "journal/ports/film_writer.h"
#include "journal/ports/journal_file.h"
#include "journal/ports/thumbnail_reader.h"
#include "settings/ports/files.h"
#include "settings/ports/settings_store.h"
#include "texts/language.h"
#include "ui/sound/form_sound.h"
#include "ui/window/web_links.h"

namespace vaktor {

/// All references outlive the program. What can fail is opened by the program itself, when it is its turn: the
/// functions throw Echec.
struct PortsSysteme {
  DossiersProgramme Dossiers;
  std::function<QString()> PrepareDossiers;  ///< makes the folders; the one that could not be made, or the empty text
  std::function<std::unique_ptr<MagasinReglages>()> OuvreMagasin;
  QString DossierMagasin;  ///< the folder of that store, on whatever disk it is
  std::function<std::unique_ptr<CanalMessages>()> OuvreCanal;
  /// `langue` gives the language of the driver's dialogs at any moment.
  std::function<std::unique_ptr<PiloteCapture>(std::function<Langue()> langue)> CreePilote;
  Horloge& Temps;
  Fichiers& Disque;
  PompeEvenements& Pompe;
  FabriqueMinuteries& Minuteries;
  BoitesMessage& Boites;
  EcrivainJpeg& Ecrivain;
  LecteurNoms& Noms;
  LecteurPhotos& Lecteur;
  EffaceurPhotos& Effaceur;
  ArbreDossiers& Arbre;
  SondeEspace& Sonde;
  EssaiEcriture& EssaiPhotos;
  PertesVidage& Pertes;
  SonsInterface& Sons;
  Processus& Programmes;
  LecteurCasiers& CasiersPublies;
  MesureurDossier& Mesureur;
  MachineEveillee& Machine;
  Ouvreur& Navigateur;
  LecteurComptes& Comptes;  ///< the mail accounts of this machine
  EssaiReglages& EssaiMail;
  EssaiReglages& EssaiFtp;
  LecteurEtats& Etats;  ///< what the companions say of their work
  NotifieurBureau& Bureau;
  DepotCourriels& Courriels;
  ProgrammePersonnel& Personnel;  ///< "alarme"
  FichierJournal& Journal;
  LecteurChronique& Chroniques;
  LecteurVignettes& Vignettes;
  LecteurPhotos& PhotosDuFilm;  ///< of the player of intrusions, beside Lecteur, which is the gallery's
  EcrivainFilm& Films;
  DialogueSauvegarde& ChoixFilm;
  QString Course;  ///< tells this run from every other that writes the same journal
  DemarrageSession& Session;
  SitePages Site = {};
  /// Ends the companions of this name that another copy has left behind, off the user-interface thread, and calls
  /// `fini` from the event loop.
  std::function<void(Compagnon, std::function<void()> fini)> TermineErrants = {};
  /// Makes the form of the alarm sound when it is first opened; empty where no sound can be heard.
  std::function<std::unique_ptr<FormSound>(Parametres&, SauvegardeParametres&)> CreeFormSound = {};
  /// Takes what gives the language of the buttons of the boxes at any moment; empty where they have none.
  std::function<void(std::function<Langue()> langue)> SuitLangue = {};
  /// The toolkit's own words, in file dialogs and in the menus of text fields, from now on in this language.
  std::function<void(Langue)> ParleOutils = {};
};

}  // namespace vaktor
