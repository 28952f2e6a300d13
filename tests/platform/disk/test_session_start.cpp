// SPDX-License-Identifier: GPL-3.0-or-later
// The entry that the desktop starts at the login: its words, its file, and what a desktop makes of it.
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <atomic>
#include <thread>

#include "platform/disk/session_start.h"
#include "support/dead_folder.h"

namespace vaktor {
namespace {

class Session : public testing::Test {
 protected:
  QString Entree(const QString& dossier = {}) { return Autostart + u'/' + NommeEntreeSession(dossier); }
  static QByteArray Lit(const QString& fichier) {
    QFile lu(fichier);
    return lu.open(QIODevice::ReadOnly) ? lu.readAll() : QByteArray();
  }
  static void Ecrit(const QString& fichier, const QByteArray& contenu) {
    QFile ecrit(fichier);
    ASSERT_TRUE(ecrit.open(QIODevice::WriteOnly));
    ecrit.write(contenu);
  }

  QTemporaryDir Dossier;
  const QString Autostart = Dossier.path() + QStringLiteral("/autostart");
};

TEST_F(Session, ComesWithItsFolderAndGoesAgain) {
  DemarrageSessionXdg session(Autostart, {QStringLiteral("/opt/v/Vaktor"), {}, {}});
  EXPECT_FALSE(session.EstVoulue());
  EXPECT_TRUE(session.Veut(true));
  EXPECT_TRUE(session.EstVoulue());
  EXPECT_EQ(QFile::permissions(Entree()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
  EXPECT_TRUE(Lit(Entree()).contains("\nExec=\"/opt/v/Vaktor\" /alarm\n")) << Lit(Entree()).constData();
  EXPECT_TRUE(Lit(Entree()).contains("\nIcon=vaktor\n")) << "as it is installed, like that of the menu";
  EXPECT_TRUE(session.Veut(true)) << "again is nothing";
  EXPECT_TRUE(session.Veut(false));
  EXPECT_FALSE(QFile::exists(Entree()));
  EXPECT_FALSE(session.EstVoulue());
  EXPECT_TRUE(session.Veut(false)) << "it is as it was asked";
}

TEST_F(Session, EntryThatADesktopHasSwitchedOffIsNotWanted) {
  DemarrageSessionXdg session(Autostart, {QStringLiteral("/opt/v/Vaktor"), {}, {}});
  ASSERT_TRUE(session.Veut(true));
  const QByteArray entree = Lit(Entree());
  for (const char* ligne : {"Hidden=true\n", "Hidden = true\n", "X-GNOME-Autostart-enabled=false\n"}) {
    Ecrit(Entree(), entree + ligne);
    EXPECT_FALSE(session.EstVoulue()) << ligne;
  }
  EXPECT_TRUE(session.Veut(true));
  EXPECT_TRUE(session.EstVoulue());
}

// A copy that was moved or removed since, or this one when it was started with another camera: nobody would watch, or
// what nobody wants is watched, and the box would be ticked over it.
TEST_F(Session, EntryThatStartsAnythingElseIsNotWantedUntilItIsWrittenAnew) {
  DemarrageSessionXdg session(Autostart, {QStringLiteral("/opt/v/Vaktor"), QStringLiteral("rtsp://h/1"), {}});
  for (const LancementSession& autre :
       {LancementSession{QStringLiteral("/home/u/Vaktor"), QStringLiteral("rtsp://h/1"), {}},
        LancementSession{QStringLiteral("/opt/v/Vaktor"), QStringLiteral("/dev/video0"), {}},
        LancementSession{QStringLiteral("/opt/v/Vaktor"), {}, {}}}) {
    ASSERT_TRUE(DemarrageSessionXdg(Autostart, autre).Veut(true));
    EXPECT_FALSE(session.EstVoulue()) << qUtf8Printable(autre.Programme + autre.Camera);
  }
  ASSERT_TRUE(session.Veut(true));
  EXPECT_TRUE(session.EstVoulue());
}

// Who names a film there starts all the same; the box waits for no disk either.
TEST_F(Session, FilmOnADiskThatDoesNotAnswerHoldsNobody) {
  DossierMort mort;
  if (!mort.EstMonte()) GTEST_SKIP() << mort.Raison();
  std::atomic<bool> fini = false;
  std::thread reveil([&] {  // so that this test fails and does not hang
    for (int i = 0; i < 150 && !fini; ++i) QThread::msleep(100);
    mort.Reveille();
  });
  QElapsedTimer temps;
  temps.start();
  DemarrageSessionXdg session(Autostart, {QStringLiteral("/opt/v/Vaktor"), mort.Chemin("/film.mkv"), {}});
  EXPECT_FALSE(session.EstVoulue());
  EXPECT_LT(temps.elapsed(), 8000);
  fini = true;
  reveil.join();
}

TEST_F(Session, FolderThatCannotBeMadeIsToldAndChangesNothing) {
  Ecrit(Autostart, "a file stands where the folder would");
  DemarrageSessionXdg session(Autostart, {QStringLiteral("/opt/v/Vaktor"), {}, {}});
  EXPECT_FALSE(session.Veut(true));
  EXPECT_FALSE(session.EstVoulue());
}

TEST_F(Session, EachFolderOfSettingsHasAnEntryOfItsOwn) {
  DemarrageSessionXdg sans(Autostart, {QStringLiteral("/opt/v/Vaktor"), {}, {}});
  DemarrageSessionXdg une(Autostart, {QStringLiteral("/opt/v/Vaktor"), {}, QStringLiteral("/home/u/one")});
  DemarrageSessionXdg autre(Autostart, {QStringLiteral("/opt/v/Vaktor"), {}, QStringLiteral("/home/u/two")});
  ASSERT_TRUE(sans.Veut(true));
  ASSERT_TRUE(une.Veut(true));
  EXPECT_FALSE(autre.EstVoulue());
  ASSERT_TRUE(autre.Veut(true));
  EXPECT_EQ(QDir(Autostart).entryList(QDir::Files).size(), 3);
  ASSERT_TRUE(une.Veut(false));
  EXPECT_TRUE(sans.EstVoulue());
  EXPECT_TRUE(autre.EstVoulue());
  EXPECT_EQ(NommeEntreeSession(QStringLiteral("/home/u/one/")), NommeEntreeSession(QStringLiteral("/home/u/one")));
}

TEST_F(Session, SignsOfItsWordsAreWrittenAsTheDesktopReadsThem) {
  const QByteArray entree = ComposeEntreeSession({QStringLiteral("/a \"b\" $c `d` \\e %f"), {}, {}});
  EXPECT_TRUE(entree.contains(R"(Exec="/a \\"b\\" \\$c \\`d\\` \\\\e %%f" /alarm)")) << entree.constData();
}

TEST_F(Session, FolderAndFilmAreNamedFromTheRootWhereverTheProgramStood) {
  const QString ici = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(Dossier.path()));
  Ecrit(QStringLiteral("film.mkv"), "x");
  DemarrageSessionXdg film(Autostart,
                           {QStringLiteral("/opt/v/Vaktor"), QStringLiteral("film.mkv"), QStringLiteral("one")});
  DemarrageSessionXdg adresse(Autostart, {QStringLiteral("/opt/v/Vaktor"), QStringLiteral("test"), {}});
  const QString racine = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(ici));
  ASSERT_TRUE(film.Veut(true));
  EXPECT_TRUE(film.EstVoulue());
  ASSERT_TRUE(adresse.Veut(true));
  const QByteArray entree = Lit(Entree(racine + QStringLiteral("/one")));
  EXPECT_TRUE(entree.contains("\"/camera:" + racine.toUtf8() + "/film.mkv\"")) << entree.constData();
  EXPECT_TRUE(entree.contains("\"/dossier:" + racine.toUtf8() + "/one\"")) << entree.constData();
  EXPECT_TRUE(Lit(Entree()).contains("\"/camera:test\""));
}

// As GLib reads it, which desktops start their entries with.
TEST_F(Session, DesktopStartsTheProgramWithItsVeryWords) {
  const QString etrange = Dossier.path() + QStringLiteral("/a b \"c\" $HOME `d` \\e");
  const QString dossier = etrange + QStringLiteral(" %f");  // GLib itself starts no program with such a name
  ASSERT_TRUE(QDir().mkpath(etrange));
  const QString programme = etrange + QStringLiteral("/Vaktor");
  Ecrit(programme, "#!/bin/sh\nfor mot in \"$0\" \"$@\"; do printf '%s\\n' \"$mot\"; done > \"$SORTIE\"\n");
  QFile::setPermissions(programme, QFile::ReadOwner | QFile::ExeOwner);
  DemarrageSessionXdg session(Autostart, {programme, QStringLiteral("rtsp://u:p%40s@h/1"), dossier});
  ASSERT_TRUE(session.Veut(true));
  const QString sortie = Dossier.path() + QStringLiteral("/out");
  qputenv("SORTIE", sortie.toUtf8());
  QProcess bureau;
  bureau.start(QStringLiteral("gio"), {QStringLiteral("launch"), Entree(dossier)});
  if (!bureau.waitForStarted()) GTEST_SKIP() << "no gio here";
  ASSERT_TRUE(bureau.waitForFinished());
  for (int i = 0; i < 200 && Lit(sortie).count('\n') < 4; ++i)
    QProcess::execute(QStringLiteral("sleep"), {QStringLiteral("0.05")});
  EXPECT_EQ(QString::fromUtf8(Lit(sortie)).split(u'\n', Qt::SkipEmptyParts),
            QStringList({programme, QStringLiteral("/alarm"), QStringLiteral("/camera:rtsp://u:p%40s@h/1"),
                         QStringLiteral("/dossier:") + dossier}));
}

}  // namespace
}  // namespace vaktor
