// SPDX-License-Identifier: GPL-3.0-or-later
// The settings store over disks that do not answer: nobody waits for long, nothing is lost, nothing old comes last.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include "base/failure.h"
#include "platform/disk/bounded_store.h"
#include "platform/store/file_store.h"
#include "platform/store/private_file.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

constexpr int kDeuxSecondes = 2000;

QString Refuse(MagasinReglages& magasin) {
  try {
    magasin.Vide();
  } catch (const Echec& echec) {
    EXPECT_EQ(echec.Numero(), kAccesFichier);
    return echec.Description();
  }
  return QStringLiteral("saved");
}

template <typename Condition>
bool Attend(const Condition& condition) {
  QElapsedTimer temps;
  temps.start();
  while (!condition()) {
    if (temps.elapsed() > 20'000) return false;
    QThread::msleep(10);
  }
  return true;
}

class MagasinBorneSurDisque : public testing::Test {
 protected:
  QString Lu(const char* cle) const { return MagasinFichier(Fichier).LitReglage("general", cle, "none"); }
  QTemporaryDir Dossier;
  QString Fichier = Dossier.filePath("vaktor.ini");
};

TEST_F(MagasinBorneSurDisque, IsTheStoreThatItIsBuiltOn) {
  MagasinBorne magasin(Fichier);
  EXPECT_EQ(magasin.Emplacement(), Fichier);
  EXPECT_EQ(magasin.LitReglage("general", "langue", "7"), "7");
  magasin.EcritReglage("general", "langue", "1");
  EXPECT_EQ(magasin.LitReglage("general", "langue", "7"), "1");
  EXPECT_EQ(Lu("langue"), "none");
  magasin.Vide();
  EXPECT_EQ(Lu("langue"), "1");
  EXPECT_EQ(MagasinBorne(Fichier).LitReglage("general", "langue", "7"), "1");
  EXPECT_EQ(QFile::permissions(Fichier) & (QFile::ReadGroup | QFile::ReadOther), 0);
}

TEST_F(MagasinBorneSurDisque, SaysWhatOfTheFileWasDamaged) {
  EXPECT_TRUE(MagasinBorne(Fichier).Abimes().Intact());
  QFile fichier(Fichier);
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write("garbage\n[MAIL]\ncorp=\"cut sh");
  fichier.close();
  const MagasinBorne magasin(Fichier);
  EXPECT_EQ(magasin.Abimes().Lignes, 1);
  EXPECT_EQ(magasin.Abimes().Coupees, QStringList("MAIL/corp"));
}

TEST_F(MagasinBorneSurDisque, ShowsAfterASaveWhatAnotherProcessHasWrittenAndKeepsIt) {
  MagasinBorne magasin(Fichier);
  MagasinFichier autre(Fichier);
  autre.EcritReglage("FTP", "HWNDVK", "4711");
  autre.Vide();
  magasin.EcritReglage("general", "langue", "1");
  magasin.Vide();
  EXPECT_EQ(magasin.LitReglage("FTP", "HWNDVK", ""), "4711");
  EXPECT_EQ(MagasinFichier(Fichier).LitReglage("FTP", "HWNDVK", ""), "4711");
  autre.EcritReglage("general", "langue", "2");
  autre.Vide();
  magasin.EcritReglage("general", "skin", "0");
  magasin.Vide();
  EXPECT_EQ(Lu("langue"), "2") << "what was saved once is not written again over what came later";
  EXPECT_EQ(magasin.LitReglage("general", "langue", ""), "2") << "nor does it hide that here";
}

TEST_F(MagasinBorneSurDisque, AFileThatCannotBeReadIsToldAtTheStart) {
  ASSERT_TRUE(QDir().mkdir(Fichier));
  EXPECT_THROW(MagasinBorne{Fichier}, Echec);
}

TEST_F(MagasinBorneSurDisque, ARefusalIsTheDisksOwnAndTheNextSaveBringsEverything) {
  MagasinBorne magasin(Fichier);
  magasin.EcritReglage("general", "langue", "1");
  ASSERT_TRUE(QDir().mkdir(Fichier));
  EXPECT_TRUE(Refuse(magasin).startsWith(Fichier + ": "));
  EXPECT_EQ(magasin.LitReglage("general", "langue", ""), "1");
  ASSERT_TRUE(QDir().rmdir(Fichier));
  magasin.Vide();
  EXPECT_EQ(Lu("langue"), "1");
}

// Inboxes of this copy that could not be written must not come over those of another one later on.
TEST_F(MagasinBorneSurDisque, WhatIsTakenBackGoesOutNoMore) {
  MagasinBorne magasin(Fichier);
  magasin.EcritReglage("FTP", "HWNDVK", "1");
  magasin.EcritReglage("FTP", "vide", QString());
  magasin.Vide();
  EXPECT_EQ(MagasinFichier(Fichier).LitReglage("FTP", "vide", "none"), "");
  ASSERT_TRUE(QFile::rename(Fichier, Fichier + ".autre"));
  ASSERT_TRUE(QDir().mkdir(Fichier));
  magasin.EcritReglage("FTP", "HWNDVK", "2");
  magasin.EcritReglage("general", "langue", "1");
  EXPECT_NE(Refuse(magasin), "saved");
  magasin.Reprend("FTP", "HWNDVK");
  EXPECT_EQ(magasin.LitReglage("FTP", "HWNDVK", ""), "1");
  magasin.Reprend("FTP", "never written");
  ASSERT_TRUE(QDir().rmdir(Fichier));
  ASSERT_TRUE(QFile::rename(Fichier + ".autre", Fichier));
  magasin.Vide();
  EXPECT_EQ(MagasinFichier(Fichier).LitReglage("FTP", "HWNDVK", ""), "1");
  EXPECT_EQ(Lu("langue"), "1");
}

// Another process holds the lock: the save stands in the queue when its caller has gone on.
TEST_F(MagasinBorneSurDisque, ASaveThatComesLateIsWholeAndTheNewestComesLast) {
  MagasinBorne magasin(Fichier, {.Ecriture = MagasinBorne::Duree(200)});
  {
    const VerrouDossier verrou(Dossier.path());
    magasin.EcritReglage("general", "langue", "1");
    magasin.EcritReglage("general", "skin", "1");
    EXPECT_NE(Refuse(magasin), "saved");
    magasin.EcritReglage("general", "langue", "2");
    EXPECT_NE(Refuse(magasin), "saved");
    EXPECT_EQ(magasin.LitReglage("general", "langue", ""), "2");
    EXPECT_EQ(Lu("langue"), "none");
  }
  ASSERT_TRUE(Attend([&] { return Lu("langue") == "1"; })) << "it ends by itself";
  EXPECT_EQ(Lu("skin"), "1");
  ASSERT_TRUE(Attend([&] { return Refuse(magasin) == "saved"; }));
  EXPECT_EQ(Lu("langue"), "2");
  EXPECT_EQ(Lu("skin"), "1");
}

TEST_F(MagasinBorneSurDisque, FilesOfOthersKeepTheirModeMeanwhile) {
  const mode_t avant = ::umask(022);
  MagasinBorne magasin(Fichier, {.Ecriture = MagasinBorne::Duree(200)});
  const VerrouDossier verrou(Dossier.path());
  magasin.EcritReglage("general", "langue", "1");
  ASSERT_NE(Refuse(magasin), "saved");
  EXPECT_EQ(::umask(avant), 022U) << "the photos of the alarm are not for their owner alone";
}

class MagasinMuet : public SurDisqueVolatil {
 protected:
  QString Fichier() const { return Chemin("/vaktor.ini"); }
  QElapsedTimer Temps;
};

TEST_F(MagasinMuet, ASaveIsWaitedForOnceAndNotForLong) {
  MagasinBorne magasin(Fichier());
  magasin.EcritReglage("general", "langue", "1");
  magasin.Vide();
  ASSERT_TRUE(Disque->SeTait());
  magasin.EcritReglage("general", "langue", "2");
  Temps.start();
  EXPECT_TRUE(Refuse(magasin).startsWith(Fichier() + ": "));
  for (int i = 0; i < 1000; ++i) ASSERT_NE(Refuse(magasin), "saved");
  EXPECT_EQ(magasin.LitReglage("general", "langue", ""), "2");
  EXPECT_LT(Temps.elapsed(), kDeuxSecondes);
  magasin.EcritReglage("general", "langue", "3");
  ASSERT_TRUE(Disque->Repond());
  ASSERT_TRUE(Attend([&] { return Refuse(magasin) == "saved"; }));
  EXPECT_EQ(MagasinFichier(Fichier()).LitReglage("general", "langue", ""), "3");
}

TEST_F(MagasinMuet, AStartOnItEndsWithTheReason) {
  ASSERT_TRUE(Disque->SeTait());
  Temps.start();
  try {
    const MagasinBorne magasin(Fichier(), {.Depart = MagasinBorne::Duree(300)});
    FAIL() << "opened";
  } catch (const Echec& echec) {
    EXPECT_TRUE(echec.Description().startsWith(Fichier() + ": "));
  }
  EXPECT_LT(Temps.elapsed(), 15'000);
  ASSERT_TRUE(Disque->Repond());
}

TEST_F(MagasinMuet, TheEndWaitsForNobody) {
  auto magasin =
      std::make_unique<MagasinBorne>(Fichier(), MagasinBorne::Patiences{.Ecriture = MagasinBorne::Duree(50)});
  ASSERT_TRUE(Disque->SeTait());
  magasin->EcritReglage("general", "langue", "2");
  ASSERT_NE(Refuse(*magasin), "saved");
  Temps.start();
  magasin.reset();
  EXPECT_LT(Temps.elapsed(), kDeuxSecondes);
  ASSERT_TRUE(Disque->Repond());
  ASSERT_TRUE(Attend([&] { return MagasinFichier(Fichier()).LitReglage("general", "langue", "") == "2"; }));
}

}  // namespace
}  // namespace vaktor
