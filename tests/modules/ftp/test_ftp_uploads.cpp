// SPDX-License-Identifier: GPL-3.0-or-later
// What the FTP companion uploads, in which turn: live image, page and photos.
#include "modules/ftp/ftp_module_bench.h"

namespace vaktor::essai {
namespace {

TEST_F(Ftp, UploadsTheLiveImageAndSaysHowItWent) {
  Connecte();
  EXPECT_EQ(Dit("Surve"), "Uploa");
  EXPECT_EQ(Ouvrier->Travail.Source, Temporaire.filePath("Temp/Live.jpg"));
  EXPECT_EQ(Ouvrier->Travail.Nom, "live.jpg");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_EQ(Avance(ModuleFtp::kCalme), "Surve") << "at rest the window says that monitoring is active";
  EXPECT_EQ(Avance(30000), "") << "once";
}

TEST_F(Ftp, OfManyImagesOnlyTheNewestCounts) {
  Connecte();
  EXPECT_EQ(Dit("Surve"), "Uploa");
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(Dit("Surve"), "");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK Uploa");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_FALSE(Ouvrier->EnCours());
}

TEST_F(Ftp, AnImageThatWasPublishedIsNotPublishedAgain) {
  Connecte();
  PoseLive();
  EXPECT_EQ(Dit("Surve"), "Uploa");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  Temps.Avance(1000);
  EXPECT_EQ(Dit("Surve"), "ConOK") << "ready for the next";
  EXPECT_FALSE(Ouvrier->EnCours());
  PoseLive();
  EXPECT_EQ(Dit("Surve"), "Uploa");
}

TEST_F(Ftp, AfterAReconnectionTheLastImageGetsNoNewTime) {
  Connecte();
  PoseLive();
  Dit("Surve");
  Finit(IssueFtp::kReussi);
  Temps.Avance(1000);
  PoseLive();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc") << "it is still wanted";
  qint64 attente = 0;
  while (!Ouvrier->EnCours()) Temps.Avance(1000), attente += 1000;
  ASSERT_LT(attente, 3 * 10'000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa") << "and new enough";
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  Temps.Avance(1000);
  for (int i = 0; i < 5; ++i) {
    while (!Ouvrier->EnCours()) Temps.Avance(1000);
    EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  }
  while (!Ouvrier->EnCours()) Temps.Avance(1000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK") << "three intervals are over";
  EXPECT_FALSE(Ouvrier->EnCours());
  EXPECT_EQ(Dit("Surve"), "ConOK") << "what the main program asks for a minute after \"Netdc\"";
  PoseLive();
  EXPECT_EQ(Dit("Surve"), "Uploa");
}

TEST_F(Ftp, HowOldAnImageMayBeFollowsTheInterval) {
  for (const auto& [intervalle, age] : {std::pair("10", 30'000), std::pair("0,5", 5'000), std::pair("60", 180'000)}) {
    Reglages.Valeurs.IntervalleFtp = intervalle;
    for (const qint64 trop : {1, 0}) {
      CreeModule();  // one that finds the file as it starts
      Connecte();
      PoseLive(age + trop);
      EXPECT_EQ(Dit("Surve"), trop > 0 ? "ConOK" : "Uploa") << intervalle;
    }
  }
}

TEST_F(Ftp, AnImageThatWasSeenToChangeIsNewWhateverTheClockOfItsDiskSays) {
  Connecte();
  PoseLive(3'600'000);
  EXPECT_EQ(Dit("Surve"), "ConOK") << "nothing but its date tells how old it is";
  Temps.Avance(10'000);
  PoseLive(3'600'000);
  EXPECT_EQ(Dit("Surve"), "Uploa");
  Finit(IssueFtp::kPasDeConnexion);
  for (int i = 0; i < 4; ++i) {  // and so it grows old
    while (!Ouvrier->EnCours()) Temps.Avance(1000);
    Finit(IssueFtp::kPasDeConnexion);
  }
  while (!Ouvrier->EnCours()) Temps.Avance(1000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, AnotherServerGetsTheImageTheFirstHas) {
  Connecte();
  PoseLive();
  Dit("Surve");
  Finit(IssueFtp::kReussi);
  Connecte();
  EXPECT_EQ(Dit("Surve"), "Uploa");
}

TEST_F(Ftp, TheStatusFileTellsWhenTheLastImageWasPublished) {
  EXPECT_FALSE(EtatLu().contains("live_since"));
  Connecte();
  EXPECT_EQ(EtatLu()["live_since"].toString(), EtatModule::EcritInstant(Maintenant()));
  EXPECT_FALSE(EtatLu().contains("live_published"));
  Temps.Avance(7'000);
  PoseLive();
  Dit("Surve");
  Finit(IssueFtp::kPasDeConnexion);
  EXPECT_FALSE(EtatLu().contains("live_published")) << "it did not arrive";
  Temps.Avance(2'000);
  Finit(IssueFtp::kReussi);
  Finit(IssueFtp::kReussi);
  EXPECT_EQ(EtatLu()["live_published"].toString(), EtatModule::EcritInstant(Maintenant()));
  EXPECT_EQ(EtatLu()["live_since"].toString(), EtatModule::EcritInstant(Maintenant() - 9'000));
  Dit("Decon");
  EXPECT_FALSE(EtatLu().contains("live_since"));
  EXPECT_FALSE(EtatLu().contains("live_published"));
}

TEST_F(Ftp, ALivePageThatEndsInAnErrorOrWithTheProgramIsNotOnAnyMore) {
  Dit("Conne");
  Finit(IssueFtp::kAccesRefuse);
  EXPECT_FALSE(EtatLu().contains("live_since"));
  Publie();
  EXPECT_TRUE(EtatLu().contains("live_published"));
  Module->Termine();
  EXPECT_FALSE(EtatLu().contains("live_since") || EtatLu().contains("live_published"));
}

TEST_F(Ftp, AnImageThatIsBeingRewrittenIsLeftToTheNext) {
  Connecte();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kSourceIncomplete), "ConOK");
  EXPECT_TRUE(Avis.isEmpty());
}

TEST_F(Ftp, AServerThatNeverTookAnImageIsAFailure) {
  Connecte();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kRefus, "550 No."), "ErrCo");
  EXPECT_EQ(Avis.size(), 1);
}

TEST_F(Ftp, AServerThatIsFullForAWhileKeepsTheConnection) {
  Publie();
  for (int i = 0; i < 100; ++i) {
    Dit("Surve");
    EXPECT_EQ(Finit(IssueFtp::kRefus, "552 Full."), "ConOK") << "still connected, which is true";
  }
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().endsWith("552 Full."));
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  EXPECT_TRUE(EtatEcrit().contains("\"ok\""));
}

TEST_F(Ftp, ThePageGoesIntoTheFolderThatHasJustBeenSaved) {
  Publie();
  Reglages.Valeurs.RepertoireFtp = "/neuf";
  Module->PrendReglages(Reglages);
  EXPECT_EQ(Dit("UploM"), "Uploa");
  EXPECT_EQ(Ouvrier->Travail.Acces.Dossier, "/neuf");
  EXPECT_EQ(Ouvrier->Travail.Nom, "live.html");
  EXPECT_EQ(Finit(IssueFtp::kDossierAbsent, "550"), "RepER");
}

TEST_F(Ftp, ThePageIsMadeAndAnswered) {
  Connecte();
  EXPECT_EQ(Dit("UploM"), "Uploa");
  EXPECT_TRUE(Ouvrier->Travail.Contenu.startsWith("<!DOCTYPE html>"));
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
}

TEST_F(Ftp, ThePageHasTheColourAndTheSizeThatTheStoreNames) {
  Reglages.Valeurs.IndexCouleurPage = 0;
  Reglages.Largeur = "321";
  Reglages.Hauteur = "123";
  Module->PrendReglages(Reglages);
  Connecte();
  Dit("UploM");
  const QByteArray rouge = Ouvrier->Travail.Contenu;
  EXPECT_TRUE(rouge.contains("width=\"321\" height=\"123\"")) << rouge.constData();
  Finit(IssueFtp::kReussi);
  Reglages.Valeurs.IndexCouleurPage = 2;
  Module->PrendReglages(Reglages);
  Dit("UploM");
  EXPECT_NE(Ouvrier->Travail.Contenu, rouge);
}

TEST_F(Ftp, APageLostWithTheConnectionIsMadeWhenItIsBack) {
  Publie();
  Dit("UploM");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  Temps.Avance(2000);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
  EXPECT_TRUE(EnPage());
}

TEST_F(Ftp, ALiveImageThatCannotBeReadAtTheMomentIsToldAndTheNextOneGoes) {
  Publie();
  Dit("Surve");
  EXPECT_EQ(Finit(IssueFtp::kSourceIllisible, "Input/output error"), "ConOK");
  EXPECT_EQ(EtatLu()["subject"].toString(), "ftp-source");
  EXPECT_EQ(Dit("Surve"), "Uploa");
}

TEST_F(Ftp, AJobThatFindsNoMemoryToBeginIsBegunWithTheNextLook) {
  Publie();
  Ouvrier->SansMemoire = true;
  EXPECT_THROW(Dit("Surve"), std::bad_alloc);
  EXPECT_FALSE(Ouvrier->EnCours());
  Temps.Avance(ModuleFtp::kRegard);
  ASSERT_TRUE(Ouvrier->EnCours()) << "nobody asks a second time for this image";
  EXPECT_EQ(Ouvrier->Travail.Nom, kNomLive);
  EXPECT_EQ(Finit(IssueFtp::kReussi), "UplOK");
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  PosePhoto("a.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kReussi);
  Ouvrier->SansMemoire = true;
  EXPECT_THROW(Temps.Avance(ModuleFtp::kRythmePage), std::bad_alloc);
  EXPECT_FALSE(Ouvrier->EnCours());
  Temps.Avance(ModuleFtp::kRegard);
  EXPECT_TRUE(EnPage()) << "nor for this page";
}

TEST_F(Ftp, AConnectionThatFindsNoMemoryToBeginIsTriedAgain) {
  Ouvrier->SansMemoire = true;
  EXPECT_THROW(Dit("Conne"), std::bad_alloc);
  EXPECT_FALSE(Ouvrier->EnCours());
  EXPECT_EQ(Avance(ModuleFtp::kReprises.front()), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "ErrCo");
  Publie();
  Dit("Surve");
  Finit(IssueFtp::kPasDeConnexion);
  MotSansMemoire = "Conne";
  EXPECT_THROW(Avance(ModuleFtp::kReprises.front()), std::bad_alloc);
  MotSansMemoire.clear();
  EXPECT_EQ(Avance(ModuleFtp::kReprises.front()), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK Uploa");
  EXPECT_EQ(Avance(ModuleFtp::kReprises.back()), "") << "it is not tried again once it stands";
  Finit(IssueFtp::kPasDeConnexion);
  for (int i = 0; i < 4; ++i) {
    while (!Ouvrier->EnCours()) Temps.Avance(1000);
    Finit(IssueFtp::kPasDeConnexion);
  }
  Ouvrier->SansMemoire = true;
  EXPECT_THROW(Dit("Conne"), std::bad_alloc);
  EXPECT_EQ(Avance(ModuleFtp::kReprises.front()), "Conne") << "asked for anew, and not after the waits of an outage";
}

// Without "ConOK" the main program would send nothing for ever.
TEST_F(Ftp, AConnectionThatFindsNoMemoryAtItsEndIsMadeAnew) {
  Dit("Conne");
  MotSansMemoire = "ConOK";
  EXPECT_THROW(Finit(IssueFtp::kReussi), std::bad_alloc);
  MotSansMemoire.clear();
  EXPECT_EQ(Avance(ModuleFtp::kReprises.front()), "Conne");
  EXPECT_EQ(Finit(IssueFtp::kReussi), "ConOK");
}

TEST_F(Ftp, ThePageFollowsThePhotosOnceTheUserHasAskedForOne) {
  Publie();
  PosePhoto("a.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kReussi);
  EXPECT_FALSE(Ouvrier->EnCours()) << "no page was ever asked for";
  Dit("UploM");
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("a.jpg"));
  Finit(IssueFtp::kReussi);
  Temps.Avance(ModuleFtp::kRythmePage);
  PosePhoto("b.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kReussi);
  ASSERT_TRUE(EnPage());
  const QByteArray page = Ouvrier->Travail.Contenu;
  EXPECT_LT(page.indexOf("b.jpg"), page.indexOf("a.jpg")) << "the newest first";
  EXPECT_EQ(Finit(IssueFtp::kReussi), "") << "nobody asked, nobody is told";
}

TEST_F(Ftp, APageThatIsLostOrRefusedWhileItFollowsThePhotosIsMadeLater) {
  Connecte();
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  Temps.Avance(ModuleFtp::kRythmePage);
  PosePhoto("a.jpg");
  Temps.Avance(ModuleFtp::kRegard);
  Finit(IssueFtp::kReussi);
  ASSERT_TRUE(EnPage());
  EXPECT_EQ(Finit(IssueFtp::kPasDeConnexion), "Netdc");
  Temps.Avance(ModuleFtp::kReprises.front());
  Finit(IssueFtp::kReussi);
  ASSERT_TRUE(EnPage()) << "lost with the connection";
  Finit(IssueFtp::kRefus);
  EXPECT_FALSE(Ouvrier->EnCours()) << "not again at once";
  Temps.Avance(ModuleFtp::kRythmePage);
  EXPECT_TRUE(EnPage()) << "refused for a moment";
}

TEST_F(Ftp, ThePageLeavesThePictureItsPlace) {
  Reglages.Largeur = "800";
  Reglages.Hauteur = "600";
  Module->PrendReglages(Reglages);
  Connecte();
  Dit("UploM");
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("src=\"live.jpg\" width=\"800\" height=\"600\""));
}

TEST_F(Ftp, ThePageFollowsTheIntervalByWhichItTellsAnOldImage) {
  Connecte();
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  Reglages.Valeurs.LangueCourante = 1;
  Module->PrendReglages(Reglages);
  Temps.Avance(ModuleFtp::kRythmePage);
  EXPECT_FALSE(Ouvrier->EnCours()) << "the rest waits until the user asks for a page";
  for (const char* texte : {"1", "12", "120"}) {  // typed
    Reglages.Valeurs.IntervalleFtp = texte;
    Module->PrendReglages(Reglages);
    if (Ouvrier->EnCours()) Finit(IssueFtp::kReussi);
  }
  Temps.Avance(ModuleFtp::kRythmePage);
  ASSERT_TRUE(EnPage());
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("data-intervalle=\"120000\""));
  Finit(IssueFtp::kReussi);
  Temps.Avance(ModuleFtp::kRythmePage);
  EXPECT_FALSE(Ouvrier->EnCours());
}

TEST_F(Ftp, ThePageIsNotMadeForEachPhotoOfAnAlarm) {
  Connecte();
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  int pages = 0;
  for (int i = 0; i < 60; ++i) {  // a photo a second for a minute
    PosePhoto(QStringLiteral("%1.jpg").arg(i));
    Temps.Avance(1000);
    while (Ouvrier->EnCours()) {
      pages += EnPage() ? 1 : 0;
      Finit(IssueFtp::kReussi);
    }
  }
  EXPECT_GE(pages, 4);
  EXPECT_LE(pages, 7);
}

TEST_F(Ftp, ThePageDoesNotWaitUntilAllPhotosOfAnAlarmAreThere) {
  Connecte();
  Dit("UploM");
  Finit(IssueFtp::kReussi);
  for (int i = 0; i < 10; ++i) PosePhoto(QStringLiteral("%1.jpg").arg(i), 10 - i);
  Temps.Avance(ModuleFtp::kRythmePage);
  Finit(IssueFtp::kReussi);
  ASSERT_TRUE(EnPage()) << "nine photos still wait";
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("9.jpg"));
  Finit(IssueFtp::kReussi);
  EXPECT_TRUE(Ouvrier->EnCours() && !EnPage()) << "and now the next";
}

TEST_F(Ftp, ThePageShowsAsManyPhotosAsTheUserWants) {
  Reglages.Valeurs.NbrPhotosPage = 3;
  Module->PrendReglages(Reglages);
  for (int i = 0; i < 10; ++i) PosePhoto(QStringLiteral("p%1.jpg").arg(i), 60 - i);
  Connecte();
  for (int i = 0; i < 10; ++i) Finit(IssueFtp::kReussi);
  Dit("UploM");
  EXPECT_EQ(Ouvrier->Travail.Contenu.count("<li>"), 3);
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("p9.jpg"));
}

TEST_F(Ftp, WhatIsOnThePageIsRememberedOverARestartButNotForAnotherServer) {
  PosePhoto("a.jpg");
  Connecte();
  Finit(IssueFtp::kReussi);
  CreeModule();
  Connecte();
  Dit("UploM");
  EXPECT_TRUE(Ouvrier->Travail.Contenu.contains("a.jpg"));
  Reglages.Valeurs.AdresseFtp = "ailleurs.exemple.fr";
  Module->PrendReglages(Reglages);
  Connecte();
  Dit("UploM");
  EXPECT_FALSE(Ouvrier->Travail.Contenu.contains("a.jpg"));
}

TEST_F(Ftp, WhatIsOnThePageIsNotRememberedForAnotherFolder) {
  PosePhoto("a.jpg");
  Connecte();
  Finit(IssueFtp::kReussi);
  Reglages.Valeurs.RepertoireFtp = "ailleurs";
  Module->PrendReglages(Reglages);
  Connecte();
  Dit("UploM");
  EXPECT_FALSE(Ouvrier->Travail.Contenu.contains("a.jpg"));
}

TEST_F(Ftp, NothingIsUploadedWhileTheSwitchIsOff) {
  PosePhoto("a.jpg");
  EXPECT_EQ(Avance(600000), "");
  EXPECT_FALSE(Ouvrier->EnCours());
  EXPECT_EQ(PhotosLocales(), QStringList("a.jpg"));
}

}  // namespace
}  // namespace vaktor::essai
