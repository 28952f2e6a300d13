// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of the photo folder: what loading, browsing, creating and accepting do.
#pragma once

#include <QString>
#include <functional>

#include "base/ports/message_boxes.h"
#include "base/program_folders.h"
#include "engine/ports/event_pump.h"
#include "image/ports/folder_tree.h"
#include "settings/parameters.h"
#include "settings/saving.h"
#include "texts/text_tables.h"

namespace vaktor {

/// All references outlive the object.
struct PortsChoixDossier {
  Parametres& Reglages;
  SauvegardeParametres& Sauvegarde;
  const DossiersProgramme& Dossiers;
  ArbreDossiers& Arbre;
  PompeEvenements& Pompe;
  BoitesMessage& Boites;
  const TablesTextes& Textes;
  /// Sets the gallery on a folder: list, first photo, caption. Calls `fini` when all of it is done or has failed.
  std::function<void(const QString& dossier, std::function<void()> fini)> RepointeGalerie;
};

/// Owner: app/, for the whole run; the form Repertoire comes and goes over it. User-interface thread.
class ChoixDossier {
 public:
  explicit ChoixDossier(PortsChoixDossier ports);

  /// Called when a change of drive, a refused one too, or a new folder has moved Lecteur or Chemin: the form follows.
  void SurChangement(std::function<void()> fonction) { SurChangement_ = std::move(fonction); }

  /// Load of the form: stands on RepertoirePhoto. If that is gone, RepertoirePhoto becomes the program's own
  /// (DossiersProgramme::PhotosParDefaut), in memory only. Marks and says nothing.
  void Charge();
  /// Change of drive in Drive1 to the place `lieu`. Ends on the place before, with a message, when it cannot be opened.
  void ChangeLecteur(const QString& lieu);
  /// Change of folder in Dir1.
  void ChangeDossier(const QString& chemin);
  /// Command2: makes the folder `nom` in Chemin and stands on it. Silent when that fails.
  void CreeDossier(const QString& nom);
  /// Command1, first half: Chemin becomes RepertoirePhoto. False after one message, with everything as it was: the
  /// folder cannot take a photo, or the save failed.
  bool Valide();
  /// Command1, second half: the gallery follows, which takes as long as its folder is read. Then `fini`, which unloads
  /// the form.
  void RepointeGalerie(std::function<void()> fini) const {
    Ports_.RepointeGalerie(Ports_.Reglages.RepertoirePhoto, std::move(fini));
  }

  QList<LieuDisque> ListeLieux() const { return Ports_.Arbre.ListeLieux(); }
  const QString& Lecteur() const { return Lecteur_; }  ///< path of the place that Drive1 shows
  const QString& Chemin() const { return Chemin_; }    ///< path of Dir1
  qint64 FreeBytes() const { return FreeBytes_; }      ///< bytes free in all, by the last query that succeeded

 private:
  bool PlaceSurRepertoire();
  void PlaceSurPremierLieu();
  void PoseChemin(const QString& chemin);
  void DemandeEspace();

  PortsChoixDossier Ports_;
  std::function<void()> SurChangement_;
  QString Lecteur_;
  QString Chemin_;
  qint64 FreeBytes_ = 0;
};

}  // namespace vaktor
