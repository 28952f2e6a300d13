// SPDX-License-Identifier: GPL-3.0-or-later
// A companion's side of the channel: it registers with the main program, hears commands and says words.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <memory>

#include "companions/contract/command_words.h"
#include "engine/ports/timers.h"
#include "platform/channel/channel_folder.h"
#include "platform/channel/local_inbox.h"
#include "platform/channel/local_sender.h"

namespace vaktor {

/// How a companion comes to its main program.
enum class Inscription {
  kTot,      ///< so soon after the main program's start that it has not carried out its start arguments yet
  kTard,     ///< later: a command may have gone by before this one was there
  kRelance,  ///< in the place of one that had ended. The main program knows that, and tells what has to be known
};

struct PortsLien {
  Compagnon Qui;
  DossierCanal Dossier;
  FabriqueMinuteries& Minuteries;
  std::function<qint32()> LitHwndvk;                   ///< the inbox's handle as the store has it now, 0 for none
  std::function<void(Commande commande)> SurCommande;  ///< one that this companion knows
  /// After each "HWND:" that was sent: the first, and again when the main program has come back.
  std::function<void(Inscription comment)> SurEnregistrement;
  std::function<void()> SurPerte;  ///< the main program is gone for good; once
  /// Milliseconds since 1970.
  std::function<qint64()> Maintenant = &QDateTime::currentMSecsSinceEpoch;
  bool Relance = false;  ///< this process was started in the place of one that had ended
};

/// Thread of its event loop. Watches the handle in the store, and registers again when another main program has
/// published its own.
class LienPrincipal {
 public:
  static constexpr qint32 kVerification = 2000;  ///< milliseconds between two looks
  /// Milliseconds from the opening of the inbox within which a registration is early: the main program has not carried
  /// out its start arguments yet. It does so a second after it has opened the inbox, at the soonest.
  static constexpr qint32 kDebut = 800;
  static constexpr qint32 kAbandon = 30000;  ///< milliseconds without a main program after which it is gone for good

  /// Opens the command window. Throws Echec when the channel cannot be had.
  explicit LienPrincipal(const PortsLien& ports);

  /// Registers at once if a main program answers, and starts to watch.
  void Demarre();
  /// One word of five characters, or a word and more behind it. In order, none lost while the main program lives: the
  /// channel keeps what the inbox has not taken yet, so that a word never overwrites the one before. Before the first
  /// registration, and when nobody answers, it is dropped.
  void Dis(const QString& texte);

  bool EstEnregistre() const { return PoigneePrincipale_ != 0; }
  qint32 Poignee() const { return Fenetre_.Poignee(); }  ///< of the command window

 private:
  void RecoitMessage(const QByteArray& message);
  void Verifie();
  bool Enregistre();
  /// Milliseconds that the command in hand has waited in the window.
  qint64 Age() const;
  Inscription JugeInscription(qint32 poignee);

  PortsLien Ports_;
  EmetteurLocal Emetteur_;
  CasierLocal Fenetre_;
  std::unique_ptr<Minuterie> TimerVerification_;
  qint32 PoigneePrincipale_ = 0;  // the inbox that we are registered with
  qint32 Absence_ = 0;            // milliseconds
  bool Relance_;                  // until the first registration
};

}  // namespace vaktor
