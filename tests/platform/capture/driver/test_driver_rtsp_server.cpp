// SPDX-License-Identifier: GPL-3.0-or-later
// The driver over a real RTSP server: by either way of the packets, in two codings.
#include "support/driver_fixture.h"
#include "support/rtsp_server.h"

namespace vaktor {
namespace {

constexpr const char* kJpeg =
    "( videotestsrc is-live=true ! video/x-raw,format=I420,width=320,height=240,framerate=15/1 ! jpegenc ! "
    "rtpjpegpay name=pay0 )";
constexpr const char* kVp8 =
    "( videotestsrc is-live=true ! video/x-raw,format=I420,width=320,height=240,framerate=15/1 ! "
    "vp8enc deadline=1 keyframe-max-dist=15 ! rtpvp8pay name=pay0 )";

class PiloteServeurRtsp : public PiloteSurSource {
 protected:
  void EssaiePlusieursFois(const char* film, GstRTSPLowerTrans chemins) {
    const ServeurRtsp serveur(film, chemins);
    for (int fois = 0; fois < 2; ++fois) {
      QElapsedTimer depuis;
      depuis.start();
      ASSERT_TRUE(Connecte(serveur.Adresse())) << fois;
      std::printf("measured: connected after %lld ms\n", static_cast<long long>(depuis.elapsed()));
      const Recolte recolte = Recueille(700);
      EXPECT_GE(recolte.Images, 3);
      EXPECT_EQ(recolte.Tailles, (std::set<std::pair<int, int>>{{320, 240}}));
      Pilote_.reset();
    }
  }
};

TEST_F(PiloteServeurRtsp, JpegWithinTheConnection) { EssaiePlusieursFois(kJpeg, GST_RTSP_LOWER_TRANS_TCP); }
TEST_F(PiloteServeurRtsp, Vp8WithinTheConnection) { EssaiePlusieursFois(kVp8, GST_RTSP_LOWER_TRANS_TCP); }
TEST_F(PiloteServeurRtsp, JpegByUdpOnly) { EssaiePlusieursFois(kJpeg, GST_RTSP_LOWER_TRANS_UDP); }
TEST_F(PiloteServeurRtsp, Vp8ByUdpOnly) { EssaiePlusieursFois(kVp8, GST_RTSP_LOWER_TRANS_UDP); }

}  // namespace
}  // namespace vaktor
