// SPDX-License-Identifier: GPL-3.0-or-later
// The sender against a real server on loopback: each way to succeed, and each way to fail with its cause and the
// server's own words.
#include <QTcpServer>
#include <QTcpSocket>
#include <csignal>

#include "modules/mail/sender_bench.h"
#include "support/full_port.h"
#include "support/inherited_files.h"
#include "support/mute_names.h"

namespace vaktor::essai {
namespace {

TEST_F(Sender, APlainServerTakesTheMailByteForByte) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
  EXPECT_EQ(Acceptes, 1);
  ASSERT_EQ(Serveur.NombreRecus(), 1);
  EXPECT_EQ(Serveur.Message(), Message);
  EXPECT_EQ(Serveur.Enveloppe().value("from").toString(), "cam@exemple.fr");
  EXPECT_FALSE(Serveur.Enveloppe().value("tls").toBool());
  EXPECT_TRUE(Serveur.Enveloppe().value("options").toArray().contains("SIZE=" + QString::number(Message.size())))
      << "one that is too large is refused before it travels";
  EXPECT_EQ(Etapes.last(), "DATA: 250 2.0.0 taken");
}

TEST_F(Sender, StarttlsIsUsedWhenItIsOffered) {
  ASSERT_TRUE(Serveur.Demarre(QStringList("--starttls") + BonsCertificats().Paire()));
  Regle();
  Reglages.FichierAutorites = BonsCertificats().Autorite();
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
  EXPECT_TRUE(Serveur.Enveloppe().value("tls").toBool());
}

TEST_F(Sender, WhereTlsIsAskedForAServerWithoutItGetsNeitherMailNorPassword) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "s3cret&mot"}));
  Regle(true);
  Reglages.TlsExige = true;
  const ResultatEnvoi r = Envoie();
  EXPECT_FALSE(r.Accepte);
  EXPECT_EQ(r.Cause, CauseEchec::kSansTls);
  EXPECT_FALSE(r.Definitif) << "the mail waits for other settings";
  EXPECT_EQ(Serveur.NombreRecus(), 0);
  for (const QString& etape : Etapes) EXPECT_FALSE(etape.startsWith("AUTH")) << etape.toStdString();
  Reglages.TlsExige = false;
  const ResultatEnvoi sans = Envoie();
  EXPECT_TRUE(sans.Accepte) << sans.MotsServeur.toStdString();
  EXPECT_FALSE(sans.Chiffre);
}

TEST_F(Sender, WhereTlsIsAskedForAServerThatOffersItGetsTheMail) {
  ASSERT_TRUE(Serveur.Demarre(QStringList("--starttls") + BonsCertificats().Paire() +
                              QStringList{"--login", "anna", "s3cret&mot"}));
  Regle(true);
  Reglages.TlsExige = true;
  Reglages.FichierAutorites = BonsCertificats().Autorite();
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
  EXPECT_TRUE(r.Chiffre);
}

TEST_F(Sender, TlsFromTheStartAndLogin) {
  ASSERT_TRUE(
      Serveur.Demarre(QStringList("--tls") + BonsCertificats().Paire() + QStringList{"--login", "anna", "s3cret&mot"}));
  Regle(true);
  Reglages.TlsDesLeDebut = true;
  Reglages.FichierAutorites = BonsCertificats().Autorite();
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
  EXPECT_EQ(Serveur.Enveloppe().value("user").toString(), "anna");
  EXPECT_TRUE(Serveur.Enveloppe().value("tls").toBool());
}

TEST_F(Sender, ACertificateThatNobodyVouchesForIsRefusedAndThePasswordStaysHere) {
  ASSERT_TRUE(Serveur.Demarre(QStringList("--starttls") + BonsCertificats().Paire()));
  Regle(true);
  const ResultatEnvoi r = Envoie();
  EXPECT_FALSE(r.Accepte);
  EXPECT_EQ(r.Cause, CauseEchec::kCertificat);
  EXPECT_FALSE(r.Definitif);
  EXPECT_TRUE(r.MotsServeur.contains("certificate")) << r.MotsServeur.toStdString();
  EXPECT_TRUE(Etapes.filter("AUTH: ").isEmpty()) << Etapes.join('|').toStdString();
}

TEST_F(Sender, ACertificateOfAnotherNameIsRefused) {
  const Certificats autres(QStringLiteral("mail.exemple.fr"));
  ASSERT_TRUE(Serveur.Demarre(QStringList("--tls") + autres.Paire()));
  Regle();
  Reglages.TlsDesLeDebut = true;
  Reglages.FichierAutorites = autres.Autorite();
  EXPECT_EQ(Envoie().Cause, CauseEchec::kCertificat);
}

TEST_F(Sender, ARefusedLoginIsToldInTheServersWordsAndIsNotForGood) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "autre"}));
  Regle(true);
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kConnexionRefusee);
  EXPECT_EQ(r.Code, 535);
  EXPECT_TRUE(r.MotsServeur.startsWith("535 5.7.8 wrong")) << r.MotsServeur.toStdString();
  EXPECT_FALSE(r.Definitif);
}

TEST_F(Sender, AServerThatWantsALoginIsToldApart) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "autre"}));
  Regle();
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kConnexionDemandee) << r.MotsServeur.toStdString();
  EXPECT_FALSE(r.Definitif);
}

struct Refus {
  const char* Mode;
  CauseEchec Cause;
  int Code;
  bool Definitif;
};
struct SenderRefus : Sender, testing::WithParamInterface<Refus> {};

TEST_P(SenderRefus, IsToldByTheCommandThatWasRefused) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", GetParam().Mode}));
  Regle();
  const ResultatEnvoi r = Envoie();
  EXPECT_FALSE(r.Accepte);
  EXPECT_EQ(r.Cause, GetParam().Cause) << r.MotsServeur.toStdString();
  EXPECT_EQ(r.Code, GetParam().Code);
  EXPECT_EQ(r.Definitif, GetParam().Definitif);
  EXPECT_TRUE(r.DuCourriel);
  EXPECT_EQ(r.TropGros, GetParam().Cause == CauseEchec::kTropGros);
  EXPECT_TRUE(r.MotsServeur.startsWith(QString::number(GetParam().Code)));
  EXPECT_EQ(Serveur.NombreRecus(), 0);
  EXPECT_EQ(Acceptes, 0);
}
INSTANTIATE_TEST_SUITE_P(Server, SenderRefus,
                         testing::Values(Refus{"mail550", CauseEchec::kExpediteurRefuse, 550, true},
                                         Refus{"rcpt550", CauseEchec::kDestinataireRefuse, 550, true},
                                         Refus{"rcpt450-9", CauseEchec::kReporte, 450, false},
                                         Refus{"data554", CauseEchec::kMessageRefuse, 554, true},
                                         Refus{"data451-9", CauseEchec::kReporte, 451, false},
                                         Refus{"mailsize-1000", CauseEchec::kTropGros, 552, true},
                                         Refus{"size-1000", CauseEchec::kTropGros, 552, true}));

TEST_F(Sender, OneBadAddressDoesNotKeepTheMailFromTheOthers) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  Adresses.Destinataires = {"nobody@exemple.fr", "anna@exemple.fr"};
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte);
  EXPECT_TRUE(r.MotsServeur.contains("no such user")) << r.MotsServeur.toStdString();
  ASSERT_EQ(r.Verdicts.size(), 2);
  EXPECT_EQ(r.Verdicts[0].Adresse, "nobody@exemple.fr");
  EXPECT_EQ(r.Verdicts[0].Code, 550);
  EXPECT_EQ(r.Verdicts[1].Code, 250);
  EXPECT_EQ(Serveur.Enveloppe().value("to").toArray(), QJsonArray{"anna@exemple.fr"});
}

TEST_F(Sender, AServerThatHangsAtTheEndIsGivenUp) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "hang-data"}));
  Regle();
  Reglages.Delais.FinDonnees = 1500;
  const ResultatEnvoi r = Envoie();
  EXPECT_FALSE(r.Accepte);
  EXPECT_EQ(r.Cause, CauseEchec::kDelai);
}

TEST_F(Sender, AServerMayTakeItsTimeAtTheEndOfTheDataAndThereAlone) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "slow-data"}));
  Regle();
  Reglages.Delais.Reponse = 1500;
  Reglages.Delais.FinDonnees = 60'000;
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
}

TEST_F(Sender, OurEndWaitsForTheAnswerToDataThatTheServerHas) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "slow-data"}));
  Regle();
  Reglages.Delais.Grace = 60'000;
  const ResultatEnvoi r = EnvoieEtFinit();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
}

TEST_F(Sender, OurEndDoesNotWaitForThatForEver) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "hang-data"}));
  Regle();
  Reglages.Delais.Grace = 500;
  Reglages.Delais.FinDonnees = 25'000;  // else one that waits for ever would not be told before minutes
  QElapsedTimer depuis;
  depuis.start();
  const ResultatEnvoi r = EnvoieEtFinit();
  EXPECT_EQ(r.Cause, CauseEchec::kInterrompu);
  EXPECT_LT(depuis.elapsed(), 20'000);
}

TEST_F(Sender, AServerThatDoesNotSayGoodbyeHoldsUpNothing) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "no-goodbye"}));
  Regle();
  Reglages.Delais.FinDonnees = 40'000;
  Reglages.Delais.Grace = 500;
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_TRUE(Envoie().Accepte);
  EXPECT_LT(depuis.elapsed(), 20'000);
}

// A port whose queue of connections is full: the system answers nothing at all.
TEST_F(Sender, AServerThatDoesNotTakeTheConnectionIsGivenUp) {
  const PortPlein plein;
  ASSERT_NE(plein.Port(), 0);
  Regle();
  Reglages.Port = plein.Port();
  Reglages.Delais.Connexion = 1000;
  Reglages.Delais.Reponse = 30'000;
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_EQ(Envoie().Cause, CauseEchec::kPasDeConnexion);
  EXPECT_LT(depuis.elapsed(), 20'000);
}

TEST_F(Sender, ANameServerThatHangsDoesNotHoldUpOurEnd) {
  const SilenceDesNoms silence;
  Regle();
  Reglages.Serveur = "hangs.example";
  Reglages.Port = 25;
  QElapsedTimer depuis;
  depuis.start();
  const RappelsEnvoi rappels{[&depuis] { return depuis.hasExpired(300); }, {}, {}};
  EXPECT_EQ(EnvoieCourriel(Reglages, Adresses, Message, rappels).Cause, CauseEchec::kInterrompu);
  EXPECT_TRUE(silence.Dure()) << "back before the name server was";
}

// The disposition of a signal belongs to the whole program: another thread may be starting something at that moment.
TEST_F(Sender, TheSignalsOfTheProgramAreLeftAlone) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  const auto avant = std::signal(SIGPIPE, SIG_DFL);
  bool ignore = false;
  EnvoieCourriel(Reglages, Adresses, Message, {{}, {}, [&ignore](const QString&, const QString&) {
                                                 struct sigaction action {};
                                                 ::sigaction(SIGPIPE, nullptr, &action);
                                                 ignore |= action.sa_handler == SIG_IGN;
                                               }});
  std::signal(SIGPIPE, avant);
  EXPECT_FALSE(ignore);
}

TEST_F(Sender, AnEncryptedConnectionThatIsCutInTheDataDoesNotEndTheProgram) {
  ASSERT_TRUE(
      Serveur.Demarre(QStringList("--starttls") + BonsCertificats().Paire() + QStringList{"--mode", "cut-data"}));
  Regle();
  Reglages.FichierAutorites = BonsCertificats().Autorite();
  Message.append(QByteArray(20'000'000, 'x'));
  const auto avant = std::signal(SIGPIPE, SIG_DFL);
  const ResultatEnvoi r = Envoie();
  std::signal(SIGPIPE, avant);
  EXPECT_EQ(r.Cause, CauseEchec::kCoupure) << r.MotsServeur.toStdString();
}

TEST_F(Sender, AServerThatNeverGreetsIsGivenUp) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Regle();
  Reglages.Port = muet.serverPort();
  Reglages.Delais.Reponse = 1500;
  EXPECT_EQ(Envoie().Cause, CauseEchec::kPasDeConnexion);
}

TEST_F(Sender, OurOwnEndInterruptsAServerThatHangs) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Regle();
  Reglages.Port = muet.serverPort();
  Arret = true;
  EXPECT_EQ(Envoie().Cause, CauseEchec::kInterrompu);
}

TEST_F(Sender, AConnectionCutInTheDataIsAFailure) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "cut-data"}));
  Regle();
  const ResultatEnvoi r = Envoie();
  EXPECT_FALSE(r.Accepte);
  EXPECT_EQ(r.Cause, CauseEchec::kCoupure);
  EXPECT_TRUE(r.DuCourriel);
}

TEST_F(Sender, ACutIsToldAsSuchThoughAnAddressWasRefusedBefore) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  Adresses.Destinataires = {"grey@exemple.fr", "cut@exemple.fr"};
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kCoupure);
  EXPECT_EQ(r.Code, 0);
  EXPECT_FALSE(r.Definitif);
  EXPECT_TRUE(r.DuCourriel);
}

TEST_F(Sender, OneAddressThatIsPutOffAndOneThatIsRefusedAreNotForGood) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  Adresses.Destinataires = {"grey@exemple.fr", "nobody@exemple.fr"};
  EXPECT_FALSE(Envoie().Definitif);
  Adresses.Destinataires = {"nobody@exemple.fr", "nobody@exemple.org"};
  EXPECT_TRUE(Envoie().Definitif);
}

TEST_F(Sender, AServerThatTakesLeaveAtAnAddressSaysNothingOfTheMail) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "rcpt421"}));
  Regle();
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kServeurRefuse) << r.MotsServeur.toStdString();
  EXPECT_FALSE(r.DuCourriel);
}

TEST_F(Sender, ProgramsThatAreStartedMeanwhileDoNotInheritTheConversation) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  QByteArray herites;
  EnvoieCourriel(Reglages, Adresses, Message, {{}, {}, [&herites](const QString& c, const QString&) {
                                                 if (c == "MAIL") herites = LitHerites();
                                               }});
  EXPECT_TRUE(herites.contains("->")) << herites.constData();
  // The library's own pairs of sockets lead nowhere; a conversation stands in the table of the system.
  for (const QByteArray& ligne : LitOctets("/proc/self/net/tcp").split('\n')) {
    const QByteArray numero = ligne.simplified().split(' ').value(9);
    if (numero.toLongLong() <= 0) continue;
    EXPECT_FALSE(herites.contains("socket:[" + numero + "]")) << ligne.constData();
  }
}

TEST_F(Sender, AConnectionThatBreaksBehindTheAcceptanceIsASuccess) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "drop-after"}));
  Regle();
  EXPECT_TRUE(Envoie().Accepte);
  EXPECT_EQ(Acceptes, 1);
}

TEST_F(Sender, AServerThatIsGoneIsTold) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  Serveur.Arrete();
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kPasDeConnexion);
  EXPECT_TRUE(r.MotsServeur.contains(QString::number(Reglages.Port))) << r.MotsServeur.toStdString();
}

TEST_F(Sender, AServerThatIsNoNameIsTold) {
  Regle();
  Reglages.Port = 25;
  for (const char* nom : {"serveur.invalid", "a\r\nRCPT TO:<x@y>", "a b", "x/y", "u@h", "h:99:1"}) {
    Reglages.Serveur = QString::fromUtf8(nom);
    EXPECT_EQ(Envoie().Cause, CauseEchec::kServeurIntrouvable) << nom;
  }
}

TEST_F(Sender, WhatIsMissingIsToldBeforeAnyConnection) {
  Regle();
  EXPECT_EQ(Envoie().Cause, CauseEchec::kPortMauvais);
  Reglages.Port = 1;
  Reglages.AvecConnexion = true;
  Reglages.MotDePasse.clear();
  EXPECT_EQ(Envoie().Cause, CauseEchec::kConnexionIncomplete);
  Adresses.Expediteur.clear();
  EXPECT_EQ(Envoie().Cause, CauseEchec::kIncomplet);
  EXPECT_TRUE(Envoie().DuCourriel) << "others may have a sender";
  Reglages.Serveur.clear();
  EXPECT_EQ(Envoie().Cause, CauseEchec::kIncomplet);
  EXPECT_FALSE(Envoie().DuCourriel) << "without a server no mail leaves";
  Reglages.ParSmtp = false;
  EXPECT_EQ(Envoie().Cause, CauseEchec::kProgrammeAbsent);
}

TEST_F(Sender, LineBreaksInUserAndPasswordAddNoCommand) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "autre"}));
  Regle(true);
  Reglages.Utilisateur = "anna\r\nMAIL FROM:<evil@x>";
  Reglages.MotDePasse = "x\r\nRCPT TO:<evil@x>";
  EXPECT_EQ(Envoie().Cause, CauseEchec::kConnexionRefusee);
  EXPECT_FALSE(Etapes.join('|').contains("RCPT"));
}

}  // namespace
}  // namespace vaktor::essai
