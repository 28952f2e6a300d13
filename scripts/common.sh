# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run, ./test and bench/ share: Debian packages and the build. Sourced by bash, never run by itself.
# Every routine ends the calling script with a message when it cannot do its work.

echoue() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# liste_paquets FILE...: the package names in these lists, one a line; "#" starts a remark.
liste_paquets() {
  sed -e 's/#.*//' -e 's/[[:space:]]//g' -e '/^$/d' "$@" | sort -u
}

# installe_paquets FILE...: installs what is missing of these lists. When all is there, this is one question to the
# package database and no word on the screen.
installe_paquets() {
  local voulus manquants
  if ! command -v dpkg-query > /dev/null; then
    echo "This is not a Debian system: please see to it yourself that these Debian packages have their like here:"
    liste_paquets "$@" | tr '\n' ' '
    echo
    return 0
  fi
  mapfile -t voulus < <(liste_paquets "$@")
  # A package that dpkg has never heard of gives no line at all, one that was removed gives another status.
  mapfile -t manquants < <(
    comm -23 <(printf '%s\n' "${voulus[@]}") \
      <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "${voulus[@]}" 2> /dev/null |
        sed -n 's/^installed //p' | sort -u)
  )
  [ ${#manquants[@]} -gt 0 ] || return 0

  echo "Installing ${#manquants[@]} Debian packages: ${manquants[*]}"
  local eleve=()
  if [ "$(id -u)" != 0 ]; then
    command -v sudo > /dev/null ||
      echoue "packages are missing and there is no sudo. As root, type: apt-get install ${manquants[*]}"
    eleve=(sudo)
  fi
  local apt=("${eleve[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q -o Dpkg::Use-Pty=0)
  # The list of packages is fetched anew: on a fresh machine there is none, and an old one names files that are gone.
  "${apt[@]}" update || echo "The list of packages could not be refreshed; trying with the one that is there."
  "${apt[@]}" install --no-install-recommends "${manquants[@]}" ||
    echoue "these packages could not be installed: ${manquants[*]}"
}

# prepare_construction PRESET [OPTION...]: configures the build folder of a preset once. A build folder that was made
# for another place of the sources (a moved or copied folder) is made anew. Options a developer has set there stay.
prepare_construction() {
  local preset=$1 dossier=build/$1
  shift
  local chez
  chez=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$dossier/CMakeCache.txt" 2> /dev/null)
  if [ "$chez" != "$PWD" ] || [ ! -f "$dossier/build.ninja" ]; then
    cmake --fresh --preset "$preset" "$@" || echoue "the build could not be configured"
  fi
}

# construit PRESET [TARGET...]: builds on all processors.
construit() {
  local preset=$1
  shift
  local cibles=()
  [ $# -eq 0 ] || cibles=(--target "$@")
  cmake --build --preset "$preset" -j "$(nproc)" "${cibles[@]}" || echoue "the build failed"
}
