// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the mail settings in the whole program: opened by its button and by the mail box, gone at the end.
#include <gtest/gtest.h>

#include <QTest>

#include "app/program_fixture.h"

namespace vaktor::essai {
namespace {

class FormeDuProgramme : public ProgrammeSurFaux {
 protected:
  void SetUp() override {
    Systeme.Valeurs.insert(QStringLiteral("MAIL/smtpserveur"), QStringLiteral("smtp.b.org"));
    Systeme.Valeurs.insert(QStringLiteral("MAIL/smtpfrom"), QStringLiteral("me@b.org"));
    Systeme.Valeurs.insert(QStringLiteral("MAIL/smtpneedlogin"), QStringLiteral("False"));
    DemarreJusquALaFenetre();
  }
  void TearDown() override {
    Programme.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  static QWidget* Forme() { return Fenetre("FrmSmtp"); }
  static QString Lit(const char* nom) { return Forme()->findChild<QLineEdit*>(QLatin1String(nom))->text(); }
};

TEST_F(FormeDuProgramme, IsNotThereBeforeItIsOpened) { EXPECT_EQ(Forme(), nullptr); }

TEST_F(FormeDuProgramme, ItsButtonShowsItThenLoadsAllTexts) {
  auto* ligne = Trouve<QLabel>("LblDebugftp");
  Systeme.Recoit(1001, QStringLiteral("Conne"));
  const QString inactif = ligne->text();
  Clique("BoutonGris(8)");
  ASSERT_NE(Forme(), nullptr);
  EXPECT_TRUE(Forme()->isVisible());
  EXPECT_EQ(Lit("TxtSMTP"), "smtp.b.org");
  EXPECT_EQ(Forme()->findChild<QLabel*>("LblSMTPport")->text(), "SMTP port");
  // The status lines read inactive afterwards, whatever is going on.
  EXPECT_NE(ligne->text(), inactif);
  EXPECT_TRUE(Systeme.Notes.Lignes().filter("store:").isEmpty()) << "opening saves nothing";
}

TEST_F(FormeDuProgramme, EachOpeningIsANewFormThatReadsTheAccountsAnew) {
  Systeme.Comptes.Ajoute("smtp1.org", "a1@b.org");
  Clique("BoutonGris(8)");
  EXPECT_EQ(Forme()->findChild<QComboBox*>("CmbComptes")->count(), 1);
  EXPECT_EQ(Systeme.Comptes.Lectures, 1);
  Clique("BoutonGris(8)");
  EXPECT_EQ(Systeme.Comptes.Lectures, 1) << "one that is open only comes to the front";
  const QPointer<QWidget> premiere = Forme();
  Forme()->close();
  EXPECT_EQ(Systeme.Notes.Lignes().filter("store: flush").size(), 1) << "closing saves";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(premiere.isNull()) << "closing unloads";
  EXPECT_EQ(Forme(), nullptr);
  Systeme.Comptes.Ajoute("smtp2.org", "a2@b.org");
  Clique("BoutonGris(8)");
  EXPECT_EQ(Forme()->findChild<QComboBox*>("CmbComptes")->count(), 2);
}

TEST_F(FormeDuProgramme, TheMailBoxOpensItWhenSettingsAreMissing) {
  Clique("BoutonGris(8)");
  QLineEdit* port = Forme()->findChild<QLineEdit*>("TextPort");
  port->clear();
  Forme()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Clique("CheckMail");
  ASSERT_NE(Forme(), nullptr);
  EXPECT_TRUE(Forme()->isVisible());
  EXPECT_EQ(Forme()->findChild<QLabel*>("LblSMTPport")->text(), "SMTP port") << "it has its words";
  EXPECT_FALSE(Trouve<QCheckBox>("CheckMail")->isChecked());
}

TEST_F(FormeDuProgramme, TheLanguageReachesTheOpenForm) {
  Clique("BoutonGris(8)");
  Clique("Image4(0)");
  EXPECT_EQ(Forme()->findChild<QLabel*>("LblSMTPport")->text(), "Port SMTP");
  EXPECT_EQ(Forme()->findChild<QPushButton*>("CmdEssai")->text(), "Essayer");
}

TEST_F(FormeDuProgramme, AnOpeningThatFailsLeavesNothingAndTheNextOneReadsAgain) {
  Systeme.Pompe.EnAttente = [] { throw Echec(kAccesFichier, QStringLiteral("in an event of the opening")); };
  auto* bouton = Trouve<QAbstractButton>("BoutonGris(8)");
  QString dit;
  try {
    bouton->click();  // in the program the guard of the event loop tells it
  } catch (const Echec& echec) {
    dit = echec.Description();
  }
  EXPECT_EQ(dit, "in an event of the opening");
  EXPECT_EQ(Forme(), nullptr);
  Clique("BoutonGris(8)");
  ASSERT_NE(Forme(), nullptr);
  EXPECT_TRUE(Forme()->isVisible());
}

TEST_F(FormeDuProgramme, ASecondRequestWhileTheAccountsAreReadChangesNothing) {
  Systeme.Comptes.Ajoute("smtp1.org", "a1@b.org");
  bool visible = true;
  Systeme.Pompe.EnAttente = [&] {
    Clique("BoutonGris(8)");
    visible = Forme()->isVisible();
  };
  Clique("BoutonGris(8)");
  EXPECT_FALSE(visible);
  EXPECT_TRUE(Forme()->isVisible());
  EXPECT_EQ(Forme()->findChild<QComboBox*>("CmbComptes")->count(), 1);
}

TEST_F(FormeDuProgramme, TheProgramMayEndWhileTheAccountsAreRead) {
  Systeme.Comptes.Ajoute("smtp1.org", "a1@b.org");
  Systeme.Pompe.EnAttente = [this] { Programme->Ferme(); };
  Clique("BoutonGris(8)");
  EXPECT_TRUE(Programme->EstFinie());
  EXPECT_FALSE(Forme() != nullptr && Forme()->isVisible());
}

TEST_F(FormeDuProgramme, TheStopUnloadsItFirstSavesItAndAsksNothing) {
  Clique("BoutonGris(8)");
  Forme()->findChild<QLineEdit*>("TxtFrom")->clear();  // reason enough to ask at any other time
  Systeme.Notes.Vide();
  Programme->Ferme();
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_TRUE(Systeme.Messages.Textes.isEmpty());
  EXPECT_FALSE(Forme()->isVisible());
  const auto sauve = vus.indexOf("store: flush");
  ASSERT_GE(sauve, 0) << "saved though nothing was marked as changed";
  EXPECT_GT(sauve, vus.indexOf("PompeMessages"));
  EXPECT_LT(sauve, vus.indexOf("channel: close 1001")) << "before FormWinsock goes";
  EXPECT_EQ(Systeme.Valeurs.value("MAIL/smtpfrom"), "");
}

TEST_F(FormeDuProgramme, TheStopEndsARehearsal) {
  Clique("BoutonGris(8)");
  QTest::mouseClick(Forme()->findChild<QPushButton*>("CmdEssai"), Qt::LeftButton);
  EXPECT_EQ(Systeme.EssaiMail.Lances, 1);
  Programme->Ferme();
  EXPECT_EQ(Systeme.EssaiMail.Annules, 1);
}

}  // namespace
}  // namespace vaktor::essai
