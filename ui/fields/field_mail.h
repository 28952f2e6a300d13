// SPDX-License-Identifier: GPL-3.0-or-later
// The fields of the mail page: they clean their texts at every change and save when they are left.
#pragma once

#include "ui/fields/field_ports.h"
#include "ui/pages/page_mail.h"

namespace vaktor {

/// Owner: Form1. User-interface thread. A save that fails throws Echec out of the event, to the guard of the event
/// loop.
class ChampsMail : public QObject {
  Q_OBJECT

 public:
  ChampsMail(const PortsChamps& ports, PageMail& page);

  /// No address was found: the prompt Libelle::kMailDestination, in red, takes the place of the address until a click
  /// or a key. The field has the focus.
  void DemandeAdresse();
  /// After the words were written anew, in another language perhaps: an address that is still red says why in them.
  void RediRaison();

 private:
  void BrancheChamps();
  void SuitTxtNbrPhoto();
  void SuitTextNbrMail();
  void SuitTextEMail();
  void SuitTextTexte();
  void RetireDemande();
  void JugeAdresses();
  void Quitte() const { Ports_.Sauvegarde.SauveParametres(); }

  PortsChamps Ports_;
  PageMail& Page_;
};

}  // namespace vaktor
