// SPDX-License-Identifier: GPL-3.0-or-later
// Every coding, depth, sharing of colours, matrix and range that cameras and films come in: one clip a row, made by
// ffmpeg, and its four colours are those that it was made of.
#include <QProcess>
#include <QtEndian>
#include <array>
#include <cmath>
#include <cstring>

#include "platform/capture/choice/fitted_size.h"
#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

constexpr int kCote = 96;

struct Ligne {
  std::string Nom;
  QString Format;      ///< ffmpeg's pixel format
  QStringList Codage;  ///< its encoder
  const char* Film = "f.mkv";
  QString Matrice = QStringLiteral("bt709");
  bool Pleine = false;
  bool Grise = false;
};

void PrintTo(const Ligne& ligne, std::ostream* flux) { *flux << ligne.Nom; }

QStringList CodageDe(const QString& nom) {
  if (nom == QLatin1String("h264")) return {"-c:v", "libx264", "-preset", "ultrafast", "-qp", "8"};
  if (nom == QLatin1String("h265"))
    return {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=none:qp=8"};
  if (nom == QLatin1String("vp9"))
    return {"-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-crf", "4"};
  if (nom == QLatin1String("av1"))
    return {"-c:v", "libaom-av1", "-usage", "realtime", "-cpu-used", "8", "-crf", "4", "-frames:v", "2"};
  return {"-c:v", nom, "-q:v", "2"};
}

QList<Ligne> Profondeurs() {
  QList<Ligne> lignes;
  const auto ajoute = [&](const char* codec, const QStringList& formats) {
    for (const QString& format : formats) {
      lignes.append({std::string(codec) + '_' + format.toStdString(), format, CodageDe(QLatin1String(codec)), "f.mkv",
                     QStringLiteral("bt709"), false, format.startsWith(QLatin1String("gray"))});
    }
  };
  ajoute("h264", {"yuv420p", "yuv422p", "yuv444p", "yuv420p10le", "yuv422p10le", "yuv444p10le", "gray", "gray10le"});
  // Grey in ten bits makes GStreamer's own plugin for libavcodec fall, and the whole program with it.
  ajoute("h265", {"yuv420p", "yuv422p", "yuv444p", "yuv420p10le", "yuv422p10le", "yuv444p10le", "yuv420p12le",
                  "yuv422p12le", "yuv444p12le", "gray10le", "gray12le", "gbrp", "gbrp10le"});
  ajoute("vp9", {"yuv420p", "yuv422p", "yuv444p", "yuv440p", "yuv420p10le", "yuv422p10le", "yuv444p10le", "yuv440p12le",
                 "yuv420p12le", "yuv422p12le", "yuv444p12le", "gbrp"});
  ajoute("av1", {"yuv420p", "yuv444p", "yuv422p", "yuv420p10le", "yuv444p10le", "yuv422p12le", "gray10le"});
  return lignes;
}

QList<Ligne> Couleurs() {
  QList<Ligne> lignes;
  for (const char* matrice : {"bt601", "bt709", "bt2020"}) {
    for (const char* format : {"yuv420p", "yuv422p10le"}) {
      for (const bool pleine : {false, true}) {
        lignes.append({std::string(matrice) + '_' + format + (pleine ? "_full" : "_limited"), QLatin1String(format),
                       CodageDe(QStringLiteral("h264")), "f.mp4", QLatin1String(matrice), pleine});
      }
    }
  }
  return lignes;
}

// Containers and codings beside those of cameras. JPEG has one matrix and one range, and so have films of old.
QList<Ligne> Films() {
  const QString ancienne = QStringLiteral("bt601");
  const auto film = [&](const char* nom, const char* format, const char* codec, const char* fichier) {
    return Ligne{nom, QLatin1String(format), CodageDe(QLatin1String(codec)), fichier, ancienne};
  };
  QList<Ligne> films = {
      film("msmpeg4", "yuv420p", "msmpeg4", "f.avi"),    film("mpeg4", "yuv420p", "mpeg4", "f.avi"),
      film("mpeg4_mp4", "yuv420p", "mpeg4", "f.mp4"),    film("flv", "yuv420p", "flv", "f.flv"),
      film("ffv1_16", "yuv422p16le", "ffv1", "f.mkv"),   film("huffyuv", "yuv422p", "huffyuv", "f.avi"),
      film("huffyuv_rgb", "rgb24", "huffyuv", "f.avi"),  film("prores", "yuv422p10le", "prores", "f.mov"),
      film("v210", "yuv422p10le", "v210", "f.mov"),      film("cineform", "yuv422p10le", "cfhd", "f.mov"),
      film("flash_screen", "bgr24", "flashsv", "f.flv"), film("raw_yuy2", "yuyv422", "rawvideo", "f.avi"),
      film("raw_bgr", "bgr24", "rawvideo", "f.avi"),     film("vp8", "yuv420p", "libvpx", "f.webm"),
      film("mpeg2_ts", "yuv420p", "mpeg2video", "f.ts"), film("mpeg1", "yuv420p", "mpeg1video", "f.mpg"),
      film("h264_ts", "yuv420p", "libx264", "f.ts"),     film("theora", "yuv420p", "libtheora", "f.ogv"),
      film("wmv2_matroska", "yuv420p", "wmv2", "f.mkv")};
  for (const char* format : {"yuvj420p", "yuvj422p", "yuvj444p"}) {
    films.append({std::string("mjpeg_") + format, QLatin1String(format), CodageDe(QStringLiteral("mjpeg")), "f.avi",
                  ancienne, true});
  }
  return films;
}

class FilmsDeQuarts : public PiloteSurSource {
 protected:
  static constexpr std::array<QRgb, 4> kQuarts = {0xFFC83C28, 0xFF28B43C, 0xFF3246C8, 0xFFDCDC3C};

  // Four quarters of even colour.
  static QString Motif(const QString& taille = QStringLiteral("96x96")) {
    const auto couleur = [](QRgb c) { return QString::number(c & 0xFFFFFFU, 16).rightJustified(6, QLatin1Char('0')); };
    return QStringLiteral(
               "color=0x%1:size=%5:rate=25:duration=0.4,format=rgb24,"
               "drawbox=x=iw/2:y=0:w=iw/2:h=ih/2:color=0x%2:t=fill,"
               "drawbox=x=0:y=ih/2:w=iw/2:h=ih/2:color=0x%3:t=fill,"
               "drawbox=x=iw/2:y=ih/2:w=iw/2:h=ih/2:color=0x%4:t=fill")
        .arg(couleur(kQuarts[0]), couleur(kQuarts[1]), couleur(kQuarts[2]), couleur(kQuarts[3]), taille);
  }
  static bool Ffmpeg(const QStringList& arguments) {
    return QProcess::execute(QStringLiteral("ffmpeg"), QStringList{"-v", "error", "-nostdin", "-y"} + arguments) == 0;
  }
  bool Fabrique(const Ligne& l) const {
    const QString etendue = l.Pleine ? QStringLiteral("pc") : QStringLiteral("tv");
    const bool directe = l.Format.startsWith(QLatin1String("gbr")) || l.Format.contains(QLatin1String("gr24")) ||
                         l.Format.startsWith(QLatin1String("rgb"));
    QString filtre = QStringLiteral(",format=") + l.Format;
    QStringList dit;
    if (!directe) {
      filtre = QStringLiteral(",scale=in_range=pc:out_color_matrix=%1:out_range=%2").arg(l.Matrice, etendue) + filtre;
      dit << "-colorspace"
          << (l.Matrice == QLatin1String("bt601")    ? "smpte170m"
              : l.Matrice == QLatin1String("bt2020") ? "bt2020nc"
                                                     : "bt709")
          << "-color_range" << etendue;
    }
    return Ffmpeg(QStringList{"-f", "lavfi", "-i", Motif() + filtre} + l.Codage + dit + QStringList{Fichier(l.Film)});
  }
  QImage Premiere(const QString& film) {
    if (!Connecte(film)) return {};
    SaisitProchaine(*Pilote_);
    return Pilote_->CopieTrame().Entiere();
  }
  static int Ecart(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
  }
  /// Colours in the middle of the quarters: left and right above, then below.
  static std::array<QRgb, 4> Quarts(const QImage& image) {
    const int w = image.width() / 4;
    const int h = image.height() / 4;
    return {image.pixel(w, h), image.pixel(3 * w, h), image.pixel(w, 3 * h), image.pixel(3 * w, 3 * h)};
  }
  static void ExigeQuarts(const QImage& image, const std::array<int, 4>& ordre) {
    ASSERT_FALSE(image.isNull());
    const std::array<QRgb, 4> vus = Quarts(image);
    for (std::size_t i = 0; i < vus.size(); ++i) {
      const QRgb attendu = kQuarts.at(static_cast<std::size_t>(ordre.at(i)));
      EXPECT_LE(Ecart(vus.at(i), attendu), 14) << i << ": " << std::hex << vus.at(i) << " for " << attendu;
    }
  }
};

class TableFilms : public FilmsDeQuarts, public testing::WithParamInterface<Ligne> {};

TEST_P(TableFilms, HasItsColours) {
  ASSERT_TRUE(Fabrique(GetParam()));
  const QImage image = Premiere(Fichier(GetParam().Film));
  ASSERT_EQ(image.size(), QSize(kCote, kCote));
  if (!GetParam().Grise) return ExigeQuarts(image, {0, 1, 2, 3});
  const std::array<QRgb, 4> vus = Quarts(image);
  for (std::size_t i = 0; i < vus.size(); ++i) {
    const QRgb c = kQuarts.at(i);
    const int clarte = static_cast<int>(std::lround(0.2126 * qRed(c) + 0.7152 * qGreen(c) + 0.0722 * qBlue(c)));
    EXPECT_LE(Ecart(vus.at(i), qRgb(clarte, clarte, clarte)), 14) << i;
  }
}

const auto kNom = [](const testing::TestParamInfo<Ligne>& cas) { return cas.param.Nom; };
INSTANTIATE_TEST_SUITE_P(Depths, TableFilms, testing::ValuesIn(Profondeurs()), kNom);
INSTANTIATE_TEST_SUITE_P(Colours, TableFilms, testing::ValuesIn(Couleurs()), kNom);
INSTANTIATE_TEST_SUITE_P(Codings, TableFilms, testing::ValuesIn(Films()), kNom);

// ffmpeg turns the other way round than its word says; what is expected here is what its own player shows.
TEST_F(FilmsDeQuarts, StandAsTheirHeaderSays) {
  const QList<std::pair<const char*, std::array<int, 4>>> tours = {
      {"90", {1, 3, 0, 2}}, {"180", {3, 2, 1, 0}}, {"270", {2, 0, 3, 1}}};
  for (const char* codec : {"libx264", "mjpeg"}) {
    ASSERT_TRUE(Ffmpeg({"-f", "lavfi", "-i",
                        Motif(QStringLiteral("96x64")) + QStringLiteral(",scale=out_color_matrix=bt601:out_range=pc"),
                        "-pix_fmt", "yuvj420p", "-colorspace", "smpte170m", "-color_range", "pc", "-c:v", codec, "-q:v",
                        "2", Fichier("droit.mov")}));
    for (const auto& [tour, ordre] : tours) {
      ASSERT_TRUE(Ffmpeg({"-i", Fichier("droit.mov"), "-c", "copy", "-metadata:s:v",
                          QStringLiteral("rotate=%1").arg(tour), Fichier("tourne.mov")}));
      const QImage image = Premiere(Fichier("tourne.mov"));
      EXPECT_EQ(image.size(), tour == std::string("180") ? QSize(96, 64) : QSize(64, 96)) << codec << tour;
      ExigeQuarts(image, ordre);
      EXPECT_EQ(Pilote_->FormatCourant().Largeur, 96) << "told is the film's own size";
    }
  }
}

TEST_F(FilmsDeQuarts, HaveSquarePixels) {
  for (const char* fichier : {"f.mp4", "f.ts", "f.avi"}) {
    ASSERT_TRUE(Ffmpeg({"-f", "lavfi", "-i", Motif(QStringLiteral("180x144")) + QStringLiteral(",setsar=16/15"),
                        "-pix_fmt", "yuv420p", "-c:v", std::strcmp(fichier, "f.avi") == 0 ? "mpeg4" : "libx264", "-q:v",
                        "2", "-colorspace", "smpte170m", Fichier(fichier)}));
    const QImage image = Premiere(Fichier(fichier));
    EXPECT_EQ(image.size(), QSize(192, 144)) << fichier;
    ExigeQuarts(image, {0, 1, 2, 3});
  }
}

TEST_F(FilmsDeQuarts, AreTurnedAfterTheirPixelsAreMadeSquare) {
  ASSERT_TRUE(Ffmpeg({"-f", "lavfi", "-i", Motif(QStringLiteral("96x64")) + QStringLiteral(",setsar=2/1"), "-pix_fmt",
                      "yuv420p", "-c:v", "libx264", "-colorspace", "smpte170m", Fichier("a.mov")}));
  ASSERT_TRUE(Ffmpeg({"-i", Fichier("a.mov"), "-c", "copy", "-metadata:s:v", "rotate=90", Fichier("b.mov")}));
  const QImage image = Premiere(Fichier("b.mov"));
  EXPECT_EQ(image.size(), QSize(64, 192));
  ExigeQuarts(image, {1, 3, 0, 2});
}

// The picture that an alternating coder hides in another one is none of its own.
TEST_F(FilmsDeQuarts, WithHiddenPicturesPlayAtTheirOwnRate) {
  ASSERT_TRUE(Ffmpeg({"-f", "lavfi", "-i", "testsrc2=size=160x120:rate=25:duration=2", "-c:v", "libvpx-vp9",
                      "-lag-in-frames", "25", "-auto-alt-ref", "1", "-b:v", "200k", "-deadline", "realtime",
                      "-cpu-used", "8", Fichier("a.webm")}));
  ASSERT_TRUE(Connecte(Fichier("a.webm")));
  const Recolte recolte = Recueille(1800);
  EXPECT_GE(recolte.Images, 30);
  EXPECT_LE(recolte.Images, 25 * 1.8 + 5);
}

// What nothing here reads is refused in words.
TEST_F(FilmsDeQuarts, OfACodingThatNothingReadsAreRefusedInWords) {
  const QList<QStringList> illisibles = {{"-c:v", "utvideo", "-pix_fmt", "yuv422p"}, {"-c:v", "snow", "-strict", "-2"}};
  for (const QStringList& codage : illisibles) {
    ASSERT_TRUE(Ffmpeg(QStringList{"-f", "lavfi", "-i", Motif()} + codage + QStringList{Fichier("a.avi")}));
    ASSERT_FALSE(Connecte(Fichier("a.avi")));
    EXPECT_TRUE(EstSansDecodeur()) << qUtf8Printable(codage[1]);
  }
}

// Announced in the header: no memory is taken, and it is told at once.
TEST_F(FilmsDeQuarts, OfTooManyPixelsAreRefusedInWords) {
  ASSERT_TRUE(Ffmpeg({"-f", "lavfi", "-i", Motif(), "-c:v", "msmpeg4", Fichier("a.avi")}));
  ASSERT_TRUE(Connecte(Fichier("a.avi")));
  QByteArray octets = Lit(Fichier("a.avi"));
  const qsizetype entete = octets.indexOf("strf") + 8;  // a length of four bytes stands between
  const std::array<quint32, 2> taille = {qToLittleEndian(8000U), qToLittleEndian(8001U)};
  std::memcpy(octets.data() + entete + 4, taille.data(), sizeof taille);
  ASSERT_TRUE(Ecrit(Fichier("b.avi"), octets));
  ASSERT_FALSE(Connecte(Fichier("b.avi")));
  EXPECT_TRUE(ARefuseLaTaille());
}

// A list names other addresses, which nobody has asked for.
TEST_F(FilmsDeQuarts, ThatAreListsOfOthersAreRefused) {
  ASSERT_TRUE(Ffmpeg({"-f", "lavfi", "-i", Motif(), "-c:v", "libx264", "-f", "hls", Fichier("liste.m3u8")}));
  EXPECT_FALSE(Connecte(Fichier("liste.m3u8")));
  EXPECT_TRUE(EstSansDecodeur());
}

}  // namespace
}  // namespace vaktor
