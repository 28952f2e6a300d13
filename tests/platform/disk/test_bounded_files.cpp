// SPDX-License-Identifier: GPL-3.0-or-later
// Disks that do not answer hold nobody: what each call says, and that it says so within the two seconds that a window
// may be held.
#include <QElapsedTimer>
#include <QFile>
#include <cerrno>

#include "platform/base/program_folders.h"
#include "platform/disk/bounded_files.h"
#include "support/event_wait.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

constexpr int kDeuxSecondes = 2000;

class BoundedFiles : public SurDisqueVolatil {
 protected:
  static QByteArray Lit(const QString& chemin) {
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("unreadable");
  }
  QElapsedTimer Temps;
};

TEST_F(BoundedFiles, WhatIsWrittenIsWholeWhenTheCallReturns) {
  FichiersBornes fichiers;
  const QByteArray photo(300'000, 'p');
  for (int i = 0; i < 20; ++i) {
    const QString nom = Chemin("\\photo%1.jpg").arg(i);
    ASSERT_EQ(fichiers.EcritNouveauFichier(nom, photo), 0);
    ASSERT_EQ(Lit(CheminNatif(nom)), photo) << i;
  }
  ASSERT_EQ(fichiers.EcritFichier(Chemin("/Live.jpg"), photo), 0);
  ASSERT_EQ(fichiers.EcritFichier(Chemin("/Live.jpg"), "short"), 0);
  EXPECT_EQ(Lit(Chemin("/Live.jpg")), "short");
}

TEST_F(BoundedFiles, FailuresOfTheDiskAreTheSystemsOwn) {
  FichiersBornes fichiers;
  EXPECT_EQ(fichiers.EcritNouveauFichier(Chemin("/gone/a.jpg"), "x"), ENOENT);
  EXPECT_EQ(fichiers.EcritFichier(Chemin(), "x"), EISDIR);
  EXPECT_EQ(fichiers.EcritNouveauFichier(Ailleurs() + QStringLiteral("/gros.jpg"), QByteArray(20'000'000, 'g')),
            ENOSPC);
}

TEST_F(BoundedFiles, APhotoThatIsThereIsNeverReplaced) {
  FichiersBornes fichiers;
  const QString nom = Chemin("/2026-11-15  14-05-09 Photo 00012.jpg");
  EXPECT_EQ(fichiers.EcritNouveauFichier(nom, "first"), 0);
  EXPECT_EQ(fichiers.EcritNouveauFichier(nom, "second"), 0);
  QString devenu;
  EXPECT_EQ(fichiers.EcritNouveauFichier(nom, "third", &devenu), 0);
  EXPECT_EQ(devenu, Chemin("/2026-11-15  14-05-09 Photo 00012b.jpg"));
  EXPECT_EQ(Lit(nom), "first");
  EXPECT_EQ(Lit(Chemin("/2026-11-15  14-05-09 Photo 00012a.jpg")), "second");
  EXPECT_EQ(Lit(Chemin("/2026-11-15  14-05-09 Photo 00012b.jpg")), "third");
}

TEST_F(BoundedFiles, AFrameWithAllItsCopiesIsHeldForLessThanTwoSecondsAndTheNextNotAtAll) {
  FichiersBornes fichiers;
  for (const char* dossier : {"/intrus", "/FTP", "/Temp"}) ASSERT_TRUE(QDir().mkdir(Chemin(dossier)));
  ASSERT_TRUE(Disque->SeTait());
  Temps.start();
  EXPECT_EQ(fichiers.EcritNouveauFichier(Chemin("/intrus/a.jpg"), "a"), ETIMEDOUT);
  EXPECT_EQ(fichiers.EcritNouveauFichier(Chemin("/FTP/a.jpg"), "a"), ETIMEDOUT);
  EXPECT_EQ(fichiers.EcritFichier(Chemin("/Temp/Live.jpg"), "a"), ETIMEDOUT);
  EXPECT_LT(Temps.elapsed(), kDeuxSecondes);
  Temps.start();
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/intrus/b.jpg"), "b"), ETIMEDOUT);
  }
  EXPECT_LT(Temps.elapsed(), kDeuxSecondes) << "a thousand of them: nothing is waited for any more";
}

// Folders that are not written to any more make room for others. A silent one is none of these: made anew, it would be
// waited for anew.
TEST_F(BoundedFiles, ASilentDiskIsNotWaitedForAgainHoweverManyFoldersAreWrittenToMeanwhile) {
  FichiersBornes fichiers;
  ASSERT_TRUE(Disque->SeTait());
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "a"), ETIMEDOUT);
  qint64 attendu = 0;
  for (int i = 0; i < 30; ++i) {
    const QString dossier = Ailleurs() + QStringLiteral("/d%1").arg(i);
    ASSERT_TRUE(QDir().mkdir(dossier));
    ASSERT_EQ(fichiers.EcritNouveauFichier(dossier + QStringLiteral("/a.jpg"), "a"), 0);
    Temps.start();
    ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "a"), ETIMEDOUT);
    attendu += Temps.elapsed();
  }
  EXPECT_LT(attendu, kDeuxSecondes);
}

TEST_F(BoundedFiles, QuestionsNeverComeToAnEnd) {
  const FichiersBornes fichiers;
  for (int i = 0; i < 2 * TravauxBornes::kAuPlus; ++i) {
    ASSERT_TRUE(essai::AttendQue([&] { return fichiers.RegardeDossier(Chemin()) == Presence::kLa; })) << i;
  }
}

TEST_F(BoundedFiles, AnotherDiskTakesItsFilesMeanwhile) {
  FichiersBornes fichiers;
  ASSERT_TRUE(Disque->SeTait());
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/a.jpg"), "a"), ETIMEDOUT);
  EXPECT_EQ(fichiers.EcritNouveauFichier(Ailleurs() + QStringLiteral("/a.jpg"), "a"), 0);
  EXPECT_TRUE(fichiers.Existe(Ailleurs() + QStringLiteral("/a.jpg")));
}

TEST_F(BoundedFiles, ADiskThatAnswersAgainBringsTheLatePhotoWholeAndTakesTheNextOnes) {
  FichiersBornes fichiers;
  const QByteArray tard(200'000, 't');
  // Not by the same thread, which might still be bringing it to the disk when the disk falls silent.
  ASSERT_EQ(FichiersSysteme().EcritNouveauFichier(Chemin("/avant.jpg"), "before"), 0);
  ASSERT_TRUE(Disque->SeTait());
  {
    const QByteArray ephemere(tard.size(), 't');  // gone before the disk answers
    ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/tard.jpg"), ephemere), ETIMEDOUT);
  }
  ASSERT_EQ(fichiers.EcritNouveauFichier(Chemin("/perdue.jpg"), "lost"), ETIMEDOUT);
  ASSERT_TRUE(Disque->Repond());
  ASSERT_TRUE(essai::AttendQue([&] { return fichiers.EcritNouveauFichier(Chemin("/apres.jpg"), "after") == 0; }));
  EXPECT_EQ(Lit(Chemin("/tard.jpg")), tard);
  EXPECT_EQ(Lit(Chemin("/apres.jpg")), "after");
  EXPECT_EQ(Lit(Chemin("/avant.jpg")), "before");
  EXPECT_FALSE(QFile::exists(Chemin("/perdue.jpg"))) << "it was told as lost, and nobody had taken it";
}

TEST_F(BoundedFiles, AStartWithAllItsQuestionsIsHeldForLessThanTwoSeconds) {
  ASSERT_TRUE(Disque->SeTait());
  FichiersBornes fichiers;
  const DossiersProgramme dossiers{Chemin(), Chemin()};
  Temps.start();
  EXPECT_EQ(fichiers.Attend<QString>([dossiers] { return PrepareDossiers(dossiers); }), std::nullopt);
  EXPECT_EQ(fichiers.RegardeDossier(Chemin("/photos")), Presence::kSansReponse);
  EXPECT_FALSE(fichiers.Existe(Chemin("\\intrus")));
  EXPECT_FALSE(fichiers.CreeDossier(Chemin("\\intrus")));
  EXPECT_FALSE(fichiers.EspaceLibre(Chemin()).has_value()) << "the tick of the box";
  EXPECT_LT(Temps.elapsed(), kDeuxSecondes);
  EXPECT_FALSE(fichiers.EspaceUtilisable(Chemin()).has_value()) << "the sign of life";
}

TEST_F(BoundedFiles, QuestionsAreAnsweredAsByTheSystemItself) {
  const FichiersBornes fichiers;
  EXPECT_EQ(fichiers.RegardeDossier(Chemin()), Presence::kLa);
  EXPECT_EQ(fichiers.RegardeDossier(Chemin("/gone")), Presence::kAbsent);
  EXPECT_EQ(fichiers.RegardeDossier(QString()), Presence::kAbsent);
  EXPECT_EQ(fichiers.EspaceLibre(Chemin()), 4'096'000'000);
  EXPECT_EQ(fichiers.EspaceUtilisable(Chemin()), 3'686'400'000) << "not the administrator's";
  FichiersBornes ecrit;
  EXPECT_TRUE(ecrit.CreeDossier(Chemin("\\intrus")));
  EXPECT_FALSE(ecrit.CreeDossier(Chemin("\\intrus"))) << "there already";
  EXPECT_TRUE(ecrit.Existe(Chemin("/intrus")));
  EXPECT_FALSE(ecrit.Existe(Chemin("/gone")));
  EXPECT_FALSE(ecrit.Existe(QString()));
  EXPECT_EQ(ecrit.EcritFichier(Chemin("/file"), "x"), 0);
  EXPECT_TRUE(ecrit.Existe(Chemin("/file")));
  EXPECT_EQ(ecrit.RegardeDossier(Chemin("/file")), Presence::kAbsent) << "a file is no folder";
}

TEST_F(BoundedFiles, TheEndOfTheProgramLeavesThreadsThatHangBehind) {
  auto fichiers = std::make_unique<FichiersBornes>();
  for (const char* dossier : {"/a", "/b", "/c"}) ASSERT_TRUE(QDir().mkdir(Chemin(dossier)));
  for (const char* nom : {"/a/1", "/b/1", "/c/1"}) ASSERT_EQ(fichiers->EcritNouveauFichier(Chemin(nom), "x"), 0);
  ASSERT_TRUE(Disque->SeTait());
  for (const char* nom : {"/a/2", "/b/2", "/c/2"})
    ASSERT_EQ(fichiers->EcritNouveauFichier(Chemin(nom), "x"), ETIMEDOUT);
  Temps.start();
  fichiers.reset();
  EXPECT_LT(Temps.elapsed(), kDeuxSecondes);
}

TEST_F(BoundedFiles, MoreFoldersThanAUserEverChoosesGatherNoThreads) {
  FichiersBornes fichiers;
  const auto fils = [] { return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs).size(); };
  const qsizetype avant = fils();
  for (int i = 0; i < 40; ++i) {
    const QString dossier = Chemin("/d%1").arg(i);
    ASSERT_TRUE(QDir().mkdir(dossier));
    ASSERT_EQ(fichiers.EcritNouveauFichier(dossier + QStringLiteral("/a"), "x"), 0);
  }
  EXPECT_TRUE(essai::AttendQue([&] { return fils() <= avant + 14; })) << fils() << " threads, before " << avant;
}

}  // namespace
}  // namespace vaktor
