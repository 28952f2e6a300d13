#include <gtest/gtest.h>

#include <limits>

#include "base/failure.h"
#include "base/numbers.h"

namespace vaktor {
namespace {

constexpr qint32 kMax = std::numeric_limits<qint32>::max();
constexpr qint32 kMin = std::numeric_limits<qint32>::min();

int NumeroDe(const std::function<void()>& action) {
  try {
    action();
  } catch (const Echec& echec) {
    return echec.Numero();
  }
  return 0;
}

TEST(Arithmetic, FitsUpToTheLastValue) {
  EXPECT_EQ(AjouteVerifie(kMax, 0), kMax);
  EXPECT_EQ(SoustraitVerifie(kMin, 0), kMin);
}

TEST(Arithmetic, FailsOneStepBeyond) {
  EXPECT_EQ(NumeroDe([] { AjouteVerifie(kMax, 1); }), kDepassement);
  EXPECT_EQ(NumeroDe([] { SoustraitVerifie(kMin, 1); }), kDepassement);
}

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(ArrondiPair(0.5), 0);
  EXPECT_EQ(ArrondiPair(1.5), 2);
  EXPECT_EQ(ArrondiPair(2.5), 2);
  EXPECT_EQ(ArrondiPair(3.5), 4);
  EXPECT_EQ(ArrondiPair(-0.5), 0);
  EXPECT_EQ(ArrondiPair(-1.5), -2);
  EXPECT_EQ(ArrondiPair(2.4999), 2);
  EXPECT_EQ(ArrondiPair(-2.6), -3);
}

TEST(Rounding, FailsOutsideThirtyTwoBits) {
  EXPECT_EQ(ArrondiPair(2147483647.4), kMax);
  EXPECT_EQ(NumeroDe([] { ArrondiPair(2147483648.0); }), kDepassement);
  EXPECT_EQ(NumeroDe([] { ArrondiPair(std::numeric_limits<double>::quiet_NaN()); }), kDepassement);
}

TEST(TextToInteger, TakesNumbersAndRefusesTheRest) {
  EXPECT_EQ(TexteEnEntier(QStringLiteral(" 42 ")), 42);
  EXPECT_EQ(TexteEnEntier(QStringLiteral("-7")), -7);
  EXPECT_EQ(TexteEnEntier(QStringLiteral("2.5")), 2);
  EXPECT_EQ(NumeroDe([] { TexteEnEntier(QString()); }), kTypeIncompatible);
  EXPECT_EQ(NumeroDe([] { TexteEnEntier(QStringLiteral("12a")); }), kTypeIncompatible);
  EXPECT_EQ(NumeroDe([] { TexteEnEntier(QStringLiteral("3000000000")); }), kDepassement);
}

TEST(DigitsToInteger, ClampsAtTheLargestValue) {
  EXPECT_EQ(ChiffresEnEntierBorne(QString()), 0);
  EXPECT_EQ(ChiffresEnEntierBorne(QStringLiteral("2147483647")), kMax);
  EXPECT_EQ(ChiffresEnEntierBorne(QStringLiteral("2147483648")), kMax);
  EXPECT_EQ(ChiffresEnEntierBorne(QString(100000, u'9')), kMax);
}

}  // namespace
}  // namespace vaktor
