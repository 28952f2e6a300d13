#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Pictures of the real program's main window, to be looked at: four pages, three skins, two languages, at each of the
# scales given. Works on virtual screens and in throw-away folders.
#
#   scripts/screenshots.sh PROGRAM FOLDER [SCALE...]        scales: 1 2 unless told otherwise, also 1.25 or 1.5
#
# SKINS and LANGUAGES in the environment narrow the choice: SKINS="2" LANGUAGES="0 1".
set -u

programme=$1
sortie=$2
shift 2
echelles=${*:-1 2}
mkdir -p "$sortie" || exit 1

# photographie SCALE SKIN LANGUAGE: one run of the program. The camera runs, so that the window is at work.
photographie() {
  local echelle=$1 skin=$2 langue=$3 dossier fenetre page pid
  dossier=$(mktemp -d "${TMPDIR:-/tmp}/vaktor-shots.XXXXXX") || return 1
  printf '[%%general]\nlangue=%s\nskin=%s\n\n[PHOTO]\nactif=1\n' "$langue" "$skin" > "$dossier/vaktor.ini"
  chmod 600 "$dossier/vaktor.ini"
  env -u WAYLAND_DISPLAY QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR="$echelle" "$programme" /camera:test "/dossier:$dossier" > "$dossier/log" 2>&1 &
  pid=$!
  fenetre=$(attend_fenetre "$(calcule "398 * $echelle + 0.5")") || { cat "$dossier/log"; kill "$pid"; return 1; }
  xdotool windowmove "$fenetre" 0 0
  sleep 1
  clique() {
    xdotool mousemove --window "$fenetre" "$(calcule "$1 * $echelle")" "$(calcule "$2 * $echelle")" click 1
    sleep 0.4
  }
  clique 44 16
  sleep "${WAIT:-3}"
  # Page number and the place of its tab.
  for page in 1:44 3:116 0:188 2:260; do
    clique "${page#*:}" 71
    xdotool mousemove --window "$fenetre" "$(calcule "395 * $echelle")" "$(calcule "238 * $echelle")"
    sleep 0.3
    import -silent -window "$fenetre" "$sortie/x${echelle}_s${skin}_l${langue}_p${page%:*}.png"
  done
  kill -TERM "$pid"
  wait "$pid"
  rm -rf "$dossier"
}

# attend_fenetre WIDTH: the program's window of this width; the splash has the same title and another size.
attend_fenetre() {
  local tour id
  for ((tour = 0; tour < 100; tour++)); do
    for id in $(xdotool search --onlyvisible --name '^Vaktor$' 2> /dev/null); do
      xdotool getwindowgeometry --shell "$id" 2> /dev/null | grep -q "^WIDTH=$1$" && echo "$id" && return 0
    done
    sleep 0.2
  done
  return 1
}

calcule() { awk "BEGIN { printf \"%d\", $1 + 0.001 }"; }

# The server picks a free number by itself and tells it.
tuyau=$(mktemp -u "${TMPDIR:-/tmp}/vaktor-screen.XXXXXX")
mkfifo "$tuyau" || exit 1
Xvfb -displayfd 7 -screen 0 2600x1400x24 -nolisten tcp 7> "$tuyau" 2> /dev/null &
ecran=$!
trap 'kill "$ecran"' EXIT
read -r -t 20 numero < "$tuyau" || exit 1
rm -f "$tuyau"
export DISPLAY=:$numero

for echelle in $echelles; do
  for skin in ${SKINS:-0 1 2}; do
    for langue in ${LANGUAGES:-0 1}; do photographie "$echelle" "$skin" "$langue"; done
  done
done
