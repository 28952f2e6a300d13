// SPDX-License-Identifier: GPL-3.0-or-later
// The end of the whole program with everything open, and what a second copy of it may do to this one.
#include "app/alarm_fixture.h"

namespace vaktor::essai {
namespace {

/// The windows in the order in which they go, each once.
class Departs : public QObject {
 public:
  Departs() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* quoi, QEvent* evenement) override {
    const auto* fenetre = qobject_cast<QWidget*>(quoi);
    if (evenement->type() != QEvent::Hide || fenetre == nullptr || !fenetre->isWindow()) return false;
    if (!Noms.contains(fenetre->objectName())) Noms += fenetre->objectName();
    return false;
  }
  QStringList Noms;
};

class FinDuProgramme : public AlarmeSurFaux {
 protected:
  static QString Fenetres() {
    QStringList noms;
    for (const QWidget* fenetre : QApplication::topLevelWidgets())
      if (fenetre->isVisible()) noms += fenetre->objectName();
    noms.sort();
    return noms.join(' ');
  }
  static QRect Cadre(const char* fenetre) { return Fenetre(fenetre)->frameGeometry(); }
  bool Vu(const char* ligne) const { return Systeme.Notes.Lignes().contains(QLatin1String(ligne)); }
};

TEST_F(FinDuProgramme, NoWindowStaysOverItAndNoButtonOpensOneOrSendsAnythingBehindIt) {
  ArmeEtBouge();
  for (const char* bouton : {"BoutonGris(0)", "BoutonGris(6)", "BoutonGris(8)", "BoutonEssaiFtp"}) Clique(bouton);
  Trouve<QCheckBox>("CheckPEcran")->setChecked(true);
  Programme->Sante().Signale(Condition::kPhotosImpossibles, "disk full");
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  EXPECT_EQ(Fenetres(), "Form1 FormMonitor FormSound FormVisuPhoto FrmEssaiFtp FrmSante FrmSmtp WebcamPecran");
  Programme->Ferme();
  EXPECT_EQ(Fenetres(), "");
  Systeme.Notes.Vide();
  Systeme.Messages.Textes.clear();
  for (auto* bouton : Fenetre("Form1")->findChildren<QAbstractButton*>()) {
    const bool tient = bouton->objectName().startsWith("Bouton(") || bouton->objectName().startsWith("Check");
    if (!tient && bouton->objectName() != "BoutonGris(0)" && bouton->objectName() != "BoutonGris(6)") bouton->click();
  }
  Systeme.Temps.Avance(10'000);
  EXPECT_EQ(Fenetres(), "");
  EXPECT_FALSE(Vu("SaisitImage"));
  EXPECT_TRUE(Systeme.Notes.Lignes().filter("jpeg").isEmpty());
}

TEST_F(FinDuProgramme, TheWindowsGoInTheirOrderAndTheMainOneLast) {
  DemarreJusquALaFenetre();
  for (const char* bouton : {"Bouton(0)", "BoutonGris(0)", "BoutonGris(6)", "BoutonGris(8)", "BoutonEssaiFtp"})
    Clique(bouton);
  Trouve<QCheckBox>("CheckPEcran")->setChecked(true);
  Departs departs;
  Programme->Ferme();
  EXPECT_EQ(departs.Noms.join(' '), "FrmSmtp FrmEssaiFtp WebcamPecran FormVisuPhoto FormMonitor FormSound Form1");
}

TEST_F(FinDuProgramme, TheMailSettingsAreNotReadForAFormThatNobodyWillSee) {
  DemarreJusquALaFenetre();
  Programme->Ferme();
  Trouve<QAbstractButton>("BoutonGris(8)")->click();
  EXPECT_EQ(Fenetre("FrmSmtp"), nullptr);
}

TEST_F(FinDuProgramme, TheWindowOpensInTheMiddleOfTheScreen) {
  DemarreJusquALaFenetre();
  const QPoint ecart = Cadre("Form1").center() - Fenetre("Form1")->screen()->availableGeometry().center();
  EXPECT_LT(ecart.manhattanLength(), 40) << ecart.x() << ' ' << ecart.y();
}

TEST_F(FinDuProgramme, TheListOfTheHealthOpensBesideTheWindowAndTheMonitor) {
  DemarreJusquALaFenetre();
  Clique("Bouton(0)");
  Fenetre("Form1")->move(0, 0);  // there is room below it, but for the monitor
  Fenetre("FormMonitor")->move(Cadre("Form1").bottomLeft() + QPoint(0, 10));
  Programme->Sante().Signale(Condition::kPhotosImpossibles, "disk full");
  Systeme.Temps.Avance(1000);
  Clique("SigneSante");
  ASSERT_TRUE(Visible("FrmSante"));
  EXPECT_FALSE(Cadre("FrmSante").intersects(Cadre("Form1")));
  EXPECT_FALSE(Cadre("FrmSante").intersects(Cadre("FormMonitor")));
}

// Another copy writes its inboxes into the store and ends our companions. As long as it answers it has them.
TEST_F(FinDuProgramme, AnotherCopyIsLeftAloneAndOnceItIsGoneItsCompanionsAreEndedBeforeOursStart) {
  DemarreJusquALaFenetre();
  InscritCompagnons();
  Systeme.AutresCasiers = {2001};
  Systeme.Valeurs["FTP/HWNDVK"] = "2001";
  Systeme.Programmes.Finit("/opt/v/VAKTORftp");
  Systeme.Temps.Avance(10'000);
  EXPECT_FALSE(Vu("processes: start /opt/v/VAKTORftp"));
  Systeme.AutresCasiers.clear();
  Systeme.Notes.Vide();
  for (int i = 0; i < 120 && !Vu("strays: end 0"); ++i) Systeme.Temps.Avance(1000);
  EXPECT_EQ(Systeme.Valeurs.value("FTP/HWNDVK"), "1001") << "ours again";
  ASSERT_TRUE(Vu("strays: end 0"));
  EXPECT_FALSE(Vu("processes: start /opt/v/VAKTORftp")) << "not beside the stray one";
  Systeme.ErrantsFinis();
  EXPECT_TRUE(Vu("processes: start /opt/v/VAKTORftp"));
}

}  // namespace
}  // namespace vaktor::essai
