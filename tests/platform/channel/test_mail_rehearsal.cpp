// SPDX-License-Identifier: GPL-3.0-or-later
// The rehearsal with the real companion and a real server on loopback; and the form over both.
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include "companions/smtp_bench.h"
#include "companions/smtp_settings.h"
#include "modules/mail/mail_bench.h"
#include "platform/channel/companion_rehearsal.h"
#include "support/event_wait.h"
#include "support/left_rehearsals.h"

namespace vaktor::essai {
namespace {

constexpr const char* kPass = "s3cret&mot";

struct Repetition : testing::Test {
  void TearDown() override {
    Essai.reset();
    EXPECT_TRUE(AttendFinDesEssais());
  }
  /// Starts one and waits for its end.
  FinEssai Fait(const QByteArray& demande) {
    Lance(demande);
    EXPECT_TRUE(AttendQue([this] { return Fin.has_value(); }));
    return Fin.value_or(FinEssai::kImpossible);
  }
  void Lance(const QByteArray& demande) {
    Lignes.clear();
    Fin.reset();
    Essai->Lance(demande,
                 {[this](const QString& ligne) { Lignes.append(ligne); }, [this](FinEssai fin) { Fin = fin; }});
  }
  QByteArray Demande() {
    Reglages.SmtpServeur = "127.0.0.1";
    Reglages.SmtpPort = QString::number(Serveur.Port());
    Reglages.SmtpFrom = "me@b.org";
    Reglages.SmtpUser = "anna";
    Reglages.SmtpPass = kPass;
    Reglages.LangueCourante = 1;
    return ComposeDemandeEssai(Reglages, "you@c.org");
  }

  ServeurMail Serveur;
  Parametres Reglages;
  QStringList Lignes;
  std::optional<FinEssai> Fin;
  std::unique_ptr<EssaiParCompagnon> Essai = std::make_unique<EssaiParCompagnon>(VAKTOR_MAIL);
};

TEST_F(Repetition, AWrongThenTheRightPassword) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", kPass}));
  Demande();
  Reglages.SmtpPass = "wrong-one";
  EXPECT_EQ(Fait(ComposeDemandeEssai(Reglages, "you@c.org")), FinEssai::kRefuse);
  EXPECT_EQ(Lignes.filter("535").size(), 1) << "the server's words, once:\n" << Lignes.join(u'\n').toStdString();
  EXPECT_TRUE(Lignes.last().contains("refused the user name or the password")) << Lignes.last().toStdString();
  EXPECT_FALSE(Lignes.join(u'\n').contains("wrong-one")) << "though the server quotes it";
  EXPECT_EQ(Serveur.NombreRecus(), 0);
  EXPECT_EQ(Fait(Demande()), FinEssai::kAccepte);
  EXPECT_EQ(Lignes.last(), "The mail was accepted. The connection was not encrypted.");
  EXPECT_TRUE(Lignes.contains("DATA: 250 2.0.0 taken")) << Lignes.join(u'\n').toStdString();
  ASSERT_EQ(Serveur.NombreRecus(), 1);
  EXPECT_EQ(Serveur.Enveloppe()["to"].toArray(), QJsonArray{"you@c.org"});
  EXPECT_EQ(LitCourriel(Serveur.Message())["subject"].toString(), "[Test] Intrusion");
}

TEST_F(Repetition, ThePasswordStandsInNoCommandLineAndNoEnvironment) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Demande();
  Reglages.SmtpPort = QString::number(muet.serverPort());
  Lance(ComposeDemandeEssai(Reglages, "you@c.org"));
  ASSERT_TRUE(AttendQue([&] { return muet.hasPendingConnections(); }));
  QByteArray vus;
  for (const QString& nom : QDir("/proc").entryList(QDir::Dirs)) {
    const QByteArray ligne = LitOctets("/proc/" + nom + "/cmdline");
    if (ligne.contains("VAKTORmail")) vus += ligne + LitOctets("/proc/" + nom + "/environ");
  }
  EXPECT_TRUE(vus.contains("--try"));
  EXPECT_FALSE(vus.contains(kPass));
  Essai->Annule();
  // The companion goes: its connection ends.
  QTcpSocket* connexion = muet.nextPendingConnection();
  EXPECT_TRUE(AttendQue([&] { return connexion->state() == QAbstractSocket::UnconnectedState; }));
  EXPECT_FALSE(Fin.has_value()) << "no call after a cancel";
}

TEST_F(Repetition, AServerThatSaysNothingIsBoundedInTime) {
  QTcpServer muet;
  ASSERT_TRUE(muet.listen(QHostAddress::LocalHost));
  Essai = std::make_unique<EssaiParCompagnon>(VAKTOR_MAIL, QString(), QStringList(), 500);
  Demande();
  Reglages.SmtpPort = QString::number(muet.serverPort());
  EXPECT_EQ(Fait(ComposeDemandeEssai(Reglages, "you@c.org")), FinEssai::kSansFin);
}

TEST_F(Repetition, AMissingProgramAndOneThatDiesAreTold) {
  Essai = std::make_unique<EssaiParCompagnon>("/no/such/program");
  EXPECT_EQ(Fait("{}"), FinEssai::kImpossible);
  Essai = std::make_unique<EssaiParCompagnon>("/bin/sh", QString(), QStringList{"-c", "echo one; kill -9 $$"});
  EXPECT_EQ(Fait("{}"), FinEssai::kImpossible);
  EXPECT_EQ(Lignes, QStringList{"one"});
  Essai = std::make_unique<EssaiParCompagnon>(VAKTOR_MAIL);
  EXPECT_EQ(Fait("no json"), FinEssai::kImpossible);
}

TEST_F(Repetition, AnEndlessLineOrFloodHoldsNothingUp) {
  Essai = std::make_unique<EssaiParCompagnon>("/bin/sh", QString(),
                                              QStringList{"-c", "head -c 100000 /dev/zero | tr '\\0' x; echo; exit 1"});
  EXPECT_EQ(Fait("{}"), FinEssai::kRefuse);
  ASSERT_FALSE(Lignes.isEmpty());
  for (const QString& ligne : Lignes) EXPECT_LE(ligne.size(), 4096);
}

TEST_F(Repetition, ASecondStartCancelsTheFirst) {
  ASSERT_TRUE(Serveur.Demarre());
  int premiers = 0;
  Essai->Lance(Demande(), {[&](const QString&) { ++premiers; }, [&](FinEssai) { ++premiers; }});
  Reglages.SmtpNeedLogin = false;
  EXPECT_EQ(Fait(Demande()), FinEssai::kAccepte);
  EXPECT_EQ(premiers, 0);
}

TEST_F(Repetition, NothingOfItIsWritten) {
  QTemporaryDir dossier;
  Essai = std::make_unique<EssaiParCompagnon>(VAKTOR_MAIL, dossier.path());
  ASSERT_TRUE(Serveur.Demarre());
  Reglages.SmtpNeedLogin = false;
  EXPECT_EQ(Fait(Demande()), FinEssai::kAccepte);
  EXPECT_TRUE(QDir(dossier.path()).isEmpty());
}

/// The form, the companion and the server together, as the user works them.
struct FormeReelle : BancSmtp {
  ServeurMail Serveur;
  EssaiParCompagnon Reel{VAKTOR_MAIL};

  void OuvreReelle() {
    Textes.Remplit(Langue::kAnglais);
    Reglages.SmtpServeur = "127.0.0.1";
    Reglages.SmtpPort = QString::number(Serveur.Port());
    Forme =
        std::make_unique<FrmSmtp>(PortsFrmSmtp{Reglages, Sauvegarde, Textes, Etat, Boites, Pompe, Comptes, Lus, Reel});
    Forme->Charge();
    Forme->EcritMots();
    Forme->Montre();
  }
  QString Essaie() {
    Clique("CmdEssai");
    EXPECT_TRUE(AttendQue([this] { return Trouve<QPushButton>("CmdEssai")->text() == "Try"; }));
    return Trouve<QLabel>("LblEssai")->text();
  }
  QString Etapes() { return Trouve<QPlainTextEdit>("TxtEssai")->toPlainText(); }
};

TEST_F(FormeReelle, AWrongPasswordThenTheRightOne) {
  ASSERT_TRUE(Serveur.Demarre({"--login", "anna", kPass}));
  OuvreReelle();
  Tape("TxtSMTPpass", "wrong-one");
  EXPECT_TRUE(Essaie().contains("Check both")) << Etapes().toStdString();
  EXPECT_TRUE(Etapes().contains("535 5.7.8"));
  Tape("TxtSMTPpass", kPass);
  EXPECT_EQ(Essaie(), "The mail was accepted. The connection was not encrypted.") << Etapes().toStdString();
  EXPECT_EQ(Serveur.NombreRecus(), 1);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

}  // namespace
}  // namespace vaktor::essai
