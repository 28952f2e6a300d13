// SPDX-License-Identifier: GPL-3.0-or-later
// The closing of the form of the mail settings: its two questions, its save, its end with the program.
#include <QCloseEvent>

#include "base/failure.h"
#include "companions/smtp_bench.h"

namespace vaktor::essai {
namespace {

using FermetureSmtp = BancSmtp;

const QString kSansServeur =
    QStringLiteral("Your parameters are missing.\r\nDo you want Vaktor use the eMail software of your computer?");
const QString kSansConnexion = QStringLiteral("Your login and/or password are missing.\r\nDo you want to type them?");

TEST_F(FermetureSmtp, CompleteSettingsAreSavedWithoutAQuestionChangedOrNot) {
  Ouvre();
  EXPECT_TRUE(Ferme());
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
  EXPECT_EQ(Dechargements, 1);
}

TEST_F(FermetureSmtp, TheEscapeKeyCloses) {
  Ouvre();
  QTest::keyClick(Trouve("TxtSMTP"), Qt::Key_Escape);
  EXPECT_FALSE(Forme->isVisible());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
}

TEST_F(FermetureSmtp, QuestionsInBothLanguages) {
  Ouvre();
  Tape("TxtSMTP", "");
  Boites.Reponse = ReponseBoite::kNon;
  EXPECT_FALSE(Ferme());
  EXPECT_EQ(Boites.Textes, QStringList{kSansServeur});
  EXPECT_EQ(Boites.Titres, QStringList{"Be careful"});
  EXPECT_EQ(Boites.Boutons, BoutonsBoite::kOuiNon);
  Tape("TxtSMTP", "s.org");
  Tape("TxtSMTPpass", "");
  Boites.Reponse = ReponseBoite::kOui;
  EXPECT_FALSE(Ferme());
  EXPECT_EQ(Boites.Textes.last(), kSansConnexion);
  Textes.Remplit(Langue::kFrancais);
  EXPECT_FALSE(Ferme());
  EXPECT_EQ(Boites.Textes.last(), QString::fromUtf8("Vos paramètres d'identification, sont incomplets.\r\nVoulez vous "
                                                    "les compléter?"));
  EXPECT_EQ(Boites.Titres.last(), "Attention");
  Tape("TxtFrom", "");
  Boites.Reponse = ReponseBoite::kNon;
  EXPECT_FALSE(Ferme());
  EXPECT_EQ(Boites.Textes.last(),
            QString::fromUtf8("Vous n'avez pas indiqué les paramètres de votre messagerie.\r\nPréférez vous que Vaktor "
                              "envoie les emails avec le logiciel de messagerie déjà présent dans votre PC?"));
}

TEST_F(FermetureSmtp, NoToTheFirstQuestionCancelsAndNothingElseHappens) {
  Ouvre();
  Tape("TxtFrom", "");
  Boites.Reponse = ReponseBoite::kNon;
  EXPECT_FALSE(Ferme());
  EXPECT_TRUE(Reglages.SmtpActif);
  EXPECT_TRUE(Reglages.SmtpNeedLogin);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
  EXPECT_EQ(Dechargements, 0);
  EXPECT_EQ(Boites.Textes.size(), 1);
}

TEST_F(FermetureSmtp, YesToTheFirstQuestionTakesTheMailSoftwareAndAsksNoMore) {
  Ouvre();
  Tape("TxtSMTP", "");
  Tape("TxtSMTPpass", "");
  Boites.Reponse = ReponseBoite::kOui;
  EXPECT_TRUE(Ferme());
  EXPECT_EQ(Boites.Textes, QStringList{kSansServeur});
  EXPECT_FALSE(Reglages.SmtpActif);
  EXPECT_FALSE(Reglages.SmtpNeedLogin);
  EXPECT_FALSE(Trouve("TxtSMTP")->isEnabled());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
}

TEST_F(FermetureSmtp, YesToTheSecondQuestionCancelsAndNoGoesWithoutALogin) {
  Ouvre();
  Tape("TxtSMTPuser", "");
  Boites.Reponse = ReponseBoite::kOui;
  EXPECT_FALSE(Ferme());
  EXPECT_TRUE(Reglages.SmtpNeedLogin);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
  Boites.Reponse = ReponseBoite::kNon;
  EXPECT_TRUE(Ferme());
  EXPECT_FALSE(Reglages.SmtpNeedLogin);
  EXPECT_TRUE(Reglages.SmtpActif);
  EXPECT_EQ(Boites.Textes.size(), 2);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
}

TEST_F(FermetureSmtp, QuestionThatIsNotAnsweredChangesNothingAndTheFormStays) {
  Ouvre();
  Boites.Reponse = ReponseBoite::kAnnuler;
  Tape("TxtSMTPuser", "");
  EXPECT_FALSE(Ferme());
  EXPECT_TRUE(Reglages.SmtpNeedLogin);
  Tape("TxtFrom", "");
  EXPECT_FALSE(Ferme());
  EXPECT_TRUE(Reglages.SmtpActif);
  EXPECT_EQ(Boites.Textes.size(), 2);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(FermetureSmtp, OnlyTheExactPrefixIsAServerNotFinished) {
  Ouvre();
  Boites.Reponse = ReponseBoite::kNon;
  Tape("TxtSMTP", "smtp.");
  EXPECT_FALSE(Ferme());
  Tape("TxtSMTP", "smtp.x");
  EXPECT_TRUE(Ferme());
}

TEST_F(FermetureSmtp, AServerOfBlanksAloneIsNoneAndPasses) {
  Ouvre();
  Tape("TxtSMTP", "  ");
  EXPECT_EQ(Reglages.SmtpServeur, "");
  EXPECT_TRUE(Ferme());
  EXPECT_TRUE(Boites.Textes.isEmpty());
}

TEST_F(FermetureSmtp, AClearedPortIsNoReasonToAsk) {
  Ouvre();
  Tape("TextPort", "");
  EXPECT_TRUE(Ferme());
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Reglages.SmtpPort, "");
}

TEST_F(FermetureSmtp, WithTheMailSoftwareNothingIsAsked) {
  Ouvre();
  Tape("TxtFrom", "");
  Tape("TxtSMTPuser", "");
  Clique("ChkMailWinsock");
  EXPECT_TRUE(Ferme());
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
}

TEST_F(FermetureSmtp, AtTheEndOfTheProgramNothingIsAskedAndAllIsSaved) {
  Ouvre();
  Tape("TxtFrom", "");
  Etat.EnFermeture = true;
  Forme->Decharge();
  EXPECT_TRUE(Boites.Textes.isEmpty());
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
  EXPECT_FALSE(Forme->isVisible());
  EXPECT_TRUE(Reglages.SmtpActif);
  EXPECT_EQ(Dechargements, 0) << "the program itself takes it away";
}

/// A box in which the program ends before it is answered.
class BoiteDePasse : public BoitesMessage {
 public:
  std::function<void()> Pendant;
  ReponseBoite Reponse = ReponseBoite::kNon;
  ReponseBoite MontreMessage(const QString&, const QString&, BoutonsBoite) override {
    Pendant();
    return Reponse;
  }
};

TEST_F(FermetureSmtp, AProgramThatEndsUnderAQuestionSavesOnce) {
  for (const ReponseBoite reponse : {ReponseBoite::kNon, ReponseBoite::kOui}) {
    BoiteDePasse boite;
    boite.Reponse = reponse;
    Etat.EnFermeture = false;
    Reglages.SmtpActif = Reglages.SmtpNeedLogin = true;
    Reglages.SmtpFrom.clear();
    Reglages.SmtpServeur = "s";
    Sauvegarde.Sauvegardes = 0;
    Forme =
        std::make_unique<FrmSmtp>(PortsFrmSmtp{Reglages, Sauvegarde, Textes, Etat, boite, Pompe, Comptes, Lus, Essai});
    Forme->Montre();
    boite.Pendant = [this] {
      Etat.EnFermeture = true;
      Forme->Decharge();
    };
    EXPECT_TRUE(Ferme());
    EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
  }
}

/// A store that cannot be written, once.
class SauvegardeImpossible : public SauvegardeParametres {
 public:
  bool Refuse = true;
  void SauveParametres() override {
    if (Refuse) throw Echec(kAccesFichier, QStringLiteral("disk full"));
  }
};

TEST_F(FermetureSmtp, AFormThatCannotBeSavedStaysOpenAndCanBeClosedLater) {
  SauvegardeImpossible disque;
  Forme = std::make_unique<FrmSmtp>(PortsFrmSmtp{Reglages, disque, Textes, Etat, Boites, Pompe, Comptes, Lus, Essai});
  Forme->Charge();
  Forme->Montre();
  // As the guard at the event loop sees it.
  QCloseEvent ferme;
  EXPECT_THROW(static_cast<QObject*>(Forme.get())->event(&ferme), Echec);
  EXPECT_FALSE(ferme.isAccepted());
  disque.Refuse = false;
  EXPECT_TRUE(Ferme());
}

}  // namespace
}  // namespace vaktor::essai
