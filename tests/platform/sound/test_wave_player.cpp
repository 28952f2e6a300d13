// SPDX-License-Identifier: GPL-3.0-or-later
// The player against GStreamer, with files in place of a sound device.
#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <memory>
#include <thread>

#include "platform/sound/wave_player.h"

namespace vaktor {
namespace {

// Waits for the player's thread, far longer than it ever takes.
template <typename Condition>
bool Attend(Condition condition) {
  const QDeadlineTimer limite(20000);
  while (!condition() && !limite.hasExpired()) QThread::msleep(10);
  return condition();
}

QString Son(int n) { return QStringLiteral(VAKTOR_SOUNDS "\\%1.wav").arg(n); }

TEST(WavePlayer, SoundsOfTheProgramReachTheOutput) {
  const QTemporaryDir dossier;
  const QString sortie = dossier.filePath(QStringLiteral("out.raw"));
  const qint64 octets = QFileInfo(QStringLiteral(VAKTOR_SOUNDS "/4.wav")).size() - 44;
  LecteurGStreamer lecteur(QStringLiteral("filesink location=") + sortie);
  lecteur.Joue(Son(4));
  EXPECT_TRUE(Attend([&] { return QFileInfo(sortie).size() >= octets; }));
}

TEST(WavePlayer, NewSoundCutsTheOneThatPlays) {
  const QTemporaryDir dossier;
  const QString sortie = dossier.filePath(QStringLiteral("out.raw"));
  // In real time, so that the long sound is still at work when the short one comes.
  LecteurGStreamer lecteur(QStringLiteral("filesink sync=true location=") + sortie);
  const qint64 court = QFileInfo(QStringLiteral(VAKTOR_SOUNDS "/4.wav")).size() - 44;
  lecteur.Joue(Son(0));
  ASSERT_TRUE(Attend([&] { return QFileInfo::exists(sortie); }));
  lecteur.Joue(Son(4));
  // The file is begun anew by each sound: it ends with the length of the short one.
  EXPECT_TRUE(Attend([&] { return QFileInfo(sortie).size() == court; }));
}

TEST(WavePlayer, FileThatIsNoSoundIsSilentAndTheNextOnePlays) {
  const QTemporaryDir dossier;
  const QString sortie = dossier.filePath(QStringLiteral("out.raw"));
  const QString mauvais = dossier.filePath(QStringLiteral("bad.wav"));
  QFile fichier(mauvais);
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write("no sound at all");
  fichier.close();
  LecteurGStreamer lecteur(QStringLiteral("filesink location=") + sortie);
  lecteur.Joue(mauvais);
  lecteur.Joue(dossier.filePath(QStringLiteral("missing.wav")));
  lecteur.Joue(Son(4));
  EXPECT_TRUE(Attend([&] { return QFileInfo(sortie).size() > 0; }));
}

TEST(WavePlayer, NoDeviceIsSilentAndEndsAtOnce) {
  // The element refuses as a missing device does.
  LecteurGStreamer lecteur(QStringLiteral("filesink location=/no/such/folder/out"));
  for (int i = 0; i < 1000; ++i) lecteur.Joue(Son(4));
}

TEST(WavePlayer, MachineThatCanPlayNothingIsAskedBeforeEachSound) {
  const QTemporaryDir dossier;
  const QString sortie = dossier.filePath(QStringLiteral("out.raw"));
  std::atomic<int> questions = 0;
  // A device that is plugged in before the third sound.
  LecteurGStreamer lecteur(QStringLiteral("filesink location=") + sortie, [&questions] { return ++questions >= 3; });
  for (int i = 1; i <= 2; ++i) {
    lecteur.Joue(Son(4));
    ASSERT_TRUE(Attend([&] { return questions == i; }));
  }
  EXPECT_FALSE(QFileInfo::exists(sortie));
  lecteur.Joue(Son(4));
  EXPECT_TRUE(Attend([&] { return QFileInfo(sortie).size() > 0; }));
}

TEST(WavePlayer, OutputThatIsNotInstalledIsSilent) {
  LecteurGStreamer lecteur(QStringLiteral("nosuchelement"));
  lecteur.Joue(Son(4));
}

// What the thread was given is let go when it ends.
TEST(WavePlayer, TheEndOfThePlayerIsThatOfItsThread) {
  const auto temoin = std::make_shared<int>(0);
  {
    LecteurGStreamer lecteur(QStringLiteral("fakesink sync=true"), [temoin] { return true; });
    lecteur.Joue(Son(4));
  }
  EXPECT_TRUE(Attend([&] { return temoin.use_count() == 1; }));
}

// As one does that asks a sound server which hangs.
TEST(WavePlayer, ASoundSystemThatHangsKeepsItsThreadAndNotTheProgram) {
  struct Panne {
    std::atomic<bool> Pend = false, Finie = false, Rendue = false;
  };
  const auto panne = std::make_shared<Panne>();
  std::atomic<bool> parti = false;
  std::thread reveil([&] {
    Attend([&] { return parti.load(); });
    panne->Finie = true;
  });
  {
    LecteurGStreamer lecteur(QStringLiteral("fakesink"), [panne] {
      panne->Pend = true;
      Attend([&] { return panne->Finie.load(); });
      panne->Rendue = true;
      return false;
    });
    lecteur.Joue(Son(4));
    ASSERT_TRUE(Attend([&] { return panne->Pend.load(); }));
  }
  EXPECT_FALSE(panne->Rendue);
  parti = true;
  reveil.join();
  EXPECT_TRUE(Attend([&] { return panne->Rendue.load(); }));
}

}  // namespace
}  // namespace vaktor
