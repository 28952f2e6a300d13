// SPDX-License-Identifier: GPL-3.0-or-later
// TLS that is required, TLS from the first byte, a folder as it was typed, and a farewell that nobody answers.
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <atomic>
#include <thread>

#include "ftp_test_server.h"
#include "modules/ftp/ftp_client.h"

namespace vaktor::essai {
namespace {

class ClientTls : public testing::Test {
 protected:
  AccesFtp Acces() const { return {"localhost", Serveur.Port(), "anna", "sesame", "/"}; }
  ClientFtp Cree() const {
    return ClientFtp({.DelaiConnexion = 20,
                      .DelaiReponse = 10,
                      .DelaiSilence = 10,
                      .FichierAutorites = Serveur.Autorite(),
                      .Cherche = {}});
  }
  static ResultatFtp Fait(ClientFtp& client, GenreTravail genre, const AccesFtp& acces) {
    TravailFtp travail;
    travail.Genre = genre;
    travail.Acces = acces;
    travail.Nom = "a.html";
    travail.Contenu = "x";
    return client.Execute(travail, {}, {});
  }

  ServeurEssai Serveur;
};

TEST_F(ClientTls, TellsWhetherItWasSpoken) {
  Serveur.Demarre();
  ClientFtp clair = Cree();
  EXPECT_FALSE(Fait(clair, GenreTravail::kConnexion, Acces()).Chiffre);
  Serveur.Arrete();
  Serveur.PrepareTls();
  Serveur.Demarre();
  ClientFtp chiffre = Cree();
  const ResultatFtp r = Fait(chiffre, GenreTravail::kConnexion, Acces());
  EXPECT_EQ(r.Issue, IssueFtp::kReussi) << r.Mots.toStdString();
  EXPECT_TRUE(r.Chiffre);
}

TEST_F(ClientTls, RequiredAndNotOfferedGetsNeitherPasswordNorPicture) {
  Serveur.Demarre();
  QByteArrayList verbes;
  ClientFtp client({.DelaiConnexion = 20,
                    .DelaiReponse = 10,
                    .DelaiSilence = 10,
                    .FichierAutorites = {},
                    .Cherche = {},
                    .Suivi = [&](const QByteArray& verbe, const QByteArray&) { verbes << verbe; }});
  AccesFtp acces = Acces();
  acces.TlsExige = true;
  const ResultatFtp r = Fait(client, GenreTravail::kConnexion, acces);
  EXPECT_EQ(r.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(r.Precision, PrecisionFtp::kTlsPerdu);
  EXPECT_FALSE(verbes.contains("USER") || verbes.contains("PASS")) << verbes.join(' ').toStdString();
}

TEST_F(ClientTls, OfAServerOfWhichNobodyKnowsWhatItSpokeItIsNotSaidThatItUsedTo) {
  Serveur.Demarre();
  ClientFtp client = Cree();
  AccesFtp acces = Acces();
  acces.TlsExige = true;
  acces.SansMemoire = "sites.json: Input/output error";
  const ResultatFtp r = Fait(client, GenreTravail::kConnexion, acces);
  EXPECT_EQ(r.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(r.Precision, PrecisionFtp::kMemoire);
  EXPECT_EQ(r.Mots, acces.SansMemoire);
}

TEST_F(ClientTls, FromTheFirstByteIsSpokenWhereThePortSaysSo) {
  Serveur.PrepareTlsImplicite();
  Serveur.Demarre();
  AccesFtp acces = Acces();
  acces.Protocole = ProtocoleFtp::kFtpImplicite;
  ClientFtp client = Cree();
  const ResultatFtp r = Fait(client, GenreTravail::kConnexion, acces);
  ASSERT_EQ(r.Issue, IssueFtp::kReussi) << r.Mots.toStdString();
  EXPECT_TRUE(r.Chiffre);
  for (int i = 0; i < 2; ++i) {
    const ResultatFtp envoi = Fait(client, GenreTravail::kPage, acces);
    EXPECT_EQ(envoi.Issue, IssueFtp::kReussi) << envoi.Mots.toStdString();
  }
  EXPECT_EQ(LitOctets(Serveur.Chemin("a.html")), "x");
}

TEST_F(ClientTls, SeveralFilesAreDeletedAtOnceAndOneThatIsGoneIsPassedOver) {
  Serveur.Demarre();
  for (const char* nom : {"a.jpg", "b.jpg", "c.jpg"}) ASSERT_TRUE(EcritOctets(Serveur.Chemin(nom), "x"));
  TravailFtp travail;
  travail.Genre = GenreTravail::kNettoie;
  travail.Acces = Acces();
  travail.Noms = QStringList{"a.jpg", "gone.jpg", "c.jpg"};
  ClientFtp client = Cree();
  EXPECT_EQ(client.Execute(travail, {}, {}).Issue, IssueFtp::kReussi);
  EXPECT_EQ(Serveur.Noms(), QStringList("b.jpg"));
}

/// Answers everything with what lets a client go on, and keeps what it was told.
class ServeurDocile {
 public:
  ServeurDocile() {
    EXPECT_TRUE(Ecoute_.listen(QHostAddress::LocalHost));
    Port = Ecoute_.serverPort();
  }
  void Sert(const std::atomic<bool>& fini) {
    if (!Ecoute_.waitForNewConnection(20'000)) return;
    QTcpSocket& prise = *Ecoute_.nextPendingConnection();
    prise.write("220 ready\r\n");
    while (!fini && prise.state() == QAbstractSocket::ConnectedState) {
      prise.waitForReadyRead(50);
      while (prise.canReadLine()) {
        const QByteArray ligne = prise.readLine().trimmed();
        Lignes << ligne;
        const QByteArray verbe = ligne.left(4).trimmed();
        prise.write(verbe == "USER"   ? "331 password\r\n"
                    : verbe == "PASS" ? "230 in\r\n"
                    : verbe == "PWD"  ? "257 \"/\"\r\n"
                    : verbe == "AUTH" ? "502 no\r\n"
                                      : "250 well\r\n");
        prise.flush();
      }
    }
  }
  quint16 Port = 0;
  QByteArrayList Lignes;

 private:
  QTcpServer Ecoute_;
};

// The network has gone away while nothing was under way: nobody answers the farewell, and nobody closes either.
TEST(Adieu, ThatNobodyAnswersIsWaitedForNoLongerThanAMoment) {
  ServeurDocile serveur;
  std::atomic<bool> connecte = false;
  std::atomic<bool> muet = false;
  qint64 duree = -1;
  std::thread fil([&] {
    auto ftp = std::make_unique<ClientFtp>(OptionsClient{});
    TravailFtp travail;
    travail.Genre = GenreTravail::kConnexion;
    travail.Acces = {"127.0.0.1", serveur.Port, "anna", "sesame", ""};
    EXPECT_EQ(ftp->Execute(travail, {}, {}).Issue, IssueFtp::kReussi);
    connecte = true;
    while (!muet) std::this_thread::yield();
    QElapsedTimer temps;
    temps.start();
    ftp.reset();
    duree = temps.elapsed();
  });
  serveur.Sert(connecte);
  muet = true;
  fil.join();
  EXPECT_LT(duree, 8'000) << "the library by itself waits for twenty seconds";
  EXPECT_GE(duree, 0);
}

TEST(DossierTape, AboveTheFolderOneArrivesInStaysWhatWasTyped) {
  for (const char* dossier : {"../www", "/../www", "a/./b"}) {
    ServeurDocile serveur;
    std::atomic<bool> fini = false;
    std::thread client([&] {
      ClientFtp ftp(
          {.DelaiConnexion = 20, .DelaiReponse = 10, .DelaiSilence = 10, .FichierAutorites = {}, .Cherche = {}});
      TravailFtp travail;
      travail.Genre = GenreTravail::kConnexion;
      travail.Acces = {"127.0.0.1", serveur.Port, "anna", "sesame", dossier};
      EXPECT_EQ(ftp.Execute(travail, {}, {}).Issue, IssueFtp::kReussi) << dossier;
      fini = true;
    });
    serveur.Sert(fini);
    client.join();
    EXPECT_TRUE(serveur.Lignes.contains(QByteArray("CWD ") + dossier)) << serveur.Lignes.join('|').toStdString();
  }
}

}  // namespace
}  // namespace vaktor::essai
