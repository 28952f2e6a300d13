#include "modules/ftp/ftp_thread.h"

#include <QObject>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>

namespace vaktor {

namespace {
constexpr std::chrono::milliseconds kPatienceFin(1500);
}

/// What both threads see. The worker holds it as well, so that it outlives whoever ends first.
struct OuvrierThread::Partage {
  struct Demande {
    TravailFtp Travail;
    SurEtape Etape;
    SurFin Fin;
    quint64 Epoque = 0;
  };

  std::mutex Verrou;
  std::condition_variable Reveil;
  std::optional<Demande> Suivante;
  bool AFermer = false;
  bool Fin = false;
  bool Termine = false;
  QObject* Recepteur = nullptr;     // of the event loop; null once the owner is gone
  std::atomic<quint64> Epoque = 1;  // what was started under an older one says nothing more

  /// From the worker: calls `suite` on the event loop, unless the job has been cut meanwhile.
  void Poste(const std::shared_ptr<Partage>& moi, quint64 epoque, std::function<void()> suite) {
    const std::lock_guard garde(Verrou);
    if (Recepteur == nullptr) return;
    QMetaObject::invokeMethod(
        Recepteur,
        [moi, epoque, suite = std::move(suite)] {
          if (moi->Epoque.load() == epoque) suite();
        },
        Qt::QueuedConnection);
  }
};

namespace {

// Out of the thread an exception, want of memory before all, would end the program. It is a job that failed, and what
// it left of the connection is not used again.
ResultatFtp ExecuteOuEchoue(ClientFtp& client, const TravailFtp& travail, const OuvrierFtp::SurEtape& etape,
                            std::function<bool()> arret) {
  try {
    return client.Execute(travail, etape, std::move(arret));
  } catch (const std::exception& erreur) {
    client.Ferme();
    return {IssueFtp::kPasDeConnexion, QString::fromLocal8Bit(erreur.what())};
  }
}

}  // namespace

OuvrierThread::OuvrierThread(OptionsClient options) : Partage_(std::make_shared<Partage>()) {
  Partage_->Recepteur = new QObject;
  Fil_ = std::thread([partage = Partage_, options = std::move(options)] { Tourne(partage, options); });
}

OuvrierThread::~OuvrierThread() {
  {
    std::unique_lock garde(Partage_->Verrou);
    ++Partage_->Epoque;
    delete std::exchange(Partage_->Recepteur, nullptr);
    Partage_->Fin = true;
    Partage_->Reveil.notify_all();
    Partage_->Reveil.wait_for(garde, kPatienceFin, [this] { return Partage_->Termine; });
    if (!Partage_->Termine) {
      Fil_.detach();
      return;
    }
  }
  Fil_.join();
}

void OuvrierThread::Lance(const TravailFtp& travail, SurEtape etape, SurFin fin) {
  const std::lock_guard garde(Partage_->Verrou);
  Partage_->Suivante = Partage::Demande{travail, std::move(etape), std::move(fin), Partage_->Epoque.load()};
  Partage_->Reveil.notify_all();
}

void OuvrierThread::Coupe() {
  const std::lock_guard garde(Partage_->Verrou);
  ++Partage_->Epoque;
  Partage_->Suivante.reset();
  Partage_->AFermer = true;
  Partage_->Reveil.notify_all();
}

void OuvrierThread::Tourne(const std::shared_ptr<Partage>& partage, const OptionsClient& options) {
  {
    ClientFtp client(options);
    for (;;) {
      std::unique_lock garde(partage->Verrou);
      partage->Reveil.wait(garde, [&] { return partage->Fin || partage->AFermer || partage->Suivante; });
      if (partage->Fin) break;
      const bool ferme = std::exchange(partage->AFermer, false);
      const std::optional<Partage::Demande> demande = std::exchange(partage->Suivante, std::nullopt);
      garde.unlock();
      if (ferme) client.Ferme();
      if (!demande) continue;
      const quint64 epoque = demande->Epoque;
      const SurEtape etape = [&](EtapeFtp quelle) {
        if (demande->Etape) partage->Poste(partage, epoque, [suite = demande->Etape, quelle] { suite(quelle); });
      };
      const ResultatFtp resultat =
          ExecuteOuEchoue(client, demande->Travail, etape, [&] { return partage->Epoque.load() != epoque; });
      partage->Poste(partage, epoque, [fin = demande->Fin, resultat] { fin(resultat); });
    }
  }
  const std::lock_guard garde(partage->Verrou);
  partage->Termine = true;
  partage->Reveil.notify_all();
}

}  // namespace vaktor
