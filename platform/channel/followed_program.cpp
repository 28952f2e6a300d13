#include "platform/channel/followed_program.h"

#include <signal.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <utility>

namespace vaktor {

/// Takes its event itself instead of emitting a signal: what the receiver throws then passes through nothing but the
/// event loop.
class ProgrammeSuiviSysteme::Guetteur : public QObject {
 public:
  Guetteur(int descripteur, std::function<void()> fini) : Fini_(std::move(fini)) {
    if (descripteur < 0) {
      // It was over before anybody could take hold of it.
      QCoreApplication::postEvent(this, new QEvent(QEvent::User));
      return;
    }
    Notifieur_ = new QSocketNotifier(descripteur, QSocketNotifier::Read, this);
    Notifieur_->installEventFilter(this);
  }

  /// The program object goes. It may go by the word that is being told, so this one may still be in its event.
  void Detache() {
    Fini_ = nullptr;
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

  std::function<void()> Fini_;
  QSocketNotifier* Notifieur_ = nullptr;
};

ProgrammeSuiviSysteme::ProgrammeSuiviSysteme(qint32 pid, std::function<void()> fini)
    : Prise_(pid), Guetteur_(new Guetteur(Prise_.Descripteur(), std::move(fini))) {}  // deletes itself once detached

ProgrammeSuiviSysteme::~ProgrammeSuiviSysteme() { Guetteur_->Detache(); }

void ProgrammeSuiviSysteme::DemandeFin() noexcept {
  Prise_.Envoie(SIGTERM);
  Prise_.Envoie(SIGCONT);
}

void ProgrammeSuiviSysteme::Tue() noexcept { Prise_.Envoie(SIGKILL); }

}  // namespace vaktor
