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

TEST_F(EcranDeDemonstration, IsNotTheDesktopOfWhoeverSitsThere) {
  const QString commandes = QStringLiteral(R"bash(
    dossier=$racine WAYLAND_DISPLAY=wayland-0 XDG_SESSION_TYPE=wayland QT_QPA_PLATFORM=wayland
    export WAYLAND_DISPLAY XDG_SESSION_TYPE QT_QPA_PLATFORM
    ouvre_ecran || { echo "no screen"; exit; }
    echo "${WAYLAND_DISPLAY-none} $XDG_SESSION_TYPE $QT_QPA_PLATFORM"
    kill "$pid_ecran")bash");
  EXPECT_EQ(Dit("demo.sh", commandes), "none x11 xcb\n");
}

TEST_F(EcranDeDemonstration, IsNotNeededWhereXAnswersOrACompositorListens) {
  const QString commandes = QStringLiteral(R"bash(
    dossier=$racine
    dit() { a_un_ecran && echo "$1" || echo "not $1"; }
    unset DISPLAY WAYLAND_DISPLAY
    export XDG_RUNTIME_DIR=$racine
    dit none
    DISPLAY=:32999 dit dead
    WAYLAND_DISPLAY=wayland-9 dit gone
    python3 -c 'import socket, sys; socket.socket(socket.AF_UNIX).bind(sys.argv[1])' "$racine/wayland-9"
    WAYLAND_DISPLAY=wayland-9 dit wayland
    WAYLAND_DISPLAY=$racine/wayland-9 dit path
    ouvre_ecran || { echo "no screen"; exit; }
    dit x
    kill "$pid_ecran")bash");
  EXPECT_EQ(Dit("demo.sh", commandes), "not none\nnot dead\nnot gone\nwayland\npath\nx\n");
}

}  // namespace
}  // namespace vaktor
