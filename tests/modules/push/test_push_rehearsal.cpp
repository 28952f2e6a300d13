// SPDX-License-Identifier: GPL-3.0-or-later
// The rehearsal of a push, against a real server, and as the program does it.
#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>

#include "base/jpeg_end.h"
#include "modules/push/push_rehearsal.h"
#include "push_test_server.h"

namespace vaktor::essai {
namespace {

class EssaiPush : public testing::Test {
 protected:
  FinRepetition Essaie(const QString& adresse, const QString& entete = {}, int langue = 1) {
    Lignes.clear();
    const QByteArray demande =
        QJsonDocument(
            QJsonObject{
                {"pushadresse", adresse}, {"pushentete", entete}, {"sujet", "[Test] Intrusion"}, {"langue", langue}})
            .toJson();
    EXPECT_TRUE(EstDemandePush(demande));
    return RepetePush(demande, Serveur.Autorite(), [this](const QString& ligne) { Lignes.append(ligne); });
  }
  std::string Tout() const { return Lignes.join('\n').toStdString(); }

  ServeurPush Serveur;
  QStringList Lignes;
};

TEST_F(EssaiPush, PostsAPictureAndSaysThatItIsATest) {
  Serveur.Demarre(true);
  EXPECT_EQ(Essaie(Serveur.Adresse(), "X-Key: k3y"), FinRepetition::kAccepte) << Tout();
  ASSERT_EQ(Serveur.Nombre(), 1);
  EXPECT_TRUE(EstJpegEntier(Serveur.Corps(0)));
  EXPECT_EQ(Serveur.Entete(0, "title"), "[Test] Intrusion");
  EXPECT_TRUE(Serveur.Entete(0, "message").contains("not an alarm"));
  EXPECT_EQ(Serveur.Entete(0, "x-key"), "k3y");
  ASSERT_EQ(Lignes.size(), 3) << Tout();
  EXPECT_EQ(Lignes[0], "localhost");
  EXPECT_EQ(Lignes[1], "POST: HTTP 200: the server's own words");
  EXPECT_EQ(Lignes[2], "The server localhost took the push: see whether it has arrived. The connection was encrypted.");
  EXPECT_FALSE(Tout().find("k3y") != std::string::npos || Tout().find("maison") != std::string::npos);
}

TEST_F(EssaiPush, SaysWhenAnybodyCanReadAlong) {
  Serveur.Demarre();
  EXPECT_EQ(Essaie(Serveur.Adresse()), FinRepetition::kAccepte);
  EXPECT_TRUE(Lignes.last().contains("was not encrypted")) << Tout();
  EXPECT_EQ(Essaie(Serveur.Adresse(), {}, 0), FinRepetition::kAccepte);
  EXPECT_TRUE(Lignes.last().contains(QString::fromUtf8("n'était pas chiffrée"))) << Tout();
}

TEST_F(EssaiPush, TellsEachRefusalInTheServersWordsAndWhatToChange) {
  Serveur.Demarre();
  const struct {
    const char* Reponse;
    const char* Conseil;
  } cas[] = {{"401", "Correct the header"},
             {"404", "takes no push at this address"},
             {"400", "read its answer"},
             {"503", "does not answer or takes nothing"}};
  for (const auto& [reponse, conseil] : cas) {
    Serveur.Repond(reponse);
    EXPECT_EQ(Essaie(Serveur.Adresse()), FinRepetition::kRefuse) << reponse;
    EXPECT_TRUE(Lignes.contains(QStringLiteral("POST: HTTP %1: the server's own words").arg(reponse))) << Tout();
    EXPECT_TRUE(Lignes.last().contains(conseil)) << Tout();
    EXPECT_FALSE(Lignes.last().contains("keeps trying")) << "a trial is tried once: " << Tout();
  }
}

TEST_F(EssaiPush, OneThatIsTooLargeIsTriedWithoutItsPictureAsTheOutboxDoes) {
  Serveur.Demarre();
  Serveur.Repond("413");
  EXPECT_EQ(Essaie(Serveur.Adresse()), FinRepetition::kRefuse);
  ASSERT_EQ(Lignes.filter("POST: HTTP 413").size(), 2) << Tout();
}

TEST_F(EssaiPush, NobodyThereAndWhatCannotBeAPushAreTold) {
  Serveur.Demarre();
  Serveur.Arrete();
  EXPECT_EQ(Essaie(Serveur.Adresse()), FinRepetition::kRefuse);
  EXPECT_EQ(Lignes.size(), 3) << "whom, what the system said, what to do: " << Tout();
  EXPECT_EQ(Essaie(""), FinRepetition::kRefuse);
  EXPECT_EQ(Lignes, QStringList("First enter the address of the push."));
  EXPECT_EQ(Essaie("push.example.org"), FinRepetition::kRefuse);
  EXPECT_TRUE(Lignes.last().contains("begins with https://")) << Tout();
  EXPECT_EQ(Essaie("https://a/", "nothing"), FinRepetition::kRefuse);
  EXPECT_TRUE(Lignes.last().contains("Name: value")) << Tout();
}

TEST_F(EssaiPush, IsWhatTheProgramDoesForARequestWithAnAddressForPushes) {
  Serveur.Demarre(true);
  QProcess programme;
  QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
  milieu.insert("SSL_CERT_FILE", Serveur.Autorite());
  programme.setProcessEnvironment(milieu);
  programme.start(VAKTOR_MAIL, {"--try"});
  programme.write(QJsonDocument(QJsonObject{{"pushadresse", Serveur.Adresse()}, {"langue", 1}}).toJson());
  programme.closeWriteChannel();
  ASSERT_TRUE(programme.waitForFinished(60000));
  const QByteArray dit = programme.readAll();
  EXPECT_EQ(programme.exitCode(), 0) << dit.toStdString();
  EXPECT_TRUE(dit.contains("took the push")) << dit.toStdString();
  EXPECT_EQ(Serveur.Nombre(), 1);
  EXPECT_FALSE(EstDemandePush(R"({"destination":"a@b.fr"})"));
}

}  // namespace
}  // namespace vaktor::essai
