// SPDX-License-Identifier: GPL-3.0-or-later
// The names of a folder, sorted: which ones, in which order, and when there are none to be had.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <optional>

#include "platform/base/folder_listing.h"
#include "support/failing_folder.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

class Listage : public testing::Test {
 protected:
  QByteArray Chemin(const char* suite = "") const { return QFile::encodeName(Dossier.path()) + suite; }
  void Pose(const char* nom) const {
    QFile fichier(Dossier.filePath(QString::fromUtf8(nom)));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly)) << nom;
  }
  /// Nothing for a folder that could not be read to its end.
  std::optional<QStringList> Lit(const QByteArray& dossier, const char* motif = "*") const {
    const DossierListe lu = ListeDossier(dossier, QString::fromUtf8(motif), Abandon);
    return lu.Erreur == 0 ? std::optional(lu.Noms) : std::nullopt;
  }

  QTemporaryDir Dossier;
  std::atomic<bool> Abandon = false;
};

TEST_F(Listage, IsSortedByNameWithoutRegardToCase) {
  for (const char* nom : {"b.jpg", "C.JPG", "a.jpg.bak", "a.JPG", "notes.txt", ".cache.jpg", "A.jpg"}) Pose(nom);
  ASSERT_TRUE(QDir(Dossier.path()).mkdir(QStringLiteral("dossier.jpg")));
  const std::optional<QStringList> liste = Lit(Chemin(), "*.jpg*");
  ASSERT_TRUE(liste.has_value());
  EXPECT_EQ(liste->join(u','), QStringLiteral("A.jpg,a.JPG,a.jpg.bak,b.jpg,C.JPG"));
}

TEST_F(Listage, EveryCapitalStandsWithItsSmallLetter) {
  for (const char* nom : {"y.jpg", "AB.jpg", "Z.jpg", "aa.jpg", "\u00c9t\u00e9.jpg", "\u00e9ta.jpg"}) Pose(nom);
  EXPECT_EQ(Lit(Chemin(), "*.jpg")->join(u','),
            QString::fromUtf8("aa.jpg,AB.jpg,y.jpg,Z.jpg,\u00e9ta.jpg,\u00c9t\u00e9.jpg"));
  EXPECT_EQ(Lit(Chemin(), "z*.jpg")->join(u','), QStringLiteral("Z.jpg"));
}

TEST_F(Listage, LinksCountAsWhatTheyLeadTo) {
  Pose("a.jpg");
  const QString vers = Dossier.filePath(QStringLiteral("a.jpg"));
  ASSERT_TRUE(QFile::link(vers, Dossier.filePath(QStringLiteral("b.jpg"))));
  ASSERT_TRUE(QFile::link(Dossier.path(), Dossier.filePath(QStringLiteral("c.jpg"))));
  ASSERT_TRUE(QFile::link(vers + QStringLiteral("x"), Dossier.filePath(QStringLiteral("d.jpg"))));
  EXPECT_EQ(Lit(Chemin())->join(u','), QStringLiteral("a.jpg,b.jpg"));
}

TEST_F(Listage, EmptyFolderIsEmptyAndOneThatIsGoneIsNone) {
  EXPECT_EQ(Lit(Chemin()), QStringList());
  EXPECT_EQ(Lit(Chemin("/gone")), std::nullopt);
  Pose("a");
  EXPECT_EQ(Lit(Chemin("/a")), std::nullopt) << "a file";
  EXPECT_EQ(Lit({}), std::nullopt) << "not the working folder";
}

TEST_F(Listage, FolderThatMayNotBeReadIsNone) {
  ASSERT_EQ(::mkdir(Chemin("/ferme").constData(), 0333), 0);
  // Permissions hold for others only: the administrator steps down for the moment of the question.
  ASSERT_EQ(::chmod(Chemin().constData(), 0755), 0);
  const bool administrateur = ::geteuid() == 0;
  ASSERT_TRUE(!administrateur || ::seteuid(65534) == 0);
  const std::optional<QStringList> liste = Lit(Chemin("/ferme"));
  ASSERT_TRUE(!administrateur || ::seteuid(0) == 0);
  EXPECT_EQ(liste, std::nullopt);
}

TEST_F(Listage, ErrorInTheMiddleIsNoEndAndKeepsTheNamesBeforeIt) {
  const PetitDisque petit(1024 * 1024);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  const QString dossier = petit.Chemin() + QStringLiteral("/carte");
  ASSERT_TRUE(QDir().mkdir(dossier));
  const DossierQuiEchoue carte(dossier, {"b.jpg", "a.jpg", "notes.txt"});
  if (!carte.EstMonte()) GTEST_SKIP() << carte.Raison();
  const DossierListe lu = ListeDossier(QFile::encodeName(dossier), QStringLiteral("*.jpg*"), Abandon);
  EXPECT_EQ(lu.Noms.join(u','), QStringLiteral("a.jpg,b.jpg"));
  EXPECT_EQ(lu.Erreur, EIO);
  EXPECT_TRUE(lu.Commence);
  EXPECT_FALSE(ListeDossier(Chemin("/gone"), QStringLiteral("*"), Abandon).Commence);
}

TEST_F(Listage, StopsWhenNobodyWantsItAnyMore) {
  Pose("a");
  Abandon = true;
  EXPECT_EQ(Lit(Chemin()), std::nullopt);
}

}  // namespace
}  // namespace vaktor
