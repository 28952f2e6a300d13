// SPDX-License-Identifier: GPL-3.0-or-later
// Connects to a source, counts its frames and tells once a second what came: for tests against real cameras.
//   capture_probe WHERE [SECONDS] [FILE.png]
// Prints "connected WIDTHxHEIGHT CODING RATE" or "not connected" (status 2), then a line "second N frames F size WxH
// lost 0|1 fd D threads T" for each second, a line when the signal is lost or back, and "total F". With a file, the
// last frame is kept in it.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

#include "platform/capture/choice/capture_memory.h"
#include "platform/capture/driver/gst_driver.h"
#include "platform/capture/streams/gst_setup.h"
#include "support/next_frame.h"
#include "texts/language.h"

namespace {

int Compte(const char* dossier) {
  return static_cast<int>(
      QDir(QLatin1String(dossier)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
}

struct Seconde {
  int Numero = 0;
  int Images = 0;
};

void Raconte(const Seconde& seconde, const vaktor::PiloteGStreamer& pilote) {
  const QSize taille = pilote.CopieTrame().Entiere().size();
  std::printf("second %d frames %d size %dx%d lost %d fd %d threads %d\n", seconde.Numero, seconde.Images,
              taille.width(), taille.height(), pilote.SignalPerdu() ? 1 : 0, Compte("/proc/self/fd"),
              Compte("/proc/self/task"));
  std::fflush(stdout);
}

int Regarde(vaktor::PiloteGStreamer& pilote, int duree) {
  QElapsedTimer depuis;
  depuis.start();
  int total = 0;
  bool perdu = false;
  for (Seconde seconde; seconde.Numero < duree;) {
    if (SaisitProchaine(pilote)) {
      ++seconde.Images;
      ++total;
    }
    if (pilote.SignalPerdu() != perdu) {
      perdu = !perdu;
      std::printf("signal %s at %.1f s\n", perdu ? "lost" : "back", static_cast<double>(depuis.elapsed()) / 1000.0);
    }
    if (depuis.elapsed() < (seconde.Numero + 1) * 1000LL) continue;
    ++seconde.Numero;
    Raconte(seconde, pilote);
    seconde.Images = 0;
  }
  return total;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: capture_probe WHERE [SECONDS] [FILE.png]\n");
    return 1;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  const QTemporaryDir dossier;
  vaktor::PrepareGStreamer();
  vaktor::MemoireCapture memoire(dossier.filePath(QStringLiteral("capture.ini")));
  const QString ou = arguments[1] == QLatin1String("first") ? QString() : arguments[1];
  vaktor::PiloteGStreamer pilote(
      ou, memoire, [] { return vaktor::Langue::kAnglais; }, nullptr);
  QElapsedTimer attente;
  attente.start();
  if (!pilote.Connecte()) {
    std::printf("not connected after %lld ms\n", static_cast<long long>(attente.elapsed()));
    return 2;
  }
  const vaktor::FormatCamera format = pilote.FormatCourant();
  std::printf("connected %dx%d %s %.2f in %lld ms: %s\n", format.Largeur, format.Hauteur, qUtf8Printable(format.Codage),
              format.ImagesParSeconde(), static_cast<long long>(attente.elapsed()),
              qUtf8Printable(pilote.DescriptionSource()));
  const int total = Regarde(pilote, arguments.size() > 2 ? arguments[2].toInt() : 5);
  std::printf("total %d\n", total);
  if (arguments.size() > 3) pilote.CopieTrame().Entiere().save(arguments[3]);
  return 0;
}
