#!/bin/bash
# compare.sh PROGRAM SCRIPT SUM: runs a script and compares the sum of what comes out of it, standard output and then the
# exit status. Then it runs the recording: the same goes over the wires, the controls end up the same, and so does the
# recording. What came out is printed where the sum is another: read the difference from that of the commit before.
set -u
program=$1 script=$2 sum=$3
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
failures=0
read -r came _ < <(cksum "$work/first.out")
[[ $came == "$sum" ]] || { failures=1; cat "$work/first.out"; echo "the sum is $came, not $sum"; }
head -n 1 "$work/first.script" | grep -qxE '# Tessarine [0-9.]+, [0-9]{4}-[0-9]{2}-[0-9]{2}' || failures=1
for what in script wires controls; do
  diff "$work"/{first,second}.$what || failures=1
done
exit $failures
