// What stands, since when, in which words of the other side.
#include <gtest/gtest.h>

#include "fakes/virtual_clock.h"
#include "health/watch_health.h"

namespace vaktor {
namespace {

class Sante : public testing::Test {
 protected:
  faux::HorlogeVirtuelle Temps;
  SanteVeille Veille{Temps};
};

TEST_F(Sante, AConditionStandsSinceItsFirstReportWithItsLatestDetail) {
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("full"));
  Temps.Millisecondes = 5000;
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("gone"));
  const QList<ConditionEnCours> liste = Veille.EnCours();
  ASSERT_EQ(liste.size(), 1);
  EXPECT_EQ(liste[0].Quoi, Condition::kPhotosImpossibles);
  EXPECT_EQ(liste[0].Depuis, QDateTime(QDate(2020, 1, 2), QTime(9, 5, 3)));
  EXPECT_EQ(liste[0].Detail, QStringLiteral("gone"));
}

TEST_F(Sante, AConditionThatEndedStandsNoLonger) {
  Veille.Signale(Condition::kSignalPerdu);
  Veille.Signale(Condition::kReglagesNonSauves);
  Veille.Leve(Condition::kSignalPerdu);
  ASSERT_EQ(Veille.EnCours().size(), 1);
  EXPECT_EQ(Veille.EnCours()[0].Quoi, Condition::kReglagesNonSauves);
}

}  // namespace
}  // namespace vaktor
