// SPDX-License-Identifier: GPL-3.0-or-later
// One push, against a real server.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <csignal>

#include "modules/push/push_sender.h"
#include "push_test_server.h"
#include "support/full_port.h"
#include "support/mute_names.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {
namespace {

class EnvoiPush : public testing::Test {
 protected:
  ReglagesPush Reglages(const QString& adresse, const char* entete = "") const {
    Parametres valeurs;
    valeurs.PushAdresse = adresse;
    valeurs.PushEntete = QString::fromUtf8(entete);
    const PushLu lu = LitPush(valeurs, Serveur.Autorite());
    EXPECT_EQ(lu.Manque, ManquePush::kRien);
    return lu.Reglages;
  }
  static MessagePush Message(const QByteArray& image = PetitJpeg(" image ")) {
    return {QString::fromUtf8("Alarme à la maison"), "Intrusion at 14:05:09", "Photo 1.jpg", image};
  }
  ResultatPush Envoie(const ReglagesPush& reglages, const MessagePush& message = Message()) {
    return EnvoiePush(reglages, message, {}, {.Connexion = 10, .Silence = 2, .Tout = 20});
  }

  ServeurPush Serveur;
};

TEST_F(EnvoiPush, BringsThePictureAsBodyAndTheWordsInHeadersByTls) {
  Serveur.Demarre(true);
  const ResultatPush r = Envoie(Reglages(Serveur.Adresse(), "Authorization: Bearer s3cret"));
  ASSERT_EQ(r.Issue, IssuePush::kPris) << r.Mots.toStdString();
  ASSERT_EQ(Serveur.Nombre(), 1);
  EXPECT_EQ(Serveur.Demande(0)["method"], "POST");
  EXPECT_EQ(Serveur.Demande(0)["path"], "/maison?cle=1");
  EXPECT_EQ(Serveur.Corps(0), Message().Image);
  EXPECT_EQ(Serveur.Entete(0, "content-type"), "image/jpeg");
  EXPECT_EQ(Serveur.Entete(0, "title"), "=?UTF-8?B?QWxhcm1lIMOgIGxhIG1haXNvbg==?=");
  EXPECT_EQ(Serveur.Entete(0, "message"), "Intrusion at 14:05:09");
  EXPECT_EQ(Serveur.Entete(0, "filename"), "Photo 1.jpg");
  EXPECT_EQ(Serveur.Entete(0, "authorization"), "Bearer s3cret");
}

TEST_F(EnvoiPush, WithoutAPictureHasTheWordsAsBody) {
  Serveur.Demarre();
  ASSERT_EQ(Envoie(Reglages(Serveur.Adresse()), Message({})).Issue, IssuePush::kPris);
  EXPECT_EQ(Serveur.Corps(0), "Intrusion at 14:05:09");
  EXPECT_EQ(Serveur.Entete(0, "content-type"), "text/plain; charset=utf-8");
}

TEST_F(EnvoiPush, GoesToNobodyWhoseCertificateIsNotToBeTrusted) {
  Serveur.Demarre(true);
  ReglagesPush sansAutorite = Reglages(Serveur.Adresse());
  sansAutorite.Autorites.clear();
  EXPECT_EQ(Envoie(sansAutorite).Issue, IssuePush::kCertificat);
  EXPECT_EQ(Envoie(Reglages(Serveur.Adresse("/x", "127.0.0.1"))).Issue, IssuePush::kCertificat) << "another name";
  EXPECT_EQ(Serveur.Nombre(), 0) << "not a byte of it";
}

TEST_F(EnvoiPush, IsJudgedByTheServersAnswer) {
  Serveur.Demarre();
  const ReglagesPush reglages = Reglages(Serveur.Adresse());
  const struct {
    const char* Reponse;
    IssuePush Issue;
  } cas[] = {{"201", IssuePush::kPris},    {"400", IssuePush::kRefuse},    {"401", IssuePush::kAcces},
             {"403", IssuePush::kAcces},   {"404", IssuePush::kAdresse},   {"405", IssuePush::kAdresse},
             {"410", IssuePush::kAdresse}, {"408", IssuePush::kPanne},     {"425", IssuePush::kPanne},
             {"429", IssuePush::kPanne},   {"413", IssuePush::kTropGrand}, {"422", IssuePush::kRefuse},
             {"500", IssuePush::kPanne},   {"503", IssuePush::kPanne}};
  for (const auto& [reponse, issue] : cas) {
    Serveur.Repond(reponse);
    const ResultatPush r = Envoie(reglages);
    EXPECT_EQ(r.Issue, issue) << reponse;
    EXPECT_EQ(r.Mots, QStringLiteral("HTTP %1: the server's own words").arg(reponse));
  }
}

TEST_F(EnvoiPush, FollowsNobodyElsewhereWithItsHeader) {
  Serveur.Demarre();
  ServeurPush autre;
  autre.Demarre();
  Serveur.Repond("redirect " + autre.Adresse().toUtf8());
  EXPECT_EQ(Envoie(Reglages(Serveur.Adresse(), "X-Key: s3cret")).Issue, IssuePush::kAdresse);
  EXPECT_EQ(autre.Nombre(), 0);
}

TEST_F(EnvoiPush, WaitsForLater) {
  Serveur.Demarre();
  Serveur.Repond("hang");
  QElapsedTimer temps;
  temps.start();
  const DelaisPush delais{.Connexion = 10, .Silence = 2, .Tout = 40};
  EXPECT_EQ(EnvoiePush(Reglages(Serveur.Adresse()), Message(), {}, delais).Issue, IssuePush::kPanne);
  EXPECT_LT(temps.elapsed(), 20'000) << "silent for two seconds";
  Serveur.Arrete();
  EXPECT_EQ(Envoie(Reglages(Serveur.Adresse())).Issue, IssuePush::kPanne) << "nobody there";
}

TEST_F(EnvoiPush, TellsWhenItWasCutOffOnItsWay) {
  Serveur.Demarre();
  Serveur.Repond("cut 1000");
  const ReglagesPush reglages = Reglages(Serveur.Adresse());
  const ResultatPush coupe = Envoie(reglages, Message(PetitJpeg(QByteArray(3'000'000, 'x'))));
  EXPECT_EQ(coupe.Issue, IssuePush::kPanne);
  EXPECT_TRUE(coupe.Coupe) << coupe.Mots.toStdString();
  EXPECT_EQ(Serveur.Nombre(), 0);
  EXPECT_EQ(Envoie(reglages).Issue, IssuePush::kPris);
  Serveur.Repond("503");
  EXPECT_FALSE(Envoie(reglages).Coupe) << "the server has answered";
  Serveur.Repond("hang");
  EXPECT_TRUE(Envoie(reglages).Coupe) << "it has all of it and says nothing";
  Serveur.Arrete();
  const ResultatPush personne = Envoie(reglages);
  EXPECT_EQ(personne.Issue, IssuePush::kPanne);
  EXPECT_FALSE(personne.Coupe) << "nobody there";
}

TEST_F(EnvoiPush, EndsWhenItIsAskedTo) {
  Serveur.Demarre();
  Serveur.Repond("hang");
  QElapsedTimer temps;
  temps.start();
  const ResultatPush r = EnvoiePush(Reglages(Serveur.Adresse()), Message(), [] { return true; });
  EXPECT_EQ(r.Issue, IssuePush::kInterrompu);
  EXPECT_LT(temps.elapsed(), 10'000);
}

TEST_F(EnvoiPush, OneThatDripsIsGivenUp) {
  Serveur.Demarre();
  Serveur.Repond("drip");
  const DelaisPush delais{.Connexion = 10, .Silence = 10, .Tout = 3};
  EXPECT_EQ(EnvoiePush(Reglages(Serveur.Adresse()), Message(), {}, delais).Issue, IssuePush::kPanne);
}

// A port whose queue of connections is full: the system answers nothing at all.
TEST_F(EnvoiPush, GivesUpAHostThatDoesNotTakeTheConnection) {
  const PortPlein plein;
  ASSERT_NE(plein.Port(), 0);
  QElapsedTimer temps;
  temps.start();
  const ReglagesPush reglages = Reglages(QStringLiteral("http://127.0.0.1:%1/").arg(plein.Port()));
  const DelaisPush delais{.Connexion = 1, .Silence = 40, .Tout = 40};
  EXPECT_EQ(EnvoiePush(reglages, Message(), {}, delais).Issue, IssuePush::kPanne);
  EXPECT_LT(temps.elapsed(), 20'000);
}

TEST_F(EnvoiPush, ANameServerThatHangsDoesNotHoldUpOurEnd) {
  const SilenceDesNoms silence;
  QElapsedTimer depuis;
  depuis.start();
  const ResultatPush r =
      EnvoiePush(Reglages("http://hangs.example/"), Message(), [&depuis] { return depuis.hasExpired(300); });
  EXPECT_EQ(r.Issue, IssuePush::kInterrompu);
  EXPECT_TRUE(silence.Dure()) << "back before the name server was";
}

// The disposition of a signal belongs to the whole program: another thread may be starting something at that moment.
TEST_F(EnvoiPush, LeavesTheSignalsOfTheProgramAlone) {
  Serveur.Demarre();
  const auto avant = std::signal(SIGPIPE, SIG_DFL);
  int demandes = 0;
  bool ignore = false;
  EnvoiePush(Reglages(Serveur.Adresse()), Message(), [&] {
    struct sigaction action {};
    ::sigaction(SIGPIPE, nullptr, &action);
    ignore |= action.sa_handler == SIG_IGN;
    ++demandes;
    return false;
  });
  std::signal(SIGPIPE, avant);
  EXPECT_GT(demandes, 0);
  EXPECT_FALSE(ignore);
}

// A server that does not know the question would leave it unanswered, for a second.
TEST_F(EnvoiPush, ALargePictureAsksForNoLeave) {
  Serveur.Demarre();
  const MessagePush message = Message(PetitJpeg(QByteArray(3'000'000, 'x')));
  ASSERT_EQ(Envoie(Reglages(Serveur.Adresse()), message).Issue, IssuePush::kPris);
  EXPECT_EQ(Serveur.Corps(0), message.Image);
  EXPECT_EQ(Serveur.Entete(0, "expect"), "");
}

TEST(EnTetePush, IsAsciiAsItStandsAndEncodedWordsOtherwise) {
  EXPECT_EQ(CodeEntete("Intrusion"), "Intrusion");
  EXPECT_EQ(CodeEntete("a\r\nX-Evil: 1"), "a X-Evil: 1") << "one line";
  EXPECT_EQ(CodeEntete(QString::fromUtf8("é")), "=?UTF-8?B?w6k=?=");
  const QByteArray longs = CodeEntete(QString::fromUtf8("é").repeated(60));
  for (const QByteArray& mot : longs.split(' ')) {
    EXPECT_LE(mot.size(), 75);
    EXPECT_EQ(QByteArray::fromBase64(mot.mid(10, mot.size() - 12)).size() % 2, 0) << "no character is cut";
  }
}

}  // namespace
}  // namespace vaktor::essai
