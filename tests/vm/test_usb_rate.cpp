// SPDX-License-Identifier: GPL-3.0-or-later
// Whether every frame of a USB camera arrives, up to thirty a second at 640x480. Runs inside the virtual machine, whose
// clock is the one that counts here: the camera, the kernel's driver and the program under test all live by it.
#include <algorithm>

#include "vm/usb_fixture.h"

namespace vaktor {
namespace {

struct Compte {
  int Donnees = 0;            ///< whole frames that the camera gave
  int Prises = 0;             ///< frames that the program took
  qint64 PireIntervalle = 0;  ///< ms between two of them
};

class UsbCadence : public UsbPilote {
 protected:
  /// Both ends are moments at which the camera gives nothing and nothing is under way: so no frame is counted on one
  /// side only.
  static Compte CompteImages(PiloteGStreamer& pilote, const FormatCamera& format, int secondes) {
    Compte compte;
    EXPECT_TRUE(Ordonne("stall"));
    PrendJusquAuSilence(pilote, compte);
    compte = {};
    const int avant = ImagesDonnees();
    EXPECT_TRUE(Ordonne("go"));
    PrendPendant(pilote, qint64{secondes} * 1000, compte);
    EXPECT_TRUE(Ordonne("stall"));
    PrendJusquAuSilence(pilote, compte);
    compte.Donnees = ImagesDonnees() - avant;
    EXPECT_TRUE(Ordonne("go"));
    std::printf("measured: %s %dx%d at %d, %d s: %d given, %d taken; longest between two: %lld ms (clock: %s)\n",
                qPrintable(format.Codage), format.Largeur, format.Hauteur, format.CadenceNum, secondes, compte.Donnees,
                compte.Prises, static_cast<long long>(compte.PireIntervalle), qPrintable(HorlogeDeLaMachine()));
    return compte;
  }

 private:
  static void PrendPendant(PiloteGStreamer& pilote, qint64 duree, Compte& compte) {
    QElapsedTimer depuis;
    depuis.start();
    qint64 derniere = -1;
    while (depuis.elapsed() < duree) {
      if (!SaisitProchaine(pilote)) continue;
      const qint64 maintenant = depuis.elapsed();
      if (derniere >= 0) compte.PireIntervalle = std::max(compte.PireIntervalle, maintenant - derniere);
      derniere = maintenant;
      ++compte.Prises;
    }
  }
  /// Shorter than what the driver takes for a lost signal, longer than between two frames of the slowest rate.
  static void PrendJusquAuSilence(PiloteGStreamer& pilote, Compte& compte) {
    QElapsedTimer silence;
    silence.start();
    while (silence.elapsed() < 500) {
      if (!SaisitProchaine(pilote)) continue;
      ++compte.Prises;
      silence.restart();
    }
  }
};

TEST_F(UsbCadence, NoFrameOfASlowCameraIsLost) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  for (const char* codage : {"YUYV", "MJPG"}) {
    const FormatCamera lent = {QString::fromLatin1(codage), 320, 240, 5, 1};
    ASSERT_TRUE(pilote->AppliqueFormat(lent));
    ASSERT_TRUE(AttendImages(*pilote, 5));
    const Compte compte = CompteImages(*pilote, lent, 6);
    EXPECT_GE(compte.Donnees, 6 * 5 - 1);
    EXPECT_EQ(compte.Prises, compte.Donnees);
  }
}

TEST_F(UsbCadence, ThirtyFramesASecondAreHeldAt640By480) {
  const auto pilote = Pilote();
  ASSERT_TRUE(Connecte(*pilote));
  for (const FormatCamera& format : {kYuyv, kMjpg}) {
    ASSERT_TRUE(pilote->AppliqueFormat(format));
    ASSERT_TRUE(AttendImages(*pilote, 10));
    EXPECT_EQ(pilote->FormatCourant(), format);
    const Compte compte = CompteImages(*pilote, format, 10);
    EXPECT_GE(compte.Donnees, 10 * 30 - 1) << "the camera itself did not hold its rate";
    EXPECT_EQ(compte.Prises, compte.Donnees);
    EXPECT_FALSE(pilote->SignalPerdu());
  }
}

}  // namespace
}  // namespace vaktor
