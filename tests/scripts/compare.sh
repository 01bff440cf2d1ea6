#!/bin/bash
# compare.sh PROGRAM SCRIPT EXPECTED: runs a script and compares all that comes out of it with the file EXPECTED:
# standard output, then standard error with "! " in front, then the exit status.
# With ACCEPT=1 it writes that file instead; read the difference before you commit it.
set -u
program=$1 script=$2 expected=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$program" "$script" >"$work/out" 2>"$work/err" </dev/null
status=$?
sed 's/^/! /' "$work/err" >>"$work/out"
echo "status $status" >>"$work/out"
if [ "${ACCEPT:-}" = 1 ]; then
  cp "$work/out" "$expected"
else
  diff -u "$expected" "$work/out"
fi
