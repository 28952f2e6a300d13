// SPDX-License-Identifier: GPL-3.0-or-later
// "VAKTORftp --try" as a program, against real servers on loopback.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>

#include "modules/ftp/ftp_test_server.h"
#include "modules/ftp/interruption_watch.h"
#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

struct Essayer : testing::Test {
  ServeurEssai Serveur;
  QTemporaryDir Ailleurs;
  QProcess Programme;
  QJsonObject Champs{{"user", "anna"}, {"pass", "sesame"}, {"racine", "/"}, {"langue", 1}};
  QStringList Lignes;
  QByteArray Octets;

  void SetUp() override {
    Serveur.Demarre();
    // What the live page has there already.
    for (const char* nom : {"live.jpg", "live.html", "vaktor.part"}) EcritOctets(Serveur.Chemin(nom), nom);
  }
  void TearDown() override {
    Programme.kill();
    Programme.waitForFinished();
    for (const char* nom : {"live.jpg", "live.html", "vaktor.part"})
      EXPECT_EQ(LitOctets(Serveur.Chemin(nom)), nom) << "a file of the live page was touched";
    EXPECT_TRUE(QDir(Ailleurs.path()).isEmpty()) << "nothing is written on this side";
    EXPECT_FALSE(Octets.contains("sesame"));
  }
  void Lance(const QByteArray& demande) {
    QProcessEnvironment milieu = QProcessEnvironment::systemEnvironment();
    milieu.insert("VAKTOR_DOSSIER", Ailleurs.path());
    milieu.insert("XDG_RUNTIME_DIR", Ailleurs.path());
    if (QFile::exists(Serveur.Autorite())) milieu.insert("SSL_CERT_FILE", Serveur.Autorite());
    Programme.setProcessEnvironment(milieu);
    Programme.setProcessChannelMode(QProcess::MergedChannels);
    Programme.start(VAKTOR_FTP, {"--try"});
    Programme.write(demande);
    Programme.closeWriteChannel();
  }
  QByteArray Demande() {
    QJsonObject champs = Champs;
    if (!champs.contains("ftp")) champs["ftp"] = QStringLiteral("127.0.0.1:%1").arg(Serveur.Port());
    return QJsonDocument(champs).toJson();
  }
  int Essaie() { return EssaieOctets(Demande()); }
  int EssaieOctets(const QByteArray& demande) {
    Lance(demande);
    EXPECT_TRUE(Programme.waitForFinished(60000));
    Octets = Programme.readAll();
    Lignes = QString::fromUtf8(Octets).split('\n', Qt::SkipEmptyParts);
    return Programme.exitStatus() == QProcess::NormalExit ? Programme.exitCode() : -1;
  }
  std::string Tout() const { return Octets.toStdString(); }
  /// Files of a trial that lie there.
  QStringList Restes() const { return Serveur.Noms().filter("try"); }
};

TEST_F(Essayer, TheRightPassword) {
  EXPECT_EQ(Essaie(), 0) << Tout();
  for (const char* debut : {"220 ", "PASS: 230 ", "CWD: 250 ", "STOR: 226 ", "RNTO: 250 ", "DELE: 250 "})
    EXPECT_EQ(Lignes.filter(QRegularExpression('^' + QRegularExpression::escape(debut))).isEmpty(), false)
        << debut << '\n'
        << Tout();
  EXPECT_TRUE(Lignes.contains("SIZE: 213 32768")) << Tout();
  EXPECT_TRUE(Lignes.last().startsWith("The live page can be published")) << Tout();
  EXPECT_TRUE(Restes().isEmpty());
}

TEST_F(Essayer, AWrongPasswordInTheServersWordsWithoutItself) {
  Serveur.Dit("quoting");
  Champs["pass"] = "wrong-one";
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.contains("PASS: 530 No user anna with *** here.")) << Tout();
  EXPECT_FALSE(Octets.contains("wrong-one")) << Tout();
  EXPECT_TRUE(Lignes.last().contains("refuses the user name or the password"));
}

TEST_F(Essayer, AMissingFolder) {
  Champs["racine"] = "/pas/la";
  Champs["langue"] = 0;
  EXPECT_EQ(Essaie(), 1);
  EXPECT_EQ(Lignes.filter("CWD: 550").size(), 1) << Tout();
  EXPECT_TRUE(Lignes.last().contains(QString::fromUtf8("Le répertoire « /pas/la » n'existe pas"))) << Tout();
}

TEST_F(Essayer, APortWhereNobodyListens) {
  QTcpServer libre;
  ASSERT_TRUE(libre.listen(QHostAddress::LocalHost));
  const QString adresse = QStringLiteral("127.0.0.1:%1").arg(libre.serverPort());
  libre.close();
  Champs["ftp"] = adresse;
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.last().contains("accepts no connection on port")) << Tout();
  EXPECT_EQ(Lignes.first(), adresse);
}

TEST_F(Essayer, AFullDisk) {
  Serveur.Dit("full");
  EXPECT_EQ(Essaie(), 1);
  EXPECT_EQ(Lignes.filter("STOR: 552 Quota exceeded, *** or not.").size(), 1) << Tout();
  EXPECT_TRUE(Lignes.last().contains("no space left")) << Tout();
  EXPECT_TRUE(Restes().isEmpty()) << "half a file was there";
}

TEST_F(Essayer, AFolderThatTakesNothing) {
  Serveur.Dit("nowrite");
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.last().contains("lets nothing be written")) << Tout();
}

TEST_F(Essayer, AServerThatDoesNotRenameOverAFileIsGoodEnough) {
  Serveur.Dit("norename");
  EXPECT_EQ(Essaie(), 0) << Tout();
  EXPECT_TRUE(Restes().isEmpty());
}

TEST_F(Essayer, OneThatDoesNotDeleteSaysWhatItKeeps) {
  Serveur.Dit("nodelete");
  EXPECT_EQ(Essaie(), 0) << Tout();
  ASSERT_EQ(Restes().size(), 1);
  EXPECT_TRUE(Lignes.last().contains(Restes().first())) << Tout();
}

TEST_F(Essayer, OneThatKeepsHalfOfTheFile) {
  Serveur.Dit("lossy");
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.last().contains("did not keep all of it")) << Tout();
  EXPECT_TRUE(Restes().isEmpty());
}

TEST_F(Essayer, ABlockedDataConnection) {
  Serveur.Dit("nodata");
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.last().contains("passive mode")) << Tout();
}

TEST_F(Essayer, AConnectionThatBreaksIsTakenUpToTidyUp) {
  Serveur.Dit("cut 5000");
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.last().contains("broke")) << Tout();
  EXPECT_TRUE(Restes().isEmpty()) << Tout();
}

TEST_F(Essayer, TooManyGuests) {
  Serveur.Dit("busy");
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.contains("421 Too many connections.")) << Tout();
  EXPECT_TRUE(Lignes.last().contains("accepts no further connection")) << Tout();
}

TEST_F(Essayer, AnotherProtocolIsToldAtItsEnd) {
  QTcpServer ssh;
  ASSERT_TRUE(ssh.listen(QHostAddress::LocalHost));
  Champs["ftp"] = QStringLiteral("127.0.0.1:%1").arg(ssh.serverPort());
  Lance(Demande());
  ASSERT_TRUE(AttendQue([&] { return ssh.hasPendingConnections(); }));
  QTcpSocket* connexion = ssh.nextPendingConnection();
  connexion->write("SSH-2.0-OpenSSH_9.2\r\n");
  connexion->waitForBytesWritten();
  connexion->disconnectFromHost();
  ASSERT_TRUE(Programme.waitForFinished(60000));
  Octets = Programme.readAll();
  EXPECT_TRUE(Octets.contains("SSH-2.0-OpenSSH_9.2\n")) << Tout();
  EXPECT_TRUE(Octets.endsWith(":22).\n")) << Tout();
}

TEST_F(Essayer, WhatIsNoRequest) {
  EXPECT_EQ(EssaieOctets("no"), 2);
  EXPECT_EQ(EssaieOctets(""), 2);
}

TEST_F(Essayer, AnEndInTheMiddleDeletesWhatWasSent) {
  Serveur.Dit("slow 2000");  // sixteen seconds for the file
  Lance(Demande());
  const auto recu = [&](const char* mot) {
    while (!Octets.contains(mot) && Programme.waitForReadyRead(20000)) Octets += Programme.readAll();
    return Octets.contains(mot);
  };
  ASSERT_TRUE(recu("STOR: 1")) << Tout();
  ASSERT_EQ(Restes().size(), 1);
  ::kill(static_cast<pid_t>(Programme.processId()), SIGTERM);
  ASSERT_TRUE(Programme.waitForFinished(20000));
  EXPECT_TRUE(Restes().isEmpty()) << Tout();
}

TEST_F(Essayer, AnEndBeforeAnythingWasSentIsAtOnce) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Champs["ftp"] = QStringLiteral("127.0.0.1:%1").arg(muet.serverPort());
  Lance(Demande());
  ASSERT_TRUE(AttendQue([&] { return muet.hasPendingConnections(); }));
  ::kill(static_cast<pid_t>(Programme.processId()), SIGTERM);
  ASSERT_TRUE(Programme.waitForFinished(20000));
  EXPECT_EQ(Programme.exitCode(), 128 + SIGTERM) << "nobody waits for a server that says nothing";
}

// A pipe with a name, since a QProcess goes on reading what it was told not to read any more.
TEST_F(Essayer, OneWhoseReaderIsGoneTidiesUpAllTheSame) {
  Serveur.Dit("slow 20000");
  QTemporaryDir tuyaux;
  const QString tuyau = tuyaux.filePath("sortie");
  ASSERT_EQ(::mkfifo(QFile::encodeName(tuyau).constData(), 0600), 0);
  const int lecture = ::open(QFile::encodeName(tuyau).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(lecture, 0);
  Programme.setStandardOutputFile(tuyau);
  Lance(Demande());
  EXPECT_TRUE(AttendQue([&] {
    char octets[1000];
    if (const ssize_t lus = ::read(lecture, octets, sizeof octets); lus > 0) Octets += QByteArray(octets, lus);
    return Octets.contains("STOR: 1");
  })) << Tout();
  ::close(lecture);
  ASSERT_TRUE(Programme.waitForFinished(60000));
  EXPECT_EQ(Programme.exitStatus(), QProcess::NormalExit);
  EXPECT_TRUE(Restes().isEmpty());
}

TEST_F(Essayer, TheHelpNamesIt) {
  Programme.start(VAKTOR_FTP, {"--help"});
  ASSERT_TRUE(Programme.waitForFinished());
  EXPECT_TRUE(Programme.readAll().contains("VAKTORftp --try"));
}

// What has to be tidied up may hang like anything else on a network. In a process of its own, which it ends.
TEST(Interruption, AnEndThatHangsIsCutOff) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(
      {
        VeilleInterruption veille(200);
        veille.ChangeRestes(true);
        ::kill(::getpid(), SIGTERM);
        while (!veille.EstDemandee()) ::usleep(1000);
        for (int i = 0; i < 1000; ++i) ::usleep(10'000);
        ::_exit(0);
      },
      testing::ExitedWithCode(128 + SIGTERM), "");
}

struct EssayerTls : Essayer {
  void SetUp() override {
    Serveur.PrepareTls();
    Essayer::SetUp();
    Champs["ftp"] = QStringLiteral("localhost:%1").arg(Serveur.Port());
  }
};

TEST_F(EssayerTls, WhereItIsOffered) {
  EXPECT_EQ(Essaie(), 0) << Tout();
  EXPECT_EQ(Lignes.filter("AUTH: 234").size(), 1) << Tout();
  EXPECT_TRUE(Restes().isEmpty());
}

TEST_F(EssayerTls, ACertificateOfAnotherNameStopsItBeforeThePassword) {
  Champs["ftp"] = QStringLiteral("127.0.0.1:%1").arg(Serveur.Port());
  EXPECT_EQ(Essaie(), 1);
  EXPECT_TRUE(Lignes.last().contains("certificate of the server 127.0.0.1")) << Tout();
  EXPECT_TRUE(Lignes.filter("PASS").isEmpty()) << Tout();
}

}  // namespace
}  // namespace vaktor::essai
