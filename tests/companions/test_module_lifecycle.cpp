// SPDX-License-Identifier: GPL-3.0-or-later
// Strays out, fresh companions in.
#include <gtest/gtest.h>

#include "base/failure.h"
#include "companions/companion_fakes.h"

namespace vaktor::essai {
namespace {

struct Modules : testing::Test {
  QStringList Journal;
  ProcessusFaux Processus{Journal};
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/home/u/vaktor")};
  Parametres Reglages;
  ModulesCompagnons Regles{Processus,
                           [this](Compagnon compagnon) {
                             const QString chemin = Dossiers.Executables + u'/' + DonneIdentite(compagnon).Programme;
                             return Processus.LanceSuivi({.Chemin = chemin}, [] {}) != nullptr;
                           },
                           Reglages};
  const QString Lancements =
      QStringLiteral("lance /opt/vaktor/VAKTORftp|lance /opt/vaktor/VAKTORmail|lance /opt/vaktor/VAKTORsound");
};

TEST_F(Modules, WithoutStraysNothingIsEnded) {
  Processus.Table = {{7, "Vaktor", "Vaktor"}, {8, "bash", "bash"}};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), Lancements);
}

TEST_F(Modules, StraysAreEndedAndCompanionsStartedInTheSameOrder) {
  Processus.Table = {{1, "VAKTORsound", ""}, {2, "VAKTORmail", ""}, {3, "VAKTORftp", ""}};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 3|termine 2|termine 1|" + Lancements);
}

TEST_F(Modules, NamesMatchAsPartsWithoutRegardToCase) {
  Processus.Table = {
      {1, "my-vaktorFTP-old", ""}, {2, "python3.11", "VAKTORmail"}, {3, "vaktorsoun", ""}, {4, "dash", "sh", ""}};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 1|termine 2|" + Lancements);
}

TEST_F(Modules, AScriptIsKnownByItsOwnName) {
  Processus.Table = {{1, "python3.11", "python3", ""}, {2, "python3.11", "python3", "VAKTORsound"}};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 2|" + Lancements);
}

TEST_F(Modules, ARehearsalIsNoStray) {
  Processus.Table = {{1, "VAKTORmail", "", "", true}, {2, "VAKTORmail", ""}};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 2|" + Lancements);
}

TEST_F(Modules, AStartLeavesNoSecondStrayBehind) {
  for (qint32 pid = 5; pid < 15; ++pid) Processus.Table.append({pid, "VAKTORftp", ""});
  Regles.LanceModules();
  EXPECT_TRUE(Processus.Table.isEmpty());
}

TEST_F(Modules, BehindOneThatHasEndedByItselfTheOthersAreEndedToo) {
  Processus.Table = {{5, "VAKTORftp", ""}, {6, "VAKTORftp", ""}};
  Processus.FinisSeuls = {5};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 5|termine 6|termine 1005|" + Lancements);
  EXPECT_TRUE(Processus.Table.isEmpty());
}

TEST_F(Modules, AProcessThatCannotBeEndedIsPassedOver) {
  Processus.Table = {{5, "VAKTORftp", ""}, {6, "VAKTORmail", ""}};
  Processus.Immortels = {5};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 5|termine 6|" + Lancements);
}

TEST_F(Modules, BehindOneThatCannotBeEndedTheOthersAreEnded) {
  Processus.Table = {{5, "VAKTORftp", ""}, {6, "VAKTORftp", ""}, {7, "VAKTORftp", ""}};
  Processus.Immortels = {5};
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 5|termine 6|termine 7|" + Lancements);
}

TEST_F(Modules, ProcessesThatWillNotDieDoNotHoldTheStartUp) {
  for (qint32 pid = 1; pid <= 50; ++pid) {
    Processus.Table.append({pid, "VAKTORftp", ""});
    Processus.Immortels.append(pid);
  }
  Regles.LanceModules();
  EXPECT_EQ(Journal.filter("termine").size(), 4) << "each costs half a second";
  EXPECT_TRUE(Journal.join(u'|').endsWith(Lancements));
}

TEST_F(Modules, AMissingCompanionEndsTheStartAndIsNamed) {
  Processus.Absents = {"/opt/vaktor/VAKTORmail"};
  try {
    Regles.LanceModules();
    FAIL() << "no failure";
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), kFichierIntrouvable);
    EXPECT_TRUE(echec.Description().contains("VAKTORmail est introuvable")) << echec.what();
  }
  EXPECT_EQ(Journal.join(u'|'), "lance /opt/vaktor/VAKTORftp|lance /opt/vaktor/VAKTORmail");
}

TEST_F(Modules, TheMissingCompanionIsTold_InEnglishToo) {
  Reglages.LangueCourante = 1;
  Processus.Absents = {"/opt/vaktor/VAKTORftp"};
  try {
    Regles.LanceModules();
    FAIL() << "no failure";
  } catch (const Echec& echec) {
    EXPECT_TRUE(echec.Description().contains("VAKTORftp is missing")) << echec.what();
  }
}

TEST_F(Modules, AHundredProcessesAreNoLimit) {
  for (qint32 pid = 100; pid < 400; ++pid) Processus.Table.append({pid, "autre", "autre"});
  Processus.Table.append({999, "VAKTORftp", ""});
  Regles.LanceModules();
  EXPECT_EQ(Journal.join(u'|'), "termine 999|" + Lancements);
}

}  // namespace
}  // namespace vaktor::essai
