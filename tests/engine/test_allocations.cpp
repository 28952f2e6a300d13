// SPDX-License-Identifier: GPL-3.0-or-later
// The road of one frame takes no memory. A program of its own: it counts every allocation of the process.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>

#include "engine/engine_fixture.h"

#if defined(__SANITIZE_ADDRESS__)
#define VAKTOR_COMPTE_ALLOCATIONS 0
#else
#define VAKTOR_COMPTE_ALLOCATIONS 1
#endif

#if VAKTOR_COMPTE_ALLOCATIONS

namespace {
std::atomic<long>& NombreAllocations() {
  static std::atomic<long> nombre{0};
  return nombre;
}
}  // namespace

// The C library's own routines under these names: new, Qt's containers and its images all end in them.
extern "C" {
void* __libc_malloc(std::size_t taille);                      // NOLINT(bugprone-reserved-identifier)
void* __libc_calloc(std::size_t nombre, std::size_t taille);  // NOLINT(bugprone-reserved-identifier)
void* __libc_realloc(void* bloc, std::size_t taille);         // NOLINT(bugprone-reserved-identifier)

void* malloc(std::size_t taille) {
  ++NombreAllocations();
  return __libc_malloc(taille);
}
void* calloc(std::size_t nombre, std::size_t taille) {
  ++NombreAllocations();
  return __libc_calloc(nombre, taille);
}
void* realloc(void* bloc, std::size_t taille) {
  ++NombreAllocations();
  return __libc_realloc(bloc, taille);
}
}

#endif

namespace vaktor {
namespace {

class Allocations : public BancEssai {
 protected:
#if VAKTOR_COMPTE_ALLOCATIONS
  static long Compte() { return NombreAllocations().load(); }
#else
  void SetUp() override { GTEST_SKIP() << "the address sanitizer has allocation routines of its own"; }
  static long Compte() { return 0; }
#endif

  /// Two pictures in turn that differ everywhere, so that every branch of a frame is taken.
  void AlterneImages() {
    Pilote.Suivante = [this] {
      Paire_ = !Paire_;
      return Paire_ ? Bleue_ : Noire_;
    };
  }

 private:
  QImage Bleue_ = Unie(qRgb(0, 0, 255), 320, 240);
  QImage Noire_ = Unie(0, 320, 240);
  bool Paire_ = false;
};

TEST_F(Allocations, CounterCounts) {
  const long avant = Compte();
  const std::unique_ptr<int> un = std::make_unique<int>(1);
  const QImage image(10, 10, QImage::Format_RGB32);
  EXPECT_GE(Compte(), avant + 2);
  EXPECT_FALSE(image.isNull());
}

TEST_F(Allocations, AThousandTicksOfAnArmedSystemTakeNoMemory) {
  Reglages.PhotoActif = Reglages.MailActif = Reglages.SonActif = true;
  AlterneImages();
  Engin.BasculeAlarme();
  Live.Actif = true;
  Temps.Avance(20000);
  ASSERT_TRUE(Engin.Alarme().AlarmeArmee);
  const qint32 photos = Actions.Photos;
  const long avant = Compte();
  Temps.Avance(30LL * 1000);
  EXPECT_EQ(Compte(), avant);
  EXPECT_EQ(Actions.Photos, photos + 1000);
}

TEST_F(Allocations, AThousandTicksInPixelModeTakeNoMemory) {
  AlterneImages();
  Engin.BasculeCamera();
  Engin.ChoisitModeZoom(false);
  Temps.Avance(1000);
  const qint32 vues = Affichage.VuesPixel;
  const long avant = Compte();
  Temps.Avance(30LL * 1000);
  EXPECT_EQ(Compte(), avant);
  EXPECT_EQ(Affichage.VuesPixel, vues + 1000);
}

}  // namespace
}  // namespace vaktor
