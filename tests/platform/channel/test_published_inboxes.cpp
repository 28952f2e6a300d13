// SPDX-License-Identifier: GPL-3.0-or-later
// The inboxes in the settings file, and how much lies in a folder: read on threads, from real disks.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <future>

#include "base/failure.h"
#include "companions/contract/command_words.h"
#include "platform/channel/folder_measurer.h"
#include "platform/channel/published_inboxes_reader.h"
#include "platform/store/file_store.h"
#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

using namespace std::chrono_literals;

struct Boites : testing::Test {
  QTemporaryDir Temporaire;
  const QString Fichier = Temporaire.filePath("vaktor.ini");
  LecteurCasiersFichier Lecteur{Fichier};

  static void Ecrit(MagasinFichier& magasin, qint32 premiere) {
    for (const Compagnon compagnon : kCompagnons)
      magasin.EcritReglage(DonneIdentite(compagnon).Section, kCleHwndvk, QString::number(premiere++));
    magasin.Vide();
  }
  std::optional<PoigneesPubliees> Lit() {
    std::optional<PoigneesPubliees> lues;
    bool rendu = false;
    Lecteur.LitCasiers([&](const std::optional<PoigneesPubliees>& l) { rendu = true, lues = l; });
    EXPECT_FALSE(rendu) << "never from inside the call";
    EXPECT_TRUE(AttendQue([&] { return rendu; }));
    return lues;
  }
};

TEST_F(Boites, AreReadAsTheStoreHasThemAndAgainWhenItChanges) {
  MagasinFichier magasin(Fichier);
  Ecrit(magasin, 71);
  EXPECT_EQ(Lit(), (PoigneesPubliees{71, 72, 73}));
  EXPECT_EQ(Lit(), (PoigneesPubliees{71, 72, 73}));
  Ecrit(magasin, 81);
  EXPECT_EQ(Lit(), (PoigneesPubliees{81, 82, 83})) << "a file of the same size";
}

TEST_F(Boites, OfAFileThatIsNotThereThereAreNone) { EXPECT_EQ(Lit(), PoigneesPubliees{}); }

TEST_F(Boites, OfAFileThatCannotBeReadNothingIsKnown) {
  ASSERT_TRUE(QDir().mkdir(Fichier));
  EXPECT_EQ(Lit(), std::nullopt);
}

TEST_F(Boites, WhatIsNoNumberIsNone) {
  QFile fichier(Fichier);
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write("[FTP]\nHWNDVK=\"abc\"\n[MAIL]\nHWNDVK=\"99999999999\"\n[SON]\nHWNDVK=\"5\"\n");
  fichier.close();
  EXPECT_EQ(Lit(), (PoigneesPubliees{0, 0, 5}));
}

// Another copy has published its own meanwhile.
TEST_F(Boites, ASaveOfOtherKeysDoesNotTakeThemBack) {
  MagasinFichier notre(Fichier);
  Ecrit(notre, 71);
  MagasinFichier autre(Fichier);
  Ecrit(autre, 81);
  notre.EcritReglage(QStringLiteral("general"), QStringLiteral("retard"), QStringLiteral("9"));
  notre.Vide();
  EXPECT_EQ(Lit(), (PoigneesPubliees{81, 82, 83}));
  EXPECT_EQ(MagasinFichier(Fichier).LitReglage("general", "retard", {}), "9");
}

/// No file of this process can grow: the disk is full.
class DisquePlein {
 public:
  DisquePlein() {
    ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &Avant_);
    const rlimit plein{.rlim_cur = 0, .rlim_max = Avant_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &plein);
  }
  ~DisquePlein() { ::setrlimit(RLIMIT_FSIZE, &Avant_); }
  DisquePlein(const DisquePlein&) = delete;
  DisquePlein& operator=(const DisquePlein&) = delete;

 private:
  rlimit Avant_{};
};

// Ours could not be published, and another copy has published its own before the next save.
TEST_F(Boites, ThoseThatCouldNotBePublishedGoOutWithNoLaterSave) {
  for (const bool dejaLa : {true, false}) {
    QFile::remove(Fichier);
    MagasinFichier notre(Fichier);
    if (dejaLa) Ecrit(notre, 71);
    {
      const DisquePlein plein;
      for (int fois = 0; fois < 2; ++fois) {
        EXPECT_THROW(Ecrit(notre, 81), Echec);
        for (const char* section : {"FTP", "MAIL", "SON"}) notre.Reprend(section, kCleHwndvk);
      }
    }
    EXPECT_EQ(notre.LitReglage("FTP", kCleHwndvk, "none"), dejaLa ? "71" : "none");
    // Another process, which shares no memory of the store with this one.
    QFile fichier(Fichier);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly | QIODevice::Truncate));
    fichier.write("[FTP]\nHWNDVK=\"911\"\n[MAIL]\nHWNDVK=\"912\"\n[SON]\nHWNDVK=\"913\"\n");
    fichier.close();
    notre.EcritReglage(QStringLiteral("general"), QStringLiteral("retard"), QStringLiteral("9"));
    notre.Vide();
    EXPECT_EQ(Lit(), (PoigneesPubliees{911, 912, 913})) << dejaLa;
    EXPECT_EQ(notre.LitReglage("general", "retard", {}), "9");
    Ecrit(notre, 81);
    EXPECT_EQ(Lit(), (PoigneesPubliees{81, 82, 83})) << "once there is room";
  }
}

TEST_F(Boites, ThoseThatCouldNotBePublishedAreNotWrittenAsTheStoreGoesEither) {
  {
    MagasinFichier notre(Fichier);
    Ecrit(notre, 71);
    {
      const DisquePlein plein;
      EXPECT_THROW(Ecrit(notre, 81), Echec);
    }
    for (const char* section : {"FTP", "MAIL", "SON"}) notre.Reprend(section, kCleHwndvk);
    QFile fichier(Fichier);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly | QIODevice::Truncate));
    fichier.write("[FTP]\nHWNDVK=\"911\"\n[MAIL]\nHWNDVK=\"912\"\n[SON]\nHWNDVK=\"913\"\n");
  }
  EXPECT_EQ(Lit(), (PoigneesPubliees{911, 912, 913}));
}

struct Question : testing::Test {
  std::chrono::steady_clock::time_point Instant;
  QuestionDisque<int> Disque{[this] { return Instant; }};
  QList<int> Reponses;
  void Pose(std::function<int()> travail) {
    Disque.Pose(std::move(travail), -1, [this](int reponse) { Reponses << reponse; });
  }
};

TEST_F(Question, ADiskThatDoesNotAnswerHoldsNobodyUpAndTheNextQuestionIsAnswered) {
  auto disque = std::make_shared<std::promise<void>>();
  Pose([attente = disque->get_future().share()] {
    attente.wait();
    return 1;
  });
  Pose([] { return 2; });
  ASSERT_TRUE(AttendQue([this] { return !Reponses.isEmpty(); }));
  disque->set_value();
  Pose([] { return 3; });
  ASSERT_TRUE(AttendQue([this] { return Reponses.size() == 2; }));
  EXPECT_EQ(Reponses, QList<int>({2, 3})) << "what was asked before is forgotten";
}

TEST_F(Question, AnAnswerIsWaitedForAMinuteAndNoLonger) {
  EXPECT_FALSE(Disque.Attend());
  auto disque = std::make_shared<std::promise<void>>();
  Pose([attente = disque->get_future().share()] {
    attente.wait();
    return 1;
  });
  EXPECT_TRUE(Disque.Attend());
  Instant += QuestionDisque<int>::kPatience - 1ms;
  EXPECT_TRUE(Disque.Attend());
  Instant += 1ms;
  EXPECT_FALSE(Disque.Attend());
  Pose([] { return 2; });
  EXPECT_TRUE(Disque.Attend());
  disque->set_value();
  ASSERT_TRUE(AttendQue([this] { return !Reponses.isEmpty(); }));
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  EXPECT_EQ(Reponses, QList<int>{2}) << "one answer, and of the question that was put last";
  EXPECT_FALSE(Disque.Attend());
}

TEST_F(Question, WorkThatFailsAnswersSo) {
  Pose([]() -> int { throw Echec(kAccesFichier, QStringLiteral("x")); });
  ASSERT_TRUE(AttendQue([this] { return !Reponses.isEmpty(); }));
  EXPECT_EQ(Reponses, QList<int>{-1});
}

TEST_F(Question, AfterItsEndNobodyIsTold) {
  auto question = std::make_unique<QuestionDisque<int>>();
  std::promise<void> parti;
  question->Pose(
      [&parti] {
        parti.set_value();
        return 1;
      },
      -1, [this](int reponse) { Reponses << reponse; });
  parti.get_future().wait();
  question.reset();
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  EXPECT_TRUE(Reponses.isEmpty());
}

TEST(Mesure, CountsTheFilesOfAFolderAndTheirBytes) {
  const QTemporaryDir temporaire;
  for (int i = 1; i <= 3; ++i) {
    QFile fichier(temporaire.filePath(QString::number(i) + ".jpg"));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(QByteArray(qsizetype{100} * i, 'x'));
  }
  QDir(temporaire.path()).mkdir("dossier");
  MesureurDossierSysteme mesureur;
  QList<std::optional<TailleDossier>> rendues;
  const auto rend = [&](const std::optional<TailleDossier>& taille) { rendues << taille; };
  mesureur.Mesure(temporaire.path(), rend);
  ASSERT_TRUE(AttendQue([&] { return rendues.size() == 1; }));
  ASSERT_TRUE(rendues[0]);
  EXPECT_EQ(rendues[0]->Nombre, 3);
  EXPECT_EQ(rendues[0]->Octets, 600);
  mesureur.Mesure(temporaire.filePath("absent"), rend);
  ASSERT_TRUE(AttendQue([&] { return rendues.size() == 2; }));
  EXPECT_FALSE(rendues[1]);
}

}  // namespace
}  // namespace vaktor::essai
