// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "app/start_arguments.h"

namespace vaktor {
namespace {

TEST(StartArguments, CameraIsTakenOutOfTheTextThatIsLookedThrough) {
  const ArgumentsDepart lus = LitArgumentsDepart({QStringLiteral("/camera:/dev/alarm/surve"), QStringLiteral("/x")});
  EXPECT_EQ(lus.Camera, QStringLiteral("/dev/alarm/surve"));
  EXPECT_EQ(lus.LigneCommande, QStringLiteral("/x"));
}

TEST(StartArguments, QuotedValuesKeepTheirBlanks) {
  const ArgumentsDepart lus = LitArgumentsDepart(
      {QStringLiteral("/CAMERA:my film /alarm.avi"), QStringLiteral("/Dossier:some where"), QStringLiteral("/SURVE")});
  EXPECT_EQ(lus.Camera, QStringLiteral("my film /alarm.avi"));
  EXPECT_EQ(lus.Dossier, QStringLiteral("some where"));
  EXPECT_EQ(lus.LigneCommande, QStringLiteral("/SURVE"));
}

TEST(StartArguments, OrderIsFreeAndTheRestStaysOneText) {
  const ArgumentsDepart lus =
      LitArgumentsDepart({QStringLiteral("/surve"), QStringLiteral("/camera:test"), QStringLiteral("/alarm")});
  EXPECT_EQ(lus.LigneCommande, QStringLiteral("/surve /alarm"));
  EXPECT_FALSE(lus.Aide);
  EXPECT_FALSE(lus.Version);
}

TEST(StartArguments, HelpAndVersionAreAskedForByName) {
  EXPECT_TRUE(LitArgumentsDepart({QStringLiteral("--help")}).Aide);
  EXPECT_TRUE(LitArgumentsDepart({QStringLiteral("--version")}).Version);
  EXPECT_TRUE(LitArgumentsDepart({QStringLiteral("--cameras")}).Cameras);
  EXPECT_TRUE(TrouveInconnus({QStringLiteral("--cameras")}).isEmpty());
  EXPECT_TRUE(TexteAide(Langue::kAnglais).contains(QStringLiteral("/camera:WHERE")));
  EXPECT_TRUE(TexteAide(Langue::kFrancais).contains(QStringLiteral("/camera:LIEU")));
}

TEST(StartArguments, ArgumentsThatMeanNothingAreFound) {
  EXPECT_EQ(TrouveInconnus({QStringLiteral("/camera:"), QStringLiteral("/dossier:x"), QStringLiteral("x/ALARM/Surve"),
                            QStringLiteral("--hlep"), QStringLiteral("-h"), QStringLiteral("/kamera:test"),
                            QStringLiteral("--version")}),
            (QStringList{QStringLiteral("--hlep"), QStringLiteral("/kamera:test")}));
  EXPECT_TRUE(TrouveInconnus({}).isEmpty());
}

TEST(StartArguments, WhatIsSwitchedOnIsFoundAnywhereInAnyCase) {
  for (const char* ligne : {"/alarm", "\"C:/x/Vaktor\" /ALARM", "xx/Alarmyy", "vaktor /surve /alarm"}) {
    EXPECT_TRUE(LitArgumentsAuto(QString::fromLatin1(ligne)).Alarme) << ligne;
  }
  EXPECT_TRUE(LitArgumentsAuto(QStringLiteral("x/ALARM/Surveillance")).Live);
  EXPECT_FALSE(LitArgumentsAuto(QStringLiteral("/surve")).Alarme);
  const ArgumentsAuto aucun = LitArgumentsAuto(QStringLiteral("vaktor -alarm /al arm /sur ve"));
  EXPECT_FALSE(aucun.Alarme);
  EXPECT_FALSE(aucun.Live);
}

TEST(StartArguments, NothingGivenIsNothingNamed) {
  const ArgumentsDepart lus = LitArgumentsDepart({});
  EXPECT_TRUE(lus.Camera.isEmpty());
  EXPECT_TRUE(lus.Dossier.isEmpty());
  EXPECT_TRUE(lus.LigneCommande.isEmpty());
}

}  // namespace
}  // namespace vaktor
