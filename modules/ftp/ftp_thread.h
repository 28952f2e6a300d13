// SPDX-License-Identifier: GPL-3.0-or-later
// The worker: one thread that owns the conversation with the server.
#pragma once

#include <memory>
#include <optional>
#include <thread>

#include "modules/ftp/ftp_client.h"
#include "modules/ftp/ftp_worker.h"

namespace vaktor {

/// Made and used on the thread of the event loop. Its end waits a moment for a running job; a job that hangs in the
/// system's name look-up, which nothing can interrupt, is left behind, and touches nothing of ours any more. Want of
/// memory on the thread is a job that failed; its end is told as soon as there is some again.
class OuvrierThread : public OuvrierFtp {
 public:
  explicit OuvrierThread(OptionsClient options = {});
  ~OuvrierThread() override;
  OuvrierThread(const OuvrierThread&) = delete;
  OuvrierThread& operator=(const OuvrierThread&) = delete;

  void Lance(const TravailFtp& travail, SurEtape etape, SurFin fin) override;
  void Coupe() override;

 private:
  struct Partage;
  struct Demande;
  static void Execute(const std::shared_ptr<Partage>& partage, std::optional<ClientFtp>& client,
                      const OptionsClient& options, const Demande& demande);
  static void Tourne(const std::shared_ptr<Partage>& partage, const OptionsClient& options);

  std::shared_ptr<Partage> Partage_;
  std::thread Fil_;
};

}  // namespace vaktor
