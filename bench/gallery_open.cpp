// The photo gallery over a folder with many photos: how long until the window stands painted, how long a timer of 30 ms
// has to wait meanwhile, how long each step of scrolling and each photo takes.
//
//   gallery_open FOLDER     a program folder with its photos in FOLDER/intrus
//
// The real form, files and decoder; nothing is saved and nothing deleted. Times are of the clock, and of the processor
// in brackets.
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
#include "platform/base/event_pump.h"
#include "platform/base/system_files.h"
#include "platform/image/jpeg_photo_reader.h"

namespace vaktor {
namespace {

class SansSauvegarde : public SauvegardeParametres {
 public:
  void SauveParametres() override {}
};
class SansBoites : public BoitesMessage {
 public:
  ReponseBoite MontreMessage(const QString&, const QString&, BoutonsBoite) override { return ReponseBoite::kNon; }
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

struct Banc {
  explicit Banc(const QString& dossier) : Dossiers{dossier, dossier} {
    Textes.Remplit(1);
    Reglages.RepertoirePhoto = dossier + QStringLiteral("\\intrus");
  }
  Parametres Reglages;
  DossiersProgramme Dossiers;
  EtatApplication Etat;
  TablesTextes Textes;
  SansSauvegarde Sauvegarde;
  SansBoites Boites;
  SansOuvreur Bureau;
  FichiersSysteme Disque;
  LecteurPhotosFichier Lecteur;
  PompeEvenementsQt Pompe;
  GaleriePhotos Galerie{
      PortsGalerie{Reglages, Dossiers, Etat, Sauvegarde, Textes, Disque, Lecteur, Boites, Pompe, Bureau}};
  FormVisuPhoto Forme{Galerie, Reglages, Textes, Dossiers};
};

void MesureTout(Banc& banc) {
  // The timer stands for the surveillance's tick.
  QElapsedTimer depuis;
  double attente = 0;
  QTimer tic;
  tic.setTimerType(Qt::PreciseTimer);
  QObject::connect(&tic, &QTimer::timeout, &tic, [&] {
    attente = std::max(attente, static_cast<double>(depuis.nsecsElapsed()) / 1e6);
    depuis.restart();
  });
  tic.start(30);
  depuis.start();
  QTest::qWait(500);
  std::printf("tick before: longest gap %.1f ms\n", attente);
  attente = 0;
  Dit("opening, first", {Chronometre([&] {
        banc.Forme.OuvreGalerie();
        if (!QTest::qWaitForWindowExposed(&banc.Forme)) std::printf("the window does not come\n");
        banc.Forme.grab();
      })});
  QTest::qWait(500);
  std::printf("tick while it opens: longest gap %.1f ms\n", attente);
  Dit("opening, again", {Chronometre([&] { banc.Forme.OuvreGalerie(); })});
  auto* liste = banc.Forme.findChild<ListePhotos*>();
  std::vector<Mesure> pas;
  std::vector<Mesure> photos;
  const int fin = liste->verticalScrollBar()->maximum();
  for (int i = 0; i < 300; ++i) {
    pas.push_back(Chronometre([&] {
      liste->verticalScrollBar()->setValue(fin / 300 * i);
      liste->viewport()->repaint();
    }));
  }
  Dit("a step of scrolling", pas);
  for (int i = 0; i < 100; ++i) photos.push_back(Chronometre([&] { QTest::keyClick(liste, Qt::Key_Down); }));
  Dit("a photo by the arrow key", photos);
  std::printf("%lld photos\n", static_cast<long long>(banc.Galerie.Entrees().size()));
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "usage: gallery_open FOLDER\n");
    return 2;
  }
  vaktor::Banc banc(QString::fromLocal8Bit(argv[1]));
  vaktor::MesureTout(banc);
  return 0;
}
