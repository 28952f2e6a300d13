// SPDX-License-Identifier: GPL-3.0-or-later
// What those hear who cannot see the window, and what those reach who have no mouse.
#include <gtest/gtest.h>

#include <QAccessible>

#include "ui/window_bench.h"

namespace vaktor {
namespace {

using faux::BancFenetre;

class Entendu : public testing::Test {
 protected:
  Entendu() {
    Banc.Fenetre.activateWindow();
    QCoreApplication::processEvents();
  }
  QAccessibleInterface* Lit(const char* nom) { return QAccessible::queryAccessibleInterface(Banc.Trouve(nom)); }
  QString Nom(const char* nom) { return Lit(nom)->text(QAccessible::Name); }
  bool Coche(const char* nom) { return Lit(nom)->state().checked; }
  QString Coches(std::initializer_list<const char*> noms) {
    QStringList liste;
    for (const char* nom : noms) {
      if (Coche(nom)) liste += QLatin1String(nom);
    }
    return liste.join(u' ');
  }

  BancFenetre Banc;
};

TEST_F(Entendu, EveryButtonIsNamedByItsCaptionInBothLanguages) {
  for (const int langue : {0, 1}) {
    Banc.Clique(langue == 0 ? "Image4(0)" : "Image4(1)");
    for (int i = 0; i < 7; ++i) {
      const QByteArray nom = QStringLiteral("Bouton(%1)").arg(i).toLatin1();
      EXPECT_EQ(Nom(nom.constData()), Banc.Textes.LibelleBouton(i)) << langue;
    }
    for (int i = 0; i < 9; ++i) {
      const QByteArray nom = QStringLiteral("BoutonGris(%1)").arg(i).toLatin1();
      EXPECT_EQ(Nom(nom.constData()), Banc.Textes.LibelleBoutonGris(i)) << langue;
      EXPECT_FALSE(Lit(nom.constData())->state().checkable) << i;
    }
  }
}

TEST_F(Entendu, CameraButtonSaysWhatAClickWillDoAlsoAfterAChangeOfLanguage) {
  EXPECT_EQ(Nom("Bouton(0)"), QStringLiteral("Camera on"));
  Banc.Engin.BasculeCamera();  // not by the mouse: at a start with "/alarm"
  EXPECT_EQ(Nom("Bouton(0)"), QStringLiteral("Camera off"));
  Banc.Clique("Image4(0)");
  EXPECT_EQ(Nom("Bouton(0)"), QStringLiteral("Cam\u00e9ra off")) << "the stale face is for the eye alone";
  Banc.Engin.BasculeCamera();
  EXPECT_EQ(Nom("Bouton(0)"), QStringLiteral("Cam\u00e9ra on"));
  EXPECT_FALSE(Lit("Bouton(0)")->state().checkable) << "its caption says it all";
}

TEST_F(Entendu, AlarmIsCheckedWhileItsLampIsLit) {
  EXPECT_TRUE(Lit("Bouton(1)")->state().checkable);
  EXPECT_FALSE(Coche("Bouton(1)"));
  Banc.Clique("Bouton(1)");
  EXPECT_TRUE(Coche("Bouton(1)")) << "the seconds run down";
  Banc.Temps.Avance(10000);
  ASSERT_TRUE(Banc.Engin.Alarme().AlarmeArmee);
  EXPECT_TRUE(Coche("Bouton(1)"));
  Banc.Clique("Bouton(1)");
  EXPECT_FALSE(Coche("Bouton(1)"));
  Banc.Clique("Bouton(1)");
  Banc.Clique("Bouton(0)");
  EXPECT_FALSE(Coche("Bouton(1)")) << "the camera's stop disarms";
}

TEST_F(Entendu, LampsSayInWordsWhatTheirColourShows) {
  const auto dit = [this](const char* nom) { return Lit(nom)->text(QAccessible::Description); };
  EXPECT_EQ(Nom("ImageLedAlarme"), QStringLiteral("Alarm lamp"));
  EXPECT_EQ(Nom("ImageLedSurveill"), QStringLiteral("Live cam lamp"));
  EXPECT_EQ(dit("ImageLedAlarme"), QStringLiteral("Off"));
  Banc.Vue.MontreLampeAlarme(Lampe::kRougeAllumee);
  EXPECT_EQ(dit("ImageLedAlarme"), QStringLiteral("Counting down"));
  Banc.Vue.MontreLampeAlarme(Lampe::kVerte);
  Banc.Vue.MontreLampeSurveillance(Lampe::kRougeAllumee);
  EXPECT_EQ(dit("ImageLedAlarme"), QStringLiteral("Alarm active"));
  EXPECT_EQ(dit("ImageLedSurveill"), QStringLiteral("Connecting"));
  Banc.Clique("Image4(0)");
  EXPECT_EQ(Nom("ImageLedSurveill"), QString::fromUtf8("Témoin de la surveillance"));
  EXPECT_EQ(dit("ImageLedAlarme"), QStringLiteral("Alarme active")) << "a lit lamp changes its language too";
  EXPECT_EQ(dit("ImageLedSurveill"), QStringLiteral("Connexion"));
  Banc.Vue.MontreLampeAlarme(Lampe::kRouge);
  EXPECT_EQ(dit("ImageLedAlarme"), QString::fromUtf8("Éteint"));
}

TEST_F(Entendu, LiveIsCheckedWhileItsLampIsLit) {
  EXPECT_FALSE(Coche("Bouton(2)"));
  Banc.Vue.MontreLampeSurveillance(Lampe::kRougeAllumee);
  EXPECT_TRUE(Coche("Bouton(2)"));
  Banc.Vue.MontreLampeSurveillance(Lampe::kRouge);
  EXPECT_FALSE(Coche("Bouton(2)"));
}

TEST_F(Entendu, TabOfThePageInFrontIsTheCheckedOne) {
  const auto onglets = [this] { return Coches({"Bouton(3)", "Bouton(4)", "Bouton(5)", "Bouton(6)"}); };
  EXPECT_EQ(onglets(), QStringLiteral("Bouton(3)"));
  for (const char* nom : {"Bouton(4)", "Bouton(5)", "Bouton(6)", "Bouton(3)"}) {
    Banc.Clique(nom);
    EXPECT_EQ(onglets(), QLatin1String(nom));
    Banc.Clique(nom);
    EXPECT_EQ(onglets(), QLatin1String(nom)) << "a second click leaves it where it is";
  }
  Banc.Trouve<QLineEdit>("TextEMail")->clear();
  Banc.Reglages.SmtpActif = false;
  Banc.Clique("CheckMail");  // asks for the address on the mail page
  EXPECT_EQ(onglets(), QStringLiteral("Bouton(5)"));
}

TEST_F(Entendu, FlagOfTheLanguageIsTheCheckedOne) {
  EXPECT_EQ(Coches({"Image4(0)", "Image4(1)"}), QStringLiteral("Image4(1)"));
  Banc.Clique("Image4(0)");
  EXPECT_EQ(Coches({"Image4(0)", "Image4(1)"}), QStringLiteral("Image4(0)"));
  Banc.Clique("Image4(0)");
  EXPECT_EQ(Coches({"Image4(0)", "Image4(1)"}), QStringLiteral("Image4(0)"));
}

TEST_F(Entendu, BoxesTellTheirNameAndWhetherTheyAreTicked) {
  const std::pair<const char*, int> boites[] = {
      {"CheckPPhot", 13}, {"CheckSon", 14}, {"CheckMail", 11}, {"ChkSeuilAuto", 219}};
  for (const auto& [nom, texte] : boites) {
    EXPECT_EQ(Nom(nom), Banc.Textes.Dit(Libelle{texte})) << nom;
    Banc.Trouve<QCheckBox>(nom)->setChecked(false);
    EXPECT_FALSE(Coche(nom)) << nom;
    Banc.Trouve<QCheckBox>(nom)->setChecked(true);
    EXPECT_TRUE(Coche(nom)) << nom;
  }
}

TEST_F(Entendu, ScreenReaderClicksAndDoesNotMerelyTick) {
  const auto active = [this](const char* nom) {
    auto* actions = Lit(nom)->actionInterface();
    actions->doAction(actions->actionNames().first());
    QTest::qWait(0);
  };
  active("Bouton(5)");
  EXPECT_EQ(Banc.Fenetre.PageDevant(), 0);
  EXPECT_TRUE(Coche("Bouton(5)"));
  active("Bouton(5)");
  EXPECT_TRUE(Coche("Bouton(5)")) << "the page stays in front, so the tab stays checked";
  active("Image4(0)");
  EXPECT_EQ(Banc.Reglages.LangueCourante, 0);
  active("Image4(0)");
  EXPECT_TRUE(Coche("Image4(0)"));
  active("Bouton(2)");
  EXPECT_EQ(Banc.BasculesLive, 1);
  EXPECT_FALSE(Coche("Bouton(2)")) << "the lamp did not light";
}

// --- The keyboard

TEST_F(Entendu, TabReachesEveryButtonFieldAndFlagOfEveryPage) {
  for (int page = 0; page < 4; ++page) {
    Banc.Fenetre.AmenePage(page);
    const QWidget* devant = Banc.Trouve(qPrintable(QStringLiteral("PictPage(%1)").arg(page)));
    QSet<QObject*> attendus;
    for (auto* bouton : Banc.Fenetre.findChildren<QAbstractButton*>()) {
      const bool bandeau = bouton->parentWidget() == &Banc.Fenetre && bouton->isVisible();
      if (bandeau || devant == bouton->parentWidget()) attendus += bouton;
    }
    for (auto* champ : devant->findChildren<QLineEdit*>()) attendus += champ;
    for (auto* liste : devant->findChildren<QComboBox*>()) attendus += liste;
    ASSERT_GE(attendus.size(), 8);
    Banc.Trouve("Bouton(0)")->setFocus();
    QSet<QObject*> atteints;
    for (qsizetype i = 0; i <= 2 * attendus.size(); ++i) {
      QTest::keyClick(Banc.Fenetre.focusWidget(), Qt::Key_Tab);
      atteints += Banc.Fenetre.focusWidget();
    }
    for (QObject* controle : attendus) {
      EXPECT_TRUE(atteints.contains(controle)) << page << " " << controle->objectName().toStdString();
    }
  }
}

TEST_F(Entendu, TabPassesByWhatIsSwitchedOffAndWithShiftGoesTheSameWayBack) {
  Banc.Trouve("Text1")->setEnabled(false);
  Banc.Trouve("Bouton(0)")->setFocus();
  QStringList avance, recule;
  for (int i = 0; i < 12; ++i) {
    avance += Banc.Fenetre.focusWidget()->objectName();
    QTest::keyClick(Banc.Fenetre.focusWidget(), Qt::Key_Tab);
  }
  for (int i = 0; i < 12; ++i) {
    QTest::keyClick(Banc.Fenetre.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    recule.prepend(Banc.Fenetre.focusWidget()->objectName());
  }
  EXPECT_EQ(recule, avance) << recule.join(' ').toStdString();
  EXPECT_FALSE(avance.contains(QStringLiteral("Text1"))) << avance.join(' ').toStdString();
  EXPECT_GT(QSet<QString>(avance.begin(), avance.end()).size(), 6);
}

TEST_F(Entendu, ButtonReachedByTabShowsItAndOneReachedByTheMouseDoesNot) {
  for (int page = 0; page < 4; ++page) {
    Banc.Fenetre.AmenePage(page);
    for (auto* bouton : Banc.Fenetre.findChildren<QAbstractButton*>()) {
      if (bouton->isHidden() || qobject_cast<QCheckBox*>(bouton) != nullptr) continue;
      if (bouton->parentWidget() != &Banc.Fenetre &&
          bouton->parentWidget()->objectName() != QStringLiteral("PictPage(%1)").arg(page))
        continue;
      bouton->clearFocus();
      const QImage sans = bouton->grab().toImage();
      bouton->setFocus(Qt::TabFocusReason);
      EXPECT_NE(bouton->grab().toImage(), sans) << bouton->objectName().toStdString();
      bouton->clearFocus();
      bouton->setFocus(Qt::MouseFocusReason);
      EXPECT_EQ(bouton->grab().toImage(), sans) << bouton->objectName().toStdString();
    }
  }
}

TEST_F(Entendu, SpaceAndEnterWorkEveryTabAndFlag) {
  for (const Qt::Key touche : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    Banc.Fenetre.AmenePage(1);
    const std::pair<const char*, int> onglets[] = {{"Bouton(4)", 3}, {"Bouton(5)", 0}, {"Bouton(6)", 2}};
    for (const auto& [nom, page] : onglets) {
      QTest::keyClick(Banc.Trouve(nom), touche);
      EXPECT_EQ(Banc.Fenetre.PageDevant(), page) << nom << " " << touche;
    }
    for (const int langue : {0, 1}) {
      QTest::keyClick(Banc.Trouve(langue == 0 ? "Image4(0)" : "Image4(1)"), touche);
      EXPECT_EQ(Banc.Reglages.LangueCourante, langue) << touche;
    }
  }
}

TEST_F(Entendu, ButtonThatIsOffLooksAsItDidAndIsHeardAsOff) {
  auto* bouton = Banc.Trouve<BoutonImage>("Bouton(2)");
  const QImage avant = bouton->grab().toImage();
  bouton->setEnabled(false);
  EXPECT_EQ(bouton->grab().toImage(), avant) << "only a face that is shown changes a look";
  EXPECT_TRUE(Lit("Bouton(2)")->state().disabled);
  Banc.Clique("Bouton(2)");
  EXPECT_EQ(Banc.BasculesLive, 0);
}

}  // namespace
}  // namespace vaktor
