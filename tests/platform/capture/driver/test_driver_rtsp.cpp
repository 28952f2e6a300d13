// SPDX-License-Identifier: GPL-3.0-or-later
// RTSP cameras: within the connection, beside it, and behind a password.
#include "support/driver_fixture.h"
#include "support/rtsp_camera.h"

namespace vaktor {
namespace {

class PiloteRtsp : public PiloteSurSource {
 protected:
  QString Adresse(const CameraRtsp& camera, const char* acces = "") const {
    return QStringLiteral("rtsp://") + QLatin1String(acces) + QStringLiteral("127.0.0.1:%1/c").arg(camera.Port());
  }
};

TEST_F(PiloteRtsp, ShowsACameraWithinItsConnectionAndAsksForNoSound) {
  const CameraRtsp camera({});
  ASSERT_TRUE(Connecte(Adresse(camera)));
  const Recolte recolte = Recueille(2000);
  EXPECT_GE(recolte.Images, 10);
  EXPECT_EQ(recolte.Tailles, (std::set<std::pair<int, int>>{{160, 120}}));
  EXPECT_FALSE(camera.ParUdp());
  EXPECT_FALSE(camera.SonDemande());
}

TEST_F(PiloteRtsp, ShowsACameraThatSendsBesideTheConnectionOnly) {
  const CameraRtsp camera({.SeulementUdp = true});
  ASSERT_TRUE(Connecte(Adresse(camera)));
  EXPECT_GE(Recueille(2000).Images, 10);
  EXPECT_TRUE(camera.ParUdp());
}

// Both have to fit into the time of one connection: the way that stays silent and the one that works.
TEST_F(PiloteRtsp, ACameraThatAgreesAndThenSendsNothingWithinTheConnectionIsShownBesideIt) {
  const CameraRtsp camera({.MuetteDedans = true});
  ASSERT_TRUE(Connecte(Adresse(camera)));
  EXPECT_TRUE(camera.ParUdp());
  EXPECT_GE(Recueille(1000).Images, 5);
}

TEST_F(PiloteRtsp, ACameraThatDoesNotAnswerTheWishForItsConnectionIsShownBesideIt) {
  const CameraRtsp camera({.SourdeDedans = true});
  ASSERT_TRUE(Connecte(Adresse(camera)));
  EXPECT_TRUE(camera.ParUdp());
  EXPECT_GE(Recueille(1000).Images, 5);
}

// Seen with a real server: the second connection came three milliseconds after the first and was turned away.
TEST_F(PiloteRtsp, ACameraThatHasToLetTheFirstConnectionGoIsGivenAMoment) {
  const CameraRtsp camera({.SeulementUdp = true, .Depart = 100});
  ASSERT_TRUE(Connecte(Adresse(camera)));
  EXPECT_TRUE(camera.ParUdp());
  EXPECT_EQ(camera.Connexions(), 2);
}

TEST_F(PiloteRtsp, ARefusalThatHasNothingToDoWithTheWayIsNotAskedForTwice) {
  const CameraRtsp camera({.Fermee = true});
  EXPECT_FALSE(Connecte(Adresse(camera)));
  EXPECT_EQ(camera.Connexions(), 1);
}

TEST_F(PiloteRtsp, ACameraThatSendsIsNotLeftBecauseItsFirstWholePictureIsSecondsAway) {
  const CameraRtsp camera({.MorceauxAvant = 3000});
  ASSERT_TRUE(Connecte(Adresse(camera)));
  EXPECT_FALSE(camera.ParUdp());
}

TEST_F(PiloteRtsp, GivesThePasswordToTheCameraAndShowsItNowhere) {
  const CameraRtsp camera({.Fermee = true});
  EXPECT_FALSE(Connecte(Adresse(camera)));
  ASSERT_TRUE(Connecte(Adresse(camera, "jean:tresSecret@")));
  EXPECT_TRUE(camera.VuAutorisation());
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_FALSE(Pilote_->DescriptionSource().contains(QStringLiteral("tresSecret")));
}

}  // namespace
}  // namespace vaktor
