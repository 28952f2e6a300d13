// SPDX-License-Identifier: GPL-3.0-or-later
// The form of the alarm sound, with mouse and keys.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "fakes/fake_files.h"
#include "fakes/fake_saving.h"
#include "fakes/fake_sound_player.h"
#include "ui/sound/form_sound.h"

namespace vaktor {
namespace {

class FormeSon : public testing::Test {
 protected:
  FormeSon() {
    for (int i = 0; i < 3; ++i) Disque.AjouteFichier(QStringLiteral("/opt/snd/%1.wav").arg(i));
    Disque.AjouteFichier(QStringLiteral("/home/u/dog.wav"));
  }
  void Ouvre(qint32 langue = 1) {
    Reglages.LangueCourante = langue;
    Forme.Montre();
  }
  template <typename T>
  T* Trouve(const char* nom) {
    return Forme.findChild<T*>(QLatin1String(nom));
  }
  /// Picks an entry of the list as the arrow keys do.
  void Choisit(int index) {
    auto* liste = Trouve<QComboBox>("CombSound");
    liste->setFocus();
    QTest::keyClick(liste, Qt::Key_Home);
    for (int i = 0; i < index; ++i) QTest::keyClick(liste, Qt::Key_Down);
    ASSERT_EQ(liste->currentIndex(), index);
  }
  void Ecoute() { QTest::mouseClick(Trouve<QWidget>("ImagePlaySon"), Qt::LeftButton); }

  faux::Journal Journal;
  Parametres Reglages;
  faux::SauvegardeFausse Sauvegarde{Journal, Reglages};
  DossiersProgramme Dossiers{QStringLiteral("/opt"), QStringLiteral("/opt")};
  FauxFichiers Disque;
  faux::LecteurFaux Lecteur;
  faux::DialogueFaux Dialogue;
  Sons Interface{Dossiers, Disque, Lecteur};
  FormSound Forme{ChoixSon(Reglages, Sauvegarde, Interface, Dialogue)};
};

TEST_F(FormeSon, EnterPressesTheButtonThatHasTheFocus) {
  Ouvre();
  Choisit(ChoixSon::kSonDuFichier);
  auto* bouton = Trouve<QPushButton>("CmdChoixSonRep");
  bouton->setFocus();
  QTest::keyClick(bouton, Qt::Key_Return);
  EXPECT_EQ(Dialogue.Filtre, QStringLiteral("Audio (*.WAV *.wav)"));
}

TEST_F(FormeSon, EnterOnThePicturePlaysAndEscapeCloses) {
  Ouvre();
  Choisit(1);
  QTest::keyClick(Trouve<QWidget>("ImagePlaySon"), Qt::Key_Return);
  EXPECT_EQ(Lecteur.Joues.size(), 1);
  QTest::keyClick(Trouve<QWidget>("ImagePlaySon"), Qt::Key_Escape);
  EXPECT_FALSE(Forme.isVisible());
}

TEST_F(FormeSon, ButtonForAFileSaysWhatWouldWakeIt) {
  Ouvre();
  auto* bouton = Trouve<QPushButton>("CmdChoixSonRep");
  Choisit(1);
  EXPECT_EQ(bouton->toolTip(),
            QStringLiteral("Choose a sound file\nNot available until \"Sound file\" is chosen in the list."));
  Choisit(ChoixSon::kSonDuFichier);
  EXPECT_EQ(bouton->toolTip(), QStringLiteral("Choose a sound file"));
}

TEST_F(FormeSon, WordsOfBothLanguages) {
  Ouvre(0);
  EXPECT_EQ(Forme.windowTitle(), QStringLiteral("Son de l'alarme"));
  EXPECT_EQ(Trouve<QLabel>("LabelSelectSon")->text(), QString::fromUtf8("Sélectionnez un son"));
  EXPECT_EQ(Trouve<QLabel>("LabelPlaySon")->text(), QStringLiteral("Ecoute"));
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->itemText(2), QStringLiteral("Son 3"));
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->itemText(3), QStringLiteral("Fichier son"));
  Forme.close();
  Ouvre(1);
  EXPECT_EQ(Forme.windowTitle(), QStringLiteral("Alarm sound"));
  EXPECT_EQ(Trouve<QLabel>("LabelSelectSon")->text(), QStringLiteral("Select a sound"));
  EXPECT_EQ(Trouve<QLabel>("LabelPlaySon")->text(), QStringLiteral("Listen"));
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->count(), 4) << "the list does not grow";
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->itemText(0), QStringLiteral("Sound 1"));
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->itemText(3), QStringLiteral("Sound file"));
}

TEST_F(FormeSon, ListIsCalledByTheLabelAboveIt) {
  Ouvre();
  const auto liens =
      QAccessible::queryAccessibleInterface(Trouve<QComboBox>("CombSound"))->relations(QAccessible::Label);
  ASSERT_EQ(liens.size(), 1) << "its own name is what it shows";
  EXPECT_EQ(liens.first().first->text(QAccessible::Name), QStringLiteral("Select a sound"));
}

TEST_F(FormeSon, ClosedListShowsTheCurrentChoice) {
  EXPECT_EQ(DonneMotsFormSound(Langue::kFrancais, 1).Montre, QStringLiteral("Son 2"));
  EXPECT_EQ(DonneMotsFormSound(Langue::kAnglais, 3).Montre, QStringLiteral("Sound file"));
  EXPECT_EQ(DonneMotsFormSound(Langue::kFrancais, 9).Montre, QStringLiteral("Choix du son"));
  EXPECT_EQ(DonneMotsFormSound(Langue::kAnglais, -1).Montre, QStringLiteral("Sound Choice"));
  Reglages.IndexSon = 2;
  Ouvre();
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->placeholderText(), QStringLiteral("Sound 3"));
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->currentIndex(), -1);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(FormeSon, ChoiceIsSavedAtOnceAndOnlyTheFileHasItsButton) {
  Ouvre();
  EXPECT_FALSE(Trouve<QPushButton>("CmdChoixSonRep")->isEnabled());
  Choisit(3);
  EXPECT_EQ(Reglages.IndexSon, 3);
  EXPECT_TRUE(Trouve<QPushButton>("CmdChoixSonRep")->isEnabled());
  EXPECT_TRUE(Sauvegarde.ModifiesALaSauvegarde);
  const auto avant = Sauvegarde.Sauvegardes;
  QTest::keyClick(Trouve<QComboBox>("CombSound"), Qt::Key_Up);
  EXPECT_EQ(Reglages.IndexSon, 2);
  EXPECT_EQ(Sauvegarde.Sauvegardes, avant + 1);
  EXPECT_FALSE(Trouve<QPushButton>("CmdChoixSonRep")->isEnabled());
}

TEST_F(FormeSon, ListThatTheProgramFillsOrSetsChoosesNothing) {
  Reglages.IndexSon = 2;
  Ouvre();
  Trouve<QComboBox>("CombSound")->setCurrentIndex(1);
  Forme.close();
  Ouvre(0);
  EXPECT_EQ(Reglages.IndexSon, 2);
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(FormeSon, FileReachesTheStoreOnlyWithTheNextSaveOfAnyKind) {
  Reglages.IndexSon = 3;
  Ouvre();
  Dialogue.Reponse = QStringLiteral("/home/u/dog.wav");
  QTest::mouseClick(Trouve<QPushButton>("CmdChoixSonRep"), Qt::LeftButton);
  EXPECT_EQ(Dialogue.Filtre, QStringLiteral("Audio (*.WAV *.wav)"));
  EXPECT_EQ(Reglages.FichierSon, QStringLiteral("/home/u/dog.wav"));
  EXPECT_FALSE(Reglages.ParametresModifies);
  Forme.close();
  EXPECT_EQ(Sauvegarde.Sauvegardes, 0);
}

TEST_F(FormeSon, CancelledDialogGoesBackToTheFirstSoundWhileTheListShowsTheFile) {
  Ouvre();
  Choisit(3);
  Reglages.FichierSon = QStringLiteral("/home/u/dog.wav");
  QTest::mouseClick(Trouve<QPushButton>("CmdChoixSonRep"), Qt::LeftButton);
  EXPECT_EQ(Reglages.FichierSon, QString());
  EXPECT_EQ(Reglages.IndexSon, 0);
  EXPECT_EQ(Trouve<QComboBox>("CombSound")->currentText(), QStringLiteral("Sound file"));
}

TEST_F(FormeSon, ListeningPlaysTheChoice) {
  Ouvre();
  Reglages.IndexSon = 1;
  Ecoute();
  Reglages.IndexSon = 3;
  Reglages.FichierSon = QStringLiteral("/home/u/dog.wav");
  Ecoute();
  EXPECT_EQ(Lecteur.Joues, (QStringList{QStringLiteral("/opt\\snd\\1.wav"), QStringLiteral("/home/u/dog.wav")}));
  Reglages.IndexSon = 7;
  Ecoute();
  EXPECT_EQ(Reglages.IndexSon, 0);
  EXPECT_EQ(Lecteur.Joues.last(), QStringLiteral("/opt\\snd\\0.wav"));
}

TEST_F(FormeSon, DeletedFileIsSilentAndStaysChosen) {
  Ouvre();
  Reglages.IndexSon = 3;
  Reglages.FichierSon = QStringLiteral("/home/u/gone.wav");
  Ecoute();
  EXPECT_TRUE(Lecteur.Joues.isEmpty());
  EXPECT_EQ(Reglages.IndexSon, 3);
  EXPECT_EQ(Reglages.FichierSon, QStringLiteral("/home/u/gone.wav"));
}

TEST_F(FormeSon, PictureIsDrawn) {
  Ouvre();
  const QImage image = Trouve<ImageCliquable>("ImagePlaySon")->grab().toImage();
  QSet<QRgb> couleurs;
  for (int y = 4; y < 30; ++y) {
    for (int x = 4; x < 30; ++x) couleurs.insert(image.pixel(x, y));
  }
  EXPECT_GT(couleurs.size(), 3);
}

TEST_F(FormeSon, ClosingSavesWhatIsUnsaved) {
  Ouvre();
  Reglages.ParametresModifies = true;
  Forme.close();
  EXPECT_EQ(Sauvegarde.Sauvegardes, 1);
}

TEST_F(FormeSon, PictureLosesItsFrameUnderThePointer) {
  Ouvre();
  auto* image = Trouve<ImageCliquable>("ImagePlaySon");
  EXPECT_EQ(image->Bord(), 1);
  QTest::mouseMove(image, QPoint(10, 10));
  QMouseEvent survol(QEvent::MouseMove, QPointF(11, 11), image->mapToGlobal(QPointF(11, 11)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(image, &survol);
  EXPECT_EQ(image->Bord(), 0);
  QTest::mousePress(image, Qt::LeftButton);
  EXPECT_EQ(image->Bord(), 1);
  QTest::mouseRelease(image, Qt::LeftButton);
  QCoreApplication::sendEvent(image, &survol);
  QMouseEvent forme(QEvent::MouseMove, QPointF(5, 90), Forme.mapToGlobal(QPointF(5, 90)), Qt::NoButton, Qt::NoButton,
                    Qt::NoModifier);
  QCoreApplication::sendEvent(&Forme, &forme);
  EXPECT_EQ(image->Bord(), 1);
}

}  // namespace
}  // namespace vaktor
