// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_thread.h"

#include <QDateTime>
#include <exception>
#include <utility>

#include "modules/common/sending_loop.h"

namespace vaktor {

struct FilPush::Partage : BoucleEnvoi {
  QString Dossier;
  std::function<void(const RapportPush&)> Rapporte;

  ReglagesPush Reglages;
  bool Change = false;  // other settings, or a new push

  ReglagesPush DonneReglages() {
    const std::lock_guard garde(Verrou);
    return Reglages;
  }
  void Execute();
  qint64 Tour(FacteurPush& facteur);
};

// Out of this thread an exception, want of memory before all, would end the companion. The pushes stand on disk.
qint64 FilPush::Partage::Tour(FacteurPush& facteur) {
  try {
    bool change = false;
    {
      const std::lock_guard garde(Verrou);
      change = std::exchange(Change, false);
      if (Reglages.Adresse.isEmpty()) return FacteurPush::kRienAFaire;
    }
    if (change) facteur.Recommence();
    return facteur.Tour();
  } catch (const std::exception&) {
    return kRepriseMs;
  }
}

void FilPush::Partage::Execute() {
  FacteurPush facteur(
      SacPush(Dossier), [] { return QDateTime::currentMSecsSinceEpoch(); },
      [this](const MessagePush& message) {
        return EnvoiePush(DonneReglages(), message, [this] { return Arret.load(); });
      },
      [this](const RapportPush& rapport) { Rapporte(rapport); });
  while (!Arret) {
    const qint64 attente = Tour(facteur);
    std::unique_lock garde(Verrou);
    if (attente > 0 && !Change && !Arret) Reveil.wait_for(garde, std::chrono::milliseconds(attente));
  }
}

FilPush::FilPush(const QString& dossier, const FacteurPush::Rapporteur& surRapport)
    : Partage_(std::make_shared<Partage>()), Fil_(nullptr) {
  Partage_->Dossier = dossier;
  Partage_->Rapporte = RapporteALaBoucle<RapportPush>(Contexte_, *Partage_, surRapport);
  Fil_ = QThread::create([partage = Partage_] { partage->Execute(); });
  Fil_->start();
}

FilPush::~FilPush() { FinisOuLaisse(*Partage_, Fil_); }

void FilPush::ChangeReglages(const ReglagesPush& reglages) {
  const std::lock_guard garde(Partage_->Verrou);
  Partage_->Change = Partage_->Change || !(Partage_->Reglages == reglages);
  Partage_->Reglages = reglages;
  Partage_->Reveil.notify_all();
}

void FilPush::Reveille() {
  const std::lock_guard garde(Partage_->Verrou);
  Partage_->Change = true;
  Partage_->Reveil.notify_all();
}

}  // namespace vaktor
