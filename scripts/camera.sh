# Which camera a run has. Sourced by ./run.

# sait_capturer NAME: whether the V4L2 device /dev/NAME gives pictures. One camera makes several nodes (uvcvideo adds
# one for metadata): udev has asked each what it can do; without udev the first node of a camera is the one.
sait_capturer() {
  local fiche
  fiche=/run/udev/data/c$(cat "/sys/class/video4linux/$1/dev" 2> /dev/null)
  if grep -q '^E:ID_V4L_CAPABILITIES=' "$fiche" 2> /dev/null; then
    grep -q '^E:ID_V4L_CAPABILITIES=.*:capture:' "$fiche"
  else
    [ "$(cat "/sys/class/video4linux/$1/index" 2> /dev/null)" = 0 ]
  fi
}

# choisit_camera ARGUMENT...: leaves the program's own choice when there is a camera or the user names one; otherwise
# adds the built-in picture to the array "arguments". Says what was decided.
choisit_camera() {
  local argument noeud nom interdit=
  for argument in "$@"; do
    case ${argument,,} in
      /camera:*)
        echo "Camera: ${argument:8}, as asked."
        return
        ;;
    esac
  done
  for noeud in /sys/class/video4linux/video*; do
    nom=${noeud##*/}
    [ -e "$noeud" ] && sait_capturer "$nom" || continue
    if [ -r "/dev/$nom" ] && [ -w "/dev/$nom" ]; then
      echo "Camera: /dev/$nom, $(cat "$noeud/name" 2> /dev/null)."
      return
    fi
    interdit=$nom
  done
  if [ -n "$interdit" ]; then
    echo "Camera: there is /dev/$interdit, but you may not open it. (As root: adduser $(id -un) video, then log in again.)"
  else
    echo "Camera: none is connected."
  fi
  echo "Adding /camera:test, a built-in picture of a room through which something walks from time to time."
  arguments+=(/camera:test)
}
