// SPDX-License-Identifier: GPL-3.0-or-later
// The companion's rules in virtual time: rows, pauses, photos that come, what the user is told.
#include <sys/stat.h>

#include "modules/mail/drafts.h"
#include "modules/mail/mail_module_bench.h"
#include "modules/mail/postman_bench.h"
#include "modules/mail/watch_message.h"

namespace vaktor::essai {
namespace {

TEST_F(Mail, IsOnDiskBeforeTheCommandIsDone) {
  Intrusion();
  ASSERT_EQ(Fichiers().size(), 1);
  EXPECT_TRUE(Fichiers().first().endsWith(".draft"));
  EXPECT_TRUE(Faits.isEmpty());
  Temps.Avance(1000);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_EQ(Faits.join(u'|'), "reveille");
}

TEST_F(Mail, OneThenNoneForFiveMinutesHoweverManyAreReported) {
  Intrusion(10'000);
  EXPECT_EQ(Nombre(), 1);
  Temps.Avance(kPauseEntreSeries - 10'000);
  Intrusion(1'000);
  EXPECT_EQ(Nombre(), 1);
  Temps.Avance(2'000);
  Intrusion(2'000);
  Temps.Avance(1'000);
  EXPECT_EQ(Nombre(), 2);
}

TEST_F(Mail, SoManyInARowThenNoneForFiveMinutes) {
  Reglages.Valeurs.MailNombreMail = "3";
  Module->PrendReglages(Reglages);
  Intrusion();
  Temps.Avance(60'000);
  EXPECT_EQ(Nombre(), 3) << "one report is enough for the row";
  Intrusion(60'000);
  EXPECT_EQ(Nombre(), 3);
  Temps.Avance(kPauseEntreSeries);
  Intrusion(60'000);
  EXPECT_EQ(Nombre(), 6);
}

TEST_F(Mail, OtherSettingsDoNotEndThePauseBehindARow) {
  Intrusion();
  Temps.Avance(5'000);
  ASSERT_EQ(Nombre(), 1);
  Reglages.Valeurs.MailSujet = "another";
  Module->PrendReglages(Reglages);
  Intrusion();
  Temps.Avance(5'000);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Mail, ThatThereIsNoDestinationIsNotToldAgainByEachReport) {
  Reglages.Valeurs.MailDestination.clear();
  Module->PrendReglages(Reglages);
  Intrusion();
  ASSERT_EQ(Avis.size(), 1);
  Rapporte({"of before", {.Accepte = true}, 0});
  Intrusion(3'000);
  EXPECT_EQ(Avis.size(), 1) << "none for five minutes";
}

TEST_F(Mail, TheSecondOfARowTellsOfTheNewestReport) {
  Reglages.Valeurs.MailNombreMail = "2";
  Module->PrendReglages(Reglages);
  Intrusion();
  Temps.Avance(600);
  Intrusion();
  Temps.Avance(5'000);
  ASSERT_EQ(Nombre(), 2);
  EXPECT_EQ(Sac.Liste().at(1).FaitA - Sac.Liste().at(0).FaitA, 600);
}

TEST_F(Mail, ARowIsNoLongerThanWhatMayLeaveInAnHour) {
  Reglages.Valeurs.MailNombreMail = "1000";
  Module->PrendReglages(Reglages);
  Intrusion();
  Temps.Avance(100'000);
  EXPECT_EQ(Nombre(), PlafondHoraire::kCourrielsParHeure);
}

TEST_F(Mail, AClockThatIsSetBackPutsNoNewMailBeforeThoseThatWait) {
  Intrusion();
  Temps.Avance(60'000);
  Debut -= 3'600'000;
  Temps.Avance(kPauseEntreSeries);
  Intrusion();
  Temps.Avance(60'000);
  const QList<CourrielEnAttente> liste = Sac.Liste();
  ASSERT_EQ(liste.size(), 2);
  EXPECT_GT(liste[0].FaitA, liste[1].FaitA) << "by the clock";
  EXPECT_LT(liste[0].Nom, liste[1].Nom);
  EXPECT_TRUE(liste[1].Nom.endsWith("-2")) << liste[1].Nom.toStdString();
}

TEST_F(Mail, NoneAreWanted) {
  Reglages.Valeurs.MailNombreMail = "0";
  Module->PrendReglages(Reglages);
  Intrusion(3'000);
  EXPECT_TRUE(Fichiers().isEmpty());
}

TEST_F(Mail, GathersThePhotosThatCome) {
  Photo("1.jpg");
  Intrusion();
  Temps.Avance(150);
  Photo("2.jpg");
  Temps.Avance(300);
  Photo("3.jpg");
  Temps.Avance(2'000);
  Photo("4.jpg");
  EXPECT_EQ(Lit(0)["names"].toArray(), QJsonArray({"1.jpg", "2.jpg", "3.jpg"}));
}

TEST_F(Mail, WhileItsPhotosGatherNothingIsWrittenButWhatItIsMadeOf) {
  Photo("1.jpg");
  Intrusion();
  const QString brouillon = Temporaire.filePath("courrier/" + Fichiers().value(0));
  const QByteArray recette = LitOctets(brouillon);
  EXPECT_LT(recette.size(), 1000);
  struct stat avant {};
  ASSERT_EQ(::stat(QFile::encodeName(brouillon).constData(), &avant), 0);
  for (int i = 2; i <= 4; ++i) {
    Photo(QString::number(i) + ".jpg");
    Temps.Avance(ModuleMail::kRecolte);
    struct stat apres {};
    ASSERT_EQ(::stat(QFile::encodeName(brouillon).constData(), &apres), 0);
    EXPECT_EQ(apres.st_ino, avant.st_ino) << "each writing makes a new file";
    EXPECT_EQ(LitOctets(brouillon), recette);
  }
  Temps.Avance(2'000);
  EXPECT_EQ(Lit(0)["names"].toArray().size(), 4);
}

TEST_F(Mail, KilledWhileItsPhotosGatherItIsMadeAtTheNextStartWithAllThatCame) {
  Photo("1.jpg");
  Intrusion();
  Temps.Avance(300);
  Photo("2.jpg");
  Module.reset();
  Reglages.Valeurs.MailSujet = "other settings by then";
  CreeModule();
  RecupereSac(Sac, Lecteur, "the mark of the next process");
  ASSERT_EQ(Nombre(), 1);
  EXPECT_EQ(Lit(0)["names"].toArray(), QJsonArray({"1.jpg", "2.jpg"}));
  EXPECT_NE(Lit(0)["subject"].toString(), "other settings by then");
  EXPECT_EQ(Sac.Liste().first().Destinataires, QStringList{"anna@exemple.fr"});
  EXPECT_EQ(Fichiers().size(), 1) << "once";
}

TEST_F(Mail, WhenAServerHasTakenOneStandsInTheStatusFile) {
  const auto dit = [this] { return QJsonDocument::fromJson(LitOctets(Etat.Chemin())).object()["accepted"].toString(); };
  Rapporte({"a", {.Definitif = true}, 0});
  Temps.Avance(6'000);
  EXPECT_EQ(dit(), QString());
  Rapporte({"a", {.Accepte = true}, 0});
  Temps.Avance(6'000);
  const QString premier = dit();
  EXPECT_TRUE(QDateTime::fromString(premier, Qt::ISODate).isValid()) << premier.toStdString();
  Rapporte({"b", {.Accepte = true}, 0});
  Temps.Avance(6'000);
  EXPECT_NE(dit(), premier) << "each mail is another moment";
}

TEST_F(Mail, OneThatCannotBeComposedOnDiskIsToldAndTriedAgain) {
  Photo("1.jpg");
  Intrusion();
  const QString obstacle = Temporaire.filePath("courrier/" + Fichiers().value(0) + ".part");
  ASSERT_TRUE(QDir().mkpath(obstacle + "/plein"));
  Temps.Avance(2'000);
  EXPECT_EQ(Nombre(), 0);
  EXPECT_FALSE(Avis.isEmpty());
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("waiting_since"));
  ASSERT_TRUE(QDir(obstacle).removeRecursively());
  Temps.Avance(ModuleMail::kRegardAttente);
  ASSERT_EQ(Nombre(), 1);
  EXPECT_EQ(Lit(0)["names"].toArray(), QJsonArray{"1.jpg"});
}

TEST_F(Mail, LeavesAsSoonAsItHasAllItsPhotos) {
  Reglages.Valeurs.MailNombrePhoto = "2";
  Module->PrendReglages(Reglages);
  Photo("1.jpg");
  Photo("2.jpg");
  Intrusion();
  Temps.Avance(ModuleMail::kRecolte);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Mail, PhotosOfBeforeDoNotMakeItLeaveWithoutThoseThatCome) {
  Reglages.Valeurs.MailNombrePhoto = "1";
  Module->PrendReglages(Reglages);
  Photo("avant.jpg");
  Temps.Avance(30'000);
  Intrusion();
  Temps.Avance(ModuleMail::kRecolte);
  EXPECT_EQ(Nombre(), 0);
  Photo("pendant.jpg");
  Temps.Avance(ModuleMail::kRecolte);
  EXPECT_EQ(Lit(0)["names"].toArray(), QJsonArray{"pendant.jpg"});
}

TEST_F(Mail, TakesTheLiveCopiesWhenPhotosAreOff) {
  Reglages.Valeurs.PhotoActif = false;
  Module->PrendReglages(Reglages);
  Photo("1.jpg");
  Photo("direct.jpg", Dossiers.CheminTempFtp());
  Intrusion();
  Temps.Avance(2'000);
  EXPECT_EQ(Lit(0)["names"].toArray(), QJsonArray{"direct.jpg"});
}

TEST_F(Mail, SubjectAndBodyAreThoseOfTheStore) {
  Reglages.Valeurs.MailSujet = QString::fromUtf8("Alerte été\r\nBcc: evil@exemple.fr");
  Reglages.Valeurs.MailCorps = QString::fromUtf8("Ça bouge\r\nici");
  Module->PrendReglages(Reglages);
  Intrusion();
  Temps.Avance(2'000);
  EXPECT_EQ(Lit(0)["subject"].toString(), QString::fromUtf8("Alerte été  Bcc: evil@exemple.fr"));
  EXPECT_EQ(Lit(0)["body"].toString(), QString::fromUtf8("Ça bouge\nici"));
  EXPECT_FALSE(Lit(0)["headers"].toArray().contains("Bcc"));
}

TEST_F(Mail, WithoutADestinationTheUserIsToldOnceAndTheNextSettingsAreTried) {
  Reglages.Valeurs.MailDestination = "anna@exemple.fr\r\nRCPT TO:<evil@exemple.fr>";
  Module->PrendReglages(Reglages);
  Intrusion(10'000);
  EXPECT_TRUE(Fichiers().isEmpty());
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("destinataire"));
  Reglages.Valeurs.MailDestination = "anna@exemple.fr";
  Module->PrendReglages(Reglages);
  Intrusion(2'000);
  Temps.Avance(1'000);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Mail, AFailureIsToldInTheServersWordsWithoutThePassword) {
  const QByteArray plain("\0anna\0s3cret&mot", 16);
  Rapporte({"x",
            {.Cause = CauseEchec::kConnexionRefusee,
             .Code = 535,
             .MotsServeur = "535 no: s3cret&mot " + QString::fromLatin1(plain.toBase64())},
            10'000});
  const QByteArray etat = LitOctets(Etat.Chemin());
  const QByteArray journal = LitOctets(Journal.Chemin());
  EXPECT_TRUE(etat.contains("\"mail-login\"") && etat.contains("535 no:"));
  EXPECT_TRUE(etat.contains("Vérifiez") && etat.contains("Check both"));
  ASSERT_EQ(Avis.size(), 1);
  for (const QByteArray& texte : {etat, journal, Avis.first().toUtf8()}) {
    EXPECT_FALSE(texte.contains("s3cret"));
    EXPECT_FALSE(texte.contains(plain.toBase64()));
  }
  Rapporte({"x", {.Accepte = true}, 0});
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("\"ok\""));
}

TEST_F(Mail, TheStatusFileTellsSinceWhenAMailWaits) {
  const auto attendDepuis = [this] {
    return QJsonDocument::fromJson(LitOctets(Etat.Chemin())).object().value("waiting_since").toString();
  };
  const QString debut = EtatModule::EcritInstant(Debut);
  Intrusion();
  Temps.Avance(15'000);
  EXPECT_EQ(attendDepuis(), debut);
  Temps.Avance(kPauseEntreSeries);
  Intrusion();
  Temps.Avance(15'000);
  EXPECT_EQ(attendDepuis(), debut) << "the oldest";
  Sac.Acheve(Sac.Liste().first().Nom);
  Rapporte({"x", {.Accepte = true}, 0});
  Temps.Avance(15'000);
  EXPECT_EQ(attendDepuis(), EtatModule::EcritInstant(Debut + 15'000 + kPauseEntreSeries));
  Sac.Acheve(Sac.Liste().first().Nom);
  Rapporte({"x", {.Accepte = true}, 0});
  EXPECT_EQ(attendDepuis(), "") << "at once";
}

// Of a companion that was killed while its photos gathered.
TEST_F(Mail, ADraftOfAnotherRunCountsAsWaiting) {
  ASSERT_EQ(PoseRecette(Sac, Nomme("1-autre-1", Debut), {}), 0);
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains(EtatModule::EcritInstant(Debut).toUtf8()));
}

// A folder in the mail's place stands for a disk that refuses the rename.
TEST_F(Mail, AMailThatTheDiskDoesNotLetGoWaitsAndGoesAsSoonAsItDoes) {
  const auto attend = [this] { return LitOctets(Etat.Chemin()).contains("waiting_since"); };
  Intrusion();
  ASSERT_EQ(Fichiers().size(), 1);
  const QString obstacle = Temporaire.filePath("courrier/" + Fichiers().first().chopped(6) + ".mail");
  ASSERT_TRUE(QDir().mkpath(obstacle + "/plein"));
  Temps.Avance(15'000);
  EXPECT_EQ(Nombre(), 0);
  EXPECT_TRUE(attend()) << "what cannot leave counts as waiting";
  ASSERT_TRUE(QDir(obstacle).removeRecursively());
  Faits.clear();
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_TRUE(Faits.contains("reveille"));
  Sac.Acheve(Sac.Liste().first().Nom);
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_FALSE(attend());
}

TEST_F(Mail, ADraftThatSomebodyTakesAwayWaitsNoLonger) {
  Intrusion();
  const QString brouillon = Temporaire.filePath("courrier/" + Fichiers().first());
  ASSERT_TRUE(QDir().mkpath(brouillon.chopped(6) + ".mail/plein"));
  Temps.Avance(15'000);
  ASSERT_TRUE(QFile::remove(brouillon));
  ASSERT_TRUE(QDir(brouillon.chopped(6) + ".mail").removeRecursively());
  Temps.Avance(ModuleMail::kRegardAttente);
  Rapporte({Envoi->Confies.value(0), {.Accepte = true}, 0});  // what of it goes from memory
  EXPECT_FALSE(LitOctets(Etat.Chemin()).contains("waiting_since"));
  EXPECT_EQ(Nombre(), 0);
}

TEST_F(Mail, AMessageOfTheWatchThatCannotBecomeAMailWaitsToo) {
  Reglages.Valeurs.MailDestination.clear();
  Module->PrendReglages(Reglages);
  QDir().mkpath(Temporaire.filePath("veille"));
  ASSERT_TRUE(EcritOctets(Temporaire.filePath(QStringLiteral("veille/%1-1.json").arg(Debut)),
                          QJsonDocument(MessageDeVeille()).toJson()));
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains(EtatModule::EcritInstant(Debut).toUtf8()));
}

TEST_F(Mail, ARefusalForGoodWaitsUntilAnotherMailIsTakenOrOtherSettingsCome) {
  const auto attend = [this] { return LitOctets(Etat.Chemin()).contains("waiting_since"); };
  const RapportEnvoi refus{"x", {.Definitif = true, .Cause = CauseEchec::kDestinataireRefuse, .Code = 550}, 0};
  Rapporte(refus);
  EXPECT_TRUE(attend());
  Rapporte({"y", {.Accepte = true}, 0});
  EXPECT_FALSE(attend());
  Rapporte(refus);
  EXPECT_TRUE(attend());
  Reglages.Valeurs.SmtpServeur = "autre.exemple.fr";
  Module->PrendReglages(Reglages);
  EXPECT_FALSE(attend()) << "it is tried again";
  Rapporte({"x", {.Definitif = true, .Cause = CauseEchec::kAbandonne}, 0});
  EXPECT_FALSE(attend()) << "given up, it waits no longer";
}

TEST_F(Mail, AnOutboxThatCannotBeWrittenIsToldAndTheCompanionGoesOn) {
  const QString dossier = Temporaire.filePath("courrier");
  QDir(dossier).removeRecursively();
  ASSERT_TRUE(EcritOctets(dossier, "no folder"));
  Intrusion(10'000);
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("courrier"));
  QFile::remove(dossier);
  QDir().mkpath(dossier);
  Temps.Avance(kPauseEntreSeries);
  Intrusion(2'000);
  Temps.Avance(1'000);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Mail, WhatIsInMemoryAloneIsToldWhenItIsGivenUpAndAtTheEnd) {
  const QString dossier = Temporaire.filePath("courrier");
  QDir(dossier).removeRecursively();
  ASSERT_TRUE(EcritOctets(dossier, "no folder"));
  Intrusion();
  Temps.Avance(kPauseEntreSeries);
  Intrusion();
  ASSERT_EQ(Envoi->Confies.size(), 2);
  Rapporte({Envoi->Confies.at(0), {.Definitif = true, .Cause = CauseEchec::kAbandonne}, 0});
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("mail-given-up"));
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains(EtatModule::EcritInstant(Debut + kPauseEntreSeries).toUtf8()))
      << "it waits no longer, the other does";
  Rapporte({"x", {.Accepte = true}, 0});
  Module->Termine();
  EXPECT_TRUE(LitOctets(Journal.Chemin()).contains((Envoi->Confies.at(1) + " is in memory alone").toUtf8()));
  EXPECT_FALSE(LitOctets(Journal.Chemin()).contains((Envoi->Confies.at(0) + " is in memory alone").toUtf8()));
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("mail-disk"));
}

TEST_F(Mail, AMailThatWasDamagedIsToldAndWaitsForNothing) {
  Rapporte({"x", {.Definitif = true, .Cause = CauseEchec::kFichier}, 0});
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("mail-file"));
  EXPECT_FALSE(LitOctets(Etat.Chemin()).contains("waiting_since"));
}

TEST_F(Mail, TheEndKeepsTheMailInTheMakingAndWaitsForTheOneUnderWay) {
  Intrusion();
  Module->Termine();
  EXPECT_EQ(Nombre(), 1);
  EXPECT_TRUE(Faits.isEmpty());
  Envoi->Fini();
  EXPECT_EQ(Faits.join(u'|'), "quitte");
}

TEST_F(Mail, AnAddressThatWasRefusedIsToldThoughTheOthersGotTheMail) {
  Rapporte({"a", {.Accepte = true, .Code = 550, .MotsServeur = "550 no such user here"}, 0});
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("no such user here")) << Avis.first().toStdString();
  Rapporte({"b", {.Accepte = true}, 0});
  EXPECT_EQ(Avis.size(), 1);
}

TEST_F(Mail, BehindTheEndNoReportBeginsAMail) {
  Module->Termine();
  Intrusion();
  EXPECT_TRUE(Fichiers().isEmpty()) << Fichiers().join('|').toStdString();
}

TEST_F(Mail, TheEndDoesNotWaitForEver) {
  Module->Termine();
  Temps.Avance(ModuleMail::kFinMax);
  EXPECT_EQ(Faits.value(0), "quitte");
}

}  // namespace
}  // namespace vaktor::essai
