// SPDX-License-Identifier: GPL-3.0-or-later
// An hour of watching, arming and alarms, in virtual time.
#include "engine/engine_fixture.h"

namespace vaktor {
namespace {

using Duree = BancEssai;

TEST_F(Duree, AnHourOfWatchingArmingAndAlarms) {
  Reglages.PhotoActif = Reglages.MailActif = Reglages.SonActif = true;
  const QImage calme = Unie(0, 24, 18);
  const QImage passage = Unie(qRgb(0, 0, 255), 24, 18);
  // Somebody walks through for two frames in each minute.
  Pilote.Suivante = [&] { return (Horloge.Millisecondes / 30) % 2000 < 2 ? passage : calme; };
  Engin.BasculeAlarme();  // the camera is off: it starts
  for (qint64 minute = 0; minute < 60; ++minute) {
    Temps.Avance(60'000);
    // Disarmed and armed again every ten minutes, and once the camera is restarted.
    if (minute % 10 == 9) {
      Engin.BasculeAlarme();
      EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
      Engin.BasculeAlarme();
    }
    if (minute == 35) {
      Engin.BasculeCamera();
      EXPECT_FALSE(Engin.Alarme().AlarmeArmee);
      Engin.BasculeAlarme();
    }
  }
  EXPECT_TRUE(Engin.CompteAReboursEnCours());  // the last arming is ten seconds off
  EXPECT_GT(Pilote.Saisies, 110'000);
  // Each walk is seen twice: coming and going.
  EXPECT_GE(Actions.Photos, 100);
  EXPECT_LE(Actions.Photos, 120);
  EXPECT_EQ(Actions.Photos, Actions.Mails);
  EXPECT_EQ(Actions.Photos, Actions.Sons);
  EXPECT_GE(Reglages.SeuilDetection, 1);
}

}  // namespace
}  // namespace vaktor
