// SPDX-License-Identifier: GPL-3.0-or-later
// The message channel on the sockets of the user's channel folder.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "companions/ports/message_channel.h"
#include "platform/channel/channel_folder.h"
#include "platform/channel/local_inbox.h"
#include "platform/channel/local_sender.h"

namespace vaktor {

/// Owner: app/. User-interface thread.
class CanalLocal : public CanalMessages {
 public:
  /// Sweeps the folder of what crashed processes left. Throws Echec when the folder cannot be had or is not safe.
  explicit CanalLocal(const DossierCanal& dossier = DossierCanal());

  qint32 OuvreCasier(std::function<void(const QString& texte)> recu) override;
  void FermeCasier(qint32 poignee) override;
  void PosteTouche(qint32 poignee, qint32 code, Tenue tenue) noexcept override;
  Prise DonnePrise(qint32 poignee) override;
  void OublieFenetre(qint32 poignee) noexcept override;
  std::optional<bool> Repond(qint32 poignee) const override { return Dossier_.Repond(poignee); }

 private:
  DossierCanal Dossier_;
  EmetteurLocal Emetteur_;
  std::map<qint32, std::unique_ptr<CasierLocal>> Casiers_;
};

}  // namespace vaktor
