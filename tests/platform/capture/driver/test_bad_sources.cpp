// SPDX-License-Identifier: GPL-3.0-or-later
// Sources that are damaged, refused or none at all: nothing crashes, nothing hangs, and a good one is shown afterwards.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QThread>
#include <random>

#include "platform/capture/driver/capture_session.h"
#include "platform/capture/streams/gst_setup.h"
#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

class MauvaiseSource : public PiloteSurSource {
 protected:
  // Whatever the driver made of the bad one before.
  void ExpectUneBonneEstMontree() {
    EXPECT_TRUE(Pilote_->ChangeSource(QStringLiteral("test")));
    EXPECT_TRUE(SaisitProchaine(*Pilote_));
  }
};

struct Contenant {
  const char* Suite;
  const char* Nom;
};

class FilmAbime : public MauvaiseSource, public testing::WithParamInterface<Contenant> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(FabriqueFilm(Fichier("bon.film"), QStringLiteral("format=I420,width=160,height=120,framerate=25/1"), 40,
                             QLatin1String(GetParam().Suite)));
    Film_ = Lit(Fichier("bon.film"));
    ASSERT_GT(Film_.size(), 1000);
  }
  // A film of which nothing is left may be refused; one that is taken may stop and begin again.
  void Joue(const QByteArray& octets) {
    ASSERT_TRUE(Ecrit(Fichier("abime.film"), octets));
    if (Connecte(Fichier("abime.film"))) Recueille(300);
    Pilote_->Deconnecte();
  }

  QByteArray Film_;
};

TEST_P(FilmAbime, MayBeDamagedAnywhere) {
  std::mt19937 hasard(7);
  for (const double debut : {0.0, 0.02, 0.3, 0.9}) {
    QByteArray octets = Film_;
    const auto premier = static_cast<qsizetype>(debut * static_cast<double>(octets.size()));
    for (qsizetype i = premier; i < octets.size(); i += 1 + static_cast<qsizetype>(hasard() % 40)) {
      octets[i] = static_cast<char>(hasard());
    }
    Joue(octets);
  }
  ExpectUneBonneEstMontree();
}

TEST_P(FilmAbime, MayEndAnywhere) {
  for (const qsizetype reste : {qsizetype{1}, qsizetype{40}, Film_.size() / 3, Film_.size() - 1}) {
    Joue(Film_.left(reste));
  }
  ExpectUneBonneEstMontree();
}

INSTANTIATE_TEST_SUITE_P(Contenants, FilmAbime,
                         testing::Values(Contenant{"jpegenc ! avimux", "MjpegAvi"},
                                         Contenant{"openh264enc ! h264parse ! mp4mux", "H264Mp4"},
                                         Contenant{"vp8enc deadline=1 ! webmmux", "Vp8Webm"},
                                         Contenant{"avenc_msmpeg4 ! avimux", "Mpeg4Avi"}),
                         [](const auto& cas) { return std::string(cas.param.Nom); });

// A file that shrinks while it is played, as one that is being written anew.
TEST_F(MauvaiseSource, AFilmThatIsCutWhileItPlaysIsALostSignalAtMost) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.avi"), QStringLiteral("width=160,height=120,framerate=25/1"), 75,
                           QStringLiteral("jpegenc ! avimux")));
  const QByteArray entier = Lit(Fichier("a.avi"));
  ASSERT_TRUE(Connecte(Fichier("a.avi")));
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  ASSERT_EQ(::truncate(qPrintable(Fichier("a.avi")), 100), 0);
  EXPECT_TRUE(AttendSignalPerdu(true, 12'000));
  EXPECT_FALSE(Pilote_->CopieTrame().Entiere().isNull());
  ASSERT_TRUE(Ecrit(Fichier("a.avi"), entier));
  EXPECT_TRUE(AttendSignalPerdu(false, 12'000)) << "what is left of it is refused at once, and tried again";
}

// Whether GStreamer tells of it is a matter of which of its threads comes first: many at a time see both.
TEST_F(MauvaiseSource, AFilmOfWhichOnlyTheHeaderIsLeftIsRefusedAtOnce) {
  ASSERT_TRUE(FabriqueFilm(Fichier("a.avi"), QStringLiteral("width=160,height=120,framerate=25/1"), 5,
                           QStringLiteral("jpegenc ! avimux")));
  ASSERT_EQ(::truncate(qPrintable(Fichier("a.avi")), 100), 0);
  std::vector<std::shared_ptr<SessionCapture>> sessions;
  for (int i = 0; i < 16; ++i) {
    SessionCapture::Demande demande;
    demande.Source = ComprendSource(Fichier("a.avi"));
    demande.Prepare = [] { PrepareGStreamer(); };
    sessions.push_back(SessionCapture::Lance(std::move(demande)));
  }
  QElapsedTimer depuis;
  depuis.start();
  for (const auto& session : sessions) {
    while (!session->EstFinie() && depuis.elapsed() < 8000) QThread::msleep(10);
    EXPECT_TRUE(session->EstFinie()) << depuis.elapsed();
    EXPECT_FALSE(session->DonneDesImages());
    EXPECT_TRUE(session->Arrete(std::chrono::seconds(20)));
  }
}

TEST_F(MauvaiseSource, WhatIsNoDeviceAndNoFilmIsRefused) {
  ASSERT_TRUE(Ecrit(Fichier("lettre"), "x"));
  for (const QString& ou : {QStringLiteral("/dev/null"), QStringLiteral("/dev/video987"), QStringLiteral("/"),
                            Dossier_.path(), Fichier("lettre"), QStringLiteral("/dev/v4l/by-id/none")}) {
    EXPECT_FALSE(Connecte(ou)) << qUtf8Printable(ou);
    EXPECT_FALSE(SaisitProchaine(*Pilote_)) << qUtf8Printable(ou);
  }
  ExpectUneBonneEstMontree();
}

// The system holds whoever opens a pipe that nobody writes into. It holds the thread of that session, and nobody else.
TEST_F(MauvaiseSource, APipeThatNobodyWritesIntoHoldsNobodyUp) {
  ASSERT_EQ(::mkfifo(qPrintable(Fichier("tube.avi")), 0600), 0);
  EXPECT_FALSE(Connecte(Fichier("tube.avi")));
  ExpectUneBonneEstMontree();
  const int libere = ::open(qPrintable(Fichier("tube.avi")), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(libere, 0);
  Pilote_.reset();
  ::close(libere);
}

}  // namespace
}  // namespace vaktor
