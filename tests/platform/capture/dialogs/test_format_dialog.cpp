// SPDX-License-Identifier: GPL-3.0-or-later
// The format dialog, worked with mouse and keys.
#include <QComboBox>
#include <QLabel>

#include "platform/capture/dialogs/driver_dialog_fixture.h"
#include "platform/capture/dialogs/format_dialog.h"

namespace vaktor {
namespace {

class FormatTest : public DialoguePiloteTest<DialogueFormat> {
 protected:
  FormatTest() {
    Acces_.Formats_["/dev/video0"] = {{"MJPG", 3840, 2160, 30, 1}, {"MJPG", 1280, 720, 30, 1},
                                      {"MJPG", 640, 480, 30, 1},   {"MJPG", 640, 480, 15, 1},
                                      {"YUYV", 640, 480, 30, 1},   {"YUYV", 320, 240, 15, 2}};
  }
  void CliqueTaille(int rang) const { CliqueLigne("ListeTailles", rang); }
  QStringList Tailles() const { return LitLignes("ListeTailles"); }
};

TEST_F(FormatTest, ListsWhatTheDeviceOffersAndStandsOnTheFormatAtWork) {
  Ouvre();
  EXPECT_EQ(Controle<QComboBox>("CmbCodage")->count(), 2);
  EXPECT_TRUE(Controle<QComboBox>("CmbCodage")->currentText().startsWith("MJPG"));
  EXPECT_EQ(Tailles().size(), 3);
  EXPECT_EQ(Controle<QListWidget>("ListeTailles")->currentRow(), 2);
  EXPECT_EQ(Controle<QComboBox>("CmbCadence")->count(), 2);
  EXPECT_EQ(Controle<QComboBox>("CmbCadence")->currentText(), "30 frames/s");
  EXPECT_TRUE(Controle<QLabel>("LblFormatCourant")->text().contains(QString::fromUtf8("640 × 480, 30 frames/s, MJPG")));
}

TEST_F(FormatTest, ADeviceThatDoesNotAnswerIsTold) {
  Acces_.Formats_.clear();
  Acces_.Muets_ = {"/dev/video0"};
  Ouvre();
  EXPECT_EQ(Controle<QLabel>("LblEtatFormat")->text(), "/dev/video0 does not answer.");
  EXPECT_FALSE(Controle<QPushButton>("BtnOkFormat")->isEnabled());
}

TEST_F(FormatTest, NamesTheCameraAsPeopleKnowIt) {
  Acces_.Peripheriques_ = {{"/dev/video0", "Integrated Camera", "stable"}};
  Ouvre();
  EXPECT_TRUE(Controle<QLabel>("LblFormatCourant")->text().startsWith("Integrated Camera (/dev/video0)"));
}

TEST_F(FormatTest, TheNegotiatedRateMayDifferALittle) {
  Pilote_.Format_ = {"MJPG", 640, 480, 15001, 1000};
  Ouvre();
  EXPECT_EQ(Controle<QComboBox>("CmbCadence")->currentText(), "15 frames/s");
}

TEST_F(FormatTest, SaysWhichSizesAreScaledDownAndToWhat) {
  Ouvre();
  EXPECT_TRUE(Tailles().at(0).contains(QString::fromUtf8("3840 × 2160   (scaled down to 1920 × 1080)")));
  EXPECT_FALSE(Tailles().at(1).contains("scaled"));
  EXPECT_EQ(Controle<QLabel>("LblRemarque")->text(), "");
  CliqueTaille(0);
  EXPECT_TRUE(Controle<QLabel>("LblRemarque")->text().contains(QString::fromUtf8("scaled down to 1920 × 1080")));
  EXPECT_EQ(Controle<QLabel>("LblRemarque")->accessibleName(), Controle<QLabel>("LblRemarque")->text());
  CliqueTaille(1);
  EXPECT_EQ(Controle<QLabel>("LblRemarque")->text(), "");
  Ouvre(Langue::kFrancais);
  EXPECT_TRUE(Tailles().at(0).contains(QString::fromUtf8("(réduite à 1920 × 1080)")));
}

TEST_F(FormatTest, MarksTheSizeThatADeviceGetsFirst) {
  Ouvre();
  EXPECT_FALSE(Tailles().join("").contains("recommended"));  // it is a YUYV one
  QTest::keyClick(Controle<QComboBox>("CmbCodage"), Qt::Key_Down);
  EXPECT_TRUE(Tailles().at(0).contains("recommended"));
  EXPECT_FALSE(Tailles().at(1).contains("recommended"));
}

TEST_F(FormatTest, ApplyGivesTheChoiceToTheDriverAndRemembersIt) {
  Ouvre();
  CliqueTaille(1);
  Clique("BtnAppliquerFormat");
  const FormatCamera choisi = {"MJPG", 1280, 720, 30, 1};
  EXPECT_EQ(Pilote_.Appliques_, QList<FormatCamera>{choisi});
  EXPECT_EQ(Memoire_.Format(Pilote_.NomStable_), choisi);
  EXPECT_TRUE(Dialogue_->isVisible());
  EXPECT_TRUE(Controle<QLabel>("LblEtatFormat")->text().contains("at work"));
  EXPECT_TRUE(Controle<QLabel>("LblFormatCourant")->text().contains("1280"));
}

TEST_F(FormatTest, TheKeyboardAloneIsEnough) {
  Ouvre();
  Dialogue_->activateWindow();
  auto* tailles = Controle<QListWidget>("ListeTailles");
  tailles->setFocus();
  QTest::keyClick(tailles, Qt::Key_Up);
  QTest::keyClick(tailles, Qt::Key_Return);
  EXPECT_EQ(Pilote_.Appliques_, (QList<FormatCamera>{{"MJPG", 1280, 720, 30, 1}}));
  EXPECT_FALSE(Dialogue_->isVisible());
  EXPECT_EQ(Dialogue_->result(), QDialog::Accepted);
}

TEST_F(FormatTest, EscapeAndCancelLeaveEverythingAsItIs) {
  Ouvre();
  CliqueTaille(1);
  QTest::keyClick(Dialogue_.get(), Qt::Key_Escape);
  EXPECT_FALSE(Dialogue_->isVisible());
  Ouvre();
  CliqueTaille(1);
  Clique("BtnAnnulerFormat");
  EXPECT_FALSE(Dialogue_->isVisible());
  EXPECT_TRUE(Pilote_.Appliques_.isEmpty());
  EXPECT_FALSE(Memoire_.Format(Pilote_.NomStable_).has_value());
}

TEST_F(FormatTest, EnterPressesTheButtonThatHasTheFocus) {
  Ouvre();
  CliqueTaille(1);
  Controle<QPushButton>("BtnAnnulerFormat")->setFocus();
  QTest::keyClick(Controle<QPushButton>("BtnAnnulerFormat"), Qt::Key_Return);
  EXPECT_FALSE(Dialogue_->isVisible());
  EXPECT_TRUE(Pilote_.Appliques_.isEmpty());
}

TEST_F(FormatTest, OkWithoutAnotherChoiceDoesNotDisturbTheCamera) {
  Ouvre();
  Clique("BtnOkFormat");
  EXPECT_FALSE(Dialogue_->isVisible());
  EXPECT_TRUE(Pilote_.Appliques_.isEmpty());
}

TEST_F(FormatTest, ARefusedFormatIsToldAndTheOldOneGoesOn) {
  Ouvre();
  Pilote_.Accepte_ = false;
  CliqueTaille(1);
  Clique("BtnOkFormat");
  EXPECT_TRUE(Dialogue_->isVisible());
  EXPECT_TRUE(Controle<QLabel>("LblEtatFormat")->text().contains("The earlier format goes on"));
  EXPECT_EQ(Controle<QListWidget>("ListeTailles")->currentRow(), 2);
  EXPECT_FALSE(Memoire_.Format(Pilote_.NomStable_).has_value());
}

TEST_F(FormatTest, AChoiceThatCannotBeRememberedIsTold) {
  Memoire_ = MemoireCapture("/dev/null/capture.ini");
  Ouvre();
  CliqueTaille(1);
  Clique("BtnOkFormat");
  EXPECT_EQ(Pilote_.Appliques_.size(), 1);
  EXPECT_TRUE(Dialogue_->isVisible());
  EXPECT_TRUE(Controle<QLabel>("LblEtatFormat")->text().contains("could not be saved"));
}

TEST_F(FormatTest, ACameraThatTellsNothingIsTold) {
  Acces_.Formats_.clear();
  Ouvre(Langue::kFrancais);
  EXPECT_TRUE(Controle<QLabel>("LblEtatFormat")->text().contains(QString::fromUtf8("Est-elle encore branchée ?")));
  EXPECT_FALSE(Controle<QPushButton>("BtnOkFormat")->isEnabled());
  EXPECT_FALSE(Controle<QPushButton>("BtnAppliquerFormat")->isEnabled());
  Clique("BtnAnnulerFormat");
  EXPECT_FALSE(Dialogue_->isVisible());
}

TEST_F(FormatTest, OtherSourcesSayThatNothingCanBeChosen) {
  const QMap<GenreSource, QString> attendus = {{GenreSource::kReseau, "A network camera"},
                                               {GenreSource::kFichier, "A video file"},
                                               {GenreSource::kTest, "The test picture"}};
  for (auto it = attendus.cbegin(); it != attendus.cend(); ++it) {
    Pilote_.Genre_ = it.key();
    Ouvre();
    EXPECT_TRUE(Controle<QLabel>("LblExplication")->text().startsWith(it.value()));
    EXPECT_TRUE(Controle<QLabel>("LblExplication")->text().contains(QString::fromUtf8("640 × 480")));
    EXPECT_EQ(Controle<QListWidget>("ListeTailles"), nullptr);
    EXPECT_EQ(Controle<QLabel>("LblRemarque"), nullptr);
    Clique("BtnFermerFormat");
    EXPECT_FALSE(Dialogue_->isVisible());
  }
}

TEST_F(FormatTest, AFileThatIsScaledDownIsToldToo) {
  Pilote_.Genre_ = GenreSource::kFichier;
  Pilote_.Format_ = {"", 3840, 2160, 25, 1};
  Ouvre();
  EXPECT_TRUE(Controle<QLabel>("LblExplication")->text().contains(QString::fromUtf8("3840 × 2160")));
  EXPECT_TRUE(Controle<QLabel>("LblRemarque")->text().contains(QString::fromUtf8("scaled down to 1920 × 1080")));
}

TEST_F(FormatTest, EveryControlHasANameForPeopleWhoDoNotSeeIt) {
  Ouvre(Langue::kFrancais);
  for (const char* nom :
       {"CmbCodage", "ListeTailles", "CmbCadence", "BtnOkFormat", "BtnAnnulerFormat", "BtnAppliquerFormat"}) {
    const auto* controle = Controle<QWidget>(nom);
    ASSERT_NE(controle, nullptr) << nom;
    EXPECT_FALSE(controle->accessibleName().isEmpty()) << nom;
    EXPECT_FALSE(controle->accessibleName().contains("&")) << nom;
  }
}

}  // namespace
}  // namespace vaktor
