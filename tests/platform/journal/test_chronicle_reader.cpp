// SPDX-License-Identifier: GPL-3.0-or-later
// Journal and photos of a real folder, read on a thread: fifty thousand photos too.
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/journal/chronicle_file_reader.h"

namespace vaktor {
namespace {

class ChronicleReader : public testing::Test {
 protected:
  QString Nom(int heure, int minute, int seconde, int numero) const {
    return QStringLiteral("2026-11-22  %1-%2-%3 Photo %4.jpg")
        .arg(heure, 2, 10, QLatin1Char('0'))
        .arg(minute, 2, 10, QLatin1Char('0'))
        .arg(seconde, 2, 10, QLatin1Char('0'))
        .arg(numero, 5, 10, QLatin1Char('0'));
  }
  void Pose(const QString& nom, const QByteArray& octets = "x") const {
    QFile fichier(Dossier.filePath(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    fichier.write(octets);
  }
  std::shared_ptr<const Chronique> Lit() {
    LecteurChroniqueSysteme lecteur(Dossier.filePath(QStringLiteral("journal.jsonl")), std::chrono::minutes(2));
    std::shared_ptr<const Chronique> lue;
    lecteur.LitChronique(Dossier.path(), QStringLiteral("r2"),
                         [&](std::shared_ptr<const Chronique> c) { lue = std::move(c); });
    EXPECT_FALSE(lue) << "later, from the event loop";
    EXPECT_TRUE(QTest::qWaitFor([&] { return lue != nullptr; }, 60'000));
    return lue;
  }
  QTemporaryDir Dossier;
};

TEST_F(ChronicleReader, PutsTogetherWhatJournalAndPhotosTell) {
  EntreeJournal fin{.Quoi = Fait::kFinIntrusion, .Quand = QDateTime(QDate(2026, 11, 22), QTime(3, 0, 15))};
  fin.Depuis = QDateTime(QDate(2026, 11, 22), QTime(3, 0, 0));
  fin.Dossier = Dossier.path();
  fin.DureeMs = 5000;
  fin.Premiere = Nom(3, 0, 0, 1);
  fin.Derniere = fin.Meilleure = Nom(3, 0, 5, 2);
  Pose(QStringLiteral("journal.jsonl"), EcritLigne(fin) + "\n{torn");
  Pose(fin.Premiere);
  Pose(fin.Derniere);
  Pose(Nom(9, 0, 0, 7));
  const auto c = Lit();
  ASSERT_TRUE(c);
  EXPECT_EQ(c->Illisibles, 1);
  ASSERT_EQ(c->Intrusions.size(), 2);
  EXPECT_EQ(c->Intrusions[0].Photos.size(), 2);
  EXPECT_EQ(c->Intrusions[0].Parlante, fin.Meilleure);
  EXPECT_EQ(c->Intrusions[1].Photos, QStringList{Nom(9, 0, 0, 7)});
}

TEST_F(ChronicleReader, LooksIntoTheFoldersThatTheJournalNamesAndAsksFilesForTheirDay) {
  const QDateTime nuit(QDate(2026, 11, 22), QTime(3, 0, 0));
  ASSERT_TRUE(QDir(Dossier.path()).mkdir(QStringLiteral("q")));
  EntreeJournal fin{.Quoi = Fait::kFinIntrusion, .Quand = nuit.addSecs(10)};
  fin.Depuis = nuit;
  fin.Dossier = Dossier.filePath(QStringLiteral("q"));
  fin.Premiere = fin.Derniere = Nom(3, 0, 0, 1);
  EntreeJournal armee{.Quoi = Fait::kArmee, .Quand = nuit.addSecs(-60), .Course = QStringLiteral("r2")};
  Pose(QStringLiteral("journal.jsonl"), EcritLigne(armee) + '\n' + EcritLigne(fin) + '\n');
  Pose(QStringLiteral("q/") + fin.Premiere);
  // The run began on the day of the name, and the photo was taken on the next one.
  Pose(Nom(5, 0, 0, 900));
  QFile fichier(Dossier.filePath(Nom(5, 0, 0, 900)));
  ASSERT_TRUE(fichier.open(QIODevice::ReadWrite));
  ASSERT_TRUE(fichier.setFileTime(nuit.addDays(1).addSecs(7200), QFileDevice::FileModificationTime));
  fichier.close();
  const auto c = Lit();
  ASSERT_TRUE(c);
  ASSERT_EQ(c->Intrusions.size(), 2);
  EXPECT_EQ(c->Intrusions[0].Photos, QStringList{fin.Premiere});
  EXPECT_EQ(c->Intrusions[1].Debut, nuit.addDays(1).addSecs(7200));
  ASSERT_EQ(c->Armees.size(), 1);
  EXPECT_TRUE(c->Armees[0].EnCours) << "of this run";
}

TEST_F(ChronicleReader, AFolderThatIsGoneIsAnEmptyChronicle) {
  const auto c = Lit();
  ASSERT_TRUE(c);
  EXPECT_TRUE(c->Intrusions.isEmpty());
}

}  // namespace
}  // namespace vaktor
