// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <cerrno>

#include "platform/store/bounded_file.h"
#include "support/file_bytes.h"

namespace vaktor::essai {
namespace {

TEST(BoundedFile, IsReadUpToItsLimitAndNotAByteFurther) {
  const QTemporaryDir dossier;
  const QString fichier = dossier.filePath("f");
  QByteArray lus;
  ASSERT_TRUE(EcritOctets(fichier, QByteArray(100, 'x')));
  EXPECT_EQ(LitFichierBorne(fichier, 100, lus), 0);
  EXPECT_EQ(lus, QByteArray(100, 'x'));
  EXPECT_EQ(LitFichierBorne(fichier, 99, lus), EFBIG);
  EXPECT_TRUE(lus.isEmpty());
}

}  // namespace
}  // namespace vaktor::essai
