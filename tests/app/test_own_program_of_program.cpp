// SPDX-License-Identifier: GPL-3.0-or-later
// The program of the user's own in the whole program: what starts it, with what.
#include "app/alarm_fixture.h"

namespace vaktor::essai {
namespace {

class ProgrammePersonnelDuProgramme : public AlarmeSurFaux {
 protected:
  /// The starts so far: those of intrusions, or those that tell of the watch.
  QList<QStringList> Prend(bool etats = false) {
    QList<QStringList> lancements = std::exchange(Systeme.Personnel.Lancements, {});
    lancements.removeIf([etats](const QStringList& a) { return (a.value(0) == "--etat") != etats; });
    return lancements;
  }
  /// The photos of the user that the last alarm has written, in their order.
  QStringList PhotosEcrites() {
    QStringList photos;
    for (const QString& ligne : Systeme.DepuisVide())
      if (ligne.startsWith("jpeg: ") && ligne.contains("intrus")) photos += ligne.mid(6).replace('\\', '/');
    return photos;
  }
};

TEST_F(ProgrammePersonnelDuProgramme, AnAlarmStartsItWithItsFirstPhotoAndAMinuteLaterWithAllOfThem) {
  ArmeEtBouge("");
  EXPECT_TRUE(Prend().isEmpty()) << "nobody is armed";
  Clique("Bouton(1)");
  Systeme.Notes.Vide();
  Systeme.Temps.Avance(1000 + 61'000);
  const QStringList photos = PhotosEcrites();
  const QList<QStringList> lancements = Prend();
  ASSERT_EQ(lancements.size(), 2);
  EXPECT_EQ(lancements[0], photos.mid(0, 1));
  EXPECT_TRUE(lancements[0].first().startsWith("/home/u/v/intrus/2020-01-02  ")) << "a path that a program can open";
  EXPECT_GT(lancements[1].size(), 900);
  EXPECT_EQ(lancements[1].last(), photos.value(photos.indexOf(lancements[1].first()) + lancements[1].size() - 1));
}

TEST_F(ProgrammePersonnelDuProgramme, CopiesForThePageAreNotHandedToIt) {
  DonneSite();
  ArmeEtBouge("/alarm /surve", false);
  OuvreLaPage();
  Systeme.Temps.Avance(120'000);
  const QList<QStringList> lancements = Prend();
  EXPECT_GE(lancements.size(), 2);
  for (const QStringList& arguments : lancements) EXPECT_TRUE(arguments.isEmpty()) << arguments.join(' ').toStdString();
}

TEST_F(ProgrammePersonnelDuProgramme, IsToldOfTheWatchToo) {
  ArmeEtBouge();
  Prend();
  Systeme.Ecrivain.Erreur = ENOSPC;
  Systeme.Temps.Avance(2000);
  const QList<QStringList> etats = Prend(true);
  ASSERT_EQ(etats.size(), 1);
  EXPECT_EQ(etats[0].mid(1, 3), (QStringList{"begin", "lame", "photos-not-written"}));
  Systeme.Ecrivain.Erreur = 0;
  Systeme.Temps.Avance(3000);
  const QList<QStringList> fins = Prend(true);
  ASSERT_EQ(fins.size(), 1);
  EXPECT_EQ(fins[0].mid(1, 3), (QStringList{"end", "lame", "photos-not-written"}));
}

TEST_F(ProgrammePersonnelDuProgramme, AFullDiskDoesNotKeepAnIntrusionFromIt) {
  Systeme.Ecrivain.Erreur = ENOSPC;
  ArmeEtBouge();
  const QList<QStringList> lancements = Prend();
  ASSERT_FALSE(lancements.isEmpty());
  EXPECT_EQ(lancements.first(), QStringList()) << "the very first frame, without a photo";
}

}  // namespace
}  // namespace vaktor::essai
