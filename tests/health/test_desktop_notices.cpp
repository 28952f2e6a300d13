// SPDX-License-Identifier: GPL-3.0-or-later
// What is told on the desktop, and how often.
#include "fakes/fake_desktop_notifier.h"
#include "health/desktop_notices.h"
#include "health_bench.h"

namespace vaktor {
namespace {

class Bureau : public BancSante {
 protected:
  Bureau() {
    Reglages.LangueCourante = 1;
    Veille.Observe(Avis);
  }
  QList<faux::NotifieurFaux::Avis> Prend() { return std::exchange(Notifieur.Montres, {}); }

  Parametres Reglages;
  faux::NotifieurFaux Notifieur;
  AvisBureau Avis{Notifieur, Reglages};
};

TEST_F(Bureau, OneNotificationWhenAConditionBeginsAndOneWhenItEnds) {
  Veille.Signale(Condition::kPhotosImpossibles, QStringLiteral("disk full"));
  Temps.Avance(1000);
  const auto debut = Prend();
  ASSERT_EQ(debut.size(), 1);
  EXPECT_EQ(debut[0].Titre, QStringLiteral("Vaktor does not do everything"));
  EXPECT_EQ(debut[0].Texte.section(u'\n', 0, 0), QStringLiteral("Photos cannot be saved (disk full)."));
  EXPECT_EQ(debut[0].Texte.section(u'\n', 1), PhraseFaire(Condition::kPhotosImpossibles, Langue::kAnglais));
  EXPECT_TRUE(debut[0].Pressant);
  Temps.Avance(600'000);
  EXPECT_TRUE(Prend().isEmpty());
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(10000);
  const auto fin = Prend();
  ASSERT_EQ(fin.size(), 1);
  EXPECT_EQ(fin[0].Titre, QStringLiteral("Vaktor: nothing to report any more"));
  EXPECT_FALSE(fin[0].Pressant);
  Temps.Avance(600'000);
  EXPECT_TRUE(Prend().isEmpty());
  EXPECT_FALSE(Tourne());
}

TEST_F(Bureau, InTheLanguageOfTheMoment) {
  Reglages.LangueCourante = 0;
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(6000);
  ASSERT_EQ(Notifieur.Montres.size(), 1);
  EXPECT_EQ(Notifieur.Montres[0].Titre, QStringLiteral("Vaktor ne voit rien"));
}

TEST_F(Bureau, WhatBeginsWithinSecondsIsToldTogetherAndEachAtLeastOnce) {
  Veille.Signale(Condition::kCompagnonMail);
  Temps.Avance(2000);
  EXPECT_EQ(Prend().size(), 1);
  for (const Condition quoi : {Condition::kPeuDePlace, Condition::kPhotosImpossibles, Condition::kSignalPerdu}) {
    Veille.Signale(quoi);
  }
  Temps.Avance(1000);
  EXPECT_TRUE(Prend().isEmpty());
  Temps.Avance(9000);
  const auto dits = Prend();
  ASSERT_EQ(dits.size(), 2) << "two of them at once, and the camera, which counts later";
  EXPECT_EQ(dits[0].Titre, QStringLiteral("Vaktor does not do everything")) << "the worst gives the title";
  EXPECT_EQ(dits[0].Texte, PhraseQuoi(Condition::kPhotosImpossibles, {}, Langue::kAnglais) + u'\n' +
                               PhraseQuoi(Condition::kPeuDePlace, {}, Langue::kAnglais));
  EXPECT_TRUE(dits[1].Texte.startsWith(PhraseQuoi(Condition::kSignalPerdu, {}, Langue::kAnglais)));
}

TEST_F(Bureau, TheWorstGivesTheTitleAlsoWhereItBeganLast) {
  Veille.Signale(Condition::kCompagnonMail);
  Temps.Avance(2000);
  Prend();
  Veille.Signale(Condition::kPeuDePlace);
  Temps.Avance(1000);
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(9000);
  const auto dits = Prend();
  ASSERT_EQ(dits.size(), 1);
  EXPECT_EQ(dits[0].Titre, QStringLiteral("Vaktor does not do everything"));
  EXPECT_TRUE(dits[0].Texte.startsWith(PhraseQuoi(Condition::kPhotosImpossibles, {}, Langue::kAnglais)));
}

TEST_F(Bureau, OneThatEndsWhileItWaitsIsToldAllTheSame) {
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  Veille.Signale(Condition::kReglagesNonSauves);
  Veille.Leve(Condition::kReglagesNonSauves);
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(20000);
  const auto dits = Prend();
  ASSERT_EQ(dits.size(), 3);
  EXPECT_TRUE(dits[1].Texte.startsWith(PhraseQuoi(Condition::kReglagesNonSauves, {}, Langue::kAnglais)));
  EXPECT_EQ(dits[2].Titre, QStringLiteral("Vaktor: nothing to report any more"));
}

TEST_F(Bureau, TheEndIsToldOnlyWhenTheLastHasEnded) {
  Veille.Signale(Condition::kPhotosImpossibles);
  Veille.Signale(Condition::kPeuDePlace);
  Temps.Avance(1000);
  Prend();
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(60000);
  EXPECT_TRUE(Prend().isEmpty());
  Veille.Leve(Condition::kPeuDePlace);
  Temps.Avance(10000);
  EXPECT_EQ(Prend().size(), 1);
}

TEST_F(Bureau, WhatComesAndGoesIsNoStorm) {
  for (int i = 0; i < 20; ++i) {
    Veille.Signale(Condition::kPhotosImpossibles);
    Temps.Avance(2000);
    Veille.Leve(Condition::kPhotosImpossibles);
    Temps.Avance(2000);
  }
  EXPECT_EQ(Prend().size(), 1);
  Temps.Avance(10000);
  EXPECT_EQ(Prend().size(), 1) << "its end";
}

TEST_F(Bureau, WhatComesBackAfterAMinuteIsToldAgainAlthoughANoticeStandsAllTheTime) {
  Veille.Signale(Condition::kVeillePossible);
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(20000);
  Prend();
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(30000);
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(20000);
  EXPECT_TRUE(Prend().isEmpty()) << "it stumbles: no storm";
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(120'000);
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(20000);
  const auto dits = Prend();
  ASSERT_EQ(dits.size(), 1);
  EXPECT_TRUE(dits[0].Texte.startsWith(PhraseQuoi(Condition::kSignalPerdu, {}, Langue::kAnglais)));
}

TEST_F(Bureau, AnEventIsToldAndHasNoEnd) {
  Veille.Signale(Condition::kInterruption, QStringLiteral("7 min"));
  Temps.Avance(1000);
  const auto dits = Prend();
  ASSERT_EQ(dits.size(), 1);
  EXPECT_FALSE(dits[0].Pressant);
  Veille.OublieEvenements();
  Temps.Avance(60000);
  EXPECT_TRUE(Prend().isEmpty());
}

// A machine that slept twice within seconds, and whose user closes the list each time.
TEST_F(Bureau, AnEventThatWasSeenWhileItWaitedIsToldAllTheSame) {
  Veille.Signale(Condition::kInterruption, QStringLiteral("7 min"));
  Temps.Avance(1000);
  Veille.OublieEvenements();
  Prend();
  Veille.Signale(Condition::kInterruption, QStringLiteral("8 min"));
  Temps.Avance(1000);
  Veille.OublieEvenements();
  EXPECT_TRUE(Prend().isEmpty()) << "it is gathered with what may follow";
  Temps.Avance(10000);
  const auto dits = Prend();
  ASSERT_EQ(dits.size(), 1);
  EXPECT_TRUE(dits[0].Texte.contains(QStringLiteral("8 min")));
}

TEST_F(Bureau, TheEndIsToldBehindABeginningThatWaits) {
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  Veille.Signale(Condition::kInterruption, QStringLiteral("7 min"));
  Temps.Avance(4000);  // told five seconds behind the first
  Veille.OublieEvenements();
  Veille.Signale(Condition::kInterruption, QStringLiteral("8 min"));  // waits, and in the meantime it is calm
  Temps.Avance(20000);
  const auto dits = Prend();
  ASSERT_EQ(dits.size(), 4);
  EXPECT_TRUE(dits[1].Texte.contains(QStringLiteral("7 min")));
  EXPECT_TRUE(dits[2].Texte.contains(QStringLiteral("8 min")));
  EXPECT_EQ(dits[3].Titre, QStringLiteral("Vaktor: nothing to report any more"));
}

TEST_F(Bureau, AnEventThatNobodyHasSeenDoesNotHoldBackTheEndOfTheOthers) {
  Veille.Signale(Condition::kInterruption);
  Veille.Signale(Condition::kPhotosImpossibles);
  Temps.Avance(1000);
  Prend();
  Veille.Leve(Condition::kPhotosImpossibles);
  Temps.Avance(10000);
  EXPECT_EQ(Prend().size(), 1);
}

}  // namespace
}  // namespace vaktor
