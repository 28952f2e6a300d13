// SPDX-License-Identifier: GPL-3.0-or-later
// Photos read and deleted on threads: results come from the event loop, a dead disk holds up nothing and is told.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <optional>
#include <vector>

#include "platform/folders/photo_file_eraser.h"
#include "platform/folders/photo_file_reader.h"
#include "platform/folders/photo_names_reader.h"
#include "support/dead_folder.h"
#include "support/event_wait.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

class FichiersPhotos : public testing::Test {
 protected:
  static void Pose(const QString& chemin) {
    QFile fichier(chemin);
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  }
  void Lit(LecteurPhotos& lecteur, const QString& chemin) {
    lecteur.LitPhoto(chemin, [this](const PhotoLue& lue) { Lues.push_back(lue.Etat); });
  }
  bool AttendLues(std::size_t nombre) {
    return essai::AttendQue([&] { return Lues.size() >= nombre; });
  }
  TrancheEffacee Efface(EffaceurPhotos& effaceur, const QStringList& chemins, qsizetype debut = 0) {
    std::optional<TrancheEffacee> rendue;
    effaceur.Efface(chemins, debut, [&](const TrancheEffacee& tranche) { rendue = tranche; });
    EXPECT_FALSE(rendue.has_value()) << "later";
    EXPECT_TRUE(essai::AttendQue([&] { return rendue.has_value(); }));
    return rendue.value_or(TrancheEffacee{});
  }
  /// Opens it, which waits as long as the disk wants.
  static PhotoLue Ouvre(const QString& chemin) {
    QFile fichier(chemin);
    return {.Etat = fichier.open(QIODevice::ReadOnly) ? EtatPhoto::kLue : EtatPhoto::kAbsente};
  }

  QTemporaryDir Dossier;
  std::vector<EtatPhoto> Lues;
};

TEST_F(FichiersPhotos, PhotoComesFromTheEventLoopAndNeverAtOnce) {
  Pose(Dossier.filePath(QStringLiteral("a.jpg")));
  LecteurPhotosSysteme lecteur(Ouvre, 20s);
  Lit(lecteur, Dossier.filePath(QStringLiteral("a.jpg")));
  EXPECT_TRUE(Lues.empty());
  ASSERT_TRUE(AttendLues(1));
  EXPECT_EQ(Lues[0], EtatPhoto::kLue);
}

TEST_F(FichiersPhotos, WantOfMemoryOnTheThreadIsToldAsWhatItIs) {
  LecteurPhotosSysteme lecteur([](const QString&) -> PhotoLue { throw std::bad_alloc(); }, 20s);
  Lit(lecteur, Dossier.path());
  ASSERT_TRUE(AttendLues(1));
  EXPECT_EQ(Lues[0], EtatPhoto::kSansMoyens);
}

/// No memory for the stack of a thread, while it lives.
class SansFil {
 public:
  SansFil() {
    ::getrlimit(RLIMIT_AS, &Avant_);
    const rlimit rien{.rlim_cur = 1, .rlim_max = Avant_.rlim_max};
    ::setrlimit(RLIMIT_AS, &rien);
  }
  ~SansFil() { ::setrlimit(RLIMIT_AS, &Avant_); }
  SansFil(const SansFil&) = delete;
  SansFil& operator=(const SansFil&) = delete;

 private:
  rlimit Avant_{};
};

TEST_F(FichiersPhotos, WantOfAThreadIsToldAsWhatItIsLaterLikeAnyAnswer) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "the sanitizer takes its own memory by the same way";
#endif
  LecteurPhotosSysteme lecteur(Ouvre, 20s);
  EffaceurPhotosSysteme effaceur(20s);
  LecteurNomsSysteme noms(20s);
  std::optional<EtatEffacement> efface;
  std::optional<EtatNoms> nomme;
  {
    const SansFil manque;
    Lit(lecteur, Dossier.path());
    effaceur.Efface({Dossier.filePath(QStringLiteral("a.jpg"))}, 0, [&](const TrancheEffacee& t) { efface = t.Etat; });
    noms.LitNoms(Dossier.path(), QStringLiteral("*"), [&](const NomsPhotos& lus) { nomme = lus.Etat; });
  }
  EXPECT_TRUE(Lues.empty());
  ASSERT_TRUE(essai::AttendQue([&] { return !Lues.empty() && efface && nomme; }));
  EXPECT_EQ(Lues[0], EtatPhoto::kSansMoyens);
  EXPECT_EQ(*efface, EtatEffacement::kSansMoyens);
  EXPECT_EQ(*nomme, EtatNoms::kSansMoyens) << "and not a folder that cannot be read";
}

TEST_F(FichiersPhotos, PhotoOfADeadDiskIsToldAndComesWhenItWakesUnlessItIsForgotten) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  LecteurPhotosSysteme lecteur(Ouvre, 20ms);
  LecteurPhotosSysteme oublieux(Ouvre, 20ms);
  Lit(lecteur, mort.Chemin("/a.jpg"));
  ASSERT_TRUE(AttendLues(1));
  Lit(oublieux, mort.Chemin("/b.jpg"));
  ASSERT_TRUE(AttendLues(2));
  oublieux.Oublie();
  mort.Reveille();
  ASSERT_TRUE(AttendLues(3));
  EXPECT_EQ(Lues, (std::vector{EtatPhoto::kSansReponse, EtatPhoto::kSansReponse, EtatPhoto::kAbsente}));
}

TEST_F(FichiersPhotos, SliceDeletesFromItsBeginningPassesOverWhatHasNoPathAndCountsWhatResists) {
  QStringList chemins;
  for (const char* nom : {"a.jpg", "b.jpg", "c.jpg"}) {
    Pose(Dossier.filePath(QLatin1String(nom)));
    chemins += QString(Dossier.path()).replace(u'/', u'\\') + u'\\' + QLatin1String(nom);
  }
  ASSERT_TRUE(QDir(Dossier.path()).mkdir(QStringLiteral("d.jpg")));  // unlink refuses it
  chemins += Dossier.filePath(QStringLiteral("d.jpg"));
  chemins.insert(2, QString());
  EffaceurPhotosSysteme effaceur(20s);
  qsizetype essayees = 1;  // from the second one on
  while (essayees < chemins.size()) {
    const TrancheEffacee tranche = Efface(effaceur, chemins, essayees);
    ASSERT_EQ(tranche.Etat, EtatEffacement::kFait);
    ASSERT_GT(tranche.Essayees, 0);
    essayees += tranche.Essayees;
  }
  EXPECT_EQ(essayees, 5);
  EXPECT_EQ(QDir(Dossier.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join(u','),
            QStringLiteral("a.jpg,d.jpg"));
}

TEST_F(FichiersPhotos, LongDeletionEndsItsSliceByTheClock) {
  QStringList chemins;
  for (int i = 0; i < 20000; ++i) chemins += Dossier.filePath(QStringLiteral("%1.jpg").arg(i));
  for (const QString& chemin : chemins) Pose(chemin);
  EffaceurPhotosSysteme effaceur(20s);
  const TrancheEffacee tranche = Efface(effaceur, chemins);
  EXPECT_GT(tranche.Essayees, 0);
  EXPECT_LT(tranche.Essayees, 20000) << "all of them take far longer than a slice";
}

TEST_F(FichiersPhotos, DeadDiskIsToldWithTheNumberBeforeItAndNothingBehindItGoes) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  const QString avant = mort.Vivant("/a.jpg");
  const QString apres = mort.Vivant("/z.jpg");
  Pose(avant);
  Pose(apres);
  {
    EffaceurPhotosSysteme effaceur(200ms);
    QList<TrancheEffacee> rendues;
    effaceur.Efface({avant, mort.Chemin("/b.jpg"), apres}, 0, [&](const TrancheEffacee& t) { rendues.append(t); });
    ASSERT_TRUE(essai::AttendQue([&] { return !rendues.isEmpty(); }));
    EXPECT_EQ(rendues[0].Etat, EtatEffacement::kSansReponse);
    EXPECT_EQ(rendues[0].Essayees, 1);
    mort.Reveille();
    for (int i = 0; i < 30; ++i) {
      QThread::msleep(10);
      QCoreApplication::processEvents();
    }
    EXPECT_EQ(rendues.size(), 1) << "it is told once";
  }  // waits for the thread, which has woken
  EXPECT_FALSE(QFile::exists(avant));
  EXPECT_TRUE(QFile::exists(apres)) << "nobody wants that any more";
}

}  // namespace
}  // namespace vaktor
