#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# versions_agree.sh VERSION: whether all that tells the version of Vaktor tells this one; in the folder of the sources.
set -u
version=$(printf %s "$1" | sed 's/[.]/[.]/g')
statut=0

# cherche FILE LINE WHAT: the first line of FILE that looks like LINE has to hold WHAT.
cherche() {
  grep -m 1 -E "$2" "$1" | grep -qE "$3" && return
  echo "$1 does not tell version $version"
  statut=1
}

cherche debian/changelog '^vaktor ' "^vaktor \\($version\\) "
cherche packaging/org.vaktor.Vaktor.metainfo.xml '<release ' "version=\"$version\""
cherche packaging/vaktor.1 '^[.]TH ' "\"Vaktor $version\""
cherche packaging/vaktor.fr.1 '^[.]TH ' "\"Vaktor $version\""
cherche README.md 'vaktor_.*_amd64' "vaktor_${version}_amd64"
exit $statut
