// SPDX-License-Identifier: GPL-3.0-or-later
// The timeline over 50,000 photos in 300 intrusions: how long until the window stands painted, how much memory it
// takes, how long each step of scrolling takes, how long a timer of 30 ms has to wait meanwhile.
//
//   timeline_open PHOTO        a JPEG file on the disk of the temporary folder, which gets 50,000 names there for a
//   while
//
// The real window, files and decoder. The timer of 30 ms stands for the surveillance's tick.
#include <unistd.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

#include "journal/forms/form_timeline.h"
#include "platform/folders/photo_file_reader.h"
#include "platform/image/jpeg_photo_reader.h"
#include "platform/journal/chronicle_file_reader.h"
#include "platform/journal/film_file_writer.h"
#include "platform/journal/thumbnail_file_reader.h"

namespace vaktor {
namespace {

constexpr int kIntrusions = 300;
constexpr int kPhotos = 50'000;
const QDate kJour(2026, 11, 22);

class SansBoites : public BoitesMessage {
 public:
  ReponseBoite MontreMessage(const QString&, const QString&, BoutonsBoite) override { return ReponseBoite::kOui; }
};
class SansDialogue : public DialogueSauvegarde {
 public:
  QString ChoisitDestination(const QString&, const QStringList&) override { return {}; }
};

/// 300 intrusions of one day, each with six photos a second. False when the folder does not take them.
bool RemplitDossier(const QString& dossier, const QString& photo) {
  QFile journal(dossier + QStringLiteral("/journal.jsonl"));
  if (!journal.open(QIODevice::WriteOnly)) return false;
  for (int i = 0, numero = 1; i < kIntrusions; ++i) {
    const QDateTime debut = QDateTime(kJour, QTime(0, 1)).addSecs(qint64{i} * 280);
    EntreeJournal fin{.Quoi = Fait::kFinIntrusion, .Quand = debut.addSecs(40)};
    fin.Course = QStringLiteral("r");
    fin.Depuis = debut;
    fin.Dossier = dossier;
    fin.Points = 50 + i;
    fin.Cadre = QRect(100, 80, 120, 200);
    const int fotos = kPhotos / kIntrusions + (i < kPhotos % kIntrusions ? 1 : 0);
    for (int k = 0; k < fotos; ++k, ++numero) {
      const QString nom = QStringLiteral("2026-11-22  %1 Photo %2.jpg")
                              .arg(debut.addSecs(k / 6).time().toString(QStringLiteral("hh-mm-ss")))
                              .arg(numero, 5, 10, QLatin1Char('0'));
      if (::link(QFile::encodeName(photo).constData(), QFile::encodeName(dossier + u'/' + nom).constData()) != 0)
        return false;
      if (k == 0) fin.Premiere = nom;
      if (k == fotos / 2) fin.Meilleure = nom;
      fin.Derniere = nom;
      fin.DureeMs = qint64{k} / 6 * 1000;
      fin.Cadres.append({numero, QRect(k, 80, 120, 200)});
    }
    fin.Photos = fotos;
    journal.write(EcritLigne(fin) + '\n');
  }
  return journal.flush();
}

double MemoireMo() {
  QFile etat(QStringLiteral("/proc/self/status"));
  if (!etat.open(QIODevice::ReadOnly)) return 0;
  for (const QByteArray& ligne : etat.readAll().split('\n'))
    if (ligne.startsWith("VmRSS:")) return ligne.mid(6).simplified().split(' ').first().toDouble() / 1024;
  return 0;
}

/// Of this thread, milliseconds: what else the machine does is not in it.
double ProcesseurMs() {
  timespec temps = {};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &temps);
  return static_cast<double>(temps.tv_sec) * 1e3 + static_cast<double>(temps.tv_nsec) / 1e6;
}

/// Below it lies that part of the values.
double Quantile(std::vector<double> valeurs, double part) {
  const auto rang = static_cast<std::size_t>(part * static_cast<double>(valeurs.size() - 1));
  std::nth_element(valeurs.begin(), valeurs.begin() + static_cast<std::ptrdiff_t>(rang), valeurs.end());
  return valeurs.at(rang);
}

int Mesure(const QString& photo) {
  const QTemporaryDir dossier;
  if (!RemplitDossier(dossier.path(), photo)) {
    std::perror("the photos");
    return 1;
  }
  Parametres reglages;
  reglages.LangueCourante = 1;
  reglages.RepertoirePhoto = dossier.path();
  LecteurChroniqueSysteme chroniques(dossier.filePath(QStringLiteral("journal.jsonl")));
  LecteurVignettesSysteme vignettes(LitVignetteJpeg);
  LecteurPhotosSysteme photos(LitPhotoJpeg);
  EcrivainFilmSysteme films;
  SansBoites boites;
  SansDialogue dialogue;
  QTimer tic;
  QElapsedTimer depuis;
  qint64 attente = 0;
  tic.setTimerType(Qt::PreciseTimer);
  QObject::connect(&tic, &QTimer::timeout, &tic, [&] { attente = std::max(attente, depuis.restart()); });
  depuis.start();
  tic.start(30);
  QTest::qWait(500);
  attente = 0;
  const double avant = MemoireMo();
  QElapsedTimer temps;
  temps.start();
  const double processeurAvant = ProcesseurMs();
  FrmFrise fenetre({chroniques, vignettes, photos, films, dialogue, boites, reglages, QStringLiteral("r"),
                    [](const QString&, const QStringList&, const QString&, const std::function<void()>&) {},
                    [] { return 0; }, [] { return kJour; }});
  fenetre.Ouvre();
  auto* cartes = fenetre.findChild<ListeCartes*>();
  const bool la = QTest::qWaitFor([&] { return cartes->Modele().rowCount() == kIntrusions; }, 60'000);
  fenetre.repaint();
  std::printf("painted with %d cards after        %7.1f ms, of it processor of the window's thread %.1f ms\n",
              la ? cartes->Modele().rowCount() : 0, static_cast<double>(temps.nsecsElapsed()) / 1e6,
              ProcesseurMs() - processeurAvant);
  QTest::qWait(1500);
  std::printf("longest wait of the timer of 30 ms %7lld ms\n", static_cast<long long>(std::exchange(attente, 0)));
  std::vector<double> pas, processeur;
  QScrollBar* barre = cartes->verticalScrollBar();
  for (int valeur = 0; valeur <= barre->maximum(); valeur += 96) {
    QElapsedTimer un;
    un.start();
    const double debut = ProcesseurMs();
    barre->setValue(valeur);
    cartes->viewport()->repaint();
    pas.push_back(static_cast<double>(un.nsecsElapsed()) / 1e6);
    processeur.push_back(ProcesseurMs() - debut);
    QTest::qWait(2);
  }
  std::printf("a step of scrolling, median        %7.2f ms, 99 of 100 within %.2f ms, worst %.2f ms of %zu\n",
              Quantile(pas, 0.5), Quantile(pas, 0.99), Quantile(pas, 1), pas.size());
  std::printf("  of it processor, median          %7.2f ms, 99 of 100 within %.2f ms, worst %.2f ms\n",
              Quantile(processeur, 0.5), Quantile(processeur, 0.99), Quantile(processeur, 1));
  std::printf("longest wait meanwhile             %7lld ms\n", static_cast<long long>(attente));
  QTest::qWait(2000);
  std::printf("memory more than before            %7.1f MB\n", MemoireMo() - avant);
  return la ? 0 : 1;
}

}  // namespace
}  // namespace vaktor

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  return argc == 2 ? vaktor::Mesure(QString::fromLocal8Bit(argv[1])) : 2;
}
