#!/bin/bash
# logic-analyser.sh TESSARINE-SCRIPT: the trace of a load, read by sigrok's SPI decoder, gives the words that the board
# latched and the window shows.
set -u
program=$1
examples=$(cd "$(dirname "$0")/../../examples" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

if ! command -v sigrok-cli > /dev/null; then
  printf '\n**** SKIPPED: the traces were NOT read by a logic-analyser program: sigrok-cli is not installed ****\n\n'
  exit 77
fi

# Words of different lengths: one bit a word, and the transfers that chip select frames.
decoder=spi:clk=CLOCK:mosi=DATA:cs=LE:cs_polarity=active-low:cpol=0:cpha=0:bitorder=msb-first:wordsize=1
failures=0

# load CHIP WORDS COMMAND...: that many words go out.
load() {
  local chip=$1 words=$2 decoded latched shown
  shift 2
  printf '%s\n' 'click ContinueCommand' "pick $chip" 'set RefText 26' 'set CompText 200' 'set PrescalarText 8/9' \
    'set VCOText 1880' "$@" latches |
    "$program" --trace "$work/wires.vcd" > "$work/told" || failures=$((failures + 1))
  decoded=$(sigrok-cli -i "$work/wires.vcd" -I vcd -P "$decoder" -A spi=mosi-transfer |
    sed 's/^spi-1: //; s/\b0//g; s/ //g')
  latched=$(sed -n 's/^latch\t//p' "$work/told")
  shown=$(sed -n 's/^[FMNR]register\t//p' "$work/told")
  if [ "$(echo "$decoded" | wc -l)" = "$words" ] && [ "$decoded" = "$latched" ] &&
    [ -z "$shown" -o "$shown" = "$decoded" ]; then
    echo "ok    $chip:" $decoded
  else
    printf 'WRONG %s\ndecoded:\n%s\ntold:\n%s\n' "$chip" "$decoded" "$(cat "$work/told")"
    failures=$((failures + 1))
  fi
}

load ADF4113 3 'click AllCommand' 'show Fregister Rregister Nregister'
load LMX2326 3 'click AllCommand' 'show Fregister Rregister Nregister'
load ADF4153 4 'click AllCommand' 'show Mregister Fregister Rregister Nregister'
load ADF4193 9 "set Text38 $examples/adf4193-26mhz.setup" 'click Command14(0)'
[ "$failures" = 0 ]
