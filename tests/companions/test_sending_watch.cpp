// SPDX-License-Identifier: GPL-3.0-or-later
// Mails that wait and a live page that grows old, in virtual time.
#include <gtest/gtest.h>

#include "companions/sending_watch.h"
#include "fakes/fake_companion_status.h"
#include "fakes/fake_health_report.h"
#include "fakes/virtual_timers.h"

namespace vaktor::essai {
namespace {

constexpr qint64 kMinute = 60'000;

struct Suivi : testing::Test {
  Parametres Reglages;
  EtatLiaison Liaison{.HandleFTP = 11, .HandleMail = 22, .HandleSon = 33};
  faux::HorlogeVirtuelle Horloge;
  faux::TempsVirtuel Temps{Horloge};
  faux::LecteurEtatsFaux Lecteur;
  faux::SanteFausse Sante;
  bool Absent = false;  // the companions have ended, or take nothing
  std::unique_ptr<SuiviEnvois> Regard = Cree();

  std::unique_ptr<SuiviEnvois> Cree() {
    return std::make_unique<SuiviEnvois>(
        PortsEnvois{Reglages, Liaison, Horloge, Temps, Lecteur, Sante, [this](Compagnon) { return !Absent; }});
  }
  bool Attendent() const { return Sante.Dure(Condition::kCourrielsEnAttente); }
  bool Vieille() const { return Sante.Dure(Condition::kPageAncienne); }
  /// Time goes by, and what the companions wrote grows older with it.
  void Avance(qint64 duree) {
    for (qint64 t = 0; t < duree; t += 1000) {
      Temps.Avance(1000);
      for (std::optional<qint64>* age :
           {&Lecteur.Etats.Mail.Attente, &Lecteur.Etats.Mail.AttentePush, &Lecteur.Etats.Ftp.Publie})
        if (*age) *age = **age + 1000;
    }
  }
  void AllumeMail() {
    Reglages.MailActif = true;
    Lecteur.Etats.Mail.Poignee = 22;
  }
  void AllumeLive() {
    Liaison.SurveillanceEnCours = true;
    Lecteur.Etats.Ftp.Poignee = 11;
  }
};

TEST_F(Suivi, MailsThatWaitForFiveMinutesAreReportedInTheServersWords) {
  AllumeMail();
  Lecteur.Etats.Mail.Attente = 0;
  Lecteur.Etats.Mail.MotsServeur = "451 later";
  Avance(5 * kMinute);
  EXPECT_FALSE(Attendent());
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(Attendent());
  EXPECT_EQ(Sante.Details[Condition::kCourrielsEnAttente], "451 later");
  Lecteur.Etats.Mail.Attente.reset();
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Attendent());
}

TEST_F(Suivi, PushesThatWaitForFiveMinutesAreReportedUntilTheyLeave) {
  const auto attendent = [this] { return Sante.Dure(Condition::kPushEnAttente); };
  AllumeMail();
  Lecteur.Etats.Mail.AttentePush = 0;
  Lecteur.Etats.Mail.MotsPush = "HTTP 503: later";
  Avance(5 * kMinute);
  EXPECT_FALSE(attendent());
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(attendent());
  EXPECT_EQ(Sante.Details[Condition::kPushEnAttente], "HTTP 503: later");
  EXPECT_FALSE(Attendent()) << "the mails have left";
  Lecteur.Etats.Mail.AttentePush.reset();
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(attendent());
  Lecteur.Etats.Mail.AttentePush = 60 * kMinute;
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(attendent());
  Reglages.MailActif = false;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(attendent()) << "nobody wants any";
}

TEST_F(Suivi, OneThatWaitsSinceYesterdayIsReportedAtTheFirstLook) {
  AllumeMail();
  Lecteur.Etats.Mail.Attente = 1440 * kMinute;
  Avance(SuiviEnvois::kRegard);
  EXPECT_TRUE(Attendent());
}

// What the file says stays the same; only what a clock that was set back makes of it is always young.
TEST_F(Suivi, AClockThatWasSetBackMakesNothingYoungAgain) {
  AllumeMail();
  AllumeLive();
  EtatsCompagnons& etats = Lecteur.Etats;
  etats.Mail.AttenteDite = etats.Mail.AttentePushDite = etats.Ftp.PublieDit = "2026-11-22T12:00:00Z";
  const auto lit = [&](qint64 duree) {
    for (qint64 t = 0; t < duree; t += SuiviEnvois::kRegard) {
      etats.Mail.Attente = etats.Mail.AttentePush = etats.Ftp.Publie = 0;
      Temps.Avance(SuiviEnvois::kRegard);
    }
  };
  lit(6 * kMinute);
  EXPECT_TRUE(Attendent());
  EXPECT_TRUE(Sante.Dure(Condition::kPushEnAttente));
  EXPECT_TRUE(Vieille());
  etats.Mail.AttenteDite = etats.Mail.AttentePushDite = etats.Ftp.PublieDit = "2026-11-22T12:06:00Z";
  lit(SuiviEnvois::kRegard);
  EXPECT_FALSE(Attendent() || Vieille() || Sante.Dure(Condition::kPushEnAttente))
      << "another one waits, or was published";
  lit(6 * kMinute);
  EXPECT_TRUE(Attendent());
  Reglages.MailActif = false;
  lit(SuiviEnvois::kRegard);
  Reglages.MailActif = true;
  lit(SuiviEnvois::kRegard);
  EXPECT_FALSE(Attendent()) << "switched on again it is read anew";
}

TEST_F(Suivi, AFileOfAnEarlierCompanionIsNoNews) {
  AllumeMail();
  AllumeLive();
  Lecteur.Etats.Mail = {.Poignee = 99, .Attente = 1440 * kMinute, .Publie = {}, .MotsServeur = {}};
  Lecteur.Etats.Ftp = {.Poignee = 99, .Attente = {}, .Publie = 1440 * kMinute, .MotsServeur = {}};
  Avance(60 * kMinute);
  EXPECT_FALSE(Attendent());
  EXPECT_FALSE(Vieille());
  Liaison.HandleMail = Liaison.HandleFTP = 0;
  Lecteur.Etats.Mail.Poignee = Lecteur.Etats.Ftp.Poignee = 0;
  Avance(60 * kMinute);
  EXPECT_FALSE(Attendent() || Vieille()) << "no file, and nobody registered";
}

TEST_F(Suivi, WhatACompanionSaidGoesOnAgeingWhenItDiesOrItsDiskIsSilent) {
  AllumeMail();
  AllumeLive();
  Lecteur.Etats.Mail.Attente = 0;
  Lecteur.Etats.Ftp.Publie = 0;
  Avance(SuiviEnvois::kRegard);
  Lecteur.Muet = true;
  Avance(5 * kMinute);
  EXPECT_TRUE(Attendent());
  EXPECT_TRUE(Vieille());
}

TEST_F(Suivi, ACompanionThatWasStartedAgainIsBelievedOnceItHasRegistered) {
  AllumeMail();
  Lecteur.Etats.Mail.Attente = 6 * kMinute;
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(Attendent());
  Lecteur.Etats.Mail = {.Poignee = 44, .Attente = {}, .Publie = {}, .MotsServeur = {}};
  Avance(SuiviEnvois::kRegard);
  EXPECT_TRUE(Attendent());
  Liaison.HandleMail = 44;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Attendent());
}

TEST_F(Suivi, NothingIsReportedNorReadWhileMailLivePageAndSoundAreOff) {
  Lecteur.Etats.Mail = {.Poignee = 22, .Attente = 60 * kMinute, .Publie = {}, .MotsServeur = {}};
  Lecteur.Etats.Ftp = {.Poignee = 11, .Attente = {}, .Publie = 60 * kMinute, .MotsServeur = {}};
  Reglages.SonActif = false;
  Avance(10 * kMinute);
  EXPECT_FALSE(Attendent() || Vieille());
  EXPECT_EQ(Lecteur.Demandes, 0);
  Reglages.MailActif = true;
  Liaison.SurveillanceEnCours = true;
  Avance(10 * kMinute);
  EXPECT_TRUE(Attendent() && Vieille());
  Reglages.MailActif = false;
  Liaison.SurveillanceEnCours = false;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Attendent() || Vieille());
}

TEST_F(Suivi, ThePageIsOldAfterThreeIntervalsAndHalfAMinute) {
  AllumeLive();
  Reglages.IntervalleFtp = "20";
  Lecteur.Etats.Ftp.MotsServeur = "552 full";
  Avance(SuiviEnvois::kRegard);
  Lecteur.Etats.Ftp.Publie = 0;
  Avance(90'000);
  EXPECT_FALSE(Vieille());
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(Vieille());
  EXPECT_EQ(Sante.Details[Condition::kPageAncienne], "552 full");
  Lecteur.Etats.Ftp.Publie = 0;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Vieille());
}

TEST_F(Suivi, AnIntervalWithACommaCountsAndOneThatIsNoNumberIsTenSeconds) {
  for (const auto& [texte, age] : {std::pair("0,5", 31'500), std::pair("abc", 60'000), std::pair("", 60'000)}) {
    Reglages.IntervalleFtp = texte;
    AllumeLive();
    Avance(2 * kMinute);  // long since on
    Lecteur.Etats.Ftp.Publie = age - SuiviEnvois::kRegard;
    Temps.Avance(SuiviEnvois::kRegard);
    Lecteur.Etats.Ftp.Publie = age;
    Temps.Avance(SuiviEnvois::kRegard);
    EXPECT_FALSE(Vieille()) << texte;
    Lecteur.Etats.Ftp.Publie = age + 1;
    Temps.Avance(SuiviEnvois::kRegard);
    EXPECT_TRUE(Vieille()) << texte;
    Liaison.SurveillanceEnCours = false;
    Temps.Avance(SuiviEnvois::kRegard);
  }
}

TEST_F(Suivi, APageThatHasJustBeenSwitchedOnHasItsTime) {
  AllumeLive();
  Lecteur.Etats.Ftp.Publie = 1440 * kMinute;  // yesterday's, as long as nothing newer has come
  Avance(60'000);
  EXPECT_FALSE(Vieille());
  Avance(qint64{2} * SuiviEnvois::kRegard);
  EXPECT_TRUE(Vieille());
}

TEST_F(Suivi, APageThatNeverGotAnImageGrowsOldToo) {
  AllumeLive();
  Avance(60'000 + 2 * SuiviEnvois::kRegard);
  EXPECT_TRUE(Vieille());
}

TEST_F(Suivi, AnotherCompanionThatHasPublishedNothingDoesNotMakeThePageYoung) {
  AllumeLive();
  Lecteur.Etats.Ftp.Publie = 0;
  Avance(50'000);
  Lecteur.Etats.Ftp = {.Poignee = 55, .Attente = {}, .Publie = {}, .MotsServeur = {}};
  Liaison.HandleFTP = 55;
  Avance(45'000);
  EXPECT_TRUE(Vieille());
}

TEST_F(Suivi, AMonthAloneChangesNothing) {
  AllumeMail();
  AllumeLive();
  for (qint64 jour = 0; jour < 60; ++jour) {
    Lecteur.Etats.Ftp.Publie = 0;
    Temps.Avance(qint64{24} * 60 * kMinute);
    ASSERT_FALSE(Vieille() || Attendent()) << jour;
  }
  Lecteur.Etats.Mail.Attente = 0;
  Avance(6 * kMinute);
  EXPECT_TRUE(Attendent());
  EXPECT_TRUE(Vieille());
}

/// A companion that cannot write its status file: nobody knows what becomes of its mails.
struct Nouvelles : Suivi {
  bool Inconnus() const { return Sante.Dure(Condition::kEnvoisInconnus); }
  QString Qui() const { return Sante.Details.value(Condition::kEnvoisInconnus); }
  /// Signs of life as ours give them.
  void AvanceEnVie(qint64 duree) {
    for (qint64 t = 0; t < duree; t += kMinute) {
      Lecteur.Etats.Mail.Battement = Lecteur.Etats.Ftp.Battement = QString::number(++Battements);
      Avance(kMinute);
    }
  }
  int Battements = 0;
};

TEST_F(Nouvelles, OfAMissingFileItIsToldAfterThreeMinutes) {
  Reglages.MailActif = true;
  Avance(SuiviEnvois::kSansNouvelles);
  EXPECT_FALSE(Inconnus());
  Avance(qint64{2} * SuiviEnvois::kRegard);
  EXPECT_TRUE(Inconnus());
  EXPECT_EQ(Qui(), "VAKTORmail");
  EXPECT_FALSE(Attendent());
  AllumeMail();
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Inconnus());
}

TEST_F(Nouvelles, AFileOfAnEarlierCompanionIsNone) {
  AllumeMail();
  AllumeLive();
  Lecteur.Etats.Mail.Poignee = Lecteur.Etats.Ftp.Poignee = 99;
  AvanceEnVie(5 * kMinute);
  EXPECT_EQ(Qui(), "VAKTORmail, VAKTORftp");
}

TEST_F(Nouvelles, AFileThatSaysTheSameOfItsLifeForMinutesIsNone) {
  AllumeMail();
  AllumeLive();
  AvanceEnVie(1440 * kMinute);
  EXPECT_FALSE(Inconnus());
  Avance(SuiviEnvois::kSansNouvelles - kMinute);
  EXPECT_FALSE(Inconnus()) << "the last sign is a minute old";
  Avance(kMinute + qint64{2} * SuiviEnvois::kRegard);
  EXPECT_TRUE(Inconnus());
  Lecteur.Etats.Mail.Battement = QStringLiteral("again");
  Avance(SuiviEnvois::kRegard);
  EXPECT_EQ(Qui(), "VAKTORftp");
}

TEST_F(Nouvelles, OneThatSaysNothingOfItsLifeLivesAsLongAsItsFileIsThere) {
  AllumeMail();
  Avance(60 * kMinute);
  EXPECT_FALSE(Inconnus());
}

TEST_F(Nouvelles, ADiskThatDoesNotAnswerGivesNoNewsEither) {
  AllumeMail();
  AvanceEnVie(10 * kMinute);
  Lecteur.Muet = true;
  AvanceEnVie(4 * kMinute);
  EXPECT_TRUE(Inconnus());
}

TEST_F(Nouvelles, ACompanionThatIsAwayIsToldAsThatAndHasItsTimeWhenItIsBack) {
  AllumeMail();
  Lecteur.Etats.Mail.Poignee = 99;
  Absent = true;
  AvanceEnVie(60 * kMinute);
  EXPECT_FALSE(Inconnus());
  Absent = false;
  AvanceEnVie(3 * kMinute);
  EXPECT_FALSE(Inconnus());
  AvanceEnVie(kMinute);
  EXPECT_TRUE(Inconnus());
  Absent = true;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Inconnus());
}

TEST_F(Nouvelles, NoneAreMissedWhileMailAndLivePageAreOffOrNobodyHasRegistered) {
  Avance(60 * kMinute);
  EXPECT_FALSE(Inconnus());
  Liaison.HandleMail = Liaison.HandleFTP = 0;
  Reglages.MailActif = true;
  Liaison.SurveillanceEnCours = true;
  Avance(60 * kMinute);
  EXPECT_FALSE(Inconnus());
  Liaison.HandleMail = 22;
  Avance(4 * kMinute);
  EXPECT_TRUE(Inconnus());
  Reglages.MailActif = false;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Inconnus());
}

TEST_F(Suivi, APageThatAnErrorSwitchedOffIsToldUntilTheSwitchIsUsed) {
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Sante.Dure(Condition::kPageCoupee));
  Liaison.PageCoupee = Libelle::kAccesIncorrect;
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(Sante.Dure(Condition::kPageCoupee));
  EXPECT_EQ(Sante.Details[Condition::kPageCoupee], "Nom ou mot de passe incorrect");
  Reglages.LangueCourante = 1;
  Avance(10 * kMinute);
  EXPECT_EQ(Sante.Details[Condition::kPageCoupee], "Login or Pass incorrect");
  EXPECT_EQ(Sante.Debuts[Condition::kPageCoupee], 1);
  Liaison.PageCoupee.reset();
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(Sante.Dure(Condition::kPageCoupee));
}

TEST_F(Suivi, AnAlarmSoundThatNobodyHeardIsToldUntilOneIsHeard) {
  const auto muet = [this] { return Sante.Dure(Condition::kSonMuet); };
  Lecteur.Etats.Son.Poignee = 33;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(muet());
  Lecteur.Etats.Son.Sujet = "sound-device";
  Lecteur.Etats.Son.MotsServeur = "no such device";
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(muet());
  EXPECT_EQ(Sante.Details[Condition::kSonMuet], "no such device");
  Lecteur.Muet = true;
  Avance(60 * kMinute);
  EXPECT_TRUE(muet()) << "what was not heard does not age";
  Lecteur.Muet = false;
  Lecteur.Etats.Son.Sujet = "sound-file /home/anna/dog.wav";
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(muet());
  EXPECT_EQ(Sante.Details[Condition::kSonMuet], "/home/anna/dog.wav") << "which one to replace";
  Lecteur.Etats.Son.Sujet.clear();
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(muet());
}

TEST_F(Suivi, AnAlarmSoundThatIsSwitchedOffOrOfAnotherCompanionIsNotMissed) {
  const auto muet = [this] { return Sante.Dure(Condition::kSonMuet); };
  Lecteur.Etats.Son.Poignee = 34;
  Lecteur.Etats.Son.Sujet = "sound-device";
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(muet()) << "an earlier one's";
  Lecteur.Etats.Son.Poignee = 33;
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(muet());
  Reglages.SonActif = false;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(muet());
  Lecteur.Muet = true;
  Reglages.SonActif = true;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(muet()) << "it is asked anew";
  Lecteur.Muet = false;
  Avance(SuiviEnvois::kRegard);
  ASSERT_TRUE(muet());
  Liaison.HandleSon = 0;
  Avance(SuiviEnvois::kRegard);
  EXPECT_FALSE(muet()) << "told as a companion that is missing";
}

TEST_F(Suivi, AnAnswerThatComesTooLateFindsNobody) {
  Regard.reset();
  EXPECT_EQ(Lecteur.Oublis, 1);
}

}  // namespace
}  // namespace vaktor::essai
