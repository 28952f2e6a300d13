// SPDX-License-Identifier: GPL-3.0-or-later
// Live-cam publishing: the user's switch, one stamped frame at a time, the page and its test. The companion holds the
// connection and makes the page; this program only writes the live file and says when.
#pragma once

#include <QString>
#include <functional>

#include "base/ports/opener.h"
#include "base/program_folders.h"
#include "base/write_failure.h"
#include "companions/link_state.h"
#include "companions/ports/link_display.h"
#include "companions/ports/live_image.h"
#include "engine/ports/alarm_actions.h"
#include "engine/ports/clock.h"
#include "engine/ports/surveillance_display.h"
#include "settings/parameters.h"
#include "settings/ports/module_commands.h"

namespace vaktor {

/// The texts of the fields as they stand, typed or loaded, saved or not.
struct ChampsSite {
  QString TxtPass, TxtUserName, TxtHtml, TxtFtp;
};

struct PortsLive {
  const Parametres& Reglages;
  const DossiersProgramme& Dossiers;
  EcrivainLive& Ecrivain;
  TimbreHeure& Timbre;
  const Horloge& Temps;
  CommandesModules& Commandes;
  AffichageSurveillance& Affichage;  ///< ImageLedSurveill
  AffichageLiaison& Liaison;
  Ouvreur& Navigateur;
  EtatLiaison& Etat;
  std::function<ChampsSite()> LitChamps;  ///< reads the fields of the FTP page
};

/// Owner: app/. User-interface thread.
class PublicationLive : public LiaisonLive {
 public:
  explicit PublicationLive(const PortsLive& ports) : Ports_(ports) {}

  // LiaisonLive, for the engine.
  bool LiveActif() const override { return Ports_.Etat.LiveActif; }
  bool VeutPhotos() const override { return Ports_.Etat.LiveActif || Ports_.Etat.PageInterrompue; }
  void PublieLive(const ImageCamera& image) override;

  // The user's switch, for what stands above camera and page (app/live_switch.h).
  bool EstAllume() const { return Ports_.Etat.SurveillanceEnCours; }
  /// Connects, where the parameters of the site are complete; else it asks for them, and stays off.
  void Allume();
  /// The same where nobody may be there to answer: the status line alone says that parameters are missing.
  void AllumeSansPersonne();
  /// The switch and LiveActif go off, and the lamp; the companion is told by Deconnecte.
  void Eteint();
  void Deconnecte();
  /// The switch and LiveActif go off, and nobody is told: the camera stops, or there is none.
  void OublieLive();
  /// Has the page made, while connected; else the status line says why not.
  void DemandePage();

  void TestPageLive();  ///< BoutonGris(3)
  void CoupeLive();     ///< shutdown: LiveActif goes off, the switch stays as it is, nothing is sent

  /// The FTP companion has gone: no frame flows until another one has a connection.
  void PerdCompagnon();
  /// One that was started in its place has registered: it is told to connect, and to make the page that nobody has
  /// answered for.
  void RetrouveCompagnon();

  /// Text of the stamp for a time of day in the system's format: hours "h" minutes "m" seconds, out of the first eight
  /// characters as they stand ("9:05:03" gives "09h05m03").
  static QString FormateTimbre(QString heure);

 private:
  void EcritLive(const ImageCamera& image);
  void MontreConnexion();
  bool ParametresManquent() const;

  PortsLive Ports_;
  PanneEcriture Panne_;  // of the live image
};

}  // namespace vaktor
