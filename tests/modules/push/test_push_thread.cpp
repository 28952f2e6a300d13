// SPDX-License-Identifier: GPL-3.0-or-later
// The thread that sends pushes: a real outbox, a real server, the waits as they are.
#include <gtest/gtest.h>

#include <QDateTime>
#include <QElapsedTimer>

#include "modules/push/push_thread.h"
#include "push_test_server.h"
#include "support/event_wait.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {
namespace {

struct FilDesPush : testing::Test {
  QTemporaryDir Dossier;
  ServeurPush Serveur;
  SacPush Sac{Dossier.filePath("push")};
  QList<IssuePush> Issues;
  std::unique_ptr<FilPush> Poste;

  FilDesPush() {
    Serveur.Demarre();
    Poste = std::make_unique<FilPush>(Dossier.filePath("push"),
                                      [this](const RapportPush& r) { Issues << r.Resultat.Issue; });
  }
  ReglagesPush Reglages() const {
    Parametres valeurs;
    valeurs.PushAdresse = Serveur.Adresse();
    return LitPush(valeurs, {}).Reglages;
  }
  void Ajoute(const QString& texte) {
    ASSERT_EQ(Sac.Ajoute({"t", texte, {}, {}}, QDateTime::currentMSecsSinceEpoch(), texte), 0);
  }
  /// Long enough for a thread that does something; it sleeps then, for an hour.
  static void LaisseFaire() {
    QElapsedTimer depuis;
    depuis.start();
    while (!depuis.hasExpired(400)) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  }
};

TEST_F(FilDesPush, SendsNothingBeforeItKnowsWhereAndIsWokenByIt) {
  Ajoute("a");
  Poste->Reveille();
  LaisseFaire();
  EXPECT_TRUE(Issues.isEmpty()) << "nobody to send it to is no failure";
  Poste->ChangeReglages(Reglages());
  EXPECT_TRUE(AttendQue([this] { return Issues == QList{IssuePush::kPris}; }));
  EXPECT_EQ(Serveur.Nombre(), 1);
}

TEST_F(FilDesPush, IsWokenByANewPush) {
  Poste->ChangeReglages(Reglages());
  LaisseFaire();
  Ajoute("a");
  Poste->Reveille();
  EXPECT_TRUE(AttendQue([this] { return Serveur.Nombre() == 1; }));
}

TEST_F(FilDesPush, OneThatIsCutOffEachTimeHoldsUpNoOther) {
  Serveur.Repond("cut 1000");
  Ajoute("a");
  ASSERT_EQ(Sac.Ajoute({"t", "b", "p.jpg", PetitJpeg(QByteArray(3'000'000, 'x'))},
                       QDateTime::currentMSecsSinceEpoch() + 1000, "b"),
            0);
  Poste->ChangeReglages(Reglages());
  EXPECT_TRUE(AttendQue([this] { return Serveur.Nombre() == 1; }));
  EXPECT_EQ(Serveur.Corps(0), "a");
  EXPECT_TRUE(AttendQue([this] { return Issues == QList{IssuePush::kPanne, IssuePush::kPris}; }));
}

// The waits for the server's sake, of ten seconds and of thirty, are those of what was there before.
TEST_F(FilDesPush, ANewPushIsTriedAtOnceThoughTheServerWasAway) {
  Serveur.Arrete();
  Poste->ChangeReglages(Reglages());
  for (int i = 1; i <= 3; ++i) {
    Ajoute(QString::number(i));
    Poste->Reveille();
    ASSERT_TRUE(AttendQue([&] { return Issues.size() >= i; })) << i;
  }
  EXPECT_EQ(Issues.count(IssuePush::kPanne), 3);
}

}  // namespace
}  // namespace vaktor::essai
