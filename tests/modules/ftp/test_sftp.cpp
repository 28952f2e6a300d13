// SPDX-License-Identifier: GPL-3.0-or-later
// Files over SSH: the client against OpenSSH's own server of files.
#include <gtest/gtest.h>
#include <signal.h>

#include <QElapsedTimer>
#include <QTcpServer>

#include "ftp_test_server.h"
#include "modules/ftp/ftp_client.h"
#include "modules/ftp/rehearsal.h"

namespace vaktor::essai {
namespace {

class Sftp : public testing::Test {
 protected:
  Sftp() { QDir(Temporaire.path()).mkpath("maison/www"); }
  void TearDown() override { Arrete(); }
  void Demarre(const char* cle = "cle") {
    Processus.start("/usr/bin/python3", {VAKTOR_SFTP_SERVER, Maison(), "--port", QString::number(Acces.Port), "--key",
                                         Temporaire.filePath(cle)});
    while (!Processus.canReadLine() && Processus.waitForReadyRead(30'000)) {
    }
    const QByteArrayList mots = Processus.readLine().trimmed().split(' ');
    ASSERT_EQ(mots.size(), 2) << Processus.readAllStandardError().toStdString();
    Acces.Port = mots[0].toUShort();
    Empreinte = QString::fromLatin1(mots[1]);
  }
  void Arrete() {
    Processus.kill();
    Processus.waitForFinished();
  }
  QString Maison() const { return Temporaire.filePath("maison"); }
  ResultatFtp Fait(GenreTravail genre, const QString& nom = {}, const QByteArray& contenu = {}) {
    TravailFtp travail;
    travail.Genre = genre;
    travail.Acces = Acces;
    travail.Nom = nom;
    travail.Contenu = contenu;
    return Client.Execute(travail, [this](EtapeFtp e) { Etapes.append(e); }, {});
  }
  ResultatFtp Connecte() { return Fait(GenreTravail::kConnexion); }

  QTemporaryDir Temporaire;
  QProcess Processus;
  QString Empreinte;
  QList<EtapeFtp> Etapes;
  AccesFtp Acces{"127.0.0.1", 0, "anna", "sesame", "www", ProtocoleFtp::kSftp};
  OptionsClient Options{
      .DelaiConnexion = 20, .DelaiReponse = 5, .DelaiSilence = 10, .FichierAutorites = {}, .Cherche = {}};
  ClientFtp Client{Options};
};

TEST_F(Sftp, PublishesUnderTheFinalNameReplacesAndDeletes) {
  Demarre();
  const ResultatFtp r = Connecte();
  ASSERT_EQ(r.Issue, IssueFtp::kReussi) << r.Mots.toStdString();
  EXPECT_EQ(r.CleHote, Empreinte);
  EXPECT_EQ(Etapes, (QList<EtapeFtp>{EtapeFtp::kServeurTrouve, EtapeFtp::kIdentification}));
  for (const char* contenu : {"one", "two"}) {
    const ResultatFtp envoi = Fait(GenreTravail::kPage, "live \"x\".html", contenu);
    ASSERT_EQ(envoi.Issue, IssueFtp::kReussi) << envoi.Mots.toStdString();
    EXPECT_EQ(LitOctets(Maison() + "/www/live \"x\".html"), contenu);
  }
  EXPECT_EQ(QDir(Maison() + "/www").entryList(QDir::Files), QStringList("live \"x\".html")) << "no provisional one";
  EXPECT_EQ(Fait(GenreTravail::kSigne).Issue, IssueFtp::kReussi);
  EXPECT_EQ(Fait(GenreTravail::kEfface, "live \"x\".html").Issue, IssueFtp::kReussi);
  EXPECT_TRUE(QDir(Maison() + "/www").entryList(QDir::Files).isEmpty());
  TravailFtp nettoyage;
  nettoyage.Genre = GenreTravail::kNettoie;
  nettoyage.Acces = Acces;
  nettoyage.Noms = QStringList{"gone.jpg", "b.jpg"};
  ASSERT_TRUE(EcritOctets(Maison() + "/www/b.jpg", "x"));
  EXPECT_EQ(Client.Execute(nettoyage, {}, {}).Issue, IssueFtp::kReussi) << "one that is gone is passed over";
  EXPECT_FALSE(QFile::exists(Maison() + "/www/b.jpg"));
}

TEST_F(Sftp, AFolderWithASlashInFrontIsThatOfTheServersRoot) {
  Demarre();
  Acces.Dossier = Maison() + "/www/";
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  ASSERT_EQ(Fait(GenreTravail::kPage, "a.html", "x").Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Maison() + "/www/a.html"), "x");
}

TEST_F(Sftp, AFolderAboveTheHomeStaysAsItWasTyped) {
  Demarre();
  QDir(Temporaire.path()).mkdir("ailleurs");
  Acces.Dossier = "../ailleurs";
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  ASSERT_EQ(Fait(GenreTravail::kPage, "a.html", "x").Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Temporaire.filePath("ailleurs/a.html")), "x");
}

TEST_F(Sftp, ToldApartAreAWrongPasswordAMissingFolderAndNoRights) {
  Demarre();
  Acces.MotDePasse = "wrong";
  EXPECT_EQ(Connecte().Issue, IssueFtp::kAccesRefuse);
  Acces.MotDePasse = "sesame";
  Acces.Dossier = "pasla";
  EXPECT_EQ(Connecte().Issue, IssueFtp::kDossierAbsent);
  Acces.Dossier = "/proc/self/fd/0/x";
  EXPECT_EQ(Connecte().Issue, IssueFtp::kDossierAbsent);
}

TEST_F(Sftp, AnotherKeyThanBeforeGetsNothing) {
  Demarre();
  Acces.CleHote = Empreinte;
  EXPECT_EQ(Connecte().Issue, IssueFtp::kReussi) << "the same";
  Arrete();
  Demarre("autre");
  const ResultatFtp r = Connecte();
  EXPECT_EQ(r.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(r.Precision, PrecisionFtp::kCleHote);
  EXPECT_EQ(r.Mots, Empreinte) << "the key that was shown";
  EXPECT_EQ(Etapes.count(EtapeFtp::kServeurTrouve), 2);
}

TEST_F(Sftp, WithoutAMemoryOfItsKeyNobodyGetsThePassword) {
  Demarre();
  Acces.SansMemoire = "sites.json: Input/output error";
  const ResultatFtp r = Connecte();
  EXPECT_EQ(r.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(r.Precision, PrecisionFtp::kMemoire);
  EXPECT_EQ(r.Mots, Acces.SansMemoire);
  EXPECT_TRUE(Etapes.isEmpty()) << "it was not even asked";
}

// The library knows no bound of its own between login and file.
TEST_F(Sftp, AServerThatFallsSilentBehindTheLoginIsGivenUp) {
  Demarre();
  Options.DelaiConnexion = 8;
  Options.DelaiReponse = 1;
  Options.DelaiSilence = 2;
  ClientFtp impatient(Options);
  TravailFtp travail;
  travail.Genre = GenreTravail::kConnexion;
  travail.Acces = Acces;
  ASSERT_EQ(impatient.Execute(travail, {}, {}).Issue, IssueFtp::kReussi);
  ::kill(static_cast<pid_t>(Processus.processId()), SIGSTOP);
  travail.Genre = GenreTravail::kPage;
  travail.Nom = "a.html";
  travail.Contenu = "x";
  QElapsedTimer depuis;
  depuis.start();
  const ResultatFtp r = impatient.Execute(travail, {}, [&depuis] { return depuis.hasExpired(60'000); });
  EXPECT_EQ(r.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(r.Precision, PrecisionFtp::kDelai);
  EXPECT_LT(depuis.elapsed(), 45'000);
}

TEST_F(Sftp, ASilentServerIsGivenUp) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Acces.Port = muet.serverPort();
  Options.DelaiConnexion = 2;
  ClientFtp impatient(Options);
  TravailFtp travail;
  travail.Genre = GenreTravail::kConnexion;
  travail.Acces = Acces;
  const ResultatFtp r = impatient.Execute(travail, {}, {});
  EXPECT_EQ(r.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(r.Precision, PrecisionFtp::kDelai);
}

TEST_F(Sftp, TheRehearsalGoesTheWholeWayAndShowsTheKey) {
  Demarre();
  QStringList lignes;
  RepetitionFtp* essai = nullptr;
  OptionsClient options = Options;
  options.Suivi = [&](const QByteArray& verbe, const QByteArray& ligne) { essai->Entend(verbe, ligne); };
  ClientFtp client(options);
  PortsRepetition ports;
  ports.Execute = [&](const TravailFtp& travail) { return client.Execute(travail, {}, {}); };
  ports.Ecrit = [&](const QString& ligne) { lignes << ligne; };
  ports.SurFichier = [](bool) {};
  ports.EstInterrompue = [] { return false; };
  ports.Marque = "m";
  RepetitionFtp repetition(ports);
  essai = &repetition;
  const QByteArray demande = "{\"ftp\":\"sftp://127.0.0.1:" + QByteArray::number(Acces.Port) +
                             "\",\"user\":\"anna\",\"pass\":\"sesame\",\"racine\":\"www\",\"langue\":1}";
  EXPECT_EQ(repetition.Joue(demande), FinRepetition::kAccepte) << lignes.join('\n').toStdString();
  EXPECT_TRUE(lignes.contains("220 SFTP, " + Empreinte)) << lignes.join('\n').toStdString();
  EXPECT_TRUE(lignes.last().contains("The live page can be published")) << lignes.last().toStdString();
  EXPECT_TRUE(QDir(Maison() + "/www").entryList(QDir::Files).isEmpty()) << "nothing is left there";
}

}  // namespace
}  // namespace vaktor::essai
