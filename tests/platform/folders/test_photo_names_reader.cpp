// SPDX-License-Identifier: GPL-3.0-or-later
// Names read on a thread: they come from the event loop, a forgotten reading does not, a dead disk holds up nothing.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/folders/photo_names_reader.h"
#include "support/dead_folder.h"
#include "support/event_wait.h"
#include "support/failing_folder.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

constexpr int kMega = 1024 * 1024;

class NomsSurDisque : public testing::Test {
 protected:
  void Pose(int nombre) const {
    for (int i = 0; i < nombre; ++i) {
      QFile fichier(Dossier.filePath(QStringLiteral("%1.jpg").arg(nombre - i, 6, 10, QLatin1Char('0'))));
      ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    }
  }
  void Lit(LecteurNoms& lecteur, const QString& dossier) {
    lecteur.LitNoms(dossier, QStringLiteral("*.jpg*"), [this](const NomsPhotos& lus) { Recus.push_back(lus); });
  }
  bool AttendRecus(std::size_t nombre) {
    return essai::AttendQue([&] { return Recus.size() >= nombre; });
  }

  QTemporaryDir Dossier;
  std::vector<NomsPhotos> Recus;
};

TEST_F(NomsSurDisque, ComeSortedFromTheEventLoopAndNeverAtOnce) {
  Pose(200);
  LecteurNomsSysteme lecteur;
  Lit(lecteur, QString(Dossier.path()).replace(u'/', u'\\'));
  EXPECT_TRUE(Recus.empty());
  ASSERT_TRUE(AttendRecus(1));
  EXPECT_EQ(Recus[0].Etat, EtatNoms::kLus);
  ASSERT_EQ(Recus[0].Noms.size(), 200);
  EXPECT_EQ(Recus[0].Noms.first(), QStringLiteral("000001.jpg"));
  EXPECT_TRUE(std::is_sorted(Recus[0].Noms.begin(), Recus[0].Noms.end()));
}

TEST_F(NomsSurDisque, FolderThatIsGoneIsTold) {
  LecteurNomsSysteme lecteur;
  Lit(lecteur, Dossier.filePath(QStringLiteral("gone")));
  ASSERT_TRUE(AttendRecus(1));
  EXPECT_EQ(Recus[0].Etat, EtatNoms::kIllisible);
}

// Names of millions of photos: the program goes on, and the folder is not to blame.
TEST_F(NomsSurDisque, WantOfMemoryOnTheThreadIsToldAsWhatItIs) {
  int essais = 0;
  LecteurNomsSysteme lecteur(20s, [&](const QByteArray&, const QString&, const std::atomic<bool>&) -> DossierListe {
    if (essais++ == 0) throw std::bad_alloc();
    return {.Noms = {QStringLiteral("a.jpg")}};
  });
  Lit(lecteur, Dossier.path());
  ASSERT_TRUE(AttendRecus(1));
  EXPECT_EQ(Recus[0].Etat, EtatNoms::kSansMoyens);
  EXPECT_TRUE(Recus[0].Noms.isEmpty());
  Lit(lecteur, Dossier.path());
  ASSERT_TRUE(AttendRecus(2));
  EXPECT_EQ(Recus[1].Etat, EtatNoms::kLus) << "the next reading knows nothing of it";
}

TEST_F(NomsSurDisque, WantOfDescriptorsSaysNothingOfTheFolderEither) {
  LecteurNomsSysteme lecteur(
      20s, [](const QByteArray&, const QString&, const std::atomic<bool>&) { return DossierListe{.Erreur = EMFILE}; });
  Lit(lecteur, Dossier.path());
  ASSERT_TRUE(AttendRecus(1));
  EXPECT_EQ(Recus[0].Etat, EtatNoms::kSansMoyens);
}

TEST_F(NomsSurDisque, DiskThatFailsInTheMiddleIsToldWithTheNamesBefore) {
  const PetitDisque petit(kMega);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  const QString dossier = petit.Chemin() + QStringLiteral("/carte");
  ASSERT_TRUE(QDir().mkdir(dossier));
  const DossierQuiEchoue carte(dossier, {"b.jpg", "a.jpg"});
  if (!carte.EstMonte()) GTEST_SKIP() << carte.Raison();
  LecteurNomsSysteme lecteur(20s);
  Lit(lecteur, dossier);
  ASSERT_TRUE(AttendRecus(1));
  EXPECT_EQ(Recus[0].Etat, EtatNoms::kErreurDisque);
  EXPECT_EQ(Recus[0].Noms.join(u','), QStringLiteral("a.jpg,b.jpg"));
}

TEST_F(NomsSurDisque, NextReadingForgetsTheOneBefore) {
  Pose(50);
  LecteurNomsSysteme lecteur;
  for (int i = 0; i < 20; ++i) Lit(lecteur, Dossier.path());
  Lit(lecteur, Dossier.filePath(QStringLiteral("gone")));
  ASSERT_TRUE(AttendRecus(1));
  QCoreApplication::processEvents();
  ASSERT_EQ(Recus.size(), 1U);
  EXPECT_EQ(Recus[0].Etat, EtatNoms::kIllisible);
}

TEST_F(NomsSurDisque, ForgottenReadingAndOneWhoseReaderHasGoneComeToNobody) {
  Pose(50);
  {
    LecteurNomsSysteme lecteur;
    Lit(lecteur, Dossier.path());
    lecteur.Oublie();
    LecteurNomsSysteme autre;
    Lit(autre, Dossier.path());
  }
  LecteurNomsSysteme dernier;
  Lit(dernier, Dossier.filePath(QStringLiteral("gone")));
  ASSERT_TRUE(AttendRecus(1));
  EXPECT_EQ(Recus.size(), 1U);
}

TEST_F(NomsSurDisque, DeadDiskIsToldAndItsNamesAreTakenWhenItWakes) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  LecteurNomsSysteme lecteur(20ms);
  Lit(lecteur, mort.Chemin("/photos"));
  ASSERT_TRUE(AttendRecus(1));
  EXPECT_EQ(Recus[0].Etat, EtatNoms::kSansReponse);
  mort.Reveille();
  ASSERT_TRUE(AttendRecus(2));
  EXPECT_EQ(Recus[1].Etat, EtatNoms::kIllisible) << "it woke with an error";
}

TEST_F(NomsSurDisque, DeadDiskGathersNoThreadsWithoutLimitAndHoldsUpNoEnd) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  {
    LecteurNomsSysteme lecteur(1ms);
    for (std::size_t i = 1; i <= 40; ++i) {
      Lit(lecteur, mort.Chemin("/photos"));
      ASSERT_TRUE(AttendRecus(i)) << "told, with or without a thread";
    }
  }
  mort.Reveille();
}

}  // namespace
}  // namespace vaktor
