#include "app/guarded_application.h"

#include <cstdio>

#include "base/failure.h"

namespace vaktor {

ApplicationGardee::ApplicationGardee(int& argc, char** argv) : QApplication(argc, argv) {}

bool ApplicationGardee::notify(QObject* recepteur, QEvent* evenement) {
  try {
    return QApplication::notify(recepteur, evenement);
  } catch (const Echec& echec) {
    Signale(echec.Description());
  } catch (const std::exception& erreur) {
    Signale(QString::fromLocal8Bit(erreur.what()));
  }
  return true;
}

void ApplicationGardee::Signale(const QString& description) {
  std::fprintf(stderr, "Vaktor: %s\n", qUtf8Printable(description));
  if (Annonce_ || !SurEchec_) return;
  Annonce_ = true;
  SurEchec_(description);
  Annonce_ = false;
}

}  // namespace vaktor
