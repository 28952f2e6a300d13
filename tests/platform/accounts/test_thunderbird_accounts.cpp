// SPDX-License-Identifier: GPL-3.0-or-later
// Thunderbird's profiles and accounts.
#include <QStringEncoder>

#include "platform/accounts/account_home.h"
#include "platform/accounts/foreign_file.h"
#include "platform/accounts/thunderbird_accounts.h"

namespace vaktor::essai {
namespace {

struct Thunderbird : DomicileComptes {};

// The files were written by Thunderbird 153 of Debian; the accounts were given to it through its own interfaces.
TEST_F(Thunderbird, AProfileOfTheRealProgram) {
  Copie("thunderbird/profiles.ini", ".thunderbird/profiles.ini");
  Copie("thunderbird/il3awyl6.default-default/prefs.js", ".thunderbird/il3awyl6.default-default/prefs.js");
  EXPECT_EQ(Montre(), (QStringList{"*garde@example.net|mail.example.net|garde@example.net|465",
                                   "jeanne@example.org|smtp.example.org|jeanne|587"}));
}

TEST_F(Thunderbird, TheDefaultAccountComesFirst) {
  EcritProfil(
      PrefsDUnCompte("user_pref(\"mail.accountmanager.accounts\", \"x, a ,c,,b\");\n"
                     "user_pref(\"mail.accountmanager.defaultaccount\", \"b\");\n"
                     "user_pref(\"mail.account.b.identities\", \"j\");\n"
                     "user_pref(\"mail.identity.j.useremail\", \"b@b.org\");\n"
                     "user_pref(\"mail.account.c.identities\", \"k\");\n"
                     "user_pref(\"mail.identity.k.useremail\", \"c@b.org\");\n"
                     "user_pref(\"mail.smtpservers\", \"s\");\n"));
  EXPECT_EQ(Montre(),
            (QStringList{"*b@b.org|smtp.b.org|moi|587", "a@b.org|smtp.b.org|moi|587", "c@b.org|smtp.b.org|moi|587"}));
}

TEST_F(Thunderbird, ADefaultAccountThatCannotSendGivesWayToTheNext) {
  EcritProfil(
      PrefsDUnCompte("user_pref(\"mail.accountmanager.accounts\", \"dossiers,a\");\n"
                     "user_pref(\"mail.accountmanager.defaultaccount\", \"dossiers\");\n"));
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Thunderbird, SecondIdentitiesComeLast) {
  EcritProfil(
      PrefsDUnCompte("user_pref(\"mail.accountmanager.accounts\", \"a,b\");\n"
                     "user_pref(\"mail.account.a.identities\", \"i,i2\");\n"
                     "user_pref(\"mail.identity.i2.useremail\", \"autre@b.org\");\n"
                     "user_pref(\"mail.identity.i2.smtpServer\", \"s\");\n"
                     "user_pref(\"mail.account.b.identities\", \"j\");\n"
                     "user_pref(\"mail.identity.j.useremail\", \"b@b.org\");\n"
                     "user_pref(\"mail.identity.j.smtpServer\", \"s\");\n"));
  EXPECT_EQ(Montre(), (QStringList{"*a@b.org|smtp.b.org|moi|587", "b@b.org|smtp.b.org|moi|587",
                                   "autre@b.org|smtp.b.org|moi|587"}));
}

TEST_F(Thunderbird, TheServerOfTheIdentityThenTheDefaultThenTheFirst) {
  const QByteArray autres =
      "user_pref(\"mail.smtpservers\", \"premier,defaut\");\n"
      "user_pref(\"mail.smtpserver.premier.hostname\", \"premier\");\n"
      "user_pref(\"mail.smtpserver.defaut.hostname\", \"defaut\");\n";
  const QByteArray defaut = "user_pref(\"mail.smtp.defaultserver\", \"defaut\");\n";
  const QByteArray sans = "user_pref(\"mail.identity.i.smtpServer\", \"\");\n";
  EcritProfil(PrefsDUnCompte(autres + defaut));
  EXPECT_EQ(Montre(), kUnCompte);
  EcritProfil(PrefsDUnCompte(autres + defaut + sans));
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|defaut||587"});
  EcritProfil(PrefsDUnCompte(autres + sans));
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|premier||587"});
  EcritProfil(PrefsDUnCompte(sans));
  EXPECT_EQ(Montre(), QStringList{});
  EcritProfil(PrefsDUnCompte(autres + "user_pref(\"mail.identity.i.smtpServer\", \"parti\");\n"));
  EXPECT_EQ(Montre(), QStringList{});
}

TEST_F(Thunderbird, WithoutAPortTheOneOfTheEncryption) {
  for (const char* sans :
       {"user_pref(\"mail.smtpserver.s.port\", 0);\n", "user_pref(\"mail.smtpserver.s.port\", \"25\");\n"}) {
    EcritProfil(PrefsDUnCompte(sans));
    EXPECT_EQ(Montre(), kUnCompte);
    EcritProfil(PrefsDUnCompte(QByteArray(sans) + "user_pref(\"mail.smtpserver.s.try_ssl\", 2);\n"));
    EXPECT_EQ(Montre(), kUnCompte);
    EcritProfil(PrefsDUnCompte(QByteArray(sans) + "user_pref(\"mail.smtpserver.s.try_ssl\", 3);\n"));
    EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|465"});
  }
}

TEST_F(Thunderbird, APortThatWasSetStaysWhateverTheEncryption) {
  for (const char* ssl : {"0", "2", "3"}) {
    EcritProfil(PrefsDUnCompte(QByteArray("user_pref(\"mail.smtpserver.s.port\", 2525);\n") +
                               "user_pref(\"mail.smtpserver.s.try_ssl\", " + ssl + ");\n"));
    EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|2525"}) << ssl;
  }
}

TEST_F(Thunderbird, AServerThatWantsNoLoginHasNoUser) {
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.authMethod\", 1);\n"));
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org||587"});
}

TEST_F(Thunderbird, AnAccountThatLogsInWithATokenIsMarked) {
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.authMethod\", 10);\n"));
  EXPECT_EQ(Montre(), QStringList{"*a@b.org|smtp.b.org|moi|587|OAuth2"});
  for (const char* methode : {"3", "4", "5", "6", "100", "\"10\""}) {
    EcritProfil(PrefsDUnCompte(QByteArray("user_pref(\"mail.smtpserver.s.authMethod\", ") + methode + ");\n"));
    EXPECT_EQ(Montre(), kUnCompte) << methode;
  }
}

TEST_F(Thunderbird, AnAccountWithoutAnIdentityIsAPlaceForMailAndSendsNone) {
  EcritProfil(
      PrefsDUnCompte("user_pref(\"mail.accountmanager.accounts\", \"dossiers,nouvelles,a\");\n"
                     "user_pref(\"mail.account.dossiers.server\", \"server1\");\n"));
  EXPECT_EQ(Utilisables(), QList<bool>{true});
}

TEST_F(Thunderbird, AServerOfAnotherKindIsNoServer) {
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.type\", \"ews\");\n"));
  EXPECT_EQ(Montre(), QStringList{});
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.type\", \"smtp\");\n"));
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Thunderbird, EscapesAndEncodingsInTexts) {
  EcritProfil(PrefsDUnCompte(R"(user_pref("mail.identity.i.useremail", "j\u00e9r\xf4me@b.org");)"
                             "\nuser_pref(\"mail.smtpserver.s.username\", \"EXEMPLE\\\\\xe9t\xe9\");\n"));
  EXPECT_EQ(Montre(), QStringList{QStringLiteral("*j\u00e9r\u00f4me@b.org|smtp.b.org|EXEMPLE\\\u00e9t\u00e9|587")});
}

struct Profils : DomicileComptes {
  void EcritCompte(const QString& profil, const QByteArray& adresse) const {
    Ecrit(profil + "/prefs.js", PrefsDUnCompte("user_pref(\"mail.identity.i.useremail\", \"" + adresse + "\");"));
  }
  QStringList Adresses() {
    QStringList adresses;
    for (const QString& ligne : Montre()) adresses << ligne.section('|', 0, 0);
    return adresses;
  }
  void SetUp() override {
    EcritCompte(".thunderbird/Profiles/un", "un@b.org");
    EcritCompte(".thunderbird/deux", "deux@b.org");
    EcritCompte("ailleurs/trois", "trois@b.org");
  }
  QByteArray Trois() const {
    return "[Profile2]\r\nIsRelative=0\r\nPath=" + Chemin("ailleurs/trois").toUtf8() + "\r\n";
  }
};

TEST_F(Profils, AllOfThemThoseOfInstallationsFirstThenTheDefault) {
  const QByteArray liste =
      "[General]\nVersion=2\n[Profile0]\nIsRelative=1\nPath=Profiles/un\n[Profile1]\nPath=deux\n" + Trois();
  Ecrit(".thunderbird/profiles.ini", liste);
  EXPECT_EQ(Adresses(), (QStringList{"*un@b.org", "deux@b.org", "trois@b.org"})) << "in the order of the file";
  Ecrit(".thunderbird/profiles.ini", liste + "Default=1\n");
  EXPECT_EQ(Adresses(), (QStringList{"*trois@b.org", "un@b.org", "deux@b.org"}));
  Ecrit(".thunderbird/profiles.ini", "[InstallAB12]\nDefault=deux\nLocked=1\n" + liste + "Default=1\n");
  EXPECT_EQ(Adresses(), (QStringList{"*deux@b.org", "trois@b.org", "un@b.org"}));
  Ecrit(".thunderbird/profiles.ini", "[InstallAB12]\nDefault=parti\n" + liste);
  EXPECT_EQ(Adresses(), (QStringList{"*un@b.org", "deux@b.org", "trois@b.org"}));
}

// Each is read from its beginning, and all of them together may cost so many bytes only.
TEST_F(Profils, OneThatSeveralLinesNameIsReadOnce) {
  Ecrit(".thunderbird/profiles.ini",
        "[InstallAB12]\nDefault=deux\n[InstallCD34]\nDefault=deux\n"
        "[Profile0]\nPath=deux\nDefault=1\n[Profile1]\nPath=deux\n" +
            Trois());
  BudgetLecture budget{kListeProfilsMax};
  EXPECT_EQ(TrouveProfils(Chemin(".thunderbird"), budget),
            (QStringList{Chemin(".thunderbird/deux"), Chemin("ailleurs/trois")}));
}

TEST_F(Profils, AnEncodedListOfProfiles) {
  const QString liste = "[Profile0]\r\nName=\u00e9\r\nIsRelative=1\r\nPath=deux\r\n";
  Ecrit(".thunderbird/profiles.ini",
        QStringEncoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom)(liste));
  EXPECT_EQ(Adresses(), QStringList{"*deux@b.org"});
}

TEST_F(Profils, HostileLists) {
  for (const QByteArray& liste :
       {QByteArray(), QByteArray("[Profile0"), QByteArray("[Profile0]"), QByteArray("[Profile0]\nPath="),
        QByteArray("[Profile0]\nPath=../../../../../../nulle/part"), QByteArray("Path=deux"),
        QByteArray("[Profile0]\nPath=deux\0\n", 22), QByteArray(300'000, '['), QByteArray(100'000, '\n')}) {
    Ecrit(".thunderbird/profiles.ini", liste);
    EXPECT_EQ(Adresses(), QStringList{}) << liste.left(40).toStdString();
  }
  QByteArray foule;
  for (int i = 0; i < 10'000; ++i)
    foule += "[Profile" + QByteArray::number(i) + "]\nPath=p" + QByteArray::number(i) + '\n';
  Ecrit(".thunderbird/profiles.ini", "[Profile10000]\nPath=deux\n" + foule);
  EXPECT_EQ(Adresses(), QStringList{"*deux@b.org"});
}

TEST_F(Profils, TheOtherHomes) {
  for (const char* racine :
       {".config/thunderbird", "snap/thunderbird/common/.thunderbird", ".var/app/org.mozilla.Thunderbird/.thunderbird",
        ".var/app/org.mozilla.thunderbird/.thunderbird"}) {
    const QString dossier = Temporaire.filePath(QString::fromLatin1(racine).replace('/', '_'));
    const LieuxComptes lieux{dossier, dossier + "/.config"};
    QDir().mkpath(dossier + '/' + racine + "/p");
    for (const auto& [nom, octets] : {std::pair<QString, QByteArray>("profiles.ini", "[Profile0]\nPath=p\n"),
                                      std::pair<QString, QByteArray>("p/prefs.js", PrefsDUnCompte())}) {
      QFile fichier(dossier + '/' + racine + '/' + nom);
      ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
      fichier.write(octets);
    }
    EXPECT_EQ(LitTousLesComptes(lieux).size(), 1) << racine;
  }
}

TEST_F(Profils, AnAccountThatStandsInTwoPlacesIsShownOnce) {
  EcritProfil(PrefsDUnCompte());
  EcritProfil(PrefsDUnCompte(), "snap/thunderbird/common/.thunderbird");
  EXPECT_EQ(Montre(), kUnCompte);
}

}  // namespace
}  // namespace vaktor::essai
