// SPDX-License-Identifier: GPL-3.0-or-later
// A photo of the recorder, from the frame to the closed file, against TurboJPEG alone into memory on the same pixels.
//
// Both sides are timed in the same loop, in turn, so that whatever else the machine does meets both alike. Times are
// CPU times of the process, for the photo is written and flushed by threads of its own; the file lies on a memory file
// system, because a disk's speed is none of ours. The counters of each row: us_photo and us_memory, medians of one
// call; ratio, the median of the ratios of neighbouring calls; us_held, the median of the time that the photo holds its
// caller, by the clock on the wall; octets, the size of the file.
#include <benchmark/benchmark.h>
#include <turbojpeg.h>

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <memory>
#include <vector>

#include "bench/silent_health.h"
#include "bench/timing.h"
#include "image/photo_recorder.h"
#include "platform/base/system_clock.h"
#include "platform/disk/bounded_files.h"
#include "platform/image/turbo_jpeg_encoder.h"

namespace vaktor {
namespace {

constexpr int kQualite = 50;
/// Photos between two cleanings of the folder; a cleaning is not timed.
constexpr int kPhotosParLot = 200;

/// A room of soft light with some edges; `bruit` is the amplitude of the sensor's noise.
QImage Piece(int largeur, int hauteur, int bruit) {
  QImage image(largeur, hauteur, QImage::Format_RGB32);
  quint32 etat = 1;
  for (int y = 0; y < hauteur; ++y) {
    auto* ligne = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < largeur; ++x) {
      const int meuble = ((x * 8 / largeur) * 5 + (y * 6 / hauteur) * 3) % 7 * 20;
      const int lumiere = 40 + 60 * x / largeur + 30 * y / hauteur + meuble;
      etat = etat * 1'664'525U + 1'013'904'223U;
      const int grain = bruit == 0 ? 0 : static_cast<int>(etat >> 16U) % (2 * bruit + 1) - bruit;
      const int valeur = std::clamp(lumiere + grain, 0, 255);
      ligne[x] = qRgb(valeur, std::clamp(valeur - 8, 0, 255), std::clamp(valeur - 20, 0, 255));
    }
  }
  return image;
}

/// The other side: one handle and one buffer for all calls, no file.
class TurboSeul {
 public:
  explicit TurboSeul(const QImage& image)
      : Image_(image),
        Poignee_(tjInitCompress(), tjDestroy),
        Sortie_(tjBufSize(image.width(), image.height(), TJSAMP_420)) {}

  unsigned long Encode() {
    unsigned char* sortie = Sortie_.data();
    unsigned long taille = Sortie_.size();
    tjCompress2(Poignee_.get(), Image_.constBits(), Image_.width(), static_cast<int>(Image_.bytesPerLine()),
                Image_.height(), TJPF_BGRX, &sortie, &taille, TJSAMP_420, kQualite, TJFLAG_NOREALLOC);
    return taille;
  }

 private:
  QImage Image_;
  std::unique_ptr<void, int (*)(void*)> Poignee_;
  std::vector<unsigned char> Sortie_;
};

/// Our side: everything that an alarm frame's photo passes through, down to the files of the program (FichiersBornes)
/// or to those that write on the caller's thread and flush nothing (FichiersSysteme).
template <typename Disque>
class Photos {
 public:
  explicit Photos(const QImage& image) {
    Reglages_.RepertoirePhoto = Dossier_.path();
    Reglages_.PhotoActif = true;
    Reglages_.NombrePhotoMax = 2'000'000'000;
    Surface_.Pose(image);
    Recorder_.FixeDateJour();
  }
  void Enregistre() { Recorder_.EnregistrePhoto(); }
  void Nettoie() {
    for (const QString& nom : QDir(Dossier_.path()).entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name)) {
      Disque_.Supprime(Dossier_.path() + u'/' + nom);
    }
  }

 private:
  static QString Modele() {
    const QString memoire = QStringLiteral("/dev/shm");
    return (QDir(memoire).exists() ? memoire : QDir::tempPath()) + QStringLiteral("/vaktor-bench-XXXXXX");
  }

  QTemporaryDir Dossier_{Modele()};
  Parametres Reglages_;
  DossiersProgramme Dossiers_;
  SurfaceImage Surface_;
  HorlogeSysteme Temps_;
  Disque Disque_;
  EncodeurTurboJpeg Encodeur_;
  EcrivainJpegFichier Ecrivain_{Encodeur_, Disque_};
  SansSante Sante_;
  EnregistreurPhotos Recorder_{
      {Reglages_, Dossiers_, Surface_, Temps_, Ecrivain_, Disque_, [] { return false; }, Sante_}};
};

struct Mesures {
  std::vector<double> Photo, Memoire, Rapport, Tenu;

  void Note(double photo, double memoire) {
    Photo.push_back(photo);
    Memoire.push_back(memoire);
    Rapport.push_back(photo / memoire);
  }
};

/// The time of one call of each side; which goes first changes each time.
template <typename Disque>
void MesurePaire(Photos<Disque>& photos, TurboSeul& seul, bool photoDAbord, Mesures& mesures) {
  const auto enregistre = [&] {
    const double avant = Microsecondes(CLOCK_MONOTONIC);
    photos.Enregistre();
    mesures.Tenu.push_back(Microsecondes(CLOCK_MONOTONIC) - avant);
  };
  const double debut = Microsecondes(CLOCK_PROCESS_CPUTIME_ID);
  photoDAbord ? enregistre() : static_cast<void>(seul.Encode());
  const double milieu = Microsecondes(CLOCK_PROCESS_CPUTIME_ID);
  photoDAbord ? static_cast<void>(seul.Encode()) : enregistre();
  const double fin = Microsecondes(CLOCK_PROCESS_CPUTIME_ID);
  photoDAbord ? mesures.Note(milieu - debut, fin - milieu) : mesures.Note(fin - milieu, milieu - debut);
}

template <typename Disque>
void MesurePhoto(benchmark::State& etat) {
  const QImage image =
      Piece(static_cast<int>(etat.range(0)), static_cast<int>(etat.range(1)), static_cast<int>(etat.range(2)));
  Photos<Disque> photos(image);
  TurboSeul seul(image);
  Mesures mesures;
  int photo = 0;
  for ([[maybe_unused]] const auto _ : etat) {
    MesurePaire(photos, seul, photo % 2 == 0, mesures);
    etat.SetIterationTime(mesures.Photo.back() * 1e-6);
    if (++photo % kPhotosParLot == 0) photos.Nettoie();
  }
  etat.counters["us_photo"] = Mediane(mesures.Photo);
  etat.counters["us_memory"] = Mediane(mesures.Memoire);
  etat.counters["ratio"] = Mediane(mesures.Rapport);
  etat.counters["us_held"] = Mediane(mesures.Tenu);
  etat.counters["octets"] = static_cast<double>(seul.Encode());
}

// Width, height, noise: a still room, one seen by a common sensor, one in the dark.
BENCHMARK(MesurePhoto<FichiersBornes>)
    ->Name("MesurePhoto")
    ->ArgNames({"w", "h", "noise"})
    ->ArgsProduct({{640}, {480}, {0, 6, 40}})
    ->ArgsProduct({{1280}, {720}, {0, 6, 40}})
    ->ArgsProduct({{1920}, {1080}, {0, 6, 40}})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->MinTime(0.5);

// What the thread and the flush cost: the same without them.
BENCHMARK(MesurePhoto<FichiersSysteme>)
    ->Name("MesurePhotoSansFil")
    ->ArgNames({"w", "h", "noise"})
    ->ArgsProduct({{640}, {480}, {6}})
    ->ArgsProduct({{1280}, {720}, {6}})
    ->ArgsProduct({{1920}, {1080}, {6}})
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->MinTime(0.5);

}  // namespace
}  // namespace vaktor
