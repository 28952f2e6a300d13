// SPDX-License-Identifier: GPL-3.0-or-later
// Whole companion programs against the real main-program side of the channel: the sound companion, and the example that
// the manual gives to writers of companions.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>

#include "companions/contract/command_words.h"
#include "support/companion_program.h"
#include "support/file_bytes.h"
#include "support/memory_image.h"

namespace vaktor::essai {
namespace {

struct Programmes : ProgrammeCompagnon {
  void Lance(const QString& programme, const QStringList& arguments = {}) {
    PrepareMilieu();
    Demarre(programme, arguments);
  }
  bool AttendInscription() {
    return AttendQue([this] { return Etat.HandleSon != 0; });
  }
  /// To be awaited before "Quit*": that word goes out at once, and what was not taken by then goes unless it is kept.
  bool AttendPrise() {
    return AttendQue([this] { return Canal.DonnePrise(Etat.HandleSon) == Prise::kRien; });
  }
  QString LitJournal() const { return LitTexte(Temporaire.filePath("etat/VAKTORsound.log")); }
};

TEST_F(Programmes, TheSoundCompanionRegistersAndEndsWhenItIsTold) {
  Lance(VAKTOR_SOUND);
  ASSERT_TRUE(AttendInscription());
  EXPECT_TRUE(NeLaisseAucuneImage(Programme.processId()));
  EXPECT_EQ(Dossier.Repond(Etat.HandleSon), true);
  Envois.EnvoiSon(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(Programme.exitCode(), 0);
  EXPECT_EQ(Dossier.Repond(Etat.HandleSon), false) << "it takes its box with it";
}

TEST_F(Programmes, TheSoundCompanionReadsTheStoreAgainWhenItIsTold) {
  Lance(VAKTOR_SOUND);
  ASSERT_TRUE(AttendInscription());
  Magasin.EcritReglage("SON", "index", "3");
  Magasin.EcritReglage("SON", "Repertoire", "/pas/la/mon son.wav");
  Magasin.Vide();
  Envois.EnvoiSon(Commande::kOptions);
  for (int i = 0; i < 10; ++i) {
    Envois.EnvoiSon(Commande::kIntrusion);
    ASSERT_TRUE(AttendPrise());  // else equal ones are folded into one
  }
  Envois.EnvoiSon(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(LitJournal().count("/pas/la/mon son.wav"), 1) << "told once";
}

TEST_F(Programmes, WhatTheStoreSaysReachesARunningCompanionOnlyWhenItIsTold) {
  Magasin.EcritReglage("SON", "index", "3");
  Magasin.EcritReglage("SON", "Repertoire", "/pas/la/avant.wav");
  Magasin.Vide();
  Lance(VAKTOR_SOUND);
  ASSERT_TRUE(AttendInscription());
  Magasin.EcritReglage("SON", "Repertoire", "/pas/la/apres.wav");
  Magasin.Vide();
  for (int i = 0; i < 3; ++i) {
    Envois.EnvoiSon(Commande::kIntrusion);
    ASSERT_TRUE(AttendPrise());
  }
  EXPECT_TRUE(AttendQue([this] { return LitJournal().contains("/pas/la/avant.wav"); }));
  EXPECT_FALSE(LitJournal().contains("/pas/la/apres.wav"));
  Envois.EnvoiSon(Commande::kOptions);
  ASSERT_TRUE(AttendPrise());
  Envois.EnvoiSon(Commande::kIntrusion);
  EXPECT_TRUE(AttendQue([this] { return LitJournal().contains("/pas/la/apres.wav"); }));
}

TEST_F(Programmes, TheSoundCompanionRegistersAgainWhenTheMainProgramComesBack) {
  Lance(VAKTOR_SOUND);
  ASSERT_TRUE(AttendInscription());
  Form.reset();
  Etat = {};
  Form = OuvreForm();
  EXPECT_TRUE(AttendInscription());
}

TEST_F(Programmes, AStoreThatCannotBeReadAtItsStartIsReadWhenItRegisters) {
  Magasin.EcritReglage("SON", "index", "3");
  Magasin.EcritReglage("SON", "Repertoire", "/pas/la/mon son.wav");
  Magasin.Vide();
  const QString magasin = Temporaire.filePath("vaktor.ini");
  const QString cote = Temporaire.filePath("cote");
  ASSERT_TRUE(QFile::rename(magasin, cote) && QDir().mkdir(magasin));
  Lance(VAKTOR_SOUND);
  ASSERT_TRUE(AttendQue([&] { return LitJournal().contains("vaktor.ini"); })) << LitJournal().toStdString();
  ASSERT_TRUE(QDir().rmdir(magasin) && QFile::rename(cote, magasin));
  ASSERT_TRUE(AttendInscription());
  Envois.EnvoiSon(Commande::kIntrusion);
  ASSERT_TRUE(AttendPrise());
  Envois.EnvoiSon(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  EXPECT_TRUE(LitJournal().contains("/pas/la/mon son.wav"));
}

TEST_F(Programmes, AStoreThatCannotBeReadWhenItWasSavedIsReadALittleLater) {
  Lance(VAKTOR_SOUND);
  ASSERT_TRUE(AttendInscription());
  Magasin.EcritReglage("SON", "index", "3");
  Magasin.EcritReglage("SON", "Repertoire", "/pas/la/mon son.wav");
  Magasin.Vide();
  const QString magasin = Temporaire.filePath("vaktor.ini");
  const QString cote = Temporaire.filePath("cote");
  ASSERT_TRUE(QFile::rename(magasin, cote) && QDir().mkdir(magasin));
  Envois.EnvoiSon(Commande::kOptions);
  ASSERT_TRUE(AttendPrise());
  ASSERT_TRUE(AttendQue([&] { return LitJournal().contains("vaktor.ini"); })) << LitJournal().toStdString();
  ASSERT_TRUE(QDir().rmdir(magasin) && QFile::rename(cote, magasin));
  EXPECT_TRUE(AttendQue([&] {
    Envois.EnvoiSon(Commande::kIntrusion);
    return AttendPrise() && LitJournal().contains("/pas/la/mon son.wav");
  }));
}

TEST_F(Programmes, TheSoundCompanionEndsTidilyOnASignal) {
  Lance(VAKTOR_SOUND);
  ASSERT_TRUE(AttendInscription());
  Programme.terminate();
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(Programme.exitCode(), 0);
  EXPECT_TRUE(LitJournal().contains("signal"));
}

TEST_F(Programmes, ItTellsItsVersionAndItsUse) {
  Lance(VAKTOR_SOUND, {"--version"});
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.readAll(), "VAKTORsound " VAKTOR_VERSION "\n");
  EXPECT_EQ(Programme.exitCode(), 0);
  Lance(VAKTOR_SOUND, {"--help"});
  ASSERT_TRUE(AttendFin());
  const QString aide = QString::fromUtf8(Programme.readAll());
  EXPECT_TRUE(aide.contains("Joue le son") && aide.contains("Plays the alarm sound"));
  EXPECT_EQ(Programme.exitCode(), 0);
  Lance(VAKTOR_SOUND, {"--quoi"});
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitCode(), 2);
}

TEST_F(Programmes, WithoutAChannelItSaysSoAndEnds) {
  ASSERT_EQ(::chmod(QFile::encodeName(Dossier.Chemin()).constData(), 0755), 0);
  qputenv(kVariableCanal.data(), QFile::encodeName(Dossier.Chemin()));  // as told: no other folder is looked for
  Lance(VAKTOR_SOUND);
  qunsetenv(kVariableCanal.data());
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitCode(), 1);
  EXPECT_TRUE(QString::fromUtf8(Programme.readAll()).contains("run/vaktor"));
}

/// The program between the marks of the first Python block of the manual.
QString LitExemple() {
  QFile manuel(VAKTOR_COMPANIONS_MD);
  if (!manuel.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(manuel.readAll()).section("```python\n", 1, 1).section("```", 0, 0);
}

struct Exemple : Programmes {
  void SetUp() override {
    Magasin.EcritReglage("general", "langue", "1");
    Magasin.EcritReglage("SON", "index", "2");
    Magasin.Vide();
    QFile script(Temporaire.filePath("VAKTORsound"));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    script.write(LitExemple().toUtf8());
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    script.close();
    Lance(script.fileName());
    ASSERT_TRUE(AttendInscription()) << Programme.readAll().toStdString();
  }
};

TEST_F(Exemple, ItIsShort) {
  EXPECT_GT(LitExemple().count('\n'), 20);
  EXPECT_LT(LitExemple().count('\n'), 45);
}

TEST_F(Exemple, ItDoesWhatTheManualSays) {
  Envois.EnvoiSon(Commande::kIntrusion);
  ASSERT_TRUE(AttendPrise());
  Magasin.EcritReglage("SON", "index", "1");
  Magasin.Vide();
  Envois.EnvoiSon(Commande::kOptions);
  Envois.EnvoiSon(Commande::kIntrusion);
  ASSERT_TRUE(AttendPrise());
  Envois.EnvoiSon(Commande::kQuitte);
  ASSERT_TRUE(AttendFin());
  const QString dit = QString::fromUtf8(Programme.readAll());
  EXPECT_TRUE(dit == "intrusion, sound 2\nintrusion, sound 1\n" || dit == "intrusion, sound 1\nintrusion, sound 1\n")
      << dit.toStdString();  // the first intrusion may be read after the save
  EXPECT_EQ(Programme.exitCode(), 0);
}

TEST_F(Exemple, ItEndsWhenTheMainProgramIsGone) {
  Form.reset();
  ASSERT_TRUE(AttendFin());
  EXPECT_EQ(Programme.exitCode(), 0);
}

}  // namespace
}  // namespace vaktor::essai
