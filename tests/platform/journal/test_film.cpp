// SPDX-License-Identifier: GPL-3.0-or-later
// Films of real photos, read back; and what is left where one cannot be made.
#include <gst/app/gstappsink.h>
#include <gst/gst.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cerrno>

#include "platform/journal/film_file_writer.h"
#include "platform/journal/film_photo.h"
#include "platform/journal/film_pipeline.h"
#include "platform/journal/thumbnail_file_reader.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

struct ImageLue {
  QByteArray Octets;
  qint64 Ms = 0;
  qint64 DureeMs = 0;
};

/// The pictures of a film, through `demux` to `suite`.
QList<ImageLue> LitImages(const QString& film, const char* tuyau) {
  QList<ImageLue> images;
  GstElement* lecture = gst_parse_launch((QByteArray("filesrc location=\"") + QFile::encodeName(film) + "\" ! " +
                                          tuyau + " ! appsink name=puits sync=false")
                                             .constData(),
                                         nullptr);
  if (lecture == nullptr) return images;
  GstElement* puits = gst_bin_get_by_name(GST_BIN(lecture), "puits");
  gst_element_set_state(lecture, GST_STATE_PLAYING);
  while (GstSample* echantillon = gst_app_sink_try_pull_sample(GST_APP_SINK(puits), 20 * GST_SECOND)) {
    GstBuffer* tampon = gst_sample_get_buffer(echantillon);
    GstMapInfo carte;
    gst_buffer_map(tampon, &carte, GST_MAP_READ);
    images.append({QByteArray(reinterpret_cast<const char*>(carte.data), static_cast<qsizetype>(carte.size)),
                   static_cast<qint64>(GST_BUFFER_PTS(tampon) / GST_MSECOND),
                   static_cast<qint64>(GST_BUFFER_DURATION(tampon) / GST_MSECOND)});
    gst_buffer_unmap(tampon, &carte);
    gst_sample_unref(echantillon);
  }
  gst_element_set_state(lecture, GST_STATE_NULL);
  gst_object_unref(puits);
  gst_object_unref(lecture);
  return images;
}

class Film : public testing::Test {
 protected:
  Film() {
    for (int i = 0; i < 12; ++i) {
      const QString nom = Dossier.filePath(QStringLiteral("%1.jpg").arg(i, 2, 10, QLatin1Char('0')));
      Pose(nom, QSize(161, 121), i);
      Voulu.Chemins.append(nom);
      Voulu.Instants.append(qint64{i} * 400);
    }
    Voulu.Sortie = Dossier.filePath(QStringLiteral("film.mkv"));
  }
  static void Pose(const QString& nom, const QSize& taille, int ton) {
    QImage image(taille, QImage::Format_RGB32);
    image.fill(qRgb(20 * ton, 100, 255 - 20 * ton));
    ASSERT_TRUE(image.save(nom, "jpg", 80));
  }
  static QByteArray Octets(const QString& nom) {
    QFile fichier(nom);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
  }
  static void Remplace(const QString& nom, const QByteArray& octets) {
    QFile fichier(nom);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
  }
  /// The photo with other sides in its header: what is behind it is not enough for them.
  static QByteArray Geante(const QByteArray& octets) {
    QByteArray geante = octets;
    const qsizetype tete = geante.indexOf("\xff\xc0");
    return geante.replace(tete + 5, 4, QByteArray("\x4e\x20\x4e\x20", 4));  // 20,000 each
  }
  FilmFait Fait() {
    return FaitFilm(Voulu, Abandon, [this](int photos) { Avancees = photos; });
  }
  QStringList Restes() const {
    return QDir(Dossier.path()).entryList({QStringLiteral("*.mkv*"), QStringLiteral("*.mp4*")}, QDir::Files);
  }

  QTemporaryDir Dossier;
  FilmVoulu Voulu;
  std::atomic<bool> Abandon = false;
  int Avancees = 0;
};

TEST_F(Film, HoldsThePhotosAsTheyAreAtTheirTimes) {
  ASSERT_TRUE(SaitFilm(FormatFilm::kMatroska));
  const FilmFait fait = Fait();
  ASSERT_EQ(fait.Etat, EtatFilm::kFait) << fait.Mots.toStdString();
  EXPECT_EQ(fait.Manquantes, 0);
  EXPECT_EQ(Avancees, 12);
  EXPECT_EQ(Restes(), QStringList{QStringLiteral("film.mkv")});
  const QList<ImageLue> images = LitImages(Voulu.Sortie, "matroskademux");
  ASSERT_EQ(images.size(), 12);
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(images[i].Octets, Octets(Voulu.Chemins[i])) << i << ": without loss";
    EXPECT_EQ(images[i].Ms, i * 400);
  }
  EXPECT_EQ(images[11].DureeMs, 500) << "players show the last one too";
}

TEST_F(Film, BeginsWithItsFirstPhotoWhateverTheDay) {
  for (qint64& instant : Voulu.Instants) instant += 86'400'000;
  ASSERT_EQ(Fait().Etat, EtatFilm::kFait);
  const QList<ImageLue> images = LitImages(Voulu.Sortie, "matroskademux");
  ASSERT_EQ(images.size(), 12);
  EXPECT_EQ(images[0].Ms, 0);
  EXPECT_EQ(images[11].Ms, 4400);
}

TEST_F(Film, IsMadeWithoutPhotosThatAreGoneDamagedOrOfAnotherSizeAndSaysHowMany) {
  QFile::remove(Voulu.Chemins[0]);
  Pose(Voulu.Chemins[5], QSize(80, 60), 3);
  const QByteArray coupee = Octets(Voulu.Chemins[7]).chopped(40);  // its size can still be read
  QFile fichier(Voulu.Chemins[7]);
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write(coupee);
  fichier.close();
  const FilmFait fait = Fait();
  ASSERT_EQ(fait.Etat, EtatFilm::kFait) << fait.Mots.toStdString();
  EXPECT_EQ(fait.Manquantes, 3);
  const QList<ImageLue> images = LitImages(Voulu.Sortie, "matroskademux");
  ASSERT_EQ(images.size(), 9);
  EXPECT_EQ(images[0].Ms, 0) << "it begins with its first picture";
}

TEST_F(Film, HugePhotosAreInNoFilmAndOnNoCard) {
  Remplace(Voulu.Chemins[3], Geante(Octets(Voulu.Chemins[3])));
  QFile longue(Voulu.Chemins[4]);
  ASSERT_TRUE(longue.open(QIODevice::ReadWrite));
  ASSERT_TRUE(longue.resize(kPhotoFilmMax + 1));  // of holes: it takes no room
  longue.close();
  const FilmFait fait = Fait();
  ASSERT_EQ(fait.Etat, EtatFilm::kFait) << fait.Mots.toStdString();
  EXPECT_EQ(fait.Manquantes, 2);
  EXPECT_EQ(LitVignetteJpeg(Voulu.Chemins[3], QSize(176, 132)).Etat, EtatPhoto::kTropGrande);
  EXPECT_EQ(LitVignetteJpeg(Voulu.Chemins[4], QSize(176, 132)).Etat, EtatPhoto::kTropGrande);
}

// Its end is there and its middle is not: players show what they can of it.
TEST_F(Film, DamageInsidePhotosEndsNoFilm) {
  for (const int i : {0, 4, 5, 6, 11}) {
    QByteArray abimee = Octets(Voulu.Chemins[i]);
    const qsizetype debut = abimee.indexOf("\xff\xda") + 14;
    for (qsizetype k = debut; k < abimee.size() - 2; ++k) abimee[k] = static_cast<char>(k % 251);
    Remplace(Voulu.Chemins[i], abimee);
  }
  ASSERT_EQ(Fait().Etat, EtatFilm::kFait);
  EXPECT_EQ(LitImages(Voulu.Sortie, "matroskademux").size(), 12);
  EXPECT_NE(LitVignetteJpeg(Voulu.Chemins[4], QSize(176, 132)).Etat, EtatPhoto::kTropGrande);
  if (!SaitFilm(FormatFilm::kMp4)) GTEST_SKIP() << "no encoder";
  Voulu.Format = FormatFilm::kMp4;
  Voulu.Sortie = Dossier.filePath(QStringLiteral("film.mp4"));
  const FilmFait fait = Fait();
  ASSERT_EQ(fait.Etat, EtatFilm::kFait) << fait.Mots.toStdString();
  EXPECT_GE(LitImages(Voulu.Sortie, "qtdemux ! h264parse ! avdec_h264").size(), 7);
}

TEST_F(Film, WithoutAnyPhotoNothingIsLeftAndWhatWasThereStays) {
  for (const QString& photo : Voulu.Chemins) QFile::remove(photo);
  QFile avant(Voulu.Sortie);
  ASSERT_TRUE(avant.open(QIODevice::WriteOnly));
  avant.write("before");
  avant.close();
  EXPECT_EQ(Fait().Etat, EtatFilm::kSansPhoto);
  EXPECT_EQ(Restes(), QStringList{QStringLiteral("film.mkv")});
  EXPECT_EQ(Octets(Voulu.Sortie), "before");
}

TEST_F(Film, GivenUpInTheMiddleNothingIsLeft) {
  const FilmFait fait = FaitFilm(Voulu, Abandon, [this](int photos) { Abandon = photos >= 5; });
  EXPECT_EQ(fait.Etat, EtatFilm::kAnnule);
  EXPECT_TRUE(Restes().isEmpty());
}

TEST_F(Film, AFolderThatTakesNoneSaysWhyBeforeAnyWork) {
  Voulu.Sortie = Dossier.filePath(QStringLiteral("none/film.mkv"));
  const FilmFait fait = Fait();
  EXPECT_EQ(fait.Etat, EtatFilm::kDisque);
  EXPECT_EQ(fait.Erreur, ENOENT);
  EXPECT_EQ(Avancees, 0);
}

TEST_F(Film, AFullDiskLeavesNothingHalf) {
  const PetitDisque disque(16 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  for (int i = 0; i < 300; ++i) {
    Voulu.Chemins.append(Voulu.Chemins[i % 12]);
    Voulu.Instants.append(Voulu.Instants.constLast() + 33);
  }
  Voulu.Sortie = disque.Chemin() + QStringLiteral("/film.mkv");
  const FilmFait fait = Fait();
  EXPECT_EQ(fait.Etat, EtatFilm::kDisque) << fait.Mots.toStdString();
  EXPECT_EQ(fait.Erreur, ENOSPC);
  EXPECT_TRUE(QDir(disque.Chemin()).isEmpty());
}

TEST_F(Film, AsMp4WhereAnEncoderIsInstalled) {
  if (!SaitFilm(FormatFilm::kMp4)) GTEST_SKIP() << "no encoder";
  Voulu.Format = FormatFilm::kMp4;
  Voulu.Sortie = Dossier.filePath(QStringLiteral("film.mp4"));
  const FilmFait fait = Fait();
  ASSERT_EQ(fait.Etat, EtatFilm::kFait) << fait.Mots.toStdString();
  const QList<ImageLue> images = LitImages(Voulu.Sortie, "qtdemux ! h264parse ! avdec_h264");
  EXPECT_EQ(images.size(), 12);
}

TEST_F(Film, OnItsThreadItTellsHowFarItIsAndItsEnd) {
  EcrivainFilmSysteme films;
  FilmFait fait;
  bool fini = false;
  films.Ecrit(
      Voulu, [this](int photos) { Avancees = photos; },
      [&](const FilmFait& f) {
        fait = f;
        fini = true;
      });
  ASSERT_TRUE(QTest::qWaitFor([&] { return fini; }, 60'000));
  EXPECT_EQ(fait.Etat, EtatFilm::kFait);
  EXPECT_EQ(Avancees, 12);
}

TEST_F(Film, GivenUpOnItsThreadItSaysSoSoonAndLeavesNothing) {
  EcrivainFilmSysteme films;
  int finis = 0;
  for (int i = 0; i < 20'000; ++i) {
    Voulu.Chemins.append(Voulu.Chemins[i % 12]);
    Voulu.Instants.append(Voulu.Instants.constLast() + 33);
  }
  bool avance = false;
  films.Ecrit(
      Voulu, [&](int) { avance = true; },
      [&](const FilmFait& f) {
        ++finis;
        EXPECT_EQ(f.Etat, EtatFilm::kAnnule);
      });
  ASSERT_TRUE(QTest::qWaitFor([&] { return avance; }, 60'000)) << "it is in the middle of it";
  films.Annule();
  EXPECT_EQ(finis, 0) << "later, from the event loop";
  ASSERT_TRUE(QTest::qWaitFor([&] { return finis > 0; }, 60'000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return Restes().isEmpty(); }, 60'000));
  EXPECT_EQ(finis, 1);
}

TEST_F(Film, AThumbnailIsAsSharpAsItsSizeAllows) {
  QImage rayee(800, 600, QImage::Format_RGB32);
  rayee.fill(Qt::black);
  for (int x = 0; x < rayee.width(); ++x)
    if (x / 5 % 2 == 0)
      for (int y = 0; y < rayee.height(); ++y) rayee.setPixel(x, y, qRgb(255, 255, 255));
  const QString nom = Dossier.filePath(QStringLiteral("stripes.jpg"));
  ASSERT_TRUE(rayee.save(nom, "jpg", 95));
  const Vignette vignette = LitVignetteJpeg(nom, QSize(220, 165));
  int clair = 0, sombre = 255;
  for (int x = 20; x < 200; ++x) {
    clair = std::max(clair, qRed(vignette.Image.pixel(x, 80)));
    sombre = std::min(sombre, qRed(vignette.Image.pixel(x, 80)));
  }
  EXPECT_GT(clair - sombre, 120);
}

TEST_F(Film, AThumbnailIsDecodedSmallAndKnowsTheSizeOfItsPhoto) {
  const QString grande = Dossier.filePath(QStringLiteral("large.jpg"));
  Pose(grande, QSize(1600, 1200), 5);
  const Vignette vignette = LitVignetteJpeg(grande, QSize(220, 150));
  ASSERT_EQ(vignette.Etat, EtatPhoto::kLue);
  EXPECT_EQ(vignette.Entiere, QSize(1600, 1200));
  EXPECT_EQ(vignette.Image.size(), QSize(200, 150));
  EXPECT_NEAR(qRed(vignette.Image.pixel(100, 75)), 100, 6);
  EXPECT_EQ(LitVignetteJpeg(Voulu.Chemins[0], QSize(1000, 1000)).Image.size(), QSize(161, 121)) << "never larger";
  EXPECT_EQ(LitVignetteJpeg(Dossier.filePath(QStringLiteral("none.jpg")), QSize(9, 9)).Etat, EtatPhoto::kAbsente);
  QFile fichier(Dossier.filePath(QStringLiteral("x.jpg")));
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.close();
  EXPECT_EQ(LitVignetteJpeg(fichier.fileName(), QSize(9, 9)).Etat, EtatPhoto::kVide);
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write("no picture");
  fichier.close();
  EXPECT_EQ(LitVignetteJpeg(fichier.fileName(), QSize(9, 9)).Etat, EtatPhoto::kIllisible);
}

}  // namespace
}  // namespace vaktor
