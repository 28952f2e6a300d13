// SPDX-License-Identifier: GPL-3.0-or-later
// The whole companion with a push server on loopback, by TLS.
#include "modules/mail/mail_program_bench.h"
#include "modules/mail/watch_message.h"
#include "push_test_server.h"

namespace vaktor::essai {
namespace {

struct ProgrammePush : ProgrammeMail {
  ServeurPush Push;
  void Prepare() {
    Push.Demarre(true);
    Regle("pushadresse", Push.Adresse("/t0pic"));
    Regle("pushentete", CryptePass("X-Key: k3y"));
    Regle("destination", "");
    Magasin.Vide();
    Arguments = {"--ca-file", Push.Autorite()};
  }
  QStringList PushEnAttente() const {
    return QDir(Temporaire.filePath("etat/push")).entryList({"*.push"}, QDir::Files);
  }
};

TEST_F(ProgrammePush, AnIntrusionBecomesAPushWithItsPhoto) {
  Prepare();
  Lance();
  Photo("1.jpg");
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return Push.Nombre() == 1; }));
  EXPECT_EQ(Push.Corps(0), PetitJpeg(" image "));
  EXPECT_EQ(Push.Entete(0, "x-key"), "k3y");
  EXPECT_EQ(Push.Entete(0, "filename"), "1.jpg");
  EXPECT_TRUE(AttendQue([this] { return PushEnAttente().isEmpty(); }));
  EXPECT_FALSE(LitEtat("VAKTORmail.log").contains("k3y"));
  EXPECT_FALSE(LitEtat("VAKTORmail.log").contains("t0pic"));
  Envois.EnvoiMail(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitCode(), 0);
  EXPECT_EQ(Serveur.NombreRecus(), 0) << "no address for mails";
}

TEST_F(ProgrammePush, OneThatFindsNobodyOutlivesAKillAndArrives) {
  Prepare();
  Push.Arrete();
  Lance();
  Photo("1.jpg");
  Envois.EnvoiMail(Commande::kIntrusion);
  ASSERT_TRUE(AttendQue([this] { return LitEtat("VAKTORpush.json").contains("push-server"); }));
  Tue();
  EXPECT_EQ(PushEnAttente().size(), 1);
  Push.Demarre(true);
  Lance();
  EXPECT_TRUE(AttendQue([this] { return Push.Nombre() == 1; })) << "by the next one, at once";
  EXPECT_TRUE(AttendQue([this] { return LitEtat("VAKTORpush.json").contains("\"ok\""); }));
}

TEST_F(ProgrammePush, WithoutAnAddressForMailsTheWatchSpeaksByPush) {
  Prepare();
  Lance();
  PoseMessage(Temporaire.filePath("veille"), "1700000000000-1", kImageEntiere);
  Envois.EnvoiMail(Commande::kVeille);
  ASSERT_TRUE(AttendQue([this] { return Push.Nombre() == 1; }));
  EXPECT_EQ(Push.Corps(0), kImageEntiere);
  EXPECT_EQ(Push.Entete(0, "title"), "Vaktor ne voit plus");
  EXPECT_TRUE(AttendQue([this] { return PushEnAttente().isEmpty(); }));
  EXPECT_TRUE(QDir(Temporaire.filePath("veille")).entryList(QDir::Files).isEmpty());
  EXPECT_FALSE(LitEtat("VAKTORmail.json").contains("mail-incomplete"));
}

}  // namespace
}  // namespace vaktor::essai
