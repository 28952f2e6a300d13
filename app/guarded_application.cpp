// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/guarded_application.h"

#include <QScopedValueRollback>
#include <cstdio>

#include "base/failure.h"

namespace vaktor {
namespace {

void DitIndicible() { std::fputs("Vaktor: the failure could not be shown\n", stderr); }

}  // namespace

ApplicationGardee::ApplicationGardee(int& argc, char** argv) : QApplication(argc, argv) {}

bool ApplicationGardee::notify(QObject* recepteur, QEvent* evenement) {
  try {
    return QApplication::notify(recepteur, evenement);
  } catch (const Echec& echec) {
    Signale(echec.Description());
  } catch (const std::exception& erreur) {
    Signale(QString::fromLocal8Bit(erreur.what()));
  } catch (...) {
    Signale(QStringLiteral("unknown failure"));
  }
  return true;
}

// Telling a failure may fail as well, for want of memory before all. Out of an event handler it would end the program.
void ApplicationGardee::Signale(const QString& description) {
  std::fprintf(stderr, "Vaktor: %s\n", qUtf8Printable(description));
  if (Annonce_ || !SurEchec_) return;
  try {
    QMetaObject::invokeMethod(
        this, [this, description] { Annonce(description); }, Qt::QueuedConnection);
  } catch (...) {
    DitIndicible();
  }
}

// Out of the event that failed, because a box runs a loop: a timer in the middle of whose tick a box stands does not
// tick again before somebody clicks it away, and that may be the one that watches.
void ApplicationGardee::Annonce(const QString& description) {
  if (Annonce_ || !SurEchec_) return;
  const QScopedValueRollback<bool> annonce(Annonce_, true);
  try {
    SurEchec_(description);
  } catch (...) {
    DitIndicible();
  }
}

}  // namespace vaktor
