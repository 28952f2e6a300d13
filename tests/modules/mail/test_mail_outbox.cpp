// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox on disk: what it keeps, what it gives up, damaged files, a full disk.
#include <sys/stat.h>

#include <cerrno>

#include "modules/mail/bad_sector.h"
#include "modules/mail/disk_reserve.h"
#include "modules/mail/postman_bench.h"
#include "support/small_disk.h"
#include "support/tiny_jpeg.h"
#include "support/without_descriptors.h"

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
  RecupereSac(B, Lecteur);
  EXPECT_EQ(Noms(), "a");
}

TEST_F(Sac, ARecipeIsNoMailUntilItIsMadeOne) {
  ASSERT_EQ(PoseRecette(B, Nomme("a", Maintenant), {.Sujet = "Alarme", .Corps = "ici"}), 0);
  EXPECT_EQ(Fichiers(), "a.draft");
  EXPECT_EQ(PublieBrouillon(B, Lecteur, "a").Erreur, 0);
  EXPECT_EQ(Fichiers(), "a.mail");
  const QJsonObject lu = LitCourriel(B.LitMessage("a"));
  EXPECT_EQ(lu["subject"].toString(), "Alarme");
  EXPECT_EQ(lu["body"].toString(), "ici");
}

TEST_F(Sac, ADraftThatIsNotThereOrHasNoRoomIsToldAndARecipeStays) {
  EXPECT_EQ(PublieBrouillon(B, Lecteur, "nobody").Erreur, ENOENT);
  ASSERT_EQ(PoseRecette(B, Nomme("a", Maintenant), {}), 0);
  ASSERT_TRUE(QDir().mkpath(Dossier + "/a.draft.part/full"));
  EXPECT_NE(PublieBrouillon(B, Lecteur, "a").Erreur, 0);
  EXPECT_EQ(Fichiers(), "a.draft");
}

TEST_F(Sac, ARecipeThatIsDamagedIsSetAsideAndNeverSentAsAMessage) {
  ASSERT_EQ(B.PoseRecette(Nomme("a", Maintenant), "no object"), 0);
  RecupereSac(B, Lecteur);
  EXPECT_EQ(Noms(), "");
  EXPECT_EQ(Fichiers(), "a.bad");
}

TEST_F(Sac, ARecipeThatCannotBeReadAtThisMomentStaysOne) {
  ASSERT_EQ(PoseRecette(B, Nomme("a", Maintenant), {.Corps = "words"}), 0);
  {
    const MauvaisSecteur secteur(0);
    EXPECT_EQ(PublieBrouillon(B, Lecteur, "a").Erreur, EIO);
    EXPECT_EQ(RecupereSac(B, Lecteur), EIO) << "whoever asks learns that something is left";
  }
  EXPECT_EQ(Fichiers(), "a.draft");
  {
    const SansDescripteur aucun;
    EXPECT_EQ(PublieBrouillons(B, Lecteur, {}), EMFILE) << "a folder that cannot be listed is not done with";
  }
  EXPECT_EQ(RecupereSac(B, Lecteur), 0);
  EXPECT_EQ(Noms(), "a");
}

TEST_F(Sac, ADraftOfAnotherRunWaitsLikeAMail) {
  ASSERT_EQ(PoseRecette(B, Nomme("1-autre-1", Maintenant), {}), 0);
  ASSERT_EQ(B.PoseBrouillon(Nomme("0-moi-1", Maintenant - 1000), "x"), 0);
  std::optional<qint64> plusAncien;
  EXPECT_EQ(B.LitPlusAncien(plusAncien, "moi"), 0);
  EXPECT_EQ(plusAncien, Maintenant);
  Maintenant -= 5000;
  Depose("0-moi-2");
  EXPECT_EQ(B.LitPlusAncien(plusAncien, "moi"), 0);
  EXPECT_EQ(plusAncien, Maintenant) << "a mail of our own waits too";
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
  const Publication suite = PublieBrouillon(pleine, Lecteur, "a");
  EXPECT_EQ(suite.Erreur, 0);
  EXPECT_EQ(suite.ErreurPhotos, ENOSPC);
  const QJsonObject lu = LitCourriel(pleine.LitMessage("a"));
  EXPECT_EQ(lu["body"].toString(), "words");
  EXPECT_TRUE(lu["names"].toArray().isEmpty());
}

TEST_F(Sac, TheDraftsOfTheLivingAreLeftAlone) {
  ASSERT_EQ(B.PoseBrouillon(Nomme("1-moi-1", Maintenant), "un"), 0);
  RecupereSac(B, Lecteur, "moi");
  EXPECT_EQ(Fichiers(), "1-moi-1.draft");
}

TEST_F(Sac, LeftoversOfAKillGo) {
  Depose("a");
  for (const char* nom : {"b.sent", "c.mail.part", "d.try", "e.draft.part"})
    ASSERT_TRUE(EcritOctets(Dossier + '/' + nom, "x"));
  RecupereSac(B, Lecteur);
  EXPECT_EQ(Fichiers(), "a.mail");
}

TEST_F(Sac, DamagedFilesAreSetAside) {
  for (const char* nom : {"a.mail", "b.mail", "c.mail"}) ASSERT_TRUE(EcritOctets(Dossier + '/' + nom, "{\"to\":3}\n"));
  ASSERT_TRUE(EcritOctets(Dossier + "/d.mail", QByteArray(200'000, '\xff')));
  ASSERT_TRUE(EcritOctets(Dossier + "/dd.mail", "{\"from\":\"x\",\"to\":[\"y\"]}\n")) << "no time";
  Depose("e");
  EXPECT_EQ(B.Liste().size(), 1);
  EXPECT_TRUE(QFile::exists(Dossier + "/a.mail")) << "by who tells of it alone";
  EXPECT_EQ(Noms(), "e");
  EXPECT_EQ(Mauvais.join(u'|'), "a|b|c|d|dd");
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
  EXPECT_FALSE(PlusAncien());
  ASSERT_EQ(B.PoseBrouillon(Nomme("a", Maintenant), "x"), 0);
  EXPECT_FALSE(PlusAncien()) << "still gathers its photos";
  Depose("b");
  Maintenant += 1000;
  Depose("c");
  EXPECT_EQ(PlusAncien(), Maintenant - 1000);
  ASSERT_TRUE(EcritOctets(Dossier + "/a.mail", "no head"));
  EXPECT_EQ(PlusAncien(), Maintenant - 1000);
  B.MetDeCote(B.Liste().first(), Maintenant);
  EXPECT_EQ(PlusAncien(), Maintenant);
}

// Reading it fails as a bad sector does, after it was opened.
TEST_F(Sac, AMailThatCannotBeReadAtThisMomentIsNotDamagedAndWaits) {
  const QString chemin = Dossier + "/a.mail";
  ASSERT_TRUE(QFile::link("/proc/self/mem", chemin));
  EXPECT_EQ(Noms(), "");
  EXPECT_EQ(Fichiers(), "a.mail");
  EXPECT_TRUE(PlusAncien());
  EXPECT_EQ(B.LitMessage("a"), "");
}

TEST_F(Sac, AFolderThatCannotBeListedIsNoEmptyOne) {
  Depose("a");
  std::optional<qint64> plusAncien;
  {
    const SansDescripteur aucun;
    EXPECT_NE(B.LitPlusAncien(plusAncien), 0);
    EXPECT_FALSE(B.DonneNoms());
  }
  EXPECT_EQ(B.LitPlusAncien(plusAncien), 0);
  EXPECT_EQ(plusAncien, Maintenant);
  EXPECT_EQ(B.DonneNoms(), QStringList("a"));
  ASSERT_TRUE(QDir(Dossier).removeRecursively());
  EXPECT_EQ(B.LitPlusAncien(plusAncien), 0) << "one that is not there is";
  EXPECT_EQ(B.DonneNoms(), QStringList());
}

TEST_F(Sac, HalfAMailIsNone) {
  Depose("a", QByteArray(300'000, 'x'));
  ASSERT_EQ(B.LitMessage("a").size(), 300'000);
  const MauvaisSecteur secteur(100'000);
  EXPECT_EQ(B.LitMessage("a"), "");
}

TEST(SortDuCourriel, OneThatCannotBeReadIsNotTakenForNone) {
  const QTemporaryDir dossier;
  const QString chemin = dossier.filePath("a.rcpt");
  ASSERT_EQ(EcritSort(chemin, {.Servis = {"a@exemple.fr"}, .Refuses = {}, .Ajoutes = {}}), 0);
  {
    const SansDescripteur aucun;
    EXPECT_FALSE(LitSort(chemin));
  }
  EXPECT_EQ(LitSort(chemin)->Servis, QStringList("a@exemple.fr"));
  EXPECT_EQ(LitSort(dossier.filePath("none")), SortCourriel());
  ASSERT_TRUE(EcritOctets(chemin, "damaged"));
  EXPECT_EQ(LitSort(chemin), SortCourriel());
  ASSERT_TRUE(QFile::remove(chemin) && QDir().mkdir(chemin));
  EXPECT_EQ(LitSort(chemin), SortCourriel()) << "no file, and never one";
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

TEST_F(Sac, WhatWasRefusedGoesAfterAWeekAndNotes) {
  Depose("a");
  B.Reporte(B.Liste().first(), Maintenant);
  for (const char* nom : {"/b.refused", "/b.rcpt"}) ASSERT_TRUE(EcritOctets(Dossier + nom, "x"));
  const qint64 deux = QDateTime::currentMSecsSinceEpoch() + SacPostal::kAgeMaxMs;
  EXPECT_TRUE(B.Elague(deux - kHeure, {"b"}).isEmpty());
  EXPECT_TRUE(B.Elague(deux + kHeure, {}).isEmpty());
  EXPECT_EQ(Fichiers(), "a.mail|a.try|b.rcpt|b.refused") << "refused in an earlier run, and not tried in this one";
  EXPECT_EQ(B.Elague(deux + kHeure, {"a", "b"}), QStringList({"b", "a"}));
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Sac, OfDamagedOnesSoManyStayWhateverTheClockSays) {
  for (int i = 0; i < SacPostal::kMauvaisMax; ++i)
    ASSERT_TRUE(EcritOctets(Dossier + QStringLiteral("/%1.bad").arg(100 + i), "x"));
  B.Elague(QDateTime::currentMSecsSinceEpoch() + qint64{365} * 24 * kHeure, {});
  EXPECT_EQ(QDir(Dossier).entryList({"*.bad"}).size(), SacPostal::kMauvaisMax);
  ASSERT_TRUE(EcritOctets(Dossier + "/200.bad", "x"));
  B.Elague(Maintenant, {});
  EXPECT_EQ(QDir(Dossier).entryList({"*.bad"}).size(), SacPostal::kMauvaisMax);
  EXPECT_FALSE(QFile::exists(Dossier + "/100.bad")) << "the oldest went";
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
