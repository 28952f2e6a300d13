// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "engine/ports/moment.h"
#include "fakes/virtual_clock.h"

namespace vaktor {
namespace {

/// Midnight comes between the question for the day and that for the time.
class HorlogeDeMinuit : public faux::HorlogeVirtuelle {
 public:
  HorlogeDeMinuit() { Debut = QTime(23, 59, 59, 999); }
  QDate DonneDate() const override {
    const QDate date = faux::HorlogeVirtuelle::DonneDate();
    const_cast<HorlogeDeMinuit*>(this)->Millisecondes = 1;
    return date;
  }
};

TEST(Moment, IsOneMomentAlsoOverMidnight) {
  const HorlogeDeMinuit horloge;
  EXPECT_EQ(LitMoment(horloge), QDateTime(QDate(2020, 1, 3), QTime(0, 0)));
}

TEST(Moment, IsDayAndTimeOfTheClock) {
  const faux::HorlogeVirtuelle horloge;
  EXPECT_EQ(LitMoment(horloge), QDateTime(QDate(2020, 1, 2), QTime(9, 5, 3)));
}

}  // namespace
}  // namespace vaktor
