// The driver in a process whose GStreamer has not read the list of its plugins, as the program starts it.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/gstreamer/gst_plugins.h"
#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

guint NombreDeFabriques() {
  GList* toutes = gst_registry_get_feature_list(gst_registry_get(), GST_TYPE_ELEMENT_FACTORY);
  const guint nombre = g_list_length(toutes);
  gst_plugin_feature_list_free(toutes);
  return nombre;
}

using PiloteSansListe = PiloteSurSource;

// All in one: GStreamer starts once in a process. The films are made by a child, whose GStreamer knows its encoders.
TEST_F(PiloteSansListe, KnownFilmsNeedNoListAndTheOthersReadIt) {
  ASSERT_FALSE(gst_is_initialized());
  const QString caps = QStringLiteral("format=I420,framerate=25/1,width=160,height=120");
  const pid_t enfant = fork();
  ASSERT_GE(enfant, 0);
  if (enfant == 0) {
    const bool faits =
        FabriqueFilm(Fichier("ms.avi"), caps, 30, QStringLiteral("avenc_msmpeg4 ! avimux")) &&
        FabriqueFilm(Fichier("mjpeg.avi"), caps, 30, QStringLiteral("jpegenc ! avimux")) &&
        FabriqueFilm(Fichier("h264.mp4"), caps, 30, QStringLiteral("openh264enc ! h264parse ! mp4mux")) &&
        FabriqueFilm(Fichier("vp8.mkv"), caps, 30, QStringLiteral("vp8enc deadline=1 ! matroskamux")) &&
        FabriqueFilm(Fichier("mpeg4.avi"), caps, 30, QStringLiteral("avenc_mpeg4 ! avimux")) &&
        FabriqueFilm(Fichier("theora.mkv"), caps, 30, QStringLiteral("theoraenc ! matroskamux"));
    _exit(faits ? 0 : 1);
  }
  int fin = 0;
  ASSERT_EQ(waitpid(enfant, &fin, 0), enfant);
  ASSERT_EQ(fin, 0);

  LanceGStreamerSansListe();
  ASSERT_TRUE(gst_is_initialized());
  EXPECT_EQ(std::getenv("GST_REGISTRY_1_0"), nullptr) << "the environment is as it was";
  EXPECT_EQ(std::getenv("GST_PLUGIN_SYSTEM_PATH_1_0"), nullptr);
  const guint auDebut = NombreDeFabriques();
  EXPECT_LT(auDebut, 60U);
  for (const char* film : {"ms.avi", "mjpeg.avi", "h264.mp4", "vp8.mkv", "mpeg4.avi"}) {
    ASSERT_TRUE(Connecte(Fichier(film))) << film;
    EXPECT_EQ(Recueille(600).Tailles.size(), 1U) << film;
    EXPECT_LT(NombreDeFabriques(), 100U) << film << " has made the list be read";
  }
  // The search may take all the time of a connection on a busy machine; the next one then has the list.
  const QString theora = Fichier("theora.mkv");
  ASSERT_TRUE(Connecte(theora) || Connecte(theora)) << "its decoder is searched for among all plugins";
  EXPECT_EQ(Recueille(600).Tailles.size(), 1U);
  EXPECT_GT(NombreDeFabriques(), 100U);
  ASSERT_TRUE(Connecte(Fichier("ms.avi"))) << "what was known before still works";
  ChargeGreffons({"no-such-plugin"});
  EXPECT_EQ(FabriqueElement("no-such-element"), nullptr);
}

}  // namespace
}  // namespace vaktor
