// SPDX-License-Identifier: GPL-3.0-or-later
// What may stand in place of a mail program's files: too much, nothing, something else. And what must stay closed.
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QSet>
#include <QStringEncoder>
#include <array>
#include <cstring>

#include "platform/accounts/account_home.h"
#include "platform/accounts/evolution_accounts.h"
#include "platform/accounts/thunderbird_accounts.h"

namespace vaktor::essai {
namespace {

struct Abime : DomicileComptes {
  QByteArray Nom(const QString& fichier) const { return QFile::encodeName(Chemin(fichier)); }
  void Enleve(const QString& fichier) const { ASSERT_TRUE(QFile::remove(Chemin(fichier))); }
  void Lie(const QByteArray& cible, const QString& fichier) const {
    ASSERT_EQ(::symlink(cible.constData(), Nom(fichier).constData()), 0);
  }
};

const QString kPrefsDuProfil = QStringLiteral(".thunderbird/p/prefs.js");

QByteArray Remplissage(qsizetype octets) {
  const QByteArray ligne = "user_pref(\"extensions.remplissage\", \"" + QByteArray(1000, 'x') + "\\\"\");\n";
  return ligne.repeated(octets / ligne.size());
}

TEST_F(Abime, FiftyMegabytesOfPreferences) {
  EcritProfil(Remplissage(25 << 20) + PrefsDUnCompte() + Remplissage(25 << 20));
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Abime, FiftyMegabytesOfOneText) {
  const QByteArray texte = "user_pref(\"a\", \"" + QByteArray(50 << 20, 'x') + "\");\n";
  EcritProfil(texte + PrefsDUnCompte());
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Abime, WhatStandsBeforeTheLimitIsShown) {
  const QByteArray compte = PrefsDUnCompte();
  EcritProfil(compte + "user_pref(\"mail.smtpserver.s.port\", 1);");
  for (const auto& [limite, port, reste] :
       {std::tuple(compte.size(), 587, qint64{0}), std::tuple(compte.size() + 100, 1, qint64{61})}) {
    BudgetLecture budget{limite};
    ListeComptes liste;
    LitProfilThunderbird(Chemin(".thunderbird/p"), budget, liste);
    ASSERT_EQ(liste.Comptes().size(), 1);
    EXPECT_EQ(liste.Comptes()[0].Port, port);
    EXPECT_EQ(budget.Octets, reste) << "what one file takes, the next one lacks";
  }
}

TEST_F(Abime, AFileWithoutEnd) {
  EcritProfil(PrefsDUnCompte());
  QFile fichier(Chemin(kPrefsDuProfil));
  if (!fichier.resize(1LL << 40)) GTEST_SKIP() << "no sparse files of this size here";
  EXPECT_EQ(Montre(), kUnCompte);
}

TEST_F(Abime, OnlyNoise) {
  QByteArray bruit;
  for (unsigned i = 0; i < 1'000'000; ++i) bruit += static_cast<char>(i * i * 7 + i / 3);  // may wrap
  EcritProfil(bruit);
  EXPECT_EQ(Montre(), QStringList{});
  EcritProfil(bruit + '\n' + PrefsDUnCompte());
  Ecrit(".config/evolution/sources/a.source", bruit);
  Montre();  // whatever it opens with: it ends
  EcritProfil({});
  EXPECT_EQ(Montre(), QStringList{});
}

TEST_F(Abime, Utf16WithItsMark) {
  EcritProfil(QStringEncoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom)(
      QString::fromUtf8(PrefsDUnCompte("user_pref(\"mail.smtpserver.s.username\", \"\u00e9\");"))));
  EXPECT_EQ(Montre(), QStringList{QStringLiteral("*a@b.org|smtp.b.org|\u00e9|587")});
}

TEST_F(Abime, LinksAreFollowedAndLoopsEnd) {
  EcritProfil(PrefsDUnCompte());
  ASSERT_TRUE(QFile::rename(Chemin(kPrefsDuProfil), Chemin("ailleurs.js")));
  Lie(Nom("ailleurs.js"), kPrefsDuProfil);
  EXPECT_EQ(Montre(), kUnCompte);
  Enleve(kPrefsDuProfil);
  Lie("prefs.js", kPrefsDuProfil);
  EXPECT_EQ(Montre(), QStringList{});
  Enleve(".thunderbird/profiles.ini");
  Lie("b", ".thunderbird/profiles.ini");
  Lie("profiles.ini", ".thunderbird/b");
  EXPECT_EQ(Montre(), QStringList{});
}

TEST_F(Abime, FoldersThatAreLinksInARing) {
  ASSERT_TRUE(QDir().mkpath(Chemin(".config/evolution")));
  Lie(".thunderbird", ".thunderbird");
  Lie("sources", ".config/evolution/sources");
  EXPECT_EQ(Montre(), QStringList{});
  Enleve(".config/evolution/sources");
  Lie(".", ".config/evolution/sources");
  EXPECT_EQ(Montre(), QStringList{});
}

TEST_F(Abime, PipesDevicesSocketsAndFoldersAreNotRead) {
  EcritProfil(PrefsDUnCompte());
  Enleve(kPrefsDuProfil);
  ASSERT_EQ(::mkfifo(Nom(kPrefsDuProfil).constData(), 0600), 0);
  EXPECT_EQ(Montre(), QStringList{});
  const int ecriture = ::open(Nom(kPrefsDuProfil).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(ecriture, 0);
  const QByteArray prefs = PrefsDUnCompte();
  ASSERT_EQ(::write(ecriture, prefs.constData(), static_cast<std::size_t>(prefs.size())), prefs.size());
  EXPECT_EQ(Montre(), QStringList{}) << "not even with something in it";
  ::close(ecriture);
  for (const char* cible : {"/dev/zero", "/dev/tty", "/dev/stdin", "/"}) {
    Enleve(kPrefsDuProfil);
    Lie(cible, kPrefsDuProfil);
    EXPECT_EQ(Montre(), QStringList{}) << cible;
  }
  Enleve(".thunderbird/profiles.ini");
  ASSERT_EQ(::mkfifo(Nom(".thunderbird/profiles.ini").constData(), 0600), 0);
  ASSERT_TRUE(QDir().mkpath(Chemin(".config/evolution/sources")));
  ASSERT_EQ(::mkfifo(Nom(".config/evolution/sources/a.source").constData(), 0600), 0);
  EXPECT_EQ(Montre(), QStringList{});
}

// The superuser is refused nothing, so it becomes somebody else for this one reading.
TEST_F(Abime, FilesThatMayNotBeRead) {
  EcritProfil(PrefsDUnCompte());
  const uid_t moi = ::geteuid();
  if (moi == 0) {
    ASSERT_EQ(::chmod(QFile::encodeName(Temporaire.path()).constData(), 0755), 0);
    ASSERT_EQ(::seteuid(65534), 0);
    EXPECT_EQ(Montre(), kUnCompte);
    ASSERT_EQ(::seteuid(0), 0);
  }
  ASSERT_EQ(::chmod(Nom(kPrefsDuProfil).constData(), 0), 0);
  ASSERT_TRUE(moi != 0 || ::seteuid(65534) == 0);
  const QStringList comptes = Montre();
  ASSERT_EQ(::seteuid(moi), 0);
  EXPECT_EQ(comptes, QStringList{});
}

TEST_F(Abime, AFolderOfTooManySources) {
  const QString dossier = ".config/evolution/sources/";
  Ecrit(dossier + "0.source",
        "[Mail Account]\nIdentityUid=0\n[Mail Identity]\nAddress=a@b.org\n[Mail Submission]\n"
        "TransportUid=0\n[Mail Transport]\n[Authentication]\nHost=smtp.b.org\nPort=587\nUser=moi\n");
  EXPECT_EQ(Montre(), kUnCompte);
  for (int i = 1; i < kSourcesMax + 100; ++i)
    Ecrit(dossier + QString::number(i) + ".source", "[Data Source]\nEnabled=true\n");
  EXPECT_LE(Montre().size(), 1);
}

/// The names of files opened in some folders, and whether anything was changed in them.
class Guet {
 public:
  explicit Guet(const QList<QByteArray>& dossiers) {
    for (const QByteArray& dossier : dossiers) ::inotify_add_watch(Descripteur_, dossier.constData(), IN_ALL_EVENTS);
  }
  ~Guet() { ::close(Descripteur_); }
  Guet(const Guet&) = delete;
  Guet& operator=(const Guet&) = delete;

  void Lit() {
    alignas(inotify_event) std::array<char, 65536> tampon{};
    const ssize_t lus = ::read(Descripteur_, tampon.data(), tampon.size());
    for (ssize_t place = 0; place < lus;) {
      inotify_event evenement{};
      std::memcpy(&evenement, tampon.data() + place, sizeof evenement);
      const QString nom = evenement.len == 0 ? QString() : QString::fromUtf8(tampon.data() + place + sizeof evenement);
      if ((evenement.mask & IN_OPEN) != 0 && (evenement.mask & IN_ISDIR) == 0) Ouverts << nom;
      if ((evenement.mask & ~std::uint32_t{IN_OPEN | IN_ACCESS | IN_CLOSE_NOWRITE | IN_ISDIR}) != 0) Changes << nom;
      place += static_cast<ssize_t>(sizeof evenement + evenement.len);
    }
  }

  QSet<QString> Ouverts;
  QSet<QString> Changes;

 private:
  int Descripteur_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

TEST_F(Abime, PasswordsStayClosedAndNothingIsWritten) {
  EcritProfil(PrefsDUnCompte());
  for (const char* secret :
       {"logins.json", "key4.db", "key3.db", "signons.sqlite", "logins.db", "cert9.db", "user.js"}) {
    Ecrit(QStringLiteral(".thunderbird/p/") + QString::fromLatin1(secret), "secret");
  }
  Ecrit(".config/evolution/sources/a.source", "[Data Source]\nEnabled=true\n");
  Ecrit(".config/evolution/sources/a.keyring", "secret");
  Ecrit(".local/share/keyrings/login.keyring", "secret");
  Guet guet({Nom("."), Nom(".thunderbird"), Nom(".thunderbird/p"), Nom(".config"), Nom(".config/evolution/sources"),
             Nom(".local/share/keyrings")});
  EXPECT_EQ(Montre(), kUnCompte);
  guet.Lit();
  EXPECT_EQ(guet.Ouverts, (QSet<QString>{"profiles.ini", "prefs.js", "a.source"}));
  EXPECT_EQ(guet.Changes, QSet<QString>{});
}

}  // namespace
}  // namespace vaktor::essai
