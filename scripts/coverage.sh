#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Line and branch coverage of the rules, from what the tests of a build with the preset "coverage" have run through.
#
#   scripts/coverage.sh [BUILD-FOLDER]
#
# Prints for each file its share of lines and of branches, and each line that no test reaches with its reason
# (unreached.py). Branches that only an exception takes are left out: the compiler puts one behind nearly every call.
set -u -o pipefail
cd "$(dirname "$(readlink -f "$0")")/.." || exit 1

construction=${1:-build/coverage}
# The rooms of the rules: neither forms nor platform, and no test.
regles='(base|texts|settings|engine|health|journal|companions|image)/([^/]+|ports/[^/]+|contract/[^/]+|comparison/[^/]+)$'
mesure=$(mktemp "${TMPDIR:-/tmp}/vaktor-coverage.XXXXXX") || exit 1
trap 'rm -f "$mesure"' EXIT

# Threads that count at the same time may leave a branch with less than nothing: that line is passed over.
gcovr --root . --gcov-ignore-parse-errors --filter "$regles" --exclude-throw-branches --exclude-unreachable-branches --json "$mesure" \
  "$construction" || exit 1
scripts/unreached.py "$mesure"
