// SPDX-License-Identifier: GPL-3.0-or-later
// A session over a device that comes and goes.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/capture/driver/capture_session_bench.h"
#include "platform/capture/streams/capture_delays.h"

namespace vaktor::essai {
namespace {

/// A camera whose node is a file in a folder of the test's own: what is asked, and how often.
class SessionSurPeripherique : public testing::Test {
 protected:
  QuestionsV4L2 Questions() {
    QuestionsV4L2 questions;
    questions.Dossier = Dossier_.path();
    questions.Noeuds = [this] {
      ++Regards_;
      const QStringList noms = QDir(Dossier_.path()).entryList({QStringLiteral("video*")}, QDir::Files);
      return noms.isEmpty() ? QStringList() : QStringList{Noeud()};
    };
    questions.Sonde = [](const QString& noeud) { return CandidatVideo{noeud, "Camera", "m", "m|bus", {}}; };
    questions.Formats = [this](const QString&) { return Offerts_; };
    return questions;
  }
  QString Noeud() const { return Dossier_.filePath(QStringLiteral("video0")); }
  void Branche() const { ASSERT_TRUE(QFile(Noeud()).open(QIODevice::WriteOnly)); }
  void Debranche() const { ASSERT_TRUE(QFile::remove(Noeud())); }
  std::shared_ptr<SessionCapture> Lance(const std::shared_ptr<Scenario>& scenario, SessionCapture::Demande demande) {
    demande.Source = ComprendSource(QString());
    return SessionCapture::Lance(
        std::move(demande),
        [scenario, this](DerniereImage& derniere, const DemandeFlux& flux) {
          const std::lock_guard verrou(scenario->Verrou);
          Demandes_.append(flux.Format);
          return std::make_unique<FluxJoue>(derniere, scenario);
        },
        Questions());
  }

  QTemporaryDir Dossier_;
  QList<FormatCamera> Offerts_;  // set before the start
  std::atomic<int> Regards_ = 0;
  QList<FormatCamera> Demandes_;  // the scenario's lock
};

// Opening its node each two seconds would keep other cameras awake for as long as this one is away.
TEST_F(SessionSurPeripherique, AnUnpluggedCameraIsAwaitedWithoutALookAndTakenWhenItsNodeComes) {
  Branche();
  const auto scenario = std::make_shared<Scenario>();
  scenario->Suites = {Scenario::Suite::kErreur, Scenario::Suite::kCoule};
  const auto session = Lance(scenario, {});
  ASSERT_TRUE(DonneUneImage(*session, 3s));
  Debranche();
  ASSERT_TRUE(Attends([&] { return session->Derniere().Perdu(); }, 10s));
  std::this_thread::sleep_for(DelaisCapture::kApresBranchement + DelaisCapture::kPauses.front());
  const int regards = Regards_;
  std::this_thread::sleep_for(2 * DelaisCapture::kPauses.front() + 500ms);
  EXPECT_EQ(Regards_, regards) << "nothing was plugged in";
  const quint64 images = session->Derniere().Numero();
  Branche();
  EXPECT_TRUE(Attends([&] { return session->Derniere().Numero() > images + 1; }, 15s));
  EXPECT_GT(session->Derniere().Prend(0).Reprises, 0U);
  EXPECT_TRUE(session->Arrete(1s));
}

TEST_F(SessionSurPeripherique, AStopDoesNotWaitForWhatIsPluggedIn) {
  Branche();
  const auto scenario = std::make_shared<Scenario>();
  scenario->Suites = {Scenario::Suite::kErreur};
  const auto session = Lance(scenario, {});
  ASSERT_TRUE(DonneUneImage(*session, 3s));
  Debranche();
  std::this_thread::sleep_for(DelaisCapture::kApresBranchement + 2 * DelaisCapture::kPauses.front() + 500ms);
  EXPECT_TRUE(session->Arrete(1s));
}

// It may be opened, so that neither the system nor GStreamer has anything to say.
TEST_F(SessionSurPeripherique, ACameraThatIsThereAndGivesNothingIsToldWithWhatToDo) {
  Branche();
  for (const auto suite : {Scenario::Suite::kRefuse, Scenario::Suite::kOccupee}) {
    const auto scenario = std::make_shared<Scenario>();
    scenario->Suites = {suite, Scenario::Suite::kRefuse};
    const auto session = Lance(scenario, {});
    ASSERT_TRUE(Attends([&] { return session->EstFinie(); }, 5s));
    EXPECT_EQ(session->Pourquoi().Quoi, suite == Scenario::Suite::kOccupee ? Motif::kOccupee : Motif::kSansImage);
    EXPECT_TRUE(session->Arrete(1s));
  }
}

// What was tried last and gave nothing is not what is known: all of it is tried again.
TEST_F(SessionSurPeripherique, ASessionThatGoesOnTryingTriesEverythingAgainUntilSomethingIsKnown) {
  Branche();
  const FormatCamera voulu{QStringLiteral("YUYV"), 640, 480, 30, 1};
  const auto scenario = std::make_shared<Scenario>();
  scenario->Suites = {Scenario::Suite::kRefuse, Scenario::Suite::kRefuse, Scenario::Suite::kErreur,
                      Scenario::Suite::kCoule};
  SessionCapture::Demande demande;
  demande.Persiste = true;
  demande.Format = voulu;
  const auto session = Lance(scenario, demande);
  ASSERT_TRUE(Attends([&] { return scenario->Nombre() >= 2; }, 3s));
  EXPECT_TRUE(session->Noeud().isEmpty()) << "it is only being tried";
  ASSERT_TRUE(Attends([&] { return scenario->Nombre() >= 4 && session->Derniere().Numero() > 4; }, 12s));
  EXPECT_EQ(session->Noeud(), Noeud());
  EXPECT_TRUE(session->Arrete(1s));
  EXPECT_EQ(Demandes_, (QList<FormatCamera>{voulu, FormatCamera(), voulu, voulu}))
      << "refused, both again, then the one that has worked";
}

// At another port it may have less bandwidth: not even a format that somebody has chosen for it is there for ever.
TEST_F(SessionSurPeripherique, WhatItOffersIsTriedAgainWhenTheFormatThatWorkedDoesNotAnyMore) {
  Branche();
  const FormatCamera voulu{QStringLiteral("YUYV"), 640, 480, 30, 1};
  const FormatCamera autre{QStringLiteral("MJPG"), 320, 240, 30, 1};
  Offerts_ = {autre};
  const auto scenario = std::make_shared<Scenario>();
  scenario->Suites = {Scenario::Suite::kErreur, Scenario::Suite::kRefuse, Scenario::Suite::kCoule};
  SessionCapture::Demande demande;
  demande.Format = voulu;
  demande.FormatImpose = true;
  const auto session = Lance(scenario, demande);
  ASSERT_TRUE(Attends([&] { return scenario->Nombre() >= 3 && session->Derniere().Numero() > 4; }, 12s));
  EXPECT_TRUE(session->Arrete(1s));
  EXPECT_EQ(Demandes_, (QList<FormatCamera>{voulu, voulu, autre}));
}

TEST_F(SessionSurPeripherique, ACameraThatIsTheChosenOneIsNoOther) {
  Branche();
  const auto scenario = std::make_shared<Scenario>();
  scenario->Suites = {Scenario::Suite::kCoule};
  SessionCapture::Demande demande;
  demande.OuLaSeule = true;
  const auto session = Lance(scenario, demande);
  ASSERT_TRUE(DonneUneImage(*session, 3s));
  EXPECT_FALSE(session->EstAutre()) << "nothing was chosen";
  EXPECT_TRUE(session->Arrete(1s));
}

// As at the start of the machine: the camera of the house is there long before the chosen one.
class SessionSurDeux : public testing::Test {
 protected:
  QuestionsV4L2 Questions() {
    QuestionsV4L2 questions;
    questions.Dossier = Dossier_.path();
    questions.Noeuds = [this] { return Presents(); };
    questions.Sonde = [](const QString& noeud) {
      return CandidatVideo{noeud, "Camera", noeud, "uvcvideo|" + noeud.right(6) + "|usb", {}};
    };
    questions.Formats = [](const QString&) { return QList<FormatCamera>(); };
    return questions;
  }
  QStringList Presents() const {
    QStringList noeuds;
    for (const QString& nom : QDir(Dossier_.path()).entryList({QStringLiteral("video*")}, QDir::Files))
      noeuds += Dossier_.filePath(nom);
    return noeuds;
  }
  void Branche(const char* nom) const {
    ASSERT_TRUE(QFile(Dossier_.filePath(QLatin1String(nom))).open(QIODevice::WriteOnly));
  }
  std::shared_ptr<SessionCapture> Attend(std::chrono::milliseconds avantUneAutre) {
    const auto scenario = std::make_shared<Scenario>();
    scenario->Suites = {Scenario::Suite::kCoule};
    SessionCapture::Demande demande;
    demande.Source = ComprendSource(QStringLiteral("uvcvideo|video1|usb"));
    demande.OuLaSeule = true;
    demande.Persiste = true;
    demande.AvantUneAutre = avantUneAutre;
    return SessionCapture::Lance(
        std::move(demande),
        [scenario](DerniereImage& derniere, const DemandeFlux&) {
          return std::make_unique<FluxJoue>(derniere, scenario);
        },
        Questions());
  }

  QTemporaryDir Dossier_;
};

TEST_F(SessionSurDeux, AStartThatNobodyLooksAtWaitsForTheChosenOneBeforeItTakesTheOther) {
  Branche("video0");
  const auto session = Attend(DelaisCapture::kAvantUneAutre);
  EXPECT_FALSE(DonneUneImage(*session, DelaisCapture::kApresBranchement + 3s));
  Branche("video1");
  ASSERT_TRUE(DonneUneImage(*session, 15s));
  EXPECT_TRUE(session->Noeud().endsWith("video1")) << qUtf8Printable(session->Noeud());
  EXPECT_FALSE(session->EstAutre());
  EXPECT_TRUE(session->Arrete(1s));
}

TEST_F(SessionSurDeux, WhatDoesNotComeForLongLeavesItsPlaceAllTheSame) {
  Branche("video0");
  const auto session = Attend(1s);
  ASSERT_TRUE(DonneUneImage(*session, 15s));
  EXPECT_TRUE(session->EstAutre());
  EXPECT_TRUE(session->Arrete(1s));
}

}  // namespace
}  // namespace vaktor::essai
