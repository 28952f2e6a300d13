// SPDX-License-Identifier: GPL-3.0-or-later
// The sending thread itself: the real outbox, a real server on loopback, the waits as they are.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <algorithm>

#include "modules/mail/mail_bench.h"
#include "modules/mail/mime_message.h"
#include "modules/mail/sending_thread.h"
#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

struct Fil : testing::Test {
  QTemporaryDir Temporaire;
  ServeurMail Serveur;
  SacPostal Sac{Temporaire.path()};
  ReglagesEnvoi Reglages;
  QStringList Rapports;
  std::unique_ptr<FilEnvoi> Poste;

  Fil() {
    EXPECT_TRUE(Serveur.Demarre());
    Reglages.Serveur = "127.0.0.1";
    Reglages.Port = Serveur.Port();
  }
  /// Behind it the thread has put the outbox in order and looks at it.
  void Ouvre(int parHeure = 60) {
    ASSERT_TRUE(EcritOctets(Temporaire.filePath("reste.sent"), "x"));
    Poste = std::make_unique<FilEnvoi>(
        ReglagesFil{.Dossier = Temporaire.path(), .Marque = "moi", .CourrielsParHeure = parHeure},
        [this](const RapportEnvoi& r) { Rapports << r.Nom + (r.Resultat.Accepte ? " ok" : " non"); });
    ASSERT_TRUE(AttendQue([this] { return !Existe("reste.sent"); }));
  }
  void OuvreEtRegle(int parHeure = 60) {
    Ouvre(parHeure);
    Poste->ChangeReglages(Reglages);
  }
  void PoseBrouillon(const QString& nom, const QString& pour = "anna@exemple.fr", bool prioritaire = false) {
    CourrielEnAttente c;
    c.Nom = nom;
    c.Expediteur = "cam@exemple.fr";
    c.Destinataires = QStringList{pour};
    c.FaitA = QDateTime::currentMSecsSinceEpoch();
    c.Prioritaire = prioritaire;
    const QByteArray message = ComposeMessage({.Expediteur = c.Expediteur,
                                               .Destinataires = c.Destinataires,
                                               .Sujet = nom,
                                               .Corps = "x",
                                               .Date = QDateTime::currentDateTime(),
                                               .Identifiant = nom,
                                               .Pieces = {}});
    ASSERT_EQ(Sac.PoseBrouillon(c, message), 0);
  }
  void Depose(const QString& nom, const QString& pour = "anna@exemple.fr", bool prioritaire = false) {
    PoseBrouillon(nom, pour, prioritaire);
    ASSERT_TRUE(Sac.Publie(nom));
    if (Poste) Poste->Reveille();
  }
  bool Existe(const QString& nom) const { return QFile::exists(Temporaire.filePath(nom)); }
  bool Rapporte(const QString& quoi) {
    return AttendQue([&] { return Rapports.contains(quoi); });
  }
  /// For what must not happen: long enough for a thread that does it.
  static void LaisseFaire() {
    QElapsedTimer depuis;
    depuis.start();
    while (!depuis.hasExpired(400)) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  }
};

TEST_F(Fil, OtherSettingsTryWhatWasRefusedOnceAndNotInEveryRound) {
  OuvreEtRegle();
  Depose("a", "nobody@exemple.fr");
  ASSERT_TRUE(Rapporte("a non"));
  ASSERT_TRUE(Existe("a.refused"));
  Reglages.Utilisateur = "anna";
  Poste->ChangeReglages(Reglages);
  ASSERT_TRUE(AttendQue([this] { return Rapports.count("a non") == 2; })) << "other settings may help";
  Depose("b");
  ASSERT_TRUE(Rapporte("b ok"));
  Depose("c");
  ASSERT_TRUE(Rapporte("c ok"));
  EXPECT_EQ(Rapports.count("a non"), 2);
  EXPECT_TRUE(Existe("a.refused"));
}

TEST_F(Fil, TheSameSettingsAgainTryNothing) {
  OuvreEtRegle();
  Depose("a", "nobody@exemple.fr");
  ASSERT_TRUE(Rapporte("a non"));
  Poste->ChangeReglages(Reglages);
  Depose("b");
  ASSERT_TRUE(Rapporte("b ok"));
  EXPECT_EQ(Rapports.count("a non"), 1);
}

TEST_F(Fil, TheFirstSettingsAreNoOthers) {
  Depose("a", "nobody@exemple.fr");
  Sac.MetDeCote(Sac.Liste().first(), QDateTime::currentMSecsSinceEpoch());
  OuvreEtRegle();
  Depose("b");
  ASSERT_TRUE(Rapporte("b ok"));
  EXPECT_FALSE(Rapports.contains("a non")) << "it was refused with these";
  EXPECT_TRUE(Existe("a.refused"));
}

TEST_F(Fil, NothingIsTriedBeforeTheFirstSettings) {
  Depose("a");
  Ouvre();
  Poste->Reveille();
  LaisseFaire();
  EXPECT_TRUE(Rapports.isEmpty()) << Rapports.join('|').toStdString();
  Poste->ChangeReglages(Reglages);
  EXPECT_TRUE(Rapporte("a ok"));
  EXPECT_EQ(Rapports.size(), 1);
}

TEST_F(Fil, AMailThatIsPutInWakesIt) {
  OuvreEtRegle();
  Depose("a");
  ASSERT_TRUE(Rapporte("a ok"));
  LaisseFaire();  // it sleeps, for a minute
  Depose("b");
  EXPECT_TRUE(Rapporte("b ok"));
}

TEST_F(Fil, TheCapOfAnHourHoldsOverARestart) {
  OuvreEtRegle(1);
  Depose("a");
  ASSERT_TRUE(Rapporte("a ok"));
  Poste.reset();
  Depose("b");
  OuvreEtRegle(1);
  Depose("v", "anna@exemple.fr", true);
  ASSERT_TRUE(Rapporte("v ok")) << "the watch has a reserve";
  EXPECT_FALSE(Rapports.contains("b ok"));
  EXPECT_TRUE(Existe("b.mail"));
}

TEST_F(Fil, DraftsOfOneThatWasKilledAreSentAndItsOwnLeftAlone) {
  PoseBrouillon("1-moi-1");
  PoseBrouillon("2-autre-1");
  OuvreEtRegle();
  ASSERT_TRUE(Rapporte("2-autre-1 ok"));
  EXPECT_TRUE(Existe("1-moi-1.draft"));
  EXPECT_EQ(Serveur.NombreRecus(), 1);
}

TEST_F(Fil, ADraftOfOneThatWasKilledThatCannotLeaveIsToldOnceAndTriedAgain) {
  PoseBrouillon("2-autre-1");
  ASSERT_TRUE(QDir().mkpath(Temporaire.filePath("2-autre-1.mail/full")));
  Poste = std::make_unique<FilEnvoi>(
      ReglagesFil{.Dossier = Temporaire.path(), .Marque = "moi", .RepriseBrouillons = 50},
      [this](const RapportEnvoi& r) { Rapports << r.Nom + (r.Resultat.Accepte ? " ok" : " non"); });
  Poste->ChangeReglages(Reglages);
  ASSERT_TRUE(Rapporte("of an earlier run non"));
  LaisseFaire();
  EXPECT_EQ(Rapports.size(), 1);
  ASSERT_TRUE(QDir(Temporaire.filePath("2-autre-1.mail")).removeRecursively());
  EXPECT_TRUE(Rapporte("2-autre-1 ok"));
}

TEST_F(Fil, TheOutboxIsItsAloneForAsLongAsItLives) {
  const int dossier = ::open(QFile::encodeName(Temporaire.path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_EQ(::flock(dossier, LOCK_EX | LOCK_NB), 0);
  Depose("a");
  ASSERT_TRUE(EcritOctets(Temporaire.filePath("autre.sent"), "x"));
  Poste = std::make_unique<FilEnvoi>(ReglagesFil{.Dossier = Temporaire.path(), .Marque = "moi"},
                                     [this](const RapportEnvoi& r) { Rapports << r.Nom; });
  Poste->ChangeReglages(Reglages);
  LaisseFaire();
  EXPECT_TRUE(Existe("autre.sent")) << "while another one sends";
  ASSERT_EQ(::flock(dossier, LOCK_UN), 0);
  ASSERT_TRUE(Rapporte("a"));
  EXPECT_NE(::flock(dossier, LOCK_EX | LOCK_NB), 0) << "and nobody while this one does";
  Poste.reset();
  EXPECT_EQ(::flock(dossier, LOCK_EX | LOCK_NB), 0);
  ::close(dossier);
}

}  // namespace
}  // namespace vaktor::essai
