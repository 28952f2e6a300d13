// SPDX-License-Identifier: GPL-3.0-or-later
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

TEST(Arithmetic, TakesTheSecondFromTheFirst) {
  EXPECT_EQ(AjouteVerifie(40, 2), 42);
  EXPECT_EQ(SoustraitVerifie(40, 2), 38);
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
  EXPECT_EQ(ArrondiPair(-2147483648.4), kMin);
  EXPECT_EQ(NumeroDe([] { ArrondiPair(-2147483649.0); }), kDepassement);
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

TEST(NumberFields, KeepDecimalDigitsAndNothingElse) {
  EXPECT_EQ(GardeChiffres(QStringLiteral("a0 1-2.5,9\u0663\uff17z")), QStringLiteral("01259"));
  EXPECT_EQ(GardeChiffres(QStringLiteral("none")), QString());
}

TEST(NumberFields, WhatDoesNotFitBecomesTheLargestNumberAndTheRestStaysAsItIs) {
  EXPECT_EQ(BorneChiffres(QStringLiteral("2147483648")), QStringLiteral("2147483647"));
  EXPECT_EQ(BorneChiffres(QStringLiteral("2147483646")), QStringLiteral("2147483646"));
  EXPECT_EQ(BorneChiffres(QStringLiteral("007")), QStringLiteral("007"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("99999999999 s"), QStringLiteral("10"), 1), QStringLiteral("2147483647"));
}

TEST(NumberFields, EmptyTakesItsStartValueAndLessThanTheLeastIsOne) {
  EXPECT_EQ(NettoieNombre(QStringLiteral("x"), QStringLiteral("10"), 1), QStringLiteral("10"));
  EXPECT_EQ(NettoieNombre(QString(), QStringLiteral("0"), 0), QStringLiteral("0"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("0"), QStringLiteral("10"), 1), QStringLiteral("1"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("0"), QStringLiteral("10"), 0), QStringLiteral("0"));
  EXPECT_EQ(NettoieNombre(QStringLiteral("01"), QStringLiteral("10"), 1), QStringLiteral("01")) << "as it was typed";
}

}  // namespace
}  // namespace vaktor
