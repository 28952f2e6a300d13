// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/push/push_thread.h"

#include <QDateTime>
#include <QMutex>
#include <QWaitCondition>
#include <atomic>
#include <exception>
#include <utility>

namespace vaktor {

namespace {
constexpr unsigned long kAttenteFinMs = 2000;
constexpr qint64 kRepriseMs = 60'000;  // after a failure that is nobody's, want of memory
}  // namespace

/// What both threads touch. The sending thread keeps it alive, also past a companion that could not wait for it.
struct FilPush::Partage {
  QString Dossier;
  std::function<void(const RapportPush&)> Rapporte;

  QMutex Verrou;
  QWaitCondition Reveil;
  ReglagesPush Reglages;
  bool Change = false;  // other settings, or a new push
  std::atomic_bool Arret = false;

  ReglagesPush DonneReglages() {
    const QMutexLocker garde(&Verrou);
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
      const QMutexLocker garde(&Verrou);
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
    QMutexLocker garde(&Verrou);
    if (attente > 0 && !Change && !Arret) Reveil.wait(&Verrou, static_cast<unsigned long>(attente));
  }
}

FilPush::FilPush(const QString& dossier, const FacteurPush::Rapporteur& surRapport)
    : Partage_(std::make_shared<Partage>()), Fil_(nullptr) {
  Partage_->Dossier = dossier;
  Partage_->Rapporte = [contexte = &Contexte_, partage = Partage_.get(), surRapport](const RapportPush& rapport) {
    // Under the lock: whoever ends the companion takes it before the context goes.
    const QMutexLocker garde(&partage->Verrou);
    if (partage->Arret) return;
    QMetaObject::invokeMethod(
        contexte, [surRapport, rapport] { surRapport(rapport); }, Qt::QueuedConnection);
  };
  Fil_ = QThread::create([partage = Partage_] { partage->Execute(); });
  Fil_->start();
}

FilPush::~FilPush() {
  {
    const QMutexLocker garde(&Partage_->Verrou);
    Partage_->Arret = true;
    Partage_->Reveil.wakeAll();
  }
  if (Fil_->wait(kAttenteFinMs)) delete Fil_;
}

void FilPush::ChangeReglages(const ReglagesPush& reglages) {
  const QMutexLocker garde(&Partage_->Verrou);
  Partage_->Change = Partage_->Change || !(Partage_->Reglages == reglages);
  Partage_->Reglages = reglages;
  Partage_->Reveil.wakeAll();
}

void FilPush::Reveille() {
  const QMutexLocker garde(&Partage_->Verrou);
  Partage_->Change = true;
  Partage_->Reveil.wakeAll();
}

}  // namespace vaktor
