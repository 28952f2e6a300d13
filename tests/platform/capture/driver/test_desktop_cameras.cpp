// SPDX-License-Identifier: GPL-3.0-or-later
// Cameras behind PipeWire, on a session of the test's own: listed, opened, gone and back. Where PipeWire, its session
// manager or GStreamer's plugin for it are not installed nothing of that can be tried.
#include <fcntl.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QThread>

#include "platform/capture/devices/device_access.h"
#include "platform/capture/streams/desktop_cameras.h"
#include "support/driver_fixture.h"
#include "support/private_pipewire.h"

namespace vaktor {
namespace {

using namespace std::chrono_literals;

const CameraBureau kPorte{QStringLiteral("Porte"), QStringLiteral("pipewire:essai")};
const CameraBureau kCour{QStringLiteral("Cour"), QStringLiteral("pipewire:autre")};

class CameraDuBureau : public PiloteSurSource {
 protected:
  void SetUp() override {
    const QString manque = essai::PipeWirePrive::Manque();
    if (!manque.isEmpty()) GTEST_SKIP() << manque.toStdString() << " is not installed (scripts/packages-test.txt)";
    PipeWire_.Lance();
    BranchePorte();
  }
  void TearDown() override { Pilote_.reset(); }
  void BranchePorte() {
    PipeWire_.Branche(QStringLiteral("essai"), kPorte.Nom, {320, 240});
    ASSERT_TRUE(Attend([] { return ListeCamerasBureau().contains(kPorte); })) << "PipeWire knows of the camera";
  }
  void BrancheCour() {
    PipeWire_.Branche(QStringLiteral("autre"), kCour.Nom, {160, 120});
    ASSERT_TRUE(Attend([] { return ListeCamerasBureau().contains(kCour); }));
  }
  template <typename Quoi>
  static bool Attend(Quoi quoi) {
    QElapsedTimer depuis;
    depuis.start();
    while (!quoi() && depuis.elapsed() < 20'000) QThread::msleep(50);
    return quoi();
  }

  essai::PipeWirePrive PipeWire_;
};

TEST_F(CameraDuBureau, IsListedByItsNameAndOpenedByThatWhichStays) {
  EXPECT_EQ(ListeCamerasBureau(), QList<CameraBureau>{kPorte});
  ASSERT_TRUE(Connecte(kPorte.Source)) << qUtf8Printable(Pilote_->Explication());
  EXPECT_EQ(Pilote_->Genre(), GenreSource::kBureau);
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_EQ(Pilote_->CopieTrame().Taille(), QSize(320, 240));
  EXPECT_GE(Recueille(3000).Images, 10);
}

TEST_F(CameraDuBureau, IsListedAgainAndAgainWhileItIsAtWork) {
  BrancheCour();
  ASSERT_TRUE(Connecte(kPorte.Source));
  for (int i = 0; i < 4; ++i) {
    const QList<CameraBureau> cameras = ListeCamerasBureau();
    EXPECT_TRUE(cameras.contains(kPorte) && cameras.contains(kCour));
    EXPECT_GE(Recueille(600).Images, 1);
  }
}

TEST_F(CameraDuBureau, LeavesNothingOpenBehindIt) {
  ASSERT_TRUE(Connecte(kPorte.Source));
  Pilote_->Deconnecte();
  const int avant = Compte("/proc/self/fd");
  for (int i = 0; i < 3; ++i) {
    ASSERT_TRUE(Connecte(kPorte.Source));
    Pilote_->Deconnecte();
  }
  // A thread that is just ending may hold something for a moment more.
  EXPECT_TRUE(Attend([avant] { return Compte("/proc/self/fd") <= avant + 1; })) << Compte("/proc/self/fd");
}

// The watch goes blind and says so. It is not handed another place to look at, though that camera is free.
TEST_F(CameraDuBureau, ThatGoesIsALostSignalAndNoOtherCameraAndComesBackByItself) {
  BrancheCour();
  ASSERT_TRUE(Connecte(kPorte.Source));
  PipeWire_.Debranche(QStringLiteral("essai"));
  ASSERT_TRUE(AttendSignalPerdu(true, 20'000));
  const Recolte recolte = Recueille(4000);
  EXPECT_EQ(recolte.Images, 0);
  EXPECT_TRUE(Attend([this] { return Pilote_->Explication().contains(QLatin1String("does not hand out")); }));
  BranchePorte();
  EXPECT_TRUE(AttendSignalPerdu(false, 40'000));
  EXPECT_EQ(Pilote_->CopieTrame().Taille(), QSize(320, 240));
}

TEST_F(CameraDuBureau, ThatIsNotThereIsToldSoAtOnceAndNoOtherIsTaken) {
  EXPECT_FALSE(Connecte(QStringLiteral("pipewire:autre")));
  EXPECT_EQ(Pilote_->Pourquoi().Quoi, Motif::kPasDuBureau) << "and no end of the time for connecting";
}

TEST_F(CameraDuBureau, WithoutPipeWireIsToldSo) {
  PipeWire_.Arrete();
  EXPECT_TRUE(ListeCamerasBureau().isEmpty());
  EXPECT_FALSE(Connecte(kPorte.Source));
  EXPECT_EQ(Pilote_->Pourquoi().Quoi, Motif::kPasDuBureau);
}

// A PipeWire that answers nobody holds neither the dialogs nor the connection.
TEST_F(CameraDuBureau, OfAPipeWireThatHangsHoldsNobodyUp) {
  PipeWire_.Fige();
  const AccesV4L2 acces({.Noeuds = [] { return QStringList(); }, .Bureau = ListeCamerasBureau},
                        {.Liste = 300ms, .Question = 300ms});
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_TRUE(acces.CamerasDuBureau().isEmpty());
  EXPECT_EQ(acces.Muets(), QStringList("PipeWire"));
  EXPECT_FALSE(Connecte(kPorte.Source));
  EXPECT_LT(depuis.elapsed(), 30'000);
  PipeWire_.Degele();
  EXPECT_TRUE(Attend([&] { return acces.Muets().isEmpty(); }));
  EXPECT_TRUE(Attend([&] { return acces.CamerasDuBureau() == QList<CameraBureau>{kPorte}; }));
}

// In the place of PipeWire's own program, while it lives: a script.
class FauxInventaire {
 public:
  explicit FauxInventaire(const QByteArray& script) : Avant_(qgetenv("PATH")) {
    QFile programme(Dossier_.filePath(QStringLiteral("pw-dump")));
    EXPECT_TRUE(programme.open(QIODevice::WriteOnly) && programme.write("#!/bin/sh\n" + script) > 0);
    EXPECT_TRUE(programme.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    qputenv("PATH", Dossier_.path().toUtf8() + ':' + Avant_);
  }
  ~FauxInventaire() { qputenv("PATH", Avant_); }
  FauxInventaire(const FauxInventaire&) = delete;
  FauxInventaire& operator=(const FauxInventaire&) = delete;
  QString Fichier(const char* nom) const { return Dossier_.filePath(QLatin1String(nom)); }

 private:
  const QByteArray Avant_;
  QTemporaryDir Dossier_;
};

class CamerasDuBureau : public testing::Test {
 protected:
  void SetUp() override {
    const QString manque = essai::PipeWirePrive::Manque();
    if (!manque.isEmpty()) GTEST_SKIP() << manque.toStdString() << " is not installed (scripts/packages-test.txt)";
  }
};

// Whatever becomes of the program that lists them: half a list is none, and nobody but that program ends.
TEST_F(CameraDuBureau, OfAListThatBreaksOffAreNone) {
  {
    const FauxInventaire faux(
        R"(echo '[{"info":{"props":{"media.class":"Video/Source","node.name":"a"}}},'
kill -SEGV $$
)");
    EXPECT_TRUE(ListeCamerasBureau().isEmpty());
  }
  EXPECT_EQ(ListeCamerasBureau(), QList<CameraBureau>{kPorte});
}

// A camera that a program holds cannot be given to anybody else.
TEST_F(CamerasDuBureau, AreListedByAProgramThatHoldsNoneOfOurFiles) {
  const int notre = ::open("/dev/null", O_RDONLY);  // and not closed by itself when a program is started
  ASSERT_GE(notre, 0);
  const FauxInventaire faux(
      "[ -e /proc/$$/fd/" + QByteArray::number(notre) +
      " ] || echo '[{\"info\":{\"props\":{\"media.class\":\"Video/Source\",\"node.name\":\"a\"}}}]'\n");
  EXPECT_EQ(ListeCamerasBureau(), (QList<CameraBureau>{{QStringLiteral("a"), QStringLiteral("pipewire:a")}}));
  ::close(notre);
}

TEST_F(CamerasDuBureau, AreNotOfferedWithoutThePluginThatOpensThem) {
  const FauxInventaire faux(R"(echo '[{"info":{"props":{"media.class":"Video/Source","node.name":"a"}}}]'
)");
  ASSERT_EQ(ListeCamerasBureau().size(), 1);
  GstRegistry* registre = gst_registry_get();
  GstPluginFeature* greffon = gst_registry_lookup_feature(registre, "pipewiresrc");
  gst_registry_remove_feature(registre, greffon);
  EXPECT_TRUE(ListeCamerasBureau().isEmpty());
  gst_registry_add_feature(registre, greffon);
  gst_object_unref(greffon);
}

TEST_F(CamerasDuBureau, AreNoneWhereTheirListDoesNotEnd) {
  const FauxInventaire faux("exec sleep 60\n");
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_TRUE(ListeCamerasBureau().isEmpty());
  EXPECT_LT(depuis.elapsed(), 20'000);
}

TEST_F(CamerasDuBureau, AreListedByNobodyWhoOutlivesWhoAsked) {
  const FauxInventaire faux("echo $$ > \"${0%/*}/pid.new\" && mv \"${0%/*}/pid.new\" \"${0%/*}/pid\"\nexec sleep 30\n");
  QProcess demandeur;
  demandeur.start(QStringLiteral(SONDE_CAMERA), {QStringLiteral("pipewire:essai"), QStringLiteral("1")});
  ASSERT_TRUE(essai::AttendQue([&] { return QFile::exists(faux.Fichier("pid")); }));
  QFile pid(faux.Fichier("pid"));
  ASSERT_TRUE(pid.open(QIODevice::ReadOnly));
  const QString laBas = QStringLiteral("/proc/") + QString::fromLatin1(pid.readAll().trimmed());
  ASSERT_TRUE(QFile::exists(laBas));
  demandeur.kill();
  ASSERT_TRUE(demandeur.waitForFinished());
  EXPECT_TRUE(essai::AttendQue([&] { return !QFile::exists(laBas + QLatin1String("/exe")); }));
}

// A camera that the kernel gives a node has its place in the list by that.
TEST_F(CameraDuBureau, WithANodeOfItsOwnIsLeftOut) {
  PipeWire_.Branche(QStringLiteral("usb"), QStringLiteral("USB"), {160, 120}, QStringLiteral(",device.api=v4l2"));
  BrancheCour();
  QThread::msleep(1000);
  const QList<CameraBureau> cameras = ListeCamerasBureau();
  EXPECT_EQ(cameras.size(), 2);
  EXPECT_FALSE(cameras.contains(CameraBureau{QStringLiteral("USB"), QStringLiteral("pipewire:usb")}));
}

// What the dialogs ask is asked on a thread of its own.
TEST_F(CamerasDuBureau, AreWaitedForNoLongerThanDevices) {
  QuestionsV4L2 questions;
  questions.Noeuds = [] { return QStringList(); };
  questions.Bureau = [] {
    QThread::msleep(6000);
    return QList<CameraBureau>{kPorte};
  };
  const AccesV4L2 acces(questions, {.Liste = 200ms, .Question = 200ms});
  QElapsedTimer depuis;
  depuis.start();
  EXPECT_TRUE(acces.CamerasDuBureau().isEmpty());
  EXPECT_LT(depuis.elapsed(), 5000);
  EXPECT_EQ(acces.Muets(), QStringList("PipeWire"));
}

}  // namespace
}  // namespace vaktor
