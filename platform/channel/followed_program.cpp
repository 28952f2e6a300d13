// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/channel/followed_program.h"

#include <signal.h>

#include <QBasicTimer>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimerEvent>
#include <utility>

namespace vaktor {

/// Takes its event itself instead of emitting a signal: what the receiver throws then passes through nothing but the
/// event loop.
class ProgrammeSuiviSysteme::Guetteur : public QObject {
 public:
  Guetteur(const PrisePid& prise, const PidSansPrise& sansPrise, std::function<void()> fini)
      : SansPrise_(sansPrise), Fini_(std::move(fini)) {
    if (prise.EstPartie()) {
      // It was over before anybody could take hold of it.
      QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    } else if (!prise.Ouverte()) {
      // It runs, and only the hold is missing: to take that for its end would start a second one beside it.
      Regard_.start(kRegard, this);
    } else {
      Notifieur_ = new QSocketNotifier(prise.Descripteur(), QSocketNotifier::Read, this);
      Notifieur_->installEventFilter(this);
    }
  }

  /// The program object goes. It may go by the word that is being told, so this one may still be in its event.
  void Detache() {
    Fini_ = nullptr;
    Regard_.stop();
    if (Notifieur_ != nullptr) Notifieur_->setEnabled(false);
    deleteLater();
  }

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override {
    if (evenement->type() != QEvent::SockAct) return QObject::eventFilter(objet, evenement);
    Notifieur_->setEnabled(false);  // readable for good from here on
    Dit();
    return true;
  }
  void timerEvent(QTimerEvent* evenement) override {
    if (evenement->timerId() != Regard_.timerId() || !SansPrise_.AFini()) return;
    Regard_.stop();
    Dit();
  }
  bool event(QEvent* evenement) override {
    if (evenement->type() != QEvent::User) return QObject::event(evenement);
    Dit();
    return true;
  }

 private:
  void Dit() {
    const std::function<void()> fini = std::exchange(Fini_, nullptr);
    if (fini) fini();
  }

  PidSansPrise SansPrise_;
  std::function<void()> Fini_;
  QBasicTimer Regard_;
  QSocketNotifier* Notifieur_ = nullptr;
};

ProgrammeSuiviSysteme::ProgrammeSuiviSysteme(qint32 pid, std::function<void()> fini, PrisePid::Ouvreur ouvre)
    : Prise_(pid, ouvre),
      SansPrise_(pid),
      Guetteur_(new Guetteur(Prise_, SansPrise_, std::move(fini))) {}  // deletes itself once detached

ProgrammeSuiviSysteme::~ProgrammeSuiviSysteme() { Guetteur_->Detache(); }

void ProgrammeSuiviSysteme::Envoie(int signal) noexcept {
  if (Prise_.Ouverte())
    Prise_.Envoie(signal);
  else if (!Prise_.EstPartie())
    SansPrise_.Envoie(signal);
}

void ProgrammeSuiviSysteme::DemandeFin() noexcept {
  Envoie(SIGTERM);
  Envoie(SIGCONT);
}

void ProgrammeSuiviSysteme::Tue() noexcept { Envoie(SIGKILL); }

}  // namespace vaktor
