// The tree as a registry: its keys, its limits, its readings.
#include "platform/accounts/account_home.h"

namespace vaktor::essai {
namespace {

const QString kComptes = kRacine + QStringLiteral("\\Accounts");

struct Arbre : DomicileComptes {
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

TEST_F(Arbre, WithoutMailProgramsThereIsNoKey) {
  EXPECT_EQ(Registre.OuvreCle(kComptes), 0U);
  EXPECT_EQ(Registre.OuvreCle(kRacine), 0U);
  EXPECT_EQ(Registre.OuvreCle(kComptes + "\\00000001"), 0U);
}

TEST_F(Arbre, WithoutAUsableAccountThereIsNoKey) {
  EcritProfil("user_pref(\"mail.accountmanager.accounts\", \"account1\");\n");
  EXPECT_EQ(Registre.OuvreCle(kComptes), 0U);
}

TEST_F(Arbre, KeysAndValues) {
  EcritProfil(PrefsDUnCompte());
  EXPECT_EQ(Cles(kComptes), QStringList{"00000001"});
  EXPECT_EQ(Cles(kRacine), QStringList{"Accounts"});
  EXPECT_EQ(Cles(kComptes + "\\00000001"), QStringList{});
  EXPECT_EQ(Valeurs(kRacine), (QMap<QString, QByteArray>{{"Default Mail Account", QByteArray("00000001\0", 9)}}));
  EXPECT_EQ(Valeurs(kComptes), (QMap<QString, QByteArray>{}));
  EXPECT_EQ(Valeurs(kComptes + "\\00000001"),
            (QMap<QString, QByteArray>{{"SMTP Server", QByteArray("smtp.b.org\0", 11)},
                                       {"SMTP Email Address", QByteArray("a@b.org\0", 8)},
                                       {"SMTP User Name", QByteArray("moi\0", 4)},
                                       {"SMTP Port", QByteArray("\x4b\x02\0\0", 4)}}));
}

TEST_F(Arbre, NamesOfKeysHaveNoCase) {
  EcritProfil(PrefsDUnCompte());
  EXPECT_NE(Registre.OuvreCle(kComptes.toUpper() + "\\00000001"), 0U);
  EXPECT_EQ(Registre.OuvreCle(kComptes + "\\"), 0U);
  EXPECT_EQ(Registre.OuvreCle(kComptes + "\\00000002"), 0U);
  EXPECT_EQ(Registre.OuvreCle(QString()), 0U);
}

TEST_F(Arbre, EveryWalkEnds) {
  EcritProfil(PrefsDUnCompte());
  const RegistreComptes::Cle cle = Registre.OuvreCle(kComptes);
  QString nom = "intact";
  QByteArray donnee = "intacte";
  Registre.FermeCle(cle);
  for (const RegistreComptes::Cle absente : {cle, RegistreComptes::Cle{0}, RegistreComptes::Cle{99}}) {
    EXPECT_EQ(Registre.EnumereCle(absente, 0, nom), RegistreComptes::kPlusDElements);
    EXPECT_EQ(Registre.EnumereValeur(absente, 0, nom, donnee), RegistreComptes::kPlusDElements);
    Registre.FermeCle(absente);
  }
  const RegistreComptes::Cle ouverte = Registre.OuvreCle(kComptes);
  EXPECT_EQ(Registre.EnumereCle(ouverte, 0xffffffff, nom), RegistreComptes::kPlusDElements);
  EXPECT_EQ(Registre.EnumereValeur(ouverte, 0xffffffff, nom, donnee), RegistreComptes::kPlusDElements);
  EXPECT_EQ(nom, "intact");
  EXPECT_EQ(donnee, "intacte");
}

TEST_F(Arbre, OneReadingFromOneOpeningOfAccountsToTheNext) {
  EcritComptes(1);
  const RegistreComptes::Cle ancienne = Registre.OuvreCle(kComptes);
  EcritComptes(2);
  QString nom;
  EXPECT_EQ(Registre.EnumereCle(ancienne, 1, nom), RegistreComptes::kPlusDElements);
  EXPECT_EQ(Registre.OuvreCle(kComptes + "\\00000002"), 0U);
  const RegistreComptes::Cle nouvelle = Registre.OuvreCle(kComptes);
  EXPECT_EQ(Registre.EnumereCle(nouvelle, 1, nom), RegistreComptes::kSucces);
  EXPECT_EQ(Registre.EnumereCle(ancienne, 1, nom), RegistreComptes::kPlusDElements) << "an open key stays as it was";
  EXPECT_NE(Registre.OuvreCle(kComptes + "\\00000002"), 0U);
}

TEST_F(Arbre, AtMostAsManyKeysAsTheRuleHasSlotsFor) {
  EcritComptes(21);
  EXPECT_EQ(Cles(kComptes).size(), 21);
  EcritComptes(22);
  EXPECT_EQ(Cles(kComptes).size(), 21);
  EcritComptes(5000);
  const QStringList comptes = Montre();
  EXPECT_EQ(comptes.size(), 21);
  EXPECT_EQ(comptes.first(), "*0@b.org|smtp.b.org||587");
  EXPECT_EQ(comptes.last(), "20@b.org|smtp.b.org||587");
}

TEST_F(Arbre, AccountsThatCannotBeUsedDoNotCount) {
  EcritComptes(30, "\\n@b.org");
  EXPECT_EQ(Cles(kComptes).size(), 0);
}

TEST_F(Arbre, PortsThatTheRuleCanStand) {
  for (const auto& [port, montre] :
       {std::pair("1", "1"), std::pair("25", "25"), std::pair("255", "255"), std::pair("256", "256"),
        std::pair("32767", "32767"), std::pair("32768", "-"), std::pair("65535", "-"), std::pair("65536", "-"),
        std::pair("-1", "-"), std::pair("-32768", "-"), std::pair("2147483647", "-"), std::pair("-2147483648", "-")}) {
    EcritProfil(PrefsDUnCompte(QByteArray("user_pref(\"mail.smtpserver.s.port\", ") + port + ");"));
    EXPECT_EQ(Montre(), QStringList{QStringLiteral("*a@b.org|smtp.b.org|moi|") + QString::fromLatin1(montre)}) << port;
  }
}

TEST_F(Arbre, TextsThatNoServerShouldBeSentAreNotShown) {
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

TEST_F(Arbre, BlanksAroundATextAreNoPartOfIt) {
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.hostname\", \" smtp.b.org \");"));
  EXPECT_EQ(Montre(), kUnCompte);
  EcritProfil(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.hostname\", \"  \");"));
  EXPECT_EQ(Montre(), QStringList{});
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
