// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox and its postman against a real server that fails first: every failure that passes ends in one mail, once.
// The waits in between are virtual time.

#include "modules/mail/mail_bench.h"
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
                [this](const CourrielEnAttente& c, const QByteArray& message, const std::function<void()>& surAccepte) {
                  Reglages.Port = Serveur.Port();
                  return EnvoieCourriel(Reglages, {c.Expediteur, c.Destinataires}, message, {{}, surAccepte, {}});
                },
                [this](const RapportEnvoi& r) { Causes << r.Resultat.Cause; }};

  Reprise() {
    Reglages.Serveur = "127.0.0.1";
    Reglages.Utilisateur = "anna";
    Reglages.MotDePasse = "s3cret&mot";
  }
  void Depose() {
    CourrielEnAttente c;
    c.Nom = "a";
    c.Expediteur = "cam@exemple.fr";
    c.Destinataires = QStringList{"anna@exemple.fr"};
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
  EXPECT_EQ(Causes, (QList{CauseEchec::kDestinataireRefuse, CauseEchec::kDestinataireRefuse, CauseEchec::kAucune}));
  AttendUnSeul();
}

TEST_F(Reprise, AServerThatPutsTheMailOffBehindItsDataGetsItAgain) {
  ASSERT_TRUE(Serveur.Demarre({"--mode", "data451-1"}));
  Depose();
  Travaille(5 * kMinute);
  EXPECT_EQ(Causes, (QList{CauseEchec::kMessageRefuse, CauseEchec::kAucune}));
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

TEST_F(Reprise, AServerThatWasAwayForADayGetsTheMailOnItsReturn) {
  ASSERT_TRUE(Serveur.Demarre());
  Serveur.Arrete();
  Depose();
  Travaille(24 * 60 * kMinute);
  EXPECT_TRUE(std::all_of(Causes.begin(), Causes.end(), [](CauseEchec c) { return c == CauseEchec::kPasDeConnexion; }));
  EXPECT_GT(Causes.size(), 45);
  ASSERT_TRUE(Serveur.Demarre());
  Travaille(30 * kMinute);
  AttendUnSeul();
}

}  // namespace
}  // namespace vaktor::essai
