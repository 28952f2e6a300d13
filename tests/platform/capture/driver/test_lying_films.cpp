// SPDX-License-Identifier: GPL-3.0-or-later
// Films whose container tells another size than the stream has, whose size changes on the way, or comes near to the
// most that gets memory: the stream's own size is what counts, memory is bounded, and a refusal is told in words.
#include <QProcess>
#include <QtEndian>
#include <cstring>

#include "platform/capture/choice/fitted_size.h"
#include "platform/capture/streams/gst_setup.h"
#include "platform/capture/streams/stream_size.h"
#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

constexpr QSize kPetite(640, 480);
constexpr QSize kGrande(3840, 2160);

/// A film that ffmpeg makes, and where its container tells the size.
struct Contenant {
  const char* Nom;
  const char* Fichier;
  QStringList Codage;
};
void PrintTo(const Contenant& contenant, std::ostream* flux) { *flux << contenant.Nom; }

class FilmMenteur : public PiloteSurSource {
 protected:
  static QString Taille(QSize taille) { return QStringLiteral("%1x%2").arg(taille.width()).arg(taille.height()); }
  static bool Ffmpeg(const QStringList& arguments) {
    return QProcess::execute(QStringLiteral("ffmpeg"), QStringList{"-v", "error", "-nostdin", "-y"} + arguments) == 0;
  }
  // A few pictures of one grey: coded quickly, however large they are.
  bool Fabrique(const QString& film, QSize taille, const QStringList& codage, int images = 2) {
    return Ffmpeg(QStringList{"-f", "lavfi", "-i",
                              QStringLiteral("color=c=gray:size=%1:rate=10,format=yuv420p").arg(Taille(taille)),
                              "-frames:v", QString::number(images)} +
                  codage + QStringList{film});
  }
  static QByteArray Gros16(int nombre) {
    QByteArray octets(2, 0);
    qToBigEndian(static_cast<quint16>(nombre), octets.data());
    return octets;
  }
  static QByteArray Petit32(int nombre) {
    QByteArray octets(4, 0);
    qToLittleEndian(static_cast<quint32>(nombre), octets.data());
    return octets;
  }
  // Behind the only place where `marque` stands.
  static bool Pose(QByteArray& film, const QByteArray& marque, qsizetype apres, const QByteArray& octets) {
    const qsizetype debut = film.indexOf(marque);
    if (debut < 0) return false;
    film.replace(debut + apres, octets.size(), octets);
    return true;
  }
  /// The header of the film tells this size from now on.
  static bool Ment(QByteArray& film, const QString& fichier, QSize vraie, QSize dite) {
    if (fichier.endsWith(QLatin1String("mp4"))) {
      // Of its one description of samples, behind twelve bytes, comes the length, and then the coding's name.
      return Pose(film, "stsd", 44, Gros16(dite.width()) + Gros16(dite.height()));
    }
    if (fichier.endsWith(QLatin1String("avi"))) {
      return Pose(film, "strf", 12, Petit32(dite.width()) + Petit32(dite.height()));
    }
    const QByteArray largeur = QByteArray::fromHex("b082");
    const QByteArray hauteur = QByteArray::fromHex("ba82");
    return Pose(film, largeur + Gros16(vraie.width()), 2, Gros16(dite.width())) &&
           Pose(film, hauteur + Gros16(vraie.height()), 2, Gros16(dite.height()));
  }
  bool FabriqueMenteur(const Contenant& contenant, QSize vraie, QSize dite, int images = 2) {
    if (!Fabrique(Fichier(contenant.Fichier), vraie, contenant.Codage, images)) return false;
    QByteArray film = Lit(Fichier(contenant.Fichier));
    return Ment(film, Fichier(contenant.Fichier), vraie, dite) && Ecrit(Fichier(contenant.Fichier), film);
  }
  QSize TailleVue() {
    for (int essai = 0; essai < 100; ++essai) {
      if (SaisitProchaine(*Pilote_)) return Pilote_->CopieTrame().Taille();
    }
    return {};
  }
  /// Megabytes that this process holds, at the most since OubliePointe.
  static qint64 Pointe() {
    QFile etat(QStringLiteral("/proc/self/status"));
    if (!etat.open(QIODevice::ReadOnly)) return -1;
    const QByteArray texte = etat.readAll();
    const qsizetype ligne = texte.indexOf("VmHWM:");
    return texte.mid(ligne + 6, texte.indexOf("kB", ligne) - ligne - 6).trimmed().toLongLong() / 1024;
  }
  static void OubliePointe() { ASSERT_TRUE(Ecrit(QStringLiteral("/proc/self/clear_refs"), "5")); }
};

class TailleDite : public FilmMenteur, public testing::WithParamInterface<Contenant> {};

TEST_P(TailleDite, OfASmallFilmIsNotBelievedToBeLarge) {
  ASSERT_TRUE(FabriqueMenteur(GetParam(), kPetite, kGrande, 20));
  OubliePointe();
  const qint64 avant = Pointe();
  ASSERT_TRUE(Connecte(Fichier(GetParam().Fichier))) << qUtf8Printable(Pilote_->Explication());
  EXPECT_EQ(TailleVue(), kPetite);
  EXPECT_EQ(Pilote_->FormatCourant().Largeur, kPetite.width());
  EXPECT_LT(Pointe() - avant, 150);
}

TEST_P(TailleDite, OfALargeFilmIsNotBelievedToBeSmall) {
  ASSERT_TRUE(FabriqueMenteur(GetParam(), kGrande, kPetite));
  OubliePointe();
  const qint64 avant = Pointe();
  ASSERT_TRUE(Connecte(Fichier(GetParam().Fichier))) << qUtf8Printable(Pilote_->Explication());
  EXPECT_EQ(TailleVue(), QSize(1920, 1080)) << "scaled, as any film of its size";
  EXPECT_EQ(Pilote_->FormatCourant().Largeur, kGrande.width());
  EXPECT_LT(Pointe() - avant, 500);
}

const QStringList kX264 = {"-c:v", "libx264", "-preset", "ultrafast"};
const QStringList kVp8 = {"-c:v", "libvpx", "-deadline", "realtime", "-cpu-used", "8"};
const QStringList kVp9 = {"-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8"};
const QStringList kMjpeg = {"-c:v", "mjpeg"};

INSTANTIATE_TEST_SUITE_P(Containers, TailleDite,
                         testing::Values(Contenant{"H264Mp4", "f.mp4", kX264}, Contenant{"H264Mkv", "f.mkv", kX264},
                                         Contenant{"Vp8Mkv", "f.mkv", kVp8}, Contenant{"Vp9Mkv", "f.mkv", kVp9},
                                         Contenant{"MjpegMkv", "f.mkv", kMjpeg}),
                         [](const auto& cas) { return std::string(cas.param.Nom); });

// MPEG-4 and its kin of old have their size in the container alone: what it says is believed, and nothing falls.
// What is decoded then is no picture, and that is told.
TEST_F(FilmMenteur, ThatAloneKnowsItsSizeIsShownAsItSaysOrRefusedInWords) {
  const Contenant avi{"MsMpeg4", "f.avi", {"-c:v", "msmpeg4"}};
  for (const auto& [vraie, dite] : {std::pair(kPetite, kGrande), std::pair(kGrande, kPetite)}) {
    ASSERT_TRUE(FabriqueMenteur(avi, vraie, dite));
    OubliePointe();
    const qint64 avant = Pointe();
    if (Connecte(Fichier("f.avi"))) {
      EXPECT_EQ(Pilote_->FormatCourant().Largeur, dite.width());
    } else {
      EXPECT_FALSE(Pilote_->Explication().isEmpty());
    }
    EXPECT_LT(Pointe() - avant, 500);
  }
}

TEST_F(FilmMenteur, ThatGrowsAndShrinksOnTheWayIsShownAsItComes) {
  const QSize moyenne(1280, 720);
  const auto morceaux = [&](const QString& suite, const QStringList& codage) {
    QByteArray liste;
    int numero = 0;
    for (const QSize taille : {kPetite, kGrande, moyenne}) {
      const QString nom = QStringLiteral("%1%2").arg(numero++).arg(suite);
      EXPECT_TRUE(Fabrique(Fichier(qPrintable(nom)), taille, codage, 5));
      liste += "file '" + nom.toUtf8() + "'\n";
    }
    EXPECT_TRUE(Ecrit(Fichier("liste.txt"), liste));
    return Ffmpeg({"-f", "concat", "-i", Fichier("liste.txt"), "-c", "copy", Fichier(qPrintable("tout" + suite))});
  };
  const QList<std::pair<QString, QStringList>> sortes = {{QStringLiteral(".ts"), kX264},
                                                         {QStringLiteral(".webm"), kVp8}};
  for (const auto& [suite, codage] : sortes) {
    ASSERT_TRUE(morceaux(suite, codage));
    OubliePointe();
    const qint64 avant = Pointe();
    ASSERT_TRUE(Connecte(Fichier(qPrintable("tout" + suite)))) << qUtf8Printable(suite);
    EXPECT_EQ(Recueille(4000).Tailles, (std::set<std::pair<int, int>>{{640, 480}, {1920, 1080}, {1280, 720}}))
        << qUtf8Printable(suite);
    EXPECT_LT(Pointe() - avant, 500) << qUtf8Printable(suite);
    Pilote_.reset();
  }
}

/// 64 million pixels: the last size that gets memory.
constexpr QSize kLimite(8000, 8000);
static_assert(qint64{kLimite.width()} * kLimite.height() == kPixelsMaximum);
constexpr QSize kAuDela(8000, 8016);

TEST_F(FilmMenteur, OfAsManyPixelsAsGetMemoryIsShown) {
  for (const Contenant& film : {Contenant{"H264", "f.mp4", kX264}, Contenant{"Mjpeg", "f.avi", kMjpeg}}) {
    ASSERT_TRUE(Fabrique(Fichier(film.Fichier), kLimite, film.Codage, 1));
    ASSERT_TRUE(Connecte(Fichier(film.Fichier))) << film.Nom;
    EXPECT_EQ(TailleVue(), TailleRetenue(kLimite)) << film.Nom;
    Pilote_.reset();
  }
}

// However small it says it is: no memory for it, and words at once instead of a wait for pictures that never come.
TEST_F(FilmMenteur, OfMorePixelsThanGetMemoryIsRefusedInWordsWhateverItSays) {
  ASSERT_TRUE(FabriqueMenteur({"H264", "h264.mp4", kX264}, kAuDela, kPetite, 1));
  ASSERT_TRUE(FabriqueMenteur({"Mjpeg", "jpeg.avi", kMjpeg}, kAuDela, kPetite, 3));
  // To code this takes VP8 half a minute: a small film, and the size at the head of its first picture another one.
  ASSERT_TRUE(Fabrique(Fichier("vp8.mkv"), kPetite, kVp8, 1));
  QByteArray film = Lit(Fichier("vp8.mkv"));
  ASSERT_TRUE(Pose(film, QByteArray::fromHex("9d012a"), 3, Petit32(kAuDela.width() + (kAuDela.height() << 16))));
  ASSERT_TRUE(Ecrit(Fichier("vp8.mkv"), film));
  for (const char* fichier : {"h264.mp4", "vp8.mkv", "jpeg.avi"}) {
    OubliePointe();
    const qint64 avant = Pointe();
    EXPECT_FALSE(Connecte(Fichier(fichier))) << fichier;
    EXPECT_TRUE(ARefuseLaTaille()) << fichier << ": " << qUtf8Printable(Pilote_->Explication());
    EXPECT_LT(Pointe() - avant, 200) << fichier;
    Pilote_.reset();
  }
}

// Few pixels, and one side that nothing here can scale: a JPEG, and one that our own decoder has made.
TEST_F(FilmMenteur, OfASideThatIsTooLongIsRefusedInWords) {
  constexpr QSize kLongue(40'000, 96);
  for (const Contenant& film :
       {Contenant{"Mjpeg", "long.avi", kMjpeg}, Contenant{"Ffv1", "long.mkv", {"-c:v", "ffv1"}}}) {
    ASSERT_TRUE(Fabrique(Fichier(film.Fichier), kLongue, film.Codage, 1));
    EXPECT_FALSE(Connecte(Fichier(film.Fichier))) << film.Nom;
    EXPECT_TRUE(ARefuseLaTaille()) << film.Nom << ": " << qUtf8Printable(Pilote_->Explication());
    Pilote_.reset();
  }
}

// Decoded by GStreamer's own elements, which know no limit.
TEST_F(FilmMenteur, OfACodingThatAnotherDecodesIsRefusedInWordsBeforeMemoryIsTaken) {
  ASSERT_TRUE(Fabrique(Fichier("a.mkv"), QSize(320, 256), {"-c:v", "libtheora"}));
  QByteArray film = Lit(Fichier("a.mkv"));
  const QByteArray blocs = Gros16(1024);                          // of sixteen pixels
  const QByteArray pixels = QByteArray::fromHex("004000004000");  // 16384 both
  ASSERT_TRUE(Pose(film, QByteArray("\x80theora"), 10, blocs + blocs + pixels));
  ASSERT_TRUE(Ecrit(Fichier("theora.mkv"), film));
  ASSERT_TRUE(FabriqueMenteur({"Png", "png.mkv", {"-c:v", "png", "-pix_fmt", "gray"}}, kAuDela, kPetite, 1));
  for (const char* fichier : {"theora.mkv", "png.mkv"}) {
    OubliePointe();
    const qint64 avant = Pointe();
    EXPECT_FALSE(Connecte(Fichier(fichier))) << fichier;
    EXPECT_TRUE(ARefuseLaTaille()) << fichier << ": " << qUtf8Printable(Pilote_->Explication());
    EXPECT_LT(Pointe() - avant, 100) << fichier;
    Pilote_.reset();
  }
}

TEST(TailleDuFlux, IsReadAtItsHead) {
  const auto demande = [](const char* hexa) {
    const QByteArray octets = QByteArray::fromHex(hexa);
    return DemandeTropDePixels({reinterpret_cast<const quint8*>(octets.constData()), std::size_t(octets.size())});
  };
  // 500 blocks by 500 are 64 million pixels, and a row more is too much; so of 8000 pixels.
  EXPECT_FALSE(demande("807468656f7261030201 01f401f4 00000000000000000000"));
  EXPECT_TRUE(demande("807468656f7261030201 01f501f4 00000000000000000000"));
  EXPECT_TRUE(demande("807468656f7261030201 01f401f5 00000000000000000000"));
  EXPECT_FALSE(demande("89504e470d0a1a0a 0000000d 49484452 00001f40 00001f40"));
  EXPECT_TRUE(demande("89504e470d0a1a0a 0000000d 49484452 00001f41 00001f40"));
  EXPECT_TRUE(demande("89504e470d0a1a0a 0000000d 49484452 00001f40 00001f41"));
  EXPECT_TRUE(demande("89504e470d0a1a0a 0000000d 49484452 ffffffff ffffffff"));
  EXPECT_FALSE(demande("ff4fff51 0029 0000 00001f40 00001f40 0000000000000000"));
  EXPECT_TRUE(demande("ff4fff51 0029 0000 00001f41 00001f40 0000000000000000"));
  EXPECT_TRUE(demande("ff4fff51 0029 0000 00001f40 00001f41 0000000000000000"));
  EXPECT_FALSE(demande("ffd8ffe0 0010 4a46 ffffffff ffffffff 0000000000000000")) << "nobody that is known";
  EXPECT_FALSE(demande("89504e470d0a1a0a 0000000d 49484452 00001f41 0000")) << "cut short";
  EXPECT_FALSE(demande(""));
}

TEST(TailleDuFlux, AtADecoderItIsAnErrorAndNotedWithWhatTheDecoderLiesIn) {
  gst_init(nullptr, nullptr);
  const PtrGst<GstElement> autour(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
  GstElement* decodeur = gst_element_factory_make("fakesink", nullptr);
  gst_bin_add(GST_BIN(autour.get()), decodeur);
  GardeEntree(decodeur);
  const PtrGst<GstBus> bus(gst_element_get_bus(autour.get()));
  const PtrGst<GstPad> entree(gst_element_get_static_pad(decodeur, "sink"));
  gst_pad_set_active(entree.get(), TRUE);
  const auto erreur = [&](const char* tete) {
    const QByteArray octets = QByteArray::fromHex(tete);
    gst_pad_chain(entree.get(), gst_buffer_new_memdup(octets.constData(), static_cast<gsize>(octets.size())));
    return PtrGst<GstMessage>(gst_bus_pop_filtered(bus.get(), GST_MESSAGE_ERROR)) != nullptr;
  };
  EXPECT_FALSE(erreur("89504e470d0a1a0a 0000000d 49484452 00001f40 00001f40"));
  EXPECT_FALSE(ANoteTropDePixels(GST_OBJECT(autour.get())));
  EXPECT_TRUE(erreur("89504e470d0a1a0a 0000000d 49484452 00001f41 00001f40"));
  EXPECT_TRUE(ANoteTropDePixels(GST_OBJECT(autour.get())));
}

}  // namespace
}  // namespace vaktor
