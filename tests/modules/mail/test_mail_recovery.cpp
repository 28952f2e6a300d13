// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox and its postman against a real server that fails first: every failure that passes ends in one mail, once.
// The waits in between are virtual time.

#include "modules/mail/mail_bench.h"
#include "modules/mail/mail_maker.h"
#include "modules/mail/mime_message.h"
#include "modules/mail/postman.h"
#include "modules/mail/smtp_sender.h"

namespace vaktor::essai {
namespace {

constexpr qint64 kMinute = 60LL * 1000;

struct Reprise : testing::Test {
  QTemporaryDir Temporaire;
  ServeurMail Serveur;
  ReglagesEnvoi Reglages;
  SacPostal Sac{Temporaire.path()};
  PlafondHoraire Plafond;
  qint64 Maintenant = 1'000'000'000'000;
  QList<CauseEchec> Causes;  // of each attempt
  Facteur Poste{Sac, Plafond, [this] { return Maintenant; },
                [this](const CourrielEnAttente& c, const QByteArray& message,
                       const std::function<void(const QList<VerdictAdresse>&)>& surAccepte) {
                  Reglages.Port = Serveur.Port();
                  const CourrielPret pret = PrepareEnvoi(c, message, Reglages);
                  return EnvoieCourriel(Reglages, pret.Adresses, pret.Message, {{}, surAccepte, {}});
                },
                [this](const RapportEnvoi& r) { Causes << r.Resultat.Cause; }};

  Reprise() {
    Reglages.Serveur = "127.0.0.1";
    Reglages.Utilisateur = "anna";
    Reglages.MotDePasse = "s3cret&mot";
  }
  void Depose(const QString& nom = "a", const QStringList& pour = {"anna@exemple.fr"},
              const QString& de = "cam@exemple.fr") {
    CourrielEnAttente c;
    c.Nom = nom;
    c.Expediteur = de;
    c.Destinataires = pour;
    c.FaitA = Maintenant;
    const QByteArray message = ComposeMessage({.Expediteur = c.Expediteur,
                                               .Destinataires = c.Destinataires,
                                               .Sujet = "Intrusion",
                                               .Corps = "x",
                                               .Date = QDateTime::currentDateTime(),
                                               .Identifiant = c.Nom,
                                               .Pieces = {{"a.jpg", QByteArray(300'000, 'x')}}});
    ASSERT_EQ(Sac.PoseBrouillon(c, message), 0);
    ASSERT_TRUE(Sac.Publie(c.Nom));
  }
  void Travaille(qint64 duree) {
    const qint64 fin = Maintenant + duree;
    while (Maintenant < fin) Maintenant += std::clamp<qint64>(Poste.Tour(), 1, fin - Maintenant);
  }
  /// One mail is there, once, and nothing is left of it here.
  void AttendUnSeul() {
    EXPECT_EQ(Serveur.NombreRecus(), 1);
    EXPECT_TRUE(QDir(Temporaire.path()).entryList(QDir::Files).isEmpty());
    Travaille(60 * kMinute);
    EXPECT_EQ(Serveur.NombreRecus(), 1) << "and never again";
  }
};

TEST_F(Reprise, AServerThatPutsTheAddressOffTwiceGetsTheMailAtTheThirdAttempt) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "rcpt450-2"}));
  Depose();
  Travaille(5 * kMinute);
  EXPECT_EQ(Causes, (QList{CauseEchec::kReporte, CauseEchec::kReporte, CauseEchec::kAucune}));
  AttendUnSeul();
}

TEST_F(Reprise, AServerThatPutsTheMailOffBehindItsDataGetsItAgain) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "data451-1"}));
  Depose();
  Travaille(5 * kMinute);
  EXPECT_EQ(Causes, (QList{CauseEchec::kReporte, CauseEchec::kAucune}));
  AttendUnSeul();
}

TEST_F(Reprise, AConnectionCutInTheDataIsMadeAgain) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "cut-data"}));
  Depose();
  Travaille(1000);
  EXPECT_EQ(Causes, QList{CauseEchec::kCoupure});
  Serveur.Arrete();
  ASSERT_TRUE(Serveur.Demarre());
  Travaille(5 * kMinute);
  EXPECT_EQ(Causes.last(), CauseEchec::kAucune);
  AttendUnSeul();
}

TEST_F(Reprise, AServerThatHungIsTriedAgain) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "hang-data"}));
  Reglages.Delais.FinDonnees = 1500;
  Depose();
  Travaille(1000);
  EXPECT_EQ(Causes, QList{CauseEchec::kDelai});
  Serveur.Arrete();
  ASSERT_TRUE(Serveur.Demarre());
  Travaille(5 * kMinute);
  EXPECT_EQ(Causes.last(), CauseEchec::kAucune);
  AttendUnSeul();
}

TEST_F(Reprise, ALoginThatWasRefusedWaitsForTheRightPassword) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "s3cret&mot"}));
  Reglages.AvecConnexion = true;
  Reglages.MotDePasse = "faux";
  Depose();
  Travaille(1000);
  EXPECT_EQ(Causes, QList{CauseEchec::kConnexionRefusee});
  Reglages.MotDePasse = "s3cret&mot";
  Poste.Recommence();
  Travaille(1000);
  EXPECT_EQ(Causes.last(), CauseEchec::kAucune);
  EXPECT_EQ(Serveur.Enveloppe().value("user").toString(), "anna");
  AttendUnSeul();
}

TEST_F(Reprise, OfTwoMailsTheFirstIsAlwaysCutInItsDataAndTheSecondArrives) {
  ASSERT_TRUE(Serveur.Demarre());
  Depose("b", {"cut@exemple.fr"});
  Depose("a");
  Travaille(5 * kMinute);
  EXPECT_EQ(Causes.value(0), CauseEchec::kCoupure);
  EXPECT_EQ(Causes.value(1), CauseEchec::kAucune);
  EXPECT_GT(Causes.size(), 3) << "and the first is tried again";
  ASSERT_EQ(Serveur.NombreRecus(), 1);
  EXPECT_EQ(Serveur.Enveloppe()["to"].toArray(), QJsonArray{"anna@exemple.fr"});
}

TEST_F(Reprise, AServerThatFallsSilentInTheDataOfOneMailTakesTheOther) {
  ASSERT_TRUE(Serveur.Demarre());
  Reglages.Delais.Reponse = Reglages.Delais.FinDonnees = 1500;
  Depose("b", {"silent@exemple.fr"});
  Depose("a");
  Travaille(5000);
  EXPECT_EQ(Causes, (QList{CauseEchec::kDelai, CauseEchec::kAucune}));
  EXPECT_EQ(Serveur.NombreRecus(), 1);
}

TEST_F(Reprise, OneAddressIsGreylistedAndTheOtherGetsTheMailOnceOnly) {
  ASSERT_TRUE(Serveur.Demarre());
  Depose("a", {"anna@exemple.fr", "grey@exemple.fr"});
  Travaille(5 * kMinute);
  EXPECT_EQ(Serveur.NombreRecus(), 1);
  EXPECT_GT(Causes.size(), 2);
  ASSERT_EQ(Sac.Liste().size(), 1);
  EXPECT_EQ(Sac.Liste().first().Sort.Servis, QStringList{"anna@exemple.fr"});
}

TEST_F(Reprise, AMailAboveTheQuotaArrivesWithoutItsPhotosAndSaysSo) {
  for (const char* mode : {"size-100000", "mailsize-100000"}) {
    ASSERT_TRUE(Serveur.Demarre({"--mode", mode}));
    const qsizetype avant = Serveur.NombreRecus();
    Depose(mode);
    Travaille(1000);
    ASSERT_EQ(Serveur.NombreRecus(), avant + 1) << mode;
    const QJsonObject lu = LitCourriel(Serveur.Message(avant));
    EXPECT_TRUE(lu["names"].toArray().isEmpty());
    EXPECT_TRUE(lu["body"].toString().startsWith("x\n\nLes photos de ce mail")) << lu["body"].toString().toStdString();
    EXPECT_EQ(Causes.last(), CauseEchec::kAucune);
    Serveur.Arrete();
  }
}

TEST_F(Reprise, AFullMailboxGetsTheWordsAndTheOtherAddressThePhotos) {
  ASSERT_TRUE(Serveur.Demarre());
  Depose("a", {"full@exemple.fr", "anna@exemple.fr"});
  Travaille(1000);
  ASSERT_EQ(Serveur.NombreRecus(), 2);
  EXPECT_EQ(LitCourriel(Serveur.Message(0))["names"].toArray(), QJsonArray{"a.jpg"});
  EXPECT_TRUE(LitCourriel(Serveur.Message(1))["names"].toArray().isEmpty());
  EXPECT_EQ(Serveur.Enveloppe(1)["to"].toArray(), QJsonArray{"full@exemple.fr"});
  EXPECT_TRUE(Sac.Liste().isEmpty());
}

// Made while a field was empty, or for the system's mail program, which knows who the user is.
TEST_F(Reprise, AMailWithoutASenderGetsThatOfTheSettingsOfNow) {
  ASSERT_TRUE(Serveur.Demarre());
  Depose("b", {"anna@exemple.fr"}, QString());
  Depose("a");
  Travaille(1000);
  EXPECT_EQ(Causes, (QList{CauseEchec::kIncomplet, CauseEchec::kAucune})) << "it holds up nobody meanwhile";
  Reglages.Presente.Expediteur = "moi@exemple.fr";
  Travaille(kMinute);
  ASSERT_EQ(Serveur.NombreRecus(), 2);
  EXPECT_EQ(Serveur.Enveloppe(1)["from"].toString(), "moi@exemple.fr");
  EXPECT_TRUE(Serveur.Message(1).contains("From: <moi@exemple.fr>\r\n"));
}

TEST_F(Reprise, AServerThatWasAwayForADayGetsTheMailOnItsReturn) {
  ASSERT_TRUE(Serveur.Demarre());
  Serveur.Arrete();
  Depose();
  Travaille(qint64{24} * 60 * kMinute);
  EXPECT_TRUE(std::all_of(Causes.begin(), Causes.end(), [](CauseEchec c) { return c == CauseEchec::kPasDeConnexion; }));
  EXPECT_GT(Causes.size(), 45);
  ASSERT_TRUE(Serveur.Demarre());
  Travaille(30 * kMinute);
  AttendUnSeul();
}

}  // namespace
}  // namespace vaktor::essai
