// SPDX-License-Identifier: GPL-3.0-or-later
// From a frame in hand to its photo on the disk, in the running engine: real camera driver, real timers, real files,
// no windows.
//
//   frame_to_photo CAMERA FOLDER [PHOTOS]     CAMERA as in "/camera:", a clip in which something always moves
//
// The time runs from the moment at which the driver hands the tick a new frame until the call that writes its photo
// returns: comparison, encoding and the whole write lie in it, the flush to the disk itself does not.
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "bench/silent_health.h"
#include "bench/silent_sounds.h"
#include "engine/surveillance.h"
#include "image/jpeg_writer.h"
#include "image/photo_recorder.h"
#include "platform/base/event_pump.h"
#include "platform/base/qt_timers.h"
#include "platform/base/system_clock.h"
#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/driver/gst_driver.h"
#include "platform/disk/bounded_files.h"
#include "platform/image/turbo_jpeg_encoder.h"
#include "texts/language.h"

namespace vaktor {
namespace {

using Chrono = std::chrono::steady_clock;

struct Mesures {
  Chrono::time_point Saisie;
  int Saisies = 0;
  int Analyses = 0;
  size_t Voulues = 1000;
  std::vector<double> Millisecondes;
};

// Hands everything through and notes when a new frame came.
class PiloteChronometre : public PiloteCapture {
 public:
  PiloteChronometre(PiloteCapture& vrai, Mesures& mesures) : Vrai_(vrai), Mesures_(mesures) {}
  bool Connecte() override { return Vrai_.Connecte(); }
  void ConnecteSansAttendre() override { Vrai_.ConnecteSansAttendre(); }
  QString Explication() const override { return Vrai_.Explication(); }
  QString AutreCamera() const override { return Vrai_.AutreCamera(); }
  void Deconnecte() override { Vrai_.Deconnecte(); }
  bool ImagePrete() const override { return Vrai_.ImagePrete(); }
  void AttendImage(std::function<void()> reveil) override { Vrai_.AttendImage(std::move(reveil)); }
  bool EstReprise() const override { return Vrai_.EstReprise(); }
  bool SaisitImage() override {
    if (!Vrai_.SaisitImage()) return false;
    Mesures_.Saisie = Chrono::now();
    ++Mesures_.Saisies;
    return true;
  }
  ImageCamera CopieTrame() const override { return Vrai_.CopieTrame(); }
  bool SignalPerdu() const override { return Vrai_.SignalPerdu(); }
  void MontreDialogueFormat() override {}
  void MontreDialogueSource() override {}

 private:
  PiloteCapture& Vrai_;
  Mesures& Mesures_;
};

class ActionsChronometrees : public ActionsAlarme {
 public:
  explicit ActionsChronometrees(Mesures& mesures) : Mesures_(mesures) {}
  void Relie(EnregistreurPhotos& photos) { Photos_ = &photos; }
  void EnregistrePhoto() override {
    Photos_->EnregistrePhoto();
    const std::chrono::duration<double, std::milli> duree = Chrono::now() - Mesures_.Saisie;
    Mesures_.Millisecondes.push_back(duree.count());
    if (Mesures_.Millisecondes.size() == Mesures_.Voulues) QCoreApplication::quit();
  }
  void EnvoiMail() override {}
  void EnvoiSon() override {}
  void NoteIntrusion() noexcept override {}

 private:
  Mesures& Mesures_;
  EnregistreurPhotos* Photos_ = nullptr;
};

class SansLive : public LiaisonLive {
 public:
  bool LiveActif() const override { return false; }
  bool VeutPhotos() const override { return false; }
  void PublieLive(const ImageCamera&) override {}
};

class SansFenetre : public AffichageSurveillance {
 public:
  explicit SansFenetre(Mesures& mesures) : Mesures_(mesures) {}
  void MontreLibelleAlarme(LibelleAlarme) override {}
  void NommeAlarmeInactive() override {}
  void GriseLibelleAlarme() override {}
  void MontreCompteARebours(qint32) override {}
  void MontreCompteurs(qint32, qint32) override { ++Mesures_.Analyses; }
  void MontreBarre(qint32) override {}
  void RafraichitVue() override {}
  void MontreVuePixel() override {}
  void MontreZoom(const QRect&) override {}
  void CopiePleinEcran() override {}
  void RafraichitPleinEcran() override {}
  void MontreMoniteur() override {}
  void MontreAvis(AvisMoniteur) override {}
  void ActiveBouton(qint32, bool) override {}
  void MontreLampeAlarme(Lampe) override {}
  void MontreLampeSurveillance(Lampe) override {}
  void MontreSurveillanceInactive() override {}
  void EcritRetard(qint32) override {}
  void DessineJauge(qint32, bool) override {}
  void AnnonceCameraIntrouvable(const QString&) override {
    std::fputs("frame_to_photo: the camera gives no picture\n", stderr);
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(1); });
  }
  void AnnonceCameraInactive() override {}

 private:
  Mesures& Mesures_;
};

class SansSauvegarde : public SauvegardeParametres {
 public:
  void SauveParametres() override {}
};

void Annonce(Mesures& mesures) {
  std::vector<double>& temps = mesures.Millisecondes;
  if (temps.empty()) {
    std::puts("no photo was taken");
    return;
  }
  std::sort(temps.begin(), temps.end());
  std::printf("photos %zu  frames %d  analyses %d\n", temps.size(), mesures.Saisies, mesures.Analyses);
  std::printf("frame grabbed to photo written, ms: median %.2f  99%% %.2f  worst %.2f\n", temps[temps.size() / 2],
              temps[temps.size() * 99 / 100], temps.back());
}

int Mesure(const QString& camera, const QString& dossier, size_t photos) {
  Mesures mesures;
  mesures.Voulues = photos;
  Parametres reglages;
  reglages.Retard = 1;
  reglages.SeuilAuto = false;
  reglages.SeuilDetection = 300000;
  reglages.PhotoActif = true;
  reglages.NombrePhotoMax = 1000000;
  reglages.RepertoirePhoto = dossier;
  const DossiersProgramme dossiers{dossier, dossier};

  MemoireCapture memoire(dossier + QStringLiteral("/capture.ini"));
  PiloteGStreamer vrai(
      camera, memoire, [] { return Langue::kAnglais; }, nullptr);
  PiloteChronometre pilote(vrai, mesures);
  FabriqueMinuteriesQt minuteries;
  HorlogeSysteme temps;
  PompeEvenementsQt pompe;
  FichiersBornes disque;
  EncodeurTurboJpeg encodeur;
  EcrivainJpegFichier ecrivain(encodeur, disque);
  SonsMuets sons;
  SansLive live;
  SansSauvegarde sauvegarde;
  SansSante sante;
  ActionsChronometrees actions(mesures);
  SansFenetre affichage(mesures);
  Surveillance moteur({reglages, sauvegarde, pilote, minuteries, temps, pompe, sons, actions, live, affichage, sante});
  moteur.Lance();
  EnregistreurPhotos enregistreur(
      {reglages, dossiers, moteur.Surface(), temps, ecrivain, disque, [] { return false; }, sante});
  enregistreur.FixeDateJour();
  actions.Relie(enregistreur);
  QTimer::singleShot(0, qApp, [&moteur] { moteur.BasculeAlarme(); });
  const int code = QCoreApplication::exec();
  moteur.DeconnectePilote();
  moteur.Arrete();
  Annonce(mesures);
  return code;
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() < 3 || !QDir().mkpath(arguments.at(2))) {
    std::fputs("frame_to_photo CAMERA FOLDER [PHOTOS]\n", stderr);
    return 2;
  }
  const size_t photos = arguments.size() > 3 ? arguments.at(3).toULong() : 1000;
  return vaktor::Mesure(arguments.at(1), QDir(arguments.at(2)).absolutePath(), photos);
}
