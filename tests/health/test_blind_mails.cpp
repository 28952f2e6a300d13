// SPDX-License-Identifier: GPL-3.0-or-later
// Who is told by mail that the watch is blind: every corner of the rule.
#include "fakes/fake_mail_drop.h"
#include "health/blind_mails.h"
#include "health_bench.h"

namespace vaktor {
namespace {

class ModulesNotes : public CommandesModules {
 public:
  void EnvoiFTP(Commande commande) override { Envois.append(QStringLiteral("FTP:") + DonneMot(commande)); }
  void EnvoiMail(Commande commande) override { Envois.append(QStringLiteral("MAIL:") + DonneMot(commande)); }
  void EnvoiSon(Commande commande) override { Envois.append(QStringLiteral("SON:") + DonneMot(commande)); }
  QStringList Envois;
};

class Courriels : public BancSante {
 protected:
  Courriels() {
    Reglages.MailActif = true;
    Image = QImage(4, 3, QImage::Format_RGB32);
    Veille.Observe(Regle);
  }
  /// The mails since the last call: "+signal-lost -signal-lost".
  std::string Prend() {
    QStringList mots;
    for (const auto& depose : std::exchange(Depot.Deposes, {})) {
      mots.append((depose.Courriel.Fin ? u'-' : u'+') + depose.Courriel.Mot);
    }
    return mots.join(u' ').toStdString();
  }

  Parametres Reglages;
  faux::DepotFaux Depot;
  ModulesNotes Modules;
  bool Armee = true;
  QImage Image;
  CourrielsAveugle Regle{{Depot, Modules, Reglages, [this] { return Armee; }, [this] { return Image; }}};
};

TEST_F(Courriels, OneWhenItHasBeenBlindForAMinuteAndOneWhenItSeesAgain) {
  Veille.Signale(Condition::kSignalPerdu, QStringLiteral("/dev/video0"));
  Temps.Avance(59000);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(1000);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  const CourrielVeille debut = Depot.Deposes[0].Courriel;
  EXPECT_FALSE(debut.Fin);
  EXPECT_EQ(debut.Mot, QStringLiteral("signal-lost"));
  EXPECT_EQ(debut.Depuis, QDateTime(QDate(2020, 1, 2), QTime(9, 5, 3)));
  EXPECT_EQ(debut.Sujet.Dit(Langue::kAnglais), QStringLiteral("Vaktor: the watch sees nothing"));
  EXPECT_EQ(debut.Sujet.Dit(Langue::kFrancais), QStringLiteral("Vaktor : la surveillance ne voit plus rien"));
  EXPECT_TRUE(debut.Texte.Dit(Langue::kAnglais)
                  .startsWith(QStringLiteral(
                      "The camera gives no new pictures (/dev/video0).\nSince: 2 January 2020, 09:05:03\n\n")))
      << debut.Texte.Dit(Langue::kAnglais).toStdString();
  EXPECT_TRUE(debut.Texte.Dit(Langue::kFrancais).contains(QString::fromUtf8("Depuis : 2 janvier 2020 à 09:05:03")));
  EXPECT_EQ(Depot.Deposes[0].Image, Image);
  EXPECT_EQ(Prend(), "+signal-lost");
  Temps.Avance(600'000);
  EXPECT_EQ(Prend(), "");
  Image = QImage(8, 6, QImage::Format_RGB32);
  Image.fill(Qt::red);
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  const CourrielVeille fin = Depot.Deposes[0].Courriel;
  EXPECT_TRUE(fin.Fin);
  EXPECT_EQ(fin.Depuis, debut.Depuis);
  EXPECT_EQ(fin.Jusqua, QDateTime(QDate(2020, 1, 2), QTime(9, 16, 4)));
  EXPECT_EQ(fin.Sujet.Dit(Langue::kAnglais), QStringLiteral("Vaktor: the watch sees again"));
  EXPECT_TRUE(fin.Texte.Dit(Langue::kAnglais).contains(QStringLiteral("Until: 2 January 2020, 09:16:04")))
      << fin.Texte.Dit(Langue::kAnglais).toStdString();
  EXPECT_TRUE(fin.Texte.Dit(Langue::kFrancais).contains(QString::fromUtf8("Jusqu'à : 2 janvier 2020 à 09:16:04")));
  EXPECT_EQ(Depot.Deposes[0].Image, Image) << "what it sees now";
}

TEST_F(Courriels, WhatIsLameOrANoticeSendsNone) {
  for (int i = 0; i < kNombreConditions; ++i) {
    const auto quoi = static_cast<Condition>(i);
    if (DonneGravite(quoi) != Gravite::kAveugle) Veille.Signale(quoi);
  }
  Temps.Avance(300'000);
  EXPECT_EQ(Prend(), "");
}

TEST_F(Courriels, NoneWithoutTheAlarmOrWithoutMails) {
  Armee = false;
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(120'000);
  EXPECT_EQ(Prend(), "");
  Armee = true;
  Reglages.MailActif = false;
  Temps.Avance(120'000);
  EXPECT_EQ(Prend(), "");
}

TEST_F(Courriels, ArmedLaterThanBlindIsToldAtOnceAfterTheMinute) {
  Armee = false;
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(30'000);
  Armee = true;
  Temps.Avance(29'000);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "+signal-lost");
}

TEST_F(Courriels, ArmedWhenItHasBeenBlindForLongIsToldAtTheNextTick) {
  Reglages.MailActif = false;
  Armee = false;
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(600'000);
  Armee = true;
  Reglages.MailActif = true;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "+signal-lost");
}

TEST_F(Courriels, DisarmedBeforeTheMinuteIsOverSendsNoneAndNoEnd) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(40'000);
  Armee = false;
  Temps.Avance(60'000);
  Veille.Leve(Condition::kSignalPerdu);
  Armee = true;
  Temps.Avance(60'000);
  EXPECT_EQ(Prend(), "");
}

TEST_F(Courriels, TheEndAfterTheAlarmWasSwitchedOffDoesNotSayThatItSeesAgain) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(61'000);
  Armee = false;
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  ASSERT_EQ(Depot.Deposes.size(), 2);
  EXPECT_EQ(Depot.Deposes[1].Courriel.Sujet.Dit(Langue::kAnglais),
            QStringLiteral("Vaktor: the alarm is no longer armed"));
  EXPECT_TRUE(Depot.Deposes[1].Courriel.Texte.Dit(Langue::kAnglais).contains(QStringLiteral("nothing is watched")));
}

TEST_F(Courriels, NoEndToWhoHasSwitchedMailsOff) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(61'000);
  EXPECT_EQ(Prend(), "+signal-lost");
  Reglages.MailActif = false;
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  Reglages.MailActif = true;
  Temps.Avance(60'000);
  EXPECT_EQ(Prend(), "");
}

TEST_F(Courriels, TheEndIsToldOnlyIfTheBeginningWas) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(50'000);
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(60'000);
  EXPECT_EQ(Prend(), "");
}

TEST_F(Courriels, NoMoreThanOnePairAnHourAndTheNextOneWhenTheHourIsOver) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(60'000);
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "+signal-lost -signal-lost");
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(120'000);
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "") << "within the hour: neither beginning nor end";
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(3'600'000 - 122'000 - 1000);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(2000);
  EXPECT_EQ(Prend(), "+signal-lost") << "it is still blind when the hour is over";
}

// Behind the hour of the mail, and with nothing wrong any more, nobody else keeps the ticks going.
TEST_F(Courriels, AnEndThatIsRefusedLateIsTriedAgainAllTheSame) {
  for (const bool repondTard : {false, true}) {
    Veille.Signale(Condition::kSignalPerdu);
    Temps.Avance(61'000);
    Depot.Repond(true);
    Temps.Avance(2 * CourrielsAveugle::kPauseMs);
    Veille.Leve(Condition::kSignalPerdu);
    Temps.Avance(1000);
    EXPECT_EQ(Prend(), "+signal-lost -signal-lost") << repondTard;
    if (repondTard) Temps.Avance(5000);
    Depot.Repond(false);
    Temps.Avance(40'000);
    EXPECT_EQ(Prend(), "-signal-lost") << repondTard;
    Depot.Repond(true);
    Temps.Avance(10'000);
  }
}

TEST_F(Courriels, TheHourIsCountedAlsoWhileAllIsWell) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(60'000);
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  Depot.Repond(true);
  Depot.Repond(true);
  Temps.Avance(3'598'000);
  EXPECT_TRUE(Tourne());
  Temps.Avance(1000);
  EXPECT_FALSE(Tourne()) << "nothing is left to be counted";
  EXPECT_EQ(Prend(), "+signal-lost -signal-lost");
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(60'000);
  EXPECT_EQ(Prend(), "+signal-lost");
}

TEST_F(Courriels, TwoConditionsAtOnceAreToldApartAndTheFirstEndDoesNotSayThatItSees) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(10'000);
  Veille.Signale(Condition::kDetectionArretee);
  Temps.Avance(50'000);
  EXPECT_EQ(Prend(), "+signal-lost");
  Temps.Avance(10'000);
  EXPECT_EQ(Prend(), "+detection-stopped");
  Veille.Leve(Condition::kSignalPerdu);
  Temps.Avance(1000);
  ASSERT_EQ(Depot.Deposes.size(), 1);
  EXPECT_EQ(Depot.Deposes[0].Courriel.Sujet.Dit(Langue::kAnglais),
            QStringLiteral("Vaktor: one fault is over, another goes on"));
  EXPECT_EQ(Prend(), "-signal-lost");
  Veille.Leve(Condition::kDetectionArretee);
  Temps.Avance(1000);
  EXPECT_EQ(Depot.Deposes[0].Courriel.Sujet.Dit(Langue::kAnglais), QStringLiteral("Vaktor: the watch sees again"));
  EXPECT_EQ(Prend(), "-detection-stopped");
}

TEST_F(Courriels, TwoThatEndTogetherBothSayThatItSees) {
  Veille.Signale(Condition::kSignalPerdu);
  Veille.Signale(Condition::kDetectionArretee);
  Temps.Avance(60'000);
  Prend();
  Veille.Leve(Condition::kSignalPerdu);
  Veille.Leve(Condition::kDetectionArretee);
  Temps.Avance(1000);
  ASSERT_EQ(Depot.Deposes.size(), 2);
  for (const auto& depose : Depot.Deposes) {
    EXPECT_EQ(depose.Courriel.Sujet.Dit(Langue::kAnglais), QStringLiteral("Vaktor: the watch sees again"));
  }
}

TEST_F(Courriels, TheCompanionIsCalledWhenTheMailIsWholeAndNotBefore) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(60'000);
  EXPECT_TRUE(Modules.Envois.isEmpty());
  Depot.Repond(true);
  EXPECT_EQ(Modules.Envois, QStringList{QStringLiteral("MAIL:Veill")});
}

TEST_F(Courriels, AMailThatCouldNotBeLaidDownIsTriedAgain) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(60'000);
  Depot.Repond(false);
  EXPECT_TRUE(Modules.Envois.isEmpty());
  EXPECT_EQ(Prend(), "+signal-lost");
  Temps.Avance(29'000);
  EXPECT_EQ(Prend(), "");
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "+signal-lost");
  Depot.Repond(true);
  EXPECT_EQ(Modules.Envois.size(), 1);
  Temps.Avance(120'000);
  EXPECT_EQ(Prend(), "");
}

TEST_F(Courriels, AnAnswerThatComesAfterTheRuleHasGoneTouchesNothing) {
  auto regle = std::make_unique<CourrielsAveugle>(
      PortsCourrielsAveugle{Depot, Modules, Reglages, [] { return true; }, [] { return QImage(); }});
  regle->Commence({Condition::kSignalPerdu, QDateTime(), {}, 0});
  regle->Tic(60'000);
  ASSERT_EQ(Depot.Attendent.size(), 1);
  regle.reset();
  Depot.Repond(true);
  EXPECT_TRUE(Modules.Envois.isEmpty());
}

TEST_F(Courriels, WithoutMemoryNoneIsForgotten) {
  Veille.Signale(Condition::kSignalPerdu);
  Temps.Avance(59'000);
  Depot.SansMemoire = true;
  EXPECT_THROW(Temps.Avance(1000), std::bad_alloc);
  Depot.SansMemoire = false;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "+signal-lost") << "the beginning";
  Depot.Repond(false);
  Depot.SansMemoire = true;
  Temps.Avance(29'000);
  EXPECT_THROW(Temps.Avance(1000), std::bad_alloc);
  Depot.SansMemoire = false;
  Temps.Avance(CourrielsAveugle::kReessaiMs);
  EXPECT_EQ(Prend(), "+signal-lost") << "one that had been refused";
  Depot.Repond(true);
  Veille.Leve(Condition::kSignalPerdu);
  Depot.SansMemoire = true;
  EXPECT_THROW(Temps.Avance(1000), std::bad_alloc);
  Depot.SansMemoire = false;
  Temps.Avance(1000);
  EXPECT_EQ(Prend(), "-signal-lost") << "the end";
  Depot.Repond(true);
  Temps.Avance(CourrielsAveugle::kPauseMs);
  EXPECT_FALSE(Tourne()) << "none counts as under way for ever";
}

TEST_F(Courriels, OfSeveralThatWereRefusedNoneIsLostWithTheOneThatFindsNoMemory) {
  Veille.Signale(Condition::kSignalPerdu);
  Veille.Signale(Condition::kDetectionArretee);
  Temps.Avance(60'000);
  Prend();
  Depot.Repond(false);
  Depot.Repond(false);
  Temps.Avance(29'000);
  Depot.SansMemoire = true;
  EXPECT_THROW(Temps.Avance(1000), std::bad_alloc);
  Depot.SansMemoire = false;
  Temps.Avance(CourrielsAveugle::kReessaiMs);
  EXPECT_EQ(Depot.Deposes.size(), 2);
}

}  // namespace
}  // namespace vaktor
