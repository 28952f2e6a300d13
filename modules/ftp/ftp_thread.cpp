// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/ftp/ftp_thread.h"

#include <QObject>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

namespace vaktor {

namespace {
constexpr std::chrono::milliseconds kPatienceFin(1500);
constexpr std::chrono::milliseconds kReprise(100);  // between two tries to bring an end that there was no memory for
}  // namespace

struct OuvrierThread::Demande {
  TravailFtp Travail;
  SurEtape Etape;
  SurFin Fin;
  quint64 Epoque = 0;
};

/// What both threads see. The worker holds it as well, so that it outlives whoever ends first.
struct OuvrierThread::Partage {
  std::mutex Verrou;
  std::condition_variable Reveil;
  std::optional<Demande> Suivante;
  bool AFermer = false;
  bool Fin = false;
  bool Termine = false;
  QObject* Recepteur = nullptr;     // of the event loop; null once the owner is gone
  std::atomic<quint64> Epoque = 1;  // what was started under an older one says nothing more

  /// From the worker: calls `suite` on the event loop, unless the job has been cut meanwhile. Throws for want of
  /// memory.
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
  /// The same for the end of the job, which must arrive: without it nothing is ever sent again.
  void PosteFin(const std::shared_ptr<Partage>& moi, const Demande& demande, const ResultatFtp& resultat) {
    for (;;) {
      try {
        Poste(moi, demande.Epoque, [fin = demande.Fin, resultat] { fin(resultat); });
        return;
      } catch (const std::exception&) {
        std::unique_lock garde(Verrou);
        if (Reveil.wait_for(garde, kReprise, [&] { return Fin || Epoque.load() != demande.Epoque; })) return;
      }
    }
  }
};

namespace {

// Out of the thread an exception, want of memory before all, would end the program. It is a job that failed, and what
// it left of the connection is not used again. The client is made with its first job for the same reason.
ResultatFtp ExecuteOuEchoue(std::optional<ClientFtp>& client, const OptionsClient& options, const TravailFtp& travail,
                            const OuvrierFtp::SurEtape& etape, const std::function<bool()>& arret) {
  try {
    if (!client) client.emplace(options);
    return client->Execute(travail, etape, arret);
  } catch (const std::exception& erreur) {
    client.reset();
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
  Partage_->Suivante = Demande{travail, std::move(etape), std::move(fin), Partage_->Epoque.load()};
  Partage_->Reveil.notify_all();
}

void OuvrierThread::Coupe() {
  const std::lock_guard garde(Partage_->Verrou);
  ++Partage_->Epoque;
  Partage_->Suivante.reset();
  Partage_->AFermer = true;
  Partage_->Reveil.notify_all();
}

void OuvrierThread::Execute(const std::shared_ptr<Partage>& partage, std::optional<ClientFtp>& client,
                            const OptionsClient& options, const Demande& demande) {
  const quint64 epoque = demande.Epoque;
  ResultatFtp resultat;
  try {
    const OuvrierFtp::SurEtape etape = [&](EtapeFtp quelle) {
      if (demande.Etape) partage->Poste(partage, epoque, [suite = demande.Etape, quelle] { suite(quelle); });
    };
    resultat =
        ExecuteOuEchoue(client, options, demande.Travail, etape, [&] { return partage->Epoque.load() != epoque; });
  } catch (const std::exception&) {
    resultat.Issue = IssueFtp::kPasDeConnexion;  // not even the words of the failure found memory
  }
  partage->PosteFin(partage, demande, resultat);
}

void OuvrierThread::Tourne(const std::shared_ptr<Partage>& partage, const OptionsClient& options) {
  {
    std::optional<ClientFtp> client;
    for (;;) {
      std::unique_lock garde(partage->Verrou);
      partage->Reveil.wait(garde, [&] { return partage->Fin || partage->AFermer || partage->Suivante; });
      if (partage->Fin) break;
      const bool ferme = std::exchange(partage->AFermer, false);
      const std::optional<Demande> demande = std::exchange(partage->Suivante, std::nullopt);
      garde.unlock();
      if (ferme && client) client->Ferme();
      if (demande) Execute(partage, client, options, *demande);
    }
  }
  const std::lock_guard garde(partage->Verrou);
  partage->Termine = true;
  partage->Reveil.notify_all();
}

}  // namespace vaktor
