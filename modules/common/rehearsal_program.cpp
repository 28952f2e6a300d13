// SPDX-License-Identifier: GPL-3.0-or-later
#include "modules/common/rehearsal_program.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include "platform/base/core_file.h"

namespace vaktor {

namespace {
constexpr qint64 kDemandeMax = 1024LL * 1024;
}

int ExecuteRepetition(int argc, char** argv,
                      const std::function<FinRepetition(const QByteArray& demande, const EcritureLigne& ecrit)>& joue) {
  InterditImageMemoire();
  const QCoreApplication application(argc, argv);
  QFile entree;
  if (!entree.open(stdin, QIODevice::ReadOnly)) return static_cast<int>(FinRepetition::kDemandeIllisible);
  QTextStream sortie(stdout);
  return static_cast<int>(joue(entree.read(kDemandeMax), [&](const QString& ligne) { sortie << ligne << Qt::endl; }));
}

}  // namespace vaktor
