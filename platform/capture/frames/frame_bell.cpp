#include "platform/capture/frames/frame_bell.h"

#include <QCoreApplication>
#include <QEvent>
#include <new>
#include <utility>

namespace vaktor {
namespace {

constexpr auto kSonne = static_cast<QEvent::Type>(QEvent::User + 1);  // of a private object: no other event meets it

}  // namespace

// Under the lock, so that the listener cannot go away in between. Posting takes memory, and this is the thread of a
// camera: where there is none nobody is woken, and the next tick finds the frame.
void SonnetteImages::Sonne() noexcept {
  const std::lock_guard verrou(Verrou_);
  if (Chez_ == nullptr || Sonnee_) return;
  try {
    QCoreApplication::postEvent(Chez_, new QEvent(kSonne));
    Sonnee_ = true;
  } catch (const std::bad_alloc&) {
  }
}

EcouteSonnette::EcouteSonnette(std::function<void()> entendu) : Entendu_(std::move(entendu)) {
  const std::lock_guard verrou(Sonnette_->Verrou_);
  Sonnette_->Chez_ = this;
}

EcouteSonnette::~EcouteSonnette() {
  const std::lock_guard verrou(Sonnette_->Verrou_);
  Sonnette_->Chez_ = nullptr;
}

bool EcouteSonnette::event(QEvent* evenement) {
  if (evenement->type() != kSonne) return QObject::event(evenement);
  {
    const std::lock_guard verrou(Sonnette_->Verrou_);
    Sonnette_->Sonnee_ = false;
  }
  Entendu_();
  return true;
}

}  // namespace vaktor
