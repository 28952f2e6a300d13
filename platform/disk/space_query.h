// The room of a disk, asked on a thread of its own.
#pragma once

#include <QSet>
#include <memory>

#include "image/ports/space_query.h"
#include "platform/folders/bounded_work.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication.
class SondeEspaceSysteme : public SondeEspace {
 public:
  SondeEspaceSysteme() = default;
  ~SondeEspaceSysteme() override { Relais_->Coupe(); }
  SondeEspaceSysteme(const SondeEspaceSysteme&) = delete;
  SondeEspaceSysteme& operator=(const SondeEspaceSysteme&) = delete;

  void DemandeEspace(const QString& dossier, Recoit recoit) override;
  void Oublie() override;

 private:
  void Rend(const QString& dossier, std::optional<qint64> libres);

  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  TravauxBornes Travaux_;
  QSet<QString> SansReponse_;  // folders whose disk has been asked and has not answered
  QString Dossier_;            // of the question that somebody waits for
  Recoit Recoit_;
};

}  // namespace vaktor
