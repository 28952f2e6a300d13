// SPDX-License-Identifier: GPL-3.0-or-later
// The reading of all accounts: its order, its limits, its patience.
#include <QSemaphore>

#include "platform/accounts/account_home.h"
#include "platform/accounts/account_list.h"

namespace vaktor::essai {
namespace {

struct Lecture : DomicileComptes {
  void EcritComptes(int nombre, const QByteArray& adresse = "@b.org") const {
    QByteArray noms;
    QByteArray prefs;
    for (int i = 0; i < nombre; ++i) {
      const QByteArray n = QByteArray::number(i);
      noms += ",a" + n;
      prefs += "user_pref(\"mail.account.a" + n + ".identities\", \"i" + n + "\");\n" +  //
               "user_pref(\"mail.identity.i" + n + ".useremail\", \"" + n + adresse + "\");\n";
    }
    EcritProfil(
        "user_pref(\"mail.accountmanager.accounts\", \"" + noms + "\");\n" + prefs +
        "user_pref(\"mail.smtpservers\", \"s\");\nuser_pref(\"mail.smtpserver.s.hostname\", \"smtp.b.org\");\n");
  }
};

TEST_F(Lecture, WithoutMailProgramsThereIsNothing) { EXPECT_TRUE(LitTousLesComptes(Lieux).isEmpty()); }

TEST_F(Lecture, AnAccountWithAllThatItHas) {
  EcritProfil(PrefsDUnCompte());
  EXPECT_EQ(LitTousLesComptes(Lieux), (QList<CompteMail>{{.Serveur = "smtp.b.org",
                                                          .Adresse = "a@b.org",
                                                          .Utilisateur = "moi",
                                                          .Port = 587,
                                                          .OAuth2 = false,
                                                          .ParDefaut = true}}));
}

TEST_F(Lecture, ThereIsABoundToHowManyThereAre) {
  EcritComptes(kComptesMax);
  EXPECT_EQ(Montre().size(), kComptesMax);
  EcritComptes(5000);
  const QStringList comptes = Montre();
  EXPECT_EQ(comptes.size(), kComptesMax);
  EXPECT_EQ(comptes.first(), "*0@b.org|smtp.b.org||587");
  EXPECT_EQ(comptes.last(), QStringLiteral("%1@b.org|smtp.b.org||587").arg(kComptesMax - 1));
}

TEST_F(Lecture, AccountsThatCannotBeUsedKeepTheirPlaces) {
  EcritProfil(
      PrefsDUnCompte("user_pref(\"mail.accountmanager.accounts\", \"x,y,a\");\n"
                     "user_pref(\"mail.account.x.identities\", \"j\");\n"
                     "user_pref(\"mail.identity.j.smtpServer\", \"s\");\n"
                     "user_pref(\"mail.account.y.identities\", \"k\");\n"
                     "user_pref(\"mail.identity.k.useremail\", \"k@b.org\");\n"
                     "user_pref(\"mail.identity.k.smtpServer\", \"gone\");\n"));
  EXPECT_EQ(Utilisables(), (QList<bool>{false, false, true})) << "one without an address, one without a server";
  EXPECT_EQ(Montre(), QStringList{"a@b.org|smtp.b.org|moi|587"}) << "the default one is the first, usable or not";
  EcritComptes(3, "\\n@b.org");
  EXPECT_EQ(Utilisables(), (QList<bool>{false, false, false})) << "no line break in an address";
}

TEST_F(Lecture, EveryPortOfTheNetworkAndNoOther) {
  for (const auto& [port, montre] :
       {std::pair("1", "1"), std::pair("25", "25"), std::pair("255", "255"), std::pair("256", "256"),
        std::pair("32767", "32767"), std::pair("32768", "32768"), std::pair("40000", "40000"),
        std::pair("65535", "65535"), std::pair("65536", "-"), std::pair("-1", "-"), std::pair("-32768", "-"),
        std::pair("2147483647", "-"), std::pair("-2147483648", "-")}) {
    EcritProfil(PrefsDUnCompte(QByteArray("user_pref(\"mail.smtpserver.s.port\", ") + port + ");"));
    EXPECT_EQ(Montre(), QStringList{QStringLiteral("*a@b.org|smtp.b.org|moi|") + QString::fromLatin1(montre)}) << port;
  }
}

TEST_F(Lecture, TextsThatNoServerShouldBeSentAreNotShown) {
  for (const char* pref : {"mail.smtpserver.s.hostname", "mail.identity.i.useremail", "mail.smtpserver.s.username"}) {
    for (const char* texte : {"x\\r\\nRCPT TO:<y>", "x\\ny", "x\\u0001y", "x\\x7fy", "x\\u0009y"}) {
      EcritProfil(PrefsDUnCompte(QByteArray("user_pref(\"") + pref + "\", \"" + texte + "\");"));
      EXPECT_EQ(Montre(), QStringList{}) << pref << ' ' << texte;
    }
    for (const auto& [longueur, nombre] : {std::pair(254, 1), std::pair(255, 0), std::pair(100'000, 0)}) {
      EcritProfil(PrefsDUnCompte(QByteArray("user_pref(\"") + pref + "\", \"" + QByteArray(longueur, 'x') + "\");"));
      EXPECT_EQ(Montre().size(), nombre) << pref << ' ' << longueur;
    }
  }
}

TEST_F(Lecture, BlanksAroundATextAreNoPartOfIt) {
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.hostname\", \" smtp.b.org \");"));
  EXPECT_EQ(Montre(), kUnCompte);
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.hostname\", \"  \");"));
  EXPECT_EQ(Montre(), QStringList{});
}

TEST(LecteurComptes, ReadsAnewEachTime) {
  int lectures = 0;
  LecteurComptesBorne lecteur([&lectures] {
    ++lectures;
    return QList<CompteMail>(lectures);
  });
  EXPECT_EQ(lecteur.LitComptes().size(), 1);
  EXPECT_EQ(lecteur.LitComptes().size(), 2);
}

TEST(LecteurComptes, ADiskThatDoesNotAnswerIsLeftBehind) {
  const auto disque = std::make_shared<QSemaphore>();
  LecteurComptesBorne lecteur(
      [disque] {
        disque->acquire();
        return QList<CompteMail>(1);
      },
      std::chrono::milliseconds(20));
  EXPECT_TRUE(lecteur.LitComptes().isEmpty());
  EXPECT_TRUE(lecteur.LitComptes().isEmpty());
  disque->release(2);
}

TEST(LieuxComptes, AreTheUsersOwn) {
  const QByteArray avant = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", "/une/configuration");
  EXPECT_EQ(TrouveLieuxComptes().Configuration, "/une/configuration");
  EXPECT_EQ(TrouveLieuxComptes().Domicile, QDir::homePath());
  avant.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", avant);
}

}  // namespace
}  // namespace vaktor::essai
