// SPDX-License-Identifier: GPL-3.0-or-later
// Questions to one file, one behind the other, with a disk that may not answer.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <atomic>
#include <future>
#include <stdexcept>
#include <string>

#include "platform/folders/work_in_turn.h"

namespace vaktor {
namespace {

/// Work that comes back when the test lets it.
class Pendue {
 public:
  std::function<int()> Travail() {
    return [attend = Attend_] {
      attend.wait();
      return 1;
    };
  }
  void Lache() { Fin_.set_value(); }

 private:
  std::promise<void> Fin_;
  std::shared_future<void> Attend_{Fin_.get_future()};
};

TEST(TravauxEnFile, GivesWhatTheWorkGives) {
  const TravauxEnFile travaux;
  EXPECT_EQ(travaux.Attend<int>([] { return 42; }), 42);
  EXPECT_EQ(travaux.Attend<std::string>([] { return std::string("a"); }), "a");
}

TEST(TravauxEnFile, WhatThrowsGivesNothingAndLetsTheNextOneIn) {
  const TravauxEnFile travaux;
  EXPECT_EQ(travaux.Attend<int>([]() -> int { throw std::runtime_error("no memory"); }), std::nullopt);
  EXPECT_EQ(travaux.Attend<int>([] { return 7; }), 7);
}

TEST(TravauxEnFile, NothingOvertakesWhatHangsAlsoNotThroughACopy) {
  const TravauxEnFile travaux;
  const TravauxEnFile copie = travaux;  // NOLINT(performance-unnecessary-copy-initialization): it is what is tried
  Pendue pendue;
  EXPECT_EQ(travaux.Attend<int>(pendue.Travail()), std::nullopt);
  const auto faits = std::make_shared<std::atomic<int>>(0);
  const auto compte = [faits] { return ++*faits; };
  EXPECT_EQ(travaux.Attend<int>(compte), std::nullopt);
  EXPECT_EQ(copie.Attend<int>(compte), std::nullopt);
  EXPECT_EQ(*faits, 0) << "nor later";
  pendue.Lache();
  std::optional<int> rendu;
  for (int i = 0; i < 100 && !rendu; ++i) rendu = copie.Attend<int>(compte);
  EXPECT_EQ(rendu, 1);
}

// The window asks more than once in a start.
TEST(TravauxEnFile, OnceADiskIsKnownToBeSilentTheQuestionsWaitForAMomentOnly) {
  const TravauxEnFile travaux;
  Pendue pendue;
  EXPECT_EQ(travaux.Attend<int>(pendue.Travail()), std::nullopt);
  QElapsedTimer temps;
  temps.start();
  for (int i = 0; i < 20; ++i) EXPECT_EQ(travaux.Attend<int>([] { return 1; }), std::nullopt);
  EXPECT_LT(temps.elapsed(), 20 * TravauxEnFile::kPatience.count() * 3 / 4);
  pendue.Lache();
}

// Three tries: a busy machine may hold up one of them.
TEST(TravauxEnFile, TheFirstQuestionBehindASilentOneKnowsThatTheDiskIsSilent) {
  bool bref = false;
  for (int essai = 0; essai < 3 && !bref; ++essai) {
    const TravauxEnFile travaux;
    Pendue pendue;
    EXPECT_EQ(travaux.Attend<int>(pendue.Travail()), std::nullopt);
    QElapsedTimer temps;
    temps.start();
    EXPECT_EQ(travaux.Attend<int>([] { return 1; }), std::nullopt);
    bref = temps.elapsed() < TravauxEnFile::kPatience.count();
    pendue.Lache();
  }
  EXPECT_TRUE(bref);
}

}  // namespace
}  // namespace vaktor
