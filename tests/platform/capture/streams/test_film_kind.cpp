#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/capture/streams/film_kind.h"

namespace vaktor {
namespace {

struct Film {
  const char* Kind;
  QByteArray Octets;
  const char* Demultiplexeur;  // null: none of ours
};

TEST(FilmKind, IsToldByTheFirstBytesAndNotByTheName) {
  QTemporaryDir dossier;
  const QString fichier = dossier.filePath(QStringLiteral("film.txt"));
  for (const Film& film : {Film{"AVI", QByteArray("RIFF\1\2\3\4AVI LIST"), "avidemux"},
                           Film{"MP4",
                                QByteArray("\0\0\0\x18"
                                           "ftypisom",
                                           12),
                                "qtdemux"},
                           Film{"Matroska", QByteArray("\x1A\x45\xDF\xA3 anything"), "matroskademux"},
                           Film{"a sound", QByteArray("RIFF\1\2\3\4WAVEfmt "), nullptr},
                           Film{"cut short", QByteArray("RIFF"), nullptr}, Film{"nothing", QByteArray(), nullptr}}) {
    QFile ecrit(fichier);
    ASSERT_TRUE(ecrit.open(QIODevice::WriteOnly));
    ecrit.write(film.Octets);
    ecrit.close();
    EXPECT_STREQ(DemultiplexeurDuFilm(fichier), film.Demultiplexeur) << film.Kind;
  }
}

TEST(FilmKind, KnowsNothingOfWhatIsNoFile) {
  QTemporaryDir dossier;
  EXPECT_EQ(DemultiplexeurDuFilm(dossier.path()), nullptr);
  EXPECT_EQ(DemultiplexeurDuFilm(dossier.filePath(QStringLiteral("absent.avi"))), nullptr);
}

}  // namespace
}  // namespace vaktor
