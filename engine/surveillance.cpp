// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/surveillance.h"

#include <functional>
#include <utility>

#include "engine/arming.h"
#include "engine/camera_control.h"
#include "engine/detection_zone.h"
#include "engine/motion_analysis.h"
#include "engine/sensitivity_gauge.h"
#include "engine/surveillance_state.h"
#include "engine/surveillance_tick.h"

namespace vaktor {
namespace {

constexpr qint32 kTicMs = 30;
constexpr qint32 kSeuilSuivantMs = 15000;
constexpr qint32 kSeuilMs = 1;
constexpr qint32 kSecondeMs = 1000;
/// A redraw of the window takes a tenth of it.
constexpr qint32 kSuspensionMs = 1000;

}  // namespace

/// All rules of the engine, wired. The timers come first: the rules hold references to them.
class ReglesSurveillance {
 public:
  explicit ReglesSurveillance(const PortsSurveillance& ports)
      : Ports(ports),
        Minuteries(CreeMinuteries()),
        Analyse(Ports, Etat, *Minuteries.Timer3),
        Tic(Ports, Etat, Analyse, [this] { SuitReveil(); }),
        Jauge(Ports, Etat, *Minuteries.TimerSeuil),
        Camera(Ports, Etat, Minuteries, Jauge, Analyse),
        Alarme(Ports, Etat, Minuteries, Camera),
        Souris(Etat) {
    Etat.Alarme.CompteARebours = Ports.Reglages.Retard;
  }

  const PortsSurveillance Ports;
  EtatSurveillance Etat;
  MinuteriesSurveillance Minuteries;
  AnalyseurMouvement Analyse;
  TicSurveillance Tic;
  JaugeSensibilite Jauge;
  CommandeCamera Camera;
  ArmementAlarme Alarme;
  SourisZone Souris;

  /// The redraw lets events in, and one of them may open a message or a dialog, which then stands inside of it for as
  /// long as nobody answers: the ticks come again by themselves.
  void Suspend() {
    Minuteries.Timer1->Desactive();
    Minuteries.FinSuspension->Active();
  }
  void Reprend() {
    Minuteries.FinSuspension->Desactive();
    Minuteries.Timer1->Active();
  }
  void Arrete() {
    for (const auto* minuterie : {&Minuteries.Timer1, &Minuteries.Timer2, &Minuteries.FinSuspension})
      (*minuterie)->Desactive();
  }

 private:
  MinuteriesSurveillance CreeMinuteries() {
    FabriqueMinuteries& fabrique = Ports.Minuteries;
    MinuteriesSurveillance m;
    const auto cree = [&](const QString& nom, qint32 millisecondes, std::function<void()> tic) {
      // Dropped, not stopped: the state of a timer means something, Timer3's for one is the countdown.
      return fabrique.CreeMinuterie(nom, millisecondes, [this, tic = std::move(tic)] {
        if (!Etat.Camera.EnPause()) tic();
      });
    };
    m.Timer1 = cree(QStringLiteral("Timer1"), kTicMs, [this] {
      Tic.TraiteTic();
      Jauge.SuitComparaison();
    });
    m.Timer2 = cree(QStringLiteral("Timer2"), kAttenteSeuilMs, [this] { LanceSeuil(); });
    m.TimerSeuil = cree(QStringLiteral("TimerSeuil"), kSeuilMs, [this] { Jauge.AjusteSeuil(); });
    m.Timer3 = cree(QStringLiteral("Timer3"), kSecondeMs, [this] { Alarme.CompteUneSeconde(); });
    m.FinSuspension = cree(QStringLiteral("FinSuspension"), kSuspensionMs, [this] { Reprend(); });
    return m;
  }

  /// What keeps Timer1 from ticking keeps a frame from waking it: the first tick afterwards asks again.
  void SuitReveil() {
    if (Etat.Camera.EnPause() || !Minuteries.Timer1->EstActive()) return;
    Tic.TraiteReveil();
    Jauge.SuitComparaison();
  }

  /// The tick of Timer2: the warm-up is over. It goes on every 15 s to no further effect on the tolerance, since
  /// TimerSeuil, once enabled, stays so until the camera stops; what it is good for then is to see that Timer1 ticks.
  void LanceSeuil() {
    Minuteries.Timer2->ChangeIntervalle(kSeuilSuivantMs);
    Tic.VerifieMarche(!Minuteries.TimerSeuil->EstActive());
    Minuteries.TimerSeuil->Active();
  }
};

Surveillance::Surveillance(const PortsSurveillance& ports) : Regles_(std::make_unique<ReglesSurveillance>(ports)) {}
Surveillance::~Surveillance() = default;

void Surveillance::Lance() { Regles_->Minuteries.Timer1->Active(); }

const EtatDetection& Surveillance::Detection() const { return Regles_->Etat.Detection; }
const EtatCamera& Surveillance::Camera() const { return Regles_->Etat.Camera; }
const EtatAlarme& Surveillance::Alarme() const { return Regles_->Etat.Alarme; }
SurfaceImage& Surveillance::Surface() { return Regles_->Etat.Surface; }
const SurfaceImage& Surveillance::Surface() const { return Regles_->Etat.Surface; }
bool Surveillance::CompteAReboursEnCours() const { return Regles_->Minuteries.Timer3->EstActive(); }
const QImage& Surveillance::VuePixel() const { return Regles_->Analyse.Vue().Image(); }

bool Surveillance::AttendCamera() { return Regles_->Camera.AttendCamera(); }

void Surveillance::BasculeCamera() { Regles_->Camera.BasculeCamera(); }
void Surveillance::BasculeAlarme() { Regles_->Alarme.BasculeAlarme(); }
void Surveillance::DesarmeAlarme() { Regles_->Alarme.DesarmeAlarme(); }
void Surveillance::MontreDialogueFormat() { Regles_->Camera.MontreDialogueFormat(); }
void Surveillance::MontreDialogueSource() { Regles_->Camera.MontreDialogueSource(); }

JaugeSensibilite& Surveillance::Jauge() { return Regles_->Jauge; }
SourisZone& Surveillance::Souris() { return Regles_->Souris; }

// Neither choice clears the small view; the next frame does.
void Surveillance::ChoisitModeZoom(bool zoom) { Regles_->Etat.Detection.ModeZoom = zoom; }
void Surveillance::CacheMoniteur() { Regles_->Etat.Camera.MoniteurCache = true; }
void Surveillance::ChangeRetard(qint32 secondes) { Regles_->Alarme.ChangeRetard(secondes); }
void Surveillance::SuspendTic() { Regles_->Suspend(); }
void Surveillance::ReprendTic() { Regles_->Reprend(); }

void Surveillance::DeconnectePilote() { Regles_->Camera.DeconnectePilote(); }

void Surveillance::Arrete() {
  Regles_->Etat.Alarme.AlarmeArmee = false;
  Regles_->Arrete();
}

}  // namespace vaktor
