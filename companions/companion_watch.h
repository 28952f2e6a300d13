// SPDX-License-Identifier: GPL-3.0-or-later
// The companions are looked after: one that ends is started again, one that takes no messages any more is ended first.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "base/program_folders.h"
#include "companions/contract/command_words.h"
#include "companions/inbox_guard.h"
#include "companions/link_state.h"
#include "companions/ports/message_channel.h"
#include "companions/ports/processes.h"
#include "engine/ports/timers.h"
#include "health/ports/health_report.h"
#include "settings/parameters.h"

namespace vaktor {

struct PortsVeille {
  Processus& Programmes;
  CanalMessages& Canal;
  const EtatLiaison& Liaison;
  FabriqueMinuteries& Minuteries;
  RapportSante& Sante;
  const DossiersProgramme& Dossiers;
  const Parametres& Reglages;  ///< the language of what is reported
  GardeCasiers& Casiers;
  std::function<void(Compagnon)> SurPerte;   ///< it has ended, or is hung and being ended
  std::function<void(Compagnon)> SurRetour;  ///< one that was started again has registered
  /// Ends every process of this companion's name, without holding up the thread, and calls `fini` from the event loop
  /// when that is done. May be empty.
  std::function<void(Compagnon, std::function<void()> fini)> TermineErrants = {};
};

/// Reports kCompagnonFtp, kCompagnonMail and kCompagnonSon: from the end of a companion, or from the moment at which it
/// counts as hung, until another has registered; and when one that was started has not registered for kGrace. Owner:
/// app/. User-interface thread, which is never held up.
class VeilleCompagnons {
 public:
  /// Milliseconds from an end to the next start; the last one repeats. The row begins anew once a companion has been
  /// registered for kVieSaine and has taken its messages.
  static constexpr std::array<qint32, 4> kRelances = {1000, 5000, 30000, 300000};
  static constexpr qint32 kTic = 1000;        ///< milliseconds; what follows is in ticks
  static constexpr int kGrace = 10;           ///< from the start to the registration, without a word
  static constexpr int kInscriptionMax = 60;  ///< without a registration: hung
  static constexpr int kMuetteMax = 30;       ///< without taking a message while some wait: hung
  static constexpr int kSonde = 10;           ///< between two messages that only ask whether messages are taken
  static constexpr int kVieSaine = 300;
  static constexpr int kFinPolie = 2;   ///< for a hung one to follow the polite request
  static constexpr int kFinForcee = 5;  ///< for the system to take one away that was killed; then it counts as ended
  /// Programs of one companion that were killed and are still there, at which no other is started beside them.
  static constexpr std::size_t kRestesMax = 3;
  static constexpr int kRegardCasiers = 5;  ///< between two looks at the inboxes in the store
  static constexpr qint32 kBalayageMax =
      10000;                         ///< milliseconds that the end of another copy's companions is waited for
  static constexpr int kHesite = 5;  ///< without taking a message: not to be counted on, see Prend

  explicit VeilleCompagnons(const PortsVeille& ports) : Ports_(ports) {}
  VeilleCompagnons(const VeilleCompagnons&) = delete;
  VeilleCompagnons& operator=(const VeilleCompagnons&) = delete;

  /// Starts a companion from the program folder, at the launch. False when it is missing or cannot be started.
  bool Lance(Compagnon compagnon);
  /// The launch is over: from here on they are looked after.
  void Commence();
  /// The program ends: nothing is started any more. Those that cannot hear "Quit*", because they have not registered or
  /// are hung, are asked in another way. To be called before that word goes out.
  void Arrete();

  /// "HWND:" has come.
  void Inscrit(Compagnon compagnon);
  /// It is not the one of the launch: see "*OKO*".
  bool EstRelance(Compagnon compagnon) const { return Trouve(compagnon).Relance; }
  /// False from the end of a companion, or from the moment at which it counts as hung, until another one has given its
  /// handle: what comes until then was said by the one that has gone.
  bool EstInscrit(Compagnon compagnon) const;
  /// Registered, and takes its messages.
  bool Prend(Compagnon compagnon) const;

 private:
  /// One that was killed, and that the system has not taken away: a device or a disk holds it.
  struct Reste {
    int Tour;
    std::unique_ptr<ProgrammeSuivi> Programme;  // whose end is still told
  };
  enum class Vie { kAbsent, kEnVie, kCondamne, kMort };
  struct Suivi {
    Vie Etat = Vie::kAbsent;
    std::unique_ptr<ProgrammeSuivi> Programme;
    int Tour = 0;  // of the start that it came from
    std::vector<Reste> Restes;
    bool Relance = false;
    bool Inscrit = false;
    bool EnPause = false;          // to be started as soon as the inboxes are ours again
    bool Errants = false;          // another copy has started one, and may have left it behind
    std::optional<qint32> Perdue;  // handle of the one that has gone, while no other has come
    int Age = 0;                   // ticks since the start, the registration or the sentence, whichever came last
    int Muet = 0;                  // ticks without taking a message
    std::size_t Rang = 0;          // of the next delay in kRelances
    std::unique_ptr<Minuterie> TimerRelance;
  };

  Suivi& Trouve(Compagnon compagnon) { return Suivis_.at(static_cast<std::size_t>(compagnon)); }
  const Suivi& Trouve(Compagnon compagnon) const { return Suivis_.at(static_cast<std::size_t>(compagnon)); }
  qint32 DonnePoignee(Compagnon compagnon) const;
  bool Demarre(Compagnon compagnon, bool relance);
  void Tic();
  void TicEnVie(Compagnon compagnon, Suivi& suivi);
  void TicInscrit(Compagnon compagnon, Suivi& suivi);
  void TicCondamne(Compagnon compagnon, Suivi& suivi);
  void RegardeCasiers();
  void Condamne(Compagnon compagnon, const QString& detail);
  void Perd(Compagnon compagnon, const QString& detail);
  void Finit(Compagnon compagnon, int tour);
  void Meurt(Compagnon compagnon);
  void PrevoitRelance(Compagnon compagnon);
  void DemandeRelance(Compagnon compagnon);
  void Relance(Compagnon compagnon);
  void TermineErrants(Compagnon compagnon);
  void LanceEncore(Compagnon compagnon);

  PortsVeille Ports_;
  std::array<Suivi, kCompagnons.size()> Suivis_;
  std::unique_ptr<Minuterie> TimerVeille_;
  std::shared_ptr<bool> Presente_ = std::make_shared<bool>(true);  // a sweep may end after this object
  int Tics_ = 0;
  enum class Phase { kLancement, kVeille, kFin } Phase_ = Phase::kLancement;
};

}  // namespace vaktor
