// SPDX-License-Identifier: GPL-3.0-or-later
// The button of the FTP page that tries the live page, in the whole program.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include "app/program_fixture.h"

namespace vaktor::essai {
namespace {

class EssaiDuProgramme : public ProgrammeSurFaux {
 protected:
  void SetUp() override {
    Systeme.Valeurs.insert(QStringLiteral("FTP/ftp"), QStringLiteral("ftp.a.org"));
    Systeme.Valeurs.insert(QStringLiteral("FTP/user"), QStringLiteral("anna"));
    Systeme.Valeurs.insert(QStringLiteral("FTP/racine"), QStringLiteral("/www"));
    DemarreJusquALaFenetre();
    Clique("Bouton(6)");
    Systeme.Notes.Vide();
  }
  static QWidget* Forme() { return Fenetre("FrmEssaiFtp"); }
  QJsonObject Demande() const { return QJsonDocument::fromJson(Systeme.EssaiFtp.Demande).object(); }
};

TEST_F(EssaiDuProgramme, AClickOpensTheWindowAndTriesTheFieldsAsTheyStand) {
  EXPECT_EQ(Forme(), nullptr);
  Trouve<QLineEdit>("TxtPass")->setText(QStringLiteral("typed"));
  Trouve<QLineEdit>("TxtUserName")->clear();  // the setting keeps its last one
  Clique("BoutonEssaiFtp");
  ASSERT_NE(Forme(), nullptr);
  EXPECT_TRUE(Forme()->isVisible());
  EXPECT_EQ(Systeme.EssaiFtp.Lances, 1);
  EXPECT_EQ(Systeme.EssaiMail.Lances, 0);
  EXPECT_EQ(Demande()["ftp"], "ftp.a.org");
  EXPECT_EQ(Demande()["user"], "");
  EXPECT_EQ(Demande()["pass"], "typed");
  EXPECT_EQ(Demande()["racine"], "/www");
}

TEST_F(EssaiDuProgramme, NothingIsSavedAndNoCompanionIsTold) {
  Clique("BoutonEssaiFtp");
  Systeme.EssaiFtp.Dit("220 ready");
  Systeme.EssaiFtp.Dit("fine");
  Systeme.EssaiFtp.Finit(FinEssai::kAccepte);
  Forme()->close();
  const QStringList vus = Systeme.DepuisVide();
  EXPECT_TRUE(vus.filter("store:").isEmpty()) << vus.join('\n').toStdString();
  EXPECT_TRUE(vus.filter("channel: post").isEmpty()) << vus.join('\n').toStdString();
}

TEST_F(EssaiDuProgramme, KeysWorkItAndTabComesToItBehindItsNeighbour) {
  auto* bouton = Trouve("BoutonEssaiFtp");
  Trouve("BoutonGris(3)")->setFocus();
  QTest::keyClick(Trouve("BoutonGris(3)"), Qt::Key_Tab);
  EXPECT_EQ(Fenetre("Form1")->focusWidget(), bouton);
  qint32 lances = 0;
  for (const Qt::Key touche : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(bouton, touche);
    EXPECT_EQ(Systeme.EssaiFtp.Lances, ++lances) << touche;
    Systeme.EssaiFtp.Finit(FinEssai::kImpossible);
  }
}

TEST_F(EssaiDuProgramme, ItIsNamedAndCaptionedInBothLanguages) {
  const auto nom = [] {
    return QAccessible::queryAccessibleInterface(Trouve("BoutonEssaiFtp"))->text(QAccessible::Name);
  };
  EXPECT_EQ(nom(), "Try");
  EXPECT_EQ(Trouve("BoutonEssaiFtp")->toolTip(), "Try these parameters now, without saving them");
  const QImage anglais = Trouve("BoutonEssaiFtp")->grab().toImage();
  Clique("BoutonEssaiFtp");
  Clique("Image4(0)");
  EXPECT_EQ(nom(), "Essayer");
  EXPECT_EQ(Trouve("BoutonEssaiFtp")->toolTip(), "Essayer ces paramètres maintenant, sans les enregistrer");
  EXPECT_NE(Trouve("BoutonEssaiFtp")->grab().toImage(), anglais) << "the face carries the caption";
  EXPECT_EQ(Forme()->windowTitle(), "Essai de la page en direct") << "the open window follows";
}

TEST_F(EssaiDuProgramme, ItOpensBesideTheFieldsThatAreToBePutRight) {
  Fenetre("Form1")->move(0, 0);
  Clique("BoutonEssaiFtp");
  EXPECT_TRUE(Fenetre("Form1")->screen()->availableGeometry().contains(Forme()->pos()));
  EXPECT_FALSE(Forme()->geometry().intersects(Fenetre("Form1")->frameGeometry()));
}

TEST_F(EssaiDuProgramme, ClosingTheWindowEndsItAndTheNextPressBeginsANewOne) {
  Clique("BoutonEssaiFtp");
  Forme()->close();
  EXPECT_EQ(Systeme.EssaiFtp.Annules, 1);
  Clique("BoutonEssaiFtp");
  EXPECT_TRUE(Forme()->isVisible());
  EXPECT_EQ(Systeme.EssaiFtp.Lances, 2);
}

TEST_F(EssaiDuProgramme, TheStopEndsItAndAPressAfterwardsStartsNone) {
  Clique("BoutonEssaiFtp");
  Programme->Ferme();
  EXPECT_EQ(Systeme.EssaiFtp.Annules, 1);
  EXPECT_FALSE(Forme()->isVisible());
  Trouve<QAbstractButton>("BoutonEssaiFtp")->click();
  EXPECT_EQ(Systeme.EssaiFtp.Lances, 1);
}

}  // namespace
}  // namespace vaktor::essai
