// SPDX-License-Identifier: GPL-3.0-or-later
// Tests on a disk whose power can be cut and that can be told to hang.
#pragma once

#include <gtest/gtest.h>

#include <QDir>
#include <memory>

#include "support/small_disk.h"
#include "support/volatile_disk.h"

namespace vaktor {

/// Such a disk, which goes with the test; skips the test where it cannot be mounted.
class SurDisqueVolatil : public testing::Test {
 protected:
  void SetUp() override {
    if (!Petit_.EstMonte()) GTEST_SKIP() << Petit_.Raison();
    const QString dossier = Petit_.Chemin() + QStringLiteral("/volatil");
    ASSERT_TRUE(QDir().mkdir(dossier));
    Disque = std::make_unique<DisqueVolatil>(dossier);
    if (!Disque->EstMonte()) GTEST_SKIP() << Disque->Raison();
  }
  QString Chemin(const char* suite = "") const { return Disque->Chemin() + QString::fromUtf8(suite); }
  /// A folder of another disk, which always answers.
  QString Ailleurs() const { return Petit_.Chemin(); }

  std::unique_ptr<DisqueVolatil> Disque;

 private:
  PetitDisque Petit_{16 * 1024 * 1024};
};

}  // namespace vaktor
