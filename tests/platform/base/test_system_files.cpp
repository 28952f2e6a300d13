// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>
#include <csignal>
#include <thread>

#include "platform/base/system_files.h"
#include "support/inherited_files.h"
#include "support/small_disk.h"

namespace vaktor {
namespace {

constexpr int kMega = 1024 * 1024;

class SystemFiles : public testing::Test {
 protected:
  QString Chemin(const QString& suite) const { return Dossier.path() + suite; }
  void Pose(const QString& suite, const QByteArray& contenu = "x") const {
    ASSERT_EQ(FichiersSysteme().EcritFichier(Chemin(suite), contenu), 0);
  }
  static QByteArray Lit(const QString& chemin) {
    QFile fichier(chemin);
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray("unreadable");
  }

  QTemporaryDir Dossier;
  FichiersSysteme Disque;
};

TEST_F(SystemFiles, BothSeparatorsOfAStoredPathAreTheSystems) {
  EXPECT_EQ(CheminNatif(QStringLiteral("/a\\b/c\\d.jpg")), QStringLiteral("/a/b/c/d.jpg"));
  ASSERT_TRUE(Disque.CreeDossier(Chemin(QStringLiteral("\\intrus"))));
  ASSERT_EQ(Disque.EcritFichier(Chemin(QStringLiteral("\\intrus/a  b.jpg")), "photo"), 0);
  EXPECT_EQ(Lit(Chemin(QStringLiteral("/intrus/a  b.jpg"))), "photo");
  EXPECT_TRUE(Disque.Existe(Chemin(QStringLiteral("/intrus\\a  b.jpg"))));
  EXPECT_TRUE(Disque.EspaceLibre(Chemin(QStringLiteral("\\"))).has_value());
  EXPECT_TRUE(Disque.Supprime(Chemin(QStringLiteral("\\intrus\\a  b.jpg"))));
  EXPECT_FALSE(QFile::exists(Chemin(QStringLiteral("/intrus/a  b.jpg"))));
}

// A pipe in the place of the file holds the writing up for as long as the test likes.
TEST_F(SystemFiles, AProgramThatIsStartedWhileAFileIsWrittenDoesNotInheritIt) {
  std::signal(SIGPIPE, SIG_IGN);
  const QByteArray nom = QFile::encodeName(Chemin(QStringLiteral("/tuyau.jpg")));
  ASSERT_EQ(::mkfifo(nom.constData(), 0600), 0);
  const int lecture = ::open(nom.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(lecture, 0);
  std::thread ecrit([&nom] { RemplaceFichier(nom, QByteArray(qsizetype{4} * kMega, 'x')); });
  char octet = 0;
  while (::read(lecture, &octet, 1) != 1) ::usleep(1000);
  const QByteArray ouverts = essai::LitHerites();
  ::close(lecture);  // now the writing fails, and ends
  ecrit.join();
  EXPECT_TRUE(ouverts.contains("->")) << ouverts.constData();
  EXPECT_FALSE(ouverts.contains("tuyau.jpg")) << ouverts.constData();
}

TEST_F(SystemFiles, APhotoIsForWhomTheUserLets) {
  const mode_t avant = ::umask(0027);
  Pose(QStringLiteral("/a.jpg"));
  ::umask(avant);
  struct stat etat {};
  ASSERT_EQ(::stat(QFile::encodeName(Chemin(QStringLiteral("/a.jpg"))).constData(), &etat), 0);
  EXPECT_EQ(etat.st_mode & 07777, mode_t{0640});
}

TEST_F(SystemFiles, NamesBeyondAsciiReachTheSystem) {
  const QString nom = QString::fromUtf8("/Entrée d'été.jpg");
  ASSERT_EQ(Disque.EcritFichier(Chemin(nom), "x"), 0);
  EXPECT_EQ(QDir(Dossier.path()).entryList(QDir::Files), QStringList{nom.mid(1)});
}

TEST_F(SystemFiles, FilesAndFoldersExistAndTheEmptyNameDoesNot) {
  Pose(QStringLiteral("/a"));
  EXPECT_TRUE(Disque.Existe(Chemin(QStringLiteral("/a"))));
  EXPECT_TRUE(Disque.Existe(Dossier.path()));
  EXPECT_FALSE(Disque.Existe(Chemin(QStringLiteral("/b"))));
  EXPECT_FALSE(Disque.Existe(QString()));
}

TEST_F(SystemFiles, AFileIsNoFolderAndALinkToAFolderIsOne) {
  Pose(QStringLiteral("/a"));
  ASSERT_TRUE(QFile::link(Dossier.path(), Chemin(QStringLiteral("/lien"))));
  ASSERT_TRUE(QFile::link(Chemin(QStringLiteral("/a")), Chemin(QStringLiteral("/lien_a"))));
  EXPECT_EQ(Disque.RegardeDossier(Dossier.path()), Presence::kLa);
  EXPECT_EQ(Disque.RegardeDossier(Chemin(QStringLiteral("\\lien"))), Presence::kLa);
  for (const char* nom : {"/a", "/lien_a", "/b"}) {
    EXPECT_EQ(Disque.RegardeDossier(Chemin(QLatin1String(nom))), Presence::kAbsent) << nom;
  }
  EXPECT_EQ(Disque.RegardeDossier(QString()), Presence::kAbsent);
}

TEST_F(SystemFiles, OneFolderIsMadeAtATimeAndOnlyOnce) {
  EXPECT_FALSE(Disque.CreeDossier(Chemin(QStringLiteral("/x/y"))));
  EXPECT_TRUE(Disque.CreeDossier(Chemin(QStringLiteral("/x"))));
  EXPECT_FALSE(Disque.CreeDossier(Chemin(QStringLiteral("/x"))));
  EXPECT_TRUE(Disque.CreeDossier(Chemin(QStringLiteral("/x/y"))));
  EXPECT_TRUE(QDir(Chemin(QStringLiteral("/x/y"))).exists());
}

TEST_F(SystemFiles, RemovalIsTrueWhenTheFileIsThereNoMore) {
  Pose(QStringLiteral("/a"));
  EXPECT_TRUE(Disque.Supprime(Chemin(QStringLiteral("/a"))));
  EXPECT_TRUE(Disque.Supprime(Chemin(QStringLiteral("/a")))) << "gone already";
  EXPECT_FALSE(Disque.Supprime(Dossier.path())) << "a folder is no file";
  EXPECT_TRUE(QDir(Dossier.path()).exists());
}

TEST_F(SystemFiles, AWriteReplacesTheWholeFile) {
  const QString chemin = Chemin(QStringLiteral("/a"));
  EXPECT_EQ(Disque.EcritFichier(chemin, QByteArray(100'000, 'l')), 0);
  EXPECT_EQ(Disque.EcritFichier(chemin, "court"), 0);
  EXPECT_EQ(Lit(chemin), "court");
  EXPECT_EQ(Disque.EcritFichier(chemin, QByteArrayView()), 0);
  EXPECT_EQ(Lit(chemin), "");
}

TEST_F(SystemFiles, ANewFileTakesTheNextFreeNameBesideOneThatIsThere) {
  const QString nom = Chemin(QStringLiteral("\\Photo 00012.jpg"));
  for (const char* contenu : {"1", "2", "3"}) ASSERT_EQ(Disque.EcritNouveauFichier(nom, contenu), 0);
  EXPECT_EQ(QDir(Dossier.path()).entryList(QDir::Files, QDir::Name),
            QStringList({QStringLiteral("Photo 00012.jpg"), QStringLiteral("Photo 00012a.jpg"),
                         QStringLiteral("Photo 00012b.jpg")}));
  EXPECT_EQ(Lit(Chemin(QStringLiteral("/Photo 00012.jpg"))), "1");
  EXPECT_EQ(Lit(Chemin(QStringLiteral("/Photo 00012b.jpg"))), "3");
  QString devenu;
  ASSERT_EQ(Disque.EcritNouveauFichier(nom, "4", &devenu), 0);
  EXPECT_EQ(devenu, Chemin(QStringLiteral("/Photo 00012c.jpg")));
}

// A name may be taken without a file behind it.
TEST_F(SystemFiles, ANewFileFollowsNoLinkAndTakesNoFolderForAFile) {
  ASSERT_TRUE(QFile::link(Chemin(QStringLiteral("/gone")), Chemin(QStringLiteral("/a.jpg"))));
  ASSERT_TRUE(QDir().mkdir(Chemin(QStringLiteral("/aa.jpg"))));
  ASSERT_EQ(Disque.EcritNouveauFichier(Chemin(QStringLiteral("/a.jpg")), "x"), 0);
  EXPECT_EQ(Lit(Chemin(QStringLiteral("/ab.jpg"))), "x");
  EXPECT_FALSE(QFile::exists(Chemin(QStringLiteral("/gone"))));
}

TEST_F(SystemFiles, AMissingFolderIsTold) {
  EXPECT_EQ(Disque.EcritFichier(Chemin(QStringLiteral("/gone/a")), "x"), ENOENT);
  EXPECT_EQ(Disque.EcritNouveauFichier(Chemin(QStringLiteral("/gone/a")), "x"), ENOENT);
  Pose(QStringLiteral("/fichier"));
  EXPECT_EQ(Disque.EcritFichier(Chemin(QStringLiteral("/fichier/a")), "x"), ENOTDIR);
}

TEST_F(SystemFiles, AFolderInTheFilesPlaceIsTold) { EXPECT_EQ(Disque.EcritFichier(Dossier.path(), "x"), EISDIR); }

TEST_F(SystemFiles, AFullDiskIsToldAndThePartlyWrittenFileStays) {
  const PetitDisque petit(kMega);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  const QString gros = petit.Chemin() + QStringLiteral("/gros");
  EXPECT_EQ(Disque.EcritFichier(gros, QByteArray(kMega + 1, 'g')), ENOSPC);
  EXPECT_EQ(QFileInfo(gros).size(), kMega) << "a write that was cut short is gone on with, until the system says why";
  EXPECT_EQ(Disque.EcritFichier(petit.Chemin() + QStringLiteral("/a"), "x"), ENOSPC);
  EXPECT_TRUE(Disque.Supprime(gros));
  EXPECT_EQ(Disque.EcritFichier(petit.Chemin() + QStringLiteral("/a"), "x"), 0) << "room again";
}

/// While it lives no file of this process grows beyond so many bytes.
class FichiersCourts {
 public:
  explicit FichiersCourts(rlim_t octets) {
    ::getrlimit(RLIMIT_FSIZE, &Avant_);
    const rlimit peu{octets, Avant_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &peu);
  }
  ~FichiersCourts() { ::setrlimit(RLIMIT_FSIZE, &Avant_); }
  FichiersCourts(const FichiersCourts&) = delete;
  FichiersCourts& operator=(const FichiersCourts&) = delete;

 private:
  rlimit Avant_ = {};
};

TEST_F(SystemFiles, ANewFileThatCannotBeWrittenWholeStaysAsFarAsItCame) {
  std::signal(SIGXFSZ, SIG_IGN);
  Pose(QStringLiteral("/a.jpg"), "of another run");
  {
    const FichiersCourts courts(100);
    EXPECT_EQ(Disque.EcritNouveauFichier(Chemin(QStringLiteral("/a.jpg")), QByteArray(500, 'x')), EFBIG);
    EXPECT_EQ(Disque.EcritNouveauFichier(Chemin(QStringLiteral("/b.jpg")), QByteArray(500, 'x')), EFBIG);
  }
  QStringList noms = QDir(Dossier.path()).entryList(QDir::Files);
  EXPECT_EQ(noms.removeAll(QStringLiteral("a.jpg")), 1);
  ASSERT_EQ(noms.size(), 2) << "half a photo may show who was there";
  for (const QString& nom : noms) EXPECT_EQ(Lit(Chemin(u'/' + nom)), QByteArray(100, 'x'));
  EXPECT_EQ(Lit(Chemin(QStringLiteral("/a.jpg"))), "of another run");
}

TEST_F(SystemFiles, AReadOnlyDiskRefuses) {
  PetitDisque petit(kMega);
  if (!petit.EstMonte() || !petit.RendLectureSeule()) GTEST_SKIP() << petit.Raison();
  EXPECT_EQ(Disque.EcritFichier(petit.Chemin() + QStringLiteral("/a"), "x"), EROFS);
  EXPECT_FALSE(Disque.CreeDossier(petit.Chemin() + QStringLiteral("/d")));
}

TEST_F(SystemFiles, FreeSpaceIsThatOfTheDiskThatHoldsTheFolder) {
  const PetitDisque petit(kMega);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  EXPECT_EQ(Disque.EspaceLibre(petit.Chemin()), kMega);
  ASSERT_EQ(Disque.EcritFichier(petit.Chemin() + QStringLiteral("/a"), QByteArray(kMega / 4, 'a')), 0);
  EXPECT_EQ(Disque.EspaceLibre(petit.Chemin() + QStringLiteral("\\")), kMega - kMega / 4);
}

TEST_F(SystemFiles, FreeSpaceIsAllThatIsFreeAlsoWhatIsKeptBackForTheAdministrator) {
  struct statvfs racine {};
  ASSERT_EQ(::statvfs("/", &racine), 0);
  const auto unite = static_cast<qint64>(racine.f_frsize);
  const qint64 libres = static_cast<qint64>(racine.f_bfree) * unite;
  const qint64 permis = static_cast<qint64>(racine.f_bavail) * unite;
  if (libres - permis < 10LL * kMega) GTEST_SKIP() << "nothing is kept back here";
  // Others write to this disk meanwhile: nearer to the one than to the other is all that can be asked.
  const qint64 dits = Disque.EspaceLibre(QStringLiteral("/")).value_or(0);
  EXPECT_GT(dits, permis + (libres - permis) / 2);
  EXPECT_LT(Disque.EspaceUtilisable(QStringLiteral("/")).value_or(libres), permis + (libres - permis) / 2);
}

TEST_F(SystemFiles, FreeSpaceOfAFolderThatIsGoneCannotBeTold) {
  EXPECT_FALSE(Disque.EspaceLibre(Chemin(QStringLiteral("/gone"))).has_value());
  EXPECT_FALSE(Disque.EspaceLibre(QString()).has_value());
}

}  // namespace
}  // namespace vaktor
