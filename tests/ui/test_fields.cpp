// SPDX-License-Identifier: GPL-3.0-or-later
// The parameter fields, worked with real keys and clicks.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <functional>

#include "ui/fields/field_events.h"
#include "ui/window_bench.h"

namespace vaktor {
namespace {

class Champs : public testing::Test {
 protected:
  Champs() {
    Banc.Fenetre.activateWindow();
    QCoreApplication::processEvents();
  }
  QLineEdit* Champ(const char* nom) { return Banc.Trouve<QLineEdit>(nom); }
  /// Types over what stands in the field, as a user who has double-clicked it.
  void Tape(const char* nom, const QString& texte) {
    QLineEdit* champ = Champ(nom);
    champ->setFocus();
    champ->selectAll();
    QTest::keyClicks(champ, texte);
  }
  void Vide(const char* nom) {
    Champ(nom)->setFocus();
    Champ(nom)->selectAll();
    QTest::keyClick(Champ(nom), Qt::Key_Delete);
  }
  /// Leaves a field with the Tab key; the number of saves that this made.
  int Quitte(const char* nom) {
    QWidget* champ = Banc.Trouve(nom);
    champ->setFocus();
    const auto avant = Banc.Sauvegarde.Sauvegardes;
    QTest::keyClick(champ, Qt::Key_Tab);
    EXPECT_FALSE(champ->hasFocus());
    return Banc.Sauvegarde.Sauvegardes - avant;
  }
  void Oublie() {
    Banc.Reglages.ParametresModifies = false;
    Banc.Sauvegarde.Sauvegardes = 0;
  }

  faux::BancFenetre Banc;
};

TEST_F(Champs, DesignTextsStandBeforeTheSettingsAreReadAndMarkNothing) {
  EXPECT_EQ(Champ("Text1")->text(), QStringLiteral("0"));
  EXPECT_EQ(Champ("TxtNbrPhoto")->text(), QStringLiteral("10"));
  EXPECT_EQ(Champ("TextNbrMail")->text(), QStringLiteral("3"));
  EXPECT_EQ(Champ("TextSujet")->text(), QStringLiteral("INTRUSION"));
  EXPECT_EQ(Champ("TxtFtp")->text(), QStringLiteral("ftp."));
  EXPECT_EQ(Champ("TxtHtml")->text(), QStringLiteral("http://"));
  EXPECT_EQ(Champ("TextNbrPhotoFTP")->text(), QStringLiteral("30"));
  EXPECT_EQ(Champ("TxtRefresh")->text(), QString());
  EXPECT_EQ(Champ("TxtPass")->echoMode(), QLineEdit::Password);
  EXPECT_FALSE(Banc.Reglages.ParametresModifies);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
}

TEST_F(Champs, PasswordShowsAsAsterisksAlsoInRed) {
  Tape("TxtPass", QStringLiteral("secret"));
  EXPECT_EQ(Champ("TxtPass")->displayText(), QStringLiteral("******"));
  RougitChamp(*Champ("TxtPass"), true);
  EXPECT_EQ(Champ("TxtPass")->displayText(), QStringLiteral("******"));
  EXPECT_TRUE(EstRouge(*Champ("TxtPass")));
}

TEST_F(Champs, CountsKeepTheirLimits) {
  Tape("TxtNbrPhoto", QStringLiteral("0"));
  EXPECT_EQ(Champ("TxtNbrPhoto")->text(), QStringLiteral("0"));
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0) << "saved when it is left";
  Vide("TextNbrMail");
  EXPECT_EQ(Champ("TextNbrMail")->text(), QStringLiteral("1"));
  Tape("TextNbrMail", QStringLiteral("0"));
  EXPECT_EQ(Champ("TextNbrMail")->text(), QStringLiteral("1"));
  EXPECT_EQ(Banc.Reglages.MailNombreMail, QStringLiteral("1"));
  Vide("TxtNbrPhoto");
  EXPECT_EQ(Banc.Reglages.MailNombrePhoto, QStringLiteral("0"));
  Tape("TextNbrPhotoFTP", QStringLiteral("7x"));
  EXPECT_EQ(Banc.Reglages.NbrPhotosPage, 7);
  EXPECT_TRUE(Banc.Reglages.ParametresModifies);
}

TEST_F(Champs, Text1TooLongShowsTheLargestNumber) {
  Tape("Text1", QStringLiteral("99999999999"));
  EXPECT_EQ(Champ("Text1")->text(), QStringLiteral("2147483647"));
  EXPECT_EQ(Banc.Reglages.Retard, 2147483647);
}

TEST_F(Champs, Text1IsCleanEvenWhenTheSaveFails) {
  Banc.Sauvegarde.Echoue = true;
  EXPECT_NO_THROW(Champ("Text1")->setText(QStringLiteral("1a2")));
  EXPECT_EQ(Champ("Text1")->text(), QStringLiteral("12"));
  EXPECT_EQ(Banc.Reglages.Retard, 12);
  EXPECT_TRUE(Banc.Reglages.ParametresModifies) << "the next save takes it";
}

TEST_F(Champs, ASaveThatFailsAtAKeyIsToldInAnEventOfItsOwn) {
  for (const char* nom : {"Text1", "TxtRefresh"}) {
    Banc.Sauvegarde.Echoue = true;
    EXPECT_NO_THROW(Champ(nom)->setText(QStringLiteral("7"))) << nom << ": not through the field";
    EXPECT_THROW(QCoreApplication::sendPostedEvents(Champ(nom), QEvent::MetaCall), Echec) << nom;
    Banc.Sauvegarde.Echoue = false;
    Champ(nom)->setText(QStringLiteral("8"));
    EXPECT_NO_THROW(QCoreApplication::sendPostedEvents(Champ(nom), QEvent::MetaCall)) << nom;
  }
}

TEST_F(Champs, IntervalCorrectsItselfAndSavesAtEachKey) {
  Tape("TxtRefresh", QStringLiteral("0"));
  EXPECT_EQ(Champ("TxtRefresh")->text(), QStringLiteral("0,5"));
  EXPECT_EQ(Banc.Reglages.IntervalleFtp, QStringLiteral("0,5"));
  EXPECT_GE(Banc.Sauvegarde.Sauvegardes, 1);
  EXPECT_TRUE(Banc.Sauvegarde.ModifiesALaSauvegarde);
  Tape("TxtRefresh", QStringLiteral("abc"));
  EXPECT_EQ(Champ("TxtRefresh")->text(), QStringLiteral("5"));
  const auto avant = Banc.Sauvegarde.Sauvegardes;
  Champ("TxtRefresh")->end(false);
  QTest::keyClicks(Champ("TxtRefresh"), QStringLiteral(",25"));
  EXPECT_EQ(Banc.Reglages.IntervalleFtp, QStringLiteral("5,25"));
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, avant + 3) << "one save a key";
}

TEST_F(Champs, AlwaysSavedFieldsSaveWhenTheyAreLeft) {
  for (const char* nom : {"TextEMail", "TextSujet", "TextTexte", "TxtNbrPhoto", "TextNbrMail", "TextNbrPhotoFTP"}) {
    Oublie();
    EXPECT_EQ(Quitte(nom), 1) << nom;
  }
}

TEST_F(Champs, SiteFieldsSaveWhenTheyAreLeftOnlyIfSomethingChanged) {
  Banc.Reglages.AdresseHtml = QStringLiteral("http://x/");
  Champ("TxtHtml")->setText(Banc.Reglages.AdresseHtml);
  for (const char* nom : {"TxtFtp", "TxtFTPracine", "TxtUserName", "TxtPass", "TxtHtml"}) {
    Champ(nom)->setFocus();  // leaving the field before must not count
    Oublie();
    EXPECT_EQ(Quitte(nom), 0) << nom;
    Champ(nom)->setFocus();
    Banc.Reglages.ParametresModifies = true;
    EXPECT_EQ(Quitte(nom), 1) << nom;
  }
}

// The desktop takes the focus from the program's window and gives it back.
TEST_F(Champs, GoingToAnotherProgramIsNoLeaving) {
  QFocusEvent depart(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  QCoreApplication::sendEvent(Champ("TextEMail"), &depart);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
}

TEST_F(Champs, EmptiedAddressAndUserKeepTheLastValueAndMarkNothing) {
  Tape("TxtFtp", QStringLiteral("ftp.example.org"));
  Tape("TxtUserName", QStringLiteral("me"));
  Tape("TxtHtml", QStringLiteral("http://example.org"));
  Oublie();
  for (const char* nom : {"TxtFtp", "TxtUserName", "TxtHtml"}) Vide(nom);
  EXPECT_EQ(Banc.Reglages.AdresseFtp, QStringLiteral("ftp.example.org"));
  EXPECT_EQ(Banc.Reglages.UtilisateurFtp, QStringLiteral("me"));
  EXPECT_EQ(Banc.Reglages.AdresseHtml, QStringLiteral("http://example.org/"));
  EXPECT_FALSE(Banc.Reglages.ParametresModifies);
}

TEST_F(Champs, EmptiedPasswordAndFolderAreTakenAsTheyAre) {
  Tape("TxtPass", QStringLiteral("secret"));
  Tape("TxtFTPracine", QStringLiteral("/www"));
  EXPECT_EQ(Banc.Reglages.MotDePasseFtp, QStringLiteral("secret"));
  EXPECT_EQ(Banc.Reglages.RepertoireFtp, QStringLiteral("/www"));
  Oublie();
  Vide("TxtPass");
  Vide("TxtFTPracine");
  EXPECT_EQ(Banc.Reglages.MotDePasseFtp, QString());
  EXPECT_EQ(Banc.Reglages.RepertoireFtp, QString());
}

TEST_F(Champs, PasswordIsTakenWithItsBlanks) {
  const QString passe = QStringLiteral(" p\u00a0w \u00a0");
  Tape("TxtPass", passe);
  EXPECT_EQ(Banc.Reglages.MotDePasseFtp, passe);
}

TEST_F(Champs, ServerWithAFolderKeepsTheServer) {
  Tape("TxtFtp", QStringLiteral("ftp.example.org\\www"));
  EXPECT_TRUE(Champ("TxtFtp")->text().startsWith(QStringLiteral("ftp.example.org")));
  EXPECT_FALSE(Champ("TxtFtp")->text().contains(u'\\'));
  Champ("TxtFtp")->setText(QStringLiteral("ftp.example.org\\www\\me"));
  EXPECT_EQ(Champ("TxtFtp")->text(), QStringLiteral("ftp.example.org"));
  EXPECT_EQ(Banc.Reglages.AdresseFtp, QStringLiteral("ftp.example.org"));
}

TEST_F(Champs, PublicAddressGetsItsSlashWhenItIsLeft) {
  Tape("TxtHtml", QStringLiteral("http:\\\\example.org"));
  EXPECT_EQ(Champ("TxtHtml")->text(), QStringLiteral("http:\\\\example.org")) << "not while it is typed";
  EXPECT_EQ(Quitte("TxtHtml"), 1);
  EXPECT_EQ(Champ("TxtHtml")->text(), QStringLiteral("http://example.org/"));
  Quitte("TxtHtml");
  EXPECT_EQ(Champ("TxtHtml")->text(), QStringLiteral("http://example.org/")) << "no second one";
  Vide("TxtHtml");
  Quitte("TxtHtml");
  EXPECT_EQ(Champ("TxtHtml")->text(), QStringLiteral("http://example.org/")) << "an emptied field shows it again";
}

TEST_F(Champs, PublicAddressNeverGivenBecomesASlash) {
  Champ("TxtHtml")->setText(QString());
  Quitte("TxtHtml");
  EXPECT_EQ(Champ("TxtHtml")->text(), QStringLiteral("/"));
  EXPECT_EQ(Banc.Reglages.AdresseHtml, QStringLiteral("/"));
}

TEST_F(Champs, ListsSaveTheUsersChoiceOnly) {
  auto* qualite = Banc.Trouve<QComboBox>("CombQualit");
  qualite->setCurrentIndex(3);
  qualite->setCurrentIndex(0);
  Banc.Chargeur.ChargeTextes();
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0) << "set by the program";
  qualite->setFocus();
  QTest::keyClick(qualite, Qt::Key_Down);
  EXPECT_EQ(Banc.Reglages.IndexQualite, 1);
  EXPECT_EQ(Banc.Reglages.QualiteJpeg, 50);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1);
  auto* couleur = Banc.Trouve<QComboBox>("CombCouleur");
  couleur->setFocus();
  QTest::keyClick(couleur, Qt::Key_Down);
  EXPECT_EQ(Banc.Reglages.IndexCouleurPage, 4);
  EXPECT_EQ(Banc.Reglages.CouleurPage, QStringLiteral("brawn"));
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 2);
}

TEST_F(Champs, ErrorMarksAreClearedByTheirClicks) {
  const char* noms[] = {"TxtFtp", "TxtHtml", "TxtFTPracine", "TxtUserName", "TxtPass"};
  const auto rougit = [&] {
    for (const char* nom : noms) RougitChamp(*Champ(nom), true);
  };
  const auto rouges = [&] {
    QStringList liste;
    for (const char* nom : noms) {
      if (EstRouge(*Champ(nom))) liste += QLatin1String(nom);
    }
    return liste.join(u' ');
  };
  rougit();
  Banc.Clique("TxtFtp");
  EXPECT_EQ(rouges(), QStringLiteral("TxtHtml TxtFTPracine TxtUserName TxtPass"));
  Banc.Clique("TxtHtml");
  EXPECT_EQ(rouges(), QStringLiteral("TxtFTPracine TxtUserName TxtPass"));
  Banc.Clique("TxtFTPracine");
  EXPECT_EQ(rouges(), QStringLiteral("TxtFTPracine TxtUserName TxtPass")) << "it has no such handler";
  Banc.Clique("TxtPass");
  EXPECT_EQ(rouges(), QStringLiteral("TxtFTPracine"));
  rougit();
  Banc.Clique("TxtUserName");
  EXPECT_EQ(rouges(), QStringLiteral("TxtFtp TxtHtml TxtFTPracine"));
}

TEST_F(Champs, CheckMailWithoutAddressPromptsInRedOnOk) {
  Banc.RemplitMail();
  Champ("TextEMail")->setText(QStringLiteral("ab"));
  Oublie();
  Banc.Clique("CheckMail");
  EXPECT_EQ(Banc.Boites.Textes, QStringList{QStringLiteral("You must hit your email before.")});
  EXPECT_EQ(Banc.Boites.Titres, QStringList{QStringLiteral("Caution")});
  EXPECT_EQ(Banc.Boites.Boutons, BoutonsBoite::kOkAnnuler);
  EXPECT_EQ(Champ("TextEMail")->text(), QStringLiteral("Destination eMail"));
  EXPECT_TRUE(EstRouge(*Champ("TextEMail")));
  EXPECT_FALSE(Banc.Trouve<QCheckBox>("CheckMail")->isChecked());
  EXPECT_FALSE(Banc.Reglages.MailActif);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
  EXPECT_EQ(Banc.Reglages.MailDestination, QStringLiteral("Destination eMail")) << "what shows is what is kept";
  EXPECT_EQ(Banc.Fenetre.childAt(PageVaktor::kPlace.topLeft() + QPoint(2, 2))->objectName(),
            QStringLiteral("PictPage(0)"));
  Banc.Clique("TextEMail");
  EXPECT_EQ(Champ("TextEMail")->text(), QString());
  EXPECT_FALSE(EstRouge(*Champ("TextEMail")));
}

TEST_F(Champs, AnAddressThatIsNoneTurnsRedWhenTheFieldIsLeftAndIsNamed) {
  const QString aide = Champ("TextEMail")->toolTip();
  Tape("TextEMail", QStringLiteral("\"Anna M.\" <anna@example.org>, anna.example.org"));
  Banc.Chargeur.ChargeTextes();
  EXPECT_FALSE(EstRouge(*Champ("TextEMail"))) << "not while it is typed";
  EXPECT_EQ(Quitte("TextEMail"), 1) << "it is kept all the same: the other one gets the mails";
  EXPECT_TRUE(EstRouge(*Champ("TextEMail")));
  EXPECT_EQ(Champ("TextEMail")->toolTip(), QStringLiteral("This is no eMail address: anna.example.org"));
  Banc.Reglages.LangueCourante = 0;
  Banc.Chargeur.ChargeTextes();
  EXPECT_EQ(Champ("TextEMail")->toolTip(), QStringLiteral("Ce n'est pas une adresse eMail : anna.example.org"));
  Banc.Reglages.LangueCourante = 1;
  Banc.Chargeur.ChargeTextes();
  Tape("TextEMail", QStringLiteral("anna@example.org"));
  Quitte("TextEMail");
  EXPECT_FALSE(EstRouge(*Champ("TextEMail")));
  EXPECT_EQ(Champ("TextEMail")->toolTip(), aide);
  Banc.Reglages.SmtpActif = false;
  Tape("TextEMail", QStringLiteral("anna"));
  Quitte("TextEMail");
  EXPECT_FALSE(EstRouge(*Champ("TextEMail"))) << "a user of this machine, for its own mail program";
}

TEST_F(Champs, KeyTakesThePromptAwayAndIsTyped) {
  Banc.RemplitMail();
  Champ("TextEMail")->clear();
  Banc.Clique("CheckMail");
  Champ("TextEMail")->setFocus();
  QTest::keyClicks(Champ("TextEMail"), QStringLiteral("a @b"));
  EXPECT_EQ(Champ("TextEMail")->text(), QStringLiteral("a@b"));
  EXPECT_FALSE(EstRouge(*Champ("TextEMail")));
}

TEST_F(Champs, TabGoesOnAndLeavesThePromptStanding) {
  Banc.RemplitMail();
  Champ("TextEMail")->clear();
  Banc.Clique("CheckMail");
  const QString demande = Champ("TextEMail")->text();
  ASSERT_FALSE(demande.isEmpty());
  for (const Qt::Key touche : {Qt::Key_Tab, Qt::Key_Backtab}) {
    Champ("TextEMail")->setFocus();
    QTest::keyClick(Champ("TextEMail"), touche);
    EXPECT_FALSE(Champ("TextEMail")->hasFocus());
    EXPECT_EQ(Champ("TextEMail")->text(), demande) << touche;
    EXPECT_TRUE(EstRouge(*Champ("TextEMail"))) << touche;
  }
}

TEST_F(Champs, TextThatComesInWithoutAKeyTakesThePromptAwayToo) {
  const std::function<void(QLineEdit&)> voies[] = {
      [](QLineEdit& champ) {
        QInputMethodEvent compose;
        compose.setCommitString(QStringLiteral("a@b"));
        QCoreApplication::sendEvent(&champ, &compose);
      },
      [](QLineEdit& champ) {
        QMimeData texte;
        texte.setText(QStringLiteral("a@b"));
        QDragEnterEvent entree(QPoint(1, 1), Qt::CopyAction, &texte, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&champ, &entree);
        QDropEvent depot(QPointF(1, 1), Qt::CopyAction, &texte, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&champ, &depot);
      },
      [](QLineEdit& champ) {
        QTest::mouseClick(&champ, Qt::MiddleButton);
        champ.insert(QStringLiteral("a@b"));  // as a system does that has a selection to paste
      }};
  Banc.RemplitMail();
  for (const auto& voie : voies) {
    Champ("TextEMail")->clear();
    Banc.Clique("CheckMail");
    ASSERT_TRUE(EstRouge(*Champ("TextEMail")));
    Champ("TextEMail")->setFocus();
    voie(*Champ("TextEMail"));
    EXPECT_EQ(Champ("TextEMail")->text(), QStringLiteral("a@b"));
    EXPECT_FALSE(EstRouge(*Champ("TextEMail")));
  }
}

TEST_F(Champs, AddressOfThreeCharactersIsLongEnough) {
  Banc.RemplitMail();
  Champ("TextEMail")->setText(QStringLiteral("a@b"));
  Banc.Clique("CheckMail");
  EXPECT_TRUE(Banc.Boites.Textes.isEmpty());
  EXPECT_TRUE(Banc.Reglages.MailActif);
}

TEST_F(Champs, PhotosOnThePageAreAtLeastOne) {
  for (const char* texte : {"0", "abc", "000"}) {
    Champ("TextNbrPhotoFTP")->setText(QLatin1String(texte));
    EXPECT_EQ(Champ("TextNbrPhotoFTP")->text(), QStringLiteral("1")) << texte;
    EXPECT_EQ(Banc.Reglages.NbrPhotosPage, 1) << texte;
  }
  Vide("TextNbrPhotoFTP");
  EXPECT_EQ(Champ("TextNbrPhotoFTP")->text(), QStringLiteral("1"));
}

TEST_F(Champs, CheckMailCancelledOnlyUnticks) {
  Banc.RemplitMail();
  Champ("TextEMail")->clear();
  Oublie();
  Banc.Boites.Reponse = ReponseBoite::kAnnuler;
  Banc.Clique("CheckMail");
  EXPECT_FALSE(Banc.Trouve<QCheckBox>("CheckMail")->isChecked());
  EXPECT_EQ(Champ("TextEMail")->text(), QString());
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0);
}

TEST_F(Champs, CheckMailWithoutSmtpOpensItsFormAndStaysOff) {
  Banc.RemplitMail();
  Banc.Reglages.SmtpPort.clear();
  Banc.Reglages.MailActif = true;
  Banc.Clique("CheckMail");
  EXPECT_EQ(Banc.OuverturesSmtp, 1);
  EXPECT_FALSE(Banc.Trouve<QCheckBox>("CheckMail")->isChecked());
  EXPECT_FALSE(Banc.Reglages.MailActif);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 1) << "it goes on to the save";
  EXPECT_TRUE(Banc.Boites.Textes.isEmpty());
  Banc.Reglages.SmtpActif = false;
  Banc.Clique("CheckMail");
  EXPECT_EQ(Banc.OuverturesSmtp, 1) << "the system's mail program needs no SMTP settings";
  EXPECT_TRUE(Banc.Reglages.MailActif);
}

TEST_F(Champs, LoadingRunsTheHandlersAndTheIntervalSaves) {
  Banc.Reglages.AdresseFtp = QStringLiteral("ftp.example.org");
  Banc.Reglages.MailDestination = QStringLiteral("me @example.org");
  VueParametres vue(Banc.Reglages, Banc.Fenetre);
  vue.MontreLu(&Parametres::MailDestination);
  EXPECT_EQ(Banc.Reglages.MailDestination, QStringLiteral("me@example.org"));
  vue.MontreLu(&Parametres::AdresseFtp);
  EXPECT_TRUE(Banc.Reglages.ParametresModifies);
  vue.MontreLu(&Parametres::IntervalleFtp);
  vue.MontreLu(&Parametres::Retard);
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 0) << "those that save wait";
  vue.MontreFin();
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 2) << "the interval and the delay";
  vue.MontreFin();
  EXPECT_EQ(Banc.Sauvegarde.Sauvegardes, 2) << "no change, no save";
}

// The list stands on no skin when it is made, and so it tells nothing of a load that leaves it there.
TEST_F(Champs, LoadOfNoSkinDrawsThePagesAnewToo) {
  for (const qint32 skin : {-1, 2}) {
    Banc.Fenetre.Options().CombSkin->setCurrentIndex(skin);
    Banc.Reglages.IndexSkin = skin;
    const auto pompes = Banc.Pompe.Appels;
    VueParametres(Banc.Reglages, Banc.Fenetre).MontreLu(&Parametres::IndexSkin);
    EXPECT_EQ(Banc.Pompe.Appels, pompes + 1) << skin;
  }
}

TEST_F(Champs, AnyTextCanBePastedIntoEveryField) {
  const QString textes[] = {QString(100000, u'x'), QString(100000, u'7'),
                            QString::fromUtf8("😀👩‍👩‍👧 é"), QString::fromUtf8("שלום \u202e123 مرحبا"),
                            QStringLiteral("one\ntwo\r\n")};
  for (auto* champ : Banc.Fenetre.findChildren<QLineEdit*>()) {
    for (const QString& texte : textes) {
      champ->setFocus();
      champ->selectAll();
      QGuiApplication::clipboard()->setText(texte);
      QTest::keyClick(champ, Qt::Key_V, Qt::ControlModifier);
      EXPECT_FALSE(champ->text().contains(u'\n')) << champ->objectName().toStdString();
    }
  }
  auto* corps = Banc.Trouve<QPlainTextEdit>("TextTexte");
  for (const QString& texte : textes) {
    corps->setFocus();
    corps->selectAll();
    QGuiApplication::clipboard()->setText(texte);
    QTest::keyClick(corps, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Banc.Reglages.MailCorps, corps->toPlainText());
  }
  EXPECT_EQ(Champ("Text1")->text(), QStringLiteral("0")) << "the last paste has no digit";
  Champ("TxtUserName")->setText(textes[0]);
  EXPECT_EQ(Banc.Reglages.UtilisateurFtp.size(), 100000) << "no field has a length limit";
  Champ("TextSujet")->setText(textes[2]);
  EXPECT_EQ(Banc.Reglages.MailSujet, textes[2]);
  Banc.Trouve<QPlainTextEdit>("TextTexte")->setPlainText(textes[0]);
  EXPECT_EQ(Banc.Reglages.MailCorps.size(), 100000);
}

// A French text has blanks that do not break, before "!" and inside numbers; a file from elsewhere ends its lines by CR
// and LF. Neither is changed by being shown.
TEST_F(Champs, MailTextIsKeptAsItStands) {
  auto* corps = Banc.Trouve<QPlainTextEdit>("TextTexte");
  for (const QString& texte :
       {QString::fromUtf8("Alerte\u00A0!\r\nVenez\u00A0vite.\r\n"), QStringLiteral("one\ntwo"),
        QStringLiteral("one\rtwo"),
        QStringLiteral("a\r\nb\nc\rd") + QChar(QChar::LineSeparator) + QChar(QChar::ParagraphSeparator) + u'e',
        QString()}) {
    Banc.Reglages.MailCorps = texte;
    corps->setPlainText(texte);
    EXPECT_EQ(Banc.Reglages.MailCorps.toUtf8().toPercentEncoding(), texte.toUtf8().toPercentEncoding());
  }
}

TEST_F(Champs, MailTextThatIsTypedKeepsItsBlanksAndEndsItsLinesAsTheTextDid) {
  auto* corps = Banc.Trouve<QPlainTextEdit>("TextTexte");
  const auto tapeApres = [this, corps](const QString& texte) {
    Banc.Reglages.MailCorps = texte;
    corps->setPlainText(texte);
    corps->setFocus();
    corps->moveCursor(QTextCursor::End);
    QTest::keyClicks(corps, QStringLiteral("x"));
    QTest::keyClick(corps, Qt::Key_Return);
    QTest::keyClicks(corps, QString(QChar::Nbsp));
    QTest::keyClick(corps, Qt::Key_Return, Qt::ShiftModifier);
    return Banc.Reglages.MailCorps;
  };
  EXPECT_EQ(tapeApres(QString::fromUtf8("a\u00A0b\r\nc")), QString::fromUtf8("a\u00A0b\r\ncx\r\n\u00A0\r\n"));
  EXPECT_EQ(tapeApres(QStringLiteral("a\nb")), QString::fromUtf8("a\nbx\n\u00A0\n"));
  EXPECT_EQ(tapeApres(QString()), QString::fromUtf8("x\n\u00A0\n"));
  EXPECT_TRUE(Banc.Reglages.ParametresModifies);
}

}  // namespace
}  // namespace vaktor
