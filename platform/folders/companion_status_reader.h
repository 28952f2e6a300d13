// The status files of the companions, as the companion programs of this house write them.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <memory>

#include "companions/ports/companion_status.h"
#include "platform/folders/bounded_work.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// Reads on a thread of its own, regular files of 64 KB at the most. A file that is damaged, half or absent gives
/// nothing; the next reading may. User-interface thread, with a QCoreApplication.
class LecteurEtatsFichiers : public LecteurEtats {
 public:
  using Maintenant = std::function<qint64()>;

  /// `dossier`: where the companions keep them. `maintenant`: milliseconds since 1970, any thread.
  explicit LecteurEtatsFichiers(QString dossier, Maintenant maintenant = &QDateTime::currentMSecsSinceEpoch);
  ~LecteurEtatsFichiers() override;
  LecteurEtatsFichiers(const LecteurEtatsFichiers&) = delete;
  LecteurEtatsFichiers& operator=(const LecteurEtatsFichiers&) = delete;

  void LitEtats(Recoit recoit) override;
  void Oublie() override { Recoit_ = {}; }

 private:
  void Rend(const EtatsCompagnons& etats);

  const QString Dossier_;
  const Maintenant Maintenant_;
  TravauxBornes Travaux_;
  std::shared_ptr<RelaisBoucle> Relais_ = std::make_shared<RelaisBoucle>();
  Recoit Recoit_;
  bool EnCours_ = false;  // also while the disk is silent: one thread waits for it, not one more at each look
};

}  // namespace vaktor
