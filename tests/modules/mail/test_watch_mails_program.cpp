// SPDX-License-Identifier: GPL-3.0-or-later
// Mails of the watch with the whole companion, the main program's side of the channel and a real server on loopback.
#include <QRandomGenerator>
#include <QThread>

#include "modules/mail/mail_program_bench.h"
#include "modules/mail/watch_message.h"

namespace vaktor::essai {
namespace {

struct VeilleDuProgramme : ProgrammeMail {
  QString Dossier() const { return Temporaire.filePath("veille"); }
  void Pose(int n, const QByteArray& photo = {}) const {
    PoseMessage(Dossier(), QStringLiteral("%1-%2").arg(QDateTime::currentMSecsSinceEpoch()).arg(n), photo);
  }
  QStringList Restes() const { return QDir(Dossier()).entryList(QDir::Files); }
};

TEST_F(VeilleDuProgramme, AMessageArrivesWithItsPicture) {
  Lance();
  Pose(1, kImageEntiere);
  Envois.EnvoiMail(Commande::kVeille);
  ASSERT_TRUE(AttendQue([this] { return Serveur.NombreRecus() == 1; }));
  const QJsonObject lu = LitCourriel(Serveur.Message());
  EXPECT_EQ(lu["subject"].toString(), "Vaktor ne voit plus");
  EXPECT_EQ(lu["types"].toArray(), QJsonArray{"image/jpeg"});
  EXPECT_EQ(lu["defects"].toArray(), QJsonArray());
  EXPECT_TRUE(Restes().isEmpty());
  EXPECT_TRUE(AttendQue([this] { return EnAttente().isEmpty(); }));
}

TEST_F(VeilleDuProgramme, OneThatWasLeftWhileNoCompanionRanArrives) {
  Pose(1);
  Lance();
  EXPECT_TRUE(AttendQue([this] { return Serveur.NombreRecus() == 1; }));
}

TEST_F(VeilleDuProgramme, MadeLaterItArrivesBeforeTheAlarmMailThatWaited) {
  Serveur.Arrete();
  Lance();
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return LitEtat("VAKTORmail.json").contains("\"mail-connection\""); }))
      << LitEtat("VAKTORmail.json").toStdString();
  ASSERT_EQ(EnAttente().size(), 1);
  Pose(1);
  Envois.EnvoiMail(Commande::kVeille);
  ASSERT_TRUE(AttendQue([this] { return EnAttente().size() == 2; }));
  ASSERT_TRUE(Serveur.Demarre());
  Regle("smtpuser", "autre");  // other settings make all due at once: the test need not wait for the next attempt
  Magasin.Vide();
  Envois.EnvoiMail(Commande::kOptions);
  ASSERT_TRUE(AttendQue([this] { return Serveur.NombreRecus() == 2; }));
  EXPECT_EQ(LitCourriel(Serveur.Message(0))["subject"].toString(), "Vaktor ne voit plus");
  EXPECT_EQ(LitCourriel(Serveur.Message(1))["subject"].toString(), QString::fromUtf8("Intrusion détectée"));
}

TEST_F(VeilleDuProgramme, TheStatusFileTellsWhoseItIsAndWhatWaits) {
  const auto etat = [this] { return QJsonDocument::fromJson(LitEtat("VAKTORmail.json")).object(); };
  Serveur.Arrete();
  Lance();
  EXPECT_EQ(etat()["handle"].toInt(), Etat.HandleMail) << "what it has registered with";
  EXPECT_FALSE(etat().contains("waiting_since"));
  Pose(1);
  Envois.EnvoiMail(Commande::kVeille);
  ASSERT_TRUE(AttendQue([&] { return etat().contains("waiting_since"); }));
  const QDateTime depuis = QDateTime::fromString(etat()["waiting_since"].toString(), Qt::ISODate);
  EXPECT_LT(depuis.secsTo(QDateTime::currentDateTimeUtc()), 60);
  ASSERT_TRUE(Serveur.Demarre());
  Regle("smtpuser", "autre");
  Magasin.Vide();
  Envois.EnvoiMail(Commande::kOptions);
  EXPECT_TRUE(AttendQue([&] { return !etat().contains("waiting_since"); }));
}

/// Kills the companion at any moment while it takes messages.
TEST_F(VeilleDuProgramme, KilledWhileItTakesThemEachMessageBecomesOneMail) {
  constexpr int kMorts = 25;
  constexpr int kParVie = 6;
  Serveur.Arrete();
  int enSuspens = 0;  // kills that left messages behind
  for (int i = 0; i < kMorts; ++i) {
    for (int n = 0; n < kParVie; ++n) Pose(i * kParVie + n, n % 2 == 0 ? kImageEntiere : QByteArray());
    Lance();
    Envois.EnvoiMail(Commande::kVeille);
    QThread::msleep(QRandomGenerator::global()->bounded(0U, 25U));
    Tue();
    enSuspens += Restes().isEmpty() ? 0 : 1;
  }
  ASSERT_TRUE(Serveur.Demarre());
  Regle("smtpuser", "autre");
  Magasin.Vide();
  Lance();
  // The cap of the hour lets so many through; the others are in the outbox, each once.
  ASSERT_TRUE(AttendQue([this] { return QDir(Dossier()).entryList({"*.json"}).isEmpty(); }));
  const qsizetype plafond = 70;
  for (const qsizetype venus : {plafond / 2, plafond})  // under the sanitizers they take longer than one patience
    ASSERT_TRUE(AttendQue([&] { return Serveur.NombreRecus() >= venus; })) << Serveur.NombreRecus() << " came";
  ASSERT_TRUE(AttendQue([&] { return EnAttente().size() == qsizetype{kMorts} * kParVie - plafond; }))
      << EnAttente().size() << " wait";
  QSet<QString> messages;
  for (const QString& nom : EnAttente()) messages << nom.section("-veille-", 1).section('-', 0, 1);
  for (qsizetype i = 0; i < Serveur.NombreRecus(); ++i)
    messages << LitCourriel(Serveur.Message(i))["id"].toString().section("-veille-", 1).section('@', 0, 0);
  EXPECT_EQ(messages.size(), kMorts * kParVie) << "none is lost, none is there twice";
  std::cout << kMorts << " kills, " << enSuspens << " of them in the middle\n";
}

}  // namespace
}  // namespace vaktor::essai
