#!/bin/bash
# command-line.sh PROGRAM [WINDOW...]: arguments, standard input, the trace file, and what cannot be read or written;
# then the arguments of the programs with a window, where there is no display.
set -u
program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
failures=0

# check WHAT STATUS OUT ERR COMMAND...: OUT and ERR are patterns of the shell.
check() {
  local what=$1 status=$2 out=$3 err=$4 got output errors
  shift 4
  "$@" >out 2>err
  got=$? output=$(<out) errors=$(<err)
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
check 'a dash is standard input' 0 "$word" '' "$program" --board virtual - <tune.script
check 'a file behind two dashes' 0 "$word" '' "$program" --board=virtual -- tune.script
check 'a line in a file' 2 '' 'wrong.script:3: there is no control "Nothing"' "$program" wrong.script
check 'a line of standard input' 2 '' 'stdin:3: there is no control "Nothing"' "$program" <wrong.script
check 'a file that is not there' 2 '' '*none.script cannot be read' "$program" none.script
check 'a directory' 2 '' '*. cannot be read' "$program" .
check 'a full disk' 2 '' '*standard output cannot be written' bash -c '"$1" tune.script >/dev/full' - "$program"

check 'a trace' 0 "$word" '' "$program" --trace wires.vcd tune.script
check 'three load pulses' 0 3 '' grep -cx '1#' wires.vcd
check 'a trace nowhere' 2 '*' '*none/wires.vcd cannot be written' "$program" --trace none/wires.vcd tune.script
check 'a trace on a full disk' 2 "$word" '*cannot be written in full' "$program" --trace /dev/full tune.script

# What a session of everything comes to, as it was looked over once.
cat >all.script <<'END'
click ContinueCommand
board fault no-reference
pick ADF4113
set RefText 10
set CompText 200
set PrescalarText 8/9
set VCOText 900
click AllCommand
board
board fault none
click AllCommand
board
click Hop1
set VcoText1 900
set VcoText2 905.2
set HopText 9
set DelayText 20
at 30.5 show Label8
at 170 click StopHop
click StartHop
latches
board history
board reach
time
snapshot
controls
board fault smoke
END
check 'a session of everything' 2 '' '*:27: there is no fault "smoke" among none no-echo stuck-data no-le no-reference' \
  bash -c '"$1" --trace all.vcd --record all.first - <all.script >all.out' - "$program"
check 'what came of it' 0 '4231272626 32779' '' bash -c 'cat all.out all.vcd all.first | grep -v "^# " | cksum'

check 'a recording nowhere' 2 "$word" '*none/x.script cannot be written*' "$program" --record none/x.script tune.script
check 'a recording on a full disk' 2 "$word" '*cannot be written in full' "$program" --record /dev/full tune.script
# Into a pipe goes only what nothing is written in front of or in the place of any more.
printf 'click ContinueCommand\nset VCOText 9\nset VCOText 90\nat 500 click Parallel\nclick Close1\nset VCOText 100\nset VCOText 1\n' >waits.script
"$program" --record waits.first waits.script
check 'a recording into a pipe' 0 "$(<waits.first)" '' \
  bash -c '"$1" --record >(cat) waits.script >/dev/null; wait $!' - "$program"
check 'typing on is one line of it' 0 'set VCOText 90' '' grep -m 1 VCOText waits.first

# Lines come out one by one, while the script is still being typed.
mkfifo typed
"$program" --trace wires.vcd <typed >spoken &
exec 3>typed
cat tune.script <(echo) >&3
for _ in $(seq 100); do
  [[ -s spoken ]] && break
  sleep 0.05
done
check 'a line while the script is typed' 0 "$word" '' cat spoken
check 'its words are in the trace by then' 0 3 '' grep -cx '1#' wires.vcd
exec 3>&-
wait

while IFS='|' read -r arguments why; do
  for each; do
    # shellcheck disable=SC2086 # words on purpose
    check "usage: $each $arguments" 2 '' "usage: ${each##*/} *FILE?: $why (--help lists the options)" \
      env -u DISPLAY -u WAYLAND_DISPLAY "$each" $arguments
  done
done <<'END'
--board|"--board" wants an argument
--board paper|--board is hardware, virtual or gpio, not "paper"
--trace=|--trace names no FILE.vcd
--trace a --trace b|--trace stands there twice
--serve 65536|--serve is *, not "65536"
--serve :5025|--serve is *, not ":5025"
-style|"-s" is no option
--help=1|"--help=1" is no option
a b|"b" is one word too many
--wires wrong.script|--wires goes with --board gpio
--board gpio --wires none|none cannot be read
--board gpio --wires wrong.script|wrong.script, line 1: "wait" is no role
END
check 'help on a full disk' 2 '' '*' bash -c '"$1" --help >/dev/full' - "$program"
for each; do
  check "help of $each" 0 'usage: *  --trace FILE.vcd  *' '' "$each" -h
  check "version of $each" 0 "${each##*/} [1-9]*.*.*[0-9]" '' "$each" --version
done
# The toolkit's options are those of the windows.
check "a style of $program" 2 '' 'usage: *"-s" is no option*' "$program" -style x
shift
for each; do
  check "no display for $each" 69 '' 'No window can be opened: This application failed*' env -u DISPLAY -u WAYLAND_DISPLAY "$each"
  check "the toolkit's options of $each" 0 "${each##*/} *" '' \
    env -u DISPLAY -u WAYLAND_DISPLAY "$each" -platform none --style=fusion --version
  check "a file of $each" 2 '' '*: --version cannot be read' env -u DISPLAY -u WAYLAND_DISPLAY "$each" -- --version
done

[[ $failures == 0 ]]
