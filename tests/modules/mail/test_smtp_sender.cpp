// The sender against a real server on loopback: each way to succeed, and each way to fail with its cause and the
// server's own words.
#include <QTcpServer>
#include <QTcpSocket>

#include "modules/mail/failure_advice.h"
#include "modules/mail/mail_bench.h"
#include "modules/mail/mime_message.h"
#include "modules/mail/smtp_dialogue.h"
#include "modules/mail/smtp_sender.h"

namespace vaktor::essai {
namespace {

const Certificats& BonsCertificats() {
  static const Certificats kCertificats(QStringLiteral("127.0.0.1"));
  return kCertificats;
}

struct Sender : testing::Test {
  ServeurMail Serveur;
  QStringList Etapes;
  int Acceptes = 0;
  bool Arret = false;
  ReglagesEnvoi Reglages;
  Enveloppe Adresses{"cam@exemple.fr", {"anna@exemple.fr"}};
  QByteArray Message = ComposeMessage({.Expediteur = "cam@exemple.fr",
                                       .Destinataires = {"anna@exemple.fr"},
                                       .Sujet = "Intrusion",
                                       .Corps = ".point\r\n.\r\nfin",
                                       .Date = QDateTime::currentDateTime(),
                                       .Identifiant = "abc",
                                       .Pieces = {{"a.jpg", QByteArray(300000, 'x')}}});

  void Regle(bool login = false) {
    Reglages.Serveur = "127.0.0.1";
    Reglages.Port = Serveur.Port();
    Reglages.AvecConnexion = login;
    Reglages.Utilisateur = "anna";
    Reglages.MotDePasse = "s3cret&mot";
  }
  ResultatEnvoi Envoie() {
    return EnvoieCourriel(Reglages, Adresses, Message,
                          {[this] { return Arret; }, [this] { ++Acceptes; },
                           [this](const QString& c, const QString& r) { Etapes << c + ": " + r; }});
  }
};

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
  EXPECT_TRUE(r.MotsServeur.startsWith(QString::number(GetParam().Code)));
  EXPECT_EQ(Serveur.NombreRecus(), 0);
  EXPECT_EQ(Acceptes, 0);
}
INSTANTIATE_TEST_SUITE_P(Server, SenderRefus,
                         testing::Values(Refus{"mail550", CauseEchec::kExpediteurRefuse, 550, true},
                                         Refus{"rcpt550", CauseEchec::kDestinataireRefuse, 550, true},
                                         Refus{"rcpt450-9", CauseEchec::kDestinataireRefuse, 450, false},
                                         Refus{"data554", CauseEchec::kMessageRefuse, 554, true},
                                         Refus{"data451-9", CauseEchec::kMessageRefuse, 451, false}));

TEST_F(Sender, OneBadAddressDoesNotKeepTheMailFromTheOthers) {
  ASSERT_TRUE(Serveur.Demarre());
  Regle();
  Adresses.Destinataires = {"nobody@exemple.fr", "anna@exemple.fr"};
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte);
  EXPECT_TRUE(r.MotsServeur.contains("no such user")) << r.MotsServeur.toStdString();
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
  EXPECT_EQ(Envoie().Cause, CauseEchec::kPasDeConnexion);
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

struct Sendmail : Sender {
  QTemporaryDir Dossier;
  void Ecrit(const QByteArray& script) {
    Reglages.ParSmtp = false;
    Reglages.Sendmail = Dossier.filePath("sendmail");
    ASSERT_TRUE(EcritOctets(Reglages.Sendmail, "#!/bin/sh\ncd \"$(dirname \"$0\")\"\n" + script));
    QFile::setPermissions(Reglages.Sendmail, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
};

TEST_F(Sendmail, GetsTheMailWithTheLineEndsOfThisSystem) {
  Ecrit("printf '%s|' \"$@\" > arguments\ncat > recu\n");
  EXPECT_TRUE(Envoie().Accepte);
  EXPECT_EQ(Acceptes, 1);
  EXPECT_EQ(LitOctets(Dossier.filePath("arguments")), "-i|-f|cam@exemple.fr|--|anna@exemple.fr|");
  EXPECT_EQ(LitOctets(Dossier.filePath("recu")), QByteArray(Message).replace("\r\n", "\n"));
}

TEST_F(Sendmail, ItsOwnWordsAreTold) {
  Ecrit("cat > /dev/null\necho 'no route to mail host' >&2\nexit 75\n");
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kProgrammeEchoue);
  EXPECT_EQ(r.MotsServeur, "no route to mail host");
  EXPECT_EQ(Acceptes, 0);
}

TEST_F(Sendmail, OneThatHangsIsGivenUp) {
  Ecrit("exec sleep 3600\n");
  Reglages.Delais.FinDonnees = 500;
  EXPECT_EQ(Envoie().Cause, CauseEchec::kDelai);
}

TEST(Dialogue, AReplyOfSeveralLinesIsOne) {
  QStringList dits;
  RappelsEnvoi rappels;
  rappels.Suivi = [&](const QString& c, const QString& r) { dits << c + "=" + r; };
  DialogueSmtp d(rappels);
  d.NoteLigne("220 hello");
  d.NoteCommande("AUTH PLAIN AGFubmEAczNjcmV0");
  d.NoteLigne("535-5.7.8 Username and Password not accepted.");
  d.NoteLigne("535 5.7.8 See https://exemple.fr");
  EXPECT_EQ(dits, QStringList({"=220 hello",
                               "AUTH=535 5.7.8 Username and Password not accepted. 5.7.8 See https://exemple.fr"}));
  EXPECT_EQ(d.CauseRefus(), CauseEchec::kConnexionRefusee);
}

TEST(Dialogue, A250BeforeTheDataIsNoAcceptance) {
  int acceptes = 0;
  RappelsEnvoi rappels;
  rappels.SurAccepte = [&] { ++acceptes; };
  DialogueSmtp d(rappels);
  d.NoteCommande("MAIL FROM:<a@b>");
  d.NoteLigne("250 ok");
  d.NoteCommande("DATA");
  d.NoteLigne("250 what");
  EXPECT_FALSE(d.EstAccepte());
  d.NoteCommande("DATA");
  d.NoteLigne("354 go");
  d.NoteLigne("250 ok");
  EXPECT_TRUE(d.EstAccepte());
  d.NoteLigne("250 ok");
  EXPECT_EQ(acceptes, 1);
}

TEST(Advice, EachCauseHasOneInBothLanguages) {
  ReglagesEnvoi reglages;
  reglages.Serveur = "smtp.exemple.fr";
  for (int i = 1; i <= static_cast<int>(CauseEchec::kInterrompu); ++i) {
    const AvisEchec avis = ComposeAvis({.Cause = static_cast<CauseEchec>(i), .MotsServeur = "dit"}, reglages);
    EXPECT_TRUE(avis.Sujet.startsWith("mail-")) << i;
    EXPECT_GT(avis.Mots.Dit(Langue::kFrancais).size(), 20) << i;
    EXPECT_GT(avis.Mots.Dit(Langue::kAnglais).size(), 20) << i;
    EXPECT_NE(avis.Mots.Dit(Langue::kFrancais), avis.Mots.Dit(Langue::kAnglais));
    EXPECT_FALSE(avis.Mots.Dit(Langue::kFrancais).contains('%'));
    EXPECT_EQ(avis.MotsServeur, "dit");
  }
}

TEST(Advice, OfARehearsalPromisesNothingThatIsKept) {
  ReglagesEnvoi reglages;
  reglages.Serveur = "smtp.exemple.fr";
  for (int i = 0; i < static_cast<int>(CauseEchec::kFichier); ++i) {
    const AvisEchec avis = ComposeAvisEssai({.Cause = static_cast<CauseEchec>(i), .MotsServeur = "dit"}, reglages);
    EXPECT_GT(avis.Mots.Dit(Langue::kFrancais).size(), 20) << i;
    EXPECT_GT(avis.Mots.Dit(Langue::kAnglais).size(), 20) << i;
    for (const char* mot : {"kept", "again.", "pictures"})
      EXPECT_FALSE(avis.Mots.Dit(Langue::kAnglais).contains(mot)) << i;
    for (const char* mot : {"gardé", "de nouveau", "photos"})
      EXPECT_FALSE(avis.Mots.Dit(Langue::kFrancais).contains(QString::fromUtf8(mot))) << i;
    EXPECT_EQ(avis.Sujet, ComposeAvis({.Cause = static_cast<CauseEchec>(i)}, reglages).Sujet);
  }
}

}  // namespace
}  // namespace vaktor::essai
