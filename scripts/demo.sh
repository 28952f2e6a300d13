# Vaktor at work on a virtual screen, with nobody at the mouse: armed, taking photos, in a folder of its own. Sourced
# by ./run.

# Everything started here ends here, on every way out. The program is asked first, so that it can end its companions.
termine_demo() {
  trap - EXIT INT TERM HUP
  local pid tour
  for pid in ${pid_programme:-} ${pid_ecran:-}; do
    kill -TERM "$pid" 2> /dev/null || continue
    for ((tour = 0; tour < 50; tour++)); do
      kill -0 "$pid" 2> /dev/null || break
      sleep 0.1
    done
    kill -KILL "$pid" 2> /dev/null
    wait "$pid" 2> /dev/null
  done
}

# depuis START: seconds since START, a reading of EPOCHREALTIME, with one decimal.
depuis() {
  local ecart=$((${EPOCHREALTIME/[.,]/} - ${1/[.,]/}))
  printf '%d.%d' $((ecart / 1000000)) $((ecart / 100000 % 10))
}

# Starts a virtual screen under the first number that is free; the server picks it and tells.
ouvre_ecran() {
  local tuyau numero
  tuyau=$dossier/ecran
  mkfifo "$tuyau" || return 1
  Xvfb -displayfd 7 -screen 0 1280x1400x24 -nolisten tcp 7> "$tuyau" 2> "$dossier/Xvfb.log" &
  pid_ecran=$!
  read -r -t 20 numero < "$tuyau" || return 1
  rm -f "$tuyau"
  export DISPLAY=:$numero
}

# The windows as they stand, the frame and the two views of it side by side where the window system put them on top of
# each other.
photographie_ecran() {
  import -silent -window root "$1" 2> "$dossier/import.log"
}

# Tells every photo that is new since the last call. Names sort in the order in which they were taken.
signale_photos() {
  local photo nom
  for photo in "$dossier"/intrus/*.jpg; do
    [ -e "$photo" ] || return 0
    nom=${photo##*/}
    [ -z "${vues[$nom]:-}" ] || continue
    vues[$nom]=1
    if [ -z "$premiere" ]; then
      premiere=$(depuis "$debut_demo")
      photo_ecran=$((SECONDS + 1))
    fi
    printf '  %6s s  photo %s\n' "$(depuis "$debut_demo")" "$nom"
  done
}

# demontre PROGRAM SECONDS START ARGUMENT...
demontre() {
  local programme=$1 secondes=$2 argument
  debut_demo=$3
  shift 3
  dossier=$(mktemp -d "${TMPDIR:-/tmp}/vaktor-demo.XXXXXX") || echoue "no temporary folder"
  premiere=
  photo_ecran=
  declare -gA vues=()
  trap 'termine_demo; exit 130' INT TERM HUP
  trap termine_demo EXIT

  # A fresh user's settings, but for two: photos are on, and the alarm waits 15 seconds, so that the tolerance has found
  # its place first; else the first photos would show nothing but noise.
  ecrit_reglages "$dossier"
  ouvre_ecran || echoue "the virtual screen could not be started; see $dossier/Xvfb.log"
  echo "Starting Vaktor on the virtual screen $DISPLAY, armed, for $secondes s. Ctrl-C ends it sooner."
  "$programme" "$@" /alarm "/dossier:$dossier" > "$dossier/vaktor.log" 2>&1 &
  pid_programme=$!

  local fin=$((SECONDS + secondes)) code=0
  while [ $SECONDS -lt $fin ]; do
    if ! kill -0 "$pid_programme" 2> /dev/null; then
      wait "$pid_programme"
      code=$?
      pid_programme=
      echo "Vaktor has ended by itself (status $code); what it said:"
      cat "$dossier/vaktor.log"
      break
    fi
    signale_photos
    if [ -n "$photo_ecran" ] && [ $SECONDS -ge $photo_ecran ]; then
      photo_ecran=
      photographie_ecran "$dossier/windows.png"
    fi
    sleep 0.2
  done
  [ -e "$dossier/windows.png" ] || [ -z "${pid_programme:-}" ] || photographie_ecran "$dossier/windows.png"
  termine_demo
  signale_photos

  echo
  if [ -n "$premiere" ]; then
    echo "From the command to the first photo: $premiere s. Photos: ${#vues[@]}."
  else
    echo "No photo was taken: nothing moved in front of the camera while the alarm was armed."
  fi
  echo "Photos:      $dossier/intrus"
  [ ! -e "$dossier/windows.png" ] || echo "Screenshot:  $dossier/windows.png"
  echo "Program:     $programme (what it said: $dossier/vaktor.log)"
  echo "Settings:    $dossier; nothing else on this machine was touched, the folder can be deleted."
  [ "$code" = 0 ]
}

ecrit_reglages() {
  printf '[%%general]\nretard=15\n\n[PHOTO]\nactif=1\n' > "$1/vaktor.ini"
  chmod 600 "$1/vaktor.ini"
}
