// SPDX-License-Identifier: GPL-3.0-or-later
#include <QProcess>
#include <cstring>

#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

using PiloteFichier = PiloteSurSource;

const QString kPetit = QStringLiteral("width=160,height=120,framerate=25/1");
const QString kMjpegAvi = QStringLiteral("jpegenc ! avimux");

TEST_F(PiloteFichier, PlaysInALoopAtItsOwnRateAndWithoutNewBuffers) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.avi"), kPetit, 25, kMjpegAvi));
  ASSERT_TRUE(Connecte(Fichier("a.avi")));
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kFichier);
  const Recolte recolte = Recueille(3500);
  // Three turns and a half. No more frames than the rate gives, and none missing where the film begins anew.
  EXPECT_LE(recolte.Images, 25 * 3.5 + 5);
  EXPECT_GE(recolte.Images, 25 * 3);
  EXPECT_LE(recolte.Memoires.size(), 5U);
  EXPECT_EQ(Pilote_->FormatCourant().Largeur, 160);
  EXPECT_DOUBLE_EQ(Pilote_->FormatCourant().ImagesParSeconde(), 25.0);
}

TEST_F(PiloteFichier, LoopsOverFormatsThatKnowNoSegments) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.flv"), kPetit, 20, QStringLiteral("avenc_flv ! flvmux")) ||
              FabriqueFilm(Fichier("a.flv"), kPetit, 20, QStringLiteral("theoraenc ! oggmux")));
  ASSERT_TRUE(Connecte(Fichier("a.flv")));
  EXPECT_GE(Recueille(3000).Images, 40);
  EXPECT_FALSE(Pilote_->SignalPerdu());
}

// No time stamps, no borders: 25 a second.
TEST_F(PiloteFichier, PlaysBareJpegPicturesOneAfterTheOther) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.mjpeg"), kPetit, 60, QStringLiteral("jpegenc")));
  ASSERT_TRUE(Connecte(Fichier("a.mjpeg")));
  const Recolte recolte = Recueille(2000);
  EXPECT_GE(recolte.Images, 30);
  EXPECT_LE(recolte.Images, 60);
}

// Those that are decoded without a parser, and those in the same containers that need one or another decoder.
TEST_F(PiloteFichier, LoopsOverTheUsualCodingsInTheUsualContainers) {
  for (const char* suite :
       {"avenc_msmpeg4 ! avimux", "openh264enc ! h264parse ! mp4mux", "vp8enc deadline=1 ! webmmux",
        "openh264enc ! h264parse ! matroskamux", "avenc_mpeg4 ! avimux", "theoraenc ! matroskamux"}) {
    ASSERT_TRUE(FabriqueFilm(Fichier("c.film"), QStringLiteral("format=I420,") + kPetit, 20, QLatin1String(suite)))
        << suite;
    ASSERT_TRUE(Connecte(Fichier("c.film"))) << suite;
    const Recolte recolte = Recueille(1700);
    EXPECT_GE(recolte.Images, 30) << suite;
    EXPECT_LE(recolte.Images, 25 * 1.7 + 5) << suite << ": at its own rate";
  }
}

struct FilmRare {
  const char* Nom;
  QStringList Codage;  ///< of ffmpeg, whose encoder knows more formats than those of GStreamer
  const char* Fichier;
};

class FilmsRares : public PiloteFichier, public testing::WithParamInterface<FilmRare> {};

// Of these the first is known to our own decoder and has to be converted, the others it gives up to GStreamer's.
TEST_P(FilmsRares, AnUncommonPixelFormatIsShownByWhoeverCan) {
  const QString film = Fichier(GetParam().Fichier);
  QStringList arguments{"-v", "error", "-nostdin", "-f", "lavfi", "-i", "color=red:size=160x120:rate=25:duration=2"};
  arguments << GetParam().Codage << film;
  ASSERT_EQ(QProcess::execute(QStringLiteral("ffmpeg"), arguments), 0);
  ASSERT_TRUE(Connecte(film));
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  const QColor couleur = Pilote_->CopieTrame().Entiere().pixelColor(80, 60);
  EXPECT_GT(couleur.red(), 240);
  EXPECT_LT(couleur.green() + couleur.blue(), 30);
  EXPECT_GE(Recueille(2500).Images, 40) << "in a loop";
}

INSTANTIATE_TEST_SUITE_P(
    Formats, FilmsRares,
    testing::Values(FilmRare{"TenBitsHalvedInWidth", {"-c:v", "libx264", "-pix_fmt", "yuv422p10le"}, "a.mp4"},
                    FilmRare{"RedGreenBlue", {"-c:v", "libx264rgb", "-pix_fmt", "rgb24"}, "b.mp4"},
                    FilmRare{"TwelveBits", {"-c:v", "libvpx-vp9", "-pix_fmt", "yuv422p12le"}, "c.mkv"},
                    FilmRare{"RawTenBits", {"-c:v", "v210"}, "d.avi"}),
    [](const auto& cas) { return std::string(cas.param.Nom); });

// Whether its container can be opened hangs on what else is installed: it plays, or the reason is told.
TEST_F(PiloteFichier, AWindowsMediaFilmPlaysOrIsRefusedInWords) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.wmv"), QStringLiteral("format=I420,") + kPetit, 50,
                           QStringLiteral("avenc_wmv2 ! asfmux")));
  if (Connecte(Fichier("a.wmv"))) {
    EXPECT_GE(Recueille(1500).Images, 20);
    return;
  }
  EXPECT_TRUE(EstSansDecodeur());
  EXPECT_EQ(Pilote_->Explication(), "Nothing installed here can read this kind of film.");
  ASSERT_TRUE(Pilote_->ChangeSource(QStringLiteral("test")));
  EXPECT_EQ(Pilote_->Explication(), "");
  EXPECT_FALSE(Pilote_->ChangeSource(Fichier("a.wmv")));
  EXPECT_TRUE(EstSansDecodeur()) << "also while the earlier source goes on";
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
}

// The decoder still holds all its pictures back when it is told that the first turn is over.
TEST_F(PiloteFichier, PlaysAFilmOfOneOrTwoPictures) {
  for (const int images : {1, 2}) {
    for (const char* suite : {"avenc_mpeg4 ! avimux", "openh264enc ! h264parse ! mp4mux", "jpegenc ! avimux"}) {
      ASSERT_TRUE(
          FabriqueFilm(Fichier("u.film"), QStringLiteral("format=I420,") + kPetit, images, QLatin1String(suite)))
          << suite;
      ASSERT_TRUE(Connecte(Fichier("u.film"))) << suite << ", " << images;
      EXPECT_GE(Recueille(1000).Images, 3) << suite << ", " << images;
      EXPECT_FALSE(Pilote_->SignalPerdu()) << suite << ", " << images;
    }
  }
}

TEST_F(PiloteFichier, GivesThePicturesThatAreInTheFile) {
  ASSERT_TRUE(JoueJusquAuBout(
      QStringLiteral(
          "videotestsrc num-buffers=10 pattern=red ! video/x-raw,format=I420,%1 ! avimux ! filesink location=%2")
          .arg(kPetit, Fichier("rouge.avi"))));
  ASSERT_TRUE(Connecte(Fichier("rouge.avi")));
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  const QImage image = Pilote_->CopieTrame().Entiere();
  EXPECT_EQ(image.format(), QImage::Format_RGB32);
  const QColor couleur = image.pixelColor(80, 60);
  EXPECT_GT(couleur.red(), 245);
  EXPECT_LT(couleur.green() + couleur.blue(), 20);
}

TEST_F(PiloteFichier, ShowsOddSizesAndASinglePixel) {
  for (const char* taille : {"width=161,height=119", "width=1,height=1", "width=3,height=2"}) {
    const QString caps = QStringLiteral("format=I420,framerate=25/1,") + QLatin1String(taille);
    ASSERT_TRUE(FabriqueFilm(Fichier("t.mkv"), caps, 20, QStringLiteral("matroskamux"))) << taille;
    ASSERT_TRUE(Connecte(Fichier("t.mkv"))) << taille;
    ASSERT_TRUE(SaisitProchaine(*Pilote_)) << taille;
    const QImage image = Pilote_->CopieTrame().Entiere();
    EXPECT_EQ(QStringLiteral("width=%1,height=%2").arg(image.width()).arg(image.height()), QLatin1String(taille));
  }
}

// A view may hold a frame for hours, and ask for its pixels only then.
TEST_F(PiloteFichier, AFrameOutlivesTheCameraThatGaveIt) {
  for (const char* suite : {"avenc_mpeg4 ! avimux", "avenc_msmpeg4 ! avimux", "jpegenc ! avimux", "matroskamux"}) {
    ASSERT_TRUE(FabriqueFilm(Fichier("v.film"), QStringLiteral("format=I420,") + kPetit, 50, QLatin1String(suite)));
    ASSERT_TRUE(Connecte(Fichier("v.film"))) << suite;
    ASSERT_TRUE(SaisitProchaine(*Pilote_)) << suite;
    const ImageCamera trame = Pilote_->CopieTrame();
    TrameBrute vue = trame.Echantillons({});
    const QByteArray avant(reinterpret_cast<const char*>(vue.Bits), 40);
    for (int i = 0; i < 10; ++i) SaisitProchaine(*Pilote_);
    Pilote_.reset();
    EXPECT_EQ(trame.Taille(), QSize(160, 120)) << suite;
    trame.Echantillons({.X = 1, .Y = 1});  // others, which have to be made now
    vue = trame.Echantillons({});
    EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(vue.Bits), 40), avant) << suite;
    const QImage& entiere = trame.Entiere();
    ASSERT_EQ(entiere.size(), trame.Taille()) << suite;
    for (int i = 0; i < 10; ++i) {
      EXPECT_EQ(std::memcmp(entiere.constBits() + qsizetype{12} * i, avant.constData() + qsizetype{4} * i, 4), 0)
          << suite << ", sample " << i;
    }
  }
}

TEST_F(PiloteFichier, FollowsAChangeOfSizeInMidStream) {
  ASSERT_TRUE(FabriqueFilm(Fichier("p.mjpeg"), kPetit, 25, QStringLiteral("jpegenc")));
  ASSERT_TRUE(FabriqueFilm(Fichier("g.mjpeg"), QStringLiteral("width=201,height=99,framerate=25/1"), 25,
                           QStringLiteral("jpegenc")));
  ASSERT_TRUE(Ecrit(Fichier("pg.mjpeg"), Lit(Fichier("p.mjpeg")) + Lit(Fichier("g.mjpeg"))));
  ASSERT_TRUE(Connecte(Fichier("pg.mjpeg")));
  const Recolte recolte = Recueille(2600);
  EXPECT_EQ(recolte.Tailles, (std::set<std::pair<int, int>>{{160, 120}, {201, 99}}));
}

TEST_F(PiloteFichier, RefusesWhatIsNoFilm) {
  QByteArray fouillis(50'000, '\0');
  for (qsizetype i = 0; i < fouillis.size(); ++i) fouillis[i] = static_cast<char>((i * i * 31 + i) >> 3);
  ASSERT_TRUE(Ecrit(Fichier("fouillis.avi"), fouillis));
  ASSERT_TRUE(Ecrit(Fichier("vide.avi"), {}));
  ASSERT_TRUE(Ecrit(Fichier("texte.txt"), "This is a text and no film.\n"));
  for (const char* nom : {"fouillis.avi", "vide.avi", "texte.txt", "absent.avi"}) {
    EXPECT_FALSE(Connecte(Fichier(nom))) << nom;
    EXPECT_FALSE(SaisitProchaine(*Pilote_)) << nom;
    EXPECT_TRUE(Pilote_->SignalPerdu()) << nom << ": nothing is open";
  }
}

TEST_F(PiloteFichier, PlaysWhatIsLeftOfATruncatedFilm) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.avi"), kPetit, 75, kMjpegAvi));
  const QByteArray entier = Lit(Fichier("a.avi"));
  ASSERT_TRUE(Ecrit(Fichier("coupe.avi"), entier.left(entier.size() / 2)));
  ASSERT_TRUE(Connecte(Fichier("coupe.avi")));
  EXPECT_GE(Recueille(4000).Images, 30);
}

TEST_F(PiloteFichier, DropsTheDamagedPicturesOfAFilmAndGoesOn) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.avi"), kPetit, 50, kMjpegAvi));
  QByteArray abime = Lit(Fichier("a.avi"));
  for (qsizetype i = abime.size() / 3; i < abime.size() / 3 + 600; ++i) abime[i] = static_cast<char>(i * 7);
  ASSERT_TRUE(Ecrit(Fichier("b.avi"), abime));
  ASSERT_TRUE(Connecte(Fichier("b.avi")));
  const Recolte recolte = Recueille(3000);
  EXPECT_GE(recolte.Images, 40);
  EXPECT_EQ(recolte.Tailles.size(), 1U);
}

TEST_F(PiloteFichier, ClosesEverythingEachTime) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.avi"), kPetit, 25, kMjpegAvi));
  ASSERT_TRUE(Connecte(Fichier("a.avi")));
  EXPECT_FALSE(Pilote_->SignalPerdu());
  Pilote_->Deconnecte();
  EXPECT_FALSE(SaisitProchaine(*Pilote_));
  EXPECT_TRUE(Pilote_->SignalPerdu()) << "whoever takes the camera for a running one hears that nothing comes";
  const int descripteurs = Compte("/proc/self/fd");
  const int fils = Compte("/proc/self/task");
  for (int i = 0; i < 20; ++i) {
    ASSERT_TRUE(Pilote_->Connecte());
    ASSERT_TRUE(SaisitProchaine(*Pilote_));
    Pilote_->Deconnecte();
  }
  EXPECT_LE(Compte("/proc/self/fd"), descripteurs);
  EXPECT_LE(Compte("/proc/self/task"), fils + 1);  // GLib's pool may keep one for a while
}

TEST_F(PiloteFichier, KeepsTheOldSourceWhenTheNewOneFails) {
  ASSERT_TRUE(Connecte(QStringLiteral("test")));
  EXPECT_FALSE(Pilote_->ChangeSource(Fichier("absent.avi")));
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kTest);
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_FALSE(Pilote_->AppliqueFormat({}));
  ASSERT_TRUE(FabriqueFilm(Fichier("a.avi"), kPetit, 25, kMjpegAvi));
  EXPECT_TRUE(Pilote_->ChangeSource(Fichier("a.avi")));
  EXPECT_EQ(Pilote_->DescriptionSource(), Fichier("a.avi"));
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_EQ(Pilote_->CopieTrame().Entiere().width(), 160);
}

TEST_F(PiloteFichier, OpensTheRememberedSourceWhenNoneIsNamed) {
  Memoire_.RetientSource(QStringLiteral("test"));
  ASSERT_TRUE(Connecte({}));
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kTest);
  EXPECT_EQ(Pilote_->FormatCourant().Largeur, 640);
}

TEST_F(PiloteFichier, GivesTheTestPictureAtThirtyFramesASecond) {
  ASSERT_TRUE(Connecte(QStringLiteral("test")));
  EXPECT_TRUE(Pilote_->CopieTrame().Entiere().isNull());
  const Recolte recolte = Recueille(2000);
  EXPECT_GE(recolte.Images, 50);
  EXPECT_LE(recolte.Images, 65);
  EXPECT_LE(recolte.Memoires.size(), 5U);
}

}  // namespace
}  // namespace vaktor
