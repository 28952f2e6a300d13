// The program looks whether what its companions send arrives, and its health hears of it.
#include "app/program_fixture.h"

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
