// SPDX-License-Identifier: GPL-3.0-or-later
// What the questions to Linux answer when there is no camera behind a name. One that is
// refused: test_no_permission.cpp. With real drivers: tests/vm.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>

#include "support/camera_list.h"

namespace vaktor {
namespace {

void AttendRien(const QString& noeud) {
  EXPECT_TRUE(ListeFormats(noeud).isEmpty()) << noeud.toStdString();
  EXPECT_TRUE(ListeReglages(noeud).isEmpty()) << noeud.toStdString();
  EXPECT_FALSE(AppliqueReglage(noeud, 0x00980900, 1)) << noeud.toStdString();
}

TEST(NoeudSansCamera, GivesNothing) {
  QTemporaryDir dossier;
  const QString fichier = dossier.filePath("fichier");
  QFile f(fichier);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  for (const QString& noeud : {QString(), QString("/dev/video999999"), QString("/dev/null"), QString("/"), fichier})
    AttendRien(noeud);
}

TEST(NoeudSansCamera, AFifoHoldsNobodyUp) {
  QTemporaryDir dossier;
  const QString fifo = dossier.filePath("fifo");
  ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
  AttendRien(fifo);
}

TEST(RetrouvePeripherique, AnUnknownNameIsNotFound) {
  EXPECT_EQ(RetrouvePeripherique(""), std::nullopt);
  EXPECT_EQ(RetrouvePeripherique("uvcvideo|No such camera|usb-9-9"), std::nullopt);
  EXPECT_EQ(RetrouvePeripherique("/dev/v4l/by-id/none"), std::nullopt);
}

}  // namespace
}  // namespace vaktor
