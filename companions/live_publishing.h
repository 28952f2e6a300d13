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
#include "engine/ports/event_pump.h"
#include "engine/ports/surveillance_display.h"
#include "settings/parameters.h"
#include "settings/ports/module_commands.h"
#include "settings/saving.h"

namespace vaktor {

/// The texts of the fields as they stand, typed or loaded, saved or not.
struct ChampsSite {
  QString TxtPass, TxtUserName, TxtHtml, TxtFtp;
};

struct PortsLive {
  const Parametres& Reglages;
  const DossiersProgramme& Dossiers;
  SauvegardeParametres& Sauvegarde;
  CameraPourLive& Camera;
  EcrivainLive& Ecrivain;
  TimbreHeure& Timbre;
  const Horloge& Temps;
  PompeEvenements& Pompe;
  CommandesModules& Commandes;
  AffichageSurveillance& Affichage;  ///< ImageLedSurveill, Bouton(1), the message about the camera
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
  void OublieLive() override;
  void PublieLive() override;
  void BasculeLive() override;

  void CreationPageLive();  ///< BoutonGris(2)
  void TestPageLive();      ///< BoutonGris(3)
  void CoupeLive();         ///< shutdown: LiveActif goes off, the switch stays as it is, nothing is sent

  /// The FTP companion has gone: no frame flows until another one has a connection.
  void PerdCompagnon();
  /// One that was started in its place has registered: it is told to connect, and to make the page that nobody has
  /// answered for.
  void RetrouveCompagnon();

  /// Text of the stamp for a time of day in the system's format: hours "h" minutes "m" seconds, out of the first eight
  /// characters as they stand ("9:05:03" gives "09h05m03").
  static QString FormateTimbre(QString heure);

 private:
  void EcritLive();
  void EteintLive();
  void AllumeLive();
  void MontreConnexion();
  bool ParametresManquent() const;

  PortsLive Ports_;
  PanneEcriture Panne_;  // of the live image
};

}  // namespace vaktor
