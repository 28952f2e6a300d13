// SPDX-License-Identifier: GPL-3.0-or-later
// The room of a disk, asked on a thread of its own.
#pragma once

#include <QHash>
#include <functional>
#include <memory>

#include "image/ports/space_query.h"
#include "platform/folders/bounded_work.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class SondeEspaceSysteme : public SondeEspace {
 public:
  /// Runs on a thread; what it throws is no answer.
  using Question = std::function<std::optional<qint64>(const QString& dossier)>;

  SondeEspaceSysteme();
  explicit SondeEspaceSysteme(Question question) : Question_(std::move(question)) {}
  ~SondeEspaceSysteme() override { Relais_->Coupe(); }
  SondeEspaceSysteme(const SondeEspaceSysteme&) = delete;
  SondeEspaceSysteme& operator=(const SondeEspaceSysteme&) = delete;

  void DemandeEspace(const QString& dossier, Recoit recoit) override;
  void Oublie() override;

 private:
  bool EstEnRoute(const QString& dossier) const { return !Fils_.value(dossier).expired(); }
  void Rend(const QString& dossier, std::optional<qint64> libres);

  const Question Question_;
  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  TravauxBornes Travaux_;
  QHash<QString, std::weak_ptr<int>> Fils_;  // by folder: lives as long as the thread that asks its disk
  QString Dossier_;                          // of the question that somebody waits for
  Recoit Recoit_;
};

}  // namespace vaktor
