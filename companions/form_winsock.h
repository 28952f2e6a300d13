// SPDX-License-Identifier: GPL-3.0-or-later
// FormWinsock: the three inboxes of the companions, and what each of their words does.
#pragma once

#include <array>
#include <functional>
#include <memory>

#include "companions/contract/command_words.h"
#include "companions/link_state.h"
#include "companions/ports/link_display.h"
#include "companions/ports/message_channel.h"
#include "companions/status_words.h"
#include "engine/ports/surveillance_display.h"
#include "engine/ports/timers.h"
#include "settings/ports/module_commands.h"
#include "settings/ports/settings_store.h"

namespace vaktor {

struct PortsWinsock {
  CanalMessages& Canal;
  MagasinReglages& Magasin;
  FabriqueMinuteries& Minuteries;
  CommandesModules& Commandes;
  AffichageSurveillance& Affichage;  ///< the lamp ImageLedSurveill
  AffichageLiaison& Liaison;
  EtatLiaison& Etat;
  std::function<void()> RelanceDemarrageAuto;  ///< starts the timer of the start arguments if one was given
  std::function<bool()> FtpRelance = {};       ///< the FTP companion is not the one of the launch; empty: it always is
  std::function<void(Compagnon)> SurInscription =
      {};                                 ///< a companion has given its handle, which is taken; may be empty
  std::function<bool()> FtpInscrit = {};  ///< what comes now is of an FTP companion that is there; empty: it always is
};

/// Made in the load step of Form1, before any companion is launched; destroying it closes the inboxes. User-interface
/// thread.
class FormWinsock {
 public:
  static constexpr qint32 kDelaiReconnexion = 60000;  ///< TimerFTPreconnect, milliseconds

  /// Opens the inboxes and publishes their handles in the store (FTP, MAIL, SON), visible to other processes when the
  /// constructor returns. Throws Echec when an inbox cannot be opened or the store not be written.
  explicit FormWinsock(const PortsWinsock& ports);
  ~FormWinsock();
  FormWinsock(const FormWinsock&) = delete;
  FormWinsock& operator=(const FormWinsock&) = delete;

  /// Writes the handles into the store again, where something else has taken their place. Throws Echec when it cannot
  /// be written; then nothing of it waits for a later save.
  void Republie();
  const std::array<qint32, 3>& Poignees() const { return Poignees_; }  ///< in the order of kCompagnons

  // Change handlers of the three inboxes. Throw Echec(kTypeIncompatible or kDepassement) for a "HWND:" whose rest is no
  // 32-bit number; the handle stays as it was.
  void ChangeTxtCmdFTP(const QString& texte);
  void ChangeTxtCmdMail(const QString& texte);
  void ChangeTxtCmdSound(const QString& texte);

 private:
  void OuvreCasier(Compagnon compagnon, void (FormWinsock::*recu)(const QString&));
  void EcritPoignee(Compagnon compagnon);
  bool PrendPoignee(Compagnon compagnon, const QString& texte, qint32& poignee);
  bool Attend(const LigneMot& ligne);
  void NoteCoupure(const LigneMot& ligne);
  void AgitSelon(SuiteMot suite);
  void TicReconnexion();

  PortsWinsock Ports_;
  std::array<qint32, 3> Poignees_{};
  std::unique_ptr<Minuterie> TimerFTPreconnect_;
};

}  // namespace vaktor
