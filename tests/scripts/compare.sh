#!/bin/bash
# compare.sh PROGRAM SCRIPT EXPECTED: runs a script and compares what comes out of it with the file EXPECTED: standard
# output, then the exit status. Then it runs the recording: the same goes over the wires, the controls end up the same,
# and so does the recording. With ACCEPT=1 it writes EXPECTED first; read the difference before you commit it.
set -u
program=$1 script=$2 expected=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
controls=$'^(PllForm1|ParallelForm|BrowseForm|frmAbout)\t.*\t.*\t.*\t.*\t.*\t'

# run SCRIPT NAME: what the script does, with the controls at its end.
run() {
  { cat "$1"; printf '\ncontrols\n'; } >"$work/script"
  "$program" --record "$work/$2.script" --trace "$work/$2.vcd" "$work/script" >"$work/out"
  echo "status $?" >>"$work/out"
  grep -E "$controls" "$work/out" >"$work/$2.controls"
  grep -vE "$controls" "$work/out" >"$work/$2.out"
  grep -v '^#' "$work/$2.vcd" >"$work/$2.wires"
}
run "$script" first
run "$work/first.script" second
[[ ${ACCEPT:-} != 1 ]] || cp "$work/first.out" "$expected"
failures=0
diff -u "$expected" "$work/first.out" || failures=1
head -n 1 "$work/first.script" | grep -qxE '# Tessarine [0-9.]+, [0-9]{4}-[0-9]{2}-[0-9]{2}' || failures=1
for what in script wires controls; do
  diff "$work"/{first,second}.$what || failures=1
done
exit $failures
