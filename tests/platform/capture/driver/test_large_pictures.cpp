// SPDX-License-Identifier: GPL-3.0-or-later
// Cameras and films of more pixels than the detection can hold: shown, compared and reported in a size that it can.
#include <QCoreApplication>
#include <QElapsedTimer>

#include "engine/detection_zone.h"
#include "fakes/surveillance_bench.h"
#include "platform/capture/choice/fitted_size.h"
#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

struct GrandFilm {
  const char* Nom;
  QSize Avant;
  const char* Format;
  const char* Suite;
  QSize Apres;
};

void PrintTo(const GrandFilm& film, std::ostream* flux) { *flux << film.Nom; }

class GrandeImage : public PiloteSurSource {
 protected:
  // A few pictures a second: those of a film this large take a while to be made.
  bool Fabrique(const GrandFilm& film, const char* motif) {
    return JoueJusquAuBout(
        QStringLiteral("videotestsrc num-buffers=3 pattern=%1 ! video/x-raw,%2,width=%3,height=%4,framerate=5/1 ! %5 "
                       "! filesink location=\"%6\"")
            .arg(QLatin1String(motif), QLatin1String(film.Format))
            .arg(film.Avant.width())
            .arg(film.Avant.height())
            .arg(QLatin1String(film.Suite), Fichier("grand.film")));
  }
  bool SaisitUne() {
    for (int essai = 0; essai < 100; ++essai) {
      if (SaisitProchaine(*Pilote_)) return true;
    }
    return false;
  }
};

// Whoever codes and packs a film may forget its colour matrix: near enough to tell one bar from another.
void AttendCouleur(const QImage& image, double x, double y, QRgb attendue) {
  const QRgb vue = image.pixel(static_cast<int>(x * image.width()), static_cast<int>(y * image.height()));
  const int ecart = std::max({std::abs(qRed(vue) - qRed(attendue)), std::abs(qGreen(vue) - qGreen(attendue)),
                              std::abs(qBlue(vue) - qBlue(attendue))});
  EXPECT_LE(ecart, 40) << x << " " << y << ": " << std::hex << vue;
}

class FilmsGrands : public GrandeImage, public testing::WithParamInterface<GrandFilm> {};

TEST_P(FilmsGrands, ComeInASizeThatTheDetectionCanHold) {
  const GrandFilm& film = GetParam();
  ASSERT_TRUE(Fabrique(film, "smpte"));
  ASSERT_TRUE(Connecte(Fichier("grand.film")));
  ASSERT_TRUE(SaisitUne());
  const ImageCamera trame = Pilote_->CopieTrame();
  EXPECT_EQ(trame.Taille(), film.Apres);
  EXPECT_FALSE(EstTropGrande(trame.Taille()));
  const QImage& image = trame.Entiere();
  ASSERT_EQ(image.size(), film.Apres);
  // The first, the fourth and the last of the seven bars, and the blue one under the white.
  AttendCouleur(image, 1.0 / 14, 0.3, qRgb(255, 255, 255));
  AttendCouleur(image, 7.0 / 14, 0.3, qRgb(0, 255, 0));
  AttendCouleur(image, 13.0 / 14, 0.3, qRgb(0, 0, 255));
  AttendCouleur(image, 1.0 / 14, 0.7, qRgb(0, 0, 255));
  // What is told, and what the camera would be opened with again, is its own size.
  EXPECT_EQ(Pilote_->FormatCourant().Largeur, film.Avant.width());
  EXPECT_EQ(Pilote_->FormatCourant().Hauteur, film.Avant.height());
  EXPECT_EQ(TailleRetenue(Pilote_->FormatCourant()), film.Apres) << "as the dialogs tell";
  // And the next ones are held in the memory of the first.
  const Recolte recolte = Recueille(1200);
  EXPECT_EQ(recolte.Tailles.size(), 1U);
  EXPECT_LE(recolte.Memoires.size(), 5U);
}

constexpr const char* kMkv = "matroskamux";
constexpr const char* kMjpeg = "jpegenc ! avimux";
constexpr const char* kH264 = "openh264enc ! h264parse ! mp4mux";

INSTANTIATE_TEST_SUITE_P(
    Codings, FilmsGrands,
    testing::Values(GrandFilm{"H264At1440", {2560, 1440}, "format=I420", kH264, {1920, 1080}},
                    GrandFilm{"H264At2160", {3840, 2160}, "format=I420", kH264, {1920, 1080}},
                    GrandFilm{"H264WithoutAQuickRatio", {2880, 1620}, "format=I420", kH264, {2304, 1296}},
                    GrandFilm{"JpegAt1440", {2560, 1440}, "format=I420", kMjpeg, {1920, 1080}},
                    GrandFilm{"JpegAt2160", {3840, 2160}, "format=I420", kMjpeg, {1920, 1080}},
                    GrandFilm{"JpegOf422", {2880, 1620}, "format=Y42B", kMjpeg, {2304, 1296}},
                    GrandFilm{"OddSides", {2561, 1441}, "format=I420", kMkv, {2306, 1298}},
                    GrandFilm{"Upright", {1440, 2560}, "format=I420", kMkv, {1080, 1920}},
                    GrandFilm{"Packed", {2560, 1440}, "format=YUY2", kMkv, {1920, 1080}},
                    GrandFilm{"Pixels", {2560, 1440}, "format=BGRx", "avimux", {1920, 1080}}),
    [](const auto& essai) { return std::string(essai.param.Nom); });

TEST_F(GrandeImage, OneThatChangesItsSizeIsScaledOrNotAsItComes) {
  ASSERT_TRUE(FabriqueFilm(Fichier("p.mjpeg"), QStringLiteral("width=160,height=120,framerate=25/1"), 15,
                           QStringLiteral("jpegenc")));
  ASSERT_TRUE(FabriqueFilm(Fichier("g.mjpeg"), QStringLiteral("width=2560,height=1440,framerate=25/1"), 15,
                           QStringLiteral("jpegenc")));
  ASSERT_TRUE(Ecrit(Fichier("pg.mjpeg"), Lit(Fichier("p.mjpeg")) + Lit(Fichier("g.mjpeg"))));
  ASSERT_TRUE(Connecte(Fichier("pg.mjpeg")));
  EXPECT_EQ(Recueille(2600).Tailles, (std::set<std::pair<int, int>>{{160, 120}, {1920, 1080}}));
}

/// The engine on a real driver, its ticks made by hand when a frame is there.
struct MoteurSurPilote {
  explicit MoteurSurPilote(PiloteCapture& pilote)
      : Engin(PortsSurveillance{Reglages, Sauvegarde, pilote, Temps, Horloge, Pompe, Sons, Actions, Live, Affichage,
                                Sante}) {
    Reglages.SeuilAuto = false;
    Reglages.SeuilDetection = 100'000;
    Engin.Lance();
  }
  faux::Journal Journal;
  Parametres Reglages;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::SauvegardeFausse Sauvegarde{Journal, Reglages};
  faux::PompeFausse Pompe{Journal};
  faux::SonsFaux Sons{Journal};
  faux::ActionsFausses Actions{Journal};
  faux::LiaisonLiveFausse Live{Journal};
  faux::AffichageFaux Affichage{Journal};
  faux::SanteFausse Sante;
  Surveillance Engin;
};

TEST_F(GrandeImage, IsComparedAndItsMotionSeenInTheSizeThatItHasNow) {
  ASSERT_TRUE(FabriqueFilm(Fichier("balle.avi"), QStringLiteral("width=3840,height=2160,framerate=10/1"), 10,
                           QStringLiteral("jpegenc ! avimux")));
  Pilote_ = std::make_unique<PiloteGStreamer>(
      Fichier("balle.avi"), Memoire_, [] { return Langue::kAnglais; }, nullptr);
  MoteurSurPilote moteur(*Pilote_);
  moteur.Engin.BasculeCamera();
  ASSERT_TRUE(moteur.Engin.Camera().CameraActive);
  moteur.Engin.Souris().Appuie(5, 5);
  moteur.Engin.Souris().Relache(5, 5);
  qint32 vus = 0;
  QElapsedTimer depuis;
  depuis.start();
  while (moteur.Engin.Detection().Comparees < 8 && depuis.elapsed() < 20'000) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    if (!Pilote_->ImagePrete()) continue;
    moteur.Temps.Declenche(QStringLiteral("Timer1"));
    vus = std::max(vus, moteur.Engin.Detection().NbrPoints);
  }
  EXPECT_GE(moteur.Engin.Detection().Comparees, 8U);
  EXPECT_GT(vus, 30) << "the ball";
  EXPECT_EQ(moteur.Engin.Surface().Taille(), QSize(1920, 1080));
  EXPECT_EQ(moteur.Engin.Detection().Zone.Droite, 1920);
  EXPECT_EQ(moteur.Engin.Detection().Zone.Bas, 1080);
  EXPECT_FALSE(moteur.Sante.Dure(Condition::kDetectionArretee));
  moteur.Engin.DeconnectePilote();
}

}  // namespace
}  // namespace vaktor
