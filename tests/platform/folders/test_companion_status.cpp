// SPDX-License-Identifier: GPL-3.0-or-later
// The status files of the companions on the real file system, whatever may stand in their place.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>

#include "platform/folders/companion_status_reader.h"
#include "support/event_wait.h"
#include "support/file_bytes.h"

namespace vaktor::essai {
namespace {

struct EtatsSurDisque : testing::Test {
  QTemporaryDir Temporaire;
  qint64 Maintenant = QDateTime(QDate(2026, 11, 15), QTime(14, 5, 9), Qt::UTC).toMSecsSinceEpoch();
  LecteurEtatsFichiers Lecteur{Temporaire.path(), [this] { return Maintenant; }};

  QString Mail() const { return Temporaire.filePath("VAKTORmail.json"); }
  EtatsCompagnons Lit() {
    std::optional<EtatsCompagnons> lus;
    Lecteur.LitEtats([&](const EtatsCompagnons& etats) { lus = etats; });
    EXPECT_FALSE(lus) << "not before the call has returned";
    EXPECT_TRUE(AttendQue([&] { return lus.has_value(); }));
    return lus.value_or(EtatsCompagnons());
  }
};

TEST_F(EtatsSurDisque, TellsWhatTheFilesSay) {
  EcritOctets(Mail(), R"({"handle": 4711, "state": "failure", "server": "451 not\nnow",
                          "push_waiting_since": "2026-11-15T14:01:00Z", "push_server": "HTTP 503:\nlater",
                          "waiting_since": "2026-11-15T14:00:00Z", "started": "2026-11-15T13:00:00Z"})");
  EcritOctets(Temporaire.filePath("VAKTORftp.json"),
              R"({"handle": 4712, "state": "ok", "server": "old words", "subject": "old",
                          "alive": "2026-11-15T14:04:30Z", "live_since": "2026-11-15T13:00:00Z", "live_published": "2026-11-15T15:05:00+01:00"})");
  EcritOctets(Temporaire.filePath("VAKTORsound.json"),
              R"({"handle": 4713, "state": "failure", "subject": "sound-device", "server": "no device"})");
  const EtatsCompagnons etats = Lit();
  EXPECT_EQ(etats.Mail.Poignee, 4711);
  EXPECT_EQ(etats.Son.Poignee, 4713);
  EXPECT_EQ(etats.Son.Sujet, "sound-device");
  EXPECT_EQ(etats.Son.MotsServeur, "no device");
  EXPECT_EQ(etats.Mail.Attente, 309'000);
  EXPECT_EQ(etats.Mail.MotsServeur, "451 not now");
  EXPECT_EQ(etats.Mail.AttentePush, 249'000);
  EXPECT_EQ(etats.Mail.MotsPush, "HTTP 503: later");
  EXPECT_FALSE(etats.Ftp.AttentePush);
  EXPECT_EQ(etats.Mail.AttenteDite, "2026-11-15T14:00:00Z");
  EXPECT_EQ(etats.Mail.AttentePushDite, "2026-11-15T14:01:00Z");
  EXPECT_EQ(etats.Ftp.PublieDit, "2026-11-15T15:05:00+01:00");
  EXPECT_FALSE(etats.Mail.Publie);
  EXPECT_EQ(etats.Ftp.Poignee, 4712);
  EXPECT_EQ(etats.Ftp.Publie, 9'000);
  EXPECT_EQ(etats.Ftp.Battement, "2026-11-15T14:04:30Z");
  EXPECT_EQ(etats.Mail.Battement, "");
  EXPECT_EQ(etats.Ftp.MotsServeur, "") << "only of a failure that stands";
  EXPECT_EQ(etats.Ftp.Sujet, "");
  EXPECT_FALSE(etats.Ftp.Attente);
}

TEST_F(EtatsSurDisque, AClockThatWasSetBackMakesNoNegativeAge) {
  EcritOctets(Mail(), R"({"handle": 1, "waiting_since": "2027-01-01T00:00:00Z"})");
  EXPECT_EQ(Lit().Mail.Attente, 0);
}

TEST_F(EtatsSurDisque, DamagedHalfAndForeignFilesSayNothing) {
  const QByteArray kMauvais[] = {"",
                                 "{",
                                 R"({"handle": 4711, "wait)",
                                 R"([1, 2])",
                                 R"({"handle": "x", "waiting_since": 3, "state": "failure", "server": {}})",
                                 R"({"handle": -3, "waiting_since": "yesterday"})",
                                 R"({"handle": 99999999999999})",
                                 QByteArray(200'000, '['),
                                 QByteArray(10'000, '\xff')};
  for (const QByteArray& octets : kMauvais) {
    ASSERT_TRUE(EcritOctets(Mail(), octets));
    const EtatsCompagnons etats = Lit();
    EXPECT_EQ(etats.Mail.Poignee, 0) << octets.left(60).toStdString();
    EXPECT_FALSE(etats.Mail.Attente);
  }
  QFile::remove(Mail());
  EXPECT_EQ(Lit().Mail.Poignee, 0);
}

TEST_F(EtatsSurDisque, APipeOrALinkIsNotWaitedForNorFollowed) {
  ASSERT_EQ(::mkfifo(QFile::encodeName(Mail()).constData(), 0600), 0);
  ASSERT_TRUE(QFile::link("/dev/zero", Temporaire.filePath("VAKTORftp.json")));
  EXPECT_EQ(Lit().Mail.Poignee, 0);
}

TEST_F(EtatsSurDisque, OneReadingAtATimeAndOneThatIsForgottenSaysNothing) {
  int rendus = 0;
  Lecteur.LitEtats([&](const EtatsCompagnons&) { ++rendus; });
  Lecteur.LitEtats([&](const EtatsCompagnons&) { rendus += 100; });
  Lecteur.Oublie();
  bool suivante = false;
  EXPECT_TRUE(AttendQue([&] {
    Lecteur.LitEtats([&](const EtatsCompagnons&) { suivante = true; });
    return suivante;
  }));
  EXPECT_EQ(rendus, 0);
}

// A disk that is silent for good, or an answer that was lost: looked at every fifteen seconds.
TEST_F(EtatsSurDisque, AReadingWithoutAnAnswerIsTheLastOneForAMinuteOnly) {
  std::chrono::steady_clock::time_point instant;
  auto disque = std::make_shared<std::promise<void>>();
  std::atomic<int> lectures = 0;
  LecteurEtatsFichiers lecteur(
      Temporaire.path(),
      [&lectures, attente = disque->get_future().share()] {
        if (++lectures == 1) attente.wait();
        return 0;
      },
      [&instant] { return instant; });
  QStringList rendus;
  for (int i = 0; i < 5; ++i) {
    lecteur.LitEtats([&rendus, i](const EtatsCompagnons&) { rendus << QString::number(i); });
    ASSERT_TRUE(AttendQue([&] { return lectures > 0; })) << "the first one is the one that waits";
    instant += std::chrono::seconds(15);
  }
  EXPECT_TRUE(AttendQue([&] { return !rendus.isEmpty(); }));
  disque->set_value();
  for (int i = 0; i < 20; ++i) Lit();
  EXPECT_EQ(rendus, QStringList("4")) << "neither those in between nor the first, which comes too late";
}

TEST_F(EtatsSurDisque, AReaderThatIsGoneIsToldNothing) {
  int rendus = 0;
  {
    LecteurEtatsFichiers court(Temporaire.path());
    court.LitEtats([&](const EtatsCompagnons&) { ++rendus; });
  }
  for (int i = 0; i < 20; ++i) Lit();
  EXPECT_EQ(rendus, 0);
}

}  // namespace
}  // namespace vaktor::essai
