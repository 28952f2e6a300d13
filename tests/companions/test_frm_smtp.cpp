// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the mail settings: what it shows, reads and changes.
#include <QAbstractItemView>
#include <QHash>

#include "base/failure.h"
#include "companions/smtp_bench.h"

namespace vaktor::essai {
namespace {

using FormeSmtp = BancSmtp;
const QColor kBlanc(0xff, 0xff, 0xff);
const QColor kGris(0xe0, 0xe0, 0xe0);

TEST_F(FormeSmtp, ShowsTheSettings) {
  Ouvre();
  EXPECT_EQ(Forme->windowTitle(), "SMTP");
  EXPECT_FALSE(Coche("ChkMailWinsock")) << "the box means the opposite of the setting";
  EXPECT_TRUE(Coche("CheckNeedLoginSMTP"));
  EXPECT_EQ(Lit("TxtSMTP"), "smtp.b.org");
  EXPECT_EQ(Lit("TxtFrom"), "me@b.org");
  EXPECT_EQ(Lit("TextPort"), "587");
  EXPECT_EQ(Lit("TxtSMTPuser"), "anna");
  EXPECT_EQ(Lit("TxtSMTPpass"), "s3cret");
  EXPECT_EQ(Trouve<QLineEdit>("TxtSMTPpass")->displayText(), "******");
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(FormeSmtp, WordsOfBothLanguages) {
  struct Mot {
    const char* Etiquette;
    const char* Francais;
    const char* Anglais;
  };
  const Mot mots[] = {
      {"LblMailWinsock", "Utiliser le logiciel de messagerie de mon ordinateur", "Use my eMail software (Outlook...)"},
      {"LblSMTPadresse", "Adresse SMTP", "SMTP address"},
      {"LblFrom", "Adresse eMail", "eMail address"},
      {"LblSMTPport", "Port SMTP", "SMTP port"},
      {"LblNeedLoginSMTP", "Mon serveur SMTP nécessite un mot de passe", "My SMTP server need a password"},
      {"LblSMTPuser", "Nom d'utilisateur", "User name"},
      {"LblSMTPass", "Mot de passe", "Password"}};
  for (const qint32 langue : {0, 1}) {
    Reglages.LangueCourante = langue;
    Ouvre();
    for (const Mot& mot : mots)
      EXPECT_EQ(Trouve<QLabel>(mot.Etiquette)->text(), QString::fromUtf8(langue == 1 ? mot.Anglais : mot.Francais));
    EXPECT_EQ(Trouve<QComboBox>("CmbComptes")->placeholderText(),
              QString::fromUtf8(langue == 1 ? "Choose a mailbox." : "Choisissez un compte Email."));
    EXPECT_EQ(Trouve<QPushButton>("CmdEssai")->text(), QString::fromUtf8(langue == 1 ? "Try" : "Essayer"));
  }
}

TEST_F(FormeSmtp, ToolTipsOfBothLanguages) {
  for (const qint32 langue : {0, 1}) {
    Reglages.LangueCourante = langue;
    Ouvre();
    const struct {
      const char* Controle;
      QString Aide;
    } lignes[] = {{"ChkMailWinsock", Textes.Dit(Aide::kLogicielMessagerie)},
                  {"LblSMTPadresse", Textes.Dit(Aide::kAdresseSmtp)},
                  {"TxtSMTP", Textes.Dit(Aide::kAdresseSmtp)},
                  {"LblFrom", Textes.Dit(Aide::kAdresseEMail)},
                  {"TxtFrom", Textes.Dit(Aide::kAdresseEMail)},
                  {"LblSMTPport", Textes.Dit(Aide::kPortSmtp)},
                  {"TextPort", Textes.Dit(Aide::kPortSmtp)},
                  {"TxtSMTPuser", Textes.Dit(Libelle::kUtilisateurSmtp)},
                  {"TxtSMTPpass", Textes.Dit(Libelle::kMotDePasseSmtp)}};
    for (const auto& ligne : lignes) {
      EXPECT_FALSE(ligne.Aide.isEmpty());
      EXPECT_EQ(Trouve(ligne.Controle)->toolTip(), ligne.Aide) << ligne.Controle;
    }
  }
}

TEST_F(FormeSmtp, AControlThatIsOffSaysWhyInBothLanguages) {
  for (const qint32 langue : {0, 1}) {
    Reglages.LangueCourante = langue;
    Reglages.SmtpActif = true;
    Reglages.SmtpNeedLogin = true;
    Ouvre();
    const char* const serveur[] = {"CmbComptes", "CheckNeedLoginSMTP", "TxtFrom", "TxtSMTP", "TextPort"};
    const char* const connexion[] = {"TxtSMTPuser", "TxtSMTPpass", "TxtSMTPjeton", "CheckSansChiffrement"};
    QHash<QString, QString> aides;
    for (const char* nom : serveur) aides[QLatin1String(nom)] = Trouve(nom)->toolTip();
    for (const char* nom : connexion) aides[QLatin1String(nom)] = Trouve(nom)->toolTip();
    const auto attend = [&](const char* nom, const char* francais, const char* anglais) {
      QStringList lignes = {aides[QLatin1String(nom)], QString::fromUtf8(langue == 0 ? francais : anglais)};
      lignes.removeAll(QString());
      EXPECT_EQ(Trouve(nom)->toolTip(), lignes.join(u'\n')) << nom;
    };
    const char* const logicielFr =
        "Sans effet : les mails partent par le logiciel de messagerie, comme le dit la première case.";
    const char* const logicielEn = "Not used: mails leave through the mail software, as the first box says.";
    const char* const loginFr =
        "Sans effet tant que la case « Mon serveur SMTP nécessite un mot de passe » n'est pas cochée.";
    const char* const loginEn = "Not used until the box \"My SMTP server need a password\" is ticked.";

    Clique("CheckNeedLoginSMTP");
    for (const char* nom : serveur) attend(nom, "", "");
    for (const char* nom : connexion) attend(nom, loginFr, loginEn);
    Clique("ChkMailWinsock");
    for (const char* nom : serveur) attend(nom, logicielFr, logicielEn);
    for (const char* nom : connexion) attend(nom, logicielFr, logicielEn);
    Clique("ChkMailWinsock");
    Clique("CheckNeedLoginSMTP");
    for (const char* nom : serveur) attend(nom, "", "");
    for (const char* nom : connexion) attend(nom, "", "");
  }
}

TEST_F(FormeSmtp, WhyAControlIsOffFollowsTheLanguageAndStaysBehindANewTip) {
  Reglages.SmtpActif = false;
  Ouvre();
  const QString raison = QStringLiteral("\nNot used: mails leave through the mail software, as the first box says.");
  EXPECT_TRUE(Trouve("TxtSMTPpass")->toolTip().endsWith(raison));
  EXPECT_EQ(Trouve("CmbComptes")->toolTip(), raison.mid(1)) << "it has no tip of its own";
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme->EcritMots();
  for (const char* nom : {"CmbComptes", "TxtFrom", "TxtSMTPpass", "TxtSMTPjeton"})
    EXPECT_TRUE(Trouve(nom)->toolTip().endsWith(QStringLiteral("comme le dit la première case."))) << nom;
}

TEST_F(FormeSmtp, EnabledStatesAndColours) {
  Ouvre();
  const auto attend = [this](bool serveur, bool connexion, const char* quand) {
    for (const char* nom : {"CmbComptes", "CheckNeedLoginSMTP", "TxtFrom", "TxtSMTP", "TextPort"})
      EXPECT_EQ(Trouve(nom)->isEnabled(), serveur) << nom << quand;
    for (const char* nom : {"TxtFrom", "TxtSMTP", "TextPort"})
      EXPECT_EQ(Fond(nom), serveur ? kBlanc : kGris) << nom << quand;
    for (const char* nom : {"TxtSMTPuser", "TxtSMTPpass"}) {
      EXPECT_EQ(Trouve(nom)->isEnabled(), connexion) << nom << quand;
      EXPECT_EQ(Fond(nom), connexion ? kBlanc : kGris) << nom << quand;
      const QImage image = Trouve(nom)->grab().toImage();
      EXPECT_EQ(image.pixelColor(image.width() - 8, image.height() / 2), connexion ? kBlanc : kGris) << nom << quand;
    }
    EXPECT_EQ(Trouve("CheckSansChiffrement")->isEnabled(), connexion) << quand;
  };
  attend(true, true, " at first");
  Clique("CheckNeedLoginSMTP");
  EXPECT_FALSE(Reglages.SmtpNeedLogin);
  attend(true, false, " without login");
  Clique("ChkMailWinsock");
  EXPECT_FALSE(Reglages.SmtpActif);
  attend(false, false, " with the mail software");
  Clique("ChkMailWinsock");
  EXPECT_TRUE(Reglages.SmtpActif);
  attend(true, false, " back again");
}

TEST_F(FormeSmtp, BoxesWorkWithTheKeyboard) {
  Ouvre();
  Trouve("ChkMailWinsock")->setFocus();
  QTest::keyClick(Trouve("ChkMailWinsock"), Qt::Key_Space);
  EXPECT_FALSE(Reglages.SmtpActif);
}

TEST_F(FormeSmtp, WordsBesideABoxSwitchItWhileItIsOn) {
  Ouvre();
  const auto clique = [this](const char* nom) { QTest::mouseClick(Trouve<QLabel>(nom), Qt::LeftButton, {}, {3, 3}); };
  const bool avant = Reglages.SmtpNeedLogin;
  clique("LblNeedLoginSMTP");
  EXPECT_EQ(Reglages.SmtpNeedLogin, !avant);
  clique("LblNeedLoginSMTP");
  const bool chiffre = Reglages.SmtpSansChiffrement;
  if (!Trouve<QCheckBox>("CheckSansChiffrement")->isEnabled()) clique("LblNeedLoginSMTP");
  clique("LblSansChiffrement");
  EXPECT_EQ(Reglages.SmtpSansChiffrement, !chiffre);
  clique("LblMailWinsock");
  EXPECT_FALSE(Reglages.SmtpActif);
  const bool connexion = Reglages.SmtpNeedLogin;
  clique("LblNeedLoginSMTP");
  EXPECT_EQ(Reglages.SmtpNeedLogin, connexion) << "the box is off now";
}

TEST_F(FormeSmtp, TheTabKeyWalksEverythingTopToBottom) {
  Ouvre();
  Trouve("ChkMailWinsock")->setFocus();
  QStringList chemin;
  for (int i = 0; i < 16; ++i) {
    chemin.append(QApplication::focusWidget()->objectName());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(chemin, (QStringList{"ChkMailWinsock", "CmbComptes", "TxtFrom", "TxtSMTP", "TextPort", "CheckNeedLoginSMTP",
                                 "TxtSMTPuser", "TxtSMTPpass", "TxtSMTPjeton", "CheckSansChiffrement", "CmbSigneDeVie",
                                 "TxtPush", "CmdEssaiPush", "TxtPushEntete", "CmdEssai", "TxtEssai"}));
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "ChkMailWinsock");
}

TEST_F(FormeSmtp, TheSwitchForServersWithoutEncryptionIsTheSettingAndSaysWhatItCosts) {
  Reglages.SmtpSansChiffrement = true;
  Ouvre();
  EXPECT_TRUE(Coche("CheckSansChiffrement"));
  Clique("CheckSansChiffrement");
  EXPECT_FALSE(Reglages.SmtpSansChiffrement);
  Clique("CheckSansChiffrement");
  EXPECT_TRUE(Reglages.SmtpSansChiffrement);
  EXPECT_EQ(Trouve<QLabel>("LblSansChiffrement")->text(), Trouve("CheckSansChiffrement")->accessibleName());
  EXPECT_EQ(Trouve<QLabel>("LblSansChiffrement")->text(), "Without encryption");
  EXPECT_TRUE(Trouve("CheckSansChiffrement")->toolTip().contains("password and pictures"));
}

TEST_F(FormeSmtp, TheHourOfTheSignOfLifeIsTheSettingAndItsWordsAreTheLanguages) {
  Reglages.HeureSigneDeVie = 8;
  Ouvre();
  auto* liste = Trouve<QComboBox>("CmbSigneDeVie");
  EXPECT_EQ(liste->currentText(), "each day at 8:00");
  EXPECT_EQ(liste->count(), 25);
  EXPECT_EQ(liste->itemText(0), "never");
  liste->setFocus();
  QTest::keyClick(liste, Qt::Key_Down);
  EXPECT_EQ(Reglages.HeureSigneDeVie, 9);
  QTest::keyClick(liste, Qt::Key_Home);
  EXPECT_EQ(Reglages.HeureSigneDeVie, -1);
  QTest::keyClick(liste, Qt::Key_End);
  EXPECT_EQ(Reglages.HeureSigneDeVie, 23);
  EXPECT_EQ(Trouve<QLabel>("LblSigneDeVie")->text(), liste->accessibleName());
  EXPECT_TRUE(liste->toolTip().contains("armed"));
  Clique("ChkMailWinsock");
  EXPECT_TRUE(liste->isEnabled()) << "also with the mail software";
}

TEST_F(FormeSmtp, TheCommandForATokenKeepsItsBlanksAndTakesThePlaceOfThePassword) {
  Reglages.SmtpActif = Reglages.SmtpNeedLogin = true;
  Ouvre();
  auto* champ = Trouve<QLineEdit>("TxtSMTPjeton");
  champ->setText("/usr/bin/jeton me@example.org\nmore");
  EXPECT_EQ(Reglages.SmtpJeton, "/usr/bin/jeton me@example.org");
  EXPECT_TRUE(champ->toolTip().contains("Outlook.com")) << "which accounts need it";
  EXPECT_FALSE(ManqueConnexion({"s", "f", "u", "", " x"}));
  EXPECT_TRUE(ManqueConnexion({"s", "f", "u", "", " "}));
  EXPECT_TRUE(ManqueConnexion({"s", "f", "", "", "x"}));
  Clique("CheckNeedLoginSMTP");
  EXPECT_FALSE(champ->isEnabled());
}

TEST_F(FormeSmtp, ASenderThatIsNoAddressIsToldWhenItsFieldIsLeft) {
  Ouvre();
  auto* champ = Trouve<QLineEdit>("TxtFrom");
  champ->setFocus();
  champ->selectAll();
  QTest::keyClicks(champ, "cam.example.org");
  Forme->EcritMots();
  EXPECT_NE(champ->palette().color(QPalette::Text), QColor(Qt::red));
  QTest::keyClick(champ, Qt::Key_Tab);
  EXPECT_EQ(champ->palette().color(QPalette::Text), QColor(Qt::red));
  EXPECT_EQ(champ->toolTip(), "This is no eMail address: cam.example.org");
  Reglages.LangueCourante = 0;
  Forme->EcritMots();
  EXPECT_EQ(champ->toolTip(), "Ce n'est pas une adresse eMail : cam.example.org");
  champ->setFocus();
  champ->selectAll();
  QTest::keyClicks(champ, "cam@example.org");
  QTest::keyClick(champ, Qt::Key_Tab);
  EXPECT_NE(champ->palette().color(QPalette::Text), QColor(Qt::red));
}

TEST_F(FormeSmtp, SettingsLoseTheBlanksThatTheFieldsKeep) {
  Ouvre();
  Tape("TxtSMTP", " smtp. c .org ");
  Tape("TxtFrom", "a @ c.org");
  Tape("TxtSMTPuser", " a n ");
  Tape("TxtSMTPpass", "p w ");
  EXPECT_EQ(Reglages.SmtpServeur, "smtp.c.org");
  EXPECT_EQ(Lit("TxtSMTP"), " smtp. c .org ");
  EXPECT_EQ(Reglages.SmtpFrom, "a@c.org");
  EXPECT_EQ(Lit("TxtFrom"), "a @ c.org");
  EXPECT_EQ(Reglages.SmtpUser, "an");
  EXPECT_EQ(Lit("TxtSMTPuser"), " a n ");
  EXPECT_EQ(Reglages.SmtpPass, "pw");
  EXPECT_EQ(Lit("TxtSMTPpass"), "p w ");
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0) << "only the closing saves";
}

TEST_F(FormeSmtp, ANoBreakSpaceOfThePasswordStaysWhetherItIsTypedOrLoaded) {
  const QString passe = QStringLiteral("\u00a0p\u00a0w\u00a0");
  Reglages.SmtpPass = passe;
  Ouvre();
  EXPECT_EQ(Lit("TxtSMTPpass"), passe);
  EXPECT_EQ(Reglages.SmtpPass, passe);
  Tape("TxtSMTPpass", QStringLiteral("a\u00a0b c"));
  EXPECT_EQ(Reglages.SmtpPass, QStringLiteral("a\u00a0bc"));
  Tape("TxtSMTPuser", QStringLiteral("an\u00a0na"));
  EXPECT_EQ(Reglages.SmtpUser, QStringLiteral("anna")) << "nobody is called so: a web page gave it";
}

TEST_F(FormeSmtp, APastedTextEndsAtItsFirstLine) {
  Ouvre();
  Trouve<QLineEdit>("TxtSMTP")->setText("smtp.c.org\r\nmore");
  EXPECT_EQ(Lit("TxtSMTP"), "smtp.c.org");
  EXPECT_EQ(Reglages.SmtpServeur, "smtp.c.org");
}

TEST_F(FormeSmtp, PortWithALetterBecomes25AndDigitsStay) {
  Ouvre();
  Tape("TextPort", "2a5");  // at the "a" the field becomes 25, behind which the 5 is typed
  EXPECT_EQ(Lit("TextPort"), "255");
  Trouve<QLineEdit>("TextPort")->setText("2a5");
  EXPECT_EQ(Lit("TextPort"), "25");
  EXPECT_EQ(Reglages.SmtpPort, "25");
  Tape("TextPort", "587");
  EXPECT_EQ(Lit("TextPort"), "587");
  EXPECT_EQ(Reglages.SmtpPort, "587");
  Tape("TextPort", "");
  EXPECT_EQ(Lit("TextPort"), "");
  EXPECT_EQ(Reglages.SmtpPort, "");
}

TEST_F(FormeSmtp, ADamagedStoredPortBecomes25OnOpening) {
  Reglages.SmtpPort = "x";
  Ouvre();
  EXPECT_EQ(Lit("TextPort"), "25");
  EXPECT_EQ(Reglages.SmtpPort, "25");
}

TEST_F(FormeSmtp, PickingAnAccountCopiesItAndLeavesThePassword) {
  Comptes.Ajoute("smtp1.org", "a1@b.org", {}, 25);
  Comptes.Ajoute("smtp2.org", "a2@b.org", "bob", 465);
  Ouvre();
  auto* liste = Trouve<QComboBox>("CmbComptes");
  EXPECT_EQ(liste->currentIndex(), -1) << "nothing is picked yet";
  EXPECT_EQ(Lit("TxtSMTP"), "smtp.b.org") << "settings that are there stay";
  liste->setFocus();
  QTest::keyClick(liste, Qt::Key_Down);
  EXPECT_EQ(liste->currentText(), "a1@b.org");
  EXPECT_EQ(Lit("TxtSMTP"), "smtp1.org");
  EXPECT_EQ(Lit("TxtSMTPuser"), "");
  EXPECT_FALSE(Coche("CheckNeedLoginSMTP"));
  EXPECT_FALSE(Trouve("TxtSMTPuser")->isEnabled());
  QTest::keyClick(liste, Qt::Key_Down);
  EXPECT_EQ(Reglages.SmtpServeur, "smtp2.org");
  EXPECT_EQ(Reglages.SmtpFrom, "a2@b.org");
  EXPECT_EQ(Reglages.SmtpPort, "465");
  EXPECT_EQ(Reglages.SmtpUser, "bob");
  EXPECT_TRUE(Coche("CheckNeedLoginSMTP"));
  EXPECT_EQ(Lit("TextPort"), "465");
  EXPECT_EQ(Lit("TxtFrom"), "a2@b.org");
  EXPECT_EQ(Reglages.SmtpPass, "s3cret");
  EXPECT_EQ(Lit("TxtSMTPpass"), "s3cret");
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(FormeSmtp, ThePickedEntryCanBePickedAgain) {
  Comptes.Ajoute("smtp1.org", "a1@b.org");
  Ouvre();
  auto* liste = Trouve<QComboBox>("CmbComptes");
  QTest::keyClick(liste, Qt::Key_Down);
  Tape("TxtSMTP", "typo");
  liste->setFocus();
  liste->showPopup();
  QTest::keyClick(liste->view(), Qt::Key_Return);
  EXPECT_EQ(Lit("TxtSMTP"), "smtp1.org");
}

TEST_F(FormeSmtp, EmptySettingsFillThemselvesFromTheDefaultAccount) {
  Reglages.SmtpServeur.clear();
  Comptes.Ajoute("smtp1.org", "a1@b.org");
  Comptes.Ajoute("smtp2.org", "a2@b.org", "bob", 465).ParDefaut = true;
  Ouvre();
  EXPECT_EQ(Lit("TxtSMTP"), "smtp2.org");
  EXPECT_EQ(Lit("TxtFrom"), "a2@b.org");
  EXPECT_EQ(Lit("TextPort"), "465");
  EXPECT_EQ(Lit("TxtSMTPuser"), "bob");
  EXPECT_EQ(Reglages.SmtpPass, "s3cret");
  EXPECT_EQ(Trouve<QComboBox>("CmbComptes")->currentIndex(), -1);
}

TEST_F(FormeSmtp, AMissingSenderAloneFillsAllToo) {
  Reglages.SmtpFrom.clear();
  Comptes.Ajoute("smtp1.org", "a1@b.org");
  Ouvre();
  EXPECT_EQ(Reglages.SmtpServeur, "smtp1.org");
}

TEST_F(FormeSmtp, AnUnusableAccountBeforeTheDefaultOneMakesItAnEmptySlot) {
  Reglages.SmtpServeur.clear();
  Comptes.Ajoute("smtp1.org", "a1@b.org");
  Comptes.Ajoute("", "a2@b.org");
  Comptes.Ajoute("smtp3.org", "a3@b.org").ParDefaut = true;
  Ouvre();
  EXPECT_EQ(Trouve<QComboBox>("CmbComptes")->count(), 2);
  EXPECT_EQ(Reglages.SmtpServeur, "");
  EXPECT_EQ(Reglages.SmtpPort, "");
}

TEST_F(FormeSmtp, WithoutAnyAccountEmptySettingsLoseThePortAndTheLogin) {
  Reglages.SmtpServeur.clear();
  Reglages.SmtpPort = "25";
  Ouvre();
  EXPECT_EQ(Trouve<QComboBox>("CmbComptes")->count(), 0);
  EXPECT_EQ(Reglages.SmtpPort, "");
  EXPECT_EQ(Lit("TextPort"), "");
  EXPECT_FALSE(Reglages.SmtpNeedLogin);
  EXPECT_FALSE(Coche("CheckNeedLoginSMTP"));
  EXPECT_EQ(Lit("TxtFrom"), "") << "the sender that was there goes too";
}

TEST_F(FormeSmtp, TwelveAccountsGiveElevenEntriesAndTheyNeverGrow) {
  for (int i = 1; i <= 12; ++i) Comptes.Ajoute(QStringLiteral("s%1").arg(i), QStringLiteral("a%1").arg(i));
  Ouvre();
  EXPECT_EQ(Trouve<QComboBox>("CmbComptes")->count(), 11);
  Ouvre();
  EXPECT_EQ(Trouve<QComboBox>("CmbComptes")->count(), 11);
}

TEST_F(FormeSmtp, PendingEventsRunForEachAccountAndOnceMoreAtTheEnd) {
  Comptes.Ajoute("s", "a");
  Comptes.Ajoute("s", "b");
  Ouvre();
  EXPECT_EQ(Pompe.Appels, 3);
}

TEST_F(FormeSmtp, AHighPortIsOneLikeAnyOther) {
  Comptes.Ajoute("s", "high@b.org", {}, 40000);
  Ouvre();
  QTest::keyClick(Trouve<QComboBox>("CmbComptes"), Qt::Key_Down);
  EXPECT_EQ(Lit("TextPort"), "40000");
  EXPECT_EQ(Reglages.SmtpPort, "40000");
}

TEST_F(FormeSmtp, AnOAuth2AccountIsMarkedInTheListInBothLanguagesAlsoWhenTheyChange) {
  Comptes.Ajoute("smtp1.org", "a1@b.org", "anna");
  Comptes.Ajoute("smtp2.org", "a2@b.org", "bob").OAuth2 = true;
  Ouvre();
  auto* liste = Trouve<QComboBox>("CmbComptes");
  EXPECT_EQ(liste->itemText(0), "a1@b.org");
  EXPECT_EQ(liste->itemText(1), "a2@b.org (OAuth2 login)");
  EXPECT_TRUE(liste->itemData(0, Qt::ToolTipRole).toString().isEmpty());
  EXPECT_TRUE(liste->itemData(1, Qt::ToolTipRole).toString().contains("app password"));
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme->EcritMots();
  EXPECT_EQ(liste->itemText(0), "a1@b.org");
  EXPECT_EQ(liste->itemText(1), "a2@b.org (connexion OAuth2)");
  EXPECT_TRUE(liste->itemData(1, Qt::ToolTipRole).toString().contains("mot de passe d'application"));
}

TEST_F(FormeSmtp, ThePasswordOfAnOAuth2AccountIsAskedForInItsField) {
  Reglages.SmtpPass.clear();
  Comptes.Ajoute("smtp1.org", "a1@b.org", "anna");
  Comptes.Ajoute("smtp2.org", "a2@b.org", "bob").OAuth2 = true;
  Ouvre();
  auto* champ = Trouve<QLineEdit>("TxtSMTPpass");
  const QString sans = champ->toolTip();
  EXPECT_EQ(champ->placeholderText(), "");
  auto* liste = Trouve<QComboBox>("CmbComptes");
  QTest::keyClick(liste, Qt::Key_Down);
  EXPECT_EQ(champ->placeholderText(), "");
  QTest::keyClick(liste, Qt::Key_Down);
  EXPECT_EQ(champ->placeholderText(), "app password");
  EXPECT_TRUE(champ->toolTip().contains("OAuth2"));
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme->EcritMots();
  EXPECT_EQ(champ->placeholderText(), "mot de passe d'application");
  Reglages.LangueCourante = 1;
  Textes.Remplit(Langue::kAnglais);
  Forme->EcritMots();
  Tape("TxtSMTP", "elsewhere.org");
  EXPECT_EQ(champ->placeholderText(), "") << "settings of one's own";
  EXPECT_EQ(champ->toolTip(), sans);
}

TEST_F(FormeSmtp, SettingsThatWereTakenFromAnOAuth2AccountAreKnownAtTheNextOpening) {
  Reglages.SmtpServeur.clear();
  Reglages.SmtpPass.clear();
  CompteMail& compte = Comptes.Ajoute("smtp2.org", "a2@b.org", "bob");
  compte.OAuth2 = compte.ParDefaut = true;
  Ouvre();
  EXPECT_EQ(Trouve<QLineEdit>("TxtSMTPpass")->placeholderText(), "app password") << "filled from the default account";
  Ouvre();
  EXPECT_EQ(Lit("TxtSMTP"), "smtp2.org");
  EXPECT_EQ(Trouve<QLineEdit>("TxtSMTPpass")->placeholderText(), "app password");
}

}  // namespace
}  // namespace vaktor::essai
