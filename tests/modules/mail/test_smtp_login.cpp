// SPDX-License-Identifier: GPL-3.0-or-later
// Logins against a real server on loopback: one that offers more than it can do, a token in the place of the password,
// and an encryption that is taken away on the way.
#include <fcntl.h>
#include <unistd.h>

#include <QElapsedTimer>

#include "modules/mail/sender_bench.h"
#include "modules/mail/token_program.h"

namespace vaktor::essai {
namespace {

struct Login : Sender {
  QTemporaryDir Dossier;

  void Chiffre(const QStringList& options) {
    ASSERT_TRUE(Serveur.Demarre(QStringList("--starttls") + BonsCertificats().Paire() + options));
    Regle(true);
    Reglages.TlsExige = true;
    Reglages.FichierAutorites = BonsCertificats().Autorite();
  }
  QString Tentes() const { return QString::fromLatin1(LitOctets(Serveur.Chemin("logins"))).simplified(); }
  QString Script(const QByteArray& texte) const {
    QString chemin = Dossier.filePath("jeton");
    EXPECT_TRUE(EcritOctets(chemin, "#!/bin/sh\n" + texte));
    QFile::setPermissions(chemin, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return chemin;
  }
};

TEST_F(Login, WhereTheStrongestThatIsOfferedIsRefusedThePlainOnesAreTried) {
  Chiffre({"--login", "anna", "s3cret&mot", "--accepts", "PLAIN"});
  ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
  EXPECT_EQ(Tentes(), "CRAM-MD5 PLAIN");
  EXPECT_EQ(r.Mecanisme, "PLAIN");
  Reglages.Mecanisme = r.Mecanisme;
  r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
  EXPECT_EQ(Tentes(), "CRAM-MD5 PLAIN PLAIN") << "one that has worked comes first: refusals lock accounts";
}

TEST_F(Login, LoginIsTheLast) {
  Chiffre({"--login", "anna", "s3cret&mot", "--accepts", "LOGIN"});
  EXPECT_TRUE(Envoie().Accepte);
  EXPECT_EQ(Tentes(), "CRAM-MD5 PLAIN LOGIN");
}

TEST_F(Login, AWrongPasswordIsTriedOnceInEachWayAndTold) {
  Chiffre({"--login", "anna", "autre", "--accepts", "LOGIN"});
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kConnexionRefusee);
  EXPECT_EQ(r.Code, 535);
  EXPECT_EQ(Tentes(), "CRAM-MD5 PLAIN LOGIN");
}

// Of the one that worked before, until the password was changed there. Refusals lock accounts.
TEST_F(Login, AWrongPasswordIsNotTriedAgainInTheWayThatCameFirst) {
  Chiffre({"--login", "anna", "autre", "--accepts", "LOGIN"});
  Reglages.Mecanisme = "PLAIN";
  EXPECT_EQ(Envoie().Cause, CauseEchec::kConnexionRefusee);
  EXPECT_EQ(Tentes(), "PLAIN LOGIN");
}

TEST_F(Login, WithoutEncryptionThePlainOnesAreNotTriedBehindAStrongerOne) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", "s3cret&mot", "--accepts", "PLAIN"}));
  Regle(true);
  EXPECT_EQ(Envoie().Cause, CauseEchec::kConnexionRefusee);
  EXPECT_EQ(Tentes(), "CRAM-MD5");
}

TEST_F(Login, AnEncryptionThatIsOfferedAndThenRefusedGivesThePasswordToNobody) {
  Chiffre({"--login", "anna", "s3cret&mot", "--accepts", "PLAIN", "--mode", "no-starttls"});
  const ResultatEnvoi r = Envoie();
  EXPECT_FALSE(r.Accepte);
  EXPECT_TRUE(r.Cause == CauseEchec::kTls || r.Cause == CauseEchec::kSansTls) << static_cast<int>(r.Cause);
  EXPECT_EQ(Tentes(), "");
  EXPECT_EQ(Serveur.NombreRecus(), 0);
}

TEST_F(Login, ATokenTakesThePlaceOfThePassword) {
  Chiffre({"--login", "anna", "-", "--token", "ya29.Abc-_~+/="});
  Reglages.MotDePasse.clear();
  Reglages.Jeton = Script("printf '%s\\n' \"$1\"\necho rest\n") + " ya29.Abc-_~+/=";
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte) << r.MotsServeur.toStdString();
  EXPECT_EQ(Serveur.Enveloppe().value("user").toString(), "anna");
}

TEST_F(Login, ATokenThatTheServerRefusesAndQuotesIsToldWithoutIt) {
  Chiffre({"--login", "anna", "-", "--token", "other"});
  Reglages.Jeton = Script("echo secret-token-1\n");
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kConnexionRefusee);
  const QByteArray envoye = QByteArray("user=anna\1auth=Bearer secret-token-1\1\1").toBase64();
  const QString dit = Etapes.join('|') + r.MotsServeur;
  EXPECT_TRUE(dit.contains("bad token in ***")) << dit.toStdString();
  EXPECT_FALSE(dit.contains(QString::fromLatin1(envoye))) << dit.toStdString();
}

TEST_F(Login, ACommandThatGivesNoTokenIsToldInItsOwnWordsAndNotInItsOutput) {
  Regle(true);
  Reglages.Port = 1;
  Reglages.Jeton = Script("echo 'half a token'\necho 'please log in again' >&2\n");
  ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kJeton);
  EXPECT_EQ(r.MotsServeur, "please log in again");
  Reglages.Jeton = Script("echo token\nexit 3\n");
  EXPECT_EQ(Envoie().Cause, CauseEchec::kJeton);
  Reglages.Jeton = "/pas/la";
  r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kJeton);
  EXPECT_FALSE(r.MotsServeur.isEmpty());
}

TEST_F(Login, TheArgumentsOfACommandForATokenAreToldToNobody) {
  const QString secrets = QStringLiteral(" get --client-secret=s3cr3t-77 refresh-0123");
  Jeton jeton =
      DemandeJeton(Script("echo \"cannot get $2 with s3cr3t-77 and $3\" >&2\nexit 1\n") + secrets, 20'000, {});
  EXPECT_EQ(jeton.Mots, "cannot get *** with *** and ***");
  const QString lent = Script("exec sleep 3600\n");
  jeton = DemandeJeton(lent + secrets, 500, {});
  EXPECT_EQ(jeton.Mots, lent + ": 0 s");
}

TEST_F(Login, ACommandForATokenIsNoLineOfAShell) {
  const Jeton jeton = DemandeJeton(Script("echo \"$#:$1\"\n") + " \"a;b$HOME\"", 20'000, {});
  EXPECT_EQ(jeton.Valeur, "1:a;b$HOME");
}

TEST_F(Login, ACommandForATokenHasNoneOfOurOpenFiles) {
  const int ouvert = ::open("/dev/null", O_RDONLY);
  ASSERT_GT(ouvert, 2);
  const QString commande = Script("test -e /proc/$$/fd/" + QByteArray::number(ouvert) + " && echo seen || echo none\n");
  EXPECT_EQ(DemandeJeton(commande, 20'000, {}).Valeur, "none");
  ::close(ouvert);
}

TEST_F(Login, ACommandForATokenThatHangsOrNeverEndsItsLineIsGivenUp) {
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_TRUE(DemandeJeton(Script("exec sleep 3600\n"), 500, {}).Valeur.isEmpty());
  EXPECT_TRUE(DemandeJeton(Script("exec cat /dev/zero\n"), 60'000, {}).Valeur.isEmpty());
  const Jeton jeton = DemandeJeton(Script("exec sleep 3600\n"), 60'000, [] { return true; });
  EXPECT_TRUE(jeton.Arrete);
  EXPECT_LT(depuis.elapsed(), 30'000);
}

}  // namespace
}  // namespace vaktor::essai
