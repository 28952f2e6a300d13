// SPDX-License-Identifier: GPL-3.0-or-later
// The virtual screen of a demonstration, on which a camera's picture can be seen.
#include "scripts/script_of_run.h"

namespace vaktor {
namespace {

using EcranDeDemonstration = ScriptDeRun;

TEST_F(EcranDeDemonstration, IsForItsUserAlone) {
  const QString commandes = QStringLiteral(R"bash(
    dossier=$racine
    ouvre_ecran || { echo "no screen"; exit; }
    xdpyinfo > /dev/null 2>&1 && echo "ours"
    XAUTHORITY=/dev/null xdpyinfo > /dev/null 2>&1 && echo "anybody's"
    stat -c %a "$XAUTHORITY"
    kill "$pid_ecran")bash");
  EXPECT_EQ(Dit("demo.sh", commandes), "ours\n600\n");
}

}  // namespace
}  // namespace vaktor
