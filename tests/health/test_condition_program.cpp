// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/fake_user_program.h"
#include "health/condition_program.h"
#include "health_bench.h"

namespace vaktor {
namespace {

class EtatsAnnonces : public BancSante {
 protected:
  EtatsAnnonces() {
    Reglages.LangueCourante = 1;
    Veille.Observe(Annonce);
  }
  /// Of each start the three words between "--etat" and the sentence.
  std::string Prend() {
    QStringList dits;
    for (const QStringList& arguments : std::exchange(Programme.Lancements, {})) {
      EXPECT_EQ(arguments.value(0), "--etat");
      EXPECT_EQ(arguments.size(), 5);
      dits += arguments.mid(1, 3).join(' ');
    }
    return dits.join(", ").toStdString();
  }

  Parametres Reglages;
  faux::ProgrammePersonnelFaux Programme;
  AnnonceEtats Annonce{Programme, Reglages};
};

TEST_F(EtatsAnnonces, TellTheBeginningWithGravityWordAndSentenceAndTheEnd) {
  Veille.Signale(Condition::kPhotosImpossibles, "disk $(full)");
  Temps.Avance(1000);
  ASSERT_EQ(Programme.Lancements.size(), 1);
  EXPECT_EQ(Programme.Lancements[0],
            (QStringList{"--etat", "begin", "lame", "photos-not-written", "Photos cannot be saved (disk $(full))."}));
  EXPECT_EQ(Prend(), "begin lame photos-not-written");
  Temps.Avance(5000);
  EXPECT_EQ(Prend(), "") << "told once";
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "end lame photos-not-written");
}

TEST_F(EtatsAnnonces, SpeakTheLanguageOfTheUserAndKnowBlindAndNotice) {
  Reglages.LangueCourante = 0;
  Veille.Signale(Condition::kPeuDePlace);
  Temps.Avance(1000);
  ASSERT_EQ(Programme.Lancements.size(), 1);
  EXPECT_EQ(Programme.Lancements[0].last(), QString::fromUtf8("Il reste moins de 500 Mo là où vont les photos."));
  EXPECT_EQ(Prend(), "begin notice little-space");
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(60'000);
  EXPECT_EQ(Prend(), "begin blind signal-lost");
}

TEST_F(EtatsAnnonces, ThatComeAndGoAreToldOnceAMinuteAndWhatStandsThenIsNotForgotten) {
  for (int i = 0; i < 20; ++i) {
    Veille.Signale(Condition::kPhotosImpossibles);
    Temps.Avance(1000);
    Veille.Leve(Condition::kPhotosImpossibles);
    Temps.Avance(1000);
  }
  EXPECT_EQ(Prend(), "begin lame photos-not-written, end lame photos-not-written");
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(15'000);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(10'000);
  EXPECT_EQ(Prend(), "begin lame photos-not-written");
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "end lame photos-not-written");
  Temps.Avance(120'000);
  EXPECT_FALSE(Tourne()) << "nothing is left to wait for";
}

TEST_F(EtatsAnnonces, OfWhatHappenedAndIsOverHaveNoEnd) {
  Veille.Signale(Condition::kInterruption, "x");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "begin notice interruption");
  Veille.OublieEvenements();
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "");
}

TEST_F(EtatsAnnonces, OfWhatHappensAgainAreToldAgainThoughNobodyHasSeenTheFirst) {
  Veille.Signale(Condition::kInterruption, "x");
  Temps.Avance(120'000);
  Prend();
  Veille.Signale(Condition::kInterruption, "x, y");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "begin notice interruption");
}

TEST_F(EtatsAnnonces, AreToldASecondLaterWhereThereWasNoMemory) {
  Programme.SansMemoire = true;
  Veille.Signale(Condition::kPhotosImpossibles);
  EXPECT_THROW(Temps.Avance(1000), std::bad_alloc);
  Programme.SansMemoire = false;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "begin lame photos-not-written");
  Programme.SansMemoire = true;
  Veille.Leve(Condition::kPhotosImpossibles);
  EXPECT_THROW(Temps.Avance(1000), std::bad_alloc);
  Programme.SansMemoire = false;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "end lame photos-not-written");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "") << "once";
}

}  // namespace
}  // namespace vaktor
