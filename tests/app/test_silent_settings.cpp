// SPDX-License-Identifier: GPL-3.0-or-later
// The real system behind the ports: what of it must not hold the window.
#include <QElapsedTimer>

#include "app/real_system.h"
#include "base/failure.h"
#include "support/volatile_disk_bench.h"

namespace vaktor {
namespace {

using ReglagesSurDisqueMuet = SurDisqueVolatil;

TEST_F(ReglagesSurDisqueMuet, ASaveDoesNotHoldTheWindowForLongerThanTwoSeconds) {
  ArgumentsDepart arguments;
  arguments.Dossier = Chemin();
  SystemeReel systeme(arguments);
  const std::unique_ptr<MagasinReglages> magasin = systeme.Ports().OuvreMagasin();
  magasin->EcritReglage(QStringLiteral("general"), QStringLiteral("langue"), QStringLiteral("1"));
  magasin->Vide();
  ASSERT_TRUE(Disque->SeTait());
  QElapsedTimer temps;
  temps.start();
  EXPECT_THROW(magasin->Vide(), Echec);
  EXPECT_LT(temps.elapsed(), 2000);
  ASSERT_TRUE(Disque->Repond());
}

}  // namespace
}  // namespace vaktor
