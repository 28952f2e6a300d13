// The player in a process whose GStreamer has not read the list of its plugins, as the program starts it.
#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include "platform/gstreamer/gst_plugins.h"
#include "platform/sound/wave_player.h"

namespace vaktor {
namespace {

bool Connait(const char* fabrique) {
  GstElementFactory* connue = gst_element_factory_find(fabrique);
  if (connue != nullptr) gst_object_unref(connue);
  return connue != nullptr;
}

TEST(SoundWithoutList, FindsWhatItNeedsByName) {
  LanceGStreamerSansListe();
  ASSERT_FALSE(Connait("wavparse"));
  const QTemporaryDir dossier;
  const QString sortie = dossier.filePath(QStringLiteral("out.raw"));
  LecteurGStreamer lecteur(QStringLiteral("filesink location=") + sortie, [] { return true; });
  lecteur.Joue(QStringLiteral(VAKTOR_SOUNDS "/4.wav"));
  const QDeadlineTimer limite(20000);
  while (QFileInfo(sortie).size() <= 0 && !limite.hasExpired()) QThread::msleep(10);
  EXPECT_GT(QFileInfo(sortie).size(), 0);
  EXPECT_TRUE(Connait("autoaudiosink"));
}

}  // namespace
}  // namespace vaktor
