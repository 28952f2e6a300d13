// SPDX-License-Identifier: GPL-3.0-or-later
// How long a save takes under a held key, and whether the tick keeps its cadence meanwhile: key_repeat FOLDER
// [SECONDS]. The whole program, with the built-in picture and its companions, on the disk that FOLDER lies on. A key is
// held in Text1, which saves at each keystroke, at the usual rate of auto-repeat.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/application.h"
#include "app/real_system.h"
#include "app/start_arguments.h"

namespace {

constexpr int kTicMs = 30;
constexpr int kRepetitionMs = 33;  // 30 keys a second
constexpr int kChiffresMax = 9;    // then the field is emptied, which is one more save

/// Notes the moment of each timeout of Timer1.
class EcouteTics : public QObject {
 public:
  std::vector<double> Ecarts;
  void Remet() {
    Ecarts.clear();
    Depuis_.invalidate();
  }

 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override {
    const auto* minuterie = qobject_cast<QTimer*>(objet);
    if (evenement->type() == QEvent::Timer && minuterie != nullptr && minuterie->interval() == kTicMs) {
      if (Depuis_.isValid()) Ecarts.push_back(double(Depuis_.nsecsElapsed()) / 1e6);
      Depuis_.start();
    }
    return false;
  }

 private:
  QElapsedTimer Depuis_;
};

void Raconte(const char* quoi, std::vector<double> ms) {
  if (ms.empty()) {
    std::printf("%-28s none\n", quoi);
    return;
  }
  std::sort(ms.begin(), ms.end());
  const auto part = [&](double p) { return ms.at(static_cast<std::size_t>(p * double(ms.size() - 1))); };
  std::printf("%-28s n %5zu   median %7.2f   95%% %7.2f   99%% %7.2f   max %7.2f ms\n", quoi, ms.size(), part(0.5),
              part(0.95), part(0.99), ms.back());
}

void Attend(int ms) {
  QElapsedTimer horloge;
  horloge.start();
  while (horloge.elapsed() < ms) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
}

/// Holds a key in the field; the time of each keystroke, its save included.
std::vector<double> TientTouche(QLineEdit& champ, int secondes) {
  std::vector<double> durees;
  QTimer repetition;
  QObject::connect(&repetition, &QTimer::timeout, &champ, [&] {
    if (champ.text().size() >= kChiffresMax) champ.selectAll();
    QKeyEvent touche(QEvent::KeyPress, Qt::Key_5, Qt::NoModifier, QStringLiteral("5"), !durees.empty());
    QElapsedTimer horloge;
    horloge.start();
    QCoreApplication::sendEvent(&champ, &touche);
    durees.push_back(double(horloge.nsecsElapsed()) / 1e6);
  });
  repetition.setTimerType(Qt::PreciseTimer);
  repetition.start(kRepetitionMs);
  Attend(secondes * 1000);
  return durees;
}

QWidget* TrouveFenetre() {
  for (QWidget* fenetre : QApplication::topLevelWidgets()) {
    if (fenetre->objectName() == QStringLiteral("Form1")) return fenetre;
  }
  return nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc < 2) {
    std::fprintf(stderr, "usage: key_repeat FOLDER [SECONDS]\n");
    return 2;
  }
  const int secondes = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 10;
  const auto arguments = vaktor::LitArgumentsDepart(
      {QStringLiteral("/camera:test"), QStringLiteral("/dossier:") + QString::fromLocal8Bit(argv[1])});
  vaktor::SystemeReel systeme(arguments);
  vaktor::Vaktor vaktor(systeme.Ports(), arguments.LigneCommande);
  vaktor.Demarre(QStringLiteral("key_repeat"));
  Attend(2500);  // the splash
  QWidget* fenetre = TrouveFenetre();
  if (fenetre == nullptr) return 1;
  EcouteTics tics;
  application.installEventFilter(&tics);
  fenetre->findChild<QWidget*>(QStringLiteral("Bouton(0)"))->setFocus();
  vaktor::BoutonImage* camera = fenetre->findChild<vaktor::BoutonImage*>(QStringLiteral("Bouton(0)"));
  camera->click();
  Attend(5000);  // the automatic tolerance has found its place
  tics.Remet();
  Attend(secondes * 1000);
  Raconte("tick to tick, no key", tics.Ecarts);
  tics.Remet();
  const std::vector<double> touches = TientTouche(*fenetre->findChild<QLineEdit*>(QStringLiteral("Text1")), secondes);
  Raconte("keystroke with its save", touches);
  Raconte("tick to tick, key held", tics.Ecarts);
  camera->click();
  vaktor.Ferme();
  return 0;
}
