#!/bin/bash
# command-line.sh PROGRAM [WINDOW...]: arguments, standard input, the trace file, and what cannot be read or written;
# then the arguments of the programs with a window, where there is no display.
set -u
program=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
shopt -s extglob
failures=0

# check WHAT STATUS OUT ERR COMMAND...: OUT and ERR are patterns of the shell.
check() {
  local what=$1 status=$2 out=$3 err=$4
  shift 4
  "$@" >out 2>err
  local got=$?
  local output errors
  output=$(<out) errors=$(<err)
  # shellcheck disable=SC2053 # patterns on purpose
  if [[ $got != "$status" || $output != $out || $errors != $err ]]; then
    failures=$((failures + 1))
    printf 'FAILED: %s\nstatus %s, not %s\nout: %s\nerr: %s\n' "$what" "$got" "$status" "$output" "$errors"
  fi
}

printf 'click ContinueCommand\r\npick ADF4113\r\nset RefText 10\r\nset CompText 200\r\nset PrescalarText 8/9\r\nset VCOText 900\r\nclick AllCommand\r\nshow Nregister' >tune.script
printf 'wait 5\n\nclick Nothing\n' >wrong.script
word=$'Nregister\t000000100011001000010001'

check 'no script at all' 0 '' '' "$program" </dev/null
check 'standard input' 0 "$word" '' "$program" <tune.script
check 'a dash is standard input' 0 "$word" '' "$program" - <tune.script
check 'the virtual board by name' 0 "$word" '' "$program" --board virtual tune.script
check 'a line in a file' 2 '' 'wrong.script:3: there is no control "Nothing"' "$program" wrong.script
check 'a line of standard input' 2 '' 'stdin:3: there is no control "Nothing"' "$program" <wrong.script
check 'a file behind two dashes' 0 "$word" '' "$program" --board=virtual -- tune.script
usages=('--board' '--board paper' '--trace' '--trace=' '--frobnicate' '-x' '--help=1'
  '--wires wrong.script' '--board gpio --wires none' '--board gpio --wires wrong.script')
for each in "$program" "$@"; do
  check "help of $each" 0 'usage: *' '' "$each" --help
  check "version of $each" 0 "${each##*/} +([0-9]).+([0-9]).+([0-9])" '' "$each" --version
  # The toolkit's options are those of the windows.
  if [[ $each == "$program" ]]; then others=('-style x'); else others=('-style'); fi
  for arguments in "${usages[@]}" "${others[@]}"; do
    # shellcheck disable=SC2086 # words on purpose
    check "usage: $each $arguments" 2 '' $'usage: !(*\n*)' env -u DISPLAY -u WAYLAND_DISPLAY "$each" $arguments
  done
done
for each; do
  check "the toolkit's options of $each" 0 "${each##*/} *" '' \
    env -u DISPLAY -u WAYLAND_DISPLAY "$each" -platform none --style=fusion --version
done
check 'a file that is not there' 2 '' '*none.script cannot be read' "$program" none.script
check 'a directory' 2 '' '*. cannot be read' "$program" .
check 'a full disk' 2 '' '*standard output cannot be written' bash -c '"$1" tune.script >/dev/full' - "$program"

check 'a trace' 0 "$word" '' "$program" --trace wires.vcd tune.script
for line in '$timescale 1 us $end' '$var wire 1 ! CLOCK $end' '$var wire 1 " DATA $end' '$var wire 1 # LE $end'; do
  check "the trace says $line" 0 "$line" '' grep -xF "$line" wires.vcd
done
check 'three load pulses' 0 3 '' grep -cx '1#' wires.vcd
check 'three words of 24 clock pulses' 0 72 '' grep -cx '1!' wires.vcd
check 'a trace nowhere' 2 '*' '*none/wires.vcd cannot be written' "$program" --trace none/wires.vcd tune.script
check 'a trace on a full disk' 2 "$word" '*cannot be written in full' "$program" --trace /dev/full tune.script

check 'a recording' 0 "$word" '' "$program" --record session.script tune.script
check 'what was typed is recorded' 0 1 '' grep -cx 'set VCOText 900' session.script
check 'a recording nowhere' 2 "$word" '*none/x.script cannot be written*' "$program" --record none/x.script tune.script
check 'a recording on a full disk' 2 "$word" '*cannot be written in full' "$program" --record /dev/full tune.script
# Into a pipe goes only what nothing is written in front of or in the place of any more.
printf 'click ContinueCommand\nset VCOText 9\nset VCOText 90\nat 500 click Parallel\nclick Close1\nset VCOText 1\n' >waits.script
"$program" --record waits.first waits.script
check 'a recording into a pipe' 0 "$(<waits.first)" '' \
  bash -c '"$1" --record >(cat) waits.script >/dev/null; wait $!' - "$program"

# Lines come out one by one, while the script is still being typed.
mkfifo typed
"$program" <typed >spoken &
exec 3>typed
echo 'click ContinueCommand' >&3
echo 'visible GeneralFrame' >&3
for _ in $(seq 100); do
  [[ -s spoken ]] && break
  sleep 0.05
done
check 'a line while the script is typed' 0 $'GeneralFrame\t1' '' cat spoken
exec 3>&-
wait

[[ $failures == 0 ]]
