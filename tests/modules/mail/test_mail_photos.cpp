// SPDX-License-Identifier: GPL-3.0-or-later
// The mail companion's rules in virtual time: when a mail closes, whose photos are whose, the pause over a restart, and
// a disk that takes nothing.
#include <QElapsedTimer>

#include "companions/contract/intrusion_slate.h"
#include "modules/mail/disk_reserve.h"
#include "modules/mail/mail_module_bench.h"
#include "modules/mail/row_pause.h"
#include "modules/mail/watch_message.h"
#include "support/dead_folder.h"
#include "support/small_disk.h"

namespace vaktor::essai {
namespace {

struct Photographies : Mail {
  /// A camera of three frames a second, each of which is a photo and a report, for so long.
  void Filme(qint64 duree) {
    for (qint64 t = 0; t < duree; t += 333) {
      Photo(QStringLiteral("%1.jpg").arg(Prises_++, 4, 10, QChar('0')));
      Module->ExecuteCommande(Commande::kIntrusion);
      Temps.Avance(333);
    }
  }
  /// The main program's slate of an intrusion that began so many milliseconds from now, and whose last frame was then.
  void PoseArdoise(qint64 ecart, const QList<PhotoArdoise>& photos) {
    const QDateTime debut = QDateTime::fromMSecsSinceEpoch(Debut + Horloge.Millisecondes + ecart);
    ASSERT_TRUE(EcritOctets(Temporaire.filePath("intrusion.json"), EcritArdoise({debut, debut, {}, photos})));
  }
  QStringList Noms(qsizetype i) {
    QStringList noms;
    for (const auto& v : Lit(i)["names"].toArray()) noms << v.toString();
    return noms;
  }

 private:
  int Prises_ = 0;
};

TEST_F(Photographies, TenPhotosOfASlowCameraAreAllInTheMail) {
  Filme(10'000);
  ASSERT_EQ(Nombre(), 1);
  EXPECT_EQ(Noms(0).size(), 10);
}

TEST_F(Photographies, AMailLeavesFiveSecondsBehindItsFirstFrameThoughPhotosAreMissing) {
  Reglages.Valeurs.MailNombrePhoto = "100";
  Module->PrendReglages(Reglages);
  Filme(4'990);
  EXPECT_EQ(Nombre(), 0);
  Filme(666);
  ASSERT_EQ(Nombre(), 1);
  EXPECT_EQ(Noms(0).size(), 16);
}

TEST_F(Photographies, AMailLeavesASecondBehindTheLastReport) {
  Reglages.Valeurs.MailNombrePhoto = "100";
  Module->PrendReglages(Reglages);
  Filme(1'332);
  Temps.Avance(600);
  EXPECT_EQ(Nombre(), 0);
  Temps.Avance(300);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Photographies, TheMailsOfARowShareNoPhoto) {
  Reglages.Valeurs.MailNombreMail = "3";
  Reglages.Valeurs.MailNombrePhoto = "4";
  Module->PrendReglages(Reglages);
  Filme(20'000);
  ASSERT_EQ(Nombre(), 3);
  const QStringList toutes = Noms(0) + Noms(1) + Noms(2);
  EXPECT_EQ(toutes.size(), 12);
  EXPECT_EQ(QSet<QString>(toutes.begin(), toutes.end()).size(), 12);
  EXPECT_TRUE(Noms(0).contains("0000.jpg")) << "and the next row begins anew";
  Temps.Avance(kPauseEntreSeries);
  Module->ExecuteCommande(Commande::kIntrusion);
  Temps.Avance(2'000);
  EXPECT_FALSE(Noms(3).isEmpty());
}

TEST_F(Photographies, TheRecipeTellsAlsoAfterAKillWhosePhotosAreWhose) {
  Reglages.Valeurs.MailNombreMail = "2";
  Reglages.Valeurs.MailNombrePhoto = "1";
  Module->PrendReglages(Reglages);
  Photo("a.jpg");
  Module->ExecuteCommande(Commande::kIntrusion);
  Temps.Avance(ModuleMail::kRecolte);
  ASSERT_EQ(Nombre(), 1);
  Module.reset();
  RecupereSac(Sac, Lecteur, "another");
  ASSERT_EQ(Nombre(), 2);
  EXPECT_EQ(Noms(0), QStringList{"a.jpg"});
  EXPECT_EQ(Noms(1), QStringList());
}

TEST_F(Photographies, ThePauseOutlastsARestartAndNoLonger) {
  Intrusion();
  Temps.Avance(60'000);
  ASSERT_EQ(Nombre(), 1);
  CreeModule();
  Module->PrendReglages(Reglages);
  Intrusion();
  Temps.Avance(kPauseEntreSeries - 62'000);
  Intrusion();
  Temps.Avance(1'000);
  EXPECT_EQ(Nombre(), 1);
  Temps.Avance(5'000);
  Intrusion();
  Temps.Avance(60'000);
  EXPECT_EQ(Nombre(), 2);
  Temps.Avance(kPauseEntreSeries - 65'000);
  Intrusion();
  Temps.Avance(2'000);
  EXPECT_EQ(Nombre(), 2) << "the next pause is a whole one";
}

TEST_F(Photographies, TheFirstPictureIsThatOfTheMostMovementAndTheTextSaysWhenItBegan) {
  Reglages.Valeurs.MailNombrePhoto = "2";
  Reglages.Valeurs.MailNombreMail = "2";
  Reglages.Valeurs.MailCorps = "Come";
  Reglages.Valeurs.LangueCourante = 1;
  Module->PrendReglages(Reglages);
  for (const char* nom : {"1.jpg", "2.jpg", "3.jpg", "4.jpg"}) Photo(nom);
  PoseArdoise(-2000, {{"1.jpg", 500, {}}, {"3.jpg", 400, {}}, {"4.jpg", 30, {}}, {"2.jpg", 20, {}}});
  Intrusion();
  Temps.Avance(qint64{2} * ModuleMail::kRecolte);
  ASSERT_EQ(Nombre(), 2);
  EXPECT_EQ(Noms(0), (QStringList{"1.jpg", "4.jpg"}));
  EXPECT_EQ(Noms(1), (QStringList{"3.jpg", "2.jpg"})) << "the mails of a row share no photo";
  const QString corps = Lit(0)["body"].toString();
  EXPECT_TRUE(corps.startsWith("Come\n\nThe intrusion began on ")) << corps.toStdString();
  EXPECT_TRUE(corps.contains("The first picture is that of the most movement so far.\n")) << corps.toStdString();
  EXPECT_TRUE(corps.endsWith(Photos)) << corps.toStdString();
}

TEST_F(Photographies, ASlateThatIsMissingTornOrOfAnotherIntrusionChangesNothing) {
  Reglages.Valeurs.MailNombrePhoto = "2";
  Reglages.Valeurs.MailCorps = "Come";
  Module->PrendReglages(Reglages);
  const auto envoie = [&](const char* cas) {
    for (const char* nom : {"1.jpg", "2.jpg", "3.jpg"}) Photo(nom);
    Intrusion();
    Temps.Avance(qint64{2} * ModuleMail::kRecolte);
    EXPECT_EQ(Noms(Nombre() - 1), (QStringList{"3.jpg", "2.jpg"})) << cas;
    EXPECT_EQ(Lit(Nombre() - 1)["body"].toString(), "Come") << cas;
    Temps.Avance(kPauseEntreSeries);
  };
  envoie("missing");
  PoseArdoise(-kReposArdoise - 1000, {{"1.jpg", 500, {}}});
  envoie("old");
  PoseArdoise(3'600'000, {{"1.jpg", 500, {}}});
  envoie("of a clock that was set");
  PoseArdoise(0, {{"1.jpg", 500, {}}});
  const QByteArray entiere = LitOctets(Temporaire.filePath("intrusion.json"));
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("intrusion.json"), entiere.chopped(20)));
  envoie("torn");
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("intrusion.json"),
                          QByteArray(entiere).replace("\"version\":1", "\"version\":2")));
  envoie("of a later program");
}

TEST_F(Photographies, WithoutPhotosTheTextTellsOfNone) {
  Reglages.Valeurs.MailNombrePhoto = "0";
  Reglages.Valeurs.PhotoActif = false;
  Reglages.Valeurs.MailCorps.clear();
  Module->PrendReglages(Reglages);
  PoseArdoise(-100, {{"1.jpg", 500, QRect(1, 1, 2, 2)}});
  Intrusion();
  Temps.Avance(2'000);
  const QString corps = Lit(0)["body"].toString();
  EXPECT_TRUE(corps.startsWith("L'intrusion a commenc")) << corps.toStdString();
  EXPECT_FALSE(corps.contains(QString::fromUtf8("première photo"))) << corps.toStdString();
  EXPECT_FALSE(corps.contains("dans /")) << "the copies for the page go again: " << corps.toStdString();
}

TEST_F(Photographies, TheRecipeFindsTheMostMovementAlsoAfterAKill) {
  Reglages.Valeurs.MailNombrePhoto = "1";
  Module->PrendReglages(Reglages);
  for (const char* nom : {"1.jpg", "2.jpg"}) Photo(nom);
  Module->ExecuteCommande(Commande::kIntrusion);
  Module.reset();
  PoseArdoise(-100, {{"1.jpg", 500, {}}});
  RecupereSac(Sac, Lecteur, "another");
  ASSERT_EQ(Nombre(), 1);
  EXPECT_EQ(Noms(0), QStringList{"1.jpg"});
  EXPECT_TRUE(Lit(0)["body"].toString().contains("Frise"));
}

TEST_F(Photographies, APauseOfTheFutureIsNone) {
  NotePause(Temporaire.filePath("courrier"), Debut + 1000);
  EXPECT_EQ(DonneResteDePause(Temporaire.filePath("courrier"), Debut, kPauseEntreSeries), 0);
  EXPECT_EQ(DonneResteDePause(Temporaire.filePath("courrier"), Debut + 1000, kPauseEntreSeries), kPauseEntreSeries);
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("courrier/.pause"), "no time"));
  EXPECT_EQ(DonneResteDePause(Temporaire.filePath("courrier"), Debut, kPauseEntreSeries), 0);
}

TEST_F(Photographies, AMailThatTheDiskDoesNotTakeIsSentFromMemory) {
  const QString dossier = Temporaire.filePath("courrier");
  QDir(dossier).removeRecursively();
  ASSERT_TRUE(EcritOctets(dossier, "no folder"));
  PoseArdoise(-100, {});
  Photo("1.jpg");
  Intrusion();
  ASSERT_EQ(Envoi->Confies.size(), 1);
  const QJsonObject lu = LitCourriel(Envoi->Messages.first());
  EXPECT_EQ(lu["subject"].toString(), "Intrusion");
  EXPECT_TRUE(lu["names"].toArray().isEmpty()) << "its words alone";
  EXPECT_TRUE(lu["body"].toString().contains("Frise"));
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_TRUE(LitOctets(Etat.Chemin()).contains("waiting_since"));
  Rapporte({Envoi->Confies.first(), {.Accepte = true}, 0});
  EXPECT_FALSE(LitOctets(Etat.Chemin()).contains("waiting_since"));
}

TEST_F(Photographies, AMessageOfTheWatchThatTheDiskDoesNotTakeIsSentFromMemoryAndDeletedThen) {
  const QString message = Temporaire.filePath(QStringLiteral("veille/%1-1.json").arg(Debut));
  QDir().mkpath(Temporaire.filePath("veille"));
  ASSERT_TRUE(EcritOctets(message, QJsonDocument(MessageDeVeille()).toJson()));
  const QString dossier = Temporaire.filePath("courrier");
  QDir(dossier).removeRecursively();
  ASSERT_TRUE(EcritOctets(dossier, "no folder"));
  Module->ExecuteCommande(Commande::kVeille);
  Temps.Avance(qint64{3} * ModuleMail::kRepriseVeille);
  ASSERT_EQ(Envoi->Confies.size(), 1) << "once";
  EXPECT_TRUE(QFile::exists(message));
  Rapporte({Envoi->Confies.first(), {.Accepte = true}, 0});
  EXPECT_FALSE(QFile::exists(message));
}

TEST_F(Photographies, APhotoDiskThatDoesNotAnswerCostsThePhotosAndNotTheMail) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  Reglages.Valeurs.RepertoirePhoto = mort.Chemin();
  Module->PrendReglages(Reglages);
  QElapsedTimer depuis;
  depuis.start();
  Intrusion();
  Temps.Avance(15'000);
  EXPECT_LT(depuis.elapsed(), 4 * LecteurPhotos::kPatience.count()) << "asked once, and not at each look";
  ASSERT_EQ(Nombre(), 1);
  EXPECT_EQ(Lit(0)["subject"].toString(), "Intrusion");
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("disque des photos")) << Avis.first().toStdString();
  CourrielEnAttente autre;
  autre.Nom = "1-mort-1";
  autre.Destinataires = QStringList{"anna@exemple.fr"};
  ASSERT_EQ(PoseRecette(Sac, autre, {.DossierPhotos = mort.Chemin(), .NombrePhoto = 3}), 0);
  EXPECT_EQ(RecupereSac(Sac, Lecteur, "essai"), 0);
  EXPECT_EQ(Nombre(), 2) << "nor the mails of a run before";
  mort.Reveille();
}

TEST_F(Photographies, AFullDiskGivesBackWhatWasKeptForIt) {
  const PetitDisque disque(4 * 1024 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  const QString dossier = disque.Chemin() + "/courrier";
  SacPostal sac(dossier);
  sac.TientReserve();
  ASSERT_EQ(QFile(dossier + "/.reserve").size(), kOctetsReserve);
  QFile reste(disque.Chemin() + "/reste");
  ASSERT_TRUE(reste.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
  while (reste.write(QByteArray(4096, 'x')) == 4096) {
  }
  CourrielEnAttente courriel;
  courriel.Nom = "a";
  courriel.Destinataires = QStringList{"anna@exemple.fr"};
  ASSERT_EQ(PoseRecette(sac, courriel, {.Corps = "words"}), 0);
  EXPECT_EQ(PublieBrouillon(sac, Lecteur, "a").Erreur, 0);
  EXPECT_EQ(sac.Liste().size(), 1);
  EXPECT_FALSE(QFile::exists(dossier + "/.reserve"));
  sac.TientReserve();
  EXPECT_FALSE(QFile::exists(dossier + "/.reserve")) << "a reserve does not fill the disk itself";
  reste.remove();
  sac.TientReserve();
  EXPECT_TRUE(QFile::exists(dossier + "/.reserve"));
}

TEST_F(Photographies, AReserveIsNotTheLastThatIsLeft) {
  const PetitDisque disque(4 * kOctetsReserve);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  SacPostal sac(disque.Chemin());
  sac.TientReserve();
  EXPECT_FALSE(QFile::exists(disque.Chemin() + "/.reserve"));
}

TEST_F(Photographies, TheCompanionKeepsTheReserve) {
  const QByteArray reserve = LitOctets(Temporaire.filePath("courrier/.reserve"));
  EXPECT_EQ(reserve.size(), kOctetsReserve);
  EXPECT_GT(qCompress(reserve).size(), kOctetsReserve / 2) << "it takes room also where files are made smaller";
  ASSERT_TRUE(RendReserve(Temporaire.filePath("courrier")));
  Temps.Avance(ModuleMail::kRegardAttente);
  EXPECT_EQ(QFile(Temporaire.filePath("courrier/.reserve")).size(), kOctetsReserve);
}

}  // namespace
}  // namespace vaktor::essai
