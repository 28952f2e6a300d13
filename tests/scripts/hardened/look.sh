#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the program beside this script as those that are handed out are made, and looks for each of its defences.
#
#     look.sh COMPILER
set -u
here=$(dirname "$(readlink -f "$0")")
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
{ cmake -S "$here" -B "$work" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="$1" && cmake --build "$work"; } > "$work/log" 2>&1 ||
  { cat "$work/log"; exit 1; }
program=$work/hardened
faults=0
has() { # WHAT COMMAND PATTERN
  $2 "$program" | grep -q -E "$3" && return
  echo "missing: $1"
  faults=1
}
has "position independence" "readelf -hW" 'DYN \(Position-Independent'
has "all symbols bound at the start" "readelf -dW" 'BIND_NOW|FLAGS.*NOW'
has "read-only relocations" "readelf -lW" GNU_RELRO
has "the stack protector" "readelf -sW" __stack_chk_fail
has "fortified calls" "readelf -sW" __strcpy_chk
has "marks for calls and jumps" "objdump -d --disassemble=main" endbr64
has "a stack that is touched page by page" "objdump -d" '(or|sub)q? +\$0x(0|1000),'
exit $faults
