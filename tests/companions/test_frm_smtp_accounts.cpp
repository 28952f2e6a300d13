// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the mail settings over the real reader: what a user of these mail programs sees and picks.
#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>

#include "companions/smtp_bench.h"
#include "platform/accounts/account_reader.h"

namespace vaktor::essai {
namespace {

struct ComptesReels : BancSmtp {
  /// The folder `fixture`, with all below it, as `place` of the home.
  void Copie(const QString& fixture, const QString& place) {
    const QDir source(QStringLiteral(COMPTES_D_ESSAI "/") + fixture);
    const QDir cible(Domicile.filePath(place));
    QDirIterator fichiers(source.path(), QDir::Files, QDirIterator::Subdirectories);
    ASSERT_TRUE(fichiers.hasNext());
    while (fichiers.hasNext()) {
      const QString copie = cible.filePath(source.relativeFilePath(fichiers.next()));
      ASSERT_TRUE(QDir().mkpath(QFileInfo(copie).path()));
      ASSERT_TRUE(QFile::copy(fichiers.filePath(), copie));
    }
  }
  void OuvreSurFichiers() {
    Textes.Remplit(LitLangue(Reglages.LangueCourante));
    Forme = std::make_unique<FrmSmtp>(
        PortsFrmSmtp{Reglages, Sauvegarde, Textes, Etat, Boites, Pompe, Fichiers, Lus, Essai});
    Forme->Charge();
    Forme->EcritMots();
    Forme->Montre();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Forme.get()));
  }
  void VideReglages() {
    Reglages.SmtpServeur.clear();
    Reglages.SmtpFrom.clear();
  }
  QStringList Adresses() {
    auto* liste = Trouve<QComboBox>("CmbComptes");
    QStringList adresses;
    for (int i = 0; i < liste->count(); ++i) adresses << liste->itemText(i);
    return adresses;
  }
  QStringList Champs() {
    return {Lit("TxtFrom"), Lit("TxtSMTP"), Lit("TextPort"), Lit("TxtSMTPuser"),
            Coche("CheckNeedLoginSMTP") ? "login" : "-"};
  }

  QTemporaryDir Domicile;
  LecteurComptesBorne Fichiers{
      [lieux = LieuxComptes{Domicile.path(), Domicile.filePath(".config")}] { return LitTousLesComptes(lieux); },
      std::chrono::minutes(1)};  // a busy machine reads slowly
};

TEST_F(ComptesReels, TheDefaultAccountFillsEmptySettingsAndAnyOtherCanBePicked) {
  Copie("thunderbird", ".thunderbird");
  Copie("config", ".config");
  VideReglages();
  OuvreSurFichiers();
  EXPECT_EQ(Adresses(), (QStringList{"garde@example.net", "jeanne@example.org", "garde@example.org",
                                     "veille@example.net", "root@localhost"}))
      << "those of one program, its default first, then those of the other";
  const QStringList defaut{"garde@example.net", "mail.example.net", "465", "garde@example.net", "login"};
  EXPECT_EQ(Champs(), defaut);
  auto* liste = Trouve<QComboBox>("CmbComptes");
  liste->setFocus();
  const QList<QStringList> comptes = {
      defaut,
      {"jeanne@example.org", "smtp.example.org", "587", "jeanne", "login"},
      {"garde@example.org", "smtp.example.org", "587", "EXEMPLE\\garde", "login"},
      {"veille@example.net", "mail.example.net", "465", "veille@example.net", "login"},
      {"root@localhost", "localhost", "25", "", "-"},
  };
  for (const QStringList& compte : comptes) {
    QTest::keyClick(liste, Qt::Key_Down);
    EXPECT_EQ(Champs(), compte) << compte.first().toStdString();
  }
  EXPECT_EQ(Reglages.SmtpPass, "s3cret") << "no password is taken from anywhere";
}

TEST_F(ComptesReels, SettingsThatAreThereStayAndTheFilesAreReadAnewAtEachOpening) {
  OuvreSurFichiers();
  EXPECT_EQ(Adresses(), QStringList());
  Copie("thunderbird", ".thunderbird");
  OuvreSurFichiers();
  EXPECT_EQ(Adresses().size(), 2);
  EXPECT_EQ(Lit("TxtSMTP"), "smtp.b.org");
}

TEST_F(ComptesReels, WithoutAMailProgramEmptySettingsStayEmpty) {
  VideReglages();
  OuvreSurFichiers();
  EXPECT_EQ(Champs(), (QStringList{"", "", "", "", "-"}));
}

TEST_F(ComptesReels, ManyAccountsOfOneProfileGiveElevenEntriesAndNoError) {
  QByteArray noms;
  QByteArray prefs;
  for (int i = 1; i <= 30; ++i) {
    const QByteArray n = QByteArray::number(i);
    noms += ",a" + n;
    prefs += "user_pref(\"mail.account.a" + n + ".identities\", \"i" + n + "\");\nuser_pref(\"mail.identity.i" + n +
             ".useremail\", \"" + n + "@b.org\");\n";
  }
  ASSERT_TRUE(QDir().mkpath(Domicile.filePath(".thunderbird/p")));
  const auto ecrit = [this](const char* nom, const QByteArray& octets) {
    QFile fichier(Domicile.filePath(QStringLiteral(".thunderbird/") + QLatin1String(nom)));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    ASSERT_EQ(fichier.write(octets), octets.size());
  };
  ecrit("profiles.ini", "[Profile0]\nName=p\nIsRelative=1\nPath=p\nDefault=1\n");
  ecrit("p/prefs.js", "user_pref(\"mail.accountmanager.accounts\", \"" + noms + "\");\n" + prefs +
                          "user_pref(\"mail.smtpservers\", \"s\");\n"
                          "user_pref(\"mail.smtpserver.s.hostname\", \"smtp.b.org\");\n"
                          "user_pref(\"mail.smtpserver.s.port\", 465);\n");
  OuvreSurFichiers();
  EXPECT_EQ(Adresses().size(), 11);
  EXPECT_EQ(Adresses().last(), "11@b.org");
  EXPECT_EQ(Lus.Cases.at(10)->Port, 465);
}

}  // namespace
}  // namespace vaktor::essai
