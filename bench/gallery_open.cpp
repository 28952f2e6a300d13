// SPDX-License-Identifier: GPL-3.0-or-later
// The photo gallery over a folder with many photos: how long until the window stands painted, how long a timer of 30 ms
// has to wait meanwhile, how long each step of scrolling and each photo takes.
//
//   gallery_open FOLDER             a program folder with its photos in FOLDER/intrus; nothing is changed there
//   gallery_open FOLDER --delete    at the end one photo is deleted, and then all of them
//
// The real form, files and decoder; nothing is saved. Times are of the clock, and of the processor in brackets. The
// timer of 30 ms stands for the surveillance's tick.
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "image/forms/form_visu_photo.h"
#include "platform/folders/photo_file_eraser.h"
#include "platform/folders/photo_file_reader.h"
#include "platform/folders/photo_names_reader.h"
#include "platform/image/jpeg_photo_reader.h"

namespace vaktor {
namespace {

class SansSauvegarde : public SauvegardeParametres {
 public:
  void SauveParametres() override {}
};
class SansBoites : public BoitesMessage {
 public:
  ReponseBoite MontreMessage(const QString&, const QString&, BoutonsBoite) override { return ReponseBoite::kOui; }
};
class SansOuvreur : public Ouvreur {
 public:
  void OuvreAdresse(const QString&) override {}
  void OuvreDossier(const QString&) override {}
};

double ProcesseurMs() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_nsec) / 1e6;
}

struct Mesure {
  double Horloge = 0;
  double Processeur = 0;
};

template <typename Travail>
Mesure Chronometre(Travail travail) {
  QElapsedTimer temps;
  const double avant = ProcesseurMs();
  temps.start();
  travail();
  return {static_cast<double>(temps.nsecsElapsed()) / 1e6, ProcesseurMs() - avant};
}

void Dit(const char* quoi, std::vector<Mesure> mesures) {
  const auto milieu = static_cast<std::ptrdiff_t>(mesures.size() / 2);
  std::nth_element(mesures.begin(), mesures.begin() + milieu, mesures.end(),
                   [](const Mesure& a, const Mesure& b) { return a.Horloge < b.Horloge; });
  const Mesure median = mesures.at(static_cast<std::size_t>(milieu));
  const Mesure pire = *std::max_element(mesures.begin(), mesures.end(),
                                        [](const Mesure& a, const Mesure& b) { return a.Horloge < b.Horloge; });
  std::printf("%-28s median %8.2f ms (%7.2f)   worst %8.2f ms (%7.2f)   of %zu\n", quoi, median.Horloge,
              median.Processeur, pire.Horloge, pire.Processeur, mesures.size());
}

/// Knows when it has been painted.
class Fenetre : public FormVisuPhoto {
 public:
  using FormVisuPhoto::FormVisuPhoto;
  bool Peinte = false;

 protected:
  void paintEvent(QPaintEvent* evenement) override {
    FormVisuPhoto::paintEvent(evenement);
    Peinte = true;
  }
};

struct Banc {
  explicit Banc(const QString& dossier) : Dossiers{dossier, dossier} {
    Textes.Remplit(Langue::kAnglais);
    Reglages.RepertoirePhoto = dossier + QStringLiteral("\\intrus");
  }
  Parametres Reglages;
  DossiersProgramme Dossiers;
  EtatApplication Etat;
  TablesTextes Textes;
  SansSauvegarde Sauvegarde;
  SansBoites Boites;
  SansOuvreur Bureau;
  LecteurNomsSysteme Noms;
  LecteurPhotosSysteme Lecteur{LitPhotoJpeg};
  EffaceurPhotosSysteme Effaceur;
  GaleriePhotos Galerie{
      PortsGalerie{Reglages, Dossiers, Etat, Sauvegarde, Textes, Noms, Lecteur, Effaceur, Boites, Bureau}};
  Fenetre Forme{Galerie, Reglages, Textes};
};

/// The longest time between two ticks of a timer of 30 ms since it was last asked.
class Cadence {
 public:
  Cadence() {
    Tic_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&Tic_, &QTimer::timeout, &Tic_, [this] { Note(); });
    Depuis_.start();
    Tic_.start(30);
  }
  void Recommence() {
    Depuis_.restart();
    QTest::qWait(300);
    Pire_ = 0;
  }
  void Dit(const char* quoi) {
    QTest::qWait(100);  // the tick that is late now comes too
    std::printf("%-28s longest gap of the tick %.1f ms\n", quoi, Pire_);
    Pire_ = 0;
  }

 private:
  void Note() {
    Pire_ = std::max(Pire_, static_cast<double>(Depuis_.nsecsElapsed()) / 1e6);
    Depuis_.restart();
  }
  QElapsedTimer Depuis_;
  QTimer Tic_;
  double Pire_ = 0;
};

/// Runs `travail` and then events until `fini`.
template <typename Travail, typename Condition>
Mesure JusquA(Travail travail, Condition fini) {
  return Chronometre([&] {
    travail();
    if (!QTest::qWaitFor(fini, 60000)) std::printf("it does not come\n");
  });
}

/// Until the window is painted with what it is asked for; its caption is the last that each step writes.
template <typename Travail>
Mesure JusquAuTitre(Banc& banc, Travail travail) {
  banc.Forme.setWindowTitle({});
  return JusquA(travail, [&] { return !banc.Forme.windowTitle().isEmpty(); });
}

void MesureOuverture(Banc& banc, Cadence& cadence) {
  cadence.Recommence();
  QTest::qWait(500);
  cadence.Dit("before");
  Dit("opening, first",
      {JusquA([&] { banc.Forme.OuvreGalerie(); }, [&] { return banc.Forme.isVisible() && banc.Forme.Peinte; })});
  cadence.Dit("opening, first");
  std::vector<Mesure> suivantes;
  suivantes.reserve(10);
  for (int i = 0; i < 10; ++i) suivantes.push_back(JusquAuTitre(banc, [&] { banc.Forme.OuvreGalerie(); }));
  Dit("opening, again", suivantes);
  cadence.Dit("opening, again");
  std::vector<Mesure> relues;
  relues.reserve(10);
  for (int i = 0; i < 10; ++i) relues.push_back(JusquAuTitre(banc, [&] { banc.Galerie.Rafraichit(); }));
  Dit("reading again", relues);
  cadence.Dit("reading again");
}

void MesureListe(Banc& banc) {
  auto* liste = banc.Forme.findChild<ListePhotos*>();
  std::vector<Mesure> pas;
  std::vector<Mesure> photos;
  pas.reserve(300);
  photos.reserve(100);
  const int fin = liste->verticalScrollBar()->maximum();
  for (int i = 0; i < 300; ++i) {
    pas.push_back(Chronometre([&] {
      liste->verticalScrollBar()->setValue(fin / 300 * i);
      liste->viewport()->repaint();
    }));
  }
  Dit("a step of scrolling", pas);
  for (int i = 0; i < 100; ++i) photos.push_back(JusquAuTitre(banc, [&] { QTest::keyClick(liste, Qt::Key_Down); }));
  Dit("a photo by the arrow key", photos);
}

void MesureSuppression(Banc& banc, Cadence& cadence) {
  cadence.Recommence();
  Dit("deletion of one", {JusquAuTitre(banc, [&] { banc.Galerie.SupprimePhoto(); })});
  cadence.Dit("deletion of one");
  Dit("deletion of all", {JusquAuTitre(banc, [&] { banc.Galerie.SupprimeTout(); })});
  cadence.Dit("deletion of all");
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const bool efface = argc == 3 && qstrcmp(argv[2], "--delete") == 0;
  if (argc != 2 && !efface) {
    std::fprintf(stderr, "usage: gallery_open FOLDER [--delete]\n");
    return 2;
  }
  vaktor::Banc banc(QString::fromLocal8Bit(argv[1]));
  vaktor::Cadence cadence;
  vaktor::MesureOuverture(banc, cadence);
  vaktor::MesureListe(banc);
  std::printf("%lld photos\n", static_cast<long long>(banc.Galerie.Entrees().size()));
  if (efface) vaktor::MesureSuppression(banc, cadence);
  return 0;
}
