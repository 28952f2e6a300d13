// SPDX-License-Identifier: GPL-3.0-or-later
// The client for FTP over TLS: which server is trusted, and what one may ask of its connections.
#include "modules/ftp/ftp_client_bench.h"

namespace vaktor::essai {
namespace {

struct ClientTls : Client {
  void SetUp() override {
    Serveur.PrepareTls();
    Acces.Hote = "localhost";
    Options.FichierAutorites = Serveur.Autorite();
    Client::SetUp();
  }
};

TEST_F(ClientTls, TakesTlsWhenItIsOffered) {
  EXPECT_EQ(Connecte().Issue, IssueFtp::kReussi);
  EXPECT_EQ(Etapes, QStringList({"SerTR", "Paswo"}));
  for (int i = 1; i <= 3; ++i) ASSERT_EQ(Image(CreeJpeg(i)).Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(3));
}

TEST_F(ClientTls, EveryPictureArrivesWhereADataConnectionHasToResumeTheSession) {
  Serveur.Dit("resume");
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  for (int i = 1; i <= 4; ++i) {
    const ResultatFtp resultat = Image(CreeJpeg(i));
    ASSERT_EQ(resultat.Issue, IssueFtp::kReussi) << i << ' ' << resultat.Mots.toStdString();
  }
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(4));
}

struct ClientTlsNouveau : Client {
  void SetUp() override {
    Serveur.PrepareTlsNouveau();
    Acces.Hote = "localhost";
    Options.FichierAutorites = Serveur.Autorite();
    Client::SetUp();
  }
};

TEST_F(ClientTlsNouveau, AServerThatSpeaksNothingOlderIsServedAllTheSame) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  for (int i = 1; i <= 2; ++i) ASSERT_EQ(Image(CreeJpeg(i)).Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(2));
}

TEST_F(ClientTls, DoesNotLogInWhereTheCertificateIsNotTrusted) {
  Options.FichierAutorites.clear();
  Ftp = std::make_unique<ClientFtp>(Options);
  const ResultatFtp resultat = Connecte();
  EXPECT_EQ(resultat.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_TRUE(resultat.Mots.contains("certificate")) << resultat.Mots.toStdString();
  EXPECT_EQ(Etapes, QStringList("SerTR")) << "the password has not gone out";
}

TEST_F(ClientTls, DoesNotLogInWhereTheCertificateIsAnothers) {
  Acces.Hote = "127.0.0.1";
  EXPECT_EQ(Connecte().Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(Etapes, QStringList("SerTR"));
}

}  // namespace
}  // namespace vaktor::essai
