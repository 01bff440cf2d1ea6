#!/bin/bash
# again.sh PROGRAM SCRIPT: records a script, runs the recording and records that: the same goes over the wires, the
# controls end up the same, and so does the recording.
set -u
program=$1 script=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# run SCRIPT NAME: what the script does, with the controls at its end.
run() {
  { cat "$1"; printf '\ncontrols\n'; } >"$work/script"
  "$program" --record "$work/$2.script" --trace "$work/$2.vcd" "$work/script" >"$work/out"
  awk -F '\t' 'NF == 8 && $5$6 ~ /^[01][01]$/' "$work/out" >"$work/$2.controls"
  grep -v '^#' "$work/$2.vcd" >"$work/$2.wires"
}
run "$script" first
run "$work/first.script" second
failures=0
head -n 1 "$work/first.script" | grep -qxE '# Tessarine [0-9.]+, [0-9]{4}-[0-9]{2}-[0-9]{2}' || failures=1
for what in script wires controls; do
  diff "$work"/{first,second}.$what || failures=1
done
exit $failures
