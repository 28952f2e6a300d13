// SPDX-License-Identifier: GPL-3.0-or-later
// What the watch has to say of itself becomes mails: each one once, whatever row or pause of alarm mails there is.
#include <sys/stat.h>

#include "modules/mail/bad_sector.h"
#include "modules/mail/mail_module_bench.h"
#include "modules/mail/watch_message.h"
#include "platform/store/private_file.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

struct Veille : Mail {
  const QString Dossier = Temporaire.filePath("veille");

  QString Stem(int n = 1) const { return QStringLiteral("%1-%2").arg(Debut + Horloge.Millisecondes).arg(n); }
  void Pose(int n = 1, const QByteArray& photo = {}, const QJsonObject& message = MessageDeVeille()) const {
    PoseMessage(Dossier, Stem(n), photo, message);
  }
  QString Restes() const {
    return QDir(Dossier).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot, QDir::Name).join(u'|');
  }
  QByteArray LitEtat() const { return LitOctets(Etat.Chemin()); }
};

TEST_F(Veille, AMessageBecomesAMailWithItsPictureAndIsGone) {
  Pose(1, kImageEntiere);
  Module->ExecuteCommande(Commande::kVeille);
  ASSERT_EQ(Nombre(), 1);
  const QJsonObject lu = Lit(0);
  EXPECT_EQ(lu["subject"].toString(), "Vaktor ne voit plus");
  EXPECT_EQ(lu["body"].toString(), QString::fromUtf8("La caméra n'envoie plus d'image."));
  EXPECT_EQ(lu["to"].toString(), "anna@exemple.fr");
  EXPECT_EQ(lu["types"].toArray(), QJsonArray{"image/jpeg"});
  EXPECT_TRUE(lu["id"].toString().contains("-veille-" + Stem() + '@')) << lu["id"].toString().toStdString();
  EXPECT_EQ(Restes(), "");
  EXPECT_EQ(Faits.join(u'|'), "reveille");
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Veille, ItIsInTheUsersLanguage) {
  Reglages.Valeurs.LangueCourante = 1;
  Module->PrendReglages(Reglages);
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Lit(0)["subject"].toString(), "Vaktor is blind");
  EXPECT_EQ(Lit(0)["body"].toString(), "The camera gives no picture.");
  EXPECT_EQ(Lit(0)["names"].toArray(), QJsonArray());
}

// "Veill" went to a companion that was not there.
TEST_F(Veille, WhatLiesThereAtTheStartIsTakenWithTheFirstSettings) {
  Pose();
  CreeModule();
  Module->Enregistre(Inscription::kTot);
  EXPECT_EQ(Nombre(), 0) << "nobody has said so far to whom";
  EXPECT_TRUE(Avis.isEmpty()) << "and that is no failure of the user's";
  Module->PrendReglages(Reglages);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Veille, WhatLiesThereWhenAMainProgramComesIsTaken) {
  Pose();
  Module->Enregistre(Inscription::kTard);
  EXPECT_EQ(Nombre(), 1);
}

// The message is gone by then: the draft is all there is.
TEST_F(Veille, ADraftThatTheDiskDoesNotLetGoWaitsAndGoesAsSoonAsItDoes) {
  Pose();
  const QString instant = QDateTime::fromMSecsSinceEpoch(Debut, Qt::UTC).toString(QStringLiteral("yyyyMMddHHmmsszzz"));
  const QString obstacle = Temporaire.filePath("courrier/" + instant + "-veille-" + Stem() + "-essai.mail");
  ASSERT_TRUE(QDir().mkpath(obstacle + "/plein"));
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 0);
  EXPECT_EQ(Restes(), "");
  EXPECT_TRUE(LitEtat().contains("waiting_since"));
  ASSERT_TRUE(QDir(obstacle).removeRecursively());
  Faits.clear();
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_TRUE(Faits.contains("reveille"));
}

TEST_F(Veille, OldestFirstAndAllOfThem) {
  for (int n = 12; n > 0; --n) Pose(n);
  Module->ExecuteCommande(Commande::kVeille);
  ASSERT_EQ(Nombre(), 12);
  EXPECT_EQ(Restes(), "");
  EXPECT_EQ(Faits.join(u'|'), "reveille");
}

// The mails made lie in the outbox under names in which "-1" is the beginning of "-12".
TEST_F(Veille, TheFirstIsNotTakenForMadeBecauseTheTwelfthIs) {
  Pose(12);
  Module->ExecuteCommande(Commande::kVeille);
  Pose(1);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 2);
}

// As another companion that is about to end holds it. The wait for it is short and real.
TEST_F(Veille, AMessageThatAnotherCompanionIsTakingIsLeftToIt) {
  Pose();
  {
    const VerrouDossier verrou(Dossier);
    ASSERT_TRUE(verrou.Tenu());
    Module->ExecuteCommande(Commande::kVeille);
    EXPECT_EQ(Nombre(), 0);
  }
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Veille, MoreThanOneLookTakesAreTakenALittleLater) {
  const int nombre = DossierVeille::kMessagesMax + 5;
  for (int n = 1; n <= nombre; ++n) Pose(n);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), DossierVeille::kMessagesMax);
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Nombre(), nombre);
}

TEST_F(Veille, ItNeitherStartsNorCountsInNorEndsARowOrItsPause) {
  Reglages.Valeurs.MailNombreMail = "3";
  Module->PrendReglages(Reglages);
  Pose(1);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 1);
  Intrusion();
  Pose(2);
  Module->ExecuteCommande(Commande::kVeille);
  Temps.Avance(60'000);
  EXPECT_EQ(Nombre(), 2 + 3) << "a pause would have kept the row from starting, a place in it would have cut it short";
  Pose(3);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 3 + 3) << "in the pause";
  Intrusion(10'000);
  EXPECT_EQ(Nombre(), 3 + 3) << "the pause goes on";
  Temps.Avance(kPauseEntreSeries);
  Intrusion();
  Temps.Avance(60'000);
  EXPECT_EQ(Nombre(), 3 + 6);
}

TEST_F(Veille, NoAlarmMailsAreWantedButTheWatchMaySpeak) {
  Reglages.Valeurs.MailNombreMail = "0";
  Module->PrendReglages(Reglages);
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Veille, TheSystemsMailProgramNeedsNoSender) {
  Reglages.Valeurs.SmtpActif = false;
  Reglages.Valeurs.SmtpFrom.clear();
  Module->PrendReglages(Reglages);
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Veille, APictureThatIsNotWholeIsLeftOut) {
  Pose(1, PetitJpeg(" half a picture ").chopped(10));
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Lit(0)["names"].toArray(), QJsonArray());
  EXPECT_EQ(Lit(0)["subject"].toString(), "Vaktor ne voit plus");
  EXPECT_EQ(Restes(), "");
}

TEST_F(Veille, APictureWithoutAMessageGoesADayLater) {
  Pose(1, kImageEntiere);
  ASSERT_TRUE(QFile::remove(Dossier + '/' + Stem() + ".json"));
  Pose(2);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Restes(), Stem() + ".jpg") << "its message may still come";
  Horloge.Millisecondes += DossierVeille::kAgeOrphelinMs + 1;
  Pose(3);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Restes(), "");
}

TEST_F(Veille, WithoutADestinationItWaitsAndIsToldAndTheNextSettingsSendIt) {
  Reglages.Valeurs.MailDestination.clear();
  Module->PrendReglages(Reglages);
  Pose();
  for (int i = 0; i < 20; ++i) Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 0);
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("destinataire"));
  EXPECT_EQ(LitOctets(Journal.Chemin()).count("no destination"), 1);
  EXPECT_TRUE(LitEtat().contains("\"failure\""));
  Reglages.Valeurs.MailDestination = "anna@exemple.fr";
  Module->PrendReglages(Reglages);
  EXPECT_EQ(Nombre(), 1);
  Intrusion(2'000);
  Temps.Avance(1'000);
  EXPECT_EQ(Nombre(), 2) << "and no pause came of it";
}

TEST_F(Veille, DamagedOnesAreToldPutAsideAndTriedNoMore) {
  QDir().mkpath(Dossier);
  const QJsonObject vide{{"version", 1}, {"fr", "x"}};
  QJsonObject autre = MessageDeVeille();
  autre["version"] = 2;
  Pose(1, {}, vide);
  Pose(2, kImageEntiere, autre);
  ASSERT_TRUE(EcritOctets(Dossier + '/' + Stem(3) + ".json", "{\"version\": 1, \"kind"));
  ASSERT_TRUE(EcritOctets(Dossier + '/' + Stem(4) + ".json", QByteArray(300'000, '[')));
  ASSERT_TRUE(EcritOctets(Dossier + '/' + Stem(5) + ".json", {}));
  Pose(6);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 1) << "the good one";
  EXPECT_EQ(QDir(Dossier).entryList({"*.bad"}).size(), 5);
  EXPECT_EQ(QDir(Dossier).entryList({"*.json"}).size(), 0);
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("veille"));
  EXPECT_TRUE(LitEtat().contains("\"mail-watch\""));
  EXPECT_EQ(LitOctets(Journal.Chemin()).count("put aside"), 5);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(LitOctets(Journal.Chemin()).count("put aside"), 5);
}

TEST_F(Veille, WhatIsNoFileIsNeitherFollowedNorWaitedFor) {
  QDir().mkpath(Dossier);
  const auto chemin = [&](int n, const char* fin) { return Dossier + '/' + Stem(n) + fin; };
  ASSERT_EQ(::mkfifo(QFile::encodeName(chemin(1, ".json")).constData(), 0600), 0);
  ASSERT_TRUE(QFile::link("/dev/zero", chemin(2, ".json")));
  PoseMessage(Temporaire.filePath("autre"), Stem(3));
  ASSERT_TRUE(QFile::link(Temporaire.filePath("autre/" + Stem(3) + ".json"), chemin(3, ".json")));
  ASSERT_TRUE(QDir().mkdir(chemin(4, ".json")));
  Pose(5);
  ASSERT_EQ(::mkfifo(QFile::encodeName(chemin(5, ".jpg")).constData(), 0600), 0);
  Pose(6);
  ASSERT_TRUE(QFile::link("/dev/zero", chemin(6, ".jpg")));
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 2);
  EXPECT_EQ(QDir(Dossier).entryList({"*.bad"}, QDir::AllEntries | QDir::System).size(), 4);
}

TEST_F(Veille, OtherNamesAreNobodysMessages) {
  QDir().mkpath(Dossier);
  for (const char* nom : {"notes.json", "1-.json", "-1.json", "1-2.json.part", "1-2-3.json", "1 -2.json", "x1-2.json"})
    ASSERT_TRUE(EcritOctets(Dossier + '/' + nom, QJsonDocument(MessageDeVeille()).toJson()));
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 0);
  EXPECT_EQ(QDir(Dossier).entryList(QDir::Files).size(), 7);
  EXPECT_TRUE(Avis.isEmpty());
}

TEST_F(Veille, OneOfAWeekAgoThatCouldNotGoIsGivenUpAndTold) {
  Reglages.Valeurs.MailDestination.clear();
  Module->PrendReglages(Reglages);
  Pose();
  Horloge.Millisecondes += SacPostal::kAgeMaxMs + 1;
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_FALSE(Restes().isEmpty());
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 0);
  EXPECT_EQ(Restes(), "");
  EXPECT_TRUE(LitOctets(Journal.Chemin()).contains("too old"));
  EXPECT_TRUE(LitEtat().contains("mail-given-up"));
}

// By a clock that jumped forward, or in a machine that was off for weeks, every message is old.
TEST_F(Veille, OneOfAWeekAgoThatNobodyTriedToSendIsSent) {
  Pose();
  Horloge.Millisecondes += SacPostal::kAgeMaxMs + 1;
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_EQ(Restes(), "");
}

TEST_F(Veille, AFolderThatCannotBeListedIsLookedAtAgain) {
  Pose();
  {
    const SansDescripteur aucun;
    Module->ExecuteCommande(Commande::kVeille);
  }
  EXPECT_EQ(Nombre(), 0);
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Nombre(), 1);
}

// Else a message whose mail is made already would make a second one.
TEST_F(Veille, AnOutboxThatCannotBeListedIsNotTakenForEmpty) {
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  const QString nom = Sac.Liste().first().Nom;
  Pose();
  const QString sac = Temporaire.filePath("courrier");
  ASSERT_TRUE(QDir().rename(sac, sac + "-hidden") && QFile::link("courrier", sac));  // a link to itself: ELOOP
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_TRUE(Envoi->Confies.isEmpty());
  ASSERT_TRUE(QFile::remove(sac) && QDir().rename(sac + "-hidden", sac));
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_EQ(Restes(), "");
}

TEST_F(Veille, WhatWaitsStandsWhileAFolderCannotBeListed) {
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  ASSERT_TRUE(LitEtat().contains("waiting_since"));
  const QString sac = Temporaire.filePath("courrier");
  ASSERT_TRUE(QDir().rename(sac, sac + "-hidden") && QFile::link("courrier", sac));
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_TRUE(LitEtat().contains("waiting_since"));
}

TEST_F(Veille, AMessageThatCannotBeReadAtThisMomentIsNoDamagedOne) {
  Pose();
  {
    const MauvaisSecteur secteur(0);
    Module->ExecuteCommande(Commande::kVeille);
  }
  EXPECT_EQ(Restes(), Stem() + ".json");
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Veille, APictureThatCannotBeReadAtThisMomentIsWaitedForOnce) {
  Pose(1, PetitJpeg(QByteArray(20'000, 'x')));
  {
    const MauvaisSecteur secteur(5'000);
    Module->ExecuteCommande(Commande::kVeille);
    EXPECT_EQ(Nombre(), 0);
  }
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Lit(0)["types"].toArray(), QJsonArray{"image/jpeg"});
  Pose(2, PetitJpeg(QByteArray(20'000, 'x')));
  const MauvaisSecteur secteur(5'000);
  Module->ExecuteCommande(Commande::kVeille);
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Nombre(), 2) << "the words matter more";
}

TEST_F(Veille, AnOutboxThatCannotBeWrittenKeepsTheMessageForLater) {
  const QString sac = Temporaire.filePath("courrier");
  QDir(sac).removeRecursively();
  ASSERT_TRUE(EcritOctets(sac, "no folder"));
  Pose(1, kImageEntiere);
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Restes(), Stem() + ".jpg|" + Stem() + ".json");
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("courrier"));
  QFile::remove(sac);
  QDir().mkpath(sac);
  Temps.Avance(ModuleMail::kRepriseVeille);
  EXPECT_EQ(Nombre(), 1);
  EXPECT_EQ(Restes(), "");
}

// The three moments in which a kill may come.
TEST_F(Veille, KilledBeforeTheDraftNothingIsLost) {
  Pose();
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("courrier/x-veille-" + Stem() + "-mort.draft.part"), "half"));
  CreeModule();
  Module->PrendReglages(Reglages);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Veille, KilledBetweenDraftAndDeletionItIsOneMail) {
  Pose(1, kImageEntiere);
  const QString stem = Stem();
  const QByteArray message = LitOctets(Dossier + '/' + stem + ".json");
  Module->ExecuteCommande(Commande::kVeille);
  // As if the message had not been deleted yet when the kill came.
  const QString nom = Sac.Liste().first().Nom;
  const QString mort = QString(nom).replace("essai", "mort");
  for (const char* fin : {".draft", ".mail", ".refused", ".sent"}) {
    QDir(Temporaire.filePath("courrier")).removeRecursively();
    QDir().mkpath(Temporaire.filePath("courrier"));
    ASSERT_TRUE(EcritOctets(Temporaire.filePath("courrier/" + mort + fin), "{\"made\":1,\"to\":[\"a@b.fr\"]}\nx"));
    ASSERT_TRUE(EcritOctets(Dossier + '/' + stem + ".json", message));
    CreeModule();
    EXPECT_EQ(Restes(), "") << fin << ": before the post may send what is in the box";
    Module->PrendReglages(Reglages);
    EXPECT_EQ(Fichiers(), QStringList(mort + fin));
  }
}

TEST_F(Veille, KilledBeforeItMayLeaveTheDraftIsSent) {
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  const QString nom = Sac.Liste().first().Nom;
  ASSERT_TRUE(QFile::rename(Temporaire.filePath("courrier/" + nom + ".mail"),
                            Temporaire.filePath("courrier/" + nom + ".draft")));
  RecupereSac(Sac, Lecteur, "autre");
  EXPECT_EQ(Nombre(), 1);
  EXPECT_TRUE(Sac.Liste().first().Prioritaire) << "and still goes first";
}

TEST_F(Veille, ItsDraftIsLeftAloneByTheThreadThatSends) {
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_TRUE(Sac.Liste().first().Nom.contains("essai")) << "the mark by which the thread knows the living";
}

TEST_F(Veille, AfterTheEndNothingIsTaken) {
  Module->Termine();
  Pose();
  Module->ExecuteCommande(Commande::kVeille);
  EXPECT_EQ(Nombre(), 0);
  EXPECT_EQ(Restes(), Stem() + ".json");
}

}  // namespace
}  // namespace vaktor::essai
