// SPDX-License-Identifier: GPL-3.0-or-later
// The conversation with real servers on loopback: each way to fail, and that no visitor gets half a picture.
#include <netdb.h>
#include <unistd.h>

#include <QTcpServer>
#include <QThread>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <thread>

#include "base/jpeg_end.h"
#include "modules/ftp/ftp_client_bench.h"
#include "support/full_port.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

TEST_F(Client, ConnectsInItsSteps) {
  EXPECT_EQ(Connecte().Issue, IssueFtp::kReussi);
  EXPECT_EQ(Etapes, QStringList({"SerTR", "Paswo"}));
}

TEST_F(Client, ConnectsByName) {
  Acces.Hote = "localhost";
  EXPECT_EQ(Connecte().Issue, IssueFtp::kReussi);
}

TEST_F(Client, ARefusedLoginIsToldWithTheServersWords) {
  Acces.MotDePasse = "faux";
  const ResultatFtp resultat = Connecte();
  EXPECT_EQ(resultat.Issue, IssueFtp::kAccesRefuse);
  EXPECT_TRUE(resultat.Mots.startsWith("530 ")) << resultat.Mots.toStdString();
  EXPECT_EQ(Etapes, QStringList({"SerTR", "Paswo"}));
}

TEST_F(Client, AServerThatStumblesBehindTheRightPasswordIsNotAWrongPassword) {
  Serveur.Dit("oops");
  const ResultatFtp resultat = Connecte();
  EXPECT_EQ(resultat.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_TRUE(resultat.Mots.startsWith("500 OOPS")) << resultat.Mots.toStdString();
}

// It would be asked by HTTP, with the password in the clear in the question.
TEST_F(Client, AProxyOfTheSurroundingsIsNotAsked) {
  QTcpServer proxy;
  ASSERT_TRUE(proxy.listen(QHostAddress::LocalHost));
  const QByteArray adresse = "http://127.0.0.1:" + QByteArray::number(proxy.serverPort());
  for (const char* nom : {"ftp_proxy", "all_proxy"}) qputenv(nom, adresse);
  const ResultatFtp resultat = Connecte();
  for (const char* nom : {"ftp_proxy", "all_proxy"}) qunsetenv(nom);
  EXPECT_EQ(resultat.Issue, IssueFtp::kReussi);
  EXPECT_FALSE(proxy.waitForNewConnection(0));
}

TEST_F(Client, AMissingFolderIsTold) {
  Acces.Dossier = "/pas/la";
  const ResultatFtp resultat = Connecte();
  EXPECT_EQ(resultat.Issue, IssueFtp::kDossierAbsent);
  EXPECT_TRUE(resultat.Mots.startsWith("550 ")) << resultat.Mots.toStdString();
}

TEST_F(Client, AnUnknownNameAndNoNetworkAreTwoThings) {
  Acces.Hote = "ftp.exemple.invalid";
  for (const auto& [code, issue] :
       {std::pair(EAI_NONAME, IssueFtp::kServeurInconnu), std::pair(EAI_FAIL, IssueFtp::kServeurInconnu),
        std::pair(EAI_AGAIN, IssueFtp::kSansReseau)}) {
    Options.Cherche = [code = code](const QString&) { return code; };
    Ftp = std::make_unique<ClientFtp>(Options);
    EXPECT_EQ(Connecte().Issue, issue);
    EXPECT_TRUE(Etapes.isEmpty());
  }
}

TEST_F(Client, LoopbackNeedsNoLookUp) {
  Options.Cherche = [](const QString&) { return EAI_AGAIN; };
  Ftp = std::make_unique<ClientFtp>(Options);
  for (const char* hote : {"127.0.0.1", "localhost", "LOCALHOST"}) {
    Acces.Hote = hote;
    EXPECT_EQ(Connecte().Issue, IssueFtp::kReussi) << hote;
  }
}

TEST_F(Client, APortWhereNobodyAnswersIsAFailedConnection) {
  Serveur.Arrete();
  const ResultatFtp resultat = Connecte();
  EXPECT_EQ(resultat.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_TRUE(resultat.Mots.contains(QString::number(Acces.Port))) << resultat.Mots.toStdString();
  EXPECT_TRUE(Etapes.isEmpty());
}

// A port whose queue of connections is full: the system answers nothing at all.
TEST_F(Client, AServerThatDoesNotTakeTheConnectionIsGivenUp) {
  const PortPlein plein;
  ASSERT_NE(plein.Port(), 0);
  Acces.Port = plein.Port();
  Options.DelaiConnexion = 1;
  Ftp = std::make_unique<ClientFtp>(Options);
  EXPECT_EQ(Connecte().Issue, IssueFtp::kPasDeConnexion);
}

TEST_F(Client, ConnectingAgainIsANewConnectionAndNotOneMore) {
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Connecte().Issue, IssueFtp::kReussi);
    EXPECT_EQ(Etapes, QStringList({"SerTR", "Paswo"})) << i;
    EXPECT_EQ(Prises().size(), 1) << i;
  }
}

TEST_F(Client, TheSystemLooksAfterAConnectionThatSaysNothing) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  ASSERT_EQ(Prises().size(), 1);
  int veille = 0;
  socklen_t taille = sizeof veille;
  ASSERT_EQ(::getsockopt(Prises().first(), SOL_SOCKET, SO_KEEPALIVE, &veille, &taille), 0);
  EXPECT_EQ(veille, 1);
}

// Many a host lets its guests into the folder and not into those above it.
TEST_F(Client, AFolderIsEnteredInOneStep) {
  QDir(Serveur.Dossier()).mkpath("a/b/c");
  Acces.Dossier = "/a/b/c";
  int pas = 0;
  Options.Suivi = [&pas](const QByteArray& verbe, const QByteArray&) { pas += verbe == "CWD" ? 1 : 0; };
  Ftp = std::make_unique<ClientFtp>(Options);
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  EXPECT_EQ(pas, 1);
}

bool EstIgnore() {
  struct sigaction action {};
  ::sigaction(SIGPIPE, nullptr, &action);
  return action.sa_handler == SIG_IGN;
}

// The disposition of a signal belongs to the whole program: another thread may be starting something at that moment.
TEST_F(Client, TheSignalsOfTheProgramAreLeftAlone) {
  Serveur.Dit("slowquit");  // first: the toolkit's way to its processes ignores the signal for good
  const auto avant = std::signal(SIGPIPE, SIG_DFL);
  bool ignore = false;
  Options.Suivi = [&ignore](const QByteArray&, const QByteArray&) { ignore |= EstIgnore(); };
  Ftp = std::make_unique<ClientFtp>(Options);
  EXPECT_EQ(Image(CreeJpeg(1)).Issue, IssueFtp::kReussi);
  EXPECT_FALSE(ignore);
  std::atomic_bool fini = false;
  std::atomic_bool adieu = false;
  std::thread guetteur([&] {
    while (!fini) {
      if (EstIgnore()) adieu = true;
      QThread::msleep(5);
    }
  });
  Ftp->Ferme();
  fini = true;
  guetteur.join();
  std::signal(SIGPIPE, avant);
  EXPECT_FALSE(adieu) << "nor by the farewell";
}

TEST_F(Client, AServerThatIsNoFtpServerIsAFailedConnection) {
  QTcpServer muet;  // takes the connection and never says a word
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Acces.Port = muet.serverPort();
  EXPECT_EQ(Connecte().Issue, IssueFtp::kPasDeConnexion);
  EXPECT_TRUE(Etapes.isEmpty());
}

TEST_F(Client, AServerWithTooManyGuestsIsAFailedConnectionAndNoRefusedLogin) {
  Serveur.Dit("busy");
  EXPECT_EQ(Connecte().Issue, IssueFtp::kPasDeConnexion);
}

TEST_F(Client, ALoginThatFindsNoPlaceIsNoWrongPassword) {
  Serveur.Dit("guests");
  EXPECT_EQ(Connecte().Issue, IssueFtp::kPasDeConnexion);
}

TEST_F(Client, ADataConnectionThatTheServerCannotMakeIsNoRefusedPicture) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  Serveur.Dit("channel");
  EXPECT_EQ(Image(CreeJpeg(1)).Issue, IssueFtp::kPasDeConnexion);
}

TEST_F(Client, PublishesUnderTheFinalNameAndLeavesNothingElse) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  const QByteArray image = CreeJpeg(1);
  ASSERT_EQ(Image(image).Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), image);
  EXPECT_EQ(Serveur.Noms(), QStringList("live.jpg"));
  ASSERT_EQ(Image(CreeJpeg(2)).Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(2)) << "over the old one";
}

TEST_F(Client, NamesAreSentAsTheyAre) {
  const QString nom = QString::fromUtf8("2026-11-15  14-05-09 Photo 00001 %41#?é&.jpg");
  ASSERT_EQ(Page("x", nom).Issue, IssueFtp::kReussi);
  EXPECT_EQ(Serveur.Noms(), QStringList(nom));
}

TEST_F(Client, FoldersAbsoluteRelativeAndWithBackslashes) {
  QDir(Serveur.Dossier()).mkpath("www/ma camera");
  for (const char* dossier : {"/www/ma camera", "www/ma camera/", "\\www\\ma camera\\"}) {
    Acces.Dossier = dossier;
    ASSERT_EQ(Page(dossier).Issue, IssueFtp::kReussi) << dossier;
    EXPECT_EQ(LitOctets(Serveur.Chemin("www/ma camera/live.html")), dossier);
  }
  Acces.Dossier = "";
  ASSERT_EQ(Page("ici").Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.html")), "ici");
}

TEST_F(Client, AServerThatDoesNotRenameOverAFileIsLearnt) {
  Serveur.Dit("norename");
  for (int i = 1; i <= 3; ++i) {
    ASSERT_EQ(Image(CreeJpeg(i)).Issue, IssueFtp::kReussi) << i;
    EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(i));
  }
  EXPECT_EQ(Serveur.Noms(), QStringList("live.jpg"));
  EXPECT_EQ(Page("photo", "first.jpg").Issue, IssueFtp::kReussi) << "nothing to delete in its place";
}

// In between a visitor would find nothing.
TEST_F(Client, AnOldPictureIsDeletedOnlyForAServerThatWantsIt) {
  int effaces = 0;
  Options.Suivi = [&effaces](const QByteArray& verbe, const QByteArray&) { effaces += verbe == "DELE" ? 1 : 0; };
  Ftp = std::make_unique<ClientFtp>(Options);
  for (int i = 1; i <= 2; ++i) ASSERT_EQ(Image(CreeJpeg(i)).Issue, IssueFtp::kReussi);
  EXPECT_EQ(effaces, 0);
  Serveur.Dit("norename");
  ASSERT_EQ(Image(CreeJpeg(3)).Issue, IssueFtp::kReussi);
  EXPECT_EQ(effaces, 1);
  ServeurEssai autre;
  autre.Demarre();
  Acces.Port = autre.Port();
  for (int i = 1; i <= 2; ++i) ASSERT_EQ(Image(CreeJpeg(i)).Issue, IssueFtp::kReussi);
  EXPECT_EQ(effaces, 1) << "what one cannot is not expected of the next";
}

TEST_F(Client, AFullServerRefusesWithItsWordsAndKeepsTheOldPicture) {
  ASSERT_EQ(Image(CreeJpeg(1)).Issue, IssueFtp::kReussi);
  Serveur.Dit("full");
  const ResultatFtp resultat = Image(CreeJpeg(2));
  EXPECT_EQ(resultat.Issue, IssueFtp::kRefus);
  EXPECT_TRUE(resultat.Mots.startsWith("552 Quota exceeded")) << resultat.Mots.toStdString();
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(1));
  Serveur.Dit("normal");
  EXPECT_EQ(Image(CreeJpeg(3)).Issue, IssueFtp::kReussi);
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(3));
}

TEST_F(Client, AFolderThatMayNotBeWrittenRefuses) {
  Serveur.Dit("nowrite");
  EXPECT_EQ(Image(CreeJpeg(1)).Issue, IssueFtp::kRefus);
  EXPECT_TRUE(Serveur.Noms().isEmpty());
}

TEST_F(Client, AConnectionCutInMidTransferKeepsTheOldPicture) {
  ASSERT_EQ(Image(CreeJpeg(1)).Issue, IssueFtp::kReussi);
  Serveur.Dit("cut 5000");
  EXPECT_EQ(Image(CreeJpeg(2, 1500)).Issue, IssueFtp::kPasDeConnexion);
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(1));
  EXPECT_EQ(Image(CreeJpeg(3)).Issue, IssueFtp::kReussi) << "the next one makes its own connection";
  EXPECT_EQ(LitOctets(Serveur.Chemin("live.jpg")), CreeJpeg(3));
  EXPECT_EQ(Serveur.Noms(), QStringList("live.jpg")) << "what the cut left behind was used up";
}

TEST_F(Client, ATransferThatFallsSilentIsGivenUp) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  Serveur.Dit("silent");
  EXPECT_EQ(Image(CreeJpeg(2, 2500)).Issue, IssueFtp::kPasDeConnexion);
  EXPECT_FALSE(QFile::exists(Serveur.Chemin("live.jpg")));
}

TEST_F(Client, AServerThatAnswersNoCommandAnyMoreIsGivenUp) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  Serveur.Dit("dumb");
  EXPECT_EQ(Signe().Issue, IssueFtp::kPasDeConnexion);
}

TEST_F(Client, ASilentTransferCanBeStoppedAtOnce) {
  Options.DelaiSilence = Options.DelaiReponse = 25;  // that nobody asks has to be told within the patience of a test
  Ftp = std::make_unique<ClientFtp>(Options);
  Serveur.Dit("silent");
  EcritOctets(Ici.filePath("Live.jpg"), CreeJpeg(2, 2500));
  std::atomic_int demandes = 0;
  const ResultatFtp resultat = Ftp->Execute({.Genre = GenreTravail::kFichier,
                                             .Acces = Acces,
                                             .Source = Ici.filePath("Live.jpg"),
                                             .Contenu = {},
                                             .Nom = "live.jpg"},
                                            {}, [&] { return ++demandes > 20; });
  EXPECT_EQ(resultat.Issue, IssueFtp::kPasDeConnexion);
  EXPECT_GT(demandes, 20) << "nobody asked whether it is still wanted";
}

TEST_F(Client, TheConnectionIsKeptAndASignOfLifeTellsWhenItIsGone) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  Etapes.clear();
  EXPECT_EQ(Signe().Issue, IssueFtp::kReussi);
  EXPECT_EQ(Image(CreeJpeg(1)).Issue, IssueFtp::kReussi);
  Serveur.Dit("login");
  EXPECT_EQ(Image(CreeJpeg(2)).Issue, IssueFtp::kReussi) << "no second login";
  Serveur.Arrete();
  EXPECT_EQ(Signe().Issue, IssueFtp::kPasDeConnexion);
  Serveur.Demarre();
  EXPECT_EQ(Connecte().Issue, IssueFtp::kReussi);
  EXPECT_EQ(Image(CreeJpeg(3)).Issue, IssueFtp::kReussi);
}

TEST_F(Client, APictureThatIsNotWholeIsNotSent) {
  const QByteArray image = CreeJpeg(1);
  for (const QByteArray& octets : {QByteArray(), image.left(image.size() / 2), image.left(image.size() - 1)}) {
    EXPECT_EQ(Image(octets).Issue, IssueFtp::kSourceIncomplete);
    EXPECT_TRUE(Serveur.Noms().isEmpty());
  }
  const TravailFtp absente{
      .Genre = GenreTravail::kFichier, .Acces = {}, .Source = "/pas/la.jpg", .Contenu = {}, .Nom = "live.jpg"};
  EXPECT_EQ(Fait(absente).Issue, IssueFtp::kSourceIncomplete) << "gone, and nothing is wrong with the disk";
  EXPECT_TRUE(Serveur.Noms().isEmpty());
}

TEST_F(Client, APictureThatCannotBeReadAtTheMomentIsToldApartFromOneThatIsNone) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  ASSERT_EQ(Image(CreeJpeg(1)).Issue, IssueFtp::kReussi);
  TravailFtp travail;
  travail.Genre = GenreTravail::kFichier;
  travail.Source = Ici.filePath("Live.jpg");
  travail.Nom = "live.jpg";
  {
    const SansDescripteur sans;
    const ResultatFtp r = Fait(travail);
    EXPECT_EQ(r.Issue, IssueFtp::kSourceIllisible);
    EXPECT_EQ(r.Mots, QString::fromLocal8Bit(std::strerror(EMFILE)));
  }
  EXPECT_EQ(Fait(travail).Issue, IssueFtp::kReussi);
}

TEST_F(Client, NoVisitorEverLoadsHalfAPicture) {
  ASSERT_EQ(Connecte().Issue, IssueFtp::kReussi);
  const QList<QByteArray> images = {CreeJpeg(1, 700), CreeJpeg(2, 600), CreeJpeg(3, 650)};
  ASSERT_EQ(Image(images[0]).Issue, IssueFtp::kReussi);
  std::atomic_bool fini = false;
  std::atomic_int lus = 0, mauvais = 0, changements = 0;
  std::thread visiteur([&] {
    QByteArray avant;
    while (!fini) {
      const QByteArray vue = LitOctets(Serveur.Chemin("live.jpg"));
      ++lus;
      QThread::usleep(200);
      if (!images.contains(vue)) ++mauvais;
      if (vue != avant) ++changements;
      avant = vue;
    }
  });
  // The main program, rewriting the image without a lock while it is read.
  std::atomic_bool ecrit = true;
  std::thread principal([&] {
    for (int i = 0; ecrit; ++i) {
      EcritOctets(Ici.filePath("Live.jpg"), images[i % 3]);
      QThread::msleep(7);
    }
  });
  int reussis = 0;
  for (int i = 0; i < 40; ++i)
    reussis += Fait({.Genre = GenreTravail::kFichier,
                     .Acces = {},
                     .Source = Ici.filePath("Live.jpg"),
                     .Contenu = {},
                     .Nom = "live.jpg"})
                   .Issue == IssueFtp::kReussi;
  ecrit = false;
  principal.join();
  fini = true;
  visiteur.join();
  EXPECT_EQ(mauvais, 0);
  EXPECT_GT(reussis, 20);
  EXPECT_GT(changements, 3) << "the test has to see the picture change";
  std::printf("uploads %d, reads %d, halves %d, changes seen %d\n", reussis, lus.load(), mauvais.load(),
              changements.load());
}

}  // namespace
}  // namespace vaktor::essai
