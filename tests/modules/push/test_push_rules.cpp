// SPDX-License-Identifier: GPL-3.0-or-later
// The module of the pushes in virtual time: when one is made, with which picture, and what is told.
#include <signal.h>
#include <sys/resource.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <cerrno>
#include <optional>

#include "modules/push/push_notices.h"
#include "push_bench.h"
#include "support/dead_folder.h"
#include "support/small_disk.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

TEST_F(Push, IsMadeAtTheFirstReportWithTheNewestPhoto) {
  Photo("1.jpg", PetitJpeg("old"));
  Temps.Avance(1000);
  Photo("2.jpg", PetitJpeg("new"));
  Photo("3.jpg", PetitJpeg("half").chopped(2));
  Module->ExecuteCommande(Commande::kIntrusion);
  Module->ExecuteCommande(Commande::kIntrusion);
  EXPECT_EQ(Faits, QStringList{"reveille"});
  ASSERT_EQ(Sac.Liste().size(), 1);
  const MessagePush message = Dernier();
  EXPECT_EQ(message.Titre, "Intrusion");
  EXPECT_TRUE(message.Texte.startsWith(QString::fromUtf8("Intrusion à "))) << message.Texte.toStdString();
  EXPECT_EQ(message.NomImage, "2.jpg");
  EXPECT_EQ(message.Image, PetitJpeg("new"));
}

TEST_F(Push, WithoutAYoungPhotoIsWordsAlone) {
  Photo("1.jpg", PetitJpeg("old"));
  Temps.Avance(ModulePush::kPhotoMs + 1000);
  Module->ExecuteCommande(Commande::kIntrusion);
  EXPECT_TRUE(Dernier().Image.isEmpty());
  EXPECT_FALSE(Dernier().Texte.isEmpty());
}

// As on a network disk that is a quarter of an hour slow.
TEST_F(Push, HasAPhotoWhoseDiskTellsAnotherTime) {
  const QDateTime maintenant = QDateTime::fromMSecsSinceEpoch(Debut);
  const QString nom = maintenant.toString("yyyy-MM-dd  HH-mm-ss") + " Photo 00001.jpg";
  Photo(nom, PetitJpeg("now"));
  QFile photo(Temporaire.filePath("photos/") + nom);
  ASSERT_TRUE(photo.open(QIODevice::ReadWrite) &&
              photo.setFileTime(maintenant.addSecs(-900), QFileDevice::FileModificationTime));
  Module->ExecuteCommande(Commande::kIntrusion);
  EXPECT_EQ(Dernier().NomImage, nom);
}

TEST_F(Push, ComesOnceAMinuteWhileItGoesOnAndAtOnceWithTheNextIntrusion) {
  Bouge(60);
  EXPECT_EQ(Sac.Liste().size(), 1);
  Bouge(1);
  EXPECT_EQ(Sac.Liste().size(), 2);
  Temps.Avance(8'000);
  Bouge(1);
  EXPECT_EQ(Sac.Liste().size(), 2) << "nine seconds: the same intrusion";
  Temps.Avance(9'000);
  Bouge(1);
  EXPECT_EQ(Sac.Liste().size(), 3) << "ten seconds without a report";
}

TEST_F(Push, ComesAtOnceWhenTheClockWasSetBack) {
  Bouge(1);
  Debut -= 3'600'000;
  Bouge(1);
  EXPECT_EQ(Sac.Liste().size(), 2);
}

TEST_F(Push, WherePhotosAreOffTakesTheCopiesForThePage) {
  Reglages.Valeurs.PhotoActif = false;
  Module->PrendReglages(Reglages);
  QDir().mkpath(Dossiers.CheminTempFtp());
  Photo("1.jpg", PetitJpeg("a photo of the folder that is off"));
  PhotoDans(Dossiers.CheminTempFtp() + '/', "2.jpg", PetitJpeg("a copy"));
  Bouge(1);
  EXPECT_EQ(Dernier().NomImage, "2.jpg");
}

TEST_F(Push, WithoutRoomForItsPictureTellsThatItGoesWithoutIt) {
  Photo("1.jpg", PetitJpeg(QByteArray(200'000, 'x')));
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit avant{};
  ::getrlimit(RLIMIT_FSIZE, &avant);
  const rlimit peu{100'000, avant.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &peu);
  Module->ExecuteCommande(Commande::kIntrusion);
  ::setrlimit(RLIMIT_FSIZE, &avant);
  ::signal(SIGXFSZ, SIG_DFL);
  EXPECT_EQ(Faits, QStringList{"reveille"});
  ASSERT_EQ(Sac.Liste().size(), 1);
  EXPECT_TRUE(Dernier().Image.isEmpty());
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push-picture"));
}

TEST_F(Push, OfOneThatWasTakenTheServersWordsAreNotLogged) {
  Rapporte({"n", {IssuePush::kPris, 200, "HTTP 200: {\"message\":\"Intrusion\"}"}});
  EXPECT_TRUE(LitOctets(Journal.Chemin()).contains("push n: taken"));
  EXPECT_FALSE(LitOctets(Journal.Chemin()).contains("HTTP 200"));
}

TEST_F(Push, ADiskOfPhotosThatDoesNotAnswerCostsThePictureAndNotThePush) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  Reglages.Valeurs.RepertoirePhoto = mort.Chemin();
  Module->PrendReglages(Reglages);
  Bouge(1);
  EXPECT_EQ(Sac.Liste().size(), 1);
  EXPECT_TRUE(Dernier().Image.isEmpty());
  EXPECT_TRUE(FaitsMail.contains("Intru")) << "the mails hear of it too";
  mort.Reveille();
}

TEST_F(Push, WithoutAnAddressIsNone) {
  Reglages.Valeurs.PushAdresse.clear();
  Module->PrendReglages(Reglages);
  Bouge(1);
  EXPECT_TRUE(Sac.Liste().isEmpty());
  EXPECT_EQ(FaitsMail, (QStringList{"reglages", "Intru"}));
}

TEST_F(Push, WhoGivesNoAddressForMailsWantsNone) {
  PushSeul();
  Bouge(1);
  EXPECT_TRUE(FaitsMail.isEmpty());
  EXPECT_EQ(Sac.Liste().size(), 1);
}

// The system's mail program knows names without an "@".
TEST_F(Push, ALocalNameIsAnAddressForMails) {
  Reglages.Valeurs.SmtpActif = false;
  Reglages.Valeurs.MailDestination = "root";
  Module->PrendReglages(Reglages);
  FaitsMail.clear();
  Bouge(1);
  EXPECT_EQ(FaitsMail, QStringList{"Intru"});
}

TEST_F(Push, HandsEverythingElseToTheMails) {
  Module->Enregistre(Inscription::kTot);
  Bouge(1);
  Module->Termine();
  EXPECT_EQ(FaitsMail, (QStringList{"inscrit", "Intru", "termine"}));
  EXPECT_EQ(Faits.last(), "fini");
  Bouge(1);
  EXPECT_EQ(Sac.Liste().size(), 1) << "after the end none is made";
  Module->PrendReglages(Reglages);  // "Optio" behind "Quit*"
  EXPECT_EQ(Faits.last(), "fini");
}

TEST_F(Push, TellsWhatIsWrongAndHidesWhatLetsItIn) {
  Rapporte({"n", {IssuePush::kAcces, 401, "HTTP 401: no secret-topic for you"}, false, 10'000});
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis[0].contains("push.exemple.fr")) << Avis[0].toStdString();
  EXPECT_TRUE(Avis[0].contains("no *** for you")) << Avis[0].toStdString();
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push-login"));
  EXPECT_FALSE(LitOctets(Journal.Chemin()).contains("secret-topic"));
  Rapporte({"n", {IssuePush::kPris, 200, "HTTP 200"}, false, 0});
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("\"ok\""));
}

TEST_F(Push, SpeaksTheUsersLanguage) {
  Reglages.Valeurs.LangueCourante = 1;
  Module->PrendReglages(Reglages);
  Rapporte({"n", {IssuePush::kPanne, 503, {}}, false, 10'000});
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis[0].contains("does not answer")) << Avis[0].toStdString();
}

TEST_F(Push, WhatIsWrongStandsUntilSomethingIsChanged) {
  Rapporte({"n", {IssuePush::kAcces, 401, {}}, false, 10'000});
  Module->PrendReglages(Reglages);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push-login"));
  Reglages.Valeurs.PushEntete = "X-Key: another";
  Module->PrendReglages(Reglages);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("\"ok\""));
}

TEST_F(Push, TellsSinceWhenOneWaitsInWordsThatLetNobodyIn) {
  const auto champ = [this](const char* nom) {
    return QJsonDocument::fromJson(LitOctets(Etat.Chemin())).object().value(QLatin1String(nom)).toString();
  };
  Bouge(1);
  const QString premier = EtatModule::EcritInstant(Debut + Horloge.Millisecondes - 1000);
  EXPECT_EQ(champ("push_waiting_since"), premier);
  Rapporte({Sac.Liste()[0], {IssuePush::kAcces, 401, "HTTP 401: no secret-topic for you"}, false, 10'000});
  EXPECT_EQ(champ("push_server"), "HTTP 401: no *** for you");
  Bouge(61);
  ASSERT_EQ(Sac.Liste().size(), 2);
  EXPECT_EQ(champ("push_waiting_since"), premier) << "the oldest";
  const QStringList noms = Sac.Liste();
  Rapporte({noms[1], {IssuePush::kPris, 200, "HTTP 200"}, false, 0});
  Temps.Avance(EtatModule::kRythme);
  Module->PrendReglages(Reglages);
  EXPECT_NE(champ("push_waiting_since"), premier) << "taken, though its file is still there";
  EXPECT_EQ(champ("push_server"), "");
  Sac.Retire(noms[0]);
  Rapporte({noms[0], {}, true, 0, true});
  EXPECT_EQ(champ("push_waiting_since"), "");
}

TEST_F(Push, WithoutAnAddressNothingIsWaitedFor) {
  Bouge(1);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push_waiting_since"));
  Reglages.Valeurs.PushAdresse.clear();
  Module->PrendReglages(Reglages);
  EXPECT_FALSE(LitOctets(Etat.Chemin()).contains("push_waiting_since"));
  Reglages.Valeurs.PushAdresse = "https://push.exemple.fr/";
  Module->PrendReglages(Reglages);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push_waiting_since")) << "found again, as at a start";
}

TEST_F(Push, TellsOfAnAddressThatIsNoneAndNoMoreOnceItIsPutRight) {
  Reglages.Valeurs.PushAdresse = "push.exemple.fr";
  Module->PrendReglages(Reglages);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push-address"));
  Reglages.Valeurs.PushAdresse = "https://push.exemple.fr/";
  Module->PrendReglages(Reglages);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("\"ok\""));
}

TEST_F(Push, TellsWhenItCannotBeKept) {
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("push"), "a file in the place of the folder"));
  Bouge(1);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("push-outbox"));
  EXPECT_FALSE(Faits.contains("reveille"));
}

}  // namespace
}  // namespace vaktor::essai
