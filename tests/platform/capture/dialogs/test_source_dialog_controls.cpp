// SPDX-License-Identifier: GPL-3.0-or-later
// The source dialog: the camera's own controls.
#include <gtest/gtest.h>

#include <QWheelEvent>

#include "platform/capture/dialogs/source_dialog_fixture.h"

namespace vaktor {
namespace {

constexpr quint32 kLuminosite = 0x00980900;
constexpr quint32 kGain = 0x00980913;
constexpr quint32 kGainAuto = 0x00980912;
constexpr quint32 kSecteur = 0x00980918;

ReglageCamera Entier(quint32 numero, const char* nom, qint32 min, qint32 max, qint32 pas, qint32 defaut,
                     qint32 valeur) {
  return {numero, nom, ReglageCamera::Sorte::kEntier, min, max, pas, defaut, valeur, {}, true};
}

class ReglagesTest : public SourceTest {
 protected:
  ReglagesTest() {
    ReglageCamera gain = Entier(kGain, "Gain", 0, 10, 2, 4, 8);
    gain.Actif = false;
    Acces_.Reglages_["/dev/video0"] = {
        Entier(kLuminosite, "Brightness", -64, 64, 1, 0, 10),
        {kGainAuto, "Gain, Automatic", ReglageCamera::Sorte::kBooleen, 0, 1, 1, 0, 1, {}, true},
        gain,
        {kSecteur,
         "Power Line Frequency",
         ReglageCamera::Sorte::kMenu,
         0,
         3,
         1,
         1,
         3,
         {"Disabled", "50 Hz", "", "Auto"},
         true}};
    // The automatic rules the gain.
    Acces_.ApresReglage_ = [this](quint32 numero, qint32 valeur) {
      if (numero == kGainAuto) Acces_.Reglages_["/dev/video0"][2].Actif = valeur == 0;
    };
  }
  QSpinBox* Valeur(quint32 n) const { return Controle<QSpinBox>(QStringLiteral("ReglageValeur(%1)").arg(n)); }
  QSlider* Curseur(quint32 n) const { return Controle<QSlider>(QStringLiteral("ReglageCurseur(%1)").arg(n)); }
  QCheckBox* Coche(quint32 n) const { return Controle<QCheckBox>(QStringLiteral("ReglageCoche(%1)").arg(n)); }
  QComboBox* Menu(quint32 n) const { return Controle<QComboBox>(QStringLiteral("ReglageMenu(%1)").arg(n)); }
  FauxPeripheriques::Appel Appel(quint32 n, qint32 valeur) const { return {"/dev/video0", n, valeur}; }
};

TEST_F(ReglagesTest, ShowsTheRealRangesAndValuesAndSendsNothing) {
  Ouvre();
  EXPECT_EQ(Valeur(kLuminosite)->minimum(), -64);
  EXPECT_EQ(Valeur(kLuminosite)->maximum(), 64);
  EXPECT_EQ(Valeur(kLuminosite)->value(), 10);
  EXPECT_EQ(Curseur(kLuminosite)->maximum(), 128);
  EXPECT_EQ(Curseur(kLuminosite)->value(), 74);
  EXPECT_TRUE(Coche(kGainAuto)->isChecked());
  EXPECT_EQ(Menu(kSecteur)->count(), 3) << "a value that the device does not have is not offered";
  EXPECT_EQ(Menu(kSecteur)->currentText(), "Auto");
  EXPECT_FALSE(Valeur(kGain)->isEnabled());
  EXPECT_FALSE(Curseur(kGain)->isEnabled());
  EXPECT_TRUE(Acces_.Appels_.isEmpty());
}

TEST_F(ReglagesTest, ASliderActsAtOnceInStepsOfTheDevice) {
  Acces_.Reglages_["/dev/video0"][2].Actif = true;
  Ouvre();
  QTest::keyClick(Curseur(kLuminosite), Qt::Key_Right);
  QTest::keyClick(Curseur(kGain), Qt::Key_Left);
  EXPECT_EQ(Acces_.Appels_, (QList{Appel(kLuminosite, 11), Appel(kGain, 6)}));
  EXPECT_EQ(Valeur(kLuminosite)->value(), 11);
}

TEST_F(ReglagesTest, TheEndsOfASliderAreTheEndsOfTheRange) {
  // Steps of 3 do not meet the end of 0 to 10, and no range may overflow the slider.
  Acces_.Reglages_["/dev/video0"] = {Entier(kGain, "Gain", 0, 10, 3, 0, 5),
                                     Entier(kLuminosite, "Brightness", INT32_MIN, INT32_MAX, 1, 0, 0)};
  Ouvre();
  for (const quint32 numero : {kGain, kLuminosite}) {
    QTest::keyClick(Curseur(numero), Qt::Key_End);
    EXPECT_EQ(Acces_.Appels_.last().Valeur, numero == kGain ? 10 : INT32_MAX);
    QTest::keyClick(Curseur(numero), Qt::Key_Home);
    EXPECT_EQ(Acces_.Appels_.last().Valeur, numero == kGain ? 0 : INT32_MIN);
  }
}

TEST_F(ReglagesTest, ANumberActsWhenItIsCompletelyTyped) {
  Ouvre();
  Valeur(kLuminosite)->setFocus();
  Valeur(kLuminosite)->selectAll();
  QTest::keyClicks(Valeur(kLuminosite), "-42");
  EXPECT_TRUE(Acces_.Appels_.isEmpty());
  QTest::keyClick(Valeur(kLuminosite), Qt::Key_Return);
  EXPECT_EQ(Acces_.Appels_, QList{Appel(kLuminosite, -42)});
  EXPECT_EQ(Curseur(kLuminosite)->value(), 22);
  EXPECT_TRUE(Dialogue_->isVisible());
}

TEST_F(ReglagesTest, AnAutomaticThatIsSwitchedOffSetsItsNumberFree) {
  Ouvre();
  QTest::mouseClick(Coche(kGainAuto), Qt::LeftButton, {}, QPoint(8, Coche(kGainAuto)->height() / 2));
  EXPECT_EQ(Acces_.Appels_, QList{Appel(kGainAuto, 0)});
  EXPECT_TRUE(QTest::qWaitFor([this] { return Valeur(kGain)->isEnabled(); }));
}

TEST_F(ReglagesTest, AMenuSendsValuesNotPlaces) {
  Ouvre();
  QTest::keyClick(Menu(kSecteur), Qt::Key_Up);
  EXPECT_EQ(Acces_.Appels_, QList{Appel(kSecteur, 1)});
  QTest::keyClick(Menu(kSecteur), Qt::Key_Down);
  EXPECT_EQ(Acces_.Appels_.last(), Appel(kSecteur, 3));
}

TEST_F(ReglagesTest, ARefusedValueIsToldAndTheLineGoesBack) {
  Acces_.Refuses_ = {kLuminosite, kGainAuto, kSecteur};
  Ouvre(Langue::kFrancais);
  QTest::keyClick(Curseur(kLuminosite), Qt::Key_Right);
  EXPECT_EQ(Etat(), QString::fromUtf8("Luminosité : la caméra refuse cette valeur."));
  EXPECT_EQ(Valeur(kLuminosite)->value(), 10);
  EXPECT_EQ(Curseur(kLuminosite)->value(), 74);
  QTest::keyClick(Coche(kGainAuto), Qt::Key_Space);
  EXPECT_TRUE(Coche(kGainAuto)->isChecked());
  QTest::keyClick(Menu(kSecteur), Qt::Key_Up);
  EXPECT_EQ(Menu(kSecteur)->currentData().toInt(), 3);
  EXPECT_EQ(Acces_.Appels_.size(), 3) << "going back must not be sent to the camera";
}

TEST_F(ReglagesTest, DefaultsSetSwitchesFirstSoThatFreedNumbersFollow) {
  Ouvre();
  Clique("BtnDefauts");
  EXPECT_EQ(Acces_.Appels_, (QList{Appel(kGainAuto, 0), Appel(kSecteur, 1), Appel(kLuminosite, 0), Appel(kGain, 4)}));
  EXPECT_EQ(Valeur(kLuminosite)->value(), 0);
  EXPECT_EQ(Valeur(kGain)->value(), 4);
  EXPECT_FALSE(Coche(kGainAuto)->isChecked());
  EXPECT_EQ(Menu(kSecteur)->currentText(), "50 Hz");
  EXPECT_EQ(Etat(), "The settings are back at their defaults.");
}

TEST_F(ReglagesTest, DefaultsThatAreRefusedAreTold) {
  Acces_.Refuses_ = {kSecteur};
  Ouvre();
  Clique("BtnDefauts");
  EXPECT_EQ(Etat(), "The camera refused some of the defaults.");
  EXPECT_EQ(Valeur(kLuminosite)->value(), 0) << "the others are set all the same";
}

TEST_F(ReglagesTest, ACameraUnpluggedMeanwhileLeavesDeadLines) {
  Ouvre();
  Acces_.Reglages_.clear();
  Acces_.Refuses_ = {kLuminosite};
  QTest::keyClick(Curseur(kLuminosite), Qt::Key_Right);
  EXPECT_FALSE(Curseur(kLuminosite)->isEnabled());
  EXPECT_FALSE(Menu(kSecteur)->isEnabled());
}

TEST_F(ReglagesTest, ScrollingThroughTheLinesTurnsNoControl) {
  Ouvre();
  Controle<QListWidget>("ListeSources")->setFocus();
  for (QWidget* controle : std::initializer_list<QWidget*>{Curseur(kLuminosite), Valeur(kLuminosite), Menu(kSecteur)}) {
    const QPointF ici(controle->width() / 2.0, controle->height() / 2.0);
    QWheelEvent roue(ici, controle->mapToGlobal(ici), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    QCoreApplication::sendEvent(controle, &roue);
  }
  EXPECT_TRUE(Acces_.Appels_.isEmpty());
}

TEST_F(ReglagesTest, ACameraWithoutControlsSaysSo) {
  Acces_.Reglages_.clear();
  Ouvre(Langue::kFrancais);
  EXPECT_EQ(Controle<QLabel>("LblSansReglages")->text(), QString::fromUtf8("La caméra n'annonce aucun réglage."));
  EXPECT_FALSE(Controle<QPushButton>("BtnDefauts")->isEnabled());
}

TEST_F(ReglagesTest, AnotherCameraBringsItsOwnControls) {
  Acces_.Reglages_["/dev/video2"] = {Entier(kGain, "Gain", 0, 100, 1, 0, 50)};
  Pilote_.ApresSource_ = [this](const QString&) { Pilote_.Noeud_ = "/dev/video2"; };
  Ouvre();
  CliqueSource(1);
  Clique("BtnUtiliser");
  EXPECT_EQ(Valeur(kLuminosite), nullptr);
  EXPECT_EQ(Valeur(kGain)->value(), 50);
}

TEST_F(ReglagesTest, EveryControlHasANameForPeopleWhoDoNotSeeIt) {
  Ouvre(Langue::kFrancais);
  EXPECT_EQ(Valeur(kLuminosite)->accessibleName(), QString::fromUtf8("Luminosité"));
  EXPECT_EQ(Curseur(kLuminosite)->accessibleName(), QString::fromUtf8("Luminosité"));
  EXPECT_EQ(Coche(kGainAuto)->accessibleName(), "Gain automatique");
  EXPECT_EQ(Menu(kSecteur)->accessibleName(), QString::fromUtf8("Fréquence du secteur"));
  const auto boutons = Dialogue_->findChildren<QPushButton*>();
  EXPECT_GE(boutons.size(), 3);
  for (const auto* bouton : boutons)
    EXPECT_FALSE(bouton->accessibleName().isEmpty()) << bouton->objectName().toStdString();
}

}  // namespace
}  // namespace vaktor
