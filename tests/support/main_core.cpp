// SPDX-License-Identifier: GPL-3.0-or-later
// Entry point of tests without windows.
#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
