// SPDX-License-Identifier: GPL-3.0-or-later
// The driver's own dialogs over real devices, worked as a person would. Runs inside the virtual machine.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include "support/camera_list.h"
#include "vm/guest_driver.h"

namespace vaktor {
namespace {

class VividDialogue : public PiloteReelTest {
 protected:
  /// What is to be done once the modal dialog is up; it asks the device first, with the windows alive.
  void Ensuite(std::function<void(QWidget&)> geste) {
    QTimer::singleShot(100, qApp, [this, geste = std::move(geste)] {
      QWidget* dialogue = QApplication::activeModalWidget();
      if (dialogue == nullptr) return Ensuite(geste);
      Venu_ = true;
      geste(*dialogue);
    });
  }
  static void Clique(QWidget& dialogue, const char* nom) {
    QTest::mouseClick(dialogue.findChild<QPushButton*>(QLatin1String(nom)), Qt::LeftButton);
  }
  static void ChoisitLigne(QWidget& dialogue, const char* nom, const QString& debut) {
    auto* liste = dialogue.findChild<QListWidget*>(QLatin1String(nom));
    const QList<QListWidgetItem*> lignes = liste->findItems(debut, Qt::MatchStartsWith);
    ASSERT_FALSE(lignes.isEmpty()) << qPrintable(debut);
    liste->setCurrentItem(lignes.first());
  }
  bool Venu_ = false;
};

TEST_F(VividDialogue, AFormatIsPickedHeldAndRemembered) {
  const FormatCamera petit = {"YUYV", 320, 180, 50, 1};
  {
    const auto pilote = Pilote();
    ASSERT_TRUE(Connecte(*pilote));
    EXPECT_EQ(pilote->FormatCourant(), (FormatCamera{"YUYV", 640, 480, 25, 1}));
    Ensuite([](QWidget& dialogue) {
      ChoisitLigne(dialogue, "ListeTailles", QString::fromUtf8("320 × 180"));
      auto* cadences = dialogue.findChild<QComboBox*>("CmbCadence");
      cadences->setCurrentIndex(cadences->findText("50 frames/s"));
      Clique(dialogue, "BtnOkFormat");
    });
    pilote->MontreDialogueFormat();
    ASSERT_TRUE(Venu_);
    ASSERT_TRUE(AttendImages(*pilote, 5));
    EXPECT_EQ(pilote->CopieTrame().Entiere().size(), QSize(320, 180));
    EXPECT_EQ(pilote->FormatCourant(), petit);
    EXPECT_EQ(Memoire_.Format(pilote->NomStable()), petit);
  }
  const auto demain = Pilote();
  ASSERT_TRUE(Connecte(*demain));
  EXPECT_EQ(demain->FormatCourant(), petit);
}

TEST_F(VividDialogue, AControlChangesThePictureAndDefaultsBringItBack) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  ASSERT_TRUE(AttendImages(*pilote, 10));
  const double avant = Clarte(pilote->CopieTrame().Entiere());
  Ensuite([](QWidget& dialogue) {
    auto* luminosite = dialogue.findChild<QSpinBox*>("ReglageValeur(9963776)");
    ASSERT_NE(luminosite, nullptr);
    luminosite->setFocus();
    luminosite->selectAll();
    QTest::keyClicks(luminosite, "220");
    QTest::keyClick(luminosite, Qt::Key_Return);
    Clique(dialogue, "BtnFermerSource");
  });
  pilote->MontreDialogueSource();
  ASSERT_TRUE(AttendImages(*pilote, 10));
  const double clair = Clarte(pilote->CopieTrame().Entiere());
  EXPECT_GT(clair, avant + 20.0);
  Ensuite([](QWidget& dialogue) {
    Clique(dialogue, "BtnDefauts");
    Clique(dialogue, "BtnFermerSource");
  });
  pilote->MontreDialogueSource();
  ASSERT_TRUE(AttendImages(*pilote, 10));
  EXPECT_LT(Clarte(pilote->CopieTrame().Entiere()), clair - 20.0);
}

TEST_F(VividDialogue, AnotherCameraIsPickedAndRemembered) {
  const QList<PeripheriqueVideo> liste = ListePeripheriques();
  ASSERT_EQ(liste.size(), 2);
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  EXPECT_EQ(pilote->NoeudPeripherique(), liste[0].Noeud);
  Ensuite([&](QWidget& dialogue) {
    ChoisitLigne(dialogue, "ListeSources", QStringLiteral("%1   (%2)").arg(liste[1].Nom, liste[1].Noeud));
    Clique(dialogue, "BtnUtiliser");
    Clique(dialogue, "BtnFermerSource");
  });
  pilote->MontreDialogueSource();
  EXPECT_TRUE(AttendImages(*pilote, 5));
  EXPECT_EQ(pilote->NoeudPeripherique(), liste[1].Noeud);
  EXPECT_EQ(Memoire_.Source(), liste[1].NomStable);
  pilote->Deconnecte();
  const auto demain = Pilote();
  ASSERT_TRUE(Connecte(*demain));
  EXPECT_EQ(demain->NoeudPeripherique(), liste[1].Noeud);
}

TEST_F(VividDialogue, ABusyCameraIsRefusedAndTheEarlierOneGoesOn) {
  const QList<PeripheriqueVideo> liste = ListePeripheriques();
  ASSERT_EQ(liste.size(), 2);
  // Small and slow: an emulated processor shall carry both at once.
  for (const PeripheriqueVideo& p : liste) Memoire_.RetientFormat(p.NomStable, {"YUYV", 320, 180, 5, 1});
  const auto autre = Pilote(liste[1].Noeud);
  ASSERT_TRUE(Connecte(*autre));
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  QString etat;
  Ensuite([&](QWidget& dialogue) {
    ChoisitLigne(dialogue, "ListeSources", QStringLiteral("%1   (%2)").arg(liste[1].Nom, liste[1].Noeud));
    Clique(dialogue, "BtnUtiliser");
    etat = dialogue.findChild<QWidget*>("LblEtatSource")->accessibleName();
    Clique(dialogue, "BtnFermerSource");
  });
  pilote->MontreDialogueSource();
  EXPECT_TRUE(etat.startsWith("vivid\n") && etat.endsWith("The earlier source goes on.")) << qUtf8Printable(etat);
  EXPECT_TRUE(AttendImages(*pilote, 5));
  EXPECT_EQ(pilote->NoeudPeripherique(), liste[0].Noeud);
  EXPECT_EQ(Memoire_.Source(), "");
  EXPECT_TRUE(AttendImages(*autre, 5));
}

}  // namespace
}  // namespace vaktor
