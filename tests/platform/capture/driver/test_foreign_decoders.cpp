// SPDX-License-Identifier: GPL-3.0-or-later
// Films whose coding our own decoder does not know are decoded by another's, which keeps to no limit: it is asked only
// for pictures that are told to be of a size that can be held, and goes no further where that was a lie.
#include <QProcess>

#include "support/capture_clips.h"
#include "support/driver_fixture.h"

namespace vaktor {
namespace {

class DecodeurEtranger : public PiloteSurSource {
 protected:
  void SetUp() override {
    ASSERT_EQ(QProcess::execute(
                  "ffmpeg", {"-v", "error", "-nostdin", "-f", "lavfi", "-i", "testsrc2=size=320x256:rate=25:duration=1",
                             "-c:v", "libtheora", Fichier("a.mkv")}),
              0);
    Film_ = Lit(Fichier("a.mkv"));
  }
  // What follows `ou`, which is there once, `apres` bytes behind its beginning.
  void Remplace(const QByteArray& ou, qsizetype apres, const QByteArray& octets) {
    const qsizetype debut = Film_.indexOf(ou);
    ASSERT_GE(debut, 0);
    Film_.replace(debut + apres, octets.size(), octets);
  }
  void ExigeRefus() {
    ASSERT_TRUE(Ecrit(Fichier("b.mkv"), Film_));
    EXPECT_FALSE(Connecte(Fichier("b.mkv")));
  }

  QByteArray Film_;
};

TEST_F(DecodeurEtranger, PlaysWhatTellsASizeThatCanBeHeld) {
  ASSERT_TRUE(Connecte(Fichier("a.mkv")));
  ASSERT_TRUE(SaisitProchaine(*Pilote_));
  EXPECT_EQ(Pilote_->CopieTrame().Taille(), QSize(320, 256));
}

TEST_F(DecodeurEtranger, IsNotAskedForPicturesThatAreToldToBeTooLarge) {
  Remplace(QByteArray::fromHex("b0820140"), 2, QByteArray::fromHex("ffff"));  // Matroska's width
  Remplace(QByteArray::fromHex("ba820100"), 2, QByteArray::fromHex("ffff"));  // and height
  ExigeRefus();
  EXPECT_TRUE(ARefuseLaTaille());
}

TEST_F(DecodeurEtranger, IsNotAskedForPicturesOfWhichNoSizeIsTold) {
  Remplace(QByteArray::fromHex("b0820140"), 0, QByteArray::fromHex("ec820000"));  // nothing
  ExigeRefus();
  EXPECT_TRUE(EstSansDecodeur());
}

}  // namespace
}  // namespace vaktor
