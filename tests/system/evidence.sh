# Checks of what the emulated computer said ($work/BENCH.told) and of the bytes that reached its port
# ($work/BENCH.bytes). Sourced. Each check takes the bench and the stage first.

failures=0
checks=0

verdict() { # RESULT TEXT
  checks=$((checks + 1))
  if [ "$1" = 0 ]; then
    echo "ok    $2"
  else
    echo "WRONG $2"
    failures=$((failures + 1))
  fi
}

conclude() {
  grep -H '^UP' "$work"/*.told | sed 's/.*\///'
  echo "$checks checks, $failures wrong (what the computers said: $work/*.told)"
  [ "$failures" = 0 ]
}

told() { awk -v stage="$2" '$1 == "STAGE" { on = $2 == stage; next } on' "$work/$1.told"; }

# The bytes of one stage, "REGISTER VALUE" each.
bytes() {
  sed -n 's/^parallel_ioport_write .* addr 0x0*\([0-7]\) val 0x\([0-9a-f]*\)$/\1 \2/p' "$work/$1.bytes" |
    awk -v stage="$2" '$1 == 7 { on = sprintf("%02x", stage) == $2; next } on'
}

# The words that a chip latches from lines "0 VALUE", in hexadecimal, one a line.
latched() { # CLOCK DATA LOAD, by their masks
  awk -v c="$1" -v d="$2" -v l="$3" '
    function digit(c) { return index("0123456789abcdef", c) - 1 }
    $1 == 0 {
      low = digit(tolower(substr($2, length($2))))
      clock = int(low / c) % 2; data = int(low / d) % 2; load = int(low / l) % 2
      if (clock && !clockBefore) bits = bits data
      if (load && !loadBefore) { print bits; bits = "" }
      clockBefore = clock; loadBefore = load
    }'
}

# Those of each load pulse, from the bytes of the port or from the pins of a USB module, step by step.
pulses() {
  if told "$1" "$2" | grep -q '^USB . levels'; then
    told "$1" "$2" | sed -n 's/^USB . levels //p' | fold -w 2 | sed 's/^/0 /' | latched 8 4 2
  else
    bytes "$1" "$2" | latched 1 2 4
  fi
}

# Of a stage on "USB" without the empty pulses: there each word has one of its own, and then the port's.
wire() {
  if grep -q "^STAGE $2 .*USB" "$work/$1.told"; then pulses "$1" "$2" | grep .; else pulses "$1" "$2"; fi
}

# Those of each load pulse are what the virtual board latches from the same script.
boardAgrees() { # SCRIPT
  local board latched
  board=$( (cat "$3"; echo latches) | "$program" | grep '^latch')
  latched=$(pulses "$1" "$2" | sed 's/^/latch\t/')
  [ "$(echo "$board" | wc -l)" -gt 80 ] && [ "$board" = "$latched" ]
  verdict $? "$1, stage $2: $(echo "$latched" | wc -l) load pulses are those of the virtual board"
  [ "$board" = "$latched" ] || diff <(echo "$board") <(echo "$latched")
}

panel() { told "$1" "$2" | awk -F '\t' 'NF == 2 && $2 ~ /^[01]+$/ { print $2 }'; }

wordsAgree() { # [LAST]
  local shown latched
  shown=$(panel "$1" "$2" | tail -n "${3:-99}")
  latched=$(wire "$1" "$2" | tail -n "${3:-99}")
  [ -n "$shown" ] && [ "$shown" = "$latched" ]
  verdict $? "$1, stage $2: the words on the wire are the ones on the panel: $(echo $shown)"
  [ "$shown" = "$latched" ] || printf 'on the wire:\n%s\ntold:\n%s\n' "$latched" "$(told "$1" "$2")"
}

# The trace that the program saved tells of the same words, from time 0 on, with load enable never rising in the tick
# of a clock edge.
traceAgrees() {
  local traced
  traced=$(told "$1" "$2" | sed -n 's/^VCD //p' | awk '
    /^#/ { if (NR > 1 && loadRose && clockMoved) print "both edges at", time; time = $0; loadRose = clockMoved = 0
      if (!begun++ && time != "#0") print "begins at", time }
    /^[01]!$/ { clockMoved = 1; if ($0 == "1!") bits = bits data }
    /^[01]"$/ { data = substr($0, 1, 1) }
    /^[01]#$/ { if ($0 == "1#") { loadRose = 1; print bits; bits = "" } }')
  [ -n "$traced" ] && [ "$traced" = "$(wire "$1" "$2")" ]
  verdict $? "$1, stage $2: the saved trace tells of the words on the wire"
  [ "$traced" = "$(wire "$1" "$2")" ] || printf 'traced:\n%s\n' "$traced"
}

says() { # TEXT
  told "$1" "$2" | grep -qF -- "$3"
  verdict $? "$1, stage $2: says \"$3\""
}

endedWith() { # STATUS
  told "$1" "$2" | grep -qx "EXIT $3"
  verdict $? "$1, stage $2: ends with $3"
}

# The working screen opens in spite of the message.
goesOn() {
  told "$1" "$2" | grep -qx "GeneralFrame	1" && told "$1" "$2" | grep -qx "EXIT 3"
  verdict $? "$1, stage $2: the program goes on and tells the writes that were given up"
}

# Lines of what was told, one directly behind the other.
inOrder() { # LINE...
  local bench=$1 stage=$2 all
  shift 2
  all=$'\n'$(told "$bench" "$stage")$'\n'
  [[ $all == *$'\n'"$(printf '%s\n' "$@")"$'\n'* ]]
  verdict $? "$bench, stage $stage: one after the other: $*"
}

leftAtRest() { # CONTROL-REGISTER-AS-FOUND
  local last
  last=$(bytes "$1" "$2" | awk '{ last[$1] = $2 } END { print last[0], last[2] }')
  [ "$last" = "00 $3" ]
  verdict $? "$1, stage $2: leaves the lines low and the control register as found (00 $3): $last"
}

# One ioctl for each byte that the port got, and within the load nothing else but reads and waits.
callsArePortBytes() {
  local written asked others
  written=$(bytes "$1" "$2" | awk '$1 == 0' | wc -l)
  asked=$(told "$1" "$2" | awk '$1 == "CALLS" && $3 == "PPWDATA" { sum += $4 } END { print sum }')
  others=$(told "$1" "$2" |
    awk '$1 == "CALLS" && $2 == "LOAD" && $3 !~ /^(PPWDATA|PPRDATA|PPWCONTROL)$/ { printf "%s %s ", $3, $4 }')
  [ "$written" -gt 200 ] && [ "$written" = "$asked" ]
  verdict $? "$1, stage $2: $asked ioctls for $written port bytes"
  [[ $others =~ ^clock_nanosleep\ [0-9]+\ $ ]]
  verdict $? "$1, stage $2: beside reads and writes of the port the load has only its waits: $others"
}

# A load by the emulated computer's own clock, calculation and captions included: what a run with more loads takes
# longer than a run with one.
loadTakes() { # MORE-LOADS WAITS-IN-MILLISECONDS
  local took
  took=$(told "$1" "$2" | awk -v more="$3" '$1 == "CLOCK" { time[++n] = $2 }
    END { if (n == 3) printf "%.2f", (time[3] - 2 * time[2] + time[1]) / more }')
  awk -v took="$took" -v waits="$4" 'BEGIN { exit !(took >= waits && took <= 1.05 * waits) }'
  verdict $? "$1, stage $2: a load with $4 ms of waits takes $took ms, at most 1.05 times that"
}
