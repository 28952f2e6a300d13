// SPDX-License-Identifier: GPL-3.0-or-later
// The daily sign of life in the whole program: what it counts, and that the companion is told to take it.
#include "app/alarm_fixture.h"

namespace vaktor::essai {
namespace {

class SigneDuProgramme : public AlarmeSurFaux {};

TEST_F(SigneDuProgramme, TellsOfTheIntrusionAndItsPhotosAndGoesToTheCompanion) {
  Systeme.Valeurs.insert(QStringLiteral("MAIL/signedevie"), QStringLiteral("9"));
  ArmeEtBouge();  // shortly after nine
  Systeme.Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Systeme.Courriels.Deposes.size(), 1);
  const CourrielVeille& courriel = Systeme.Courriels.Deposes[0].Courriel;
  EXPECT_EQ(courriel.Mot, QStringLiteral("sign-of-life"));
  EXPECT_EQ(Systeme.Courriels.Deposes[0].Image.size(), QSize(287, 241));
  const QString texte = courriel.Texte.Dit(Langue::kAnglais);
  EXPECT_TRUE(texte.contains("Alarms since Vaktor was started: 1\n")) << texte.toStdString();
  EXPECT_FALSE(texte.contains("Photos: 0\n")) << texte.toStdString();
  Systeme.Notes.Vide();
  Systeme.Courriels.Repond(true);
  EXPECT_TRUE(Systeme.DepuisVide().contains(QStringLiteral("channel: post 68 to 72")));
}

TEST_F(SigneDuProgramme, SaysWhatTheListOfTheSignHolds) {
  Systeme.Valeurs.insert(QStringLiteral("MAIL/signedevie"), QStringLiteral("9"));
  Systeme.Valeurs.insert(QStringLiteral("PHOTO/repertoire"), QStringLiteral("/gone"));
  ArmeEtBouge();
  Systeme.Temps.Avance(SigneDeVie::kRegardMs);
  ASSERT_EQ(Systeme.Courriels.Deposes.size(), 1);
  const QString texte = Systeme.Courriels.Deposes[0].Courriel.Texte.Dit(Langue::kAnglais);
  EXPECT_TRUE(
      texte.contains("- The photo folder was not there at the start: another one has taken its place (/gone -> "))
      << texte.toStdString();
}

TEST_F(SigneDuProgramme, WithoutAnHourThereIsNone) {
  ArmeEtBouge();
  Systeme.Temps.Avance(SigneDeVie::kRegardMs);
  EXPECT_TRUE(Systeme.Courriels.Deposes.isEmpty());
}

}  // namespace
}  // namespace vaktor::essai
