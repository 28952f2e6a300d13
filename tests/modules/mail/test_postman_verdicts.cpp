// SPDX-License-Identifier: GPL-3.0-or-later
// The postman in virtual time: a verdict for each address, what is too large, what breaks off, what the disk does not
// take, and what is tried again when.
#include <QDateTime>

#include "modules/mail/postman_bench.h"
#include "support/without_descriptors.h"

namespace vaktor::essai {
namespace {

ResultatEnvoi Verdict(bool accepte, const QList<VerdictAdresse>& verdicts, CauseEchec cause = CauseEchec::kReporte) {
  ResultatEnvoi r{.Accepte = accepte, .Cause = cause, .Code = 450, .MotsServeur = "450 later", .Verdicts = verdicts};
  for (const VerdictAdresse& v : verdicts) r.TropGros = r.TropGros || v.TropGros;
  return r;
}

ResultatEnvoi Coupure() { return {.DuCourriel = true, .Cause = CauseEchec::kCoupure}; }

// Its path does not carry it, or a filter on the way dies of it.
TEST_F(Poste, AMailThatIsAlwaysCutLetsTheNextOneArrive) {
  Serveur = [](const QString& nom) { return nom == "b" ? Coupure() : ResultatEnvoi{.Accepte = true}; };
  Depose("a");
  Depose("b");
  Travaille(1000);
  EXPECT_EQ(Rapports.join(u'|'), "b plus tard|a ok");
  EXPECT_EQ(Noms(), "b");
  Depose("c");
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "a|c");
}

TEST_F(Poste, ManyThatBreakOffOneBehindTheOtherMakeItRest) {
  Serveur = [](const QString&) { return Coupure(); };
  for (int i = 0; i < 40; ++i) Depose(QString::number(100 + i));
  Travaille(9000);
  EXPECT_EQ(Tentatives, Facteur::kCoupuresMax) << "each is as large as a mail with photos";
  Travaille(2000);
  EXPECT_GT(Tentatives, Facteur::kCoupuresMax);
}

TEST_F(Poste, OfManyThatBreakOffEachHasItsTurn) {
  Serveur = [](const QString& nom) { return nom == "a" ? ResultatEnvoi{.Accepte = true} : Coupure(); };
  for (const char* nom : {"a", "b", "c", "d", "e", "f", "g", "h"}) Depose(nom);
  Travaille(10 * kMinute);
  EXPECT_EQ(Recus.join(u'|'), "a") << "the oldest, and the only one that this path carries";
}

TEST_F(Poste, BreaksWithOtherAnswersBetweenThemAreNoRow) {
  int essais = 0;
  Serveur = [&](const QString& nom) {
    if (nom == "a") return ResultatEnvoi{.Accepte = true};
    return ++essais % 2 == 0 ? Coupure() : ResultatEnvoi{.Cause = CauseEchec::kReporte, .Code = 450};
  };
  for (const char* nom : {"a", "b", "c", "d", "e", "f", "g", "h"}) Depose(nom);
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "a") << "no five in a row broke off";
}

TEST_F(Poste, OfTwoAddressesOneThatIsPutOffGetsItLaterAndTheOtherOnlyOnce) {
  bool encore = true;
  Serveur = [&](const QString&) {
    if (!encore) return Verdict(true, {{"b@exemple.fr", 250}}, CauseEchec::kAucune);
    return Verdict(true, {{"a@exemple.fr", 250}, {"b@exemple.fr", 450}});
  };
  Depose("m", "message", false, {"a@exemple.fr", "b@exemple.fr"});
  Travaille(1000);
  EXPECT_EQ(Noms(), "m");
  F = Ouvre();
  encore = false;
  Travaille(kMinute);
  EXPECT_EQ(Demandes.join(u'|'), "a@exemple.fr,b@exemple.fr|b@exemple.fr") << "over a restart too";
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Poste, WhoHasItIsRememberedThoughTheDiskTakesNoNoteOfIt) {
  Serveur = [&](const QString&) { return Verdict(true, {{"a@exemple.fr", 250}, {"b@exemple.fr", 450}}); };
  Depose("m", "message", false, {"a@exemple.fr", "b@exemple.fr"});
  ASSERT_TRUE(QDir().mkpath(Dossier + "/m.rcpt.part/full"));
  Travaille(11'000);
  EXPECT_EQ(Demandes.value(1), "b@exemple.fr");
}

TEST_F(Poste, OfTwoAddressesOneThatIsRefusedIsPutAsideAloneAndTheOtherGoesOn) {
  Serveur = [&](const QString&) { return Verdict(false, {{"a@exemple.fr", 450}, {"b@exemple.fr", 550}}); };
  Depose("m", "message", false, {"a@exemple.fr", "b@exemple.fr"});
  Travaille(1000);
  EXPECT_EQ(Noms(), "m");
  Serveur = [&](const QString&) { return Verdict(true, {{"a@exemple.fr", 250}}, CauseEchec::kAucune); };
  Travaille(kMinute);
  EXPECT_EQ(Demandes.join(u'|'), "a@exemple.fr,b@exemple.fr|a@exemple.fr");
  EXPECT_EQ(Fichiers(), "m.rcpt|m.refused") << "b may still get it";
  F->Recommence({"a@exemple.fr", "b@exemple.fr"});
  Travaille(1000);
  EXPECT_EQ(Demandes.value(2), "b@exemple.fr");
}

TEST_F(Poste, AnAddressThatIsCorrectedGetsTheMailInThePlaceOfTheWrongOne) {
  Serveur = [](const QString&) {
    return ResultatEnvoi{.Definitif = true,
                         .Cause = CauseEchec::kDestinataireRefuse,
                         .Code = 550,
                         .Verdicts = {{"ana@exemple.fr", 550}}};
  };
  Depose("m", "message", false, {"ana@exemple.fr"});
  Travaille(1000);
  Serveur = [](const QString&) { return Verdict(true, {{"anna@exemple.fr", 250}}, CauseEchec::kAucune); };
  F->Recommence({"anna@exemple.fr"});
  Travaille(1000);
  EXPECT_EQ(Demandes.join(u'|'), "ana@exemple.fr|anna@exemple.fr");
  EXPECT_EQ(Fichiers(), "") << "it has arrived, and the wrong address is not asked again";
}

TEST_F(Poste, WhatIsTooLargeGoesWithoutItsPhotosAtOnce) {
  Serveur = [this](const QString&) {
    if (Demandes.last().endsWith("light")) return ResultatEnvoi{.Accepte = true};
    return ResultatEnvoi{
        .Definitif = true, .DuCourriel = true, .TropGros = true, .Cause = CauseEchec::kTropGros, .Code = 552};
  };
  Depose("m");
  Travaille(1000);
  EXPECT_EQ(Demandes.join(u'|'), "anna@exemple.fr|anna@exemple.fr light");
  EXPECT_EQ(Rapports.join(u'|'), "m ok");
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Poste, OneAddressForWhichItIsTooLargeGetsItWithoutPhotosAndTheOtherAsItIs) {
  Serveur = [this](const QString&) {
    if (Demandes.last().endsWith("light")) return Verdict(true, {{"b@exemple.fr", 250}}, CauseEchec::kAucune);
    return Verdict(true, {{"a@exemple.fr", 250}, {"b@exemple.fr", 552, true}}, CauseEchec::kSansPlace);
  };
  Depose("m", "message", false, {"a@exemple.fr", "b@exemple.fr"});
  Travaille(1000);
  EXPECT_EQ(Demandes.join(u'|'), "a@exemple.fr,b@exemple.fr|b@exemple.fr light");
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Poste, ThatItGoesWithoutPhotosOutlastsARestart) {
  Serveur = [this](const QString&) {
    if (Demandes.last().endsWith("light")) return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion};
    return ResultatEnvoi{.Definitif = true, .TropGros = true, .Cause = CauseEchec::kTropGros, .Code = 552};
  };
  Depose("m");
  Travaille(1000);
  F = Ouvre();
  Travaille(1000);
  EXPECT_EQ(Demandes.value(2), "anna@exemple.fr light");
}

TEST_F(Poste, AfterFiveRefusedLoginsNoneIsTriedForSixHoursButWithOtherSettings) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kConnexionRefusee, .Code = 535}; };
  Depose("a");
  Travaille(5 * kHeure);
  EXPECT_EQ(Tentatives, Facteur::kRefusConnexionMax);
  Depose("b");
  Travaille(kMinute);
  EXPECT_EQ(Tentatives, Facteur::kRefusConnexionMax) << "a new alarm unlocks no account";
  Travaille(2 * kHeure);
  EXPECT_EQ(Tentatives, Facteur::kRefusConnexionMax + 1);
  F->Recommence();
  Travaille(1000);
  EXPECT_EQ(Tentatives, Facteur::kRefusConnexionMax + 2);
}

TEST_F(Poste, WhatWasRefusedIsTriedAgainAfterSixHoursAlsoWhereTheDiskTakesNoNoteOfIt) {
  Serveur = [](const QString&) {
    return ResultatEnvoi{.Definitif = true, .Cause = CauseEchec::kMessageRefuse, .Code = 554};
  };
  Depose("a");
  ASSERT_TRUE(QDir().mkpath(Dossier + "/a.rcpt.part/full"));
  Travaille(6 * kHeure - kMinute);
  EXPECT_EQ(Tentatives, 1);
  Travaille(2 * kMinute);
  EXPECT_EQ(Tentatives, 2);
}

TEST_F(Poste, WhatWasRefusedRestsAlsoWhereTheDiskDoesNotLetItGoAside) {
  Serveur = [](const QString&) {
    return ResultatEnvoi{.Definitif = true, .Cause = CauseEchec::kMessageRefuse, .Code = 554};
  };
  Depose("a");
  ASSERT_TRUE(QDir().mkpath(Dossier + "/a.refused/full"));
  Travaille(kMinute);
  EXPECT_EQ(Tentatives, 1);
  Travaille(kHeure);
  EXPECT_LE(Tentatives, 3);
  EXPECT_GE(Tentatives, 2) << "and is not forgotten";
}

TEST_F(Poste, WhatIsDamagedIsToldOnce) {
  ASSERT_TRUE(EcritOctets(Dossier + "/a.mail", "no head"));
  Travaille(kHeure);
  EXPECT_EQ(Rapports.join(u'|'), "a non");
  EXPECT_EQ(Fichiers(), "a.bad");
}

TEST_F(Poste, WhatWasRefusedAWeekAgoIsGivenUpAndTold) {
  Maintenant = QDateTime::currentMSecsSinceEpoch();
  Serveur = [](const QString&) {
    return ResultatEnvoi{.Definitif = true, .Cause = CauseEchec::kMessageRefuse, .Code = 554};
  };
  Depose("a");
  Travaille(kMinute);
  const qsizetype avant = Rapports.size();
  ASSERT_EQ(Fichiers(), "a.rcpt|a.refused");
  Maintenant += SacPostal::kAgeMaxMs + kMinute;
  F->Tour();
  EXPECT_EQ(Fichiers(), "a.rcpt|a.refused") << "refused once more";
  Maintenant += Facteur::kSursis;
  F->Tour();
  EXPECT_EQ(Fichiers(), "");
  EXPECT_GT(Rapports.size(), avant);
  EXPECT_EQ(Rapports.last(), "a non");
}

// Who has a mail already is written beside it. Where that cannot be read, nobody gets it, rather than all again.
TEST_F(Poste, WhoseVerdictsCannotBeReadAtThisMomentIsLeftAloneUntilTheyCan) {
  Serveur = [](const QString&) { return Verdict(true, {{"a@exemple.fr", 250}, {"b@exemple.fr", 450}}); };
  Depose("m", "message", false, {"a@exemple.fr", "b@exemple.fr"});
  Travaille(1000);
  F = Ouvre();
  Maintenant += kHeure;
  {
    const SansDescripteur un(1);  // the mail can be opened, what lies beside it cannot
    F->Tour();
    EXPECT_EQ(Tentatives, 1);
  }
  F->Tour();
  EXPECT_EQ(Demandes.value(1), "b@exemple.fr");
}

TEST_F(Poste, OfTooManyMailsOfTheMemoryThoseOfTheWatchStayAndTheOthersAreTold) {
  CourrielEnAttente veille = Nomme("0", Maintenant);
  veille.Prioritaire = true;
  F->Confie(veille, "words");
  for (int i = 0; i < Facteur::kEnMemoireMax; ++i) F->Confie(Nomme(QString::number(100 + i), Maintenant), "words");
  EXPECT_EQ(Rapports.join(u'|'), "100 non");
  Travaille(1000);
  EXPECT_EQ(Recus.value(0), "0");
}

TEST_F(Poste, WhatWasRefusedBeforeTheMachineWasOffForEightDaysIsTriedOnceMore) {
  Serveur = [](const QString&) {
    return ResultatEnvoi{.Definitif = true, .Cause = CauseEchec::kDestinataireRefuse, .Code = 550};
  };
  Depose("a");
  Travaille(kMinute);
  Maintenant += qint64{8} * 24 * kHeure;
  F = Ouvre();
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "a");
}

// The network comes back without a word, and the wait has grown to half an hour.
TEST_F(Poste, ANewAlarmIsTriedAtOnceThoughTheServerWasAwayAndBringsTheOthers) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  Depose("a");
  Travaille(20 * kMinute);
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Depose("b");
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "b|a");
}

TEST_F(Poste, ANewAlarmThatFindsTheServerStillAwayChangesNothingForTheOthers) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  Depose("a");
  EXPECT_EQ(F->Tour(), 10'000);
  Depose("b");
  for (int i = 0; i < 3; ++i) F->Tour();
  EXPECT_EQ(Tentatives, 2);
  Maintenant += 10'000;
  EXPECT_EQ(F->Tour(), 30'000);
  EXPECT_EQ(Tentatives, 3);
}

TEST_F(Poste, WhatWaitedForADayLeavesRoomInTheHourForTheAlarmOfNow) {
  for (int i = 0; i < 80; ++i) Depose(QString::number(100 + i));
  Maintenant += 24 * kHeure;
  Travaille(kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure - PlafondHoraire::kReserveFrais);
  for (int i = 0; i < PlafondHoraire::kReserveFrais + 5; ++i) Depose(QString::number(200 + i));
  Travaille(kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure);
}

TEST_F(Poste, AMailOfTheMemoryIsSentLikeAnyOther) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kReporte, .Code = 450}; };
  F->Confie(Nomme("m", Maintenant), "words");
  Travaille(1000);
  EXPECT_EQ(Tentatives, 1);
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "m");
}

TEST_F(Poste, AMailOfTheMemoryGoesOnceThoughTheDiskHasItLater) {
  F->Confie(Nomme("m", Maintenant), "words");
  Travaille(1000);
  Depose("m", "with its photos");
  ASSERT_EQ(B.PoseBrouillon(Nomme("m", Maintenant), "still"), 0);
  Travaille(2 * kMinute);
  EXPECT_EQ(Recus.join(u'|'), "m");
  EXPECT_EQ(Fichiers(), "") << "nor does it go again at the next start";
}

TEST_F(Poste, AMailOfTheMemoryThatTheDiskHasTakenGoesAsItStandsThere) {
  Serveur = [](const QString&) { return Verdict(true, {{"a@exemple.fr", 250}, {"b@exemple.fr", 450}}); };
  CourrielEnAttente courriel = Nomme("m", Maintenant);
  courriel.Destinataires = QStringList{"a@exemple.fr", "b@exemple.fr"};
  F->Confie(courriel, "words");
  Travaille(1000);
  Depose("m", "with its photos", false, courriel.Destinataires);
  Serveur = [](const QString&) { return Verdict(true, {{"b@exemple.fr", 250}}, CauseEchec::kAucune); };
  Travaille(kMinute);
  EXPECT_EQ(Demandes.join(u'|'), "a@exemple.fr,b@exemple.fr|b@exemple.fr");
  EXPECT_EQ(Fichiers(), "");
}

TEST(SortDuCourriel, WhoIsNamedTwiceGetsOneMail) {
  const SortCourriel sort{.Servis = {"c@exemple.fr"}, .Refuses = {}, .Ajoutes = {"a@exemple.fr"}};
  EXPECT_EQ(DonneRestants({"a@exemple.fr", "b@exemple.fr", "c@exemple.fr"}, sort).join(u','),
            "a@exemple.fr,b@exemple.fr");
}

TEST(SortDuCourriel, WithAnotherAttemptTheTimeOfTheRefusalIsOver) {
  SortCourriel refuse;
  refuse.Refuses = QStringList{"a@exemple.fr"};
  refuse.RefuseA = 1'700'000'000'000;
  for (const QStringList& adresses : {QStringList(), QStringList{"a@exemple.fr"}, QStringList{"b@exemple.fr"}})
    EXPECT_EQ(RecommenceSort({"a@exemple.fr"}, refuse, adresses).RefuseA, 0);
}

TEST(SortDuCourriel, StandsOnDiskAsItIs) {
  const QTemporaryDir dossier;
  const SortCourriel sort{.Servis = {"a@exemple.fr"},
                          .Refuses = {"b@exemple.fr", "c@exemple.fr"},
                          .Ajoutes = {"d@exemple.fr"},
                          .Allege = true,
                          .RefuseA = 1'700'000'000'000};
  ASSERT_EQ(EcritSort(dossier.filePath("sort"), sort), 0);
  EXPECT_EQ(LitSort(dossier.filePath("sort")), sort);
  ASSERT_TRUE(EcritOctets(dossier.filePath("sort"), "{\"done\": 3"));
  EXPECT_EQ(LitSort(dossier.filePath("sort")), SortCourriel());
}

}  // namespace
}  // namespace vaktor::essai
