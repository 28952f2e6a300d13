# Which camera a run has. Sourced by ./run. What is decided here is what the program will do by itself, but for one
# thing: where it would find no camera at all, it is given the built-in picture.

# Before /sys, /dev and /run; a test puts a folder of its own there.
racine_machine=

# sait_capturer NAME: whether the V4L2 device /dev/NAME gives pictures. One camera makes several nodes (uvcvideo adds
# one for metadata): udev has asked each what it can do; without udev the first node of a camera is the one.
sait_capturer() {
  local capacites
  if capacites=$(lit_fiche "$1" ID_V4L_CAPABILITIES); then
    [[ $capacites == *:capture:* ]]
  else
    [ "$(cat "$racine_machine/sys/class/video4linux/$1/index" 2> /dev/null)" = 0 ]
  fi
}

# lit_fiche NAME FIELD: what udev knows of the device.
lit_fiche() {
  local fiche
  fiche=$racine_machine/run/udev/data/c$(cat "$racine_machine/sys/class/video4linux/$1/dev" 2> /dev/null)
  [ -r "$fiche" ] && grep -q "^E:$2=" "$fiche" && sed -n "s/^E:$2=//p" "$fiche"
}

# The card's own name.
nomme_carte() {
  lit_fiche "$1" ID_V4L_PRODUCT || cat "$racine_machine/sys/class/video4linux/$1/name" 2> /dev/null
}

# Fills the array "cameras" with the names of the nodes that give pictures and may be opened, in the order of their
# numbers; "interdit" gets one that may not be.
liste_cameras() {
  local noeud nom
  cameras=() interdit=
  while read -r noeud; do
    nom=${noeud##*/}
    sait_capturer "$nom" || continue
    if [ -r "$racine_machine/dev/$nom" ] && [ -w "$racine_machine/dev/$nom" ]; then
      cameras+=("$nom")
    else
      interdit=$nom
    fi
  done < <(printf '%s\n' "$racine_machine"/sys/class/video4linux/video[0-9]* | sort -V)
}

# porte_nom NAME STABLE: whether the device carries this name, by which the program remembers it: udev's link, or
# DRIVER|CARD|BUS with #RANK where a camera has several nodes. Of a bus that is not USB the name is not known here:
# driver and card must do.
porte_nom() {
  local appareil nom usb rang
  if [[ $2 == /dev/v4l/by-id/* ]]; then
    [ "$(readlink -f "$racine_machine$2")" = "$(readlink -f "$racine_machine/dev/$1")" ]
    return
  fi
  appareil=$(readlink -f "$racine_machine/sys/class/video4linux/$1/device")
  nom="$(basename "$(readlink -f "$appareil/driver")")|$(nomme_carte "$1")|"
  if ! usb=$(cat "${appareil%/*}/devpath" 2> /dev/null); then
    [[ $2 == "$nom"* ]]
    return
  fi
  appareil=${appareil%%/usb[0-9]*}
  rang=$(cat "$racine_machine/sys/class/video4linux/$1/index" 2> /dev/null)
  [ "${rang:-0}" != 0 ] && rang="#$rang" || rang=
  [ "$2" = "${nom}usb-${appareil##*/}-$usb$rang" ]
}

# masque_adresse ADDRESS: as it may be shown, without its password. The same rules as
# platform/capture/choice/address_mask.h; a test holds them together.
masque_adresse() {
  local adresse=$1 reste
  reste=${adresse#*://}
  if [[ $adresse == *://* && $reste == *:*@* ]]; then
    adresse="${adresse%%://*}://${reste%%:*}:•••••@${reste##*@}"
  fi
  printf '%s' "$adresse" | LC_ALL=C tr '\000-\037\177' '?' |
    LC_ALL=C sed -E 's/([?&;][a-z_]*(pass|pwd|psw|secret|token|auth|key)[a-z_]*=)[^&;#]*/\1•••••/Ig'
}

# decode_pourcents TEXT
decode_pourcents() {
  local texte=${1//\\/\\\\}
  printf '%b' "${texte//%/\\x}"
}

# lit_argument NAME ARGUMENT...: the text of the last "NAMEtext", in capitals or not; of no such argument nothing.
lit_argument() {
  local nom=$1 argument texte=
  shift
  for argument in "$@"; do
    [[ ${argument,,} != "$nom"* ]] || texte=${argument:${#nom}}
  done
  printf '%s' "$texte"
}

# fichier_memoire ARGUMENT...: where the program keeps what its camera dialogs remember.
fichier_memoire() {
  local dossier
  dossier=$(lit_argument /dossier: "$@")
  [ -n "$dossier" ] || case ${XDG_CONFIG_HOME:-} in
    /*) dossier=$XDG_CONFIG_HOME/vaktor ;;
    *) dossier=$HOME/.config/vaktor ;;
  esac
  printf '%s' "$dossier/capture.ini"
}

# lit_source FILE: the source that was chosen in the source dialog; nothing where none was, or in a damaged file, which
# the program takes for an empty one too. The form of the file: platform/capture/choice/capture_memory.h.
lit_source() {
  [ -f "$1" ] && [ -r "$1" ] || return 0
  decode_pourcents "$(awk '
    $0 == "" { next }
    $0 == "[Source]" || $0 == "[Formats]" { section = $0; next }
    section == "[Source]" { source = $0; next }
    section == "" || !/^.+=[^ ]+ [0-9]+x[0-9]+ [0-9]+\/[0-9]+$/ { abime = 1 }
    END { if (!abime) print source }' "$1")"
}

# dit_source SOURCE: tells of a source that is no device, and is true then.
dit_source() {
  local choix="as chosen in the source dialog" lieu=$1
  case ${1,,} in
    rtsp://* | rtsps://* | http://* | https://*)
      echo "Camera: $(masque_adresse "$1"), $choix."
      return ;;
    test)
      echo "Camera: the built-in picture, $choix."
      return ;;
    file://*) lieu=$(decode_pourcents "${1:7}") ;;
    '' | /dev/*) return 1 ;;
    # A name of neither folder nor suffix, or with bars, is a device's.
    *) [ -f "$1" ] || { [[ $1 != *'|'* ]] && [[ $1 == */* || $1 == *.* ]]; } || return 1 ;;
  esac
  echo "Camera: the film $(masque_adresse "$lieu"), $choix."
  [ -e "$lieu" ] || echo "It is not there any more: the source dialog is where another one can be chosen."
}

# dit_peripherique SOURCE: tells which device will be opened, by what was remembered; false where there is none.
dit_peripherique() {
  local nom suite=.
  liste_cameras
  [ ${#cameras[@]} -gt 0 ] || return 1
  if [ -n "$1" ]; then
    for nom in "${cameras[@]}"; do
      if porte_nom "$nom" "$1"; then
        echo "Camera: /dev/$nom, $(nomme_carte "$nom"), as chosen in the source dialog."
        return
      fi
    done
    suite="; the one that was chosen in the source dialog is not connected."
  fi
  echo "Camera: /dev/${cameras[0]}, $(nomme_carte "${cameras[0]}")$suite"
}

# choisit_camera FILE ARGUMENT...: leaves the program's own choice when the user names a camera, has chosen one that
# FILE remembers (empty: nothing counts as remembered), or when there is one; otherwise adds the built-in picture to the
# array "arguments". Says what was decided.
choisit_camera() {
  local memoire=$1 source
  shift
  source=$(lit_argument /camera: "$@")
  if [ -n "$source" ]; then
    echo "Camera: $(masque_adresse "$source"), as asked."
    return
  fi
  source=
  [ -z "$memoire" ] || source=$(lit_source "$memoire")
  dit_source "$source" || dit_peripherique "$source" && return
  if [ -n "$interdit" ]; then
    echo "Camera: there is /dev/$interdit, but you may not open it. (As root: adduser $(id -un) video, then log in again.)"
  else
    echo "Camera: none is connected."
  fi
  echo "Adding /camera:test, a built-in picture of a room through which something walks from time to time."
  arguments+=(/camera:test)
}
