// SPDX-License-Identifier: GPL-3.0-or-later
// The machine is asked to stay awake while the camera runs, and what it slept or its clock jumped is told. Virtual
// time.
#include <gtest/gtest.h>

#include <QDateTime>
#include <ctime>

#include "fakes/fake_awake_machine.h"
#include "fakes/fake_health_report.h"
#include "fakes/virtual_timers.h"
#include "health/awake_watch.h"

namespace vaktor {
namespace {

class Eveil : public testing::Test {
 protected:
  Eveil() { Zone("UTC"); }

 public:
  ~Eveil() override { Zone("UTC"); }

 protected:
  static void Zone(const char* nom) {
    qputenv("TZ", nom);
    ::tzset();
  }
  static qint64 Moment(const char* iso) {
    return QDateTime::fromString(QLatin1String(iso), Qt::ISODate).toMSecsSinceEpoch();
  }
  /// The clock shows this now.
  void PoseHeure(const char* iso) { Machine.MuralMs = Moment(iso) - Horloge.Millisecondes - Machine.DormiMs; }
  void DormirMs(qint64 ms) { Machine.DormiMs += ms; }
  QString Trous() const { return Sante.Details.value(Condition::kInterruption); }
  bool Refus() const { return Sante.Dure(Condition::kVeillePossible); }
  void MetCamera(bool marche) {
    Camera = marche;
    Temps.Avance(1000);
  }

  faux::Journal Notes;
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::SanteFausse Sante;
  faux::MachineFausse Machine{Notes, Horloge};
  bool Camera = false;
  bool Armee = false;
  GardeEveil Garde{PortsEveil{Machine, Temps, Sante, [this] { return Camera; }, [this] { return Armee; }}};
};

TEST_F(Eveil, IsAskedForWhileTheCameraRunsAndGivenBackAfterwards) {
  Temps.Avance(10'000);
  EXPECT_EQ(Machine.Demandes, 0);
  MetCamera(true);
  EXPECT_TRUE(Machine.Tenue);
  MetCamera(false);
  EXPECT_FALSE(Machine.Tenue);
  Temps.Avance(200'000);
  EXPECT_EQ(Machine.Demandes, 1);
  EXPECT_FALSE(Refus());
}

TEST_F(Eveil, IsGivenBackAtTheEndAndNotAskedForAgain) {
  MetCamera(true);
  Garde.Arrete();
  EXPECT_FALSE(Machine.Tenue);
  Temps.Avance(200'000);
  EXPECT_EQ(Machine.Demandes, 1);
}

TEST_F(Eveil, ThatNobodyAskedForIsNotGivenBack) {
  Notes.Ecoute();
  Temps.Avance(5000);
  Garde.Arrete();
  EXPECT_TRUE(Notes.Lignes().isEmpty());
}

TEST_F(Eveil, RefusedIsAConditionWithTheirWordsWhileTheCameraRuns) {
  Machine.Repond = ReponseEveil::kRefusee;
  Machine.Mots = QStringLiteral("Permission denied");
  MetCamera(true);
  EXPECT_TRUE(Refus());
  EXPECT_EQ(Sante.Details.value(Condition::kVeillePossible), QStringLiteral("Permission denied"));
  MetCamera(false);
  EXPECT_FALSE(Refus());
  Machine.Repond = ReponseEveil::kAccordee;
  MetCamera(true);
  EXPECT_FALSE(Refus());
}

TEST_F(Eveil, RefusedOnceSaysNothingOfTheNextRunOfTheCamera) {
  Machine.Repond = ReponseEveil::kRefusee;
  MetCamera(true);
  MetCamera(false);
  Machine.Lente = true;
  MetCamera(true);
  EXPECT_FALSE(Refus()) << "nobody has answered yet";
  Machine.DonneReponse();
  Temps.Avance(1000);
  EXPECT_TRUE(Refus());
}

TEST_F(Eveil, RefusedIsAskedForAgainEachMinuteUntilItIsGranted) {
  Machine.Repond = ReponseEveil::kRefusee;
  MetCamera(true);
  Temps.Avance(59'000);
  EXPECT_EQ(Machine.Demandes, 1);
  Machine.Repond = ReponseEveil::kAccordee;
  Temps.Avance(1000);
  EXPECT_EQ(Machine.Demandes, 2);
  EXPECT_FALSE(Refus());
}

// The holder may be gone: the machine looks, and asks anew where it must.
TEST_F(Eveil, GrantedIsLookedAfterEachMinute) {
  MetCamera(true);
  Machine.Repond = ReponseEveil::kRefusee;
  Temps.Avance(60'000);
  EXPECT_TRUE(Refus());
}

TEST_F(Eveil, AnAnswerThatIsLateIsNoCondition) {
  Machine.Lente = true;
  Machine.Repond = ReponseEveil::kRefusee;
  MetCamera(true);
  Temps.Avance(30'000);
  EXPECT_FALSE(Refus());
  Machine.DonneReponse();
  Temps.Avance(1000);
  EXPECT_TRUE(Refus());
}

// A container, a desktop without a login manager: a sign that can never be put right would only teach to overlook it.
TEST_F(Eveil, WithNobodyToAskIsTurnedIntoAConditionOnlyWhileArmed) {
  Machine.Repond = ReponseEveil::kPersonne;
  MetCamera(true);
  EXPECT_FALSE(Refus());
  Armee = true;
  Temps.Avance(1000);
  EXPECT_TRUE(Refus());
  Armee = false;
  Temps.Avance(1000);
  EXPECT_FALSE(Refus());
}

TEST_F(Eveil, ASleepIsToldAsFromAndTo) {
  MetCamera(true);
  PoseHeure("2020-03-01T02:10:00Z");
  Temps.Avance(1000);  // the clock was set, too: told beside it
  Sante.Details.clear();
  DormirMs(4 * 3'600'000 + 30 * 60'000);
  Temps.Avance(1000);
  EXPECT_TRUE(Trous().endsWith(QStringLiteral("02:10 - 06:40"))) << Trous().toStdString();
  EXPECT_EQ(Sante.Debuts.value(Condition::kInterruption), 2);
}

TEST_F(Eveil, ASleepWithTheCameraOffIsNoGap) {
  Temps.Avance(1000);
  DormirMs(3'600'000);
  Temps.Avance(1000);
  DormirMs(3'600'000);
  MetCamera(true);
  Temps.Avance(5000);
  EXPECT_TRUE(Trous().isEmpty()) << Trous().toStdString();
}

TEST_F(Eveil, AProcessThatStoodStillIsAGapToo) {
  PoseHeure("2020-03-01T12:00:00Z");
  MetCamera(true);
  Horloge.Millisecondes += 30'000;  // no tick came in between
  Temps.Avance(1000);
  EXPECT_TRUE(Trous().startsWith(QStringLiteral("12:00:"))) << Trous().toStdString();
}

TEST_F(Eveil, TheLastThreeGapsOfARunAreToldAndAnotherRunBeginsAnew) {
  PoseHeure("2020-03-01T01:00:00Z");
  MetCamera(true);
  for (int i = 0; i < 4; ++i) {
    DormirMs(3'600'000);
    Temps.Avance(1000);
  }
  EXPECT_EQ(Trous(), QStringLiteral("02:00 - 03:00, 03:00 - 04:00, 04:00 - 05:00"));
  MetCamera(false);
  MetCamera(true);
  DormirMs(3'600'000);
  Temps.Avance(1000);
  EXPECT_EQ(Trous(), QStringLiteral("05:00 - 06:00"));
}

// Midnight and summer time are words of the clock and no gaps.
TEST_F(Eveil, NeitherMidnightNorSummerTimeNorSmallCorrectionsAreGaps) {
  Zone("Europe/Paris");
  for (const char* avant : {"2020-03-01T22:59:55Z", "2020-03-29T00:59:55Z", "2020-10-25T00:59:55Z"}) {
    Camera = false;
    Temps.Avance(1000);
    PoseHeure(avant);
    MetCamera(true);
    Temps.Avance(30'000);
    Machine.MuralMs -= 40'000;  // a time server
    Temps.Avance(30'000);
    EXPECT_TRUE(Trous().isEmpty()) << avant << ": " << Trous().toStdString();
  }
}

TEST_F(Eveil, ASleepOverTheChangeToSummerTimeIsToldByTheClockOnTheWall) {
  Zone("Europe/Paris");
  PoseHeure("2020-03-29T00:29:59Z");
  MetCamera(true);
  DormirMs(3'600'000);
  Temps.Avance(1000);
  EXPECT_EQ(Trous(), QStringLiteral("01:30 - 03:30"));
}

TEST_F(Eveil, AClockThatWasSetIsToldWithWhatItShowedAndShows) {
  PoseHeure("2020-03-01T12:00:00Z");
  MetCamera(true);
  PoseHeure("2019-03-01T12:00:01Z");
  Temps.Avance(1000);
  EXPECT_EQ(Trous(), QStringLiteral("2020-03-01 12:00 - 2019-03-01 12:00"));
  // And nothing waits for a year: the request is looked after each minute as before.
  const int demandes = Machine.Demandes;
  Temps.Avance(60'000);
  EXPECT_EQ(Machine.Demandes, demandes + 1);
}

TEST_F(Eveil, WordsOfAGap) {
  const auto dit = [](const char* de, const char* a) { return GardeEveil::DitTrou(Moment(de), Moment(a)); };
  EXPECT_EQ(dit("2020-03-01T02:10:00Z", "2020-03-01T06:40:59Z"), QStringLiteral("02:10 - 06:40"));
  EXPECT_EQ(dit("2020-03-01T02:10:05Z", "2020-03-01T02:10:35Z"), QStringLiteral("02:10:05 - 02:10:35"));
  EXPECT_EQ(dit("2020-02-29T23:50:00Z", "2020-03-01T06:40:00Z"), QStringLiteral("2020-02-29 23:50 - 2020-03-01 06:40"));
}

}  // namespace
}  // namespace vaktor
