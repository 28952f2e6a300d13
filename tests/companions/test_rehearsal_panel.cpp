// SPDX-License-Identifier: GPL-3.0-or-later
// The rehearsal in the form of the mail settings.
#include <QJsonDocument>
#include <QJsonObject>

#include "companions/smtp_bench.h"

namespace vaktor::essai {
namespace {

struct EssaiDansLaForme : BancSmtp {
  QString Phrase() { return Trouve<QLabel>("LblEssai")->text(); }
  QString Bouton() { return Trouve<QPushButton>("CmdEssai")->text(); }
  QStringList Etapes() { return Trouve<QPlainTextEdit>("TxtEssai")->toPlainText().split(u'\n', Qt::SkipEmptyParts); }
  MotsEssai Mots() const { return DonneMotsEssaiMail(LangueParlee(Reglages.LangueCourante)); }
  QJsonObject Demande() const { return QJsonDocument::fromJson(Essai.Demande).object(); }
};

TEST_F(EssaiDansLaForme, SendsWhatStandsInTheFieldsAndSavesNothing) {
  Ouvre();
  Tape("TxtSMTP", "smtp.typed.org");
  Tape("TxtSMTPpass", "typed");
  Tape("TextPort", "465");
  Clique("CmdEssai");
  EXPECT_EQ(Essai.Lances, 1);
  const QJsonObject d = Demande();
  EXPECT_EQ(d["destination"], "you@c.org");
  EXPECT_EQ(d["smtpserveur"], "smtp.typed.org");
  EXPECT_EQ(d["smtpfrom"], "me@b.org");
  EXPECT_EQ(d["smtpport"], "465");
  EXPECT_EQ(d["smtpuser"], "anna");
  EXPECT_EQ(d["pass"], "typed");
  EXPECT_EQ(d["smtpactif"], true);
  EXPECT_EQ(d["smtpneedlogin"], true);
  EXPECT_EQ(d["smtpsanschiffrement"], false);
  EXPECT_EQ(d["smtpjeton"], QString());
  EXPECT_EQ(d["langue"], 1);
  EXPECT_EQ(d["sujet"], "[Test] Intrusion");
  EXPECT_TRUE(d["corp"].toString().startsWith("This is a test of Vaktor, not an alarm.\n"));
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
  EXPECT_FALSE(Reglages.ParametresModifies);
}

TEST_F(EssaiDansLaForme, ThePromptOfTheMainWindowIsNoDestination) {
  Textes.Remplit(Langue::kAnglais);
  Reglages.MailDestination = Textes.Dit(Libelle::kMailDestination);
  Ouvre();
  EXPECT_TRUE(Phrase().contains("First enter"));
  Clique("CmdEssai");
  EXPECT_EQ(Demande()["destination"], "");
}

TEST_F(EssaiDansLaForme, ADestinationTypedMeanwhileIsShownWhenTheUserComesBack) {
  Reglages.MailDestination.clear();
  Ouvre();
  EXPECT_TRUE(Phrase().contains("First enter"));
  QWidget principale;
  const auto vaEtRevient = [&](const QString& destination) {
    principale.show();
    principale.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&principale));
    Reglages.MailDestination = destination;
    Forme->Montre();
    EXPECT_TRUE(QTest::qWaitForWindowActive(Forme.get()));
  };
  vaEtRevient("new@c.org");
  EXPECT_EQ(Phrase(), "One mail will be sent to new@c.org. Nothing is saved.");
  Clique("CmdEssai");
  vaEtRevient("other@c.org");
  EXPECT_EQ(Phrase(), Mots().EnCours);
  Essai.Dit("Check the password.");
  Essai.Finit(FinEssai::kRefuse);
  vaEtRevient("third@c.org");
  EXPECT_EQ(Phrase(), "Check the password.") << "how it ended stays to be read";
}

TEST_F(EssaiDansLaForme, StepsComeAsTheyHappenAndTheLastLineIsTheSentence) {
  Ouvre();
  EXPECT_EQ(Bouton(), "Try");
  Trouve("CmdEssai")->setFocus();
  QTest::keyClick(Trouve("CmdEssai"), Qt::Key_Space);
  EXPECT_EQ(Bouton(), "Cancel");
  Essai.Dit("220 ready");
  EXPECT_EQ(Etapes(), QStringList{"220 ready"});
  Essai.Dit("AUTH: 535 5.7.8 <b>no</b>");
  EXPECT_EQ(Etapes().last(), "Login - AUTH: 535 5.7.8 <b>no</b>") << "the server's own words, as text";
  Essai.Dit("Check the password.");
  Essai.Finit(FinEssai::kRefuse);
  EXPECT_EQ(Etapes().size(), 2);
  EXPECT_EQ(Phrase(), "Check the password.");
  EXPECT_EQ(Bouton(), "Try");
  Clique("CmdEssai");
  EXPECT_TRUE(Etapes().isEmpty()) << "a new one begins on a clean list";
  Essai.Dit("The mail was accepted.");
  Essai.Finit(FinEssai::kAccepte);
  EXPECT_EQ(Phrase(), "The mail was accepted.");
  EXPECT_EQ(Trouve<QLabel>("LblEssai")->textFormat(), Qt::PlainText) << "a server's word is no markup";
}

TEST_F(EssaiDansLaForme, ACompanionThatIsMissingOrSaysNothingIsTold) {
  Reglages.LangueCourante = 0;
  Ouvre();
  Clique("CmdEssai");
  Essai.Finit(FinEssai::kImpossible);
  EXPECT_TRUE(Phrase().contains("VAKTORmail")) << Phrase().toStdString();
  Clique("CmdEssai");
  Essai.Dit("220 a");
  Essai.Finit(FinEssai::kSansFin);
  EXPECT_EQ(Phrase(), DonneMotsEssaiMail(Langue::kFrancais).SansFin);
  EXPECT_EQ(Etapes(), QStringList{"220 a"}) << "what was reached stays to be read";
  Clique("CmdEssai");
  Essai.Finit(FinEssai::kRefuse);
  EXPECT_EQ(Phrase(), DonneMotsEssaiMail(Langue::kFrancais).Impossible);
}

TEST_F(EssaiDansLaForme, TheSameButtonCancels) {
  Ouvre();
  Clique("CmdEssai");
  Essai.Dit("220 a");
  Clique("CmdEssai");
  EXPECT_EQ(Essai.Annules, 1);
  EXPECT_EQ(Essai.Lances, 1);
  EXPECT_EQ(Phrase(), "The trial was cancelled.");
  EXPECT_EQ(Bouton(), "Try");
}

TEST_F(EssaiDansLaForme, ClosingTheFormCancelsButAQuestionDoesNot) {
  Ouvre();
  Clique("CmdEssai");
  Tape("TxtSMTP", "");
  Boites.Reponse = ReponseBoite::kNon;
  EXPECT_FALSE(Ferme());
  EXPECT_EQ(Essai.Annules, 0);
  Tape("TxtSMTP", "s");
  EXPECT_TRUE(Ferme());
  EXPECT_EQ(Essai.Annules, 1);
}

TEST_F(EssaiDansLaForme, TheListIsBounded) {
  Ouvre();
  Clique("CmdEssai");
  for (int i = 0; i < PanneauEssai::kEtapesMax + 50; ++i) Essai.Dit(QString(5000, u'x'));
  EXPECT_LE(Etapes().size(), PanneauEssai::kEtapesMax);
  EXPECT_EQ(Etapes().last().size(), PanneauEssai::kLigneMax);
}

TEST_F(EssaiDansLaForme, AChangeOfLanguageReachesItWhileItRuns) {
  Ouvre();
  Clique("CmdEssai");
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme->EcritMots();
  EXPECT_EQ(Bouton(), "Annuler");
  EXPECT_EQ(Phrase(), QString::fromUtf8("Essai en cours…"));
}

TEST_F(EssaiDansLaForme, AChangeOfLanguageKeepsHowTheLastOneEnded) {
  Ouvre();
  Clique("CmdEssai");
  Clique("CmdEssai");
  const QString annule = Phrase();
  Reglages.LangueCourante = 0;
  Textes.Remplit(Langue::kFrancais);
  Forme->EcritMots();
  EXPECT_NE(Phrase(), annule);
  EXPECT_EQ(Phrase(), DonneMotsEssaiMail(Langue::kFrancais).Annule);
  Reglages.LangueCourante = 1;
  Forme->EcritMots();
  EXPECT_EQ(Phrase(), annule);
}

TEST_F(EssaiDansLaForme, EnterPressesTheButtonToo) {
  Ouvre();
  QTest::keyClick(Trouve("CmdEssai"), Qt::Key_Return);
  EXPECT_EQ(Bouton(), "Cancel");
  QTest::keyClick(Trouve("CmdEssai"), Qt::Key_Enter);
  EXPECT_EQ(Bouton(), "Try");
}

}  // namespace
}  // namespace vaktor::essai
