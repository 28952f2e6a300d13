// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/camera.h"

#include <QDir>
#include <chrono>
#include <cstdio>
#include <mutex>

#include "platform/base/bounded_log.h"
#include "platform/base/system_clock.h"
#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/devices/device_access.h"
#include "platform/capture/devices/node_desk.h"
#include "platform/capture/driver/camera_report.h"
#include "platform/capture/driver/gst_driver.h"
#include "texts/language.h"

namespace vaktor {

QString FichierMemoireCapture(const QString& reglages) { return reglages + QStringLiteral("/capture.ini"); }

int DitCameras(const QString& ou, const QString& reglages) {
  constexpr int kStatutSansCamera = 3;  // not what a crash or a failed start gives
  const RapportCameras rapport = DecritCameras(ou, MemoireCapture(FichierMemoireCapture(reglages)), AccesV4L2());
  std::fputs(qUtf8Printable(rapport.Texte), stdout);
  return rapport.YEnAUne ? 0 : kStatutSansCamera;
}

namespace {

/// The log of the capture. Its lines come from the driver's threads, which a disk that does not answer is not to hold:
/// what it does not take in a moment is lost, and so is what follows until it answers.
class JournalCapture {
 public:
  explicit JournalCapture(const QString& dossier) : Fichier_(std::make_shared<Fichier>(dossier)) {}

  void Note(const QString& ligne) {
    constexpr std::chrono::milliseconds kPatience{200};
    const std::lock_guard verrou(Verrou_);
    const auto ecrit = [fichier = Fichier_, ligne] {
      QDir().mkpath(fichier->Dossier);
      fichier->Journal.Note(ligne);
      return true;
    };
    Guichet_.Demande<bool>(Fichier_->Dossier, ecrit, kPatience);
  }

 private:
  struct Fichier {
    explicit Fichier(const QString& dossier) : Dossier(dossier), Journal(dossier, QStringLiteral("capture"), Temps) {}
    QString Dossier;
    HorlogeSysteme Temps;
    JournalBorne Journal;
  };

  std::mutex Verrou_;
  GuichetsNoeuds Guichet_;
  std::shared_ptr<Fichier> Fichier_;
};

}  // namespace

std::function<void(const QString&)> OuvreJournalCapture(const QString& dossier) {
  return [journal = std::make_shared<JournalCapture>(dossier)](const QString& ligne) { journal->Note(ligne); };
}

std::unique_ptr<PiloteCapture> CreePilote(const QString& ou, MemoireCapture& memoire, std::function<Langue()> langue,
                                          const QString& etat) {
  return std::make_unique<PiloteGStreamer>(ou, memoire, std::move(langue), nullptr, OuvreJournalCapture(etat));
}

}  // namespace vaktor
