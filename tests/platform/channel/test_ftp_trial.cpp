// SPDX-License-Identifier: GPL-3.0-or-later
// The window, the real companion and a real FTP server together, as the user works them.
#include <gtest/gtest.h>

#include <QTest>

#include "companions/forms/frm_essai_ftp.h"
#include "companions/live_rehearsal.h"
#include "modules/ftp/ftp_test_server.h"
#include "platform/channel/companion_rehearsal.h"
#include "support/event_wait.h"
#include "support/left_rehearsals.h"

namespace vaktor::essai {
namespace {

struct FenetreReelle : testing::Test {
  ServeurEssai Serveur;
  ChampsEssaiFtp Champs{QString(), "anna", "sesame", "/"};
  EssaiParCompagnon Essai{VAKTOR_FTP};
  FrmEssaiFtp Forme{
      PortsFrmEssaiFtp{Essai, [this] { return ComposeDemandeEssaiFtp(Champs, 1); }, [this] { return Champs.Serveur; }}};

  void SetUp() override {
    Serveur.Demarre();
    Champs.Serveur = QStringLiteral("127.0.0.1:%1").arg(Serveur.Port());
    Forme.EcritMots(Langue::kAnglais);
  }
  void TearDown() override {
    Forme.close();
    EXPECT_TRUE(AttendFinDesEssais());
  }
  QString Bouton() { return Forme.findChild<QPushButton*>("CmdEssai")->text(); }
  QString Etapes() { return Forme.findChild<QPlainTextEdit*>("TxtEssai")->toPlainText(); }
  QString Phrase() { return Forme.findChild<QLabel*>("LblEssai")->text(); }
  QString Essaie() {
    Forme.Essaie();
    EXPECT_TRUE(AttendQue([this] { return Bouton() == "Try"; }));
    return Phrase();
  }
  /// Command lines and environments of the companions of rehearsals that run, with those of other people's tests.
  static QByteArray LitCompagnons() {
    QByteArray vus;
    for (const QString& nom : QDir("/proc").entryList(QDir::Dirs)) {
      const QByteArray ligne = LitOctets("/proc/" + nom + "/cmdline");
      if (ligne.contains("VAKTORftp") && ligne.contains("--try")) vus += ligne + LitOctets("/proc/" + nom + "/environ");
    }
    return vus;
  }
};

TEST_F(FenetreReelle, AWrongPasswordThenTheRightOne) {
  Champs.MotDePasse = "wrong-one";
  EXPECT_TRUE(Essaie().contains("refuses the user name or the password")) << Etapes().toStdString();
  EXPECT_TRUE(Etapes().contains("Password - PASS: 530")) << Etapes().toStdString();
  Champs.MotDePasse = "sesame";
  EXPECT_TRUE(Essaie().startsWith("The live page can be published")) << Etapes().toStdString();
  EXPECT_TRUE(Serveur.Noms().isEmpty()) << "nothing stays there";
}

TEST_F(FenetreReelle, ThePasswordStandsInNoCommandLineAndNoEnvironment) {
  Serveur.Dit("slow 1000");
  Champs.MotDePasse = "sesame";
  Forme.Essaie();
  ASSERT_TRUE(AttendQue([this] { return Etapes().contains("STOR"); })) << Etapes().toStdString();
  const QByteArray vus = LitCompagnons();
  EXPECT_TRUE(vus.contains("--try"));
  EXPECT_FALSE(vus.contains("sesame"));
}

TEST_F(FenetreReelle, ClosingItInTheMiddleEndsTheCompanionWhichTidiesUp) {
  Serveur.Dit("slow 1000");
  Forme.Essaie();
  ASSERT_TRUE(AttendQue([this] { return Etapes().contains("STOR"); })) << Etapes().toStdString();
  ASSERT_TRUE(AttendQue([this] { return Serveur.Noms().size() == 1; }));
  Forme.close();
  EXPECT_FALSE(Forme.isVisible()) << "at once: nobody waits for the companion";
  EXPECT_TRUE(AttendQue([this] { return Serveur.Noms().isEmpty(); })) << Serveur.Noms().join(' ').toStdString();
  EXPECT_TRUE(AttendQue([] { return !LitCompagnons().contains("--try"); }));
}

}  // namespace
}  // namespace vaktor::essai
