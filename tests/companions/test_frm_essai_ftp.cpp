// SPDX-License-Identifier: GPL-3.0-or-later
// The window in which the settings of the live page are tried.
#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "companions/forms/frm_essai_ftp.h"
#include "companions/live_rehearsal.h"
#include "fakes/fake_rehearsal.h"

namespace vaktor::essai {
namespace {

struct FenetreEssai : testing::Test {
  FenetreEssai() { Forme.EcritMots(Langue::kAnglais); }
  void Ouvre() {
    Forme.Essaie();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Forme));
  }
  template <typename T = QWidget>
  T* Trouve(const char* nom) {
    return Forme.findChild<T*>(QLatin1String(nom));
  }
  QString Phrase() { return Trouve<QLabel>("LblEssai")->text(); }
  QString Bouton() { return Trouve<QPushButton>("CmdEssai")->text(); }
  QStringList Etapes() { return Trouve<QPlainTextEdit>("TxtEssai")->toPlainText().split(u'\n', Qt::SkipEmptyParts); }
  void Clique(const char* nom) { QTest::mouseClick(Trouve(nom), Qt::LeftButton); }

  ChampsEssaiFtp Champs{"ftp.a.org", "anna", "s3cret", "/www"};
  faux::EssaiFaux Essai;
  FrmEssaiFtp Forme{
      PortsFrmEssaiFtp{Essai, [this] { return ComposeDemandeEssaiFtp(Champs, 1); }, [this] { return Champs.Serveur; }}};
};

TEST_F(FenetreEssai, OpensAndTriesWhatStandsInTheFields) {
  Ouvre();
  EXPECT_EQ(Forme.windowTitle(), "Trial of the live page");
  ASSERT_EQ(Essai.Lances, 1);
  const QJsonObject d = QJsonDocument::fromJson(Essai.Demande).object();
  EXPECT_EQ(d.keys(), QStringList({"ftp", "langue", "pass", "racine", "user"}));
  EXPECT_EQ(d["ftp"], "ftp.a.org");
  EXPECT_EQ(d["user"], "anna");
  EXPECT_EQ(d["pass"], "s3cret");
  EXPECT_EQ(d["racine"], "/www");
  EXPECT_EQ(d["langue"], 1);
  EXPECT_EQ(Bouton(), "Cancel");
}

TEST_F(FenetreEssai, WordsHaveTheSizeThatTheDesktopSays) {
  for (const char* nom : {"LblEssai", "TxtEssai", "CmdFermer"})
    EXPECT_EQ(Trouve(nom)->font().pointSize(), QApplication::font(Trouve(nom)).pointSize()) << nom;
  EXPECT_GT(QApplication::font().pointSize(), 0) << "a font in pixels would be one of our own";
}

TEST_F(FenetreEssai, StepsComeAsTheyHappenWithPlainNamesAndTheLastLineIsTheSentence) {
  Ouvre();
  Essai.Dit("220 ready");
  Essai.Dit("PASS: 530 <b>no</b>");
  EXPECT_EQ(Etapes(), QStringList({"220 ready", "Password - PASS: 530 <b>no</b>"}));
  Essai.Dit("Correct the password.");
  Essai.Finit(FinEssai::kRefuse);
  EXPECT_EQ(Phrase(), "Correct the password.");
  EXPECT_EQ(Etapes().size(), 2);
  Champs.MotDePasse = "other";
  Clique("CmdEssai");
  EXPECT_EQ(Essai.Lances, 2);
  EXPECT_TRUE(Essai.Demande.contains("other")) << "as the fields stand now";
  EXPECT_TRUE(Etapes().isEmpty());
}

TEST_F(FenetreEssai, ASecondPressLeavesTheRunningOneAlone) {
  Ouvre();
  Forme.Essaie();
  EXPECT_EQ(Essai.Lances, 1);
  EXPECT_EQ(Essai.Annules, 0);
  Essai.Dit("fine");
  Essai.Finit(FinEssai::kAccepte);
  Forme.Essaie();
  EXPECT_EQ(Essai.Lances, 2) << "and starts a new one once it has ended";
}

TEST_F(FenetreEssai, EachWayToCloseItEndsTheRunningOne) {
  const auto ferme = [&](const std::function<void()>& facon) {
    Ouvre();
    const qint32 avant = Essai.Annules;
    facon();
    EXPECT_FALSE(Forme.isVisible());
    EXPECT_EQ(Essai.Annules, avant + 1);
  };
  ferme([&] { Forme.close(); });
  ferme([&] { QTest::keyClick(&Forme, Qt::Key_Escape); });
  ferme([&] { Clique("CmdFermer"); });
  for (const Qt::Key touche : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    ferme([&] {
      Trouve("CmdFermer")->setFocus();
      QTest::keyClick(Trouve("CmdFermer"), touche);
    });
  }
  EXPECT_EQ(Essai.Lances, 6) << "each opening is a new one";
}

TEST_F(FenetreEssai, ItsButtonCancelsAndTheWindowStays) {
  Ouvre();
  Trouve("CmdEssai")->setFocus();
  QTest::keyClick(Trouve("CmdEssai"), Qt::Key_Space);
  EXPECT_EQ(Essai.Annules, 1);
  EXPECT_EQ(Phrase(), "The trial was cancelled.");
  EXPECT_TRUE(Forme.isVisible());
}

TEST_F(FenetreEssai, ACompanionThatIsMissingIsNamed) {
  Ouvre();
  Essai.Finit(FinEssai::kImpossible);
  EXPECT_TRUE(Phrase().contains("VAKTORftp")) << Phrase().toStdString();
  Forme.Essaie();
  Essai.Finit(FinEssai::kSansFin);
  EXPECT_TRUE(Phrase().contains("did not answer in time")) << Phrase().toStdString();
}

TEST_F(FenetreEssai, TheLanguageReachesItWhileItRunsAndAfterwards) {
  Ouvre();
  Forme.EcritMots(Langue::kFrancais);
  EXPECT_EQ(Forme.windowTitle(), "Essai de la page en direct");
  EXPECT_EQ(Bouton(), "Annuler");
  EXPECT_EQ(Trouve<QPushButton>("CmdFermer")->text(), "Fermer");
  EXPECT_EQ(Phrase(), QString::fromUtf8("Essai en cours…"));
  Essai.Finit(FinEssai::kSansFin);
  const QString enFrancais = Phrase();
  Forme.EcritMots(Langue::kAnglais);
  EXPECT_TRUE(Phrase().contains("did not answer in time")) << "what we said of it, in the new language";
  Forme.EcritMots(Langue::kFrancais);
  EXPECT_EQ(Phrase(), enFrancais);
  Forme.Essaie();
  Essai.Dit("x");
  Essai.Finit(FinEssai::kAccepte);
  Forme.EcritMots(Langue::kAnglais);
  EXPECT_EQ(Phrase(), "x") << "the companion's own words stay as they came";
}

}  // namespace
}  // namespace vaktor::essai
