// SPDX-License-Identifier: GPL-3.0-or-later
// The outbox on disk and the postman, in virtual time: a day without a server, refusals, caps, damaged files.
#include <sys/stat.h>

#include <cerrno>
#include <new>

#include "modules/mail/drafts.h"
#include "modules/mail/mail_bench.h"
#include "modules/mail/postman.h"
#include "support/small_disk.h"
#include "support/tiny_jpeg.h"

namespace vaktor::essai {
namespace {

constexpr qint64 kMinute = 60'000;
constexpr qint64 kHeure = 60 * kMinute;

CourrielEnAttente Nomme(const QString& nom, qint64 faitA) {
  CourrielEnAttente c;
  c.Nom = nom;
  c.Expediteur = "cam@exemple.fr";
  c.Destinataires = QStringList{"anna@exemple.fr"};
  c.FaitA = faitA;
  return c;
}

struct Sac : testing::Test {
  QTemporaryDir Temporaire;
  QString Dossier = Temporaire.filePath("courrier");
  SacPostal B{Dossier};
  qint64 Maintenant = 1'700'000'000'000;

  void Depose(const QString& nom, const QByteArray& message = "message", bool prioritaire = false) {
    CourrielEnAttente courriel = Nomme(nom, Maintenant);
    courriel.Prioritaire = prioritaire;
    ASSERT_EQ(B.PoseBrouillon(courriel, message), 0);
    ASSERT_TRUE(B.Publie(nom));
  }
  QString Fichiers() const { return QDir(Dossier).entryList(QDir::Files, QDir::Name).join(u'|'); }
  QString Noms() {
    QStringList noms;
    for (const CourrielEnAttente& c : B.Liste()) noms << c.Nom;
    return noms.join(u'|');
  }
};

TEST_F(Sac, KeepsWhatItWasGiven) {
  Depose("b", "corps\r\nde b");
  Depose("a");
  EXPECT_EQ(Noms(), "a|b");
  const CourrielEnAttente c = B.Liste().at(1);
  EXPECT_EQ(c.Expediteur, "cam@exemple.fr");
  EXPECT_EQ(c.Destinataires, QStringList{"anna@exemple.fr"});
  EXPECT_EQ(c.FaitA, Maintenant);
  EXPECT_EQ(B.LitMessage("b"), "corps\r\nde b");
}

TEST_F(Sac, BelongsToItsOwnerAlone) {
  Depose("a");
  EXPECT_EQ(QFile::permissions(Dossier) & 0x77, 0);
  EXPECT_EQ(QFile::permissions(Dossier + "/a.mail") & 0x77, 0);
}

TEST_F(Sac, AFolderThatOthersMayEnterIsClosed) {
  ASSERT_TRUE(QFile::setPermissions(Dossier, QFileDevice::Permissions(0x7755)));
  const SacPostal sac(Dossier);
  EXPECT_EQ(QFile::permissions(Dossier) & 0x77, 0);
}

TEST_F(Sac, ADraftIsNotSentBeforeItIsDoneButAfterAKillItIs) {
  ASSERT_EQ(B.PoseBrouillon(Nomme("a", Maintenant), "un"), 0);
  EXPECT_EQ(Noms(), "");
  RecupereSac(B);
  EXPECT_EQ(Noms(), "a");
}

TEST_F(Sac, ARecipeIsNoMailUntilItIsMadeOne) {
  ASSERT_EQ(PoseRecette(B, Nomme("a", Maintenant), {.Sujet = "Alarme", .Corps = "ici"}), 0);
  EXPECT_EQ(Fichiers(), "a.draft");
  EXPECT_EQ(PublieBrouillon(B, "a").Erreur, 0);
  EXPECT_EQ(Fichiers(), "a.mail");
  const QJsonObject lu = LitCourriel(B.LitMessage("a"));
  EXPECT_EQ(lu["subject"].toString(), "Alarme");
  EXPECT_EQ(lu["body"].toString(), "ici");
}

TEST_F(Sac, ADraftThatIsNotThereOrHasNoRoomIsToldAndARecipeStays) {
  EXPECT_EQ(PublieBrouillon(B, "nobody").Erreur, ENOENT);
  ASSERT_EQ(PoseRecette(B, Nomme("a", Maintenant), {}), 0);
  ASSERT_TRUE(QDir().mkpath(Dossier + "/a.draft.part/full"));
  EXPECT_NE(PublieBrouillon(B, "a").Erreur, 0);
  EXPECT_EQ(Fichiers(), "a.draft");
}

TEST_F(Sac, ARecipeThatIsDamagedIsSetAsideAndNeverSentAsAMessage) {
  ASSERT_EQ(B.PoseRecette(Nomme("a", Maintenant), "no object"), 0);
  RecupereSac(B);
  EXPECT_EQ(Noms(), "");
  EXPECT_EQ(Fichiers(), "a.bad");
}

TEST_F(Sac, ADiskWithRoomForTheWordsAloneTakesThem) {
  const PetitDisque disque(128 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  SacPostal pleine(disque.Chemin() + "/courrier");
  const QString photo = Temporaire.filePath("1.jpg");
  ASSERT_TRUE(EcritOctets(photo, PetitJpeg(QByteArray(200'000, 'x'))));
  const qint64 instant = QFileInfo(photo).lastModified().toMSecsSinceEpoch();
  const RecetteCourriel recette{.Sujet = "x", .Corps = "words", .DossierPhotos = Temporaire.path(), .NombrePhoto = 3};
  ASSERT_EQ(PoseRecette(pleine, Nomme("a", instant), recette), 0);
  const Publication suite = PublieBrouillon(pleine, "a");
  EXPECT_EQ(suite.Erreur, 0);
  EXPECT_EQ(suite.ErreurPhotos, ENOSPC);
  const QJsonObject lu = LitCourriel(pleine.LitMessage("a"));
  EXPECT_EQ(lu["body"].toString(), "words");
  EXPECT_TRUE(lu["names"].toArray().isEmpty());
}

TEST_F(Sac, TheDraftsOfTheLivingAreLeftAlone) {
  ASSERT_EQ(B.PoseBrouillon(Nomme("1-moi-1", Maintenant), "un"), 0);
  RecupereSac(B, "moi");
  EXPECT_EQ(Fichiers(), "1-moi-1.draft");
}

TEST_F(Sac, LeftoversOfAKillGo) {
  Depose("a");
  for (const char* nom : {"b.sent", "c.mail.part", "d.try", "e.draft.part"})
    ASSERT_TRUE(EcritOctets(Dossier + '/' + nom, "x"));
  RecupereSac(B);
  EXPECT_EQ(Fichiers(), "a.mail");
}

TEST_F(Sac, DamagedFilesAreSetAside) {
  for (const char* nom : {"a.mail", "b.mail", "c.mail"}) ASSERT_TRUE(EcritOctets(Dossier + '/' + nom, "{\"to\":3}\n"));
  ASSERT_TRUE(EcritOctets(Dossier + "/d.mail", QByteArray(200'000, '\xff')));
  ASSERT_TRUE(EcritOctets(Dossier + "/dd.mail", "{\"from\":\"x\",\"to\":[\"y\"]}\n")) << "no time";
  Depose("e");
  EXPECT_EQ(Noms(), "e");
  EXPECT_EQ(Fichiers(), "a.bad|b.bad|c.bad|d.bad|dd.bad|e.mail");
}

TEST_F(Sac, AFullDiskIsToldAndNothingHalfWrittenStays) {
  const PetitDisque disque(64 * 1024);
  if (!disque.EstMonte()) GTEST_SKIP() << disque.Raison();
  SacPostal pleine(disque.Chemin() + "/courrier");
  EXPECT_EQ(pleine.PoseBrouillon(Nomme("gros", Maintenant), QByteArray(300'000, 'x')), ENOSPC);
  EXPECT_TRUE(QDir(disque.Chemin() + "/courrier").isEmpty());
  EXPECT_EQ(pleine.PoseBrouillon(Nomme("petit", Maintenant), "x"), 0) << "and a small one still fits";
}

TEST_F(Sac, KnowsSinceWhenTheOldestWaits) {
  EXPECT_FALSE(B.PlusAncien());
  ASSERT_EQ(B.PoseBrouillon(Nomme("a", Maintenant), "x"), 0);
  EXPECT_FALSE(B.PlusAncien()) << "still gathers its photos";
  Depose("b");
  Maintenant += 1000;
  Depose("c");
  EXPECT_EQ(B.PlusAncien(), Maintenant - 1000);
  ASSERT_TRUE(EcritOctets(Dossier + "/a.mail", "no head"));
  EXPECT_EQ(B.PlusAncien(), Maintenant - 1000);
  B.MetDeCote("b");
  EXPECT_EQ(B.PlusAncien(), Maintenant);
}

TEST_F(Sac, OldAndTooManyAreGivenUp) {
  Depose("a");
  Maintenant += SacPostal::kAgeMaxMs + 1;
  Depose("b");
  EXPECT_EQ(B.Elague(Maintenant, {"a", "b"}).join(u'|'), "a");
  EXPECT_EQ(Noms(), "b");
  for (int i = 0; i < SacPostal::kCourrielsMax; ++i) {
    QFile f(Dossier + QStringLiteral("/c%1.mail").arg(i, 4, 10, QChar('0')));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("{\"made\":1700000000000,\"from\":\"x\",\"to\":[\"y\"]}\n");
  }
  EXPECT_EQ(B.Elague(Maintenant, {}).join(u'|'), "b") << "the disk is not filled, tried or not";
}

TEST_F(Sac, WhatWasRefusedOrDamagedGoesAfterAWeekAndNotes) {
  Depose("a");
  B.Reporte(B.Liste().first(), Maintenant);
  for (const char* nom : {"/b.refused", "/c.bad"}) ASSERT_TRUE(EcritOctets(Dossier + nom, "x"));
  const qint64 deux = QDateTime::currentMSecsSinceEpoch() + SacPostal::kAgeMaxMs;
  B.Elague(deux - kHeure, {});
  EXPECT_EQ(Fichiers(), "a.mail|a.try|b.refused|c.bad");
  B.Elague(deux + kHeure, {"a"});
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Sac, NamesSortInTheOrderOfTheMailsAlsoWhenTheClockIsSetBack) {
  EXPECT_EQ(B.DonneRang(Maintenant), "20231114221320000");
  Depose(B.DonneRang(Maintenant) + "-essai-9");
  EXPECT_EQ(B.DonneRang(Maintenant), "20231114221320001") << "two mails of one report";
  Depose(B.DonneRang(Maintenant) + "-essai-10");
  Depose("of a person");
  EXPECT_EQ(B.DonneRang(Maintenant - kHeure), "20231114221320002");
  EXPECT_EQ(B.DonneRang(Maintenant + kHeure), "20231114231320000");
}

/// A postman with a server that is played by hand.
struct Poste : Sac {
  PlafondHoraire Plafond;
  QStringList Recus;
  QStringList Rapports;
  int Tentatives = 0;
  std::function<ResultatEnvoi(const QString&)> Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  std::unique_ptr<Facteur> F = Ouvre();

  std::unique_ptr<Facteur> Ouvre() {
    return std::make_unique<Facteur>(
        B, Plafond, [this] { return Maintenant; },
        [this](const CourrielEnAttente& c, const QByteArray&, const std::function<void()>& surAccepte) {
          ++Tentatives;
          const ResultatEnvoi r = Serveur(c.Nom);
          if (r.Accepte) {
            Recus << c.Nom;
            surAccepte();
          }
          return r;
        },
        [this](const RapportEnvoi& r) {
          Rapports << r.Nom + (r.Resultat.Accepte ? " ok" : r.Resultat.Definitif ? " non" : " plus tard");
        });
  }
  /// Lets the postman work for so long.
  void Travaille(qint64 duree) {
    const qint64 fin = Maintenant + duree;
    for (int tours = 0; Maintenant < fin; ++tours) {
      ASSERT_LT(tours, 20'000) << "it tries without a rest";
      Maintenant += std::clamp<qint64>(F->Tour(), 1, fin - Maintenant);
    }
  }
};

TEST_F(Poste, SendsTheOldestFirstAndEachOnce) {
  Depose("b");
  Depose("a");
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "a|b");
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Poste, AMailOfTheWatchGoesBeforeAllOthersThatWait) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  Depose("a");
  Depose("b");
  Travaille(kMinute);
  Depose("y", "message", true);
  Depose("z", "message", true);
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(5 * kMinute);
  EXPECT_EQ(Recus.join(u'|'), "y|z|a|b");
}

// By a clock that jumps forward, or in a machine that was off for a month, everything is old.
TEST_F(Poste, AMailIsNotGivenUpBeforeItWasTried) {
  Depose("a");
  Depose("b");
  Depose("c");
  Maintenant += 30 * 24 * kHeure;
  Serveur = [](const QString& nom) {
    return nom == "a" ? ResultatEnvoi{.Cause = CauseEchec::kDestinataireRefuse} : ResultatEnvoi{.Accepte = true};
  };
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "b|c");
  EXPECT_EQ(Rapports.join(u'|'), "a plus tard|a non|b ok|c ok");
  Depose("a");
  Maintenant += 30 * 24 * kHeure;
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "b|c|a") << "another mail of that name, which was never tried";
}

TEST_F(Poste, EachMailIsTriedOnceThoughTheServerIsAway) {
  Depose("a");
  Depose("b");
  Maintenant += 30 * 24 * kHeure;
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  Travaille(5 * kHeure);
  EXPECT_EQ(Rapports.join(u'|'), "a plus tard|a non|b plus tard|b non");
}

TEST_F(Poste, OfTooManyTheOldestIsGivenUpAndNotTheOneThatGoesFirst) {
  Depose("a");
  Maintenant += SacPostal::kAgeMaxMs - kHeure;
  Depose("z", "message", true);
  Maintenant += 2 * kHeure;
  EXPECT_EQ(B.Elague(Maintenant, {"a", "z"}).join(u'|'), "a");
  EXPECT_EQ(Noms(), "z");
}

TEST_F(Poste, AFullHourOfAlarmMailsDoesNotHoldUpTheWatch) {
  for (int i = 0; i < PlafondHoraire::kCourrielsParHeure + 5; ++i)
    Depose(QStringLiteral("a%1").arg(i, 3, 10, QChar('0')));
  Travaille(5 * kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure);
  for (int i = 0; i < PlafondHoraire::kReserveVeille + 5; ++i) Depose(QStringLiteral("v%1").arg(i), "message", true);
  Travaille(5 * kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure + PlafondHoraire::kReserveVeille) << "but not without end";
  EXPECT_TRUE(Recus.last().startsWith('v'));
  Travaille(3 * kHeure);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure + PlafondHoraire::kReserveVeille + 10);
}

TEST_F(Poste, ADayWithoutAServerLosesNothingAndSendsNothingTwice) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kPasDeConnexion}; };
  for (int i = 0; i < 24 * 4; ++i) {
    Depose(QStringLiteral("%1").arg(i, 4, 10, QChar('0')));
    Travaille(15 * kMinute);
  }
  EXPECT_TRUE(Recus.isEmpty());
  EXPECT_LT(Tentatives, 60) << "about every half hour, whatever waits";
  EXPECT_GT(Tentatives, 45);
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(30 * kMinute);
  EXPECT_EQ(Recus.size(), PlafondHoraire::kCourrielsParHeure) << "the cap holds for what has waited as well";
  Travaille(2 * kHeure);
  EXPECT_EQ(Recus.size(), 96);
  EXPECT_EQ(QSet<QString>(Recus.begin(), Recus.end()).size(), 96);
  EXPECT_TRUE(std::is_sorted(Recus.begin(), Recus.end()));
}

TEST_F(Poste, AMailThatFindsNoMemoryIsPutOffAndTheOthersPass) {
  Serveur = [](const QString& nom) -> ResultatEnvoi {
    if (nom == "a") throw std::bad_alloc();
    return {.Accepte = true};
  };
  Depose("a");
  Depose("b");
  Travaille(kMinute);
  EXPECT_EQ(Recus.join(u'|'), "b");
  EXPECT_EQ(Noms(), "a");
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  Travaille(2 * kMinute);
  EXPECT_EQ(Recus.join(u'|'), "b|a");
}

TEST_F(Poste, RetriesBackOff) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kDelai}; };
  Depose("a");
  QList<qint64> attentes;
  for (int i = 0; i < 10; ++i) {
    const qint64 attente = F->Tour();
    attentes << attente / 1000;
    Maintenant += attente;
  }
  EXPECT_EQ(attentes, QList<qint64>({10, 30, 60, 120, 300, 600, 900, 1800, 1800, 1800}));
}

TEST_F(Poste, AfterASuccessTheWaitsBeginAnew) {
  ResultatEnvoi reponse{.Cause = CauseEchec::kDelai};
  Serveur = [&](const QString&) { return reponse; };
  Depose("a");
  Depose("b");
  for (const qint64 attente : {10, 30, 60}) {
    EXPECT_EQ(F->Tour(), attente * 1000);
    Maintenant += attente * 1000;
  }
  reponse = {.Accepte = true};
  EXPECT_EQ(F->Tour(), 0);
  reponse = {.Cause = CauseEchec::kDelai};
  EXPECT_EQ(F->Tour(), 10'000);
}

TEST_F(Poste, AMailThatIsPutOffWaitsAlsoWhereTheDiskTakesNoNoteOfIt) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kDestinataireRefuse, .Code = 450}; };
  Depose("a");
  ASSERT_TRUE(QDir().mkpath(Dossier + "/a.try.part/full"));
  Travaille(8000);
  EXPECT_EQ(Tentatives, 1);
  Travaille(3000);
  EXPECT_EQ(Tentatives, 2);
}

TEST_F(Poste, WhatIsSaidOfOneMailsSenderHoldsUpNoOther) {
  Serveur = [](const QString& nom) {
    return nom == "a" ? ResultatEnvoi{.Cause = CauseEchec::kExpediteurRefuse, .Code = 450}
                      : ResultatEnvoi{.Accepte = true};
  };
  Depose("a");
  Depose("b");
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "b");
}

TEST_F(Poste, AMailThatIsPutOffLetsTheOthersPass) {
  Serveur = [](const QString& nom) {
    return nom == "a" ? ResultatEnvoi{.Cause = CauseEchec::kDestinataireRefuse, .Code = 450}
                      : ResultatEnvoi{.Accepte = true};
  };
  Depose("a");
  Depose("b");
  Travaille(1000);
  EXPECT_EQ(Rapports.join(u'|'), "a plus tard|b ok");
  F = Ouvre();
  Travaille(8000);
  EXPECT_EQ(Tentatives, 2) << "the wait outlasts a restart";
  Travaille(2000);
  EXPECT_EQ(Tentatives, 3);
}

TEST_F(Poste, EachAttemptOfOneMailIsCountedAndLeavesNothingBehind) {
  ResultatEnvoi reponse{.Cause = CauseEchec::kDestinataireRefuse, .Code = 450};
  Serveur = [&](const QString&) { return reponse; };
  Depose("a");
  QList<qint64> essais;
  for (const qint64 debut = Maintenant; Maintenant - debut < 200'000; Maintenant += 1000) {
    const int avant = Tentatives;
    F->Tour();
    if (Tentatives > avant) essais << (Maintenant - debut) / 1000;
  }
  EXPECT_EQ(essais, QList<qint64>({0, 10, 40, 100})) << "10, 30, 60 seconds";
  F->Recommence();
  EXPECT_EQ(Fichiers(), "a.mail") << "other settings begin anew";
  F->Tour();
  EXPECT_EQ(Tentatives, essais.size() + 1) << "at once";
  Maintenant += 10'000;
  reponse = {.Accepte = true};
  F->Tour();
  EXPECT_EQ(Recus.join(u'|'), "a");
  EXPECT_EQ(Fichiers(), "");
}

TEST_F(Poste, ARefusalForGoodWaitsForOtherSettings) {
  ResultatEnvoi reponse{.Definitif = true, .Cause = CauseEchec::kDestinataireRefuse, .Code = 550};
  Serveur = [&](const QString&) { return reponse; };
  Depose("a");
  Travaille(24 * kHeure);
  EXPECT_EQ(Rapports.join(u'|'), "a non");
  EXPECT_EQ(Fichiers(), "a.refused");
  reponse = {.Accepte = true};
  F->Recommence();
  Travaille(1000);
  EXPECT_EQ(Recus.join(u'|'), "a");
}

TEST_F(Poste, OtherSettingsMakeAllDueAtOnce) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kConnexionRefusee, .Code = 535}; };
  Depose("a");
  Travaille(kHeure);
  const int avant = Tentatives;
  F->Recommence();
  F->Tour();
  EXPECT_EQ(Tentatives, avant + 1);
}

TEST_F(Poste, AClockThatIsSetBackHoldsUpNothingForLong) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kDelai}; };
  Depose("a");
  F->Tour();
  Maintenant -= 24 * kHeure;
  Serveur = [](const QString&) { return ResultatEnvoi{.Accepte = true}; };
  F->Tour();
  EXPECT_EQ(Recus.join(u'|'), "a");
}

TEST_F(Poste, AnAcceptedMailNeverGoesAgainEvenIfTheDiskKeepsIt) {
  Depose("a");
  F->Tour();
  Depose("a");  // as if the rename had failed
  Travaille(kHeure);
  EXPECT_EQ(Recus.join(u'|'), "a");
}

TEST_F(Poste, OurOwnEndIsNoFailure) {
  Serveur = [](const QString&) { return ResultatEnvoi{.Cause = CauseEchec::kInterrompu}; };
  Depose("a");
  F->Tour();
  EXPECT_TRUE(Rapports.isEmpty());
  EXPECT_EQ(Fichiers(), "a.mail");
}

TEST(Cap, SoManyInAnHourAndOverARestart) {
  PlafondHoraire p(3);
  for (const qint64 t : {0, 10, 20}) {
    EXPECT_EQ(p.Attente(t), 0);
    p.Note(t);
  }
  PlafondHoraire relu(3);
  relu.Relit(p.Texte() + "bruit\n\xff\n");
  EXPECT_EQ(relu.Attente(30), PlafondHoraire::kHeureMs - 30);
  EXPECT_EQ(relu.Attente(PlafondHoraire::kHeureMs), 0);
  EXPECT_EQ(p.Attente(-1), 0) << "the clock was set back";
}

TEST(Cap, OfMoreThanItKeepsTheNewestCount) {
  PlafondHoraire p(3);
  for (int i = 0; i < 3 + PlafondHoraire::kReserveVeille; ++i) p.Note(0);
  for (int i = 0; i < 3; ++i) p.Note(1000);
  EXPECT_EQ(p.Attente(2000), PlafondHoraire::kHeureMs - 1000);
}

}  // namespace
}  // namespace vaktor::essai
