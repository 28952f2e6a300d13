// SPDX-License-Identifier: GPL-3.0-or-later
// The program looks whether what its companions send arrives, and its health hears of it.
#include "app/program_fixture.h"
#include "ui/controls/health_sign.h"

namespace vaktor::essai {
namespace {

using EnvoisDuProgramme = ProgrammeSurFaux;

TEST_F(EnvoisDuProgramme, TheFilesAreLookedAtOnceMailsAreOn) {
  Systeme.Valeurs.insert("MAIL/actif", "1");
  DemarreJusquALaFenetre();
  Systeme.Recoit(1002, "HWND:72");
  Systeme.Etats.Etats.Mail = {.Poignee = 72, .Attente = 600'000, .Publie = {}, .MotsServeur = {}};
  Systeme.Temps.Avance(SuiviEnvois::kRegard);
  EXPECT_EQ(Systeme.Etats.Demandes, 1);
}

TEST_F(EnvoisDuProgramme, MailsThatWaitStandInTheSignUntilTheyAreGone) {
  Systeme.Valeurs.insert("MAIL/actif", "1");
  DemarreJusquALaFenetre();
  InscritCompagnons();
  auto* signe = Trouve<SigneSante>("SigneSante");
  Systeme.Etats.Etats.Mail = {.Poignee = 72, .Attente = 600'000, .Publie = {}, .MotsServeur = "451 later"};
  EXPECT_FALSE(signe->isVisible());
  Systeme.Temps.Avance(SuiviEnvois::kRegard + 2000);
  EXPECT_TRUE(signe->isVisible());
  EXPECT_EQ(signe->toolTip(), PhraseQuoi(Condition::kCourrielsEnAttente, "451 later", Langue::kAnglais));
  Systeme.Etats.Etats.Mail.Attente = {};
  Systeme.Temps.Avance(SuiviEnvois::kRegard + 2000);
  EXPECT_FALSE(signe->isVisible());
}

// A companion whose disk is full writes nothing of what becomes of the mails.
TEST_F(EnvoisDuProgramme, ACompanionThatGivesNoNewsStandsInTheSignAndOneThatIsAwayOnlyAsThat) {
  Systeme.Valeurs.insert("MAIL/actif", "1");
  DemarreJusquALaFenetre();
  InscritCompagnons();
  auto* signe = Trouve<SigneSante>("SigneSante");
  Systeme.Temps.Avance(SuiviEnvois::kSansNouvelles);
  EXPECT_FALSE(signe->isVisible());
  Systeme.Temps.Avance(2 * SuiviEnvois::kRegard + 2000);
  EXPECT_TRUE(signe->isVisible());
  EXPECT_EQ(signe->toolTip(), PhraseQuoi(Condition::kEnvoisInconnus, "VAKTORmail", Langue::kAnglais));
  Systeme.Programmes.Finit("/opt/v/VAKTORmail");
  Systeme.Temps.Avance(SuiviEnvois::kRegard + 2000);
  EXPECT_EQ(signe->toolTip().left(20), PhraseQuoi(Condition::kCompagnonMail, {}, Langue::kAnglais).left(20));
  for (const ConditionEnCours& condition : dynamic_cast<SanteVeille&>(Programme->Sante()).EnCours())
    EXPECT_NE(condition.Quoi, Condition::kEnvoisInconnus);
}

TEST_F(EnvoisDuProgramme, WithMailsAndLivePageOffNoFileIsLookedAt) {
  DemarreJusquALaFenetre();
  Systeme.Temps.Avance(600'000);
  EXPECT_EQ(Systeme.Etats.Demandes, 0);
}

TEST_F(EnvoisDuProgramme, AfterTheStopNothingIsLookedAtAnyMore) {
  Systeme.Valeurs.insert("MAIL/actif", "1");
  DemarreJusquALaFenetre();
  Programme->Ferme();
  EXPECT_EQ(Systeme.Etats.Oublis, 1);
  Systeme.Temps.Avance(600'000);
  EXPECT_EQ(Systeme.Etats.Demandes, 0);
}

}  // namespace
}  // namespace vaktor::essai
