// SPDX-License-Identifier: GPL-3.0-or-later
// Cameras behind libcamera. No machine that tests run on has one, so the plugin is one of the test's own: the names of
// its parts and of its property are all that is known of it.
#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "platform/capture/devices/device_access.h"
#include "platform/capture/dialogs/source_dialog.h"
#include "platform/capture/streams/desktop_cameras.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

struct FauxAppareil {
  GstDevice Base;
};
struct FausseClasse {
  GstDeviceClass Base;
};
struct FauxFournisseur {
  GstDeviceProvider Base;
};
struct ClasseFournisseur {
  GstDeviceProviderClass Base;
};
struct FausseSource {
  GstBin Base;
};
struct ClasseSource {
  GstBinClass Base;
};

GType TypeAppareil() {
  static const GType type = g_type_register_static_simple(GST_TYPE_DEVICE, "EssaiAppareil", sizeof(FausseClasse),
                                                          nullptr, sizeof(FauxAppareil), nullptr, GTypeFlags(0));
  return type;
}

GstDevice* Appareil(const char* nom, const char* classe, const char* noeud) {
  GstStructure* details = gst_structure_new_empty("libcamera-proplist");
  if (noeud != nullptr) gst_structure_set(details, "api.v4l2.path", G_TYPE_STRING, noeud, nullptr);
  auto* appareil = GST_DEVICE(
      g_object_new(TypeAppareil(), "display-name", nom, "device-class", classe, "properties", details, nullptr));
  gst_structure_free(details);
  return GST_DEVICE(gst_object_ref_sink(appareil));
}

GList* Repond(GstDeviceProvider*) {
  GList* liste = g_list_append(nullptr, Appareil("\\_SB_.PC00.LNK1", "Source/Video", nullptr));
  liste = g_list_append(liste, Appareil("with a node", "Source/Video", "/dev/video0"));
  return g_list_append(liste, Appareil("a microphone", "Source/Audio", nullptr));
}

void InitialiseFournisseur(gpointer classe, gpointer) {
  static_cast<GstDeviceProviderClass*>(classe)->probe = Repond;
  gst_device_provider_class_set_static_metadata(static_cast<GstDeviceProviderClass*>(classe), "test", "Source/Video",
                                                "test", "test");
}

void FixeNom(GObject* objet, guint, const GValue* valeur, GParamSpec*) {
  GstElement* source = gst_bin_get_by_name(GST_BIN(objet), "s");
  // Another name is another picture: black instead of white.
  const bool elle = g_strcmp0(g_value_get_string(valeur), "\\_SB_.PC00.LNK1") == 0;
  gst_util_set_object_arg(G_OBJECT(source), "pattern", elle ? "white" : "black");
  gst_object_unref(source);
}

void InitialiseSource(gpointer classe, gpointer) {
  G_OBJECT_CLASS(classe)->set_property = FixeNom;
  g_object_class_install_property(G_OBJECT_CLASS(classe), 1,
                                  g_param_spec_string("camera-name", nullptr, nullptr, nullptr, G_PARAM_WRITABLE));
  static GstStaticPadTemplate modele = GST_STATIC_PAD_TEMPLATE("src", GST_PAD_SRC, GST_PAD_ALWAYS, GST_STATIC_CAPS_ANY);
  gst_element_class_add_static_pad_template(static_cast<GstElementClass*>(classe), &modele);
  gst_element_class_set_static_metadata(static_cast<GstElementClass*>(classe), "test", "Source/Video", "test", "test");
}

void Initialise(GTypeInstance* instance, gpointer) {
  GstElement* source = gst_element_factory_make("videotestsrc", "s");
  g_object_set(source, "is-live", TRUE, nullptr);
  gst_bin_add(GST_BIN(instance), source);
  GstPad* sortie = gst_element_get_static_pad(source, "src");
  gst_element_add_pad(GST_ELEMENT(instance), gst_ghost_pad_new("src", sortie));
  gst_object_unref(sortie);
}

void Installe() {
  static const GType fournisseur =
      g_type_register_static_simple(GST_TYPE_DEVICE_PROVIDER, "EssaiFournisseur", sizeof(ClasseFournisseur),
                                    InitialiseFournisseur, sizeof(FauxFournisseur), nullptr, GTypeFlags(0));
  static const GType source =
      g_type_register_static_simple(GST_TYPE_BIN, "EssaiSource", sizeof(ClasseSource), InitialiseSource,
                                    sizeof(FausseSource), Initialise, GTypeFlags(0));
  gst_device_provider_register(nullptr, "libcameraprovider", GST_RANK_PRIMARY + 500, fournisseur);
  gst_element_register(nullptr, "libcamerasrc", GST_RANK_NONE, source);
}

using CameraLibcamera = PiloteSurSource;

TEST_F(CameraLibcamera, WithoutThePluginThePackageIsNamed) {
  ASSERT_TRUE(PrepareGStreamer());
  if (GstElementFactory* la = gst_element_factory_find("libcamerasrc")) {
    gst_object_unref(la);
    GTEST_SKIP() << "gstreamer1.0-libcamera is installed";
  }
  EXPECT_FALSE(Connecte(QStringLiteral("libcamera:door")));
  EXPECT_EQ(Pilote_->Pourquoi(), (Raison{Motif::kSansGreffon, QStringLiteral("gstreamer1.0-libcamera")}));
}

TEST_F(CameraLibcamera, IsListedAndOpenedByItsNameAndThoseWithANodeAreNot) {
  ASSERT_TRUE(PrepareGStreamer());
  Installe();
  const QList<CameraBureau> cameras = ListeCamerasBureau();
  const CameraBureau elle{QStringLiteral("\\_SB_.PC00.LNK1"), QStringLiteral("libcamera:\\_SB_.PC00.LNK1")};
  ASSERT_TRUE(cameras.contains(elle));
  EXPECT_EQ(std::count_if(cameras.begin(), cameras.end(),
                          [](const CameraBureau& c) { return c.Source.startsWith(kParLibcamera); }),
            1);
  ASSERT_TRUE(Connecte(elle.Source));
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_GT(qGray(Pilote_->CopieTrame().Entiere().pixel(5, 5)), 200);
  EXPECT_FALSE(Connecte(QStringLiteral("libcamera:gone")));
  EXPECT_EQ(Pilote_->Pourquoi().Quoi, Motif::kPasDuBureau);
}

const QString kElle = QStringLiteral("libcamera:\\_SB_.PC00.LNK1");

TEST_F(CameraLibcamera, ThatIsRememberedIsConnectedAgain) {
  ASSERT_TRUE(PrepareGStreamer());
  Installe();
  ASSERT_TRUE(Memoire_.RetientSource(kElle));
  ASSERT_TRUE(Connecte(QString()));
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kBureau);
  EXPECT_EQ(Pilote_->DescriptionSource(), kElle);
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
}

// Nothing remembered: a first start.
class OffreDuBureau : public CameraLibcamera, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(Retenues, OffreDuBureau, testing::Values("uvcvideo|A camera|usb-1", ""));

// On a laptop whose USB camera was left at home its own one is the only other: it is there to be chosen.
TEST_P(OffreDuBureau, ComesWhereNoDeviceIsThere) {
  ASSERT_TRUE(PrepareGStreamer());
  Installe();
  if (!AccesV4L2().Peripheriques().isEmpty()) GTEST_SKIP() << "this machine has a camera of its own";
  const QString retenue = QString::fromLatin1(GetParam());
  ASSERT_TRUE(retenue.isEmpty() || Memoire_.RetientSource(retenue));
  int questions = 0;
  QTimer regard;
  regard.callOnTimeout([&] {
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
      auto* question = qobject_cast<DialogueSource*>(fenetre);
      if (question == nullptr || !question->isVisible()) continue;
      regard.stop();
      ++questions;
      auto* liste = question->findChild<QListWidget*>(QStringLiteral("ListeSources"));
      liste->setCurrentItem(liste->findItems(QStringLiteral("(through the desktop)"), Qt::MatchEndsWith).value(0));
      QTest::mouseClick(question->findChild<QPushButton*>(QStringLiteral("BtnUtiliser")), Qt::LeftButton);
    }
  });
  regard.start(50);
  EXPECT_TRUE(Connecte(QString()));
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(Memoire_.Source(), kElle);
  EXPECT_TRUE(SaisitProchaine(*Pilote_));
}

}  // namespace
}  // namespace vaktor
