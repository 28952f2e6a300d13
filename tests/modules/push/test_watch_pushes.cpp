// SPDX-License-Identifier: GPL-3.0-or-later
// What the watch has to say of itself, as pushes, in virtual time.
#include "modules/mail/bad_sector.h"
#include "modules/mail/watch_message.h"
#include "platform/store/private_file.h"
#include "push_bench.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

// Nobody else would tell whoever is away that the watch is blind.
TEST_F(Push, WithoutAnAddressForMailsWhatTheWatchHasToSayIsAPush) {
  PushSeul();
  PoseMessage(Veille(), "1700000000000-1", kImageEntiere);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Faits, QStringList{"reveille"});
  EXPECT_TRUE(FaitsMail.isEmpty()) << "they would tell that an address is missing";
  ASSERT_EQ(Sac.Liste().size(), 1);
  EXPECT_EQ(SacPush::FaitA(Sac.Liste().first()), 1700000000000);
  EXPECT_EQ(Dernier().Titre, "Vaktor ne voit plus");
  EXPECT_EQ(Dernier().Texte.toStdString(), "La caméra n'envoie plus d'image.");
  EXPECT_EQ(Dernier().Image, kImageEntiere);
  EXPECT_EQ(Dernier().NomImage, "1700000000000-1.jpg");
  EXPECT_TRUE(QDir(Veille()).entryList(QDir::Files).isEmpty());
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push_waiting_since"));
}

TEST_F(Push, WhatTheWatchHasToSayIsTheMailsWhereTheyHaveAnAddress) {
  PoseMessage(Veille(), "1700000000000-1");
  Module->ExecuteCommande(Commande::kVeille);
  Module->Enregistre(Inscription::kTot);
  Module->PrendReglages(Reglages);
  EXPECT_EQ(FaitsMail, (QStringList{"Veill", "inscrit", "reglages"}));
  EXPECT_TRUE(Sac.Liste().isEmpty());
}

TEST_F(Push, WhatTheWatchHasSaidBeforeIsFoundAtAStartAndWithOtherSettings) {
  PoseMessage(Veille(), "1700000000000-1");
  PushSeul();
  EXPECT_EQ(Sac.Liste().size(), 1);
  PoseMessage(Veille(), "1700000000001-1");
  Module->Enregistre(Inscription::kTot);
  EXPECT_EQ(Sac.Liste().size(), 2);
  Reglages.Valeurs.PushAdresse.clear();
  Module->PrendReglages(Reglages);
  PoseMessage(Veille(), "1700000000002-1");
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Sac.Liste().size(), 2) << "no push is wanted any more";
}

// A kill came between the push and the end of its message.
TEST_F(Push, AMessageOfTheWatchWhosePushWaitsMakesNoSecondOne) {
  PushSeul();
  PoseMessage(Veille(), "1700000000000-1");
  Module->ExecuteCommande(Commande::kVeille);
  PoseMessage(Veille(), "1700000000000-1");
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Sac.Liste().size(), 1);
  EXPECT_TRUE(QDir(Veille()).entryList(QDir::Files).isEmpty());
}

TEST_F(Push, AMessageOfTheWatchThatNobodyCanReadIsToldAndKept) {
  PushSeul();
  PoseMessage(Veille(), "1700000000000-1", {}, {{"version", 99}});
  PoseMessage(Veille(), "1700000000001-1");
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Sac.Liste().size(), 1) << "the other one goes";
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("mail-watch"));
  EXPECT_TRUE(QFile::exists(Veille() + "/1700000000000-1.bad"));
}

TEST_F(Push, AMessageOfTheWatchThatCannotBeKeptIsToldAndTriedAgain) {
  PushSeul();
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("push"), "a file in the place of the folder"));
  PoseMessage(Veille(), "1700000000000-1");
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push-outbox"));
  ASSERT_TRUE(QFile::remove(Temporaire.filePath("push")));
  Temps.Avance(ModulePush::kRepriseVeille);
  EXPECT_EQ(Sac.Liste().size(), 1);
  PoseMessage(Veille(), "1700000000001-1");
  Temps.Avance(ModulePush::kRepriseVeille + ModulePush::kRepriseVeille);
  EXPECT_EQ(Sac.Liste().size(), 1) << "it is looked for when it is told of";
}

TEST_F(Push, APictureOfTheWatchThatCannotBeReadIsWaitedForOnce) {
  PushSeul();
  const QByteArray image = PetitJpeg(QByteArray(20'000, 'x'));
  PoseMessage(Veille(), "1700000000000-1", image);
  {
    const MauvaisSecteur secteur(5'000);
    Module->ExecuteCommande(Commande::kVeille);
    EXPECT_TRUE(Sac.Liste().isEmpty());
  }
  Temps.Avance(ModulePush::kRepriseVeille);
  ASSERT_EQ(Sac.Liste().size(), 1);
  EXPECT_EQ(Dernier().Image, image);
  PoseMessage(Veille(), "1700000000001-1", image);
  const MauvaisSecteur secteur(5'000);
  Module->ExecuteCommande(Commande::kVeille);
  Temps.Avance(ModulePush::kRepriseVeille);
  EXPECT_EQ(Sac.Liste().size(), 2) << "the words matter more";
}

TEST_F(Push, AMessageOfTheWatchThatCannotBeReadAtThisMomentIsNoDamagedOne) {
  PushSeul();
  PoseMessage(Veille(), "1700000000000-1");
  {
    const MauvaisSecteur secteur(0);
    Module->ExecuteCommande(Commande::kVeille);
  }
  EXPECT_FALSE(LitOctets(Etat.Chemin()).contains("mail-watch"));
  Temps.Avance(ModulePush::kRepriseVeille);
  EXPECT_EQ(Sac.Liste().size(), 1);
}

TEST_F(Push, AFolderOfTheWatchThatCannotBeListedIsLookedAtAgain) {
  PushSeul();
  PoseMessage(Veille(), "1700000000000-1");
  {
    const SansDescripteur aucun;
    Module->ExecuteCommande(Commande::kVeille);
  }
  EXPECT_TRUE(Sac.Liste().isEmpty());
  Temps.Avance(ModulePush::kRepriseVeille);
  EXPECT_EQ(Sac.Liste().size(), 1);
}

// As another companion that is about to end holds it. The wait for it is short and real.
TEST_F(Push, AMessageOfTheWatchThatAnotherCompanionIsTakingIsLeftToIt) {
  PushSeul();
  PoseMessage(Veille(), "1700000000000-1");
  {
    const VerrouDossier verrou(Veille());
    ASSERT_TRUE(verrou.Tenu());
    Module->ExecuteCommande(Commande::kVeille);
    EXPECT_TRUE(Sac.Liste().isEmpty());
  }
  Temps.Avance(ModulePush::kRepriseVeille);
  EXPECT_EQ(Sac.Liste().size(), 1);
}

TEST_F(Push, MoreMessagesOfTheWatchThanOneLookTakesAreTakenALittleLater) {
  PushSeul();
  const int nombre = DossierVeille::kMessagesMax + 5;
  for (int n = 1; n <= nombre; ++n) PoseMessage(Veille(), QStringLiteral("1700000000000-%1").arg(n));
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Sac.Liste().size(), DossierVeille::kMessagesMax);
  Temps.Avance(ModulePush::kRepriseVeille);
  EXPECT_EQ(Sac.Liste().size(), nombre);
}

TEST_F(Push, APictureOfTheWatchWithoutAMessageGoesADayLater) {
  PushSeul();
  PoseMessage(Veille(), "1700000000000-1");
  ASSERT_TRUE(EcritOctets(Veille() + "/1600000000000-1.jpg", kImageEntiere));
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_TRUE(QDir(Veille()).entryList(QDir::Files).isEmpty());
}

TEST_F(Push, BehindTheEndNothingOfTheWatchIsTaken) {
  PushSeul();
  Module->Termine();
  PoseMessage(Veille(), "1700000000000-1");
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_TRUE(Sac.Liste().isEmpty());
}

TEST_F(Push, AMessageOfTheWatchWithoutASubjectHasTheUsers) {
  PushSeul();
  QJsonObject message = MessageDeVeille();
  message.remove("subject_fr");
  message.remove("subject_en");
  PoseMessage(Veille(), "1700000000000-1", {}, message);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Dernier().Titre, "Intrusion");
}

}  // namespace
}  // namespace vaktor::essai
