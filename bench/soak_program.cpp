// SPDX-License-Identifier: GPL-3.0-or-later
// The program of bench/soak: soak_program FRAMES /dossier:PATH [/alarm] [/surve]. The whole program with its real
// system, but for two things: the camera has a picture whenever it is asked for one, and the tick comes each
// millisecond. Tells on its standard output what has been done so far, once a second, and ends after that many frames.
#include <QAbstractButton>
#include <QDeadlineTimer>
#include <QTimer>
#include <array>
#include <cstdio>
#include <random>
#include <utility>

#include "app/application.h"
#include "app/guarded_application.h"
#include "app/real_system.h"
#include "app/start_arguments.h"
#include "texts/language.h"

namespace vaktor {
namespace {

constexpr QSize kTaille{320, 240};
// The course of the watch, in frames: nothing moves, then somebody walks through; now and then the signal is lost.
constexpr qint64 kTour = 1000;
constexpr qint64 kPromenade = 20;
constexpr qint64 kToursEntrePertes = 5;
constexpr int kDureePerteMs = 300;
constexpr int kTrame = 17;  // of the timer that makes up for the waking that a real camera does
constexpr int kTicMs = 1;   // instead of 30
constexpr qint64 kEntreLangues = 4000;

struct Compte {
  qint64 Images = 0, Pertes = 0, Langues = 0;
};

/// Four pictures of noise, and the same with somebody in them.
class CameraSansAttente : public PiloteCapture {
 public:
  explicit CameraSansAttente(Compte& compte) : Compte_(compte) {
    std::mt19937 hasard(1);
    for (std::size_t i = 0; i < Calmes_.size(); ++i) {
      Calmes_[i] = PeintBruit(hasard);
      Agitees_[i] = Calmes_[i].copy();
      for (int y = 60; y < 180; ++y)
        for (int x = 0; x < 60; ++x) Agitees_[i].setPixel(static_cast<int>(i) * 70 + x, y, qRgb(20, 20, 220));
    }
    Reveil_.callOnTimeout([this] {
      if (ImagePrete() && Reveille_) std::exchange(Reveille_, {})();
    });
    Reveil_.start(kTrame);
  }

  bool Connecte() override { return true; }
  void ConnecteSansAttendre() override {}
  QString Explication() const override { return {}; }
  QString AutreCamera() const override { return {}; }
  void Deconnecte() override { Reveille_ = {}; }
  bool ImagePrete() const override { return Retour_.hasExpired(); }
  bool SaisitImage() override {
    if (!ImagePrete()) return false;
    const qint64 rang = Compte_.Images++;
    const auto place = static_cast<std::size_t>(rang % 4);
    Image_ = rang > kTour && rang % kTour < kPromenade ? Agitees_.at(place) : Calmes_.at(place);
    Reprise_ = std::exchange(Perdue_, rang % (kTour * kToursEntrePertes) == kTour / 2);
    if (Perdue_) {
      Retour_.setRemainingTime(kDureePerteMs);
      ++Compte_.Pertes;
    }
    return true;
  }
  void AttendImage(std::function<void()> reveil) override { Reveille_ = std::move(reveil); }
  bool EstReprise() const override { return Reprise_; }
  ImageCamera CopieTrame() const override { return Image_; }
  bool SignalPerdu() const override { return !ImagePrete(); }
  void MontreDialogueFormat() override {}
  void MontreDialogueSource() override {}

 private:
  static QImage PeintBruit(std::mt19937& hasard) {
    QImage image(kTaille, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const int gris = 100 + static_cast<int>(hasard() % 4);
        image.setPixel(x, y, qRgb(gris, gris, gris));
      }
    }
    return image;
  }

  Compte& Compte_;
  std::array<QImage, 4> Calmes_, Agitees_;
  QImage Image_;
  QDeadlineTimer Retour_{0};
  bool Perdue_ = false, Reprise_ = false;
  std::function<void()> Reveille_;
  QTimer Reveil_;
};

/// The tick of the engine comes thirty times as often, every other timer at its own time.
class TicSansAttente : public QObject {
 protected:
  bool eventFilter(QObject* objet, QEvent* evenement) override {
    if (evenement->type() != QEvent::Timer) return false;
    auto* minuterie = qobject_cast<QTimer*>(objet);
    if (minuterie != nullptr && minuterie->interval() > kTicMs && minuterie->objectName() == QLatin1String("Timer1"))
      minuterie->setInterval(kTicMs);
    return false;
  }
};

QWidget* TrouveFenetre() {
  for (QWidget* fenetre : QApplication::topLevelWidgets())
    if (fenetre->objectName() == QLatin1String("Form1")) return fenetre;
  return nullptr;
}

/// What is done beside the camera and told: a change of language now and then, the numbers, the end.
class Deroulement {
 public:
  Deroulement(Compte& compte, qint64 images, Vaktor& vaktor) : Compte_(compte), Images_(images), Vaktor_(vaktor) {
    Regard_.callOnTimeout([this] { Regarde(); });
    Regard_.start(kRegard);
  }

 private:
  static constexpr int kRegard = 50;
  static constexpr int kRegardsParLigne = 20;

  void Regarde() {
    if (++Regards_ % kRegardsParLigne == 0) Dit();
    if (Compte_.Images / kEntreLangues > Compte_.Langues) ChangeLangue();
    if (Compte_.Images < Images_) return;
    Regard_.stop();
    Dit();
    Vaktor_.Ferme();
  }
  void ChangeLangue() {
    QWidget* fenetre = TrouveFenetre();
    const QString drapeau = QStringLiteral("Image4(%1)").arg(Compte_.Langues++ % 2);
    if (fenetre != nullptr) fenetre->findChild<QAbstractButton*>(drapeau)->click();
  }
  void Dit() const {
    std::printf("frames=%lld losses=%lld languages=%lld\n", Compte_.Images, Compte_.Pertes, Compte_.Langues);
    std::fflush(stdout);
  }

  Compte& Compte_;
  const qint64 Images_;
  Vaktor& Vaktor_;
  QTimer Regard_;
  int Regards_ = 0;
};

int Execute(ApplicationGardee& application, qint64 images, const ArgumentsDepart& arguments) {
  Compte compte;
  SystemeReel systeme(arguments);
  PortsSysteme ports = systeme.Ports();
  ports.CreePilote = [&compte](const std::function<Langue()>&) { return std::make_unique<CameraSansAttente>(compte); };
  Vaktor vaktor(ports, arguments.LigneCommande);
  application.SurEchec([&vaktor](const QString& description) { vaktor.AnnonceEchec(description); });
  TicSansAttente tic;
  application.installEventFilter(&tic);
  vaktor.Demarre(QStringLiteral("soak"));
  const Deroulement deroulement(compte, images, vaktor);
  return QApplication::exec();
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 2; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  const qint64 images = argc > 1 ? QString::fromLocal8Bit(argv[1]).toLongLong() : 0;
  if (images < 1) {
    std::fprintf(stderr, "usage: soak_program FRAMES /dossier:PATH [/alarm] [/surve]\n");
    return 2;
  }
  vaktor::ApplicationGardee application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    return vaktor::Execute(application, images, vaktor::LitArgumentsDepart(arguments));
  } catch (const std::exception& erreur) {
    std::fprintf(stderr, "soak_program: %s\n", erreur.what());
    return 1;
  }
}
