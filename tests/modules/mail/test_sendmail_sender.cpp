// SPDX-License-Identifier: GPL-3.0-or-later
// The system's own mail program, played by scripts: what it is given, and what its exit status says.
#include <fcntl.h>
#include <unistd.h>

#include "modules/mail/sender_bench.h"

namespace vaktor::essai {
namespace {

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

TEST_F(Sendmail, HasNoneOfOurOpenFiles) {
  const int ouvert = ::open("/dev/null", O_RDONLY);  // as a library opens one, without a thought for children
  ASSERT_GT(ouvert, 2);
  Ecrit("cat > /dev/null\nreadlink /proc/$$/fd/" + QByteArray::number(ouvert) + " > vu\nexit 0\n");
  EXPECT_TRUE(Envoie().Accepte);
  EXPECT_EQ(LitOctets(Dossier.filePath("vu")), "");
  ::close(ouvert);
}

TEST_F(Sendmail, ItsOwnWordsAreTold) {
  Ecrit("cat > /dev/null\necho 'no route to mail host' >&2\nexit 75\n");
  const ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kProgrammeEchoue);
  EXPECT_EQ(r.MotsServeur, "no route to mail host");
  EXPECT_EQ(Acceptes, 0);
}

TEST_F(Sendmail, WhatItSaysOfTheMailOrOfAnAddressHoldsUpNoOther) {
  Ecrit("cat > /dev/null\nexit 65\n");
  ResultatEnvoi r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kMessageRefuse);
  EXPECT_TRUE(r.Definitif && r.DuCourriel);
  Ecrit("cat > /dev/null\nexit 67\n");
  r = Envoie();
  EXPECT_EQ(r.Cause, CauseEchec::kDestinataireRefuse);
  EXPECT_TRUE(r.Definitif && r.DuCourriel);
  Ecrit("cat > /dev/null\nexit 69\n");
  r = Envoie();
  EXPECT_FALSE(r.Definitif || r.DuCourriel);
}

TEST_F(Sendmail, OfSeveralAddressesOneThatItRefusesKeepsTheMailFromNoOther) {
  Ecrit(
      "cat > /dev/null\nfor a; do case $a in bad@*) exit 67;; esac; done\nfor a; do :; done\n"
      "case $a in busy@*) exit 75;; esac\necho \"$a\" >> pris\n");
  Adresses.Destinataires = {"bad@exemple.fr", "anna@exemple.fr", "busy@exemple.fr"};
  const ResultatEnvoi r = Envoie();
  EXPECT_TRUE(r.Accepte);
  EXPECT_EQ(LitOctets(Dossier.filePath("pris")), "anna@exemple.fr\n");
  QList<int> codes;
  for (const VerdictAdresse& v : r.Verdicts) codes << v.Code;
  EXPECT_EQ(codes, QList<int>({550, 250, 450}));
}

TEST_F(Sendmail, OneThatCrashesHasNotTakenTheMail) {
  Ecrit("cat > /dev/null\nkill -KILL $$\n");
  EXPECT_EQ(Envoie().Cause, CauseEchec::kProgrammeEchoue);
  EXPECT_EQ(Acceptes, 0);
}

TEST_F(Sendmail, OneThatHangsIsGivenUp) {
  Ecrit("exec sleep 3600\n");
  Reglages.Delais.FinDonnees = 500;
  EXPECT_EQ(Envoie().Cause, CauseEchec::kDelai);
}

}  // namespace
}  // namespace vaktor::essai
