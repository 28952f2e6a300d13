// SPDX-License-Identifier: GPL-3.0-or-later
// The interface sounds and the gate of the hover tick.
#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/fake_sound_player.h"
#include "ui/sound/sounds.h"

namespace vaktor {
namespace {

class SonsTest : public testing::Test {
 protected:
  SonsTest() { Disque.AjouteFichier(kFichierTic); }
  const QString kFichierTic = QStringLiteral("/opt/vaktor\\snd\\4.wav");
  DossiersProgramme Dossiers{QStringLiteral("/opt/vaktor"), QStringLiteral("/home/u/vaktor")};
  FauxFichiers Disque;
  faux::LecteurFaux Lecteur;
  Sons Interface{Dossiers, Disque, Lecteur};
};

TEST_F(SonsTest, NumberedFilesLieBesideTheProgram) {
  Interface.JoueSon(4);
  EXPECT_EQ(Lecteur.Joues, QStringList{kFichierTic});
}

TEST_F(SonsTest, MissingFileIsSilent) {
  Interface.JoueSon(1);
  Interface.JoueFichier(QStringLiteral("/home/u/gone.wav"));
  EXPECT_TRUE(Lecteur.Joues.isEmpty());
}

TEST_F(SonsTest, FirstControlAfterTheStartTicks) {
  Interface.SurvolSon(Sons::kAucunSurvol);
  EXPECT_TRUE(Lecteur.Joues.isEmpty());
  Interface.SurvolSon(0);
  EXPECT_EQ(Lecteur.Joues.size(), 1) << "Bouton(0) too, whose number is the gate's start value";
}

TEST_F(SonsTest, OneControlTicksOnceAndTheNextAgainWithoutCrossingTheBackground) {
  for (int i = 0; i < 3; ++i) Interface.SurvolSon(5);
  EXPECT_EQ(Lecteur.Joues.size(), 1);
  Interface.SurvolSon(6);
  EXPECT_EQ(Lecteur.Joues.size(), 2);
}

TEST_F(SonsTest, BackgroundIsSilentAndArmsTheTickAgain) {
  Interface.SurvolSon(5);
  Interface.SurvolSon(5555);
  Interface.SurvolSon(5555);
  EXPECT_EQ(Lecteur.Joues.size(), 1);
  Interface.SurvolSon(5);
  EXPECT_EQ(Lecteur.Joues.size(), 2);
}

}  // namespace
}  // namespace vaktor
