// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox on disk: what it keeps, what it gives up, damaged files, a full disk.
#include <sys/stat.h>

#include <cerrno>

#include "modules/mail/disk_reserve.h"
#include "modules/mail/postman_bench.h"
#include "support/small_disk.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {
namespace {

TEST_F(Sac, KeepsWhatItWasGiven) {
  Depose("b", "corps\r\nde b");
  Depose("a");
  EXPECT_EQ(Noms(), "a|b");
  const CourrielEnAttente c = B.Liste().at(1);
  EXPECT_EQ(c.Expediteur, "cam@exemple.fr");
  EXPECT_EQ(c.Destinataires, QStringList{"anna@exemple.fr"});
  EXPECT_EQ(c.FaitA, Maintenant);
  EXPECT_EQ(B.LitMessage("b"), "corps\r\nde b");
}

TEST_F(Sac, BelongsToItsOwnerAlone) {
  Depose("a");
  EXPECT_EQ(QFile::permissions(Dossier) & 0x77, 0);
  EXPECT_EQ(QFile::permissions(Dossier + "/a.mail") & 0x77, 0);
}

TEST_F(Sac, AFolderThatOthersMayEnterIsClosed) {
  ASSERT_TRUE(QFile::setPermissions(Dossier, QFileDevice::Permissions(0x7755)));
  const SacPostal sac(Dossier);
  EXPECT_EQ(QFile::permissions(Dossier) & 0x77, 0);
}

TEST_F(Sac, ADraftIsNotSentBeforeItIsDoneButAfterAKillItIs) {
  ASSERT_EQ(B.PoseBrouillon(Nomme("a", Maintenant), "un"), 0);
  EXPECT_EQ(Noms(), "");
  RecupereSac(B);
  EXPECT_EQ(Noms(), "a");
}

TEST_F(Sac, ARecipeIsNoMailUntilItIsMadeOne) {
  ASSERT_EQ(PoseRecette(B, Nomme("a", Maintenant), {.Sujet = "Alarme", .Corps = "ici"}), 0);
  EXPECT_EQ(Fichiers(), "a.draft");
  EXPECT_EQ(PublieBrouillon(B, "a").Erreur, 0);
  EXPECT_EQ(Fichiers(), "a.mail");
  const QJsonObject lu = LitCourriel(B.LitMessage("a"));
  EXPECT_EQ(lu["subject"].toString(), "Alarme");
  EXPECT_EQ(lu["body"].toString(), "ici");
}

TEST_F(Sac, ADraftThatIsNotThereOrHasNoRoomIsToldAndARecipeStays) {
  EXPECT_EQ(PublieBrouillon(B, "nobody").Erreur, ENOENT);
  ASSERT_EQ(PoseRecette(B, Nomme("a", Maintenant), {}), 0);
  ASSERT_TRUE(QDir().mkpath(Dossier + "/a.draft.part/full"));
  EXPECT_NE(PublieBrouillon(B, "a").Erreur, 0);
  EXPECT_EQ(Fichiers(), "a.draft");
}

TEST_F(Sac, ARecipeThatIsDamagedIsSetAsideAndNeverSentAsAMessage) {
  ASSERT_EQ(B.PoseRecette(Nomme("a", Maintenant), "no object"), 0);
  RecupereSac(B);
  EXPECT_EQ(Noms(), "");
  EXPECT_EQ(Fichiers(), "a.bad");
}

TEST_F(Sac, ADiskWithRoomForTheWordsAloneTakesThem) {
  const PetitDisque disque(128 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  SacPostal pleine(disque.Chemin() + "/courrier");
  const QString photo = Temporaire.filePath("1.jpg");
  ASSERT_TRUE(EcritOctets(photo, PetitJpeg(QByteArray(200'000, 'x'))));
  const qint64 instant = QFileInfo(photo).lastModified().toMSecsSinceEpoch();
  const RecetteCourriel recette{.Sujet = "x", .Corps = "words", .DossierPhotos = Temporaire.path(), .NombrePhoto = 3};
  ASSERT_EQ(PoseRecette(pleine, Nomme("a", instant), recette), 0);
  const Publication suite = PublieBrouillon(pleine, "a");
  EXPECT_EQ(suite.Erreur, 0);
  EXPECT_EQ(suite.ErreurPhotos, ENOSPC);
  const QJsonObject lu = LitCourriel(pleine.LitMessage("a"));
  EXPECT_EQ(lu["body"].toString(), "words");
  EXPECT_TRUE(lu["names"].toArray().isEmpty());
}

TEST_F(Sac, TheDraftsOfTheLivingAreLeftAlone) {
  ASSERT_EQ(B.PoseBrouillon(Nomme("1-moi-1", Maintenant), "un"), 0);
  RecupereSac(B, "moi");
  EXPECT_EQ(Fichiers(), "1-moi-1.draft");
}

TEST_F(Sac, LeftoversOfAKillGo) {
  Depose("a");
  for (const char* nom : {"b.sent", "c.mail.part", "d.try", "e.draft.part"})
    ASSERT_TRUE(EcritOctets(Dossier + '/' + nom, "x"));
  RecupereSac(B);
  EXPECT_EQ(Fichiers(), "a.mail");
}

TEST_F(Sac, DamagedFilesAreSetAside) {
  for (const char* nom : {"a.mail", "b.mail", "c.mail"}) ASSERT_TRUE(EcritOctets(Dossier + '/' + nom, "{\"to\":3}\n"));
  ASSERT_TRUE(EcritOctets(Dossier + "/d.mail", QByteArray(200'000, '\xff')));
  ASSERT_TRUE(EcritOctets(Dossier + "/dd.mail", "{\"from\":\"x\",\"to\":[\"y\"]}\n")) << "no time";
  Depose("e");
  EXPECT_EQ(Noms(), "e");
  EXPECT_EQ(Fichiers(), "a.bad|b.bad|c.bad|d.bad|dd.bad|e.mail");
}

TEST_F(Sac, AFullDiskIsToldAndNothingHalfWrittenStays) {
  const PetitDisque disque(64 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  SacPostal pleine(disque.Chemin() + "/courrier");
  EXPECT_EQ(pleine.PoseBrouillon(Nomme("gros", Maintenant), QByteArray(300'000, 'x')), ENOSPC);
  EXPECT_TRUE(QDir(disque.Chemin() + "/courrier").isEmpty());
  EXPECT_EQ(pleine.PoseBrouillon(Nomme("petit", Maintenant), "x"), 0) << "and a small one still fits";
}

TEST_F(Sac, KnowsSinceWhenTheOldestWaits) {
  EXPECT_FALSE(B.PlusAncien());
  ASSERT_EQ(B.PoseBrouillon(Nomme("a", Maintenant), "x"), 0);
  EXPECT_FALSE(B.PlusAncien()) << "still gathers its photos";
  Depose("b");
  Maintenant += 1000;
  Depose("c");
  EXPECT_EQ(B.PlusAncien(), Maintenant - 1000);
  ASSERT_TRUE(EcritOctets(Dossier + "/a.mail", "no head"));
  EXPECT_EQ(B.PlusAncien(), Maintenant - 1000);
  B.MetDeCote(B.Liste().first(), Maintenant);
  EXPECT_EQ(B.PlusAncien(), Maintenant);
}

TEST_F(Sac, OldAndTooManyAreGivenUp) {
  Depose("a");
  Maintenant += SacPostal::kAgeMaxMs + 1;
  Depose("b");
  EXPECT_EQ(B.Elague(Maintenant, {"a", "b"}).join(u'|'), "a");
  EXPECT_EQ(Noms(), "b");
  for (int i = 0; i < SacPostal::kCourrielsMax; ++i) {
    QFile f(Dossier + QStringLiteral("/c%1.mail").arg(i, 4, 10, QChar('0')));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("{\"made\":1700000000000,\"from\":\"x\",\"to\":[\"y\"]}\n");
  }
  EXPECT_EQ(B.Elague(Maintenant, {}).join(u'|'), "b") << "the disk is not filled, tried or not";
}

TEST_F(Sac, WhatWasRefusedOrDamagedGoesAfterAWeekAndNotes) {
  Depose("a");
  B.Reporte(B.Liste().first(), Maintenant);
  for (const char* nom : {"/b.refused", "/c.bad"}) ASSERT_TRUE(EcritOctets(Dossier + nom, "x"));
  const qint64 deux = QDateTime::currentMSecsSinceEpoch() + SacPostal::kAgeMaxMs;
  B.Elague(deux - kHeure, {"b"});
  EXPECT_EQ(Fichiers(), "a.mail|a.try|b.refused|c.bad");
  B.Elague(deux + kHeure, {});
  EXPECT_EQ(Fichiers(), "a.mail|a.try|b.refused") << "refused in an earlier run, and not tried in this one";
  B.Elague(deux + kHeure, {"a", "b"});
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Sac, NamesSortInTheOrderOfTheMailsAlsoWhenTheClockIsSetBack) {
  EXPECT_EQ(B.DonneRang(Maintenant), "20231114221320000");
  Depose(B.DonneRang(Maintenant) + "-essai-9");
  EXPECT_EQ(B.DonneRang(Maintenant), "20231114221320001") << "two mails of one report";
  Depose(B.DonneRang(Maintenant) + "-essai-10");
  Depose("of a person");
  EXPECT_EQ(B.DonneRang(Maintenant - kHeure), "20231114221320002");
  EXPECT_EQ(B.DonneRang(Maintenant + kHeure), "20231114231320000");
}

}  // namespace
}  // namespace vaktor::essai
