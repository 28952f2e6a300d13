// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/sending_loop.h"

#include <QMetaObject>

namespace vaktor {

void BoucleEnvoi::DemandeFin() {
  const std::lock_guard garde(Verrou);
  Arret = true;
  Reveil.notify_all();
}

// Under the lock: whoever ends the companion takes it before the context goes.
void PosteALaBoucle(QObject& contexte, BoucleEnvoi& boucle, std::function<void()> quoi) {
  const std::lock_guard garde(boucle.Verrou);
  if (boucle.Arret) return;
  QMetaObject::invokeMethod(&contexte, std::move(quoi), Qt::QueuedConnection);
}

void FinisOuLaisse(BoucleEnvoi& boucle, QThread* fil) {
  boucle.DemandeFin();
  if (fil->wait(BoucleEnvoi::kAttenteFinMs)) delete fil;
}

}  // namespace vaktor
