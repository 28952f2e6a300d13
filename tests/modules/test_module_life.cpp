// SPDX-License-Identifier: GPL-3.0-or-later
// A whole companion that has nothing to do goes on telling in its status file that it lives.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>

#include "modules/common/failure_notice.h"
#include "support/companion_program.h"
#include "support/file_bytes.h"

namespace vaktor::essai {
namespace {

TEST_F(ProgrammeCompagnon, SaysAMinuteLaterThatItStillLives) {
  PrepareMilieu();
  Demarre(VAKTOR_SOUND, {});
  ASSERT_TRUE(AttendQue([this] { return Etat.HandleSon != 0; }));
  const auto lit = [this] {
    return QJsonDocument::fromJson(LitTexte(Temporaire.filePath("etat/VAKTORsound.json")).toUtf8()).object();
  };
  const QString depart = lit()["alive"].toString();
  EXPECT_FALSE(depart.isEmpty());
  EXPECT_EQ(lit()["handle"].toInt(), Etat.HandleSon);
  QElapsedTimer temps;
  temps.start();
  while (lit()["alive"].toString() == depart && temps.elapsed() < EtatModule::kBattement * 5 / 2)
    Programme.waitForFinished(200);
  EXPECT_NE(lit()["alive"].toString(), depart);
  EXPECT_EQ(lit()["handle"].toInt(), Etat.HandleSon);
  Programme.terminate();
  EXPECT_TRUE(AttendFin());
}

}  // namespace
}  // namespace vaktor::essai
