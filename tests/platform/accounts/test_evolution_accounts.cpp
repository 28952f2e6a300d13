// SPDX-License-Identifier: GPL-3.0-or-later
// Evolution's sources.
#include "platform/accounts/account_home.h"

namespace vaktor::essai {
namespace {

struct Evolution : DomicileComptes {
  const QString Dossier = ".config/evolution/sources/";

  void EcritSource(const QString& nom, const QByteArray& texte) const { Ecrit(Dossier + nom + ".source", texte); }
  void EcritCompte(const QString& nom, const QByteArray& autres = {}) const {
    EcritSource(nom, "[Data Source]\nEnabled=true\n" + autres + "\n[Mail Account]\nIdentityUid=identite\n");
  }
  void EcritEnvoi(const QByteArray& lignes, const QByteArray& securite = "none") const {
    EcritSource("transport", "[Mail Transport]\nBackendName=smtp\n\n[Security]\nMethod=" + securite +
                                 "\n\n[Authentication]\nHost=smtp.b.org\nMethod=PLAIN\nPort=587\nUser=moi\n" + lignes);
  }
  void SetUp() override {
    EcritCompte("compte");
    EcritSource("identite", "[Mail Identity]\nAddress=a@b.org\nName=A\n\n[Mail Submission]\nTransportUid=transport\n");
    EcritEnvoi({});
  }
};

// The files were written by Evolution's own library, evolution-data-server 3.46 of Debian.
TEST(SourcesEvolution, FilesOfTheRealLibrary) {
  const QString config = QStringLiteral(COMPTES_D_ESSAI "/config");
  const QList<CompteMail> comptes = LitTousLesComptes({QStringLiteral("/nulle/part"), config});
  ASSERT_EQ(comptes.size(), 3) << "the local folders are no account to send with";
  EXPECT_EQ(comptes[0], (CompteMail{"smtp.example.org", "garde@example.org", "EXEMPLE\\garde", 587, false, true}));
  EXPECT_EQ(comptes[1], (CompteMail{"mail.example.net", "veille@example.net", "veille@example.net", 465}));
  EXPECT_EQ(comptes[2], (CompteMail{"localhost", "root@localhost", "", 25})) << "no login: its method is none";
}

TEST_F(Evolution, TheFirstByNameIsTheDefault) {
  EcritSource("a", "[Mail Account]\nIdentityUid=identite2\n");
  EcritSource("identite2", "[Mail Identity]\nAddress=z@b.org\n[Mail Submission]\nTransportUid=transport\n");
  EXPECT_EQ(Montre(), (QStringList{"*z@b.org|smtp.b.org|moi|587", "a@b.org|smtp.b.org|moi|587"}));
}

TEST_F(Evolution, ASwitchedOffAccountOrCollectionIsLeftOut) {
  EcritCompte("compte", "Enabled=false\n");
  EXPECT_EQ(Montre(), QStringList{});
  EcritCompte("compte", "Parent=collection\n");
  EcritSource("collection", "[Data Source]\nEnabled=false\n");
  EXPECT_EQ(Montre(), QStringList{});
  EcritSource("collection", "[Data Source]\nEnabled=true\n");
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Evolution, ParentsInARingEnd) {
  EcritCompte("compte", "Parent=autre\n");
  EcritSource("autre", "[Data Source]\nParent=compte\n");
  EXPECT_EQ(Montre(), kUnCompte);
  EcritCompte("compte", "Parent=compte\n");
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Evolution, BrokenChainsAreLeftOut) {
  EcritSource("identite", "[Mail Identity]\nAddress=a@b.org\n[Mail Submission]\nTransportUid=parti\n");
  EXPECT_EQ(Montre(), QStringList{});
  EXPECT_EQ(Utilisables(), QList<bool>{false}) << "in its place";
  EcritCompte("compte", "[Mail Account]\nIdentityUid=partie\n");
  EcritSource("compte", "[Mail Account]\nIdentityUid=partie\n");
  EXPECT_EQ(Montre(), QStringList{});
}

TEST_F(Evolution, AnAccountWithoutAnIdentityIsAPlaceForMailAndSendsNone) {
  EcritSource("a-local", "[Mail Account]\nBackendName=maildir\nIdentityUid=\n");
  EcritSource("b-search", "[Mail Account]\nBackendName=vfolder\n");
  EcritSource("c-self", "[Mail Account]\nBackendName=maildir\nIdentityUid=self\n");
  EXPECT_EQ(Utilisables(), QList<bool>{true});
}

TEST_F(Evolution, AnAccountOfATokenIsMarked) {
  for (const char* methode : {"OAuth2", "XOAUTH2", "Google", "Outlook", "Yahoo", "xoauth2"}) {
    EcritEnvoi(QByteArray("Method=") + methode + '\n');
    EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|587|OAuth2"}) << methode;
  }
  for (const char* methode : {"PLAIN", "LOGIN", "CRAM-MD5", "", "OAuth"}) {
    EcritEnvoi(QByteArray("Method=") + methode + '\n');
    EXPECT_EQ(Montre(), kUnCompte) << methode;
  }
}

TEST_F(Evolution, OnlySmtpIsAServer) {
  EcritSource("transport", "[Mail Transport]\nBackendName=sendmail\n[Authentication]\nHost=smtp.b.org\n");
  EXPECT_EQ(Montre(), QStringList{});
  EcritSource("transport", "[Authentication]\nHost=imap.b.org\n");
  EXPECT_EQ(Montre(), QStringList{}) << "where mail is fetched from";
  EcritSource("transport", "[Mail Transport]\n[Authentication]\nHost=smtp.b.org\n");
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org||-"});
}

TEST_F(Evolution, PortsAsEvolutionMeansThem) {
  EcritEnvoi("Port=0\n");
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|-"});
  EcritEnvoi("Port=\n", "ssl-on-alternate-port");
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|465"});
  EcritEnvoi("Port=2525\n", "ssl-on-alternate-port");
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|2525"});
  for (const char* port : {"-1", "25x", "1e3", "65536", "99999999999999999999999", "port"}) {
    EcritEnvoi(QByteArray("Port=") + port + '\n', "ssl-on-alternate-port");
    EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|-"}) << port;
  }
}

TEST_F(Evolution, AServerThatWantsNoLoginHasNoUserWhateverNameIsLeft) {
  EcritEnvoi("Method=none\n");
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org||587"});
}

TEST_F(Evolution, TheFormOfKeyFiles) {
  EcritSource("identite",
              "\xef\xbb\xbf# said\r\n[Mail Identity]\r\nAddress = x@b.org \r\nAddress[fr]=non\r\nquoi\r\n=x\r\n"
              "[Mail Submission]\r\nTransportUid=transport\r\n[Mail Identity]\r\n  Address=a\\s\\t\\\\b@b.org");
  EXPECT_EQ(Montre(), QStringList{}) << "a tabulator is no part of an address";
  EcritSource("identite", "[Mail Identity]\nAddress=a\\s\\\\\\q\\\n[Mail Submission]\nTransportUid=transport\n");
  EXPECT_EQ(Montre(), QStringList{"*a \\\\q\\|smtp.b.org|moi|587"});
}

TEST_F(Evolution, OtherFilesOfTheFolderAreNotRead) {
  Ecrit(Dossier + "a.source~", "[Mail Account]\nIdentityUid=identite\n");
  Ecrit(Dossier + "a.txt", "[Mail Account]\nIdentityUid=identite\n");
  ASSERT_TRUE(QDir().mkpath(Chemin(Dossier + "dossier.source")));
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Evolution, ASourceIsReadUpToItsLimit) {
  EcritSource("identite", "[Mail Identity]\nAddress=a@b.org\n[Mail Submission]\nTransportUid=transport\n" +
                              QByteArray(10'000'000, '#') + "\n[Mail Identity]\nAddress=apres@b.org\n");
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Evolution, ItsFlatpakAndThunderbirdBesideIt) {
  EcritProfil(PrefsDUnCompte());
  EcritSource("identite", "[Mail Identity]\nAddress=e@b.org\n[Mail Submission]\nTransportUid=transport\n");
  EXPECT_EQ(Montre(), (QStringList{"*a@b.org|smtp.b.org|moi|587", "e@b.org|smtp.b.org|moi|587"}));
  ASSERT_TRUE(QDir().mkpath(Chemin(".var/app/org.gnome.Evolution/config/evolution")));
  ASSERT_TRUE(QDir().rename(Chemin(".config/evolution/sources"),
                            Chemin(".var/app/org.gnome.Evolution/config/evolution/sources")));
  EXPECT_EQ(Montre(), (QStringList{"*a@b.org|smtp.b.org|moi|587", "e@b.org|smtp.b.org|moi|587"}));
}

}  // namespace
}  // namespace vaktor::essai
