// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "companions/intrusion_program.h"
#include "fakes/fake_user_program.h"
#include "fakes/virtual_timers.h"

namespace vaktor {
namespace {

class IntrusionAnnoncee : public testing::Test {
 protected:
  /// A frame that acts, with its photo unless there is none.
  void Trame(const QString& photo = {}) {
    if (!photo.isEmpty()) Annonce.NotePhoto(photo);
    Annonce.NoteIntrusion();
  }
  /// Somebody who moves for so long, in each second once.
  void Bouge(int secondes) {
    for (int i = 0; i < secondes; ++i) {
      Temps.Avance(1000);
      Trame();
    }
  }

  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::ProgrammePersonnelFaux Programme;
  AnnonceIntrusion Annonce{{Horloge, Temps, Programme}};
};

TEST_F(IntrusionAnnoncee, StartsTheProgramAtItsFirstFrameWithThePhotoOfThatFrame) {
  Trame("/p/1.jpg");
  EXPECT_EQ(Programme.Lancements, QList<QStringList>{{"/p/1.jpg"}});
  Trame("/p/2.jpg");
  EXPECT_EQ(Programme.Lancements.size(), 1);
}

TEST_F(IntrusionAnnoncee, GoesOnWithOneStartAMinuteAndAllPhotosSoFar) {
  Trame("/p/1.jpg");
  Bouge(59);
  EXPECT_EQ(Programme.Lancements.size(), 1);
  Temps.Avance(999);
  Trame("/p/2.jpg");
  EXPECT_EQ(Programme.Lancements.size(), 1) << "59.999 seconds";
  Temps.Avance(1);
  Trame("/p/3.jpg");
  ASSERT_EQ(Programme.Lancements.size(), 2);
  EXPECT_EQ(Programme.Lancements[1], (QStringList{"/p/1.jpg", "/p/2.jpg", "/p/3.jpg"}));
  Bouge(60);
  EXPECT_EQ(Programme.Lancements.size(), 3);
}

TEST_F(IntrusionAnnoncee, IsOverWhenNothingActedForTenSecondsAndTheNextOneBeginsWithItsOwnPhotos) {
  Trame("/p/1.jpg");
  Temps.Avance(9999);
  Trame("/p/2.jpg");
  EXPECT_EQ(Programme.Lancements.size(), 1) << "the same intrusion";
  Temps.Avance(10'000);
  Trame("/p/3.jpg");
  ASSERT_EQ(Programme.Lancements.size(), 2) << "another one, though no minute has passed";
  EXPECT_EQ(Programme.Lancements[1], QStringList{"/p/3.jpg"});
}

// The counter of the clock comes round after 49.7 days: the difference is then a few milliseconds again.
TEST_F(IntrusionAnnoncee, IsOverAlsoWhenTheNextOneComesAsTheCounterHasComeRound) {
  Trame("/p/1.jpg");
  Temps.Avance((qint64{1} << 32) + 5);
  Trame("/p/2.jpg");
  ASSERT_EQ(Programme.Lancements.size(), 2);
  EXPECT_EQ(Programme.Lancements[1], QStringList{"/p/2.jpg"});
}

TEST_F(IntrusionAnnoncee, RestsBetweenTwoIntrusions) {
  Trame();
  EXPECT_TRUE(Temps.Trouve("FinIntrusion")->EstActive());
  Temps.Avance(11'000);
  EXPECT_FALSE(Temps.Trouve("FinIntrusion")->EstActive());
}

TEST_F(IntrusionAnnoncee, WithoutPhotosHasNoArguments) {
  Trame();
  EXPECT_EQ(Programme.Lancements, QList<QStringList>{QStringList()});
}

TEST_F(IntrusionAnnoncee, HandsOverTheNewestOfVeryManyPhotos) {
  for (int i = 1; i <= AnnonceIntrusion::kPhotosMax + 2; ++i) Annonce.NotePhoto(QString::number(i));
  Trame();
  ASSERT_EQ(Programme.Lancements.size(), 1);
  EXPECT_EQ(Programme.Lancements[0].size(), AnnonceIntrusion::kPhotosMax);
  EXPECT_EQ(Programme.Lancements[0].first(), "3");
  EXPECT_EQ(Programme.Lancements[0].last(), "1002");
}

TEST_F(IntrusionAnnoncee, CostsTheAlarmNothingWhenThereIsNoMemoryForIt) {
  Programme.SansMemoire = true;
  EXPECT_NO_THROW(Trame("/p/1.jpg"));
}

}  // namespace
}  // namespace vaktor
