// SPDX-License-Identifier: GPL-3.0-or-later
// The sound companion's rules: which file, one at a time, and what is told when it cannot be heard.
#pragma once

#include <memory>

#include "modules/common/module_program.h"
#include "modules/sound/sound_player.h"

namespace vaktor {

/// "Intru" comes with every frame of an intrusion, thirty times a second: while a sound plays it is ignored, so that
/// the sound is heard to its end and then again as long as the intrusion lasts.
class ModuleSon : public Module {
 public:
  static constexpr qint32 kRepos = 5000;       ///< milliseconds without a new try after one that failed
  static constexpr qint32 kDureeMax = 600000;  ///< a sound that lasts longer is cut: a device that hangs must not
                                               ///< silence the alarm for good
  static constexpr qint32 kMuet = 5000;        ///< without a sample taken the device counts as hung
  static constexpr qint32 kRegard = 1000;      ///< between two looks whether it takes any
  static constexpr qint32 kApres = 60000;      ///< a sound that still plays so long after the last "Intru" is ended

  ModuleSon(const ContexteModule& contexte, std::unique_ptr<JoueurSon> joueur);

  void PrendReglages(const ReglagesModule& reglages) override;
  void ExecuteCommande(Commande commande) override;
  void Termine() override;

 private:
  QString DonneFichier() const;
  void RegardeAppareil();
  void TermineSon(FinSon fin, const QString& mots);
  void Signale(FinSon fin, const QString& mots);

  ContexteModule Contexte_;
  std::unique_ptr<JoueurSon> Joueur_;
  qint32 IndexSon_ = 0;
  QString FichierSon_;
  QString EnJeu_;
  AvisEchec DernierAvis_;  // told, and not told again until a sound was heard
  std::unique_ptr<Minuterie> TimerRepos_;
  std::unique_ptr<Minuterie> TimerDuree_;
  std::unique_ptr<Minuterie> TimerAppareil_;
  std::unique_ptr<Minuterie> TimerApres_;
  quint64 Progres_ = 0;  // of the player, at the last look
  qint32 Muet_ = 0;      // milliseconds for which it has stood still
};

}  // namespace vaktor
