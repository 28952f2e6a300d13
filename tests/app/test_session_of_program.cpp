// SPDX-License-Identifier: GPL-3.0-or-later
// The box on the options page that has the desktop start the program at the login.
#include "app/program_fixture.h"

namespace vaktor::essai {
namespace {

class SessionDuProgramme : public ProgrammeSurFaux {
 protected:
  bool Cochee() const { return Trouve<QCheckBox>("ChkSession")->isChecked(); }
};

TEST_F(SessionDuProgramme, OneClickHasItStartedAndOneMoreNot) {
  DemarreJusquALaFenetre();
  EXPECT_FALSE(Cochee());
  Clique("Bouton(4)");
  Clique("ChkSession");
  EXPECT_TRUE(Systeme.Session.Voulue);
  QTest::mouseClick(Trouve("LblSession"), Qt::LeftButton);
  EXPECT_FALSE(Systeme.Session.Voulue);
  QTest::keyClick(Trouve("ChkSession"), Qt::Key_Space);
  EXPECT_TRUE(Systeme.Session.Voulue);
  EXPECT_TRUE(Systeme.Messages.Textes.isEmpty());
}

TEST_F(SessionDuProgramme, BoxShowsWhatTheDesktopHasInItsList) {
  Systeme.Session.Voulue = true;
  DemarreJusquALaFenetre();
  EXPECT_TRUE(Cochee());
  EXPECT_TRUE(Systeme.Notes.Lignes().filter("session: start").isEmpty()) << "to show it is to change nothing";
}

TEST_F(SessionDuProgramme, ReleaseThatTicksNothingWritesNothing) {
  DemarreJusquALaFenetre();
  Clique("Bouton(4)");
  QTest::mouseClick(Trouve("ChkSession"), Qt::RightButton);
  EXPECT_TRUE(Systeme.Notes.Lignes().filter("session: start").isEmpty());
  EXPECT_TRUE(Systeme.Notes.Lignes().filter("session: leave").isEmpty());
}

TEST_F(SessionDuProgramme, WhatCannotBeWrittenIsToldAndTheBoxGoesBack) {
  Systeme.Session.Refuse = true;
  DemarreJusquALaFenetre();
  Clique("Bouton(4)");
  Clique("ChkSession");
  EXPECT_FALSE(Cochee());
  ASSERT_EQ(Systeme.Messages.Textes.size(), 1);
  EXPECT_TRUE(Systeme.Messages.Textes.first().startsWith("The folder of the programs that your desktop starts"));
}

TEST_F(SessionDuProgramme, WordsFollowTheLanguage) {
  DemarreJusquALaFenetre();
  EXPECT_EQ(Trouve<QLabel>("LblSession")->text(), "Watch as soon as I log in");
  EXPECT_EQ(Trouve("ChkSession")->accessibleName(), "Watch as soon as I log in");
  EXPECT_TRUE(Trouve("ChkSession")->toolTip().contains("/alarm"));
  Clique("Image4(0)");
  EXPECT_EQ(Trouve<QLabel>("LblSession")->text(), QString::fromUtf8("Surveiller dès la connexion"));
}

}  // namespace
}  // namespace vaktor::essai
