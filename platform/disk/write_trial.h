// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a folder takes photos again, found out on a thread of its own.
#pragma once

#include <QHash>
#include <memory>

#include "image/ports/write_trial.h"
#include "platform/folders/bounded_work.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class EssaiEcritureSysteme : public EssaiEcriture {
 public:
  EssaiEcritureSysteme() = default;
  ~EssaiEcritureSysteme() override { Relais_->Coupe(); }
  EssaiEcritureSysteme(const EssaiEcritureSysteme&) = delete;
  EssaiEcritureSysteme& operator=(const EssaiEcritureSysteme&) = delete;

  void Essaie(const QString& dossier, Recoit recoit) override;
  void Oublie() override { Essais_.clear(); }

 private:
  struct Essai {
    std::weak_ptr<int> Fil;  // lives as long as the thread
    Recoit Rend;
  };
  void Rend(const QString& dossier, bool reussi);

  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  TravauxBornes Travaux_;
  QHash<QString, Essai> Essais_;  // by folder; those that somebody waits for
};

}  // namespace vaktor
