// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/launch.h"

#include <malloc.h>

#include <QGuiApplication>
#include <QLocale>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>

#include "app/application.h"
#include "app/camera.h"
#include "app/guarded_application.h"
#include "app/real_system.h"
#include "app/way_out.h"
#include "base/failure.h"
#include "platform/base/core_file.h"
#include "platform/base/end_signals.h"
#include "platform/base/program_folders.h"
#include "platform/capture/choice/named_source.h"
#include "platform/widgets/fixed_windows.h"
#include "texts/phrase.h"
#include "ui/common/appearance.h"
#include "ui/common/heard_roles.h"
#include "ui/face/art_images.h"

namespace vaktor {

namespace {

constexpr const char* kVersion = VAKTOR_VERSION;

// The windows are painted by the processor; the driver for OpenGL would only cost memory.
void PrepareEnvironnement() {
  if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION")) qputenv("QT_XCB_GL_INTEGRATION", "none");
  // The camera's threads allocate little and seldom at the same time: one heap does, and each further one would keep
  // memory of its own. Frames and decoders' pictures go back to the system when they are freed.
  mallopt(M_ARENA_MAX, 1);
  mallopt(M_MMAP_THRESHOLD, 128 * 1024);
  mallopt(M_TRIM_THRESHOLD, 128 * 1024);
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

void PrepareApparence() {
  HabilleApplication();
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(ChargeIcone());
  QGuiApplication::setDesktopFileName(QStringLiteral("org.vaktor.Vaktor"));  // its name, and on Wayland its icon
}

QStringList ListeArguments(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));
  return arguments;
}

// Before the settings are read, the session says which language its user speaks.
Langue LangueSession() {
  return QLocale::system().language() == QLocale::French ? Langue::kFrancais : Langue::kAnglais;
}

void DitArgumentsInconnus(const QStringList& arguments) {
  for (const QString& inconnu : TrouveInconnus(arguments)) {
    std::fprintf(stderr, "Vaktor: the argument \"%s\" is not known and does nothing; --help lists those there are\n",
                 qUtf8Printable(inconnu));
  }
}

// As the toolkit understands them: with one dash or two, and a word behind.
bool NommeEcran(const QStringList& arguments) {
  for (const char* nom : {"-platform", "--platform", "-display", "--display"})
    if (arguments.mid(0, arguments.size() - 1).contains(QLatin1StringView(nom))) return true;
  return false;
}

// The toolkit ends in an abort where it finds no screen. What the user, or the session, names is left to it to try.
bool SansEcran(const QStringList& arguments) {
  for (const char* nom : {"DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(nom)) return false;
  return qgetenv("XDG_SESSION_TYPE") != "wayland" && !NommeEcran(arguments);
}

int DitSansEcran() {
  const Phrase mots{
      "Vaktor : il n'y a pas d'écran ici. Lancez-le depuis le bureau, ou nommez son écran dans DISPLAY.\n",
      "Vaktor: there is no screen here. Start it from the desktop, or name its screen in DISPLAY.\n"};
  std::fputs(qUtf8Printable(mots.Dit(LangueSession())), stderr);
  return kStatutEchec;
}

int Execute(ApplicationGardee& application, const ArgumentsDepart& arguments) {
  SystemeReel systeme(arguments);
  Vaktor vaktor(systeme.Ports(), arguments.LigneCommande);
  application.SurEchec([&vaktor](const QString& description) { vaktor.AnnonceEchec(description); });
  const SignauxFin signaux([&vaktor] { vaktor.Ferme(); });
  try {
    vaktor.Demarre(QLatin1String(kVersion));
  } catch (const std::exception& erreur) {
    const auto* echec = dynamic_cast<const Echec*>(&erreur);
    vaktor.AnnonceDemarrageImpossible(echec != nullptr ? echec->Description() : QString::fromLocal8Bit(erreur.what()));
    PrepareSortie();
    return kStatutEchec;
  }
  const int statut = vaktor.EstFinie() ? vaktor.Statut() : QApplication::exec();
  PrepareSortie();
  return statut;
}

}  // namespace

// These bytes are what the system shows: what is written there is seen there.
void CacheMotsDePasse(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const QString camera = LitArgumentsDepart({QString::fromLocal8Bit(argv[i])}).Camera;
    if (camera.contains(u'@') || MasqueAdresse(camera) != camera)
      std::fill(std::strchr(argv[i], ':') + 1, argv[i] + std::strlen(argv[i]), '*');
  }
}

int LanceVaktor(int argc, char** argv) {
  const QStringList liste = ListeArguments(argc, argv);
  const ArgumentsDepart arguments = LitArgumentsDepart(liste);
  CacheMotsDePasse(argc, argv);
  if (arguments.Aide || arguments.Version) {
    // Answered without a screen.
    std::fputs(arguments.Aide
                   ? qUtf8Printable(TexteAide(LangueSession()))
                   : (QStringLiteral("Vaktor ") + QLatin1String(kVersion) + QLatin1Char('\n')).toUtf8().constData(),
               stdout);
    return 0;
  }
  if (arguments.Cameras) return DitCameras(arguments.Camera, TrouveDossierReglages(arguments.Dossier));
  if (SansEcran(liste)) {
    DitArgumentsInconnus(liste);
    return DitSansEcran();
  }
  InterditImageMemoire();
  PrepareEnvironnement();
  QCoreApplication::setApplicationName(QStringLiteral("Vaktor"));
  QCoreApplication::setApplicationVersion(QLatin1String(kVersion));
  ApplicationGardee application(argc, argv);
  PrepareApparence();
  // Elsewhere the desktop draws the frames, and its buttons know which windows may grow.
  std::optional<FenetresFixes> fixes;
  if (QGuiApplication::platformName().startsWith(QStringLiteral("wayland"))) fixes.emplace();
  InstalleRoles();
  // Those that the toolkit takes for itself are gone from the list by then.
  DitArgumentsInconnus(QCoreApplication::arguments().mid(1));
  try {
    return Execute(application, arguments);
  } catch (const std::exception& erreur) {
    std::fprintf(stderr, "Vaktor: %s\n", erreur.what());
  }
  return kStatutEchec;
}

}  // namespace vaktor
