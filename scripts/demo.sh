# SPDX-License-Identifier: GPL-3.0-or-later
# Vaktor at work on a virtual screen, with nobody at the mouse: armed, taking photos, sending a mail and publishing, in a
# folder of its own and to servers of its own. Sourced by ./run.

# The ports, user and password are those that the servers tell: ouvre_serveurs.
# shellcheck disable=SC2154

# Everything started here ends here, on every way out. The program is asked first, so that it can end its companions.
termine_demo() {
  trap - EXIT INT TERM HUP
  local pid
  for pid in ${pid_programme:-} ${pid_serveurs:-} ${pid_ecran:-}; do
    kill -TERM "$pid" 2> /dev/null && attend_fin "$pid"
  done
  touch "$dossier/fini"
  [ -z "${pid_annonce:-}" ] || attend_fin "$pid_annonce"
  rm -f "$dossier/fini"
  attend_compagnons
}

# attend_fin PID: what does not end within a few seconds is ended.
attend_fin() {
  local tour
  for ((tour = 0; tour < 50; tour++)); do
    kill -0 "$1" 2> /dev/null || break
    sleep 0.1
  done
  kill -KILL "$1" 2> /dev/null
  wait "$1" 2> /dev/null
}

# The companions end by themselves after the program's "Quit*"; one that does not is ended here. They are found by the
# private folder that they were started with, which nobody else has.
attend_compagnons() {
  local tour pid restants signal
  for ((tour = 0; tour < 60; tour++)); do
    restants=()
    for pid in $(pgrep -u "$(id -u)" '^VAKTOR' 2> /dev/null); do
      { tr '\0' '\n' < "/proc/$pid/environ"; } 2> /dev/null | grep -qxF "VAKTOR_DOSSIER=$dossier" &&
        restants+=("$pid")
    done
    [ ${#restants[@]} -gt 0 ] || return 0
    signal=0
    [ $tour -ne 40 ] || signal=TERM
    [ $tour -ne 55 ] || signal=KILL
    kill -$signal "${restants[@]}" 2> /dev/null
    sleep 0.1
  done
}

# depuis START [END]: seconds from START to END, or until now, with one decimal. Both are readings of EPOCHREALTIME.
depuis() {
  local fin=${2:-$EPOCHREALTIME} ecart
  ecart=$((${fin/[.,]/} - ${1/[.,]/}))
  printf '%d.%d' $((ecart / 1000000)) $((ecart / 100000 % 10))
}

# cree_cle_ecran FILE: the key of a virtual screen, for "Xvfb -auth". Without one every user of this machine could look at
# what the camera sees there, and type into its windows.
cree_cle_ecran() {
  # One entry that fits every address: family, address, number of the screen, name of the protocol, key.
  (umask 077 && { printf '\377\377\0\0\0\0\0\022MIT-MAGIC-COOKIE-1\0\020' && head -c 16 /dev/urandom; } > "$1")
}

# Whether there is a screen to work on: one of X that answers, or a Wayland compositor's, which need not know X.
a_un_ecran() {
  local prise=${WAYLAND_DISPLAY:-}
  [ -z "$prise" ] || [ "${prise#/}" != "$prise" ] || prise=${XDG_RUNTIME_DIR:-}/$prise
  [ -S "$prise" ] || { [ -n "${DISPLAY:-}" ] && xdpyinfo > /dev/null 2>&1; }
}

# Starts a virtual screen under the first number that is free; the server picks it and tells.
ouvre_ecran() {
  local tuyau numero
  tuyau=$dossier/ecran
  mkfifo "$tuyau" || return 1
  cree_cle_ecran "$dossier/Xauthority" || return 1
  # In a session of its own: Ctrl-C reaches all of this one, and a screen that goes first takes the program with it before
  # that has told its companions.
  setsid Xvfb -displayfd 7 -screen 0 1280x1400x24 -nolisten tcp -auth "$dossier/Xauthority" \
    7> "$tuyau" 2> "$dossier/Xvfb.log" &
  pid_ecran=$!
  read -r -t 20 numero < "$tuyau" || return 1
  rm -f "$tuyau"
  export DISPLAY=:$numero XAUTHORITY=$dossier/Xauthority
  # On a Wayland desktop the program would show itself there, to whoever sits in front of it.
  export QT_QPA_PLATFORM=xcb XDG_SESSION_TYPE=x11
  unset WAYLAND_DISPLAY
}

# Starts the mail, FTP and web server and takes their ports over: port_smtp, port_ftp, port_web, user_ftp, pass_ftp.
ouvre_serveurs() {
  local tour
  # Debian's own Python: it is the one for which the packages are.
  /usr/bin/python3 scripts/demo_peers.py "$dossier" > "$dossier/servers.log" 2>&1 &
  pid_serveurs=$!
  for ((tour = 0; tour < 200; tour++)); do
    if [ -e "$dossier/ports" ]; then
      # shellcheck source=/dev/null
      . "$dossier/ports"
      return 0
    fi
    kill -0 "$pid_serveurs" 2> /dev/null || break
    sleep 0.1
  done
  return 1
}

# photographie_ecran NAME: the windows as they stand.
photographie_ecran() {
  import -silent -window root "$dossier/$1.png" 2> "$dossier/import.log"
}

# clique WINDOW X Y [BUTTON]: a click into the window with that title.
clique() {
  local fenetre
  fenetre=$(xdotool search --onlyvisible --name "^$1\$" 2> /dev/null | head -n 1)
  [ -n "$fenetre" ] || return 1
  xdotool mousemove --window "$fenetre" "$2" "$3" sleep 0.1 click "${4:-1}" sleep 0.2
}

# The page of the web site, on the FTP page of the window: what a user clicks once, as soon as the site is connected.
demande_page() {
  clique Vaktor 260 70 && clique Vaktor 356 96 && sleep 0.3 && photographie_ecran ftp-page && clique Vaktor 44 70
}

# The enlarged view, over the whole screen: in the menu under the right mouse button of the monitor. It stays to the end.
montre_agrandie() {
  clique Monitor 300 200 3 || return 1
  xdotool mousemove_relative 20 12 sleep 0.1 click 1
}

# The page as a visitor sees it.
photographie_page() {
  local options=(--headless --disable-gpu --disable-dev-shm-usage --no-first-run --hide-scrollbars
    --user-data-dir="$dossier/chromium" "--window-size=1000,1400")
  [ -e "$dossier/site/live.html" ] || return 1
  [ "$(id -u)" != 0 ] || options+=(--no-sandbox)
  timeout 60 chromium "${options[@]}" --screenshot="$dossier/web-page.png" \
    "http://127.0.0.1:$port_web/live.html" > "$dossier/chromium.log" 2>&1
  rm -rf "$dossier/chromium"
  [ -s "$dossier/web-page.png" ]
}

# Tells every photo as it is written, until there is a file "fini" in the folder. By itself beside everything else, for
# what happens on the screen takes a second or two.
annonce_photos() {
  local photo nom fini
  local -A dites=()
  until [ -n "${fini:-}" ]; do
    [ ! -e "$dossier/fini" ] || fini=oui
    for photo in "$dossier"/intrus/*.jpg; do
      nom=${photo##*/}
      if [ -z "${dites[$nom]:-}" ] && [ -s "$photo" ]; then
        dites[$nom]=1
        printf '  %6s s  photo %s\n' "$(depuis "$debut_demo")" "$nom"
      fi
    done
    sleep 0.1
  done
}

# Counts every photo that is new since the last call. Names sort in the order in which they were taken.
compte_photos() {
  local photo nom
  for photo in "$dossier"/intrus/*.jpg; do
    [ -e "$photo" ] || return 0
    nom=${photo##*/}
    [ -z "${vues[$nom]:-}" ] || continue
    vues[$nom]=1
    if [ -z "$premiere" ]; then
      premiere=$(depuis "$debut_demo" "$(LC_ALL=C stat -c %.6Y "$photo")")
      premier_fichier=$photo
      photo_ecran=$((SECONDS + 1))
    fi
    # Photos after a pause: somebody is in the picture again. The enlarged view is worth looking at then.
    if [ -n "$agrandie" ] && [ $((SECONDS - derniere_seconde)) -ge 4 ]; then
      agrandie="" photo_agrandie=$((SECONDS + 1))
    fi
    derniere_seconde=$SECONDS
  done
}

# Tells what has come to the servers since the last call: each mail and page, of the rest the first.
signale_serveurs() {
  local genre texte ligne=0
  while read -r _ genre texte; do
    [ $((++ligne)) -gt "$lignes_lues" ] || continue
    lignes_lues=$ligne
    case $genre in
      mail) printf '  %6s s  mail accepted: %s\n' "$(depuis "$debut_demo")" "$texte" ;;
      page) printf '  %6s s  page published, with %s photos\n' "$(depuis "$debut_demo")" "$texte" ;;
      live) [ -n "$en_ligne" ] || printf '  %6s s  first live image on the web site\n' "$(depuis "$debut_demo")" ;;
      published) [ -n "$publiee" ] || printf '  %6s s  first photo on the web site\n' "$(depuis "$debut_demo")" ;;
    esac
    # Asked for once the site is connected and the splash has gone, and again while it does not come.
    [ "$genre" != live ] || [ -n "$en_ligne" ] || demande_a=$((SECONDS + 2))
    [ "$genre" != live ] || en_ligne=oui
    [ "$genre" != published ] || publiee=oui
  done < "$dossier/events"
}

# What happens on the screen while Vaktor works: at most one thing a turn.
joue_scene() {
  if [ $SECONDS -ge "$demande_a" ] && [ ! -e "$dossier/site/live.html" ]; then
    demande_a=$((SECONDS + 5))
    demande_page
  elif [ -n "$photo_ecran" ] && [ $SECONDS -ge "$photo_ecran" ]; then
    photo_ecran=
    photographie_ecran windows
    scene_agrandie=$((SECONDS + 5))
  elif [ -n "$scene_agrandie" ] && [ $SECONDS -ge "$scene_agrandie" ]; then
    scene_agrandie=
    montre_agrandie && agrandie=oui
  elif [ -n "$photo_agrandie" ] && [ $SECONDS -ge "$photo_agrandie" ]; then
    photo_agrandie=
    photographie_ecran enlarged
  fi
}

# surveille SECONDS: until the time is over or the program has ended; gives its status then.
surveille() {
  local fin=$((SECONDS + $1)) code
  while [ $SECONDS -lt $fin ]; do
    if ! kill -0 "$pid_programme" 2> /dev/null; then
      wait "$pid_programme"
      code=$?
      pid_programme=
      echo "Vaktor has ended by itself (status $code); what it said:"
      cat "$dossier/vaktor.log"
      return $code
    fi
    if [ -z "$prolonge" ] && grep -qs 'registered late' "$dossier/etat/VAKTORftp.log"; then
      # Its connection is then asked for a second time, a minute after the start.
      prolonge=oui fin=$((fin + 60))
      echo "The machine is so busy that the FTP companion came late: the web site comes a minute later; 60 s more."
    fi
    compte_photos
    signale_serveurs
    joue_scene
    sleep 0.2
  done
}

# demontre PROGRAM SECONDS START ARGUMENT...
demontre() {
  local programme=$1 secondes=$2 code
  debut_demo=$3
  shift 3
  dossier=$(mktemp -d "${TMPDIR:-/tmp}/vaktor-demo.XXXXXX") || echoue "no temporary folder"
  premiere="" premier_fichier="" photo_ecran="" scene_agrandie="" derniere_seconde="" en_ligne="" publiee=""
  lignes_lues=0 demande_a=999999 prolonge="" agrandie="" photo_agrandie=""
  declare -gA vues=()
  trap 'termine_demo; exit 130' INT TERM HUP
  trap termine_demo EXIT

  ouvre_serveurs || echoue "the servers of the demonstration could not be started; see $dossier/servers.log"
  ecrit_reglages > "$dossier/vaktor.ini"
  chmod 600 "$dossier/vaktor.ini"
  ouvre_ecran || echoue "the virtual screen could not be started; see $dossier/Xvfb.log"
  echo "Starting Vaktor on the virtual screen $DISPLAY, armed and publishing, for $secondes s. Ctrl-C ends it sooner."
  echo "Mail server: 127.0.0.1:$port_smtp. FTP server: 127.0.0.1:$port_ftp. Web site: http://127.0.0.1:$port_web/live.html"
  "$programme" "$@" /alarm /surve "/dossier:$dossier" > "$dossier/vaktor.log" 2>&1 &
  pid_programme=$!
  annonce_photos &
  pid_annonce=$!
  surveille "$secondes"
  code=$?

  [ -e "$dossier/windows.png" ] || [ -z "${pid_programme:-}" ] || photographie_ecran windows
  [ -z "$agrandie$photo_agrandie" ] || [ -z "${pid_programme:-}" ] || photographie_ecran enlarged
  local page
  page=$(decrit_page)
  termine_demo
  compte_photos
  echo
  raconte "$programme" "$page"
  [ "$code" = 0 ]
}

decrit_page() {
  if [ ! -e "$dossier/site/live.html" ]; then
    echo "no page was published"
  elif ! command -v chromium > /dev/null; then
    echo "$dossier/site/live.html (no screenshot of it: chromium is not installed)"
  elif photographie_page; then
    echo "$dossier/web-page.png (of $dossier/site/live.html)"
  else
    echo "$dossier/site/live.html (no screenshot of it: chromium failed, see $dossier/chromium.log)"
  fi
}

# raconte PROGRAM PAGE: what there is to see at the end.
raconte() {
  local mouvement=()
  if [ -n "$premiere" ]; then
    echo "From the command to the first photo: $premiere s. Photos on disk: ${#vues[@]}."
    mouvement=("$(LC_ALL=C stat -c %.3Y "$premier_fichier")")
  else
    echo "No photo was taken: nothing moved in front of the camera while the alarm was armed."
  fi
  /usr/bin/python3 scripts/demo_peers.py --report "$dossier" "${mouvement[@]}"
  echo
  echo "Photos:      $dossier/intrus"
  echo "Mails:       $dossier/mails, the photos of each beside it"
  echo "Web page:    $2"
  local nom
  for nom in windows ftp-page enlarged; do
    [ ! -e "$dossier/$nom.png" ] || echo "Screenshot:  $dossier/$nom.png"
  done
  echo "Program:     $1 (what it said: $dossier/vaktor.log; its companions: $dossier/etat)"
  echo "Settings:    $dossier; nothing else on this machine was touched, the folder can be deleted."
}

# A fresh user's settings, but for these: English; photos, mail and live page are on.
ecrit_reglages() {
  cat << FIN
[%general]
langue=1
retard=10

[PHOTO]
actif=1

[MAIL]
actif=1
destination=you@demo.test
smtpserveur=127.0.0.1
smtpport=$port_smtp
smtpfrom=vaktor@demo.test
smtpactif=True
smtpneedlogin=False

[FTP]
html=http://127.0.0.1:$port_web/
ftp=127.0.0.1:$port_ftp
user=$user_ftp
pass=$pass_ftp
racine=/
refresh=2
FIN
}
