# SPDX-License-Identifier: GPL-3.0-or-later
# Which camera a run has. Sourced by ./run. The program itself says what it would open; one thing is added here: where it
# would find no camera at all, it is given the built-in picture.

# choisit_camera PROGRAM MEMORY ARGUMENT...: says which camera a start with these arguments has. Where there is none adds
# the built-in picture to the array "arguments". MEMORY is "non" where nothing counts that was chosen in the source
# dialog, as in a demonstration, which has settings of its own.
choisit_camera() {
  local programme=$1 memoire=$2 oubli=()
  shift 2
  # Below a file there is no folder, and in it no memory.
  [ "$memoire" != non ] || oubli=(/dossier:/dev/null)
  "$programme" --cameras "$@" "${oubli[@]}"
  case $? in
    0) ;;
    3)
      echo "Adding /camera:test, a built-in picture of a room through which something walks from time to time."
      arguments+=(/camera:test)
      ;;
    *) echo "The program could not say which camera it will have." >&2 ;;
  esac
}
