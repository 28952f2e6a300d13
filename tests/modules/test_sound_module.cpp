// SPDX-License-Identifier: GPL-3.0-or-later
// The sound companion's rules with a player that is played by hand, and the real player on real files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "modules/module_bench.h"
#include "modules/sound/sound_module.h"
#include "support/event_wait.h"

namespace vaktor::essai {
namespace {

struct JoueurFaux : JoueurSon {
  explicit JoueurFaux(QStringList& journal) : J(journal) {}
  void Joue(const QString& fichier, std::function<void(FinSon, const QString&)> fini) override {
    J << "joue " + fichier;
    Fini = std::move(fini);
  }
  void Arrete() override {
    J << QStringLiteral("arrete");
    Fini = nullptr;
  }
  bool EnCours() const override { return Fini != nullptr; }
  quint64 Progres() const override { return ++Morceaux; }
  mutable quint64 Morceaux = 0;  ///< a device that works takes some at each look
  void Finit(FinSon fin, const QString& mots = {}) { std::exchange(Fini, nullptr)(fin, mots); }
  QStringList& J;
  std::function<void(FinSon, const QString&)> Fini;
};

struct Son : BancModule {
  QStringList Faits;
  JoueurFaux* Joueur = nullptr;
  std::unique_ptr<ModuleSon> Module;

  Son() : BancModule(QStringLiteral("son")) {
    Dossiers.Programme.Executables = Temporaire.path();
    QDir(Temporaire.path()).mkdir("snd");
    for (const int numero : {0, 1, 2}) Touche(QStringLiteral("snd/%1.wav").arg(numero));
    auto joueur = std::make_unique<JoueurFaux>(Faits);
    Joueur = joueur.get();
    Module = std::make_unique<ModuleSon>(ContexteModule{Dossiers, Journal, Etat, Temps, Horloge, [](const QString&) {},
                                                        [this] { Faits << QStringLiteral("quitte"); }},
                                         std::move(joueur));
  }
  void Touche(const QString& nom) const {
    QFile fichier(Temporaire.filePath(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  }
  void Choisit(qint32 index, const QString& fichier = {}) {
    Reglages.Valeurs.IndexSon = index;
    Reglages.Valeurs.FichierSon = fichier;
    Module->PrendReglages(Reglages);
  }
  QString Intrusion() {
    Faits.clear();
    Module->ExecuteCommande(Commande::kIntrusion);
    return Faits.join(u'|').replace(Temporaire.path(), "~");
  }
};

TEST_F(Son, PlaysTheChosenSound) {
  for (const auto& [index, nom] :
       {std::pair(0, "0"), std::pair(1, "1"), std::pair(2, "2"), std::pair(-1, "0"), std::pair(4, "0")}) {
    Choisit(index);
    EXPECT_EQ(Intrusion(), QStringLiteral("joue ~/snd/%1.wav").arg(nom));
    Joueur->Finit(FinSon::kJoue);
  }
}

TEST_F(Son, PlaysTheUsersFileInItsStoredForm) {
  Touche("moi.wav");
  Choisit(3, Temporaire.path() + "\\moi.wav");
  EXPECT_EQ(Intrusion(), "joue ~/moi.wav");
}

TEST_F(Son, OneAtATimeAndAgainAfterwards) {
  EXPECT_EQ(Intrusion(), "joue ~/snd/0.wav");
  EXPECT_EQ(Intrusion(), "");
  Joueur->Finit(FinSon::kJoue);
  EXPECT_EQ(Intrusion(), "joue ~/snd/0.wav");
}

TEST_F(Son, OtherCommandsPlayNothing) {
  for (const Commande commande : {Commande::kOptions, Commande::kSurveillance, Commande::kVeille})
    Module->ExecuteCommande(commande);
  EXPECT_TRUE(Faits.isEmpty());
}

TEST_F(Son, AMissingFileIsToldOnceHoweverLongTheIntrusion) {
  Choisit(3, Temporaire.filePath("absent.wav"));
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(Intrusion(), "");
    Temps.Avance(30);
  }
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().contains("absent.wav"));
}

TEST_F(Son, AMissingDeviceIsToldOnceAndTriedAgainInPeace) {
  int essais = 0;
  for (int i = 0; i < 1000; ++i) {
    if (!Intrusion().isEmpty()) ++essais;
    if (Joueur->EnCours()) Joueur->Finit(FinSon::kSansAppareil, "Connection refused");
    Temps.Avance(30);
  }
  EXPECT_EQ(essais, 6) << "thirty seconds, one try every five";
  ASSERT_EQ(Avis.size(), 1);
  EXPECT_TRUE(Avis.first().endsWith("Connection refused"));
}

TEST_F(Son, ASoundThatIsHeardEndsTheFailure) {
  Choisit(3, Temporaire.filePath("absent.wav"));
  Intrusion();
  Choisit(1);
  EXPECT_EQ(Intrusion(), "joue ~/snd/1.wav") << "a new choice is tried at once";
  Joueur->Finit(FinSon::kJoue);
  Choisit(3, Temporaire.filePath("absent.wav"));
  Intrusion();
  EXPECT_EQ(Avis.size(), 2);
}

TEST_F(Son, ADeviceThatTakesNothingIsToldAfterFiveSecondsAndTriedAgain) {
  struct JoueurMuet : JoueurFaux {
    using JoueurFaux::JoueurFaux;
    quint64 Progres() const override { return 4; }  // what its buffer took
  };
  auto muet = std::make_unique<JoueurMuet>(Faits);
  JoueurMuet* joueur = muet.get();
  Module = std::make_unique<ModuleSon>(
      ContexteModule{Dossiers, Journal, Etat, Temps, Horloge, [](const QString&) {}, [] {}}, std::move(muet));
  EXPECT_EQ(Intrusion(), "joue ~/snd/0.wav");
  Temps.Avance(5999);
  EXPECT_TRUE(Avis.isEmpty());
  Temps.Avance(1);
  EXPECT_FALSE(joueur->EnCours());
  ASSERT_EQ(Avis.size(), 1) << "five seconds after the last that it took";
  EXPECT_TRUE(Avis.first().contains("haut-parleurs")) << Avis.first().toStdString();
  Temps.Avance(ModuleSon::kRepos);
  EXPECT_EQ(Intrusion(), "joue ~/snd/0.wav");
  Temps.Avance(6000);
  EXPECT_EQ(Avis.size(), 1) << "told once";
}

TEST_F(Son, ALongSoundEndsAMinuteAfterTheLastIntrusion) {
  Intrusion();
  Temps.Avance(30'000);
  EXPECT_EQ(Intrusion(), "") << "it plays";
  Temps.Avance(ModuleSon::kApres - 1);
  EXPECT_TRUE(Joueur->EnCours());
  Temps.Avance(1);
  EXPECT_FALSE(Joueur->EnCours());
  EXPECT_TRUE(Avis.isEmpty()) << "that is no failure";
  EXPECT_EQ(Intrusion(), "joue ~/snd/0.wav") << "and the next one is heard at once";
}

TEST_F(Son, ASoundWithoutEndIsCutAfterTenMinutesAndBegunAgain) {
  Intrusion();
  for (int i = 0; i < 599; ++i) {
    Temps.Avance(1000);
    EXPECT_EQ(Intrusion(), "");
  }
  Temps.Avance(1000);
  EXPECT_FALSE(Joueur->EnCours());
  EXPECT_EQ(Intrusion(), "joue ~/snd/0.wav");
}

TEST_F(Son, OneThatWasCutAfterTenMinutesWasHeard) {
  Choisit(3, Temporaire.filePath("absent.wav"));
  Intrusion();
  ASSERT_EQ(Avis.size(), 1);
  Choisit(0);
  for (int i = 0; i < 600; ++i) {
    Intrusion();
    Temps.Avance(1000);
  }
  EXPECT_FALSE(Joueur->EnCours());
  Choisit(3, Temporaire.filePath("absent.wav"));
  Intrusion();
  EXPECT_EQ(Avis.size(), 2) << "what was told before is over";
}

TEST_F(Son, TheEndCutsTheSound) {
  Intrusion();
  Faits.clear();
  Module->Termine();
  EXPECT_EQ(Faits.join(u'|'), "arrete|quitte");
}

struct VraiJoueur : testing::Test {
  QTemporaryDir Temporaire;
  QList<FinSon> Fins;
  QString Mots;
  /// Eighth of a second of a square wave, 8 kHz, 8 bit, mono: the WAVE format's smallest useful case.
  QString EcritSon(int echantillons = 1000) const {
    QByteArray donnees(echantillons, char(0x40));
    for (int i = 0; i < echantillons; ++i)
      if ((i / 8) % 2 == 0) donnees[i] = char(0xc0);
    const auto quatre = [](quint32 n) {
      return QByteArray().append(char(n)).append(char(n >> 8)).append(char(n >> 16)).append(char(n >> 24));
    };
    const auto taille = static_cast<quint32>(donnees.size());
    QFile fichier(Temporaire.filePath("son.wav"));
    if (fichier.open(QIODevice::WriteOnly))
      fichier.write("RIFF" + quatre(36 + taille) + "WAVEfmt " + quatre(16) + QByteArray("\1\0\1\0", 4) + quatre(8000) +
                    quatre(8000) + QByteArray("\1\0\10\0", 4) + "data" + quatre(taille) + donnees);
    return fichier.fileName();
  }
  void Joue(JoueurSon& joueur, const QString& fichier) {
    joueur.Joue(fichier, [this](FinSon fin, const QString& mots) {
      Fins << fin;
      Mots = mots;
    });
  }
};

TEST_F(VraiJoueur, PlaysAFileToItsEnd) {
  const QString joue = Temporaire.filePath("joue.raw");
  {
    JoueurGStreamer joueur("capsfilter caps=audio/x-raw,format=U8,rate=8000,channels=1 ! filesink location=" + joue);
    Joue(joueur, EcritSon());
    EXPECT_TRUE(joueur.EnCours());
    ASSERT_TRUE(AttendQue([this] { return !Fins.isEmpty(); }));
    EXPECT_FALSE(joueur.EnCours());
  }
  EXPECT_EQ(Fins, QList<FinSon>({FinSon::kJoue}));
  EXPECT_EQ(QFileInfo(joue).size(), 1000) << "every sample came out";
}

TEST_F(VraiJoueur, PlaysAgain) {
  JoueurGStreamer joueur("fakesink");
  for (qsizetype i = 1; i <= 3; ++i) {
    Joue(joueur, EcritSon());
    ASSERT_TRUE(AttendQue([&] { return Fins.size() == i; }));
  }
  EXPECT_EQ(Fins.count(FinSon::kJoue), 3);
}

TEST_F(VraiJoueur, StartsTheNextFromTheEndOfTheOneBefore) {
  JoueurGStreamer joueur("fakesink");
  const QString son = EcritSon();
  joueur.Joue(son, [&](FinSon, const QString&) { Joue(joueur, son); });
  EXPECT_TRUE(AttendQue([this] { return !Fins.isEmpty(); }));
}

TEST_F(VraiJoueur, AFileThatIsNoSoundIsTold) {
  JoueurGStreamer joueur("fakesink");
  QFile texte(Temporaire.filePath("texte.wav"));
  ASSERT_TRUE(texte.open(QIODevice::WriteOnly));
  texte.write("ceci n'est pas un son, et de loin pas");
  texte.close();
  Joue(joueur, texte.fileName());
  ASSERT_TRUE(AttendQue([this] { return !Fins.isEmpty(); }));
  EXPECT_EQ(Fins.first(), FinSon::kFichierMauvais);
  EXPECT_FALSE(Mots.isEmpty());
}

TEST_F(VraiJoueur, AFileThatIsGoneIsTold) {
  JoueurGStreamer joueur("fakesink");
  Joue(joueur, Temporaire.filePath("absent.wav"));
  ASSERT_TRUE(AttendQue([this] { return !Fins.isEmpty(); }));
  EXPECT_EQ(Fins.first(), FinSon::kFichierMauvais);
}

TEST_F(VraiJoueur, ADeviceThatCannotBeOpenedIsTold) {
  JoueurGStreamer joueur("filesink location=/proc/pas/la");
  Joue(joueur, EcritSon());
  ASSERT_TRUE(AttendQue([this] { return !Fins.isEmpty(); }));
  EXPECT_EQ(Fins.first(), FinSon::kSansAppareil);
}

TEST_F(VraiJoueur, AnOutputThatIsNotInstalledIsTold) {
  JoueurGStreamer joueur("sortiequinexistepas");
  Joue(joueur, EcritSon());
  ASSERT_TRUE(AttendQue([this] { return !Fins.isEmpty(); }));
  EXPECT_EQ(Fins.first(), FinSon::kSansAppareil);
  EXPECT_FALSE(joueur.EnCours());
}

// The output that looks for a device plays into nothing where it finds none, for as long as the sound lasts.
TEST_F(VraiJoueur, WithoutADeviceALongSoundIsToldAtOnce) {
  JoueurGStreamer joueur("autoaudiosink filter-caps=audio/x-of-no-device");
  Joue(joueur, EcritSon(8000 * 600));
  ASSERT_TRUE(AttendQue([this] { return !Fins.isEmpty(); }));
  EXPECT_EQ(Fins, QList<FinSon>{FinSon::kSansAppareil});
  EXPECT_FALSE(Mots.isEmpty());
}

TEST_F(VraiJoueur, CountsWhatTheDeviceTakes) {
  JoueurGStreamer joueur("fakesink sync=true");
  Joue(joueur, EcritSon(80'000));  // ten seconds
  ASSERT_TRUE(AttendQue([&] { return joueur.Progres() > 0; }));
  const quint64 avant = joueur.Progres();
  EXPECT_TRUE(AttendQue([&] { return joueur.Progres() > avant; }));
}

// A pipe that nobody reads: opening it hangs, as a sound server does that has stopped.
TEST_F(VraiJoueur, ADeviceThatHangsHoldsUpNobody) {
  const QString tube = Temporaire.filePath("tube");
  ASSERT_EQ(::mkfifo(QFile::encodeName(tube).constData(), 0600), 0);
  const JoueurGStreamer premier;  // its list of plugins may take seconds to make
  QElapsedTimer temps;
  temps.start();
  {
    JoueurGStreamer joueur("filesink location=" + tube);
    Joue(joueur, EcritSon());
    QTest::qWait(300);
    EXPECT_EQ(joueur.Progres(), 0U);
    joueur.Arrete();
    EXPECT_FALSE(joueur.EnCours());
    EXPECT_LT(temps.elapsed(), 10'000);
    QTest::qWait(1000);
    const auto ouverts = [] {
      return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
    };
    const qsizetype avant = ouverts();
    Joue(joueur, EcritSon());
    EXPECT_EQ(ouverts(), avant) << "behind it none is made, or they would gather";
    EXPECT_TRUE(AttendQue([this] { return !Fins.isEmpty(); })) << "the next sound has no device";
    EXPECT_EQ(Fins, QList<FinSon>{FinSon::kSansAppareil});
  }
  EXPECT_LT(temps.elapsed(), 15'000) << "its end does not wait for it either";
  QFile lecteur(tube);  // lets the thread go
  EXPECT_TRUE(lecteur.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
}

TEST_F(VraiJoueur, WhatIsStoppedSaysNothingMore) {
  JoueurGStreamer joueur("fakesink sync=true");
  Joue(joueur, EcritSon(800000));
  joueur.Arrete();
  EXPECT_FALSE(joueur.EnCours());
  QCoreApplication::processEvents();
  EXPECT_TRUE(Fins.isEmpty());
}

}  // namespace
}  // namespace vaktor::essai
