// The worker: one thread that owns the conversation with the server.
#pragma once

#include <memory>
#include <thread>

#include "modules/ftp/ftp_client.h"
#include "modules/ftp/ftp_worker.h"

namespace vaktor {

/// Made and used on the thread of the event loop. Its end waits a moment for a running job; a job that hangs in the
/// system's name look-up, which nothing can interrupt, is left behind, and touches nothing of ours any more.
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
  static void Tourne(const std::shared_ptr<Partage>& partage, const OptionsClient& options);

  std::shared_ptr<Partage> Partage_;
  std::thread Fil_;
};

}  // namespace vaktor
