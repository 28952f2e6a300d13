// SPDX-License-Identifier: GPL-3.0-or-later
// What the system says of real folders: there, allowed, full, read-only, dead.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <future>

#include "platform/base/system_files.h"
#include "platform/folders/folder_access.h"
#include "platform/folders/system_folders.h"
#include "support/dead_folder.h"
#include "support/event_wait.h"
#include "support/failing_folder.h"
#include "support/small_disk.h"
#include "support/volatile_disk.h"

namespace vaktor {
namespace {

constexpr int kMega = 1024 * 1024;

class AccesDossiers : public testing::Test {
 protected:
  QString Chemin(const char* suite = "") const { return Dossier.path() + QString::fromUtf8(suite); }
  void Cree(const char* suite) const { ASSERT_TRUE(QDir().mkpath(Chemin(suite))); }
  static QStringList Restes(const QString& dossier) {
    return QDir(dossier).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  }
  /// All lists that come for a folder, the last one complete.
  QList<QStringList> Lit(const QString& chemin) {
    QList<QStringList> listes;
    bool fini = false;
    Arbre.LitDossiers(chemin, &Temoin, [&](ArbreDossiers::Contenu contenu) {
      contenu.Noms.sort();
      listes += contenu.Noms;
      fini = contenu.Complet;
    });
    EXPECT_TRUE(listes.isEmpty()) << "from the event loop, never at once";
    EXPECT_TRUE(essai::AttendQue([&] { return fini; }));
    return listes;
  }

  QTemporaryDir Dossier;
  ArbreDossiersSysteme Arbre;
  QObject Temoin;
};

TEST_F(AccesDossiers, FolderIsThereOrNot) {
  EXPECT_EQ(Arbre.RegardeDossier(Chemin()), EtatDossier::kBon);
  EXPECT_EQ(Arbre.RegardeDossier(Chemin("/gone")), EtatDossier::kAbsent);
  ASSERT_EQ(FichiersSysteme().EcritFichier(Chemin("/fichier"), "x"), 0);
  EXPECT_EQ(Arbre.RegardeDossier(Chemin("/fichier")), EtatDossier::kAbsent);
  EXPECT_EQ(Arbre.EssaieEcriture(Chemin("/fichier")), EtatDossier::kAbsent);
  EXPECT_EQ(Arbre.EssaieEcriture(Chemin("/gone")), EtatDossier::kAbsent);
}

TEST_F(AccesDossiers, TrialLeavesNothingBehind) {
  EXPECT_EQ(Arbre.EssaieEcriture(Chemin()), EtatDossier::kBon);
  EXPECT_TRUE(Restes(Chemin()).isEmpty());
}

TEST_F(AccesDossiers, FileSystemWithoutNamelessFilesIsTriedWithAName) {
  // /proc refuses nameless files, and then named ones.
  EXPECT_EQ(Arbre.EssaieEcriture(QStringLiteral("/proc")), EtatDossier::kAbsent);
}

TEST_F(AccesDossiers, FileWithANameThatWasTriedIsTakenAwayAgain) {
  const PetitDisque petit(kMega);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  const QString dossier = petit.Chemin() + QStringLiteral("/carte");
  ASSERT_TRUE(QDir().mkdir(dossier));
  const DisqueVolatil carte(dossier);  // knows no files without a name
  if (!carte.EstMonte()) GTEST_SKIP() << carte.Raison();
  EXPECT_EQ(EssaieUneEcriture(QFile::encodeName(dossier)), EtatDossier::kBon);
  EXPECT_TRUE(Restes(dossier).isEmpty());
}

TEST_F(AccesDossiers, ForbiddenFolderIsToldFromAnAbsentOne) {
  Cree("/ferme");
  // Permissions hold for others only: the administrator steps down for the moment of the question.
  const QByteArray nom = QFile::encodeName(Chemin("/ferme"));
  ASSERT_EQ(::chmod(QFile::encodeName(Chemin()).constData(), 0755), 0);
  ASSERT_EQ(::chmod(nom.constData(), 0555), 0);
  const bool administrateur = ::geteuid() == 0;
  ASSERT_TRUE(!administrateur || ::seteuid(65534) == 0);
  const EtatDossier etat = EssaieUneEcriture(nom);
  ASSERT_TRUE(!administrateur || ::seteuid(0) == 0);
  EXPECT_EQ(etat, EtatDossier::kInterdit);
}

TEST_F(AccesDossiers, FolderThatMayNotBeReadIsForbiddenAndNotEmpty) {
  Cree("/ferme");
  const QByteArray nom = QFile::encodeName(Chemin("/ferme"));
  ASSERT_EQ(::chmod(QFile::encodeName(Chemin()).constData(), 0755), 0);
  ASSERT_EQ(::chmod(nom.constData(), 0711), 0);
  const bool administrateur = ::geteuid() == 0;
  ASSERT_TRUE(!administrateur || ::seteuid(65534) == 0);
  const EtatDossier etat = RegardeUnDossier(nom);
  ASSERT_TRUE(!administrateur || ::seteuid(0) == 0);
  EXPECT_EQ(etat, administrateur ? EtatDossier::kInterdit : EtatDossier::kBon) << "the owner may read it";
}

TEST_F(AccesDossiers, FullDiskIsToldAndRoomAgainIsToo) {
  const PetitDisque petit(kMega);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  EXPECT_EQ(EssaieUneEcriture(QFile::encodeName(petit.Chemin())), EtatDossier::kBon);
  const QString gros = petit.Chemin() + QStringLiteral("/gros");
  // Room is left for something, but not for a photo.
  ASSERT_EQ(FichiersSysteme().EcritFichier(gros, QByteArray(kMega - 16 * 1024, 'g')), 0);
  EXPECT_EQ(EssaieUneEcriture(QFile::encodeName(petit.Chemin())), EtatDossier::kPlein);
  EXPECT_EQ(Restes(petit.Chemin()), QStringList{QStringLiteral("gros")});
  ASSERT_TRUE(FichiersSysteme().Supprime(gros));
  EXPECT_EQ(EssaieUneEcriture(QFile::encodeName(petit.Chemin())), EtatDossier::kBon);
}

TEST_F(AccesDossiers, ReadOnlyDiskIsTold) {
  PetitDisque petit(kMega);
  if (!petit.EstMonte() || !petit.RendLectureSeule()) GTEST_SKIP() << petit.Raison();
  EXPECT_EQ(EssaieUneEcriture(QFile::encodeName(petit.Chemin())), EtatDossier::kLectureSeule);
  EXPECT_EQ(RegardeUnDossier(QFile::encodeName(petit.Chemin())), EtatDossier::kBon);
}

TEST_F(AccesDossiers, OnlyFoldersThatCanBeStoredAreListed) {
  for (const char* nom : {"/b", "/a", "/.cache", "/a\\b", "/Été"}) Cree(nom);
  const QByteArray illisible = QFile::encodeName(Chemin()) + "/\xff";
  ASSERT_EQ(::mkdir(illisible.constData(), 0755), 0);
  ASSERT_EQ(FichiersSysteme().EcritFichier(Chemin("/photo.jpg"), "x"), 0);
  EXPECT_EQ(Lit(Chemin()),
            QList<QStringList>{QStringList({QStringLiteral("a"), QStringLiteral("b"), QString::fromUtf8("Été")})});
  EXPECT_EQ(Lit(Chemin("/gone")), QList<QStringList>{QStringList()});
  EXPECT_EQ(::rmdir(illisible.constData()), 0);
}

TEST_F(AccesDossiers, LinksToFoldersComeAfterTheFolders) {
  Cree("/vrai");
  ASSERT_TRUE(QFile::link(Chemin("/vrai"), Chemin("/lien")));
  ASSERT_TRUE(QFile::link(Chemin(), Chemin("/boucle")));
  ASSERT_TRUE(QFile::link(Chemin("/gone"), Chemin("/mort")));
  ASSERT_EQ(FichiersSysteme().EcritFichier(Chemin("/photo.jpg"), "x"), 0);
  ASSERT_TRUE(QFile::link(Chemin("/photo.jpg"), Chemin("/image")));
  EXPECT_EQ(Lit(Chemin()),
            (QList<QStringList>{{QStringLiteral("vrai")},
                                {QStringLiteral("boucle"), QStringLiteral("lien"), QStringLiteral("vrai")}}));
}

TEST_F(AccesDossiers, ListForAFormThatHasGoneIsDropped) {
  auto temoin = std::make_unique<QObject>();
  bool venu = false;
  Arbre.LitDossiers(Chemin(), temoin.get(), [&](const ArbreDossiers::Contenu&) { venu = true; });
  temoin.reset();
  Lit(Chemin());
  EXPECT_FALSE(venu);
}

TEST_F(AccesDossiers, StoredPathBecomesNativeAndTidy) {
  EXPECT_EQ(Arbre.DonneChemin(QStringLiteral("/a/v\\intrus")), QStringLiteral("/a/v/intrus"));
  EXPECT_EQ(Arbre.DonneChemin(QStringLiteral("/a\\../b/")), QStringLiteral("/b"));
  EXPECT_EQ(Arbre.DonneChemin(QStringLiteral("/\\x")), QStringLiteral("/x"));
  EXPECT_EQ(Arbre.DonneChemin(QStringLiteral("photos")), QDir::currentPath() + QStringLiteral("/photos"));
  EXPECT_TRUE(Arbre.DonneChemin(QString()).isEmpty());
}

TEST_F(AccesDossiers, PlacesBeginWithHomeAndEndWithTheRoot) {
  const QList<LieuDisque> lieux = Arbre.ListeLieux();
  ASSERT_GE(lieux.size(), 2);
  EXPECT_EQ(lieux.first().Chemin, QDir::homePath());
  EXPECT_EQ(lieux.last(), (LieuDisque{QStringLiteral("Racine"), QStringLiteral("/")}));
}

TEST_F(AccesDossiers, FolderIsMadeAndItsFreeSpaceIsTold) {
  EXPECT_TRUE(Arbre.CreeDossier(Chemin("\\Intrus")));
  EXPECT_TRUE(QDir(Chemin("/Intrus")).exists());
  EXPECT_FALSE(Arbre.CreeDossier(Chemin("\\Intrus"))) << "it is there";
  EXPECT_FALSE(Arbre.CreeDossier(Chemin("\\gone\\Intrus")));
  EXPECT_GT(Arbre.EspaceLibre(Chemin()).value_or(0), 0);
  EXPECT_EQ(Arbre.EspaceLibre(Chemin("/gone")), std::nullopt);
}

TEST_F(AccesDossiers, FolderThatCannotBeReadIsTold) {
  EtatDossier etat = EtatDossier::kBon;
  int venus = 0;
  const auto lit = [&](const QString& chemin) {
    const int avant = venus;
    Arbre.LitDossiers(chemin, &Temoin, [&](const ArbreDossiers::Contenu& contenu) {
      etat = contenu.Etat;
      ++venus;
    });
    return essai::AttendQue([&] { return venus > avant; });
  };
  ASSERT_TRUE(lit(Chemin("/gone")));
  EXPECT_EQ(etat, EtatDossier::kAbsent);
  Cree("/ferme");
  ASSERT_EQ(::chmod(QFile::encodeName(Chemin()).constData(), 0755), 0);
  ASSERT_EQ(::chmod(QFile::encodeName(Chemin("/ferme")).constData(), 0300), 0);
  // Permissions hold for others only: the administrator steps down for the moment of the question.
  const bool administrateur = ::geteuid() == 0;
  ASSERT_TRUE(!administrateur || ::seteuid(65534) == 0);
  const bool venu = lit(Chemin("/ferme"));
  ASSERT_TRUE(!administrateur || ::seteuid(0) == 0);
  ASSERT_TRUE(venu);
  EXPECT_EQ(etat, EtatDossier::kInterdit);
}

TEST_F(AccesDossiers, DiskThatFailsInTheMiddleIsToldWithTheFoldersBefore) {
  const PetitDisque petit(kMega);
  if (!petit.EstMonte()) GTEST_SKIP() << petit.Raison();
  const QString dossier = petit.Chemin() + QStringLiteral("/carte");
  ASSERT_TRUE(QDir().mkdir(dossier));
  const DossierQuiEchoue carte(dossier, {"Nuits"}, true);
  if (!carte.EstMonte()) GTEST_SKIP() << carte.Raison();
  std::optional<ArbreDossiers::Contenu> recu;
  Arbre.LitDossiers(dossier, &Temoin, [&](const ArbreDossiers::Contenu& contenu) { recu = contenu; });
  ASSERT_TRUE(essai::AttendQue([&] { return recu.has_value(); }));
  EXPECT_EQ(recu->Noms, QStringList{QStringLiteral("Nuits")});
  EXPECT_EQ(recu->Etat, EtatDossier::kAbsent);
  EXPECT_TRUE(recu->Complet);
}

TEST_F(AccesDossiers, AFileDialogBeginsWhereItIsToldOrAtHome) {
  EXPECT_EQ(DebutDeDialogue(Chemin()), Chemin());
  EXPECT_EQ(DebutDeDialogue(Chemin("/gone")), QDir::homePath());
  EXPECT_EQ(DebutDeDialogue(QString()), QDir::homePath());
}

TEST_F(AccesDossiers, DiskThatNeverAnswersHoldsUpNobody) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  EXPECT_EQ(Arbre.RegardeDossier(mort.Chemin("/photos")), EtatDossier::kSansReponse);
  EXPECT_EQ(Arbre.EssaieEcriture(mort.Chemin("/photos")), EtatDossier::kSansReponse);
  EXPECT_FALSE(Arbre.CreeDossier(mort.Chemin("/photos\\Intrus")));
  EXPECT_EQ(Arbre.EspaceLibre(mort.Chemin("/photos")), std::nullopt);
  EXPECT_EQ(DebutDeDialogue(mort.Chemin("/photos")), QDir::homePath());
  bool venu = false;
  Arbre.LitDossiers(mort.Chemin(), &Temoin, [&](const ArbreDossiers::Contenu&) { venu = true; });
  // The folder beside it is read meanwhile, and a link into the dead disk does not keep its neighbours back.
  ASSERT_TRUE(QDir().mkdir(mort.Vivant("/vif")));
  ASSERT_TRUE(QFile::link(mort.Chemin("/photos"), mort.Vivant("/lien")));
  QStringList vus;
  Arbre.LitDossiers(mort.Vivant(), &Temoin, [&](const ArbreDossiers::Contenu& contenu) { vus = contenu.Noms; });
  EXPECT_TRUE(essai::AttendQue([&] { return !vus.isEmpty(); }));
  EXPECT_TRUE(vus.contains(QStringLiteral("vif")));
  EXPECT_FALSE(venu);
  mort.Reveille();
  EXPECT_TRUE(essai::AttendQue([&] { return venu; })) << "those who waited come back with the disk";
}

TEST(TravauxBornesTest, NoMoreThanSoManyWaitAtATime) {
  TravauxBornes travaux;
  std::promise<void> fin;
  const std::shared_future<void> attend(fin.get_future());
  std::atomic<int> finis = 0;
  for (int i = 0; i < TravauxBornes::kAuPlus; ++i) {
    EXPECT_TRUE(travaux.Lance([attend, &finis] {
      attend.wait();
      ++finis;
    }));
  }
  EXPECT_FALSE(travaux.Lance([] {}));
  EXPECT_FALSE(travaux.Attend<int>([] { return 1; }, std::chrono::milliseconds(1)));
  fin.set_value();
  EXPECT_TRUE(essai::AttendQue([&] { return travaux.Attend<int>([] { return 1; }, std::chrono::seconds(20)) == 1; }));
  EXPECT_TRUE(essai::AttendQue([&] { return finis == TravauxBornes::kAuPlus; }));
}

TEST(TravauxBornesTest, WorkThatThrowsGivesNothingAndFreesItsPlace) {
  TravauxBornes travaux;
  for (int i = 0; i <= TravauxBornes::kAuPlus; ++i) {
    EXPECT_FALSE(travaux.Attend<int>([]() -> int { throw std::bad_alloc(); }, std::chrono::seconds(20)));
    ASSERT_TRUE(essai::AttendQue([&] { return travaux.Lance([] { throw std::bad_alloc(); }); })) << i;
  }
  EXPECT_TRUE(essai::AttendQue([&] { return travaux.Attend<int>([] { return 1; }, std::chrono::seconds(20)) == 1; }));
}

}  // namespace
}  // namespace vaktor
