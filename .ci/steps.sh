# SPDX-License-Identifier: GPL-3.0-or-later
# What the two commands of a build machine share: steps that all run, so that one look shows everything that is wrong.
# Sourced by bash, never run by itself.

resultat=0
bilan=()

# etape NAME COMMAND...: runs it and keeps how it went.
etape() {
  local nom=$1 debut=$SECONDS
  shift
  echo "=== $nom"
  if "$@"; then
    bilan+=("passed  $nom, $((SECONDS - debut)) s")
  else
    bilan+=("FAILED  $nom, $((SECONDS - debut)) s")
    resultat=1
  fi
}

# termine: the results in a table; ends with the worst of them.
termine() {
  echo "=== results"
  printf '%s\n' "${bilan[@]}"
  exit $resultat
}
