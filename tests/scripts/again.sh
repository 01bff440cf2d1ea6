#!/bin/bash
# again.sh PROGRAM FOLDER SCRIPT: records a script of this name in that folder, runs the recording and records that:
# the same goes over the wires, the controls end up the same, and so does the recording.
set -u
program=$1 folder=$2 script=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$folder" || exit 1

# run SCRIPT NAME: what the script does, with the controls at its end.
run() {
  { cat "$1"; printf '\ncontrols\n'; } >"$work/script"
  "$program" --record "$work/$2.script" --trace "$work/$2.vcd" "$work/script" >"$work/out" 2>/dev/null
  [[ $? != 2 ]] && awk -F '\t' 'NF == 8 && $5$6 ~ /^[01][01]$/' "$work/out" | tail -n 500 >"$work/$2.controls"
  grep -v '^#' "$work/$2.vcd" >"$work/$2.wires"
}
run "$script" first
run "$work/first.script" second
failures=0
grep -qxE '# Tessarine [0-9.]+, [0-9]{4}-[0-9]{2}-[0-9]{2}' "$work/first.script" || failures=1
[[ $(wc -l <"$work/first.script") -gt 1 ]] || failures=1
for what in script wires controls; do
  [[ ! -e $work/first.$what ]] || diff "$work"/{first,second}.$what || failures=1
done
exit $failures
