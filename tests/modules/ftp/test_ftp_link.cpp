// SPDX-License-Identifier: GPL-3.0-or-later
// The FTP companion's link: registering, connecting, losing and finding again, and what is said of it.
#include "modules/ftp/ftp_module_bench.h"

namespace vaktor::essai {
namespace {

TEST_F(Ftp, SaysThatItIsReadyOnceForEachMainProgram) {
  Module->Enregistre(Inscription::kTot);
  EXPECT_EQ(Dits(), "*OKO*");
}

// The main program would take "*OKO*" for a second set of its start arguments.
TEST_F(Ftp, LateItDoesNotTakeBackWhatTheStartArgumentsHaveSwitchedOn) {
  Module->Enregistre(Inscription::kTard);
  EXPECT_EQ(Dits(), "Netdc Decon");
  EXPECT_FALSE(Ouvrier->EnCours()) << "nobody has asked for a connection yet";
  // What the main program sends after "Netdc" when its switch is on.
  EXPECT_EQ(Dit("Surve"), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
}

// The main program knows, and sends "Conne" by itself.
TEST_F(Ftp, StartedAgainItSaysNothingOfItsOwn) {
  Module->Enregistre(Inscription::kRelance);
  EXPECT_EQ(Dits(), "");
  EXPECT_EQ(Dit("Conne"), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, AMainProgramThatHasJustComeHasItsSwitchOff) {
  Publie();
  Module->Enregistre(Inscription::kTot);
  EXPECT_EQ(Dits(), "*OKO*") << "no word about the old connection";
  EXPECT_EQ(Avance(600000), "");
  EXPECT_FALSE(Ouvrier->EnCours());
}

TEST_F(Ftp, ConnectsWordByWord) {
  EXPECT_EQ(Dit("Conne"), "Conne");
  EXPECT_EQ(Ouvrier->Travail.Genre, GenreTravail::kConnexion);
  EXPECT_EQ(Ouvrier->Travail.Acces, (AccesFtp{"ftp.exemple.fr", 2121, "anna", "sesame", "/"}));
  Ouvrier->Etape(EtapeFtp::kServeurTrouve);
  Ouvrier->Etape(EtapeFtp::kIdentification);
  EXPECT_EQ(Dits(), "SerTR Paswo");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, EachFailureOfAFirstConnectionHasItsWordAndStaysOff) {
  for (const auto& [issue, mot] :
       {std::pair(IssueFtp::kServeurInconnu, "SerER"), std::pair(IssueFtp::kAccesRefuse, "LogEr"),
        std::pair(IssueFtp::kDossierAbsent, "RepER"), std::pair(IssueFtp::kPasDeConnexion, "ErrCo")}) {
    Avis.clear();
    Dit("Conne");
    EXPECT_EQ(Finit(issue, "530 Non."), mot);
    EXPECT_EQ(Avis.size(), 1);
    EXPECT_TRUE(EtatEcrit().contains("530 Non."));
    EXPECT_EQ(Avance(600000), "") << mot;
    EXPECT_FALSE(Ouvrier->EnCours());
    EXPECT_EQ(Dit("Surve"), mot) << "one that was on its way gets the same answer";
  }
}

TEST_F(Ftp, IncompleteParametersAreToldWithoutConnecting) {
  const auto manque = [this](auto change) {
    ReglagesModule reglages = Reglages;
    change(reglages.Valeurs);
    Module->PrendReglages(reglages);
    EXPECT_EQ(Dit("Conne"), "Upnot");
    EXPECT_FALSE(Ouvrier->EnCours());
  };
  for (const char* serveur : {"", "ftp.", "ftp://", "  ", "a:b", "a:0", "a b"})
    manque([&](Parametres& p) { p.AdresseFtp = serveur; });
  manque([](Parametres& p) { p.UtilisateurFtp.clear(); });
  manque([](Parametres& p) { p.MotDePasseFtp.clear(); });
  manque([](Parametres& p) { p.UtilisateurFtp = "anna\r\nDELE x"; });
  manque([](Parametres& p) { p.RepertoireFtp = "/a\r\nDELE x"; });
  EXPECT_EQ(Avis.size(), 1);
}

TEST_F(Ftp, WithoutANetworkItTriesAgainByItselfFromTheFirstConnectionOn) {
  Dit("Conne");
  EXPECT_EQ(Finit(IssueFtp::kSansReseau), "Netdc");
  QList<qint64> attentes;
  for (int i = 0; i < 9; ++i) {
    const qint64 debut = Temps.Maintenant();
    while (!Ouvrier->EnCours()) Temps.Avance(100);
    attentes << Temps.Maintenant() - debut;
    EXPECT_EQ(Dits(), "Conne");
    EXPECT_EQ(Finit(IssueFtp::kSansReseau), "Netdc");
  }
  EXPECT_EQ(attentes, QList<qint64>({2000, 5000, 10000, 20000, 40000, 60000, 60000, 60000, 60000}));
  EXPECT_EQ(Avis.size(), 1) << "one outage is one notification";
  Temps.Avance(60000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
}

TEST_F(Ftp, ADayWithoutTheServerIsSurvived) {
  Publie();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  int essais = 0;
  const qint64 fin = Temps.Maintenant() + 86400000;
  while (Temps.Maintenant() < fin) {
    EXPECT_EQ(Dit("Surve"), Ouvrier->EnCours() ? "Conne" : "Netdc");
    Temps.Avance(10000);
    if (!Ouvrier->EnCours()) continue;
    ++essais;
    Finit(essais % 100 != 0 ? IssueFtp::kPasDeConnexion : IssueFtp::kServeurInconnu);
  }
  EXPECT_EQ(Avis.size(), 1) << "one outage is one notification, whatever its faces";
  EXPECT_GT(essais, 1200);
  EXPECT_LT(essais, 1450);
  while (!Ouvrier->EnCours()) Temps.Avance(1000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa") << "and the newest image follows";
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
}

TEST_F(Ftp, ARefusedLoginThatWorkedBeforeIsGivenAFewTries) {
  Publie();
  Dit("Surve");
  Finit(IssueFtp::kPasDeConnexion);
  for (int i = 1; i < ModuleFtp::kRefusMax; ++i) {
    Temps.Avance(60000);
    EXPECT_EQ(Finit(IssueFtp::kAccesRefuse), "Netdc") << i;
  }
  Temps.Avance(60000);
  EXPECT_EQ(Finit(IssueFtp::kAccesRefuse), "LogEr");
  EXPECT_EQ(Avance(600000), "");
}

TEST_F(Ftp, UploadsThatAlwaysLoseTheConnectionEndInErrCo) {
  Connecte();
  Dit("Surve");
  for (int i = 1; i < ModuleFtp::kCoupuresMax; ++i) {
    EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
    Temps.Avance(60000);
    EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
  }
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "ErrCo");
  EXPECT_EQ(Avance(600000), "");
}

TEST_F(Ftp, AnIdleConnectionThatDiesIsNoticed) {
  Connecte();
  Temps.Avance(ModuleFtp::kSigne - 1);
  EXPECT_FALSE(Ouvrier->EnCours());
  Temps.Avance(1);
  ASSERT_TRUE(Ouvrier->EnCours());
  EXPECT_EQ(Ouvrier->Travail.Genre, GenreTravail::kSigne);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "");
  Temps.Avance(ModuleFtp::kSigne);
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  EXPECT_EQ(Avance(2000), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, DisconnectsAtOnceAndAnswersLateImages) {
  Publie();
  Dit("Surve");
  EXPECT_EQ(Dit("Decon"), "Decon");
  EXPECT_FALSE(Ouvrier->EnCours());
  EXPECT_EQ(Dit("Surve"), "Decon");
  EXPECT_EQ(Dit("UploM"), "Decon");
  EXPECT_EQ(Avance(600000), "");
}

TEST_F(Ftp, ConnectingWhileConnectedMakesANewConnection) {
  Publie();
  EXPECT_EQ(Dit("Conne"), "Conne") << "the camera's end turns the switch off without a word to us";
  EXPECT_EQ(Ouvrier->Travail.Genre, GenreTravail::kConnexion);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, AnImageForACompanionThatHasJustComeConnects) {
  EXPECT_EQ(Dit("Surve"), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
}

TEST_F(Ftp, WhatTheUserIsTypingDoesNotMoveARunningConnection) {
  Publie();
  ReglagesModule reglages = Reglages;
  reglages.Valeurs.AdresseFtp = "a";
  reglages.Valeurs.RepertoireFtp = "/ne";
  Module->PrendReglages(reglages);
  Dit("Surve");
  EXPECT_EQ(Ouvrier->Travail.Acces.Hote, "ftp.exemple.fr");
  EXPECT_EQ(Ouvrier->Travail.Acces.Dossier, "/");
}

TEST_F(Ftp, ThePasswordIsInNoFile) {
  Journal.CacheSecret("sesame");
  Etat.CacheSecret("sesame");
  Dit("Conne");
  Finit(IssueFtp::kAccesRefuse, "530 sesame is wrong");
  QFile journal(Temporaire.filePath("ftp.log"));
  ASSERT_TRUE(journal.open(QIODevice::ReadOnly));
  const QByteArray texte = journal.readAll();
  EXPECT_TRUE(texte.contains("530 *** is wrong"));
  EXPECT_FALSE(texte.contains("sesame") || EtatEcrit().contains("sesame"));
}

TEST_F(Ftp, EndsAtOnce) {
  Publie();
  Module->Termine();
  EXPECT_EQ(Dits(), "quitte");
}

}  // namespace
}  // namespace vaktor::essai
