// SPDX-License-Identifier: GPL-3.0-or-later
// The folders of the real machine.
#pragma once

#include <QObject>
#include <memory>

#include "image/ports/folder_tree.h"
#include "platform/folders/bounded_work.h"
#include "platform/folders/event_loop_relay.h"

namespace vaktor {

/// User-interface thread, with a QCoreApplication. What may block is done on other threads, which leave this object
/// alone once it has gone.
class ArbreDossiersSysteme : public ArbreDossiers {
 public:
  ArbreDossiersSysteme();
  ~ArbreDossiersSysteme() override;
  ArbreDossiersSysteme(const ArbreDossiersSysteme&) = delete;
  ArbreDossiersSysteme& operator=(const ArbreDossiersSysteme&) = delete;

  QList<LieuDisque> ListeLieux() const override;
  QString DonneChemin(const QString& stocke) const override;
  EtatDossier RegardeDossier(const QString& chemin) const override;
  EtatDossier EssaieEcriture(const QString& chemin) const override;
  bool CreeDossier(const QString& stocke) override;
  std::optional<qint64> EspaceLibre(const QString& chemin) const override;
  void LitDossiers(const QString& chemin, const QObject* pour, RecoitDossiers recoit) override;

 private:
  std::shared_ptr<RelaisBoucle> Relais_;
  mutable TravauxBornes Travaux_;
};

/// Where a file dialog begins: in the folder `voulu` if it is there and says so in time, else at the user's home. The
/// toolkit waits for a disk that does not answer as long as that likes, and so would the window.
QString DebutDeDialogue(const QString& voulu);

}  // namespace vaktor
