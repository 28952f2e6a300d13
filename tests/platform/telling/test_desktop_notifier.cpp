// SPDX-License-Identifier: GPL-3.0-or-later
// The real notifier, against a program of the test that stands in the place of notify-send.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/telling/desktop_notifier.h"

namespace vaktor {
namespace {

class Notifieur : public testing::Test {
 public:
  ~Notifieur() override { qputenv("PATH", Chemin_); }

 protected:
  Notifieur() : Chemin_(qgetenv("PATH")) {}
  // Writes its arguments, one a line, and renames the file when it is whole.
  void PoseProgramme(const QByteArray& avant = {}) {
    QFile faux(Dossier_.filePath(QStringLiteral("notify-send")));
    ASSERT_TRUE(faux.open(QIODevice::WriteOnly));
    const QByteArray cible = QFile::encodeName(Dossier_.filePath(QStringLiteral("args")));
    faux.write("#!/bin/sh\n" + avant + "\nprintf '%s\\n' \"$@\" > " + cible + ".part; mv " + cible + ".part " + cible +
               "\n");
    faux.close();
    faux.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("PATH", QFile::encodeName(Dossier_.path()) + ':' + Chemin_);
  }
  QString LitArguments() const {
    const QString cible = Dossier_.filePath(QStringLiteral("args"));
    if (!QTest::qWaitFor([&cible] { return QFile::exists(cible); }, 20000)) return {};
    QFile fichier(cible);
    return fichier.open(QIODevice::ReadOnly) ? QString::fromUtf8(fichier.readAll()) : QString();
  }

  QTemporaryDir Dossier_;
  QByteArray Chemin_;
};

TEST_F(Notifieur, HandsTitleAndTextToTheDesktopWithoutAShellAndWithoutMarkup) {
  PoseProgramme();
  NotifieurSysteme notifieur;
  notifieur.Notifie(QStringLiteral("--title `id`"), QString::fromUtf8("é <b>&\n\"x\""), true);
  EXPECT_EQ(LitArguments(), QString::fromUtf8("--app-name=Vaktor\n--urgency=critical\n--\n--title `id`\n"
                                              "é &lt;b&gt;&amp;\n&quot;x&quot;\n"));
}

TEST_F(Notifieur, ANoticeDoesNotStandUntilItIsTakenAway) {
  PoseProgramme();
  NotifieurSysteme notifieur;
  notifieur.Notifie(QStringLiteral("t"), QStringLiteral("x"), false);
  EXPECT_TRUE(LitArguments().contains(QStringLiteral("--urgency=normal\n")));
}

TEST_F(Notifieur, DoesNotWaitForTheDesktop) {
  PoseProgramme("sleep 5");
  NotifieurSysteme notifieur;
  QElapsedTimer temps;
  temps.start();
  notifieur.Notifie(QStringLiteral("t"), QStringLiteral("x"), true);
  EXPECT_LT(temps.elapsed(), 4000);
  EXPECT_FALSE(LitArguments().isEmpty());
}

// A camera that a library has opened would else be in use for as long as the desktop's program runs.
TEST_F(Notifieur, TheDesktopsProgramGetsNoneOfOurFiles) {
  PoseProgramme("set -- \"$(ls -l /proc/$$/fd)\"");
  const QByteArray nom = QFile::encodeName(Dossier_.filePath(QStringLiteral("a-nous")));
  const int ouvert = ::open(nom.constData(), O_CREAT | O_RDWR, 0600);
  ASSERT_GE(ouvert, 3);
  NotifieurSysteme notifieur;
  notifieur.Notifie(QStringLiteral("t"), QStringLiteral("x"), true);
  const QString herites = LitArguments();
  ::close(ouvert);
  EXPECT_TRUE(herites.contains(QStringLiteral("->"))) << herites.toStdString();
  EXPECT_FALSE(herites.contains(QStringLiteral("a-nous"))) << herites.toStdString();
}

TEST_F(Notifieur, WithoutTheProgramNothingHappens) {
  qputenv("PATH", QFile::encodeName(Dossier_.path()));
  NotifieurSysteme notifieur;
  notifieur.Notifie(QStringLiteral("t"), QStringLiteral("x"), true);
  QTest::qWait(100);
  EXPECT_TRUE(QDir(Dossier_.path()).isEmpty());
}

}  // namespace
}  // namespace vaktor
