// SPDX-License-Identifier: GPL-3.0-or-later
// The page as a visitor sees it: in a real browser, from a local web server.
#include <gtest/gtest.h>

#include <QStandardPaths>

#include "modules/ftp/ftp_test_server.h"
#include "modules/ftp/live_page.h"

namespace vaktor::essai {
namespace {

bool EcritUnie(const QString& chemin, const QColor& couleur, QSize taille) {
  QImage image(taille, QImage::Format_RGB32);
  image.fill(couleur);
  return image.save(chemin, "JPG", 95);
}

TEST(PageInBrowser, IsReadableEverywhereAndItsPictureChanges) {
  if (QStandardPaths::findExecutable("chromium").isEmpty())
    GTEST_SKIP() << "the package chromium is not installed (scripts/packages-slow.txt)";
  const QTemporaryDir site;
  // VAKTOR_CAPTURES: a folder where the screenshots are kept, for whoever wants to look at them.
  const QString captures = qEnvironmentVariable("VAKTOR_CAPTURES", site.path());
  ContenuPage contenu;
  contenu.Parlee = Langue::kFrancais;
  contenu.Couleur = 2;
  contenu.Intervalle = 500;
  for (int i = 59; i >= 0; --i) {
    const QString nom = QStringLiteral("2026-11-15  14-05-%1 Photo 000%1 é.jpg").arg(i, 2, 10, QChar('0'));
    contenu.Photos << PhotoPubliee{nom, QDateTime(QDate(2026, 11, 15), QTime(14, 5, i))};
    ASSERT_TRUE(EcritUnie(site.filePath(nom), QColor::fromHsv(i * 6, 160, 200), {640, 480}));
  }
  ASSERT_TRUE(EcritUnie(site.filePath("first.jpg"), Qt::blue, {640, 480}));
  ASSERT_TRUE(EcritUnie(site.filePath("next.jpg"), Qt::red, {640, 480}));
  ASSERT_TRUE(EcritOctets(site.filePath(kNomPage), CreePageLive(contenu)));
  QProcess visiteur;
  visiteur.setProcessChannelMode(QProcess::MergedChannels);
  visiteur.start("/usr/bin/python3", {VAKTOR_LOOK_AT_PAGE, site.path(), captures});
  ASSERT_TRUE(visiteur.waitForFinished(240000));
  const QByteArray dit = visiteur.readAll();
  EXPECT_EQ(visiteur.exitCode(), 0) << dit.toStdString();
  std::printf("%s", dit.constData());
}

}  // namespace
}  // namespace vaktor::essai
