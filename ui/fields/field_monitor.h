// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of the surveillance page: the three switches of the alarm and its delay.
#pragma once

#include <functional>

#include "engine/surveillance.h"
#include "ui/fields/field_mail.h"
#include "ui/fields/field_ports.h"
#include "ui/pages/page_monitor.h"

namespace vaktor {

/// What the surveillance page asks of others. All of it outlives the page.
struct PortsChampsMoniteur {
  Surveillance& Moteur;
  std::function<bool()> VerifieEspaceDisque;  ///< the free-space warning is due
  std::function<void()> MontreFrmSmtp;        ///< may be empty: nothing opens then
  std::function<void()> AmenePageMail;        ///< PictPage(0) to the front
};

/// Owner: Form1. User-interface thread. A save that fails throws Echec out of the event, to the guard of the event
/// loop.
class ChampsMoniteur : public QObject {
  Q_OBJECT

 public:
  ChampsMoniteur(const PortsChamps& ports, PortsChampsMoniteur moniteur, PageMoniteur& page, ChampsMail& mail);

 private:
  void SuitText1();
  void RelacheCheckMail();
  void RelacheCheckPPhot();
  void RelacheCheckSon();
  bool AdresseManque() const;
  void DemandeAdresse();

  PortsChamps Ports_;
  PortsChampsMoniteur Moniteur_;
  PageMoniteur& Page_;
  ChampsMail& Mail_;
};

}  // namespace vaktor
